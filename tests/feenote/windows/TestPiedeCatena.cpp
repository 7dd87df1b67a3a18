// The tax chain at the foot of a note's window: live, as far as there is room, whole on a click or a key.
#include "tavolo.h"

#include "feenote/modInterruttori.h"
#include "feenote/windows/PannelloCatena.h"
#include "feenote/windows/piedecatena.h"
#include "platform/base/regionale.h"
#include "print/modRiepilogo.h"

#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int Larghissima = 3000;

PannelloCatena* Importi(const frmParcelle* Finestra)
{
    return Finestra->findChild<PannelloCatena*>(u"frmCatena"_s);
}

}  // namespace

class TestPiedeCatena : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { T.reset(); }
    void iContiDellaNota();
    void seguonoOgniCambio();
    void seguonoIlDocumento();
    void quantoCiSta();
    void nonRubaAltezza();
    void sempliceChiContaQuandoSiVede();
    void unClicApreTutto();
    void ilTastoApreEChiude();
    void ilPannelloSegue();
    void laTabella();
    void vaColSuoCliente();

private:
    PiedeCatena* Piede() { return Controllo<PiedeCatena>(F, "pieCatena"); }
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestPiedeCatena);

void TestPiedeCatena::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    // 1.000,00 of fees at 12,5, 4, 21 and 20 per cent.
    F->Nota.xOnorari.AggiungiRiga();
    F->Nota.xOnorari(0, OnoImporto) = 1000.0;
    F->Nota.chkSpeseGen.Attiva = F->Nota.chkCP.Attiva = F->Nota.chkIva.Attiva = F->Nota.chkRA.Attiva = true;
    F->Nota.txtSpeGen.Testo = u"12,5"_s;
    F->Nota.txtCP.Testo = u"4"_s;
    F->Nota.txtIVA.Testo = u"21"_s;
    F->Nota.txtRA.Testo = u"20"_s;
    F->MostraTutto();
}

void TestPiedeCatena::iContiDellaNota()
{
    QCOMPARE(Piede()->Scritta(Larghissima),
             u"Imponibile 1.125,00  Cassa 45,00  I.V.A. 245,70  Totale documento 1.415,70  Ritenuta 225,00  "
             u"Netto 1.190,70"_s);
    QCOMPARE(Piede()->accessibleName(), u"Importi del documento"_s);
    QCOMPARE(Piede()->accessibleDescription(),
             u"Imponibile 1.125,00, Cassa 45,00, I.V.A. 245,70, Totale documento 1.415,70, "
             u"Ritenuta 225,00, Netto 1.190,70"_s);
    QVERIFY2(Piede()->shortcut().isEmpty() && !Piede()->text().contains(u'&'),
             "una lettera che nessuno vede toglierebbe Alt alle caselle");
}

void TestPiedeCatena::seguonoOgniCambio()
{
    const auto Netto = [this] { return Format(Piede()->Conti().Netto, u"#,##0.00"); };
    QCOMPARE(Netto(), u"1.190,70"_s);
    F->Nota.xOnorari.Azzera(OnoColonne);
    CompilaCivile(F);
    F->Nota.xOnorari.AggiungiRiga();
    F->Nota.xOnorari(0, OnoImporto) = 1000.0;
    // A tick of the taxes, a percentage as it is typed.
    ClicScheda(F, SchedaImposte);
    QCOMPARE(Netto(), u"1.190,70"_s);
    auto* Ritenuta = Controllo<QCheckBox>(F, "chkRA");
    Ritenuta->click();
    QCOMPARE(Netto(), u"1.415,70"_s);
    auto* Iva = Controllo<QLineEdit>(F, "txtIVA");
    Iva->setFocus();
    Iva->selectAll();
    QTest::keyClicks(Iva, u"22"_s);
    QCOMPARE(Netto(), u"1.427,40"_s);  // 1.170,00 and 257,40 of VAT
    QVERIFY2(Iva->hasFocus(), "while the box is in edit");
    Controllo<QCheckBox>(F, "chkCP")->click();
    QCOMPARE(Netto(), u"1.372,50"_s);  // 1.125,00 and 247,50
}

void TestPiedeCatena::seguonoIlDocumento()
{
    F->Nota.xAcconti.AggiungiRiga();
    F->Nota.xAcconti(0, AccValuta) = u"E"_s;
    F->Nota.xAcconti(0, AccCorrispettivi) = 125.0;
    F->MostraTutto();
    QCOMPARE(Piede()->Conti().Imponibile, 1000.0);
    // The court costs note knows no payments, and forces the taxes out.
    ScegliTipoStampa(F->Nota, StampaNotaGiudiziale);
    F->MostraTutto();
    QCOMPARE(Piede()->Conti().Dati.Tipo, int(StampaNotaGiudiziale));
    QCOMPARE(Piede()->Conti().Imponibile, 1000.0);
    QCOMPARE(Piede()->Conti().IVA, 0.0);
    for (int Tipo = 0; Tipo < int(TipiDocumento.size()); ++Tipo) {
        ScegliTipoStampa(F->Nota, Tipo);
        F->MostraTutto();
        QCOMPARE(Piede()->Conti().Netto, CatenaFiscale(F->Nota, Tipo).Netto);
    }
}

void TestPiedeCatena::quantoCiSta()
{
    QString Prima = Piede()->Scritta(Larghissima);
    QStringList Viste{Prima};
    for (int Larga = 1200; Larga > 0; --Larga) {
        const QString Ora = Piede()->Scritta(Larga);
        QVERIFY(Ora.size() <= Prima.size());
        QVERIFY2(Ora.endsWith(u"Netto 1.190,70"), qPrintable(Ora));
        if (Ora != Prima)
            Viste << Ora;
        Prima = Ora;
    }
    QCOMPARE(Viste.value(1),
             u"Imp. 1.125,00  CP 45,00  IVA 245,70  Lordo 1.415,70  R.A. 225,00  Netto 1.190,70"_s);
    QCOMPARE(Viste.value(2), u"Imp. 1.125,00  IVA 245,70  Lordo 1.415,70  R.A. 225,00  Netto 1.190,70"_s);
    QCOMPARE(Viste.constLast(), u"Netto 1.190,70"_s);
    // A withholding of 0 goes before the fund.
    F->Nota.chkRA.Attiva = false;
    Piede()->Cambiata();
    for (int Larga = Larghissima; Larga > 0 && Piede()->Scritta(Larga).contains(u" 0,00"); --Larga)
        Prima = Piede()->Scritta(Larga - 1);
    QCOMPARE(Prima, u"Imp. 1.125,00  CP 45,00  IVA 245,70  Lordo 1.415,70  Netto 1.415,70"_s);
    // As wide as it wants to be, all of them are there.
    QCOMPARE(Piede()->Scritta(Piede()->sizeHint().width()).count(u"  "), 5);
}

void TestPiedeCatena::nonRubaAltezza()
{
    QVERIFY(Piede()->sizeHint().height() <= Controllo<QLabel>(F, "lblTotal")->sizeHint().height());
    QVERIFY(Piede()->minimumSizeHint().height() <= Controllo<QLabel>(F, "lblTotal")->sizeHint().height());
    QCOMPARE(Piede()->geometry().center().y(), Controllo(F, "lblTotal")->geometry().center().y());
}

/// Reckoned once for what is painted, however often the note has changed before.
void TestPiedeCatena::sempliceChiContaQuandoSiVede()
{
    int Volte = 0;
    PiedeCatena Altro;
    Altro.Segui([&] {
        ++Volte;
        return Catena();
    });
    for (int i = 0; i < 100; ++i)
        Altro.Cambiata();
    QCOMPARE(Volte, 0);
    Altro.resize(600, 20);
    QVERIFY(MostraAttiva(Altro));
    QTRY_VERIFY(Volte > 0);
    const int Prima = Volte;
    for (int i = 0; i < 100; ++i)
        Altro.Cambiata();
    Respiro();
    QVERIFY2(Volte <= Prima + 2, qPrintable(QString::number(Volte)));
}

void TestPiedeCatena::unClicApreTutto()
{
    QVERIFY(!Importi(F));
    QTest::mouseClick(Piede(), Qt::LeftButton);
    QVERIFY(Importi(F) && Importi(F)->isVisible());
    QCOMPARE(Controllo<QLabel>(Importi(F), "lblDocumento")->text(), u"Prenotula"_s);
    QTRY_COMPARE(QApplication::activeWindow(), Importi(F));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!Importi(F)->isVisible());
    QVERIFY(MostraAttiva(*F));
    QTest::mouseClick(Piede(), Qt::LeftButton);
    QVERIFY(Importi(F)->isVisible());
}

void TestPiedeCatena::ilTastoApreEChiude()
{
    QTest::keyClick(F, Qt::Key_T, Qt::ControlModifier);
    QVERIFY(Importi(F) && Importi(F)->isVisible());
    QTRY_COMPARE(QApplication::activeWindow(), Importi(F));
    QTest::keyClick(Importi(F), Qt::Key_T, Qt::ControlModifier);
    QVERIFY(!Importi(F)->isVisible());
}

void TestPiedeCatena::ilPannelloSegue()
{
    QTest::keyClick(F, Qt::Key_T, Qt::ControlModifier);
    QVERIFY(Importi(F)->Testo().contains(u"TOTALE EURO\t1.415,70"));
    F->Nota.chkIva.Attiva = false;
    F->MostraTutto();
    QTRY_VERIFY(Importi(F)->Testo().contains(u"TOTALE EURO\t1.170,00"));
    QVERIFY(!Importi(F)->Testo().contains(u"I.V.A."));
    Importi(F)->reject();
}

/// The rows are those of the printed summary, and the sums that it leaves without a name have one.
void TestPiedeCatena::laTabella()
{
    QTest::keyClick(F, Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(Importi(F)->Testo(),
             u"Onorari\t1.000,00\nSpese imponibili\t0\nSpese generali 12,5%\t125,00\n"
             u"Imponibile\t1.125,00\nCassa previdenza avvocati 4%\t45,00\n"
             u"Imponibile e cassa\t1.170,00\nI.V.A. 21%\t245,70\n"
             u"Spese esenti art. 15 d.p.r. 633/72\t0\nTOTALE EURO\t1.415,70\n"
             u"Ritenuta Acconto 20%\t-225,00\nImporto dovuto al netto della R.A.\t1.190,70"_s);
    QVERIFY(Controllo<QLabel>(Importi(F), "lblLettere")->text().startsWith(u"(mille"));
    Clic(Controllo(Importi(F), "cmdCopiaCatena"));
    QCOMPARE(QApplication::clipboard()->text(), Importi(F)->Testo());
    QApplication::clipboard()->clear();
    auto* Righe = Controllo<QTableWidget>(Importi(F), "tabCatena");
    Righe->setFocus();
    QTest::keyClick(Righe, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), Importi(F)->Testo());
}

void TestPiedeCatena::vaColSuoCliente()
{
    QTest::keyClick(F, Qt::Key_T, Qt::ControlModifier);
    QVERIFY(Importi(F)->isVisible());
    QVERIFY(ChiudiParcella(1));
    QVERIFY(!Importi(F)->isVisible());
}

#include "TestPiedeCatena.moc"
