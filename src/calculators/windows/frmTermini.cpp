#include "calculators/windows/frmTermini.h"

#include "calculators/modStampaTermini.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/frmAgenda.h"
#include "calculators/windows/frmRicorrenti.h"
#include "calculators/windows/frmStrada.h"
#include "core/modErrori.h"
#include "core/modTesti.h"
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
    Scelta = std::make_unique<SceltaNorme>(ui->cmbNorme, [this] { CambiaNorme(); });
    Inizio = std::make_unique<RigaInizio>(ui->modulo, 1, [this] { Pulisci(); });
    setTabOrder(ui->mskDecorr, Inizio->Casella());
    setTabOrder(Inizio->Casella(), ui->txtIncrNum);
    Comandi = new ComandiCalcolo(this, ParteComandi());
    ImpostaMenu(
        this,
        QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New, [this] { mnuNew_Click(); }},
                        {u"mnuStampa"_s, u"Stampa"_s, QKeySequence::Print, [this] { mnuStampa_Click(); }}} +
            Comandi->Voci(true));
    {
        const QSignalBlocker Zitta(ui->cmbIncrTipo);
        for (const QStringView Voce : VociIncremento)
            ui->cmbIncrTipo->addItem(Voce.toString());
        ui->cmbIncrTipo->setCurrentIndex(-1);
    }
    constexpr int RigheRisultato = 2;  // the date, and whether it was moved
    PreparaPannello(Campi(), Ingrandimento, RigheRisultato);
    for (QToolButton* Pulsante : {ui->cmdCalend_0, ui->cmdCalend_1})
        Pulsante->setIcon(aspetto::Icona(u"calendario"_s));
    ui->cmdLascia->setIcon(aspetto::Icona(u"chiudi"_s));
    NonSpostare(ui->cmdCalend_1);
    NonSpostare(ui->Calendario);
    PreparaModulo(this, u"termini"_s);
    Collegamenti();
    ui->mskDecorr->ImpostaTesto(u"  /  /    "_s);
    ui->Calendario->ImpostaData(Oggi());
    Comandi->Aggiorna();
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
    CollegaDecorrenza(Campi(), Cambiato);
    Collega(ui->txtIncrNum, &QLineEdit::textEdited, this, Cambiato);
    Collega(ui->cmbIncrTipo, &QComboBox::currentIndexChanged, this, Cambiato);
    for (const QCheckBox* Casella : {ui->chkSosp, ui->chkLibero, ui->chkSabato})
        Collega(Casella, &QCheckBox::clicked, this, Cambiato);
    Collega(ui->optTipoScad_0, &QRadioButton::toggled, this, Cambiato);

    Collega(ui->cmdEsegui, &QPushButton::clicked, this, [this] { cmdEsegui_Click(); });
    Collega(ui->cmdAvvertenze, &QPushButton::clicked, this, [this] { cmdAvvertenze_Click(); });
    Collega(ui->cmdCalend_0, &QToolButton::clicked, this, [this] { cmdCalend_Click(0); });
    Collega(ui->cmdCalend_1, &QToolButton::clicked, this, [this] { cmdCalend_Click(1); });
    Collega(ui->Calendario, &CalendarioMensile::DataScelta, this,
            [this, Cambiato](const QDate& Data) { PrendiData(Campi(), Data, Cambiato); });
    CollegaRicorrenti();
}

void frmTermini::CollegaRicorrenti()
{
    Collega(ui->cmbMateria, &QComboBox::currentIndexChanged, this, [this] { Pulisci(); });
    Collega(ui->cmdRicorrenti, &QPushButton::clicked, this, [this] { cmdRicorrenti_Click(); });
    Collega(ui->cmdLascia, &QToolButton::clicked, this, [this] { cmdLascia_Click(); });
    Collega(ui->cmdStrada, &QPushButton::clicked, this, [this] { cmdStrada_Click(); });
    Collega(ui->cmdAgenda, &QPushButton::clicked, this, [this] { cmdAgenda_Click(); });
    TastoRapido(this, Qt::Key_T, [this] { cmdRicorrenti_Click(); });
    TastoRapido(this, Qt::Key_D, [this] { cmdStrada_Click(); });
    TastoRapido(this, Qt::Key_G, [this] { cmdAgenda_Click(); });
}

void frmTermini::Mostra()
{
    ui->cmdAvvertenze->setEnabled(HaAvvertenze());
    // Messages, other programs and the print window activate the form too: they must not reset what was
    // chosen.
    if (!isVisible())
        Scelta->Comincia();
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
    return {ui->mskDecorr, ui->chkSosp,      ui->chkSabato, ui->Calendario,
            ui->lblRisult, ui->lblSettembre, ui->cmdCopia,  Scelta.get()};
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
    Contati.clear();
    Abilita();
    // A road of a result that is no more would be taken for that of the next one.
    if (Strade)
        Strade->close();
    ui->cmdCalend_1->hide();
    ScriviRisultato(Campi(), {});
    Segna();
}

void frmTermini::Segna()
{
    QList<QDate> Giorni;
    for (const TermineContato& Termine : std::as_const(Contati))
        Giorni << Termine.Esito.Scadenza;
    SegnaGiorni(Campi(), Giorni);
}

void frmTermini::cmdEsegui_Click()
{
    if (Inizio->Valida())
        CalcolaDallaData(ui->mskDecorr, [this] { return Calcola(); });
}

bool frmTermini::Calcola()
{
    DatiTermine Caselle = Dati();
    if (Catena)
        Caselle.Numero = u"1"_s;  // its links have numbers of their own
    // By the norms in force a Saturday moves backward terms too (Cass. 14767/2014).
    else if (!Scelta->InVigore() && TogliSabatoARitroso(Caselle.Opzioni)) {
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
    Contati = {Contato(Chiesto, Esito)};
    MostraScadenza(Conto, NoteDi(Contati));
    return true;
}

bool frmTermini::CalcolaCatena(const DatiTermine& Caselle)
{
    const auto Lette = Scelta->Lette();
    if (!Lette)
        return false;
    Contati = ContaCatena(Scelta->Insieme(), *Lette, *Catena, CDate(SenzaSecolo(Caselle.Decorrenza)),
                          Materia(), Inizio->Data());
    DataCorrente = Contati.first().Esito.Scadenza;
    MostraRisultato(TestoCatena(Contati, true), NoteDi(Contati));
    return true;
}

void frmTermini::MostraScadenza(const ContoTermine& Conto, const QString& Avviso)
{
    DataCorrente = Conto.DataCorrente;
    MostraRisultato(TestoTermine(Conto), Avviso);
}

void frmTermini::MostraRisultato(const QString& Testo, const QString& Avviso)
{
    Campanello();
    ScriviRisultato(Campi(), Testo, Avviso);
    Abilita();
    ui->cmdCalend_1->show();
    ui->Calendario->ImpostaData(DataCorrente);
    Segna();
    FaiPosto(this);
    Comandi->Ricorda(true);
}

void frmTermini::cmdCalend_Click(int Indice)
{
    if (Indice == 1)
        ui->Calendario->ImpostaData(DataCorrente);
    AlternaCalendario(Campi());
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
    if (Scelta->InVigore() || Catena) {
        MostraStampa(SuffissoTermini, [this](Superficie& vp) { return StampaScheda(vp, Scheda()); });
        return;
    }
    MostraStampa(SuffissoTermini, [this](Superficie& vp) {
        return StampaTermine(vp, Dati(), ui->lblRisult->text(), AvvisoMostrato(Campi()));
    });
}

// ---- norms and catalogue --------------------------------------------------------------------------

void frmTermini::CambiaNorme()
{
    MostraNorme(CampiDelleNorme(), *Scelta);
    // What one set of rules has put aside the other one may ask for.
    if (Scelto)
        SpuntaSabato(RichiestaTermineDi(*Scelto, {}).Opzioni);
    // The program's own rules enable it by a date, and there may be none.
    ui->chkSabato->setEnabled(Scelta->InVigore());
    AbilitaSabato(Campi(), SenzaSecolo(ui->mskDecorr->Testo()));
    MostraScelto();
    Pulisci();
    ui->Calendario->Ridisegna();
    FaiPosto(this);
}

void frmTermini::Abilita()
{
    for (QPushButton* Pulsante : {ui->cmdStrada, ui->cmdAgenda})
        Pulsante->setEnabled(!Contati.isEmpty());
    Comandi->Aggiorna();
}

CampiNorme frmTermini::CampiDelleNorme() const
{
    return {ui->cmbMateria, ui->lblEta, ui->cmdStrada, ui->cmdAgenda};
}

QString frmTermini::Materia() const
{
    return MateriaScelta(CampiDelleNorme(), *Scelta);
}

RichiestaTermine frmTermini::Richiesta(const DatiTermine& Caselle) const
{
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = CDate(SenzaSecolo(Caselle.Decorrenza));
    Chiesto.Numero = CInt(Caselle.Numero);
    Chiesto.Tipo = Caselle.Tipo == TipoGiorni || Caselle.Tipo == TipoMesi ? Caselle.Tipo : TipoAnni;
    Chiesto.Opzioni = Caselle.Opzioni;
    Chiesto.Materia = Materia();
    return Chiesto;
}

EsitoTermine frmTermini::Computa(const RichiestaTermine& Chiesto) const
{
    if (!Scelta->InVigore() || !Scelto)
        return ComputaTermine(Scelta->Insieme(), Chiesto);
    return ComputaRicorrente(*Scelta->Lette(), *Scelto, Chiesto.Decorrenza, Chiesto.Materia, Inizio->Data(),
                             Chiesto.Opzioni);
}

TermineContato frmTermini::Contato(const RichiestaTermine& Chiesto, const EsitoTermine& Esito) const
{
    TermineContato Termine = Scelto ? ContatoDi(*Scelto) : TermineContato{};
    Termine.Misura = MisuraRichiesta(Chiesto);
    Termine.Decorrenza = Chiesto.Decorrenza;
    Termine.Antecedente = Chiesto.Opzioni.Antecedente;
    Termine.Esito = Esito;
    return Termine;
}

void frmTermini::cmdRicorrenti_Click()
{
    const auto Lette = Scelta->Lette();
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
    ui->chkSabato->setChecked(DelTermine.Sabato && (Scelta->InVigore() || !DelTermine.Antecedente));
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
    if (LeggiData(SenzaSecolo(ui->mskDecorr->Testo())))
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
    Inizio->Mostra(Scelta->InVigore() && ((Scelto && ChiedeInizio(*Scelto)) ||
                                          (Catena && ChiedeInizio(*Scelta->Lette(), *Catena))));
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
        AbilitaSabato(Campi(), SenzaSecolo(ui->mskDecorr->Testo()));
    QFont Lettere = font();
    if (!Catena)
        Lettere.setPointSizeF(Lettere.pointSizeF() * Ingrandimento);
    ui->lblRisult->setFont(Lettere);
}

QStringList frmTermini::RigheChieste() const
{
    const DatiTermine Caselle = Dati();
    const auto SiNo = [](bool Segno) { return Segno ? u"Sì"_s : u"No"_s; };
    QStringList Righe{u"Data decorrenza: "_s +
                      Format(Contati.isEmpty() ? QDate() : Contati.first().Decorrenza, u"dd/mm/yyyy")};
    if (Catena)
        Righe << u"Termini: "_s + Catena->Titolo;
    else
        Righe << u"Incremento: "_s + (Contati.isEmpty() ? QString() : Contati.first().Misura)
              << u"Sospensione feriale: "_s + SiNo(Caselle.Opzioni.Sospensione && Materia().isEmpty())
              << u"Termine libero: "_s + SiNo(Caselle.Opzioni.Libero)
              << u"Proroga del sabato: "_s + SiNo(Caselle.Opzioni.Sabato);
    if (const auto Quando = Inizio->Data())
        Righe << u"Causa iniziata il: "_s + Format(*Quando, u"dd/mm/yyyy");
    if (!Materia().isEmpty())
        Righe << u"Materia: "_s + ui->cmbMateria->currentText();
    return Righe << RigaNorme(Scelta->Insieme());
}

void frmTermini::cmdStrada_Click()
{
    if (Contati.isEmpty())
        return;
    if (!Strade)
        Strade = new frmStrada(this);
    Strade->Mostra(PartiDi(Contati), Scheda(), SuffissoTermini,
                   [this](const QDate& Giorno) { return Scelta->Festivo(Giorno); });
}

void frmTermini::cmdAgenda_Click()
{
    if (Contati.isEmpty())
        return;
    (new frmAgenda(this, Contati, Scelta->Insieme()))->Mostra();
}

// ---- sheet and list -------------------------------------------------------------------------------

ParteDelCalcolo frmTermini::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Termini;
    Parte.Campi = {CampoDi(ui->cmbNorme), CampoCatalogo(), CampoDecorrenza(Campi()),
                   CampoDi(Inizio->Casella())};
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
    Parte.Campi << CampoMateria(ui->cmbMateria);
    Parte.Nome = [this] {
        const QString Che = Catena ? Catena->Titolo : NomeTermine(Contati.first());
        return Che + u" dal "_s + Format(Contati.first().Decorrenza, u"dd/mm/yyyy");
    };
    Parte.Esito = [this] { return EsitoInRiga(Contati); };
    Parte.Scheda = [this] { return Scheda(); };
    Parte.Suffisso = SuffissoTermini;
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
                const auto Lette = Scelta->Lette();
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

SchedaCalcolo frmTermini::Scheda() const
{
    return SchedaStrada(RigheChieste(), PartiDi(Contati), RigheEta(*Scelta));
}
