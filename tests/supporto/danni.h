// Damages of a data file, for tests that go through all of them.
#pragma once

#include "platform/system/file.h"

#include <QFile>
#include <QTest>

#include <array>

enum Danno { Troncato, Svuotato, Cartella, Illeggibile, Mancante, Danni };

inline constexpr std::array<const char*, Danni> NomiDanni{"cut in half", "emptied", "a folder in its place",
                                                          "without permission", "gone"};

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
