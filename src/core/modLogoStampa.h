// The office's logo on the documents of a fee note and on the sheets of the calculators.
#pragma once

#include "platform/document/documento.h"

#include <optional>

/// The logo as the settings place it; none where they say so, for a document that does not bear it, and where
/// the program's copy is missing or damaged.
/// @param Tipo a TipoStampa
[[nodiscard]] std::optional<FiguraTesta> LogoDelDocumento(int Tipo);
/// The same for a sheet of a calculator.
[[nodiscard]] std::optional<FiguraTesta> LogoDelleSchede();

/// A logo of this height on paper, less where it would be wider than a page's text.
/// @param Png what is no PNG gives none
[[nodiscard]] std::optional<FiguraTesta> FiguraDi(const QByteArray& Png, double AltezzaCm, Allineamento Dove);

/// Shows the user that the logo was left out since the last call, and why; once for each logo.
void AvvisaLogo();
