#include "supporto/prova.h"

#include "platform/errore.h"
#include "platform/superficie.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const Paragrafo& ParagrafoDi(const Superficie& vp, std::size_t Posto)
{
    return std::get<Paragrafo>(vp.Contenuto().Blocchi.at(Posto));
}

const Tabella& TabellaDi(const Superficie& vp, std::size_t Posto = 0)
{
    return std::get<Tabella>(vp.Contenuto().Blocchi.at(Posto));
}

/// The rows of text one to a line, tables as "[rows x columns]".
QString Ricalco(const Superficie& vp)
{
    QStringList Righe;
    for (const BloccoDocumento& Uno : vp.Contenuto().Blocchi) {
        if (const auto* Testo = std::get_if<Paragrafo>(&Uno)) {
            Righe += Testo->Testo();
            continue;
        }
        const auto& Tab = std::get<Tabella>(Uno);
        Righe += u"[%1 x %2]"_s.arg(Tab.Righe.size()).arg(Tab.LarghezzeCm.size());
    }
    return Righe.join(u'|');
}

/// Number of the Errore that `Atto` throws, 0 when it throws none.
int NumeroErrore(const std::function<void()>& Atto)
{
    try {
        Atto();
    } catch (const Errore& Guasto) {
        return Guasto.Numero;
    }
    return 0;
}

void ApriTabella(Superficie& vp, int Righe, int Colonne)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Righe, Righe);
    vp.TableCell(AttrTabella::Colonne, Colonne);
}

}  // namespace

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

    void tabellaChiudeLaRigaInSospeso();
    void testoDuranteLaTabellaStaSopra();
    void tabellaVuotaNonLasciaTraccia_data();
    void tabellaVuotaNonLasciaTraccia();
    void startTableChiudeLaPrecedente();
    void crescereTieneIlContenuto();
    void ridurreTaglia();
    void attributoPiuStrettoVince_data();
    void attributoPiuStrettoVince();
    void ultimaChiamataSulloStessoBersaglioVince();
    void fontEQuelloDiStartTable();
    void larghezzaDellaColonna();
    void intervalliDiCelle();
    void unioneCopreEVuota();
    void bordoDellaTabellaAperta();
    void celleSiRileggonoFinoAEndTable();
    void valoriConvertiti();
    void erroriDiTableCell_data();
    void erroriDiTableCell();
    void erroreLasciaLaTabellaComEra();

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

// ---- tables -----------------------------------------------------------------------------------------

void TestSuperficie::tabellaChiudeLaRigaInSospeso()
{
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"prima"_s);
    ApriTabella(vp, 1, 2);
    vp.EndTable();
    vp.EndTable();
    vp.Text(u"dopo"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"prima|[1 x 2]|dopo"_s);
}

void TestSuperficie::testoDuranteLaTabellaStaSopra()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 2);
    vp.Text(u"durante"_s);
    vp.EndTable();
    vp.Paragraph(u"dopo"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"durante|[1 x 2]|dopo"_s);
}

void TestSuperficie::tabellaVuotaNonLasciaTraccia_data()
{
    QTest::addColumn<int>("Righe");
    QTest::addColumn<int>("Colonne");

    QTest::newRow("nothing set") << 0 << 0;
    QTest::newRow("no columns") << 3 << 0;
    QTest::newRow("no rows") << 0 << 3;
}

void TestSuperficie::tabellaVuotaNonLasciaTraccia()
{
    QFETCH(int, Righe);
    QFETCH(int, Colonne);
    Superficie vp;
    vp.StartDoc();
    vp.Text(u"prima"_s);
    ApriTabella(vp, Righe, Colonne);
    vp.EndTable();
    vp.Text(u"dopo"_s);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"prima|dopo"_s);
}

void TestSuperficie::startTableChiudeLaPrecedente()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 1);
    ApriTabella(vp, 2, 2);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"[1 x 1]|[2 x 2]"_s);
}

void TestSuperficie::crescereTieneIlContenuto()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"resta"_s);
    vp.ColonnaTabella(AttrTabella::Allinea, 1, 8);
    vp.TableCell(AttrTabella::Righe, vp.TableCell(AttrTabella::Righe).toInt() + 1);
    vp.TableCell(AttrTabella::Colonne, 2);
    vp.CellaTabella(AttrTabella::Testo, 2, 2, u"nuova"_s);
    vp.EndDoc();

    const Tabella& Tab = TabellaDi(vp);
    QCOMPARE(Tab.Righe.size(), std::size_t{2});
    QCOMPARE(Tab.Righe[0][0].Testo, u"resta"_s);
    QCOMPARE(Tab.Righe[1][0].Allinea, Allineamento::Destra);
    QCOMPARE(Tab.Righe[1][1].Testo, u"nuova"_s);
    QCOMPARE(Tab.Righe[1][1].Allinea, Allineamento::Sinistra);
}

void TestSuperficie::ridurreTaglia()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 2, 2);
    vp.CellaTabella(AttrTabella::Testo, 2, 2, u"via"_s);
    vp.TableCell(AttrTabella::Righe, 1);
    vp.TableCell(AttrTabella::Righe, 2);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 2, 2).toString(), QString());
    vp.TableCell(AttrTabella::Colonne, 1);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"[2 x 1]"_s);
}

void TestSuperficie::attributoPiuStrettoVince_data()
{
    // Each letter writes its own alignment: (t)able 7, (c)olumn 0, ce(l)l 8.
    QTest::addColumn<QString>("Ordine");
    QTest::addColumn<int>("InCella");
    QTest::addColumn<int>("InColonna");
    QTest::addColumn<int>("Altrove");

    QTest::newRow("nobody") << u""_s << 6 << 6 << 6;
    QTest::newRow("table") << u"t"_s << 7 << 7 << 7;
    QTest::newRow("column then table") << u"ct"_s << 0 << 0 << 7;
    QTest::newRow("table then column") << u"tc"_s << 0 << 0 << 7;
    QTest::newRow("cell then column") << u"lc"_s << 8 << 0 << 6;
    QTest::newRow("column then cell") << u"cl"_s << 8 << 0 << 6;
    QTest::newRow("cell, column, table") << u"lct"_s << 8 << 0 << 7;
    QTest::newRow("table, column, cell") << u"tcl"_s << 8 << 0 << 7;
    QTest::newRow("cell then table") << u"lt"_s << 8 << 7 << 7;
}

void TestSuperficie::attributoPiuStrettoVince()
{
    QFETCH(QString, Ordine);
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 2, 2);
    for (const QChar Chi : Ordine) {
        if (Chi == u't')
            vp.TableCell(AttrTabella::Allinea, 7);
        else if (Chi == u'c')
            vp.ColonnaTabella(AttrTabella::Allinea, 1, 0);
        else
            vp.CellaTabella(AttrTabella::Allinea, 1, 1, 8);
    }
    QTEST(vp.TableCell(AttrTabella::Allinea, 1, 1).toInt(), "InCella");
    QTEST(vp.TableCell(AttrTabella::Allinea, {}, 1).toInt(), "InColonna");
    vp.EndDoc();

    const Tabella& Tab = TabellaDi(vp);
    QTEST(static_cast<int>(Tab.Righe[0][0].Allinea), "InCella");
    QTEST(static_cast<int>(Tab.Righe[1][0].Allinea), "InColonna");
    QTEST(static_cast<int>(Tab.Righe[1][1].Allinea), "Altrove");
}

void TestSuperficie::ultimaChiamataSulloStessoBersaglioVince()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 3);
    vp.CellaTabella(AttrTabella::Allinea, 1, 1, 8);
    vp.CellaTabella(AttrTabella::AllineaTesto, 1, 1, 7);
    vp.ColonnaTabella(AttrTabella::AllineaTesto, 2, 0);
    vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
    vp.TableCell(AttrTabella::Allinea, 8);
    vp.TableCell(AttrTabella::AllineaTesto, 0);
    vp.EndDoc();

    const std::vector<Cella>& Riga = TabellaDi(vp).Righe[0];
    QCOMPARE(Riga[0].Allinea, Allineamento::Centro);
    QCOMPARE(Riga[1].Allinea, Allineamento::Destra);
    QCOMPARE(Riga[2].Allinea, Allineamento::AltoSinistra);
}

void TestSuperficie::fontEQuelloDiStartTable()
{
    Superficie vp;
    vp.StartDoc();
    vp.FontSize(11);
    ApriTabella(vp, 2, 2);
    vp.FontSize(20);
    vp.FontBold(true);
    vp.CellaTabella(AttrTabella::FontDimensione, 2, 1, 10);
    vp.CellaTabella(AttrTabella::Grassetto, 2, 1, true);
    vp.ColonnaTabella(AttrTabella::FontNome, 2, u"Arial"_s);
    vp.ColonnaTabella(AttrTabella::Corsivo, 2, true);
    vp.EndTable();
    vp.EndDoc();

    const Tabella& Tab = TabellaDi(vp);
    QCOMPARE(Tab.Righe[0][0].Font, (Carattere{u"Times New Roman"_s, 11.0, false, false}));
    QCOMPARE(Tab.Righe[1][0].Font, (Carattere{u"Times New Roman"_s, 10.0, true, false}));
    QCOMPARE(Tab.Righe[1][1].Font, (Carattere{u"Arial"_s, 11.0, false, true}));
}

void TestSuperficie::larghezzaDellaColonna()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 4);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"9cm"_s);
    vp.TableCell(AttrTabella::LarghezzaColonna, u"1.8cm"_s);
    vp.CellaTabella(AttrTabella::LarghezzaColonna, 1, 3, u"0,5cm"_s);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 4, 567);
    QCOMPARE(vp.TableCell(AttrTabella::LarghezzaColonna, {}, 1).toString(), u"9cm"_s);
    QCOMPARE(vp.TableCell(AttrTabella::LarghezzaColonna, 1, 2).toString(), u"1.8cm"_s);
    vp.EndTable();
    ApriTabella(vp, 1, 1);
    vp.EndDoc();

    QCOMPARE(TabellaDi(vp).LarghezzeCm, (std::vector<double>{9.0, 1.8, 0.5, 567.0 / 1440.0 * 2.54}));
    QCOMPARE(TabellaDi(vp, 1).LarghezzeCm, std::vector<double>{2.54});
}

void TestSuperficie::intervalliDiCelle()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 3, 3);
    vp.TableCell(AttrTabella::Testo, 1, 2, 2, 3, u"blocco"_s);
    vp.TableCell(AttrTabella::Testo, 3, {}, {}, {}, u"riga"_s);
    vp.TableCell(AttrTabella::Allinea, {}, 1, {}, 2, 8);
    vp.EndDoc();

    QStringList Testi;
    for (const std::vector<Cella>& Riga : TabellaDi(vp).Righe)
        for (const Cella& Una : Riga)
            Testi += Una.Testo;
    QCOMPARE(Testi.join(u'|'), u"|blocco|blocco||blocco|blocco|riga|riga|riga"_s);
    QCOMPARE(TabellaDi(vp).Righe[2][1].Allinea, Allineamento::Destra);
    QCOMPARE(TabellaDi(vp).Righe[2][2].Allinea, Allineamento::Sinistra);
}

void TestSuperficie::unioneCopreEVuota()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 2, 3);
    for (int Colonna = 1; Colonna <= 3; ++Colonna)
        vp.CellaTabella(AttrTabella::Testo, 1, Colonna, Colonna);
    vp.CellaTabella(AttrTabella::Unione, 1, 1, 2);
    vp.CellaTabella(AttrTabella::Unione, 1, 2, 2);  // covered: its own span counts for nothing
    vp.CellaTabella(AttrTabella::Testo, 2, 2, u"fino in fondo"_s);
    vp.CellaTabella(AttrTabella::Unione, 2, 2, 99);
    vp.EndDoc();

    const Tabella& Tab = TabellaDi(vp);
    QCOMPARE(Tab.Righe[0].size(), std::size_t{3});
    QCOMPARE(Tab.Righe[0][0].Unione, 2);
    QCOMPARE(Tab.Righe[0][0].Testo, u"1"_s);
    QCOMPARE(Tab.Righe[0][1].Unione, 1);
    QCOMPARE(Tab.Righe[0][1].Testo, QString());
    QCOMPARE(Tab.Righe[0][2].Testo, u"3"_s);
    QCOMPARE(Tab.Righe[1][1].Unione, 2);
}

void TestSuperficie::bordoDellaTabellaAperta()
{
    Superficie vp;
    vp.StartDoc();
    vp.TableBorder(9);
    ApriTabella(vp, 1, 1);
    vp.EndTable();
    ApriTabella(vp, 1, 1);
    vp.TableBorder(7);
    vp.EndDoc();
    QCOMPARE(TabellaDi(vp, 0).Bordo, 0);
    QCOMPARE(TabellaDi(vp, 1).Bordo, 7);
}

void TestSuperficie::celleSiRileggonoFinoAEndTable()
{
    Superficie vp;
    vp.StartDoc();
    vp.FontSize(11);
    ApriTabella(vp, 2, 3);
    vp.CellaTabella(AttrTabella::Testo, 2, 3, u"1.190,70"_s);
    vp.CellaTabella(AttrTabella::Unione, 1, 1, 2);
    QCOMPARE(vp.TableCell(AttrTabella::Righe).toInt(), 2);
    QCOMPARE(vp.TableCell(AttrTabella::Colonne).toInt(), 3);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 2, 3).toString(), u"1.190,70"_s);
    QCOMPARE(vp.TableCell(AttrTabella::Unione, 1, 1).toInt(), 2);
    QCOMPARE(vp.TableCell(AttrTabella::FontNome, 1, 1).toString(), u"Times New Roman"_s);
    QCOMPARE(vp.TableCell(AttrTabella::FontDimensione, {}, 2).toDouble(), 11.0);
    QCOMPARE(vp.TableCell(AttrTabella::Grassetto).toBool(), false);
    QCOMPARE(vp.TableCell(AttrTabella::Corsivo).toBool(), false);
    QCOMPARE(vp.TableCell(AttrTabella::AllineaTesto).toInt(), 6);
    vp.EndTable();
    QCOMPARE(NumeroErrore([&] { (void)vp.TableCell(AttrTabella::Testo, 2, 3); }), 5);
}

void TestSuperficie::valoriConvertiti()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 4);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, 12.5);
    vp.CellaTabella(AttrTabella::Testo, 1, 2, QVariant());
    vp.CellaTabella(AttrTabella::Allinea, 1, 3, QVariant::fromValue(Allineamento::Destra));
    vp.CellaTabella(AttrTabella::Grassetto, 1, 4, -1);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 1, 1).toString(), u"12,5"_s);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 1, 2).toString(), QString());
    QCOMPARE(vp.TableCell(AttrTabella::Allinea, 1, 3).toInt(), 8);
    QCOMPARE(vp.TableCell(AttrTabella::Grassetto, 1, 4).toBool(), true);
}

void TestSuperficie::erroriDiTableCell_data()
{
    QTest::addColumn<int>("Attributo");
    QTest::addColumn<int>("Riga");
    QTest::addColumn<int>("Colonna");
    QTest::addColumn<int>("UltimaRiga");
    QTest::addColumn<QVariant>("Valore");
    QTest::addColumn<int>("Numero");

    constexpr int Vuota = -1;
    const QVariant Parola = u"due"_s;
    QTest::newRow("row 0") << 18 << 0 << 1 << Vuota << Parola << 9;
    QTest::newRow("row beyond") << 18 << 3 << 1 << Vuota << Parola << 9;
    QTest::newRow("column beyond") << 18 << 1 << 3 << Vuota << Parola << 9;
    QTest::newRow("column 0") << 19 << Vuota << 0 << Vuota << QVariant(8) << 9;
    QTest::newRow("last row beyond") << 18 << 1 << 1 << 3 << Parola << 9;
    QTest::newRow("last before first") << 18 << 2 << 1 << 1 << Parola << 9;
    QTest::newRow("rows as words") << 1 << Vuota << Vuota << Vuota << Parola << 13;
    QTest::newRow("rows below 0") << 1 << Vuota << Vuota << Vuota << QVariant(-1) << 5;
    QTest::newRow("columns below 0") << 2 << Vuota << Vuota << Vuota << QVariant(-1) << 5;
    QTest::newRow("alignment as word") << 19 << 1 << 1 << Vuota << Parola << 13;
    QTest::newRow("unknown alignment") << 19 << 1 << 1 << Vuota << QVariant(5) << 5;
    QTest::newRow("justified cell") << 31 << Vuota << 1 << Vuota << QVariant(11) << 5;
    QTest::newRow("size as word") << 24 << Vuota << 1 << Vuota << Parola << 13;
    QTest::newRow("size 0") << 24 << Vuota << 1 << Vuota << QVariant(0) << 5;
    QTest::newRow("bold as word") << 25 << Vuota << 1 << Vuota << Parola << 13;
    QTest::newRow("span 0") << 17 << 1 << 1 << Vuota << QVariant(0) << 5;
    QTest::newRow("width without number") << 13 << Vuota << 1 << Vuota << QVariant(u"cm"_s) << 13;
    QTest::newRow("unknown attribute") << 99 << 1 << 1 << Vuota << QVariant(1) << 5;
}

void TestSuperficie::erroriDiTableCell()
{
    QFETCH(int, Attributo);
    QFETCH(QVariant, Valore);
    const auto Indice = [](int Dato) { return Dato < 0 ? std::nullopt : std::optional(Dato); };
    QFETCH(int, Riga);
    QFETCH(int, Colonna);
    QFETCH(int, UltimaRiga);

    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 2, 2);
    const int Numero = NumeroErrore([&] {
        vp.TableCell(static_cast<AttrTabella>(Attributo), Indice(Riga), Indice(Colonna), Indice(UltimaRiga),
                     {}, Valore);
    });
    QTEST(Numero, "Numero");
}

void TestSuperficie::erroreLasciaLaTabellaComEra()
{
    Superficie vp;
    QCOMPARE(NumeroErrore([&] { vp.TableCell(AttrTabella::Righe, 1); }), 5);
    ApriTabella(vp, 1, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"a"_s);
    QCOMPARE(NumeroErrore([&] { vp.TableCell(AttrTabella::Testo, 1, 1, 2, 1, u"b"_s); }), 9);
    QCOMPARE(NumeroErrore([&] { (void)vp.TableCell(AttrTabella::Testo, 1, {}); }), 9);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 1, 1).toString(), u"a"_s);
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
