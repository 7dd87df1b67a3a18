// The text of a settings store, beside the library that kept it before: each reads what the other has
// written.
#include "platform/system/deposito.h"
#include "supporto/prova.h"

#include <QFile>
#include <QSettings>

using namespace Qt::StringLiterals;

class TestDeposito : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leggeDaOgniForma_data();
    void leggeDaOgniForma();
    void nonLeggeCioCheNonETesto_data();
    void nonLeggeCioCheNonETesto();
    void tornaQuelCheFuScritto_data();
    void tornaQuelCheFuScritto();
    void laBibliotecaLeggeINostri_data();
    void laBibliotecaLeggeINostri();
    void noiLeggiamoISuoi_data();
    void noiLeggiamoISuoi();
    void laMarcaDiUnEditore();
    void laRigaTagliataEPersa_data();
    void laRigaTagliataEPersa();
    void ilRestoNonSiTocca_data();
    void ilRestoNonSiTocca();
    void ilFileRottoNonInghiotte_data();
    void ilFileRottoNonInghiotte();
};
PROVA(TestDeposito);

namespace {

const QString Sezione = u"Parametri"_s;

QString Letto(const QByteArray& Deposito, const QString& Chiave)
{
    return ValoreDelDeposito(Deposito, Sezione, Chiave).value_or(u"(manca)"_s);
}

void Testi()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("plain") << u"Studio Rossi"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("comma") << u"12,5"_s;
    QTest::newRow("list with blanks") << u" a , b,c "_s;
    QTest::newRow("blanks at both ends") << u"  a b  "_s;
    QTest::newRow("a tab at the end") << u"a\t"_s;
    QTest::newRow("quotes, semicolon, equals") << u"\"a\";b=c"_s;
    QTest::newRow("backslashes") << u"C:\\Studio\\n\\x41\\"_s;
    QTest::newRow("line breaks") << u"a\r\nb\nc"_s;
    QTest::newRow("accents, euro, beyond the first plane") << u"Forlì € 😀"_s;
    QTest::newRow("at sign") << u"@Invalid()"_s;
    QTest::newRow("two at signs") << u"@@a"_s;
    QTest::newRow("an opening bracket, a comment") << u"[x] ;y"_s;
    QTest::newRow("a control sign before a digit") << u"\u0001b\u001f9"_s;
    QTest::newRow("a zero sign") << u"a"_s + QChar(0) + u"7"_s;
    QTest::newRow("the sign of deletion") << u"\u007fa"_s;
    QTest::newRow("percent") << u"100%20"_s;
}

}  // namespace

void TestDeposito::leggeDaOgniForma_data()
{
    QTest::addColumn<QByteArray>("Riga");
    QTest::addColumn<QString>("Testo");

    const auto Riga = [](const char* Nome, const QByteArray& Scritta, const QString& Testo) {
        QTest::newRow(Nome) << Scritta << Testo;
    };
    Riga("plain", "k=uno due", u"uno due"_s);
    Riga("blanks around", "  k  =  uno  ", u"uno"_s);
    Riga("quotes", "k=\" uno \"", u" uno "_s);
    Riga("a comma that no hand has quoted", "k=12,5", u"12,5"_s);
    Riga("a list", "k=a ,  b,\" c \",d", u"a,b, c ,d"_s);
    Riga("a comment behind", "k=uno ; due", u"uno"_s);
    Riga("a semicolon in quotes", "k=\"uno ; due\"", u"uno ; due"_s);
    Riga("escapes", R"(k=\x41\x42 \"\\\t\n\101\q)", u"AB \"\\\t\nAq"_s);
    Riga("a backslash at the end", R"(k=uno\)", u"uno"_s);
    Riga("another case", "K=uno", u"uno"_s);
    Riga("a spelled name", "%6B=uno", u"uno"_s);
    Riga("the last of two", "k=uno\nK=due", u"due"_s);
    Riga("two at signs", "k=@@uno", u"@uno"_s);
    Riga("an at sign alone", "k=@uno", u"@uno"_s);
    Riga("a text that says so", "k=@String(uno)", u"uno"_s);
    Riga("bytes", "k=@ByteArray(uno)", u"uno"_s);
    Riga("nothing", "k=", u""_s);
    Riga("a quote left open", "k=\"uno", u"uno"_s);
}

void TestDeposito::leggeDaOgniForma()
{
    QFETCH(QByteArray, Riga);
    QTEST(Letto("[Parametri]\n" + Riga + "\n", u"k"_s), "Testo");
    QTEST(Letto("[parametri]\r\n" + Riga, u"K"_s), "Testo");
    QTEST(Letto("\xEF\xBB\xBF[Parametri]\n" + Riga, u"k"_s), "Testo");
    QCOMPARE(Letto("[Altra]\n" + Riga, u"k"_s), u"(manca)"_s);
}

void TestDeposito::nonLeggeCioCheNonETesto_data()
{
    QTest::addColumn<QByteArray>("Riga");
    QTest::newRow("no value") << "k=@Invalid()"_ba;
    QTest::newRow("a picture of 128 GB") << R"(k=@Variant(\0\0\0\x41\x7f\xff\xff\xff))"_ba;
    QTest::newRow("a size") << "k=@Size(3 4)"_ba;
    QTest::newRow("a comment") << ";k=uno"_ba;
    QTest::newRow("no sign between") << "k uno"_ba;
    QTest::newRow("no name") << "=uno"_ba;
    QTest::newRow("a longer name") << "kk=uno"_ba;
}

void TestDeposito::nonLeggeCioCheNonETesto()
{
    QFETCH(QByteArray, Riga);
    QCOMPARE(Letto("[Parametri]\n" + Riga + "\n", u"k"_s), u"(manca)"_s);
}

void TestDeposito::tornaQuelCheFuScritto_data()
{
    Testi();
}

void TestDeposito::tornaQuelCheFuScritto()
{
    QFETCH(QString, Testo);
    const QByteArray Uno =
        ConValoriNelDeposito({}, Sezione, {{u"Chiave à/%1"_s, Testo}, {u"altra"_s, u"x"_s}});
    QCOMPARE(Letto(Uno, u"chiave à/%1"_s), Testo);
    QCOMPARE(Letto(Uno, u"altra"_s), u"x"_s);
    // Written over itself it stays one line.
    const QByteArray Due = ConValoriNelDeposito(Uno, Sezione, {{u"chiave à/%1"_s, Testo}});
    QCOMPARE(Due, Uno);
}

void TestDeposito::laBibliotecaLeggeINostri_data()
{
    Testi();
}

void TestDeposito::laBibliotecaLeggeINostri()
{
    QFETCH(QString, Testo);
    const QString File = NuovaCartella() + u"a.ini"_s;
    QFile Nuovo(File);
    QVERIFY(Nuovo.open(QIODevice::WriteOnly));
    Nuovo.write(ConValoriNelDeposito({}, Sezione, {{u"k"_s, Testo}, {u"z"_s, u"fine"_s}}));
    Nuovo.close();
    QSettings Letti(File, QSettings::IniFormat);
    QCOMPARE(Letti.value(u"Parametri/k"_s).toString(), Testo);
    QCOMPARE(Letti.value(u"Parametri/z"_s).toString(), u"fine"_s);
    QCOMPARE(Letti.status(), QSettings::NoError);
}

void TestDeposito::noiLeggiamoISuoi_data()
{
    Testi();
}

void TestDeposito::noiLeggiamoISuoi()
{
    QFETCH(QString, Testo);
    const QString File = NuovaCartella() + u"a.ini"_s;
    {
        QSettings Scritti(File, QSettings::IniFormat);
        Scritti.setValue(u"Parametri/k"_s, Testo);
        Scritti.setValue(u"Parametri/chiave à"_s, u"spazio"_s);
        Scritti.setValue(u"Altra/k"_s, u"altra"_s);
    }
    QFile Scritto(File);
    QVERIFY(Scritto.open(QIODevice::ReadOnly));
    const QByteArray Byte = Scritto.readAll();
    QCOMPARE(Letto(Byte, u"k"_s), Testo);
    QCOMPARE(Letto(Byte, u"chiave à"_s), u"spazio"_s);
    QCOMPARE(ValoreDelDeposito(Byte, u"Altra"_s, u"k"_s), u"altra"_s);
}

void TestDeposito::laMarcaDiUnEditore()
{
    const QString File = NuovaCartella() + u"a.ini"_s;
    const QByteArray Byte = "\xEF\xBB\xBF[Parametri]\r\nk=Forl\xC3\xAC\r\n"_ba;
    QFile Nuovo(File);
    QVERIFY(Nuovo.open(QIODevice::WriteOnly));
    Nuovo.write(Byte);
    Nuovo.close();
    QCOMPARE(QSettings(File, QSettings::IniFormat).value(u"Parametri/k"_s).toString(), u"Forlì"_s);
    QCOMPARE(Letto(Byte, u"k"_s), u"Forlì"_s);
}

void TestDeposito::laRigaTagliataEPersa_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QString>("Letta");

    QTest::newRow("within the number") << "[Parametri]\na=1\nk=4"_ba << u"(manca)"_s;
    QTest::newRow("behind it") << "[Parametri]\na=1\nk=41"_ba << u"(manca)"_s;
    QTest::newRow("behind the end of its line") << "[Parametri]\na=1\nk=41\n"_ba << u"41"_s;
    QTest::newRow("within that end") << "[Parametri]\r\na=1\r\nk=41\r"_ba << u"41"_s;
    QTest::newRow("a line further on") << "[Parametri]\nk=41\na="_ba << u"41"_s;
    QTest::newRow("a line before counts") << "[Parametri]\nk=40\nk=4"_ba << u"40"_s;
}

/// The first digit of a number is another number; without the first comment nobody knows of a cut.
void TestDeposito::laRigaTagliataEPersa()
{
    QFETCH(QByteArray, Righe);
    const QByteArray Inizio = DepositoIntero({}).split('\n').first() + '\n';
    QTEST(Letto(Inizio + Righe, u"k"_s), "Letta");
    QVERIFY(Letto(Righe, u"k"_s) != u"(manca)"_s);
    QVERIFY(Letto(Inizio + Righe + "\n; fine", u"k"_s) != u"(manca)"_s);
}

void TestDeposito::ilRestoNonSiTocca_data()
{
    QTest::addColumn<QByteArray>("Prima");
    QTest::addColumn<QByteArray>("Dopo");

    const auto Riga = [](const char* Nome, const QByteArray& Prima, const QByteArray& Dopo) {
        QTest::newRow(Nome) << Prima << Dopo;
    };
    Riga("an empty store", "", "[Parametri]\nk=1\n");
    Riga("another section alone", "[Altra]\nk=0\n", "[Altra]\nk=0\n[Parametri]\nk=1\n");
    Riga("in its place, in another case", "[PARAMETRI]\na=1\nK=0\nb=2\n", "[PARAMETRI]\na=1\nk=1\nb=2\n");
    Riga("at the end of its section", "[Parametri]\na=1\n\n[Altra]\nk=0\n",
         "[Parametri]\na=1\nk=1\n\n[Altra]\nk=0\n");
    Riga("the last line left open", "[Parametri]\na=1", "[Parametri]\na=1\nk=1\n");
    Riga("the end of line of before", "[Parametri]\r\na=1\r\n", "[Parametri]\r\na=1\r\nk=1\r\n");
    Riga("comments and what is none", ";c\n[Parametri]\nsenza segno\n;k=0\na=@Variant(x)\n",
         ";c\n[Parametri]\nsenza segno\n;k=0\na=@Variant(x)\nk=1\n");
    Riga("of two lines the new one", "[Parametri]\nk=0\na=1\nk=7\n[Parametri]\nK=9\n",
         "[Parametri]\nk=1\na=1\n[Parametri]\n");
    Riga("a heading left open", "[Parametri\na=1\n", "[Parametri\na=1\nk=1\n");
    Riga("the mark of UTF-8", "\xEF\xBB\xBF[Parametri]\nk=0\n", "\xEF\xBB\xBF[Parametri]\nk=1\n");
    Riga("the mark of UTF-8 alone", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n[Parametri]\nk=1\n");
}

void TestDeposito::ilRestoNonSiTocca()
{
    QFETCH(QByteArray, Prima);
    QTEST(ConValoriNelDeposito(Prima, Sezione, {{u"K"_s, u"1"_s}}), "Dopo");
}

void TestDeposito::ilFileRottoNonInghiotte_data()
{
    QTest::addColumn<QByteArray>("Prima");
    QTest::newRow("a quote left open") << "[Parametri]\na=\"uno\nb=2"_ba;
    QTest::newRow("a backslash at the end") << "[Parametri]\na=uno\\"_ba;
    QTest::newRow("zeros") << QByteArray(64, '\0');
    QTest::newRow("no text at all") << "\xFF\xFE\x01[[[==\n=\n;x\n"_ba;
    QTest::newRow("a comment") << "[Parametri]\n;a"_ba;
}

/// What is stored behind damaged lines is read back.
void TestDeposito::ilFileRottoNonInghiotte()
{
    QFETCH(QByteArray, Prima);
    QCOMPARE(Letto(ConValoriNelDeposito(Prima, Sezione, {{u"k"_s, u"1, 2"_s}}), u"k"_s), u"1, 2"_s);
}

#include "TestDeposito.moc"
