// What is done with the selected lines of tabs 1 and 2: cut, copy, paste, undo, drag.
#include "feenote/windows/frmParcelle.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "feenote/windows/barrarighe.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "ui_SchedaOnorari.h"
#include "ui_SchedaSpese.h"

#include <QAction>

using namespace Qt::StringLiterals;

void frmParcelle::CollegaRighe(Griglia* Grid, TabellaRighe& Tabella)
{
    Grid->ConsentiTrascina(true);
    Grid->ConsentiComandi(true);
    ::Collega(Grid, &Griglia::Comando, this,
              [this, Grid, &Tabella](ComandoRighe Quale) { EseguiSuRighe(Grid, Tabella, Quale); });
    ::Collega(Grid, &Griglia::Cancella, this, [this, Grid, &Tabella] { TagliaVoci(Grid, Tabella, true); });
    ::Collega(Grid, &Griglia::Trascinata, this,
              [this, Grid, &Tabella](int Destinazione) { SpostaVoci(Grid, Tabella, Destinazione); });
    ::Collega(Grid, &Griglia::TrascinataFuori, this, [] {
        MsgErrore(u"Riga non valida: selezionare con il puntatore l'interno della riga di destinazione!"_s);
    });
}

ComandiBarra frmParcelle::ComandiRigheDi(Griglia* Grid, TabellaRighe& Tabella)
{
    const auto Esegui = [this, Grid, &Tabella](ComandoRighe Quale) {
        return [this, Grid, &Tabella, Quale] { EseguiSuRighe(Grid, Tabella, Quale); };
    };
    ComandiBarra Comandi;
    Comandi.Taglia = Esegui(ComandoRighe::Taglia);
    Comandi.Copia = Esegui(ComandoRighe::Copia);
    Comandi.Incolla = Esegui(ComandoRighe::Incolla);
    Comandi.Annulla = Esegui(ComandoRighe::Annulla);
    Comandi.Aiuto = [this] { EseguiComando(u"guida"_s, Posto, {}); };
    return Comandi;
}

void frmParcelle::EseguiSuRighe(Griglia* Grid, TabellaRighe& Tabella, ComandoRighe Quale)
{
    if (!Grid->Concludi())
        return;
    switch (Quale) {
    case ComandoRighe::Taglia:
        return TagliaVoci(Grid, Tabella, true);
    case ComandoRighe::Copia:
        return CopiaVoci(Grid, Tabella);
    case ComandoRighe::Incolla:
        return IncollaVoci(Grid, Tabella, RigaDiPosto);
    case ComandoRighe::Annulla:
        return AnnullaTaglio(Grid, Tabella);
    }
}

void frmParcelle::TagliaVoci(Griglia* Grid, TabellaRighe& Tabella, bool Chiedi)
{
    if (::TagliaVoci(Copiate, Tabella, Grid->Selezione(), Chiedi)) {
        Grid->AzzeraSelezione();
        RigheMutate(Grid, std::min(Copiate.RigaTagliata, Tabella.UpperBound(1)));
    }
    Grid->setFocus();
}

void frmParcelle::CopiaVoci(Griglia* Grid, const TabellaRighe& Tabella)
{
    if (!::CopiaVoci(Copiate, Tabella, Grid->Selezione()))
        return;
    Grid->AzzeraSelezione();
    MostraAppunti();
}

void frmParcelle::IncollaVoci(Griglia* Grid, TabellaRighe& Tabella, int Riga)
{
    const TipoRiga Tipo = &Tabella == &Nota.xDiritti ? TipoRiga::Diritti : TipoRiga::Onorari;
    const int Nuove = RowIns(Nota, Tipo, Grid->RigaCorrente());
    if (const auto Incollata = ::IncollaVoci(Copiate, Tabella, Riga, Nuove))
        RigheMutate(Grid, *Incollata);
}

void frmParcelle::AnnullaTaglio(Griglia* Grid, TabellaRighe& Tabella)
{
    if (const auto Rimessa = ::AnnullaTaglio(Copiate, Tabella))
        RigheMutate(Grid, *Rimessa);
}

void frmParcelle::SpostaVoci(Griglia* Grid, TabellaRighe& Tabella, int Destinazione)
{
    // A cell opened by a key during the drag goes into its row while that stands there.
    if (!BaseValida || !Grid->Concludi())
        return;
    if (const auto Spostata = ::SpostaVoci(Copiate, Tabella, Grid->Selezione(), Destinazione)) {
        Grid->AzzeraSelezione();
        RigheMutate(Grid, *Spostata);
    }
    Grid->setFocus();
}

void frmParcelle::RigheMutate(Griglia* Grid, int Riga)
{
    const int PrimaInVista = Grid->PrimaRiga();
    SetModificata(true);
    Mostra();
    Grid->ImpostaPrimaRiga(PrimaInVista);
    Grid->ImpostaRigaCorrente(Riga);
    RinfrescaModOno(ModOno, Nota.xOnorari, uiOnorari->tdbOnor->RigaCorrente());
    MostraModOno();
}

void frmParcelle::MostraAppunti()
{
    for (const QToolBar* Barra : {uiOnorari->barListaOnoDir, uiSpese->barListaOnoDir}) {
        Barra->findChild<QAction*>(u"incolla"_s)->setEnabled(Copiate.PuoIncollare());
        Barra->findChild<QAction*>(u"annulla"_s)->setEnabled(Copiate.PuoAnnullare());
    }
}
