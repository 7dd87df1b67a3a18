#include "feenote/windows/SchedaSpese.h"

#include "core/modErrori.h"
#include "feenote/modOfferte.h"
#include "feenote/modSpese.h"
#include "feenote/modTotali.h"
#include "feenote/windows/barrarighe.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/comandirighe.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/rigaofferta.h"
#include "feenote/windows/righegriglia.h"
#include "feenote/windows/ui_SchedaSpese.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

/// The amount of an expense is the user's, whatever its quantity: that of an honorarium follows from it.
QList<ColonnaGriglia> ColonneSpese()
{
    QList<ColonnaGriglia> Colonne{ColonnaData(DirData), ColonnaDescrizione(DirDescr), ColonnaQuantita(DirQta),
                                  ColonnaImporto(u"Imponibili"_s, DirImponibile, true),
                                  ColonnaImporto(u"Esenti"_s, DirEsente, true)};
    Colonne[DirQta].Spiegazione =
        u"La quantità si stampa, ma non moltiplica l'importo: è il totale della riga"_s;
    for (const int Importo : {DirImponibile, DirEsente})
        Colonne[Importo].Spiegazione = u"Totale della riga: la quantità non lo moltiplica"_s;
    return Colonne;
}

QList<ColonnaGriglia> ColonneCatalogoSpese()
{
    ColonnaGriglia Descr;
    Descr.Titolo = u"Descrizione"_s;
    Descr.NomeCampo = u"DescrDir"_s;
    Descr.Stira = true;
    return {Descr};
}

}  // namespace

SchedaSpese::SchedaSpese(Parcella& Dati, RigheInComune& Condivise, CorniceNota& Finestra, QWidget* Padre)
    : QWidget(Padre), Nota(Dati), Comune(Condivise), Cornice(Finestra),
      ui(std::make_unique<Ui::SchedaSpese>())
{
    ui->setupUi(this);
    CollegaCatalogo();
    CollegaRighe();
    CollegaOfferta();
    CollegaZone(this, {ui->txtCercaDir, ui->tdbListaDir, ui->tdbDir});
    DividiLista(ui->divisoreDir);
}

SchedaSpese::~SchedaSpese() = default;

void SchedaSpese::CollegaCatalogo()
{
    Griglia* Lista = ui->tdbListaDir;
    Lista->ImpostaColonne(ColonneCatalogoSpese());
    Lista->FraseVuota(u"Il catalogo delle spese non si può leggere: scriverle nella riga vuota qui sotto."_s);
    Collega(Lista, &Griglia::DoppioClic, this, &SchedaSpese::tdbListaDir_DblClick);
    CollegaRicerca(
        ui->txtCercaDir, Lista, [this] { return Comune.Voci.datDir; }, u"DescrDir"_s);
}

void SchedaSpese::CollegaRighe()
{
    Griglia* Righe = ui->tdbDir;
    Righe->ImpostaColonne(ColonneSpese());
    Righe->Lega(&Nota.xDiritti);
    Righe->ConsentiNuove(true);
    Righe->FraseVuota(u"Fare doppio clic su una spesa del catalogo, poi scriverne l'importo."_s);
    Collega(Righe, &Griglia::CellaScritta, this, &SchedaSpese::tdbDir_CellaScritta);

    Comandi = new ComandiRighe(Righe, TipoRiga::Diritti, Nota, Comune, Cornice);
    ComandiBarra DellaPagina;
    DellaPagina.Inserisci = [this] { tdbListaDir_DblClick(ui->tdbListaDir->RigaCorrente().value_or(-1)); };
    Comandi->CostruisciBarra(ui->barListaOnoDir, DellaPagina);
    SeguiBarra(ui->tdbListaDir, ui->barListaOnoDir, Righe);
}

/// The catalogue of expenses comes with that of the honoraria; whoever skips that page gets it here.
void SchedaSpese::ApriIlCatalogo()
{
    Recordset& Spese = Comune.Voci.datDir;
    if (!Spese.Aperto())
        Protetta([&] { Spese = ApriCatalogo(*Nota.Tariffa, {}, 0).datDir; });
}

void SchedaSpese::Entra()
{
    ui->rigaOfferta->Togli();
    ApriIlCatalogo();
    ui->tdbListaDir->Lega(Comune.Voci.datDir);
}

void SchedaSpese::tdbListaDir_DblClick(int Riga)
{
    if (!VaiARiga(Comune.Voci.datDir, Riga))
        return;
    Griglia* Righe = ui->tdbDir;
    if (!Righe->Concludi())
        return;
    const int Inserita = InserisciSpesa(Nota, Comune.Voci, Righe->RigaCorrente());
    Comandi->RigheMutate(Inserita);
    // The amount is the user's to write: the new line waits for it.
    Righe->ApriCella(Inserita, DirImponibile);
    OffriImporto(Inserita);
}

void SchedaSpese::Porta(const QList<SpesaDiLegge>& Nuove)
{
    ApriIlCatalogo();
    const int Prima = PortaSpese(Nota, Comune.Voci.datDir, Nuove, ui->tdbDir->RigaCorrente());
    if (Prima < 0)
        return;
    Cornice.CambiataDa(u"contributo unificato"_s);
    Comandi->RigheMutate(Prima + int(Nuove.size()) - 1);
}

void SchedaSpese::tdbDir_CellaScritta()
{
    SetModificata(Nota, true);
    Cornice.Cambiata();
    Cornice.RefreshGrid();
    SeguiRiga();
}

QWidget* SchedaSpese::Casella(CasellaNota Quale) const
{
    return Quale == CasellaNota::Spese ? ui->tdbDir : nullptr;
}

void SchedaSpese::Mostra()
{
    ui->tdbDir->Rilega();
    Comandi->MostraAppunti();
    SeguiRiga();
}

void SchedaSpese::MostraTotali(const Somme& Sommate)
{
    ui->tdbDir->Pie(DirDescr, u"Totali "_s);
    ui->tdbDir->Pie(DirImponibile, TestoImporto(Sommate.TotSpeseImp));
    ui->tdbDir->Pie(DirEsente, TestoImporto(Sommate.TotSpeseEsenti));
}

void SchedaSpese::RigheRimesse()
{
    ui->tdbDir->AzzeraSelezione();
}

void SchedaSpese::NuovaNota()
{
    ui->rigaOfferta->Togli();
    ui->txtCercaDir->clear();
    ui->tdbListaDir->Lega(Comune.Voci.datDir);
    ui->tdbDir->Lega(&Nota.xDiritti);
}

#include "moc_SchedaSpese.cpp"
