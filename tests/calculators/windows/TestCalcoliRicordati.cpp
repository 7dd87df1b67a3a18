// What single windows remember of a calculation besides their boxes.
#include "tuttelecalcolatrici.h"

#include "calculators/norme/norme.h"
#include "calculators/norme/terminiricorrenti.h"
#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"

#include <QCheckBox>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestCalcoliRicordati : public QObject, private ConCalcoli
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void terminiDelCatalogo();
    void catenaDelCatalogo();
    void sabatoDellaDataRipresa_data();
    void sabatoDellaDataRipresa();
    void sabatoDelleNormeCambiate();
    void normeCheNonSiLeggono();
    void moraScelta_data();
    void moraScelta();
    void legaliNonScelgonoLaMora();
    void comuneSenzaCodice();
    void dueMeta();
    void letturaRicordata();
    void contributoCheProsegue();
    void contributoVigente();
    void ripresoNonProsegue();
    void tributarioSenzaValore();
    void leNotificheRestano();
    void soltantoCioCheAveva();
};
PROVA(TestCalcoliRicordati);

void TestCalcoliRicordati::terminiDelCatalogo()
{
    auto* F = Apri<frmTermini>();
    Scegli(F, "cmbNorme", 1);
    const auto Lette = NormeVigenti();
    const TermineRicorrente* Appello = TrovaTermine(*Lette, u"CPC-325-APPELLO");
    if (!Appello)
        Appello = CercaTermini(*Lette, u"325"_s).first();
    Scrivi(F, "mskDecorr", u"20072026"_s);
    F->UsaTermine(*Appello);
    const QString Atteso = TestoDi(F, "lblRisult");
    const QString Termine = TestoDi(F, "lblTermine");
    QVERIFY(!Atteso.isEmpty() && !Termine.isEmpty());
    Chiudi(F);
    F = Apri<frmTermini>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY2(Colonna(Elenco, 0).first().contains(Appello->Articolo), qPrintable(Colonna(Elenco, 0).first()));
    QVERIFY(Riprendi(F));
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentIndex(), 1);
    QCOMPARE(TestoDi(F, "lblRisult"), Atteso);
    QCOMPARE(TestoDi(F, "lblTermine"), Termine);
    // A plain term taken up behind it leaves the catalogue.
    DalMenu(F, "mnuNew");
    Scegli(F, "cmbNorme", 0);
    Scegli(F, "cmbIncrTipo", 0);
    CalcolaTermine(F, 0);
    QCOMPARE(TestoDi(F, "lblRisult"), u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s);
}

void TestCalcoliRicordati::catenaDelCatalogo()
{
    auto* F = Apri<frmTermini>();
    Scegli(F, "cmbNorme", 1);
    const auto Lette = NormeVigenti();
    QVERIFY(!Lette->Catene().isEmpty());
    Scrivi(F, "mskDecorr", u"20072026"_s);
    F->UsaCatena(Lette->Catene().first());
    const QString Atteso = TestoDi(F, "lblRisult");
    QVERIFY(!Atteso.isEmpty());
    Chiudi(F);
    F = Apri<frmTermini>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "lblRisult"), Atteso);
    QVERIFY(!Controllo(F, "txtIncrNum")->isEnabled());
}

void TestCalcoliRicordati::sabatoDellaDataRipresa_data()
{
    QTest::addColumn<bool>("Sequenziali");
    QTest::addColumn<QString>("Ricordata");
    QTest::addColumn<QString>("Digitata");  // in the new window, before the calculation is taken up
    QTest::addColumn<bool>("Abilitato");
    QTest::newRow("termini, dopo il 2006") << false << u"10032024"_s << QString() << true;
    QTest::newRow("termini, prima") << false << u"10032005"_s << u"10032024"_s << false;
    QTest::newRow("sequenziali, prima del 2006") << true << u"10032005"_s << QString() << false;
    QTest::newRow("sequenziali, dopo") << true << u"10032024"_s << u"10032005"_s << true;
}

// The Saturday of a date that is taken up is enabled as that of one that is typed.
void TestCalcoliRicordati::sabatoDellaDataRipresa()
{
    QFETCH(bool, Sequenziali);
    QFETCH(QString, Ricordata);
    QFETCH(QString, Digitata);
    const auto Apre = [&]() -> QDialog* {
        if (Sequenziali)
            return Apri<frmTerminiSeq>();
        return Apri<frmTermini>();
    };
    QDialog* F = Apre();
    if (!Sequenziali)
        Scrivi(F, "txtIncrNum", u"20"_s);
    Scrivi(F, "mskDecorr", Ricordata);
    Clic(Controllo(F, "cmdEsegui"));
    const QString Atteso = TestoDi(F, "lblRisult");
    QVERIFY(!Atteso.isEmpty());
    Chiudi(F);
    F = Apre();
    if (!Digitata.isEmpty())
        Scrivi(F, "mskDecorr", Digitata);
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "lblRisult"), Atteso);
    QTEST(Controllo(F, "chkSabato")->isEnabled(), "Abilitato");
}

// The norms in force let it be ticked without a date, the program's own do not.
void TestCalcoliRicordati::sabatoDelleNormeCambiate()
{
    auto* F = Apri<frmTermini>();
    const auto* Sabato = Controllo<QCheckBox>(F, "chkSabato");
    QVERIFY(!Sabato->isEnabled());
    Scegli(F, "cmbNorme", 1);
    QVERIFY(Sabato->isEnabled());
    Scegli(F, "cmbNorme", 0);
    QVERIFY(!Sabato->isEnabled());
    Scrivi(F, "mskDecorr", u"10032024"_s);
    Scegli(F, "cmbNorme", 1);
    Scegli(F, "cmbNorme", 0);
    QVERIFY(Sabato->isEnabled());
}

// By other rules than its own a calculation would have another result.
void TestCalcoliRicordati::normeCheNonSiLeggono()
{
    QDialog* F = Apri<frmTermini>();
    Scegli(F, "cmbNorme", 1);
    CalcolaTermine(F, 0);
    QVERIFY(!TestoDi(F, "lblRisult").isEmpty());
    Chiudi(F);
    const QScopedValueRollback Vuota(sessione::PercorsoProg, NuovaCartella());
    F = Apri<frmTermini>();
    QVERIFY(ApriElenco(F));
    B->Voce.Tollera();
    QVERIFY(Riprendi(F));
    const QList<MessaggioMostrato> Detti = B->Voce.Mostrati();
    QCOMPARE(Detti.size(), 2);
    QVERIFY2(Detti[0].Testo.contains(u"Norme.mdb"), qPrintable(Detti[0].Testo));
    QCOMPARE(Detti[1].Testo, u"Il calcolo non si può riprendere: \"in vigore\" non è più in elenco."_s);
    QCOMPARE(TestoDi(F, "lblRisult"), QString());
    QCOMPARE(TestoDi(F, "txtIncrNum"), QString());
    QCOMPARE(UltimiCalcoli(Calcolatrice::Termini).size(), 1);
}

// The rule that is proposed with a first day gives way to the one that was chosen.
void TestCalcoliRicordati::moraScelta_data()
{
    QTest::addColumn<bool>("Dopo");
    QTest::newRow("entro il 2012, contro la proposta") << false;
    QTest::newRow("dopo il 2012") << true;
}

void TestCalcoliRicordati::moraScelta()
{
    QFETCH(bool, Dopo);
    QDialog* F = Apri<frmInteressi>();
    Scegli(F, "cmbNorme", 1);
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "txtCapitale", u"1000"_s);
    Scrivi(F, "mskDataIni", u"01012014"_s);
    Scrivi(F, "mskDataFin", u"31122014"_s);
    Clic(Controllo(F, Dopo ? "optDataFine_1" : "optDataFine_0"));
    Clic(Controllo(F, "cmdCalcola"));
    const QString Atteso = TestoDi(F, "lblTotale");
    QVERIFY(!Atteso.isEmpty());
    Chiudi(F);
    F = Apri<frmInteressi>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked(), Dopo);
    QCOMPARE(TestoDi(F, "lblTotale"), Atteso);
}

// A legal calculation says nothing of the rule of default interest.
void TestCalcoliRicordati::legaliNonScelgonoLaMora()
{
    QDialog* F = Apri<frmInteressi>();
    Scegli(F, "cmbNorme", 1);
    CalcolaInteressi(F, 0);
    Chiudi(F);
    F = Apri<frmInteressi>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "mskDataIni", u"01012020"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked());
}

void TestCalcoliRicordati::comuneSenzaCodice()
{
    QDialog* F = Apri<frmCodFis>();
    B->Voce.Tollera();  // "Comune non in elenco."
    CalcolaCodice(F, 0);
    Scrivi(F, "txtComune", u"xyz"_s);
    Clic(Controllo(F, "cmdElabora"));
    const QString Atteso = TestoDi(F, "txtCodiceFiscale");
    QVERIFY2(Atteso.contains(u'?'), qPrintable(Atteso));
    Chiudi(F);
    F = Apri<frmCodFis>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "txtCodiceFiscale"), Atteso);
}

// A code that is computed and one that is read are two calculations, in the list as on the sheet.
void TestCalcoliRicordati::dueMeta()
{
    QDialog* F = Apri<frmCodFis>();
    CalcolaCodice(F, 0);
    for (const QString& Codice : {u"RSSMRA85M45F205K"_s, u"RSSMRA85M45F205X"_s, u"RSS"_s}) {
        Scrivi(F, "txtLetto", Codice);
        Premi(Qt::Key_Tab);
    }
    QStringList Voci;
    for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Calcolatrice::CodiceFiscale))
        Voci << Calcolo.Nome + u": "_s + Calcolo.Esito;
    QCOMPARE(Voci,
             (QStringList{
                 u"Lettura di RSSMRA85M45F205X: 05/08/1985, femmina, Milano (MI), ultima lettera errata"_s,
                 u"Lettura di RSSMRA85M45F205K: 05/08/1985, femmina, Milano (MI)"_s,
                 u"Rossi Mario: RSSMRA80A01H501U"_s}));
    Scrivi(F, "txtLetto", u"RSSMRA85M45F205K"_s);
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().startsWith(u"Codice fiscale\tRSSMRA85M45F205K\n"), qPrintable(Appunti()));
    // The button of the computed code copies that one, wherever the focus is.
    Clic(Controllo(F, "cmdCopia"));
    QCOMPARE(Appunti(), u"RSSMRA80A01H501U"_s);
    Controllo(F, "txtNome")->setFocus();
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().startsWith(u"Cognome\tRossi\n"), qPrintable(Appunti()));
}

void TestCalcoliRicordati::letturaRicordata()
{
    QDialog* F = Apri<frmCodFis>();
    Scrivi(F, "txtLetto", u"RSSMRA85M45F205K"_s);
    Premi(Qt::Key_Return);
    Chiudi(F);
    F = Apri<frmCodFis>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0), QStringList{u"Lettura di RSSMRA85M45F205K"_s});
    QCOMPARE(Colonna(Elenco, 1), QStringList{u"05/08/1985, femmina, Milano (MI)"_s});
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "txtLetto"), u"RSSMRA85M45F205K"_s);
    QVERIFY(TestoDi(F, "lblLettura").contains(u"05/08/1985"));
}

// The page computes at every value that is left: what adds to a calculation carries it on.
void TestCalcoliRicordati::contributoCheProsegue()
{
    QDialog* F = Apri<frmContrib>();
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Return);
    Scrivi(F, "txtValore_1", u"1000"_s);
    Premi(Qt::Key_Return);
    const auto Esiti = [] {
        Respiro();
        QStringList Tutti;
        for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Calcolatrice::Contributo))
            Tutti << Calcolo.Esito;
        return Tutti;
    };
    QCOMPARE(Esiti(), QStringList{u"43,00; 21,50 euro"_s});
    // Another value is another calculation.
    Scrivi(F, "txtValore_0", u"2000"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Esiti(), (QStringList{u"98,00; 21,50 euro"_s, u"43,00; 21,50 euro"_s}));
    // What is on view when the window goes counts too, and once.
    Chiudi(F);
    QCOMPARE(Esiti().size(), 2);
}

void TestCalcoliRicordati::contributoVigente()
{
    QDialog* F = Apri<frmContrib>();
    Scegli(F, "cmbNorme", 1);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Premi(Qt::Key_Tab);
    Clic(Controllo(F, "chkDimezzato"));
    const QString Atteso = TestoDi(F, "lblVigente");
    QVERIFY(!Atteso.isEmpty());
    QVERIFY(Attiva(F, "mnuScheda"));
    Chiudi(F);
    F = Apri<frmContrib>();
    QCOMPARE(TestoDi(F, "lblVigente"), QString());
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 1).first(), Atteso + u" euro"_s);
    QVERIFY2(Colonna(Elenco, 0).first().endsWith(u", valore 30.000,00"),
             qPrintable(Colonna(Elenco, 0).first()));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "lblVigente"), Atteso);
    QVERIFY(Controllo<QCheckBox>(F, "chkDimezzato")->isChecked());
    // Without the panel nothing of it is on the sheet.
    Scegli(F, "cmbNorme", 0);
    QVERIFY(!Attiva(F, "mnuScheda"));
}

/// A calculation that is taken up over another one with fewer boxes is no continuation of it: both stay, each
/// under the name that it was given.
void TestCalcoliRicordati::ripresoNonProsegue()
{
    QDialog* F = Apri<frmContrib>();
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Return);
    Scrivi(F, "txtValore_1", u"5000"_s);
    Premi(Qt::Key_Return);
    Respiro();
    const auto Rinomina = [](const QString& Nome) {
        RinominaCalcolo(Calcolatrice::Contributo, UltimiCalcoli(Calcolatrice::Contributo).first().Campi,
                        Nome);
    };
    Rinomina(u"Bianchi"_s);
    Chiudi(F);
    F = Apri<frmContrib>();
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Return);
    Respiro();
    Rinomina(u"Verdi"_s);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0), (QStringList{u"Verdi"_s, u"Bianchi"_s}));
    DoppioClic(Controllo<Griglia>(Elenco, "tdbCalcoli"), 1);
    Respiro();
    QCOMPARE(TestoDi(F, "txtValore_1"), u"5.000,00"_s);
    QStringList Nomi;
    for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Calcolatrice::Contributo))
        Nomi << Calcolo.Nome;
    QCOMPARE(Nomi, (QStringList{u"Bianchi"_s, u"Verdi"_s}));
}

/// The fee of a tax appeal stays on the page when its value goes: no calculation has it any more.
void TestCalcoliRicordati::tributarioSenzaValore()
{
    QDialog* F = Apri<frmContrib>();
    Scrivi(F, "txtValore_4", u"1000"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(TestoDi(F, "lblContr_4"), u"30,00"_s);
    Scrivi(F, "txtValore_4", {});
    Premi(Qt::Key_Tab);
    QCOMPARE(TestoDi(F, "lblContr_4"), u"30,00"_s);
    QVERIFY(!Attiva(F, "mnuScheda"));
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    const CalcoloRicordato Ultimo = UltimiCalcoli(Calcolatrice::Contributo).value(0);
    QCOMPARE(Ultimo.Esito, u"43,00 euro"_s);
    QVERIFY2(!Ultimo.Nome.contains(u"tributari"), qPrintable(Ultimo.Nome));
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().contains(u"43,00") && !Appunti().contains(u"30,00"), qPrintable(Appunti()));
}

/// A calculation of the page has nothing of the panel: its ticks are those of the beginning.
void TestCalcoliRicordati::leNotificheRestano()
{
    QDialog* F = Apri<frmContrib>();
    Scegli(F, "cmbNorme", 1);
    QVERIFY(Controllo<QCheckBox>(F, "chkNotifiche")->isChecked());
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Tab);
    DalMenu(F, "mnuNew");
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "txtValore_0"), u"1.000,00"_s);
    QVERIFY(Controllo<QCheckBox>(F, "chkNotifiche")->isChecked());
}

/// Nothing of what is on view stays beside a calculation that is taken up.
void TestCalcoliRicordati::soltantoCioCheAveva()
{
    QDialog* F = Apri<frmContrib>();
    Scegli(F, "cmbNorme", 1);
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Tab);
    DalMenu(F, "mnuNew");
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Premi(Qt::Key_Tab);
    QVERIFY(!TestoDi(F, "lblVigente").isEmpty());
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 1).at(1), u"43,00 euro"_s);
    DoppioClic(Controllo<Griglia>(Elenco, "tdbCalcoli"), 1);
    Respiro();
    QCOMPARE(TestoDi(F, "txtValore_0"), u"1.000,00"_s);
    QCOMPARE(TestoDi(F, "txtValoreVigente"), QString());
    QCOMPARE(TestoDi(F, "lblVigente"), QString());
}

#include "TestCalcoliRicordati.moc"
