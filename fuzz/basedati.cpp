#include "basedati.h"

#include <QFile>

#include <sqlite3.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// What an input may ask of the engine that makes its file: a writer of hostile files has more time than a
// target.
constexpr int MassimoPassi = 200000;
constexpr int MassimaCella = 1 << 20;
constexpr int MassimePagine = 2000;

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

}  // namespace

QString PosaDatabase(const QString& Nome, const QByteArray& Sana, const QByteArray& Dati)
{
    for (const QString& Accanto : {u"-journal"_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(CartellaDiLavoro() + Nome + Accanto);
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Come = Dati.first(std::max<qsizetype>(Fine, 0));
    const QByteArray Resto = Dati.sliced(Fine + 1);
    if (Come == "byte")
        return Posa(Nome, ConByte(Sana, Resto));
    if (Come == "tronca")
        return Posa(Nome, Sana.first(std::clamp<qsizetype>(Resto.trimmed().toInt(), 0, Sana.size())));
    if (Come != "sql" && Come != "vuoto")
        return Posa(Nome, Dati);
    const QString File = CartellaDiLavoro() + Nome;
    QFile::remove(File);
    if (Come == "sql")
        (void)Posa(Nome, Sana);
    Esegui(File, Resto);
    // Nothing that was run has made a file.
    return QFile::exists(File) ? File : Posa(Nome, {});
}
