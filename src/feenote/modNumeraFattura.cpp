#include "feenote/modNumeraFattura.h"

#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

bool NumeraFattura(Parcella& Nota)
{
    if (!Nota.DatiPar(DatoNumFatt).isEmpty() || !Nota.DatiPar(DatoDataFatt).isEmpty()) {
        MsgErrore(u"I campi Numero e Data fattura sono già valorizzati!"_s);
        return false;
    }
    if (sessione::ProgFatt >= UltimoProgFatt) {
        MsgErrore(u"Il progressivo delle fatture è arrivato all'ultimo numero (%1)!\n"
                  "Correggerlo nelle impostazioni oppure indicare il numero a mano."_s.arg(UltimoProgFatt));
        return false;
    }
    Nota.txtDatiPar[DatoNumFatt] = CStr(sessione::ProgFatt + 1);
    Nota.txtDatiPar[DatoDataFatt] = Format(Oggi(), u"dd/mm/yyyy");
    SetModificata(Nota, true);
    return true;
}

void AggiornaProgFatt()
{
    if (MsgBox(u"Procedo all'aggiornamento del progressivo?"_s, vbYesNo + vbQuestion,
               TitoloDomanda.toString()) != vbYes)
        return;
    const int Nuovo = sessione::ProgFatt + 1;
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), u"ProgFatt"_s, CStr(Nuovo));
    sessione::ProgFatt = Nuovo;
}
