#include "platform/document/documento.h"

#include <algorithm>

QString Paragrafo::Testo() const
{
    QString Intero;
    for (const Tratto& Pezzo : Tratti)
        Intero += Pezzo.Testo;
    return Intero;
}

PostoTesta PostoDellaTesta(const Documento& Doc)
{
    if (!Doc.Testa)
        return {Doc.MargineAltoCm, Doc.MargineAltoCm};
    const double Figura = std::min(Doc.MargineAltoCm, FiguraTesta::DalBordoCm);
    const double Sotto = Figura + Doc.Testa->AltezzaCm + FiguraTesta::SottoCm;
    return {Figura, std::max(Doc.MargineAltoCm, Sotto)};
}
