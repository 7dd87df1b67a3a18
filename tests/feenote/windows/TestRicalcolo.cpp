// The bar of lines that are older than the parameters.
#include "tavolo.h"

#include "platform/base/regionale.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

const QString DaRicalcolare = u"Onorari da ricalcolare con i nuovi parametri"_s;

}  // namespace

class TestRicalcolo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void dopoUnCambioDiValore();
    void senzaRigheNonSiDice();
    void ricalcolaOra_data();
    void ricalcolaOra();
    void colDocumentoInVista();
    void conIParametriSbagliati();
    void laNotaRiaperta();

private:
    [[nodiscard]] QWidget* Barra() const { return Controllo(F, "barRicalcolo"); }
    [[nodiscard]] QString Avviso() const { return Controllo<VistaStampa>(F, "vp")->Avviso(); }
    [[nodiscard]] double Somma() const { return SommaColonna(F->Nota.xOnorari, OnoImporto); }
    /// Leaves the lines behind: a variation of 50 % on them.
    void Varia() const;

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    double Prima = 0.0;  ///< sum of the standard items
};
PROVA(TestRicalcolo);

void TestRicalcolo::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    Prima = Somma();
    QVERIFY(Prima > 0);
    ClicScheda(F, SchedaBase);
    QVERIFY(!Barra()->isVisible());
}

void TestRicalcolo::cleanup()
{
    T.reset();
}

void TestRicalcolo::Varia() const
{
    Scrivi(Controllo<QLineEdit>(F, "txtAumRid"), u"50"_s);
    Premi(Qt::Key_Tab);
    Respiro();
}

void TestRicalcolo::dopoUnCambioDiValore()
{
    Varia();
    QVERIFY(Barra()->isVisible());
    QCOMPARE(Controllo<QLabel>(F, "lblRicalcolo")->text(), DaRicalcolare);
    QCOMPARE(Controllo<QPushButton>(F, "cmdRicalcola")->text().remove(u'&'), u"Ricalcola ora"_s);
    for (const int Scheda : {SchedaListaSpese, SchedaImposte, SchedaDiStampa}) {
        ClicScheda(F, Scheda);
        QVERIFY2(Barra()->isVisible() == (Scheda != SchedaListaSpese), qPrintable(QString::number(Scheda)));
    }
    QCOMPARE(Somma(), Prima);
    ClicScheda(F, SchedaListaOnorari);  // which recalculates
    QVERIFY(!Barra()->isVisible());
    QCOMPARE(Somma(), Prima * 1.5);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(!Barra()->isVisible());
    QCOMPARE(Avviso(), QString());
}

void TestRicalcolo::senzaRigheNonSiDice()
{
    F->Nota.xOnorari.Azzera(OnoColonne);
    Varia();
    QVERIFY(!Barra()->isVisible());
    QCOMPARE(Avviso(), QString());
}

void TestRicalcolo::ricalcolaOra_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::newRow("dati base") << int(SchedaBase);
    QTest::newRow("acconti e imposte") << int(SchedaImposte);
    QTest::newRow("stampa") << int(SchedaDiStampa);
}

void TestRicalcolo::ricalcolaOra()
{
    QFETCH(int, Scheda);
    Varia();
    ClicScheda(F, Scheda);
    F->SetModificata(false);
    Clic(Controllo<QPushButton>(F, "cmdRicalcola"));
    QCOMPARE(F->Scheda(), Scheda);
    QCOMPARE(Somma(), Prima * 1.5);
    QVERIFY(!Barra()->isVisible());
    QVERIFY(!F->Nota.RicalcoloNecessario);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(Controllo<QLabel>(F, "lblOnora")->text(), u"Onor.: "_s + Format(Prima * 1.5, u"#,##0.00"));
}

void TestRicalcolo::colDocumentoInVista()
{
    Varia();
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    auto* vp = Controllo<VistaStampa>(F, "vp");
    QVERIFY(Controllo<QLabel>(vp, "avvisoAnteprima")->isVisible());
    QCOMPARE(Avviso(), DaRicalcolare);
    const auto Carta = [vp] {
        vp->SelezionaTutto();
        return vp->TestoScelto();
    };
    const QString Vecchio = Format(Prima, u"#,##0.00");
    const QString Nuovo = Format(Prima * 1.5, u"#,##0.00");
    QVERIFY(Carta().contains(Vecchio) && !Carta().contains(Nuovo));
    QVERIFY2(!Carta().contains(u"ricalcolare"_s), "l'avviso non è della carta");
    Clic(Controllo<QPushButton>(F, "cmdRicalcola"));
    QVERIFY2(Carta().contains(Nuovo), "il documento si ricompone");
    QVERIFY(!Controllo<QLabel>(vp, "avvisoAnteprima")->isVisible());
}

void TestRicalcolo::conIParametriSbagliati()
{
    Varia();
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    T->Voce.Attendi(u"Non è stato specificato il campo Autorità"_s, vbOK, u"Errore:"_s);
    Clic(Controllo<QPushButton>(F, "cmdRicalcola"));
    QCOMPARE(Somma(), Prima);
    QVERIFY(Barra()->isVisible());
    QTRY_COMPARE(QApplication::focusWidget(), Controllo(F, "cmbAutor"));
}

void TestRicalcolo::laNotaRiaperta()
{
    Varia();
    // As a file is read: the flag is false, and what is known of the lines has come with them.
    F->Nota.RicalcoloNecessario = false;
    F->MostraTutto();
    QVERIFY(Barra()->isVisible());
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Somma(), Prima);
    ClicScheda(F, SchedaImposte);
    QVERIFY(Barra()->isVisible());
    Clic(Controllo<QPushButton>(F, "cmdRicalcola"));
    QCOMPARE(Somma(), Prima * 1.5);
    QVERIFY(!Barra()->isVisible());
}

#include "TestRicalcolo.moc"
