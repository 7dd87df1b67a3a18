#include "supporto/accessibili.h"
#include "supporto/prova.h"

#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

/// The walk through the tree of a window sees what is wrong with it.
class TestAccessibili : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ilGuastoSiVede_data();
    void ilGuastoSiVede();
};
PROVA(TestAccessibili);

void TestAccessibili::ilGuastoSiVede_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Detto");
    QTest::newRow("no name") << 0 << u"senza nome: QToolButton prova"_s;
    QTest::newRow("a sign") << 1 << u"il nome è un segno, «…»: QToolButton prova"_s;
    QTest::newRow("twice") << 2 << u"due volte «Calendario»: QToolButton prova, QToolButton seconda"_s;
    QTest::newRow("mask") << 3 << u"maschera vuota letta «//»: QLineEdit prova"_s;
}

void TestAccessibili::ilGuastoSiVede()
{
    QFETCH(int, Quale);
    QFETCH(QString, Detto);
    QWidget Finestra;
    auto* Bottone = new QToolButton(&Finestra);
    Bottone->setObjectName(u"prova"_s);
    if (Quale == 1)
        Bottone->setText(u"…"_s);
    if (Quale == 2) {
        Bottone->setText(u"Calendario"_s);
        auto* Secondo = new QToolButton(&Finestra);
        Secondo->setObjectName(u"seconda"_s);
        Secondo->setText(u"Calendario"_s);
    }
    if (Quale == 3) {
        delete Bottone;
        auto* Maschera = new QLineEdit(u"//"_s, &Finestra);
        Maschera->setObjectName(u"prova"_s);
        Maschera->setAccessibleName(u"Data"_s);
    }
    Finestra.show();
    QCOMPARE(accessibili::Difetti(&Finestra), QStringList{Detto});
}

#include "TestAccessibili.moc"
