#include "platform/kit/predefinito.h"

#include "platform/kit/collega.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

#include <utility>

namespace {

/// Stands among the children of the field that it speaks for.
class SegnoInvio : public QObject
{
public:
    SegnoInvio(QWidget* Campo, std::function<bool()> Ora) : QObject(Campo), Quando(std::move(Ora)) {}

    [[nodiscard]] bool Tiene() const { return !Quando || Quando(); }

private:
    std::function<bool()> Quando;
};

/// A text of several lines takes Enter as one more.
bool VaACapo(const QWidget* Campo)
{
    if (const auto* Piano = qobject_cast<const QPlainTextEdit*>(Campo))
        return !Piano->isReadOnly();
    const auto* Testo = qobject_cast<const QTextEdit*>(Campo);
    return Testo && !Testo->isReadOnly();
}

/// Watches the whole application.
class InvioSulBottone : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        return Evento->type() == QEvent::KeyPress && SenzaAltriTasti(*static_cast<QKeyEvent*>(Evento)) &&
               Premi(Oggetto, static_cast<QKeyEvent*>(Evento)->isAutoRepeat());
    }

private:
    static bool SenzaAltriTasti(const QKeyEvent& Tasto)
    {
        return (Tasto.key() == Qt::Key_Return || Tasto.key() == Qt::Key_Enter) &&
               (Tasto.modifiers() & ~Qt::KeypadModifier) == 0;
    }

    /// @return true for a button that the toolkit does not press by itself; a key that is held presses once
    static bool Premi(QObject* Oggetto, bool Tenuto)
    {
        if (auto* Bottone = qobject_cast<QPushButton*>(Oggetto);
            Bottone && !Bottone->isDefault() && !Bottone->autoDefault()) {
            if (!Tenuto)
                Bottone->click();
            return true;
        }
        auto* Tasto = qobject_cast<QToolButton*>(Oggetto);
        if (!Tasto)
            return false;
        if (!Tenuto && Tasto->menu() && Tasto->popupMode() == QToolButton::InstantPopup)
            Tasto->showMenu();
        else if (!Tenuto)
            Tasto->click();
        return true;
    }
};

}  // namespace

void TieneInvio(QWidget* Campo, std::function<bool()> Quando)
{
    new SegnoInvio(Campo, std::move(Quando));
}

bool InvioPreme(const QPushButton* Predefinito)
{
    const QWidget* Campo = Predefinito->window()->focusWidget();
    if (!Campo || Campo == Predefinito)
        return true;
    if (VaACapo(Campo) || qobject_cast<const QPushButton*>(Campo) || qobject_cast<const QToolButton*>(Campo))
        return false;
    for (const QObject* Figlio : Campo->children())
        if (const auto* Segno = dynamic_cast<const SegnoInvio*>(Figlio); Segno && Segno->Tiene())
            return false;
    return true;
}

void SeguiInvio()
{
    qApp->installEventFilter(new InvioSulBottone(qApp));
    Collega(qApp, &QApplication::focusChanged, qApp, [](QWidget*, const QWidget* Nuovo) {
        if (!Nuovo)
            return;
        // Later: the focus may move because a part of the window is going, with its children half gone.
        QWidget* Finestra = Nuovo->window();
        QMetaObject::invokeMethod(
            Finestra,
            [Finestra] {
                for (QPushButton* Bottone : Finestra->findChildren<QPushButton*>())
                    if (Bottone->isDefault())
                        Bottone->update();
            },
            Qt::QueuedConnection);
    });
}
