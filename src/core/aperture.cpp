#include "core/aperture.h"

#include "core/sessione.h"

bool Apritori::Ha(QStringView Parola) const
{
    const auto Trovata = Finestre.find(Parola);
    return Trovata != Finestre.end() && Trovata->second;
}

void Apritori::Apri(QStringView Parola) const
{
    if (Ha(Parola))
        Finestre.find(Parola)->second();
}

bool RicercaDaFare()
{
    return sessione::CercaAgg && !sessione::RicercaFatta && !sessione::ServerAggiornamenti.isEmpty() &&
           Aperture.CercaAggiornamenti;
}

void RicercaAllAvvio()
{
    if (!RicercaDaFare())
        return;
    // Once in a session: a save of the settings reads the wish for it anew.
    sessione::RicercaFatta = true;
    Aperture.CercaAggiornamenti();
}

void MostraPaginaTasti()
{
    Invoca(Aperture.PaginaTasti);
}
