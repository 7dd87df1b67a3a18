// The notice of the start.
#pragma once

#include <QString>

/// The notice page of the start, with the box that silences it.
struct PaginaAvviso
{
    QString Pagina;  ///< file
    QString Titolo;
    QString Marcatore;  ///< stem of the ".ini" file whose existence silences the page
    int LarghezzaTwip = 0;
    int AltezzaTwip = 0;
};
