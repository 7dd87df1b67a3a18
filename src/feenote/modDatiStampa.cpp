#include "feenote/modDatiStampa.h"

#include "core/sessione.h"
#include "feenote/modInterruttori.h"
#include "feenote/modParti.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Campi{
    CampoDatiPar{DatoNumero, MassimoBreve},        CampoDatiPar{DatoData, MassimoBreve},
    CampoDatiPar{DatoNumFatt, MassimoBreve},       CampoDatiPar{DatoDataFatt, MassimoBreve},
    CampoDatiPar{DatoDepAutorita, MassimoBreve},   CampoDatiPar{DatoDepSezione, MassimoBreve},
    CampoDatiPar{DatoDepRuolo, MassimoBreve},      CampoDatiPar{DatoDepGiudice, MassimoBreve},
    CampoDatiPar{DatoTestoSuperiore, MassimoMemo}, CampoDatiPar{DatoTestoInferiore, MassimoMemo},
};

}  // namespace

std::span<const CampoDatiPar> CampiDatiPar()
{
    return Campi;
}

int MassimoDatiPar(DatoStampa Indice)
{
    return std::ranges::find(Campi, Indice, &CampoDatiPar::Indice)->Massimo;
}

void CambiaDatiPar(Parcella& Nota, DatoStampa Indice, const QString& Testo)
{
    Nota.txtDatiPar[Indice] = Testo.left(MassimoDatiPar(Indice));
    SetModificata(Nota, true);
}

void ScegliDocumento(Parcella& Nota, int Tipo)
{
    ScegliTipoStampa(Nota, Tipo);
    RicomponiBlocco(Nota);
}

void CambiaIban(Parcella& Nota, bool Attivo)
{
    if (Attivo && sessione::Iban.isEmpty()) {
        MsgBox(u"Per esporre l'IBAN occorre prima inserirlo nel quadro Dati Studio del menu Impostazioni"_s,
               vbInformation, TitoloMessaggio.toString());
        return;
    }
    Nota.chkIBAN.Attiva = Attivo;
    SetModificata(Nota, true);
}

bool TogliIbanAssente(Parcella& Nota)
{
    if (!Nota.chkIBAN.Attiva || !sessione::Iban.isEmpty())
        return false;
    Nota.chkIBAN.Attiva = false;
    return true;
}

void CambiaIvaDifferita(Parcella& Nota, bool Attiva)
{
    Nota.chkIvaDiff.Attiva = Attiva;
    SetModificata(Nota, true);
}

void CambiaFatturaAcconto(Parcella& Nota, bool Attiva)
{
    Nota.chkFattAcc.Attiva = Attiva;
    SetModificata(Nota, true);
}
