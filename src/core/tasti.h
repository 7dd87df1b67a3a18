// The keys: one table of what each does, window by window. Frame and desktop make their keys of it, and so is
// the page of keys made; a test holds every other window's keys, hints and menus to it.
#pragma once

#include <QString>

#include <span>
#include <vector>

/// What a key does in a window.
struct RigaTasti
{
    QStringView Finestra;  ///< class of the window, tab or control that it works in; empty: in all of them
    QStringView Comando;  ///< word or object name of the button or entry that does the same; empty: none does
    QStringView Tasti;    ///< in the portable form, the first one shown in hints; a blank between equals
    QStringView Effetto;  ///< in Italian, as it stands in the page of keys
    bool Interno = false;  ///< the control with the focus answers it, no shortcut of the window does
};

/// A part of the page of keys.
struct GruppoTasti
{
    QStringView Finestra;
    QStringView Titolo;
};

/// All keys. Those of the commands, which stand in the table of commands, belong to "frmMain"; it says which
/// windows are calculators, too, which have keys in common.
[[nodiscard]] const std::vector<RigaTasti>& TabellaTasti();

/// The parts of the page, in its order.
[[nodiscard]] std::span<const GruppoTasti> GruppiTasti();

/// The first of the keys of a window's command, empty where it has none.
[[nodiscard]] QString TastiDi(QStringView Finestra, QStringView Comando);
