// Rows between separators, as Italian spreadsheets write and open them.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "addressbook/exchange/csv.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/fogliocsv.h"
#include "platform/base/paginacodice.h"

using namespace Qt::StringLiterals;

using Tabella = std::vector<QStringList>;

class TestCsv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void siLegge_data();
    void siLegge();
    void leCodifiche_data();
    void leCodifiche();
    void leLinee();
    void laSceltaVincePiuDelRiconoscimento();
    void comeLoApreUnFoglio();
    void andataERitorno();
    void nessunaFormula();
    void siRifiuta_data();
    void siRifiuta();
};
PROVA(TestCsv);

namespace {

QString FraseDi(const QByteArray& Byte)
{
    const ErroreVisto Guasto = ErroreDi([&] { (void)LeggiCsv(Byte); });
    if (Guasto.Numero == 0)
        return u"letto"_s;
    return Guasto.Numero == NumeroFileRifiutato ? Guasto.Descrizione : QString::number(Guasto.Numero);
}

}  // namespace

void TestCsv::siLegge_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<Tabella>("Righe");
    QTest::newRow("semicolons") << u"a;b\n1;2\n"_s << Tabella{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}};
    QTest::newRow("commas") << u"a,b\r\n1,2"_s << Tabella{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}};
    QTest::newRow("tabs") << u"a\tb\r1\t2\r"_s << Tabella{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}};
    QTest::newRow("decimal commas between semicolons")
        << u"Nome;Onorario\nRossi;1.234,50\nVerdi;12,30\n"_s
        << Tabella{{u"Nome"_s, u"Onorario"_s}, {u"Rossi"_s, u"1.234,50"_s}, {u"Verdi"_s, u"12,30"_s}};
    QTest::newRow("commas of addresses between semicolons")
        << u"Nome;Via\nRossi;Via Roma, 1, Lucca\nVerdi;Via Po, 2, Pisa\n"_s
        << Tabella{{u"Nome"_s, u"Via"_s},
                   {u"Rossi"_s, u"Via Roma, 1, Lucca"_s},
                   {u"Verdi"_s, u"Via Po, 2, Pisa"_s}};
    QTest::newRow("quotes, doubled ones, a separator and a line break inside")
        << u"a;b\n\"Studio \"\"Alfa\"\"; Lucca\";\"una\r\ndue\"\n"_s
        << Tabella{{u"a"_s, u"b"_s}, {u"Studio \"Alfa\"; Lucca"_s, u"una\r\ndue"_s}};
    QTest::newRow("quotes inside a cell stand for themselves")
        << u"a;b\nStudio \"Alfa\";x\n"_s << Tabella{{u"a"_s, u"b"_s}, {u"Studio \"Alfa\""_s, u"x"_s}};
    QTest::newRow("text behind the closing quote")
        << u"a;b\n\"x\"y;z\n"_s << Tabella{{u"a"_s, u"b"_s}, {u"xy"_s, u"z"_s}};
    QTest::newRow("ragged rows") << u"a;b;c\n1;2\n1;2;3;4\n"_s
                                 << Tabella{{u"a"_s, u"b"_s, u"c"_s},
                                            {u"1"_s, u"2"_s},
                                            {u"1"_s, u"2"_s, u"3"_s, u"4"_s}};
    QTest::newRow("blank rows are none")
        << u"a;b\n\n;\n1;2\n\n"_s << Tabella{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}};
    QTest::newRow("one column") << u"Rossi\nVerdi\n"_s << Tabella{{u"Rossi"_s}, {u"Verdi"_s}};
    QTest::newRow("a line that names the separator")
        << u"sep=,\r\na;1,b\r\n"_s << Tabella{{u"a;1"_s, u"b"_s}};
    QTest::newRow("an escaped formula")
        << u"a;b\n'=1+1;'+39 0583\n"_s << Tabella{{u"a"_s, u"b"_s}, {u"=1+1"_s, u"+39 0583"_s}};
    QTest::newRow("an apostrophe of its own")
        << u"a;b\n'sti;d'Arco\n"_s << Tabella{{u"a"_s, u"b"_s}, {u"'sti"_s, u"d'Arco"_s}};
}

void TestCsv::siLegge()
{
    QFETCH(QString, Testo);
    QFETCH(Tabella, Righe);
    QCOMPARE(LeggiCsv(Testo.toUtf8()).Righe, Righe);
}

void TestCsv::leCodifiche_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<int>("Codifica");
    const QString Testo = u"Nome;Città\nNicolò;Forlì €\n"_s;
    const auto InUtf16 = [&](bool Alto) {
        QByteArray Byte(Alto ? "\xFE\xFF" : "\xFF\xFE");
        for (const QChar C : Testo) {
            const char Su = char(C.unicode() >> 8);
            const char Giu = char(C.unicode() & 0xFF);
            Byte.append(Alto ? Su : Giu).append(Alto ? Giu : Su);
        }
        return Byte;
    };
    using enum CodificaTesto;
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF" + Testo.toUtf8() << int(Utf8);
    QTest::newRow("UTF-8 without") << Testo.toUtf8() << int(Utf8);
    QTest::newRow("Windows-1252") << Cp1252(Testo) << int(Windows1252);
    QTest::newRow("UTF-16, low byte first") << InUtf16(false) << int(Utf16);
    QTest::newRow("UTF-16, high byte first") << InUtf16(true) << int(Utf16);
    QTest::newRow("with the old end mark") << Cp1252(Testo) + '\x1a' << int(Windows1252);
}

void TestCsv::leCodifiche()
{
    QFETCH(QByteArray, Byte);
    const RigheCsv Lette = LeggiCsv(Byte);
    QTEST(int(Lette.Codifica), "Codifica");
    QCOMPARE(Lette.Righe, (Tabella{{u"Nome"_s, u"Città"_s}, {u"Nicolò"_s, u"Forlì €"_s}}));
}

void TestCsv::leLinee()
{
    const RigheCsv Lette = LeggiCsv("a;b\n\"1\n\n2\";x\n\ny;z\n");
    QCOMPARE(Lette.Linee, (std::vector<int>{1, 2, 6}));
    QCOMPARE(Lette.Colonne, 2);
    QCOMPARE(Lette.Separatore, QChar(u';'));
}

void TestCsv::laSceltaVincePiuDelRiconoscimento()
{
    const RigheCsv Lette =
        LeggiCsv("a;b,c\n1;2,3\n", {.Separatore = u',', .Codifica = CodificaTesto::Windows1252});
    QCOMPARE(Lette.Righe, (Tabella{{u"a;b"_s, u"c"_s}, {u"1;2"_s, u"3"_s}}));
    QCOMPARE(LeggiCsv(u"è;b\n"_s.toUtf8(), {.Separatore = {}, .Codifica = CodificaTesto::Windows1252})
                 .Righe.front()
                 .front(),
             u"Ã¨"_s);
}

void TestCsv::comeLoApreUnFoglio()
{
    QCOMPARE(
        ScriviCsv({{u"Nome"_s, u"Città"_s}, {u"=1+1"_s, u"a;b \"c\"\nd"_s}, {u"+39 0583"_s, u" x"_s}}),
        QByteArray("\xEF\xBB\xBFNome;Citt\xC3\xA0\r\n'=1+1;\"a;b \"\"c\"\"\nd\"\r\n'+39 0583;\" x\"\r\n"));
}

/// No text that a client's name may hold is run by the spreadsheet that opens the file.
void TestCsv::nessunaFormula()
{
    for (const QChar Segno : u"=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20"_s) {
        const QString Cella = CellaCsv(Segno + u"cmd|'/C calc'!A0"_s);
        QVERIFY2(Cella.startsWith(u'\'') || Cella.startsWith(u"\"'"), qPrintable(Cella));
        QCOMPARE(LeggiCsv(ScriviCsv({{Segno + u"x"_s, u"y"_s}})).Righe, (Tabella{{Segno + u"x"_s, u"y"_s}}));
    }
    QCOMPARE(CellaCsv(u"Rossi - Bianchi"_s), u"Rossi - Bianchi"_s);
}

/// Whatever stands in the cells comes back, signs of formulas and apostrophes too.
void TestCsv::andataERitorno()
{
    const Tabella Righe{{u"a"_s, u"b"_s, u"c"_s, u"d"_s},
                        {u"=1"_s, u"-5"_s, u"@x"_s, u"+y"_s},
                        {u"'=1"_s, u"''=1"_s, u"'x"_s, u"'"_s},
                        {u"\tx"_s, u"\rx"_s, u"una\r\ndue"_s, u"\"\""_s},
                        {u" x "_s, u"Nicolò D’Àlvari €"_s, u"1.234,50"_s, u"\U0001F600"_s}};
    QCOMPARE(LeggiCsv(ScriviCsv(Righe)).Righe, Righe);
    for (const QString& Segno : {u"sep=,"_s, u"\ufeffx"_s})
        QCOMPARE(LeggiCsv(ScriviCsv({{Segno}, {u"a,b"_s}}), {.Separatore = u';', .Codifica = {}}).Righe,
                 (Tabella{{Segno}, {u"a,b"_s}}));
}

void TestCsv::siRifiuta_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Frase");
    const QString NonETesto =
        u"Il file non è un testo: esportare i nominativi dal programma d'origine in formato CSV o "
        "vCard."_s;
    const QString Foglio =
        u"Il file è di un foglio di calcolo: aprirlo con quel programma e salvarlo in formato CSV."_s;
    QTest::newRow("empty") << QByteArray()
                           << u"Il file è vuoto: ripetere l'esportazione dal programma d'origine."_s;
    QTest::newRow("today's spreadsheet") << QByteArray("PK\x03\x04\x14\x00", 6) << Foglio;
    QTest::newRow("a former spreadsheet") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1") << Foglio;
    QTest::newRow("noughts") << QByteArray("a;b\n\0;c", 7) << NonETesto;
    QTest::newRow("control codes") << QByteArray(100, '\x01') << NonETesto;
    QTest::newRow("half a character of UTF-16") << QByteArray("\xFF\xFE"
                                                              "a\0b",
                                                              5)
                                                << NonETesto;
    QTest::newRow("noughts in UTF-16") << QByteArray("\xFF\xFE"
                                                     "a\0\0\0",
                                                     6)
                                       << NonETesto;
    QTest::newRow("ends inside quotes") << QByteArray("a;b\n1;\"2\n3")
                                        << u"Il file finisce dentro una cella fra virgolette, nella riga che "
                                           u"comincia alla linea 2: è incompleto, "
                                           "ripetere l'esportazione dal programma d'origine."_s;
    QTest::newRow("10,000 columns")
        << QByteArray(10'000, ';') + "x\n"
        << u"Il file ha più di 1.000 colonne: togliere quelle che non servono, o controllare il separatore."_s;
    QTest::newRow("a cell of 16 MB") << "a;b\n1;" + QByteArray(16 << 20, 'x') + "\n"
                                     << u"Alla riga 2 una cella ha più di 1.000.000 caratteri: accorciarla, "
                                        u"o controllare le virgolette, e "
                                        "ripetere."_s;
    QTest::newRow("too many rows")
        << QByteArray("x\n").repeated(500'001)
        << u"Il file ha troppe righe per una sola volta: dividerlo e importarne una parte alla volta."_s;
}

void TestCsv::siRifiuta()
{
    QFETCH(QByteArray, Byte);
    QTEST(FraseDi(Byte), "Frase");
}

#include "TestCsv.moc"
