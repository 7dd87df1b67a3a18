// The filing fee: brackets, rounding of the typed value, the five fields.
#include "casi.h"
#include "supporto/alcaso.h"
#include "supporto/guasti.h"

#include "calculators/modContributo.h"
#include "platform/base/regionale.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

/// The fee in cents once more: a ladder over whole cents.
int ContributoCentesimi(qint64 Centesimi, TabellaContributo Tabella)
{
    if (Tabella == TabellaContributo::Tributaria)
        return Centesimi <= 258228     ? 3000
               : Centesimi <= 500000   ? 6000
               : Centesimi <= 2500000  ? 12000
               : Centesimi <= 7500000  ? 25000
               : Centesimi <= 20000000 ? 50000
                                       : 150000;
    const int Intero = Centesimi <= 110000     ? 4300
                       : Centesimi <= 520000   ? 9800
                       : Centesimi <= 2600000  ? 23700
                       : Centesimi <= 5200000  ? 51800
                       : Centesimi <= 26000000 ? 75900
                       : Centesimi <= 52000000 ? 121400
                                               : 168600;
    return Tabella == TabellaContributo::Dimezzata ? Intero / 2 : Intero;
}

TabellaContributo Tabella(int Numero)
{
    return std::array{TabellaContributo::Ordinaria, TabellaContributo::Dimezzata,
                      TabellaContributo::Tributaria}[size_t(Numero)];
}

}  // namespace

class TestContributo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scaglioni_data();
    void scaglioni();
    void valoriACaso();
    void valoreLasciato_data();
    void valoreLasciato();
    void lasciatoNonCambiaContributo();
    void cinqueCampi();
    void vuotoCancellaMaNonIlTributario();
    void quelloCheNonEUnNumero_data();
    void quelloCheNonEUnNumero();
};
PROVA(TestContributo);

void TestContributo::scaglioni_data()
{
    QTest::addColumn<QStringList>("Riga");
    const auto Righe = Casi(u"contributo.csv"_s);
    QVERIFY(Righe.size() >= 30);
    for (size_t i = 0; i < Righe.size(); ++i)
        QTest::newRow(NomeCaso(i, Righe[i]).constData()) << Righe[i];
}

void TestContributo::scaglioni()
{
    QFETCH(QStringList, Riga);
    QCOMPARE(Riga.size(), 4);
    QCOMPARE(Format(Contributo(CDbl(Riga[0]), Tabella(Riga[1].toInt())), u"#,##0.00"), Riga[2]);
}

void TestContributo::valoriACaso()
{
    const int Casi = CasiAlCaso(10'000);
    constexpr std::array<qint64, 12> Limiti{110000,  258228,  500000,   520000,   2500000,  2600000,
                                            5200000, 7500000, 20000000, 26000000, 52000000, 60000000};
    QRandomGenerator Sorte(115);
    for (int i = 0; i < Casi; ++i) {
        const qint64 Limite = Limiti[size_t(Sorte.bounded(int(Limiti.size())))];
        const qint64 Centesimi = i % 2 == 0 ? Limite + Sorte.bounded(-3, 4) : qint64(Sorte.bounded(70000000));
        const TabellaContributo Quale = Tabella(i % 3);
        const double Avuto = Contributo(double(Centesimi) / 100, Quale);
        if (qRound(Avuto * 100) != ContributoCentesimi(Centesimi, Quale))
            QFAIL(qPrintable(u"%1 centesimi, tabella %2: %3"_s.arg(Centesimi).arg(i % 3).arg(Avuto)));
    }
}

void TestContributo::valoreLasciato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Lasciato");
    QTest::newRow("senza decimali") << u"1000"_s << u"1.000,00"_s;
    QTest::newRow("mezzo centesimo al pari") << u"1100,005"_s << u"1.100,00"_s;
    QTest::newRow("mezzo centesimo al pari, in su") << u"1100,015"_s << u"1.100,02"_s;
    QTest::newRow("negativo") << u"-5"_s << u"-5,00"_s;
    QTest::newRow("vuoto") << QString() << QString();
    QTest::newRow("due numeri") << u"1-2"_s << u"1-2"_s;
    QTest::newRow("punto decimale") << u"12.5"_s << u"12.5"_s;
    QTest::newRow("solo segni") << u",.-"_s << u",.-"_s;
    QTest::newRow("oltre ogni numero") << QString(400, u'9') << QString(400, u'9');
}

void TestContributo::valoreLasciato()
{
    QFETCH(QString, Testo);
    QTEST(ValoreLasciato(Testo), "Lasciato");
}

void TestContributo::lasciatoNonCambiaContributo()
{
    for (const auto& Testo : {u"1100,005"_s, u"1100,0049"_s, u"5200,005"_s, u"2582,285"_s, u"75000,0051"_s})
        for (const int Numero : {0, 1, 2})
            QCOMPARE(Contributo(CDbl(ValoreLasciato(Testo)), Tabella(Numero)),
                     Contributo(CDbl(Testo), Tabella(Numero)));
}

void TestContributo::cinqueCampi()
{
    TestiContributo Contributi;
    CalcolaContributi({u"520.000,00"_s, u"1000"_s, u"520.000,00"_s, u"2000"_s, u"2582,29"_s}, Contributi);
    QCOMPARE(Contributi, (TestiContributo{u"1.214,00"_s, u"21,50"_s, u"607,00"_s, u"49,00"_s, u"60,00"_s}));
}

void TestContributo::vuotoCancellaMaNonIlTributario()
{
    TestiContributo Contributi{u"43,00"_s, u"21,50"_s, u"21,50"_s, u"21,50"_s, u"30,00"_s};
    CalcolaContributi({}, Contributi);
    QCOMPARE(Contributi, (TestiContributo{QString(), QString(), QString(), QString(), u"30,00"_s}));
}

void TestContributo::quelloCheNonEUnNumero_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("due numeri") << u"1-2"_s;
    QTest::newRow("punto decimale") << u"12.5"_s;
    QTest::newRow("lettere") << u"abc"_s;
}

void TestContributo::quelloCheNonEUnNumero()
{
    QFETCH(QString, Testo);
    TestiContributo Contributi{u"vecchio"_s, u"vecchio"_s, u"vecchio"_s, u"vecchio"_s, u"vecchio"_s};
    QCOMPARE(NumeroErrore([&] {
                 CalcolaContributi({u"100"_s, u"100"_s, Testo, u"100"_s, u"100"_s}, Contributi);
             }),
             13);
    QCOMPARE(Contributi, (TestiContributo{u"43,00"_s, u"21,50"_s, u"vecchio"_s, u"vecchio"_s, u"vecchio"_s}));
}

#include "TestContributo.moc"
