#include "feenote/windows/SchedaDatiBase.h"

#include "addressbook/windows/camporubrica.h"
#include "core/aperture.h"
#include "feenote/modCambioTariffa.h"
#include "feenote/modParametri.h"
#include "feenote/modParti.h"
#include "feenote/modVariazione.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/mostra.h"
#include "feenote/windows/rigaofferta.h"
#include "feenote/windows/ui_SchedaDatiBase.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/kit/scelta.h"
#include "platform/kit/suggerimento.h"

#include <QButtonGroup>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A text box of the note that needs no rule of its own.
struct CasellaTesto
{
    QLineEdit* Ui::SchedaDatiBase::*Box;
    ParteNota Quale;
};

constexpr std::array CaselleTesto{
    CasellaTesto{&Ui::SchedaDatiBase::txtCliente, ParteNota::Cliente},
    CasellaTesto{&Ui::SchedaDatiBase::txtControp, ParteNota::Controparte},
    CasellaTesto{&Ui::SchedaDatiBase::txtOggetto, ParteNota::Oggetto},
};

/// A text that its box cuts shows its beginning once it is left, and is read whole in the tooltip.
class TestoIntero : public QObject
{
public:
    explicit TestoIntero(QLineEdit* Box) : QObject(Box) { Box->installEventFilter(this); }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        // A box that is being destroyed loses the focus too, and is no line edit any more.
        auto* Box = qobject_cast<QLineEdit*>(Oggetto);
        if (!Box)
            return QObject::eventFilter(Oggetto, Evento);
        // Of a name that was typed to its end one reads the beginning afterwards.
        if (Evento->type() == QEvent::FocusOut && LasciaDavvero(*static_cast<QFocusEvent*>(Evento)))
            Box->setCursorPosition(0);
        if (Evento->type() != QEvent::ToolTip)
            return QObject::eventFilter(Oggetto, Evento);
        constexpr int Margini = 8;
        constexpr qsizetype Massimo = 500;
        const QString Testo = Box->text();
        if (Box->fontMetrics().horizontalAdvance(Testo) > Box->width() - Margini)
            QToolTip::showText(static_cast<QHelpEvent*>(Evento)->globalPos(), SuPiuRighe(Testo.left(Massimo)),
                               Box);
        else
            QToolTip::hideText();
        return true;
    }
};

/// Entries of cmbAumRid.
QStringList SegniAumRid()
{
    return {u"+"_s, u"-"_s};
}

QStringList NomiTariffe()
{
    QStringList Nomi;
    for (const Decreto* Legge : Decreti)
        Nomi.append(Legge->Nome.toString());
    return Nomi;
}

/// Property of a button that was made for an option of a database.
constexpr auto DiTabella = "diTabella";

/// How much an option may be.
QString MisuraDi(const OpzioneAumRid& Opzione)
{
    const QStringList Limiti = QString(Opzione.Limiti).remove(u'-').split(u';');
    const QString Massimo = Opzione.Esatto != 0 ? CStr(Arrotonda2(Opzione.Esatto)) : Limiti.first();
    return Limiti.first() == Limiti.last() ? u"%1%, in misura fissa"_s.arg(Massimo)
                                           : u"fino al %1%"_s.arg(Massimo);
}

QStringList TestiAutorita(const Parcella& Nota)
{
    QStringList Testi;
    for (const Autorita& Voce : Nota.ListaAutorita)
        Testi.append(Voce.DesAut);
    return Testi;
}

QStringList TestiScaglioni(const Parcella& Nota)
{
    QStringList Testi;
    for (const ScaglioneValore& Voce : Nota.ListaScaglioni)
        Testi.append(Voce.DesVal);
    return Testi;
}

}  // namespace

SchedaDatiBase::SchedaDatiBase(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre)
    : QWidget(Padre), Nota(Dati), Cornice(Finestra), ui(std::make_unique<Ui::SchedaDatiBase>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->txtAumRid, ui->txtParti});
    CollegaParti();
    CollegaParametri();
    CollegaScaglione();
    CollegaTariffa();
    CollegaVariazione();
    CollegaParte();
}

SchedaDatiBase::~SchedaDatiBase() = default;

void SchedaDatiBase::CollegaParti()
{
    for (const CasellaTesto& Voce : CaselleTesto) {
        QLineEdit* Box = (*ui).*Voce.Box;
        Collega(Box, &QLineEdit::textEdited, this, [this, Voce](const QString& Testo) {
            CambiaParte(Nota, Voce.Quale, Testo);
            Cornice.Cambiata();
            MostraRubrica();
        });
        FiltraTasti(Box, {});
        new TestoIntero(Box);
    }
    const std::array Visualizza{ui->cmdVisCliCon_0, ui->cmdVisCliCon_1};
    const std::array Inserisci{ui->cmdInsCliCon_0, ui->cmdInsCliCon_1};
    const std::array Modifica{ui->cmdModCliCon_0, ui->cmdModCliCon_1};
    const auto Apre = [this](QToolButton* Bottone, int Elemento, const QString& MenuStart) {
        Collega(Bottone, &QToolButton::clicked, this,
                [=, this] { Cornice.CliCon(Elemento, false, MenuStart); });
    };
    for (int i = 0; i < int(Visualizza.size()); ++i) {
        Apre(Visualizza[size_t(i)], i, {});
        Apre(Inserisci[size_t(i)], i, u"new"_s);
        Apre(Modifica[size_t(i)], i, u"edit"_s);
    }
    CollegaRubrica();
}

void SchedaDatiBase::CollegaRubrica()
{
    struct VoceRubrica
    {
        ParteNota Parte;
        QLineEdit* Box;
        QToolButton* Modifica;
        QString Tabella;
    };
    for (const VoceRubrica& Voce :
         {VoceRubrica{ParteNota::Cliente, ui->txtCliente, ui->cmdModCliCon_0, u"clienti"_s},
          VoceRubrica{ParteNota::Controparte, ui->txtControp, ui->cmdModCliCon_1, u"controparti"_s}}) {
        const ParteNota Parte = Voce.Parte;
        const int Elemento = int(Parte);
        Rubriche[size_t(Elemento)] = new CampoRubrica(
            Voce.Box, Voce.Tabella, Voce.Modifica,
            {.Apri = [=, this] { Cornice.CliCon(Elemento, false, {}); },
             .Scheda =
                 [=, this] {
                     Cornice.CliCon(Elemento, false, LegameParte(Nota, Parte) > 0 ? u"edit"_s : u"new"_s);
                 },
             .Scegli = [=, this](int Chiave) { Cornice.ScegliNome(Elemento, Chiave); },
             .Scollega = [=, this] { Cornice.ApplicaStampa([&] { ScollegaParte(Nota, Parte); }); }});
    }
}

/// With lines in the note a change asks, refuses or reckons anew: the user first goes where he wants.
bool SchedaDatiBase::ConRighe() const
{
    return !Nota.xOnorari.Vuota() || !Nota.xDiritti.Vuota();
}

void SchedaDatiBase::CollegaParametri()
{
    ui->cmbCateg->addItems(VociCategoria());
    ui->cmbCateg->setCurrentIndex(NessunaVoce);
    const auto Parametro = [this](QComboBox* Lista, auto Cambia) {
        AlScegliere(
            Lista, [=, this](int Scelta, ModoScelta) { Cornice.Applica([&] { Cambia(Nota, Scelta); }); },
            [this] { return ConRighe(); });
    };
    Parametro(ui->cmbCateg, CambiaCategoria);
    Parametro(ui->cmbAutor, CambiaAutorita);
    Parametro(ui->cmbValore, CambiaScaglione);
    Collega(ui->txtImporto, &QLineEdit::textEdited, this, [this](const QString& Testo) {
        Nota.txtImporto.Testo = Testo;
        SetModificata(Nota, true);
        Cornice.Cambiata();
        MostraScaglione();
    });
    mostra::LarghezzaImporto(ui->txtImporto);
    CampoNumericoSempre(ui->txtImporto, [this] {
        txtImporto_LostFocus();
        return true;
    });
}

/// Leaving the box chooses the bracket; until then it is named beside it, and can be taken at once.
void SchedaDatiBase::CollegaScaglione()
{
    ui->cmdScaglione->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ui->cmdScaglione->setFocusPolicy(Qt::NoFocus);  // Tab out of the box does the same
    const auto Scegli = [this] { txtImporto_LostFocus(); };
    Collega(ui->cmdScaglione, &QToolButton::clicked, this, Scegli);
    auto* Tasti = new QShortcut(ui->txtImporto);
    Tasti->setKeys(BottoneOfferta::Tasti());
    Tasti->setContext(Qt::WidgetShortcut);
    Collega(Tasti, &QShortcut::activated, this, Scegli);
    MostraScaglione();
}

void SchedaDatiBase::MostraScaglione()
{
    const int Proposto = ScaglioneProposto(Nota);
    const QString Limiti = Proposto == NessunaVoce ? QString() : Nota.ListaScaglioni[Proposto].DesVal;
    const QString Testo = Limiti.isEmpty() ? QString() : u"Scaglione: "_s + Limiti;
    ui->cmdScaglione->MostraForme(Testo, Limiti.isEmpty() ? QStringList() : ScaglioneInBreve(Limiti));
    ui->cmdScaglione->setToolTip(u"Sceglie lo scaglione di questo valore: "_s + Limiti);
    ui->cmdScaglione->setAccessibleName(Testo.isEmpty() ? u"Scaglione del valore"_s : Testo);
    ui->cmdScaglione->setVisible(!Testo.isEmpty());
    // In a narrow window the value gives way to the offer, while there is one.
    ui->txtImporto->setMinimumWidth(Testo.isEmpty()
                                        ? ui->txtImporto->maximumWidth()
                                        : ui->txtImporto->fontMetrics().horizontalAdvance(u"9.999.999,99"_s));
    ui->txtImporto->setAccessibleDescription(Testo);
}

void SchedaDatiBase::CollegaTariffa()
{
    ui->cmbTariffa->addItems(NomiTariffe());
    AlScegliere(
        ui->cmbTariffa,
        [this](int Scelta, ModoScelta) {
            Cornice.Applica([&] { (void)CambiaTariffa(Nota, *Decreti[size_t(Scelta)]); });
        },
        [this] { return ConRighe(); });
    ui->cmdTariffa->setText(u"Tariffa: %1 - cambia"_s.arg(Decreti.front()->Nome));
    Collega(ui->cmdTariffa, &QToolButton::clicked, this, [this] { Cornice.ScegliTariffa(); });
}

QRadioButton* SchedaDatiBase::BottoneFisso(int Numero) const
{
    const std::array Fissi{ui->optAumRid_0, ui->optAumRid_1, ui->optAumRid_2, ui->optAumRid_3,
                           ui->optAumRid_4, ui->optAumRid_5, ui->optAumRid_6, ui->optAumRid_7,
                           ui->optAumRid_8, ui->optAumRid_9, ui->optAumRid_10};
    static_assert(Fissi.size() == NumAumRid);
    return Numero >= 0 && Numero < NumAumRid ? Fissi[size_t(Numero)] : nullptr;
}

void SchedaDatiBase::CollegaVariazione()
{
    OpzioniMostrate = OpzioniAumRid();
    optAumRid = new QButtonGroup(this);
    optAumRid->setObjectName(u"optAumRid"_s);
    for (const OpzioneAumRid& Opzione : std::as_const(OpzioniMostrate))
        optAumRid->addButton(BottoneFisso(Opzione.Numero), Opzione.Numero);
    Collega(optAumRid, &QButtonGroup::idClicked, this,
            [this](int Scelta) { Cornice.Applica([&] { ScegliAumRid(Nota, Scelta); }); });

    ui->cmbAumRid->addItems(SegniAumRid());
    ui->cmbAumRid->setCurrentIndex(NessunaVoce);
    AlScegliere(
        ui->cmbAumRid, [this](int Segno, ModoScelta) { cmbAumRid_Click(Segno); },
        [this] { return ConRighe(); });

    // What is pasted is whole digits too: a sign of its own would turn the one of the list round.
    FiltraTasti(ui->txtAumRid, u"1234567890"_s);
    ui->txtAumRid->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), ui->txtAumRid));
    Collega(ui->txtAumRid, &QLineEdit::textEdited, this,
            [this](const QString& Testo) { Cornice.Applica([&] { CambiaTestoAumRid(Nota, Testo); }); });
    AlLasciaSempre(ui->txtAumRid, [this] { return txtAumRid_LostFocus(); });
}

void SchedaDatiBase::CollegaParte()
{
    FiltraTasti(ui->txtParti, u"1234567890"_s);
    ui->txtParti->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), ui->txtParti));
    Collega(ui->txtParti, &QLineEdit::textEdited, this, [this](const QString& Testo) {
        Nota.txtParti.Testo = Testo;
        SetModificata(Nota, true);
        Cornice.Cambiata();
    });
    AlLasciaSempre(ui->txtParti, [this] {
        if (ui->txtParti->text() != QString::number(Nota.PartiAssistite))
            Cornice.Applica([&] { LasciaParti(Nota); });
        return true;
    });
}

/// A box that a rule has emptied, or whose bracket went with the category, is left like one typed in.
void SchedaDatiBase::txtImporto_LostFocus()
{
    if (ui->txtImporto->isModified() || ImportoInSospeso(Nota))
        Cornice.Applica([&] { LasciaImporto(Nota); });
}

/// With no percent yet the sign waits for one: leaving an empty box would take it away again.
void SchedaDatiBase::cmbAumRid_Click(int Segno)
{
    Cornice.Applica([&] {
        CambiaSegnoAumRid(Nota, Segno);
        if (!Nota.txtAumRid.Testo.isEmpty())
            LasciaAumRid(Nota);
    });
}

/// A limit that a refusal has put into the box is no edit of the user's, and yet comes into force.
bool SchedaDatiBase::txtAumRid_LostFocus()
{
    if (!VariazioneInSospeso(Nota))
        return true;
    bool Accettata = true;
    Cornice.Applica([&] {
        LasciaAumRid(Nota);
        Accettata = Nota.Fuoco != CampoNota::Variazione;
    });
    return Accettata;
}

QWidget* SchedaDatiBase::CasellaDi(CampoNota Campo) const
{
    switch (Campo) {
    case CampoNota::Nessuno:
        return nullptr;
    case CampoNota::Categoria:
        return ui->cmbCateg;
    case CampoNota::Autorita:
        return ui->cmbAutor;
    case CampoNota::Valore:
        return ui->txtImporto;
    case CampoNota::Variazione:
        return ui->txtAumRid;
    case CampoNota::Cliente:
        return ui->txtCliente;
    case CampoNota::Controparte:
        return ui->txtControp;
    case CampoNota::Oggetto:
        return ui->txtOggetto;
    }
    return nullptr;
}

QWidget* SchedaDatiBase::CasellaIniziale() const
{
    for (QLineEdit* Campo : {ui->txtCliente, ui->txtControp, ui->txtOggetto})
        if (Campo->isEnabled() && !Campo->isReadOnly() && Campo->text().isEmpty())
            return Campo;
    return ui->txtCliente;
}

QWidget* SchedaDatiBase::Casella(CasellaNota Quale) const
{
    switch (Quale) {
    case CasellaNota::Cliente:
        return ui->txtCliente;
    case CasellaNota::Controparte:
        return ui->txtControp;
    default:
        return nullptr;
    }
}

void SchedaDatiBase::Mostra()
{
    MostraParti();
    mostra::Elenco(ui->cmbCateg, VociCategoria(), Nota.cmbCateg, true);
    mostra::Elenco(ui->cmbAutor, TestiAutorita(Nota), Nota.cmbAutor, Nota.cmbAutorAbilitata);
    mostra::Elenco(ui->cmbValore, TestiScaglioni(Nota), Nota.cmbValore, Nota.cmbValoreAbilitata);
    mostra::Testo(ui->txtImporto, Nota.txtImporto);
    MostraScaglione();

    MostraTariffa();
    MostraOpzioni();
    MostraParte();
    mostra::SceltaTra(optAumRid, Nota.AumRidIdx);
    mostra::Elenco(ui->cmbAumRid, SegniAumRid(), Nota.cmbAumRid, Nota.cmbAumRidAbilitata);
    mostra::Testo(ui->txtAumRid, Nota.txtAumRid);
}

void SchedaDatiBase::MostraTariffa()
{
    const auto* const Suo = std::ranges::find(Decreti, Nota.Tariffa);
    mostra::Elenco(ui->cmbTariffa, NomiTariffe(), int(Suo - Decreti.begin()), true);
    // Until the office has chosen, a new note leads to the choice; whatever stands in a file has its own.
    const bool DaScegliere = !DecretoScelto() && Nota.Percorso.isEmpty() && Nota.Tariffa == &DecretoNuove();
    QPalette Colori = palette();
    Colori.setColor(QPalette::ButtonText, aspetto::Accento());  // what leads elsewhere
    ui->cmdTariffa->setPalette(Colori);
    ui->cmdTariffa->setVisible(DaScegliere);
    ui->lblTariffa->setVisible(!DaScegliere);
    ui->cmbTariffa->setVisible(!DaScegliere);
}

void SchedaDatiBase::MostraOpzioni()
{
    const QList<OpzioneAumRid> Offerte = OpzioniAumRid(Nota);
    if (Offerte == OpzioniMostrate)
        return;
    OpzioniMostrate = Offerte;
    // What comes and goes under the pointer may be in the middle of a click.
    for (QAbstractButton* Bottone : optAumRid->buttons()) {
        optAumRid->removeButton(Bottone);
        Bottone->hide();
        if (!Bottone->property(DiTabella).toBool())
            continue;
        Bottone->setObjectName({});
        Bottone->deleteLater();
    }
    QWidget* Prima = ui->txtImporto;
    for (const OpzioneAumRid& Opzione : Offerte) {
        QRadioButton* Bottone = BottoneFisso(Opzione.Numero);
        if (!Bottone)
            Bottone = NuovoBottone(Opzione);
        optAumRid->addButton(Bottone, Opzione.Numero);
        Bottone->show();
        setTabOrder(Prima, Bottone);
        Prima = Bottone;
    }
    setTabOrder(Prima, ui->cmbAumRid);
    // A list that is longer than the usual ones moves together rather than out of the page.
    constexpr qsizetype RigheComode = 6;
    constexpr int SpazioComodo = 4;
    qsizetype PiuLunga = 0;
    for (QGroupBox* Gruppo : {ui->fraAumenti, ui->fraRiduzioni}) {
        const auto Quante = std::ranges::count(Offerte, Gruppo->title(), &OpzioneAumRid::Gruppo);
        Gruppo->setVisible(Quante > 0);
        PiuLunga = std::max(PiuLunga, Quante);
    }
    for (QVBoxLayout* Colonna : {ui->colAumenti, ui->colRiduzioni})
        Colonna->setSpacing(PiuLunga > RigheComode ? 0 : SpazioComodo);
}

/// A button for an option of the decree's own, in the frame of its sign, above what fills the room below.
QRadioButton* SchedaDatiBase::NuovoBottone(const OpzioneAumRid& Opzione)
{
    const bool Aumento = Opzione.Gruppo == ui->fraAumenti->title();
    auto* Bottone = new QRadioButton(QString(Opzione.Didascalia).replace(u'&', u"&&"_s),
                                     Aumento ? ui->fraAumenti : ui->fraRiduzioni);
    Bottone->setObjectName(u"optAumRid_%1"_s.arg(Opzione.Numero));
    Bottone->setProperty(DiTabella, true);
    QFont Solita = font();
    Solita.setBold(false);  // the frame's is that of its title
    Bottone->setFont(Solita);
    Bottone->setToolTip(MisuraDi(Opzione));
    QVBoxLayout* Colonna = Aumento ? ui->colAumenti : ui->colRiduzioni;
    Colonna->insertWidget(Colonna->count() - 1, Bottone);
    return Bottone;
}

void SchedaDatiBase::MostraParte()
{
    // What the file has kept is seen too, where the database does not say it any more.
    const int Aumento = AumentoParti(Nota);
    for (QWidget* Casella : std::initializer_list<QWidget*>{ui->lblParti, ui->txtParti, ui->lblAumentoParti})
        Casella->setVisible(PartiContano(Nota) || Aumento != 0);
    mostra::Testo(ui->txtParti, Nota.txtParti);
    ui->lblAumentoParti->setText(Aumento == 0 ? QString() : u"+%1%"_s.arg(Aumento));
    ui->lblAumentoParti->setToolTip(FraseParti(Nota));
}

void SchedaDatiBase::MostraParti()
{
    for (const CasellaTesto& Voce : CaselleTesto)
        mostra::Testo((*ui).*Voce.Box, ParteScritta(Nota, Voce.Quale));
    const bool Collegata = !Nota.NsRif.isEmpty();
    ui->lblRif_0->setVisible(Collegata);
    ui->lblRif_1->setVisible(Collegata);
    ui->lblRif_1->setText(Nota.NsRif);
    MostraRubrica();
}

void SchedaDatiBase::MostraRubrica()
{
    // The parties are free text until the address book is there.
    for (QWidget* Bottone : {ui->cmdVisCliCon_0, ui->cmdInsCliCon_0, ui->cmdModCliCon_0, ui->cmdVisCliCon_1,
                             ui->cmdInsCliCon_1, ui->cmdModCliCon_1})
        Bottone->setVisible(bool(Aperture.RubricaParcella));
    ui->cmdModCliCon_0->setEnabled(Nota.IDCli > 0);
    ui->cmdModCliCon_1->setEnabled(Nota.IDCon > 0);
    for (const ParteNota Parte : {ParteNota::Cliente, ParteNota::Controparte})
        Rubriche[size_t(Parte)]->Mostra(LegameParte(Nota, Parte), NomeLegato(Nota, Parte));
}

#include "moc_SchedaDatiBase.cpp"
