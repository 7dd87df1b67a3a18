// Where pages break, given strips of paper and nothing else: no font, no painter.
#pragma once

#include <span>
#include <vector>

/// A strip that is never cut: a line of a paragraph, a row of a table. Lengths in any one unit.
struct Striscia
{
    double Altezza = 0.0;
    bool Bianca = false;       ///< empty: takes no room where a page ends
    bool Unita = false;        ///< no page begins with it
    double TitoliSopra = 0.0;  ///< height of what a page repeats above it when it begins with it
    bool NuovaPagina = false;  ///< begins a page, whatever it is joined to
};

/// Where a strip stands.
struct PostoStriscia
{
    int Pagina = 1;
    double Y = 0.0;          ///< of its upper edge, from the top of the text area
    bool InFondo = false;    ///< an empty one that no longer fitted: it takes no room
    bool ConTitoli = false;  ///< begins a page, below what the page repeats

    friend bool operator==(const PostoStriscia&, const PostoStriscia&) = default;
};

/// Fills pages in order, each as far as it goes. A break moves back to the first strip that may begin a page;
/// strips joined over more than a page are broken where the page ends. A strip higher than a page has one of
/// its own and hangs over.
/// @param Scesa room that the first page gives to something else above its strips
[[nodiscard]] std::vector<PostoStriscia> SpezzaPagine(std::span<const Striscia> Tutte, double AltezzaPagina,
                                                      double Scesa = 0.0);
