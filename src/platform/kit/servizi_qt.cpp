#include "platform/kit/servizi_qt.h"

#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/messaggi_qt.h"
#include "platform/kit/rotella.h"
#include "platform/kit/shell_qt.h"
#include "platform/kit/testipiani.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <utility>

namespace {

/// Swallows what the user does, except that he wants to stop.
class SoloInterruzione : public QObject
{
public:
    explicit SoloInterruzione(const QWidget* Pulsante)
        : Ferma(Pulsante), Modale(QApplication::activeModalWidget())
    {
        qApp->installEventFilter(this);
        ++Aperti;
    }
    ~SoloInterruzione() override
    {
        --Aperti;
        qApp->removeEventFilter(this);
    }

    static inline int Aperti = 0;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        // A box that a queued call has opened holds the work back until it is answered.
        if (const QWidget* Davanti = QApplication::activeModalWidget(); Davanti && Davanti != Modale)
            return QObject::eventFilter(Oggetto, Evento);
        switch (Evento->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress: {
            const int Tasto = static_cast<QKeyEvent*>(Evento)->key();
            Interrotto = Interrotto || Tasto == Qt::Key_Escape || Tasto == Qt::Key_Pause ||
                         Tasto == Qt::Key_Cancel || PremeIlPulsante(Tasto);
            return true;
        }
        case QEvent::MouseButtonPress:
            Interrotto = Interrotto || SulPulsante(static_cast<const QMouseEvent*>(Evento));
            return true;
        case QEvent::Close:
            Evento->ignore();
            return true;
        // A timer fires again later, so that nothing is lost.
        case QEvent::Timer:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::InputMethod:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return true;
        default:
            return QObject::eventFilter(Oggetto, Evento);
        }
    }

    bool Interrotto = false;

private:
    [[nodiscard]] bool PremeIlPulsante(int Tasto) const
    {
        return Ferma && Ferma->hasFocus() && (Tasto == Qt::Key_Space || EInvio(Tasto));
    }
    [[nodiscard]] bool SulPulsante(const QMouseEvent* Evento) const
    {
        return Ferma && Ferma->isVisible() && Evento->button() == Qt::LeftButton &&
               Ferma->rect().contains(Ferma->mapFromGlobal(Evento->globalPosition().toPoint()));
    }

    const QWidget* Ferma;
    const QWidget* Modale;
};

}  // namespace

Applicazione::Applicazione(int& argc, char** argv) : QApplication(argc, argv)
{
    installEventFilter(new GuardiaRotella(this));
    installEventFilter(new TestiPiani(this));
}

bool Applicazione::notify(QObject* Ricevente, QEvent* Evento)
{
    try {
        return QApplication::notify(Ricevente, Evento);
    } catch (...) {
        RiportaEccezione();
        return false;
    }
}

void InstallaServiziQt()
{
    InstallaMessaggi(MessaggiQt());
    Shell Precedente = InstallaShell({});
    Shell Nuova = ShellQt();
    Nuova.Connesso = std::move(Precedente.Connesso);
    Nuova.Segnala = std::move(Precedente.Segnala);
    InstallaShell(std::move(Nuova));
}

bool Respira(const QWidget* Ferma)
{
    SoloInterruzione Guardia(Ferma);
    QCoreApplication::processEvents();
    return !Guardia.Interrotto;
}

bool RespiroInCorso()
{
    return SoloInterruzione::Aperti > 0;
}

bool UtenteImpegnato()
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           QGuiApplication::mouseButtons() != Qt::NoButton;
}

void InCodaDopoIlRespiro(QObject* Contesto, std::function<void()> Chiamata)
{
    QMetaObject::invokeMethod(
        Contesto,
        [Contesto, Chiamata = std::move(Chiamata)] {
            if (RespiroInCorso())
                InCodaDopoIlRespiro(Contesto, Chiamata);
            else
                Chiamata();
        },
        Qt::QueuedConnection);
}

#include "moc_servizi_qt.cpp"
