#include "platform/kit/trattieni.h"

#include "platform/kit/servizi_qt.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace {

class Trattenuta : public QObject
{
public:
    explicit Trattenuta(QWidget* Finestra) : QObject(Finestra), Livello(Giri())
    {
        Finestra->installEventFilter(this);
        // A box that is up already is somebody else's. Once it has ended, the window's own come up at its
        // level.
        const auto* Giro = QThread::currentThread()->eventDispatcher();
        for (const auto Segnale : {&QAbstractEventDispatcher::aboutToBlock, &QAbstractEventDispatcher::awake})
            connect(Giro, Segnale, this, [this] { Livello = std::min(Livello, Giri()); });
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        const bool DaEliminare = Evento->type() == QEvent::DeferredDelete;
        if (DaEliminare && !DietroUnBox())
            return QObject::eventFilter(Oggetto, Evento);
        // The toolkit asks once to delete an object: from then on its end is this one's work.
        Condannata = Condannata || DaEliminare;
        if (Condannata && !Attende && (DaEliminare || Evento->type() == QEvent::Hide))
            Aspetta();
        return DaEliminare;
    }

private:
    /// Event loops that run inside each other just now.
    static int Giri() { return QThread::currentThread()->loopLevel(); }
    [[nodiscard]] bool DietroUnBox() const { return Giri() > Livello || RespiroInCorso(); }

    /// No signal tells that a loop has ended: it is looked for now and then.
    void Aspetta()
    {
        constexpr int OgniMs = 50;
        Attende = true;
        QTimer::singleShot(OgniMs, qApp, [Questa = QPointer(this)] {
            if (Questa)
                Questa->Guarda();
        });
    }

    void Guarda()
    {
        Attende = false;
        auto* Finestra = static_cast<QWidget*>(parent());
        if (Finestra->isVisible())
            return;  // somebody uses it again
        if (DietroUnBox())
            Aspetta();
        else
            delete Finestra;
    }

    int Livello;  ///< loops that have been going on since before the window was there
    bool Condannata = false;
    bool Attende = false;
};

}  // namespace

void TrattieniDietroIBox(QWidget* Finestra)
{
    new Trattenuta(Finestra);
}
