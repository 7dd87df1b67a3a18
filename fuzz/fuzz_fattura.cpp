// Files of electronic invoices: any bytes give findings, each with a sentence and a place of the file; what
// the checks let through is read a second time alike.
#include "bersaglio.h"

#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/forma.h"
#include "feenote/einvoice/lettura.h"

namespace {

/// A tree in order: parents stand before what is in them, and what they hold is theirs.
void Ordinato(const AlberoXml& Albero)
{
    Pretendi(Albero.Quanti() <= limiti_fattura::Elementi);
    for (int Nodo = 0; Nodo < Albero.Quanti(); ++Nodo) {
        Pretendi((Albero[Nodo].Padre == AlberoXml::Nessuno) == (Nodo == 0));
        Pretendi(Albero[Nodo].Padre < Nodo);
        if (const int Primo = Albero[Nodo].Primo; Primo != AlberoXml::Nessuno)
            Pretendi(Primo > Nodo && Albero[Primo].Padre == Nodo);
        if (const int Seguente = Albero[Nodo].Seguente; Seguente != AlberoXml::Nessuno)
            Pretendi(Seguente > Nodo && Albero[Seguente].Padre == Albero[Nodo].Padre);
    }
}

void Prova(const QByteArray& Byte)
{
    const LetturaXml Letto = LeggiXml(Byte);
    Pretendi(Letto.Guasto.isEmpty() == (Letto.Albero.Quanti() > 0));
    Ordinato(Letto.Albero);
    const QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, QDate(2026, 1, 20));
    for (const EsitoControllo& Esito : Esiti) {
        Pretendi(!Esito.Frase.isEmpty() && !TestoEsito(Esito).isEmpty());
        Pretendi(Esito.Linea >= 0 && Esito.Linea <= Byte.count('\n') + Byte.count('\r') + 1);
    }
    if (Letto.Guasto.isEmpty() && Accettabile(Esiti))
        Pretendi(ControllaForma(Letto.Albero).isEmpty());
}

}  // namespace

BERSAGLIO(fuzz_fattura, Prova);
