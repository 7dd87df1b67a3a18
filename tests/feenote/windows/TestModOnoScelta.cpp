// An amount chosen on the modification panel of tab 1, by brackets of the table and by the slider.
#include "bancomodono.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestModOnoScelta : public QObject, private BancoModOno
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { T.reset(); }
    void fasciaColClic_data();
    void fasciaColClic();
    void fasciaDaTastiera();
    void spazioSceglieLaFasciaEvidenziata();
    void ilCatalogoPerdeLEvidenza();
    void passandoColTabNonSiSceglie();
    void medioDiUnaEIlPuntoDiMezzo();
    void medioDiTutteEQuelloDellaTabella();
    void tuttiColCursore();
    void frecceSulCursore();
    void frecceSuAmpiezzaStretta();
    void ilCodiceNonMuove();
};
PROVA(TestModOnoScelta);

void TestModOnoScelta::fasciaColClic_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<int>("Gradua");
    QTest::addColumn<double>("Confermato");
    QTest::newRow("minimo") << int(FasciaMin) << u"600,00"_s << 0 << 600.0;
    QTest::newRow("medio, già evidenziato: il punto di mezzo")
        << int(FasciaMedio) << u"1.200,00"_s << 50 << 1260.0;
    QTest::newRow("massimo") << int(FasciaMax) << u"1.920,00"_s << 100 << 1920.0;
}

void TestModOnoScelta::fasciaColClic()
{
    QFETCH(int, Quale);
    Apri(0);
    ClicFascia(Quale);
    QCOMPARE(Evidenziata(), Quale);
    QTEST(Testo("lblImpOno"), "Importo");
    QTEST(Cursore()->value(), "Gradua");
    QVERIFY(Conferma()->isEnabled());
    QVERIFY2(!F->Nota.Modificata, "scegliere non scrive");
    Clic(Conferma());
    QTEST(Importo(0), "Confermato");
    QVERIFY(F->Nota.Modificata && !Pannello()->isVisible() && !Variaz()->isChecked());
    QCOMPARE(Righe->TestoPie(OnoImporto), Format(Importo(0) + 867, u"#,##0.00"));
}

void TestModOnoScelta::fasciaDaTastiera()
{
    Apri(0);
    Fasce()->setFocus();
    Premi(Qt::Key_Down);
    QCOMPARE(Evidenziata(), int(FasciaMax));
    QCOMPARE(Testo("lblImpOno"), u"1.920,00"_s);
    QCOMPARE(Cursore()->value(), 100);
}

void TestModOnoScelta::spazioSceglieLaFasciaEvidenziata()
{
    Apri(1);
    Controllo<QRadioButton>(F, "optModAll_1")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(Testo("lblOnoDesc"), u"Tutti gli onorari"_s);
    QCOMPARE(Evidenziata(), int(FasciaMin));
    QVERIFY(!Conferma()->isEnabled());
    Fasce()->setFocus();
    QTest::keyClick(Fasce(), Qt::Key_Space);
    QVERIFY2(Conferma()->isEnabled(), "i minimi si scelgono anche senza mouse");
    QTest::keyClick(Fasce(), Qt::Key_Return);
    QCOMPARE(Importo(0), 600.0);
    QCOMPARE(Importo(1), 300.0);
}

void TestModOnoScelta::ilCatalogoPerdeLEvidenza()
{
    auto* Lista = Controllo<Griglia>(F, "tdbListaOno");
    const auto Tinta = [Lista] {
        Respiro();
        const QTableView* Vista = Lista->Vista();
        const QRect Cella = Vista->visualRect(Vista->model()->index(1, 1));
        return Vista->viewport()->grab().toImage().pixelColor(Cella.right() - 3, Cella.top() + 3);
    };
    Lista->setFocus();
    Lista->ImpostaRigaCorrente(1);
    Righe->setFocus();
    const QColor Evidente = Tinta();
    Apri(0);
    const QColor Spenta = Tinta();
    QVERIFY(Spenta != Evidente);
    ClicCella(Lista, 1, 1);
    Righe->setFocus();
    QVERIFY2(Tinta() == Evidente, "tornando al catalogo la voce si vede di nuovo");
    ClicCella(Righe, 1, OnoDescr);
    QVERIFY2(Tinta() == Spenta, "col pannello su un'altra riga si spegne ancora");
    QVERIFY2(Lista->RigaCorrente() == std::optional(1), "la voce resta quella");
}

void TestModOnoScelta::passandoColTabNonSiSceglie()
{
    Apri(1);
    Controllo(F, "optModAll_0")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Fasce());
    QCOMPARE(Testo("lblImpOno"), u"777,00"_s);
    QVERIFY(!Conferma()->isEnabled());
}

void TestModOnoScelta::medioDiUnaEIlPuntoDiMezzo()
{
    Apri(1);
    ClicFascia(FasciaMedio);
    QCOMPARE(Cursore()->value(), 50);
    QCOMPARE(Testo("lblImpOno"), u"500,00"_s);
    Clic(Conferma());
    QCOMPARE(Importo(1), 650.0);
}

void TestModOnoScelta::medioDiTutteEQuelloDellaTabella()
{
    Apri(0);
    Righe->Seleziona(0);
    Clic(Controllo(F, "optModAll_1"));
    QCOMPARE(Testo("lblOnoDesc"), u"Tutti gli onorari"_s);
    QCOMPARE(Testo("lblImp").remove(u'&'), u"Importo totale:"_s);
    QCOMPARE(Fasce()->item(0)->text(), u"MINIMI      (Tot.: 990,00)"_s);
    QCOMPARE(Fasce()->item(1)->text(), u"MEDI        (Tot.: 1.790,00)"_s);
    QCOMPARE(Fasce()->item(2)->text(), u"MASSIMI  (Tot.: 3.010,00)"_s);
    QCOMPARE(Evidenziata(), int(FasciaMin));
    QCOMPARE(Testo("lblImpOno"), u"990,00"_s);
    ClicFascia(FasciaMedio);
    Clic(Conferma());
    QCOMPARE(Importo(0), 1200.0);
    QCOMPARE(Importo(1), 500.0);
    QCOMPARE(Importo(2), 90.0);
    QVERIFY(Righe->Selezione().isEmpty());
    Apri(0);
    QVERIFY2(Controllo<QRadioButton>(F, "optModAll_0")->isChecked(), "si torna a una riga sola");
}

void TestModOnoScelta::tuttiColCursore()
{
    Apri(0);
    Clic(Controllo(F, "optModAll_1"));
    Cursore()->setFocus();
    for (int i = 0; i < 25; ++i)
        Premi(Qt::Key_Right);
    QCOMPARE(Cursore()->value(), 25);
    QCOMPARE(Testo("lblImpOno"), u"1.495,00"_s);
    Clic(Conferma());
    QCOMPARE(Importo(0), 930.0);
    QCOMPARE(Importo(1), 475.0);
}

void TestModOnoScelta::frecceSulCursore()
{
    Apri(0);
    ClicFascia(FasciaMin);
    Cursore()->setFocus();
    Premi(Qt::Key_Right);
    QCOMPARE(Testo("lblImpOno"), u"613,00"_s);
    QCOMPARE(Evidenziata(), NessunaFascia);
    Premi(Qt::Key_PageUp);
    QCOMPARE(Cursore()->value(), 11);
    Premi(Qt::Key_Left);
    QCOMPARE(Cursore()->value(), 10);
    Premi(Qt::Key_End);
    QCOMPARE(Testo("lblImpOno"), u"1.920,00"_s);
    QCOMPARE(Evidenziata(), int(FasciaMax));
    Premi(Qt::Key_Home);
    QCOMPARE(Evidenziata(), int(FasciaMin));
    QVERIFY(Conferma()->isEnabled());
}

void TestModOnoScelta::frecceSuAmpiezzaStretta()
{
    Riga(10, 10, 11, 12, 3);
    F->MostraTutto();
    Apri(3);
    ClicFascia(FasciaMin);
    Cursore()->setFocus();
    Premi(Qt::Key_Right);
    QCOMPARE(Testo("lblImpOno"), u"11,00"_s);
    QCOMPARE(Cursore()->value(), 50);
    Premi(Qt::Key_Right);
    QCOMPARE(Testo("lblImpOno"), u"12,00"_s);
    Premi(Qt::Key_Left);
    QCOMPARE(Testo("lblImpOno"), u"11,00"_s);
    Premi(Qt::Key_Left);
    QCOMPARE(Testo("lblImpOno"), u"10,00"_s);
}

void TestModOnoScelta::ilCodiceNonMuove()
{
    Apri(0);
    ClicFascia(FasciaMax);
    ClicCella(Righe, 1, OnoDescr);
    ClicCella(Righe, 0, OnoDescr);
    QCOMPARE(Cursore()->value(), 50);
    QVERIFY2(!Conferma()->isEnabled(), "il cursore mosso dal codice non è una scelta");
    QCOMPARE(Testo("lblImpOno"), u"1.200,00"_s);
}

#include "TestModOnoScelta.moc"
