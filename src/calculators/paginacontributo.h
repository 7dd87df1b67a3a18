// The page of the filing fee: every kind of proceeding with its fee, as it is shown.
//
// The amounts are captions of D.p.r. 115/2002 as of D.L. 90/2014; nothing is computed from them. Misprints
// and blanks at the ends stay as they are.
#pragma once

#include <QStringView>

#include <span>

constexpr int SenzaCampo = -1;

/// One proceeding or note of a section.
struct VocePagina
{
    QStringView Numero;      ///< "1)", empty for none
    QStringView Testo;       ///< "\n" where a second caption begins
    QStringView Contributo;  ///< fixed fee, "esente" or "50%"; empty for none
    int Campo = SenzaCampo;  ///< index of the value field and result that stand in its row
};

struct SezionePagina
{
    QStringView Titolo;
    QStringView Norma;  ///< in brackets behind the title, empty for none
    std::span<const VocePagina> Voci;
};

/// The sections from top to bottom.
[[nodiscard]] std::span<const SezionePagina> PaginaContributo();
