#include "supporto/prova.h"

#include "core/modTesti.h"
#include "core/sessione.h"
#include "platform/system/shell.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

class TestTesti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lireEuro_data();
    void lireEuro();
    void lireEuroFormattato_data();
    void lireEuroFormattato();
    void formatNumDelVuoto();
    void dataLunga_data();
    void dataLunga();
    void primaMaiuscola_data();
    void primaMaiuscola();
    void posUltima_data();
    void posUltima();
    void sostituisci_data();
    void sostituisci();
    void massimoEMinimo_data();
    void massimoEMinimo();
    void aParitaIlPrimo();
    void nomeFile();
    void nomeValido_data();
    void nomeValido();
    void nomePerFile();
    void eVuoto_data();
    void eVuoto();
    void parseCoppie_data();
    void parseCoppie();
    void parseCoppieSiFermaACento();
    void versioneWindows_data();
    void versioneWindows();
    void versioneDiQuestoSistema();
};
PROVA(TestTesti);

using Coppie = QList<std::pair<QString, QString>>;

void TestTesti::lireEuro_data()
{
    QTest::addColumn<double>("Lire");
    QTest::addColumn<double>("Euro");

    QTest::newRow("one euro") << 1936.27 << 1.0;
    QTest::newRow("nothing") << 0.0 << 0.0;
    QTest::newRow("a million") << 1000000.0 << 516.46;
    QTest::newRow("negative") << -1000000.0 << -516.46;
    QTest::newRow("tie to the even cent below") << 0.125 * 1936.27 << 0.12;
    QTest::newRow("tie to the even cent above") << 0.375 * 1936.27 << 0.38;
}

void TestTesti::lireEuro()
{
    QFETCH(double, Lire);
    QTEST(LireEuro(Lire), "Euro");
}

void TestTesti::lireEuroFormattato_data()
{
    QTest::addColumn<double>("Lire");
    QTest::addColumn<QString>("Testo");

    QTest::newRow("one euro") << 1936.27 << u"1,00"_s;
    QTest::newRow("thousands take a point") << 5000000000.0 << u"2.582.284,50"_s;
    QTest::newRow("nothing") << 0.0 << u"0,00"_s;
}

void TestTesti::lireEuroFormattato()
{
    QFETCH(double, Lire);
    QTEST(LireEuroFormattato(Lire), "Testo");
}

void TestTesti::formatNumDelVuoto()
{
    QCOMPARE(FormatNum(QVariant(QString())), u"0,00"_s);
    QCOMPARE(FormatNum(QVariant()), u"0,00"_s);
}

void TestTesti::dataLunga_data()
{
    QTest::addColumn<QDate>("Data");
    QTest::addColumn<QString>("Testo");

    QTest::newRow("Monday is the first") << QDate(2012, 9, 24) << u"Lunedì,  24 Settembre  2012"_s;
    QTest::newRow("Sunday is the last") << QDate(2012, 9, 30) << u"Domenica,  30 Settembre  2012"_s;
    QTest::newRow("day of one digit") << QDate(2013, 1, 1) << u"Martedì,  1 Gennaio  2013"_s;
    QTest::newRow("leap day") << QDate(2012, 2, 29) << u"Mercoledì,  29 Febbraio  2012"_s;
    QTest::newRow("last month") << QDate(2009, 12, 31) << u"Giovedì,  31 Dicembre  2009"_s;
    QTest::newRow("no date") << QDate() << QString();
}

void TestTesti::dataLunga()
{
    QFETCH(QDate, Data);
    // The names hold before the session is filled, too.
    AzzeraSessione();
    QTEST(DataLunga(Data), "Testo");
}

void TestTesti::primaMaiuscola_data()
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

void TestTesti::primaMaiuscola()
{
    QFETCH(QString, Testo);
    QTEST(PrimaMaiuscola(Testo), "Atteso");
}

void TestTesti::posUltima_data()
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

void TestTesti::posUltima()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Cercato);
    QTEST(PosUltima(Testo, Cercato), "Posizione");
}

void TestTesti::sostituisci_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<QString>("Nuovo");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("every occurrence") << u"a.b.c"_s << u"."_s << u","_s << u"a,b,c"_s;
    QTest::newRow("one pass: the new text may hold the old") << u"a'b"_s << u"'"_s << u"''"_s << u"a''b"_s;
    QTest::newRow("one pass: what is made is not looked at") << u"aab"_s << u"ab"_s << u"b"_s << u"ab"_s;
    QTest::newRow("to nothing") << u"a b"_s << u" "_s << u""_s << u"ab"_s;
    QTest::newRow("looks at the case") << u"aA"_s << u"A"_s << u"b"_s << u"ab"_s;
    QTest::newRow("nothing sought") << u"ab"_s << u""_s << u"x"_s << u"ab"_s;
}

void TestTesti::sostituisci()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Cercato);
    QFETCH(QString, Nuovo);
    QTEST(Sostituisci(Testo, Cercato, Nuovo), "Atteso");
}

void TestTesti::massimoEMinimo_data()
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

void TestTesti::massimoEMinimo()
{
    QFETCH(QVariant, Minore);
    QFETCH(QVariant, Maggiore);
    QCOMPARE(Massimo(Minore, Maggiore), Maggiore);
    QCOMPARE(Massimo(Maggiore, Minore), Maggiore);
    QCOMPARE(Minimo(Minore, Maggiore), Minore);
    QCOMPARE(Minimo(Maggiore, Minore), Minore);
}

void TestTesti::aParitaIlPrimo()
{
    // The kind tells which of two equal values came back.
    const QVariant Intero(1);
    const QVariant Reale(1.0);
    QCOMPARE(Massimo(Intero, Reale).metaType(), Intero.metaType());
    QCOMPARE(Massimo(Reale, Intero).metaType(), Reale.metaType());
    QCOMPARE(Minimo(Intero, Reale).metaType(), Intero.metaType());
    QCOMPARE(Minimo(Reale, Intero).metaType(), Reale.metaType());
}

void TestTesti::nomeFile()
{
    QCOMPARE(NomeFile(u"parcella"_s), u"parcella"_s);
    QCOMPARE(NomeFile(u"C:\\Studio\\parcella.mdb"_s), u"parcella.mdb"_s);
    QCOMPARE(CartellaFile(u"C:\\Studio\\parcella.mdb"_s), u"C:\\Studio\\"_s);
}

void TestTesti::nomeValido_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Vietati");
    QTest::addColumn<bool>("Valido");

    QTest::newRow("plain") << u"Rossi - Bianchi (1)"_s << u""_s << true;
    QTest::newRow("empty") << u""_s << u""_s << true;
    for (const QChar Vietato : u"\\/:*?<>\"|"_s)
        QTest::addRow("forbidden %c", Vietato.toLatin1()) << u"Rossi"_s + Vietato + u'x' << u""_s << false;
    QTest::newRow("list of its own, inside") << u"a'b"_s << u"'"_s << false;
    QTest::newRow("list of its own replaces the usual one") << u"a/b"_s << u"'"_s << true;
}

void TestTesti::nomeValido()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Vietati);
    QTEST(NomeValido(Nome, Vietati), "Valido");
}

void TestTesti::nomePerFile()
{
    QCOMPARE(NomePerFile(u"Nuova parcella:2"_s), u"Nuova parcella-2"_s);
    QCOMPARE(NomePerFile(u"\\/:*?<>\"|"_s), u"---------"_s);
    QCOMPARE(NomePerFile(u"Rossi - Bianchi (1)"_s), u"Rossi - Bianchi (1)"_s);
}

void TestTesti::eVuoto_data()
{
    QTest::addColumn<QVariant>("Valore");
    QTest::addColumn<bool>("Vuoto");

    QTest::newRow("nothing at all") << QVariant() << true;
    QTest::newRow("Null of a kind") << QVariant(QMetaType::fromType<QString>()) << true;
    QTest::newRow("empty text") << QVariant(u""_s) << true;
    QTest::newRow("blank text") << QVariant(u"   "_s) << true;
    QTest::newRow("text 0") << QVariant(u" 0 "_s) << true;
    QTest::newRow("text 00 is something") << QVariant(u"00"_s) << false;
    QTest::newRow("text 0,00 is something") << QVariant(u"0,00"_s) << false;
    QTest::newRow("empty masked date") << QVariant(u"  /  /    "_s) << true;
    QTest::newRow("its trimmed form") << QVariant(u"/  /"_s) << true;
    QTest::newRow("slashes without the blanks") << QVariant(u"//"_s) << false;
    QTest::newRow("masked date with a day") << QVariant(u"01/  /    "_s) << false;
    QTest::newRow("text") << QVariant(u"a"_s) << false;
    QTest::newRow("zero") << QVariant(0) << true;
    QTest::newRow("zero of 64 bits") << QVariant(qlonglong(0)) << true;
    QTest::newRow("zero with decimals") << QVariant(0.0) << true;
    QTest::newRow("zero of 32 bits") << QVariant(0.0F) << true;
    QTest::newRow("minus zero") << QVariant(-0.0) << true;
    QTest::newRow("false") << QVariant(false) << true;
    QTest::newRow("true") << QVariant(true) << false;
    QTest::newRow("a number") << QVariant(0.01) << false;
    QTest::newRow("no date") << QVariant(QDate()) << true;
    QTest::newRow("no moment") << QVariant(QDateTime()) << true;
    QTest::newRow("a date") << QVariant(QDate(2012, 9, 24)) << false;
    QTest::newRow("a moment") << QVariant(QDateTime(QDate(2012, 9, 24), QTime(0, 0))) << false;
}

void TestTesti::eVuoto()
{
    QFETCH(QVariant, Valore);
    QTEST(EVuoto(Valore), "Vuoto");
}

void TestTesti::parseCoppie_data()
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

void TestTesti::parseCoppie()
{
    QFETCH(QString, Testo);
    QTEST(ParseCoppie(Testo), "Attese");
}

void TestTesti::parseCoppieSiFermaACento()
{
    QStringList Pezzi;
    for (int i = 1; i <= 101; ++i)
        Pezzi << u"n=%1"_s.arg(i);
    const Coppie Lette = ParseCoppie(Pezzi.join(u','));
    QCOMPARE(Lette.size(), 100);
    QCOMPARE(Lette.last().second, u"100"_s);
}

void TestTesti::versioneWindows_data()
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

void TestTesti::versioneWindows()
{
    QFETCH(bool, Windows);
    QFETCH(bool, Nt);
    QFETCH(int, Maggiore);
    QFETCH(int, Minore);
    QTEST(VersioneWindows({.Windows = Windows, .Maggiore = Maggiore, .Minore = Minore, .Nt = Nt}), "Codice");
}

void TestTesti::versioneDiQuestoSistema()
{
    QCOMPARE(VersioneWindows(), VersioneWindows(LeggiVersioneSistema()));
}

#include "TestTesti.moc"
