#include "calculators/windows/areascorrevole.h"

#include "platform/kit/collega.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

/// The widgets of a window that take the focus, in their tab order, which a change of parent would lose.
QList<QWidget*> OrdineTab(QWidget* Finestra)
{
    QList<QWidget*> Ordine;
    for (QWidget* Prossimo = Finestra->nextInFocusChain(); Prossimo != Finestra;
         Prossimo = Prossimo->nextInFocusChain())
        if (Prossimo->focusPolicy() != Qt::NoFocus)
            Ordine += Prossimo;
    return Ordine;
}

}  // namespace

AreaScorrevole::AreaScorrevole(QDialog* Modulo) : QScrollArea(Modulo)
{
    const QList<QWidget*> Ordine = OrdineTab(Modulo);
    QLayout* Disposizione = Modulo->layout();
    QWidget* Menu = Disposizione->menuBar();
    Disposizione->setMenuBar(nullptr);
    auto* Contenuto = new QWidget;
    Contenuto->setLayout(Disposizione);

    setObjectName(QStringLiteral("areaScorrevole"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(Contenuto);
    auto* Bordi = new QVBoxLayout(Modulo);
    Bordi->setContentsMargins(0, 0, 0, 0);
    Bordi->setSpacing(0);
    Bordi->setMenuBar(Menu);
    Bordi->addWidget(this, 1);
    for (QStatusBar* Stato : Contenuto->findChildren<QStatusBar*>()) {
        Disposizione->removeWidget(Stato);
        Bordi->addWidget(Stato);
    }
    for (qsizetype i = 1; i < Ordine.size(); ++i)
        QWidget::setTabOrder(Ordine[i - 1], Ordine[i]);
    Collega(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* Nuovo) {
        if (Nuovo && widget()->isAncestorOf(Nuovo))
            ensureWidgetVisible(Nuovo);
    });
}

AreaScorrevole::~AreaScorrevole()
{
    // What it holds loses the focus while it goes.
    disconnect(qApp, nullptr, this, nullptr);
}

QSize AreaScorrevole::sizeHint() const
{
    QSize Misura = widget()->sizeHint();
    if (widget()->layout()->hasHeightForWidth())
        Misura.setHeight(std::max(Misura.height(), widget()->layout()->heightForWidth(Misura.width())));
    // The bar of a content that no screen has room for stands beside it, or it would ask for one below.
    if (Misura.height() > AltezzaConcessa())
        Misura.rwidth() += verticalScrollBar()->sizeHint().width();
    return Misura;
}

/// What the screen leaves to the content below title and menu.
int AreaScorrevole::AltezzaConcessa() const
{
    constexpr int Fregi = 40;  // what window managers draw, guessed amply
    const QWidget* Menu = window()->layout()->menuBar();
    int Sopra = Menu ? Menu->sizeHint().height() : 0;
    for (const QStatusBar* Stato : window()->findChildren<QStatusBar*>())
        Sopra += Stato->sizeHint().height();
    return screen()->availableGeometry().height() - Fregi - Sopra;
}

QSize AreaScorrevole::minimumSizeHint() const
{
    constexpr int Lettere = 24;
    constexpr int Righe = 6;
    return {fontMetrics().averageCharWidth() * Lettere, fontMetrics().lineSpacing() * Righe};
}
