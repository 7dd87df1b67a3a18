#include "feenote/modCambioTariffa.h"

#include "core/modErrori.h"
#include "core/rapportiunici.h"
#include "feenote/domandeparametri.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The bracket of the other decree for the same value; none where only the old bracket was chosen, unless the
/// value is undetermined in both.
void RitrovaScaglione(Parcella& Nota, bool EraIndeterminato)
{
    if (Nota.CodCateg == Penale)
        return;
    if (Nota.ImportoPrec > 0) {
        SelezionaScaglioneDelValore(Nota);
        return;
    }
    const auto Primo = std::ranges::find_if(Nota.ListaScaglioni, Indeterminato);
    if (EraIndeterminato && Primo != Nota.ListaScaglioni.end())
        SelezionaScaglioneInSilenzio(Nota, int(Primo - Nota.ListaScaglioni.begin()));
}

/// The items that both decrees have keep their line.
void PortaRighe(Parcella& Nota, const QHash<QString, QString>& Voci)
{
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga) {
        QVariant& Chiave = Nota.xOnorari(Riga, OnoCodVoce);
        if (const auto Altra = Voci.find(CStr(Chiave)); Altra != Voci.end())
            Chiave = *Altra;
    }
}

/// Numbers of the decree that comes by those of the one that goes.
struct Corrispondenze
{
    QHash<QString, QString> Uffici;
    QHash<QString, QString> Voci;
};

/// @throws Errore when either database cannot be used
Corrispondenze LeggiComuni(const Parcella& Nota, const Decreto& Nuova)
{
    const Decreto& Prima = *Nota.Tariffa;
    (void)ApriTariffe(Prima);
    (void)ApriTariffe(Nuova);
    return {LeggiCorrispondenze(Prima, Nuova, Nota.CodCateg, GenereComune::Ufficio),
            LeggiCorrispondenze(Prima, Nuova, Nota.CodCateg, GenereComune::Voce)};
}

/// True when the note has something that only the correspondences bring over.
bool DaPortare(const Parcella& Nota)
{
    return HaRighe(Nota) || Nota.cmbAutor != NessunaVoce || Nota.AutoritaTenuta.Nominata() ||
           Nota.ScaglioneTenuto.Nominata();
}

/// What the other decree does not know, as sentences. An option's number means an option of its own decree
/// alone; the free one is nobody's.
QStringList CosaSiPerde(const Parcella& Nota, const Decreto& Nuova)
{
    QStringList Frasi;
    const QString Dove = u"dalla tariffa "_s + Nuova.Nome.toString();
    if (Nota.AumRidIdx != AumRidLibera)
        Frasi += FraseVariazioneTolta(Nota, Dove);
    if (Nota.PartiAssistite > 1 && LeggiVariazioni(Nuova, Nota.CodCateg).Parti.isEmpty())
        Frasi += u"L'aumento per le %1 parti assistite non è previsto %2 e viene tolto."_s.arg(
            QString::number(Nota.PartiAssistite), Dove);
    return Frasi;
}

void Porta(Parcella& Nota, const Decreto& Nuova, const Corrispondenze& Comuni)
{
    const RapportiUnici UnaVolta;
    const Decreto& Prima = *Nota.Tariffa;
    const QString Ufficio = QString::number(Nota.IDAutSelezionata());
    const bool EraIndeterminato = Nota.ScaglioneSelezionato() && Indeterminato(*Nota.ScaglioneSelezionato());
    PortaRighe(Nota, Comuni.Voci);
    PortaSpeseGenerali(Nota, Prima, Nuova);

    Nota.Tariffa = &Nuova;
    Nota.Scaglione = 0;
    LasciaTenute(Nota);
    LoadAutorità(Nota, Nota.CodCateg);
    LoadScaglioni(Nota, Nota.CodCateg);
    LoadVariazioni(Nota);
    SelezionaAutoritaInSilenzio(Nota, PostoAutorita(Nota, Comuni.Uffici.value(Ufficio, Ufficio).toInt()));
    RitrovaScaglione(Nota, EraIndeterminato);
    LasciaVariazioneAltrui(Nota);
    if (!PartiContano(Nota))
        CaricaParti(Nota, 1);
}

}  // namespace

void PortaSuTariffa(Parcella& Nota, const Decreto& Nuova)
{
    const RapportiUnici UnaVolta;
    Corrispondenze Comuni;
    if (!Protetta([&] { Comuni = LeggiComuni(Nota, Nuova); }))
        return;
    AvvisaPerdite(CosaSiPerde(Nota, Nuova));
    Porta(Nota, Nuova, Comuni);
}

bool CambiaTariffa(Parcella& Nota, const Decreto& Nuova)
{
    if (&Nuova == Nota.Tariffa)
        return true;
    // Without its own database the note would lose its office and the keys of its lines, without the other
    // one it would be left with empty lists.
    Corrispondenze Comuni;
    const bool Lette = Protetta([&] {
        (void)ApriTariffe(Nuova);
        if (DaPortare(Nota))
            Comuni = LeggiComuni(Nota, Nuova);
    });
    if (!Lette)
        return false;
    const QStringList Tolte = CosaSiPerde(Nota, Nuova);
    if (!Nota.xOnorari.Vuota() ? !ConfermaRicalcolo(Tolte) : !Tolte.isEmpty() && !ConfermaModifica(Tolte))
        return false;
    Porta(Nota, Nuova, Comuni);
    SegnaRicalcolo(Nota);
    SetModificata(Nota, true);
    return true;
}
