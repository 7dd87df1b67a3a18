#include "calculators/windows/frmContrib.h"

#include "calculators/modSchede.h"
#include "calculators/windows/comandicalcolo.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/pannellocontributo.h"
#include "calculators/windows/portanota.h"
#include "core/aperture.h"
#include "core/modLancio.h"
#include "core/sessione.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "calculators/windows/ui_frmContrib.h"
#include "platform/base/errore.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QToolButton>
#include <QWindow>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Where the top of the panel stands, in twips: on the upper half and on the lower one.
constexpr int TwipSopra = -40;
constexpr int TwipSotto = -4100;
constexpr int PassiBarra = 100;

/// A file of the folder of documents, whatever its case; full path.
QString DocumentoDiLegge(const QString& Nome)
{
    return TrovaFile(sessione::PercorsoProg + Barra(u"docum"_s) + Nome);
}

void ApriPagina(const QString& Nome, const QString& Titolo)
{
    Invoca(Aperture.PaginaWeb, DocumentoDiLegge(Nome), Titolo);
}

void ApriScheda()
{
    ApriPDF(DocumentoDiLegge(u"SchedaImpugnazioni.pdf"_s));
}

}  // namespace

frmContrib::frmContrib() : ui(std::make_unique<Ui::frmContrib>())
{
    ui->setupUi(this);
    constexpr double CorpoTitolo = 1.4;  // of the text's, however large that is
    QFont Grande = ui->lblTitolo->font();
    Grande.setPointSizeF(Grande.pointSizeF() * CorpoTitolo);
    ui->lblTitolo->setFont(Grande);
    Scelta = std::make_unique<SceltaNorme>(ui->cmbNorme, [this] { CambiaNorme(); });
    fraContrib = new PannelloContributo(ui->Picture1);
    ui->VScroll1->setRange(0, PassiBarra);
    ui->VScroll1->setPageStep(PassiBarra);
    ui->VScroll1->setTracking(false);
    ui->VScroll1->setFocusPolicy(Qt::StrongFocus);
    Comandi = new ComandiCalcolo(this, ParteComandi());
    ImpostaMenu(this, QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New,
                                       [this] { mnuNew_Click(); }}} +
                          Comandi->Voci());
    CollegaPorte();
    PreparaModulo(this, u"contrib"_s);
    Collegamenti();
    Comandi->Aggiorna();
}

frmContrib::~frmContrib()
{
    disconnect(qApp, nullptr, this, nullptr);
    delete Porte;  // a dialog that goes moves the focus once more
}

void frmContrib::Collegamenti()
{
    for (int i = 0; i < CampiContributo; ++i) {
        QLineEdit* Casella = fraContrib->txtValore(i);
        FiltraTasti(Casella, u","_s);
        AlLasciaSempre(Casella, [this, i] {
            txtValore_LostFocus(i);
            return true;
        });
        Collega(Casella, &QLineEdit::textChanged, this, [this, i] { AbilitaCopia(i); });
        AbilitaCopia(i);
        if (i > 0)
            CopiaConClic(fraContrib->cmdCopia(i), [this, i] { return Contributi[size_t(i)]; });
    }
    // From value to value, past the copy buttons, whose Enter would overwrite the clipboard; from the last
    // one back to the first, as there is nothing to calculate but what leaving a value calculates.
    QList<QWidget*> Valori;
    for (int i = 0; i < CampiContributo; ++i)
        Valori << fraContrib->txtValore(i);
    CatenaInvio(Valori, [this] { fraContrib->txtValore(0)->setFocus(Qt::TabFocusReason); });
    // The first button and Ctrl+C take the fee of the row that has the focus.
    CopiaRisultato(this, fraContrib->cmdCopia(0), [this] { return TestoCopia(); });
    for (QPushButton* Bottone : {ui->cmdSkImpugn, ui->cmdVisual_0, ui->cmdVisual_1}) {
        // None of them is what Enter in the page means; on the button itself it presses it.
        Bottone->setAutoDefault(false);
        Bottone->installEventFilter(this);
    }
    Collega(ui->cmdSkImpugn, &QPushButton::clicked, this, &ApriScheda);
    Collega(ui->cmdVisual_0, &QPushButton::clicked, this, [] {
        ApriPagina(u"Tabella contributo unificato.htm"_s, u"KR6 - Contributo unificato - Tabella"_s);
    });
    Collega(ui->cmdVisual_1, &QPushButton::clicked, this, [] {
        ApriPagina(u"D.P.R. n. 115 del 30.5.2002 (stralcio, contributo unificato).htm"_s,
                   u"KR6 - Contributo unificato - Decreto"_s);
    });

    Collega(ui->fraVigente, &PannelloVigente::Calcolato, this, [this] { Comandi->Aggiorna(); });
    ui->fraVigente->ValoreLasciato = [this] { Comandi->RicordaDopo(); };
    Collega(ui->VScroll1, &QScrollBar::valueChanged, this, &frmContrib::VScroll1_Change);
    Collega(ui->Picture1, &Finestrella::Misurata, this, &frmContrib::ImpostaMisura);
    Collega(ui->Picture1, &Finestrella::Rotella, this, [this](int Gradi) { Scorri(Gradi / 2); });
    Collega(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, const QWidget* Nuovo) { FaiVedere(Nuovo); });
    Collega(qApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* Davanti) {
        if (Davanti && Davanti != windowHandle() && !Davanti->isModal() && Davanti->type() == Qt::Window)
            DaAltraFinestra = true;
    });
}

void frmContrib::Mostra()
{
    if (!isVisible())
        Scelta->Comincia();
    MostraModulo(this);
}

/// The fees in force come beside the page, which stays as it is.
void frmContrib::CambiaNorme()
{
    if (Scelta->InVigore())
        ui->fraVigente->Imposta(Scelta->Lette());
    ui->fraVigente->setVisible(Scelta->InVigore());
    Comandi->Aggiorna();
}

bool frmContrib::event(QEvent* Evento)
{
    // It computes as it is written in: what is on view at the end is a calculation too.
    if (Evento->type() == QEvent::Close)
        RicordaCalcolati();
    const bool Trattato = QDialog::event(Evento);
    if (Evento->type() == QEvent::WindowActivate && std::exchange(DaAltraFinestra, false))
        fraContrib->txtValore(0)->setFocus();
    return Trattato;
}

bool frmContrib::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    auto* Bottone = qobject_cast<QPushButton*>(Oggetto);
    if (!Bottone || Evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(Oggetto, Evento);
    const int Tasto = static_cast<QKeyEvent*>(Evento)->key();
    if (!EInvio(Tasto))
        return QDialog::eventFilter(Oggetto, Evento);
    Bottone->click();
    return true;
}

// ---- fees ---------------------------------------------------------------------------------------

void frmContrib::txtValore_LostFocus(int Indice)
{
    QLineEdit* Casella = fraContrib->txtValore(Indice);
    Casella->setText(ValoreLasciato(Casella->text()));
    const TestiContributo Prima = Contributi;
    {
        // The fees above one that fails are written all the same.
        const auto Mostra = qScopeGuard([this] { MostraContributi(); });
        CalcolaContributi(Valori(), Contributi);
        Calcolati = Valori();
    }
    if (Contributi != Prima && !Contributi[size_t(Indice)].isEmpty())
        AnnunciaRisultato(fraContrib->lblContr(Indice));
    Comandi->RicordaDopo();
}

TestiContributo frmContrib::Valori() const
{
    TestiContributo Scritti;
    for (int i = 0; i < CampiContributo; ++i)
        Scritti[size_t(i)] = fraContrib->txtValore(i)->text();
    return Scritti;
}

void frmContrib::MostraContributi()
{
    for (int i = 0; i < CampiContributo; ++i) {
        fraContrib->lblContr(i)->setText(Contributi[size_t(i)]);
        fraContrib->lblContr(i)->setAccessibleName((u"Contributo "_s + Contributi[size_t(i)]).trimmed());
        fraContrib->txtValore(i)->setAccessibleDescription(
            Contributi[size_t(i)].isEmpty() ? QString() : u"Contributo: "_s + Contributi[size_t(i)]);
        AbilitaCopia(i);
    }
    Comandi->Aggiorna();
}

/// A value that is being typed can be copied from too: the click on the button leaves it, which computes the
/// fee.
void frmContrib::AbilitaCopia(int Indice)
{
    fraContrib->cmdCopia(Indice)->setEnabled(!Contributi[size_t(Indice)].isEmpty() ||
                                             !fraContrib->txtValore(Indice)->text().isEmpty());
    Porte->Aggiorna();
}

/// A value that is still being typed has the fee of the one before beside it: the two are no calculation.
void frmContrib::RicordaCalcolati()
{
    if (Valori() == Calcolati)
        Comandi->Ricorda();
}

// The tax appeal stays: this entry has always left it.
void frmContrib::mnuNew_Click()
{
    RicordaCalcolati();
    for (int i = 0; i < CampoTributario; ++i) {
        fraContrib->txtValore(i)->clear();
        Contributi[size_t(i)].clear();
    }
    Calcolati = Valori();
    MostraContributi();
    ui->fraVigente->Svuota();
    Campanello();
    fraContrib->txtValore(0)->setFocus();
}

/// The fee of the row or panel that has the focus, that of the first row elsewhere.
QString frmContrib::TestoCopia() const
{
    const QWidget* Fuoco = QApplication::focusWidget();
    if (ui->fraVigente->isAncestorOf(Fuoco))
        return ui->fraVigente->Importo();
    for (int i = 0; i < CampiContributo; ++i)
        if (Fuoco == fraContrib->txtValore(i) || Fuoco == fraContrib->cmdCopia(i))
            return Contributi[size_t(i)];
    return Contributi[0];
}

// ---- scrolling ----------------------------------------------------------------------------------

/// The lower position: where it has always been, or as far as it takes to show the end in a small window.
int frmContrib::AltoInFondo() const
{
    return std::min(aspetto::Pixel(TwipSotto), ui->Picture1->height() - fraContrib->height());
}

int frmContrib::AltoInCima()
{
    return aspetto::Pixel(TwipSopra);
}

void frmContrib::ImpostaMisura()
{
    ui->Picture1->setMinimumWidth(fraContrib->minimumSizeHint().width());
    fraContrib->Allarga(ui->Picture1->width());
    if (UltimoScorrimento == ui->VScroll1->minimum())
        ScorriA(AltoInCima());
    else
        ScorriA(UltimoScorrimento == ui->VScroll1->maximum() ? AltoInFondo() : fraContrib->y());
}

void frmContrib::ScorriA(int Alto)
{
    fraContrib->move(0, std::clamp(Alto, AltoInFondo(), AltoInCima()));
    SegnaPosto();
}

/// The bar stands where the page does. Between the two halves it is at neither end, so that both its arrows
/// move it.
void frmContrib::SegnaPosto()
{
    const int Corsa = AltoInCima() - AltoInFondo();
    const int Fatta = AltoInCima() - fraContrib->y();
    int Valore = 0;
    if (Corsa > 0 && Fatta >= Corsa)
        Valore = PassiBarra;
    else if (Corsa > 0 && Fatta > 0)
        Valore = std::clamp(Fatta * PassiBarra / Corsa, 1, PassiBarra - 1);
    const QSignalBlocker Zitta(ui->VScroll1);
    ui->VScroll1->setValue(Valore);
    UltimoScorrimento = Valore;
}

void frmContrib::VScroll1_Change()
{
    ScorriA(ui->VScroll1->value() > UltimoScorrimento ? AltoInFondo() : AltoInCima());
}

/// The wheel moves the page itself, so that a small window shows what lies between the two halves.
void frmContrib::Scorri(int Passo)
{
    ScorriA(fraContrib->y() + Passo);
}

/// A field that gets the focus comes into view.
void frmContrib::FaiVedere(const QWidget* Campo)
{
    if (!Campo || !fraContrib->isAncestorOf(Campo))
        return;
    const int Alto = Campo->mapTo(ui->Picture1, QPoint()).y();
    const int Sotto = Alto + Campo->height() + aspetto::Bordo - ui->Picture1->height();
    if (Alto < 0)
        ScorriA(fraContrib->y() - Alto + aspetto::Bordo);
    else if (Sotto > 0)
        ScorriA(fraContrib->y() - Sotto);
}

// ---- sheet and list -----------------------------------------------------------------------------

ParteDelCalcolo frmContrib::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Contributo;
    Parte.Continua = true;
    Parte.Campi << CampoDi(ui->cmbNorme);
    for (int i = 0; i < CampiContributo; ++i)
        Parte.Campi << CampoDi(fraContrib->txtValore(i));
    const auto ConPannello = std::make_shared<bool>(false);  // what is taken up has it
    for (QWidget* Campo : ui->fraVigente->Campi()) {
        // The panel counts while it is there.
        CampoRicordato DelPannello = CampoDi(Campo);
        DelPannello.Leggi = [this, Leggi = DelPannello.Leggi] {
            return Scelta->InVigore() && !ui->fraVigente->Importo().isEmpty() ? Leggi() : QString();
        };
        DelPannello.Scrivi = [this, Campo, ConPannello, Scrivi = DelPannello.Scrivi](const QString& Valore) {
            // The procedure comes first. Ticks alone may be empty in a calculation that has the panel.
            if (Campo == ui->fraVigente->Campi().first())
                *ConPannello = !Valore.isEmpty();
            const bool Lascia = Valore.isEmpty() && !(*ConPannello && qobject_cast<QAbstractButton*>(Campo));
            return !Scelta->InVigore() || Lascia || Scrivi(Valore);
        };
        Parte.Campi << DelPannello;
    }
    Parte.Nome = [this] {
        if (Scelta->InVigore() && !ui->fraVigente->Importo().isEmpty())
            return ui->fraVigente->Chiesto();
        QStringList Nomi;
        for (int i = 0; i < CampiContributo; ++i)
            if (!ContributiChiesti()[size_t(i)].isEmpty())
                Nomi << TitoloCampo(i) + u", valore "_s + fraContrib->txtValore(i)->text();
        return Nomi.join(u"; "_s);
    };
    Parte.Esito = [this] {
        QStringList Importi;
        if (Scelta->InVigore() && !ui->fraVigente->Importo().isEmpty())
            Importi << ui->fraVigente->Importo();
        for (const QString& Contributo : ContributiChiesti())
            if (!Contributo.isEmpty())
                Importi << Contributo;
        return Importi.isEmpty() ? QString() : Importi.join(u"; "_s) + u" euro"_s;
    };
    Parte.Scheda = [this] { return Scheda(); };
    Parte.Suffisso = u": contributo unificato"_s;
    Parte.Prepara = [this] { Svuota(); };
    Parte.Calcola = [this] { txtValore_LostFocus(0); };
    return Parte;
}

/// All fields, the tax appeal too.
void frmContrib::Svuota()
{
    for (int i = 0; i < CampiContributo; ++i)
        fraContrib->txtValore(i)->clear();
    Contributi = {};
    Calcolati = {};
    MostraContributi();
    ui->fraVigente->Svuota();
}

/// The fees on the page that have their value beside them: that of the tax appeal stays on the page without.
TestiContributo frmContrib::ContributiChiesti() const
{
    TestiContributo Chiesti = Contributi;
    for (int i = 0; i < CampiContributo; ++i)
        if (fraContrib->txtValore(i)->text().isEmpty())
            Chiesti[size_t(i)].clear();
    return Chiesti;
}

SchedaCalcolo frmContrib::Scheda() const
{
    SchedaCalcolo Tutta = SchedaContributo(Valori(), ContributiChiesti());
    if (Scelta->InVigore() && !ui->fraVigente->Importo().isEmpty()) {
        Tutta.Sezioni << ui->fraVigente->Sezione();
        Tutta.EtaDati = ui->fraVigente->EtaNote();
    }
    return Tutta;
}

#include "moc_frmContrib.cpp"
