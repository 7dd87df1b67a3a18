#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "feenote/companion/modRichiesta.h"
#include "platform/base/numerierrore.h"

using namespace Qt::StringLiterals;

class TestRichiestaPV2 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void leggeISetteCampi_data();
    void leggeISetteCampi();
    void mancaUnaBarra_data();
    void mancaUnaBarra();
    void numeroIllegibile_data();
    void numeroIllegibile();
};
PROVA(TestRichiestaPV2);

void TestRichiestaPV2::init()
{
    // What an earlier request left must not shine through.
    sessione::RichiestaPV2 = {u"vecchia"_s, 9, 9, 9.0, 9, 9, 9};
}

void TestRichiestaPV2::leggeISetteCampi_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<Richiesta>("Attesa");

    QTest::newRow("all") << u"P12|1|2|1500,5|70000|80000|3|"_s
                         << Richiesta{u"P12"_s, 1, 2, 1500.5, 70000, 80000, 3};
    QTest::newRow("zeros") << u"P|0|0|0|0|0|0|"_s << Richiesta{u"P"_s, 0, 0, 0.0, 0, 0, 0};
    QTest::newRow("what follows is ignored")
        << u"P|1|2|3|4|5|6|7|8"_s << Richiesta{u"P"_s, 1, 2, 3.0, 4, 5, 6};
    QTest::newRow("value with thousands points")
        << u"P|1|2|1.500,25|4|5|6|"_s << Richiesta{u"P"_s, 1, 2, 1500.25, 4, 5, 6};
    QTest::newRow("empty identifier") << u"|1|2|3|4|5|6|"_s << Richiesta{u""_s, 1, 2, 3.0, 4, 5, 6};
    QTest::newRow("identifier as it stands")
        << u" P 1 |1|2|3|4|5|6|"_s << Richiesta{u" P 1 "_s, 1, 2, 3.0, 4, 5, 6};
    QTest::newRow("the longest identifier")
        << QString(200, u'x') + u"|1|2|3|4|5|6|"_s << Richiesta{QString(200, u'x'), 1, 2, 3.0, 4, 5, 6};
    QTest::newRow("halves go to the even number")
        << u"P|1,5|2,5|3|4|5|6|"_s << Richiesta{u"P"_s, 2, 2, 3.0, 4, 5, 6};
    QTest::newRow("largest of 16 bits")
        << u"P|32767|-32768|3|4|5|32767|"_s << Richiesta{u"P"_s, 32767, -32768, 3.0, 4, 5, 32767};
    QTest::newRow("largest of 32 bits") << u"P|1|2|3|2147483647|-2147483648|6|"_s
                                        << Richiesta{u"P"_s, 1, 2, 3.0, 2147483647, -2147483647 - 1, 6};
    QTest::newRow("junk in the last field is 0")
        << u"P|1|2|3|4|5|abc|"_s << Richiesta{u"P"_s, 1, 2, 3.0, 4, 5, 0};
    QTest::newRow("empty last field is 0") << u"P|1|2|3|4|5||"_s << Richiesta{u"P"_s, 1, 2, 3.0, 4, 5, 0};
    QTest::newRow("numeric prefix of the last field")
        << u"P|1|2|3|4|5|12abc|"_s << Richiesta{u"P"_s, 1, 2, 3.0, 4, 5, 12};
    QTest::newRow("prefix ends at the comma")
        << u"P|1|2|3|4|5|12,9|"_s << Richiesta{u"P"_s, 1, 2, 3.0, 4, 5, 12};
}

void TestRichiestaPV2::leggeISetteCampi()
{
    QFETCH(QString, Testo);
    QFETCH(Richiesta, Attesa);
    const Registratore Box;
    QVERIFY(LeggiRichiestaPV2(Testo));
    QVERIFY(sessione::RichiestaPV2 == Attesa);
}

void TestRichiestaPV2::mancaUnaBarra_data()
{
    QTest::addColumn<QString>("Testo");

    QTest::newRow("six fields") << u"P|1|2|3|4|5|"_s;
    QTest::newRow("the last is not closed") << u"P|1|2|3|4|5|6"_s;
    QTest::newRow("only the identifier") << u"P"_s;
    QTest::newRow("empty") << u""_s;
}

void TestRichiestaPV2::mancaUnaBarra()
{
    QFETCH(QString, Testo);
    const Registratore Box;
    QVERIFY(!LeggiRichiestaPV2(Testo));
    QVERIFY(sessione::RichiestaPV2 == Richiesta());
}

void TestRichiestaPV2::numeroIllegibile_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<int>("Numero");

    QTest::newRow("category") << u"P|a|2|3|4|5|6|"_s << 13;
    QTest::newRow("empty category") << u"P||2|3|4|5|6|"_s << 13;
    QTest::newRow("authority") << u"P|1|b|3|4|5|6|"_s << 13;
    QTest::newRow("value with a decimal point") << u"P|1|2|3.5|4|5|6|"_s << 13;
    QTest::newRow("client") << u"P|1|2|3|c|5|6|"_s << 13;
    QTest::newRow("counterparty") << u"P|1|2|3|4|d|6|"_s << 13;
    QTest::newRow("category beyond 16 bits") << u"P|32768|2|3|4|5|6|"_s << 6;
    QTest::newRow("authority beyond 16 bits") << u"P|1|-32769|3|4|5|6|"_s << 6;
    QTest::newRow("client beyond 32 bits") << u"P|1|2|3|2147483648|5|6|"_s << 6;
    QTest::newRow("counterparty beyond 32 bits") << u"P|1|2|3|4|-2147483649|6|"_s << 6;
    QTest::newRow("last field beyond 16 bits") << u"P|1|2|3|4|5|32768|"_s << 6;
    QTest::newRow("last field far beyond") << u"P|1|2|3|4|5|1e300|"_s << 6;
    QTest::newRow("an identifier that no name of a file could begin with")
        << QString(201, u'x') + u"|1|2|3|4|5|6|"_s << 3163;
    QTest::newRow("the same in letters of two bytes") << QString(101, u'è') + u"|1|2|3|4|5|6|"_s << 3163;
    QTest::newRow("told although a bar is missing further on") << u"P|a|2"_s << 13;
}

void TestRichiestaPV2::numeroIllegibile()
{
    QFETCH(QString, Testo);
    QFETCH(int, Numero);
    Registratore Box;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(Numero) + u" ("_s + QString::number(Numero) + u')', vbOK,
                u"Errore:"_s);
    QVERIFY(!LeggiRichiestaPV2(Testo));
    QVERIFY(sessione::RichiestaPV2 == Richiesta());
}

#include "TestRichiestaPV2.moc"
