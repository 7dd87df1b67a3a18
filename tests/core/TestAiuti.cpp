#include "supporto/prova.h"

#include "core/modAiuti.h"
#include "platform/system/shell.h"

#include <QDate>

using namespace Qt::StringLiterals;

class TestAiuti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lireEuroFormattato_data();
    void lireEuroFormattato();
    void primaMaiuscola_data();
    void primaMaiuscola();
    void posUltima_data();
    void posUltima();
    void massimoEMinimo_data();
    void massimoEMinimo();
    void aParitaIlPrimo();
    void parseCoppie_data();
    void parseCoppie();
    void parseCoppieSiFermaACento();
    void versioneWindows_data();
    void versioneWindows();
    void versioneDiQuestoSistema();
};
PROVA(TestAiuti);

using Coppie = QList<std::pair<QString, QString>>;

void TestAiuti::lireEuroFormattato_data()
{
    QTest::addColumn<double>("Lire");
    QTest::addColumn<QString>("Testo");

    QTest::newRow("one euro") << 1936.27 << u"1,00"_s;
    QTest::newRow("thousands take a point") << 5000000000.0 << u"2.582.284,50"_s;
    QTest::newRow("nothing") << 0.0 << u"0,00"_s;
}

void TestAiuti::lireEuroFormattato()
{
    QFETCH(double, Lire);
    QTEST(LireEuroFormattato(Lire), "Testo");
}

void TestAiuti::primaMaiuscola_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("capitals") << u"ROSSI"_s << u"Rossi"_s;
    QTest::newRow("small letters") << u"rossi"_s << u"Rossi"_s;
    QTest::newRow("only the first word") << u"mario ROSSI"_s << u"Mario rossi"_s;
    QTest::newRow("accents") << u"àÈ"_s << u"Àè"_s;
    QTest::newRow("one letter") << u"a"_s << u"A"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void TestAiuti::primaMaiuscola()
{
    QFETCH(QString, Testo);
    QTEST(PrimaMaiuscola(Testo), "Atteso");
}

void TestAiuti::posUltima_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<int>("Posizione");

    QTest::newRow("last of two") << u"a\\b\\c"_s << u"\\"_s << 4;
    QTest::newRow("at the start") << u"abc"_s << u"a"_s << 1;
    QTest::newRow("at the end") << u"abc"_s << u"bc"_s << 2;
    QTest::newRow("overlapping") << u"aaa"_s << u"aa"_s << 2;
    QTest::newRow("looks at the case") << u"abc"_s << u"A"_s << 0;
    QTest::newRow("none") << u"abc"_s << u"d"_s << 0;
    QTest::newRow("nothing sought") << u"abc"_s << u""_s << 0;
    QTest::newRow("empty text") << u""_s << u"a"_s << 0;
}

void TestAiuti::posUltima()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Cercato);
    QTEST(PosUltima(Testo, Cercato), "Posizione");
}

void TestAiuti::massimoEMinimo_data()
{
    QTest::addColumn<QVariant>("Minore");
    QTest::addColumn<QVariant>("Maggiore");

    QTest::newRow("numbers of two kinds") << QVariant(9) << QVariant(10.5);
    QTest::newRow("negative numbers") << QVariant(-2) << QVariant(-1);
    QTest::newRow("texts of digits are texts") << QVariant(u"10"_s) << QVariant(u"9"_s);
    QTest::newRow("number beside text is text") << QVariant(10) << QVariant(u"9"_s);
    QTest::newRow("dates by the calendar") << QVariant(QDate(2011, 12, 31)) << QVariant(QDate(2012, 1, 1));
    QTest::newRow("texts") << QVariant(u"abc"_s) << QVariant(u"abd"_s);
}

void TestAiuti::massimoEMinimo()
{
    QFETCH(QVariant, Minore);
    QFETCH(QVariant, Maggiore);
    QCOMPARE(Massimo(Minore, Maggiore), Maggiore);
    QCOMPARE(Massimo(Maggiore, Minore), Maggiore);
    QCOMPARE(Minimo(Minore, Maggiore), Minore);
    QCOMPARE(Minimo(Maggiore, Minore), Minore);
}

void TestAiuti::aParitaIlPrimo()
{
    // The kind tells which of two equal values came back.
    const QVariant Intero(1);
    const QVariant Reale(1.0);
    QCOMPARE(Massimo(Intero, Reale).metaType(), Intero.metaType());
    QCOMPARE(Massimo(Reale, Intero).metaType(), Reale.metaType());
    QCOMPARE(Minimo(Intero, Reale).metaType(), Intero.metaType());
    QCOMPARE(Minimo(Reale, Intero).metaType(), Reale.metaType());
}

void TestAiuti::parseCoppie_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<Coppie>("Attese");

    QTest::newRow("two pairs") << u"a=b,c=d"_s << Coppie{{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}};
    QTest::newRow("cut at the first =") << u"a=b=c"_s << Coppie{{u"a"_s, u"b=c"_s}};
    QTest::newRow("name without a value") << u"a,b="_s << Coppie{{u"a"_s, u""_s}, {u"b"_s, u""_s}};
    QTest::newRow("value without a name") << u"=b"_s << Coppie{{u""_s, u"b"_s}};
    QTest::newRow("empty pieces are skipped") << u",a=b,,"_s << Coppie{{u"a"_s, u"b"_s}};
    QTest::newRow("empty text") << u""_s << Coppie{};
}

void TestAiuti::parseCoppie()
{
    QFETCH(QString, Testo);
    QTEST(ParseCoppie(Testo), "Attese");
}

void TestAiuti::parseCoppieSiFermaACento()
{
    QStringList Pezzi;
    for (int i = 1; i <= 101; ++i)
        Pezzi << u"n=%1"_s.arg(i);
    const Coppie Lette = ParseCoppie(Pezzi.join(u','));
    QCOMPARE(Lette.size(), 100);
    QCOMPARE(Lette.last().second, u"100"_s);
}

void TestAiuti::versioneWindows_data()
{
    QTest::addColumn<bool>("Windows");
    QTest::addColumn<bool>("Nt");
    QTest::addColumn<int>("Maggiore");
    QTest::addColumn<int>("Minore");
    QTest::addColumn<int>("Codice");

    QTest::newRow("Windows 95") << true << false << 4 << 0 << 1;
    QTest::newRow("Windows 98") << true << false << 4 << 10 << 2;
    QTest::newRow("Windows Me") << true << false << 4 << 90 << 3;
    QTest::newRow("no such 9x") << true << false << 4 << 5 << 0;
    QTest::newRow("before 95") << true << false << 3 << 10 << 0;
    QTest::newRow("Windows NT 3.51") << true << true << 3 << 51 << 4;
    QTest::newRow("Windows NT 4") << true << true << 4 << 0 << 4;
    QTest::newRow("Windows 2000") << true << true << 5 << 0 << 5;
    QTest::newRow("Windows XP") << true << true << 5 << 1 << 6;
    QTest::newRow("Windows 2003") << true << true << 5 << 2 << 0;
    QTest::newRow("Windows Vista") << true << true << 6 << 0 << 7;
    QTest::newRow("Windows 8.1") << true << true << 6 << 3 << 7;
    QTest::newRow("Windows 10") << true << true << 10 << 0 << 0;
    QTest::newRow("another system") << false << true << 6 << 1 << 0;
}

void TestAiuti::versioneWindows()
{
    QFETCH(bool, Windows);
    QFETCH(bool, Nt);
    QFETCH(int, Maggiore);
    QFETCH(int, Minore);
    QTEST(VersioneWindows({.Windows = Windows, .Maggiore = Maggiore, .Minore = Minore, .Nt = Nt}), "Codice");
}

void TestAiuti::versioneDiQuestoSistema()
{
    QCOMPARE(VersioneWindows(), VersioneWindows(LeggiVersioneSistema()));
}

#include "TestAiuti.moc"
