#include "supporto/prova.h"

#include "update/versioni.h"

using namespace Qt::StringLiterals;

class TestVersioni : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void versione_data();
    void versione();
    void dataDeiTassi_data();
    void dataDeiTassi();
    void nota_data();
    void nota();
    void elenco_data();
    void elenco();
    void righe_data();
    void righe();
    void unaRigaDi64Kib();
    void versioneNuova_data();
    void versioneNuova();
};
PROVA(TestVersioni);

namespace {

const QByteArray Impronta = QByteArray(64, 'a');

}  // namespace

void TestVersioni::versione_data()
{
    QTest::addColumn<QByteArray>("Riga");
    QTest::addColumn<QString>("Attesa");
    QTest::addColumn<bool>("Vuota");

    const auto Riga = [](const char* Nome, const QByteArray& Testo, const QString& Attesa,
                         bool Vuota = false) { QTest::newRow(Nome) << Testo << Attesa << Vuota; };
    Riga("stated", "versione=[3.0.15]", u"3.0.15"_s);
    Riga("text around it", "Calcanova versione=[3.0.15] del 2026", u"3.0.15"_s);
    Riga("another bracket in front", "[oggi] versione=[3.0.15]", u"3.0.15"_s);
    Riga("a second bracket behind", "versione=[3.0.15] [beta]", u"3.0.15"_s);
    Riga("five digits", "versione=[99999.0.0]", u"99999.0.0"_s);
    Riga("six digits", "versione=[100000.0.0]", u""_s);
    Riga("two numbers", "versione=[3.0]", u""_s);
    Riga("four numbers", "versione=[3.0.1.5]", u""_s);
    Riga("no number at all", "versione=[]", u""_s);
    Riga("an empty number", "versione=[3..15]", u""_s);
    Riga("a sign", "versione=[3.0.-1]", u""_s);
    Riga("a blank", "versione=[3.0.15 ]", u""_s);
    Riga("a path", "versione=[../../x]", u""_s);
    Riga("a path behind a version", "versione=[3.0.15/../../x]", u""_s);
    Riga("a null behind a version", "versione=[3.0.15\0]"_ba, u""_s);
    Riga("not closed", "versione=[3.0.15", u""_s);
    Riga("closed before", "]versione=[3.0.15", u""_s);
    Riga("in capitals", "VERSIONE=[3.0.15]", u""_s);
    Riga("foreign digits", "\xEF\xBB\xBFversione=[3.0.\xD9\xA1]", u""_s);
    Riga("an error page", "<!DOCTYPE html><html><title>404 Not Found</title>", u""_s);
    Riga("empty", "", u""_s, true);
}

void TestVersioni::versione()
{
    QFETCH(QByteArray, Riga);
    const Versioni Lette = LeggiVersioni(Riga + "\r\n01/12/2026\r\nnota=ciao\r\n");
    QTEST(Lette.Versione, "Attesa");
    QTEST(Lette.RigaVuota, "Vuota");
    QCOMPARE(Lette.DataTassi, std::optional(QDate(2026, 12, 1)));
    QCOMPARE(Lette.Nota, u"ciao"_s);
}

void TestVersioni::dataDeiTassi_data()
{
    QTest::addColumn<QByteArray>("Riga");
    QTest::addColumn<std::optional<QDate>>("Attesa");

    const auto Riga = [](const char* Nome, const QByteArray& Testo, std::optional<QDate> Attesa) {
        QTest::newRow(Nome) << Testo << Attesa;
    };
    const QDate Dicembre(2026, 12, 1);
    Riga("four digits of the year", "01/12/2026", Dicembre);
    Riga("two digits and more text", "01/12/26 tassi", Dicembre);
    Riga("two digits and a digit behind", "01/12/267", Dicembre);
    Riga("four digits and more text", "01/12/2026 tassi e indici", Dicembre);
    Riga("one digit of the day", "1/12/2026 ", Dicembre);
    Riga("exactly eight", "01/12/26", std::nullopt);
    Riga("nine", "01/12/26 ", Dicembre);
    Riga("no such day", "31/11/2026", std::nullopt);
    Riga("month first", "12/31/2026", std::nullopt);
    Riga("text", "domani mattina", std::nullopt);
    Riga("empty", "", std::nullopt);
}

void TestVersioni::dataDeiTassi()
{
    QFETCH(QByteArray, Riga);
    QTEST(LeggiVersioni("versione=[3.0.15]\n" + Riga + "\nnota=x\n").DataTassi, "Attesa");
}

void TestVersioni::nota_data()
{
    QTest::addColumn<QByteArray>("Riga");
    QTest::addColumn<QString>("Attesa");

    QTest::newRow("stated") << QByteArray("nota=Nuovi tassi") << u"Nuovi tassi"_s;
    QTest::newRow("a second sign") << QByteArray("nota=a=b") << u"a=b"_s;
    QTest::newRow("no sign") << QByteArray("Nuovi tassi") << u""_s;
    QTest::newRow("nothing behind it") << QByteArray("nota=") << u""_s;
    QTest::newRow("accents of the code page") << QByteArray("nota=Novit\xE0 \x80") << u"Novità €"_s;
    QTest::newRow("control characters") << QByteArray("nota=a\x1B[31mb\tc\0d\x7F"_ba) << u"a[31mbcd"_s;
    QTest::newRow("markup is text") << QByteArray("nota=<b>ciao</b>&amp;") << u"<b>ciao</b>&amp;"_s;
    QTest::newRow("500") << QByteArray("nota=" + QByteArray(500, 'x')) << QString(500, u'x');
    QTest::newRow("501") << QByteArray("nota=" + QByteArray(501, 'x')) << QString(500, u'x');
}

void TestVersioni::nota()
{
    QFETCH(QByteArray, Riga);
    QTEST(LeggiVersioni("versione=[3.0.15]\n01/12/2026\n" + Riga).Nota, "Attesa");
}

void TestVersioni::elenco_data()
{
    QTest::addColumn<QByteArray>("Riga");
    QTest::addColumn<bool>("Letta");

    const auto Riga = [](const char* Nome, const QByteArray& Testo, bool Letta) {
        QTest::newRow(Nome) << Testo << Letta;
    };
    Riga("stated", "sha256=" + Impronta + " 12 tassi.dat", true);
    Riga("capital digits", "sha256=" + QByteArray(64, 'A') + " 12 tassi.dat", true);
    Riga("63 digits", "sha256=" + Impronta.chopped(1) + " 12 tassi.dat", false);
    Riga("no digits", "sha256=" + QByteArray(64, 'g') + " 12 tassi.dat", false);
    Riga("a folder", "sha256=" + Impronta + " 12 ../tassi.dat", false);
    Riga("the other separator", "sha256=" + Impronta + " 12 ..\\tassi.dat", false);
    Riga("a hidden file", "sha256=" + Impronta + " 12 .tassi.dat", false);
    Riga("a negative size", "sha256=" + Impronta + " -1 tassi.dat", false);
    Riga("a size without end", "sha256=" + Impronta + " 1234567890123 tassi.dat", false);
    Riga("two blanks", "sha256=" + Impronta + "  12 tassi.dat", false);
    Riga("text behind", "sha256=" + Impronta + " 12 tassi.dat altro", false);
    Riga("another sum", "md5=" + Impronta + " 12 tassi.dat", false);
}

void TestVersioni::elenco()
{
    QFETCH(QByteArray, Riga);
    QFETCH(bool, Letta);
    const Versioni Lette = LeggiVersioni("versione=[3.0.15]\n01/12/2026\nnota=\n" + Riga + "\n");
    QCOMPARE(Lette.File.size(), Letta ? 1 : 0);
    if (!Letta)
        return;
    const FileElencato Atteso{u"tassi.dat"_s, 12, QByteArray(32, '\xAA')};
    QCOMPARE(Lette.File.first(), Atteso);
    const FileElencato* Trovato = Lette.Elencato(u"TASSI.DAT"_s);
    QVERIFY(Trovato);
    QCOMPARE(*Trovato, Atteso);
    QVERIFY(!Lette.Elencato(u"tassi.da"_s));
    QCOMPARE(RigaElenco(Atteso).toLatin1(), Riga.toLower());
}

void TestVersioni::righe_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Versione");
    QTest::addColumn<bool>("HaData");
    QTest::addColumn<QString>("Nota");

    const auto Riga = [](const char* Nome, const QByteArray& Testo, const QString& Versione, bool HaData,
                         const QString& Nota) { QTest::newRow(Nome) << Testo << Versione << HaData << Nota; };
    Riga("CR LF", "versione=[3.0.15]\r\n01/12/2026\r\nnota=x\r\n", u"3.0.15"_s, true, u"x"_s);
    Riga("CR", "versione=[3.0.15]\r01/12/2026\rnota=x\r", u"3.0.15"_s, true, u"x"_s);
    Riga("no break at the end", "versione=[3.0.15]\n01/12/2026\nnota=x", u"3.0.15"_s, true, u"x"_s);
    Riga("UTF-8 behind its mark", "\xEF\xBB\xBFversione=[3.0.15]\n01/12/2026\nnota=Novit\xC3\xA0",
         u"3.0.15"_s, true, u"Novità"_s);
    Riga("two lines", "versione=[3.0.15]\n01/12/2026", u"3.0.15"_s, true, u""_s);
    Riga("one line", "versione=[3.0.15]", u"3.0.15"_s, false, u""_s);
    Riga("nothing", "", u""_s, false, u""_s);
    Riga("the first is empty", "\n01/12/2026\nnota=x", u""_s, true, u"x"_s);
    Riga("a signed line is no note", "versione=[3.0.15]\n01/12/2026\n\nsha256=x", u"3.0.15"_s, true, u""_s);
}

void TestVersioni::righe()
{
    QFETCH(QByteArray, Contenuto);
    const Versioni Lette = LeggiVersioni(Contenuto);
    QTEST(Lette.Versione, "Versione");
    QTEST(Lette.DataTassi.has_value(), "HaData");
    QTEST(Lette.Nota, "Nota");
}

void TestVersioni::unaRigaDi64Kib()
{
    const Versioni Lette = LeggiVersioni(QByteArray(MassimoVersioni, '['));
    QVERIFY(!Lette.RigaVuota);
    QVERIFY(Lette.Versione.isEmpty());
    QVERIFY(!Lette.DataTassi);
    // A note as long is cut.
    QCOMPARE(LeggiVersioni("versione=[1.0.0]\n\nn=" + QByteArray(MassimoVersioni, '<')).Nota.size(), 500);
}

void TestVersioni::versioneNuova_data()
{
    QTest::addColumn<QString>("Remota");
    QTest::addColumn<QString>("Locale");
    QTest::addColumn<bool>("Nuova");

    QTest::newRow("as numbers, not as text") << u"3.0.10"_s << u"3.0.9"_s << true;
    QTest::newRow("the same the other way") << u"3.0.9"_s << u"3.0.10"_s << false;
    QTest::newRow("equal") << u"3.0.14"_s << u"3.0.14"_s << false;
    QTest::newRow("the major counts first") << u"4.0.0"_s << u"3.9.99"_s << true;
    QTest::newRow("an older major") << u"2.9.99"_s << u"3.0.14"_s << false;
    QTest::newRow("the minor") << u"3.1.0"_s << u"3.0.14"_s << true;
    QTest::newRow("leading zeros") << u"3.0.015"_s << u"3.0.14"_s << true;
    QTest::newRow("no remote one") << u""_s << u"3.0.14"_s << false;
    QTest::newRow("no local one") << u"3.0.15"_s << u""_s << false;
    QTest::newRow("the largest") << u"99999.99999.99999"_s << u"3.0.14"_s << true;
}

void TestVersioni::versioneNuova()
{
    QFETCH(QString, Remota);
    QFETCH(QString, Locale);
    QFETCH(bool, Nuova);
    QCOMPARE(VersioneNuova(Remota, Locale), Nuova);
}

#include "TestVersioni.moc"
