// The browser of the address book: its rows, their columns, order and filter.
#include "addressbook/windows/frmRicerche.h"
#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/frmScheda.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "platform/base/errore.h"
#include "platform/grid/griglia.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmRubrica.h"
#include "platform/accesso/accesso.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString ChiaveLarghezze(const QString& Tabella)
{
    return u"Disposizione_tdbRubrica_"_s + Tabella.toLower();
}

bool ADestra(TipoCampo Tipo)
{
    return Tipo != TipoCampo::Testo && Tipo != TipoCampo::Memo && Tipo != TipoCampo::Data &&
           Tipo != TipoCampo::Booleano;
}

}  // namespace

// ---- rows ---------------------------------------------------------------------------------------

Recordset frmRubrica::ApriRighe(const std::optional<Ordine>& In) const
{
    return Archivio.OpenRecordset(In ? SqlRubrica(Richiesta.RecordSource, In->Per, In->Discendente)
                                     : SqlRubrica(Richiesta.RecordSource));
}

/// Opens the table that is asked for. Where it fails everything stays as it was.
void frmRubrica::ApriTabella()
{
    const ClessidraAccesa Attesa;
    const Database Nuovo = ApriArchivio(FileRubrica(Richiesta.DataSource));
    const quint64 Versione = Nuovo.Versione();
    const Recordset Nuove = Nuovo.OpenRecordset(SqlRubrica(Richiesta.RecordSource));
    RicordaLarghezze();
    Archivio = Nuovo;
    InAccess = EDiAccess(FileRubrica(Richiesta.DataSource));
    Richiesta.Modifiche = Richiesta.Modifiche && !InAccess;
    TabellaInVista = Richiesta.RecordSource;
    VersioneRighe = Versione;
    Tutte = Nuove;
    InOrdine.reset();
    Versi.clear();
    GridFromDB(Archivio, Tutte);
    ui->tdbRubrica->ImpostaLarghezze(Impostazione(ChiaveLarghezze(Richiesta.RecordSource)));
    Testi.Imposta(Archivio, Tutte, Colonne);
    {
        const QSignalBlocker Zitto(ui->txtFiltro);
        ui->txtFiltro->clear();
    }
    Vaglio = {};
    TestoVaglio.clear();
    MostraRighe({});
    VaiAllaRiga(0);
    const QString Perche =
        InAccess ? u"Archivio di Access: si consulta, non si modifica"_s : u"L'archivio è di sola lettura"_s;
    lblArchivio->setText(Archivio.DiSolaLettura() ? Perche : QString());
    if (isVisible())
        Lettura.start(0);
}

/// Reads the rows anew, in their order and through their filter; the current one stays where it can.
void frmRubrica::Rileggi()
{
    if (!Archivio.Aperto() || !Consenti())
        return;
    const ClessidraAccesa Attesa;
    // The program whose file it is may have written to it since its copy was made.
    if (InAccess && CopiaNativa(FileRubrica(Richiesta.DataSource)) != Archivio.Percorso()) {
        ApriTabella();
        return;
    }
    const QVariant Segno = SegnoCorrente();
    const quint64 Versione = Archivio.Versione();
    const int Posto = Righe.AbsolutePosition();
    Tutte = ApriRighe(InOrdine);
    VersioneRighe = Versione;
    MostraRighe(Segno, Posto);
}

/// After this browser has written a row: without a filter the rows on view are those of the table, unless
/// others have written too since they were read.
void frmRubrica::AllineaTutte()
{
    const quint64 Versione = Archivio.Versione();
    const bool Altri = Versione != VersioneRighe && Versione != VersioneRighe + 1;
    const bool Filtrate = !Vaglio.Vuoto();
    if (Filtrate || Altri)
        Tutte = ApriRighe(InOrdine);
    VersioneRighe = Versione;
    if (Altri && !Filtrate)
        MostraRighe(SegnoCorrente());
}

/// Puts the rows that the filter leaves on view; the row of this bookmark is the current one where it is
/// among them, else the one in the other place.
void frmRubrica::MostraRighe(const QVariant& Segno, int Altrimenti)
{
    Righe = Vaglio.Vuoto() ? Tutte : Tutte.Ristretto(Testi.Cerca(Vaglio));
    {
        const QScopedValueRollback Guardia(InMostra, true);
        const QScrollBar* Barra = ui->tdbRubrica->Vista()->horizontalScrollBar();
        const int DaSinistra = Barra->value();
        const int Colonna = ui->tdbRubrica->ColonnaCorrente();
        ui->tdbRubrica->Lega(Righe);
        int Posto = std::clamp(Altrimenti, 0, std::max(0, Righe.RecordCount() - 1));
        try {
            if (Segno.isValid()) {
                Righe.ImpostaBookmark(Segno);
                Posto = Righe.AbsolutePosition();
            }
        } catch (const Errore& Guasto) {
            if (Guasto.Numero != errori::Segnalibro)
                throw;
        }
        if (Righe.RecordCount() > 0) {
            Righe.ImpostaAbsolutePosition(Posto);
            ui->tdbRubrica->ImpostaRigaCorrente(Posto, Colonna);
        }
        ui->tdbRubrica->Vista()->horizontalScrollBar()->setValue(DaSinistra);
    }
    ui->panSospeso->Segui(Righe);
    if (Cercatore)
        Cercatore->ImpostaRecordSource(Righe);
    ContaRighe();
    Abilita();
}

/// The grid follows the recordset: rows that have come or gone, and the current one.
void frmRubrica::Riallinea()
{
    const QScopedValueRollback Guardia(InMostra, true);
    ui->tdbRubrica->Rilega();
    if (const int Posto = Righe.AbsolutePosition(); Posto >= 0)
        ui->tdbRubrica->ImpostaRigaCorrente(Posto);
    ContaRighe();
    Abilita();
}

void frmRubrica::VaiAllaRiga(int Posto)
{
    if (Posto < Righe.RecordCount())
        Righe.ImpostaAbsolutePosition(Posto);
    Riallinea();
}

/// The recordset follows the grid.
void frmRubrica::GrigliaMossa(int Riga)
{
    if (!InMostra && Riga >= 0 && Riga < Righe.RecordCount() && Riga != Righe.AbsolutePosition())
        Righe.ImpostaAbsolutePosition(Riga);
    ui->panSospeso->Aggiorna();
    Abilita();
}

bool frmRubrica::HaRiga() const
{
    return Righe.RecordCount() > 0 && ui->tdbRubrica->RigaCorrente();
}

/// Bookmark of the current row; invalid where there is none.
QVariant frmRubrica::SegnoCorrente() const
{
    try {
        return Righe.RecordCount() > 0 ? Righe.Bookmark() : QVariant();
    } catch (const Errore&) {
        return {};
    }
}

void frmRubrica::ContaRighe()
{
    const bool Filtrate = !Vaglio.Vuoto();
    datNom->setText(FraseConto(Righe.RecordCount(), Tutte.RecordCount(), Filtrate));
    const bool Scrivibile = Richiesta.Modifiche && !Archivio.DiSolaLettura();
    const QString Vuota = Scrivibile ? u"Nessun nominativo: Nuovo (Ins) o Importa"_s : u"Nessun nominativo"_s;
    ui->tdbRubrica->FraseVuota(Filtrate ? u"Nessun nominativo contiene queste parole (Esc svuota il filtro)"_s
                                        : Vuota);
}

void frmRubrica::Abilita()
{
    const bool Aperta = Archivio.Aperto();
    const bool Scrivibile = Aperta && Richiesta.Modifiche && !Archivio.DiSolaLettura();
    const bool Riga = Aperta && HaRiga();
    const QString File = Archivio.Percorso();
    const bool Eliminati = std::ranges::any_of(Tolte, [&](const RigaTolta& Tolta) {
        return Tolta.File == File && Tolta.Tabella == Richiesta.RecordSource;
    });
    Tasto(u"selez"_s)->setEnabled(Riga && Richiesta.Selezione);
    Tasto(u"new"_s)->setEnabled(Scrivibile);
    Tasto(u"edit"_s)->setEnabled(Scrivibile && Riga);
    Tasto(u"view"_s)->setEnabled(Riga);
    Tasto(u"delete"_s)->setEnabled(Scrivibile && Riga);
    Tasto(u"search"_s)->setEnabled(Aperta);
    Tasto(u"importa"_s)->setEnabled(Aperta && (Richiesta.Modifiche || InAccess));
    Tasto(u"esporta"_s)->setEnabled(Riga);
    Tasto(u"rimetti"_s)->setEnabled(Scrivibile && Eliminati);
    ui->txtFiltro->setEnabled(Aperta);
}

// ---- columns ------------------------------------------------------------------------------------

void frmRubrica::GridFromDB(const Database&, const Recordset& Nominativi)
{
    Colonne.clear();
    for (const ColonnaRubrica& Colonna : ColonneRubrica(Nominativi.Campi())) {
        AddGrigCol(Colonna.Nome, Colonna.Titolo, Colonna.Size, Colonna.Formato, Colonna.Maschera);
        Colonne.last().Tipo = Colonna.Tipo;
    }
    QList<ColonnaGriglia> DiGriglia;
    for (const ColonnaRubrica& Colonna : std::as_const(Colonne)) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Colonna.Titolo;
        Nuova.NomeCampo = Colonna.Nome;
        Nuova.Larghezza = aspetto::Pixel(LarghezzaTwip(Colonna.Size));
        if (ADestra(Colonna.Tipo))
            Nuova.Allinea = Qt::AlignRight;
        Nuova.Mostra = [Colonna](const QVariant& Valore, int) { return TestoCella(Valore, Colonna); };
        DiGriglia.append(Nuova);
    }
    ui->tdbRubrica->ImpostaColonne(DiGriglia);
    SegnaOrdine();
}

void frmRubrica::AddGrigCol(const QString& Nome, const QString& Titolo, int Size, const QString& Formato,
                            const QString& Maschera)
{
    Colonne.append({.Nome = Nome, .Titolo = Titolo, .Size = Size, .Formato = Formato, .Maschera = Maschera});
}

/// Those of the table that is on view, if the user has moved them.
void frmRubrica::RicordaLarghezze()
{
    // No message where they cannot be stored: the next showing uses the former ones.
    if (!Colonne.isEmpty() && ui->tdbRubrica->ColonneMosse())
        Protetta([this] { SalvaImpostazione(ChiaveLarghezze(TabellaInVista), ui->tdbRubrica->Larghezze()); },
                 errori::Accesso);
}

void frmRubrica::CopiaRighe(QList<int> Numeri) const
{
    std::ranges::sort(Numeri);
    const QTableView* Vista = ui->tdbRubrica->Vista();
    QStringList Testo;
    for (const int Riga : std::as_const(Numeri)) {
        QStringList Celle;
        for (int Posto = 0; Posto < Vista->horizontalHeader()->count(); ++Posto) {
            const int Colonna = Vista->horizontalHeader()->logicalIndex(Posto);
            QString Cella = Vista->model()->index(Riga, Colonna).data().toString();
            for (const QChar Divide : {u'\t', u'\n', u'\r'})
                Cella.replace(Divide, u' ');
            Celle.append(Cella);
        }
        Testo.append(Celle.join(u'\t'));
    }
    if (!Testo.isEmpty())
        QApplication::clipboard()->setText(Testo.join(u'\n'));
}

// ---- order --------------------------------------------------------------------------------------

void frmRubrica::tdbRubrica_HeadClick(int Colonna)
{
    Esegui([&] {
        const QString Nome = Colonne.at(Colonna).Nome;
        const bool Discendente = Versi.contains(Nome) && !Versi.value(Nome);
        if (Archivio.Aperto() && Consenti()) {
            const ClessidraAccesa Attesa;
            const QVariant Segno = SegnoCorrente();
            const Ordine Nuovo{Colonne.at(Colonna), Discendente};
            const quint64 Versione = Archivio.Versione();
            Tutte = ApriRighe(Nuovo);
            VersioneRighe = Versione;
            InOrdine = Nuovo;
            Versi[Nome] = Discendente;
            MostraRighe(Segno);
        }
    });
    SegnaOrdine();  // the click has turned the mark by itself
}

void frmRubrica::SegnaOrdine()
{
    QHeaderView* Testata = ui->tdbRubrica->Vista()->horizontalHeader();
    int Colonna = -1;
    for (int i = 0; InOrdine && i < Colonne.size(); ++i)
        if (Colonne[i].Nome == InOrdine->Per.Nome)
            Colonna = i;
    Testata->setSortIndicatorShown(Colonna >= 0);
    Testata->setSortIndicator(Colonna,
                              InOrdine && InOrdine->Discendente ? Qt::DescendingOrder : Qt::AscendingOrder);
}

// ---- filter -------------------------------------------------------------------------------------

/// Shows the rows that hold what is typed, once their texts are read. Where that fails, or the user stays on
/// an edit that is open, the box goes back to the filter in force.
/// @param Aspetta reads the texts now, however long that takes
void frmRubrica::Filtra(bool Aspetta)
{
    if (!Archivio.Aperto() || Scheda)
        return;  // the rows belong to an open card; the filter follows when it has gone
    if (!FiltroInAttesa()) {
        ContaRighe();  // in the place of what was said while the texts were read
        return;
    }
    if (!Consenti()) {
        RidaiTesto();
        return;
    }
    try {
        const Filtro Nuovo(ui->txtFiltro->text());
        std::optional<ClessidraAccesa> Attesa;
        if (Aspetta)
            Attesa.emplace();
        bool Letti = Nuovo.Vuoto() || Testi.Leggi();
        while (Aspetta && !Letti)
            Letti = Testi.Leggi();
        if (Letti) {
            ApplicaFiltro(Nuovo);
            return;
        }
    } catch (const Errore&) {
        RidaiTesto();
        throw;
    }
    Lettura.start(0);
    datNom->setText(u"Lettura dell'archivio..."_s);
}

void frmRubrica::ApplicaFiltro(const Filtro& Nuovo)
{
    const QVariant Segno = SegnoCorrente();
    // What this program or another has written since is taken up.
    if (const quint64 Versione = Archivio.Versione(); Versione != VersioneRighe) {
        Tutte = ApriRighe(InOrdine);
        VersioneRighe = Versione;
    }
    const Filtro Prima = std::exchange(Vaglio, Nuovo);
    try {
        MostraRighe(Segno);
    } catch (...) {
        Vaglio = Prima;
        throw;
    }
    TestoVaglio = ui->txtFiltro->text();
    if (!TestoVaglio.isEmpty())
        AnnunciaTesto(this, datNom->text());
}

/// The words of the filter in force, in the place of those that were refused.
void frmRubrica::RidaiTesto()
{
    const QSignalBlocker Zitto(ui->txtFiltro);
    ui->txtFiltro->setText(TestoVaglio);
    ContaRighe();
}

void frmRubrica::TogliFiltro()
{
    ui->txtFiltro->clear();
}

bool frmRubrica::FiltroInAttesa() const
{
    return Archivio.Aperto() && Filtro(ui->txtFiltro->text()) != Vaglio;
}

/// Before something is done with a row: a filter that waits for its texts comes into force.
/// @param DellaRiga of the current row: where the filter takes the one away that the user has gone to in the
/// grid, nothing is done with another one in its place
/// @return false when nothing is to be done
bool frmRubrica::FiltroConcluso(bool DellaRiga)
{
    if (!FiltroInAttesa())
        return true;
    const QWidget* Fuoco = focusWidget();
    const bool DallaGriglia = DellaRiga && Fuoco && ui->tdbRubrica->isAncestorOf(Fuoco);
    const QVariant Segno = SegnoCorrente();
    Filtra(true);
    return !FiltroInAttesa() && (!DallaGriglia || SegnoCorrente() == Segno);
}

/// True while the rows are somebody else's: of a card, of a question, of a command.
bool frmRubrica::Impegnata() const
{
    if (InCorso || Scheda || QApplication::activePopupWidget())
        return true;
    const QWidget* Sopra = QApplication::activeModalWidget();
    if (!Sopra || Sopra->windowModality() == Qt::ApplicationModal)
        return Sopra;
    while (Sopra && Sopra != this)
        Sopra = Sopra->parentWidget();
    return Sopra;
}

/// Asks about an edit that was left open. @return false when the user stays with it
bool frmRubrica::Consenti()
{
    const QScopedValueRollback Guardia(InCorso, true);
    return ui->panSospeso->Consenti();
}

/// A portion of the texts at a time, between the events, and never behind a question.
void frmRubrica::LeggiTesti()
{
    constexpr int FraPoco = 100;
    const bool Ferma = Impegnata();
    Lettura.setInterval(Ferma ? FraPoco : 0);
    if (Ferma)
        return;
    try {
        if (!Testi.Leggi())
            return;
    } catch (const Errore&) {
        // Nobody has asked yet; the filter tells when it needs them.
    }
    Lettura.stop();
    Esegui([this] { Filtra(); });
}
