// Descriptions of fee notes: any bytes give a note or an error, and a note can always be told as JSON.
#include "core/sessione.h"
#include "feenote/file/modDescrizione.h"
#include "platform/base/errore.h"
#include "platform/system/messaggi.h"

#include <QJsonDocument>

namespace {

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

/// Speaks to nobody, and finds the tariffs that were built beside the target.
bool Prepara()
{
    InstallaMessaggi({});
    sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    static const bool Pronto = Prepara();
    Pretendi(Pronto);
    const QByteArray Testo(reinterpret_cast<const char*>(Dati), static_cast<qsizetype>(Quanti));
    try {
        const Parcella Nota = CreaDaDescrizione(Testo);
        QJsonParseError Esito;
        Pretendi(QJsonDocument::fromJson(DescriviNota(Nota), &Esito).isObject());
        Pretendi(Esito.error == QJsonParseError::NoError);
    } catch (const Errore& Guasto) {
        Pretendi(Guasto.Numero > 0 && !Guasto.Descrizione.isEmpty());
    }
    return 0;
}
