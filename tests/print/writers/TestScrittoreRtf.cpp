#include "supporto/prova.h"

#include "platform/document/letture.h"
#include "platform/document/superficie.h"
#include "print/campioni.h"
#include "print/modStampe.h"
#include "print/writers/scrittorertf.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// What one paragraph comes out as, without the document around it.
QByteArray CorpoDi(const std::function<void(Superficie&)>& Scrivi)
{
    Superficie vp;
    vp.StartDoc();
    Scrivi(vp);
    vp.EndDoc();
    const QByteArray Tutto = ScriviRtf(vp.Contenuto());
    const qsizetype Inizio = Tutto.indexOf("\\widowctrl\r\n") + 12;
    return Tutto.sliced(Inizio, Tutto.size() - Inizio - 3);
}

QByteArray CorpoDi(const QString& Testo)
{
    return CorpoDi([&](Superficie& vp) { vp.Paragraph(Testo); });
}

/// Braces that open and close in pairs, bytes of ASCII alone.
QString Difetto(const QByteArray& Rtf)
{
    int Profondo = 0;
    for (qsizetype i = 0; i < Rtf.size(); ++i) {
        const char C = Rtf[i];
        if (C == '\\') {
            ++i;
            continue;
        }
        Profondo += C == '{' ? 1 : C == '}' ? -1 : 0;
        if (Profondo < 0 || (Profondo == 0 && i + 3 < Rtf.size()))
            return u"group ends at %1 of %2"_s.arg(i).arg(Rtf.size());
        if (static_cast<unsigned char>(C) >= 0x80 || (C < ' ' && C != '\r' && C != '\n'))
            return u"byte %1 at %2"_s.arg(int(C)).arg(i);
    }
    return Profondo == 0 ? QString() : u"group open at the end"_s;
}

}  // namespace

class TestScrittoreRtf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void giustificatoUnaRigaPerInterruzione();
    void tabellaRilettaUguale();
    void testo_data();
    void testo();
    void fontERighe();
    void allineamentiERientri();
    void paginaEMargini();
    void piePagina();
    void piePaginaNelMargineStretto();
    void tabella();
    void celleUnite();
    void tabellaTroppoLarga();
    void importiInteri_data();
    void importiInteri();
    void filetti();
    void filettiVicini();
    void trattiSenzaEredita();
    void titoliRipetuti();
    void tabellaConCioCheSegue();
    void tabelleCheSiToccano();
    void finisceConUnParagrafo();
    void notaIntera_data();
    void notaIntera();
    void sempreGliStessiByte();
    void riletto();
};
PROVA(TestScrittoreRtf);

void TestScrittoreRtf::testo_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QByteArray>("Scritto");

    QTest::newRow("plain") << u"Oggetto: sfratto"_s << "Oggetto: sfratto"_ba;
    QTest::newRow("blanks") << u"  a    b  "_s << " \\~a \\~ \\~b \\~"_ba;
    QTest::newRow("signs of the syntax") << u"a{b}c\\d"_s << "a\\{b\\}c\\\\d"_ba;
    QTest::newRow("signs of other syntaxes") << u"<b> & \"c\""_s << "<b> & \"c\""_ba;
    QTest::newRow("accents") << u"perché È"_s << "perch\\'e9 \\'c8"_ba;
    QTest::newRow("1252 between ASCII and Latin-1") << u"€ 5 – “a”"_s << "\\'80 5 \\'96 \\'93a\\'94"_ba;
    QTest::newRow("beyond 1252") << u"č≥"_s << "\\u269?\\u8805?"_ba;
    QTest::newRow("a code above 32767") << u"\uf0b7"_s << "\\u-3913?"_ba;
    QTest::newRow("emoji") << u"a😀b"_s << "a\\u-10179?\\u-8704?b"_ba;
    QTest::newRow("half a pair") << QString(QChar(0xD83D)) + u"a"_s << "\\u-3?a"_ba;
    QTest::newRow("line break and tab") << u"a\nb\tc"_s << "a\\line b\\tab c"_ba;
    QTest::newRow("hard blank") << u"n.\u00a07"_s << "n.\\~7"_ba;
    QTest::newRow("a digit behind a number") << u"č7"_s << "\\u269?7"_ba;
    QTest::newRow("control characters") << u"a\u0001\u007f\u0085b"_s << "ab"_ba;
}

void TestScrittoreRtf::testo()
{
    QFETCH(QString, Testo);
    QFETCH(QByteArray, Scritto);
    QCOMPARE(CorpoDi(Testo), "\\pard\\plain\\ql{\\f0\\fs24 " + Scritto + "}\\f0\\fs24\\par\r\n");
}

void TestScrittoreRtf::fontERighe()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.Text(u"n. "_s);
        vp.FontBold(true);
        vp.FontSize(10.5);
        vp.Text(u"7"_s);
        vp.FontBold(false);
        vp.FontUnderline(true);
        vp.FontName(u"Arial"_s);
        vp.Text(u"!"_s);
        vp.Paragraph({});
        vp.Paragraph({});
    });
    QCOMPARE(Corpo,
             "\\pard\\plain\\ql{\\f0\\fs24 n. }{\\f0\\fs21\\b 7}{\\f1\\fs21\\ul !}\\f1\\fs21\\ul\\par\r\n"
             "\\pard\\plain\\ql\\f1\\fs21\\ul\\par\r\n"_ba);
}

void TestScrittoreRtf::allineamentiERientri()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        for (const auto Come : {Allineamento::Centro, Allineamento::Destra, Allineamento::Giustificato}) {
            vp.TextAlign(Come);
            vp.Paragraph(u"a"_s);
        }
        vp.Paragraph(u"{\\rtf1\\li567\\fi-283\\ri1134\\sb120\\sa60\\pagebb\\keepn b\\par}"_s);
    });
    QCOMPARE(Corpo.count("\\ql"), 1);
    for (const char* Atteso : {"\\pard\\plain\\qc{\\f0", "\\pard\\plain\\qr{\\f0", "\\pard\\plain\\qj{\\f0",
                               "\\pard\\plain\\ql\\pagebb\\keepn\\li567\\ri1134\\fi-283\\sb120\\sa60{\\f0"})
        QVERIFY2(Corpo.contains(Atteso), Atteso);
}

void TestScrittoreRtf::paginaEMargini()
{
    Documento Doc;
    Doc.MargineSinistroCm = 2.0;
    Doc.MargineDestroCm = 1.4;
    Doc.MargineAltoCm = 1.5;
    Doc.MargineBassoCm = 3.2;
    const QByteArray A4 = ScriviRtf(Doc, u"Prenotula {1}"_s);
    QVERIFY(A4.startsWith("{\\rtf1\\ansi\\ansicpg1252"));
    QVERIFY(A4.contains("{\\info{\\title Prenotula \\{1\\}}}"));
    QVERIFY(A4.contains("\\paperw11906\\paperh16838\\margl1134\\margr794\\margt850\\margb1814"));
    const QByteArray Lettera = ScriviRtf(Doc, {}, {215.9, 279.4});
    QVERIFY(Lettera.contains("\\paperw12240\\paperh15840"));
    QVERIFY(!Lettera.contains("\\info"));
}

void TestScrittoreRtf::piePagina()
{
    Documento Doc;
    Doc.MargineBassoCm = 3.2;
    QVERIFY(!ScriviRtf(Doc).contains("\\footer\\"));
    Doc.PiePagina = u"    Pagina %d è"_s;
    const QByteArray Rtf = ScriviRtf(Doc);
    QVERIFY(Rtf.contains("{\\footer\\pard\\plain\\ql\\f0\\fs16  \\~ \\~Pagina "
                         "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}} \\'e8\\par}"));
    QVERIFY(Rtf.contains("\\footery720"));
}

/// The margin of the short invoice holds no half inch and a line below it: the page would begin higher.
void TestScrittoreRtf::piePaginaNelMargineStretto()
{
    Documento Doc;
    Doc.MargineBassoCm = 1.5;
    Doc.PiePagina = u"%d"_s;
    const QRegularExpressionMatch Trovato =
        QRegularExpression(u"footery(\\d+)"_s).match(QString::fromLatin1(ScriviRtf(Doc)));
    const int Alto = Trovato.captured(1).toInt();
    QVERIFY2(Alto > 100 && Alto + 160 * 1.15 < 850, qPrintable(QString::number(Alto)));
}

void TestScrittoreRtf::tabella()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 1);
        vp.TableCell(AttrTabella::Colonne, 2);
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"9cm"_s);
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 2, u"1.8cm"_s);
        vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
        vp.CellaTabella(AttrTabella::Grassetto, 1, 1, true);
        vp.CellaTabella(AttrTabella::Testo, 1, 1, u"Esame\n{atti}"_s);
        vp.CellaTabella(AttrTabella::Testo, 1, 2, u"1.200,00"_s);
        vp.EndTable();
    });
    QVERIFY2(Corpo.startsWith("\\trowd\\trgaph0\\trleft0\\trkeep"
                              "\\clvertalt\\cellx5102\\clvertalt\\cellx6123\r\n"
                              "\\pard\\plain\\intbl\\ql\\f0\\fs24\\b Esame\\line \\{atti\\}\\cell"
                              "\\pard\\plain\\intbl\\qr\\li85\\f0\\fs24 1.200,00\\cell\\row\r\n"),
             Corpo.constData());
    QVERIFY(!Corpo.contains("brdr"));

    const QByteArray ConLinee = CorpoDi([](Superficie& vp) {
        vp.StartTable();
        vp.TableBorder(1);
        vp.TableCell(AttrTabella::Righe, 1);
        vp.TableCell(AttrTabella::Colonne, 1);
        vp.EndTable();
    });
    QVERIFY(ConLinee.contains(
        "\\trleft0\\trkeep\\clbrdrt\\brdrs\\brdrw10\\clbrdrl\\brdrs\\brdrw10\\clbrdrb\\brdrs"
        "\\brdrw10\\clbrdrr\\brdrs\\brdrw10\\clvertalt\\cellx1440\r\n"));
}

void TestScrittoreRtf::celleUnite()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 1);
        vp.TableCell(AttrTabella::Colonne, 3);
        for (int Colonna = 1; Colonna <= 3; ++Colonna)
            vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Colonna, u"2.54cm"_s);
        vp.CellaTabella(AttrTabella::Unione, 1, 1, 2);
        vp.CellaTabella(AttrTabella::Testo, 1, 2, u"coperta"_s);
        vp.EndTable();
    });
    QVERIFY(Corpo.contains("\\clvertalt\\cellx2880\\clvertalt\\cellx4320\r\n"));
    QCOMPARE(Corpo.count("\\cell\\"), 2);
    QVERIFY(!Corpo.contains("coperta"));
}

void TestScrittoreRtf::tabellaTroppoLarga()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.MarginLeft(u"2cm"_s);
        vp.MarginRight(u"2cm"_s);
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 1);
        vp.TableCell(AttrTabella::Colonne, 2);
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"30cm"_s);
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 2, u"10cm"_s);
        vp.EndTable();
    });
    QVERIFY2(Corpo.contains("\\cellx7228\\clvertalt\\cellx9638\r\n"),
             Corpo.constData());  // 17 cm
}

void TestScrittoreRtf::importiInteri_data()
{
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<QByteArray>("Bordi");

    QTest::newRow("fits") << u"987.654,32"_s << "\\cellx1020\\clvertalt\\cellx2041\r\n"_ba;
    QTest::newRow("a million is wider than the column, and there is room")
        << u"1.234.567,89"_s << "\\cellx1020\\clvertalt\\cellx2056\r\n"_ba;
    QTest::newRow("three at once, at the cost of the words, which keep two fifths")
        << u"(1.234.567,89-1.234.567,89-1.234.567,89)"_s << "\\cellx408\\clvertalt\\cellx2835\r\n"_ba;
    QTest::newRow("a word") << u"iscrizione"_s << "\\cellx1020\\clvertalt\\cellx2041\r\n"_ba;
}

/// A number broken over two lines would be read wrong.
void TestScrittoreRtf::importiInteri()
{
    QFETCH(QString, Importo);
    QFETCH(QByteArray, Bordi);
    const QByteArray Corpo = CorpoDi([&](Superficie& vp) {
        vp.MarginLeft(u"8cm"_s);
        vp.MarginRight(u"8cm"_s);
        vp.FontSize(9);
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 1);
        vp.TableCell(AttrTabella::Colonne, 2);
        vp.TableCell(AttrTabella::LarghezzaColonna, u"1.8cm"_s);
        vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
        vp.CellaTabella(AttrTabella::Testo, 1, 2, Importo);
        vp.EndTable();
    });
    QVERIFY2(Corpo.contains(Bordi), Corpo.constData());
}

/// Rules are as low as on the page; the row keeps the height of its text where there is any.
void TestScrittoreRtf::filetti()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.FontSize(10);
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 2);
        vp.TableCell(AttrTabella::Colonne, 2);
        vp.CellaTabella(AttrTabella::Testo, 1, 2, u"____"_s);
        vp.CellaTabella(AttrTabella::Testo, 2, 1, u"Totale"_s);
        vp.CellaTabella(AttrTabella::Testo, 2, 2, u"____"_s);
        vp.EndTable();
    });
    QCOMPARE(Corpo.count("\\sl-138\\slmult0"), 2);
    QCOMPARE(Corpo.count("\\sl"), 4);
}

/// Where rows come nearer, a rule comes with them; empty cells say how high they are, since some readers keep
/// theirs otherwise, and the sum beside them with it.
void TestScrittoreRtf::filettiVicini()
{
    Superficie vp;
    vp.StartDoc();
    vp.FontSize(10);
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, 2);
    vp.TableCell(AttrTabella::Righe, 3);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"Studio"_s);
    vp.CellaTabella(AttrTabella::Testo, 1, 2, u"100"_s);
    vp.CellaTabella(AttrTabella::Testo, 2, 2, u"____"_s);
    vp.CellaTabella(AttrTabella::Testo, 3, 2, u"100"_s);
    vp.EndTable();
    vp.EndDoc();
    Documento Doc = vp.Contenuto();
    Doc.Stretta = StrettezzaDi(2 * PassiStrettezza);
    QByteArray Rtf = ScriviRtf(Doc);
    QCOMPARE(Rtf.count("\\sl-130\\slmult0"), 2);  // both cells of the rule: 10 x 1.15 x 0.6 x 0.94 points
    QCOMPARE(Rtf.count("\\sl-216\\slmult0"), 1);  // the empty one beside the sum
    QCOMPARE(Rtf.count("\\sl226\\slmult1"), 3);
    Doc.Stretta = {};
    Rtf = ScriviRtf(Doc);
    QCOMPARE(Rtf.count("\\sl-138\\slmult0"), 2);
    QCOMPARE(Rtf.count("\\sl"), 4);
}

/// The last run is bold, and so is the mark of the paragraph; the first one is not for that.
void TestScrittoreRtf::trattiSenzaEredita()
{
    Superficie vp;
    vp.Text(u"Il cliente "_s);
    vp.FontBold(true);
    vp.FontUnderline(true);
    vp.Paragraph(u"conviene"_s);
    const std::vector<Paragrafo> Letti =
        letture::ParagrafiRtf(QString::fromLatin1(ScriviRtf(vp.Contenuto())));
    QCOMPARE(Letti.size(), std::size_t{1});
    QCOMPARE(Letti[0].Tratti.size(), std::size_t{2});
    QVERIFY(!Letti[0].Tratti[0].Font.Grassetto);
    QVERIFY(!Letti[0].Tratti[0].Font.Sottolineato);
    QVERIFY(Letti[0].Tratti[1].Font.Grassetto);
    QVERIFY(Letti[0].Tratti[1].Font.Sottolineato);
    QVERIFY(Letti[0].Font.Grassetto);
}

void TestScrittoreRtf::titoliRipetuti()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.StartTable();
        const QStringList Testi{
            u"ONORARI"_s,       {},        u"Studio"_s, u"Introduzione"_s, u"Istruttoria"_s, u"Decisione"_s,
            u"Conciliazione"_s, u"____"_s, u"100"_s};
        vp.TableCell(AttrTabella::Righe, int(Testi.size()));
        vp.TableCell(AttrTabella::Colonne, 1);
        for (int Riga = 1; Riga <= Testi.size(); ++Riga)
            vp.CellaTabella(AttrTabella::Testo, Riga, 1, Testi[Riga - 1]);
        vp.EndTable();
    });
    const QList<QByteArray> Righe = Corpo.split('\n');
    QStringList Viste;
    for (qsizetype i = 0; i + 1 < Righe.size() && Righe[i].startsWith("\\trowd"); i += 2)
        Viste += (Righe[i].contains("\\trhdr") ? u"h"_s : u"-"_s) +
                 (Righe[i + 1].contains("\\keepn") ? u"u"_s : u"-"_s);
    // Heading and blank row repeat; the last line, the rule and the total stay together.
    QCOMPARE(Viste,
             (QStringList{u"hu"_s, u"hu"_s, u"--"_s, u"--"_s, u"--"_s, u"--"_s, u"-u"_s, u"-u"_s, u"--"_s}));
}

/// The row above a signature ends no page.
void TestScrittoreRtf::tabellaConCioCheSegue()
{
    for (const bool Insieme : {true, false}) {
        const QByteArray Corpo = CorpoDi([&](Superficie& vp) { campioni::TotaleEFirma(vp, Insieme); });
        QCOMPARE(Corpo.contains("\\ql\\keep{"), Insieme);
        QCOMPARE(Corpo.count("\\keepn"), Insieme ? 1 : 0);
        QCOMPARE(Corpo.contains("\\intbl\\ql\\keepn"), Insieme);
    }
}

void TestScrittoreRtf::tabelleCheSiToccano()
{
    const auto Una = [](Superficie& vp) {
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 1);
        vp.TableCell(AttrTabella::Colonne, 1);
        vp.EndTable();
    };
    const QByteArray Due = CorpoDi([&](Superficie& vp) {
        Una(vp);
        Una(vp);
    });
    QCOMPARE(Due.count("\\row\r\n\\pard\\plain\\f0\\fs2\\par\r\n"), 2);
    const QByteArray ConTesto = CorpoDi([&](Superficie& vp) {
        Una(vp);
        vp.Paragraph(u"a"_s);
        Una(vp);
        vp.Paragraph(u"b"_s);
    });
    QCOMPARE(ConTesto.count("\\fs2\\par"), 0);
}

void TestScrittoreRtf::finisceConUnParagrafo()
{
    const QByteArray Rtf = ScriviRtf(Documento());
    QCOMPARE(Difetto(Rtf), QString());
    QVERIFY(Rtf.endsWith("}\r\n"));
}

void TestScrittoreRtf::notaIntera_data()
{
    QTest::addColumn<QString>("Ostile");
    QTest::newRow("plain") << QString();
    QTest::newRow("braces") << u"}}}{{{"_s;
    QTest::newRow("backslash at the end") << u"C:\\"_s;
    QTest::newRow("a command") << u"\\par}{\\object"_s;
    QTest::newRow("emoji and halves") << u"😀"_s + QChar(0xDC00) + QChar(0xD800);
    QTest::newRow("five hundred letters") << QString(500, u'è');
    QTest::newRow("controls") << u"a\u0000b\u001bc"_s;
}

void TestScrittoreRtf::notaIntera()
{
    QFETCH(QString, Ostile);
    campioni::ImpostaStudio();
    Parcella Nota = campioni::Stragiudiziale();
    Nota.txtDatiStaCli.Testo = Ostile;
    Nota.txtDatiStaOgg.Testo = Ostile;
    campioni::AggiungiOnorario(Nota.xOnorari, Ostile, 1.0, 100.0);
    sessione::StudioNome = Ostile;
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
    QCOMPARE(Difetto(ScriviRtf(vp.Contenuto(), Ostile)), QString());
}

void TestScrittoreRtf::sempreGliStessiByte()
{
    campioni::ImpostaStudio();
    QByteArrayList Fatti;
    for (int Volta = 0; Volta < 2; ++Volta) {
        Superficie vp;
        QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));
        Fatti += ScriviRtf(vp.Contenuto(), u"Prenotula"_s);
    }
    QVERIFY(Fatti[0].size() > 1000);
    QCOMPARE(Fatti[0], Fatti[1]);
}

/// What is written is what the reader understands: runs, formats, alignments, indents.
void TestScrittoreRtf::riletto()
{
    const QString Testo =
        u"{\\rtf1{\\fonttbl{\\f0 Georgia;}{\\f1 Arial;}}\\qr\\li567\\fi-283\\sb120 1.\\tab "
        u"a {\\b b{\\i c}} \\f1\\fs30 \\u8805?\\u-10179?\\u-8704?\\line\\{\\par\\pard\\qc\\par"
        u"\\pagebb\\keepn\\ul d\\par}"_s;
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(Testo);
    vp.EndDoc();
    const std::vector<Paragrafo> Letti =
        letture::ParagrafiRtf(QString::fromLatin1(ScriviRtf(vp.Contenuto())));
    const std::vector<BloccoDocumento>& Scritti = vp.Contenuto().Blocchi;
    QCOMPARE(Scritti.size(), std::size_t{3});
    QCOMPARE(Letti.size(), Scritti.size());
    for (std::size_t i = 0; i < Letti.size(); ++i) {
        const auto& Scritto = std::get<Paragrafo>(Scritti[i]);
        QCOMPARE(Letti[i].Testo(), Scritto.Testo());
        QCOMPARE(Letti[i].Allinea, Scritto.Allinea);
        QCOMPARE(Letti[i].NuovaPagina, Scritto.NuovaPagina);
        QCOMPARE(Letti[i].ConSeguente, Scritto.ConSeguente);
        QCOMPARE(Letti[i].Font, Scritto.Font);
        QVERIFY(qAbs(Letti[i].Spazi.SinistroCm - Scritto.Spazi.SinistroCm) < 0.001);
        QCOMPARE(Letti[i].Spazi.SopraPunti, Scritto.Spazi.SopraPunti);
        QCOMPARE(Letti[i].Tratti.size(), Scritto.Tratti.size());
        for (std::size_t j = 0; j < Scritto.Tratti.size(); ++j)
            QCOMPARE(Letti[i].Tratti[j].Font, Scritto.Tratti[j].Font);
    }
}

/// A word processor stretches a justified line that ends in a line break.
void TestScrittoreRtf::giustificatoUnaRigaPerInterruzione()
{
    const QByteArray Corpo = CorpoDi([](Superficie& vp) {
        vp.TextAlign(Allineamento::Giustificato);
        vp.SpaceBefore(6);
        vp.Text(u"Resto a disposizione\ne porgo\n\ncordiali saluti"_s);
        vp.SpaceAfter(3);
        vp.Paragraph({});
    });
    QVERIFY2(!Corpo.contains("\\line"), Corpo.constData());
    QCOMPARE(Corpo.count("\\par\r\n"), 4);
    QCOMPARE(Corpo.count("\\qj"), 4);
    QCOMPARE(Corpo.count("\\sb120"), 1);
    QVERIFY(Corpo.startsWith("\\pard\\plain\\qj\\keepn\\sb120"));
    QCOMPARE(Corpo.count("\\sa60"), 1);
    QVERIFY(Corpo.indexOf("\\sa60") > Corpo.indexOf("porgo"));
    QCOMPARE(CorpoDi(u"a\nb"_s).count("\\line"), 1);  // to the left nothing is stretched
}

void TestScrittoreRtf::tabellaRilettaUguale()
{
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(
        u"{\\rtf1{\\fonttbl{\\f0 Georgia;}}\\trowd\\trleft567\\clbrdrb\\brdrs\\cellx4000\\cellx8000\\intbl"
        u"\\qc{\\strike a}\\par\\sb200\\sl480\\slmult1 b\\cell\\tqr\\tlul\\tx2000 c\\tab d{\\super 2}"
        u"\\cell\\row\\pard e\\par}"_s);
    vp.EndDoc();
    const auto& Scritta = std::get<Tabella>(vp.Contenuto().Blocchi.at(0));
    const std::vector<BloccoDocumento> Letti = LeggiRtf(QString::fromLatin1(ScriviRtf(vp.Contenuto())));
    QCOMPARE(letture::Testi(Letti), letture::Testi(vp.Contenuto().Blocchi));
    const auto& Letta = std::get<Tabella>(Letti.at(0));
    QCOMPARE(Letta.LarghezzeCm.size(), Scritta.LarghezzeCm.size());
    for (std::size_t i = 0; i < Scritta.LarghezzeCm.size(); ++i)
        QVERIFY(qAbs(Letta.LarghezzeCm[i] - Scritta.LarghezzeCm[i]) < 0.01);
    for (std::size_t i = 0; i < Scritta.Righe[0].size(); ++i) {
        const Cella& Prima = Scritta.Righe[0][i];
        const Cella& Dopo = Letta.Righe[0][i];
        QCOMPARE(Dopo.Linee, Prima.Linee);
        for (std::size_t j = 0; j < Prima.Paragrafi.size(); ++j) {
            QCOMPARE(Dopo.Paragrafi[j].Allinea, Prima.Paragrafi[j].Allinea);
            QCOMPARE(Dopo.Paragrafi[j].Righe, Prima.Paragrafi[j].Righe);
            QCOMPARE(Dopo.Paragrafi[j].Fermi.size(), Prima.Paragrafi[j].Fermi.size());
            QCOMPARE(Dopo.Paragrafi[j].Tratti.size(), Prima.Paragrafi[j].Tratti.size());
            for (std::size_t k = 0; k < Prima.Paragrafi[j].Tratti.size(); ++k)
                QCOMPARE(Dopo.Paragrafi[j].Tratti[k].Font, Prima.Paragrafi[j].Tratti[k].Font);
        }
    }
}

#include "TestScrittoreRtf.moc"
