#include "calculators/windows/frmTerminiSeq.h"

#include "calculators/modStampaTermini.h"
#include "calculators/windows/finestracalcolo.h"
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
    Pannello = new PannelloTermini(this, CampiDi(*ui), ui->modulo, 2, ParteSua());
    setTabOrder(ui->mskDecorr, Pannello->Inizio().Casella());
    setTabOrder(Pannello->Inizio().Casella(), ui->chkSosp);
    ImpostaMenu(
        this,
        QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New, [this] { mnuNew_Click(); }},
                        {u"mnuPrint"_s, u"Stampa"_s, QKeySequence::Print, [this] { mnuPrint_Click(); }}} +
            Pannello->Comandi(ParteComandi()));
    ElencaArticoli();
    constexpr double Ingrandimento = 1.15;
    constexpr int RigheRisultato = 6;  // three links, a blank line before each
    Pannello->Prepara(Ingrandimento, RigheRisultato);
    ui->cmdCalend->setIcon(aspetto::Icona(u"calendario"_s));
    ui->Calendario->ImpostaNomeInizio(u"Udienza"_s);
    PreparaModulo(this, u"sequenz"_s);
    Collegamenti();
    ui->mskDecorr->ImpostaTesto(u"  /  /    "_s);
    ui->Calendario->ImpostaData(Oggi());
}

frmTerminiSeq::~frmTerminiSeq() = default;

void frmTerminiSeq::Collegamenti()
{
    CatenaInvio({ui->cmbArticolo, ui->mskDecorr, ui->chkSosp, ui->chkSabato}, [this] { cmdEsegui_Click(); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return DidascaliaPulita(Risultato); });
    ui->cmbArticolo->installEventFilter(this);
    ui->chkSosp->installEventFilter(this);

    const auto Cambiato = [this] { Pulisci(); };
    Pannello->Collegamenti(Cambiato);
    Collega(ui->cmbArticolo, &QComboBox::currentIndexChanged, this, [this] { CambiaCatena(); });
    for (const QCheckBox* Casella : {ui->chkSosp, ui->chkSabato})
        Collega(Casella, &QCheckBox::clicked, this, Cambiato);

    Collega(ui->cmdEsegui, &QPushButton::clicked, this, [this] { cmdEsegui_Click(); });
    Collega(ui->cmdAvvertenze, &QPushButton::clicked, this, [this] { cmdAvvertenze_Click(); });
    Collega(ui->cmdCalend, &QToolButton::clicked, this, [this] { cmdCalend_Click(); });
    Collega(ui->Calendario, &CalendarioMensile::DataScelta, this, [this] { ui->Calendario->hide(); });
}

void frmTerminiSeq::Mostra()
{
    ui->cmdAvvertenze->setEnabled(HaAvvertenze());
    if (!isVisible())
        Pannello->Comincia();
    MostraModulo(this);
}

bool frmTerminiSeq::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::FocusIn && (Oggetto == ui->chkSosp || Oggetto == ui->cmbArticolo))
        ui->Calendario->hide();
    return QDialog::eventFilter(Oggetto, Evento);
}

ParteTermini frmTerminiSeq::ParteSua()
{
    return {.Suffisso = SuffissoSequenziali,
            .TitoloScheda = u"CALCOLO TERMINI SEQUENZIALI"_s,
            .NormeCambiate = [this] { CambiaNorme(); },
            .Pulisci = [this] { Pulisci(); },
            .Chieste = [this] { return RigheChieste(); }};
}

OpzioniTermine frmTerminiSeq::Opzioni() const
{
    return {.Sospensione = ui->chkSosp->isChecked(), .Sabato = ui->chkSabato->isChecked()};
}

void frmTerminiSeq::Pulisci()
{
    Risultato.clear();
    Pannello->Togli();
}

void frmTerminiSeq::cmdEsegui_Click()
{
    Pannello->Calcola([this] { return Calcola(); });
}

bool frmTerminiSeq::Calcola()
{
    const QString Udienza = ui->mskDecorr->Testo();
    if (const auto Trovato = DifettoUdienza(Udienza)) {
        MsgErrore(Trovato->Messaggio);
        return false;
    }
    if (Pannello->Norme().InVigore())
        return CalcolaVigente();
    MostraScadenze(CalcolaSequenza(Udienza, ui->cmbArticolo->currentIndex(), Opzioni()));
    return true;
}

bool frmTerminiSeq::CalcolaVigente()
{
    const QList<TermineContato> Anelli =
        ContaCatena(InsiemeNorme::Vigenti, *Pannello->Norme().Lette(), *Catena(),
                    CDate(Pannello->Decorrenza()), Pannello->Materia(), Pannello->Inizio().Data());
    MostraRisultato(Anelli, TestoCatena(Anelli), NoteDi(Anelli));
    return true;
}

void frmTerminiSeq::MostraScadenze(const QList<ScadenzaAnello>& Calcolate)
{
    MostraRisultato(DelProgramma(), TestoSequenza(ui->cmbArticolo->currentIndex(), Calcolate),
                    SettembreSospeso(Calcolate) ? AvvisoSettembre.toString() : QString());
}

void frmTerminiSeq::MostraRisultato(const QList<TermineContato>& Calcolati, const QString& Testo,
                                    const QString& Avviso)
{
    Risultato = Testo;
    // One line end on screen: a label would show the carriage return as one more.
    Pannello->Mostra(Calcolati, QString(Testo).remove(u'\r'), Avviso);
}

void frmTerminiSeq::cmdCalend_Click()
{
    Pannello->AlternaCalendario();
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
    Pannello->Inizio().Svuota();
    ui->Calendario->hide();
    ui->cmbArticolo->setCurrentIndex(0);
    ui->chkSosp->setChecked(Sospensione);
    ui->chkSabato->setChecked(false);
    ui->cmbMateria->setCurrentIndex(0);
    Pulisci();
}

void frmTerminiSeq::mnuPrint_Click()
{
    if (Pannello->Norme().InVigore()) {
        MostraStampa(SuffissoSequenziali,
                     [this](Superficie& vp) { return StampaScheda(vp, Pannello->Scheda()); });
        return;
    }
    MostraStampa(SuffissoSequenziali, [this](Superficie& vp) {
        return StampaSequenza(vp, ui->mskDecorr->Testo(), ui->cmbArticolo->currentIndex(), Opzioni(),
                              Risultato, Pannello->AvvisoMostrato());
    });
}

// ---- norms ----------------------------------------------------------------------------------------

void frmTerminiSeq::ElencaArticoli()
{
    const QSignalBlocker Zitta(ui->cmbArticolo);
    ui->cmbArticolo->clear();
    if (Pannello->Norme().InVigore())
        for (const CatenaTermini& Una : Pannello->Norme().Lette()->Catene())
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
    const bool InVigore = Pannello->Norme().InVigore();
    ElencaArticoli();
    // Each link of a chain in force says itself whether suspension and Saturday count for it.
    for (QWidget* Campo : std::initializer_list<QWidget*>{ui->chkSosp, ui->lblSosp, ui->lblSabato})
        Campo->setEnabled(!InVigore);
    ui->chkSabato->setEnabled(!InVigore);
    Pannello->AbilitaSabato();
    CambiaCatena();
}

void frmTerminiSeq::CambiaCatena()
{
    const CatenaTermini* Una = Catena();
    // A chain in force may run from a notification.
    ui->lblDecorr->setText(Una ? u"Data:"_s : u"Data udienza:"_s);
    ui->lblEvento->setText(Una ? u"("_s + Una->Evento + u')' : QString());
    ui->Calendario->ImpostaNomeInizio(EventoMostrato());
    Pannello->Inizio().Mostra(Una && ChiedeInizio(*Pannello->Norme().Lette(), *Una));
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
    if (!Pannello->Norme().InVigore() || Quale < 0)
        return nullptr;
    return &Pannello->Norme().Lette()->Catene()[Quale];
}

/// The links with their steps, by the program's own rules.
QList<TermineContato> frmTerminiSeq::DelProgramma() const
{
    const ArticoloTermini& Articolo = Articoli()[size_t(ui->cmbArticolo->currentIndex())];
    QList<TermineContato> Tutti;
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = CDate(Pannello->Decorrenza());
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
    const auto Giorno = LeggiData(Pannello->Decorrenza());
    QStringList Righe{u"Termini: "_s + ui->cmbArticolo->currentText(),
                      EventoMostrato() + u": "_s + Format(Giorno.value_or(QDate()), ModelloData)};
    const auto SiNo = [](bool Segno) { return Segno ? u"Sì"_s : u"No"_s; };
    if (!Pannello->Norme().InVigore())
        Righe << u"Sospensione feriale: "_s + SiNo(Opzioni().Sospensione)
              << u"Proroga del sabato: "_s + SiNo(Opzioni().Sabato);
    return Righe;
}

// ---- sheet and list -------------------------------------------------------------------------------

ParteDelCalcolo frmTerminiSeq::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Sequenziali;
    Parte.Campi = {CampoDi(ui->cmbNorme),
                   CampoDi(ui->cmbArticolo),
                   Pannello->CampoMateria(),
                   Pannello->CampoDecorrenza(),
                   CampoDi(Pannello->Inizio().Casella()),
                   CampoDi(ui->chkSosp),
                   CampoDi(ui->chkSabato)};
    Parte.Nome = [this] {
        return ui->cmbArticolo->currentText() + u", "_s + EventoMostrato().toLower() + u" del "_s +
               Format(CDate(Pannello->Decorrenza()), ModelloData);
    };
    Parte.Prepara = [this] { Svuota(false); };
    Parte.Calcola = [this] { cmdEsegui_Click(); };
    return Parte;
}

#include "moc_frmTerminiSeq.cpp"
