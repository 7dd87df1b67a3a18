#include "scimmia/scimmia.h"

#include "feenote/finder/windows/frmTrovaParcella.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/singola.h"
#include "scimmia/tempo.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLineEdit>
#include <QThread>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// True inside no box, no menu and no long work: where the program waits for whatever comes.
bool NelGiroEsterno()
{
    return QThread::currentThread()->loopLevel() <= 1 && !RespiroInCorso() &&
           !QApplication::activePopupWidget();
}

}  // namespace

Scimmia::Scimmia(Caso& Chi, int QuantiEventi, bool SuNote, std::function<void(const QString&)> Nota,
                 std::function<void(const QString&)> Fermo)
    : Sorte(Chi), Quanti(QuantiEventi), Annota(std::move(Nota)), Fermati(std::move(Fermo)),
      Idee(Chi, Tocco, SuNote)
{
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                     [this] { GiroNuovo = true; });
    QObject::connect(qApp, &QApplication::focusWindowChanged, this, [this] {
        if (QWidget* Davanti = QApplication::activeWindow()) {
            std::erase_if(Storia, [Davanti](const auto& Una) { return !Una || Una == Davanti; });
            Storia.emplace_back(Davanti);
        }
    });
}

void Scimmia::Parti()
{
    Riarma();
}

/// A timer that is another one each time: one and the same does not fire in the loop of a box that its own
/// event has opened.
void Scimmia::Riarma()
{
    if (Timer != 0)
        killTimer(Timer);
    Timer = startTimer(0);
}

void Scimmia::timerEvent(QTimerEvent* Evento)
{
    if (Evento->timerId() != Timer)
        return;
    Riarma();
    // Inside a long work events wait in their queue, and are looked at when it breathes.
    const bool NelLavoro = RespiroInCorso() && Sorte.Su(10);
    if (std::exchange(GiroNuovo, false) || NelLavoro)
        Passo();
}

void Scimmia::Passo()
{
    GestoreFinestre();
    if (NelGiroEsterno())
        Controlla();
    if (Eventi >= Quanti) {
        Saluta();
        return;
    }
    Gesto();
}

/// The platform without a screen gives a window the keyboard when it comes up, and nobody when it goes: the
/// rest is a window manager's, which leaves it to no window that a box holds back.
void Scimmia::GestoreFinestre()
{
    const QWindow* Davanti = QGuiApplication::focusWindow();
    const QWidget* Sua = Davanti ? QWidget::find(Davanti->winId()) : nullptr;
    if (Davanti && Davanti->isVisible() && (!Sua || Sua->windowType() == Qt::Popup || Libera(Sua))) {
        SenzaFuoco = 0;
        return;
    }
    QWidget* Scelta = QApplication::activeModalWidget();
    std::erase_if(Storia, [](const auto& Una) { return !Una; });
    for (auto Una = Storia.rbegin(); Una != Storia.rend() && !Scelta; ++Una)
        if ((*Una)->isVisible() && Libera(*Una) && (*Una)->windowHandle())
            Scelta = *Una;
    if (!Scelta)
        for (QWidget* Una : FinestreInVista())
            if (Libera(Una) && !Una->isMinimized())
                Scelta = Una;
    if (!Scelta || !Scelta->windowHandle())
        return;
    constexpr int Abbastanza = 50;
    if (++SenzaFuoco > Abbastanza)
        Fermati(u"nessuna finestra prende il fuoco, nemmeno "_s + NomeDi(Scelta));
    Scelta->windowHandle()->requestActivate();
}

void Scimmia::Controlla()
{
    if (const QString Guasto = FinestreGuaste(); !Guasto.isEmpty())
        Fermati(Guasto);
    if (const QString Diversa = Note.Confronta(); !Diversa.isEmpty())
        Fermati(Diversa);
}

void Scimmia::Gesto()
{
    if (Coda.empty()) {
        constexpr int FineOgni = 1500;
        if (Sorte.Fino(FineOgni) == 0) {
            FineSessione();
            return;
        }
        Coda = Idee.Prossimo();
    }
    if (Coda.empty())
        return;
    const Evento Adesso = std::move(Coda.front());
    Coda.pop_front();
    ++Eventi;
    Annota(Adesso.Detto);
    LasciaPassare();
    Adesso.Fai();
}

/// Time for timers, between two events: that of a hurried user, and now and then a pause in which all that
/// waits for one has its turn.
void Scimmia::LasciaPassare()
{
    constexpr int Fretta = 40;
    constexpr int Pausa = 4000;
    constexpr int PerTrovare = 5;
    if (const auto& Trova = SeCaricato<frmTrovaParcella>; Trova && Trova->InRicerca())
        AttendiGliAltri(PerTrovare);  // or the list has as many rows as the machine is fast
    TempoPassa(Sorte.Su(3) ? Sorte.Fino(Pausa) : Sorte.Fino(Fretta));
}

/// The session of the desktop ends: every window is closed, those behind a box too.
void Scimmia::FineSessione()
{
    ++Eventi;
    Annota(u"fine della sessione"_s);
    QApplication::closeAllWindows();
}

/// All events made: what is open is closed as a user does it, until the program ends by itself.
void Scimmia::Saluta()
{
    constexpr int Pazienza = 2000;
    constexpr int Attimo = 50;
    Congedo = true;
    Come = Risposte::Subito;
    TempoPassa(Attimo);
    if (++Saluti > Pazienza)
        Fermati(u"il programma non finisce; davanti sta %1, in %2 giri%3, sopra %4"_s
                    .arg(NomeDi(QApplication::activeWindow()))
                    .arg(QThread::currentThread()->loopLevel())
                    .arg(RespiroInCorso() ? u" e un respiro"_s : QString(),
                         NomeDi(QApplication::activePopupWidget())));
    if (Tocco.Tiene()) {
        Tocco.Lascia({QGuiApplication::focusWindow(), QPoint(1, 1)});
        return;
    }
    if (!NelGiroEsterno()) {
        // A window that asks at the key lets itself be closed by its cross.
        constexpr int Volte = 10;
        if (const QWidget* Davanti = QApplication::activeModalWidget();
            Saluti % Volte == 0 && Davanti && Davanti->windowHandle()) {
            Annota(u"congedo: chiudi "_s + NomeDi(Davanti));
            Davanti->windowHandle()->close();
            return;
        }
        Annota(u"congedo: Esc"_s);
        Mani::Tasto(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, u"\x1b"_s);
        return;
    }
    QWidgetList Tutte = FinestreInVista();
    Tutte.removeIf([](const QWidget* Una) { return !Libera(Una); });
    if (Tutte.isEmpty())
        return;
    // A box that lets nobody leave over what is no number is emptied, as its user would do.
    constexpr int Rifiuti = 25;
    if (Saluti % Rifiuti == 0 && qobject_cast<const QLineEdit*>(QApplication::focusWidget())) {
        Annota(u"congedo: svuota "_s + NomeDi(QApplication::focusWidget()));
        for (const auto& [Codice, Con] : {std::pair{Qt::Key_A, Qt::KeyboardModifiers(Qt::ControlModifier)},
                                          std::pair{Qt::Key_Delete, Qt::KeyboardModifiers()}}) {
            Mani::Tasto(QEvent::KeyPress, Codice, Con, {});
            Mani::Tasto(QEvent::KeyRelease, Codice, Con, {});
        }
        return;
    }
    const QWidget* Scelta = Tutte[Saluti % Tutte.size()];
    Annota(u"congedo: chiudi "_s + NomeDi(Scelta));
    Scelta->windowHandle()->close();
}
