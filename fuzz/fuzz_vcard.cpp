// Cards of other programs: any bytes give rows or a sentence, and what was read can be written as a card.
#include "bersaglio.h"

#include "addressbook/exchange/vcard.h"
#include "platform/base/errore.h"

namespace {

void Prova(const QByteArray& Byte)
{
    try {
        const TabellaEstranea Lette = LeggiVcard(Byte);
        Pretendi(Lette.Righe.size() == Lette.Numeri.size() && Lette.Titoli.size() <= limiti::Colonne);
        for (const QStringList& Riga : Lette.Righe) {
            Pretendi(Riga.size() == Lette.Titoli.size());
            ValoriNominativo Valori;
            for (qsizetype i = 0; i < Riga.size(); ++i)
                Valori.append({Lette.Titoli[i], Riga[i]});
            const QByteArray Scheda = SchedaVcard(Valori, false);
            if (Riga.value(Lette.Titoli.indexOf(QStringLiteral("Nominativo"))).trimmed().isEmpty()) {
                Pretendi(Scheda.isEmpty());
                continue;
            }
            for (const QByteArray& Linea : Scheda.split('\n'))
                Pretendi(Linea.size() <= 76);
            Pretendi(LeggiVcard(Scheda).Righe.size() == 1);
        }
    } catch (const Errore& Guasto) {
        Pretendi(Guasto.Numero == NumeroFileRifiutato && !Guasto.Descrizione.isEmpty());
    }
}

}  // namespace

BERSAGLIO(fuzz_vcard, Prova);
