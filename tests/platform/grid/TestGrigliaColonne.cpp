// Columns of a grid: footer, widths, hidden ones, titles.
#include "righe.h"

using namespace Qt::StringLiterals;

class TestGrigliaColonne : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void piePerColonna();
    void ilPieSegueLeColonne();
    void ilPieSiAllargaSuiVuoti();
    void ilPieNonTagliaUnaCifra();
    void laColonnaCheStira();
    void chiSiStiraTieneIlTitolo();
    void larghezzeAndataERitorno();
    void legareTieneLeColonne();
    void larghezzeDiAltreColonne_data();
    void larghezzeDiAltreColonne();
    void colonnaNascosta();
    void laLarghezzaAspettaLaColonna();
    void laColonnaNascostaRestaDovEra();
    void ilBordoDiChiSiStiraNonSiTrascina();
    void titoloCliccato();
};
PROVA(TestGrigliaColonne);

void TestGrigliaColonne::piePerColonna()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    auto* Pie = F.Griglia_->layout()->itemAt(1)->widget();
    QVERIFY2(!Pie->isVisible(), "senza testi il piè non si vede");
    F.Griglia_->Pie(1, u"Totali "_s);
    F.Griglia_->Pie(2, u"1.234,50"_s);
    QVERIFY(Pie->isVisible());
    QCOMPARE(F.Griglia_->TestoPie(2), u"1.234,50"_s);
    QCOMPARE(Pie->accessibleName(), u"Descrizione: Totali; Importo: 1.234,50"_s);
}

void TestGrigliaColonne::ilPieSegueLeColonne()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->Pie(2, u"9"_s);
    auto* Pie = dynamic_cast<PieGriglia*>(F.Griglia_->layout()->itemAt(1)->widget());
    QVERIFY(Pie);
    const auto SottoLaColonna = [&](int Colonna) {
        const QRect Cella = F.Vista()->visualRect(F.Vista()->model()->index(0, Colonna));
        const int Sinistra = F.Vista()->viewport()->mapTo(F.Griglia_, Cella.topLeft()).x();
        const QRect Testo = Pie->Riquadro(Colonna);
        return Pie->mapTo(F.Griglia_, Testo.topLeft()).x() == Sinistra && Testo.width() == Cella.width();
    };
    QHeaderView* Testata = F.Vista()->horizontalHeader();
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    Testata->resizeSection(0, 150);
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    Testata->moveSection(2, 0);
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    Testata->resizeSection(0, 900);
    QScrollBar* Barra = F.Griglia_->findChild<QScrollBar*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(Barra);
    QTRY_VERIFY(Barra->isVisible());
    Barra->setValue(120);
    QCOMPARE(F.Vista()->horizontalScrollBar()->value(), 120);
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    F.Vista()->horizontalScrollBar()->setValue(60);
    QCOMPARE(Barra->value(), 60);
}

namespace {

int Lungo(const PieGriglia* Pie, const QString& Testo)
{
    QFont Grassetto = Pie->font();
    Grassetto.setBold(true);
    return QFontMetrics(Grassetto).horizontalAdvance(Testo);
}

}  // namespace

void TestGrigliaColonne::ilPieSiAllargaSuiVuoti()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    auto* Pie = dynamic_cast<PieGriglia*>(F.Griglia_->layout()->itemAt(1)->widget());
    QVERIFY(Pie);
    const QString Totale = u"Totale in euro 123.456.789,00"_s;
    const int Prima = F.Vista()->columnWidth(2);
    QVERIFY(Prima < Lungo(Pie, Totale));
    F.Griglia_->Pie(2, Totale);
    QCOMPARE(F.Vista()->columnWidth(2), Prima);
    QVERIFY(Pie->Spazio(2).width() > Lungo(Pie, Totale));
    QCOMPARE(Pie->Spazio(2).right(), Pie->Riquadro(2).right());
    // And is drawn there.
    const QImage Disegno = Pie->grab().toImage();
    bool Scritto = false;
    for (int y = 2; y < Disegno.height(); ++y)
        for (int x = Pie->Spazio(2).left(); x < Pie->Riquadro(2).left(); ++x)
            Scritto = Scritto || Disegno.pixelColor(x, y).lightness() < 100;
    QVERIFY(Scritto);
}

void TestGrigliaColonne::ilPieNonTagliaUnaCifra()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    auto* Pie = dynamic_cast<PieGriglia*>(F.Griglia_->layout()->itemAt(1)->widget());
    QVERIFY(Pie);
    const QString Totale = u"1.234.567.890,00 più accessori"_s;
    // The column beside it, which gives room, has a text of its own up to the figure.
    F.Griglia_->Pie(1, QString(60, u'm'));
    F.Griglia_->Pie(2, Totale);
    QVERIFY(Pie->Spazio(2).width() > Lungo(Pie, Totale));
    QVERIFY(!Pie->Spazio(1).intersects(Pie->Spazio(2)));
    // Whoever drags the edge does not cut it either.
    F.Vista()->horizontalHeader()->resizeSection(2, 25);
    QVERIFY(Pie->Spazio(2).width() > Lungo(Pie, Totale));
    // A shorter one lets go.
    F.Griglia_->Pie(2, u"9,00"_s);
    F.Vista()->horizontalHeader()->resizeSection(2, 60);
    QCOMPARE(F.Vista()->columnWidth(2), 60);
    // The column that stretches keeps the room of its total.
    F.Griglia_->Pie(1, QString(40, u'9'));
    const int Serve = Lungo(Pie, QString(40, u'9'));
    QVERIFY(Pie->Spazio(1).width() > Serve);
    F.resize(200, 320);
    QVERIFY(Pie->Spazio(1).width() > Serve);
}

void TestGrigliaColonne::laColonnaCheStira()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    const auto Somma = [&] {
        return F.Vista()->columnWidth(0) + F.Vista()->columnWidth(1) + F.Vista()->columnWidth(2);
    };
    QCOMPARE(Somma(), F.Vista()->viewport()->width());
    F.resize(700, 320);
    QCOMPARE(Somma(), F.Vista()->viewport()->width());
    F.Griglia_->MostraColonna(2, false);
    QCOMPARE(Somma(), F.Vista()->viewport()->width());
    F.resize(120, 320);
    QVERIFY2(F.Vista()->columnWidth(1) >= 20 * F.fontMetrics().horizontalAdvance(u'0'),
             "mai sotto la propria larghezza");
}

void TestGrigliaColonne::chiSiStiraTieneIlTitolo()
{
    FinestraRighe F;
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[1].Titolo = u"Descrizione della prestazione"_s;
    Colonne[1].Caratteri = 4;
    F.Griglia_->ImpostaColonne(Colonne);
    QVERIFY(MostraAttiva(F));
    F.resize(120, 320);
    const QHeaderView* Testata = F.Vista()->horizontalHeader();
    QVERIFY(F.Vista()->columnWidth(1) > Testata->fontMetrics().horizontalAdvance(Colonne[1].Titolo));
}

void TestGrigliaColonne::larghezzeAndataERitorno()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    F.Vista()->horizontalHeader()->resizeSection(0, 133);
    F.Vista()->horizontalHeader()->moveSection(2, 0);
    const QString Ricordate = F.Griglia_->Larghezze();
    FinestraRighe G;
    QVERIFY(MostraAttiva(G));
    G.Griglia_->ImpostaLarghezze(Ricordate);
    QCOMPARE(G.Vista()->columnWidth(0), 133);
    QCOMPARE(G.Vista()->horizontalHeader()->logicalIndex(0), 2);
    QCOMPARE(G.Griglia_->Larghezze(), Ricordate);
}

void TestGrigliaColonne::legareTieneLeColonne()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    F.Vista()->horizontalHeader()->resizeSection(0, 133);
    F.Vista()->horizontalHeader()->moveSection(2, 0);
    F.Griglia_->MostraColonna(1, false);
    const QString Prima = F.Griglia_->Larghezze();
    TabellaRighe Altra(3);
    Altra.AggiungiRiga();
    F.Griglia_->Lega(&Altra);
    F.Griglia_->ConsentiNuove(true);
    QCOMPARE(F.Griglia_->Larghezze(), Prima);
    QVERIFY(!F.Griglia_->ColonnaVisibile(1));
    F.Griglia_->Lega(&F.Righe);
}

void TestGrigliaColonne::larghezzeDiAltreColonne_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("nessuna") << QString();
    QTest::newRow("due per tre colonne") << u"10@0;20@1"_s;
    QTest::newRow("due nello stesso posto") << u"10@0;20@0;30@2"_s;
    QTest::newRow("posto che non c'è") << u"10@0;20@1;30@3"_s;
    QTest::newRow("larghezza nulla") << u"0@0;20@1;30@2"_s;
    QTest::newRow("parole") << u"a;b;c"_s;
}

void TestGrigliaColonne::larghezzeDiAltreColonne()
{
    QFETCH(QString, Testo);
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    const QString Prima = F.Griglia_->Larghezze();
    F.Griglia_->ImpostaLarghezze(Testo);
    QCOMPARE(F.Griglia_->Larghezze(), Prima);
}

void TestGrigliaColonne::colonnaNascosta()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    QVERIFY(F.Griglia_->ColonnaVisibile(0));
    F.Griglia_->MostraColonna(0, false);
    QVERIFY(!F.Griglia_->ColonnaVisibile(0));
    QVERIFY(F.Vista()->visualRect(F.Vista()->model()->index(0, 0)).isEmpty());
    QVERIFY2(F.Griglia_->Larghezze().section(u'@', 0, 0).toInt() > 0, "nascosta non si ricorda larga zero");
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[1].Visibile = false;
    F.Griglia_->ImpostaColonne(Colonne);
    QVERIFY(F.Griglia_->ColonnaVisibile(0));
    QVERIFY(!F.Griglia_->ColonnaVisibile(1));
}

void TestGrigliaColonne::laLarghezzaAspettaLaColonna()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    F.Vista()->horizontalHeader()->resizeSection(0, 150);
    F.Griglia_->MostraColonna(0, false);
    const QString Ricordate = F.Griglia_->Larghezze();
    QCOMPARE(Ricordate.section(u'@', 0, 0), u"150"_s);
    FinestraRighe G;
    QVERIFY(MostraAttiva(G));
    G.Griglia_->MostraColonna(0, false);
    G.Griglia_->ImpostaLarghezze(Ricordate);
    QCOMPARE(G.Griglia_->Larghezze(), Ricordate);
    G.Griglia_->MostraColonna(0, true);
    QCOMPARE(G.Vista()->columnWidth(0), 150);
}

void TestGrigliaColonne::laColonnaNascostaRestaDovEra()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    QHeaderView* Testata = F.Vista()->horizontalHeader();
    F.Griglia_->MostraColonna(1, false);
    Testata->moveSection(2, 1);  // as a title dragged a little to the left
    QCOMPARE(Testata->visualIndex(1), 1);
    Testata->moveSection(2, 0);  // before the first one, which the hidden one follows
    QCOMPARE(Testata->logicalIndex(0), 2);
    QCOMPARE(Testata->logicalIndex(1), 0);
    QCOMPARE(Testata->logicalIndex(2), 1);
}

void TestGrigliaColonne::ilBordoDiChiSiStiraNonSiTrascina()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[1].Stira = true;
    F.Griglia_->ImpostaColonne(Colonne);
    const QHeaderView* Testata = F.Vista()->horizontalHeader();
    const auto Cursore = [&](int Colonna) {
        const QPoint Bordo(Testata->sectionViewportPosition(Colonna) + Testata->sectionSize(Colonna) - 1,
                           Testata->height() / 2);
        QTest::mouseMove(Testata->viewport(), Bordo - QPoint(30, 0));
        QTest::mouseMove(Testata->viewport(), Bordo);
        Respiro();
        return Testata->cursor().shape();
    };
    QCOMPARE(Cursore(0), Qt::SplitHCursor);
    QVERIFY(Cursore(1) != Qt::SplitHCursor);
}

void TestGrigliaColonne::titoloCliccato()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->ImpostaRigaCorrente(2, 0);
    QSignalSpy Clic(F.Griglia_, &Griglia::ClicTitolo);
    const QHeaderView* Testata = F.Vista()->horizontalHeader();
    QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(Testata->sectionViewportPosition(1) + 20, 8));
    QCOMPARE(Clic.size(), 1);
    QCOMPARE(Clic[0], QVariantList({1}));
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(2));
    QVERIFY2(F.Griglia_->ColonnaCorrente() == 0, "il titolo non porta via la cella corrente");
}

#include "TestGrigliaColonne.moc"
