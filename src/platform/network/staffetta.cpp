#include "platform/network/staffetta.h"

#include "platform/network/presautente.h"
#include "platform/network/segnale.h"
#include "platform/system/blocco.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QFileSystemWatcher>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int AttesaPresaMs = 250;
/// A program that is at work answers when it breathes again.
constexpr int AttesaRispostaMs = 2000;
/// A caller who neither offers nor confirms is let go.
constexpr int AttesaOffertaMs = 5000;

/// Property of a caller: the path, from its offer to its confirmation.
constexpr auto Offerto = "Offerto";

constexpr char FineOfferta = '\0';
constexpr char Accettata = 'A';
constexpr char Confermata = 'C';

bool Scrivi(QLocalSocket& Presa, const QByteArray& Byte)
{
    return Presa.write(Byte) == Byte.size() &&
           (Presa.bytesToWrite() == 0 || Presa.waitForBytesWritten(AttesaPresaMs));
}

}  // namespace

QString PresaStaffetta(const QString& Impostazioni)
{
    constexpr int Cifre = 16;
    const QByteArray Impronta =
        QCryptographicHash::hash(Impostazioni.toUtf8(), QCryptographicHash::Sha256).toHex();
    return PresaSegnale(u"calcanova-"_s + QString::fromLatin1(Impronta.left(Cifre)));
}

bool PassaFile(const QString& Impostazioni, const QString& Percorso)
{
    const QString Nome = PresaStaffetta(Impostazioni);
    const QByteArray Offerta = Percorso.toUtf8() + FineOfferta;
    const bool Offribile = !Percorso.isEmpty() && Offerta.indexOf(FineOfferta) == Offerta.size() - 1;
    if (Nome.isEmpty() || !Offribile || Offerta.size() > MassimoPercorso)
        return false;
    QLocalSocket Presa;
    Presa.connectToServer(Nome);
    if (!Presa.waitForConnected(AttesaPresaMs) || !PresaDiQuestoUtente(Presa) || !Scrivi(Presa, Offerta))
        return false;
    if (!Presa.waitForReadyRead(AttesaRispostaMs) || Presa.read(1) != QByteArray(1, Accettata))
        return false;
    return Scrivi(Presa, QByteArray(1, Confermata));
}

// ---- the turn of a start ------------------------------------------------------------------------

struct TurnoStaffetta::Interno
{
    explicit Interno(const QString& Quali) : Impostazioni(Quali)
    {
        if (const QString Nome = PresaStaffetta(Quali); !Nome.isEmpty())
            Turno.emplace(Nome + u".turno"_s);
    }
    QString Impostazioni;
    std::optional<FileBlocco> Turno;  ///< none where the user has no run-time folder: nobody listens there
};

TurnoStaffetta::TurnoStaffetta(const QString& Impostazioni) : Dati(std::make_unique<Interno>(Impostazioni))
{}

TurnoStaffetta::~TurnoStaffetta() = default;

bool TurnoStaffetta::Passa(const QString& Percorso)
{
    constexpr int PassoMs = 100;
    constexpr qint64 MassimoMs = 30'000;
    if (!Dati->Turno)
        return false;
    QElapsedTimer Passati;
    Passati.start();
    for (;;) {
        const FileBlocco::Esito Turno = Dati->Turno->Prendi(PassoMs);
        if (PassaFile(Dati->Impostazioni, Percorso))
            return true;
        if (Turno != FileBlocco::Esito::Altrui || Passati.elapsed() > MassimoMs)
            return false;
    }
}

// ---- the listener -------------------------------------------------------------------------------

Staffetta::Staffetta(const QString& Impostazioni, std::function<void(const QString&)> Azione, QObject* Padre)
    : QObject(Padre), Nome(PresaStaffetta(Impostazioni)), Apri(std::move(Azione))
{
    if (!Nome.isEmpty())
        Ascolta();
}

void Staffetta::Ascolta()
{
    if (Servitore)
        return;
    // Of several that would take a place that is free one does.
    FileBlocco Turno(Nome + u".presa"_s);
    (void)Turno.Prendi(AttesaPresaMs);
    QLocalSocket Altra;
    Altra.connectToServer(Nome);
    if (Altra.waitForConnected(AttesaPresaMs)) {
        AttendiLaFine();
        return;
    }
    QLocalServer::removeServer(Nome);  // what a killed program has left
    Servitore = new QLocalServer(this);
    Servitore->setSocketOptions(QLocalServer::UserAccessOption);
    if (!Servitore->listen(Nome)) {
        delete std::exchange(Servitore, nullptr);
        return;
    }
    QFile::setPermissions(Nome, QFile::ReadOwner | QFile::WriteOwner);
    connect(Servitore, &QLocalServer::newConnection, this, &Staffetta::Accogli);
}

/// A program that ends takes its socket along: then it is this one's turn.
void Staffetta::AttendiLaFine()
{
    if (!Sentinella) {
        Sentinella = new QFileSystemWatcher(this);
        connect(Sentinella, &QFileSystemWatcher::fileChanged, this, &Staffetta::Ascolta);
    }
    Sentinella->removePath(Nome);  // of a socket that is no more, where another program was quicker
    Sentinella->addPath(Nome);
}

Staffetta::~Staffetta() = default;

bool Staffetta::InAscolto() const
{
    return Servitore != nullptr;
}

void Staffetta::Concludi()
{
    delete std::exchange(Sentinella, nullptr);
    if (!Servitore)
        return;
    Servitore->close();
    for (QLocalSocket* Presa : Servitore->findChildren<QLocalSocket*>())
        if (Presa->property(Offerto).isValid() && Presa->state() == QLocalSocket::ConnectedState)
            (void)Presa->waitForReadyRead(AttesaPresaMs);  // it is read as it comes
    delete std::exchange(Servitore, nullptr);
}

void Staffetta::Accogli()
{
    while (QLocalSocket* Presa = Servitore->nextPendingConnection()) {
        connect(Presa, &QLocalSocket::disconnected, Presa, &QObject::deleteLater);
        if (!PresaDiQuestoUtente(*Presa)) {
            Presa->abort();
            continue;
        }
        Presa->setReadBufferSize(MassimoPercorso);
        connect(Presa, &QLocalSocket::readyRead, this, [this, Presa] { Leggi(Presa); });
        QTimer::singleShot(AttesaOffertaMs, Presa, [Presa] { Presa->abort(); });
        Leggi(Presa);  // the offer may be there already
    }
}

void Staffetta::Leggi(QLocalSocket* Presa)
{
    const QVariant Prima = Presa->property(Offerto);
    if (!Prima.isValid()) {
        const QByteArray Giunti = Presa->peek(MassimoPercorso);
        const qsizetype Fine = Giunti.indexOf(FineOfferta);
        if (Fine < 0) {
            if (Giunti.size() >= MassimoPercorso)
                Presa->abort();  // no path is so long
            return;
        }
        if (Fine == 0) {
            Presa->abort();  // no file has no name
            return;
        }
        Presa->read(Fine + 1);
        Presa->setProperty(Offerto, QString::fromUtf8(Giunti.first(Fine)));
        Presa->write(QByteArray(1, Accettata));
        Presa->flush();
        return;
    }
    const QByteArray Risposta = Presa->read(1);
    if (Risposta.isEmpty())
        return;
    Presa->disconnect(this);
    Presa->disconnectFromServer();
    if (Risposta == QByteArray(1, Confermata))
        Apri(Prima.toString());
}
