#include "platform/database/paginenote.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/criterio.h"
#include "platform/database/sentinella.h"

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The size of every page of a note; files with pages of another one are the engine's.
constexpr int LungaPagina = 4096;
constexpr int LungaTestata = 100;
/// What a row keeps in its own page, by the engine's rules for such pages: all of it up to the limit, else a
/// part that leaves pages of overflow full.
constexpr int MassimoInTabella = LungaPagina - 35;
constexpr int MassimoInIndice = (LungaPagina - 12) * 64 / 255 - 23;
constexpr int MinimoInPagina = (LungaPagina - 12) * 32 / 255 - 23;
/// Levels of pages and rows of a schema, beyond what a note has.
constexpr int MassimiLivelli = 5;
constexpr int MassimeVociSchema = 60;
constexpr int MassimePagine = 40;  // of annotations
/// Schemas that an office's notes come in.
constexpr qsizetype MassimiSchemi = 64;

constexpr uchar FogliaTabella = 0x0d;
constexpr uchar RamoTabella = 0x05;
constexpr uchar FogliaIndice = 0x0a;
constexpr uchar RamoIndice = 0x02;

/// Something is not as a plain file has it: the engine must be asked.
struct NonPiana
{};

void Pretendi(bool Vero)
{
    if (!Vero)
        throw NonPiana();
}

/// A look at bytes that never goes beyond them.
class Vista
{
public:
    explicit Vista(QByteArrayView Tutti) : Byte(Tutti) {}

    [[nodiscard]] qsizetype Lungo() const { return Byte.size(); }
    [[nodiscard]] uchar Uno(qsizetype Posto) const
    {
        Pretendi(Posto >= 0 && Posto < Byte.size());
        return uchar(Byte[Posto]);
    }
    [[nodiscard]] quint16 Due(qsizetype Posto) const { return quint16(Uno(Posto) << 8 | Uno(Posto + 1)); }
    [[nodiscard]] quint32 Quattro(qsizetype Posto) const
    {
        return quint32(Due(Posto)) << 16 | Due(Posto + 2);
    }
    /// A number of one to nine bytes; the place moves behind it.
    [[nodiscard]] quint64 Numero(qsizetype& Posto) const
    {
        quint64 Valore = 0;
        for (int i = 0; i < 8; ++i) {
            const uchar Byte7 = Uno(Posto++);
            Valore = Valore << 7 | (Byte7 & 0x7f);
            if (!(Byte7 & 0x80))
                return Valore;
        }
        return Valore << 8 | Uno(Posto++);
    }
    [[nodiscard]] Vista Parte(qsizetype Posto, qsizetype Lunga) const
    {
        Pretendi(Posto >= 0 && Lunga >= 0 && Lunga <= Byte.size() && Posto <= Byte.size() - Lunga);
        return Vista(Byte.sliced(Posto, Lunga));
    }
    [[nodiscard]] QByteArrayView Tutta() const { return Byte; }

private:
    QByteArrayView Byte;
};

/// A row as it stands in its page.
struct Payload
{
    Vista QuiDentro;  ///< what the page has of it
    qsizetype Lungo;  ///< with what lies in other pages

    [[nodiscard]] bool Intero() const { return QuiDentro.Lungo() == Lungo; }
};

/// The payload of a cell; the place stands at its length for an index, else the key of the row is passed
/// over.
Payload PayloadDi(const Vista& Pagina, qsizetype Posto, bool Indice)
{
    const quint64 Lungo = Pagina.Numero(Posto);
    if (!Indice)
        (void)Pagina.Numero(Posto);
    constexpr quint64 Troppo = 1 << 30;
    Pretendi(Lungo < Troppo);
    const auto Tutto = qsizetype(Lungo);
    const qsizetype Massimo = Indice ? MassimoInIndice : MassimoInTabella;
    if (Tutto <= Massimo)
        return {Pagina.Parte(Posto, Tutto), Tutto};
    const qsizetype Parte = MinimoInPagina + (Tutto - MinimoInPagina) % (LungaPagina - 4);
    const qsizetype Qui = Parte <= Massimo ? Parte : MinimoInPagina;
    (void)Pagina.Parte(Posto, Qui + 4);
    return {Pagina.Parte(Posto, Qui), Tutto};
}

/// The values of a row, one behind the other.
class Record
{
public:
    explicit Record(const Payload& Di) : Da(Di.QuiDentro), Tutto(Di.Lungo)
    {
        const quint64 Lunga = Da.Numero(Tipo);
        Pretendi(Lunga >= quint64(Tipo) && Lunga <= quint64(Da.Lungo()));
        Dati = Fine = qsizetype(Lunga);
    }

    /// Goes to the next value. @return false behind the last one
    bool Avanza()
    {
        if (Tipo == Fine)
            return false;
        Dati += Lunga;
        Genere = Da.Numero(Tipo);
        Pretendi(Tipo <= Fine);
        Lunga = LungaDi(Genere);
        Pretendi(Lunga <= Tutto && Dati <= Tutto - Lunga);
        Pretendi(Tipo < Fine || Dati + Lunga == Tutto);  // the last value ends where the row does
        return true;
    }

    /// The value as the engine's text of it, cut; null for Null.
    [[nodiscard]] QString Testo(int MassimoCaratteri) const
    {
        constexpr quint64 Reale = 7, Zero = 8, UnoIntero = 9;
        if (Genere == 0)
            return {};
        const Vista Valore = Da.Parte(Dati, Lunga);
        if (Genere == Zero || Genere == UnoIntero)
            return QString::number(Genere - Zero);
        Pretendi(Genere != Reale);
        if (Genere < Reale)
            return QString::number(Intero(Valore));
        Pretendi(Genere % 2 == 1);  // no bytes without a meaning
        return Tagliato(Valore.Tutta(), MassimoCaratteri);
    }
    /// The value lies within what the page has.
    [[nodiscard]] bool Dentro() const { return Lunga <= Da.Lungo() && Dati <= Da.Lungo() - Lunga; }
    /// The bytes of a text that is no longer than its page.
    [[nodiscard]] QByteArrayView Utf8() const
    {
        Pretendi(Genere >= 13 && Genere % 2 == 1);
        return Da.Parte(Dati, Lunga).Tutta();
    }

private:
    [[nodiscard]] static qsizetype LungaDi(quint64 Genere)
    {
        constexpr std::array<qsizetype, 10> Fissi{0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
        if (Genere < Fissi.size())
            return Fissi[size_t(Genere)];
        constexpr quint64 Troppo = quint64(1) << 31;
        Pretendi(Genere >= 12 && Genere < Troppo);
        return qsizetype((Genere - 12) / 2);
    }
    [[nodiscard]] static qint64 Intero(const Vista& Valore)
    {
        qint64 Numero = qint8(Valore.Uno(0));
        for (qsizetype i = 1; i < Valore.Lungo(); ++i)
            Numero = qint64(quint64(Numero) << 8 | Valore.Uno(i));
        return Numero;
    }
    /// The engine counts what begins a character, and ends a text at its first NUL.
    [[nodiscard]] static QString Tagliato(QByteArrayView Testo, int MassimoCaratteri)
    {
        Pretendi(!Testo.contains('\0'));
        qsizetype Fine = Testo.size();
        if (Fine > MassimoCaratteri) {
            Fine = 0;
            for (int i = 0; i < MassimoCaratteri && Fine < Testo.size(); ++i)
                if (uchar(Testo[Fine++]) >= 0xc0)
                    while (Fine < Testo.size() && (uchar(Testo[Fine]) & 0xc0) == 0x80)
                        ++Fine;
        }
        return QString::fromUtf8(Testo.first(Fine));
    }

    Vista Da;
    qsizetype Tutto;
    qsizetype Tipo = 0;  ///< place of the next type
    qsizetype Fine = 0;  ///< of the types
    qsizetype Dati = 0;
    qsizetype Lunga = 0;
    quint64 Genere = 0;
};

/// The cells of a page.
class Celle
{
public:
    /// @param Inizio of the page's own head: behind that of the file in the first page
    Celle(const Vista& Quale, qsizetype Inizio) : Pagina(Quale), Testa(Inizio)
    {
        Prima = Testa + (Ramo() ? 12 : 8);
        Pretendi(Prima + 2 * qsizetype(Quante()) <= Pagina.Lungo());
    }
    [[nodiscard]] uchar Genere() const { return Pagina.Uno(Testa); }
    [[nodiscard]] bool Ramo() const { return Genere() == RamoTabella || Genere() == RamoIndice; }
    [[nodiscard]] int Quante() const { return Pagina.Due(Testa + 3); }
    [[nodiscard]] qsizetype Posto(int i) const
    {
        const qsizetype Dove = Pagina.Due(Prima + 2 * qsizetype(i));
        Pretendi(Dove >= Prima + 2 * qsizetype(Quante()));
        return Dove;
    }
    [[nodiscard]] quint32 Figlia(int i) const { return Pagina.Quattro(Posto(i)); }
    [[nodiscard]] quint32 UltimaFiglia() const { return Pagina.Quattro(Testa + 8); }

private:
    Vista Pagina;
    qsizetype Testa;
    qsizetype Prima = 0;
};

// ---- what is known of a schema ----------------------------------------------------------------------

struct PostiSchema
{
    quint32 Radice = 0;             ///< page of the table
    QList<int> Campi;               ///< places of the columns in a row
    quint32 RadiceAnnotazioni = 0;  ///< 0: the file has none
    quint32 UltimaRadice = 0;       ///< a file with fewer pages is damaged, whatever table is wanted
};

/// Head and rows of the schema, as far as they say how the file is to be read.
QByteArray ImprontaSchema(const Vista& Prima)
{
    QByteArray Impronta = Prima.Parte(16, 8).Tutta().toByteArray() +  // sizes and versions
                          Prima.Parte(44, 28).Tutta().toByteArray();  // from the schema's format to the kind
    const Celle Voci(Prima, LungaTestata);
    Pretendi(Voci.Genere() == FogliaTabella && Voci.Quante() <= MassimeVociSchema);
    for (int i = 0; i < Voci.Quante(); ++i) {
        const Payload Voce = PayloadDi(Prima, Voci.Posto(i), false);
        Pretendi(Voce.Intero());
        Impronta += QByteArray::number(Voce.QuiDentro.Lungo()) + ':';
        Impronta += Voce.QuiDentro.Tutta();
    }
    return Impronta;
}

/// The same schema gives each question places of its own.
QByteArray Chiave(const QByteArray& Impronta, const DomandaRiga& Che)
{
    return (Che.Tabella + u'\n' + Che.Colonne.join(u'\n') + (Che.ConAnnotazioni() ? u"\n+\n"_s : u"\n\n"_s))
               .toUtf8() +
           Impronta;
}

/// Shared by the threads that list.
class SchemiNoti
{
public:
    [[nodiscard]] std::optional<PostiSchema> Cerca(const QByteArray& Chiave) const
    {
        const QMutexLocker Mio(&Turno);
        const auto Trovato = Visti.constFind(Chiave);
        return Trovato == Visti.constEnd() ? std::nullopt : std::optional(*Trovato);
    }
    void Ricorda(const QByteArray& Chiave, const PostiSchema& Posti)
    {
        const QMutexLocker Mio(&Turno);
        if (Visti.size() >= MassimiSchemi)
            Visti.clear();
        Visti.insert(Chiave, Posti);
    }

private:
    mutable QMutex Turno;
    QHash<QByteArray, PostiSchema> Visti;
};

SchemiNoti& Schemi()
{
    static SchemiNoti Noti;
    return Noti;
}

// ---- the file ---------------------------------------------------------------------------------------

/// A file as the engine opens it, so that the locks of this process on it stay, and nothing of the engine's
/// around it. The lock goes with the object.
class FileFermo
{
public:
    explicit FileFermo(const QString& Percorso)
        : Strato(sqlite3_vfs_find(StratoFile())),
          Maniglia(static_cast<sqlite3_file*>(std::calloc(1, size_t(Strato->szOsFile))))
    {
        const QByteArray Nome = Percorso.toUtf8();
        Giornale = Nome + "-journal";
        NomeFile.reset(sqlite3_create_filename(Nome.constData(), Giornale.constData(),
                                               (Nome + "-wal").constData(), 0, nullptr));
        Pretendi(Maniglia && NomeFile);
        int Bandiere = 0;
        const int Esito = Strato->xOpen(Strato, NomeFile.get(), Maniglia.get(),
                                        SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READONLY, &Bandiere);
        if (Esito != SQLITE_OK) {
            Chiudi();
            throw NonPiana();
        }
    }
    ~FileFermo() { Chiudi(); }
    FileFermo(const FileFermo&) = delete;
    FileFermo& operator=(const FileFermo&) = delete;

    /// Nobody writes while this is held, and nobody has left anything to be mended.
    void Blocca()
    {
        Pretendi(Maniglia->pMethods->xLock(Maniglia.get(), SQLITE_LOCK_SHARED) == SQLITE_OK);
        Bloccato = true;
        int Resta = 1;
        Pretendi(Strato->xAccess(Strato, Giornale.constData(), SQLITE_ACCESS_EXISTS, &Resta) == SQLITE_OK &&
                 Resta == 0);
    }
    [[nodiscard]] sqlite3_file* File() const { return Maniglia.get(); }

private:
    struct Libera
    {
        void operator()(sqlite3_file* File) const noexcept { std::free(File); }
        void operator()(const char* Nome) const noexcept { sqlite3_free_filename(const_cast<char*>(Nome)); }
    };
    void Chiudi() noexcept
    {
        if (!Maniglia || !Maniglia->pMethods)
            return;
        if (std::exchange(Bloccato, false))
            Maniglia->pMethods->xUnlock(Maniglia.get(), SQLITE_LOCK_NONE);
        Maniglia->pMethods->xClose(Maniglia.get());
        Maniglia->pMethods = nullptr;
    }

    sqlite3_vfs* Strato;
    std::unique_ptr<sqlite3_file, Libera> Maniglia;
    std::unique_ptr<const char, Libera> NomeFile;  // the open file reads it to its end
    QByteArray Giornale;
    bool Bloccato = false;
};

/// The pages of a file under a lock.
class Pagine
{
public:
    explicit Pagine(sqlite3_file* Di) : File(Di), Uno(LungaPagina, Qt::Uninitialized)
    {
        sqlite3_int64 Lungo = 0;
        Pretendi(File->pMethods->xFileSize(File, &Lungo) == SQLITE_OK && Lungo >= LungaPagina &&
                 Lungo % LungaPagina == 0);
        Leggi(1, Uno);
        const Vista Testa = Prima();
        constexpr std::array<uchar, 8> Piana{LungaPagina >> 8, 0, 1, 1, 0, 64, 32, 32};
        Pretendi(Uno.startsWith(QByteArrayView("SQLite format 3\0", 16)) &&
                 Testa.Parte(16, 8).Tutta() == QByteArrayView(Piana.data(), qsizetype(Piana.size())));
        Quante = Testa.Quattro(28);
        Pretendi(Testa.Quattro(24) == Testa.Quattro(92) && Lungo / LungaPagina == Quante);
        constexpr quint32 InUtf8 = 1;
        Pretendi(Testa.Quattro(56) == InUtf8);
    }
    [[nodiscard]] Vista Prima() const { return Vista(Uno); }
    [[nodiscard]] quint32 Numero() const { return Quante; }
    /// @param In holds the bytes
    [[nodiscard]] Vista Pagina(quint32 Numero, QByteArray& In) const
    {
        Pretendi(Numero >= 2 && Numero <= Quante);
        In.resize(LungaPagina);
        Leggi(Numero, In);
        return Vista(In);
    }

private:
    void Leggi(quint32 Numero, QByteArray& In) const
    {
        Pretendi(File->pMethods->xRead(File, In.data(), LungaPagina,
                                       sqlite3_int64(Numero - 1) * LungaPagina) == SQLITE_OK);
    }

    sqlite3_file* File;
    QByteArray Uno;
    quint32 Quante = 0;
};

// ---- the rows ---------------------------------------------------------------------------------------

QStringList PrimaRiga(const Pagine& File, const PostiSchema& Posti, int MassimoCaratteri)
{
    QByteArray Byte;
    quint32 Numero = Posti.Radice;
    for (int Livello = 0; Livello < MassimiLivelli; ++Livello) {
        const Vista Pagina = File.Pagina(Numero, Byte);
        const Celle Righe(Pagina, 0);
        Pretendi(Righe.Quante() > 0);
        if (Righe.Genere() == RamoTabella) {
            Numero = Righe.Figlia(0);
            continue;
        }
        Pretendi(Righe.Genere() == FogliaTabella);
        Record Riga(PayloadDi(Pagina, Righe.Posto(0), false));
        QStringList Trovate;
        Trovate.resize(Posti.Campi.size());
        const int Ultimo = *std::ranges::max_element(Posti.Campi);
        for (int Campo = 0; Campo <= Ultimo; ++Campo) {
            Pretendi(Riga.Avanza());
            if (const auto Posto = Posti.Campi.indexOf(Campo); Posto >= 0)
                Trovate[Posto] = Riga.Testo(MassimoCaratteri);
        }
        return Trovate;
    }
    throw NonPiana();
}

/// Walks the annotations in the order of their names.
class LettoreAnnotazioni
{
public:
    LettoreAnnotazioni(const Pagine& Di, const DomandaRiga& Chieste) : File(Di), Che(Chieste)
    {
        for (const QString& Nome : Che.Anche->Nomi)
            Nomi.insert(Nome.toUtf8(), Nome);
        const QList<QByteArray> Tutti = Nomi.keys();
        Primo = *std::ranges::min_element(Tutti);
    }
    void Percorri(quint32 Numero, int Livello = 0)
    {
        Pretendi(Livello < MassimiLivelli && ++Viste <= MassimePagine);
        QByteArray Byte;
        const Vista Pagina = File.Pagina(Numero, Byte);
        const Celle Righe(Pagina, 0);
        const bool Ramo = Righe.Genere() == RamoIndice;
        Pretendi((Ramo || Righe.Genere() == FogliaIndice) && (Livello == 0 || Righe.Quante() > 0));
        for (int i = 0; i < Righe.Quante() && Contate < MassimeAnnotazioni; ++i) {
            if (Ramo)
                Percorri(Righe.Figlia(i), Livello + 1);
            Prendi(PayloadDi(Pagina, Righe.Posto(i) + (Ramo ? 4 : 0), true));
        }
        if (Ramo && Contate < MassimeAnnotazioni)
            Percorri(Righe.UltimaFiglia(), Livello + 1);
    }
    QMap<QString, QString> Trovate;

private:
    void Prendi(const Payload& Di)
    {
        Record Riga(Di);
        Pretendi(Riga.Avanza());
        const QByteArray Nome = Riga.Utf8().toByteArray();
        // The engine seeks by the order of the names: in another one it finds other rows.
        Pretendi(Ultimo.isNull() || Ultimo < Nome);
        Ultimo = Nome;
        Pretendi(Riga.Avanza());
        if (Nome < Primo || Contate >= MassimeAnnotazioni)
            return;
        ++Contate;
        Pretendi(Di.Intero() && Riga.Dentro());  // the engine fails on any value that it cannot read
        if (const auto Chiesto = Nomi.constFind(Nome); Chiesto != Nomi.constEnd())
            Trovate.insert(*Chiesto, Riga.Testo(Che.MassimoCaratteri));
    }

    const Pagine& File;
    const DomandaRiga& Che;
    QHash<QByteArray, QString> Nomi;
    QByteArray Primo, Ultimo;
    int Contate = 0;
    int Viste = 0;  ///< pages
};

/// A column whose value stands in the row as the engine gives it: whole numbers of a column of fractions do
/// not.
bool SiLeggeComeSta(const QString& Tipo)
{
    return std::ranges::none_of(std::array{u"REAL"_s, u"FLOA"_s, u"DOUB"_s}, [&](const QString& Parte) {
        return Tipo.contains(Parte, Qt::CaseInsensitive);
    });
}

std::optional<PostiSchema> PostiDi(const Connessione& Conn, const DomandaRiga& Che)
{
    PostiSchema Posti;
    Istruzione Radice(Conn,
                      u"SELECT rootpage FROM sqlite_schema WHERE type='table' AND lower(name)=lower(?)"_s,
                      {Che.Tabella});
    Istruzione Ultima(Conn, u"SELECT max(rootpage) FROM sqlite_schema"_s);
    if (!Radice.Avanza() || Radice.Intero(0) < 2 || !Ultima.Avanza())
        return std::nullopt;
    Posti.Radice = quint32(Radice.Intero(0));
    Posti.UltimaRadice = quint32(Ultima.Intero(0));
    QMap<QString, int> Campi;
    Istruzione Colonne(Conn, u"PRAGMA table_xinfo(%1)"_s.arg(Identificatore(Che.Tabella)));
    for (int Posto = 0; Colonne.Avanza(); ++Posto) {
        constexpr int Nome = 1, Tipo = 2, InChiave = 5, Nascosta = 6;
        if (Colonne.Intero(Nascosta) != 0)
            return std::nullopt;
        if (Colonne.Intero(InChiave) == 0 && SiLeggeComeSta(Colonne.Testo(Tipo)))
            Campi.insert(Colonne.Testo(Nome).toLower(), Posto);
    }
    for (const QString& Colonna : Che.Colonne) {
        const auto Posto = Campi.constFind(Colonna.toLower());
        if (Posto == Campi.constEnd())
            return std::nullopt;
        Posti.Campi += *Posto;
    }
    if (!Che.ConAnnotazioni())
        return Posti;
    Istruzione Annotazioni(
        Conn, u"SELECT rootpage, sql FROM sqlite_schema WHERE type='table' AND name='_Calcanova'"_s);
    if (!Annotazioni.Avanza())
        return Posti;
    if (Annotazioni.Intero(0) < 2 || Annotazioni.Testo(1) != SqlTabellaAnnotazioni())
        return std::nullopt;
    Posti.RadiceAnnotazioni = quint32(Annotazioni.Intero(0));
    return Posti;
}

}  // namespace

std::optional<QStringList> RigaDallePagine(const QString& File, const DomandaRiga& Che)
{
    try {
        FileFermo Fermo(File);
        Fermo.Blocca();
        const Pagine Lette(Fermo.File());
        const auto Posti = Schemi().Cerca(Chiave(ImprontaSchema(Lette.Prima()), Che));
        if (!Posti || Lette.Numero() < Posti->UltimaRadice)
            return std::nullopt;
        QStringList Celle = PrimaRiga(Lette, *Posti, Che.MassimoCaratteri);
        if (Posti->RadiceAnnotazioni > 0) {
            LettoreAnnotazioni Lettore(Lette, Che);
            Lettore.Percorri(Posti->RadiceAnnotazioni);
            Che.Anche->Trovate = std::move(Lettore.Trovate);
        }
        return Celle;
    } catch (const NonPiana&) {
        return std::nullopt;
    }
}

void ImparaSchema(const Connessione& Conn, const DomandaRiga& Che)
{
    sqlite3_file* File = nullptr;
    if (sqlite3_file_control(Conn.Motore(), "main", SQLITE_FCNTL_FILE_POINTER, &File) != SQLITE_OK || !File ||
        !File->pMethods || Che.Colonne.isEmpty())
        return;
    try {
        const QByteArray Impronta = Chiave(ImprontaSchema(Pagine(File).Prima()), Che);
        if (Schemi().Cerca(Impronta))
            return;
        if (const auto Posti = PostiDi(Conn, Che))
            Schemi().Ricorda(Impronta, *Posti);
    } catch (const NonPiana&) {
        return;  // such a file is the engine's
    } catch (const Errore&) {
        return;  // as far as it was read it was right
    }
}
