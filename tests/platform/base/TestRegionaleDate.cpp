#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

class TestRegionaleDate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leggeGiornoMeseAnno_data();
    void leggeGiornoMeseAnno();
    void nonSonoDate_data();
    void nonSonoDate();
    void isDateDiUnaCella_data();
    void isDateDiUnaCella();
    void scriveConIlModello_data();
    void scriveConIlModello();
    void dataAssenteEVuota();
    void siRileggeQuelCheSiScrive();
    void annoDiDueCifreNellaMaschera_data();
    void annoDiDueCifreNellaMaschera();
    void dataDigitata_data();
    void dataDigitata();
};
PROVA(TestRegionaleDate);

void TestRegionaleDate::leggeGiornoMeseAnno_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QDate>("Attesa");

    QTest::newRow("as the mask writes it") << u"05/03/2014"_s << QDate(2014, 3, 5);
    QTest::newRow("one digit for day and month") << u"5/3/2014"_s << QDate(2014, 3, 5);
    QTest::newRow("hyphens") << u"05-03-2014"_s << QDate(2014, 3, 5);
    QTest::newRow("points") << u"05.03.2014"_s << QDate(2014, 3, 5);
    QTest::newRow("blanks around") << u"  05/03/2014 "_s << QDate(2014, 3, 5);
    QTest::newRow("last short year of 2000") << u"31/12/29"_s << QDate(2029, 12, 31);
    QTest::newRow("first short year of 1900") << u"01/01/30"_s << QDate(1930, 1, 1);
    QTest::newRow("short year 00") << u"01/01/00"_s << QDate(2000, 1, 1);
    QTest::newRow("short year 99") << u"01/01/99"_s << QDate(1999, 1, 1);
    QTest::newRow("leap day") << u"29/02/2024"_s << QDate(2024, 2, 29);
    QTest::newRow("leap day of a century") << u"29/02/2000"_s << QDate(2000, 2, 29);
    QTest::newRow("first year") << u"01/01/0100"_s << QDate(100, 1, 1);
    QTest::newRow("last year") << u"31/12/9999"_s << QDate(9999, 12, 31);
}

void TestRegionaleDate::leggeGiornoMeseAnno()
{
    QFETCH(QString, Testo);
    QFETCH(QDate, Attesa);
    QVERIFY(IsDate(Testo));
    QCOMPARE(LeggiData(Testo), std::optional(Attesa));
    QCOMPARE(CDate(Testo), Attesa);
}

void TestRegionaleDate::nonSonoDate_data()
{
    QTest::addColumn<QString>("Testo");

    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << u"   "_s;
    QTest::newRow("empty mask") << u"  /  /    "_s;
    QTest::newRow("mask with places left") << u"05/03/20__"_s;
    QTest::newRow("mask untouched") << u"__/__/____"_s;
    QTest::newRow("month first is not swapped") << u"03/25/2014"_s;
    QTest::newRow("year first") << u"2014-03-05"_s;
    QTest::newRow("mixed separators") << u"05/03-2014"_s;
    QTest::newRow("no year") << u"05/03"_s;
    QTest::newRow("three-digit year") << u"05/03/201"_s;
    QTest::newRow("five-digit year") << u"05/03/20145"_s;
    QTest::newRow("one-digit year") << u"05/03/4"_s;
    QTest::newRow("year before 100") << u"01/01/0099"_s;
    QTest::newRow("day 0") << u"00/03/2014"_s;
    QTest::newRow("month 0") << u"05/00/2014"_s;
    QTest::newRow("day 31 of April") << u"31/04/2014"_s;
    QTest::newRow("29 February of a common year") << u"29/02/2023"_s;
    QTest::newRow("29 February of a common century") << u"29/02/1900"_s;
    QTest::newRow("three-digit day") << u"005/03/2014"_s;
    QTest::newRow("three-digit month") << u"05/003/2014"_s;
    QTest::newRow("blanks inside") << u"5 / 3 / 2014"_s;
    QTest::newRow("missing day") << u"/03/2014"_s;
    QTest::newRow("with a time") << u"05/03/2014 10:30"_s;
    QTest::newRow("digits alone") << u"05032014"_s;
    QTest::newRow("month by name") << u"5 marzo 2014"_s;
    QTest::newRow("negative") << u"-5/03/2014"_s;
    QTest::newRow("digits of another script") << u"٠٥/٠٣/٢٠١٤"_s;
}

void TestRegionaleDate::nonSonoDate()
{
    QFETCH(QString, Testo);
    QVERIFY(!IsDate(Testo));
    QCOMPARE(LeggiData(Testo), std::nullopt);
    QCOMPARE(NumeroErrore([&] { return CDate(Testo); }), 13);
}

void TestRegionaleDate::isDateDiUnaCella_data()
{
    QTest::addColumn<QVariant>("Cella");
    QTest::addColumn<bool>("Attesa");

    QTest::newRow("date") << QVariant(QDate(2014, 3, 5)) << true;
    QTest::newRow("date and time") << QVariant(QDateTime(QDate(2014, 3, 5), QTime(9, 0))) << true;
    QTest::newRow("null date") << QVariant(QDate()) << false;
    QTest::newRow("Null") << QVariant() << false;
    QTest::newRow("text that reads as a date") << QVariant(u"05/03/2014"_s) << true;
    QTest::newRow("text that does not") << QVariant(u"oggi"_s) << false;
    QTest::newRow("a number") << QVariant(41703.0) << false;
    QTest::newRow("a truth value") << QVariant(true) << false;
}

void TestRegionaleDate::isDateDiUnaCella()
{
    QFETCH(QVariant, Cella);
    QTEST(IsDate(Cella), "Attesa");
}

void TestRegionaleDate::scriveConIlModello_data()
{
    QTest::addColumn<QDate>("Data");
    QTest::addColumn<QString>("Modello");
    QTest::addColumn<QString>("Atteso");

    const QDate Data(2014, 3, 5);
    QTest::newRow("Italian") << Data << u"dd/mm/yyyy"_s << u"05/03/2014"_s;
    QTest::newRow("of the criteria") << Data << u"mm/dd/yyyy"_s << u"03/05/2014"_s;
    QTest::newRow("short year") << Data << u"dd/mm/yy"_s << u"05/03/14"_s;
    QTest::newRow("other arrangement") << Data << u"yyyymmdd"_s << u"20140305"_s;
    QTest::newRow("text around") << Data << u"(mm) yyyy."_s << u"(03) 2014."_s;
    QTest::newRow("early year keeps four digits") << QDate(987, 12, 31) << u"dd/mm/yyyy"_s << u"31/12/0987"_s;
    QTest::newRow("short year 00") << QDate(2000, 12, 31) << u"yy"_s << u"00"_s;
    QTest::newRow("empty pattern") << Data << u""_s << u""_s;
}

void TestRegionaleDate::scriveConIlModello()
{
    QFETCH(QDate, Data);
    QFETCH(QString, Modello);
    QTEST(Format(Data, Modello), "Atteso");
}

void TestRegionaleDate::dataAssenteEVuota()
{
    QCOMPARE(Format(QDate(), u"dd/mm/yyyy"), QString());
}

void TestRegionaleDate::siRileggeQuelCheSiScrive()
{
    for (QDate Data(1899, 1, 1); Data.year() < 2101; Data = Data.addDays(13))
        QCOMPARE(CDate(Format(Data, u"dd/mm/yyyy")), Data);
}

void TestRegionaleDate::annoDiDueCifreNellaMaschera_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Breve");
    QTest::addColumn<QString>("Esteso");
    QTest::newRow("last short year of 2000") << u"12/03/29__"_s << u"12/03/29"_s << u"12/03/2029"_s;
    QTest::newRow("first short year of 1900") << u"12/03/30__"_s << u"12/03/30"_s << u"12/03/1930"_s;
    QTest::newRow("four digits already") << u"12/03/2012"_s << u"12/03/2012"_s << u"12/03/2012"_s;
    QTest::newRow("three digits") << u"12/03/201_"_s << u"12/03/201_"_s << u"12/03/201_"_s;
    QTest::newRow("no date") << u"31/02/12__"_s << u"31/02/12"_s << u"31/02/12__"_s;
    QTest::newRow("empty") << u"__/__/____"_s << u"__/__/__"_s << u"__/__/____"_s;
}

void TestRegionaleDate::annoDiDueCifreNellaMaschera()
{
    QFETCH(QString, Testo);
    QTEST(SenzaSecolo(Testo), "Breve");
    QTEST(ConSecolo(Testo), "Esteso");
}

void TestRegionaleDate::dataDigitata_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Attesa");

    QTest::newRow("whole") << u"23/11/2026"_s << u"23/11/2026"_s;
    QTest::newRow("short year") << u"23/11/26"_s << u"23/11/2026"_s;
    QTest::newRow("short day") << u"3-1-2026"_s << u"03/01/2026"_s;
    QTest::newRow("eight digits") << u"23112026"_s << u"23/11/2026"_s;
    QTest::newRow("six digits and blanks") << u" 231126 "_s << u"23/11/2026"_s;
    QTest::newRow("no day of the year") << u"31022026"_s << u"31022026"_s;
    QTest::newRow("seven digits") << u"2311202"_s << u"2311202"_s;
    QTest::newRow("words") << u"5 marzo 2024"_s << u"5 marzo 2024"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void TestRegionaleDate::dataDigitata()
{
    QFETCH(QString, Testo);
    QTEST(DataDigitata(Testo), "Attesa");
}

#include "TestRegionaleDate.moc"
