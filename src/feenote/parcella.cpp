#include "feenote/parcella.h"

#include "core/sessione.h"
#include "feenote/modInterruttori.h"
#include "feenote/modParametri.h"
#include "feenote/modVariazione.h"

using namespace Qt::StringLiterals;

int Parcella::IDAutSelezionata() const
{
    return cmbAutor >= 0 && cmbAutor < ListaAutorita.size() ? ListaAutorita[cmbAutor].IDAut : 0;
}

const ScaglioneValore* Parcella::ScaglioneSelezionato() const
{
    return cmbValore >= 0 && cmbValore < ListaScaglioni.size() ? &ListaScaglioni[cmbValore] : nullptr;
}

QStringList VociCategoria()
{
    return {u"Civile o Amministrativa"_s, u"Penale"_s, u"Stragiudiziale"_s};
}

QString TestoCategoria(const Parcella& Nota)
{
    return VociCategoria().value(Nota.cmbCateg);
}

QString TestoAutorita(const Parcella& Nota)
{
    return Nota.IDAutSelezionata() == 0 ? QString() : Nota.ListaAutorita[Nota.cmbAutor].DesAut;
}

QString TestoScaglione(const Parcella& Nota)
{
    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    return Scelto ? Scelto->DesVal : QString();
}

QString TestoValore(const Parcella& Nota)
{
    const double Valore = Nota.txtImporto.Numero();
    return Valore > 0 ? Format(Valore, u"#,##0.00") + u" €"_s : TestoScaglione(Nota).toLower();
}

void AzzeraNota(Parcella& Nota)
{
    Parcella Nuova;
    Nuova.Nome = Nota.Nome;
    Nuova.InsUltimaOno = Nota.InsUltimaOno;
    Nuova.InsUltimaDir = Nota.InsUltimaDir;
    Nuova.IDMultipla = Nota.IDMultipla;  // windows are linked before the note comes into them
    Nota = std::move(Nuova);
    AzzeraVariazione(Nota);
    Nota.Pronta = true;
}

void NuovaParcella(Parcella& Nota)
{
    AzzeraNota(Nota);
    SelezionaInSilenzio(Nota, NessunaVoce, NessunaVoce, NessunaVoce);

    Nota.chkIva.Attiva = true;
    Nota.txtIVA.Testo = CStr(sessione::IVA);
    Nota.chkCP.Attiva = true;
    Nota.txtCP.Testo = CStr(sessione::CP);

    RicordaStampa(Nota);
    Nota.Pronta = true;
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco = CampoNota::Nessuno;
    SetModificata(Nota, false);
}

void SetModificata(Parcella& Nota, bool Valore)
{
    Nota.Modificata = Valore;
}

void SegnaRicalcolo(Parcella& Nota)
{
    Nota.RicalcoloNecessario = true;
    if (!Nota.xOnorari.Vuota())
        Nota.RigheDaRicalcolare = true;
}

bool RicalcoloInSospeso(const Parcella& Nota)
{
    return Nota.RigheDaRicalcolare && !Nota.xOnorari.Vuota();
}
