// The toolbar over the preview of a fee note.
#pragma once

#include <QString>
#include <QStringView>

#include <functional>

class QLabel;
class QToolBar;

/// Keys of the zoom button's menu begin with this letter; a number follows, percent or ZoomAlFoglio.
inline constexpr QChar TastoZoom = u'z';
/// The number that stands for fitting the page to the window.
constexpr int ZoomAlFoglio = 999;

/// Builds barPrint: its buttons, the menu of the zoom button, and txtPage at the right end.
/// @param Clic called with the key of a button or of an entry of the menu
/// @return txtPage
QLabel* CostruisciBarraStampa(QToolBar* Barra, const std::function<void(const QString& Chiave)>& Clic);
