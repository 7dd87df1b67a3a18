#include "calculators/windows/frmTermini.h"

#include "calculators/modStampaTermini.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/frmRicorrenti.h"
#include "calculators/windows/pannellotermini.h"
#include "core/modErrori.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/orologio.h"
#include "platform/system/shell.h"
#include "print/windows/frmPrint.h"

#include "calculators/windows/ui_frmTermini.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr double Ingrandimento = 1.4;
/// Behind the caption of the print window.
const QString SuffissoTermini = u": calcolo termini"_s;

/// The boxes count what the catalogue's row does.
bool Uguali(const RichiestaTermine& Del, const RichiestaTermine& Delle)
{
    return Del.Numero == Delle.Numero && Del.Tipo == Delle.Tipo &&
           Del.Opzioni.Libero == Delle.Opzioni.Libero && Del.Opzioni.Antecedente == Delle.Opzioni.Antecedente;
}

}  // namespace

frmTermini::frmTermini() : ui(std::make_unique<Ui::frmTermini>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->mskDecorr, ui->txtIncrNum});
    Pannello = new PannelloTermini(this, Campi(), ui->modulo, 1, ParteSua());
    setTabOrder(ui->mskDecorr, Pannello->Inizio().Casella());
    setTabOrder(Pannello->Inizio().Casella(), ui->txtIncrNum);
    ImpostaMenu(
        this,
        QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New, [this] { mnuNew_Click(); }},
                        {u"mnuStampa"_s, u"Stampa"_s, QKeySequence::Print, [this] { mnuStampa_Click(); }}} +
            Pannello->Comandi(ParteComandi()));
    {
        const QSignalBlocker Zitta(ui->cmbIncrTipo);
        for (const QStringView Voce : VociIncremento)
            ui->cmbIncrTipo->addItem(Voce.toString());
        ui->cmbIncrTipo->setCurrentIndex(-1);
    }
    constexpr int RigheRisultato = 2;  // the date, and whether it was moved
    Pannello->Prepara(Ingrandimento, RigheRisultato);
    for (QToolButton* Pulsante : {ui->cmdCalend_0, ui->cmdCalend_1})
        Pulsante->setIcon(aspetto::Icona(u"calendario"_s));
    ui->cmdLascia->setIcon(aspetto::Icona(u"chiudi"_s));
    NonSpostare(ui->cmdCalend_1);
    NonSpostare(ui->Calendario);
    PreparaModulo(this, u"termini"_s);
    Collegamenti();
    ui->mskDecorr->ImpostaTesto(u"  /  /    "_s);
    ui->Calendario->ImpostaData(Oggi());
}

frmTermini::~frmTermini() = default;

void frmTermini::Collegamenti()
{
    FiltraTasti(ui->txtIncrNum, u"0123456789"_s);
    CatenaInvio({ui->mskDecorr, ui->txtIncrNum, ui->cmbIncrTipo, ui->chkSosp, ui->chkLibero, ui->chkSabato,
                 ui->optTipoScad_0, ui->optTipoScad_1},
                [this] { cmdEsegui_Click(); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return DidascaliaPulita(ui->lblRisult->text()); });

    const auto Cambiato = [this] {
        Pulisci();
        VerificaScelto();
    };
    Pannello->Collegamenti(Cambiato);
    Collega(ui->txtIncrNum, &QLineEdit::textEdited, this, Cambiato);
    Collega(ui->cmbIncrTipo, &QComboBox::currentIndexChanged, this, Cambiato);
    for (const QCheckBox* Casella : {ui->chkSosp, ui->chkLibero, ui->chkSabato})
        Collega(Casella, &QCheckBox::clicked, this, Cambiato);
    Collega(ui->optTipoScad_0, &QRadioButton::toggled, this, Cambiato);

    Collega(ui->cmdEsegui, &QPushButton::clicked, this, [this] { cmdEsegui_Click(); });
    Collega(ui->cmdAvvertenze, &QPushButton::clicked, this, [this] { cmdAvvertenze_Click(); });
    Collega(ui->cmdCalend_0, &QToolButton::clicked, this, [this] { cmdCalend_Click(0); });
    Collega(ui->cmdCalend_1, &QToolButton::clicked, this, [this] { cmdCalend_Click(1); });
    CollegaRicorrenti();
}

void frmTermini::CollegaRicorrenti()
{
    Collega(ui->cmdRicorrenti, &QPushButton::clicked, this, [this] { cmdRicorrenti_Click(); });
    Collega(ui->cmdLascia, &QToolButton::clicked, this, [this] { cmdLascia_Click(); });
    TastoRapido(this, Qt::Key_T, [this] { cmdRicorrenti_Click(); });
}

void frmTermini::Mostra()
{
    ui->cmdAvvertenze->setEnabled(HaAvvertenze());
    // Messages, other programs and the print window activate the form too: they must not reset what was
    // chosen.
    if (!isVisible())
        Pannello->Comincia();
    if (MostraModulo(this))
        Form_Activate();
}

void frmTermini::Form_Activate()
{
    ui->mskDecorr->setFocus();
    ui->cmbIncrTipo->setCurrentIndex(TipoGiorni);
    ui->chkSosp->setChecked(true);
    ui->optTipoScad_0->setChecked(true);
}

CampiTermini frmTermini::Campi() const
{
    CampiTermini Suoi = CampiDi(*ui);
    Suoi.cmdScadenza = ui->cmdCalend_1;
    return Suoi;
}

ParteTermini frmTermini::ParteSua()
{
    return {.Suffisso = SuffissoTermini,
            .TitoloScheda = {},
            .NormeCambiate = [this] { CambiaNorme(); },
            .Pulisci = [this] { Pulisci(); },
            .Chieste = [this] { return RigheChieste(); }};
}

DatiTermine frmTermini::Dati() const
{
    return {.Decorrenza = ui->mskDecorr->Testo(),
            .Numero = ui->txtIncrNum->text(),
            .Tipo = ui->cmbIncrTipo->currentIndex(),
            .Opzioni = {.Sospensione = ui->chkSosp->isChecked(),
                        .Libero = ui->chkLibero->isChecked(),
                        .Sabato = ui->chkSabato->isChecked(),
                        .Antecedente = ui->optTipoScad_1->isChecked()}};
}

void frmTermini::Pulisci()
{
    Pannello->Togli();
}

void frmTermini::cmdEsegui_Click()
{
    Pannello->Calcola([this] { return Calcola(); });
}

bool frmTermini::Calcola()
{
    DatiTermine Caselle = Dati();
    if (Catena)
        Caselle.Numero = u"1"_s;  // its links have numbers of their own
    // By the norms in force a Saturday moves backward terms too (Cass. 14767/2014).
    else if (!Pannello->Norme().InVigore() && TogliSabatoARitroso(Caselle.Opzioni)) {
        ui->chkSabato->setChecked(false);
        Pulisci();
    }
    if (const auto Trovato = DifettoTermine(Caselle)) {
        MsgErrore(Trovato->Messaggio);
        return false;
    }
    if (Catena)
        return CalcolaCatena(Caselle);
    const RichiestaTermine Chiesto = Richiesta(Caselle);
    const EsitoTermine Esito = Computa(Chiesto);
    ContoTermine Conto;
    Conto.Opzioni = Caselle.Opzioni;
    Conto.DataCorrente = Esito.Scadenza;
    Conto.Prorogato = Esito.Spostata;
    MostraRisultato({Contato(Chiesto, Esito)}, TestoTermine(Conto));
    return true;
}

bool frmTermini::CalcolaCatena(const DatiTermine& Caselle)
{
    const auto Lette = Pannello->Norme().Lette();
    if (!Lette)
        return false;
    const QList<TermineContato> Anelli =
        ContaCatena(Pannello->Norme().Insieme(), *Lette, *Catena, CDate(SenzaSecolo(Caselle.Decorrenza)),
                    Pannello->Materia(), Pannello->Inizio().Data());
    MostraRisultato(Anelli, TestoCatena(Anelli, true));
    return true;
}

void frmTermini::MostraRisultato(const QList<TermineContato>& Calcolati, const QString& Testo)
{
    Pannello->Mostra(Calcolati, Testo, NoteDi(Calcolati));
}

void frmTermini::cmdCalend_Click(int Indice)
{
    if (Indice == 1 && !Pannello->Contati().isEmpty())
        ui->Calendario->ImpostaData(Pannello->Contati().first().Esito.Scadenza);
    Pannello->AlternaCalendario();
}

void frmTermini::cmdAvvertenze_Click()
{
    ApriAvvertenze(u"KR6 - Calcolo termini - Avvertenze"_s);
}

void frmTermini::mnuNew_Click()
{
    Svuota();
    ui->mskDecorr->setFocus();
    Campanello();
}

void frmTermini::Svuota()
{
    ui->mskDecorr->ImpostaTesto({});
    ui->txtIncrNum->clear();
    ui->cmbIncrTipo->setCurrentIndex(-1);
    ui->chkSosp->setChecked(true);
    ui->chkLibero->setChecked(false);
    ui->chkSabato->setChecked(false);
    ui->optTipoScad_0->setChecked(true);
    ui->cmbMateria->setCurrentIndex(0);
    Scelto.reset();
    Catena.reset();
    MostraScelto();
    Pulisci();
}

void frmTermini::mnuStampa_Click()
{
    if (Pannello->Norme().InVigore() || Catena) {
        MostraStampa(SuffissoTermini,
                     [this](Superficie& vp) { return StampaScheda(vp, Pannello->Scheda()); });
        return;
    }
    MostraStampa(SuffissoTermini, [this](Superficie& vp) {
        return StampaTermine(vp, Dati(), ui->lblRisult->text(), Pannello->AvvisoMostrato());
    });
}

// ---- norms and catalogue --------------------------------------------------------------------------

void frmTermini::CambiaNorme()
{
    // What one set of rules has put aside the other one may ask for.
    if (Scelto)
        SpuntaSabato(RichiestaTermineDi(*Scelto, {}).Opzioni);
    // The program's own rules enable it by a date, and there may be none.
    ui->chkSabato->setEnabled(Pannello->Norme().InVigore());
    Pannello->AbilitaSabato();
    MostraScelto();
    Pulisci();
}

RichiestaTermine frmTermini::Richiesta(const DatiTermine& Caselle) const
{
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = CDate(SenzaSecolo(Caselle.Decorrenza));
    Chiesto.Numero = CInt(Caselle.Numero);
    Chiesto.Tipo = Caselle.Tipo == TipoGiorni || Caselle.Tipo == TipoMesi ? Caselle.Tipo : TipoAnni;
    Chiesto.Opzioni = Caselle.Opzioni;
    Chiesto.Materia = Pannello->Materia();
    return Chiesto;
}

EsitoTermine frmTermini::Computa(const RichiestaTermine& Chiesto) const
{
    if (!Pannello->Norme().InVigore() || !Scelto)
        return ComputaTermine(Pannello->Norme().Insieme(), Chiesto);
    return ComputaRicorrente(*Pannello->Norme().Lette(), *Scelto, Chiesto.Decorrenza, Chiesto.Materia,
                             Pannello->Inizio().Data(), Chiesto.Opzioni);
}

TermineContato frmTermini::Contato(const RichiestaTermine& Chiesto, const EsitoTermine& Esito) const
{
    return ContatoDi(Chiesto, Esito, Scelto ? ContatoDi(*Scelto) : TermineContato{});
}

void frmTermini::cmdRicorrenti_Click()
{
    const auto Lette = Pannello->Norme().Lette();
    if (!Lette)
        return;
    auto* Catalogo = new frmRicorrenti(this, Lette);
    Catalogo->TermineScelto = [this](const TermineRicorrente& Termine) { UsaTermine(Termine); };
    Catalogo->CatenaScelta = [this](const CatenaTermini& Presa) { UsaCatena(Presa); };
    Catalogo->Mostra();
}

void frmTermini::UsaTermine(const TermineRicorrente& Termine)
{
    MettiTermine(Termine);
    CalcolaSeData();
}

/// Fills the boxes with a row of the catalogue.
void frmTermini::MettiTermine(const TermineRicorrente& Termine)
{
    const RichiestaTermine Chiesto = RichiestaTermineDi(Termine, {});
    Catena.reset();
    Scelto.reset();
    ui->txtIncrNum->setText(QString::number(Chiesto.Numero));
    ui->cmbIncrTipo->setCurrentIndex(Chiesto.Tipo);
    ui->chkSosp->setChecked(Chiesto.Opzioni.Sospensione);
    ui->chkLibero->setChecked(Chiesto.Opzioni.Libero);
    SpuntaSabato(Chiesto.Opzioni);
    (Chiesto.Opzioni.Antecedente ? ui->optTipoScad_1 : ui->optTipoScad_0)->setChecked(true);
    Scelto = Termine;
    MostraScelto();
    Pulisci();
}

/// The Saturday of a row of the catalogue, which the program's own rules have for no backward term.
void frmTermini::SpuntaSabato(const OpzioniTermine& DelTermine)
{
    ui->chkSabato->setChecked(DelTermine.Sabato && (Pannello->Norme().InVigore() || !DelTermine.Antecedente));
}

void frmTermini::UsaCatena(const CatenaTermini& Presa)
{
    MettiCatena(Presa);
    CalcolaSeData();
}

void frmTermini::MettiCatena(const CatenaTermini& Presa)
{
    Scelto.reset();
    Catena = Presa;
    ui->txtIncrNum->clear();
    MostraScelto();
    Pulisci();
}

/// A term picked behind its start date is wanted at once.
void frmTermini::CalcolaSeData()
{
    if (LeggiData(Pannello->Decorrenza()))
        cmdEsegui_Click();
    else
        VaiSullaData(ui->mskDecorr);
}

void frmTermini::cmdLascia_Click()
{
    Scelto.reset();
    Catena.reset();
    MostraScelto();
    Pulisci();
    ui->txtIncrNum->setFocus();
}

/// A count that is not the row's any more has no article.
void frmTermini::VerificaScelto()
{
    if (!Scelto)
        return;
    DatiTermine Caselle = Dati();
    RichiestaTermine Delle;
    Delle.Numero = Caselle.Numero.toInt();
    Delle.Tipo = Caselle.Tipo;
    Delle.Opzioni = Caselle.Opzioni;
    if (Uguali(RichiestaTermineDi(*Scelto, {}), Delle))
        return;
    Scelto.reset();
    MostraScelto();
}

/// What was picked, and the boxes that count beside it.
void frmTermini::MostraScelto()
{
    QString Testo;
    QString Evento;
    if (Catena) {
        Testo = Catena->Titolo;
        Evento = Catena->Evento;
    } else if (Scelto) {
        Testo = NomeTermine(ContatoDi(*Scelto));
        Evento = Scelto->Evento;
    }
    // The date of the window is that of its event.
    if (!Evento.isEmpty())
        Testo += u"\nDecorre da: "_s + Evento;
    Pannello->Inizio().Mostra(
        Pannello->Norme().InVigore() &&
        ((Scelto && ChiedeInizio(*Scelto)) || (Catena && ChiedeInizio(*Pannello->Norme().Lette(), *Catena))));
    ui->lblTermine->setText(Testo);
    ui->lblTermine->setVisible(!Testo.isEmpty());
    ui->cmdLascia->setVisible(!Testo.isEmpty());
    const std::array<QWidget*, 6> Conto{ui->txtIncrNum, ui->cmbIncrTipo,   ui->chkSosp,
                                        ui->chkLibero,  ui->optTipoScad_0, ui->optTipoScad_1};
    for (QWidget* Casella : Conto)
        Casella->setEnabled(!Catena);
    if (Catena)
        ui->chkSabato->setEnabled(false);
    else
        Pannello->AbilitaSabato();
    QFont Lettere = font();
    if (!Catena)
        Lettere.setPointSizeF(Lettere.pointSizeF() * Ingrandimento);
    ui->lblRisult->setFont(Lettere);
}

QStringList frmTermini::RigheChieste() const
{
    const DatiTermine Caselle = Dati();
    const auto SiNo = [](bool Segno) { return Segno ? u"Sì"_s : u"No"_s; };
    const QList<TermineContato>& Contati = Pannello->Contati();
    QStringList Righe{u"Data decorrenza: "_s +
                      Format(Contati.isEmpty() ? QDate() : Contati.first().Decorrenza, ModelloData)};
    if (Catena)
        return Righe << u"Termini: "_s + Catena->Titolo;
    return Righe << u"Incremento: "_s + (Contati.isEmpty() ? QString() : Contati.first().Misura)
                 << u"Sospensione feriale: "_s +
                        SiNo(Caselle.Opzioni.Sospensione && Pannello->Materia().isEmpty())
                 << u"Termine libero: "_s + SiNo(Caselle.Opzioni.Libero)
                 << u"Proroga del sabato: "_s + SiNo(Caselle.Opzioni.Sabato);
}

// ---- sheet and list -------------------------------------------------------------------------------

ParteDelCalcolo frmTermini::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Termini;
    Parte.Campi = {CampoDi(ui->cmbNorme), CampoCatalogo(), Pannello->CampoDecorrenza(),
                   CampoDi(Pannello->Inizio().Casella())};
    // No unit chosen counts in years.
    CampoRicordato Unita = CampoDi(ui->cmbIncrTipo);
    Unita.Scrivi = [this, Scegli = Unita.Scrivi](const QString& Valore) {
        if (!Valore.isEmpty())
            return Scegli(Valore);
        ui->cmbIncrTipo->setCurrentIndex(-1);
        return true;
    };
    Parte.Campi << CampoDi(ui->txtIncrNum) << Unita;
    for (QWidget* Campo :
         std::initializer_list<QWidget*>{ui->chkSosp, ui->chkLibero, ui->chkSabato, ui->optTipoScad_1})
        Parte.Campi << CampoDi(Campo);
    Parte.Campi << Pannello->CampoMateria();
    Parte.Nome = [this] {
        const TermineContato& Primo = Pannello->Contati().first();
        return (Catena ? Catena->Titolo : NomeTermine(Primo)) + u" dal "_s +
               Format(Primo.Decorrenza, ModelloData);
    };
    Parte.Prepara = [this] { Svuota(); };
    Parte.Calcola = [this] { cmdEsegui_Click(); };
    return Parte;
}

/// The term or the chain that was picked, by its code.
CampoRicordato frmTermini::CampoCatalogo()
{
    return {u"catalogo"_s, [this] { return Catena   ? Catena->Codice
                                           : Scelto ? Scelto->Codice
                                                    : QString(); },
            [this](const QString& Codice) {
                if (Codice.isEmpty())
                    return true;
                const auto Lette = Pannello->Norme().Lette();
                if (!Lette)
                    return false;
                if (const CatenaTermini* Presa = TrovaCatena(*Lette, Codice)) {
                    MettiCatena(*Presa);
                    return true;
                }
                const TermineRicorrente* Preso = TrovaTermine(*Lette, Codice);
                if (!Preso || Preso->Regola)
                    return false;
                MettiTermine(*Preso);
                return true;
            }};
}

#include "moc_frmTermini.cpp"
