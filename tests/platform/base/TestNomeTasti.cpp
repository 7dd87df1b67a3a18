#include "supporto/prova.h"

#include "platform/base/nometasti.h"

using namespace Qt::StringLiterals;

class TestNomeTasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nomi_data();
    void nomi();
    void suggerimento();
};
PROVA(TestNomeTasti);

void TestNomeTasti::nomi_data()
{
    QTest::addColumn<QString>("Portabili");
    QTest::addColumn<QString>("Italiani");
    QTest::newRow("a letter") << u"Ctrl+S"_s << u"Ctrl+S"_s;
    QTest::newRow("two modifiers") << u"Ctrl+Shift+PgDown"_s << u"Ctrl+Maiusc+Pag giù"_s;
    QTest::newRow("by itself") << u"Del"_s << u"Canc"_s;
    QTest::newRow("a key of functions") << u"Shift+F6"_s << u"Maiusc+F6"_s;
    QTest::newRow("the plus") << u"Ctrl++"_s << u"Ctrl++"_s;
    QTest::newRow("the plus by itself") << u"+"_s << u"+"_s;
    QTest::newRow("a sign") << u"Ctrl+?"_s << u"Ctrl+?"_s;
    QTest::newRow("arrows") << u"Alt+Left"_s << u"Alt+Freccia sinistra"_s;
    QTest::newRow("both enters") << u"Ctrl+Enter"_s << u"Ctrl+Invio"_s;
    QTest::newRow("none") << QString() << QString();
}

void TestNomeTasti::nomi()
{
    QFETCH(QString, Portabili);
    QFETCH(QString, Italiani);
    QCOMPARE(NomeTasti(Portabili), Italiani);
}

void TestNomeTasti::suggerimento()
{
    QCOMPARE(SuggerimentoConTasti(u"Salva"_s, u"Ctrl+Shift+S"), u"Salva (Ctrl+Maiusc+S)"_s);
    QCOMPARE(SuggerimentoConTasti(u"Salva"_s, {}), u"Salva"_s);
}

#include "TestNomeTasti.moc"
