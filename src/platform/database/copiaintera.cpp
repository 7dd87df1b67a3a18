#include "platform/database/copiaintera.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/fileincopia.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString Giornale = u"-journal"_s;
const QString Log = u"-wal"_s;

/// How a database is read without changing it.
enum class Strada {
    DoveSta,  ///< as it stands, with the engine's locks
    ColLog,   ///< the same, of one that somebody keeps with a log and has open
    Ferma,    ///< as it stands, without locks: there are none, or its log holds nothing, and a reader would
              ///< leave one
    Accanto,  ///< in a copy of it and of its journal or log, where the engine mends it
};

/// True where the system knows no locks of files, as on some shares: the engine says of every database there
/// that somebody keeps it, or that the disk fails. Asked through its own handle, since closing another one
/// would give up the locks that this process has on the file.
bool SenzaBlocchi(const QString& File)
{
    constexpr std::array Codici{ENOLCK, ENOSYS, EOPNOTSUPP, ENOTSUP, EINVAL};
    const Connessione Aperta(File, Connessione::Modo::SolaLettura);
    sqlite3_file* Vero = nullptr;
    int Altrui = 0;
    if (sqlite3_file_control(Aperta.Motore(), "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&Vero)) !=
            SQLITE_OK ||
        !Vero || !Vero->pMethods || Vero->pMethods->xCheckReservedLock(Vero, &Altrui) == SQLITE_OK)
        return false;
    int Codice = 0;
    return sqlite3_file_control(Aperta.Motore(), "main", SQLITE_FCNTL_LAST_ERRNO, &Codice) == SQLITE_OK &&
           std::ranges::find(Codici, Codice) != Codici.end();
}

Strada StradaDi(const QString& File, bool AltroLog)
{
    const auto DaFermo = [&](const QString& Coda) {
        return QFileInfo(File + Coda).size() > 0 ? Strada::Accanto : Strada::Ferma;
    };
    if (SenzaBlocchi(File))
        return DaFermo(AltroLog ? Log : Giornale);
    if (!AltroLog)
        return DaRisanare(File) ? Strada::Accanto : Strada::DoveSta;
    return EsisteFile(File + Log) && EsisteFile(File + u"-shm"_s) ? Strada::ColLog : DaFermo(Log);
}

/// What tells one state of a database from another, where no lock keeps it.
struct Impronta
{
    explicit Impronta(const QString& File)
    {
        for (size_t i = 0; const QString& Coda : {u""_s, Giornale, Log}) {
            const QFileInfo Info(File + Coda);
            Byte.at(i) = Info.exists() ? Info.size() : -1;
            Quando.at(i++) = Info.lastModified().toMSecsSinceEpoch();
        }
    }
    friend bool operator==(const Impronta&, const Impronta&) = default;

    std::array<qint64, 3> Byte{};
    std::array<qint64, 3> Quando{};
};

[[noreturn]] void LogIlleggibile(const QString& File)
{
    throw Errore(
        errori::DatiBloccati,
        u"Il file \"%1\" è di un altro programma, e ciò che questo vi ha scritto per ultimo (\"%2\") non "
        "si può leggere: chiudere il programma e riprovare"_s.arg(NomeFile(File), NomeFile(File) + Log));
}

void ChiudiCopia(sqlite3_backup* Copia)
{
    sqlite3_backup_finish(Copia);
}

/// Another Prosegui for what tells no bytes.
struct Ancora
{
    const std::function<bool(qint64)>& Prosegui;
    qint64 Fatti = 0;
    bool Fermata = false;

    [[nodiscard]] bool operator()()
    {
        Fermata = Fermata || (Prosegui && !Prosegui(Fatti));
        return !Fermata;
    }
};

/// Every page of a connection into a new file. @return false when it was stopped
bool Versa(Connessione& Da, const QString& A, Ancora& Chiedi)
{
    constexpr int PagineAlColpo = 256;
    {
        QFile Vuoto(A);  // private from its first byte on
        if (!Vuoto.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
            throw Errore(errori::Accesso);
    }
    Da.Esegui(u"PRAGMA busy_timeout=%1"_s.arg(attese::BlocchiMs));
    const Sguardo Uno(Da);
    Istruzione Pagina(Da, u"PRAGMA page_size"_s);
    const qint64 Byte = Pagina.Avanza() ? Pagina.Intero(0) : 0;
    Pagina.Azzera();
    Istruzione Prima(Da, u"PRAGMA schema_version"_s);  // from here on nobody writes
    (void)Prima.Avanza();
    Prima.Azzera();

    Connessione Nuova(A, Connessione::Modo::Scrittura);
    Nuova.Esegui(u"PRAGMA journal_mode=MEMORY"_s);
    Nuova.Esegui(u"PRAGMA synchronous=OFF"_s);  // waited for once, before it takes its place
    const std::unique_ptr<sqlite3_backup, void (*)(sqlite3_backup*)> Copia(
        sqlite3_backup_init(Nuova.Motore(), "main", Da.Motore(), "main"), ChiudiCopia);
    if (!Copia)
        Nuova.Verifica(sqlite3_extended_errcode(Nuova.Motore()));
    for (int Esito = SQLITE_OK; Esito != SQLITE_DONE;) {
        Esito = sqlite3_backup_step(Copia.get(), PagineAlColpo);
        Nuova.Verifica(Esito);
        const int Fatte = sqlite3_backup_pagecount(Copia.get()) - sqlite3_backup_remaining(Copia.get());
        Chiedi.Fatti = Fatte * Byte;
        if (guasti::LimiteFile > 0 && Chiedi.Fatti > guasti::LimiteFile)
            throw Errore(errori::DiscoPieno);
        if (!Chiedi())
            return false;
    }
    return true;
}

/// The file and what stands beside it, where the engine may mend it. @return false when it was stopped
bool PortaAccanto(const QString& Da, const QString& A, Ancora& Chiedi)
{
    constexpr qint64 Massimo = std::numeric_limits<qint64>::max();
    for (const QString& Coda : {u""_s, Giornale, Log}) {
        if (!Coda.isEmpty() && !EsisteFile(Da + Coda))
            continue;
        try {
            if (!CopiaFile(
                    Da + Coda, A + Coda, Massimo, [&](qint64) { return Chiedi(); }, Lettori::SoloUtente))
                return false;
        } catch (const Errore& Guasto) {
            if (Coda == Log && Guasto.Numero == errori::Accesso)
                LogIlleggibile(Da);
            throw;
        }
    }
    return true;
}

/// @return false when it was stopped
bool Copia(const QString& Da, Strada Come, const FileInCopia& Nuova, Ancora& Chiedi)
{
    using enum Connessione::Modo;
    if (Come == Strada::Accanto) {
        if (!PortaAccanto(Da, Nuova.Letto(), Chiedi))
            return false;
        Connessione Accanto(Nuova.Letto(), Scrittura);
        return Versa(Accanto, Nuova.Percorso(), Chiedi);
    }
    try {
        Connessione Aperta(Da, Come == Strada::Ferma ? Ferma : SolaLettura);
        return Versa(Aperta, Nuova.Percorso(), Chiedi);
    } catch (const Errore& Guasto) {
        if (Come == Strada::ColLog &&
            (Guasto.Numero == errori::Accesso || Guasto.Numero == errori::DatabaseSolaLettura))
            LogIlleggibile(Da);
        throw;
    }
}

/// What the engine's check answers of a row that keeps to no rule of its table: its bytes are whole.
bool DiUnaRegola(const QString& Risposta)
{
    constexpr std::array Inizi{"NULL value in "_L1, "CHECK constraint failed in "_L1, "NUMERIC value in "_L1,
                               "TEXT value in "_L1, "non-"_L1};
    return std::ranges::any_of(Inizi, [&](QLatin1StringView Inizio) { return Risposta.startsWith(Inizio); });
}

/// True when the first so many answers speak of rules alone. @param Regole set when there is one
bool PagineIntere(Connessione& Conn, int Risposte, bool& Regole)
{
    Istruzione Riga(Conn, u"PRAGMA quick_check(%1)"_s.arg(Risposte));
    if (!Riga.Avanza())
        return false;
    if (Riga.Testo(0) == u"ok")
        return true;
    do {
        if (!DiUnaRegola(Riga.Testo(0)))
            return false;
        Regole = true;
    } while (Riga.Avanza());
    return true;
}

/// The copy without a log, its pages looked at. @return false when it was stopped
bool Controlla(const QString& Copia, Ancora& Chiedi)
{
    constexpr int OgniTanti = 1'000'000;
    Connessione Conn(Copia, Connessione::Modo::Scrittura);
    sqlite3_progress_handler(
        Conn.Motore(), OgniTanti, [](void* Come) { return int(!(*static_cast<Ancora*>(Come))()); }, &Chiedi);
    try {
        Conn.Esegui(u"PRAGMA synchronous=OFF"_s);
        Conn.Esegui(u"PRAGMA journal_mode=DELETE"_s);
        Conn.Esegui(u"PRAGMA cell_size_check=ON"_s);
        // Of the pages it speaks first, and of a damaged one it would say much; what it says of rows may be
        // as much as there are rows.
        bool Regole = false;
        if (!PagineIntere(Conn, 1, Regole) ||
            (Regole && !PagineIntere(Conn, std::numeric_limits<int>::max(), Regole)))
            throw Errore(errori::FormatoDatabase);
    } catch (const Errore& Guasto) {
        if (Chiedi.Fermata)
            return false;
        if (Guasto.Numero == errori::FormatoDatabase)
            throw Errore(errori::FormatoDatabase,
                         u"il file è danneggiato, e non tutto ciò che contiene si può leggere"_s);
        // Of what another program's file asks for and this engine does not know the pages are whole.
        if (Guasto.Numero != errori::SintassiSql && Guasto.Numero != errori::RecordGrande)
            throw;
    }
    return true;
}

}  // namespace

bool LeggibileDoveSta(const QString& Percorso)
{
    const QString File = FileVero(Percorso);  // its journal is beside that
    // Whether a journal is to be played back is not asked: a disk that fails would answer no, and who then
    // opens the file for writing would do it.
    return !ControllaPrimaDiAprire(File) && QFileInfo(File + Giornale).size() == 0 && !SenzaBlocchi(File);
}

bool CopiaIntera(const QString& Da, const QString& A, const std::function<bool(qint64)>& Prosegui,
                 Lettori Chi, const QDateTime& Data)
{
    const QString Origine = QFileInfo(PercorsoNativo(Da)).canonicalFilePath();
    const FileInCopia Nuova(A);
    Ancora Chiedi{Prosegui};
    // One that changes while no lock keeps it is read once more.
    for (int Volta = 0; Volta < 2; ++Volta) {
        const bool AltroLog = ControllaPrimaDiAprire(Origine.isEmpty() ? PercorsoNativo(Da) : Origine);
        const Impronta Prima(Origine);
        const Strada Come = StradaDi(Origine, AltroLog);
        Nuova.Togli();
        if (!Copia(Origine, Come, Nuova, Chiedi))
            return false;
        const bool ConBlocchi = Come == Strada::DoveSta || Come == Strada::ColLog;
        if (!ConBlocchi && Impronta(Origine) != Prima)
            continue;
        if (!Controlla(Nuova.Percorso(), Chiedi))
            return false;
        Nuova.Posa(Chi, true, Data);
        return true;
    }
    throw Errore(errori::DatiBloccati);
}
