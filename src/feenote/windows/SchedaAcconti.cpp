#include "feenote/windows/SchedaAcconti.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/file/nomenota.h"
#include "feenote/modAcconti.h"
#include "feenote/modAppunti.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modRighe.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/mostra.h"
#include "feenote/windows/righegriglia.h"
#include "feenote/windows/ui_SchedaAcconti.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// The controls of a tax.
struct ControlliImposta
{
    Imposta Tassa;
    QCheckBox* Ui::SchedaAcconti::*Tick;
    QLineEdit* Ui::SchedaAcconti::*Box;
};

constexpr std::array ControlliImposte{
    ControlliImposta{Imposta::SpeseGen, &Ui::SchedaAcconti::chkSpeseGen, &Ui::SchedaAcconti::txtSpeGen},
    ControlliImposta{Imposta::CP, &Ui::SchedaAcconti::chkCP, &Ui::SchedaAcconti::txtCP},
    ControlliImposta{Imposta::IVA, &Ui::SchedaAcconti::chkIva, &Ui::SchedaAcconti::txtIVA},
    ControlliImposta{Imposta::RA, &Ui::SchedaAcconti::chkRA, &Ui::SchedaAcconti::txtRA},
};

ColonnaGriglia ColonnaAcconto(const TabellaRighe* Tabella, const QString& Titolo, int Campo)
{
    ColonnaGriglia Colonna = ColonnaImporto(Titolo, Campo, true);
    Colonna.Mostra = [Tabella](const QVariant& Valore, int Riga) {
        return Riga < Tabella->Righe() ? TestoAcconto(Valore, (*Tabella)(Riga, AccValuta)) : QString();
    };
    Colonna.Valore = [](const QString& Testo) { return QVariant(Arrotonda2(NumeroDi(Testo))); };
    return Colonna;
}

QList<ColonnaGriglia> ColonneAcconti(const TabellaRighe* Tabella)
{
    ColonnaGriglia Valuta;
    Valuta.Titolo = u"Valuta"_s;
    Valuta.Campo = AccValuta;
    Valuta.Caratteri = 7;
    Valuta.Modificabile = true;
    Valuta.Filtro = u"LEle"_s;
    Valuta.Massimo = 1;
    Valuta.Maiuscole = true;
    Valuta.Valore = [](const QString& Testo) { return QVariant(Testo.trimmed().toUpper()); };
    Valuta.Mostra = [](const QVariant& Valore, int) {
        return Valore.isValid() ? ParolaValuta(Valore) : QString();
    };
    ColonnaGriglia Descr = ColonnaDescrizione(AccDescr);
    Descr.Massimo = MassimoBreve;
    return {Descr, Valuta, ColonnaAcconto(Tabella, u"Corrispettivi"_s, AccCorrispettivi),
            ColonnaAcconto(Tabella, u"Spese Imp."_s, AccSpeseImp),
            ColonnaAcconto(Tabella, u"Sp. Esenti"_s, AccSpeseEsenti)};
}

void AvvisaNotaGiudiziale()
{
    const int Risposta = MsgBoxPulsanti(
        u"Si consiglia di non esporre cassa previdenza e imposte nella nota giudiziale."_s,
        vbOKCancel + vbInformation, TitoloAvvertenza.toString(), {u" VEDI SCHEDA "_s, u"Chiudi"_s});
    if (Risposta == vbOK && Aperture.PaginaWeb)
        Aperture.PaginaWeb(sessione::PercorsoProg + u"SchedaNotaSpese.htm"_s,
                           u"KR5 - Scheda informativa nota spese giudiziale"_s);
}

void CancellaAcconti(Griglia* Elenco, TabellaRighe& Righe)
{
    const QList<int> Scelte = Elenco->Selezione();
    if (Scelte.isEmpty() || !ConfermaCancellazione(Scelte.size()))
        return;
    EliminaRighe(Righe, Scelte);
    Elenco->AzzeraSelezione();
    Elenco->Rilega();
}

/// A rate that is no number counts 0, and one above 100 is a slip of the pen: both stay, in another colour.
void SegnaPercento(QLineEdit* Box, const Casella& Dato)
{
    const bool NonNumero = !Dato.Testo.trimmed().isEmpty() && !IsNumeric(Dato.Testo);
    const bool Oltre = Dato.Numero() < 0 || Dato.Numero() > MassimoPercento;
    QPalette Colori;
    if (NonNumero || Oltre)
        Colori.setColor(QPalette::Text, aspetto::Sbagliato());
    Box->setPalette(Colori);
    Box->setToolTip(NonNumero ? u"Non è un numero: conta come 0"_s
                    : Oltre   ? u"La percentuale non è compresa tra 0 e 100"_s
                              : QString());
}

/// What the name alone does not say of the associated note: where it is, what it is about, what it comes to.
QString DettagliMultipla(const Parcella& Nota)
{
    const NotaAssociata& Altra = Nota.Multi;
    QStringList Righe{Nota.txtPathParcMult};
    if (!Altra.OggettoMulti.isEmpty())
        Righe.append(u"Oggetto: "_s + Altra.OggettoMulti);
    Righe.append(u"Totale: "_s +
                 TestoImporto(Altra.TotSpeseImpMulti + Altra.TotOnorariMulti + Altra.TotSpeseEsentiMulti));
    Righe.append(u"Click o Ctrl+Invio per aprirla, Canc per togliere l'associazione"_s);
    return Righe.join(u'\n');
}

}  // namespace

SchedaAcconti::SchedaAcconti(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre)
    : QWidget(Padre), Nota(Dati), Cornice(Finestra), ui(std::make_unique<Ui::SchedaAcconti>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->tdbAcconti, ui->txtSpeGen, ui->txtCP, ui->txtIVA, ui->txtRA});
    CollegaAcconti();
    CollegaImposte();
    CollegaMultipla();
}

SchedaAcconti::~SchedaAcconti() = default;

void SchedaAcconti::CollegaAcconti()
{
    Griglia* Righe = ui->tdbAcconti;
    Righe->ImpostaColonne(ColonneAcconti(&Nota.xAcconti));
    Righe->Lega(&Nota.xAcconti);
    Righe->ConsentiNuove(true);
    Righe->FraseVuota(u"Scrivere nella riga vuota gli acconti ricevuti."_s);
    Righe->NuovaRiga = [this](int Riga) { Nota.xAcconti(Riga, AccValuta) = QString(LetteraEuro); };
    Righe->LasciaRiga = [this](int Riga) {
        const TabellaRighe Prima = Nota.xAcconti;
        const bool Giusta = CheckAcconto(Nota.xAcconti, Riga);
        if (Giusta && Nota.xAcconti != Prima)
            Cornice.Riordinata();
        return Giusta;
    };
    Collega(Righe, &Griglia::CellaScritta, this, &SchedaAcconti::RigheScritte);
    Collega(Righe, &Griglia::ClicCella, this, &SchedaAcconti::tdbAcconti_Click);
    Collega(Righe, &Griglia::Cancella, this, &SchedaAcconti::tdbAcconti_Delete);
}

void SchedaAcconti::CollegaImposte()
{
    for (const ControlliImposta& Voce : ControlliImposte) {
        Collega((*ui).*Voce.Tick, &QCheckBox::clicked, this, [this, Voce](bool Attiva) {
            bool Avviso = false;
            Cornice.ApplicaStampa([&] { Avviso = ClicImposta(Nota, Voce.Tassa, Attiva); });
            if (Avviso)
                AvvisaNotaGiudiziale();
        });
        QLineEdit* Box = (*ui).*Voce.Box;
        Collega(Box, &QLineEdit::textEdited, this, [this, Voce, Box](const QString& Testo) {
            CambiaPercento(Nota, Voce.Tassa, Testo);
            SegnaPercento(Box, Nota.*DatiImposta(Voce.Tassa).Box);
            Cornice.Cambiata();
        });
        CampoPercento(Box, [this] {
            Cornice.Ricomponi();
            return true;
        });
    }
    Collega(ui->chkAcconti, &QCheckBox::clicked, this,
            [this](bool Attiva) { Cornice.ApplicaStampa([&] { CambiaAcconti(Nota, Attiva); }); });
    Collega(ui->chkMinMax, &QCheckBox::clicked, this,
            [this](bool Attiva) { Cornice.ApplicaStampa([&] { CambiaMinMax(Nota, Attiva); }); });
}

void SchedaAcconti::CollegaMultipla()
{
    optMultiAntPos = new QButtonGroup(ui->fraMultipla);
    optMultiAntPos->setObjectName(u"optMultiAntPos"_s);
    optMultiAntPos->addButton(ui->optMultiAntPos_0, 0);
    optMultiAntPos->addButton(ui->optMultiAntPos_1, 1);
    // What is printed beside a note is no change of it: nothing here marks it.
    Collega(optMultiAntPos, &QButtonGroup::idClicked, this, [this](int Dove) {
        Nota.optMultiAntPos = Dove;
        MostraMultipla();
        Cornice.Ricomponi();
    });
    Collega(ui->chkMultiParam, &QCheckBox::clicked, this, [this](bool Attivo) {
        Nota.chkMultiParam = Attivo;
        Cornice.Ricomponi();
    });
    Collega(ui->cmdOpenPar, &QToolButton::clicked, this, &SchedaAcconti::cmdOpenPar_Click);
    Collega(ui->cmdModPar, &QToolButton::clicked, this, [this] { Cornice.ApriMulti(); });
    Collega(ui->cmdNoMulti, &QToolButton::clicked, this, [this] { Cornice.EliminaMulti(); });
    Collega(ui->cmdRiassocia, &QPushButton::clicked, this,
            [this] { Cornice.AssociaNota(Nota.txtPathParcMult); });
    ui->txtParcMultipla->installEventFilter(this);
}

void SchedaAcconti::cmdOpenPar_Click()
{
    const bool Fuoco = ui->cmdOpenPar->hasFocus();
    ui->cmdOpenPar->setEnabled(false);
    const auto Riabilita = qScopeGuard([&] {
        ui->cmdOpenPar->setEnabled(true);
        if (Fuoco)
            ui->cmdOpenPar->setFocus();
    });
    Cornice.ScegliMulti();
}

bool SchedaAcconti::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    // A filter hears what a closed panel does not.
    if (Oggetto == ui->txtParcMultipla && Nota.Multipla() && ui->txtParcMultipla->isEnabled()) {
        if (Evento->type() == QEvent::KeyPress)
            return TastoSulNome(*static_cast<QKeyEvent*>(Evento));
        if (Evento->type() == QEvent::MouseButtonRelease)
            LasciatoSulNome(*static_cast<QMouseEvent*>(Evento));
    }
    return QWidget::eventFilter(Oggetto, Evento);
}

bool SchedaAcconti::TastoSulNome(const QKeyEvent& Tasto)
{
    const bool Invio = EInvio(Tasto.key());
    const Qt::KeyboardModifiers Con = Tasto.modifiers() & ~Qt::KeypadModifier;
    if (Invio && Con == Qt::ControlModifier)
        Cornice.ApriMulti();
    else if (Tasto.key() == Qt::Key_Delete && Con == Qt::NoModifier)
        Cornice.EliminaMulti();
    else
        return false;
    return true;
}

/// A click opens the note that it names; who drags over the name wants its letters.
void SchedaAcconti::LasciatoSulNome(const QMouseEvent& Tasto)
{
    const QLineEdit* Nome = ui->txtParcMultipla;
    if (Tasto.button() == Qt::LeftButton && Nome->rect().contains(Tasto.position().toPoint()) &&
        !Nome->hasSelectedText())
        QMetaObject::invokeMethod(
            this, [this] { Cornice.ApriMulti(); }, Qt::QueuedConnection);
}

/// A click on a currency changes it.
void SchedaAcconti::tdbAcconti_Click(int Riga, int Colonna)
{
    if (Colonna != AccValuta || Riga >= Nota.xAcconti.Righe())
        return;
    QVariant& Valuta = Nota.xAcconti(Riga, AccValuta);
    Valuta = AltraValuta(Valuta);
    RigheScritte();
    ui->tdbAcconti->Rilega();
}

void SchedaAcconti::tdbAcconti_Delete()
{
    const int Prima = Nota.xAcconti.Righe();
    CancellaAcconti(ui->tdbAcconti, Nota.xAcconti);
    if (Nota.xAcconti.Righe() != Prima)
        RigheScritte();
}

void SchedaAcconti::RigheScritte()
{
    SetModificata(Nota, true);
    Cornice.Cambiata();
}

void SchedaAcconti::NuovaNota()
{
    ui->tdbAcconti->Lega(&Nota.xAcconti);
}

QWidget* SchedaAcconti::Casella(CasellaNota Quale) const
{
    switch (Quale) {
    case CasellaNota::Acconti:
        return ui->tdbAcconti;
    case CasellaNota::SpeseGen:
        return ui->chkSpeseGen;
    case CasellaNota::CP:
        return ui->chkCP;
    case CasellaNota::Iva:
        return ui->chkIva;
    case CasellaNota::RA:
        return ui->chkRA;
    case CasellaNota::PercSpeseGen:
        return ui->txtSpeGen;
    case CasellaNota::PercCP:
        return ui->txtCP;
    case CasellaNota::PercIva:
        return ui->txtIVA;
    case CasellaNota::PercRA:
        return ui->txtRA;
    default:
        return nullptr;
    }
}

void SchedaAcconti::Mostra()
{
    ui->tdbAcconti->Rilega();
    for (const ControlliImposta& Voce : ControlliImposte) {
        mostra::Segno((*ui).*Voce.Tick, Nota.*DatiImposta(Voce.Tassa).Tick);
        mostra::Testo((*ui).*Voce.Box, Nota.*DatiImposta(Voce.Tassa).Box);
        SegnaPercento((*ui).*Voce.Box, Nota.*DatiImposta(Voce.Tassa).Box);
    }
    mostra::Segno(ui->chkAcconti, Nota.chkAcconti);
    mostra::Segno(ui->chkMinMax, Nota.chkMinMax);
    MostraMultipla();
}

void SchedaAcconti::MostraMultipla()
{
    const bool Associata = Nota.Multipla();
    const bool Principale = Cornice.HaStampa();
    ui->fraMultipla->setEnabled(Principale);
    ui->fraMultipla->setToolTip(
        Principale ? QString() : u"La parcella è aperta come multipla: si stampa con la sua principale"_s);
    mostra::Testo(ui->txtParcMultipla, {Nota.txtParcMultipla, true});
    ui->txtParcMultipla->setToolTip(Associata ? DettagliMultipla(Nota) : QString());
    ui->txtParcMultipla->setCursor(Associata ? Qt::PointingHandCursor : Qt::ArrowCursor);
    for (QWidget* Comando : std::initializer_list<QWidget*>{ui->cmdModPar, ui->cmdNoMulti, ui->chkMultiParam,
                                                            ui->optMultiAntPos_0, ui->optMultiAntPos_1})
        Comando->setEnabled(Associata);
    mostra::SceltaTra(optMultiAntPos, Nota.optMultiAntPos);
    mostra::Segno(ui->chkMultiParam, {Nota.chkMultiParam, Associata});
    // The path outlives the association in the file: the note comes without one, and may have it back.
    const bool Offerta = !Associata && !Nota.txtPathParcMult.isEmpty();
    ui->cmdRiassocia->setVisible(Offerta);
    if (Offerta)
        ui->cmdRiassocia->setText(u"Associa di nuovo: "_s +
                                  NomeMostrato(Nota.txtPathParcMult).replace(u'&', u"&&"_s));
}

#include "moc_SchedaAcconti.cpp"
