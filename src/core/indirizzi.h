// Where the vendor's pages are: the one place to change when they move.
#pragma once

#include <QStringView>

namespace indirizzi {

/// The server of help, notes and updates; the paths behind it are the commands' own.
inline constexpr QStringView Server = u"http://www.calcanova.example";
inline constexpr QStringView Editore = u"http://www.calcanova.example/";
inline constexpr QStringView Sviluppatore = u"http://sviluppo.calcanova.example/";

}  // namespace indirizzi
