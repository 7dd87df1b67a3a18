// Filters of the keys typed in boxes and cells. They see printable characters and the four control
// codes named here; clipboard shortcuts never reach them.
#pragma once

#include <QString>

constexpr int TastoBackspace = 8;
constexpr int TastoInvio = 13;
constexpr int TastoEsc = 27;

/// @param Tasto character code of the key, 0 for none
/// @param Tipo "d" dates (digits / -), "n" whole numbers (digits -), "," amounts (digits - , .), another
///        text of two characters or more: the allowed list itself; empty allows everything; another
///        single character allows nothing
/// @return the key to keep, 0 to swallow it. Enter moves to the next field and is swallowed; Escape,
///         Backspace and 0 pass
[[nodiscard]] int FiltroTasti(int Tasto, const QString& Tipo);

/// @param Lista allowed characters, empty allows everything
/// @param InvioTab Enter moves to the next field (and then goes through the list like any other key)
/// @return the key to keep, 0 to swallow it
[[nodiscard]] int FiltroCaratteri(int Tasto, const QString& Lista, bool InvioTab);
