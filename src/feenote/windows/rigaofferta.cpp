#include "feenote/windows/rigaofferta.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/etichetta.h"
#include "platform/kit/suggerimento.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Margini = 8;  // of a button's words

}  // namespace

BottoneOfferta::BottoneOfferta(QWidget* Padre) : QToolButton(Padre)
{
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextOnly);  // as high without a text as with one
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    Tingi();
}

QList<QKeySequence> BottoneOfferta::Tasti()
{
    return {QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::CTRL | Qt::Key_Enter)};
}

/// What leads elsewhere or does more has the accent.
void BottoneOfferta::Tingi()
{
    QPalette Colori = palette();
    if (Colori.color(QPalette::ButtonText) == aspetto::Accento())
        return;
    Colori.setColor(QPalette::ButtonText, aspetto::Accento());
    setPalette(Colori);
}

void BottoneOfferta::changeEvent(QEvent* Evento)
{
    QToolButton::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange)
        Tingi();
}

QSize BottoneOfferta::minimumSizeHint() const
{
    // Never in the way of a narrow window: of a text that has a few letters for it those are read.
    constexpr int Lettere = 3;
    const int Larga = InBreve.isEmpty() ? fontMetrics().averageCharWidth() * Lettere
                                        : fontMetrics().horizontalAdvance(InBreve.constLast()) + Margini;
    return {Larga, QToolButton::sizeHint().height()};
}

/// Of several forms the one that has room is shown: what stands beside it goes first.
QSize BottoneOfferta::sizeHint() const
{
    return InBreve.isEmpty() ? QToolButton::sizeHint() : minimumSizeHint();
}

void BottoneOfferta::MostraForme(const QString& Intero, const QStringList& PiuBrevi)
{
    InBreve = PiuBrevi;
    setText(Intero);
    updateGeometry();
}

QString BottoneOfferta::Mostrato() const
{
    const int Posto = width() - Margini;
    for (const QString& Forma : QStringList{text()} + InBreve)
        if (fontMetrics().horizontalAdvance(Forma) <= Posto)
            return Forma;
    return fontMetrics().elidedText(InBreve.isEmpty() ? text() : InBreve.constLast(), Qt::ElideRight, Posto);
}

void BottoneOfferta::paintEvent(QPaintEvent*)
{
    QStyleOptionToolButton Opzioni;
    initStyleOption(&Opzioni);
    Opzioni.text = Mostrato();
    // The words stand at the beginning of what room there is.
    Opzioni.rect.setWidth(std::min(width(), fontMetrics().horizontalAdvance(Opzioni.text) + Margini));
    QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, Opzioni);
}

RigaOfferta::RigaOfferta(QWidget* Padre)
    : QWidget(Padre), Bottone(new BottoneOfferta(this)), Nota(new Etichetta(this))
{
    auto* Riga = new QHBoxLayout(this);
    Riga->setContentsMargins(0, 0, 0, 0);
    Riga->setSpacing(0);
    Riga->addStretch(1);
    Riga->addWidget(Nota);
    Riga->addWidget(Bottone);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    Bottone->setObjectName(u"cmdOfferta"_s);
    Bottone->setAccessibleName(u"Offerta"_s);
    Bottone->setToolTip(u"Scrive l'importo in vigore"_s);
    Nota->setObjectName(u"lblNotaRiga"_s);
    Nota->setTextFormat(Qt::PlainText);
    Nota->setMinimumWidth(1);  // cut rather than in the way
    SuggerisciLeggibile(Nota);
    Nota->setForegroundRole(QPalette::PlaceholderText);
    Collega(Bottone, &QAbstractButton::clicked, this, [this] { Q_EMIT Accettata(); });
    Fine.setSingleShot(true);
    Collega(&Fine, &QTimer::timeout, this, [this] { Togli(); });
    MostraParti();
}

void RigaOfferta::Ascolta(QWidget* Pagina)
{
    auto* Nuova = new QShortcut(Pagina);
    Nuova->setKeys(BottoneOfferta::Tasti());
    Nuova->setContext(Qt::WidgetWithChildrenShortcut);
    Nuova->setEnabled(Offerta);
    Scorciatoia = Nuova;
    Collega(Nuova, &QShortcut::activated, this, [this] { Q_EMIT Accettata(); });
}

void RigaOfferta::Offri(const QString& Testo, const QString& Suggerimento)
{
    Bottone->setText(Testo);
    Bottone->setToolTip(Suggerimento);
    Bottone->setAccessibleName(Testo);
    Offerta = true;
    Fine.start(DurataMs);
    MostraParti();
}

void RigaOfferta::Togli()
{
    Offerta = false;
    Fine.stop();
    MostraParti();
}

void RigaOfferta::Annota(const QString& Frase)
{
    Nota->setText(Frase);
    Nota->setToolTip(Frase);
    MostraParti();
}

void RigaOfferta::MostraParti()
{
    if (Scorciatoia)
        Scorciatoia->setEnabled(Offerta);
    Bottone->setVisible(Offerta);
    Nota->setVisible(!Offerta && !Nota->text().isEmpty());
}

#include "moc_rigaofferta.cpp"
