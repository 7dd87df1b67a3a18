#include "platform/accesso/copie.h"

#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/primariga.h"
#include "platform/system/attese.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>
#include <mutex>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MsPerGiorno = qint64(24) * 60 * 60 * 1000;

/// A copy is made in ten seconds, or not at all.
constexpr int AttesaFabbricaMs = 15'000;

/// Raised when a copy would hold something else than one of before: older copies are then made anew.
constexpr auto Edizione = "1";

QString Radice()
{
    if (!accesso::CartellaCopie.isEmpty())
        return Barra(accesso::CartellaCopie);
    const QString Cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return Cache.isEmpty() ? QString() : Barra(Cache) + Barra(u"calcanova"_s) + Barra(u"access"_s);
}

/// A file in one state, as a name of its copy.
QString NomeCopia(const QFileInfo& Info)
{
    QCryptographicHash Somma(QCryptographicHash::Sha256);
    for (const QByteArray& Parte :
         {QByteArray(Edizione), Info.canonicalFilePath().toUtf8(), QByteArray::number(Info.size()),
          QByteArray::number(Info.lastModified().toMSecsSinceEpoch())}) {
        Somma.addData(Parte);
        Somma.addData(QByteArrayView("\0", 1));
    }
    return QString::fromLatin1(Somma.result().toHex()) + u".mdb"_s;
}

/// Guards what the threads share; nobody is waited for while it is held.
std::mutex& TurnoElenco()
{
    static std::mutex Turno;
    return Turno;
}

/// Files refused in this run, by the name that their copies would have.
QHash<QString, Errore>& Rifiutati()
{
    static QHash<QString, Errore> Elenco;
    return Elenco;
}

/// One copy at a time is made.
std::mutex& TurnoCopie()
{
    static std::mutex Turno;
    return Turno;
}

/// @throws Errore of a file that was refused before
void ControllaRifiuto(const QString& Nome)
{
    const std::lock_guard Mio(TurnoElenco());
    if (const auto Noto = Rifiutati().constFind(Nome); Noto != Rifiutati().constEnd())
        throw Errore(*Noto);
}

void SegnaUso(const QString& Copia)
{
    const QDateTime Ora = QDateTime::currentDateTimeUtc();
    try {
        if (DataFile(Copia).msecsTo(Ora) > MsPerGiorno)
            ImpostaDataFile(Copia, Ora);
    } catch (const Errore&) {
        return;  // another program has swept it: it is made anew
    }
}

/// False for a copy that a loss of power has left short: nobody has waited for the disk.
bool EIntera(const QString& Copia)
{
    constexpr int Testata = 100;
    const QByteArray Inizio = InizioDelFile(Copia, Testata);
    if (Inizio.size() < Testata || !Inizio.startsWith("SQLite format 3"))
        return false;
    const quint16 Scritta = qFromBigEndian<quint16>(Inizio.constData() + 16);
    const qint64 Pagina = Scritta == 1 ? 65536 : Scritta;
    const qint64 Pagine = qFromBigEndian<quint32>(Inizio.constData() + 28);
    return Pagine > 0 && QFileInfo(Copia).size() == Pagina * Pagine;
}

/// The same for a copy that another program is writing to just now, as when an old note gets its missing
/// columns there: for a moment such a file is not as long as its head says. The engine's turn waits for that.
/// The connection is one of its own, because the shared ones belong to the main thread.
bool EInteraAlSuoTurno(const QString& Copia)
{
    if (EIntera(Copia))
        return true;
    if (!EsisteFile(Copia))
        return false;
    try {
        Connessione Propria(Copia, Connessione::Modo::Scrittura);
        Propria.Esegui(u"PRAGMA busy_timeout=%1"_s.arg(attese::BlocchiMs));
        const Blocco Turno(Propria);
        return EIntera(Copia);
    } catch (const Errore& Guasto) {
        return Guasto.Numero == errori::DatiBloccati;  // somebody is at it still: it is a copy that serves
    }
}

/// True for what is in the file: another try gives the same. A full disk or a missing program may pass.
bool PerSempre(const Errore& Guasto)
{
    return Guasto.Numero == errori::FormatoDatabase;
}

}  // namespace

void SpazzaCopie()
{
    const QString Cartella = Radice();
    if (Cartella.isEmpty() || !EsisteCartella(Cartella))
        return;
    const qint64 Ora = QDateTime::currentMSecsSinceEpoch();
    std::vector<VoceCartella> Copie;
    qint64 Tutte = 0;
    const auto Scarta = [&](const VoceCartella& Voce) { ScartaFile(Cartella + Voce.Nome); };
    // Hidden ones too: what an interrupted conversion has left begins with a dot.
    for (const QString& Nome : NomiDeiFile(Cartella)) {
        const QFileInfo Info(Cartella + Nome);
        const VoceCartella Voce{
            .Nome = Nome, .Byte = Info.size(), .Modificata = Info.lastModified().toMSecsSinceEpoch()};
        const bool Resto = !Nome.endsWith(".mdb"_L1);
        const qint64 Giorni = (Ora - Voce.Modificata) / MsPerGiorno;
        if (Giorni >= (Resto ? 1 : accesso::GiorniCopie)) {
            Scarta(Voce);
        } else if (!Resto) {
            Copie.push_back(Voce);
            Tutte += Voce.Byte;
        }
    }
    std::ranges::sort(Copie, {}, &VoceCartella::Modificata);
    for (const VoceCartella& Voce : Copie) {
        if (Tutte <= accesso::MassimoCopie)
            break;
        Scarta(Voce);
        Tutte -= Voce.Byte;
    }
}

QString CartellaDelleCopie()
{
    static QString Pronta;
    const std::lock_guard Mio(TurnoElenco());
    QString Cartella = Radice();
    if (Cartella.isEmpty())
        throw Errore(errori::Accesso);
    if (Pronta != Cartella || !EsisteCartella(Cartella)) {
        CreaCartellaPrivata(Cartella);
        SpazzaCopie();
        Pronta = Cartella;
    }
    return Cartella;
}

QString CopiaNativa(const QString& Percorso)
{
    const QString File = PercorsoNativo(Percorso);
    if (!EDiAccess(File))
        return Percorso;
    const QString Nome = NomeCopia(QFileInfo(File));
    QString Copia = CartellaDelleCopie() + Nome;
    ControllaRifiuto(Nome);
    // Of two programs or threads that want it at once one makes it, and the other one takes it. Who waits for
    // too long makes one of his own. Other files do not wait for that.
    FileBlocco Fabbrica(Copia + u".blocco"_s);
    if (!EIntera(Copia))
        (void)Fabbrica.Prendi(AttesaFabbricaMs);
    if (EInteraAlSuoTurno(Copia)) {
        SegnaUso(Copia);
        return Copia;
    }
    const std::lock_guard Mio(TurnoCopie());
    ControllaRifiuto(Nome);
    // Who had the turn before may have made it, where the system knows no locks.
    if (EIntera(Copia))
        return Copia;
    ScartaFile(Copia);
    ScartaCartella(Copia);
    ScartaFile(Copia + u"-journal"_s);  // of the old copy: it would be taken for the new one's
    try {
        (void)Converti(File, Copia, {}, false);
    } catch (const Errore& Guasto) {
        // Two programs may have made it at once: either copy will do.
        if (EsisteFile(Copia))
            return Copia;
        const std::lock_guard Elenco(TurnoElenco());
        if (PerSempre(Guasto))
            Rifiutati().insert(Nome, Guasto);
        throw;
    }
    return Copia;
}
