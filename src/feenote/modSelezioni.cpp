#include "feenote/modSelezioni.h"

#include "feenote/modParametri.h"
#include "platform/system/messaggi.h"

using namespace Qt::StringLiterals;

namespace {

/// Saved without it, a note opened while its lists were away would be without office and bracket for good.
void TieniNonRisolte(Parcella& Nota, const SceltaTenuta& Ufficio, const SceltaTenuta& Fascia)
{
    if (Nota.cmbAutor == NessunaVoce)
        Nota.AutoritaTenuta = Ufficio;
    if (Nota.cmbValore == NessunaVoce && Nota.CodCateg != Penale)
        Nota.ScaglioneTenuto = Fascia;
}

/// A list that was read and has nothing in it; one that could not be read was told already.
void AvvisaElenchiVuoti(const Parcella& Nota)
{
    const Decreto& Legge = *Nota.Tariffa;
    QStringList Mancanti;
    if (Nota.AutoritaTenuta.Nominata() && Nota.ListaAutorita.isEmpty() &&
        !LeggiAutorita(Legge, Nota.CodCateg).Guasto)
        Mancanti += u"alcuna autorità"_s;
    if (Nota.ScaglioneTenuto.Nominata() && Nota.ListaScaglioni.isEmpty() &&
        !LeggiScaglioni(Legge, Nota.CodCateg).Guasto)
        Mancanti += u"alcuno scaglione"_s;
    if (!Mancanti.isEmpty())
        MsgBox(u"Attenzione, l'archivio della tariffa %1, %2, non ha più %3 per la categoria della "
               u"parcella!\nGli importi della parcella restano quelli salvati."_s.arg(
                   Legge.Nome, Legge.File, Mancanti.join(u" né "_s)),
               vbExclamation, TitoloAvvertenza.toString());
}

}  // namespace

void VerificaSelezioni(Parcella& Nota, const SceltaTenuta& Ufficio, const SceltaTenuta& Fascia)
{
    const int IDAut = Ufficio.Numero;
    const int NumSca = Fascia.Numero;
    const QString Coda = u"\nGli importi della parcella restano quelli salvati."_s;
    const auto Avvisa = [&](const QString& Che) {
        MsgBox(u"Attenzione, nell'archivio della tariffa %1 non c'è più %2 della parcella!"_s.arg(
                   Nota.Tariffa->Nome, Che) +
                   Coda,
               vbExclamation, TitoloAvvertenza.toString());
    };
    if (IDAut != 0 && IDAut != Nota.IDAutSelezionata() && !Nota.ListaAutorita.isEmpty()) {
        Nota.cmbAutor = Nota.IdxAutorPrec = NessunaVoce;
        if (Nota.CodCateg == Penale)
            Nota.Scaglione = 0;  // the column of the office that stands in the other's place by now
        SelezionaAutoritaInSilenzio(Nota, PostoAutorita(Nota, IDAut));
        if (Nota.cmbAutor == NessunaVoce)
            Avvisa(u"l'autorità"_s);
    }
    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    if (NumSca != 0 && (!Scelto || Scelto->NumSca != NumSca) && !Nota.ListaScaglioni.isEmpty()) {
        Nota.cmbValore = Nota.IdxValorePrec = NessunaVoce;
        if (Nota.CodCateg != Penale)
            Nota.Scaglione = 0;
        SelezionaScaglioneInSilenzio(Nota, PostoScaglione(Nota, NumSca));
        if (Nota.cmbValore == NessunaVoce)
            Avvisa(u"lo scaglione"_s);
    }
    if (!Nota.Tariffa->Dichiarato)
        return;
    TieniNonRisolte(Nota, Ufficio, Fascia);
    AvvisaElenchiVuoti(Nota);
}
