#include "feenote/windows/elencocontrolli.h"

#include "core/impostazioni.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/windows/cornicenota.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/suggerimento.h"
#include "platform/system/orologio.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QListWidget>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int LatoIcona = 16;
const QString Disposizione = u"Disposizione_lstControlli"_s;
const QString Chiuso = u"chiuso"_s;

/// A list whose row is marked while it has the focus alone: it only asks for a look.
class ListaQuieta : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    void focusInEvent(QFocusEvent* Evento) override
    {
        QListWidget::focusInEvent(Evento);
        // A press chooses its own row, which must not scroll away from under it.
        if (Evento->reason() != Qt::MouseFocusReason)
            setCurrentRow(std::max(0, currentRow()), QItemSelectionModel::ClearAndSelect);
    }
    void focusOutEvent(QFocusEvent* Evento) override
    {
        QListWidget::focusOutEvent(Evento);
        clearSelection();
    }
};

}  // namespace

ElencoControlli::ElencoControlli(const Parcella& Dati, CorniceNota& Finestra, QWidget* Padre)
    : QFrame(Padre), Nota(Dati), Cornice(Finestra), cmdControlli(new QToolButton(this)),
      lblControlli(new QLabel(this)), lstControlli(new ListaQuieta(this))
{
    setObjectName(u"fraControlli"_s);
    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(0, 0, 0, 0);
    Colonna->setSpacing(2);
    for (QWidget* Pezzo : std::initializer_list<QWidget*>{cmdControlli, lblControlli, lstControlli})
        Colonna->addWidget(Pezzo);

    cmdControlli->setObjectName(u"cmdControlli"_s);
    cmdControlli->setAutoRaise(true);
    cmdControlli->setFocusPolicy(Qt::StrongFocus);
    cmdControlli->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    cmdControlli->setToolTip(u"Mostra o nasconde ciò che è bene guardare prima di stampare"_s);
    lblControlli->setObjectName(u"lblControlli"_s);
    lblControlli->setText(u"Niente da controllare"_s);
    lblControlli->setContentsMargins(4, 2, 4, 2);
    lstControlli->setObjectName(u"lstControlli"_s);
    lstControlli->setAccessibleName(u"Da controllare"_s);
    lstControlli->setAccessibleDescription(u"Invio o Spazio portano al campo"_s);
    lstControlli->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstControlli->setUniformItemSizes(true);
    lstControlli->setIconSize({LatoIcona, LatoIcona});
    lstControlli->viewport()->setCursor(Qt::PointingHandCursor);

    Aperto = Impostazione(Disposizione) != Chiuso;
    Collega(cmdControlli, &QAbstractButton::clicked, this, [this] { Apri(!Aperto); });
    Collega(lstControlli, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* Voce) { VaiAllaVoce(Voce); });
    CollegaTasti();
    Attesa.setSingleShot(true);
    Collega(&Attesa, &QTimer::timeout, this, [this] { Calcola(); });
    Padre->installEventFilter(this);  // its height bounds that of the list
    Mostra();
}

void ElencoControlli::CollegaTasti()
{
    for (const Qt::Key Tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        auto* Comando = new QShortcut(QKeySequence(Tasto), lstControlli);
        Comando->setContext(Qt::WidgetShortcut);
        Collega(Comando, &QShortcut::activated, this, [this] { VaiAllaVoce(lstControlli->currentItem()); });
    }
}

void ElencoControlli::MettiInGiro(QWidget* Prima, QWidget* Dopo)
{
    setTabOrder(Prima, cmdControlli);
    setTabOrder(cmdControlli, lstControlli);
    setTabOrder(lstControlli, Dopo);
}

void ElencoControlli::Segui()
{
    if (isVisible() && !Attesa.isActive())
        Attesa.start(0);
}

void ElencoControlli::Rileggi()
{
    ClienteLetto.reset();
    Segui();
}

void ElencoControlli::showEvent(QShowEvent* Evento)
{
    QFrame::showEvent(Evento);
    Rileggi();
}

void ElencoControlli::changeEvent(QEvent* Evento)
{
    QFrame::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange)
        MostraVoci();
}

bool ElencoControlli::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Oggetto == parentWidget() && Evento->type() == QEvent::Resize)
        MostraAltezza();
    return QFrame::eventFilter(Oggetto, Evento);
}

void ElencoControlli::Calcola()
{
    Attesa.stop();
    if (ClienteLetto != Nota.IDCli) {
        LeggiArchivio();
        ScriveXml = ValoreConservato(chiavi::ProgTrasm).trimmed().toInt() > 0;
    }
    QList<Rilievo> Nuovi = ControllaNota(Nota, {.Oggi = Oggi(),
                                                .Cliente = Cliente ? &*Cliente : nullptr,
                                                .ArchivioLetto = ArchivioLetto,
                                                .Numera = sessione::ProgFatt > 0,
                                                .ScriveXml = ScriveXml});
    if (Nuovi == Trovati)
        return;
    Trovati = std::move(Nuovi);
    Mostra();
}

/// An archive that cannot be read is not asked again at every turn: a locked one lets wait each time.
void ElencoControlli::LeggiArchivio()
{
    constexpr int PausaMs = 30'000;
    ClienteLetto = Nota.IDCli;
    Cliente.reset();
    ArchivioLetto = Nota.IDCli <= 0 || RitentaArchivio.hasExpired();
    if (Nota.IDCli <= 0 || !ArchivioLetto)
        return;
    try {
        Cliente = LeggiCliente(Nota.IDCli);
    } catch (const ArchivioIlleggibile&) {
        ArchivioLetto = false;
        RitentaArchivio.setRemainingTime(PausaMs);
    }
}

void ElencoControlli::Mostra()
{
    const bool Vuoto = Trovati.isEmpty();
    // What goes hands the focus on, as the Tab key would.
    if (Vuoto && (cmdControlli->hasFocus() || lstControlli->hasFocus()))
        PassaAvanti(lstControlli);
    cmdControlli->setVisible(!Vuoto);
    lblControlli->setVisible(Vuoto);
    MostraTesta();
    MostraVoci();
    MostraAltezza();
}

void ElencoControlli::MostraTesta()
{
    const QString Quante = u"Da controllare: %1"_s.arg(Trovati.size());
    cmdControlli->setText(Quante);
    cmdControlli->setAccessibleName(Quante + (Aperto ? u", elenco aperto"_s : u", elenco chiuso"_s));
    cmdControlli->setArrowType(Aperto ? Qt::DownArrow : Qt::RightArrow);
    lstControlli->setVisible(Aperto && !Trovati.isEmpty());
}

void ElencoControlli::MostraVoci()
{
    const int Prima = lstControlli->currentRow();
    const bool Fuoco = lstControlli->hasFocus();
    lstControlli->clear();
    for (const Rilievo& Detto : std::as_const(Trovati)) {
        const bool Grave = Detto.Gravita == GravitaRilievo::Errore;
        auto* Voce =
            new QListWidgetItem(aspetto::Icona(Grave ? u"rename"_s : u"info"_s), Detto.Frase, lstControlli);
        Voce->setToolTip(SuPiuRighe(Detto.Frase + u"\nUn clic, Invio o Spazio portano al campo"_s));
        if (Grave)
            Voce->setForeground(aspetto::Sbagliato());
        // Read out, the colour of an error is a word.
        Voce->setData(Qt::AccessibleTextRole, Grave ? u"Errore: "_s + Detto.Frase : Detto.Frase);
    }
    if (Fuoco)
        lstControlli->setCurrentRow(std::clamp(Prima, 0, std::max(0, lstControlli->count() - 1)),
                                    QItemSelectionModel::ClearAndSelect);
}

/// As high as its rows, within a share of the pane.
void ElencoControlli::MostraAltezza()
{
    constexpr int Parte = 6;
    constexpr int MinimoRighe = 2;
    constexpr int MassimoRighe = 5;
    if (lstControlli->count() == 0)
        return;
    const int Riga = std::max(lstControlli->sizeHintForRow(0), 1);
    const int Concesse = std::clamp(parentWidget()->height() / Parte / Riga, MinimoRighe, MassimoRighe);
    lstControlli->setFixedHeight(std::min(lstControlli->count(), Concesse) * Riga +
                                 2 * lstControlli->frameWidth());
}

void ElencoControlli::Apri(bool Si)
{
    Aperto = Si;
    MostraTesta();
    RicordaImpostazioni({{Disposizione, Aperto ? QString() : Chiuso}});
}

void ElencoControlli::VaiAllaVoce(const QListWidgetItem* Voce)
{
    const int Riga = lstControlli->row(Voce);
    if (Riga < 0 || Riga >= Trovati.size() || Cornice.InDomanda())
        return;
    // A copy: on the way a question may wait, and the list be another one behind it.
    const Rilievo Detto = Trovati[Riga];
    Cornice.VaiAlRilievo(Detto);
}

#include "moc_elencocontrolli.cpp"
