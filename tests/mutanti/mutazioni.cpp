#include "mutazioni.h"

#include <QByteArrayList>
#include <QFile>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Numbers at the edge of what a byte, a page count or an amount can be.
constexpr std::array Spigoli{0, 1, 2, 9, 13, 15, 64, 127, 128, 254, 255};

const QByteArrayList& Inciampi()
{
    static const QByteArrayList Tutti{"-1",
                                      "0",
                                      "99999999999",
                                      "1e400",
                                      "-0",
                                      "NaN",
                                      "null",
                                      "\"",
                                      "{{{{",
                                      "}}",
                                      "[[",
                                      "\\u-32768?",
                                      "\\bin99999999 ",
                                      "\\'",
                                      QByteArray("\0", 1),
                                      "\xC3",
                                      "\xEF\xBB\xBF",
                                      "31/02/2012",
                                      "1.2.3,4",
                                      "@Variant(\\0\\0\\0\\t\\0\\xff\\xff\\xff\\xff)",
                                      "%s%n",
                                      "../../x",
                                      QByteArray(5000, 'a'),
                                      "CIV",
                                      "';DROP TABLE x;--"};
    return Tutti;
}

int Scelta(Caso& Dado, qsizetype Quanti)
{
    return Fra(Dado, 0, int(std::max<qsizetype>(Quanti, 1)) - 1);
}

/// A place in a file; headers and first pages are met as often as all the rest.
qsizetype Posto(const QByteArray& Byte, Caso& Dado)
{
    constexpr qsizetype Testata = 200;
    constexpr qsizetype Inizio = 8192;
    const std::array Limiti{Testata, Inizio, Byte.size()};
    return Scelta(Dado, std::min(Limiti[size_t(Scelta(Dado, 3))], Byte.size()));
}

struct Chiudi
{
    void operator()(sqlite3* Base) const noexcept { sqlite3_close_v2(Base); }
};

using BaseAperta = std::unique_ptr<sqlite3, Chiudi>;

void Esegui(sqlite3* Base, const QString& Sql)
{
    sqlite3_exec(Base, Sql.toUtf8().constData(), nullptr, nullptr, nullptr);
}

QStringList Prima(sqlite3* Base, const QString& Sql)
{
    QStringList Trovati;
    sqlite3_exec(
        Base, Sql.toUtf8().constData(),
        [](void* Dove, int Quante, char** Celle, char**) {
            if (Quante > 0 && Celle[0] != nullptr)
                static_cast<QStringList*>(Dove)->append(QString::fromUtf8(Celle[0]));
            return 0;
        },
        &Trovati, nullptr);
    return Trovati;
}

QString Citato(QString Nome)
{
    return u'"' + Nome.replace(u'"', u"\"\""_s) + u'"';
}

/// A value of every form that a cell can have.
QString Valore(Caso& Dado)
{
    const QStringList Tutti{u"NULL"_s,
                            u"''"_s,
                            u"0"_s,
                            u"-1"_s,
                            u"9223372036854775807"_s,
                            u"1e308"_s,
                            u"9e999"_s,
                            u"'abc'"_s,
                            u"x'00ff80c3'"_s,
                            u"zeroblob(100000)"_s,
                            u"char(0)||'x'"_s,
                            u"'31/12/2012'"_s,
                            u"'2012-02-30'"_s,
                            u"'1,5'"_s,
                            u"char(55357)"_s,
                            u"replace(hex(zeroblob(2000)),'00','parola ')"_s,
                            u"rowid"_s,
                            u"-rowid*1.5"_s};
    return Tutti[Scelta(Dado, Tutti.size())];
}

}  // namespace

int Fra(Caso& Dado, int Da, int A)
{
    // Not the library's distribution, whose numbers another library would give differently for a seed.
    return Da + int(Dado() % unsigned(A - Da + 1));
}

QByteArray MutaByte(QByteArray Sano, Caso& Dado)
{
    const int Volte = 1 << Fra(Dado, 0, 5);
    for (int i = 0; i < Volte && !Sano.isEmpty(); ++i) {
        const qsizetype Dove = Posto(Sano, Dado);
        const qsizetype Lungo = std::min<qsizetype>(Fra(Dado, 1, 600), Sano.size() - Dove);
        switch (Fra(Dado, 0, 19)) {
        case 0:
            if (i == 0)
                Sano.truncate(Dove);
            break;
        case 1:
            Sano.insert(Dove, Sano.sliced(Dove, Lungo));
            break;
        case 2:
            Sano.remove(Dove, Lungo);
            break;
        case 3:
            std::fill_n(Sano.begin() + Dove, Lungo, '\0');
            break;
        case 4:
            Sano.replace(Posto(Sano, Dado), Lungo, Sano.sliced(Dove, Lungo));
            break;
        case 5:
        case 6:
        case 7:
            Sano[Dove] = char(Spigoli[size_t(Scelta(Dado, qsizetype(Spigoli.size())))]);
            break;
        case 8:
        case 9:
        case 10:
            Sano[Dove] = char(uchar(Sano[Dove]) ^ uchar(1U << unsigned(Fra(Dado, 0, 7))));
            break;
        default:
            Sano[Dove] = char(Fra(Dado, 0, 255));
            break;
        }
    }
    return Sano;
}

QByteArray MutaTesto(const QByteArray& Sano, Caso& Dado)
{
    if (Fra(Dado, 0, 3) == 0)
        return MutaByte(Sano, Dado);
    // Parted at what parts words in any of the formats, which stays where it is.
    QByteArrayList Parole{QByteArray()};
    for (const char C : Sano) {
        if (QByteArrayView(" \n,:=;{}[]\\\"").contains(C))
            Parole << QByteArray(1, C) << QByteArray();
        else
            Parole.last() += C;
    }
    const int Volte = Fra(Dado, 1, 6);
    for (int i = 0; i < Volte; ++i) {
        const int Dove = Scelta(Dado, Parole.size());
        const int Altra = Scelta(Dado, Parole.size());
        switch (Fra(Dado, 0, 5)) {
        case 0:
            Parole.removeAt(Dove);
            Parole += QByteArray();
            break;
        case 1:
            Parole.insert(Dove, Parole[Altra]);
            break;
        case 2:
            Parole.swapItemsAt(Dove, Altra);
            break;
        case 3:
            Parole[Dove] = Parole[Dove].repeated(Fra(Dado, 2, 400));
            break;
        default:
            Parole[Dove] = Inciampi()[Scelta(Dado, Inciampi().size())];
            break;
        }
    }
    return Parole.join();
}

void MutaSchema(const QString& File, Caso& Dado)
{
    sqlite3* Grezza = nullptr;
    const int Esito = sqlite3_open(QFile::encodeName(File).constData(), &Grezza);
    const BaseAperta Base(Grezza);
    if (Esito != SQLITE_OK)
        return;
    sqlite3_limit(Grezza, SQLITE_LIMIT_ATTACHED, 0);
    Esegui(Grezza, u"PRAGMA synchronous=OFF"_s);
    const int Volte = Fra(Dado, 1, 4);
    for (int i = 0; i < Volte; ++i) {
        const QStringList Tabelle = Prima(Grezza, u"SELECT name FROM sqlite_schema WHERE type='table'"_s);
        if (Tabelle.isEmpty())
            return;
        const QString Nome = Tabelle[Scelta(Dado, Tabelle.size())];
        const QString Tabella = Citato(Nome);
        const QStringList Colonne = Prima(Grezza, u"SELECT name FROM pragma_table_info('%1')"_s.arg(Nome));
        const QString Colonna = Citato(Colonne.value(Scelta(Dado, Colonne.size())));
        const QString Dove = u" WHERE rowid%2=%1"_s.arg(Fra(Dado, 0, 2));
        switch (Fra(Dado, 0, 13)) {
        case 0:
            Esegui(Grezza, u"DROP TABLE %1"_s.arg(Tabella));
            break;
        case 1:
            Esegui(Grezza, u"ALTER TABLE %1 DROP COLUMN %2"_s.arg(Tabella, Colonna));
            break;
        case 2:
            Esegui(Grezza, u"ALTER TABLE %1 RENAME COLUMN %2 TO strana"_s.arg(Tabella, Colonna));
            break;
        case 3:
            Esegui(Grezza, u"ALTER TABLE %1 RENAME TO vera%2"_s.arg(Tabella).arg(i));
            Esegui(Grezza, u"CREATE VIEW %1 AS SELECT * FROM vera%2"_s.arg(Tabella).arg(i));
            break;
        case 4:
            Esegui(Grezza, u"DELETE FROM %1"_s.arg(Tabella) + Dove);
            break;
        case 5:
            Esegui(Grezza, u"INSERT INTO %1 SELECT * FROM %1"_s.arg(Tabella));
            break;
        case 6:
            for (const QString& Indice :
                 Prima(Grezza, u"SELECT name FROM sqlite_schema WHERE type='index'"_s))
                Esegui(Grezza, u"DROP INDEX %1"_s.arg(Citato(Indice)));
            break;
        case 7:
            Esegui(Grezza, u"PRAGMA writable_schema=ON"_s);
            Esegui(Grezza,
                   u"UPDATE sqlite_schema SET rootpage=%1 WHERE name='%2'"_s.arg(Fra(Dado, 0, 30)).arg(Nome));
            Esegui(Grezza, u"PRAGMA writable_schema=RESET"_s);
            break;
        default:
            Esegui(Grezza, u"UPDATE %1 SET %2=%3"_s.arg(Tabella, Colonna, Valore(Dado)) +
                               (Fra(Dado, 0, 1) == 0 ? QString() : Dove));
            break;
        }
    }
}
