// Paragraphs on pages: what stands where, what stays together, what never happens.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "disegni.h"
#include "documenti.h"

using namespace Qt::StringLiterals;
using namespace disegni;
using namespace documenti;

class TestImpaginazione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unDocumentoVuotoHaUnaPagina();
    void iParagrafiScorronoUnoSottoLAltro();
    void leRigheBiancheNonApronoPagine();
    void nessunaRigaSola_data();
    void nessunaRigaSola();
    void lUltimaRigaPortaConSeQuellaPrima();
    void allineamenti();
    void iBianchiRestanoLayout();
    void iBianchiCedonoAlTesto_data();
    void iBianchiCedonoAlTesto();
    void carattereDiOgniTratto();
    void ilTestoRiccoStaNellaPagina();
    void iRientriSpostanoLeRighe();
    void laListaPende_data();
    void laListaPende();
    void ilTabVaAlSegnoSeguente();
    void lImportoTieneLaSuaValuta();
    void rientriCheNonLascianoPosto();
    void loSpazioSopraESotto();
    void laPaginaChiestaComincia();
    void ilTitoloNonRestaSolo_data();
    void ilTitoloNonRestaSolo();
    void ilParagrafoInteroNonSiDivide();

    void testiDifficili_data();
    void testiDifficili();
    void fogliEMarginiStrani_data();
    void fogliEMarginiStrani();
    void siDisegnaAOgniScala_data();
    void siDisegnaAOgniScala();
    void pagineCheNonCiSono();
};
PROVA(TestImpaginazione);

void TestImpaginazione::unDocumentoVuotoHaUnaPagina()
{
    const Impaginazione Nessuno;
    QCOMPARE(Nessuno.NumeroPagine(), 1);
    QVERIFY(Nessuno.Testo().isEmpty());
    QVERIFY(Nessuno.Righe(1).empty());
    QCOMPARE(Nessuno.DimensioneMm(), QSizeF(210.0, 297.0));
}

void TestImpaginazione::iParagrafiScorronoUnoSottoLAltro()
{
    Superficie vp;
    PreparaPagina(vp);
    for (int i = 0; i < 100; ++i)
        vp.Paragraph(u"riga %1"_s.arg(i));
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(pagine::Difetto(Fatta), QString());
    // 250 mm at 4.86 mm a line of 12 points
    QCOMPARE(Fatta.NumeroPagine(), 2);
    QCOMPARE(Fatta.Righe(1).size(), std::size_t(51));
    QCOMPARE(Fatta.Righe(2).size(), std::size_t(49));
    QVERIFY(Vicini(Fatta.Righe(1)[0].Mm.top(), 15.0));
    QVERIFY(Vicini(Fatta.Righe(1)[0].Mm.left(), 20.0));
    QVERIFY(Vicini(Fatta.Righe(2)[0].Mm.top(), 15.0));
    QCOMPARE(Fatta.Righe(1)[1].Mm.top(), Fatta.Righe(1)[0].Mm.bottom());
}

void TestImpaginazione::leRigheBiancheNonApronoPagine()
{
    Superficie vp;
    PreparaPagina(vp);
    for (int i = 0; i < 51; ++i)
        vp.Paragraph(u"riga %1"_s.arg(i));
    RigheBianche(vp, 5);
    QCOMPARE(Impaginazione(Finito(vp)).NumeroPagine(), 1);

    PreparaPagina(vp);
    for (int i = 0; i < 51; ++i)
        vp.Paragraph(u"riga %1"_s.arg(i));
    RigheBianche(vp, 5);
    vp.Paragraph(u"prima"_s);
    vp.Paragraph(u"seconda"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(pagine::CercaRiga(Fatta, u"prima"_s).Pagina, 2);
    QVERIFY(Vicini(pagine::CercaRiga(Fatta, u"prima"_s).Riga.Mm.top(), 15.0));
}

void TestImpaginazione::nessunaRigaSola_data()
{
    QTest::addColumn<int>("Sopra");
    for (int Sopra = 44; Sopra <= 52; ++Sopra)
        QTest::newRow(qPrintable(u"%1 lines above"_s.arg(Sopra))) << Sopra;
}

void TestImpaginazione::nessunaRigaSola()
{
    QFETCH(int, Sopra);
    Superficie vp;
    PreparaPagina(vp);
    for (int i = 0; i < Sopra; ++i)
        vp.Paragraph(u"sopra"_s);
    vp.Paragraph(Parole(45));
    vp.Paragraph(u"sotto"_s);
    vp.Paragraph(u"in fondo"_s);
    const Impaginazione Fatta(Finito(vp));
    int DiPagina[3] = {};
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina)
        for (const RigaImpaginata& Riga : Fatta.Righe(Pagina))
            DiPagina[Pagina] += pagine::TestoDi(Fatta, Riga).contains(u"parola"_s) ? 1 : 0;
    QVERIFY2(DiPagina[1] + DiPagina[2] >= 4, qPrintable(QString::number(DiPagina[1] + DiPagina[2])));
    QVERIFY(DiPagina[1] != 1);
    QVERIFY(DiPagina[2] != 1);
}

void TestImpaginazione::lUltimaRigaPortaConSeQuellaPrima()
{
    Superficie vp;
    PreparaPagina(vp);
    for (int i = 0; i < 49; ++i)
        vp.Paragraph(u"riga %1"_s.arg(i));
    vp.Paragraph(u"la presente vale come preavviso"_s);
    RigheBianche(vp, 3);
    vp.Paragraph(QString(65, u' ') + u"Avv. Giulia Neri"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(Fatta.NumeroPagine(), 2);
    QCOMPARE(pagine::CercaRiga(Fatta, u"riga 48"_s).Pagina, 1);
    QCOMPARE(pagine::CercaRiga(Fatta, u"la presente"_s).Pagina, 2);
    QCOMPARE(pagine::CercaRiga(Fatta, u"Neri"_s).Pagina, 2);
}

void TestImpaginazione::allineamenti()
{
    Superficie vp;
    PreparaPagina(vp);
    for (const auto Come : {Allineamento::Sinistra, Allineamento::Centro, Allineamento::Destra}) {
        vp.TextAlign(Come);
        vp.Paragraph(u"testo"_s);
    }
    vp.TextAlign(Allineamento::Giustificato);
    vp.Paragraph(Parole(30));
    const Impaginazione Fatta(Finito(vp));
    const std::vector<RigaImpaginata>& Righe = Fatta.Righe(1);
    const QRectF Area = Fatta.AreaTestoMm();
    QVERIFY(Vicini(Righe[0].Mm.left(), Area.left()));
    QVERIFY(Vicini(Righe[1].Mm.center().x(), Area.center().x()));
    QVERIFY(Vicini(Righe[2].Mm.right(), Area.right()));
    QVERIFY(Righe.size() >= 6);
    const auto Fine = [&](std::size_t Quale) {
        const qsizetype Ultima = Righe[Quale].Inizio + Righe[Quale].Lunghezza - 1;  // before the blank
        return Fatta.Cursore(Ultima).Mm.left();
    };
    QVERIFY2(Vicini(Fine(3), Area.right()), qPrintable(QString::number(Fine(3))));
    QVERIFY(Righe.back().Mm.right() < Area.right() - 5.0);  // the last line is not stretched
}

void TestImpaginazione::iBianchiRestanoLayout()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(QString(65, u' ') + u"Giulia Neri"_s);  // no kerning between a blank and a G
    const Impaginazione Fatta(Finito(vp));
    // 65 blanks of a quarter of 12 points
    QVERIFY2(Vicini(Fatta.Cursore(65).Mm.left(), 20.0 + 65 * 3.0 * 25.4 / 72.0),
             qPrintable(QString::number(Fatta.Cursore(65).Mm.left())));
    QVERIFY(Fatta.Testo().startsWith(QString(65, u' ')));
}

void TestImpaginazione::iBianchiCedonoAlTesto_data()
{
    QTest::addColumn<int>("Bianchi");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<int>("Righe");
    QTest::newRow("a long signature ends at the margin")
        << 65 << u"Studio Legale Associato Neri, Bianchi, Verdi, Rossi ed altri avvocati"_s << 1;
    QTest::newRow("a number pushed off the page comes back") << 400 << u"Pagina 1"_s << 1;
    QTest::newRow("a text longer than a line wraps behind a quarter of it") << 65 << Parole(24) << 3;
    QTest::newRow("an indent stays") << 5 << Parole(20) << 2;
}

void TestImpaginazione::iBianchiCedonoAlTesto()
{
    QFETCH(int, Bianchi);
    QFETCH(QString, Testo);
    QFETCH(int, Righe);
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(QString(Bianchi, u' ') + Testo);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(pagine::Difetto(Fatta), QString());
    QCOMPARE(int(Fatta.Righe(1).size()), Righe);
    const double Inizio = Fatta.Cursore(Bianchi).Mm.left() - 20.0;
    const double Larghi = Bianchi * 3.0 * 25.4 / 72.0;
    QVERIFY2(Inizio > std::min(Larghi, Fatta.AreaTestoMm().width() / 4.0) - 0.1,
             qPrintable(QString::number(Inizio)));
    if (Righe == 1)
        QVERIFY(std::abs(Fatta.Righe(1)[0].Mm.right() - Fatta.AreaTestoMm().right()) < 1.0);
}

void TestImpaginazione::carattereDiOgniTratto()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Text(u"piccolo "_s);
    vp.FontSize(24);
    vp.FontBold(true);
    vp.Text(u"grande"_s);
    vp.Paragraph({});
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(Fatta.Righe(1).size(), std::size_t(1));
    QVERIFY(Fatta.Righe(1)[0].Mm.height() > 9.0);
    const double Prima = Fatta.Cursore(7).Mm.left() - Fatta.Cursore(0).Mm.left();
    const double Dopo = Fatta.Cursore(14).Mm.left() - Fatta.Cursore(8).Mm.left();
    QVERIFY2(Dopo > 1.7 * Prima, qPrintable(u"%1 %2"_s.arg(Prima).arg(Dopo)));
}

void TestImpaginazione::ilTestoRiccoStaNellaPagina()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"sopra"_s);
    vp.Paragraph(u"{\\rtf1 ricco}"_s);
    vp.Paragraph(u"sotto"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(Fatta.Testo(), u"sopra\nricco\nsotto\n"_s);
}

void TestImpaginazione::iRientriSpostanoLeRighe()
{
    Superficie vp;
    PreparaPagina(vp);
    const QString Lungo = u"parole che vanno a capo "_s.repeated(20);
    vp.Paragraph(u"{\\rtf1 \\li1134\\fi567\\ri1134 "_s + Lungo + u"\\par \\qr destra\\par}"_s);
    const Impaginazione Fatta(Finito(vp));
    const std::vector<RigaImpaginata>& Righe = Fatta.Righe(1);
    QVERIFY(Righe.size() > 4);
    QVERIFY(Vicini(Righe[0].Mm.left(), 50.0));  // 2 cm of margin, 2 of indent, 1 of the first line
    QVERIFY(Vicini(Righe[1].Mm.left(), 40.0));
    for (const RigaImpaginata& Una : Righe)
        QVERIFY(Una.Mm.right() <= 176.1);  // 1.4 cm of margin, 2 of indent
    QVERIFY(Vicini(Righe.back().Mm.right(), 176.0));
    // The caret stands where the letters do.
    QVERIFY(Vicini(Fatta.Cursore(0).Mm.left(), 50.0));
    QCOMPARE(Fatta.PostoIn(1, Righe[0].Mm.center() - QPointF(Righe[0].Mm.width(), 0.0)), qsizetype(0));
    QCOMPARE(pagine::Difetto(Fatta), QString());
}

void TestImpaginazione::laListaPende_data()
{
    QTest::addColumn<QString>("Come");
    QTest::newRow("left") << u"\\ql"_s;
    QTest::newRow("justified") << u"\\qj"_s;
    QTest::newRow("in small letters") << u"\\qj\\fs16"_s;
    QTest::newRow("with room below") << u"\\qj\\fs22\\sa60"_s;
}

void TestImpaginazione::laListaPende()
{
    QFETCH(QString, Come);
    Superficie vp;
    PreparaPagina(vp);
    const QString Lungo = u"voce che va a capo "_s.repeated(20);
    vp.Paragraph(u"{\\rtf1 \\li567\\fi-567"_s + Come + u"{\\listtext 1.\\tab}"_s + Lungo + u"\\par}"_s);
    const Impaginazione Fatta(Finito(vp));
    const std::vector<RigaImpaginata>& Righe = Fatta.Righe(1);
    QVERIFY(Vicini(Righe[0].Mm.left(), 20.0));
    QVERIFY(Vicini(Righe[1].Mm.left(), 30.0));
    QVERIFY2(Vicini(Fatta.Cursore(3).Mm.left(), 30.0),
             qPrintable(QString::number(Fatta.Cursore(3).Mm.left())));
    QVERIFY2(Righe[0].Lunghezza > 3, "il testo comincia accanto al suo numero, non sotto");
}

void TestImpaginazione::lImportoTieneLaSuaValuta()
{
    // Wherever the line ends, it does not end between the two.
    Superficie vp;
    PreparaPagina(vp);
    for (int Prima = 90; Prima < 150; ++Prima)
        vp.Paragraph(QString(Prima, u'i') + u" pari a 30.000,00 € e così via, fino alla riga seguente "_s +
                     u"parola "_s.repeated(12));
    const Impaginazione Fatta(Finito(vp));
    QVERIFY2(Fatta.Testo().contains(u"30.000,00 € e"_s), "nel testo resta uno spazio come gli altri");
    int Spezzate = 0;
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina)
        for (const RigaImpaginata& Riga : Fatta.Righe(Pagina)) {
            const QString Scritta = Fatta.Testo().mid(Riga.Inizio, Riga.Lunghezza);
            QVERIFY2(!Scritta.startsWith(u'€'), qPrintable(Scritta));
            Spezzate += Scritta.startsWith(u"30.000,00 €"_s) ? 1 : 0;
        }
    QVERIFY2(Spezzate > 0, "qualche riga finiva proprio lì");
}

void TestImpaginazione::ilTabVaAlSegnoSeguente()
{
    // Stops every 12.5 mm from the left edge of the text.
    Superficie vp;
    PreparaPagina(vp);
    vp.Text(u"\tuno\tdue\t\tquattro"_s);
    vp.Paragraph({});
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(Fatta.Righe(1).size(), std::size_t(1));
    const auto X = [&](const QString& Parola) {
        return Fatta.Cursore(Fatta.Testo().indexOf(Parola)).Mm.left() - Fatta.AreaTestoMm().left();
    };
    QVERIFY2(Vicini(X(u"uno"_s), 12.5), qPrintable(QString::number(X(u"uno"_s))));
    QVERIFY2(Vicini(X(u"due"_s), 25.0), qPrintable(QString::number(X(u"due"_s))));
    QVERIFY2(Vicini(X(u"quattro"_s), 50.0), qPrintable(QString::number(X(u"quattro"_s))));
}

void TestImpaginazione::rientriCheNonLascianoPosto()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"{\\rtf1 \\li99999\\ri99999\\fi99999 parola e altre parole\\par}"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(pagine::Difetto(Fatta), QString());
    QVERIFY(Fatta.Righe(1).size() < 4);
}

void TestImpaginazione::loSpazioSopraESotto()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"{\\rtf1 \\fs24 a\\par \\sb720\\sa1440 b\\par \\pard c\\par}"_s);
    const Impaginazione Fatta(Finito(vp));
    const std::vector<RigaImpaginata>& Righe = Fatta.Righe(1);
    const double Alta = Righe[0].Mm.height();
    QVERIFY(Vicini(Righe[1].Mm.top() - Righe[0].Mm.top(), Alta + 12.7));
    QVERIFY(Vicini(Righe[1].Mm.height(), Alta));
    QVERIFY(Vicini(Righe[2].Mm.top() - Righe[1].Mm.bottom(), 25.4));
}

void TestImpaginazione::laPaginaChiestaComincia()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"{\\rtf1 a\\par\\page b\\par c\\par}"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(Fatta.NumeroPagine(), 2);
    QCOMPARE(pagine::CercaRiga(Fatta, u"a"_s).Pagina, 1);
    QCOMPARE(pagine::CercaRiga(Fatta, u"b"_s).Pagina, 2);
    QCOMPARE(pagine::CercaRiga(Fatta, u"c"_s).Pagina, 2);
}

void TestImpaginazione::ilTitoloNonRestaSolo_data()
{
    QTest::addColumn<bool>("Unito");
    QTest::newRow("with what it heads") << true;
    QTest::newRow("alone") << false;
}

void TestImpaginazione::ilTitoloNonRestaSolo()
{
    QFETCH(bool, Unito);
    // Lines to fill all but one of a page, the title on that one, text below it.
    Superficie vp;
    PreparaPagina(vp);
    QString Rtf = u"{\\rtf1 "_s;
    int Righe = 0;
    while (Impaginazione([&] {
               Superficie Prova;
               PreparaPagina(Prova);
               Prova.Paragraph(Rtf + u"\\pard a\\par\\pard a\\par}"_s);
               return Finito(Prova);
           }())
               .NumeroPagine() == 1) {
        Rtf += u"\\pard a\\par"_s;
        ++Righe;
    }
    QVERIFY(Righe > 30);
    vp.Paragraph(Rtf + (Unito ? u"\\pard\\keepn"_s : u"\\pard"_s) +
                 u" titolo\\par\\pard sotto\\par dopo\\par fine\\par}"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(pagine::CercaRiga(Fatta, u"sotto"_s).Pagina, 2);
    QCOMPARE(pagine::CercaRiga(Fatta, u"titolo"_s).Pagina, Unito ? 2 : 1);
}

void TestImpaginazione::ilParagrafoInteroNonSiDivide()
{
    int Divisi = 0;
    for (int Righe = 40; Righe <= 60; ++Righe) {
        for (const bool Intero : {true, false}) {
            Superficie vp;
            PreparaPagina(vp);
            for (int i = 0; i < Righe; ++i)
                vp.Paragraph(u"riga"_s);
            vp.Text(u"prima\nseconda\nterza\nquarta\nquinta\nsesta"_s);
            if (Intero)
                vp.KeepTogether();
            vp.Paragraph({});
            vp.Paragraph(u"coda"_s);
            const Impaginazione Fatta(Finito(vp));
            const bool Diviso =
                pagine::CercaRiga(Fatta, u"prima"_s).Pagina != pagine::CercaRiga(Fatta, u"sesta"_s).Pagina;
            QVERIFY(!Intero || !Diviso);
            Divisi += Diviso ? 1 : 0;
        }
    }
    QVERIFY(Divisi > 0);
}

// ---- what may come in -----------------------------------------------------------------------------

void TestImpaginazione::testiDifficili_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Importo");
    QTest::newRow("a name of 500 characters") << QString(500, u'N') << u"1,00"_s;
    QTest::newRow("60 wide letters") << QString(60, u'W') << u"1,00"_s;
    QTest::newRow("an amount of 12 digits") << u"voce"_s << u"123.456.789.012,00"_s;
    QTest::newRow("a triple of such amounts")
        << u"voce"_s << u"(123.456.789.012,00-123.456.789.012,00-123.456.789.012,00)"_s;
    QTest::newRow("an amount wider than the page") << u"voce"_s << QString(400, u'9');
    QTest::newRow("both") << QString(500, u'W') << u"123.456.789.012,00"_s;
    QTest::newRow("tabs and line breaks") << u"a\tb\nc\r\nd\n\n\ne"_s << u"1\n2"_s;
    QTest::newRow("another script and signs")
        << u"שלום 漢字漢字漢字 😀 e\u0301\u0301 \u200d\u00ad"_s << u"€ 1"_s;
    QTest::newRow("a lone surrogate") << QString(QChar(0xd83d)) << u"1"_s;
    QTest::newRow("blanks only") << QString(300, u' ') << u"1"_s;
}

void TestImpaginazione::testiDifficili()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Importo);
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(Testo);
    ScriviTabella(
        vp, {u"9cm"_s, u"1cm"_s, u"1.8cm"_s, u"5.5cm"_s},
        {Allineamento::Sinistra, Allineamento::Sinistra, Allineamento::Destra, Allineamento::Centro},
        {{u"ONORARI"_s, {}, u"Importo"_s, u"(Medio-Minimo-Massimo)"_s},
         {},
         {Testo, u"n. 12"_s, Importo, Importo},
         {Testo, u"n. 1"_s, u"1,00"_s, Testo}});
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(pagine::Difetto(Fatta), QString());
    if (Importo.size() == 18)  // as long as it can be kept whole it is
        QVERIFY(!pagine::CercaRiga(Fatta, Importo).Riga.Mm.isEmpty());
    QVERIFY(!Disegnata(Fatta, 1, 40.0).isNull());
}

void TestImpaginazione::fogliEMarginiStrani_data()
{
    QTest::addColumn<double>("Larga");
    QTest::addColumn<double>("Alta");
    QTest::addColumn<QString>("Margine");
    QTest::newRow("no margins") << 210.0 << 297.0 << u"0"_s;
    QTest::newRow("margins wider than the sheet") << 210.0 << 297.0 << u"50cm"_s;
    QTest::newRow("A6 lying") << 148.0 << 105.0 << u"1cm"_s;
    QTest::newRow("a stamp") << 10.0 << 10.0 << u"2cm"_s;
    QTest::newRow("no size") << 0.0 << -3.0 << u"2cm"_s;
}

void TestImpaginazione::fogliEMarginiStrani()
{
    QFETCH(double, Larga);
    QFETCH(double, Alta);
    QFETCH(QString, Margine);
    Superficie vp;
    vp.MarginLeft(Margine);
    vp.MarginRight(Margine);
    vp.MarginTop(Margine);
    vp.MarginBottom(Margine);
    vp.StartDoc();
    vp.PageFooter(QString(124, u' ') + u"Pagina %d"_s);
    vp.Paragraph(Parole(60));
    ScriviElenco(vp, 10);
    const Impaginazione Fatta(Finito(vp), {Larga, Alta});
    QCOMPARE(pagine::Difetto(Fatta), QString());
    QVERIFY(QRectF(QPointF(), Fatta.DimensioneMm()).contains(Fatta.AreaTestoMm()));
    QVERIFY(!Disegnata(Fatta, 1, 100.0).isNull());
}

void TestImpaginazione::siDisegnaAOgniScala_data()
{
    QTest::addColumn<double>("Dpi");
    QTest::newRow("a tiny view") << 20.0;
    QTest::newRow("a screen") << 96.0;
    QTest::newRow("a printer") << 600.0;
}

void TestImpaginazione::siDisegnaAOgniScala()
{
    QFETCH(double, Dpi);
    Superficie vp;
    PreparaPagina(vp);
    vp.FontSize(40);
    vp.Paragraph(u"MMMMMM"_s);
    const Impaginazione Fatta(Finito(vp));
    const QImage Foglio = Disegnata(Fatta, 1, Dpi);
    const QRectF Riga = Fatta.Righe(1)[0].Mm;
    QVERIFY(Scuri(Foglio, Riga, Dpi) > 0);
    QCOMPARE(Scuri(Foglio, QRectF(0.0, Riga.bottom() + 3.0, 210.0, 200.0), Dpi), 0);
    QCOMPARE(Scuri(Foglio, QRectF(Riga.right() + 3.0, 0.0, 100.0, 100.0), Dpi), 0);
}

void TestImpaginazione::pagineCheNonCiSono()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"testo"_s);
    const Impaginazione Fatta(Finito(vp));
    for (const int Pagina : {-1, 0, 2}) {
        QVERIFY(Fatta.Righe(Pagina).empty());
        QCOMPARE(Scuri(Disegnata(Fatta, Pagina, 50.0), QRectF(0, 0, 210, 297), 50.0), 0);
    }
}

#include "TestImpaginazione.moc"
