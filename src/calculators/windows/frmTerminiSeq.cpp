#include "calculators/windows/frmTerminiSeq.h"

#include "calculators/modStampaTermini.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/frmAgenda.h"
#include "calculators/windows/frmStrada.h"
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

#include "calculators/windows/ui_frmTerminiSeq.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

/// Behind the caption of the print window.
const QString SuffissoSequenziali = u": calcolo termini sequenziali"_s;

}  // namespace

frmTerminiSeq::frmTerminiSeq() : ui(std::make_unique<Ui::frmTerminiSeq>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->mskDecorr});
    Scelta = std::make_unique<SceltaNorme>(ui->cmbNorme, [this] { CambiaNorme(); });
    Inizio = std::make_unique<RigaInizio>(ui->modulo, 2, [this] { Pulisci(); });
    setTabOrder(ui->mskDecorr, Inizio->Casella());
    setTabOrder(Inizio->Casella(), ui->chkSosp);
    Comandi = new ComandiCalcolo(this, ParteComandi());
    ImpostaMenu(
        this,
        QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New, [this] { mnuNew_Click(); }},
                        {u"mnuPrint"_s, u"Stampa"_s, QKeySequence::Print, [this] { mnuPrint_Click(); }}} +
            Comandi->Voci(true));
    ElencaArticoli();
    constexpr double Ingrandimento = 1.15;
    constexpr int RigheRisultato = 6;  // three links, a blank line before each
    PreparaPannello(Campi(), Ingrandimento, RigheRisultato);
    ui->cmdCalend->setIcon(aspetto::Icona(u"calendario"_s));
    ui->Calendario->ImpostaNomeInizio(u"Udienza"_s);
    PreparaModulo(this, u"sequenz"_s);
    Collegamenti();
    ui->mskDecorr->ImpostaTesto(u"  /  /    "_s);
    ui->Calendario->ImpostaData(Oggi());
    Comandi->Aggiorna();
}

frmTerminiSeq::~frmTerminiSeq() = default;

void frmTerminiSeq::Collegamenti()
{
    CatenaInvio({ui->cmbArticolo, ui->mskDecorr, ui->chkSosp, ui->chkSabato}, [this] { cmdEsegui_Click(); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return DidascaliaPulita(Risultato); });
    ui->cmbArticolo->installEventFilter(this);
    ui->chkSosp->installEventFilter(this);

    const auto Cambiato = [this] { Pulisci(); };
    CollegaDecorrenza(Campi(), Cambiato);
    Collega(ui->cmbArticolo, &QComboBox::currentIndexChanged, this, [this] { CambiaCatena(); });
    for (const QCheckBox* Casella : {ui->chkSosp, ui->chkSabato})
        Collega(Casella, &QCheckBox::clicked, this, Cambiato);

    Collega(ui->cmdEsegui, &QPushButton::clicked, this, [this] { cmdEsegui_Click(); });
    Collega(ui->cmdAvvertenze, &QPushButton::clicked, this, [this] { cmdAvvertenze_Click(); });
    Collega(ui->cmdCalend, &QToolButton::clicked, this, [this] { cmdCalend_Click(); });
    Collega(ui->Calendario, &CalendarioMensile::DataScelta, this, [this, Cambiato](const QDate& Data) {
        PrendiData(Campi(), Data, Cambiato);
        ui->Calendario->hide();
    });
    CollegaNorme();
}

void frmTerminiSeq::CollegaNorme()
{
    Collega(ui->cmbMateria, &QComboBox::currentIndexChanged, this, [this] { Pulisci(); });
    Collega(ui->cmdStrada, &QPushButton::clicked, this, [this] { cmdStrada_Click(); });
    Collega(ui->cmdAgenda, &QPushButton::clicked, this, [this] { cmdAgenda_Click(); });
    TastoRapido(this, Qt::Key_D, [this] { cmdStrada_Click(); });
    TastoRapido(this, Qt::Key_G, [this] { cmdAgenda_Click(); });
}

void frmTerminiSeq::Mostra()
{
    ui->cmdAvvertenze->setEnabled(HaAvvertenze());
    if (!isVisible())
        Scelta->Comincia();
    MostraModulo(this);
}

bool frmTerminiSeq::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::FocusIn && (Oggetto == ui->chkSosp || Oggetto == ui->cmbArticolo))
        ui->Calendario->hide();
    return QDialog::eventFilter(Oggetto, Evento);
}

CampiTermini frmTerminiSeq::Campi() const
{
    return {ui->mskDecorr, ui->chkSosp,      ui->chkSabato, ui->Calendario,
            ui->lblRisult, ui->lblSettembre, ui->cmdCopia,  Scelta.get()};
}

OpzioniTermine frmTerminiSeq::Opzioni() const
{
    return {.Sospensione = ui->chkSosp->isChecked(), .Sabato = ui->chkSabato->isChecked()};
}

void frmTerminiSeq::Pulisci()
{
    Contati.clear();
    Abilita();
    if (Strade)
        Strade->close();
    Risultato.clear();
    ScriviRisultato(Campi(), {});
    Segna();
}

void frmTerminiSeq::Segna()
{
    QList<QDate> Giorni;
    for (const TermineContato& Termine : std::as_const(Contati))
        Giorni << Termine.Esito.Scadenza;
    SegnaGiorni(Campi(), Giorni);
}

void frmTerminiSeq::cmdEsegui_Click()
{
    if (Inizio->Valida())
        CalcolaDallaData(ui->mskDecorr, [this] { return Calcola(); });
}

bool frmTerminiSeq::Calcola()
{
    const QString Udienza = ui->mskDecorr->Testo();
    if (const auto Trovato = DifettoUdienza(Udienza)) {
        MsgErrore(Trovato->Messaggio);
        return false;
    }
    if (Scelta->InVigore())
        return CalcolaVigente();
    MostraScadenze(CalcolaSequenza(Udienza, ui->cmbArticolo->currentIndex(), Opzioni()));
    return true;
}

bool frmTerminiSeq::CalcolaVigente()
{
    Contati = ContaCatena(InsiemeNorme::Vigenti, *Scelta->Lette(), *Catena(),
                          CDate(SenzaSecolo(ui->mskDecorr->Testo())),
                          MateriaScelta(CampiDelleNorme(), *Scelta), Inizio->Data());
    Risultato = TestoCatena(Contati);
    MostraRisultato(NoteDi(Contati));
    return true;
}

void frmTerminiSeq::MostraScadenze(const QList<ScadenzaAnello>& Calcolate)
{
    Contati = DelProgramma();
    Risultato = TestoSequenza(ui->cmbArticolo->currentIndex(), Calcolate);
    MostraRisultato(SettembreSospeso(Calcolate) ? AvvisoSettembre.toString() : QString());
}

void frmTerminiSeq::MostraRisultato(const QString& Avviso)
{
    // One line end on screen: a label would show the carriage return as one more.
    ScriviRisultato(Campi(), QString(Risultato).remove(u'\r'), Avviso);
    Abilita();
    ui->Calendario->ImpostaData(Contati.first().Esito.Scadenza);
    Segna();
    Campanello();
    FaiPosto(this);
    Comandi->Ricorda(true);
}

void frmTerminiSeq::cmdCalend_Click()
{
    AlternaCalendario(Campi());
}

void frmTerminiSeq::cmdAvvertenze_Click()
{
    ApriAvvertenze(u"VDM - Calcolo termini - Avvertenze"_s);
}

void frmTerminiSeq::mnuNew_Click()
{
    Svuota(true);
    ui->mskDecorr->setFocus();
    Campanello();
}

void frmTerminiSeq::Svuota(bool Sospensione)
{
    ui->mskDecorr->ImpostaTesto({});
    Inizio->Svuota();
    ui->Calendario->hide();
    ui->cmbArticolo->setCurrentIndex(0);
    ui->chkSosp->setChecked(Sospensione);
    ui->chkSabato->setChecked(false);
    ui->cmbMateria->setCurrentIndex(0);
    Pulisci();
}

void frmTerminiSeq::mnuPrint_Click()
{
    if (Scelta->InVigore()) {
        MostraStampa(SuffissoSequenziali, [this](Superficie& vp) { return StampaScheda(vp, Scheda()); });
        return;
    }
    MostraStampa(SuffissoSequenziali, [this](Superficie& vp) {
        return StampaSequenza(vp, ui->mskDecorr->Testo(), ui->cmbArticolo->currentIndex(), Opzioni(),
                              Risultato, AvvisoMostrato(Campi()));
    });
}

// ---- norms ----------------------------------------------------------------------------------------

void frmTerminiSeq::ElencaArticoli()
{
    const QSignalBlocker Zitta(ui->cmbArticolo);
    ui->cmbArticolo->clear();
    if (Scelta->InVigore())
        for (const CatenaTermini& Una : Scelta->Lette()->Catene())
            ui->cmbArticolo->addItem(Una.Titolo);
    else
        for (const ArticoloTermini& Articolo : Articoli())
            ui->cmbArticolo->addItem(Articolo.Voce.toString());
    ui->cmbArticolo->setCurrentIndex(0);
    constexpr int LettereCatena = 84;
    LimitaLista(ui->cmbArticolo, LettereCatena);
}

void frmTerminiSeq::CambiaNorme()
{
    const bool InVigore = Scelta->InVigore();
    ElencaArticoli();
    MostraNorme(CampiDelleNorme(), *Scelta);
    // Each link of a chain in force says itself whether suspension and Saturday count for it.
    for (QWidget* Campo : std::initializer_list<QWidget*>{ui->chkSosp, ui->lblSosp, ui->lblSabato})
        Campo->setEnabled(!InVigore);
    ui->chkSabato->setEnabled(!InVigore);
    AbilitaSabato(Campi(), SenzaSecolo(ui->mskDecorr->Testo()));
    CambiaCatena();
    ui->Calendario->Ridisegna();
    FaiPosto(this);
}

void frmTerminiSeq::CambiaCatena()
{
    const CatenaTermini* Una = Catena();
    // A chain in force may run from a notification.
    ui->lblDecorr->setText(Una ? u"Data:"_s : u"Data udienza:"_s);
    ui->lblEvento->setText(Una ? u"("_s + Una->Evento + u')' : QString());
    ui->Calendario->ImpostaNomeInizio(EventoMostrato());
    Inizio->Mostra(Una && ChiedeInizio(*Scelta->Lette(), *Una));
    ui->cmbArticolo->setToolTip(Una ? Una->Titolo : QString());
    Pulisci();
}

/// What the date of the window is the day of.
QString frmTerminiSeq::EventoMostrato() const
{
    const CatenaTermini* Una = Catena();
    if (!Una || Una->Evento.isEmpty())
        return u"Udienza"_s;
    return Una->Evento.left(1).toUpper() + Una->Evento.mid(1);
}

/// The chain that is chosen; null by the program's own rules.
const CatenaTermini* frmTerminiSeq::Catena() const
{
    const int Quale = ui->cmbArticolo->currentIndex();
    if (!Scelta->InVigore() || Quale < 0)
        return nullptr;
    return &Scelta->Lette()->Catene()[Quale];
}

void frmTerminiSeq::Abilita()
{
    for (QPushButton* Pulsante : {ui->cmdStrada, ui->cmdAgenda})
        Pulsante->setEnabled(!Contati.isEmpty());
    Comandi->Aggiorna();
}

/// The links with their steps, by the program's own rules.
QList<TermineContato> frmTerminiSeq::DelProgramma() const
{
    const ArticoloTermini& Articolo = Articoli()[size_t(ui->cmbArticolo->currentIndex())];
    QList<TermineContato> Tutti;
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = CDate(SenzaSecolo(ui->mskDecorr->Testo()));
    Chiesto.Opzioni = Opzioni();
    for (const Anello& Uno : Articolo.Catena) {
        Chiesto.Numero = Uno.Giorni;
        TermineContato Termine;
        Termine.Atto = QString::number(Tutti.size() + 1) + u"° termine"_s;
        Termine.Articolo = u"art. "_s + CStr(Articolo.Numero) + u" c.p.c."_s;
        Termine.Evento = Tutti.isEmpty() ? u"udienza"_s : u"scadenza del termine precedente"_s;
        Termine.Misura = MisuraRichiesta(Chiesto);
        Termine.Decorrenza = Chiesto.Decorrenza;
        Termine.Esito = ComputaTermine(InsiemeNorme::Programma, Chiesto);
        Chiesto.Decorrenza = Termine.Esito.Scadenza;
        Tutti << Termine;
    }
    return Tutti;
}

QStringList frmTerminiSeq::RigheChieste() const
{
    const auto Giorno = LeggiData(SenzaSecolo(ui->mskDecorr->Testo()));
    QStringList Righe{u"Termini: "_s + ui->cmbArticolo->currentText(),
                      EventoMostrato() + u": "_s + Format(Giorno.value_or(QDate()), u"dd/mm/yyyy")};
    const auto SiNo = [](bool Segno) { return Segno ? u"Sì"_s : u"No"_s; };
    if (!Scelta->InVigore())
        Righe << u"Sospensione feriale: "_s + SiNo(Opzioni().Sospensione)
              << u"Proroga del sabato: "_s + SiNo(Opzioni().Sabato);
    if (const auto Quando = Inizio->Data())
        Righe << u"Causa iniziata il: "_s + Format(*Quando, u"dd/mm/yyyy");
    if (!MateriaScelta(CampiDelleNorme(), *Scelta).isEmpty())
        Righe << u"Materia: "_s + ui->cmbMateria->currentText();
    return Righe << RigaNorme(Scelta->Insieme());
}

CampiNorme frmTerminiSeq::CampiDelleNorme() const
{
    return {ui->cmbMateria, ui->lblEta, ui->cmdStrada, ui->cmdAgenda};
}

void frmTerminiSeq::cmdStrada_Click()
{
    if (Contati.isEmpty())
        return;
    if (!Strade)
        Strade = new frmStrada(this);
    Strade->Mostra(PartiDi(Contati), Scheda(), SuffissoSequenziali,
                   [this](const QDate& Giorno) { return Scelta->Festivo(Giorno); });
}

void frmTerminiSeq::cmdAgenda_Click()
{
    if (!Contati.isEmpty())
        (new frmAgenda(this, Contati, Scelta->Insieme()))->Mostra();
}

// ---- sheet and list -------------------------------------------------------------------------------

ParteDelCalcolo frmTerminiSeq::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Sequenziali;
    Parte.Campi = {CampoDi(ui->cmbNorme),    CampoDi(ui->cmbArticolo),   CampoMateria(ui->cmbMateria),
                   CampoDecorrenza(Campi()), CampoDi(Inizio->Casella()), CampoDi(ui->chkSosp),
                   CampoDi(ui->chkSabato)};
    Parte.Nome = [this] {
        return ui->cmbArticolo->currentText() + u", "_s + EventoMostrato().toLower() + u" del "_s +
               Format(CDate(SenzaSecolo(ui->mskDecorr->Testo())), u"dd/mm/yyyy");
    };
    Parte.Esito = [this] { return EsitoInRiga(Contati); };
    Parte.Scheda = [this] { return Scheda(); };
    Parte.Suffisso = SuffissoSequenziali;
    Parte.Prepara = [this] { Svuota(false); };
    Parte.Calcola = [this] { cmdEsegui_Click(); };
    return Parte;
}

SchedaCalcolo frmTerminiSeq::Scheda() const
{
    SchedaCalcolo Tutta = SchedaStrada(RigheChieste(), PartiDi(Contati), RigheEta(*Scelta));
    Tutta.Titolo = u"CALCOLO TERMINI SEQUENZIALI"_s;
    return Tutta;
}
