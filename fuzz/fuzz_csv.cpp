// Rows of other programs: any bytes give rows or a sentence, and rows can be written and read again as they
// are.
#include "bersaglio.h"

#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/csv.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/errore.h"
#include "platform/base/fogliocsv.h"

namespace {

void Prova(const QByteArray& Byte)
{
    try {
        const RigheCsv Lette = LeggiCsv(Byte);
        Pretendi(Lette.Righe.size() == Lette.Linee.size());
        Pretendi(Lette.Colonne <= limiti::Colonne);
        for (const QStringList& Riga : Lette.Righe)
            Pretendi(!Riga.isEmpty() && Riga.size() <= Lette.Colonne);
        if (Lette.Righe.empty())
            return;
        Pretendi(AbbinaColonne(Lette.Righe.front(), {}).size() == Lette.Righe.front().size());
        // Half a pair of surrogates is no text: it does not come back.
        const QString Intero = QString::fromUtf8(ScriviCsv(Lette.Righe));
        for (const QStringList& Riga : Lette.Righe)
            for (const QString& Cella : Riga)
                if (!Cella.isValidUtf16())
                    return;
        const RigheCsv Ancora =
            LeggiCsv(ScriviCsv(Lette.Righe), {.Separatore = u';', .Codifica = CodificaTesto::Utf8});
        Pretendi(Ancora.Righe == Lette.Righe);
    } catch (const Errore& Guasto) {
        Pretendi(Guasto.Numero == NumeroFileRifiutato && !Guasto.Descrizione.isEmpty());
    }
}

}  // namespace

BERSAGLIO(fuzz_csv, Prova);
