#include "core/desktop/pannellorecenti.h"

#include "core/desktop/recenti.h"
#include "core/modErrori.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/suggerimento.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum RuoloRecente { RuoloNome = Qt::UserRole, RuoloNetto, RuoloSpecie, RuoloData };

constexpr int Margine = 6;
constexpr int TraRighe = 2;
constexpr double Tenue = 0.65;  // of the second line's colour

/// A note on two lines: who and how much, what and when.
class DueRighe : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& Opzioni, const QModelIndex&) const override
    {
        return {0, 2 * QFontMetrics(Opzioni.font).height() + TraRighe + 2 * Margine};
    }

    void paint(QPainter* Pennello, const QStyleOptionViewItem& Opzioni,
               const QModelIndex& Voce) const override
    {
        const bool Corrente = Opzioni.state.testFlag(QStyle::State_Selected);
        const bool Fuoco = Corrente && Opzioni.state.testFlag(QStyle::State_Active) && Opzioni.widget &&
                           Opzioni.widget->hasFocus();
        Pennello->save();
        Pennello->setRenderHint(QPainter::Antialiasing);
        if (Fuoco || Opzioni.state.testFlag(QStyle::State_MouseOver))
            Sfondo(*Pennello, Opzioni, Fuoco);
        const QRect Dentro = Opzioni.rect.adjusted(Margine, Margine, -Margine, -Margine);
        const int Alta = QFontMetrics(Opzioni.font).height();
        QFont Marcato = Opzioni.font;
        Marcato.setBold(true);
        const QColor Testo = Opzioni.palette.color(QPalette::Text);
        const QRect Sopra(Dentro.topLeft(), QSize(Dentro.width(), Alta));
        Scrivi(*Pennello, Sopra, {Voce.data(RuoloNome).toString(), Marcato},
               {Voce.data(RuoloNetto).toString(), Opzioni.font}, Testo);
        const QColor Meno = aspetto::Mischia(Testo, Opzioni.palette.color(QPalette::Base), Tenue);
        Scrivi(*Pennello, Sopra.translated(0, Alta + TraRighe),
               {Voce.data(RuoloSpecie).toString(), Opzioni.font},
               {Voce.data(RuoloData).toString(), Opzioni.font}, Meno);
        Pennello->restore();
    }

private:
    struct Scritta
    {
        QString Testo;
        QFont Carattere;
    };

    static void Sfondo(QPainter& Pennello, const QStyleOptionViewItem& Opzioni, bool Fuoco)
    {
        constexpr int Smusso = 6;
        constexpr double Velo = 0.12;
        Pennello.setPen(Fuoco ? QPen(aspetto::Accento(), 2) : QPen(Qt::NoPen));
        Pennello.setBrush(aspetto::Mischia(aspetto::Accento(), Opzioni.palette.color(QPalette::Base), Velo));
        Pennello.drawRoundedRect(Opzioni.rect.adjusted(1, 1, -1, -1), Smusso, Smusso);
    }

    /// The right one whole, the left one as far as there is room.
    static void Scrivi(QPainter& Pennello, const QRect& Dove, const Scritta& Sinistra, const Scritta& Destra,
                       const QColor& Colore)
    {
        Pennello.setPen(Colore);
        Pennello.setFont(Destra.Carattere);
        Pennello.drawText(Dove, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, Destra.Testo);
        const int Resto =
            Dove.width() - Pennello.fontMetrics().horizontalAdvance(Destra.Testo) - aspetto::TraCampi;
        Pennello.setFont(Sinistra.Carattere);
        Pennello.drawText(Dove, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          Pennello.fontMetrics().elidedText(Sinistra.Testo, Qt::ElideRight, Resto));
    }
};

QString SecondaRiga(const NotaRecente& Nota)
{
    const QString Cartella = CartellaRecente(Nota);
    return Nota.Documento.isEmpty() ? u"Cartella "_s + Cartella : Nota.Documento + u" · "_s + Cartella;
}

}  // namespace

PannelloRecenti::PannelloRecenti(QWidget* Padre)
    : QFrame(Padre), Apri(new QToolButton(this)), Elenco(new QListView(this)),
      Righe(new QStandardItemModel(this)), Vuoto(new QLabel(this))
{
    setObjectName(u"fraRecenti"_s);
    setMinimumSize(LarghezzaMinima + aspetto::Bordo, AltezzaMinima);
    PreparaElenco();
    Vuoto->setObjectName(u"lblNessunaRecente"_s);
    Vuoto->setText(u"Le parcelle aperte e salvate compaiono qui."_s);
    Vuoto->setWordWrap(true);
    SuggerisciLeggibile(Vuoto);
    Vuoto->setForegroundRole(QPalette::PlaceholderText);
    Vuoto->setAlignment(Qt::AlignTop | Qt::AlignLeft);

    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi);
    Colonna->setSpacing(aspetto::TraCampi / 2);
    Colonna->addLayout(Testata());
    Colonna->addWidget(Elenco, 1);
    Colonna->addWidget(Vuoto, 1);

    Aggiorna();
}

QLayout* PannelloRecenti::Testata()
{
    auto* Titolo = new QLabel(u"Ultime parcelle"_s, this);
    Titolo->setObjectName(u"lblRecenti"_s);
    QFont Marcato = Titolo->font();
    Marcato.setBold(true);
    Titolo->setFont(Marcato);
    Titolo->setBuddy(Elenco);
    Titolo->setWordWrap(true);  // large letters have no room for it beside the button
    Apri->setObjectName(u"cmdApri"_s);
    Apri->setText(u"Apri"_s);
    Apri->setIcon(aspetto::Icona(u"open"_s));
    Apri->setToolTip(u"Apri parcella"_s);
    Apri->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Apri->setPopupMode(QToolButton::MenuButtonPopup);
    Apri->setAutoRaise(true);
    Apri->setFocusPolicy(Qt::TabFocus);
    auto* Riga = new QHBoxLayout;
    Riga->addWidget(Titolo, 1);
    Riga->addWidget(Apri);
    return Riga;
}

void PannelloRecenti::PreparaElenco()
{
    Elenco->setObjectName(u"lstRecenti"_s);
    Elenco->setAccessibleName(u"Ultime parcelle"_s);
    Elenco->setAccessibleDescription(u"Invio apre, Canc toglie dall'elenco"_s);
    Elenco->setModel(Righe);
    Elenco->setItemDelegate(new DueRighe(Elenco));
    Elenco->setFrameShape(QFrame::NoFrame);
    Elenco->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Elenco->setMouseTracking(true);
    Elenco->viewport()->setAutoFillBackground(false);
    Elenco->viewport()->setCursor(Qt::PointingHandCursor);
    Elenco->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Elenco->setContextMenuPolicy(Qt::CustomContextMenu);
    Elenco->installEventFilter(this);
    setTabOrder(Elenco, Apri);
    // A click opens, as on the icons; the second one of a double click finds the window that the first
    // opened.
    Collega(Elenco, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& Voce) { ApriRiga(Voce.row()); });
    Collega(Elenco, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& Dove) { MenuRiga(Dove); });
}

void PannelloRecenti::Aggiorna()
{
    const QList<NotaRecente> Nuove = NoteRecenti();
    if (Nuove == Note && Righe->rowCount() == Note.size()) {
        Elenco->setVisible(!Note.isEmpty());
        Vuoto->setVisible(Note.isEmpty());
        return;
    }
    const int Corrente = Elenco->currentIndex().row();
    Note = Nuove;
    Righe->clear();
    for (const NotaRecente& Nota : Note) {
        auto* Voce = new QStandardItem;
        Voce->setData(TitoloRecente(Nota), RuoloNome);
        Voce->setData(QString(Format(Nota.Netto, ModelloImporto) + u" €"_s), RuoloNetto);
        Voce->setData(SecondaRiga(Nota), RuoloSpecie);
        Voce->setData(Nota.Data.toString(u"dd/MM/yyyy"_s), RuoloData);
        Voce->setData(FraseRecente(Nota), Qt::AccessibleTextRole);
        Voce->setToolTip(Nota.Percorso);
        Righe->appendRow(Voce);
    }
    if (!Note.isEmpty())
        Elenco->setCurrentIndex(Righe->index(std::clamp(Corrente, 0, Quante() - 1), 0));
    Elenco->setVisible(!Note.isEmpty());
    Vuoto->setVisible(Note.isEmpty());
}

bool PannelloRecenti::PrendiFuoco()
{
    if (Note.isEmpty())
        return false;
    Elenco->setCurrentIndex(Righe->index(0, 0));
    Elenco->setFocus(Qt::ShortcutFocusReason);
    return true;
}

void PannelloRecenti::ApriRiga(int Riga)
{
    if (Riga < 0 || Riga >= Quante())
        return;
    // Behind the click: what it opens may ask, and the list changes below it.
    InCodaDopoIlRespiro(this, [this, Nota = Note[Riga]] {
        Protetta([&] { ApriRecente(Nota); });
        Aggiorna();
    });
}

void PannelloRecenti::TogliRiga(int Riga)
{
    if (Riga < 0 || Riga >= Quante())
        return;
    DimenticaRecente(Note[Riga].Percorso);
    Aggiorna();
}

void PannelloRecenti::MenuRiga(const QPoint& Dove)
{
    const int Riga = Elenco->indexAt(Dove).row();
    QMenu Tendina;
    Tendina.setObjectName(u"menuRecente"_s);
    const QAction* ApriLa = Riga < 0 ? nullptr : Tendina.addAction(u"Apri"_s);
    const QAction* Togli = Riga < 0 ? nullptr : Tendina.addAction(u"Togli dall'elenco\tCanc"_s);
    const QAction* Svuota = Tendina.addAction(u"Svuota l'elenco"_s);
    const QAction* Scelta = Tendina.exec(Elenco->viewport()->mapToGlobal(Dove));
    if (Scelta && Scelta == ApriLa) {
        ApriRiga(Riga);
    } else if (Scelta && Scelta == Togli) {
        TogliRiga(Riga);
    } else if (Scelta && Scelta == Svuota) {
        SvuotaRecenti();
        Aggiorna();
    }
}

bool PannelloRecenti::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Oggetto != Elenco || Evento->type() != QEvent::KeyPress)
        return QFrame::eventFilter(Oggetto, Evento);
    const int Riga = Elenco->currentIndex().row();
    switch (static_cast<QKeyEvent*>(Evento)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        ApriRiga(Riga);
        return true;
    case Qt::Key_Delete:
        Protetta([&] { TogliRiga(Riga); });
        return true;
    default:
        return QFrame::eventFilter(Oggetto, Evento);
    }
}

void PannelloRecenti::paintEvent(QPaintEvent*)
{
    constexpr int Smusso = 12;
    constexpr double Coprente = 0.92;
    QPainter Pennello(this);
    Pennello.setRenderHint(QPainter::Antialiasing);
    QColor Fondo = palette().color(QPalette::Base);
    Fondo.setAlphaF(float(Coprente));
    Pennello.setPen(Qt::NoPen);
    Pennello.setBrush(Fondo);
    Pennello.drawRoundedRect(contentsRect(), Smusso, Smusso);
}

#include "moc_pannellorecenti.cpp"
