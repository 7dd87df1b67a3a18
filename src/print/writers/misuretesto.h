// How much room a text takes, reckoned without fonts.
#pragma once

#include "platform/document/documento.h"

#include <QStringView>

/// Width on one line in centimetres, by the advances of the two usual families and of their equals; letters
/// with accents are as wide as the plain ones. Kerning and bold are left aside.
[[nodiscard]] double LarghezzaTesto(QStringView Testo, const Carattere& Font);

/// Lines that a text takes in so much room; "\n" breaks lines, a word that is too wide is broken.
[[nodiscard]] int RigheTesto(QStringView Testo, const Carattere& Font, double LarghezzaCm);

/// Height of a line, in points.
[[nodiscard]] double AltezzaRigaPunti(const Carattere& Font);
