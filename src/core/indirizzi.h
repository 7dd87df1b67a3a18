// Where the vendor's pages and updates are: the one place to change when they move.
#pragma once

#include <QString>

namespace indirizzi {

/// Key of the setting that names a server in the place of the build's own: a mirror inside an office.
inline constexpr QStringView ChiaveServer = u"ServerAggiornamenti";

/// Address of the server of pages and updates, without "/" at its end; the paths behind it are the commands'
/// own. Empty where neither the settings nor the build name one: nobody is asked then, and the program shows
/// pages of its own. An address without a scheme gets "https://".
[[nodiscard]] QString Server();

/// What that server says of publisher and developer; empty without one.
[[nodiscard]] QString Editore();
[[nodiscard]] QString Sviluppatore();

}  // namespace indirizzi
