// Windows brought before the others.
#include "supporto/prova.h"

#include "platform/kit/davanti.h"

#include <QDialog>
#include <QTimer>

class TestDavanti : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void comeEra_data();
    void comeEra();
    void nascosta();
    void ridottaChiusa();
    void ridottaModale();
};
PROVA(TestDavanti);

void TestDavanti::comeEra_data()
{
    QTest::addColumn<int>("Prima");
    QTest::addColumn<int>("Dopo");
    QTest::newRow("as it is") << int(Qt::WindowNoState) << int(Qt::WindowNoState);
    QTest::newRow("maximised") << int(Qt::WindowMaximized) << int(Qt::WindowMaximized);
    QTest::newRow("minimised") << int(Qt::WindowMinimized) << int(Qt::WindowNoState);
    QTest::newRow("maximised, then minimised")
        << int(Qt::WindowMaximized | Qt::WindowMinimized) << int(Qt::WindowMaximized);
}

void TestDavanti::comeEra()
{
    QFETCH(int, Prima);
    QFETCH(int, Dopo);
    QWidget Sotto;
    Sotto.show();
    Sotto.setWindowState(Qt::WindowStates(Prima));
    QWidget Sopra;
    PortaDavanti(&Sopra);
    QVERIFY(QTest::qWaitForWindowActive(&Sopra));

    PortaDavanti(&Sotto);
    QVERIFY(QTest::qWaitForWindowActive(&Sotto));
    QVERIFY(Sotto.isVisible());
    QCOMPARE(int(Sotto.windowState() & ~Qt::WindowActive), Dopo);
}

void TestDavanti::nascosta()
{
    QWidget Finestra;
    PortaDavanti(&Finestra);
    QVERIFY(QTest::qWaitForWindowActive(&Finestra));
    QVERIFY(Finestra.isVisible());
}

/// Closed from the task bar while it lay there.
void TestDavanti::ridottaChiusa()
{
    QWidget Finestra;
    Finestra.showMaximized();
    Finestra.setWindowState(Qt::WindowMaximized | Qt::WindowMinimized);
    Finestra.close();
    PortaDavanti(&Finestra);
    QVERIFY(QTest::qWaitForWindowActive(&Finestra));
    QVERIFY(!Finestra.isMinimized());
    QVERIFY(Finestra.isMaximized());
}

/// Hidden while it lay there, and asked for again by somebody who waits for it.
void TestDavanti::ridottaModale()
{
    QDialog Modulo;
    Modulo.show();
    Modulo.setWindowState(Qt::WindowMinimized);
    Modulo.hide();
    bool Ridotta = true;
    QTimer::singleShot(0, &Modulo, [&] {
        Ridotta = Modulo.isMinimized();
        Modulo.accept();
    });
    QCOMPARE(EseguiDavanti(&Modulo), int(QDialog::Accepted));
    QVERIFY(!Ridotta);
}

#include "TestDavanti.moc"
