// A server's answers as the network hands them over: how each transfer ended, how long it was said to be, its
// bytes. Whatever comes, the rates and the installer are taken only as the list and its signature have them,
// or not at all, and nothing half brought is left.
#include "fonte.h"

#include "calculators/modTassi.h"
#include "core/sessione.h"
#include "platform/network/firma.h"
#include "platform/network/rete.h"
#include "update/modAggiorna.h"
#include "update/scarico.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

struct Consegna
{
    FineRete Fine = FineRete::SenzaConnessione;
    qint64 Totale = -1;
    QByteArray Byte;
};

/// What is asked for next, one behind the other.
QList<Consegna>& Consegne()
{
    static QList<Consegna> Tutte;
    return Tutte;
}

class Finto : public Trasferimento
{
public:
    explicit Finto(const RichiestaRete& Chiesta)
    {
        if (Consegne().isEmpty())
            return;
        Avuta = Consegne().takeFirst();
        // The door never gives more than was allowed, nor calls it whole.
        if (Avuta.Byte.size() > Chiesta.MassimoByte)
            Avuta.Fine = FineRete::TroppoGrande;
        if (Avuta.Fine == FineRete::SenzaConnessione || Avuta.Fine == FineRete::Vietata)
            return;
        QFile Nuovo(Chiesta.File);
        Pretendi(Nuovo.open(QIODevice::WriteOnly));
        Nuovo.write(Avuta.Byte);
    }
    bool Attendi(int) override { return true; }
    FineRete Fine() const override { return Avuta.Fine; }
    qint64 Ricevuti() const override { return Avuta.Byte.size(); }
    qint64 Totale() const override { return Avuta.Totale; }
    void Annulla() override {}

private:
    Consegna Avuta;
};

constexpr int Diverse = 8;  ///< ways in which a transfer ends
const QByteArray Separatore = "\n----\n";

void Carica(QByteArray Dati)
{
    Consegne().clear();
    while (!Dati.isEmpty() && Consegne().size() < 6) {
        const qsizetype Fine = Dati.indexOf(Separatore);
        const QByteArray Uno = Fine < 0 ? Dati : Dati.first(Fine);
        Dati = Fine < 0 ? QByteArray() : Dati.sliced(Fine + Separatore.size());
        Consegna Nuova;
        if (!Uno.isEmpty())
            Nuova.Fine = FineRete((uchar(Uno[0]) - '0') % Diverse);
        Nuova.Byte = Uno.mid(1);
        Nuova.Totale = Uno.size() % 3 == 0 ? -1 : Nuova.Byte.size() + Uno.size() % 3 - 1;
        Consegne().append(Nuova);
    }
}

QByteArray Sha256(const QByteArray& Byte)
{
    return QCryptographicHash::hash(Byte, QCryptographicHash::Sha256);
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    static const QByteArray Tassi = Contenuto(CartellaCostruita() + u"Tassi.dat"_s);
    const QString Casa = CartellaDiLavoro() + u"aggiorna/"_s;
    QDir(Casa).removeRecursively();
    QDir().mkpath(Casa);
    sessione::UserFolder = Casa;
    (void)Posa(u"aggiorna/Tassi.dat"_s, Tassi);
    {
        QFile Archivio(Casa + u"Tassi.dat"_s);
        Pretendi(Archivio.open(QIODevice::ReadWrite) &&
                 Archivio.setFileTime(QDateTime(QDate(2020, 1, 1), QTime(12, 0)),
                                      QFileDevice::FileModificationTime));
    }
    Rete Finta;
    Finta.Avvia = [](const RichiestaRete& Chiesta) { return std::make_unique<Finto>(Chiesta); };
    Finta.Respiro = [] { return true; };
    Rete Vera = InstallaRete(std::move(Finta));
    InstallaFileChiave(CartellaDiLavoro() + u"nessuna.pub"_s);
    // The first byte chooses between this machine, which needs no signature, and any other.
    const bool DiQui = Dati.startsWith('q');
    Carica(Dati.mid(1));
    Annuncio Trovato;
    Riesce([&] {
        (void)ControlloVersioni({DiQui ? u"http://127.0.0.1:9"_s : u"https://x.example"_s, {}}, true,
                                Trovato);
    });
    if (Trovato.Letto) {
        const EsitoScarico DiTassi = ScaricaTassi(Trovato);
        Pretendi(DiTassi.Riuscito() == DiTassi.Dettaglio.isEmpty());
        const QByteArray Ora = Contenuto(Casa + u"Tassi.dat"_s);
        const FileElencato* Voce = Trovato.Lette.Elencato(NomeTassi.toString());
        if (Ora != Tassi)
            Pretendi(DiQui && DiTassi.Riuscito() && (!Voce || Voce->Sha256 == Sha256(Ora)));
        const EsitoScarico DiProgramma = ScaricaProgramma(Trovato);
        if (DiProgramma.Riuscito()) {
            const FileElencato* Suo = Trovato.Lette.Elencato(NomeInstallatore(Trovato));
            Pretendi(DiQui && DiProgramma.File.startsWith(CartellaUpgrade()));
            Pretendi(!Suo || Suo->Sha256 == Sha256(Contenuto(DiProgramma.File)));
        }
    }
    for (const QString& Dove : {Casa, CartellaUpgrade()})
        Pretendi(QDir(Dove).entryList({u"*.parziale"_s}, QDir::Files | QDir::Hidden).isEmpty());
    InstallaRete(std::move(Vera));
    InstallaFileChiave({});
    sessione::UserFolder = CartellaDiLavoro();
}

}  // namespace

BERSAGLIO(fuzz_server, Prova);
