#include "basedati.h"

#include "platform/system/attese.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// What an input may ask of the engine that makes its file: a writer of hostile files has more time than a
// target.
constexpr int MassimoPassi = 200000;
constexpr int MassimaCella = 1 << 20;
constexpr int MassimePagine = 2000;

/// What every journal begins with, and what ends one that names another.
const QByteArray SegnoGiornale = QByteArray::fromHex("d9d505f920a163d7");

struct Chiudi
{
    void operator()(sqlite3* Base) const noexcept { sqlite3_close_v2(Base); }
};

/// Runs every statement; what fails is passed over.
void Esegui(const QString& File, const QByteArray& Sql)
{
    sqlite3* Grezza = nullptr;
    const int Esito = sqlite3_open(QFile::encodeName(File).constData(), &Grezza);
    const std::unique_ptr<sqlite3, Chiudi> Base(Grezza);
    Pretendi(Esito == SQLITE_OK);
    sqlite3_limit(Grezza, SQLITE_LIMIT_ATTACHED, 0);  // no other file is made or read
    sqlite3_limit(Grezza, SQLITE_LIMIT_LENGTH, MassimaCella);
    sqlite3_exec(Grezza, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    sqlite3_exec(Grezza, qPrintable(u"PRAGMA max_page_count=%1"_s.arg(MassimePagine)), nullptr, nullptr,
                 nullptr);
    int Passi = 0;
    sqlite3_progress_handler(
        Grezza, 1000, [](void* Contati) { return int(++*static_cast<int*>(Contati) > MassimoPassi / 1000); },
        &Passi);
    for (const QByteArray& Una : Sql.split('\n'))
        sqlite3_exec(Grezza, Una.constData(), nullptr, nullptr, nullptr);
    sqlite3_progress_handler(Grezza, 0, nullptr, nullptr);
    if (sqlite3_get_autocommit(Grezza) == 0)
        sqlite3_exec(Grezza, "ROLLBACK", nullptr, nullptr, nullptr);
}

QByteArray ConByte(QByteArray Sana, const QByteArray& Coppie)
{
    constexpr qsizetype Lunga = 4;
    for (qsizetype i = 0; i + Lunga <= Coppie.size() && !Sana.isEmpty(); i += Lunga) {
        const auto Cifra = [&](qsizetype Quale) { return qsizetype(uchar(Coppie[i + Quale])); };
        Sana[(Cifra(0) << 16 | Cifra(1) << 8 | Cifra(2)) % Sana.size()] = Coppie[i + 3];
    }
    return Sana;
}

/// The full names of what must stay, with its bytes.
QHash<QString, QByteArray>& Vicini()
{
    static QHash<QString, QByteArray> Tutti;
    return Tutti;
}

/// The file that is laid must stay read-only.
bool& RestaSolaLettura()
{
    static bool Resta = false;
    return Resta;
}

/// As long as the file may become; 0 says nothing of it.
qint64& MassimaLunghezza()
{
    static qint64 Massima = 0;
    return Massima;
}

void PosaVicino(const QString& Nome, const QByteArray& Byte)
{
    attese::GiornaleMs = 0;  // nobody's write ends here
    Vicini().insert(Posa(Nome, Byte), Byte);
}

void Aggiungi(QByteArray& A, quint32 Numero)
{
    const quint32 Girato = qToBigEndian(Numero);
    A.append(reinterpret_cast<const char*>(&Girato), sizeof(Girato));
}

/// The end of a journal that belongs to a write into several databases: a page that none has, the name of the
/// journal above it, its length, its sum and the mark of every journal.
QByteArray Capo(const QString& File)
{
    constexpr quint32 NessunaPagina = 0x40000000 / 4096 + 1;
    const QByteArray Nome = QFile::encodeName(File);
    quint32 Somma = 0;
    for (const char Uno : Nome)
        Somma += quint32(int(Uno));
    QByteArray Fine;
    Aggiungi(Fine, NessunaPagina);
    Fine += Nome;
    Aggiungi(Fine, quint32(Nome.size()));
    Aggiungi(Fine, Somma);
    return Fine + SegnoGiornale;
}

/// A log with the sums that its bytes have, and one salt throughout: without them the engine reads no page.
QByteArray ConSomme(QByteArray Log)
{
    constexpr qsizetype Testata = 32;
    constexpr qsizetype Cornice = 24;
    constexpr quint32 Segno = 0x377f0682;
    if (Log.size() < Testata)
        return Log;
    const quint32 Ordine = qFromBigEndian<quint32>(Log.constData()) & 1;
    const qsizetype Pagina = qsizetype(qFromBigEndian<quint32>(Log.constData() + 8));
    if (Pagina < 512 || Pagina > 65536 || !std::has_single_bit(size_t(Pagina)))
        return Log;
    qToBigEndian(Segno | Ordine, Log.data());
    quint32 Una = 0;
    quint32 Altra = 0;
    const auto Somma = [&](qsizetype Da, qsizetype Quanti) {
        const auto Numero = [&](qsizetype Dove) {
            const char* Posto = Log.constData() + Dove;
            return Ordine ? qFromBigEndian<quint32>(Posto) : qFromLittleEndian<quint32>(Posto);
        };
        for (qsizetype i = Da; i < Da + Quanti; i += 8) {
            Una += Numero(i) + Altra;
            Altra += Numero(i + 4) + Una;
        }
    };
    const auto Scrivi = [&](qsizetype Dove) {
        qToBigEndian(Una, Log.data() + Dove);
        qToBigEndian(Altra, Log.data() + Dove + 4);
    };
    Somma(0, Cornice);
    Scrivi(Cornice);
    for (qsizetype Da = Testata; Da + Cornice + Pagina <= Log.size(); Da += Cornice + Pagina) {
        std::copy_n(Log.constData() + 16, 8, Log.data() + Da + 8);
        Somma(Da, 8);
        Somma(Da + Cornice, Pagina);
        Scrivi(Da + 16);
    }
    return Log;
}

/// The sound file and what an input has lying beside it.
QString PosaAccanto(const QString& Nome, QByteArray Sana, const QByteArrayList& Parole, QByteArray Accanto)
{
    const bool Giornale = Parole[0] == "giornale";
    PosaVicino(u"vicino.txt"_s, "Di un altro: non è di questo programma.\n");
    PosaVicino(u"vicino.mdb-journal"_s, "Il giornale di un altro archivio.\n");
    if (Giornale && Parole.contains("capo"))
        Accanto += Capo(CartellaDiLavoro() + u"vicino.txt"_s);
    else if (Giornale && Parole.contains("capogiornale"))
        Accanto += Capo(CartellaDiLavoro() + u"vicino.mdb-journal"_s);
    else if (!Giornale && Parole.contains("somme"))
        Accanto = ConSomme(Accanto);
    const bool Altrui = Parole.contains("altrui");
    constexpr qsizetype Versioni = 18;  // in the head of a database: who may write and who may read it
    if (!Giornale && !Altrui && Sana.size() > Versioni + 1)
        Sana[Versioni] = Sana[Versioni + 1] = 2;
    const QString File = Posa(Nome, Sana);
    const QString Posato = Posa(Nome + (Giornale ? u"-journal"_s : u"-wal"_s), Accanto);
    if (Giornale ? Accanto.endsWith(SegnoGiornale) : Altrui)
        Vicini().insert(Posato, Accanto);
    // What a target itself writes is less.
    MassimaLunghezza() = Giornale ? Sana.size() + Accanto.size() + MassimaCella : 0;
    RestaSolaLettura() = Parole.contains("sola");
    if (RestaSolaLettura())
        Pretendi(QFile::setPermissions(File, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    return File;
}

}  // namespace

QString PosaDatabase(const QString& Nome, const QByteArray& Sana, const QByteArray& Dati)
{
    for (const QString& Accanto : {u""_s, u"-journal"_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(CartellaDiLavoro() + Nome + Accanto);
    Vicini().clear();
    RestaSolaLettura() = false;
    MassimaLunghezza() = 0;
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Come = Dati.first(std::max<qsizetype>(Fine, 0));
    const QByteArray Resto = Dati.sliced(Fine + 1);
    if (Come == "byte")
        return Posa(Nome, ConByte(Sana, Resto));
    if (Come == "tronca")
        return Posa(Nome, Sana.first(std::clamp<qsizetype>(Resto.trimmed().toInt(), 0, Sana.size())));
    if (const QByteArrayList Parole = Come.split(' '); Parole[0] == "giornale" || Parole[0] == "log")
        return PosaAccanto(Nome, Sana, Parole, Resto);
    if (Come != "sql" && Come != "vuoto")
        return Posa(Nome, Dati);
    const QString File = CartellaDiLavoro() + Nome;
    if (Come == "sql")
        (void)Posa(Nome, Sana);
    Esegui(File, Resto);
    // Nothing that was run has made a file.
    return QFile::exists(File) ? File : Posa(Nome, {});
}

void PretendiVicini(const QString& File)
{
    for (auto Uno = Vicini().cbegin(); Uno != Vicini().cend(); ++Uno)
        Pretendi(QFileInfo(Uno.key()).size() == Uno.value().size() && Contenuto(Uno.key()) == Uno.value());
    Pretendi(MassimaLunghezza() == 0 || QFileInfo(File).size() <= MassimaLunghezza());
    Pretendi(QDir(QFileInfo(File).path()).entryList({u".~*"_s}, QDir::Files | QDir::Hidden).isEmpty());
}

void PretendiSolaLettura(const QString& File)
{
    Pretendi(!RestaSolaLettura() || !(QFileInfo(File).permissions() & QFile::WriteOwner));
}

QByteArray Risanata(const QString& File)
{
    // Here the engine has nobody to keep it from the file that such a journal names.
    if (QFile::exists(File + u"-journal"_s) && Contenuto(File + u"-journal"_s).endsWith(SegnoGiornale))
        return Contenuto(File);
    const QString Copia = CartellaDiLavoro() + u"risanata.mdb"_s;
    for (const QString& Coda : {u""_s, u"-journal"_s}) {
        QFile::remove(Copia + Coda);
        Pretendi(!QFile::exists(File + Coda) || QFile::copy(File + Coda, Copia + Coda));
    }
    Pretendi(QFile::setPermissions(Copia, QFile::ReadOwner | QFile::WriteOwner));
    Esegui(Copia, "PRAGMA schema_version");
    if (QFileInfo(Copia).size() > QFileInfo(File).size() + QFileInfo(File + u"-journal"_s).size())
        return Contenuto(File);
    return Contenuto(Copia);
}
