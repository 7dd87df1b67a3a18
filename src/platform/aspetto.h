// How the windows look: font, spacing, colours, pictures, mnemonics, places of windows.
#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QToolBar;
class QWidget;

namespace aspetto {

// One grid of 4 px.
constexpr int TraCampi = 8;
constexpr int TraGruppi = 16;
constexpr int Bordo = 12;

/// Twips (1/1440 inch) to pixels at 96 dpi and back: 15 a pixel.
[[nodiscard]] int Pixel(int Twip);
[[nodiscard]] int Twip(int Pixel);

/// Colours as 0xBBGGRR, the classic order; -1 is the palette's window colour.
[[nodiscard]] QColor DaBgr(int Colore);

/// Accent of the current step, fit for the palette in use (deep blue on light, its pale kin on dark).
[[nodiscard]] QColor Accento();
/// What is wrong: dark red on light, its pale kin on dark.
[[nodiscard]] QColor Sbagliato();
/// Background of a selected line, RGB 247,223,111, and its dark text.
[[nodiscard]] QColor RigaSelezionata();
[[nodiscard]] QColor TestoRigaSelezionata();

/// The application's font, style, translations (qtbase_it) and icon; call it once at the start.
void Prepara();

/// A picture of the program by name, an SVG line drawing recoloured for the palette.
[[nodiscard]] QIcon Icona(const QString& Nome);

/// Gives the labels and buttons of a form that have none a mnemonic on a free letter.
void AssegnaMnemonici(QWidget* Modulo);

/// Gives every control without an accessible name the text of its label, group, tooltip or caption.
void AssegnaNomiAccessibili(QWidget* Modulo);

/// Puts a window on the screen where the pointer is, where it was last time, never larger than the screen.
void RimettiAlPosto(QWidget* Finestra, const QString& Nome);
void RicordaPosto(const QWidget* Finestra, const QString& Nome);

}  // namespace aspetto
