#include "supporto/prova.h"

#include "platform/base/regionale.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class TestArrotondamenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundVaAlPari_data();
    void roundVaAlPari();
    void arrotonda2SiAllontanaDaZero_data();
    void arrotonda2SiAllontanaDaZero();
    void ogniMillesimo();
    void formatNumRilettoEArrotonda2_data();
    void formatNumRilettoEArrotonda2();
    void maiMenoZero_data();
    void maiMenoZero();
    void nonFinitiTornanoComeSono();
    void decimaliOltreIlTestoNonToccano();
};
PROVA(TestArrotondamenti);

namespace {

constexpr double Infinito = std::numeric_limits<double>::infinity();
constexpr double Massimo = std::numeric_limits<double>::max();
constexpr double Minuscolo = std::numeric_limits<double>::denorm_min();

}  // namespace

void TestArrotondamenti::roundVaAlPari_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<int>("Decimali");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("tie above an even unit") << 2.5 << 0 << 2.0;
    QTest::newRow("tie above an odd unit") << 1.5 << 0 << 2.0;
    QTest::newRow("tie above zero, which is even") << 0.5 << 0 << 0.0;
    QTest::newRow("just above that tie") << 0.51 << 0 << 1.0;
    QTest::newRow("negative tie, even") << -2.5 << 0 << -2.0;
    QTest::newRow("negative tie, odd") << -3.5 << 0 << -4.0;
    QTest::newRow("decimal tie whose binary lies above") << 1100.005 << 2 << 1100.0;
    QTest::newRow("decimal tie whose binary lies below") << 1.005 << 2 << 1.0;
    QTest::newRow("decimal tie above an odd cent") << 2.675 << 2 << 2.68;
    QTest::newRow("decimal tie above an even cent") << 0.285 << 2 << 0.28;
    QTest::newRow("half a cent") << 0.005 << 2 << 0.0;
    QTest::newRow("one and a half cents") << 0.015 << 2 << 0.02;
    QTest::newRow("carry through the nines") << 9.995 << 2 << 10.0;
    QTest::newRow("carry into a new digit") << 99.5 << 0 << 100.0;
    QTest::newRow("no carry below the tie") << 99.4999 << 0 << 99.0;
    QTest::newRow("a sum a hair off its decimal text") << 0.1 + 0.2 << 2 << 0.3;
    QTest::newRow("the 16th digit is no reason") << 2.4999999999999996 << 0 << 2.0;
    QTest::newRow("the 15th digit is one") << 2.50000000000001 << 0 << 3.0;
    QTest::newRow("four decimals") << 1936.27 / 3 << 4 << 645.4233;
    QTest::newRow("first figure right behind the cut") << 0.006 << 2 << 0.01;
    QTest::newRow("far below the cut") << -1E-13 << 2 << 0.0;
    QTest::newRow("smallest number there is") << Minuscolo << 2 << 0.0;
    QTest::newRow("large, with cents") << 999999999999.99 << 2 << 999999999999.99;
    QTest::newRow("large, to units") << 999999999999.5 << 0 << 1E12;
    QTest::newRow("beyond 15 digits") << 9007199254740993.0 << 0 << 9007199254740992.0;
    QTest::newRow("huge") << 1E308 << 2 << 1E308;
    QTest::newRow("largest number there is") << Massimo << 2 << Massimo;
}

void TestArrotondamenti::roundVaAlPari()
{
    QFETCH(double, Valore);
    QFETCH(int, Decimali);
    QFETCH(double, Atteso);
    const double Avuto = Round(Valore, Decimali);
    QVERIFY2(Avuto == Atteso, qPrintable(QString::number(Avuto, 'g', 17)));
}

void TestArrotondamenti::arrotonda2SiAllontanaDaZero_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<double>("Atteso");

    QTest::newRow("tie above an even cent") << 1100.005 << 1100.01;
    QTest::newRow("tie whose binary lies below") << 1.005 << 1.01;
    QTest::newRow("tie above an odd cent") << 2.675 << 2.68;
    QTest::newRow("0.285") << 0.285 << 0.29;
    QTest::newRow("half a cent") << 0.005 << 0.01;
    QTest::newRow("half a cent owed") << -0.005 << -0.01;
    QTest::newRow("just below half a cent") << 0.00499999999999999 << 0.0;
    QTest::newRow("carry through the nines") << 9.995 << 10.0;
    QTest::newRow("far below the cut") << -1E-13 << 0.0;
    QTest::newRow("nothing to round") << 2.5 << 2.5;
    QTest::newRow("large, with cents") << 999999999999.99 << 999999999999.99;
    QTest::newRow("huge") << 1E308 << 1E308;
    QTest::newRow("largest number there is") << Massimo << Massimo;
    QTest::newRow("and its opposite") << -Massimo << -Massimo;
}

void TestArrotondamenti::arrotonda2SiAllontanaDaZero()
{
    QFETCH(double, Valore);
    QFETCH(double, Atteso);
    QVERIFY2(Arrotonda2(Valore) == Atteso, qPrintable(QString::number(Arrotonda2(Valore), 'g', 17)));
}

// Every thousandth from 0 to 30, against whole-number arithmetic, under both rules and both signs.
void TestArrotondamenti::ogniMillesimo()
{
    for (int Millesimi = 0; Millesimi <= 30000; ++Millesimi) {
        const double Valore = Millesimi / 1000.0;
        const int Interi = Millesimi / 10;
        const int Resto = Millesimi % 10;
        const double Lontano = (Interi + (Resto >= 5 ? 1 : 0)) / 100.0;
        const double AlPari = (Interi + (Resto > 5 || (Resto == 5 && Interi % 2 == 1) ? 1 : 0)) / 100.0;
        const QByteArray Quale = QByteArray::number(Valore);
        QVERIFY2(Arrotonda2(Valore) == Lontano, Quale);
        QVERIFY2(Arrotonda2(-Valore) == -Lontano, Quale);
        QVERIFY2(Round(Valore, 2) == AlPari, Quale);
        QVERIFY2(Round(-Valore, 2) == -AlPari, Quale);
    }
}

void TestArrotondamenti::formatNumRilettoEArrotonda2_data()
{
    QTest::addColumn<double>("Valore");

    for (const double Valore : {0.0, 0.005, -0.005, 1.005, 2.675, 1100.005, -3.145, 1234567.895, 1E14 + 0.5,
                                12345678901234.567, 9007199254740993.0, 1E22, 1E308, -1E-13})
        QTest::newRow(QByteArray::number(Valore, 'g', 17).constData()) << Valore;
}

void TestArrotondamenti::formatNumRilettoEArrotonda2()
{
    QFETCH(double, Valore);
    QVERIFY(CDbl(FormatNum(Valore)) == Arrotonda2(Valore));
    QVERIFY(Arrotonda2(Arrotonda2(Valore)) == Arrotonda2(Valore));
}

void TestArrotondamenti::maiMenoZero_data()
{
    QTest::addColumn<double>("Valore");

    QTest::newRow("minus zero itself") << -0.0;
    QTest::newRow("negative and below the cut") << -0.001;
    QTest::newRow("negative tie to even") << -0.005;
    QTest::newRow("negative and tiny") << -1E-13;
}

void TestArrotondamenti::maiMenoZero()
{
    QFETCH(double, Valore);
    QVERIFY(!std::signbit(Round(Valore, 2)));
    QVERIFY(!std::signbit(Round(Valore)));
    QVERIFY(std::signbit(Arrotonda2(Valore)) == (Arrotonda2(Valore) < 0.0));
    QVERIFY(!std::signbit(Round(-0.0, 15)));
}

void TestArrotondamenti::nonFinitiTornanoComeSono()
{
    QCOMPARE(Round(Infinito, 2), Infinito);
    QCOMPARE(Round(-Infinito), -Infinito);
    QVERIFY(std::isnan(Round(std::nan(""), 2)));
    QCOMPARE(Arrotonda2(Infinito), Infinito);
    QCOMPARE(Arrotonda2(-Infinito), -Infinito);
    QVERIFY(std::isnan(Arrotonda2(std::nan(""))));
}

void TestArrotondamenti::decimaliOltreIlTestoNonToccano()
{
    QVERIFY(Round(1.0 / 3, 15) == 1.0 / 3);
    QVERIFY(Round(1.0 / 3, 14) == 0.33333333333333);
    QVERIFY(Round(1.0 / 3, 400) == Round(1.0 / 3, 15));
}

#include "TestArrotondamenti.moc"
