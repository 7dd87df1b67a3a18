// What is done with the selected lines of tabs 1 and 2: cut, copy, paste, undo, drag.
#include "feenote/windows/frmParcelle.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "feenote/windows/barrarighe.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "ui_SchedaOnorari.h"
#include "ui_SchedaSpese.h"

#include <QAction>
#include <QApplication>
#include <QShortcut>

using namespace Qt::StringLiterals;

void frmParcelle::CollegaRighe(Griglia* Grid, TabellaRighe& Tabella)
{
    Grid->ConsentiTrascina(true);
    Grid->ConsentiComandi(true);
    Collega(Grid, &Griglia::Comando, this, [this, Grid, &Tabella](ComandoRighe Quale) {
        EseguiSuRighe(Grid, Tabella, Quale, Grid->Selezione());
    });
    Collega(Grid, &Griglia::Cancella, this,
            [this, Grid, &Tabella] { TagliaVoci(Grid, Tabella, Grid->Selezione()); });
    // A click elsewhere lets go what was selected: Del never cuts lines that the user has left.
    Collega(Grid, &Griglia::ClicCella, this, [this, Grid](int Riga) {
        if (!Grid->Selezione().contains(Riga))
            Grid->AzzeraSelezione();
        GrigliaCliccata = Grid;
    });
    Collega(Grid, &Griglia::RigaCambiata, this, [this, Grid] {
        if (GrigliaCliccata == Grid)
            GrigliaCliccata = nullptr;
    });
    Collega(Grid, &Griglia::Trascinata, this,
            [this, Grid, &Tabella](int Destinazione) { SpostaVoci(Grid, Tabella, Destinazione); });
    Collega(Grid, &Griglia::TrascinataFuori, this, [] {
        MsgErrore(u"Riga non valida: selezionare con il puntatore l'interno della riga di destinazione!"_s);
    });
}

/// F6 goes from the search to the catalogue, to the lines, to an open panel and round; Shift+F6 back. From
/// the toolbar, which stands between the two lists, either way leads to the list on that side.
void frmParcelle::CollegaZone(QWidget* Pagina, const QList<QWidget*>& Zone)
{
    for (const bool Avanti : {true, false}) {
        auto* Scorciatoia =
            new QShortcut(QKeySequence((Avanti ? Qt::NoModifier : Qt::ShiftModifier) | Qt::Key_F6), Pagina);
        Scorciatoia->setContext(Qt::WidgetWithChildrenShortcut);
        Collega(Scorciatoia, &QShortcut::activated, this, [Zone, Avanti] {
            if (!ConcludiCampo())
                return;
            const QWidget* Fuoco = QApplication::focusWidget();
            constexpr qsizetype Catalogo = 1;
            qsizetype Da = Avanti ? Catalogo : Catalogo + 1;  // as from a place between the lists
            for (qsizetype i = 0; i < Zone.size(); ++i)
                if (Zone[i] == Fuoco || Zone[i]->isAncestorOf(Fuoco))
                    Da = i;
            const qsizetype Passo = Avanti ? 1 : Zone.size() - 1;
            qsizetype A = (Da + Passo) % Zone.size();
            while (!Zone[A]->isVisible())
                A = (A + Passo) % Zone.size();
            Zone[A]->setFocus(Avanti ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        });
    }
}

ComandiBarra frmParcelle::ComandiRigheDi(Griglia* Grid, TabellaRighe& Tabella)
{
    const auto Esegui = [this, Grid, &Tabella](ComandoRighe Quale) {
        return [this, Grid, &Tabella, Quale] { EseguiSuRighe(Grid, Tabella, Quale, ScelteDaBarra(Grid)); };
    };
    ComandiBarra Comandi;
    Comandi.Taglia = Esegui(ComandoRighe::Taglia);
    Comandi.Copia = Esegui(ComandoRighe::Copia);
    Comandi.Incolla = Esegui(ComandoRighe::Incolla);
    Comandi.Annulla = Esegui(ComandoRighe::Annulla);
    Comandi.Aiuto = [this] { EseguiComando(u"guida"_s, Posto, {}); };
    return Comandi;
}

QList<int> frmParcelle::ScelteDaBarra(const Griglia* Grid) const
{
    const QList<int> Scelte = Grid->Selezione();
    const auto Corrente = Grid->RigaCorrente();
    return Scelte.isEmpty() && Corrente && GrigliaCliccata == Grid ? QList<int>{*Corrente} : Scelte;
}

void frmParcelle::EseguiSuRighe(Griglia* Grid, TabellaRighe& Tabella, ComandoRighe Quale,
                                const QList<int>& Scelte)
{
    if (!Grid->Concludi())
        return;
    switch (Quale) {
    case ComandoRighe::Taglia:
        return TagliaVoci(Grid, Tabella, Scelte);
    case ComandoRighe::Copia:
        return CopiaVoci(Grid, Tabella, Scelte);
    case ComandoRighe::Incolla:
        return IncollaVoci(Grid, Tabella, RigaDiPosto);
    case ComandoRighe::Annulla:
        return AnnullaTaglio(Grid, Tabella);
    }
}

void frmParcelle::TagliaVoci(Griglia* Grid, TabellaRighe& Tabella, const QList<int>& Scelte)
{
    if (::TagliaVoci(Copiate, Tabella, Scelte, true)) {
        Grid->AzzeraSelezione();
        RigheMutate(Grid, std::min(Copiate.RigaTagliata, Tabella.UpperBound(1)));
    }
    Grid->setFocus();
}

void frmParcelle::CopiaVoci(Griglia* Grid, const TabellaRighe& Tabella, const QList<int>& Scelte)
{
    if (!::CopiaVoci(Copiate, Tabella, Scelte))
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
    GrigliaCliccata = nullptr;  // which line is current now the command has decided, not a click
    SetModificata(true);
    MostraTutto();
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
