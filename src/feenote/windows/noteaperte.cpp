#include "feenote/windows/noteaperte.h"

#include "core/modErrori.h"
#include "core/modRecenti.h"
#include "core/posti.h"
#include "core/rapportiunici.h"
#include "feenote/file/nomenota.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Does something with the window of each note on screen.
template <class Azione>
void Ognuna(Azione Fai)
{
    for (int i = 1; i <= UltimaParcella(); ++i)
        if (frmParcelle* Finestra = Parcelle(i); Finestra && !InfoParcelle[size_t(i)].Libera)
            Fai(*Finestra);
}

/// The windows of the frame as they were in front, the last one first.
QList<QMdiSubWindow*> ComeDavanti(const frmParcelle& Una)
{
    const auto* Sotto = qobject_cast<const QMdiSubWindow*>(Una.parentWidget());
    QList<QMdiSubWindow*> Tutte =
        Sotto ? Sotto->mdiArea()->subWindowList(QMdiArea::ActivationHistoryOrder) : QList<QMdiSubWindow*>();
    std::ranges::reverse(Tutte);
    return Tutte;
}

/// A note as a list shows it: one without a file by its client too.
QString TitoloInElenco(const frmParcelle& Finestra)
{
    const QString Cliente = Finestra.Nota.txtCliente.Testo.simplified();
    return Finestra.Nota.Percorso.isEmpty() && !Cliente.isEmpty() ? Finestra.Titolo() + u" - "_s + Cliente
                                                                  : Finestra.Titolo();
}

bool StessoPercorso(const QString& Uno, const QString& Altro)
{
    return !Uno.isEmpty() && PercorsoNativo(Uno) == PercorsoNativo(Altro);
}

}  // namespace

frmParcelle* FinestraConFile(const QString& Percorso)
{
    frmParcelle* Trovata = nullptr;
    Ognuna([&](frmParcelle& Finestra) {
        if (!Trovata && StessoPercorso(Finestra.Nota.Percorso, Percorso))
            Trovata = &Finestra;
    });
    return Trovata;
}

void AvvisaAssociate(const frmParcelle& Cambiata)
{
    Ognuna([&](frmParcelle& Finestra) {
        if (&Finestra != &Cambiata && Finestra.FinestraMulti() == &Cambiata)
            Finestra.SocioCambiato();
    });
}

void ControllaAssociate()
{
    Ognuna([](frmParcelle& Finestra) { Finestra.ControllaMulti(); });
}

void SegueSalvataggio(const frmParcelle& Salvata, const QString& Prima)
{
    const bool AltroFile = !StessoPercorso(Prima, Salvata.Nota.Percorso);
    Ognuna([&](frmParcelle& Finestra) {
        if (&Finestra == &Salvata)
            return;
        if (AltroFile && StessoPercorso(Finestra.Nota.Percorso, Salvata.Nota.Percorso))
            Finestra.FileSostituito();
        if (Finestra.HaStampa() && Finestra.Socio() == Salvata.Indice())
            Finestra.SegueMulti(Salvata.Nota.Percorso);
        else
            Finestra.ControllaMulti();
    });
}

void ConsegnaScelta(int Indice, int Numero, const QString& Parent, const QVariantList& Valori)
{
    frmParcelle* Finestra = Parcelle(Indice);
    if (!Finestra || Numero <= 0 || Finestra->Numero() != Numero)
        return;
    if (CStr(Valori.value(1)).trimmed().isEmpty()) {
        // Its empty box would drop the link at once.
        MsgBox(u"Il nominativo scelto non ha un nome!"_s, vbExclamation, TitoloAvvertenza.toString());
        return;
    }
    Finestra->oRubrica_SelDone(Parent, Valori);
}

void SegueNominativo(const QString& RecordSource, int ID)
{
    const RapportiUnici UnaVolta;
    Ognuna([&](frmParcelle& Finestra) { Finestra.NominativoCambiato(RecordSource, ID); });
}

void SegueTariffaScelta()
{
    Ognuna([](frmParcelle& Finestra) { Finestra.SegueTariffa(); });
}

void LasciaSceltaTariffa()
{
    Ognuna([](frmParcelle& Finestra) { Finestra.LasciaScelta(); });
}

QSet<QString> NoteAperte()
{
    QSet<QString> File;
    Ognuna([&](const frmParcelle& Finestra) {
        if (!Finestra.Nota.Percorso.isEmpty())
            File.insert(PercorsoNativo(Finestra.Nota.Percorso));
    });
    return File;
}

QList<NotaInVista> NoteInVista()
{
    QList<NotaInVista> Tutte;
    QList<qsizetype> Posti;
    Ognuna([&](const frmParcelle& Finestra) {
        const qsizetype Davanti =
            ComeDavanti(Finestra).indexOf(qobject_cast<QMdiSubWindow*>(Finestra.parentWidget()));
        const auto Dopo = std::ranges::upper_bound(Posti, Davanti);
        Tutte.insert(Dopo - Posti.begin(), {Finestra.Indice(), Finestra.Numero(), TitoloInElenco(Finestra)});
        Posti.insert(Dopo, Davanti);
    });
    return Tutte;
}

QString PortaNellaNota(const NotaInVista& Dove, const QList<SpesaDiLegge>& Spese)
{
    frmParcelle* Finestra = Parcelle(Dove.Indice);
    if (!Finestra || Dove.Numero <= 0 || Finestra->Numero() != Dove.Numero)
        return u"la parcella non è più aperta"_s;
    return Finestra->PortaSpese(Spese);
}

void NotaRinominata(const QString& Vecchio, const QString& Nuovo)
{
    Protetta([&] { SpostaRecente(Vecchio, Nuovo); });
    const QString Nome = NomeMostrato(Nuovo);
    Ognuna([&](frmParcelle& Finestra) {
        Parcella& Nota = Finestra.Nota;
        if (StessoPercorso(Nota.Percorso, Vecchio)) {
            Nota.Percorso = Nuovo;
            Finestra.ImpostaNome(Nome.toLower());
            Finestra.ImpostaTitolo(Nome.toLower());
        }
        if (StessoPercorso(Nota.txtPathParcMult, Vecchio)) {
            Nota.txtPathParcMult = Nuovo;
            if (Nota.Multipla())  // else the path is only kept for an offer
                Nota.txtParcMultipla = Nome;
            Finestra.MostraTutto();
        }
    });
}

void NotaCancellata(const QString& Percorso)
{
    Protetta([&] { DimenticaCancellata(Percorso); });
    Ognuna([&](frmParcelle& Finestra) {
        if (!StessoPercorso(Finestra.Nota.Percorso, Percorso))
            return;
        Finestra.Nota.Percorso.clear();
        Finestra.SetModificata(true);
    });
}
