#include "feenote/modDatiStampa.h"

#include "core/sessione.h"
#include "feenote/modClienti.h"
#include "feenote/modTotali.h"
#include "platform/messaggi.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What a document asks for, and how it words a person and a company.
struct VoceDocumento
{
    DatiDocumento Dati;
    FormaBlocco Persona;
    FormaBlocco Societa;
};

constexpr auto Testata = FormaBlocco::Testata;

/// By TipoStampa. The last one is rows of figures between two texts: it names nobody.
constexpr std::array Documenti{
    VoceDocumento{{PannelloStampa::Numero, u" Dati stampa prenotula: ", true, true}, Testata, Testata},
    VoceDocumento{{PannelloStampa::Numero, u" Dati stampa preventivo: ", true, false}, Testata, Testata},
    VoceDocumento{{PannelloStampa::Fattura, u" Dati stampa fattura: ", true, true}, Testata, Testata},
    VoceDocumento{{PannelloStampa::Fattura, u" Dati stampa fattura: ", true, true}, Testata, Testata},
    VoceDocumento{{PannelloStampa::Deposito, u" Dati stampa nota spese: ", true, false},
                  FormaBlocco::Nome,
                  FormaBlocco::Nome},
    VoceDocumento{{PannelloStampa::Incarico, u" Dati stampa contratto: ", true, false},
                  FormaBlocco::Persona,
                  FormaBlocco::Societa},
    VoceDocumento{{PannelloStampa::Incarico, u" Dati stampa informativa: ", true, false},
                  FormaBlocco::Persona,
                  FormaBlocco::Societa},
    VoceDocumento{{PannelloStampa::Testi, u" Dati stampa parte contabile: ", false, false},
                  FormaBlocco::Nessuna,
                  FormaBlocco::Nessuna},
};
static_assert(Documenti.size() == StampaSoloContabile + 1);

const VoceDocumento* CercaDocumento(int Tipo)
{
    return Tipo >= 0 && Tipo < int(Documenti.size()) ? &Documenti[size_t(Tipo)] : nullptr;
}

constexpr int MassimoBreve = 255;
constexpr int MassimoMemo = 65535;

constexpr std::array Campi{
    CampoDatiPar{DatoNumero, MassimoBreve},        CampoDatiPar{DatoData, MassimoBreve},
    CampoDatiPar{DatoNumFatt, MassimoBreve},       CampoDatiPar{DatoDataFatt, MassimoBreve},
    CampoDatiPar{DatoDepAutorita, MassimoBreve},   CampoDatiPar{DatoDepSezione, MassimoBreve},
    CampoDatiPar{DatoDepRuolo, MassimoBreve},      CampoDatiPar{DatoDepGiudice, MassimoBreve},
    CampoDatiPar{DatoTestoSuperiore, MassimoMemo}, CampoDatiPar{DatoTestoInferiore, MassimoMemo},
};

/// Where the record keeps a text of both tabs.
struct VoceParte
{
    Casella Parcella::*Scritta;
    Casella Parcella::*Stampata;
    int Parcella::*Legame;  ///< key of the linked row, null for what is never linked
    int Massimo;
};

constexpr std::array Parti{
    VoceParte{&Parcella::txtCliente, &Parcella::txtDatiStaCli, &Parcella::IDCli, 2000},
    VoceParte{&Parcella::txtControp, &Parcella::txtDatiStaControp, &Parcella::IDCon, 2000},
    VoceParte{&Parcella::txtOggetto, &Parcella::txtDatiStaOgg, nullptr, 4000},
};

constexpr const VoceParte& Voce(ParteNota Quale)
{
    return Parti[size_t(Quale)];
}

}  // namespace

DatiDocumento DatiDelTipo(int Tipo)
{
    const VoceDocumento* Trovato = CercaDocumento(Tipo);
    return Trovato ? Trovato->Dati : DatiDocumento();
}

std::span<const CampoDatiPar> CampiDatiPar()
{
    return Campi;
}

void CambiaDatiPar(Parcella& Nota, DatoStampa Indice, const QString& Testo)
{
    Nota.txtDatiPar[Indice] = Testo.left(std::ranges::find(Campi, Indice, &CampoDatiPar::Indice)->Massimo);
    SetModificata(Nota, true);
}

int MassimoParte(ParteNota Quale)
{
    return Voce(Quale).Massimo;
}

const Casella& ParteScritta(const Parcella& Nota, ParteNota Quale)
{
    return Nota.*Voce(Quale).Scritta;
}

const Casella& ParteStampata(const Parcella& Nota, ParteNota Quale)
{
    return Nota.*Voce(Quale).Stampata;
}

void CambiaParte(Parcella& Nota, ParteNota Quale, const QString& Testo)
{
    (Nota.*Voce(Quale).Scritta).Testo = Testo;
    (Nota.*Voce(Quale).Stampata).Testo = Testo;
    if (Quale == ParteNota::Cliente)
        Nota.BloccoScritto.reset();
    SetModificata(Nota, true);
}

void CambiaParteStampata(Parcella& Nota, ParteNota Quale, const QString& Testo)
{
    (Nota.*Voce(Quale).Stampata).Testo = Testo.left(Voce(Quale).Massimo);
    if (Quale == ParteNota::Cliente)
        Nota.BloccoScritto = FormaDelBlocco(Nota);
    SetModificata(Nota, true);
}

void LasciaParteStampata(Parcella& Nota, ParteNota Quale)
{
    const VoceParte& Parte = Voce(Quale);
    if (!Parte.Legame || Nota.*Parte.Legame == 0)
        (Nota.*Parte.Scritta).Testo = (Nota.*Parte.Stampata).Testo;
}

FormaBlocco FormaDelBlocco(const Parcella& Nota)
{
    const VoceDocumento* Trovato = CercaDocumento(Nota.cmbTipoStampa);
    if (!Trovato)
        return FormaBlocco::Nessuna;
    return Nota.optContrTipo == 1 ? Trovato->Societa : Trovato->Persona;
}

void RicomponiBlocco(Parcella& Nota)
{
    const FormaBlocco Forma = FormaDelBlocco(Nota);
    if (Forma == FormaBlocco::Nessuna || Nota.BloccoScritto == Forma)
        return;
    Nota.BloccoScritto.reset();
    GetDatiStaCli(Nota, Forma);
}

void ScegliDocumento(Parcella& Nota, int Tipo)
{
    ScegliTipoStampa(Nota, Tipo);
    RicomponiBlocco(Nota);
}

void CambiaContrTipo(Parcella& Nota, int Tipo)
{
    Nota.optContrTipo = Tipo;
    RicomponiBlocco(Nota);
    SetModificata(Nota, true);
}

void CambiaRappresentante(Parcella& Nota, QString Rappresentante::*Dato, const QString& Testo)
{
    Nota.Rappr.*Dato = Testo;
    SetModificata(Nota, true);
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
