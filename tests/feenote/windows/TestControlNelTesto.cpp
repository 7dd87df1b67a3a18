// The Control key inside a text in edit: by itself it leaves nothing, with a letter it acts on the text.
#include "core/sessione.h"
#include "selettore.h"

using namespace Qt::StringLiterals;

namespace {

void PremiControl()
{
    Premi(Qt::Key_Control, Qt::ControlModifier);
}

}  // namespace

class TestControlNelTesto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laCellaRestaAperta();
    void gliAppuntiSonoDelTesto();
    void selezionaTuttoPrendeIlTesto();
    void leFrecceVannoAParole();
    void lImportoInScritturaNonSiLascia();
    void ilValoreDellaCausaNonSiLascia();
    void laPercentualeNonSiLascia();
    void neiPagamenti();
    void laSchedaCambiataLaLasciaAncora();

private:
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Righe = nullptr;
};
PROVA(TestControlNelTesto);

void TestControlNelTesto::init()
{
    T = std::make_unique<Tavolo>();
    F = ApriSenzaRighe(*T);
    QVERIFY(F);
    RigaOnorario(F->Nota, u"prima voce"_s, 100.0, 1, 1);
    RigaOnorario(F->Nota, u"seconda voce"_s, 200.0, 2, 2);
    F->MostraTutto();
    Righe = Controllo<Griglia>(F, "tdbOnor");
}

void TestControlNelTesto::cleanup()
{
    T.reset();
}

void TestControlNelTesto::laCellaRestaAperta()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Digita(u"nuova"_s);
    PremiControl();
    QVERIFY(LaCella(Righe));
    QCOMPARE(LaCella(Righe)->text(), u"nuova"_s);
    QVERIFY(LaCella(Righe)->hasFocus());
    QCOMPARE(F->Nota.xOnorari(0, OnoDescr).toString(), u"prima voce"_s);
    Premi(Qt::Key_Escape);
}

void TestControlNelTesto::gliAppuntiSonoDelTesto()
{
    // A copied line waits to be pasted: none may come in while a text is in edit.
    ClicSelettore(Righe, 1);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QApplication::clipboard()->setText(u"dagli appunti"_s);
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->text(), u"dagli appunti"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->text(), u"prima voce"_s);
    LaCella(Righe)->selectAll();
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"prima voce"_s);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QVERIFY(LaCella(Righe)->text().isEmpty());
    Premi(Qt::Key_Escape);
    QCOMPARE(F->Nota.xOnorari.Righe(), 2);
}

void TestControlNelTesto::selezionaTuttoPrendeIlTesto()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Premi(Qt::Key_F2);
    LaCella(Righe)->deselect();
    Premi(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->selectedText(), u"prima voce"_s);
    QVERIFY2(Righe->Selezione().isEmpty(), "non le righe");
    Premi(Qt::Key_Escape);
}

void TestControlNelTesto::leFrecceVannoAParole()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Premi(Qt::Key_F2);
    LaCella(Righe)->setCursorPosition(0);
    Premi(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->cursorPosition(), int(QString(u"prima "_s).size()));
    Premi(Qt::Key_Escape);
}

void TestControlNelTesto::lImportoInScritturaNonSiLascia()
{
    // An amount half written would be refused with a message, which nobody expects here.
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Digita(u"10-"_s);
    PremiControl();
    QVERIFY(LaCella(Righe));
    Premi(Qt::Key_Escape);
}

void TestControlNelTesto::ilValoreDellaCausaNonSiLascia()
{
    ClicScheda(F, SchedaBase);
    auto* Importo = Controllo<QLineEdit>(F, "txtImporto");
    const double Prima = F->Nota.ImportoPrec;
    Scrivi(Importo, u"3"_s);
    PremiControl();  // leaving it would ask about the recalculation
    QVERIFY(Importo->hasFocus() && Importo->isModified());
    QCOMPARE(F->Nota.ImportoPrec, Prima);
    Scrivi(Importo, u"30000"_s);
}

void TestControlNelTesto::laPercentualeNonSiLascia()
{
    ClicScheda(F, SchedaImposte);
    auto* Spunta = Controllo<QCheckBox>(F, "chkIva");
    if (!Spunta->isChecked())
        Clic(Spunta);
    auto* Percento = Controllo<QLineEdit>(F, "txtIVA");
    Scrivi(Percento, u"150"_s);
    PremiControl();
    QCOMPARE(Percento->text(), u"150"_s);
    QVERIFY(Percento->isModified());
    Scrivi(Percento, u"22"_s);
}

void TestControlNelTesto::neiPagamenti()
{
    ClicScheda(F, SchedaImposte);
    auto* Acconti = Controllo<Griglia>(F, "tdbAcconti");
    Acconti->setFocus();
    Acconti->ImpostaRigaCorrente(0, AccDescr);
    Digita(u"acconto"_s);
    QApplication::clipboard()->setText(u" versato"_s);
    Premi(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(LaCella(Acconti));
    QCOMPARE(LaCella(Acconti)->text(), u"acconto versato"_s);
    Premi(Qt::Key_Escape);
}

void TestControlNelTesto::laSchedaCambiataLaLasciaAncora()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Digita(u"scritta"_s);
    // The key as the bar of tabs sees it when it comes up from the cell.
    Premi(Qt::Key_PageDown, Qt::ControlModifier);
    QVERIFY(!LaCella(Righe));
    QCOMPARE(F->Nota.xOnorari(0, OnoDescr).toString(), u"scritta"_s);
}

#include "TestControlNelTesto.moc"
