// Cards of other programs: any bytes give rows or a sentence, and what was read can be written as a card.
#include "addressbook/exchange/vcard.h"

namespace {

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    const QByteArray Byte(reinterpret_cast<const char*>(Dati), static_cast<qsizetype>(Quanti));
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
    return 0;
}
