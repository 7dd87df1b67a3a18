// Damages of a data file, for tests that go through all of them.
#pragma once

#include "platform/system/file.h"

#include <QFile>
#include <QList>
#include <QTest>

#include <array>

#include <unistd.h>

enum Danno { Troncato, Svuotato, Cartella, Illeggibile, Mancante, Danni };

inline constexpr std::array<const char*, Danni> NomiDanni{"cut in half", "emptied", "a folder in its place",
                                                          "without permission", "gone"};

/// Those that whoever runs the test can meet: the superuser reads what nobody may read.
inline QList<int> DanniVisibili()
{
    QList<int> Tutti{Troncato, Svuotato, Cartella};
    if (::geteuid() != 0)
        Tutti.append(Illeggibile);
    return Tutti;
}

/// Does it to a file that is there.
inline void Rovina(const QString& File, int Come)
{
    const QByteArray Sano = LeggiFile(File);
    switch (Come) {
    case Troncato:
        ScriviFile(File, Sano.first(Sano.size() / 2));
        break;
    case Svuotato:
        ScriviFile(File, {});
        break;
    case Illeggibile:
        QVERIFY(QFile::setPermissions(File, {}));
        break;
    case Cartella:
    case Mancante:
        QVERIFY(QFile::remove(File));
        if (Come == Cartella)
            CreaCartella(File);
        break;
    default:
        QFAIL("danno sconosciuto");
    }
}
