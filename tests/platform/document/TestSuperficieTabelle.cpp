#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "superfici.h"

using namespace Qt::StringLiterals;
using namespace superfici;

class TestSuperficieTabelle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
};
PROVA(TestSuperficieTabelle);

void TestSuperficieTabelle::tabellaChiudeLaRigaInSospeso()
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

void TestSuperficieTabelle::testoDuranteLaTabellaStaSopra()
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

void TestSuperficieTabelle::tabellaVuotaNonLasciaTraccia_data()
{
    QTest::addColumn<int>("Righe");
    QTest::addColumn<int>("Colonne");

    QTest::newRow("nothing set") << 0 << 0;
    QTest::newRow("no columns") << 3 << 0;
    QTest::newRow("no rows") << 0 << 3;
}

void TestSuperficieTabelle::tabellaVuotaNonLasciaTraccia()
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

void TestSuperficieTabelle::startTableChiudeLaPrecedente()
{
    Superficie vp;
    vp.StartDoc();
    ApriTabella(vp, 1, 1);
    ApriTabella(vp, 2, 2);
    vp.EndDoc();
    QCOMPARE(Ricalco(vp), u"[1 x 1]|[2 x 2]"_s);
}

void TestSuperficieTabelle::crescereTieneIlContenuto()
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

void TestSuperficieTabelle::ridurreTaglia()
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

void TestSuperficieTabelle::attributoPiuStrettoVince_data()
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

void TestSuperficieTabelle::attributoPiuStrettoVince()
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

void TestSuperficieTabelle::ultimaChiamataSulloStessoBersaglioVince()
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

void TestSuperficieTabelle::fontEQuelloDiStartTable()
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

void TestSuperficieTabelle::larghezzaDellaColonna()
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

void TestSuperficieTabelle::intervalliDiCelle()
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

void TestSuperficieTabelle::unioneCopreEVuota()
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

void TestSuperficieTabelle::bordoDellaTabellaAperta()
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

void TestSuperficieTabelle::celleSiRileggonoFinoAEndTable()
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

void TestSuperficieTabelle::valoriConvertiti()
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

void TestSuperficieTabelle::erroriDiTableCell_data()
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

void TestSuperficieTabelle::erroriDiTableCell()
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

void TestSuperficieTabelle::erroreLasciaLaTabellaComEra()
{
    Superficie vp;
    QCOMPARE(NumeroErrore([&] { vp.TableCell(AttrTabella::Righe, 1); }), 5);
    ApriTabella(vp, 1, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"a"_s);
    QCOMPARE(NumeroErrore([&] { vp.TableCell(AttrTabella::Testo, 1, 1, 2, 1, u"b"_s); }), 9);
    QCOMPARE(NumeroErrore([&] { (void)vp.TableCell(AttrTabella::Testo, 1, {}); }), 9);
    QCOMPARE(vp.TableCell(AttrTabella::Testo, 1, 1).toString(), u"a"_s);
}

#include "TestSuperficieTabelle.moc"
