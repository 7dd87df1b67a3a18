// How the windows look: font, spacing, colours, pictures, mnemonics, places of windows.
#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QWidget;

namespace aspetto {

// One grid of 4 px.
constexpr int TraCampi = 8;
constexpr int TraGruppi = 16;
constexpr int Bordo = 12;

/// Twips (1/1440 inch) to pixels at 96 dpi and back: 15 a pixel, rounded to nearest.
[[nodiscard]] int Pixel(int Twip);
[[nodiscard]] int Twip(int Pixel);

/// Colours as 0xBBGGRR, the classic order; -1 is the palette's window colour.
[[nodiscard]] QColor DaBgr(int Colore);
/// The same number back; transparency is dropped.
[[nodiscard]] int ABgr(const QColor& Colore);

/// True when the palette in use writes light on dark.
[[nodiscard]] bool Scuro();
/// Accent of the current step, fit for the palette in use (deep blue on light, its pale kin on dark).
[[nodiscard]] QColor Accento();
/// What is wrong: dark red on light, its pale kin on dark.
[[nodiscard]] QColor Sbagliato();
/// Background of a selected line, RGB 247,223,111, and its dark text.
[[nodiscard]] QColor RigaSelezionata();
[[nodiscard]] QColor TestoRigaSelezionata();
/// Thin rules between rows and around grids.
[[nodiscard]] QColor Filo();
/// A colour mixed over another: `Parte` of the first, from 0 to 1.
[[nodiscard]] QColor Mischia(const QColor& Sopra, const QColor& Sotto, double Parte);

/// The application's font, style, translations (qtbase_it) and icon; call it once at the start.
void Prepara();

/// A picture of the program by name, an SVG line drawing recoloured for the palette; it follows a change
/// of palette. A null icon for a name that has no drawing.
[[nodiscard]] QIcon Icona(const QString& Nome);

/// A picture of a file, stretched to a size in device pixels while it is read: a photograph read whole takes
/// longer than the window around it, and stays in memory. Null when the file holds none.
[[nodiscard]] QPixmap LeggiImmagine(const QString& File, const QSize& Misura);

/// Gives the labels and buttons of a form that have none a mnemonic on a free letter: labels with a buddy,
/// buttons with a text, and tabs. The pages of a tab or stack widget may share letters, as only one of them
/// is on view. A caption that code sets later has none.
void AssegnaMnemonici(QWidget* Modulo);

/// Gives every control without an accessible name the text of its label, caption, tooltip, placeholder or
/// group, the first that it has and that can be read: a caption of a sign alone is none.
void AssegnaNomiAccessibili(QWidget* Modulo);

/// The titles of the form's groups in bold, what they hold as it was.
void TitoliInGrassetto(QWidget* Modulo);

/// From now on the window comes up where and as large as the user left it, and the first time as large as its
/// form was drawn, in the measure of the letters in use; and his moving and sizing it is
/// remembered when it goes. What the program does to it, before it is on view or because a screen is small,
/// is not his and is not kept; a place that cannot be stored is dropped without a message. A second call does
/// nothing.
void RicordaPostoDi(QWidget* Finestra, const QString& Nome);

/// Puts a window on the screen where the pointer is, where it was last time: whole and with its title bar in
/// reach, never larger than the screen, and never smaller than its contents where the screen has room for
/// them.
void RimettiAlPosto(QWidget* Finestra, const QString& Nome);
/// Remembers place and size for RimettiAlPosto; of a maximised window the normal ones, and that it was so.
void RicordaPosto(const QWidget* Finestra, const QString& Nome);

}  // namespace aspetto
