// How the document stands on its page: tightened to one, kept with the note; the fit of the preview,
// remembered.
#include "stampa.h"

#include "core/parametri.h"
#include "feenote/file/modLettura.h"

#include <QMenu>

using namespace Qt::StringLiterals;

class TestPaginaStampa : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        SalvaImpostazione(u"AdattaAnteprima"_s, {});
        Prepara();
    }
    void cleanup() { Sgombra(); }
    void traboccaDiPoco();
    void nonSiPuo();
    void conLaTastiera();
    void restaNellaNota();
    void nelDocumentoEsportato();
    void ogniDocumento_data();
    void ogniDocumento();
    void lAdattamentoSiRicorda_data();
    void lAdattamentoSiRicorda();
    void iPercentiNo();

private:
    [[nodiscard]] QCheckBox* Segno() const { return Controllo<QCheckBox>(F, "chkUnaPagina"); }
    [[nodiscard]] QLabel* Detto() const { return Controllo<QLabel>(F, "lblUnaPagina"); }
    /// The tab opens anew, and composes what the record holds.
    void Rientra()
    {
        ClicScheda(F, SchedaBase);
        ClicScheda(F, SchedaDiStampa);
    }
    /// Lines until the document takes two pages by one of them.
    void FinoADuePagine()
    {
        while (vp->NumeroPagine() < 2) {
            Riempi(1);
            Rientra();
        }
    }
};
PROVA(TestPaginaStampa);

void TestPaginaStampa::traboccaDiPoco()
{
    Documento(StampaPrenotula);
    FinoADuePagine();
    QVERIFY(!Segno()->isChecked());
    F->SetModificata(false);
    Clic(Segno());
    QCOMPARE(vp->NumeroPagine(), 1);
    QCOMPARE(txtPage(), u"1/1"_s);
    QVERIFY(Detto()->isHidden());
    QVERIFY(F->Nota.Modificata && F->Nota.UnaPagina);
    Clic(Segno());
    QCOMPARE(vp->NumeroPagine(), 2);
}

void TestPaginaStampa::nonSiPuo()
{
    Documento(StampaPrenotula);
    Riempi(120);
    Rientra();
    const int Prima = vp->NumeroPagine();
    Clic(Segno());
    QCOMPARE(vp->NumeroPagine(), Prima);
    QVERIFY(Detto()->isVisible());
    QCOMPARE(Detto()->text(),
             u"Non sta in una pagina: righe e spazi restano come sono, su %1 pagine."_s.arg(Prima));
    Clic(Segno());
    QVERIFY(Detto()->isHidden());
}

void TestPaginaStampa::conLaTastiera()
{
    Documento(StampaPrenotula);
    Segno()->setFocus();
    QTest::keyClick(Segno(), Qt::Key_Space);
    QVERIFY(F->Nota.UnaPagina);
}

void TestPaginaStampa::restaNellaNota()
{
    Documento(StampaPrenotula);
    Clic(Segno());
    const QString File = sessione::ParcellePath + u"rossi.mdb"_s;
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    QVERIFY(F->SalvaParcella(false));
    AzzeraFinestre();
    F = T->Apri(File);
    QVERIFY(F);
    QVERIFY(F->Nota.UnaPagina);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(Segno()->isChecked());
}

/// The word processor's file is as tight as the page.
void TestPaginaStampa::nelDocumentoEsportato()
{
    Documento(StampaPrenotula);
    FinoADuePagine();
    const QByteArray Largo = Esportato();
    Clic(Segno());
    QVERIFY(Esportato() != Largo);
    QVERIFY(Esportato().count("\\slmult0") > Largo.count("\\slmult0"));
    Clic(Segno());
    QCOMPARE(Esportato(), Largo);
}

void TestPaginaStampa::ogniDocumento_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = 0; Tipo < int(TipiDocumento.size()); ++Tipo)
        QTest::addRow("%d", Tipo) << Tipo;
}

void TestPaginaStampa::ogniDocumento()
{
    QFETCH(int, Tipo);
    Documento(Tipo);
    Clic(Segno());
    const int Grado = vp->Pagine().Grado();
    QVERIFY(Grado == 0 || vp->NumeroPagine() == 1);
    QCOMPARE(Detto()->isVisible(), vp->NumeroPagine() > 1);
}

void TestPaginaStampa::lAdattamentoSiRicorda_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<int>("Modo");
    QTest::newRow("pagina") << u"paginaintera"_s << VistaStampa::ZoomIntera;
    QTest::newRow("larghezza") << u"larghezzapagina"_s << VistaStampa::ZoomLarghezza;
}

void TestPaginaStampa::lAdattamentoSiRicorda()
{
    QFETCH(QString, Voce);
    QFETCH(int, Modo);
    Documento(StampaPrenotula);
    QCOMPARE(vp->Zoom(), 80);
    auto* Menu = F->findChild<QMenu*>(u"menuZoom"_s);
    Menu->findChild<QAction*>(Voce)->trigger();
    QCOMPARE(vp->ZoomMode(), Modo);
    Sgombra();
    Prepara();
    QCOMPARE(vp->ZoomMode(), Modo);
    // A look from nearer is no other choice.
    vp->ImpostaZoom(150);
    Sgombra();
    Prepara();
    QCOMPARE(vp->ZoomMode(), Modo);
    // The entry in force, chosen again, takes it back.
    Menu = F->findChild<QMenu*>(u"menuZoom"_s);
    Menu->findChild<QAction*>(Voce)->trigger();
    QCOMPARE(vp->Zoom(), 80);
    Sgombra();
    Prepara();
    QCOMPARE(vp->ZoomMode(), VistaStampa::ZoomLibero);
    QCOMPARE(vp->Zoom(), 80);
}

/// A percentage, and the fit of the older entry, are for the window that they were chosen in.
void TestPaginaStampa::iPercentiNo()
{
    Documento(StampaPrenotula);
    F->findChild<QMenu*>(u"menuZoom"_s)->findChild<QAction*>(u"z999"_s)->trigger();
    QCOMPARE(vp->ZoomMode(), VistaStampa::ZoomAdatta);
    Sgombra();
    Prepara();
    QCOMPARE(vp->Zoom(), 80);
}

#include "TestPaginaStampa.moc"
