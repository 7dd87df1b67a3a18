#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "tariffs/modEvaluate.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double Infinito = std::numeric_limits<double>::infinity();

/// Value of a text that gives no error.
double Valore(const QString& Testo, double x = 0.0)
{
    int Codice = -1;
    const double Avuto = ValutaEspressione(Testo, x, Codice);
    if (Codice != 0)
        QTest::qFail(qPrintable(u"codice %1: "_s.arg(Codice) + Testo), __FILE__, __LINE__);
    return Avuto;
}

}  // namespace

class TestEvaluate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tariffe_data();
    void tariffe();
    void grammatica_data();
    void grammatica();
    void funzioni_data();
    void funzioni();
    void testiMalformati_data();
    void testiMalformati();
    void errori_data();
    void errori();
    void erroreNonLasciaTraccia();
    void pileDiDuecentoPosti_data();
    void pileDiDuecentoPosti();
    void messaggi_data();
    void messaggi();
};
PROVA(TestEvaluate);

void TestEvaluate::tariffe_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("at the foot of the bracket") << u"200+(x-5000)*0.02"_s << 5000.0 << 200.0;
    QTest::newRow("inside the bracket") << u"200+(x-5000)*0.02"_s << 10000.0 << 300.0;
    QTest::newRow("above the bracket") << u"200+(x-5000)*0.02"_s << 55000.0 << 1200.0;
    QTest::newRow("below the bracket") << u"200+(x-5000)*0.02"_s << 0.0 << 100.0;
    QTest::newRow("comma") << u"200+(x-5000)*0,02"_s << 10000.0 << 300.0;
    QTest::newRow("blanks and capitals") << u"  200 + ( X - 5000 ) * 0.02 "_s << 10000.0 << 300.0;
    QTest::newRow("percentage") << u"x*1.5/100"_s << 30000.0 << 450.0;
    QTest::newRow("amount alone") << u"1250,50"_s << 7.0 << 1250.5;
}

void TestEvaluate::tariffe()
{
    const Registratore Muto;
    QFETCH(QString, Testo);
    QFETCH(double, x);
    QTEST(Valore(Testo, x), "Atteso");
}

void TestEvaluate::grammatica_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("empty") << u""_s << 5.0 << 0.0;
    QTest::newRow("blank") << u"   "_s << 5.0 << 0.0;
    QTest::newRow("number") << u"42"_s << 0.0 << 42.0;
    QTest::newRow("comma in a number") << u"1,5"_s << 0.0 << 1.5;
    QTest::newRow("point in a number") << u"1.5"_s << 0.0 << 1.5;
    QTest::newRow("leading comma") << u",5"_s << 0.0 << 0.5;
    QTest::newRow("trailing point") << u"5."_s << 0.0 << 5.0;
    QTest::newRow("comma alone") << u","_s << 0.0 << 0.0;
    QTest::newRow("point alone") << u"3+."_s << 0.0 << 3.0;
    QTest::newRow("numeric as far as it goes") << u"1.000,5"_s << 0.0 << 1.0;
    QTest::newRow("two points") << u"1.2.3*10"_s << 0.0 << 12.0;
    QTest::newRow("no exponents") << u"1E3"_s << 0.0 << 1.0;

    QTest::newRow("sum") << u"1+2"_s << 0.0 << 3.0;
    QTest::newRow("difference, left to right") << u"10-2-3"_s << 0.0 << 5.0;
    QTest::newRow("quotient, left to right") << u"100/10/2"_s << 0.0 << 5.0;
    QTest::newRow("product before sum") << u"2+3*4"_s << 0.0 << 14.0;
    QTest::newRow("parenthesis before product") << u"(2+3)*4"_s << 0.0 << 20.0;
    QTest::newRow("nested") << u"((2+3)*(1+1))^2"_s << 0.0 << 100.0;
    QTest::newRow("power before product") << u"2*3^2"_s << 0.0 << 18.0;
    QTest::newRow("power, left to right") << u"2^3^2"_s << 0.0 << 64.0;
    QTest::newRow("function before power") << u"sqrt(9)^2"_s << 0.0 << 9.0;

    QTest::newRow("variable") << u"x"_s << 7.5 << 7.5;
    QTest::newRow("capital variable") << u"X*X"_s << 3.0 << 9.0;
    QTest::newRow("pi") << u"PI"_s << 0.0 << 3.14159265358979;
    QTest::newRow("e") << u"e"_s << 0.0 << 2.71828182845905;
    QTest::newRow("2x is a product") << u"2x"_s << 3.0 << 6.0;
    QTest::newRow("2 x as well") << u"2 x"_s << 3.0 << 6.0;
    QTest::newRow("3pi is a product") << u"3pi"_s << 0.0 << 3.0 * 3.14159265358979;
    QTest::newRow("2e is a product") << u"2e"_s << 0.0 << 2.0 * 2.71828182845905;
    QTest::newRow("2x^2 squares x alone") << u"2x^2"_s << 3.0 << 18.0;
    QTest::newRow("x2 is no product") << u"x2"_s << 3.0 << 3.0;
    QTest::newRow("2(3) is no product") << u"2(3)"_s << 0.0 << 2.0;

    QTest::newRow("minus takes the whole text") << u"-x+1"_s << 5.0 << -6.0;
    QTest::newRow("minus takes the parenthesis") << u"(-x+1)*2"_s << 5.0 << -12.0;
    QTest::newRow("minus alone in its parenthesis") << u"(-x)+1"_s << 5.0 << -4.0;
    QTest::newRow("minus after a parenthesis") << u"10+(-x)"_s << 4.0 << 6.0;
    QTest::newRow("minus of a power") << u"-2^2"_s << 0.0 << -4.0;
    QTest::newRow("minus behind blanks") << u"  - 3"_s << 0.0 << -3.0;
    QTest::newRow("subtraction after a parenthesis") << u"(5)-3"_s << 0.0 << 2.0;
    QTest::newRow("its own sign") << u"~4"_s << 0.0 << -4.0;
    QTest::newRow("minus after an operator is no sign") << u"2*-3"_s << 0.0 << 3.0;
}

void TestEvaluate::grammatica()
{
    const Registratore Muto;
    QFETCH(QString, Testo);
    QFETCH(double, x);
    QTEST(Valore(Testo, x), "Atteso");
}

void TestEvaluate::funzioni_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Atteso");

    constexpr double Pi = 3.141592653589793;
    QTest::newRow("sin") << u"sin(1)"_s << 0.8414709848078965;
    QTest::newRow("sin, capitals") << u"SIN(1)"_s << 0.8414709848078965;
    QTest::newRow("cos") << u"cos(1)"_s << 0.5403023058681398;
    QTest::newRow("tan") << u"tan(1)"_s << 1.5574077246549023;
    QTest::newRow("asin") << u"asin(0.5)"_s << Pi / 6.0;
    QTest::newRow("asin of 1") << u"asin(1)"_s << Pi / 2.0;
    QTest::newRow("asin of -1") << u"asin(-1)"_s << -Pi / 2.0;
    QTest::newRow("acos") << u"acos(0.5)"_s << Pi / 3.0;
    QTest::newRow("acos below 0") << u"acos(-0.5)"_s << 2.0 * Pi / 3.0;
    QTest::newRow("acos of 0") << u"acos(0)"_s << Pi / 2.0;
    QTest::newRow("acos of 1") << u"acos(1)"_s << 0.0;
    QTest::newRow("acos of -1") << u"acos(-1)"_s << Pi;
    QTest::newRow("atan") << u"atan(1)"_s << Pi / 4.0;
    QTest::newRow("sinh") << u"sinh(1)"_s << 1.1752011936438014;
    QTest::newRow("cosh") << u"cosh(1)"_s << 1.543080634815244;
    QTest::newRow("tanh") << u"tanh(1)"_s << 0.7615941559557649;
    QTest::newRow("ln") << u"ln(10)"_s << 2.302585092994046;
    QTest::newRow("exp") << u"exp(2)"_s << 7.38905609893065;
    QTest::newRow("abs") << u"abs(-3)"_s << 3.0;
    QTest::newRow("sqrt") << u"sqrt(2)"_s << 1.4142135623730951;
    QTest::newRow("sqrt of 0") << u"sqrt(0)"_s << 0.0;
    QTest::newRow("int") << u"int(2.75)"_s << 2.0;
    QTest::newRow("int below 0") << u"int(-1.5)"_s << -2.0;
    QTest::newRow("frac") << u"frac(2.75)"_s << 0.75;
    QTest::newRow("frac below 0") << u"frac(-1.75)"_s << 0.25;
    QTest::newRow("logarithm to a base") << u"8@2"_s << 3.0;
    QTest::newRow("logarithm, left to right") << u"256@2@2"_s << 3.0;
    QTest::newRow("logarithm to base 1") << u"10@1"_s << 2.302585092994046;
    QTest::newRow("power of a negative, whole") << u"(0-2)^3"_s << -8.0;
    QTest::newRow("negative power") << u"2^(-2)"_s << 0.25;
    QTest::newRow("0 to a power") << u"0^2"_s << 0.0;
    QTest::newRow("function of a function") << u"sqrt(abs(-16))"_s << 4.0;
    QTest::newRow("function in a sum") << u"1+2*sqrt(9)-1"_s << 6.0;
}

void TestEvaluate::funzioni()
{
    const Registratore Muto;
    QFETCH(QString, Testo);
    QTEST(Valore(Testo), "Atteso");
}

// What comes out of a text that means nothing is nobody's wish, but the same text gives the same number.
void TestEvaluate::testiMalformati_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("operand missing on the right") << u"5+"_s << 5.0;
    QTest::newRow("operand missing on the left") << u"*5"_s << 5.0;
    QTest::newRow("function without operand") << u"sin"_s << 0.0;
    QTest::newRow("function before a function") << u"sqrt sqrt 16"_s << 4.0;
    QTest::newRow("two numbers") << u"1 000"_s << 1.0;
    QTest::newRow("closed too early") << u"1)+5"_s << 1.0;
    QTest::newRow("closing alone") << u")"_s << 0.0;
    QTest::newRow("never closed") << u"(1+2"_s << 3.0;
    QTest::newRow("what waits outside is never applied") << u"2+(3"_s << 2.0;
    QTest::newRow("empty parentheses") << u"()"_s << 0.0;
    QTest::newRow("doubled star repeats the last result") << u"2*3+4**5"_s << 12.0;
    QTest::newRow("doubled star alone") << u"2**3"_s << 0.0;
    QTest::newRow("commas alone are no number") << u"1+2 ,,"_s << 3.0;
    QTest::newRow("unknown word takes one operand") << u"foo(4)"_s << 0.0;
    QTest::newRow("unknown word repeats the last result") << u"sqrt(9)+foo(4)"_s << 6.0;
    QTest::newRow("unknown word in x") << u"sqrt(9)+xyz(4)"_s << 6.0;
    QTest::newRow("unknown word in z takes two") << u"sqrt(9)+zeta(4)"_s << 3.0;
    QTest::newRow("unknown sign waits for the parenthesis") << u"10%3+1"_s << 4.0;
    QTest::newRow("accented letter") << u"è5"_s << 5.0;
}

void TestEvaluate::testiMalformati()
{
    const Registratore Muto;
    QFETCH(QString, Testo);
    QTEST(Valore(Testo), "Atteso");
}

void TestEvaluate::errori_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("Codice");

    QTest::newRow("root of a negative power") << u"(0-8)^(1/3)"_s << 0.0 << 1;
    QTest::newRow("0 to the 0") << u"0^0"_s << 0.0 << 1;
    QTest::newRow("operand left over from the last operation") << u"((0-2)*0.25)^"_s << 0.0 << 1;
    QTest::newRow("ln of 0") << u"ln(0)"_s << 0.0 << 2;
    QTest::newRow("ln of a negative") << u"ln(-1)"_s << 0.0 << 2;
    QTest::newRow("logarithm of 0") << u"0@2"_s << 0.0 << 2;
    QTest::newRow("logarithm to base 0") << u"2@0"_s << 0.0 << 2;
    QTest::newRow("logarithm to a negative base") << u"2@(-2)"_s << 0.0 << 2;
    QTest::newRow("root of a negative") << u"sqrt(-4)"_s << 0.0 << 4;
    QTest::newRow("root of a negative x") << u"sqrt(x)"_s << -0.01 << 4;
    QTest::newRow("asin above 1") << u"asin(1.01)"_s << 0.0 << 5;
    QTest::newRow("asin below -1") << u"asin(-1.01)"_s << 0.0 << 5;
    QTest::newRow("acos above 1") << u"acos(1.01)"_s << 0.0 << 6;
    QTest::newRow("acos below -1") << u"acos(-1.01)"_s << 0.0 << 6;
    QTest::newRow("division by 0") << u"1/0"_s << 0.0 << 7;
    QTest::newRow("0 by 0") << u"0/0"_s << 0.0 << 7;
    QTest::newRow("division by x") << u"100/(x-5)"_s << 5.0 << 7;
    QTest::newRow("the first error stops") << u"1/0+sqrt(-1)"_s << 0.0 << 7;

    QTest::newRow("product too large") << u"10^308*10"_s << 0.0 << 18;
    QTest::newRow("power too large") << u"10^400"_s << 0.0 << 18;
    QTest::newRow("0 to a negative power") << u"0^(-1)"_s << 0.0 << 18;
    QTest::newRow("logarithm of 0 to base 1") << u"0@1"_s << 0.0 << 18;
    QTest::newRow("logarithm of a negative to base 1") << u"(-2)@1"_s << 0.0 << 18;
    QTest::newRow("exp too large") << u"exp(1000)"_s << 0.0 << 18;
    QTest::newRow("tanh through exp") << u"tanh(1000)"_s << 0.0 << 18;
    QTest::newRow("sinh too large") << u"sinh(-1000)"_s << 0.0 << 18;
    QTest::newRow("infinite x") << u"x"_s << Infinito << 18;
    QTest::newRow("x that is no number") << u"x+1"_s << std::numeric_limits<double>::quiet_NaN() << 18;
    QTest::newRow("operator alone") << u"+"_s << 0.0 << 18;
    QTest::newRow("word in y alone") << u"y"_s << 0.0 << 18;
    QTest::newRow("below the bottom") << u"5+*"_s << 0.0 << 18;
}

void TestEvaluate::errori()
{
    QFETCH(QString, Testo);
    QFETCH(double, x);
    QFETCH(int, Codice);
    Registratore Messaggi;
    if (Codice == 18)
        Messaggi.Attendi(u"overflow"_s);
    int Avuto = -1;
    const double Risultato = ValutaEspressione(Testo, x, Avuto);
    QCOMPARE(Avuto, Codice);
    QCOMPARE(Risultato, 0.0);
}

void TestEvaluate::erroreNonLasciaTraccia()
{
    const Registratore Muto;
    int Codice = 0;
    (void)ValutaEspressione(u"3*4+1/0"_s, 0.0, Codice);
    QCOMPARE(Codice, 7);
    QCOMPARE(Valore(u"foo(4)"_s), 0.0);
    QCOMPARE(Valore(u"1+1"_s), 2.0);
}

void TestEvaluate::pileDiDuecentoPosti_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<int>("Codice");
    QTest::addColumn<double>("Atteso");

    const auto Annidata = [](int Quante) { return QString(Quante, u'(') + u'7' + QString(Quante, u')'); };
    // The program's own parenthesis takes the first place of the operators.
    QTest::newRow("200 operators") << Annidata(199) << 0 << 7.0;
    QTest::newRow("201 operators") << Annidata(200) << 18 << 0.0;
    QTest::newRow("200 numbers") << u"7 "_s.repeated(200) << 0 << 7.0;
    QTest::newRow("201 numbers") << u"7 "_s.repeated(201) << 18 << 0.0;
    QTest::newRow("long but shallow") << u"1+"_s.repeated(5000) + u'1' << 0 << 5001.0;
}

void TestEvaluate::pileDiDuecentoPosti()
{
    QFETCH(QString, Testo);
    QFETCH(int, Codice);
    Registratore Messaggi;
    if (Codice == 18)
        Messaggi.Attendi(u"overflow"_s);
    int Avuto = -1;
    const double Risultato = ValutaEspressione(Testo, 0.0, Avuto);
    QCOMPARE(Avuto, Codice);
    QTEST(Risultato, "Atteso");
}

void TestEvaluate::messaggi_data()
{
    QTest::addColumn<int>("Codice");
    QTest::addColumn<QString>("Testo");

    QTest::newRow("0") << 0 << u"No error !"_s;
    QTest::newRow("1") << 1 << u"Error evaluating power function."_s;
    QTest::newRow("2") << 2 << u"Error evaluating logarithm. The argument must be > 0."_s;
    QTest::newRow("3") << 3 << u"Error evaluating tangent."_s;
    QTest::newRow("4") << 4 << u"Error evaluating square root. The argument must be >= 0."_s;
    QTest::newRow("5") << 5 << u"Error evaluating arcsine. The argument must be in [-1, 1]."_s;
    QTest::newRow("6") << 6 << u"Error evaluating arccosine. The argument must be in [-1, 1]."_s;
    QTest::newRow("7") << 7 << u"Division by zero."_s;
    QTest::newRow("8 has none") << 8 << QString();
    QTest::newRow("9 has none") << 9 << QString();
    QTest::newRow("10 has none") << 10 << QString();
    QTest::newRow("11") << 11 << u"Unexpected end of parenthesis."_s;
    QTest::newRow("12") << 12 << u"Operators must be followed by number, constant, function."_s;
    QTest::newRow("13") << 13 << u"Function must be followed by parenthesis."_s;
    QTest::newRow("14") << 14 << u"An error occured in evaluation"_s;
    QTest::newRow("15") << 15 << u"Expression expected."_s;
    QTest::newRow("16") << 16 << u"Unknown function."_s;
    QTest::newRow("17") << 17 << u"Enter the value for which you want to evaluate the function."_s;
    QTest::newRow("18") << 18 << u"An error occured in evaluation"_s;
    QTest::newRow("beyond") << 19 << QString();
    QTest::newRow("below") << -1 << QString();
}

void TestEvaluate::messaggi()
{
    QFETCH(int, Codice);
    QTEST(MessaggioErrore(Codice), "Testo");
}

#include "TestEvaluate.moc"
