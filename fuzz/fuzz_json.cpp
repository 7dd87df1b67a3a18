// Descriptions of fee notes: any bytes give a note or an error, and a note can always be told as JSON.
#include "fonte.h"

#include "feenote/file/modDescrizione.h"
#include "feenote/file/modNotaJson.h"

#include <QJsonDocument>

namespace {

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    Riesce([&] {
        const Parcella Nota = CreaDaDescrizione(Dati);
        QJsonParseError Esito;
        Pretendi(QJsonDocument::fromJson(DescriviNota(Nota), &Esito).isObject());
        Pretendi(Esito.error == QJsonParseError::NoError);
    });
}

}  // namespace

BERSAGLIO(fuzz_json, Prova);
