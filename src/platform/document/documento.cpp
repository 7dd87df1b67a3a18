#include "platform/document/documento.h"

#include <algorithm>

QString Paragrafo::Testo() const
{
    QString Intero;
    for (const Tratto& Pezzo : Tratti)
        Intero += Pezzo.Testo;
    return Intero;
}

double AltoDellaTesta(double MargineAltoCm)
{
    return std::min(MargineAltoCm, FiguraTesta::DalBordoCm);
}

double ParteDellaTesta(const FiguraTesta& Figura, double LarghezzaCm, double AltezzaCm)
{
    constexpr double QuotaMassima = 0.5;
    return std::min({1.0, LarghezzaCm / Figura.LarghezzaCm, AltezzaCm * QuotaMassima / Figura.AltezzaCm});
}
