// Whole uses: a civil, a criminal and an out-of-court note made by hand, saved, closed, opened again.
#include "core/posti.h"
#include "tavolo.h"

using namespace Qt::StringLiterals;

namespace {

const QList<int> ColonneOno{OnoData,    OnoDescr, OnoQta,     OnoImporto,   OnoMedio,   OnoMin,    OnoMax,
                            OnoCodVoce, OnoNVoce, OnoVarPerc, OnoBaseMedio, OnoBaseMin, OnoBaseMax};
const QList<int> ColonneDir{DirData, DirDescr, DirQta, DirImponibile, DirEsente, DirNVoce, DirIDDir};
const QList<int> ColonneAcc{AccDescr, AccValuta, AccCorrispettivi, AccSpeseImp, AccSpeseEsenti};

/// What the boxes and lists of the window show.
QStringList Mostrato(const frmParcelle* Finestra)
{
    QStringList Testi;
    for (const QLineEdit* Box : Finestra->findChildren<QLineEdit*>(QRegularExpression(u"^txt"_s)))
        if (!Box->objectName().startsWith(u"txtCerca"))
            Testi.append(Box->objectName() + u'=' + Box->text());
    for (const QComboBox* Lista : Finestra->findChildren<QComboBox*>())
        Testi.append(Lista->objectName() + u'=' + Lista->currentText());
    for (const QAbstractButton* Segno : Finestra->findChildren<QAbstractButton*>())
        if (Segno->isCheckable() && !qobject_cast<const QToolButton*>(Segno))
            Testi.append(Segno->objectName() + u'=' + QString::number(Segno->isChecked()));
    for (const char* Etichetta : {"lblDatiBase", "lblOnora", "lblSpImp", "lblSpese", "lblTotal"})
        Testi.append(Controllo<QLabel>(Finestra, Etichetta)->text());
    Testi.sort();
    return Testi;
}

}  // namespace

class TestStrade : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void civileColMouse();
    void penaleDaTastiera();
    void stragiudiziale();

private:
    /// Saves by the button, closes by the arrow, opens again, and compares record and window.
    void SalvaChiudiRiapri(const QString& Nome);

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestStrade);

void TestStrade::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestStrade::cleanup()
{
    T.reset();
}

void TestStrade::SalvaChiudiRiapri(const QString& Nome)
{
    const QString File = T->Ufficio.File(Nome + u".mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"La parcella "_s + Nome + u".mdb è stata salvata correttamente!"_s);
    Clic(Controllo(F, "pctSave"));
    const Parcella Prima = F->Nota;
    const QStringList Vista = Mostrato(F);

    ClicScheda(F, SchedaBase);
    T->Voce.Attendi(u"Confermi il ritorno al menu iniziale?"_s, vbYes);
    Clic(Controllo(F, "imgPrev"));
    QVERIFY(InfoParcelle[1].Libera && !F->isVisible());
    F->Nuova({});  // nothing of it may be left in the window
    QVERIFY(Mostrato(F) != Vista);

    F = T->Apri(File);
    QVERIFY(F);
    QCOMPARE(F->windowTitle(), Nome.toLower());
    QCOMPARE(Mostrato(F), Vista);
    QCOMPARE(Testi(F->Nota.xOnorari, ColonneOno), Testi(Prima.xOnorari, ColonneOno));
    QCOMPARE(Testi(F->Nota.xDiritti, ColonneDir), Testi(Prima.xDiritti, ColonneDir));
    QCOMPARE(Testi(F->Nota.xAcconti, ColonneAcc), Testi(Prima.xAcconti, ColonneAcc));
    QCOMPARE(F->Nota.IDAutSelezionata(), Prima.IDAutSelezionata());
    QCOMPARE(F->Nota.Scaglione, Prima.Scaglione);
    QCOMPARE(F->Nota.ImportoPrec, Prima.ImportoPrec);
    QCOMPARE(F->Nota.AumRidVarP, Prima.AumRidVarP);
    QCOMPARE(CatenaFiscale(F->Nota, StampaPrenotula).Netto, CatenaFiscale(Prima, StampaPrenotula).Netto);
    QVERIFY(!F->Nota.Modificata);

    // The tabs show the lines, and entering them changes nothing.
    for (const int Scheda : {int(SchedaListaOnorari), int(SchedaListaSpese), int(SchedaImposte)})
        ClicScheda(F, Scheda);
    QCOMPARE(Controllo<Griglia>(F, "tdbOnor")->Righe(), Prima.xOnorari.Righe());
    QCOMPARE(Controllo<Griglia>(F, "tdbDir")->Righe(), Prima.xDiritti.Righe());
    QCOMPARE(Controllo<Griglia>(F, "tdbAcconti")->Righe(), Prima.xAcconti.Righe());
    QVERIFY2(!InfoParcelle[1].Modificata, "guardare non modifica");
}

void TestStrade::civileColMouse()
{
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi Mario"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtControp"), u"Società \"L'Aquila\" & C."_s);
    Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Risoluzione di contratto"_s);
    Clic(Controllo(F, "optAumRid_2"));

    ClicScheda(F, SchedaListaOnorari);
    auto* Onorari = Controllo<Griglia>(F, "tdbOnor");
    auto* Catalogo = Controllo<Griglia>(F, "tdbListaOno");
    QVERIFY(Onorari->Righe() >= 4);
    ScriviCella(Onorari, 0, OnoData, u"05/03/2024"_s);
    DoppioClic(Catalogo, Catalogo->Righe() - 1);
    ScriviCella(Onorari, Onorari->Righe() - 1, OnoImporto, u"150"_s);

    ClicScheda(F, SchedaListaSpese);
    auto* Spese = Controllo<Griglia>(F, "tdbDir");
    DoppioClic(Controllo<Griglia>(F, "tdbListaDir"), 0);
    DoppioClic(Controllo<Griglia>(F, "tdbListaDir"), 1);
    ScriviCella(Spese, 0, DirImponibile, u"98,5"_s);
    ScriviCella(Spese, 1, DirEsente, u"27"_s);

    ClicScheda(F, SchedaImposte);
    auto* Acconti = Controllo<Griglia>(F, "tdbAcconti");
    ScriviCella(Acconti, 0, AccDescr, u"Fondo spese"_s);
    ScriviCella(Acconti, 0, AccCorrispettivi, u"1936270"_s);
    ClicCella(Acconti, 0, AccValuta);
    Clic(Controllo(F, "chkRA"));
    Clic(Controllo(F, "chkSpeseGen"));
    Clic(Controllo(F, "chkMinMax"));

    QCOMPARE(CalcolaAcconti(F->Nota, StampaPrenotula).AccontiCorrispettivi, 1000.0);
    QCOMPARE(CalcolaSomme(F->Nota).TotSpeseImp, 98.5);
    SalvaChiudiRiapri(u"Rossi contro Società"_s);
}

void TestStrade::penaleDaTastiera()
{
    auto* Schede = Controllo<QTabWidget>(F, "tabParcelle");
    const auto SchedaDopo = [&] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
        for (int i = 0; i < 5; ++i)
            Respiro();
    };
    Controllo(F, "txtCliente")->setFocus();
    Digita(u"Neri Carlo"_s);
    Premi(Qt::Key_Return);
    Digita(u"Pubblico ministero"_s);
    Premi(Qt::Key_Return);
    Digita(u"Art. 589 c.p."_s);
    Premi(Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "cmbCateg"));
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "cmbAutor"));
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDMonocratico));

    SchedaDopo();
    QCOMPARE(Schede->currentIndex(), int(SchedaListaOnorari));
    Controllo(F, "txtCercaOno")->setFocus();
    Digita(u"esecutiva"_s);
    Premi(Qt::Key_Return);
    T->Voce.AttendiImmissione(u"delle ore impiegate (per ogni ora e frazione d'ora)."_s, u"2,02"_s);
    Premi(Qt::Key_Return);
    Respiro();  // the box has closed, the window comes back
    const TabellaRighe& Righe = F->Nota.xOnorari;
    QCOMPARE(Righe(Righe.UpperBound(1), OnoQta).toDouble(), 3.0);

    SchedaDopo();
    QCOMPARE(Schede->currentIndex(), int(SchedaListaSpese));
    Controllo<Griglia>(F, "tdbListaDir")->setFocus();
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Return);
    ScriviCella(Controllo<Griglia>(F, "tdbDir"), 0, DirEsente, u"16"_s);

    SchedaDopo();
    QCOMPARE(Schede->currentIndex(), int(SchedaImposte));
    Controllo(F, "chkSpeseGen")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(F->Nota.chkSpeseGen.Attiva);
    SalvaChiudiRiapri(u"Neri 589"_s);
}

void TestStrade::stragiudiziale()
{
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Verdi Anna"_s);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategStragiudiziale);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDStragiudiziale));
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"30.000,50"_s);
    Scegli(Controllo<QComboBox>(F, "cmbAumRid"), 1);
    Scrivi(Controllo<QLineEdit>(F, "txtAumRid"), u"20"_s);
    Premi(Qt::Key_Tab);

    ClicScheda(F, SchedaListaOnorari);
    auto* Catalogo = Controllo<Griglia>(F, "tdbListaOno");
    T->Voce.AttendiImmissione(u"Consultazione orale"_s, u"2"_s);
    DoppioClic(Catalogo, 0);
    DoppioClic(Catalogo, 5);
    QCOMPARE(F->Nota.xOnorari.Righe(), 2);
    QCOMPARE(F->Nota.xOnorari(0, OnoVarPerc).toInt(), -20);
    ClicScheda(F, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(F, "tdbDir"), 0, DirDescr, u"Trasferta"_s);
    ScriviCella(Controllo<Griglia>(F, "tdbDir"), 0, DirImponibile, u"45,20"_s);
    ClicScheda(F, SchedaImposte);
    SalvaChiudiRiapri(u"Verdi parere"_s);
}

#include "TestStrade.moc"
