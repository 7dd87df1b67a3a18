// What a screen reader is told of things that happen away from the focus.
#include "platform/kit/annuncio.h"
#include "supporto/prova.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// What a reader finds as the window's announcement, with its role in front; empty while there is none.
QString Annunciato(const QWidget& Finestra)
{
    auto* Annuncio = Finestra.findChild<QWidget*>(u"annuncio"_s, Qt::FindDirectChildrenOnly);
    const QAccessibleInterface* Letto = Annuncio ? QAccessible::queryAccessibleInterface(Annuncio) : nullptr;
    return Letto && Letto->role() == QAccessible::Notification ? Letto->text(QAccessible::Name) : QString();
}

}  // namespace

class TestAnnuncio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void siDiceNellaSuaFinestra();
    void nonSiVedeENonPrendeIlFuoco();
    void seNeVa();
};
PROVA(TestAnnuncio);

void TestAnnuncio::siDiceNellaSuaFinestra()
{
    QWidget Finestra, Altra;
    auto* Dentro = new QLineEdit(&Finestra);
    Finestra.show();
    Altra.show();
    AnnunciaTesto(Dentro, u"Inserita la riga 1"_s);
    QCOMPARE(Annunciato(Finestra), u"Inserita la riga 1"_s);
    QCOMPARE(Annunciato(Altra), QString());
    AnnunciaTesto(&Finestra, u"Tolta"_s);
    AnnunciaTesto(&Finestra, {});
    QCOMPARE(Annunciato(Finestra), u"Tolta"_s);
    QCOMPARE(Finestra.findChildren<QWidget*>(u"annuncio"_s).size(), 1);
}

void TestAnnuncio::nonSiVedeENonPrendeIlFuoco()
{
    QWidget Finestra;
    auto* Colonna = new QVBoxLayout(&Finestra);
    auto* Dentro = new QLineEdit;
    Colonna->addWidget(Dentro);
    Finestra.show();
    QVERIFY(QTest::qWaitForWindowActive(&Finestra));
    Dentro->setFocus();
    const QImage Prima = Finestra.grab().toImage();
    AnnunciaTesto(Dentro, u"Fatto"_s);
    QCOMPARE(QApplication::focusWidget(), Dentro);
    const auto* Annuncio = Finestra.findChild<QWidget*>(u"annuncio"_s);
    QVERIFY(Annuncio);
    QVERIFY(Annuncio->isVisible());
    QCOMPARE(Annuncio->focusPolicy(), Qt::NoFocus);
    QCOMPARE(Annuncio->size(), QSize(1, 1));
    QCOMPARE(Finestra.grab().toImage(), Prima);
}

/// Who goes through the window later does not meet what was said long ago; the next one comes up again.
void TestAnnuncio::seNeVa()
{
    const auto Rimetti = qScopeGuard([Durata = DurataAnnuncioMs] { DurataAnnuncioMs = Durata; });
    DurataAnnuncioMs = 20;
    QWidget Finestra;
    Finestra.show();
    AnnunciaTesto(&Finestra, u"Fatto"_s);
    const auto* Annuncio = Finestra.findChild<QWidget*>(u"annuncio"_s);
    QVERIFY(Annuncio && Annuncio->isVisible());
    QTRY_VERIFY(!Annuncio->isVisible());
    QCOMPARE(Annunciato(Finestra), QString());
    AnnunciaTesto(&Finestra, u"Fatto"_s);
    QVERIFY(Annuncio->isVisible());
    QCOMPARE(Annunciato(Finestra), u"Fatto"_s);
}

#include "TestAnnuncio.moc"
