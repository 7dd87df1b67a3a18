// F1: the page of the guide about the window in use. Ctrl+?: the page of keys.
#pragma once

#include <QString>

class QWidget;

/// The page about a control: that of the panel, tab or window around it that has one, the contents where none
/// has. File name without extension. A window with tabs, and the frame of the notes, answer with the tab on
/// view.
[[nodiscard]] QString PaginaDellaGuida(const QWidget* Dove);

/// Shows a page of the guide, by its file name without extension, in the one viewer of the guide. Above a
/// modal dialog it goes with that dialog, so that it can be used. A guide that is not beside the program is
/// told.
void ApriGuida(const QString& Pagina);

/// The page of all keys.
inline constexpr QStringView PaginaDeiTasti = u"tastiera";

/// From now on F1 opens the guide in every window, and Ctrl+? its page of keys.
void InstallaTastoGuida();
