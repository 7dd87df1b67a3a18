#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "print/modLettere.h"

#include <limits>

using namespace Qt::StringLiterals;

class TestLettere : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numeri_data();
    void numeri();
    void testi_data();
    void testi();
    void testiCheNonSonoNumeri_data();
    void testiCheNonSonoNumeri();
    void importoNonFinito();
    void ultimaPos_data();
    void ultimaPos();
    void sostituisciTesto_data();
    void sostituisciTesto();
};
PROVA(TestLettere);

void TestLettere::numeri_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Lettere");

    QTest::newRow("nothing is not written") << 0.0 << u"/00"_s;
    QTest::newRow("minus nothing") << -0.0 << u"/00"_s;
    QTest::newRow("cents alone") << 0.5 << u"/50"_s;
    QTest::newRow("1") << 1.0 << u"uno/00"_s;
    QTest::newRow("3") << 3.0 << u"tre/00"_s;
    QTest::newRow("10") << 10.0 << u"dieci/00"_s;
    QTest::newRow("11") << 11.0 << u"undici/00"_s;
    QTest::newRow("16") << 16.0 << u"sedici/00"_s;
    QTest::newRow("17, one s") << 17.0 << u"diciasette/00"_s;
    QTest::newRow("19") << 19.0 << u"diciannove/00"_s;
    QTest::newRow("20") << 20.0 << u"venti/00"_s;
    QTest::newRow("21 elides") << 21.0 << u"ventuno/00"_s;
    QTest::newRow("28 keeps its io") << 28.0 << u"ventiotto/00"_s;
    QTest::newRow("31 elides") << 31.0 << u"trentuno/00"_s;
    QTest::newRow("38 elides") << 38.0 << u"trentotto/00"_s;
    QTest::newRow("99") << 99.0 << u"novantanove/00"_s;
    QTest::newRow("100") << 100.0 << u"cento/00"_s;
    QTest::newRow("101 keeps its ou") << 101.0 << u"centouno/00"_s;
    QTest::newRow("108 elides oo") << 108.0 << u"centotto/00"_s;
    QTest::newRow("111") << 111.0 << u"centoundici/00"_s;
    QTest::newRow("128") << 128.0 << u"centoventiotto/00"_s;
    QTest::newRow("180 elides oo") << 180.0 << u"centottanta/00"_s;
    QTest::newRow("200") << 200.0 << u"duecento/00"_s;
    QTest::newRow("888") << 888.0 << u"ottocentottantotto/00"_s;
    QTest::newRow("999") << 999.0 << u"novecentonovantanove/00"_s;
    QTest::newRow("1000") << 1000.0 << u"mille/00"_s;
    QTest::newRow("1001") << 1001.0 << u"milleuno/00"_s;
    QTest::newRow("2000") << 2000.0 << u"duemila/00"_s;
    QTest::newRow("8000") << 8000.0 << u"ottomila/00"_s;
    QTest::newRow("21000 elides after its scale") << 21000.0 << u"ventunomila/00"_s;
    QTest::newRow("80000") << 80000.0 << u"ottantamila/00"_s;
    QTest::newRow("100000") << 100000.0 << u"centomila/00"_s;
    QTest::newRow("101000 is not the singular") << 101000.0 << u"centounomila/00"_s;
    QTest::newRow("1000000") << 1000000.0 << u"unmilione/00"_s;
    QTest::newRow("1000001") << 1000001.0 << u"unmilioneuno/00"_s;
    QTest::newRow("2000000") << 2000000.0 << u"duemilioni/00"_s;
    QTest::newRow("2000001 elides across groups") << 2000001.0 << u"duemilionuno/00"_s;
    QTest::newRow("2000011 elides across groups") << 2000011.0 << u"duemilionundici/00"_s;
    QTest::newRow("1000000000") << 1000000000.0 << u"unmiliardo/00"_s;
    QTest::newRow("1000000008 elides across groups") << 1000000008.0 << u"unmiliardotto/00"_s;
    QTest::newRow("2000001000") << 2000001000.0 << u"duemiliardimille/00"_s;
    QTest::newRow("all four groups, eliding iu") << 3001002003.0 << u"tremiliardunmilioneduemilatre/00"_s;
    QTest::newRow("12 digits") << 999999999999.0
                               << u"novecentonovantanovemiliardinovecentonovantanovemilioni"
                                  "novecentonovantanovemilanovecentonovantanove/00"_s;

    QTest::newRow("one decimal is filled") << 1234.5 << u"milleduecentotrentaquattro/50"_s;
    QTest::newRow("decimal with a 0") << 1234.05 << u"milleduecentotrentaquattro/05"_s;
    QTest::newRow("third decimal is cut") << 1.999 << u"uno/99"_s;
    QTest::newRow("binary dust is not seen") << 0.1 + 0.2 << u"/30"_s;
    QTest::newRow("summed cents") << 1190.7 << u"millecentonovanta/70"_s;
    QTest::newRow("down, not to nearest") << 2.99 << u"due/99"_s;
    QTest::newRow("below what the plain text writes") << 0.000015 << u"/00"_s;

    QTest::newRow("negative") << -12.5 << u"menododici/50"_s;
    QTest::newRow("negative, no blank behind the sign") << -1000.0 << u"menomille/00"_s;
    QTest::newRow("the sign elides nothing") << -8.0 << u"menootto/00"_s;
    QTest::newRow("a negative amount elides as its absolute one") << -180.0 << u"menocentottanta/00"_s;
    QTest::newRow("negative cents") << -0.25 << u"meno/25"_s;
    QTest::newRow("negative is not rounded away") << -1.999 << u"menouno/99"_s;

    QTest::newRow("13 digits read the first 12") << 1234567890123.0
                                                 << u"centoventitremiliardiquattrocentocinquantaseimilioni"
                                                    "settecentottantanovemiladodici/00"_s;
    QTest::newRow("13 digits keep their decimals") << 1000000000000.25 << u"centomiliardi/25"_s;
    QTest::newRow("16 digits have no decimals") << 1.5e15 << u"centocinquantamiliardi/00"_s;
}

void TestLettere::numeri()
{
    QFETCH(double, Valore);
    QTEST(NumeroInLettere(Valore), "Lettere");
}

void TestLettere::testi_data()
{
    QTest::addColumn<QVariant>("Valore");
    QTest::addColumn<QString>("Lettere");

    QTest::newRow("formatted") << QVariant(u"1190,70"_s) << u"millecentonovanta/70"_s;
    QTest::newRow("grouped") << QVariant(u"1.190,70"_s) << u"millecentonovanta/70"_s;
    QTest::newRow("no decimals") << QVariant(u"17"_s) << u"diciasette/00"_s;
    QTest::newRow("zeros behind the comma") << QVariant(u"100,00"_s) << u"cento/00"_s;
    QTest::newRow("negative") << QVariant(u"-3,10"_s) << u"menotre/10"_s;
    QTest::newRow("a number") << QVariant(8.08) << u"otto/08"_s;
    QTest::newRow("a whole number") << QVariant(1000) << u"mille/00"_s;
}

void TestLettere::testi()
{
    QFETCH(QVariant, Valore);
    QTEST(NumeroInLettere(Valore), "Lettere");
}

void TestLettere::testiCheNonSonoNumeri_data()
{
    QTest::addColumn<QVariant>("Valore");
    QTest::addColumn<int>("Numero");

    QTest::newRow("words") << QVariant(u"mille"_s) << 13;
    QTest::newRow("empty") << QVariant(u""_s) << 13;
    QTest::newRow("a point where no group ends") << QVariant(u"12.5"_s) << 13;
    QTest::newRow("absent") << QVariant() << 13;
    QTest::newRow("beyond a double") << QVariant(u"1E400"_s) << 6;
}

void TestLettere::testiCheNonSonoNumeri()
{
    QFETCH(QVariant, Valore);
    QTEST(NumeroErrore([&] { (void)NumeroInLettere(Valore); }), "Numero");
}

void TestLettere::importoNonFinito()
{
    QVERIFY(NumeroErrore([&] { (void)NumeroInLettere(std::numeric_limits<double>::infinity()); }) != 0);
    QVERIFY(NumeroErrore([&] { (void)NumeroInLettere(std::numeric_limits<double>::quiet_NaN()); }) != 0);
}

void TestLettere::ultimaPos_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<int>("Posto");

    QTest::newRow("last of two") << u"12.345.67"_s << u"."_s << 7;
    QTest::newRow("at the start") << u".5"_s << u"."_s << 1;
    QTest::newRow("longer") << u"abcabc"_s << u"bc"_s << 5;
    QTest::newRow("none") << u"12"_s << u"."_s << 0;
    QTest::newRow("empty text") << u""_s << u"."_s << 0;
}

void TestLettere::ultimaPos()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Cercato);
    QTEST(UltimaPos(Testo, Cercato), "Posto");
}

void TestLettere::sostituisciTesto_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<QString>("Nuovo");
    QTest::addColumn<QString>("Fatto");

    QTest::newRow("each occurrence") << u"xaxa"_s << u"xa"_s << u"b"_s << u"bb"_s;
    QTest::newRow("searches from the start again") << u"ooooo"_s << u"oo"_s << u"o"_s << u"o"_s;
    QTest::newRow("what the replacement makes") << u"aabb"_s << u"ab"_s << u""_s << u""_s;
    QTest::newRow("none") << u"abc"_s << u"x"_s << u"y"_s << u"abc"_s;
    QTest::newRow("contains what is sought") << u"aba"_s << u"a"_s << u"aa"_s << u"aabaa"_s;
    QTest::newRow("by itself") << u"aba"_s << u"a"_s << u"a"_s << u"aba"_s;
    QTest::newRow("empty search") << u"abc"_s << u""_s << u"x"_s << u"abc"_s;
}

void TestLettere::sostituisciTesto()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Cercato);
    QFETCH(QString, Nuovo);
    QTEST(SostituisciTesto(Testo, Cercato, Nuovo), "Fatto");
}

#include "TestLettere.moc"
