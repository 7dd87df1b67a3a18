#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "superfici.h"

using namespace Qt::StringLiterals;
using namespace superfici;

class TestSuperficie : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void misureInCentimetri_data();
    void misureInCentimetri();
    void misureRespinte_data();
    void misureRespinte();

    void testiConsecutiviStannoSuUnaRiga();
    void paragrafoVuotoDopoTestoChiudeSoltanto();
    void paragrafoVuotoDaSoloLasciaUnaRiga();
    void testoVuotoNonComincia();
    void trattiPortanoIlLoroFont();
    void sottolineatoNelleRigheNonNelleCelle();
    void rigaTieneAllineamentoDelSuoInizio();
    void spazioSopraESottoUnaRiga();
    void conCioCheSegue();
    void corseDiSpaziRestano();
    void aCapoUniformi();
    void nienteCheUnDocumentoNonTenga();
    void rtfDiventaParagrafi();

    void startDocScartaIlContenuto();
    void impostazioniRestanoOltreStartDoc();
    void endDocChiudeTutto();
    void scrivereDaChiusoApreDaCapo();
    void margineSbagliatoLasciaIlPrecedente();

    void pagineSoloADocumentoChiuso();
    void statoDellAnteprima();
};
PROVA(TestSuperficie);

// ---- measures ---------------------------------------------------------------------------------------

void TestSuperficie::misureInCentimetri_data()
{
    QTest::addColumn<QString>("Misura");
    QTest::addColumn<double>("Cm");

    QTest::newRow("whole centimetres") << u"2cm"_s << 2.0;
    QTest::newRow("point") << u"1.4cm"_s << 1.4;
    QTest::newRow("comma") << u"1,4cm"_s << 1.4;
    QTest::newRow("two digits") << u"10cm"_s << 10.0;
    QTest::newRow("leading point") << u".5cm"_s << 0.5;
    QTest::newRow("millimetres") << u"10mm"_s << 1.0;
    QTest::newRow("inches") << u"0.5in"_s << 1.27;
    QTest::newRow("twips") << u"1440"_s << 2.54;
    QTest::newRow("no twips") << u"0"_s << 0.0;
    QTest::newRow("blanks and capitals") << u" 3 CM "_s << 3.0;
}

void TestSuperficie::misureInCentimetri()
{
    QFETCH(QString, Misura);
    QTEST(CentimetriDi(Misura), "Cm");
}

void TestSuperficie::misureRespinte_data()
{
    QTest::addColumn<QString>("Misura");

    QTest::newRow("empty") << u""_s;
    QTest::newRow("blank") << u"  "_s;
    QTest::newRow("unit alone") << u"cm"_s;
    QTest::newRow("separator alone") << u".cm"_s;
    QTest::newRow("two separators") << u"1.2.3cm"_s;
    QTest::newRow("unknown unit") << u"2pt"_s;
    QTest::newRow("sign") << u"-2cm"_s;
    QTest::newRow("exponent") << u"1e2cm"_s;
    QTest::newRow("no number") << u"nan"_s;
    QTest::newRow("infinity") << u"inf"_s;
    QTest::newRow("beyond a double") << QString(400, u'9');
}

void TestSuperficie::misureRespinte()
{
    QFETCH(QString, Misura);
    QCOMPARE(NumeroErrore([&] { (void)CentimetriDi(Misura); }), 13);
}

// ---- text -------------------------------------------------------------------------------------------

void TestSuperficie::testiConsecutiviStannoSuUnaRiga()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"Preavviso di parcella "_s);
    vp.Text(u"n. 7"_s);
    vp.Text(u" del 01/02/2013"_s);
    vp.Paragraph(u"!"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"Preavviso di parcella n. 7 del 01/02/2013!"_s);
    QCOMPARE(ParagrafoDi(vp, 0).Tratti.size(), std::size_t{4});
}

void TestSuperficie::paragrafoVuotoDopoTestoChiudeSoltanto()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"uno"_s);
    vp.Paragraph({});
    vp.Text(u"due"_s);
    vp.Paragraph({});
    vp.Paragraph({});
    vp.Paragraph(u"tre"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"uno|due||tre"_s);
}

void TestSuperficie::paragrafoVuotoDaSoloLasciaUnaRiga()
{
    Superficie vp;
    vp.StartDoc();
    vp.FontName(u"Arial"_s);
    vp.FontSize(18);
    vp.TextAlign(Allineamento::Centro);
    vp.Paragraph({});
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), QString());
    QCOMPARE(vp.Contenuto().Blocchi.size(), std::size_t{1});
    QVERIFY(ParagrafoDi(vp, 0).Tratti.empty());
    QCOMPARE(ParagrafoDi(vp, 0).Font, (Carattere{u"Arial"_s, 18.0}));
    QCOMPARE(ParagrafoDi(vp, 0).Allinea, Allineamento::Centro);
}

void TestSuperficie::testoVuotoNonComincia()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text({});
    vp.EndDoc();
    QVERIFY(vp.Contenuto().Blocchi.empty());
}

void TestSuperficie::trattiPortanoIlLoroFont()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"a"_s);
    vp.FontBold(true);
    vp.FontSize(10.5);
    vp.Text(u"b"_s);
    vp.FontBold(false);
    vp.FontName(u"Arial"_s);
    vp.Paragraph(u"c"_s);
    vp.EndDoc();

    const std::vector<Tratto>& Tratti = ParagrafoDi(vp, 0).Tratti;
    QCOMPARE(Tratti.size(), std::size_t{3});
    QCOMPARE(Tratti[0].Font, (Carattere{u"Times New Roman"_s, 12.0, false}));
    QCOMPARE(Tratti[1].Font, (Carattere{u"Times New Roman"_s, 10.5, true}));
    QCOMPARE(Tratti[2].Font, (Carattere{u"Arial"_s, 10.5, false}));
}

void TestSuperficie::sottolineatoNelleRigheNonNelleCelle()
{
    Superficie vp;
    vp.FontUnderline(true);
    vp.Text(u"sotto"_s);
    vp.FontUnderline(false);
    vp.Paragraph(u"senza"_s);
    vp.FontUnderline(true);
    ApriTabella(vp, 1, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"x"_s);
    vp.EndTable();
    QVERIFY(ParagrafoDi(vp, 0).Tratti[0].Font.Sottolineato);
    QVERIFY(!ParagrafoDi(vp, 0).Tratti[1].Font.Sottolineato);
    QVERIFY(!TabellaDi(vp, 1).Righe[0][0].Font.Sottolineato);
}

void TestSuperficie::rigaTieneAllineamentoDelSuoInizio()
{
    Superficie vp;
    vp.StartDoc();
    vp.TextAlign(Allineamento::Destra);
    vp.Text(u"a"_s);
    vp.TextAlign(Allineamento::Giustificato);
    vp.Paragraph(u"b"_s);
    vp.Paragraph(u"c"_s);
    vp.EndDoc();
    QCOMPARE(ParagrafoDi(vp, 0).Allinea, Allineamento::Destra);
    QCOMPARE(ParagrafoDi(vp, 1).Allinea, Allineamento::Giustificato);
}

void TestSuperficie::spazioSopraESottoUnaRiga()
{
    Superficie vp;
    vp.StartDoc();
    vp.SpaceAfter(5);  // no row is being written
    vp.Text(u"prima"_s);
    vp.SpaceBefore(12);  // of the next one, whatever this one goes on with
    vp.Text(u" e ancora"_s);
    vp.SpaceAfter(3);
    vp.Paragraph({});
    vp.Text(u"seconda"_s);
    vp.Paragraph({});
    vp.Text(u"terza"_s);
    vp.SpaceBefore(7);
    vp.EndDoc();
    const std::vector<BloccoDocumento>& Righe = vp.Contenuto().Blocchi;
    const auto Spazi = [&](std::size_t Quale) {
        const Rientri& Suoi = std::get<Paragrafo>(Righe.at(Quale)).Spazi;
        return std::pair(Suoi.SopraPunti, Suoi.SottoPunti);
    };
    QCOMPARE(Righe.size(), std::size_t(3));
    QCOMPARE(Spazi(0), std::pair(0.0, 3.0));
    QCOMPARE(Spazi(1), std::pair(12.0, 0.0));
    QCOMPARE(Spazi(2), std::pair(0.0, 0.0));
    vp.StartDoc();
    vp.Paragraph(u"altro documento"_s);
    vp.EndDoc();
    QCOMPARE(Spazi(0), std::pair(0.0, 0.0));
    QCOMPARE(vp.Iniziati(), 2);
}

void TestSuperficie::conCioCheSegue()
{
    Superficie vp;
    vp.StartDoc();
    vp.KeepNext();  // nothing is written yet
    vp.KeepTogether();
    vp.Text(u"in corso"_s);
    vp.KeepTogether();
    vp.KeepNext();
    vp.Paragraph({});
    ApriTabella(vp, 1, 1);
    vp.EndTable();
    vp.KeepNext();
    vp.Paragraph({});
    vp.KeepNext();
    vp.Text(u"firma"_s);
    vp.EndDoc();
    const std::vector<BloccoDocumento>& Blocchi = vp.Contenuto().Blocchi;
    QCOMPARE(Blocchi.size(), std::size_t(4));
    for (std::size_t i = 0; i < Blocchi.size(); ++i)
        QCOMPARE(std::visit([](const auto& Uno) { return Uno.ConSeguente; }, Blocchi[i]), i < 3);
    for (const std::size_t Riga : {0U, 2U, 3U})
        QCOMPARE(std::get<Paragrafo>(Blocchi[Riga]).Intera, Riga == 0);
}

void TestSuperficie::corseDiSpaziRestano()
{
    const QString Rientrato = QString(65, u' ') + u"avv. Bianchi  "_s;
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(Rientrato);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), Rientrato);
}

void TestSuperficie::aCapoUniformi()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"a\r\nb\rc"_s);
    vp.Paragraph(u"\nd"_s);
    ApriTabella(vp, 1, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"e\r\nf"_s);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 1, 1).toString(), u"e\nf"_s);
    vp.EndDoc();
    QCOMPARE(vp.Contenuto().Blocchi.size(), std::size_t{2});
    QCOMPARE(ParagrafoDi(vp, 0).Testo(), u"a\nb\nc\nd"_s);
}

void TestSuperficie::nienteCheUnDocumentoNonTenga()
{
    Superficie vp;
    vp.Text(u"\u0001"_s);
    vp.Text(u"a\u0000\u001b\u0085b\tc"_s);
    vp.Paragraph(QString(QChar(0xD83D)) + u"d"_s + QChar(0xFFFF));
    ApriTabella(vp, 1, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"e\u007f\U0001F600"_s);
    vp.EndTable();
    QCOMPARE(ParagrafoDi(vp, 0).Testo(), u"ab\tc\ufffdd"_s);
    QCOMPARE(ParagrafoDi(vp, 0).Tratti.size(), std::size_t{2});
    QCOMPARE(TabellaDi(vp, 1).Righe[0][0].Testo, u"e\U0001F600"_s);
}

void TestSuperficie::rtfDiventaParagrafi()
{
    Superficie vp;
    vp.StartDoc();
    vp.FontName(u"Arial"_s);
    vp.Text(u"prima"_s);
    vp.Paragraph(u"{\\rtf1\\ansi{\\fonttbl{\\f0 Georgia;}}\\qc\\b\r\nClausola\\par seconda}"_s);
    vp.Paragraph(u"dopo {\\rtf"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"prima|Clausola|seconda|dopo {\\rtf"_s);
    const Paragrafo Ricco = ParagrafoDi(vp, 1);
    QCOMPARE(Ricco.Allinea, Allineamento::Centro);
    QCOMPARE(Ricco.Tratti.size(), std::size_t{1});
    QCOMPARE(Ricco.Tratti[0].Font.Nome, u"Georgia"_s);
    QVERIFY(Ricco.Tratti[0].Font.Grassetto);
    // The surface goes on as it was.
    const Paragrafo Dopo = ParagrafoDi(vp, 3);
    QCOMPARE(Dopo.Allinea, Allineamento::Sinistra);
    QCOMPARE(Dopo.Tratti[0].Font.Nome, u"Arial"_s);
    QVERIFY(!Dopo.Tratti[0].Font.Grassetto);
}

// ---- document ---------------------------------------------------------------------------------------

void TestSuperficie::startDocScartaIlContenuto()
{
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(u"vecchio"_s);
    vp.Text(u"sospeso"_s);
    ApriTabella(vp, 1, 1);
    vp.StartDoc();
    QVERIFY(vp.InCorso());
    vp.EndTable();
    vp.Paragraph(u"nuovo"_s);
    vp.EndDoc();
    QVERIFY(!vp.InCorso());
    QCOMPARE(Ricalco(vp), u"nuovo"_s);
}

void TestSuperficie::impostazioniRestanoOltreStartDoc()
{
    Superficie vp;
    vp.MarginTop(u"1.5cm"_s);
    vp.MarginLeft(u"2cm"_s);
    vp.MarginBottom(u"3.2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.HdrFontName(u"Arial"_s);
    vp.HdrFontSize(9);
    vp.FontName(u"Arial"_s);
    vp.TextAlign(Allineamento::Destra);
    vp.PageFooter(QString(124, u' ') + u"Pagina %d"_s);
    vp.StartDoc();
    vp.Paragraph(u"a"_s);
    vp.EndDoc();

    const Documento& Doc = vp.Contenuto();
    QCOMPARE(Doc.MargineAltoCm, 1.5);
    QCOMPARE(Doc.MargineSinistroCm, 2.0);
    QCOMPARE(Doc.MargineBassoCm, 3.2);
    QCOMPARE(Doc.MargineDestroCm, 1.4);
    QCOMPARE(Doc.FontPiePagina, (Carattere{u"Arial"_s, 9.0}));
    QCOMPARE(Doc.PiePagina.size(), 124 + 9);
    QCOMPARE(ParagrafoDi(vp, 0).Tratti[0].Font.Nome, u"Arial"_s);
    QCOMPARE(ParagrafoDi(vp, 0).Allinea, Allineamento::Destra);
}

void TestSuperficie::endDocChiudeTutto()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 2, 1);
    vp.Text(u"in sospeso"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"in sospeso|[2 x 1]"_s);
}

void TestSuperficie::scrivereDaChiusoApreDaCapo()
{
    Superficie vp;
    vp.Paragraph(u"primo"_s);
    QVERIFY(vp.InCorso());
    vp.Paragraph(u"secondo"_s);
    QCOMPARE(Ricalco(vp), u"primo|secondo"_s);
    vp.EndDoc();

    ApriTabella(vp, 1, 1);
    QVERIFY(vp.InCorso());
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"[1 x 1]"_s);
}

void TestSuperficie::margineSbagliatoLasciaIlPrecedente()
{
    Superficie vp;
    vp.MarginTop(u"3cm"_s);
    QCOMPARE(NumeroErrore([&] { vp.MarginTop(u"molto"_s); }), 13);
    QCOMPARE(vp.Contenuto().MargineAltoCm, 3.0);
}

// ---- preview ----------------------------------------------------------------------------------------

void TestSuperficie::pagineSoloADocumentoChiuso()
{
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(u"a"_s);
    vp.Paragraph(u"b"_s);
    vp.EndDoc();
    QCOMPARE(vp.PageCount(), 0);

    vp.Impaginatore = [](const Documento& Doc) { return static_cast<int>(Doc.Blocchi.size()); };
    QCOMPARE(vp.PageCount(), 2);
    vp.StartDoc();
    QCOMPARE(vp.PageCount(), 0);
}

void TestSuperficie::statoDellAnteprima()
{
    Superficie vp;
    QCOMPARE(vp.Zoom, 80);
    vp.BackColor = 0xFEF8ED;
    vp.PreviewPage = 3;
    vp.Tag = u"3"_s;
    vp.StartDoc();
    vp.EndDoc();
    QCOMPARE(vp.BackColor, 0xFEF8ED);
    QCOMPARE(vp.PreviewPage, 3);
    QCOMPARE(vp.Tag, u"3"_s);
}

#include "TestSuperficie.moc"
