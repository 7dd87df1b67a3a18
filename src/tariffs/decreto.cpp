#include "tariffs/decreto.h"

#include "core/sessione.h"

#include <algorithm>

const Decreto* DecretoDi(QStringView Sigla)
{
    const auto Trovato = std::ranges::find(Decreti, Sigla, [](const Decreto* Uno) { return Uno->Sigla; });
    return Trovato == Decreti.end() ? nullptr : *Trovato;
}

const Decreto& DecretoNuove()
{
    const Decreto* Scelto = DecretoDi(sessione::Tariffa);
    return Scelto ? *Scelto : *Decreti.front();
}

bool DecretoScelto()
{
    return DecretoDi(sessione::Tariffa);
}
