// The import of archives: names of a file into the archive in use.
#include "addressbook/windows/frmImporta.h"

#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/windows/rubriche.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmImporta.h"

#include <QSplitter>
#include <QTableView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaAbbinata { ColDelFile, ColVaIn, ColEsempio, NumColonne };

constexpr int RigheAnteprimaMassime = 100;
constexpr int ColonneAnteprimaMassime = 100;

struct SeparatoreOfferto
{
    QStringView Nome;
    QChar Segno;
};

constexpr std::array Separatori{
    SeparatoreOfferto{u"punto e virgola (;)", u';'},
    SeparatoreOfferto{u"virgola (,)", u','},
    SeparatoreOfferto{u"tabulazione", u'\t'},
};

struct CodificaOfferta
{
    QStringView Nome;
    CodificaTesto Codifica;
};

constexpr std::array Codifiche{
    CodificaOfferta{u"UTF-8", CodificaTesto::Utf8},
    CodificaOfferta{u"Windows-1252", CodificaTesto::Windows1252},
    CodificaOfferta{u"UTF-16", CodificaTesto::Utf16},
};

/// A cell on one line of the grid, and no longer than it can show.
QString InBreve(const QString& Testo)
{
    constexpr qsizetype Breve = 200;
    return Testo.left(Breve).simplified();
}

}  // namespace

/// The columns of the file are what is worked on; the rows only show what is meant.
void frmImporta::PreparaColonne()
{
    ColonnaGriglia DelFile;
    DelFile.Titolo = u"Colonna del file"_s;
    DelFile.Campo = ColDelFile;
    DelFile.Caratteri = 16;
    ColonnaGriglia VaIn;
    VaIn.Titolo = u"Va in"_s;
    VaIn.Campo = ColVaIn;
    VaIn.Caratteri = 18;
    ColonnaGriglia Esempio;
    Esempio.Titolo = u"Esempio"_s;
    Esempio.Campo = ColEsempio;
    Esempio.Caratteri = 14;
    Esempio.Stira = true;
    ui->tdbColonne->ImpostaColonne({DelFile, VaIn, Esempio});
    RigheColonne.Azzera(NumColonne);
    ui->tdbColonne->Lega(&RigheColonne);
    ui->divide->setSizes({3, 2});
    ui->divide->setStretchFactor(0, 3);
    ui->divide->setStretchFactor(1, 2);
    ui->tdbAnteprima->FraseVuota(u"Il file non contiene righe"_s);
    Collega(ui->tdbColonne, &Griglia::RigaCambiata, this, [this] { MostraMeta(); });
    Collega(ui->tdbColonne, &Griglia::DoppioClic, this, [this] { ui->cmbMeta->setFocus(); });
    Collega(ui->tdbColonne, &Griglia::Invio, this, [this] { ui->cmbMeta->setFocus(); });
}

void frmImporta::RileggiCon(const std::function<void(OpzioniSorgente&)>& Cambia)
{
    OpzioniSorgente Nuove = Opzioni;
    Cambia(Nuove);
    Rileggi(Nuove);
}

void frmImporta::CollegaNominativi()
{
    for (const SeparatoreOfferto& Voce : Separatori)
        ui->cmbSeparatore->addItem(Voce.Nome.toString());
    for (const CodificaOfferta& Voce : Codifiche)
        ui->cmbCodifica->addItem(Voce.Nome.toString());
    PreparaColonne();
    AlScegliere(ui->cmbMeta, [this](int Voce, ModoScelta) { cmbMeta_Click(Voce); });
    AlScegliere(ui->cmbTabella, [this](int, ModoScelta) {
        RileggiCon([this](OpzioniSorgente& Nuove) { Nuove.Tabella = ui->cmbTabella->currentText(); });
    });
    AlScegliere(ui->cmbSeparatore, [this](int Voce, ModoScelta) {
        RileggiCon([Voce](OpzioniSorgente& Nuove) {
            Nuove.Csv.Separatore = Separatori.at(size_t(Voce)).Segno;
            Nuove.PrimaRigaTitoli.reset();
        });
    });
    AlScegliere(ui->cmbCodifica, [this](int Voce, ModoScelta) {
        RileggiCon(
            [Voce](OpzioniSorgente& Nuove) { Nuove.Csv.Codifica = Codifiche.at(size_t(Voce)).Codifica; });
    });
    Collega(ui->chkTitoli, &QAbstractButton::clicked, this, [this] {
        RileggiCon([this](OpzioniSorgente& Nuove) { Nuove.PrimaRigaTitoli = ui->chkTitoli->isChecked(); });
    });
    for (QRadioButton* Scelta : std::array{ui->optDoppioni_0, ui->optDoppioni_1, ui->optDoppioni_2})
        Collega(Scelta, &QAbstractButton::clicked, this, [this] { (void)Prova(); });
}

// ---- the file -----------------------------------------------------------------------------------

void frmImporta::ApriSorgente()
{
    if (Manca(ui->txtFile, u"Scegliere il file da importare."_s))
        return;
    (void)Tenta([this] {
        const Database Db = ApriArchivio(Archivio());
        if (Db.DiSolaLettura())
            RifiutaFile(
                u"L'archivio in uso è di sola lettura: con \"Usa questo archivio\" se ne fa una copia "
                "in cui si può scrivere."_s);
        if (PercorsoNativo(File()) == Db.Percorso())
            RifiutaFile(u"È l'archivio in uso: scegliere il file da cui importare."_s);
        Campi = Db.Campi(Tabella());
        AlLavoroPer([this] {
            const auto Passo = [this](qint64 Fatti, qint64 Tutti) { return Avanza(Fatti, Tutti); };
            if (!Passo(0, 0))
                throw Interrotto();  // before it has begun
            auto Nuova = std::make_unique<SorgenteNominativi>(File(), Passo);
            OpzioniSorgente Come;
            Come.Tabella = Tabella();
            Letta = Nuova->Leggi(Come, Passo);
            Sorgente = std::move(Nuova);
            Opzioni = Come;
        });
        Scelte.clear();
        Chiavi = AbbinaColonne(Letta.Titoli, Campi);
        MostraLettura();
        MostraAnteprima();
        MostraColonne();
        VaiA(PagColonne);
        ui->tdbColonne->setFocus();
    });
}

/// How the file was read, each control where it says something.
void frmImporta::MostraLettura()
{
    const bool Csv = Sorgente->Genere() == GenereSorgente::Csv;
    const bool DiArchivio = Sorgente->Genere() == GenereSorgente::Archivio;
    for (QWidget* Parte : std::array<QWidget*, 5>{ui->lblSeparatore, ui->cmbSeparatore, ui->lblCodifica,
                                                  ui->cmbCodifica, ui->chkTitoli})
        Parte->setVisible(Csv);
    for (QWidget* Parte : std::array<QWidget*, 2>{ui->lblTabella, ui->cmbTabella})
        Parte->setVisible(DiArchivio);
    ui->cmbTabella->clear();
    ui->cmbTabella->addItems(Sorgente->Tabelle());
    for (int i = 0; i < ui->cmbTabella->count(); ++i)
        if (ui->cmbTabella->itemText(i).compare(Opzioni.Tabella, Qt::CaseInsensitive) == 0)
            ui->cmbTabella->setCurrentIndex(i);
    const auto* const Segno =
        std::ranges::find(Separatori, Opzioni.Csv.Separatore, &SeparatoreOfferto::Segno);
    ui->cmbSeparatore->setCurrentIndex(Segno == Separatori.end() ? -1 : int(Segno - Separatori.begin()));
    const auto* const Codifica =
        std::ranges::find(Codifiche, Opzioni.Csv.Codifica, &CodificaOfferta::Codifica);
    ui->cmbCodifica->setCurrentIndex(Codifica == Codifiche.end() ? -1 : int(Codifica - Codifiche.begin()));
    ui->chkTitoli->setChecked(Opzioni.PrimaRigaTitoli.value_or(false));
}

/// Reads the file as it is asked for now; where that fails everything stays as it was read before.
void frmImporta::Rileggi(OpzioniSorgente Nuove)
{
    if (!Sorgente)
        return;
    (void)Tenta([&] {
        TabellaEstranea Altra;
        AlLavoroPer([&] {
            Altra =
                Sorgente->Leggi(Nuove, [this](qint64 Fatti, qint64 Tutti) { return Avanza(Fatti, Tutti); });
        });
        Opzioni = Nuove;
        Letta = std::move(Altra);
        // Another table's places are other fields'; a text read anew has its own where they were.
        Chiavi = AbbinaConScelte(Letta.Titoli, Campi, Scelte, Sorgente->Genere() != GenereSorgente::Archivio);
    });
    MostraLettura();
    MostraAnteprima();
    MostraColonne();
}

void frmImporta::MostraAnteprima()
{
    const int Colonne = std::min(int(Letta.Titoli.size()), ColonneAnteprimaMassime);
    const int Righe = std::min(int(Letta.Righe.size()), RigheAnteprimaMassime);
    RigheAnteprima.Azzera(Colonne);
    QList<ColonnaGriglia> DiGriglia;
    for (int i = 0; i < Colonne; ++i) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Letta.Titoli[i];
        Nuova.Campo = i;
        Nuova.Caratteri = 16;
        DiGriglia.append(Nuova);
    }
    for (int Riga = 0; Riga < Righe; ++Riga) {
        RigheAnteprima.AggiungiRiga();
        for (int i = 0; i < Colonne; ++i)
            RigheAnteprima(Riga, i) = InBreve(Letta.Righe[size_t(Riga)][i]);
    }
    ui->tdbAnteprima->ImpostaColonne(DiGriglia);
    ui->tdbAnteprima->Lega(&RigheAnteprima);
    ui->lblAnteprima->setText(Righe < int(Letta.Righe.size()) ? u"Le prime 100 righe:"_s : u"Le righe:"_s);
}

// ---- the columns --------------------------------------------------------------------------------

void frmImporta::MostraColonne()
{
    ui->cmbMeta->clear();
    for (const MetaColonna& Meta : MeteDi(Campi))
        ui->cmbMeta->addItem(Meta.Titolo, Meta.Chiave);
    RigheColonne.Azzera(NumColonne);
    for (int i = 0; i < Letta.Titoli.size(); ++i) {
        RigheColonne.AggiungiRiga();
        RigheColonne(i, ColDelFile) = Letta.Titoli[i];
        const auto Pieno = std::ranges::find_if(
            Letta.Righe, [&](const QStringList& Riga) { return !Riga[i].trimmed().isEmpty(); });
        RigheColonne(i, ColEsempio) = Pieno == Letta.Righe.end() ? QString() : InBreve((*Pieno)[i]);
    }
    ui->tdbColonne->Rilega();
    ContaUsate();
    if (!Letta.Titoli.isEmpty())
        ui->tdbColonne->ImpostaRigaCorrente(0);
    MostraMeta();
}

void frmImporta::ContaUsate()
{
    const QList<MetaColonna> Mete = MeteDi(Campi);
    int Usate = 0;
    for (int i = 0; i < Chiavi.size(); ++i) {
        const auto Meta = std::ranges::find(Mete, Chiavi[i], &MetaColonna::Chiave);
        RigheColonne(i, ColVaIn) = Meta == Mete.end() ? Chiavi[i] : Meta->Titolo;
        Usate += !Chiavi[i].isEmpty();
    }
    ui->tdbColonne->Rilega();
    ui->lblUsate->setText(
        u"Righe: %1. Colonne importate: %2 su %3. Più colonne possono andare nelle Note, col loro titolo."_s
            .arg(Format(double(Letta.Righe.size()), u"#,##0"), Format(Usate, u"#,##0"),
                 Format(double(Chiavi.size()), u"#,##0")));
}

/// The list of fields follows the column that is current.
void frmImporta::MostraMeta()
{
    const auto Riga = ui->tdbColonne->RigaCorrente();
    ui->cmbMeta->setEnabled(Riga.has_value());
    if (Riga)
        ui->cmbMeta->setCurrentIndex(std::max(0, ui->cmbMeta->findData(Chiavi.value(*Riga))));
}

void frmImporta::cmbMeta_Click(int Voce)
{
    const auto Riga = ui->tdbColonne->RigaCorrente();
    if (!Riga || *Riga >= Chiavi.size())
        return;
    const QString Chiave = ui->cmbMeta->itemData(Voce).toString();
    // Whoever sends a second column into a field means the first one too.
    for (int i = 0; i < Chiavi.size(); ++i)
        if (i == *Riga || (!Chiave.isEmpty() && Chiavi[i] == Chiave))
            Scelte.append(SceltaDi(Letta.Titoli, i, Chiave));
    Chiavi[*Riga] = Chiave;
    ContaUsate();
}

// ---- the count, and the import ------------------------------------------------------------------

/// Counts what would be done. @return false when it cannot be done so, or was stopped
bool frmImporta::Prova()
{
    Doppioni Scelta = Doppioni::Salta;
    if (ui->optDoppioni_1->isChecked())
        Scelta = Doppioni::Completa;
    else if (ui->optDoppioni_2->isChecked())
        Scelta = Doppioni::Aggiungi;
    Opera.reset();
    bool Contata = false;
    (void)Tenta([&] {
        auto Nuova =
            std::make_unique<ImportaNominativi>(OpenDatabase(Archivio()), Tabella(), Letta, Chiavi, Scelta);
        AlLavoroPer(
            [&] { Contata = Nuova->Prepara([this](int Fatte, int Tutte) { return Avanza(Fatte, Tutte); }); });
        if (Contata)
            Opera = std::move(Nuova);
    });
    ui->lblProva->setText(Contata ? FraseImporta(Opera->Conto(), false) : u"Il conto è stato interrotto."_s);
    const QStringList Avvisi = Contata ? Letta.Avvisi + Opera->Avvisi() : QStringList();
    ui->txtAvvisi->setPlainText(Avvisi.join(u'\n'));
    for (QWidget* Parte : std::array<QWidget*, 2>{ui->lblAvvisi, ui->txtAvvisi})
        Parte->setVisible(!Avvisi.isEmpty());
    Abilita();
    if (ui->cmdAvanti->isVisible() && ui->cmdAvanti->isEnabled() && ui->pagine->currentIndex() == PagColonne)
        ui->cmdAvanti->setFocus();
    return Contata;
}

void frmImporta::Importa()
{
    if ((!Opera && !Prova()) || !CongedaRubriche())
        return;
    (void)Tenta([this] {
        bool Scritta = false;
        AlLavoroPer([&] {
            Scritta = Opera->Scrivi(File(), [this](int Fatte, int Tutte) { return Avanza(Fatte, Tutte); });
        });
        if (!Scritta) {
            Opera.reset();  // what it was stopped in may be the count: it begins anew
            ui->lblProva->setText(u"L'importazione è stata interrotta: l'archivio è com'era."_s);
            Abilita();
            return;
        }
        MostraResoconto(FraseImporta(Opera->Conto(), true), Opera->Resoconto(File(), true), true);
    });
    RileggiRubriche(true);
}
