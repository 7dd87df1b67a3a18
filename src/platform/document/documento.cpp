#include "platform/document/documento.h"

QString Paragrafo::Testo() const
{
    QString Intero;
    for (const Tratto& Pezzo : Tratti)
        Intero += Pezzo.Testo;
    return Intero;
}
