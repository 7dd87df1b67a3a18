// Windows that go when they are closed, and the boxes of their own procedures.
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include "platform/kit/trattieni.h"

#include <QDialog>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

namespace {

QPointer<QDialog> Nuova()
{
    auto* Finestra = new QDialog;
    Finestra->setAttribute(Qt::WA_DeleteOnClose);
    TrattieniDietroIBox(Finestra);
    Finestra->show();
    return Finestra;
}

/// A box that is up for some turns of its own event loop, with what happens behind it meanwhile.
void ConUnBox(const std::function<void()>& Intanto)
{
    constexpr int Ms = 20;
    QEventLoop Giro;
    QTimer::singleShot(0, Intanto);
    QTimer::singleShot(Ms, &Giro, &QEventLoop::quit);
    Giro.exec();
}

}  // namespace

class TestTrattieni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void senzaBoxVaSubito();
    void dietroUnBoxResta();
    void dietroDueBoxResta();
    void riapertaResta();
    void nataDietroUnBoxResta();
};
PROVA(TestTrattieni);

void TestTrattieni::senzaBoxVaSubito()
{
    const QPointer<QDialog> Finestra = Nuova();
    Finestra->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!Finestra);
}

void TestTrattieni::dietroUnBoxResta()
{
    const QPointer<QDialog> Finestra = Nuova();
    ConUnBox([&] { Finestra->close(); });
    QVERIFY(Finestra);
    QVERIFY(!Finestra->isVisible());
    QTRY_VERIFY(!Finestra);
}

/// The procedure shows a second box after the first: both hold the window.
void TestTrattieni::dietroDueBoxResta()
{
    const QPointer<QDialog> Finestra = Nuova();
    ConUnBox([&] {
        Finestra->close();
        constexpr int OltreLAttesa = 120;
        QTest::qWait(OltreLAttesa);
    });
    ConUnBox([] {});
    QVERIFY(Finestra);
    QTRY_VERIFY(!Finestra);
}

void TestTrattieni::riapertaResta()
{
    const QPointer<QDialog> Finestra = Nuova();
    ConUnBox([&] { Finestra->close(); });
    Finestra->show();
    constexpr int OltreLAttesa = 200;
    QTest::qWait(OltreLAttesa);
    QVERIFY(Finestra && Finestra->isVisible());
    Finestra->close();
    QTRY_VERIFY(!Finestra);
}

/// A window that has come up behind another one's box, a menu say, is held by its own box later, although no
/// more of them are up then.
void TestTrattieni::nataDietroUnBoxResta()
{
    QPointer<QDialog> Finestra;
    QEventLoop Programma;
    bool Trattenuta = false;
    QTimer::singleShot(0, &Programma, [&] {
        ConUnBox([&] { Finestra = Nuova(); });
        QTimer::singleShot(0, &Programma, [&] {
            ConUnBox([&] { Finestra->close(); });
            Trattenuta = !Finestra.isNull();
            Programma.quit();
        });
    });
    Programma.exec();
    QVERIFY(Trattenuta);
    QTRY_VERIFY(!Finestra);
}

#include "TestTrattieni.moc"
