// The import of archives: controls, the first step, a whole archive, old notes, the report.
#include "addressbook/windows/frmImporta.h"

#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/notevecchie.h"
#include "addressbook/modRubrica.h"
#include "addressbook/windows/rubriche.h"
#include "core/aperture.h"
#include "core/impostazioni.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/predefinito.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/esportato.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmImporta.h"

#include <QAbstractItemView>
#include <QPointer>
#include <QScopeGuard>
#include <QScreen>
#include <QTableView>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Clienti = u"clienti"_s;
const QString Controparti = u"controparti"_s;

constexpr QStringView FiltroArchivi = u"Archivi (*.mdb *.accdb)|*.mdb;*.accdb|Tutti i file (*)|*";
constexpr QStringView FiltroNominativi =
    u"Archivi, fogli CSV, rubriche vCard (*.mdb *.accdb *.csv *.txt *.vcf)|*.mdb;*.accdb;*.csv;*.txt;*.vcf|"
    u"Tutti i file (*)|*";

/// The label in quiet letters.
void Ingrigisci(QLabel* Scritta)
{
    constexpr double Grigio = 0.7;
    QPalette Colori = Scritta->palette();
    Colori.setColor(QPalette::WindowText, aspetto::Mischia(Colori.color(QPalette::WindowText),
                                                           Colori.color(QPalette::Window), Grigio));
    Scritta->setPalette(Colori);
}

void Ingrassa(QWidget* Scritta)
{
    QFont Carattere = Scritta->font();
    Carattere.setBold(true);
    Scritta->setFont(Carattere);
}

}  // namespace

/// Long work on its way: its bar is on view, everything else waits.
class frmImporta::Lavoro
{
public:
    explicit Lavoro(frmImporta& Finestra) : Modulo(Finestra), Fuoco(Finestra.focusWidget())
    {
        Modulo.AlLavoro = true;
        Modulo.ui->barAvanza->setRange(0, 0);
        Modulo.ui->fraAvanza->show();
        Modulo.Abilita();
        Modulo.ui->cmdInterrompi->setFocus();
    }
    ~Lavoro()
    {
        Modulo.AlLavoro = false;
        Modulo.ui->fraAvanza->hide();
        Modulo.Abilita();
        if (Fuoco && Fuoco->isVisible())
            Fuoco->setFocus();
    }
    Lavoro(const Lavoro&) = delete;
    Lavoro& operator=(const Lavoro&) = delete;

private:
    frmImporta& Modulo;
    QPointer<QWidget> Fuoco;
    ClessidraAccesa Attesa;
};

frmImporta::frmImporta() : ui(std::make_unique<Ui::frmImporta>())
{
    ui->setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    setWindowIcon(aspetto::Icona(u"importa"_s));
    for (QLabel* Scritta :
         std::array{ui->lblModo_0, ui->lblModo_1, ui->lblModo_2, ui->lblCopia, ui->lblUsate})
        Ingrigisci(Scritta);
    Ingrassa(ui->lblProva);
    Ingrassa(ui->lblEsito);
    QSizePolicy Posto = ui->fraAvanza->sizePolicy();
    Posto.setRetainSizeWhenHidden(true);
    ui->fraAvanza->setSizePolicy(Posto);
    ui->fraAvanza->hide();
    ui->cmdAvanti->setDefault(true);
    for (const Griglia* Elenco : {ui->tdbColonne, ui->tdbAnteprima})
        TieneInvio(Elenco->Vista());
    CollegaControlli();
    CollegaNominativi();
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    for (QComboBox* Lista : std::array{ui->cmbTabella, ui->cmbSeparatore, ui->cmbCodifica, ui->cmbMeta})
        Lista->view()->setAccessibleName(Lista->accessibleName());
    aspetto::TitoliInGrassetto(this);
    aspetto::RicordaPostoDi(this, objectName());
}

frmImporta::~frmImporta() = default;

void frmImporta::CollegaControlli()
{
    for (QRadioButton* Scelta : std::array{ui->optModo_0, ui->optModo_1, ui->optModo_2})
        Collega(Scelta, &QAbstractButton::toggled, this, [this] { MostraModo(); });
    Collega(ui->cmdAvanti, &QAbstractButton::clicked, this, &frmImporta::cmdAvanti_Click);
    Collega(ui->cmdIndietro, &QAbstractButton::clicked, this, &frmImporta::cmdIndietro_Click);
    Collega(ui->cmdChiudi, &QAbstractButton::clicked, this, [this] { close(); });
    Collega(ui->cmdSfoglia_0, &QAbstractButton::clicked, this, [this] { cmdSfoglia_Click(0); });
    Collega(ui->cmdSfoglia_1, &QAbstractButton::clicked, this, [this] { cmdSfoglia_Click(1); });
    Collega(ui->cmdAnnullaImporta, &QAbstractButton::clicked, this, &frmImporta::cmdAnnullaImporta_Click);
    Collega(ui->cmdAnnullaUltima, &QAbstractButton::clicked, this, &frmImporta::cmdAnnullaImporta_Click);
    Collega(ui->cmdSalvaResoconto, &QAbstractButton::clicked, this, &frmImporta::cmdSalvaResoconto_Click);
}

// ---- the first step -----------------------------------------------------------------------------

void frmImporta::Mostra(const QString& DiArchivio, const QString& Tabella, Modo Che, const QString& File)
{
    if (AlLavoro) {
        PortaDavanti(this);
        return;
    }
    InArchivio = DiArchivio;
    Sorgente.reset();
    Opera.reset();
    const bool DiControparti = Tabella.compare(Controparti, Qt::CaseInsensitive) == 0;
    (DiControparti ? ui->optTabella_1 : ui->optTabella_0)->setChecked(true);
    std::array{ui->optModo_0, ui->optModo_1, ui->optModo_2}.at(size_t(Che))->setChecked(true);
    ui->optDoppioni_0->setChecked(true);
    ui->txtFile->setText(File);
    ui->txtArrivo->setText(sessione::ParcellePath);
    VaiA(PagScelta);
    MostraModo();
    PortaDavanti(this);
    ui->txtFile->setFocus();
}

frmImporta::Modo frmImporta::Scelto() const
{
    if (ui->optModo_0->isChecked())
        return ArchivioIntero;
    return ui->optModo_2->isChecked() ? Parcelle : Nominativi;
}

QString frmImporta::Tabella() const
{
    return ui->optTabella_1->isChecked() ? Controparti : Clienti;
}

QString frmImporta::File() const
{
    return PercorsoNativo(ui->txtFile->text().trimmed());
}

QString frmImporta::Archivio() const
{
    return FileRubrica(InArchivio.isEmpty() ? sessione::ArchivioCliCon : InArchivio);
}

void frmImporta::MostraModo()
{
    const bool DiParcelle = Scelto() == Parcelle;
    ui->lblFile->setText(DiParcelle ? u"Vecchia cartella:"_s : u"File:"_s);
    ui->cmdSfoglia_0->setToolTip(DiParcelle ? u"Sceglie la cartella delle vecchie parcelle"_s
                                            : u"Sceglie il file"_s);
    for (QWidget* Parte : std::array<QWidget*, 3>{ui->lblArrivo, ui->txtArrivo, ui->cmdSfoglia_1})
        Parte->setVisible(DiParcelle);
    for (QWidget* Parte : std::array<QWidget*, 2>{ui->lblAggiungiA, ui->fraTabella})
        Parte->setVisible(Scelto() == Nominativi);
    MostraUltima();
    Abilita();
}

/// The last import into the archive in use, and its way back.
void frmImporta::MostraUltima()
{
    std::optional<ImportazioneFatta> Ultima;
    (void)Tenta([&] { Ultima = UltimaImportazione(Archivio()); });
    const std::optional<QString> Guasta = Ultima ? std::nullopt : ImportazioneIlleggibile(Archivio());
    ui->fraUltima->setVisible(Ultima || Guasta);
    ui->cmdAnnullaUltima->setEnabled(Ultima.has_value());
    const auto Dopo = qScopeGuard([this] { DaSpazio(); });
    if (!Ultima) {
        ui->lblUltima->setText(Guasta.value_or(QString()));
        return;
    }
    ui->lblUltima->setText(u"Ultima importazione: %1 da \"%2\", il %3 (%4)"_s.arg(
        Ultima->Aggiunti == 1 ? u"1 nominativo"_s : Format(Ultima->Aggiunti, u"#,##0") + u" nominativi"_s,
        NomeFile(Ultima->Sorgente), Ultima->Quando.toString(u"dd/MM/yyyy HH:mm"), Ultima->Tabella));
}

void frmImporta::showEvent(QShowEvent* Evento)
{
    QDialog::showEvent(Evento);
    DaSpazio();
}

/// Words of the first step that take a second line, in large letters, are not cut by what comes below them.
void frmImporta::DaSpazio()
{
    if (!isVisible())
        return;
    const QRect Schermo = screen()->availableGeometry();
    const int Massima = Schermo.height() - (frameGeometry().height() - height());
    const auto Manca = [this] {
        // From within: what has just been shown or hidden counts at once.
        for (QLayout* Colonna : std::initializer_list<QLayout*>{ui->colonnaModo, ui->colonnaScelta, layout()})
            Colonna->activate();
        return ui->pagScelta->layout()->totalHeightForWidth(ui->pagScelta->width()) - ui->pagine->height();
    };
    // On half a screen the words of the choice alone stand below it, and where there is no room for them
    // either the captions stand alone: what is not seen waits below the pointer.
    enum { Tutte, DellaScelta, Nessuna };
    for (const int Quali : {Tutte, DellaScelta, Nessuna}) {
        for (auto [Scelta, Parole] :
             {std::pair{ui->optModo_0, ui->lblModo_0}, std::pair{ui->optModo_1, ui->lblModo_1},
              std::pair{ui->optModo_2, ui->lblModo_2}}) {
            const bool Viste = Quali == Tutte || (Quali == DellaScelta && Scelta->isChecked());
            Parole->setVisible(Viste);
            Scelta->setToolTip(Viste ? QString() : Parole->text());
        }
        if (height() + Manca() <= Massima)
            break;
    }
    if (Manca() <= 0)
        return;
    resize(width(), std::min(height() + Manca(), Massima));
    move(x(), std::max(Schermo.top(), std::min(y(), Schermo.bottom() + 1 - frameGeometry().height())));
}

void frmImporta::VaiA(Pagina Nuova)
{
    ui->pagine->setCurrentIndex(Nuova);
    Abilita();
}

void frmImporta::Abilita()
{
    const int Passo = ui->pagine->currentIndex();
    const bool Ultimo = Passo == PagResoconto;
    ui->pagine->setEnabled(!AlLavoro);
    ui->cmdChiudi->setEnabled(!AlLavoro);
    ui->cmdIndietro->setEnabled(!AlLavoro);
    ui->cmdIndietro->setVisible(Passo == PagColonne || Passo == PagDoppioni);
    ui->cmdAvanti->setVisible(!Ultimo);
    const bool Vuota = Passo == PagDoppioni && Opera && !Opera->DaScrivere();
    ui->cmdAvanti->setEnabled(!AlLavoro && !Vuota);
    QString Scritta = u"Avanti"_s;
    if (Passo == PagDoppioni)
        Scritta = u"Importa"_s;
    else if (Passo == PagScelta && Scelto() == ArchivioIntero)
        Scritta = u"Usa questo archivio"_s;
    else if (Passo == PagScelta && Scelto() == Parcelle)
        Scritta = u"Copia"_s;
    ui->cmdAvanti->setText(Scritta);
}

void frmImporta::cmdSfoglia_Click(int Quale)
{
    QLineEdit* Campo = Quale == 0 ? ui->txtFile : ui->txtArrivo;
    QString Avuto;
    if (Quale == 1 || Scelto() == Parcelle)
        Avuto = Aperture.ScegliCartella ? Aperture.ScegliCartella(u"Scegli la cartella"_s, Campo->text())
                                        : QString();
    else
        Avuto = DialogoApri(u"Scegli il file da importare"_s, File(),
                            (Scelto() == ArchivioIntero ? FiltroArchivi : FiltroNominativi).toString());
    if (!Avuto.isEmpty())
        Campo->setText(Avuto);
    Campo->setFocus();
}

// ---- steps --------------------------------------------------------------------------------------

bool frmImporta::Tenta(const std::function<void()>& Azione)
{
    bool Fatta = false;
    (void)Protetta([&] {
        try {
            Azione();
            Fatta = true;
        } catch (const Interrotto&) {
            Fatta = false;
        } catch (const Errore& Guasto) {
            if (Guasto.Numero != NumeroFileRifiutato)
                throw;
            MsgBox(Guasto.Descrizione, vbOKOnly + vbExclamation, TitoloAvvertenza.toString());
        }
    });
    return Fatta;
}

void frmImporta::AlLavoroPer(const std::function<void()>& Azione)
{
    const Lavoro InCorso(*this);
    Azione();
}

/// Tells what a box lacks. @return true when it is empty
bool frmImporta::Manca(QLineEdit* Campo, const QString& Frase)
{
    if (!Campo->text().trimmed().isEmpty())
        return false;
    MsgBox(Frase, vbOKOnly + vbExclamation, TitoloAvvertenza.toString());
    Campo->setFocus();
    return true;
}

bool frmImporta::Avanza(qint64 Fatte, qint64 Tutte)
{
    constexpr int Intero = 1000;
    ui->barAvanza->setRange(0, Tutte > 0 ? Intero : 0);
    ui->barAvanza->setValue(Tutte > 0 ? int(Fatte * Intero / Tutte) : 0);
    return Respira(ui->cmdInterrompi);
}

void frmImporta::cmdAvanti_Click()
{
    if (AlLavoro)
        return;
    switch (ui->pagine->currentIndex()) {
    case PagScelta:
        if (Scelto() == ArchivioIntero)
            PrendiIntero();
        else if (Scelto() == Parcelle)
            CopiaParcelle();
        else
            ApriSorgente();
        break;
    case PagColonne:
        if (Prova())
            VaiA(PagDoppioni);
        break;
    case PagDoppioni:
        Importa();
        break;
    default:
        break;
    }
}

void frmImporta::cmdIndietro_Click()
{
    const int Passo = ui->pagine->currentIndex();
    if (Passo == PagDoppioni)
        VaiA(PagColonne);
    else if (Passo == PagColonne)
        VaiA(PagScelta);
    Opera.reset();
    Abilita();
}

void frmImporta::reject()
{
    if (AlLavoro)  // Esc stops the work, and nothing else
        return;
    Sorgente.reset();  // with the working copy of an archive
    QDialog::reject();
}

// ---- a whole archive ----------------------------------------------------------------------------

void frmImporta::PrendiIntero()
{
    if (Manca(ui->txtFile, u"Scegliere il file dell'archivio."_s))
        return;
    if (MsgBox(
            u"Una copia di \"%1\" diventa l'archivio clienti e controparti dello studio.\n"
            "L'archivio usato finora, \"%2\", resta dov'è. Proseguire?"_s.arg(NomeFile(File()), Archivio()),
            vbYesNo | vbQuestion, TitoloDomanda.toString()) != vbYes ||
        !CongedaRubriche())
        return;
    Tenta([this] {
        std::optional<ArchivioPreso> Preso;
        AlLavoroPer([&] {
            Preso = PrendiArchivio(File(), sessione::UserFolder, [this](qint64) { return Avanza(0, 0); });
        });
        if (!Preso)
            return;
        try {
            SalvaImpostazione(chiavi::ArchivioCliCon.toString(), Preso->File);
        } catch (const Errore& Guasto) {
            // The archive is there: to take it once more would make a second one.
            throw Errore(
                Guasto.Numero,
                u"L'archivio è stato copiato in \"%1\", ma lo studio usa ancora quello di prima: %2. Non "
                "occorre prenderlo di nuovo: si sceglie nelle impostazioni"_s.arg(Preso->File,
                                                                                  Guasto.Descrizione));
        }
        RileggiVariabili();
        InArchivio.clear();
        Invoca(Aperture.ImpostazioniCambiate);
        RileggiRubriche();
        MostraResoconto(
            u"L'archivio è pronto: %1 e %2."_s.arg(
                Preso->Clienti == 1 ? u"1 cliente"_s : Format(Preso->Clienti, u"#,##0") + u" clienti"_s,
                Preso->Controparti == 1 ? u"1 controparte"_s
                                        : Format(Preso->Controparti, u"#,##0") + u" controparti"_s),
            ResocontoArchivio(File(), *Preso), false);
    });
}

// ---- old notes ----------------------------------------------------------------------------------

void frmImporta::CopiaParcelle()
{
    if (Manca(ui->txtFile, u"Scegliere la cartella delle vecchie parcelle."_s) ||
        Manca(ui->txtArrivo, u"Scegliere la cartella in cui copiarle."_s))
        return;
    Tenta([this] {
        const QString A = PercorsoNativo(ui->txtArrivo->text().trimmed());
        std::optional<QList<EsitoNota>> Esiti;
        CopiaFermata Fermata;
        AlLavoroPer([&] {
            Esiti = CopiaNote(
                File(), A, [this](int Fatte, int Tutte) { return Avanza(Fatte, Tutte); }, &Fermata);
        });
        if (!Esiti) {
            MsgBox(FraseFermata(Fermata), vbInformation, TitoloMessaggio.toString());
            return;
        }
        MostraResoconto(FraseNote(Conta(*Esiti)), ResocontoNote(File(), A, *Esiti), false);
        Invoca(Aperture.RinfrescaTrova);
    });
}

// ---- the report ---------------------------------------------------------------------------------

void frmImporta::MostraResoconto(const QString& Esito, const QString& Testo, bool Annullabile)
{
    Resoconto = Testo;
    ui->lblEsito->setText(Esito);
    ui->txtResoconto->setPlainText(Testo);
    ui->cmdAnnullaImporta->setVisible(Annullabile);
    VaiA(PagResoconto);
    ui->cmdChiudi->setFocus();
}

void frmImporta::cmdSalvaResoconto_Click()
{
    const QString Scelta =
        DialogoSalva(u"Salva il resoconto"_s, CartellaSpeciale(CartellaDocumenti) + u"importazione.txt"_s,
                     u"Testo (*.txt)|*.txt"_s);
    if (Scelta.isEmpty() || !Sostituibile(Scelta))
        return;
    Protetta([&] { ScriviFile(Scelta, Resoconto.toUtf8(), Lettori::SoloUtente); });
}

void frmImporta::cmdAnnullaImporta_Click()
{
    if (MsgBox(u"L'archivio torna com'era prima dell'importazione. Proseguire?"_s, vbYesNo | vbQuestion,
               TitoloDomanda.toString()) != vbYes ||
        !CongedaRubriche())
        return;
    const bool Fatto = Tenta([this] {
        const ClessidraAccesa Attesa;
        AnnullaImportazione(Archivio());
    });
    RileggiRubriche();
    MostraUltima();
    if (Fatto && ui->pagine->currentIndex() == PagResoconto)
        MostraResoconto(u"L'importazione è stata annullata: l'archivio è com'era prima."_s, Resoconto, false);
    else if (Fatto)
        MsgBox(u"L'importazione è stata annullata: l'archivio è com'era prima."_s, vbOKOnly + vbInformation,
               TitoloMessaggio.toString());
}

#include "moc_frmImporta.cpp"
