// Amounts by date: the filing fee in force on the day of filing, how old rates and indices are, the rule that
// default interest proposes.
#include "banco.h"

#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "core/impostazioni.h"
#include "platform/grid/griglia.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int InVigore = 1;

QColor Colore(const QWidget* Finestra, const char* Nome)
{
    const auto* Etichetta = Controllo<QLabel>(Finestra, Nome);
    return Etichetta->palette().color(Etichetta->foregroundRole());
}

QColor ColoreTesti()
{
    return QApplication::palette().color(QPalette::WindowText);
}

/// The text of a label on view, empty while it is hidden.
QString Visto(const QWidget* Finestra, const char* Nome)
{
    const auto* Etichetta = Controllo<QLabel>(Finestra, Nome);
    return Etichetta->isVisible() ? Etichetta->text() : QString();
}

}  // namespace

class TestNormeImporti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { B = std::make_unique<Banco>(); }
    void cleanup() { B.reset(); }

    void pannelloNascosto();
    void importiPerData_data();
    void importiPerData();
    void leCaselleSiLasciano_data();
    void leCaselleSiLasciano();
    void importiFissi_data();
    void importiFissi();
    void gradiERegole();
    void perCiascunRicorrente();
    void caselleARiposo();
    void rifiutiNelPannello_data();
    void rifiutiNelPannello();
    void copieDelPannello();
    void nuovoSvuotaIlPannello();
    void laPaginaResta();
    void contributoSenzaNorme();
    void etaDelContributo();
    void tabulatoreDelPannello();

    void etaDegliInteressi_data();
    void etaDegliInteressi();
    void etaDegliIndici_data();
    void etaDegliIndici();
    void interessiOltreIDati();
    void rivalutazioneOltreIDati();
    void archivioGuastoSenzaEta();
    void moraProposta_data();
    void moraProposta();
    void laSceltaDellUtenteResta();
    void moraDelProgramma();

private:
    QPointer<frmContrib> ApriContributo(const QString& Procedimento = {});

    std::unique_ptr<Banco> B;
};
PROVA(TestNormeImporti);

/// The form with the fees in force on view, and a kind of proceeding chosen.
QPointer<frmContrib> TestNormeImporti::ApriContributo(const QString& Procedimento)
{
    sessione::NormeDiPartenza = NormeInVigore.toString();
    QPointer<frmContrib> F = Apri<frmContrib>();
    if (!F || Procedimento.isEmpty())
        return F;
    auto* Lista = Controllo<QComboBox>(F, "cmbProcedimento");
    ScegliConFrecce(Lista, Lista->findText(Procedimento));
    return F;
}

// ---- the filing fee -------------------------------------------------------------------------------

void TestNormeImporti::pannelloNascosto()
{
    QPointer<frmContrib> F = Apri<frmContrib>();
    QVERIFY(!Controllo(F, "fraVigente")->isVisible());
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), u"del programma"_s);
    const int Prima = Controllo(F, "fraContrib")->height();
    Scegli(F, "cmbNorme", InVigore);
    QVERIFY(Controllo(F, "fraVigente")->isVisible());
    QCOMPARE(Controllo(F, "fraContrib")->height(), Prima);
    Scegli(F, "cmbNorme", 0);
    QVERIFY(!Controllo(F, "fraVigente")->isVisible());
}

void TestNormeImporti::importiPerData_data()
{
    QTest::addColumn<QString>("Deposito");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Contributo");
    QTest::newRow("primo scaglione") << u"22112026"_s << u"1100"_s << u"43,00"_s;
    QTest::newRow("un centesimo oltre") << u"22112026"_s << u"1100,01"_s << u"98,00"_s;
    QTest::newRow("ultimo scaglione") << u"22112026"_s << u"520000,01"_s << u"1.686,00"_s;
    QTest::newRow("ultimo giorno degli importi del 2011") << u"24062014"_s << u"30000"_s << u"450,00"_s;
    QTest::newRow("primo giorno di quelli del 2014") << u"25062014"_s << u"30000"_s << u"518,00"_s;
    QTest::newRow("ultimo giorno di quelli del 2010") << u"05072011"_s << u"30000"_s << u"374,00"_s;
    QTest::newRow("primo giorno di quelli del 2011") << u"06072011"_s << u"30000"_s << u"450,00"_s;
    QTest::newRow("il primo giorno noto") << u"31072010"_s << u"30000"_s << u"374,00"_s;
}

void TestNormeImporti::importiPerData()
{
    QFETCH(QString, Deposito);
    QFETCH(QString, Valore);
    QFETCH(QString, Contributo);
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    Scrivi(F, "mskDeposito", Deposito);
    Scrivi(F, "txtValoreVigente", Valore);
    QCOMPARE(TestoDi(F, "lblVigente"), Contributo);
    auto* Passi = Controllo<Griglia>(F, "tdbVigente");
    QVERIFY(Passi->Righe() >= 1);
    const auto* Modello = Passi->Vista()->model();
    QCOMPARE(Modello->index(0, 1).data().toString(), Contributo);
    QVERIFY(Modello->index(0, 2).data().toString().contains(u"115/2002"));
}

void TestNormeImporti::leCaselleSiLasciano_data()
{
    QTest::addColumn<QString>("Procedimento");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Lasciato");
    QTest::addColumn<QString>("Contributo");
    const QString Civile = u"Processo civile, a valore"_s;
    const QString Tributario = u"Processo tributario, a valore"_s;
    QTest::newRow("mezzo centesimo") << Civile << u"1100,005"_s << u"1.100,00"_s << u"43,00"_s;
    QTest::newRow("oltre il mezzo") << Civile << u"1100,0051"_s << u"1.100,01"_s << u"98,00"_s;
    QTest::newRow("mezzo centesimo in alto") << Civile << u"52000,005"_s << u"52.000,00"_s << u"518,00"_s;
    QTest::newRow("tributario") << Tributario << u"2582,285"_s << u"2.582,28"_s << u"30,00"_s;
    QTest::newRow("niente") << Civile << QString() << QString() << QString();
    QTest::newRow("non un numero") << Civile << u"1,2,3"_s << u"1,2,3"_s << QString();
}

// Leaving the value rounds what is shown as the fee has rounded it, and so changes no bracket.
void TestNormeImporti::leCaselleSiLasciano()
{
    QFETCH(QString, Procedimento);
    QFETCH(QString, Valore);
    QFETCH(QString, Lasciato);
    QFETCH(QString, Contributo);
    QPointer<frmContrib> F = ApriContributo(Procedimento);
    Scrivi(F, "txtValoreVigente", Valore);
    QCOMPARE(TestoDi(F, "lblVigente"), Contributo);
    Premi(Qt::Key_Tab);
    QCOMPARE(TestoDi(F, "txtValoreVigente"), Lasciato);
    QCOMPARE(TestoDi(F, "lblVigente"), Contributo);
}

void TestNormeImporti::importiFissi_data()
{
    QTest::addColumn<QString>("Procedimento");
    QTest::addColumn<QString>("Contributo");
    QTest::newRow("indeterminabile") << u"Valore indeterminabile"_s << u"518,00"_s;
    QTest::newRow("esecuzione immobiliare") << u"Esecuzione immobiliare"_s << u"278,00"_s;
    QTest::newRow("amministrativo") << u"Processo amministrativo, ordinario"_s << u"650,00"_s;
    QTest::newRow("esente") << u"Accesso alle informazioni ambientali"_s << u"0,00"_s;
}

void TestNormeImporti::importiFissi()
{
    QFETCH(QString, Procedimento);
    QFETCH(QString, Contributo);
    QPointer<frmContrib> F = ApriContributo(Procedimento);
    QCOMPARE(TestoDi(F, "mskDeposito"), u"21/11/2026"_s);
    QCOMPARE(TestoDi(F, "lblVigente"), Contributo);
}

void TestNormeImporti::gradiERegole()
{
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    QCOMPARE(TestoDi(F, "lblVigente"), u"518,00"_s);
    // From 2025 the filing is taken with the minimum.
    QVERIFY2(TestoDi(F, "lblTotaleVigente").contains(u"545,00"), qPrintable(TestoDi(F, "lblTotaleVigente")));
    QVERIFY(TestoDi(F, "lblTotaleVigente").contains(u"43,00"));
    Scegli(F, "cmbGrado", 1);
    QCOMPARE(TestoDi(F, "lblVigente"), u"777,00"_s);
    Scegli(F, "cmbGrado", 2);
    QCOMPARE(TestoDi(F, "lblVigente"), u"1.036,00"_s);
    Scegli(F, "cmbGrado", 0);
    Controllo<QCheckBox>(F, "chkDimezzato")->click();
    QCOMPARE(TestoDi(F, "lblVigente"), u"259,00"_s);
    Controllo<QCheckBox>(F, "chkDimezzato")->click();
    Controllo<QCheckBox>(F, "chkImprese")->click();
    QCOMPARE(TestoDi(F, "lblVigente"), u"1.036,00"_s);
    Controllo<QCheckBox>(F, "chkImprese")->click();
    Controllo<QCheckBox>(F, "chkOmessi")->click();
    QCOMPARE(TestoDi(F, "lblVigente"), u"777,00"_s);
    Controllo<QCheckBox>(F, "chkOmessi")->click();
    Controllo<QCheckBox>(F, "chkNotifiche")->click();
    QVERIFY(!TestoDi(F, "lblTotaleVigente").contains(u"545,00"));
}

void TestNormeImporti::perCiascunRicorrente()
{
    QPointer<frmContrib> F = ApriContributo(u"Cittadinanza italiana, per ricorrente"_s);
    QCOMPARE(TestoDi(F, "lblVigente"), u"600,00"_s);
    Scrivi(F, "txtRicorrenti", u"3"_s);
    QCOMPARE(TestoDi(F, "lblVigente"), u"1.800,00"_s);
    Scrivi(F, "txtRicorrenti", {});
    QCOMPARE(TestoDi(F, "lblVigente"), u"600,00"_s);
}

void TestNormeImporti::caselleARiposo()
{
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    QVERIFY(Controllo(F, "txtValoreVigente")->isEnabled());
    QVERIFY(Controllo(F, "cmbGrado")->isEnabled());
    QVERIFY(!Controllo(F, "txtRicorrenti")->isEnabled());
    QVERIFY(Controllo(F, "chkNotifiche")->isEnabled());
    auto* Lista = Controllo<QComboBox>(F, "cmbProcedimento");
    ScegliConFrecce(Lista, Lista->findText(u"Esecuzione immobiliare"_s));
    QVERIFY(!Controllo(F, "txtValoreVigente")->isEnabled());
    QVERIFY(!Controllo(F, "cmbGrado")->isEnabled());
    // Social security pays no notifications, and nothing is added.
    ScegliConFrecce(Lista, Lista->findText(u"Previdenza e assistenza, oltre la soglia di reddito"_s));
    QVERIFY(!Controllo(F, "chkNotifiche")->isEnabled());
    QCOMPARE(TestoDi(F, "lblVigente"), u"43,00"_s);
    QVERIFY2(!TestoDi(F, "lblTotaleVigente").contains(u"70,00"), qPrintable(TestoDi(F, "lblTotaleVigente")));
}

void TestNormeImporti::rifiutiNelPannello_data()
{
    QTest::addColumn<QString>("Deposito");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("prima degli importi noti") << u"30072010"_s << u"30000"_s << u"31/07/2010"_s;
    QTest::newRow("29 febbraio che non c'è") << u"29022026"_s << u"30000"_s << u"non è una data valida"_s;
    QTest::newRow("senza data") << QString() << u"30000"_s << u"non è una data valida"_s;
    QTest::newRow("valore che non è un numero") << u"22112026"_s << u"1-2"_s << u"valore numerico"_s;
    QTest::newRow("valore negativo") << u"22112026"_s << u"-5"_s << u"negativo"_s;
}

// In its place and without a box: the amount follows each key.
void TestNormeImporti::rifiutiNelPannello()
{
    QFETCH(QString, Deposito);
    QFETCH(QString, Valore);
    QFETCH(QString, Frase);
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    Scrivi(F, "mskDeposito", Deposito);
    Scrivi(F, "txtValoreVigente", Valore);
    QVERIFY2(TestoDi(F, "lblNoteVigente").contains(Frase), qPrintable(TestoDi(F, "lblNoteVigente")));
    QVERIFY(Colore(F, "lblNoteVigente") != ColoreTesti());
    QCOMPARE(TestoDi(F, "lblVigente"), QString());
    QCOMPARE(Controllo<Griglia>(F, "tdbVigente")->Righe(), 0);
    QVERIFY(!Controllo(F, "cmdCopiaVigente")->isEnabled());
    Scrivi(F, "mskDeposito", u"22112026"_s);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    QCOMPARE(TestoDi(F, "lblVigente"), u"518,00"_s);
    QCOMPARE(Colore(F, "lblNoteVigente"), ColoreTesti());
}

void TestNormeImporti::copieDelPannello()
{
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Clic(Controllo(F, "cmdCopiaVigente"));
    const QStringList Righe = Appunti().split(u'\n');
    QCOMPARE(Righe.first(), u"Contributo unificato al 21/11/2026: 518,00"_s);
    QVERIFY(Righe.size() > 1 && Righe[1].contains(u"\t518,00\t"));
    for (const QString& Parte : {u"In tutto 545,00"_s, u"199/2025"_s, u"Minimo"_s})
        QVERIFY2(Appunti().contains(Parte), qPrintable(Appunti()));
    // Ctrl+C takes the amount of the panel that has the focus.
    Controllo(F, "cmbGrado")->setFocus();
    CopiaConTasti();
    QCOMPARE(Appunti(), u"518,00"_s);
}

void TestNormeImporti::nuovoSvuotaIlPannello()
{
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    Scrivi(F, "mskDeposito", u"01012020"_s);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Controllo<QCheckBox>(F, "chkImprese")->click();
    DalMenu(F, "mnuNew");
    QCOMPARE(TestoDi(F, "txtValoreVigente"), QString());
    QCOMPARE(TestoDi(F, "mskDeposito"), u"21/11/2026"_s);
    QVERIFY(!Controllo<QCheckBox>(F, "chkImprese")->isChecked());
    QCOMPARE(TestoDi(F, "lblVigente"), QString());
}

// The page of the program's own computes as ever beside the panel.
void TestNormeImporti::laPaginaResta()
{
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    Scrivi(F, "mskDeposito", u"05072011"_s);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Scrivi(F, "txtValore_0", u"30000"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(TestoDi(F, "lblContr_0"), u"518,00"_s);
    QCOMPARE(TestoDi(F, "lblVigente"), u"374,00"_s);
}

void TestNormeImporti::contributoSenzaNorme()
{
    sessione::PercorsoProg = NuovaCartella();
    B->Voce.Tollera();
    QPointer<frmContrib> F = ApriContributo();
    QVERIFY(B->Voce.UltimoTesto().contains(u"Norme.mdb"));
    QVERIFY(!Controllo(F, "fraVigente")->isVisible());
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), u"del programma"_s);
}

void TestNormeImporti::etaDelContributo()
{
    QPointer<frmContrib> F = ApriContributo(u"Valore indeterminabile"_s);
    QCOMPARE(Visto(F, "lblEta"), u"Norme note fino al 21/11/2026."_s);
    // What is not known of the budget law of 2026 is said beside the amount.
    QVERIFY(TestoDi(F, "lblNoteVigente").contains(u"199/2025"));
    Scrivi(F, "mskDeposito", u"31122025"_s);
    QVERIFY(!TestoDi(F, "lblNoteVigente").contains(u"199/2025"));
}

void TestNormeImporti::tabulatoreDelPannello()
{
    QPointer<frmContrib> F = ApriContributo(u"Processo civile, a valore"_s);
    QCOMPARE(OrdineTab(Controllo(F, "mskDeposito"), 9),
             (QStringList{u"mskDeposito"_s, u"cmbProcedimento"_s, u"cmbGrado"_s, u"txtValoreVigente"_s,
                          u"chkDimezzato"_s, u"chkImprese"_s, u"chkOmessi"_s, u"chkRespinta"_s,
                          u"chkNotifiche"_s}));
    QCOMPARE(SenzaNome(F).join(u' '), QString());
}

// ---- how old the data are -------------------------------------------------------------------------

void TestNormeImporti::etaDegliInteressi_data()
{
    QTest::addColumn<QDate>("Oggi");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Fresco");
    QTest::newRow("legali, freschi")
        << QDate(2026, 11, 21) << 0
        << u"Tassi legali fino al 31/12/2026. Saggio 2027 non ancora pubblicato: è atteso entro il "
           "15/12/2026."_s
        << true;
    QTest::newRow("legali, dopo il 15 dicembre")
        << QDate(2026, 12, 16) << 0
        << u"Tassi legali fino al 31/12/2026. Saggio 2027 non nell'archivio: era atteso entro il "
           "15/12/2026."_s
        << false;
    QTest::newRow("legali, da tempo")
        << QDate(2027, 6, 1) << 0
        << u"Dati da aggiornare. Tassi legali fino al 31/12/2026. Saggio 2027 non nell'archivio: era "
           "atteso entro il 15/12/2026."_s
        << false;
    QTest::newRow("mora, fresca") << QDate(2026, 11, 21) << 1
                                  << u"Tassi di mora fino al 31/12/2026. Saggio del primo semestre 2027 non "
                                     "ancora pubblicato."_s
                                  << true;
}

void TestNormeImporti::etaDegliInteressi()
{
    QFETCH(QDate, Oggi);
    QFETCH(int, Tipo);
    QFETCH(QString, Testo);
    QFETCH(bool, Fresco);
    B->ConTassi();
    InstallaOrologio([Oggi] { return QDateTime(Oggi, QTime(10, 0)); });
    QPointer<frmInteressi> F = Apri<frmInteressi>();
    Scegli(F, "cmbInteressi", Tipo);
    QCOMPARE(Visto(F, "lblEta"), Testo);
    QCOMPARE(Colore(F, "lblEta") == ColoreTesti(), Fresco);
}

void TestNormeImporti::etaDegliIndici_data()
{
    QTest::addColumn<QDate>("Oggi");
    QTest::addColumn<bool>("Fresco");
    QTest::newRow("subito dopo l'ultimo indice") << QDate(2026, 9, 25) << true;
    QTest::newRow("due anni dopo") << QDate(2028, 9, 25) << false;
}

void TestNormeImporti::etaDegliIndici()
{
    QFETCH(QDate, Oggi);
    QFETCH(bool, Fresco);
    B->ConTassi();
    InstallaOrologio([Oggi] { return QDateTime(Oggi, QTime(10, 0)); });
    QPointer<frmIstat> F = Apri<frmIstat>();
    QVERIFY2(Visto(F, "lblEta").contains(u"Indici FOI fino ad agosto 2026."), qPrintable(Visto(F, "lblEta")));
    QCOMPARE(Visto(F, "lblEta").startsWith(u"Dati da aggiornare."), !Fresco);
    QCOMPARE(Colore(F, "lblEta") == ColoreTesti(), Fresco);
}

void TestNormeImporti::interessiOltreIDati()
{
    B->ConTassi();
    QPointer<frmInteressi> F = Apri<frmInteressi>();
    Scrivi(F, "txtCapitale", u"1000"_s);
    Scrivi(F, "mskDataIni", u"01012026"_s);
    Scrivi(F, "mskDataFin", u"31122026"_s);
    Clic(Controllo(F, "cmdCalcola"));
    QVERIFY(!TestoDi(F, "lblTotale").isEmpty());
    QCOMPARE(Visto(F, "lblOltre"), QString());
    // The next day has no rate: the last one is used, and the note stays under the total.
    B->Voce.Tollera();
    Scrivi(F, "mskDataFin", u"01012027"_s);
    Clic(Controllo(F, "cmdCalcola"));
    QVERIFY(!TestoDi(F, "lblTotale").isEmpty());
    QCOMPARE(Visto(F, "lblOltre"), u"Il risultato va oltre i dati: tassi legali fino al 31/12/2026."_s);
    Scrivi(F, "txtCapitale", u"2000"_s);
    QCOMPARE(Visto(F, "lblOltre"), QString());
}

void TestNormeImporti::rivalutazioneOltreIDati()
{
    B->ConTassi();
    QPointer<frmIstat> F = Apri<frmIstat>();
    B->Voce.Tollera();
    Scrivi(F, "txtImporto", u"1000"_s);
    Scrivi(F, "mskDataIni", u"01012020"_s);
    Scrivi(F, "mskDataFin", u"31082026"_s);
    Clic(Controllo(F, "cmdCalcola"));
    QVERIFY(!TestoDi(F, "lblImpRival").isEmpty());
    QCOMPARE(Visto(F, "lblOltre"), QString());
    Scrivi(F, "mskDataFin", u"01112026"_s);
    Clic(Controllo(F, "cmdCalcola"));
    QVERIFY(!TestoDi(F, "lblImpRival").isEmpty());
    QCOMPARE(Visto(F, "lblOltre"), u"Il risultato va oltre i dati: indici FOI fino ad agosto 2026."_s);
    DalMenu(F, "mnuNew");
    QCOMPARE(Visto(F, "lblOltre"), QString());
}

void TestNormeImporti::archivioGuastoSenzaEta()
{
    QPointer<frmInteressi> Senza = Apri<frmInteressi>();
    QCOMPARE(Visto(Senza, "lblEta"), QString());
    Chiudi(Senza);
    QFile Guasto(B->Tassi());
    QVERIFY(Guasto.open(QIODevice::WriteOnly));
    Guasto.write("questo non è un archivio");
    Guasto.close();
    QPointer<frmInteressi> F = Apri<frmInteressi>();
    QCOMPARE(Visto(F, "lblEta"), QString());
    QPointer<frmIstat> Istat = Apri<frmIstat>();
    QCOMPARE(Visto(Istat, "lblEta"), QString());
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

// ---- default interest -----------------------------------------------------------------------------

void TestNormeImporti::moraProposta_data()
{
    QTest::addColumn<QString>("DataIni");
    QTest::addColumn<bool>("Dopo2012");
    QTest::addColumn<QString>("Nota");
    QTest::newRow("ultimo giorno della regola di prima") << u"31122012"_s << false << QString();
    QTest::newRow("primo giorno del punto in più") << u"01012013"_s << true << u"un punto in più"_s;
    QTest::newRow("prima del saggio in giudizio") << u"10122014"_s << true << u"un punto in più"_s;
    QTest::newRow("dal saggio in giudizio") << u"11122014"_s << true << u"domanda giudiziale"_s;
}

void TestNormeImporti::moraProposta()
{
    QFETCH(QString, DataIni);
    QFETCH(bool, Dopo2012);
    QFETCH(QString, Nota);
    B->ConTassi();
    sessione::NormeDiPartenza = NormeInVigore.toString();
    QPointer<frmInteressi> F = Apri<frmInteressi>();
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "mskDataIni", DataIni);
    QCOMPARE(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked(), Dopo2012);
    const QString Detta = Visto(F, "lblProposta");
    QVERIFY2(Nota.isEmpty() ? Detta.isEmpty() : Detta.contains(Nota), qPrintable(Detta));
    QCOMPARE(Detta.contains(u"domanda giudiziale"), Nota == u"domanda giudiziale"_s);
}

void TestNormeImporti::laSceltaDellUtenteResta()
{
    B->ConTassi();
    sessione::NormeDiPartenza = NormeInVigore.toString();
    QPointer<frmInteressi> F = Apri<frmInteressi>();
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "mskDataIni", u"01012020"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked());
    Clic(Controllo(F, "optDataFine_0"));
    Scrivi(F, "mskDataIni", u"01012021"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_0")->isChecked());
    DalMenu(F, "mnuNew");
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "mskDataIni", u"01012021"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked());
}

void TestNormeImporti::moraDelProgramma()
{
    B->ConTassi();
    QPointer<frmInteressi> F = Apri<frmInteressi>();
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "mskDataIni", u"01012020"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_0")->isChecked());
    QCOMPARE(Visto(F, "lblProposta"), QString());
    Scegli(F, "cmbNorme", InVigore);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked());
}

#include "TestNormeImporti.moc"
