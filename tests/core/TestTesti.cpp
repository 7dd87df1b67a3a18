#include "supporto/prova.h"

#include "core/modTesti.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/system/percorsi.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

class TestTesti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lireEuro_data();
    void lireEuro();
    void formatNumDelVuoto();
    void dataLunga_data();
    void dataLunga();
    void sostituisci_data();
    void sostituisci();
    void nomeFile();
    void nomeValido_data();
    void nomeValido();
    void nomePerFile();
    void eVuoto_data();
    void eVuoto();
};
PROVA(TestTesti);

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
    QCOMPARE(NomePerFile(u"a\tb\nc"_s + QChar(0) + u'd' + QChar(0x7f)), u"a-b-c-d-"_s);
    QCOMPARE(NomePerFile(u"../../etc/passwd"_s), u"..-..-etc-passwd"_s);
    QCOMPARE(NomePerFile(u".."_s), u"-.."_s);
    QCOMPARE(NomePerFile(u"."_s), u"-."_s);
    QCOMPARE(NomePerFile(u"..."_s), u"..."_s);
    QCOMPARE(NomePerFile(u"nul"_s), u"-nul"_s);
    QCOMPARE(NomePerFile(u"COM1.2026"_s), u"-COM1.2026"_s);
    QCOMPARE(NomePerFile(u"Conti"_s), u"Conti"_s);
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

#include "TestTesti.moc"
