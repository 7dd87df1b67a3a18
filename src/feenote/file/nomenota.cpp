#include "feenote/file/nomenota.h"

#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

QString SenzaEstensione(const QString& Nome)
{
    return Nome.endsWith(EstensioneNota, Qt::CaseInsensitive) ? Nome.chopped(EstensioneNota.size()) : Nome;
}

QString NomeMostrato(const QString& File)
{
    return SenzaEstensione(NomeFile(File));
}

bool NellaCartellaModelli(const QString& Percorso)
{
    return FinisceInCartella(CartellaFile(Percorso), u"Modelli"_s);
}
