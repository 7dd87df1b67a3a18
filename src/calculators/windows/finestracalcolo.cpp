#include "calculators/windows/finestracalcolo.h"

#include "calculators/windows/areascorrevole.h"
#include "core/aperture.h"
#include "platform/kit/appunti.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/predefinito.h"
#include "platform/kit/trattieni.h"
#include "platform/system/messaggi.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QStringList>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool InvioPremuto(const QEvent* Evento)
{
    if (Evento->type() != QEvent::KeyPress)
        return false;
    const auto* Tasto = static_cast<const QKeyEvent*>(Evento);
    return EInvio(Tasto->key());
}

class Catena : public QObject
{
public:
    Catena(const QList<QWidget*>& Tutti, std::function<void()> Fine)
        : QObject(Tutti.first()->window()), Campi(Tutti), Calcola(std::move(Fine))
    {
        for (QWidget* Campo : Campi) {
            Campo->installEventFilter(this);
            // Behind the last one Enter calculates, as the button does.
            TieneInvio(Campo, [this, Campo] { return Prossimo(Campo) != nullptr; });
        }
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (!InvioPremuto(Evento))
            return false;
        if (QWidget* Campo = Prossimo(static_cast<QWidget*>(Oggetto)))
            Campo->setFocus(Qt::TabFocusReason);
        else
            Calcola();
        return true;
    }

private:
    static bool Sosta(const QWidget* Campo)
    {
        const auto* Opzione = qobject_cast<const QRadioButton*>(Campo);
        return Campo->isEnabled() && Campo->isVisible() && (!Opzione || Opzione->isChecked());
    }

    /// The field that follows, null behind the last one.
    [[nodiscard]] QWidget* Prossimo(QWidget* Da) const
    {
        for (qsizetype i = Campi.indexOf(Da) + 1; i < Campi.size(); ++i)
            if (Sosta(Campi[i]))
                return Campi[i];
        return nullptr;
    }

    QList<QWidget*> Campi;
    std::function<void()> Calcola;
};

/// A click on the label of a check box ticks it, as a click on its own text would.
class EtichettaSpunta : public QObject
{
public:
    EtichettaSpunta(QLabel* Etichetta, QCheckBox* Spunta) : QObject(Etichetta), Casella(Spunta)
    {
        Etichetta->installEventFilter(this);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() != QEvent::MouseButtonRelease || !Casella->isEnabled())
            return false;
        const auto* Clic = static_cast<QMouseEvent*>(Evento);
        if (Clic->button() != Qt::LeftButton || !static_cast<QWidget*>(Oggetto)->rect().contains(Clic->pos()))
            return false;
        Casella->setFocus(Qt::MouseFocusReason);
        Casella->click();
        return true;
    }

private:
    QCheckBox* Casella;
};

/// True when the user has selected text in a widget.
bool HaSelezione(const QObject* Oggetto)
{
    if (const auto* Riga = qobject_cast<const QLineEdit*>(Oggetto))
        return Riga->hasSelectedText();
    const auto* Etichetta = qobject_cast<const QLabel*>(Oggetto);
    return Etichetta && Etichetta->hasSelectedText();
}

/// Keeps a text widget from claiming Ctrl+C for a selection that it does not have.
class CediCopia : public QObject
{
public:
    explicit CediCopia(QWidget* Testo) : QObject(Testo) { Testo->installEventFilter(this); }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() != QEvent::ShortcutOverride || HaSelezione(Oggetto) ||
            !static_cast<QKeyEvent*>(Evento)->matches(QKeySequence::Copy))
            return false;
        Evento->ignore();
        return true;
    }
};

/// What was shown, hidden or written since the last time counts for the room that the window asks for.
void Riconta(const QDialog* Modulo)
{
    for (const QWidget* Parte : Modulo->findChildren<QWidget*>())
        if (Parte->layout())
            Parte->layout()->activate();
    if (auto* Area = Modulo->findChild<QScrollArea*>(u"areaScorrevole"_s))
        Area->updateGeometry();
}

/// Puts a text into the clipboard and says so below the button; an empty one copies nothing.
void Copia(QAbstractButton* Pulsante, const QString& Testo, const RigheCopia& Righe)
{
    if (Testo.isEmpty())
        return;
    CopiaTabella(Testo, Righe ? Righe() : QList<QStringList>());
    QToolTip::showText(Pulsante->mapToGlobal(Pulsante->rect().bottomLeft()), u"Copiato"_s, Pulsante);
}

}  // namespace

void PreparaModulo(QDialog* Modulo, const QString& NomeIcona)
{
    Modulo->setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
                           Qt::WindowCloseButtonHint);
    Modulo->setAttribute(Qt::WA_DeleteOnClose);
    TrattieniDietroIBox(Modulo);
    Modulo->setWindowIcon(aspetto::Icona(NomeIcona));
    aspetto::AssegnaMnemonici(Modulo);
    aspetto::AssegnaNomiAccessibili(Modulo);
    for (QLabel* Etichetta : Modulo->findChildren<QLabel*>())
        if (auto* Casella = qobject_cast<QCheckBox*>(Etichetta->buddy()))
            new EtichettaSpunta(Etichetta, Casella);
    aspetto::RicordaPostoDi(Modulo, Modulo->objectName());
    new AreaScorrevole(Modulo);
}

void ImpostaMenu(QDialog* Modulo, const QList<VoceMenu>& Voci)
{
    auto* Menu = new QMenuBar(Modulo);
    Menu->setObjectName(u"barMenu"_s);
    Menu->setAccessibleName(u"Menu"_s);
    for (const VoceMenu& Voce : Voci) {
        QAction* Azione = Menu->addAction(Voce.Testo);
        Azione->setObjectName(Voce.Nome);
        Azione->setShortcut(Voce.Tasti);
        Collega(Azione, &QAction::triggered, Modulo, Voce.Procedura);
    }
    Modulo->layout()->setMenuBar(Menu);
}

bool MostraModulo(QDialog* Modulo)
{
    const bool Nuovo = !Modulo->isVisible();
    if (Nuovo)
        Riconta(Modulo);
    // Never smaller than its content, at the font in use; the screen has the last word.
    if (Nuovo)
        Modulo->resize(Modulo->testAttribute(Qt::WA_Resized) ? Modulo->size().expandedTo(Modulo->sizeHint())
                                                             : Modulo->sizeHint());
    Modulo->show();
    // Enter and the first focus are the keyboard's too: without this, which showing a window takes away, the
    // style outlines no list, tick or option before the first Tab.
    Modulo->setAttribute(Qt::WA_KeyboardFocusChange);
    PortaDavanti(Modulo);
    return Nuovo;
}

void FaiPosto(QDialog* Modulo)
{
    if (!Modulo->isVisible() || Modulo->isMaximized())
        return;
    Riconta(Modulo);
    const QRect Schermo = Modulo->screen()->availableGeometry();
    const QSize Cornice = Modulo->frameGeometry().size() - Modulo->size();
    const QSize Massima = (Schermo.size() - Cornice).expandedTo(Modulo->size());
    QSize Nuova = Modulo->size();
    // Wrapped texts take the height that they need at the width that they have.
    if (const auto* Area = Modulo->findChild<QScrollArea*>(u"areaScorrevole"_s)) {
        const QSize Minima = Area->widget()->minimumSizeHint();
        const int Largo = std::max(Area->maximumViewportSize().width(), Minima.width());
        const int Alto = std::max(Area->widget()->heightForWidth(Largo), Minima.height());
        Nuova += QSize(Largo, Alto) - Area->maximumViewportSize();
    }
    // Where not all of it has room, its bar stands beside it.
    if (Nuova.height() > Massima.height())
        Nuova.rwidth() += Modulo->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    Nuova = Nuova.expandedTo(Modulo->size()).boundedTo(Massima);
    if (Nuova == Modulo->size())
        return;
    Modulo->resize(Nuova);
    // Grown, it stays whole on the screen.
    const int Sotto = Modulo->frameGeometry().bottom() - Schermo.bottom();
    const int Destra = Modulo->frameGeometry().right() - Schermo.right();
    if (Sotto > 0 || Destra > 0)
        Modulo->move(Modulo->pos() - QPoint(std::max(Destra, 0), std::max(Sotto, 0)));
}

void CatenaInvio(const QList<QWidget*>& Campi, const std::function<void()>& Calcola)
{
    new Catena(Campi, Calcola);
}

void CopiaConClic(QAbstractButton* Pulsante, const std::function<QString()>& Testo, const RigheCopia& Righe)
{
    Collega(Pulsante, &QAbstractButton::clicked, Pulsante,
            [Pulsante, Testo, Righe] { Copia(Pulsante, Testo(), Righe); });
}

void CopiaRisultato(QDialog* Modulo, QAbstractButton* Pulsante, const std::function<QString()>& Testo,
                    const RigheCopia& Righe)
{
    CopiaConClic(Pulsante, Testo, Righe);
    CopiaConTasto(Modulo, Pulsante, Testo, Righe);
}

void CopiaConTasto(QDialog* Modulo, QAbstractButton* Pulsante, const std::function<QString()>& Testo,
                   const RigheCopia& Righe)
{
    auto* Azione = new QAction(Modulo);
    Azione->setShortcut(QKeySequence::Copy);
    Modulo->addAction(Azione);
    Collega(Azione, &QAction::triggered, Modulo,
            [Pulsante, Testo, Righe] { Copia(Pulsante, Testo(), Righe); });
    for (QWidget* Testuale : Modulo->findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(Testuale) || qobject_cast<QLabel*>(Testuale))
            new CediCopia(Testuale);
}

QString DidascaliaPulita(const QString& Didascalia)
{
    QStringList Righe;
    for (const QString& Riga : Didascalia.split(u'\n'))
        if (const QString Pulita = Riga.simplified(); !Pulita.isEmpty())
            Righe << Pulita;
    return Righe.join(u'\n');
}

void PreparaCifra(QWidget* Cifra)
{
    constexpr double Ingrandimento = 1.75;
    constexpr int Aria = 4;
    QFont Grande = Cifra->font();
    Grande.setPointSizeF(Grande.pointSizeF() * Ingrandimento);
    Grande.setBold(true);
    Cifra->setFont(Grande);
    Cifra->setMinimumHeight(
        std::max(QFontMetrics(Grande).height() + Aria, Cifra->minimumSizeHint().height()));
}

void SfondoPannello(QWidget* Pannello)
{
    Pannello->setBackgroundRole(QPalette::Base);
    Pannello->setAutoFillBackground(true);
}

void MostraCifra(QLabel* Cifra, const QLabel* Didascalia, const QString& Testo)
{
    Cifra->setText(Testo);
    Cifra->setAccessibleName((Didascalia->text() + u' ' + Testo).simplified());
}

void LasciaSelezione()
{
    if (auto* Casella = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
        Casella->deselect();
}

void ApriAggiornamento(const QString& Parola)
{
    Invoca(Aperture.Aggiorna, Parola);
}
