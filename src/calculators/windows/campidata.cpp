#include "calculators/windows/campidata.h"

#include "platform/base/datatesto.h"
#include "platform/kit/campo.h"
#include "platform/kit/mascheradata.h"

void CompletaAnno(MascheraData* Campo)
{
    AlLasciaSempre(Campo, [Campo] {
        const QString Testo = Campo->Testo();
        if (const QString Intero = ConSecolo(Testo); Intero != Testo)
            Campo->ImpostaTesto(Intero);
        return true;
    });
}
