// The finder: the walk and the rows that come of it.
#include "feenote/finder/windows/frmTrovaParcella.h"

#include "core/modErrori.h"
#include "feenote/windows/noteaperte.h"
#include "platform/grid/griglia.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/campo.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include "feenote/finder/windows/ui_frmTrovaParcella.h"
#include "platform/base/errore.h"

#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTableView>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The window stays free for keys and clicks: no more than this at a time.
constexpr qint64 MassimoMs = 15;
/// Rows that have come are shown so often.
constexpr qint64 OgniMs = 100;

}  // namespace

void frmTrovaParcella::TrovaParc(const QString& Cartella)
{
    RicordaVeduta();
    Elenca(Cartella);
}

void frmTrovaParcella::Elenca(const QString& Cartella)
{
    Presente = Barra(Cartella);
    // A text that only filters rows is none that names were asked for.
    if (ui->txtDesPar->text() != Cercato)
        Cercato.clear();
    Avvia(Scopo::Elenca);
}

/// Keeps what is on view before it changes: a folder that cannot be listed gives it back. One walk that
/// follows another unfinished one goes back to where both began.
void frmTrovaParcella::RicordaVeduta()
{
    if (!InRicerca() || Motivo == Scopo::Rinfresca)
        Prima = {Righe, Conto, ArchivioMuto, Presente, Radice, Cercato, Selezionato};
}

void frmTrovaParcella::cmdTrova_Click()
{
    if (ui->txtDesPar->text().trimmed().isEmpty()) {
        MsgBox(u"Inserire il testo da cercare!"_s, vbInformation, TitoloMessaggio.toString());
        RidaiFuoco(ui->txtDesPar);
        return;
    }
    RicordaVeduta();
    Cercato = ui->txtDesPar->text();
    Avvia(Scopo::Trova);
}

void frmTrovaParcella::Avvia(Scopo Perche)
{
    if (Presente.isEmpty() || (Perche == Scopo::Rinfresca && InRicerca()))
        return;
    SmettiRicerca();
    Motivo = Perche;
    RifaiDopo = false;
    const CriterioTrova Criterio{Presente, Radice, Cercato, ui->chkSubDir->isChecked()};
    Aperte = NoteAperte();
    if (Perche == Scopo::Rinfresca) {
        Arrivate = {};
        Arrivate.Azzera(Criterio.CartelleInFondo());
    } else {
        const QScopedValueRollback Guardia(InMostra, true);
        Mosso = false;
        RigaAttesa.clear();
        Righe.Azzera(Criterio.CartelleInFondo());
        Righe.Filtra(ui->txtDesPar->text() == Cercato ? QString() : ui->txtDesPar->text());
        Righe.FiltraStato(FiltroStato(ui->cmbStato->currentIndex()));
        Righe.FiltraCliente(Solo);
        ui->txtSearchPath->setText(Presente);
        ui->tdbParcelle->AzzeraSelezione();
        ui->tdbParcelle->FraseVuota({});
        ui->tdbParcelle->Rilega();
        panMostrate->clear();
        ui->lblAperto->clear();
        ui->cmdPerCliente->setEnabled(false);
        panRicerca->setText(FraseRicerca.toString());
    }
    Ricerca = std::make_unique<RicercaNote>(Criterio);
    UltimaMostra.start();
    Raccolta.start();
}

void frmTrovaParcella::SmettiRicerca()
{
    Raccolta.stop();
    Ricerca.reset();
    DaMostrare.clear();
    Nomi.Chiudi();
}

void frmTrovaParcella::Interrompi()
{
    if (!InRicerca())
        return;
    if (Motivo == Scopo::Rinfresca) {
        SmettiRicerca();  // the rows of before stay
        return;
    }
    Ricerca->Ferma();
    for (VoceTrova& Voce : Ricerca->Prendi())
        DaMostrare.push_back(std::move(Voce));
    // What has come is shown with what it has: the archive is not asked any more.
    for (VoceTrova& Voce : DaMostrare)
        Righe.Aggiungi(std::move(Voce));
    DaMostrare.clear();
    Fine();
}

void frmTrovaParcella::Raccogli()
{
    if (!InRicerca())
        return;
    const bool Finita = Ricerca->Finita();  // asked first: rows may come between the two questions
    for (VoceTrova& Voce : Ricerca->Prendi())
        DaMostrare.push_back(std::move(Voce));
    QElapsedTimer Orologio;
    Orologio.start();
    ElencoTrova& Dove = Motivo == Scopo::Rinfresca ? Arrivate : Righe;
    while (!DaMostrare.empty() && Orologio.elapsed() < MassimoMs) {
        Nomi.Completa(DaMostrare.front());
        Dove.Aggiungi(std::move(DaMostrare.front()));
        DaMostrare.pop_front();
    }
    if (Finita && DaMostrare.empty()) {
        if (const auto Guasto = Ricerca->Guasto())
            FineFallita(*Guasto);
        else
            Fine();
        return;
    }
    if (Motivo != Scopo::Rinfresca && UltimaMostra.elapsed() >= OgniMs) {
        const QScopedValueRollback Guardia(InMostra, true);
        ui->tdbParcelle->Rilega();
        AbilitaBarra();
        UltimaMostra.start();
    }
}

void frmTrovaParcella::FineFallita(const Errore& Guasto)
{
    const Scopo Era = Motivo;
    SmettiRicerca();
    if (Era != Scopo::Rinfresca && Prima.Cartella.isEmpty()) {
        MostraConto({});  // the first of all: the folder stays, to be asked for again
    } else if (Era != Scopo::Rinfresca) {
        Righe = std::move(Prima.Righe);
        Righe.FiltraStato(FiltroStato(ui->cmbStato->currentIndex()));
        Righe.FiltraCliente(Solo);
        Conto = Prima.Conto;
        ArchivioMuto = Prima.ArchivioMuto;
        Presente = Prima.Cartella;
        Radice = Prima.Radice;
        Cercato = Prima.Cercato;
        // A path that was typed stays, to be put right.
        if (Selezionato != Libera || !ui->txtSearchPath->hasFocus()) {
            ImpostaSelettore(Prima.Selezionato);
            ui->txtSearchPath->setText(Presente);
        }
        Rimostra({}, 0);
        MostraEsito();
    }
    GestioneErrori(Guasto);
}

void frmTrovaParcella::Fine()
{
    const Scopo Era = Motivo;
    const ContoTrova Trovato = Ricerca->Conto();
    const QString Corrente = PercorsoCorrente();
    const int PrimaRiga = ui->tdbParcelle->PrimaRiga();
    ArchivioMuto = Nomi.Guasto() ? NomeFile(Nomi.FileArchivio()) : QString();
    SmettiRicerca();
    Conto = Trovato;
    if (Era == Scopo::Rinfresca) {
        Arrivate.Ordina(Righe.Colonna(), Righe.Crescente());
        Arrivate.Filtra(Righe.Filtro());
        Arrivate.FiltraStato(Righe.StatoFiltrato());
        Arrivate.FiltraCliente(Righe.ClienteFiltrato());
        Righe = std::exchange(Arrivate, {});
        Rimostra(Corrente, PrimaRiga);
    } else {
        Righe.Ordina();
        const QString Attesa = std::exchange(RigaAttesa, {});
        Rimostra(Mosso ? Corrente : Attesa, Mosso ? PrimaRiga : 0);
        if (!Mosso && Attesa.isEmpty() && (!Cercato.isEmpty() || Righe.Filtrato()))
            VaiAllaPrimaNota();
    }
    MostraEsito();
    if (std::exchange(RifaiDopo, false))
        Avvia(Scopo::Rinfresca);
    if (Era != Scopo::Trova || Conto.Interrotta)
        return;
    if (Conto.Archivi > 0 && ui->txtDesPar->text() == Cercato)
        ui->tdbParcelle->setFocus(Qt::OtherFocusReason);
    else if (Conto.Archivi == 0)
        MsgBox(u"Non è stata trovata alcuna parcella!"_s, vbInformation, TitoloMessaggio.toString());
}

void frmTrovaParcella::RinfrescaTrova()
{
    if (!isVisible())
        return;
    if (InRicerca())
        RifaiDopo = true;
    else
        Avvia(Scopo::Rinfresca);
}

// ---- rows on view -------------------------------------------------------------------------------

void frmTrovaParcella::txtDesPar_Change()
{
    // An emptied box shows all: those too that names were asked for without.
    if (ui->txtDesPar->text().isEmpty() && !Cercato.isEmpty()) {
        RicordaVeduta();
        Cercato.clear();
        Avvia(Scopo::Elenca);
        return;
    }
    Filtra();
}

void frmTrovaParcella::Filtra()
{
    const QString Corrente = PercorsoCorrente();
    const QString Testo = ui->txtDesPar->text();
    Righe.Filtra(Testo == Cercato ? QString() : Testo);
    MostraFiltrate(Corrente);
}

void frmTrovaParcella::MostraFiltrate(const QString& Corrente)
{
    Rimostra({}, 0);
    const auto Ancora = Righe.RigaDi(Corrente);
    if (Ancora && Righe.Voce(*Ancora).Genere == GenereVoce::Nota)
        ui->tdbParcelle->ImpostaRigaCorrente(*Ancora);
    else
        VaiAllaPrimaNota();
}

void frmTrovaParcella::VaiAllaPrimaNota()
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        if (Righe.Voce(Riga).Genere != GenereVoce::Nota)
            continue;
        ui->tdbParcelle->ImpostaRigaCorrente(Riga);
        return;
    }
}

/// Shows the rows as they stand now, one of them current where it is still there.
void frmTrovaParcella::Rimostra(const QString& Corrente, int PrimaRiga)
{
    const QScopedValueRollback Guardia(InMostra, true);
    Griglia* Lista = ui->tdbParcelle;
    Aperte = NoteAperte();
    const bool Filtrate = Righe.Filtrato();
    Lista->FraseVuota(Righe.FraseVuota());
    Lista->Rilega();
    Lista->ImpostaPrimaRiga(PrimaRiga);
    if (const auto Riga = Righe.RigaDi(Corrente))
        Lista->ImpostaRigaCorrente(*Riga);
    else if (PrimaRiga == 0 && Righe.Righe() > 0)
        Lista->ImpostaRigaCorrente(0);
    SegnaOrdine();
    panMostrate->setText(Filtrate ? u"Mostrate %1 di %2"_s.arg(Righe.Note()).arg(Righe.TutteLeNote())
                                  : QString());
    AbilitaBarra();
    MostraAperto();
}

void frmTrovaParcella::SegnaOrdine()
{
    ui->tdbParcelle->Vista()->horizontalHeader()->setSortIndicator(
        Righe.Colonna(), Righe.Crescente() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void frmTrovaParcella::MostraEsito()
{
    QString Frase = FraseEsito(Conto);
    if (!ArchivioMuto.isEmpty() && Conto.Archivi > 0)
        Frase += u"; i nomi sono quelli delle parcelle, perché l'archivio dei clienti %1 non si legge"_s.arg(
            ArchivioMuto);
    MostraConto(Frase);
}

void frmTrovaParcella::MostraConto(const QString& Frase)
{
    panRicerca->setText(Frase);
    panRicerca->setAccessibleName(Frase);
    AnnunciaTesto(panRicerca, Frase);
}

QString frmTrovaParcella::PercorsoCorrente() const
{
    const auto Riga = ui->tdbParcelle->RigaCorrente();
    return Riga && *Riga < Righe.Righe() && Righe.Voce(*Riga).Genere != GenereVoce::Torna
               ? Righe.Voce(*Riga).Percorso
               : QString();
}

const VoceTrova* frmTrovaParcella::NotaCorrente() const
{
    const auto Riga = ui->tdbParcelle->RigaCorrente();
    if (!Riga || *Riga >= Righe.Righe() || Righe.Voce(*Riga).Genere != GenereVoce::Nota)
        return nullptr;
    return &Righe.Voce(*Riga);
}
