#include "supporto/finestre.h"

#include "platform/system/impostazioni.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QThreadPool>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

#include <array>
#include <utility>

#ifdef Q_OS_LINUX
/// In place of the toolkit's own, which its painter alone asks: everything transparent that is taller than 95
/// pixels goes to other threads in strips, unless the one that paints is such a thread already. To wake them
/// and to wait for each takes longer than the drawing, which is the same, and where eight classes share two
/// processors every strip waits for its turn: 640,000 changes of thread in five classes, 5,000 without.
bool QThreadPool::contains(const QThread* /*Quale*/) const
{
    return true;
}
#endif

namespace {

constexpr std::array TastiModificatori{
    std::pair(Qt::ShiftModifier, Qt::Key_Shift),
    std::pair(Qt::ControlModifier, Qt::Key_Control),
    std::pair(Qt::AltModifier, Qt::Key_Alt),
};

bool MandaUno(QEvent::Type Tipo, int Tasto, Qt::KeyboardModifiers Modificatori, const QString& Testo)
{
    QWidget* Campo = QApplication::focusWidget();
    if (!Campo)
        return false;
    QKeyEvent Evento(Tipo, Tasto, Modificatori, Testo);
    QCoreApplication::sendEvent(Campo, &Evento);
    return true;
}

void Manda(int Tasto, Qt::KeyboardModifiers Modificatori, const QString& Testo)
{
    // As a keyboard does it: a modifier is a key too, whose press bears it already and whose release no more.
    if (!QApplication::focusWidget())
        Respiro();  // a box may have closed just now, and a hand is slower than the window manager
    Qt::KeyboardModifiers Tenuti;
    bool Arrivati = true;
    for (const auto& [Modificatore, SuoTasto] : TastiModificatori)
        if (Modificatori.testFlag(Modificatore) && SuoTasto != Tasto)
            Arrivati = MandaUno(QEvent::KeyPress, SuoTasto, Tenuti |= Modificatore, {}) && Arrivati;
    Arrivati = MandaUno(QEvent::KeyPress, Tasto, Modificatori, Testo) && Arrivati;
    (void)MandaUno(QEvent::KeyRelease, Tasto, Modificatori, Testo);  // a box may have taken the focus
    if (!Arrivati)
        QTest::qFail("nessun campo ha il fuoco", __FILE__, __LINE__);
    for (const auto& [Modificatore, SuoTasto] : TastiModificatori)
        if (Tenuti.testFlag(Modificatore))
            (void)MandaUno(QEvent::KeyRelease, SuoTasto, Tenuti &= ~Modificatore, {});
}

}  // namespace

bool MostraAttiva(QWidget& Finestra)
{
    Finestra.show();
    QApplication::setActiveWindow(&Finestra);
    return QTest::qWaitForWindowActive(&Finestra);
}

void BoxDavanti()
{
    QWidget* Prima = QApplication::activeWindow();
    if (!Prima)
        return;
    {
        QDialog Box(Prima);
        Box.setModal(true);
        Box.show();
        QApplication::setActiveWindow(&Box);
        Respiro();
    }
    QTimer::singleShot(0, Prima, [Prima] {
        // A window that another one holds back by now is given nothing.
        const QWidget* Modale = QApplication::activeModalWidget();
        if (Prima->isVisible() && !QApplication::activeWindow() && (!Modale || Modale == Prima))
            QApplication::setActiveWindow(Prima);
    });
}

void Digita(const QString& Testo, Qt::KeyboardModifiers Modificatori)
{
    for (const QChar Lettera : Testo)
        Manda(Lettera.toUpper().unicode(), Modificatori, Lettera);
}

void Premi(Qt::Key Tasto, Qt::KeyboardModifiers Modificatori)
{
    Manda(Tasto, Modificatori, Tasto == Qt::Key_Return ? QStringLiteral("\r") : QString());
}

void Rotella(QWidget* Sopra)
{
    const QPointF Dove = Sopra->rect().center();
    QWheelEvent Scatto(Dove, Sopra->mapToGlobal(Dove), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&Scatto);  // one that a program sends goes no further, so no sendEvent
    qApp->notify(Sopra, &Scatto);
}

void SpostaDaUtente(QWidget& Finestra, const QRect& Posto)
{
    QVERIFY(QTest::qWaitForWindowExposed(&Finestra));
    Finestra.repaint();
    Finestra.setGeometry(Posto);
}

void ProvaPosto(const QString& Nome, const std::function<QWidget*()>& Apri)
{
    const QString Applicativo = QStringLiteral("KR5");
    const QString Sezione = QStringLiteral("Parametri");
    const QString Chiave = QStringLiteral("Posto_") + Nome;
    const auto Ricordato = [&] { return GetSetting(Applicativo, Sezione, Chiave); };
    SaveSetting(Applicativo, Sezione, Chiave, {});
    QWidget* Finestra = Apri();
    QVERIFY(Finestra && QTest::qWaitForWindowExposed(Finestra));
    Finestra->repaint();
    Finestra->close();
    QVERIFY2(Ricordato().isEmpty(), "nobody has touched it");

    Finestra = Apri();
    SpostaDaUtente(*Finestra, QRect(QPoint(11, 53), Finestra->minimumSizeHint()));
    const QRect Posto = Finestra->geometry();
    Finestra->close();
    QCOMPARE(
        Ricordato(),
        QStringLiteral("%1,%2,%3,%4").arg(Posto.x()).arg(Posto.y()).arg(Posto.width()).arg(Posto.height()));
    Finestra = Apri();
    QCOMPARE(Finestra->geometry(), Posto);
    Finestra->close();
}

void Respiro()
{
    QCoreApplication::processEvents();
}
