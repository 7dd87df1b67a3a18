#include "supporto/prova.h"

#include "platform/database/somiglianza.h"

using namespace Qt::StringLiterals;

class TestSomiglianza : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelli_data();
    void modelli();
    void modelloOstileFinisce();
    void byteGuastiContanoComeUnCarattere();
    void ordineSenzaMaiuscole_data();
    void ordineSenzaMaiuscole();
};

PROVA(TestSomiglianza);

void TestSomiglianza::modelli_data()
{
    QTest::addColumn<QString>("Modello");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Atteso");

    QTest::newRow("uguale") << u"Rossi"_s << u"ROSSI"_s << true;
    QTest::newRow("tutto il testo") << u"Ross"_s << u"Rossi"_s << false;
    QTest::newRow("vuoto e vuoto") << u""_s << u""_s << true;
    QTest::newRow("vuoto e testo") << u""_s << u"a"_s << false;
    QTest::newRow("stella e vuoto") << u"*"_s << u""_s << true;
    QTest::newRow("inizia") << u"ro*"_s << u"Rossi"_s << true;
    QTest::newRow("termina") << u"*SI"_s << u"Rossi"_s << true;
    QTest::newRow("contiene") << u"*à*"_s << u"CITTÀ ALTA"_s << true;
    QTest::newRow("accento diverso") << u"citta"_s << u"città"_s << false;
    QTest::newRow("riprende") << u"*ab*abc"_s << u"xababab-abc"_s << true;
    QTest::newRow("stelle doppie") << u"a**b"_s << u"axxb"_s << true;
    QTest::newRow("uno") << u"R?ssi"_s << u"rèssi"_s << true;
    QTest::newRow("uno e nessuno") << u"Rossi?"_s << u"Rossi"_s << false;
    QTest::newRow("uno fuori dal piano base") << u"a?b"_s << u"a𝔄b"_s << true;
    QTest::newRow("cifra") << u"##/##"_s << u"12/07"_s << true;
    QTest::newRow("non cifra") << u"#"_s << u"a"_s << false;
    QTest::newRow("lista") << u"[a-cx]1"_s << u"B1"_s << true;
    QTest::newRow("lista, ultimo") << u"[a-cx]1"_s << u"x1"_s << true;
    QTest::newRow("fuori lista") << u"[a-cx]1"_s << u"d1"_s << false;
    QTest::newRow("lista negata") << u"[!a-c]"_s << u"d"_s << true;
    QTest::newRow("lista negata, dentro") << u"[!a-c]"_s << u"B"_s << false;
    QTest::newRow("stella nella lista") << u"[*]"_s << u"*"_s << true;
    QTest::newRow("stella nella lista, altro") << u"[*]"_s << u"a"_s << false;
    QTest::newRow("lista vuota") << u"a[]b"_s << u"ab"_s << true;
    QTest::newRow("punto esclamativo solo") << u"[!]"_s << u"!"_s << true;
    QTest::newRow("trattino in coda") << u"[a-]"_s << u"-"_s << true;
    QTest::newRow("quadra senza fine") << u"[ab"_s << u"[AB"_s << true;
}

void TestSomiglianza::modelli()
{
    QFETCH(QString, Modello);
    QFETCH(QString, Testo);
    QTEST(Somiglianza(Modello).Corrisponde(Testo.toUtf8()), "Atteso");
}

void TestSomiglianza::modelloOstileFinisce()
{
    // Taken up again at every star, this pattern would need more steps than there are atoms, and not end.
    const Somiglianza Ostile(u"*a"_s.repeated(200) + u"*b"_s);
    QVERIFY(!Ostile.Corrisponde(QByteArray(20000, 'a')));
}

void TestSomiglianza::byteGuastiContanoComeUnCarattere()
{
    QVERIFY(Somiglianza(u"a?b"_s).Corrisponde(QByteArrayView("a\xff"
                                                             "b")));
    QVERIFY(Somiglianza(u"a?"_s).Corrisponde(QByteArrayView("a\xc3")));
    QVERIFY(Somiglianza(u"??"_s).Corrisponde(QByteArrayView("\xe2\x28")));
    QVERIFY(!Somiglianza(u"\xad"_s).Corrisponde(QByteArrayView("\xc1\xad")));
}

void TestSomiglianza::ordineSenzaMaiuscole_data()
{
    QTest::addColumn<QString>("Primo");
    QTest::addColumn<QString>("Secondo");
    QTest::addColumn<int>("Atteso");

    QTest::newRow("uguali") << u"Àb"_s << u"àB"_s << 0;
    QTest::newRow("accento dopo") << u"az"_s << u"à"_s << -1;
    QTest::newRow("minuscola e maiuscola") << u"a"_s << u"B"_s << -1;
    QTest::newRow("piu corto prima") << u"ab"_s << u"a"_s << 1;
    QTest::newRow("vuoto prima") << u""_s << u"a"_s << -1;
    QTest::newRow("lettere e segni") << u"_"_s << u"A"_s << -1;
}

void TestSomiglianza::ordineSenzaMaiuscole()
{
    QFETCH(QString, Primo);
    QFETCH(QString, Secondo);
    QFETCH(int, Atteso);
    QCOMPARE(ConfrontaSenzaMaiuscole(Primo.toUtf8(), Secondo.toUtf8()), Atteso);
    QCOMPARE(ConfrontaSenzaMaiuscole(Secondo.toUtf8(), Primo.toUtf8()), -Atteso);
}

#include "TestSomiglianza.moc"
