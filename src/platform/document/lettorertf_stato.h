// What a rich text has said so far: the formats that its groups give back when they end.
#pragma once

#include "platform/document/documento.h"

#include <vector>

namespace rtf {

struct FormatoCarattere
{
    int NumeroFont = 0;
    double Punti = 12.0;
    bool Grassetto = false;
    bool Corsivo = false;
    bool Sottolineato = false;
    bool Barrato = false;
    PostoRigo Posto = PostoRigo::Normale;
    bool Maiuscole = false;
    bool Nascosto = false;
};

struct FormatoParagrafo
{
    Allineamento Allinea = Allineamento::Sinistra;
    Rientri Spazi;
    std::vector<Fermo> Fermi;
    Fermo Prossimo;         ///< the tab stop that is being described
    int DistanzaRighe = 0;  ///< twips, or 240 a line
    bool InMultipli = false;
    bool PaginaPrima = false;
    bool ConSeguente = false;
    bool Intera = false;
    bool InTabella = false;

    [[nodiscard]] Interlinea Righe() const;
};

/// What a group gives back when it ends.
struct Gruppo
{
    enum Scopo { Testo, Font, Niente };
    Scopo Dove = Testo;
    int Sostituti = 1;
    FormatoCarattere Caratteri;
    FormatoParagrafo Paragrafi;
};

}  // namespace rtf
