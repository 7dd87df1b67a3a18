#include "platform/database/primariga.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/criterio.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"

#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Steps of the engine after which a file asks for more than a note ever does, in thousands.
constexpr int MassimoMigliaiaDiPassi = 500;

/// The file below the engine; null where it has none.
sqlite3_file* FileDi(const Connessione& Conn)
{
    sqlite3_file* File = nullptr;
    const int Esito = sqlite3_file_control(Conn.Motore(), "main", SQLITE_FCNTL_FILE_POINTER, &File);
    return Esito == SQLITE_OK && File && File->pMethods ? File : nullptr;
}

/// Annotations that are looked at: a note has a few dozens.
constexpr int MassimeAnnotazioni = 200;

/// What the first bytes of a file say of it.
struct TestataFile
{
    bool Nota = false;      ///< a database, as long as it says
    bool AltroLog = false;  ///< another tool keeps it with a write-ahead log
};

/// The first bytes are read through the engine's own handle: to open and close the file beside it would drop
/// the locks that this process holds on it.
TestataFile LeggiTestata(const Connessione& Conn, bool ConGiornale)
{
    constexpr int Lunghezza = 100;
    sqlite3_file* const File = FileDi(Conn);
    if (!File)
        throw Errore(errori::Accesso);
    std::array<char, Lunghezza> Byte{};
    sqlite3_int64 Lungo = 0;
    const int Esito = File->pMethods->xRead(File, Byte.data(), Lunghezza, 0);
    if (Esito == SQLITE_IOERR_SHORT_READ)
        return {};
    Conn.Verifica(Esito);
    Conn.Verifica(File->pMethods->xFileSize(File, &Lungo));
    if (!QByteArrayView(Byte).startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return {};
    const auto Numero = [&](size_t Posto) { return qFromBigEndian<quint32>(Byte.data() + Posto); };
    const quint16 Scritta = qFromBigEndian<quint16>(Byte.data() + 16);
    const qint64 Pagina = Scritta == 1 ? 65536 : Scritta;
    const bool ContoValido = Numero(24) == Numero(92);
    const bool Intera = !ContoValido || ConGiornale || Lungo >= Pagina * qint64(Numero(28));
    return {Intera, Byte[18] == 2 || Byte[19] == 2};
}

/// A file that somebody keeps to himself is in use, whatever way he does it.
int NumeroInUso(int Numero)
{
    // Only a writer may mend what was interrupted.
    return Numero == errori::DatabaseSolaLettura ? errori::DatiBloccati : Numero;
}

/// True in a file whose annotations are the program's own kind of table: a view of that name is code chosen
/// by the file, and is not run.
constexpr QStringView HaAnnotazioni =
    u"(SELECT 1 FROM sqlite_schema WHERE type='table' AND rootpage>0 AND name='_Calcanova')";

void LeggiAnnotazioni(const Connessione& Conn, AnnotazioniChieste& Chieste, int MassimoCaratteri)
{
    try {
        // From the first of them on, in the order of the key: a list of names would cost more than the rows.
        Istruzione Righe(Conn,
                         u"SELECT Nome,substr(Valore,1,"_s + QString::number(MassimoCaratteri) +
                             u") FROM \"_Calcanova\" WHERE Nome>=? ORDER BY Nome LIMIT "_s +
                             QString::number(MassimeAnnotazioni),
                         {*std::ranges::min_element(Chieste.Nomi)});
        while (Righe.Avanza())
            if (const QString Nome = Righe.Testo(0); Chieste.Nomi.contains(Nome))
                Chieste.Trovate.insert(Nome, Righe.Testo(1));
    } catch (const Errore& Guasto) {
        if (NumeroInUso(Guasto.Numero) == errori::DatiBloccati)
            throw;
        Chieste.Trovate.clear();
    }
}

/// What is read of one file.
struct Lettura
{
    QString Sql;
    qsizetype Colonne = 0;
    int MassimoCaratteri = 0;
    AnnotazioniChieste* Anche = nullptr;
};

std::optional<QStringList> Leggi(const Connessione& Conn, const Lettura& Che)
{
    int Migliaia = 0;
    sqlite3_progress_handler(
        Conn.Motore(), 1000,
        [](void* Contate) { return int(++*static_cast<int*>(Contate) > MassimoMigliaiaDiPassi); }, &Migliaia);
    // The row keeps the file's lock while the annotations are read: both are of one save.
    Istruzione Riga(Conn, Che.Sql);
    if (!Riga.Avanza())
        return std::nullopt;
    QStringList Celle;
    for (int i = 0; i < Che.Colonne; ++i)
        Celle += Riga.Testo(i);
    if (Che.Anche && !Che.Anche->Nomi.isEmpty() && Riga.Intero(int(Che.Colonne)) == 1)
        LeggiAnnotazioni(Conn, *Che.Anche, Che.MassimoCaratteri);
    return Celle;
}

}  // namespace

std::optional<QStringList> LeggiPrimaRiga(const QString& Percorso, const QString& Tabella,
                                          const QStringList& Colonne, int MassimoCaratteri,
                                          AnnotazioniChieste* Anche)
{
    const QString File = PercorsoNativo(Percorso);
    const QFileInfo Info(File);
    if (!Info.exists())
        throw Errore(errori::FileMancante);
    if (!Info.isFile() || !Leggibile(Info))
        throw Errore(errori::Accesso);
    QStringList Tagliate;
    for (const QString& Colonna : Colonne)
        Tagliate += u"substr(%1,1,%2)"_s.arg(Identificatore(Colonna)).arg(MassimoCaratteri);
    if (Anche && !Anche->Nomi.isEmpty())
        Tagliate += HaAnnotazioni.toString();
    const Lettura Che{u"SELECT %1 FROM %2 LIMIT 1"_s.arg(Tagliate.join(u','), Identificatore(Tabella)),
                      Colonne.size(), MassimoCaratteri, Anche};
    if (Anche)
        Anche->Trovate.clear();
    try {
        const Connessione Conn(File, Connessione::Modo::Elenco);
        const TestataFile Testata = LeggiTestata(Conn, QFileInfo(File + u"-journal"_s).size() > 0);
        if (!Testata.Nota)
            throw Errore(errori::FormatoDatabase);
        if (!Testata.AltroLog)
            return Leggi(Conn, Che);
    } catch (const Errore& Guasto) {
        if (NumeroInUso(Guasto.Numero) != Guasto.Numero)
            throw Errore(NumeroInUso(Guasto.Numero));
        throw;
    }
    // With such a log even a reader would put files beside the note; what the log holds is not in it yet.
    if (QFileInfo(File + u"-wal"_s).size() > 0)
        throw Errore(errori::DatiBloccati);
    const Connessione Ferma(File, Connessione::Modo::Immutabile);
    return Leggi(Ferma, Che);
}

QByteArray InizioDelFile(const QString& Percorso, int Byte)
{
    const QString Nome = PercorsoNativo(Percorso);
    const QFileInfo Info(Nome);
    if (!Info.isFile() || !Leggibile(Info))
        return {};
    try {
        const Connessione Conn(Nome, Connessione::Modo::Elenco);
        sqlite3_file* const File = FileDi(Conn);
        QByteArray Letti(int(std::min<qint64>(Byte, Info.size())), '\0');
        if (File && File->pMethods->xRead(File, Letti.data(), int(Letti.size()), 0) == SQLITE_OK)
            return Letti;
    } catch (const Errore&) {
        return {};
    }
    return {};
}
