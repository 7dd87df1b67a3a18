// The list of the last calculations: any bytes are a list or none, and a list that was read is read again as
// it was written.
#include "bersaglio.h"

#include "calculators/ultimicalcoli.h"

namespace {

void Prova(const QByteArray& Byte)
{
    const auto Elenco = LeggiElenco(Byte);
    if (!Elenco)
        return;
    for (const QList<CalcoloRicordato>& Calcoli : *Elenco) {
        Pretendi(Calcoli.size() <= MassimoCalcoli);
        for (const CalcoloRicordato& Calcolo : Calcoli) {
            Pretendi(!Calcolo.Nome.isEmpty() && !Calcolo.Nome.contains(QChar(u'\n')));
            Pretendi(!Calcolo.Campi.isEmpty() && Calcolo.Quando.isValid());
        }
    }
    const auto Ancora = LeggiElenco(ScriviElenco(*Elenco));
    Pretendi(Ancora && *Ancora == *Elenco);
}

}  // namespace

BERSAGLIO(fuzz_calcoli, Prova);
