#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/regionale.h"

#include <QLocale>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class TestRegionaleNumeri : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formatSegueIlModello_data();
    void formatSegueIlModello();
    void formatRifiuta();
    void formatNumDiUnaCella_data();
    void formatNumDiUnaCella();
    void cstrDelDoppio_data();
    void cstrDelDoppio();
    void cstrDelSingolo_data();
    void cstrDelSingolo();
    void cstrDiUnaCella_data();
    void cstrDiUnaCella();
    void strLasciaIlPostoDelSegno_data();
    void strLasciaIlPostoDelSegno();
    void numeriItaliani_data();
    void numeriItaliani();
    void nonSonoNumeri_data();
    void nonSonoNumeri();
    void numeriTroppoGrandi();
    void cdblDiUnaCella_data();
    void cdblDiUnaCella();
    void numeriInteri_data();
    void numeriInteri();
    void numeriSingoli();
    void valPrendeIlPrefisso_data();
    void valPrendeIlPrefisso();
    void siRileggeQuelCheSiScrive();
    void laLinguaDellaMacchinaNonConta();
};
PROVA(TestRegionaleNumeri);

namespace {

constexpr double Infinito = std::numeric_limits<double>::infinity();

}  // namespace

void TestRegionaleNumeri::formatSegueIlModello_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Modello");
    QTest::addColumn<QString>("Atteso");

    const auto Riga = [](const char* Motivo, double Valore, const QString& Modello, const QString& Atteso) {
        QTest::newRow((Modello.toUtf8() + ": " + Motivo).constData()) << Valore << Modello << Atteso;
    };
    const QString Semplice = u"0.00"_s;
    Riga("zero", 0.0, Semplice, u"0,00"_s);
    Riga("no thousands point", 1234.5, Semplice, u"1234,50"_s);
    Riga("tie away from zero", 1.005, Semplice, u"1,01"_s);
    Riga("half a cent", 0.005, Semplice, u"0,01"_s);
    Riga("half a cent owed", -0.005, Semplice, u"-0,01"_s);
    Riga("below half a cent", 0.004, Semplice, u"0,00"_s);
    Riga("never minus zero", -0.004, Semplice, u"0,00"_s);
    Riga("minus zero itself", -0.0, Semplice, u"0,00"_s);
    Riga("minus a trifle", -1E-13, Semplice, u"0,00"_s);
    Riga("negative", -12.3, Semplice, u"-12,30"_s);
    Riga("carry", 999.995, Semplice, u"1000,00"_s);
    Riga("large", 999999999999.99, Semplice, u"999999999999,99"_s);
    Riga("zeros beyond the 15th digit", 12345678901234.567, Semplice, u"12345678901234,60"_s);

    const QString Tabella = u"#,##0.00"_s;
    Riga("zero", 0.0, Tabella, u"0,00"_s);
    Riga("below a thousand", 999.99, Tabella, u"999,99"_s);
    Riga("thousand by carry", 999.995, Tabella, u"1.000,00"_s);
    Riga("one group", 1234.5, Tabella, u"1.234,50"_s);
    Riga("two groups", 1234567.895, Tabella, u"1.234.567,90"_s);
    Riga("full groups", 123456.0, Tabella, u"123.456,00"_s);
    Riga("negative with a sign of its own", -1234.5, Tabella, u"-1.234,50"_s);
    Riga("large", 999999999999.99, Tabella, u"999.999.999.999,99"_s);

    const QString ConZero = u"#,##0.00;-#,##0.00;0"_s;
    Riga("positive", 1234.5, ConZero, u"1.234,50"_s);
    Riga("negative by the second section", -1234.5, ConZero, u"-1.234,50"_s);
    Riga("zero by the third", 0.0, ConZero, u"0"_s);
    Riga("rounds to zero", 0.004, ConZero, u"0"_s);
    Riga("negative, rounds to zero", -0.004, ConZero, u"0"_s);
    Riga("does not round to zero", -0.005, ConZero, u"-0,01"_s);

    const QString ConVuoto = u"#,##0.00;-#,##0.00;#"_s;
    Riga("zero is empty", 0.0, ConVuoto, u""_s);
    Riga("rounds to zero", -0.004, ConVuoto, u""_s);
    Riga("positive", 0.5, ConVuoto, u"0,50"_s);

    const QString Interi = u"#,##0;-#,##0;#"_s;
    Riga("zero is empty", 0.0, Interi, u""_s);
    Riga("rounds to zero", 0.4, Interi, u""_s);
    Riga("tie away from zero", 2.5, Interi, u"3"_s);
    Riga("half a unit", 0.5, Interi, u"1"_s);
    Riga("negative", -1234.5, Interi, u"-1.235"_s);

    Riga("zero is empty", 0.0, u"##"_s, u""_s);
    Riga("rounds to zero", 0.4, u"##"_s, u""_s);
    Riga("one digit", 7.0, u"##"_s, u"7"_s);
    Riga("more digits than places", 12345.0, u"##"_s, u"12345"_s);
    Riga("no lone zero before the comma", 0.5, u"##.##"_s, u",5"_s);
    Riga("the comma stays", 12.0, u"##.##"_s, u"12,"_s);
    Riga("comma alone", 0.0, u"##.##"_s, u","_s);
    Riga("two decimals at most", 12.345, u"##.##"_s, u"12,35"_s);
    Riga("one decimal", 12.5, u"##.##"_s, u"12,5"_s);
    Riga("zero inside the decimals", 12.05, u"##.##"_s, u"12,05"_s);
    Riga("zero", 0.0, u"#.00"_s, u",00"_s);
    Riga("below one", 0.5, u"#.00"_s, u",50"_s);
    Riga("above one", 12.0, u"#.00"_s, u"12,00"_s);
    Riga("zero", 0.0, u"000"_s, u"000"_s);
    Riga("filled", 7.0, u"000"_s, u"007"_s);
    Riga("full", 1234.0, u"000"_s, u"1234"_s);
    Riga("filled to twelve", 4321.0, u"000000000000"_s, u"000000004321"_s);
    Riga("zero", 0.0, u"#,###,###,##0"_s, u"0"_s);
    Riga("no separators before the first digit", 12.0, u"#,###,###,##0"_s, u"12"_s);
    Riga("grouped", 1234567.0, u"#,###,###,##0"_s, u"1.234.567"_s);
    Riga("beyond the places", 12345678901.0, u"#,###,###,##0"_s, u"12.345.678.901"_s);

    Riga("text before and behind", 12.5, u"EUR 0.00 netti"_s, u"EUR 12,50 netti"_s);
    Riga("places split by a text", 1234.0, u"00-00"_s, u"12-34"_s);
    Riga("a comma at the end is a text", 12.0, u"0,"_s, u"12,"_s);
    Riga("decimals alone", 12.5, u".00"_s, u"12,50"_s);
    Riga("forced digit in the middle", 5.0, u"#0#"_s, u"05"_s);
    Riga("negative section without a minus", -5.0, u"0;(0)"_s, u"(5)"_s);
    Riga("negative section of other decimals", -5.25, u"0.00;(0.0)"_s, u"(5,3)"_s);
    Riga("zero takes the first without a third", -0.2, u"0;(0)"_s, u"0"_s);
    Riga("second section left out", -5.0, u"0;;zero"_s, u"-5"_s);
    Riga("a text for zero", 0.0, u"0;-0;nulla"_s, u"nulla"_s);
    Riga("empty pattern", 5.0, u""_s, u""_s);
}

void TestRegionaleNumeri::formatSegueIlModello()
{
    QFETCH(double, Valore);
    QFETCH(QString, Modello);
    QTEST(Format(Valore, Modello), "Atteso");
}

void TestRegionaleNumeri::formatRifiuta()
{
    QCOMPARE(NumeroErrore([] { return Format(1.0, u"0;0;0;0"); }), 5);
    QCOMPARE(NumeroErrore([] { return Format(Infinito, u"0.00"); }), 5);
    QCOMPARE(NumeroErrore([] { return Format(std::nan(""), u"0.00"); }), 5);
    QCOMPARE(NumeroErrore([] { return FormatNum(-Infinito); }), 5);
    QCOMPARE(Format(1E308, u"#").size(), 309);
}

void TestRegionaleNumeri::formatNumDiUnaCella_data()
{
    QTest::addColumn<QVariant>("Cella");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("empty text") << QVariant(QString()) << u"0,00"_s;
    QTest::newRow("Null") << QVariant() << u"0,00"_s;
    QTest::newRow("text that is no number") << QVariant(u"abc"_s) << u"0,00"_s;
    QTest::newRow("text with a misplaced point") << QVariant(u"12.5"_s) << u"0,00"_s;
    QTest::newRow("text too large") << QVariant(u"1E400"_s) << u"0,00"_s;
    QTest::newRow("Italian text") << QVariant(u"1.234,5"_s) << u"1234,50"_s;
    QTest::newRow("double") << QVariant(2.675) << u"2,68"_s;
    QTest::newRow("whole number") << QVariant(7) << u"7,00"_s;
    QTest::newRow("not finite") << QVariant(Infinito) << u"0,00"_s;
    QTest::newRow("date") << QVariant(QDate(2014, 3, 5)) << u"0,00"_s;
}

void TestRegionaleNumeri::formatNumDiUnaCella()
{
    QFETCH(QVariant, Cella);
    QTEST(FormatNum(Cella), "Atteso");
}

void TestRegionaleNumeri::cstrDelDoppio_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("zero") << 0.0 << u"0"_s;
    QTest::newRow("minus zero") << -0.0 << u"0"_s;
    QTest::newRow("whole") << 12.0 << u"12"_s;
    QTest::newRow("decimals") << 12.7 << u"12,7"_s;
    QTest::newRow("below one") << -0.5 << u"-0,5"_s;
    QTest::newRow("no grouping") << 1234567.89 << u"1234567,89"_s;
    QTest::newRow("a sum a hair off") << 0.1 + 0.2 << u"0,3"_s;
    QTest::newRow("fifteen digits") << 1.0 / 3 << u"0,333333333333333"_s;
    QTest::newRow("last plain magnitude") << 999999999999999.0 << u"999999999999999"_s;
    QTest::newRow("first with an exponent") << 1E15 << u"1E+15"_s;
    QTest::newRow("mantissa with decimals") << -1.25E20 << u"-1,25E+20"_s;
    QTest::newRow("three digits of exponent") << 1E308 << u"1E+308"_s;
    QTest::newRow("last plain fraction") << 0.0001 << u"0,0001"_s;
    QTest::newRow("first fraction with an exponent") << 0.000099 << u"9,9E-05"_s;
    QTest::newRow("a trifle") << -1E-13 << u"-1E-13"_s;
}

void TestRegionaleNumeri::cstrDelDoppio()
{
    QFETCH(double, Valore);
    QTEST(CStr(Valore), "Atteso");
}

void TestRegionaleNumeri::cstrDelSingolo_data()
{
    QTest::addColumn<float>("Valore");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("12.7 is no 12.6999998") << 12.7F << u"12,7"_s;
    QTest::newRow("whole") << 22.0F << u"22"_s;
    QTest::newRow("seven digits") << 1.0F / 3 << u"0,3333333"_s;
    QTest::newRow("last plain magnitude") << 9999999.0F << u"9999999"_s;
    QTest::newRow("first with an exponent") << 1E7F << u"1E+07"_s;
    QTest::newRow("negative") << -0.25F << u"-0,25"_s;
}

void TestRegionaleNumeri::cstrDelSingolo()
{
    QFETCH(float, Valore);
    QTEST(CStr(Valore), "Atteso");
}

void TestRegionaleNumeri::cstrDiUnaCella_data()
{
    QTest::addColumn<QVariant>("Cella");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("Null") << QVariant() << u""_s;
    QTest::newRow("text itself") << QVariant(u" 1.234 "_s) << u" 1.234 "_s;
    QTest::newRow("double") << QVariant(12.5) << u"12,5"_s;
    QTest::newRow("single") << QVariant(12.7F) << u"12,7"_s;
    QTest::newRow("whole number") << QVariant(-3) << u"-3"_s;
    QTest::newRow("long whole number") << QVariant(qint64(12345678901)) << u"12345678901"_s;
    QTest::newRow("true") << QVariant(true) << u"Vero"_s;
    QTest::newRow("false") << QVariant(false) << u"Falso"_s;
    QTest::newRow("date") << QVariant(QDate(2014, 3, 5)) << u"05/03/2014"_s;
    QTest::newRow("date and time") << QVariant(QDateTime(QDate(2014, 3, 5), QTime(9, 0))) << u"05/03/2014"_s;
}

void TestRegionaleNumeri::cstrDiUnaCella()
{
    QFETCH(QVariant, Cella);
    QTEST(CStr(Cella), "Atteso");
}

void TestRegionaleNumeri::strLasciaIlPostoDelSegno_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("positive") << 12.5 << u" 12.5"_s;
    QTest::newRow("negative") << -3.0 << u"-3"_s;
    QTest::newRow("zero") << 0.0 << u" 0"_s;
    QTest::newRow("no lone zero before the point") << 0.5 << u" .5"_s;
    QTest::newRow("nor behind the sign") << -0.25 << u"-.25"_s;
    QTest::newRow("exponent") << 1E15 << u" 1E+15"_s;
    QTest::newRow("small") << 0.00001 << u" 1E-05"_s;
}

void TestRegionaleNumeri::strLasciaIlPostoDelSegno()
{
    QFETCH(double, Valore);
    QTEST(Str(Valore), "Atteso");
}

void TestRegionaleNumeri::numeriItaliani_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("whole") << u"12"_s << 12.0;
    QTest::newRow("decimals") << u"12,5"_s << 12.5;
    QTest::newRow("comma at the end") << u"12,"_s << 12.0;
    QTest::newRow("comma first") << u",5"_s << 0.5;
    QTest::newRow("negative, comma first") << u"-,5"_s << -0.5;
    QTest::newRow("minus") << u"-3"_s << -3.0;
    QTest::newRow("plus") << u"+3"_s << 3.0;
    QTest::newRow("blanks around") << u"  12 "_s << 12.0;
    QTest::newRow("one group") << u"1.234"_s << 1234.0;
    QTest::newRow("group and decimals") << u"1.234,5"_s << 1234.5;
    QTest::newRow("many groups") << u"-12.345.678.901,25"_s << -12345678901.25;
    QTest::newRow("leading zeros without groups") << u"000012"_s << 12.0;
    QTest::newRow("exponent") << u"1,5E3"_s << 1500.0;
    QTest::newRow("small exponent letter, sign") << u"1,5e-3"_s << 0.0015;
    QTest::newRow("exponent with a plus") << u"2E+02"_s << 200.0;
    QTest::newRow("minus zero is zero") << u"-0"_s << 0.0;
    QTest::newRow("too small to hold is zero") << u"1E-400"_s << 0.0;
    QTest::newRow("zero with a large exponent") << u"0E400"_s << 0.0;
    QTest::newRow("largest") << u"1E308"_s << 1E308;
    QTest::newRow("longer than a double") << QString(400, u'0') + u"1,25"_s << 1.25;
}

void TestRegionaleNumeri::numeriItaliani()
{
    QFETCH(QString, Testo);
    QFETCH(double, Atteso);
    QVERIFY(IsNumeric(Testo));
    QVERIFY(CDbl(Testo) == Atteso);
    QVERIFY(NumeroDi(Testo) == Atteso);
    QVERIFY(std::signbit(CDbl(Testo)) == (Atteso < 0.0));
}

void TestRegionaleNumeri::nonSonoNumeri_data()
{
    QTest::addColumn<QString>("Testo");

    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << u"   "_s;
    QTest::newRow("point for comma") << u"12.5"_s;
    QTest::newRow("point for comma, three decimals") << u"0.500"_s;
    QTest::newRow("points anywhere") << u"1.2.3"_s;
    QTest::newRow("point behind four digits") << u"1234.567"_s;
    QTest::newRow("incomplete last group") << u"1.234.56"_s;
    QTest::newRow("group too long") << u"1.2345"_s;
    QTest::newRow("groups ended early") << u"1.234567"_s;
    QTest::newRow("point first") << u".234"_s;
    QTest::newRow("point last") << u"1."_s;
    QTest::newRow("point behind the comma") << u"1,234.567"_s;
    QTest::newRow("two commas") << u"1,2,3"_s;
    QTest::newRow("comma alone") << u","_s;
    QTest::newRow("sign alone") << u"-"_s;
    QTest::newRow("two signs") << u"--3"_s;
    QTest::newRow("sign behind") << u"12-"_s;
    QTest::newRow("blank behind the sign") << u"- 3"_s;
    QTest::newRow("blank inside") << u"1 234"_s;
    QTest::newRow("currency before") << u"€ 12"_s;
    QTest::newRow("currency behind") << u"12 €"_s;
    QTest::newRow("percent") << u"12%"_s;
    QTest::newRow("letters behind") << u"12abc"_s;
    QTest::newRow("exponent alone") << u"E5"_s;
    QTest::newRow("exponent without digits") << u"1E"_s;
    QTest::newRow("exponent with a sign alone") << u"1E+"_s;
    QTest::newRow("exponent with decimals") << u"1E2,5"_s;
    QTest::newRow("accountants' brackets") << u"(12)"_s;
    QTest::newRow("not a number") << u"nan"_s;
    QTest::newRow("infinity") << u"inf"_s;
    QTest::newRow("hexadecimal") << u"0x10"_s;
    QTest::newRow("digits of another script") << u"١٢"_s;
}

void TestRegionaleNumeri::nonSonoNumeri()
{
    QFETCH(QString, Testo);
    QVERIFY(!IsNumeric(Testo));
    QCOMPARE(NumeroErrore([&] { return CDbl(Testo); }), 13);
    QCOMPARE(NumeroErrore([&] { return CInt(Testo); }), 13);
    QCOMPARE(NumeroErrore([&] { return CLng(Testo); }), 13);
    QCOMPARE(NumeroErrore([&] { return CSng(Testo); }), 13);
    QCOMPARE(NumeroDi(Testo), 0.0);
}

void TestRegionaleNumeri::numeriTroppoGrandi()
{
    for (const QString& Testo : {u"1E400"_s, u"-1E400"_s, QString(400, u'9'), u"1E99999999999999999999"_s}) {
        QVERIFY(IsNumeric(Testo));
        QCOMPARE(NumeroErrore([&] { return CDbl(Testo); }), 6);
        QCOMPARE(NumeroDi(Testo), 0.0);
    }
}

void TestRegionaleNumeri::cdblDiUnaCella_data()
{
    QTest::addColumn<QVariant>("Cella");
    QTest::addColumn<int>("ErroreAtteso");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("Null") << QVariant() << 13 << 0.0;
    QTest::newRow("double") << QVariant(12.5) << 0 << 12.5;
    QTest::newRow("single") << QVariant(0.25F) << 0 << 0.25;
    QTest::newRow("whole") << QVariant(7) << 0 << 7.0;
    QTest::newRow("long whole") << QVariant(qint64(12345678901)) << 0 << 12345678901.0;
    QTest::newRow("true is -1") << QVariant(true) << 0 << -1.0;
    QTest::newRow("false is 0") << QVariant(false) << 0 << 0.0;
    QTest::newRow("Italian text") << QVariant(u"1.234,5"_s) << 0 << 1234.5;
    QTest::newRow("other text") << QVariant(u"12.5"_s) << 13 << 0.0;
    QTest::newRow("empty text") << QVariant(QString()) << 13 << 0.0;
    QTest::newRow("too large") << QVariant(u"1E400"_s) << 6 << 0.0;
    QTest::newRow("not finite") << QVariant(Infinito) << 6 << 0.0;
    QTest::newRow("date") << QVariant(QDate(2014, 3, 5)) << 13 << 0.0;
}

void TestRegionaleNumeri::cdblDiUnaCella()
{
    QFETCH(QVariant, Cella);
    QFETCH(int, ErroreAtteso);
    QFETCH(double, Atteso);
    double Letto = 0.0;
    QCOMPARE(NumeroErrore([&] { Letto = CDbl(Cella); }), ErroreAtteso);
    QCOMPARE(Letto, Atteso);
    QCOMPARE(NumeroDi(Cella), Atteso);
}

void TestRegionaleNumeri::numeriInteri_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<int>("ErroreDi16Bit");
    QTest::addColumn<int>("ErroreDi32Bit");
    QTest::addColumn<int>("Atteso");

    QTest::newRow("tie to even, down") << u"2,5"_s << 0 << 0 << 2;
    QTest::newRow("tie to even, up") << u"3,5"_s << 0 << 0 << 4;
    QTest::newRow("negative tie") << u"-2,5"_s << 0 << 0 << -2;
    QTest::newRow("last of 16 bits") << u"32767"_s << 0 << 0 << 32767;
    QTest::newRow("rounds into 16 bits") << u"32767,4"_s << 0 << 0 << 32767;
    QTest::newRow("rounds out of 16 bits") << u"32767,5"_s << 6 << 0 << 32768;
    QTest::newRow("first of 16 bits") << u"-32768"_s << 0 << 0 << -32768;
    QTest::newRow("tie rounds into 16 bits") << u"-32768,5"_s << 0 << 0 << -32768;
    QTest::newRow("below 16 bits") << u"-32769"_s << 6 << 0 << -32769;
    QTest::newRow("last of 32 bits") << u"2.147.483.647"_s << 6 << 0 << 2147483647;
    QTest::newRow("rounds out of 32 bits") << u"2147483647,5"_s << 6 << 6 << 0;
    QTest::newRow("first of 32 bits") << u"-2147483648"_s << 6 << 0 << std::numeric_limits<int>::min();
    QTest::newRow("below 32 bits") << u"-2147483649"_s << 6 << 6 << 0;
    QTest::newRow("huge") << u"1E308"_s << 6 << 6 << 0;
    QTest::newRow("beyond a double") << u"1E400"_s << 6 << 6 << 0;
}

void TestRegionaleNumeri::numeriInteri()
{
    QFETCH(QString, Testo);
    QFETCH(int, ErroreDi16Bit);
    QFETCH(int, ErroreDi32Bit);
    QFETCH(int, Atteso);
    QCOMPARE(NumeroErrore([&] { QCOMPARE(CInt(Testo), Atteso); }), ErroreDi16Bit);
    QCOMPARE(NumeroErrore([&] { QCOMPARE(CLng(Testo), Atteso); }), ErroreDi32Bit);
}

void TestRegionaleNumeri::numeriSingoli()
{
    QCOMPARE(CSng(u"12,7"_s), 12.7F);
    QCOMPARE(CStr(CSng(u"12,7"_s)), u"12,7"_s);
    QCOMPARE(NumeroErrore([] { return CSng(u"3,5E38"_s); }), 6);
    QCOMPARE(NumeroErrore([] { return CSng(u"-3,5E38"_s); }), 6);
    QCOMPARE(CSng(u"3,4E38"_s), 3.4E38F);
    QCOMPARE(CSng(u"1E-60"_s), 0.0F);
}

void TestRegionaleNumeri::valPrendeIlPrefisso_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("no number") << u"abc"_s << 0.0;
    QTest::newRow("stops at a comma") << u"12,5"_s << 12.0;
    QTest::newRow("stops at a letter") << u"1.5x"_s << 1.5;
    QTest::newRow("point first") << u".5"_s << 0.5;
    QTest::newRow("point last") << u"5."_s << 5.0;
    QTest::newRow("second point ends it") << u"1.2.3"_s << 1.2;
    QTest::newRow("point alone") << u"."_s << 0.0;
    QTest::newRow("blanks wherever they stand") << u" 1 6\t1 5 via"_s << 1615.0;
    QTest::newRow("sign") << u"-3 anni"_s << -3.0;
    QTest::newRow("blank behind the sign") << u"- 3"_s << -3.0;
    QTest::newRow("sign alone") << u"-"_s << 0.0;
    QTest::newRow("exponent") << u"1.5E3"_s << 1500.0;
    QTest::newRow("letter of an exponent without digits") << u"12E"_s << 12.0;
    QTest::newRow("sign of an exponent without digits") << u"12e+x"_s << 12.0;
    QTest::newRow("too large") << u"1E400"_s << 0.0;
    QTest::newRow("minus zero") << u"-0"_s << 0.0;
}

void TestRegionaleNumeri::valPrendeIlPrefisso()
{
    QFETCH(QString, Testo);
    QFETCH(double, Atteso);
    QVERIFY(Val(Testo) == Atteso);
    QVERIFY(std::signbit(Val(Testo)) == (Atteso < 0.0));
}

// What the program writes in its boxes it reads back to the last digit.
void TestRegionaleNumeri::siRileggeQuelCheSiScrive()
{
    for (int Indice = -5000; Indice <= 5000; ++Indice) {
        const double Centesimi = Indice * 1237 / 100.0;
        QVERIFY(CDbl(CStr(Centesimi)) == Centesimi);
        QVERIFY(CDbl(Format(Centesimi, u"#,##0.00")) == Centesimi);
        QVERIFY(CDbl(FormatNum(Centesimi)) == Centesimi);
        QVERIFY(Val(Str(Centesimi)) == Centesimi);
    }
}

void TestRegionaleNumeri::laLinguaDellaMacchinaNonConta()
{
    const QLocale Prima;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const QString Scritto = Format(1234.5, u"#,##0.00");
    const double Letto = CDbl(u"1.234,5"_s);
    QLocale::setDefault(Prima);
    QCOMPARE(Scritto, u"1.234,50"_s);
    QCOMPARE(Letto, 1234.5);
}

#include "TestRegionaleNumeri.moc"
