#include "supporto/guasti.h"

#include "platform/base/errore.h"

ErroreVisto ErroreDi(const std::function<void()>& Fai)
{
    try {
        Fai();
    } catch (const Errore& Guasto) {
        return {Guasto.Numero, Guasto.Descrizione};
    }
    return {};
}

int NumeroErrore(const std::function<void()>& Fai)
{
    return ErroreDi(Fai).Numero;
}

QString DescrizioneErroreDi(const std::function<void()>& Fai)
{
    return ErroreDi(Fai).Descrizione;
}
