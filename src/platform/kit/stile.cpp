#include "platform/kit/stile.h"

#include "platform/kit/predefinito.h"

#include <QPushButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionMenuItem>
#include <QStyleOptionToolButton>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// A button that opens a menu wherever it is pressed: its arrow is part of the button. The other kind has a
/// button of its own for the menu.
const QStyleOptionToolButton* CheApreUnMenu(const QStyleOption* Opzioni)
{
    const auto* Bottone = qstyleoption_cast<const QStyleOptionToolButton*>(Opzioni);
    if (!Bottone || !Bottone->features.testFlag(QStyleOptionToolButton::HasMenu) ||
        Bottone->features.testFlag(QStyleOptionToolButton::MenuButtonPopup))
        return nullptr;
    return Bottone;
}

/// A default button that Enter would not press from where the focus is.
bool SpentoDalFuoco(const QStyleOptionButton& Bottone, const QWidget* Oggetto)
{
    const auto* Suo = qobject_cast<const QPushButton*>(Oggetto);
    return Suo && Bottone.features.testFlag(QStyleOptionButton::DefaultButton) && !InvioPreme(Suo);
}

}  // namespace

StileProgramma::StileProgramma() : QProxyStyle(u"Fusion"_s)
{
    setObjectName(u"fusion"_s);  // by which other styles ask what they stand on
}

int StileProgramma::styleHint(StyleHint Quale, const QStyleOption* Opzioni, const QWidget* Oggetto,
                              QStyleHintReturn* Ritorno) const
{
    // The pictures follow the roles of the buttons, not their words: an OK that stands beside a second answer
    // would bear a red sign.
    if (Quale == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(Quale, Opzioni, Oggetto, Ritorno);
}

QSize StileProgramma::sizeFromContents(ContentsType Quale, const QStyleOption* Opzioni, const QSize& Dentro,
                                       const QWidget* Oggetto) const
{
    QSize Misura = QProxyStyle::sizeFromContents(Quale, Opzioni, Dentro, Oggetto);
    if (Quale == CT_ToolButton && CheApreUnMenu(Opzioni))
        Misura.rwidth() += proxy()->pixelMetric(PM_MenuButtonIndicator, Opzioni, Oggetto);
    return Misura;
}

/// Fusion draws the arrow in a corner of the button, no larger than a comma.
void StileProgramma::drawPrimitive(PrimitiveElement Quale, const QStyleOption* Opzioni, QPainter* Pennello,
                                   const QWidget* Oggetto) const
{
    const QStyleOptionToolButton* Bottone =
        Quale == PE_IndicatorArrowDown && Oggetto ? CheApreUnMenu(Opzioni) : nullptr;
    if (!Bottone) {
        QProxyStyle::drawPrimitive(Quale, Opzioni, Pennello, Oggetto);
        return;
    }
    QStyleOptionToolButton Freccia = *Bottone;
    const int Lato = proxy()->pixelMetric(PM_MenuButtonIndicator, Opzioni, Oggetto);
    const QRect Intero = Oggetto->rect();
    const int Orlo = proxy()->pixelMetric(PM_DefaultFrameWidth, Opzioni, Oggetto);
    Freccia.rect =
        visualRect(Bottone->direction, Intero,
                   QRect(Intero.right() + 1 - Orlo - Lato, Intero.center().y() - Lato / 2, Lato, Lato));
    QProxyStyle::drawPrimitive(Quale, &Freccia, Pennello, Oggetto);
}

void StileProgramma::drawControl(ControlElement Quale, const QStyleOption* Opzioni, QPainter* Pennello,
                                 const QWidget* Oggetto) const
{
    if (const auto* Bottone = CheApreUnMenu(Opzioni); Bottone && Quale == CE_ToolButtonLabel) {
        QStyleOptionToolButton Scritta = *Bottone;
        const int Lato = proxy()->pixelMetric(PM_MenuButtonIndicator, Opzioni, Oggetto);
        Scritta.rect = visualRect(Bottone->direction, Bottone->rect, Bottone->rect.adjusted(0, 0, -Lato, 0));
        QProxyStyle::drawControl(Quale, &Scritta, Pennello, Oggetto);
        return;
    }
    if (const auto* Bottone = qstyleoption_cast<const QStyleOptionButton*>(Opzioni);
        Bottone && Quale == CE_PushButton && SpentoDalFuoco(*Bottone, Oggetto)) {
        QStyleOptionButton Spento = *Bottone;
        Spento.features.setFlag(QStyleOptionButton::DefaultButton, false);
        QProxyStyle::drawControl(Quale, &Spento, Pennello, Oggetto);
        return;
    }
    // The name of a menu that cannot be opened now stands on the bar's own ground.
    if (const auto* Voce = qstyleoption_cast<const QStyleOptionMenuItem*>(Opzioni);
        Voce && Quale == CE_MenuBarItem && !Voce->state.testFlag(State_Enabled)) {
        QStyleOptionMenuItem Spenta = *Voce;
        Spenta.palette.setBrush(QPalette::Disabled, QPalette::Window,
                                Voce->palette.brush(QPalette::Active, QPalette::Window));
        QProxyStyle::drawControl(Quale, &Spenta, Pennello, Oggetto);
        return;
    }
    // A list whose entry is longer than its field says that there is more, where Fusion cuts a letter in two.
    if (const auto* Elenco = qstyleoption_cast<const QStyleOptionComboBox*>(Opzioni);
        Elenco && Quale == CE_ComboBoxLabel) {
        constexpr int Orlo = 2;    // that Fusion leaves around the words
        constexpr int Stacco = 4;  // and beside a picture
        QStyleOptionComboBox Corto = *Elenco;
        int Posto = subControlRect(CC_ComboBox, Elenco, SC_ComboBoxEditField, Oggetto).width();
        if (!Elenco->currentIcon.isNull())
            Posto -= Elenco->iconSize.width() + Stacco;
        // A list is no wider than its longest entry: whoever counted the edge would shorten that one.
        if (Elenco->fontMetrics.horizontalAdvance(Elenco->currentText) > Posto)
            Corto.currentText =
                Elenco->fontMetrics.elidedText(Elenco->currentText, Qt::ElideRight, Posto - Orlo);
        QProxyStyle::drawControl(Quale, &Corto, Pennello, Oggetto);
        return;
    }
    QProxyStyle::drawControl(Quale, Opzioni, Pennello, Oggetto);
}

#include "moc_stile.cpp"
