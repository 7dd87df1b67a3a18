// Words of the user's in a tool tip.
#include "supporto/prova.h"

#include "platform/kit/suggerimento.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

class TestSuggerimento : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void comeScritto_data();
    void comeScritto();
};
PROVA(TestSuggerimento);

void TestSuggerimento::comeScritto_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("plain") << u"Rossi Mario"_s;
    QTest::newRow("an ampersand is no entity") << u"Rossi & figli"_s;
    QTest::newRow("a tag") << u"Fase <b>decisoria</b>"_s;
    QTest::newRow("an image") << u"<img src='file:///etc/passwd'>"_s;
    QTest::newRow("a tag and two lines") << u"Fase <i>prima</i>\nseconda"_s;
    QTest::newRow("less and more") << u"1 < 2 > 0"_s;
}

void TestSuggerimento::comeScritto()
{
    QFETCH(QString, Testo);
    const QString Detto = AllaLettera(Testo);
    if (!Qt::mightBeRichText(Detto)) {
        QCOMPARE(Detto, Testo);
        return;
    }
    QTextDocument Mostrato;
    Mostrato.setHtml(Detto);
    QCOMPARE(Mostrato.toPlainText(), Testo);
    QVERIFY(!Detto.contains(u"<img"_s));
}

#include "TestSuggerimento.moc"
