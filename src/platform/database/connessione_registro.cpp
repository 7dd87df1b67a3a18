// How a file becomes a connection: the checks at the door and the register of what is open.
#include "platform/database/connessione.h"

#include "platform/base/errore.h"
#include "platform/database/giornale.h"
#include "platform/database/primariga.h"
#include "platform/system/attese.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/sincrono.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QThread>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

/// Of the main thread alone, like the connections in it: it has no lock, because a connection that two
/// threads enter would interleave their transactions, whatever this list does. Work beside the windows (the
/// finder's walk, the sweep at the start, the network) opens a connection of its own, or none.
QHash<QString, std::weak_ptr<Connessione>>& Registro()
{
    static QHash<QString, std::weak_ptr<Connessione>> Aperte;
    return Aperte;
}

/// An interrupted write lies beside the file; the engine mends it when it opens the file.
bool HaGiornale(const QString& File)
{
    return QFileInfo(File + u"-journal"_s).size() > 0;
}

/// A write that was cut off in a file which is read-only by now: nobody could read it before it is undone.
/// That is done in a copy, which then takes the place, so that no moment in between leaves the file writable;
/// its names are those of a note that is being built, and go with what killed saves leave.
void RisanaSolaLettura(const QString& File)
{
    constexpr qint64 Massimo = qint64(2) << 30;
    if (!HaGiornale(File) || !CartellaScrivibile(CartellaFile(File)) || !DaRisanare(File))
        return;
    const QString Giornale = u"-journal"_s;
    const QString Accanto = CartellaFile(File) + u".~"_s + NomeFile(File);
    const QString Copia = Accanto + u".tmp"_s;
    FileBlocco Turno(Accanto + u".turno"_s);
    // Whoever has the turn mends it too.
    if (Turno.Prendi(attese::TurnoMs) != FileBlocco::Esito::Preso || !HaGiornale(File))
        return;
    try {
        (void)CopiaFile(File, Copia, Massimo, {}, Lettori::SoloUtente);
        (void)CopiaFile(File + Giornale, Copia + Giornale, Massimo, {}, Lettori::SoloUtente);
        {
            const Connessione Aperta(Copia, Connessione::Modo::Scrittura);
            Istruzione Lettura(Aperta, u"PRAGMA schema_version"_s);
            (void)Lettura.Avanza();
        }
        ScriviSulDisco(Copia);
        DaiPermessi(Copia, File, Lettori::Tutti);
        SostituisciFile(Copia, File);
        // Until it is gone, a reader who finds it undoes once more what is undone.
        ScartaFile(File + Giornale);
    } catch (const Errore&) {
        // The reader that comes next says what is wrong with the file.
        ScartaFile(Copia);
        ScartaFile(Copia + Giornale);
    }
}

// The whole content is not read (a rate archive has thousands of pages): a file that is shorter than its
// own page count is the damage that a broken copy or download leaves. The header is read through the engine:
// a thread of the finder may be reading this very file, and would lose its locks with any other handle.
//
// @return true for a file that another tool keeps with a write-ahead log
bool ControllaTestata(const QString& File)
{
    constexpr int Lunghezza = 100;
    const QByteArray Testata = InizioDelFile(File, Lunghezza);
    const qint64 Lungo = QFileInfo(File).size();
    if (Testata.isEmpty() && Lungo > 0)
        throw ErroreDelFile(errori::Accesso, File);
    if (Testata.size() < Lunghezza || !Testata.startsWith(QByteArray("SQLite format 3\0", 16)))
        throw ErroreDelFile(errori::FormatoDatabase, File);
    const auto Numero = [&](int Posto) { return qFromBigEndian<quint32>(Testata.constData() + Posto); };
    const quint16 Scritta = qFromBigEndian<quint16>(Testata.constData() + 16);
    const qint64 Pagina = Scritta == 1 ? 65536 : Scritta;
    const bool ContoValido = Numero(24) == Numero(92);
    if (ContoValido && !HaGiornale(File) && Lungo < Pagina * qint64(Numero(28)))
        throw ErroreDelFile(errori::FormatoDatabase, File);
    return Testata[18] == 2 || Testata[19] == 2;
}

void ControllaFile(const QString& Percorso)
{
    const QFileInfo Info(Percorso);
    if (!Info.exists())
        throw ErroreDelFile(errori::DatabaseMancante, Percorso);
    if (!Info.isFile() || !Leggibile(Info))
        throw ErroreDelFile(errori::Accesso, Percorso);
}

}  // namespace

namespace {

/// On a network folder the file's new length may be known here later than the journal of the colleague's
/// write that has made it longer; that journal goes with the write.
/// @return what was seen last
SpecieGiornale GiornaleCheResta(const QString& File)
{
    constexpr int PassoMs = 50;
    for (int Atteso = 0;; Atteso += PassoMs) {
        const SpecieGiornale Visto = GiornaleAccanto(File);
        if (Visto == SpecieGiornale::Suo || Atteso >= attese::GiornaleMs)
            return Visto;
        QThread::msleep(PassoMs);
    }
}

/// The journal of several databases is what makes this one whole, and is not for the user to move.
QString FraseGiornaleAltrui(const QString& File, SpecieGiornale Visto)
{
    const QString Consiglio = Visto == SpecieGiornale::DiPiuDatabase
                                  ? u"è di una scrittura, in corso o interrotta, di un altro programma: "
                                    u"aprire prima il database con quello e riprovare"_s
                                  : u"non gli corrisponde: spostarlo altrove e riprovare"_s;
    const QString Intero = QFileInfo(File).absoluteFilePath();
    return u"Il file %1-journal, che sta accanto al database nella cartella %2, %3"_s.arg(
        NomeFile(Intero), CartellaFile(Intero), Consiglio);
}

}  // namespace

bool DaRisanare(const QString& File)
{
    try {
        const Connessione Aperta(File, Connessione::Modo::SolaLettura);
        Istruzione Lettura(Aperta, u"PRAGMA schema_version"_s);
        (void)Lettura.Avanza();
        return false;
    } catch (const Errore& Guasto) {
        return Guasto.Numero == errori::DatabaseSolaLettura;
    }
}

bool ControllaPrimaDiAprire(const QString& File)
{
    ControllaFile(File);
    if (const SpecieGiornale Visto = GiornaleCheResta(File); Visto != SpecieGiornale::Suo)
        throw Errore(errori::FormatoDatabase, FraseGiornaleAltrui(File, Visto));
    return ControllaTestata(File);
}

void Connessione::Prepara()
{
    AttendiBlocchi(attese::BlocchiMs);
    Esegui(u"PRAGMA cell_size_check=ON"_s);
    Esegui(u"PRAGMA temp_store=MEMORY"_s);
    Esegui(u"PRAGMA schema_version"_s);
    Esegui(u"PRAGMA synchronous=FULL"_s);
    if (guasti::LimitePagine > 0)
        Esegui(u"PRAGMA max_page_count=%1"_s.arg(guasti::LimitePagine));
}

// Without a word the engine keeps its journal beside the file and deletes it at the end of each write, so
// that nothing stays beside the notes in the user's folder. This brings a file back to that.
void Connessione::GiornaleDaCancellare()
{
    Esegui(u"PRAGMA journal_mode=DELETE"_s);
}

std::shared_ptr<Connessione> Connessione::Condivisa(const QString& Percorso)
{
    const QString File = PercorsoNativo(Percorso);
    ControllaFile(File);
    const QString Chiave = QFileInfo(File).canonicalFilePath();
    const bool SiScrive = !SolaLettura(Chiave);
    Registro().removeIf([](const auto& Voce) { return Voce.value().expired(); });
    // The file may have been replaced, or have lost its read-only attribute, while somebody still reads
    // it as it was.
    if (const auto Presente = Registro().value(Chiave).lock();
        Presente && !Presente->Spostato() && (Presente->Scrivibile() || !SiScrive))
        return Presente;
    const bool AltroGiornale = ControllaPrimaDiAprire(Chiave);
    if (!SiScrive)
        RisanaSolaLettura(Chiave);
    // Where nothing may be written, and no log holds anything, a reader leaves no file of one either.
    const Modo Leggera =
        AltroGiornale && QFileInfo(Chiave + u"-wal"_s).size() == 0 ? Modo::Ferma : Modo::SolaLettura;
    auto Aperta = std::make_shared<Connessione>(Chiave, SiScrive ? Modo::Scrittura : Leggera);
    Aperta->Prepara();
    if (AltroGiornale && SiScrive)
        Aperta->GiornaleDaCancellare();
    Registro().insert(Chiave, Aperta);
    return Aperta;
}

std::shared_ptr<Connessione> Connessione::Nuova(const QString& Percorso, Lettori Chi)
{
    const QString File = PercorsoNativo(Percorso);
    const QFileInfo Info(File);
    if (Info.exists() || Info.isSymLink())
        throw Errore(errori::DatabasePresente);
    if (!Info.dir().exists())
        throw Errore(errori::CartellaMancante);
    if (!CartellaScrivibile(Info.path()))
        throw Errore(errori::Accesso);
    if (Chi == Lettori::SoloUtente) {
        // The engine gives its journal what the file has.
        QFile Vuoto(Info.absoluteFilePath());
        if (!Vuoto.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
            throw Errore(errori::Accesso);
    }
    try {
        auto Aperta = std::make_shared<Connessione>(Info.absoluteFilePath(), Modo::Nuovo);
        Aperta->Prepara();
        // An empty file is no database: the first table makes it one. A file that holds nothing yet needs no
        // journal, and it reaches the disk with its first content.
        Aperta->Esegui(u"PRAGMA journal_mode=MEMORY"_s);
        Aperta->Esegui(u"PRAGMA synchronous=OFF"_s);
        Aperta->Esegui(SqlTabellaCampi());
        Aperta->GiornaleDaCancellare();
        Aperta->Esegui(u"PRAGMA synchronous=FULL"_s);
        const QString Chiave = QFileInfo(File).canonicalFilePath();
        Aperta->File = Chiave;
        Registro().insert(Chiave, Aperta);
        return Aperta;
    } catch (const Errore&) {
        QFile::remove(Info.absoluteFilePath());
        throw;
    }
}
