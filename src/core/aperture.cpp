#include "core/aperture.h"

#include "core/sessione.h"

void RicercaAllAvvio()
{
    if (sessione::CercaAgg && Aperture.CercaAggiornamenti)
        Aperture.CercaAggiornamenti();
}
