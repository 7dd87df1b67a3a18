#include "supporto/prova.h"

#include "platform/document/superficie.h"
#include "print/writers/scrittoretesto.h"

using namespace Qt::StringLiterals;

namespace {

QString Spazi(int Quanti)
{
    return QString(Quanti, u' ');
}

/// What one paragraph comes out as.
QString TestoDi(const QString& Testo, Allineamento Come = Allineamento::Sinistra)
{
    Superficie vp;
    vp.StartDoc();
    vp.TextAlign(Come);
    vp.Paragraph(Testo);
    vp.EndDoc();
    return ScriviTesto(vp.Contenuto());
}

/// Opens a table with these column widths.
void Apri(Superficie& vp, int Righe, const QStringList& Larghezze)
{
    vp.StartDoc();
    vp.StartTable();
    vp.TableCell(AttrTabella::Righe, Righe);
    vp.TableCell(AttrTabella::Colonne, static_cast<int>(Larghezze.size()));
    for (int Colonna = 1; Colonna <= Larghezze.size(); ++Colonna)
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Colonna, Larghezze[Colonna - 1]);
}

void Riempi(Superficie& vp, int Riga, const QStringList& Testi)
{
    for (int Colonna = 1; Colonna <= Testi.size(); ++Colonna)
        vp.CellaTabella(AttrTabella::Testo, Riga, Colonna, Testi[Colonna - 1]);
}

QString Chiudi(Superficie& vp)
{
    vp.EndDoc();
    return ScriviTesto(vp.Contenuto());
}

}  // namespace

class TestScrittoreTesto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentoVuoto();
    void paragrafi_data();
    void paragrafi();
    void trattiDiUnaRigaSiUniscono();
    void rtfSiScrive();
    void rientri_data();
    void rientri();

    void colonneACinqueCaratteriPerCm();
    void larghezzeArrotondate();
    void allineamentoNellaColonna();
    void vicineNonSiToccano();
    void importoLargoAllargaLaColonna();
    void parolaLungaNonSiTaglia();
    void descrizioneVaACapo();
    void aCapoEsplicitoInCella();
    void rientroInCellaResta();
    void rigaBiancaDiTabella();
    void cellaUnita();
    void cellaUnitaAllargaLUltimaColonna();
    void colonnaSenzaLarghezzaNeTesto();
    void tabellaOnorari();
    void laQuantitaNonSiSpezza();
};
PROVA(TestScrittoreTesto);

// ---- paragraphs -------------------------------------------------------------------------------------

void TestScrittoreTesto::documentoVuoto()
{
    QCOMPARE(ScriviTesto(Documento()), QString());
}

void TestScrittoreTesto::paragrafi_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<Allineamento>("Come");
    QTest::addColumn<QString>("Atteso");

    const auto Sinistra = Allineamento::Sinistra;
    const auto Destra = Allineamento::Destra;
    const QString Piena = QString(40, u'a') + u' ' + QString(47, u'b');  // exactly one line
    QTest::newRow("blank row") << u""_s << Sinistra << u"\n"_s;
    QTest::newRow("plain") << u"Oggetto: sfratto"_s << Sinistra << u"Oggetto: sfratto\n"_s;
    QTest::newRow("leading blanks") << Spazi(65) + u"avv. Bianchi"_s << Sinistra
                                    << Spazi(65) + u"avv. Bianchi\n"_s;
    QTest::newRow("inner blanks") << u"a    b"_s << Sinistra << u"a    b\n"_s;
    QTest::newRow("trailing blanks") << u"Preavviso "_s << Sinistra << u"Preavviso\n"_s;
    QTest::newRow("only blanks") << Spazi(100) << Sinistra << u"\n"_s;
    QTest::newRow("line break") << u"a\n  b\n\nc"_s << Sinistra << u"a\n  b\n\nc\n"_s;
    QTest::newRow("one full line") << Piena << Sinistra << Piena + u"\n"_s;
    QTest::newRow("one more letter") << Piena + u"b"_s << Sinistra
                                     << QString(40, u'a') + u"\n"_s + QString(48, u'b') + u"\n"_s;
    QTest::newRow("blank at the edge") << Piena + u" c"_s << Sinistra << Piena + u"\nc\n"_s;
    QTest::newRow("run at the edge") << Piena + Spazi(5) + u"c"_s << Sinistra << Piena + u"\nc\n"_s;
    QTest::newRow("word wider than a line")
        << QString(100, u'x') + u" dopo"_s << Sinistra << QString(100, u'x') + u"\ndopo\n"_s;
    QTest::newRow("indented word that does not fit")
        << Spazi(65) + QString(30, u'x') + u" y"_s << Sinistra << Spazi(65) + QString(30, u'x') + u"\ny\n"_s;
    QTest::newRow("justified stays left") << u"a b"_s << Allineamento::Giustificato << u"a b\n"_s;
    QTest::newRow("centre") << u"FATTURA"_s << Allineamento::Centro << Spazi(40) + u"FATTURA\n"_s;
    QTest::newRow("right") << u"Roma"_s << Destra << Spazi(84) + u"Roma\n"_s;
    QTest::newRow("right, wrapped") << Piena + u" c"_s << Destra << Piena + u"\n"_s + Spazi(87) + u"c\n"_s;
    QTest::newRow("right, blank row") << u""_s << Destra << u"\n"_s;
    QTest::newRow("right, too wide") << QString(90, u'x') << Destra << QString(90, u'x') + u"\n"_s;
}

void TestScrittoreTesto::paragrafi()
{
    QFETCH(QString, Testo);
    QFETCH(Allineamento, Come);
    QTEST(TestoDi(Testo, Come), "Atteso");
}

void TestScrittoreTesto::trattiDiUnaRigaSiUniscono()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"Preavviso di parcella "_s);
    vp.FontBold(true);
    vp.Text(u"n. 7"_s);
    vp.Paragraph({});
    vp.Paragraph({});
    vp.Text(u"ultima"_s);
    vp.EndDoc();
    QCOMPARE(ScriviTesto(vp.Contenuto()), u"Preavviso di parcella n. 7\n\nultima\n"_s);
}

void TestScrittoreTesto::rtfSiScrive()
{
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(u"prima"_s);
    vp.Paragraph(u"{\\rtf1 Clausola}"_s);
    vp.Paragraph(u"dopo"_s);
    vp.EndDoc();
    QCOMPARE(ScriviTesto(vp.Contenuto()), u"prima\nClausola\ndopo\n"_s);
}

void TestScrittoreTesto::rientri_data()
{
    QTest::addColumn<QString>("Rtf");
    QTest::addColumn<QString>("Atteso");

    // Two centimetres are ten characters, the line has 88.
    const QString Piena = QString(40, u'a') + u' ' + QString(37, u'b');
    QTest::newRow("left") << u"\\li1134 a"_s << Spazi(10) + u"a\n"_s;
    QTest::newRow("left, wrapped") << u"\\li1134 "_s + Piena + u" c"_s
                                   << Spazi(10) + Piena + u"\n"_s + Spazi(10) + u"c\n"_s;
    QTest::newRow("right") << u"\\ri1134 "_s + Piena + u" c"_s << Piena + u"\nc\n"_s;
    QTest::newRow("first line") << u"\\fi1134 "_s + Piena + u" cccccccccc"_s
                                << Spazi(10) + Piena + u"\ncccccccccc\n"_s;
    QTest::newRow("a list's text") << u"\\li567\\fi-567 1.\\tab uno\\line due"_s << u"1.   uno\n     due\n"_s;
    QTest::newRow("a hanging line holds more") << u"\\li1134\\fi-1134 "_s + Piena + u" ccccccccc d"_s
                                               << Piena + u" ccccccccc\n"_s + Spazi(10) + u"d\n"_s;
    QTest::newRow("centre between the indents")
        << u"\\qc\\li1134 "_s + QString(76, u'a') << Spazi(11) + QString(76, u'a') + u"\n"_s;
    QTest::newRow("tabs") << u"\\pard a\\tab b\\tab c"_s << u"a     b     c\n"_s;
}

void TestScrittoreTesto::rientri()
{
    QFETCH(QString, Rtf);
    QTEST(TestoDi(u"{\\rtf1 "_s + Rtf + u"\\par}"_s), "Atteso");
}

// ---- tables -----------------------------------------------------------------------------------------

void TestScrittoreTesto::colonneACinqueCaratteriPerCm()
{
    Superficie vp;
    Apri(vp, 1, {u"2cm"_s, u"1cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"a"_s, u"b"_s, u"c"_s});
    QCOMPARE(Chiudi(vp), u"a         b    c\n"_s);
}

void TestScrittoreTesto::larghezzeArrotondate()
{
    // 0.5 cm are 2.5 characters, 1.8 cm are 9, 0.48 cm are 2.4.
    Superficie vp;
    Apri(vp, 1, {u"0.5cm"_s, u"1.8cm"_s, u"0.48cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    QCOMPARE(Chiudi(vp), u"a  b        c d\n"_s);
}

void TestScrittoreTesto::allineamentoNellaColonna()
{
    Superficie vp;
    Apri(vp, 1, {u"2cm"_s, u"2cm"_s, u"2cm"_s, u"2cm"_s});
    Riempi(vp, 1, {u"alto"_s, u"sin"_s, u"mezzo"_s, u"des"_s});
    vp.ColonnaTabella(AttrTabella::Allinea, 1, 0);
    vp.ColonnaTabella(AttrTabella::Allinea, 3, 7);
    vp.ColonnaTabella(AttrTabella::Allinea, 4, 8);
    QCOMPARE(Chiudi(vp), u"alto      sin         mezzo         des\n"_s);
}

void TestScrittoreTesto::vicineNonSiToccano()
{
    // Column 1 is filled to its last character but one; "12345" needs one character more than its column.
    Superficie vp;
    Apri(vp, 2, {u"1cm"_s, u"1cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"abcd"_s, u"12345"_s, u"x"_s});
    Riempi(vp, 2, {u"a"_s, u"1"_s, u"y"_s});
    vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
    QCOMPARE(Chiudi(vp), u"abcd 12345 x\n"
                         u"a        1 y\n"_s);
}

void TestScrittoreTesto::importoLargoAllargaLaColonna()
{
    Superficie vp;
    Apri(vp, 2, {u"1cm"_s, u"1.8cm"_s});
    Riempi(vp, 1, {u"uno"_s, u"1.234.567,89"_s});
    Riempi(vp, 2, {u"due"_s, u"0,50"_s});
    vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
    QCOMPARE(Chiudi(vp), u"uno  1.234.567,89\n"
                         u"due          0,50\n"_s);
}

void TestScrittoreTesto::parolaLungaNonSiTaglia()
{
    Superficie vp;
    Apri(vp, 2, {u"1cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"di costituzione"_s, u"b"_s});
    Riempi(vp, 2, {u"a"_s, u"c"_s});
    QCOMPARE(Chiudi(vp), u"di           b\n"
                         u"costituzione\n"
                         u"a            c\n"_s);
}

void TestScrittoreTesto::descrizioneVaACapo()
{
    Superficie vp;
    Apri(vp, 1, {u"2cm"_s, u"1.8cm"_s});
    Riempi(vp, 1, {u"Fase di studio della causa"_s, u"550,00"_s});
    vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
    QCOMPARE(Chiudi(vp), u"Fase di     550,00\n"
                         u"studio\n"
                         u"della\n"
                         u"causa\n"_s);
}

void TestScrittoreTesto::aCapoEsplicitoInCella()
{
    Superficie vp;
    Apri(vp, 1, {u"2cm"_s, u"2cm"_s});
    Riempi(vp, 1, {u"Studio\nvia Po 1"_s, u"\nCliente\nRoma"_s});
    QCOMPARE(Chiudi(vp), u"Studio\n"
                         u"via Po 1  Cliente\n"
                         u"          Roma\n"_s);
}

void TestScrittoreTesto::rientroInCellaResta()
{
    Superficie vp;
    Apri(vp, 1, {u"1cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"   abcd"_s, u"x"_s});
    QCOMPARE(Chiudi(vp), u"   abcd x\n"_s);
}

void TestScrittoreTesto::rigaBiancaDiTabella()
{
    Superficie vp;
    Apri(vp, 3, {u"1cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"a"_s, u"b"_s});
    Riempi(vp, 3, {u""_s, u"c"_s});
    QCOMPARE(Chiudi(vp), u"a    b\n"
                         u"\n"
                         u"     c\n"_s);
}

void TestScrittoreTesto::cellaUnita()
{
    Superficie vp;
    Apri(vp, 2, {u"2cm"_s, u"2cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"(cento/00) e basta"_s, u"coperta"_s, u"x"_s});
    vp.CellaTabella(AttrTabella::Unione, 1, 1, 2);
    vp.CellaTabella(AttrTabella::Allinea, 1, 1, 8);
    Riempi(vp, 2, {u"a"_s, u"b"_s, u"y"_s});
    QCOMPARE(Chiudi(vp), u" (cento/00) e basta x\n"
                         u"a         b         y\n"_s);
}

void TestScrittoreTesto::cellaUnitaAllargaLUltimaColonna()
{
    Superficie vp;
    Apri(vp, 2, {u"2cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u"Onorari"_s, u"10"_s});
    Riempi(vp, 2, {u"(millecentonovanta/70)"_s});
    vp.CellaTabella(AttrTabella::Unione, 2, 1, 2);
    vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
    vp.CellaTabella(AttrTabella::Allinea, 2, 1, 8);
    QCOMPARE(Chiudi(vp), u"Onorari             10\n"
                         u"(millecentonovanta/70)\n"_s);
}

void TestScrittoreTesto::colonnaSenzaLarghezzaNeTesto()
{
    Superficie vp;
    Apri(vp, 1, {u"0cm"_s, u"1cm"_s});
    Riempi(vp, 1, {u""_s, u"b"_s});
    QCOMPARE(Chiudi(vp), u"b\n"_s);
}

void TestScrittoreTesto::tabellaOnorari()
{
    Superficie vp;
    Apri(vp, 6, {u"9cm"_s, u"1cm"_s, u"1.8cm"_s});
    Riempi(vp, 1, {u"ONORARI"_s, u""_s, u"Importo"_s});
    Riempi(
        vp, 3,
        {u"Fase di studio della controversia, esame degli atti e dei documenti"_s, u"n. 2"_s, u"1.100,00"_s});
    Riempi(vp, 4, {u"Fase introduttiva"_s, u""_s, u"0"_s});
    Riempi(vp, 5, {u""_s, u""_s, u"________"_s});
    Riempi(vp, 6, {u""_s, u""_s, u"1.100,00"_s});
    vp.ColonnaTabella(AttrTabella::Allinea, 3, 8);
    QCOMPARE(Chiudi(vp), u"ONORARI                                            Importo\n"
                         u"\n"
                         u"Fase di studio della controversia, esame     n. 2 1.100,00\n"
                         u"degli atti e dei documenti\n"
                         u"Fase introduttiva                                        0\n"
                         u"                                                  ________\n"
                         u"                                                  1.100,00\n"_s);
}

/// "n." above "120" would be two cells' worth of reading; a longer text goes on breaking at its blanks.
void TestScrittoreTesto::laQuantitaNonSiSpezza()
{
    Superficie vp;
    Apri(vp, 3, {u"3cm"_s, u"1cm"_s, u"1.8cm"_s});
    Riempi(vp, 1, {u"ACCONTI"_s, u""_s, u"Spese imp."_s});
    Riempi(vp, 2, {u"Copie di atti"_s, u"n. 120"_s, u"42,50"_s});
    Riempi(vp, 3, {u"Bolli"_s, u"n. 2,5"_s, u"7,08"_s});
    vp.ColonnaTabella(AttrTabella::Allinea, 3, 8);
    QCOMPARE(Chiudi(vp), u"ACCONTI               Spese imp.\n"
                         u"Copie di atti  n. 120      42,50\n"
                         u"Bolli          n. 2,5       7,08\n"_s);
}

#include "TestScrittoreTesto.moc"
