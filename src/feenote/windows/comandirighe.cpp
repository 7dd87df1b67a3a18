#include "feenote/windows/comandirighe.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "feenote/parcella.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/guidacontestuale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"

#include <QAction>

using namespace Qt::StringLiterals;

ComandiRighe::ComandiRighe(Griglia* Elenco, TipoRiga Quali, Parcella& Dati, RigheInComune& Condivise,
                           CorniceNota& Finestra)
    : QObject(Elenco), Grid(Elenco), Tipo(Quali), Nota(Dati),
      Tabella(Quali == TipoRiga::Diritti ? Dati.xDiritti : Dati.xOnorari), Comune(Condivise),
      Cornice(Finestra)
{
    Grid->ConsentiTrascina(true);
    Grid->ConsentiComandi(true);
    Grid->ComandoPossibile = [this](ComandoRighe Quale) {
        return Quale == ComandoRighe::Incolla   ? Comune.Copiate.PuoIncollare()
               : Quale == ComandoRighe::Annulla ? Comune.Copiate.PuoAnnullare()
                                                : true;
    };
    Collega(Grid, &Griglia::Comando, this, [this](ComandoRighe Quale) { Esegui(Quale, Grid->Selezione()); });
    Collega(Grid, &Griglia::Cancella, this, [this] { TagliaVoci(Grid->Selezione()); });
    Collega(Grid, &Griglia::ClicCella, this, &ComandiRighe::SeguiClic);
    Collega(Grid, &Griglia::RigaCambiata, this, [this] {
        if (Comune.Cliccata == Grid)
            Comune.Cliccata = nullptr;
    });
    Collega(Grid, &Griglia::Trascinata, this, &ComandiRighe::SpostaVoci);
    Collega(Grid, &Griglia::TrascinataFuori, this, [] {
        MsgErrore(u"Riga non valida: selezionare con il puntatore l'interno della riga di destinazione!"_s);
    });
}

TastiRighe ComandiRighe::CostruisciBarra(QToolBar* Barra, ComandiBarra Comandi)
{
    const auto DaBarra = [this](ComandoRighe Quale) {
        return [this, Quale] { Esegui(Quale, ScelteDaBarra()); };
    };
    Comandi.Taglia = DaBarra(ComandoRighe::Taglia);
    Comandi.Copia = DaBarra(ComandoRighe::Copia);
    Comandi.Incolla = DaBarra(ComandoRighe::Incolla);
    Comandi.Annulla = DaBarra(ComandoRighe::Annulla);
    Comandi.Aiuto = [this] { EseguiComando(u"guida"_s, Cornice.Indice(), {}); };
    bool& InsUltima = Tipo == TipoRiga::Diritti ? Nota.InsUltimaDir : Nota.InsUltimaOno;
    Tasti = CostruisciBarraRighe(Barra, InsUltima, Comandi);
    SeguiGuida(Barra, Tasti.Aiuto);
    return Tasti;
}

/// A click elsewhere lets go what was selected: Del never cuts lines that the user has left.
void ComandiRighe::SeguiClic(int Riga)
{
    if (!Grid->Selezione().contains(Riga))
        Grid->AzzeraSelezione();
    Comune.Cliccata = Grid;
}

QList<int> ComandiRighe::ScelteDaBarra() const
{
    const QList<int> Scelte = Grid->Selezione();
    const auto Corrente = Grid->RigaCorrente();
    return Scelte.isEmpty() && Corrente && Comune.Cliccata == Grid ? QList<int>{*Corrente} : Scelte;
}

void ComandiRighe::Esegui(ComandoRighe Quale, const QList<int>& Scelte)
{
    if (!Grid->Concludi())
        return;
    switch (Quale) {
    case ComandoRighe::Taglia:
        return TagliaVoci(Scelte);
    case ComandoRighe::Copia:
        return CopiaVoci(Scelte);
    case ComandoRighe::Incolla:
        return IncollaVoci(RigaDiPosto);
    case ComandoRighe::Annulla:
        return AnnullaTaglio();
    }
}

void ComandiRighe::TagliaVoci(const QList<int>& Scelte)
{
    if (::TagliaVoci(Comune.Copiate, Tabella, Scelte, true)) {
        Grid->AzzeraSelezione();
        RigheMutate(std::min(Comune.Copiate.RigaTagliata, Tabella.UpperBound(1)));
    }
    Grid->setFocus();
}

void ComandiRighe::CopiaVoci(const QList<int>& Scelte)
{
    if (!::CopiaVoci(Comune.Copiate, Tabella, Scelte))
        return;
    Grid->AzzeraSelezione();
    MostraAppunti();
}

void ComandiRighe::IncollaVoci(int Riga)
{
    const int Nuove = RowIns(Nota, Tipo, Grid->RigaCorrente());
    if (const auto Incollata = ::IncollaVoci(Comune.Copiate, Tabella, Riga, Nuove))
        RigheMutate(*Incollata);
}

void ComandiRighe::AnnullaTaglio()
{
    // Lines that were cut come back first; without any the last step goes, and what is left is told.
    if (!Comune.Copiate.PuoAnnullare() && Cornice.AnnullaPasso())
        return;
    if (const auto Rimessa = ::AnnullaTaglio(Comune.Copiate, Tabella)) {
        RigheMutate(*Rimessa);
        Cornice.SegnaRimessa();
    }
}

void ComandiRighe::SpostaVoci(int Destinazione)
{
    // A cell opened by a key during the drag goes into its row while that stands there.
    if (!Cornice.BaseValida() || !Grid->Concludi())
        return;
    if (const auto Spostata = ::SpostaVoci(Comune.Copiate, Tabella, Grid->Selezione(), Destinazione)) {
        Grid->AzzeraSelezione();
        RigheMutate(*Spostata);
    }
    Grid->setFocus();
}

void ComandiRighe::RigheMutate(int Riga)
{
    const int PrimaInVista = Grid->PrimaRiga();
    Comune.Cliccata = nullptr;  // which line is current now the command has decided, not a click
    SetModificata(Nota, true);
    Cornice.Cambiata();
    Cornice.MostraTutto();
    Grid->ImpostaPrimaRiga(PrimaInVista);
    Grid->ImpostaRigaCorrente(Riga);
    Q_EMIT Mutate();
}

void ComandiRighe::MostraAppunti()
{
    Tasti.Incolla->setEnabled(Comune.Copiate.PuoIncollare());
    Tasti.Annulla->setEnabled(Comune.Copiate.PuoAnnullare());
}

#include "moc_comandirighe.cpp"
