// Where the vendor's pages and updates are: the one place to change when they move.
#pragma once

#include <QString>

namespace indirizzi {

/// Key of the setting that names a server in the place of the build's own: a mirror inside an office.
inline constexpr QStringView ChiaveServer = u"ServerAggiornamenti";

/// An address as somebody has written it, in the one form that the program uses: without blanks around it and
/// "/" at its end, with "https://" where it has no scheme. A text with nothing in it is the build's own.
[[nodiscard]] QString Normalizzato(const QString& Scritto);

/// Address of the server of pages and updates, without "/" at its end; the paths behind it are the commands'
/// own. Empty where neither the settings nor the build name one: nobody is asked then, and the program shows
/// pages of its own. In the form of Normalizzato.
[[nodiscard]] QString Server();

/// What that server says of publisher and developer; empty without one.
[[nodiscard]] QString Editore();
[[nodiscard]] QString Sviluppatore();

}  // namespace indirizzi
