// Where the vendor's pages are: the one place to change when they move.
#pragma once

#include <QStringView>

namespace indirizzi {

/// The server of help, notes and updates; the paths behind it are the commands' own.
inline constexpr QStringView Server = u"http://www.calcanova.example";
inline constexpr QStringView Editore = u"http://www.calcanova.example/";
inline constexpr QStringView Sviluppatore = u"http://sviluppo.calcanova.example/";

/// False for a name under ".example", which stands for an address that nobody has registered yet (RFC 2606).
[[nodiscard]] inline bool Esiste(QStringView Indirizzo)
{
    constexpr QStringView Riservato = u".example";
    const qsizetype Barra = Indirizzo.indexOf(u'/', Indirizzo.indexOf(u"://") + 3);
    return !(Barra < 0 ? Indirizzo : Indirizzo.first(Barra)).endsWith(Riservato);
}

}  // namespace indirizzi
