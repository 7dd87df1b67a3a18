// The calculators of terms with the choice of the norms.
#include "banconorme.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "core/impostazioni.h"
#include "core/modTesti.h"
#include "platform/calendar/calendario.h"
#include "platform/grid/griglia.h"
#include <QAction>
#include <QCheckBox>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

class TestNormeTermini : public QObject, private ConTermini
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sparecchia(); }
    void cominciaDalleImpostazioni_data();
    void cominciaDalleImpostazioni();
    void laSceltaEDellaFinestra();
    void ilPeriodoSecondoLeNorme_data();
    void ilPeriodoSecondoLeNorme();
    void cambiareNormePulisce();
    void senzaFileDelleNorme();
    void ilCalendarioSegueLeNorme();
    void ilSabatoARitroso();
    void materieRisparmiate();
    void avvisiDelleNorme_data();
    void avvisiDelleNorme();
    void etaDelleNorme_data();
    void etaDelleNorme();
    void sequenzialiInVigore();
    void sequenzialiDelProgramma();
    void sequenzialiStampa();
    void sequenzialiScheda();
    void sequenzialiOpzioniARiposo();
    void tastiRapidi();
    void stampaInVigore();
    void ordineDelTabulatore();
    void ogniControlloHaUnNome_data();
    void ogniControlloHaUnNome();
};
PROVA(TestNormeTermini);

void TestNormeTermini::cominciaDalleImpostazioni_data()
{
    QTest::addColumn<QString>("Impostazione");
    QTest::addColumn<QString>("Voce");
    QTest::newRow("in vigore") << NormeInVigore.toString() << u"in vigore"_s;
    QTest::newRow("del programma") << NormeDelProgramma.toString() << u"del programma"_s;
    QTest::newRow("nessuna") << QString() << u"del programma"_s;
    QTest::newRow("scritta a mano") << u"domani"_s << u"del programma"_s;
}

void TestNormeTermini::cominciaDalleImpostazioni()
{
    QFETCH(QString, Impostazione);
    QFETCH(QString, Voce);
    Chiudi(F);
    sessione::NormeDiPartenza = Impostazione;
    F = Apri<frmTermini>();
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), Voce);
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    QCOMPARE(Controllo<QComboBox>(Seq, "cmbNorme")->currentText(), Voce);
}

// Until the window is closed: the next one begins with the settings again, and they stay as they were.
void TestNormeTermini::laSceltaEDellaFinestra()
{
    Scegli(F, "cmbNorme", InVigore);
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), u"in vigore"_s);
    QCOMPARE(sessione::NormeDiPartenza, NormeDelProgramma.toString());
    DalMenu(F, "mnuNew");
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), u"in vigore"_s);
    Chiudi(F);
    F = Apri<frmTermini>();
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), u"del programma"_s);
}

void TestNormeTermini::ilPeriodoSecondoLeNorme_data()
{
    QTest::addColumn<int>("Quali");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Riga");
    // Eleven days in July, then 16 September, or 1 September.
    QTest::newRow("programma, 2026") << DelProgramma << u"20072026"_s << u"30"_s
                                     << u"La scadenza è Lunedì,  5 Ottobre  2026\n(Posticipata)"_s
                                     << AvvisoSettembre.toString();
    QTest::newRow("in vigore, 2026") << InVigore << u"20072026"_s << u"30"_s
                                     << u"La scadenza è Sabato,  19 Settembre  2026\n(Posticipata)"_s
                                     << QString();
    QTest::newRow("in vigore, 2014") << InVigore << u"20072014"_s << u"30"_s
                                     << u"La scadenza è Sabato,  4 Ottobre  2014\n(Posticipata)"_s
                                     << QString();
    QTest::newRow("in vigore, primo giorno di settembre")
        << InVigore << u"31072026"_s << u"1"_s
        << u"La scadenza è Martedì,  1 Settembre  2026\n(Posticipata)"_s << QString();
    // 4 October is a holiday since 2026; in 2027 it is a Monday.
    QTest::newRow("San Francesco del 2027")
        << InVigore << u"01102027"_s << u"3"_s << u"La scadenza è Martedì,  5 Ottobre  2027\n(Posticipata)"_s
        << u"Norme note fino al 21/11/2026"_s;
}

void TestNormeTermini::ilPeriodoSecondoLeNorme()
{
    QFETCH(int, Quali);
    QFETCH(QString, Data);
    QFETCH(QString, Numero);
    QFETCH(QString, Testo);
    QFETCH(QString, Riga);
    Scegli(F, "cmbNorme", Quali);
    Calcola(Data, Numero);
    QCOMPARE(Risultato(F), Testo);
    QCOMPARE(Avviso(F), Riga);
}

void TestNormeTermini::cambiareNormePulisce()
{
    Calcola(u"20072026"_s, u"30"_s);
    QVERIFY(!Risultato(F).isEmpty());
    Scegli(F, "cmbNorme", InVigore);
    QCOMPARE(Risultato(F), QString());
    QVERIFY(!Controllo(F, "cmdStrada")->isEnabled());
    Clic(Controllo(F, "cmdEsegui"));
    QVERIFY(Risultato(F).contains(u"19 Settembre"));
    Scegli(F, "cmbNorme", DelProgramma);
    Clic(Controllo(F, "cmdEsegui"));
    QVERIFY(Risultato(F).contains(u"5 Ottobre"));
}

// Norms that cannot be read are no reason to guess: the program's own stay, and a sentence says why.
void TestNormeTermini::senzaFileDelleNorme()
{
    sessione::PercorsoProg = NuovaCartella();
    B->Voce.Tollera();
    Controllo(F, "cmbNorme")->setFocus();
    Premi(Qt::Key_Down);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().contains(u"Norme.mdb"), qPrintable(B->Voce.UltimoTesto()));
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentText(), u"del programma"_s);
    Clic(Controllo(F, "cmdRicorrenti"));
    QCOMPARE(B->Voce.Mostrati().size(), 2);
    QVERIFY(!Aperta<frmRicorrenti>(F));
    Calcola(u"20072026"_s, u"30"_s);
    QVERIFY(Risultato(F).contains(u"5 Ottobre"));
}

void TestNormeTermini::ilCalendarioSegueLeNorme()
{
    const auto* Calendario = Controllo<CalendarioMensile>(F, "Calendario");
    const QDate Settembre(2026, 9, 10);
    const QDate Francesco(2027, 10, 4);
    QVERIFY(Calendario->Aspetto(Settembre).Sospeso);
    QVERIFY(!Calendario->Aspetto(Francesco).Festivo);
    Scegli(F, "cmbNorme", InVigore);
    QVERIFY(!Calendario->Aspetto(Settembre).Sospeso);
    QVERIFY(Calendario->Aspetto(QDate(2026, 8, 31)).Sospeso);
    QVERIFY(Calendario->Aspetto(QDate(2014, 9, 10)).Sospeso);
    QVERIFY(Calendario->Aspetto(Francesco).Festivo);
    QVERIFY(!Calendario->Aspetto(QDate(2025, 10, 4)).Festivo);
}

// The program's own rules refuse a Saturday backward; the law moves it to the day before.
void TestNormeTermini::ilSabatoARitroso()
{
    Scegli(F, "cmbNorme", InVigore);
    Controllo<QRadioButton>(F, "optTipoScad_1")->click();
    Controllo<QCheckBox>(F, "chkSabato")->click();
    Calcola(u"23112026"_s, u"2"_s);
    QCOMPARE(Risultato(F), u"La scadenza è Venerdì,  20 Novembre  2026\n(Anticipata)"_s);
    QVERIFY(Controllo<QCheckBox>(F, "chkSabato")->isChecked());
}

void TestNormeTermini::materieRisparmiate()
{
    QVERIFY(Controllo(F, "cmbMateria")->isHidden());
    Scegli(F, "cmbNorme", InVigore);
    auto* Materie = Controllo<QComboBox>(F, "cmbMateria");
    QVERIFY(Materie->isVisible());
    QVERIFY(Materie->count() > 5);
    Calcola(u"20072026"_s, u"30"_s);
    QVERIFY(Risultato(F).contains(u"19 Settembre"));
    const int Lavoro = Materie->findText(u"lavoro"_s, Qt::MatchContains);
    QVERIFY(Lavoro > 0);
    ScegliConFrecce(Materie, Lavoro);
    QCOMPARE(Risultato(F), QString());
    Clic(Controllo(F, "cmdEsegui"));
    QCOMPARE(Risultato(F), u"La scadenza è Mercoledì,  19 Agosto  2026"_s);
    DalMenu(F, "mnuStampa");
    QVERIFY(Stampato().contains(u"Sospensione feriale: No"_s));
    delete SeCaricato<frmPrint>.data();
    F->activateWindow();
    QVERIFY(MostraAttiva(*F));
    // The matter is the law's: the program's own rules do not know it.
    Scegli(F, "cmbNorme", DelProgramma);
    QVERIFY(Materie->isHidden());
    Clic(Controllo(F, "cmdEsegui"));
    QVERIFY(Risultato(F).contains(u"5 Ottobre"));
}

void TestNormeTermini::avvisiDelleNorme_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Errore");
    QTest::newRow("prima della norma più vecchia")
        << u"01011960"_s << u"10"_s << u"Le norme note cominciano dal 06/11/1969"_s;
    QTest::newRow("anno 100") << u"01010100"_s << u"10"_s << u"Le norme note cominciano"_s;
    QTest::newRow("oltre l'ultimo giorno") << u"30129999"_s << u"10"_s << u"31/12/9999"_s;
}

void TestNormeTermini::avvisiDelleNorme()
{
    QFETCH(QString, Data);
    QFETCH(QString, Numero);
    QFETCH(QString, Errore);
    Scegli(F, "cmbNorme", InVigore);
    B->Voce.Tollera();
    Calcola(Data, Numero);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().contains(Errore), qPrintable(B->Voce.UltimoTesto()));
    QCOMPARE(Risultato(F), QString());
}

void TestNormeTermini::etaDelleNorme_data()
{
    QTest::addColumn<QDate>("Oggi");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("fresche") << QDate(2026, 11, 22) << u"Norme note fino al 21/11/2026."_s;
    QTest::newRow("vecchie")
        << QDate(2027, 6, 1)
        << u"Norme note fino al 21/11/2026. Leggi più recenti possono averle cambiate."_s;
    QTest::newRow("stantie") << QDate(2028, 6, 1)
                             << u"Dati da aggiornare. Norme note fino al 21/11/2026. Leggi più recenti "
                                "possono averle cambiate."_s;
}

void TestNormeTermini::etaDelleNorme()
{
    QFETCH(QDate, Oggi);
    QFETCH(QString, Testo);
    const auto* Eta = Controllo<QLabel>(F, "lblEta");
    QVERIFY(Eta->isHidden());
    InstallaOrologio([Oggi] { return QDateTime(Oggi, QTime(10, 0)); });
    Scegli(F, "cmbNorme", InVigore);
    QVERIFY(Eta->isVisible());
    QCOMPARE(Eta->text(), Testo);
    const QColor Colore = Eta->palette().color(Eta->foregroundRole());
    QCOMPARE(Colore == QApplication::palette().color(QPalette::WindowText), !Testo.contains(u"possono"));
}

void TestNormeTermini::sequenzialiInVigore()
{
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    auto* Catene = Controllo<QComboBox>(Seq, "cmbArticolo");
    QCOMPARE(Catene->count(), 2);
    Scegli(Seq, "cmbNorme", InVigore);
    QVERIFY(Catene->count() > 10);
    ScegliConFrecce(Catene, Catene->findText(u"189"_s, Qt::MatchContains));
    QCOMPARE(TestoDi(Seq, "lblEvento"), u"(udienza di rimessione)"_s);
    Scrivi(Seq, "mskDecorr", u"15012027"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    const QStringList Righe = Risultato(Seq).split(u'\n');
    QCOMPARE(Righe.size(), 3);
    QVERIFY2(Righe[0].contains(u"16 Novembre 2026"), qPrintable(Righe[0]));
    QVERIFY2(Righe[1].contains(u"16 Dicembre 2026"), qPrintable(Righe[1]));
    QVERIFY2(Righe[2].contains(u"31 Dicembre 2026"), qPrintable(Righe[2]));
    Clic(Controllo(Seq, "cmdStrada"));
    QVERIFY(Aperta<frmStrada>(Seq));
    Seq->activateWindow();
    QVERIFY(MostraAttiva(*Seq));
    Scegli(Seq, "cmbNorme", DelProgramma);
    QCOMPARE(Catene->count(), 2);
    QCOMPARE(TestoDi(Seq, "lblEvento"), QString());
    QCOMPARE(Risultato(Seq), QString());
    Respiro();
    QVERIFY(!Aperta<frmStrada>(Seq));
}

void TestNormeTermini::sequenzialiDelProgramma()
{
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    Scrivi(Seq, "mskDecorr", u"14032012"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    QCOMPARE(Risultato(Seq), u"\n"
                             "  1° termine (30 giorni):  Venerdì,  13 Aprile  2012\n\n"
                             "  2° termine (30 giorni):  Lunedì,  14 Maggio  2012 (Posticipato)\n\n"
                             "  3° termine (20 giorni):  Lunedì,  4 Giugno  2012 (Posticipato)"_s);
    Clic(Controllo(Seq, "cmdAgenda"));
    auto* Voci = Aperta<frmAgenda>(Seq);
    QVERIFY(Voci);
    Clic(Controllo(Voci, "cmdCopia"));
    QCOMPARE(Appunti(), u"venerdì 13/04/2012: 1° termine (art. 183 c.p.c.)\n"
                        "lunedì 14/05/2012: 2° termine (art. 183 c.p.c.)\n"
                        "lunedì 04/06/2012: 3° termine (art. 183 c.p.c.)"_s);
}

void TestNormeTermini::sequenzialiStampa()
{
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    Scegli(Seq, "cmbNorme", InVigore);
    B->Voce.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    DalMenu(Seq, "mnuPrint");
    Scrivi(Seq, "mskDecorr", u"15012027"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    DalMenu(Seq, "mnuPrint");
    QVERIFY2(Stampato().contains(u"Norme: in vigore"_s), qPrintable(Stampato().join(u'|')));
    // The first chain runs from a notification: no hearing is spoken of.
    QVERIFY2(Stampato().contains(u"Notificazione della citazione: 15/01/2027"_s),
             qPrintable(Stampato().join(u'|')));
    QVERIFY(Controllo<CalendarioMensile>(Seq, "Calendario")
                ->Descrizione(QDate(2027, 1, 15))
                .contains(u"notificazione della citazione"));
}

// The sheet has the whole date, and the day that decides which rite counts; the road prints the same one.
void TestNormeTermini::sequenzialiScheda()
{
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    Scrivi(Seq, "mskDecorr", u"120320"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    DalMenu(Seq, "mnuScheda");
    QVERIFY2(Stampato().contains(u"Udienza: 12/03/2020"_s), qPrintable(Stampato().join(u'|')));
    QVERIFY(!Stampato().join(u'|').contains(u"Causa iniziata"));
    Scegli(Seq, "cmbNorme", InVigore);
    auto* Catene = Controllo<QComboBox>(Seq, "cmbArticolo");
    ScegliConFrecce(Catene, Catene->findText(u"art. 183"_s, Qt::MatchContains));
    Scrivi(Seq, "mskInizio", u"10012020"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    DalMenu(Seq, "mnuPrint");
    const QStringList Foglio = Stampato();
    QVERIFY2(Foglio.contains(u"Causa iniziata il: 10/01/2020"_s), qPrintable(Foglio.join(u'|')));
    delete SeCaricato<frmPrint>.data();
    Seq->activateWindow();
    QVERIFY(MostraAttiva(*Seq));
    Clic(Controllo(Seq, "cmdStrada"));
    auto* Passi = Aperta<frmStrada>(Seq);
    QVERIFY(Passi);
    Clic(Controllo(Passi, "cmdStampa"));
    QCOMPARE(Stampato(), Foglio);
    QCOMPARE(Foglio.first(), u"CALCOLO TERMINI SEQUENZIALI"_s);
    QVERIFY(SeCaricato<frmPrint>->windowTitle().endsWith(u": calcolo termini sequenziali"));
}

// Each link of a chain in force says itself what counts for it.
void TestNormeTermini::sequenzialiOpzioniARiposo()
{
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    Scegli(Seq, "cmbNorme", InVigore);
    Scrivi(Seq, "mskDecorr", u"15012027"_s);
    QVERIFY(!Controllo(Seq, "chkSosp")->isEnabled());
    QVERIFY(!Controllo(Seq, "chkSabato")->isEnabled());
    QVERIFY(Controllo(Seq, "cmbMateria")->isVisible());
    Scegli(Seq, "cmbNorme", DelProgramma);
    QVERIFY(Controllo(Seq, "chkSosp")->isEnabled());
    QVERIFY(Controllo(Seq, "chkSabato")->isEnabled());
    QVERIFY(!Controllo(Seq, "cmbMateria")->isVisible());
}

void TestNormeTermini::tastiRapidi()
{
    Calcola(u"20072026"_s, u"30"_s);
    F->activateWindow();
    Controllo(F, "mskDecorr")->setFocus();
    Premi(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(Aperta<frmStrada>(F));
    Chiudi(Aperta<frmStrada>(F));
    F->activateWindow();
    QVERIFY(MostraAttiva(*F));
    Controllo(F, "mskDecorr")->setFocus();
    Premi(Qt::Key_G, Qt::ControlModifier);
    QVERIFY(Aperta<frmAgenda>(F));
}

void TestNormeTermini::stampaInVigore()
{
    Scegli(F, "cmbNorme", InVigore);
    B->Voce.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    DalMenu(F, "mnuStampa");
    Controllo<QCheckBox>(F, "chkSabato")->click();
    Calcola(u"20072026"_s, u"30"_s);
    DalMenu(F, "mnuStampa");
    const QStringList Foglio = Stampato();
    for (const QString& Riga :
         {u"Data decorrenza: 20/07/2026"_s, u"Incremento: 30 giorni"_s, u"Sospensione feriale: Sì"_s,
          u"Termine libero: No"_s, u"Proroga del sabato: Sì"_s, u"Norme: in vigore"_s,
          u"Scadenza: Lunedì, 21 Settembre 2026 (Posticipata)"_s})
        QVERIFY2(Foglio.contains(Riga), qPrintable(Riga + u" in "_s + Foglio.join(u'|')));
}

void TestNormeTermini::ordineDelTabulatore()
{
    Scegli(F, "cmbNorme", InVigore);
    Calcola(u"20072026"_s, u"30"_s);
    QCOMPARE(OrdineTab(Controllo(F, "mskDecorr"), 18),
             (QStringList{u"mskDecorr"_s, u"txtIncrNum"_s, u"cmbIncrTipo"_s, u"chkSosp"_s, u"cmbMateria"_s,
                          u"chkLibero"_s, u"chkSabato"_s, u"optTipoScad_0"_s, u"cmdEsegui"_s,
                          u"cmdRicorrenti"_s, u"cmdCalend_0"_s, u"cmdCalend_1"_s, u"cmdCopia"_s,
                          u"cmdStrada"_s, u"cmdAgenda"_s, u"mese"_s, u"cmdAvvertenze"_s, u"cmbNorme"_s}));
    Clic(Controllo(F, "cmdRicorrenti"));
    auto* Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(Catalogo && MostraAttiva(*Catalogo));
    QCOMPARE(OrdineTab(Controllo(Catalogo, "txtCerca"), 4).last(), u"cmdChiudi"_s);
}

void TestNormeTermini::ogniControlloHaUnNome_data()
{
    QTest::addColumn<int>("Quale");
    QTest::newRow("termini") << 0;
    QTest::newRow("catalogo") << 1;
    QTest::newRow("strada") << 2;
    QTest::newRow("agenda") << 3;
    QTest::newRow("sequenziali") << 4;
}

void TestNormeTermini::ogniControlloHaUnNome()
{
    QFETCH(int, Quale);
    Scegli(F, "cmbNorme", InVigore);
    Calcola(u"20072026"_s, u"30"_s);
    const QWidget* Finestra = F;
    if (Quale == 1) {
        Clic(Controllo(F, "cmdRicorrenti"));
        Finestra = Aperta<frmRicorrenti>(F);
    } else if (Quale == 2)
        Finestra = Strada();
    else if (Quale == 3)
        Finestra = Agenda();
    else if (Quale == 4) {
        QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
        Scegli(Seq, "cmbNorme", InVigore);
        Finestra = Seq;
    }
    QVERIFY(Finestra);
    QCOMPARE(SenzaNome(Finestra).join(u' '), QString());
}

#include "TestNormeTermini.moc"
