// Single characters as codes and numbers are made of them: the digits and letters of ASCII, those of no other
// alphabet.
#pragma once

#include <QStringView>

#include <algorithm>

[[nodiscard]] constexpr bool ECifra(QChar C)
{
    return C >= u'0' && C <= u'9';
}

[[nodiscard]] constexpr bool EMaiuscola(QChar C)
{
    return C >= u'A' && C <= u'Z';
}

/// Digits and nothing else; false for an empty text.
[[nodiscard]] inline bool SoloCifre(QStringView Testo)
{
    return !Testo.isEmpty() && std::ranges::all_of(Testo, ECifra);
}
