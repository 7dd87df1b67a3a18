#include "platform/database/connessione.h"

#include "platform/base/errore.h"
#include "platform/database/sentinella.h"
#include "platform/database/valori.h"

#include <QDate>
#include <QUrl>

#include <sqlite3.h>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int LimiteCella = 16 * 1024 * 1024;
constexpr int LimiteSql = 1024 * 1024;
const QString InMemoria = u":memory:"_s;

/// What a message of the engine's general error holds, and what it means here. Names of tables and columns
/// stand in it too: one word alone would be theirs as well.
struct Messaggio
{
    const char* Contiene;
    int Numero;
    const char* Comincia = "";  ///< and what it begins with
};

constexpr std::array Messaggi{
    Messaggio{"no such table", errori::TabellaMancante},
    Messaggio{"access to view", errori::TabellaMancante},
    Messaggio{"no such column", errori::CampoSconosciuto},
    Messaggio{"no column named", errori::CampoSconosciuto},
    Messaggio{"duplicate column name", errori::CampoPresente},
    Messaggio{"no such index: ", errori::IndiceMancante},
    Messaggio{"already exists", errori::IndicePresente, "index "},
    Messaggio{"already exists", errori::TabellaPresente},
    Messaggio{"there is already a", errori::TabellaPresente},
    Messaggio{"no such function", errori::FunzioneSconosciuta},
    Messaggio{"within a transaction", errori::InTransazione},
};

Errore ErroreGenerico(const char* Testo)
{
    const QByteArrayView Vista(Testo);
    for (const Messaggio& M : Messaggi)
        if (Vista.startsWith(QByteArrayView(M.Comincia)) && Vista.contains(QByteArrayView(M.Contiene)))
            return Errore(M.Numero);
    return Errore(errori::SintassiSql);
}

Errore ErroreVincolo(int Esteso)
{
    switch (Esteso) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return Errore(errori::ValoreDoppio);
    case SQLITE_CONSTRAINT_NOTNULL:
        return Errore(errori::CampoObbligatorio);
    default:
        return Errore(errori::RegolaDiConvalida);
    }
}

Errore ErroreMotore(int Esito, const char* Testo)
{
    switch (Esito & 0xff) {
    case SQLITE_ERROR:
        return ErroreGenerico(Testo);
    case SQLITE_CONSTRAINT:
        return ErroreVincolo(Esito);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Errore(errori::DatiBloccati);
    case SQLITE_READONLY:
        return Errore(errori::DatabaseSolaLettura);
    case SQLITE_FULL:
        return Errore(errori::SpazioDatabase);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
        return Errore(errori::FormatoDatabase);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return Errore(errori::Accesso);
    case SQLITE_NOMEM:
        return Errore(errori::Memoria);
    case SQLITE_MISMATCH:
        return Errore(errori::TipoDelValore);
    case SQLITE_TOOBIG:
        return Errore(errori::RecordGrande);
    case SQLITE_IOERR:
        return Errore(errori::DiscoORete);
    default:
        return Errore(errori::Imprevisto);
    }
}

/// What says more with the file's name.
bool DelFile(const Errore& Guasto)
{
    constexpr std::array Numeri{errori::FormatoDatabase, errori::Accesso, errori::TabellaMancante,
                                errori::DiscoORete};
    return std::ranges::find(Numeri, Guasto.Numero) != Numeri.end();
}

bool DiUnoSguardo(Connessione::Modo Apertura)
{
    return Apertura == Connessione::Modo::Elenco || Apertura == Connessione::Modo::Immutabile;
}

int BandiereDi(Connessione::Modo Apertura)
{
    constexpr int Comuni = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
    constexpr int Nuova = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    switch (Apertura) {
    case Connessione::Modo::SolaLettura:
    case Connessione::Modo::Elenco:
        return Comuni | SQLITE_OPEN_READONLY;
    case Connessione::Modo::Immutabile:
    case Connessione::Modo::Ferma:
        return Comuni | SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    case Connessione::Modo::Scrittura:
        return Comuni | SQLITE_OPEN_READWRITE;
    case Connessione::Modo::Nuovo:
        return Comuni | Nuova;
    case Connessione::Modo::Memoria:
        return Comuni | Nuova | SQLITE_OPEN_MEMORY;
    }
    return Comuni;
}

bool SoloSpazi(QByteArrayView Resto)
{
    return std::ranges::all_of(
        Resto, [](char C) { return C == ';' || std::isspace(static_cast<unsigned char>(C)); });
}

}  // namespace

Errore ErroreDelFile(int Numero, const QString& Percorso)
{
    return Errore(Numero, DescrizioneErrore(Numero) + u": "_s + Percorso);
}

Errore ErroreSenzaTabella(const QString& Percorso)
{
    return Errore(errori::TabellaMancante,
                  DescrizioneErrore(errori::TabellaMancante) + u" nel file "_s + Percorso);
}

// ---- The connection -----------------------------------------------------------------------------

void Connessione::Chiudi::operator()(sqlite3* Base) const noexcept
{
    sqlite3_close_v2(Base);
}

Connessione::Connessione(const QString& Percorso, Modo Apertura)
    : File(Percorso), PuoScrivere(!(BandiereDi(Apertura) & SQLITE_OPEN_READONLY))
{
    sqlite3* Grezza = nullptr;
    const QByteArray Nome = Apertura == Modo::Immutabile || Apertura == Modo::Ferma
                                ? "file:" + QUrl::toPercentEncoding(Percorso, "/") + "?immutable=1"
                                : Percorso.toUtf8();
    const int Esito = sqlite3_open_v2(Nome.constData(), &Grezza, BandiereDi(Apertura), StratoFile());
    Db.reset(Grezza);  // owned before the check: a failed open leaves a handle to close
    Verifica(Esito);
    Proteggi();
    if (!DiUnoSguardo(Apertura))
        RegistraFunzioni(*this);
}

// A file comes from outside: what its schema holds is neither run nor trusted, and no cell of it may ask
// for more memory than a document needs.
void Connessione::Proteggi()
{
    constexpr std::array<std::pair<int, int>, 6> Opzioni{{{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                                          {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                                          {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                                          {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                                          {SQLITE_DBCONFIG_DQS_DDL, 0},
                                                          {SQLITE_DBCONFIG_DQS_DML, 0}}};
    for (const auto& [Opzione, Valore] : Opzioni)
        Verifica(sqlite3_db_config(Motore(), Opzione, Valore, nullptr));
    sqlite3_limit(Motore(), SQLITE_LIMIT_LENGTH, LimiteCella);
    sqlite3_limit(Motore(), SQLITE_LIMIT_SQL_LENGTH, LimiteSql);
    sqlite3_limit(Motore(), SQLITE_LIMIT_ATTACHED, 0);
}

void Connessione::AttendiBlocchi(int Millisecondi)
{
    Verifica(sqlite3_busy_timeout(Motore(), Millisecondi));
}

quint64 Connessione::Versione() const
{
    Istruzione DaAltri(*this, u"PRAGMA data_version"_s);
    constexpr int Meta = 32;
    const quint64 Altri = DaAltri.Avanza() ? quint64(DaAltri.Intero(0)) : 0;
    return (Altri << Meta) + Scritture();
}

bool Connessione::InTransazione() const
{
    return sqlite3_get_autocommit(Motore()) == 0;
}

void Connessione::Annulla() noexcept
{
    ++Contate;
    // A full disk makes the engine undo by itself; then there is nothing left to do.
    if (InTransazione())
        sqlite3_exec(Motore(), "ROLLBACK", nullptr, nullptr, nullptr);
}

qint64 Connessione::UltimaChiave() const
{
    return sqlite3_last_insert_rowid(Motore());
}

bool Connessione::Spostato() const
{
    int Mosso = 0;
    const int Esito = sqlite3_file_control(Motore(), "main", SQLITE_FCNTL_HAS_MOVED, &Mosso);
    return Esito == SQLITE_OK && Mosso != 0;
}

void Connessione::Verifica(int Esito) const
{
    if (Esito == SQLITE_OK || Esito == SQLITE_ROW || Esito == SQLITE_DONE)
        return;
    const Errore Guasto = ErroreMotore(Esito, Db ? sqlite3_errmsg(Motore()) : "");
    if (File == InMemoria || !DelFile(Guasto))
        throw Guasto;
    throw Guasto.Numero == errori::TabellaMancante
        ? ErroreSenzaTabella(File)
        : Errore(Guasto.Numero, Guasto.Descrizione + u": "_s + File);
}

int Connessione::Esegui(const QString& Sql, const QVariantList& Valori)
{
    Istruzione Istr(*this, Sql, Valori);
    NotaScrittura();
    const int Prima = sqlite3_total_changes(Motore());
    while (Istr.Avanza()) {
    }
    return sqlite3_total_changes(Motore()) - Prima;
}

// ---- Statements ---------------------------------------------------------------------------------

void Istruzione::Finisci::operator()(sqlite3_stmt* Grezza) const noexcept
{
    sqlite3_finalize(Grezza);
}

Istruzione::Istruzione(const Connessione& Base, const QString& Sql, const QVariantList& Valori) : Conn(&Base)
{
    const QByteArray Utf8 = Sql.toUtf8();
    const char* Coda = nullptr;
    sqlite3_stmt* Grezza = nullptr;
    // The length goes in with the closing NUL, so that a NUL inside ends the text instead of hiding the rest.
    const int Esito =
        sqlite3_prepare_v2(Base.Motore(), Utf8.constData(), int(Utf8.size() + 1), &Grezza, &Coda);
    Istr.reset(Grezza);
    Base.Verifica(Esito);
    if (!Istr)
        throw Errore(errori::SintassiSql);
    if (!SoloSpazi(QByteArrayView(Coda, Utf8.constData() + Utf8.size())))
        throw Errore(errori::OltreLaFine);
    if (sqlite3_bind_parameter_count(Istr.get()) != Valori.size())
        throw Errore(errori::CampoSconosciuto);
    for (int i = 0; i < Valori.size(); ++i)
        Lega(i + 1, Valori[i]);
}

void Istruzione::Lega(int Posto, const QVariant& Valore)
{
    const auto Testo = [&](const QString& T) {
        const QByteArray Utf8 = T.toUtf8();
        return sqlite3_bind_text64(Istr.get(), Posto, Utf8.constData(), sqlite3_uint64(Utf8.size()),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    };
    const auto Numero = [&](double N) {
        if (!std::isfinite(N))
            throw Errore(errori::TipoDelValore);
        return sqlite3_bind_double(Istr.get(), Posto, N);
    };
    const auto Esegui = [&] {
        switch (Valore.typeId()) {
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            return sqlite3_bind_null(Istr.get(), Posto);
        case QMetaType::Bool:
            return sqlite3_bind_int(Istr.get(), Posto, Valore.toBool() ? -1 : 0);
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
            return sqlite3_bind_int64(Istr.get(), Posto, Valore.toLongLong());
        case QMetaType::Float:
            return Numero(DaSingolo(Valore.toFloat()));
        case QMetaType::ULongLong:
        case QMetaType::Double:
            return Numero(Valore.toDouble());
        case QMetaType::QDate:
            return Valore.toDate().isValid() ? Testo(DataIso(Valore.toDate()))
                                             : sqlite3_bind_null(Istr.get(), Posto);
        case QMetaType::QDateTime:
            return Valore.toDateTime().isValid() ? Testo(DataIso(Valore.toDateTime()))
                                                 : sqlite3_bind_null(Istr.get(), Posto);
        default:
            return Testo(Valore.toString());
        }
    };
    Conn->Verifica(Esegui());
}

void Istruzione::Lega(int Posto, RaccoltaTesti& A)
{
    Conn->Verifica(sqlite3_bind_pointer(Istr.get(), Posto, &A, TipoRaccolta, nullptr));
}

void Istruzione::LegaCella(int Posto, const Istruzione& Da, int Colonna)
{
    Conn->Verifica(sqlite3_bind_value(Istr.get(), Posto, sqlite3_column_value(Da.Istr.get(), Colonna)));
}

bool Istruzione::Avanza()
{
    const int Esito = sqlite3_step(Istr.get());
    Conn->Verifica(Esito);
    return Esito == SQLITE_ROW;
}

void Istruzione::Azzera() noexcept
{
    sqlite3_reset(Istr.get());
}

bool Istruzione::Legge() const
{
    return sqlite3_stmt_readonly(Istr.get()) != 0;
}

int Istruzione::Colonne() const
{
    return sqlite3_column_count(Istr.get());
}

QString Istruzione::NomeColonna(int Colonna) const
{
    return QString::fromUtf8(sqlite3_column_name(Istr.get(), Colonna));
}

QString Istruzione::TipoDichiarato(int Colonna) const
{
    return QString::fromUtf8(sqlite3_column_decltype(Istr.get(), Colonna));
}

qint64 Istruzione::Intero(int Colonna) const
{
    return sqlite3_column_int64(Istr.get(), Colonna);
}

QString Istruzione::Testo(int Colonna) const
{
    return QString::fromUtf8(Utf8(Colonna));
}

bool Istruzione::ENullo(int Colonna) const
{
    return sqlite3_column_type(Istr.get(), Colonna) == SQLITE_NULL;
}

QByteArrayView Istruzione::Utf8(int Colonna) const
{
    const auto* Inizio = reinterpret_cast<const char*>(sqlite3_column_text(Istr.get(), Colonna));
    return Inizio ? QByteArrayView(Inizio, sqlite3_column_bytes(Istr.get(), Colonna)) : QByteArrayView();
}

qsizetype Istruzione::Byte(int Colonna) const
{
    const int Forma = sqlite3_column_type(Istr.get(), Colonna);
    return Forma == SQLITE_TEXT || Forma == SQLITE_BLOB ? sqlite3_column_bytes(Istr.get(), Colonna) : 0;
}

QVariant Istruzione::Grezzo(int Colonna) const
{
    switch (sqlite3_column_type(Istr.get(), Colonna)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return Intero(Colonna);
    case SQLITE_FLOAT:
        return sqlite3_column_double(Istr.get(), Colonna);
    default:
        return Testo(Colonna);
    }
}

std::optional<TipoCampo> Istruzione::TipoSpontaneo(int Colonna) const
{
    switch (sqlite3_column_type(Istr.get(), Colonna)) {
    case SQLITE_INTEGER:
        return TipoCampo::Lungo;
    case SQLITE_FLOAT:
        return TipoCampo::Doppio;
    case SQLITE_NULL:
        return std::nullopt;
    default:
        return TipoCampo::Memo;
    }
}

// The stored form need not be the column's: files come from outside. What a type cannot hold is handed
// out as it is stored, and a reader of numbers takes text for what it is worth.
QVariant Istruzione::Valore(int Colonna, TipoCampo Tipo) const
{
    const int Forma = sqlite3_column_type(Istr.get(), Colonna);
    if (Forma == SQLITE_NULL)
        return {};
    if (Tipo == TipoCampo::Data)
        return LeggiDataIso(Testo(Colonna));
    if (Tipo == TipoCampo::Booleano)
        return sqlite3_column_double(Istr.get(), Colonna) != 0.0;
    if (EDiTesto(Tipo) || Forma == SQLITE_TEXT || Forma == SQLITE_BLOB)
        return Testo(Colonna);
    const bool ConVirgola =
        Tipo == TipoCampo::Valuta || Tipo == TipoCampo::Singolo || Tipo == TipoCampo::Doppio;
    const qint64 Numero = Intero(Colonna);
    if (Forma == SQLITE_INTEGER && !ConVirgola && Numero == qint64(int(Numero)))
        return int(Numero);
    return sqlite3_column_double(Istr.get(), Colonna);
}

// ---- All or nothing -----------------------------------------------------------------------------

Blocco::Blocco(Connessione& Base) : Conn(Base), Annidato(Base.InTransazione())
{
    if (!Conn.Scrivibile())
        throw Errore(errori::DatabaseSolaLettura);
    Conn.Esegui(Annidato ? u"SAVEPOINT blocco"_s : u"BEGIN IMMEDIATE"_s);
}

Blocco::~Blocco()
{
    if (!Aperto)
        return;
    if (!Annidato) {
        Conn.Annulla();
        return;
    }
    Conn.NotaScrittura();
    sqlite3_exec(Conn.Motore(), "ROLLBACK TO blocco; RELEASE blocco", nullptr, nullptr, nullptr);
}

void Blocco::Conferma()
{
    // The engine may have undone everything by itself after a failure that somebody swallowed.
    if (!Conn.InTransazione())
        throw Errore(errori::TransazioneAnnullata);
    Conn.Esegui(Annidato ? u"RELEASE blocco"_s : u"COMMIT"_s);
    Aperto = false;
}

Sguardo::Sguardo(Connessione& Base) : Conn(Base), Mio(!Base.InTransazione())
{
    if (Mio)
        Conn.Verifica(sqlite3_exec(Conn.Motore(), "BEGIN", nullptr, nullptr, nullptr));
}

Sguardo::~Sguardo()
{
    if (Mio)
        sqlite3_exec(Conn.Motore(), "COMMIT", nullptr, nullptr, nullptr);
}
