// The catalogue of recurring terms and its chains in the calculator of terms.
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

class TestNormeCatalogo : public QObject, private ConTermini
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sparecchia(); }
    void catalogo_data();
    void catalogo();
    void unTermineRiempieLaFinestra();
    void unTermineConLaDataSiCalcola();
    void leNormeCambiateDietroAUnTermine();
    void causaIniziataPrima();
    void causaIniziataNellaCatena();
    void descrizioniDelCatalogo();
    void unTermineFuoriVigenza();
    void cambiareIlContoLasciaIlTermine();
    void scelteControIlTermine_data();
    void scelteControIlTermine();
    void unaCatenaMostraTutto();
    void unaCatenaDelProgramma();
    void lasciareLaCatena();
    void nuovoCalcoloLasciaIlTermine();
    void unaRegolaNonSiUsa();
    void catalogoDaTastiera();
    void letteresullElencoCercano();
};
PROVA(TestNormeCatalogo);

void TestNormeCatalogo::catalogo_data()
{
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<QString>("Primo");
    QTest::addColumn<bool>("Usabile");
    QTest::newRow("un articolo") << u"641"_s << u"Opposizione a decreto ingiuntivo"_s << true;
    QTest::newRow("parole in ogni ordine")
        << u"ingiuntivo opposizione"_s << u"Opposizione a decreto ingiuntivo"_s << true;
    QTest::newRow("lettere grandi e accenti")
        << u"INGIUNTIVO"_s << u"Opposizione a decreto ingiuntivo"_s << true;
    QTest::newRow("una catena per un suo articolo")
        << u"171-ter"_s
        << u"Prima udienza: costituzione del convenuto, verifiche, memorie dell'art. "
           "171-ter c.p.c."_s
        << true;
    QTest::newRow("niente") << u"zzz"_s << QString() << false;
}

void TestNormeCatalogo::catalogo()
{
    QFETCH(QString, Cercato);
    QFETCH(QString, Primo);
    QFETCH(bool, Usabile);
    Clic(Controllo(F, "cmdRicorrenti"));
    auto* Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(Catalogo);
    auto* Elenco = Controllo<Griglia>(Catalogo, "tdbRicorrenti");
    const int Tutti = Elenco->Righe();
    QVERIFY(Tutti > 80);
    Scrivi(Catalogo, "txtCerca", Cercato);
    QVERIFY(Elenco->Righe() < Tutti);
    const auto* Modello = Elenco->Vista()->model();
    QCOMPARE(Elenco->Righe() > 0 ? Modello->index(0, 0).data().toString() : QString(), Primo);
    QCOMPARE(Controllo(Catalogo, "cmdScegli")->isEnabled(), Usabile);
    QCOMPARE(TestoDi(Catalogo, "lblDettaglio").isEmpty(), Primo.isEmpty());
    Scrivi(Catalogo, "txtCerca", {});
    QCOMPARE(Elenco->Righe(), Tutti);
}

void TestNormeCatalogo::unTermineRiempieLaFinestra()
{
    Prendi(u"171-ter n. 1"_s);
    Clic(Controllo(F, "cmdLascia"));
    Prendi(u"CPC-163BIS-IT"_s);
    Clic(Controllo(F, "cmdLascia"));
    Prendi(u"CPC-378-PM"_s);
    QCOMPARE(TestoDi(F, "txtIncrNum"), u"20"_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbIncrTipo")->currentText(), u"Giorni"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optTipoScad_1")->isChecked());
    QVERIFY(Controllo<QCheckBox>(F, "chkSosp")->isChecked());
    QVERIFY(!Controllo<QCheckBox>(F, "chkLibero")->isChecked());
    QVERIFY(TestoDi(F, "lblTermine").contains(u"art. 378 c.p.c."));
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "mskDecorr"));
    QCOMPARE(Risultato(F), QString());
    // Months, and no suspension.
    Prendi(u"CPC-327 lungo"_s);
    QCOMPARE(TestoDi(F, "txtIncrNum"), u"6"_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbIncrTipo")->currentText(), u"Mesi"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optTipoScad_0")->isChecked());
    Prendi(u"CPC-617"_s);
    QVERIFY(!Controllo<QCheckBox>(F, "chkSosp")->isChecked());
    Prendi(u"CPA-73-R"_s);
    QVERIFY(Controllo<QCheckBox>(F, "chkLibero")->isChecked());
}

void TestNormeCatalogo::unTermineConLaDataSiCalcola()
{
    Scrivi(F, "mskDecorr", u"20072026"_s);
    Scegli(F, "cmbNorme", InVigore);
    Prendi(u"CPC-325-A"_s);
    // 19 September 2026 is a Saturday, which moves acts outside hearings.
    QCOMPARE(Risultato(F), u"La scadenza è Lunedì,  21 Settembre  2026\n(Posticipata)"_s);
    QVERIFY(Controllo<QCheckBox>(F, "chkSabato")->isChecked());
    auto* Passi = Strada();
    QVERIFY(Passi);
    QVERIFY(TestoDi(Passi, "lblTermine").contains(u"Appello (art. 325 c.p.c.)"));
}

// The Saturday that the program's own rules have put aside comes back with those in force, and goes again.
void TestNormeCatalogo::leNormeCambiateDietroAUnTermine()
{
    Prendi(u"CPC-166"_s);
    Scrivi(F, "mskDecorr", u"15092026"_s);
    QVERIFY(!Controllo<QCheckBox>(F, "chkSabato")->isChecked());
    Scegli(F, "cmbNorme", InVigore);
    QVERIFY(Controllo<QCheckBox>(F, "chkSabato")->isChecked());
    Clic(Controllo(F, "cmdEsegui"));
    QCOMPARE(Risultato(F), u"La scadenza è Venerdì,  5 Giugno  2026\n(Anticipata)"_s);
    Scegli(F, "cmbNorme", DelProgramma);
    QVERIFY(!Controllo<QCheckBox>(F, "chkSabato")->isChecked());
    Clic(Controllo(F, "cmdEsegui"));
    QVERIFY(!Risultato(F).isEmpty());
}

// The rite goes by the day on which the case began: without it the result says so.
void TestNormeCatalogo::causaIniziataPrima()
{
    QVERIFY(Controllo(F, "mskInizio")->isHidden());
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", u"20062025"_s);
    Prendi(u"CPC-166"_s);
    QVERIFY(Controllo(F, "mskInizio")->isVisible());
    QVERIFY2(Avviso(F).contains(u"procedimenti cominciati dal 28/02/2023"), qPrintable(Avviso(F)));
    Scrivi(F, "mskInizio", u"01032023"_s);
    QCOMPARE(Risultato(F), QString());
    Clic(Controllo(F, "cmdEsegui"));
    QVERIFY(!Risultato(F).isEmpty());
    QVERIFY(!Avviso(F).contains(u"procedimenti cominciati"));
    // A case of 2021 keeps the former rite.
    B->Voce.Tollera();
    Scrivi(F, "mskInizio", u"01022021"_s);
    Clic(Controllo(F, "cmdEsegui"));
    QCOMPARE(Risultato(F), QString());
    QVERIFY2(B->Voce.UltimoTesto().contains(u"01/02/2021"), qPrintable(B->Voce.UltimoTesto()));
    Respiro();
    Scrivi(F, "mskInizio", u"31022021"_s);
    Clic(Controllo(F, "cmdEsegui"));
    QVERIFY2(B->Voce.UltimoTesto().contains(u"non è una data valida"), qPrintable(B->Voce.UltimoTesto()));
    Respiro();
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "mskInizio"));
    // The program's own rules, and terms of every case, do not ask.
    Respiro();
    Scegli(F, "cmbNorme", DelProgramma);
    QVERIFY(Controllo(F, "mskInizio")->isHidden());
    Scegli(F, "cmbNorme", InVigore);
    Prendi(u"CPC-325-A"_s);
    QVERIFY(Controllo(F, "mskInizio")->isHidden());
    QVERIFY(!Risultato(F).isEmpty());
}

void TestNormeCatalogo::causaIniziataNellaCatena()
{
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    Scegli(Seq, "cmbNorme", InVigore);
    auto* Catene = Controllo<QComboBox>(Seq, "cmbArticolo");
    ScegliConFrecce(Catene, Catene->findText(u"189"_s, Qt::MatchContains));
    QVERIFY(Controllo(Seq, "mskInizio")->isVisible());
    Scrivi(Seq, "mskDecorr", u"15012026"_s);
    Scrivi(Seq, "mskInizio", u"01032023"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    QCOMPARE(Risultato(Seq).split(u'\n').size(), 3);
    B->Voce.Tollera();
    Scrivi(Seq, "mskInizio", u"01022021"_s);
    Clic(Controllo(Seq, "cmdEsegui"));
    QCOMPARE(Risultato(Seq), QString());
    QVERIFY(!B->Voce.Mostrati().isEmpty());
}

void TestNormeCatalogo::descrizioniDelCatalogo()
{
    Clic(Controllo(F, "cmdRicorrenti"));
    auto* Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(Catalogo);
    auto* Elenco = Controllo<Griglia>(Catalogo, "tdbRicorrenti");
    for (int Riga = 0; Riga < Elenco->Righe(); ++Riga) {
        Elenco->ImpostaRigaCorrente(Riga);
        const QString Testo = TestoDi(Catalogo, "lblDettaglio");
        QVERIFY2(!Testo.isEmpty() && !Testo.contains(u".."), qPrintable(Testo));
        if (!Controllo(Catalogo, "cmdScegli")->isEnabled())
            QVERIFY2(!Testo.contains(u"criterio non riscontrato"), qPrintable(Testo));
    }
    Scrivi(Catalogo, "txtCerca", u"CPC-378-PM"_s);
    QVERIFY(TestoDi(Catalogo, "lblDettaglio").endsWith(u'.'));
}

void TestNormeCatalogo::unTermineFuoriVigenza()
{
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", u"20012020"_s);
    B->Voce.Tollera();
    Prendi(u"CPC-370"_s);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().contains(u"01/01/2023"), qPrintable(B->Voce.UltimoTesto()));
    QCOMPARE(Risultato(F), QString());
}

void TestNormeCatalogo::cambiareIlContoLasciaIlTermine()
{
    Prendi(u"CPC-325-A"_s);
    QVERIFY(Controllo(F, "lblTermine")->isVisible());
    Scrivi(F, "mskDecorr", u"10022026"_s);
    QVERIFY(Controllo(F, "lblTermine")->isVisible());
    Controllo<QCheckBox>(F, "chkSosp")->click();
    QVERIFY(Controllo(F, "lblTermine")->isVisible());
    Scrivi(F, "txtIncrNum", u"31"_s);
    QVERIFY(!Controllo(F, "lblTermine")->isVisible());
    QVERIFY(!Controllo(F, "cmdLascia")->isVisible());
}

void TestNormeCatalogo::scelteControIlTermine_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QString>("Giorno");
    QTest::addColumn<QByteArray>("Casella");  // clicked; empty: the row as it comes
    QTest::addColumn<QString>("Scadenza");
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<QString>("Perche");  // the road's words on the suspension
    QTest::addColumn<bool>("Dubbio");

    const QByteArray Nessuna;
    const QByteArray Sospensione = "chkSosp";
    const QByteArray Sabato = "chkSabato";
    const QString Feriale = u"Sospensione feriale: "_s;
    const QString Sabati = u"Proroga del sabato: "_s;
    // A matter spares the row, and the defence has renounced that.
    QTest::newRow("materia") << u"CPP-309"_s << u"25072026"_s << Nessuna << u"4 Agosto  2026"_s
                             << Feriale + u"No"_s << u"L. 742/1969, art. 2"_s << false;
    QTest::newRow("materia, contata") << u"CPP-309"_s << u"25072026"_s << Sospensione
                                      << u"4 Settembre  2026"_s << Feriale + u"Sì"_s << QString() << false;
    QTest::newRow("lavoro, contata") << u"CPC-434-IT"_s << u"20072026"_s << Sospensione
                                     << u"21 Settembre  2026"_s << Feriale + u"Sì"_s << QString() << false;
    // No source speaks of this Saturday.
    QTest::newRow("sabato taciuto") << u"CPA-73-D"_s << u"19062026"_s << Nessuna << u"8 Maggio  2026"_s
                                    << Sabati + u"Sì"_s << QString() << true;
    QTest::newRow("sabato taciuto, tolto") << u"CPA-73-D"_s << u"19062026"_s << Sabato << u"9 Maggio  2026"_s
                                           << Sabati + u"No"_s << QString() << false;
    QTest::newRow("sabato taciuto in avanti") << u"CPP-461"_s << u"20032026"_s << Nessuna
                                              << u"4 Aprile  2026"_s << Sabati + u"No"_s << QString() << true;
    QTest::newRow("sabato taciuto in avanti, messo")
        << u"CPP-461"_s << u"20032026"_s << Sabato << u"7 Aprile  2026"_s << Sabati + u"Sì"_s << QString()
        << false;
    QTest::newRow("sospensione taciuta") << u"CPP-324"_s << u"25072026"_s << Nessuna << u"4 Agosto  2026"_s
                                         << Feriale + u"No"_s << u"criterio non riscontrato"_s << true;
    QTest::newRow("sospensione taciuta, contata")
        << u"CPP-324"_s << u"25072026"_s << Sospensione << u"4 Settembre  2026"_s << Feriale + u"Sì"_s
        << QString() << false;
    QTest::newRow("sabato detto, tolto") << u"CPC-325-A"_s << u"20072026"_s << Sabato
                                         << u"19 Settembre  2026"_s << Sabati + u"No"_s << QString() << false;
    QTest::newRow("sospeso, tolto") << u"CPC-325-A"_s << u"20072026"_s << Sospensione << u"19 Agosto  2026"_s
                                    << Feriale + u"No"_s << u"per scelta"_s << false;
}

// The boxes are what is counted, and what they leave as it is stays as sure as the row has it.
void TestNormeCatalogo::scelteControIlTermine()
{
    QFETCH(QString, Codice);
    QFETCH(QString, Giorno);
    QFETCH(QByteArray, Casella);
    QFETCH(QString, Scadenza);
    QFETCH(QString, Scritto);
    QFETCH(QString, Perche);
    QFETCH(bool, Dubbio);
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", Giorno);
    Prendi(Codice);
    if (!Casella.isEmpty()) {
        Controllo<QCheckBox>(F, Casella.constData())->click();
        Clic(Controllo(F, "cmdEsegui"));
    }
    QVERIFY2(Risultato(F).contains(u' ' + Scadenza), qPrintable(Risultato(F)));
    QCOMPARE(Avviso(F).contains(NotaNonRiscontrato), Dubbio);
    DalMenu(F, "mnuScheda");
    const QStringList Foglio = Stampato();
    QVERIFY2(Foglio.contains(Scritto), qPrintable(Foglio.join(u'\n')));
    Clic(Controllo(Strada(), "cmdCopia"));
    const QStringList Senza = Appunti().split(u'\n').filter(u"Senza sospensione feriale"_s);
    QCOMPARE(Senza.isEmpty(), Perche.isEmpty());
    if (!Perche.isEmpty())
        QVERIFY2(Senza.first().contains(Perche), qPrintable(Senza.first()));
}

void TestNormeCatalogo::unaCatenaMostraTutto()
{
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", u"15012027"_s);
    Prendi(u"CPC-171TER memorie prima udienza"_s);
    const QStringList Righe = Risultato(F).split(u'\n');
    QCOMPARE(Righe.size(), 5);
    // 70 days back from 15 January 2027; the judge's check runs from there.
    QVERIFY2(Righe[0].contains(u"art. 166") && Righe[0].contains(u"ven 06/11/2026"), qPrintable(Righe[0]));
    QVERIFY2(Righe[1].contains(u"art. 171-bis") && Righe[1].contains(u"lun 23/11/2026"),
             qPrintable(Righe[1]));
    // 6 December is a Sunday, the day before a Saturday.
    QVERIFY2(Righe[2].startsWith(u"ven 04/12/2026: ") && Righe[2].endsWith(u"(Anticipata)"),
             qPrintable(Righe[2]));
    QVERIFY2(Righe[4].contains(u"mar 05/01/2027"), qPrintable(Righe[4]));
    for (const char* Nome :
         {"txtIncrNum", "cmbIncrTipo", "chkSosp", "chkLibero", "chkSabato", "optTipoScad_0"})
        QVERIFY2(!Controllo(F, Nome)->isEnabled(), Nome);
    const auto* Calendario = Controllo<CalendarioMensile>(F, "Calendario");
    QVERIFY(Calendario->Aspetto(QDate(2026, 11, 6)).Scadenza);
    QVERIFY(Calendario->Aspetto(QDate(2027, 1, 5)).Scadenza);
    QVERIFY(Calendario->Aspetto(QDate(2027, 1, 15)).Inizio);
    Clic(Controllo(F, "cmdCopia"));
    QCOMPARE(Appunti().split(u'\n').size(), 5);
    // The window grows with its lines.
    QVERIFY(!F->findChild<QScrollArea*>(u"areaScorrevole"_s)->verticalScrollBar()->isVisible());
}

void TestNormeCatalogo::unaCatenaDelProgramma()
{
    Scrivi(F, "mskDecorr", u"20072026"_s);
    Prendi(u"CPC-183"_s);
    // The same links as the window of sequential terms, whose rules are the program's own.
    const QStringList Righe = Risultato(F).split(u'\n');
    QCOMPARE(Righe.size(), 3);
    QPointer<frmTerminiSeq> Seq = Apri<frmTerminiSeq>();
    Scrivi(Seq, "mskDecorr", u"20072026"_s);
    for (const char* Nome : {"chkSosp", "chkSabato"})
        Controllo<QCheckBox>(Seq, Nome)->setChecked(true);
    Clic(Controllo(Seq, "cmdEsegui"));
    const QStringList Sue = Risultato(Seq).split(u"\n\n"_s);
    QCOMPARE(Sue.size(), 3);
    for (int i = 0; i < 3; ++i) {
        // "Lunedì, 5 Ottobre 2026" and "lun 05/10/2026".
        const QString Lunga = Sue[i].section(u"):"_s, 1).section(u'(', 0, 0).simplified();
        const QDate Breve = QDate::fromString(Righe[i].mid(4, 10), u"dd/MM/yyyy"_s);
        QVERIFY2(Breve.isValid(), qPrintable(Righe[i]));
        QCOMPARE(Lunga, DataLunga(Breve).simplified());
    }
    QVERIFY(!Avviso(F).isEmpty());
}

void TestNormeCatalogo::lasciareLaCatena()
{
    Prendi(u"CPC-183"_s);
    QVERIFY(!Controllo(F, "txtIncrNum")->isEnabled());
    Clic(Controllo(F, "cmdLascia"));
    for (const char* Nome : {"txtIncrNum", "cmbIncrTipo", "chkSosp", "chkLibero", "optTipoScad_0"})
        QVERIFY2(Controllo(F, Nome)->isEnabled(), Nome);
    QVERIFY(!Controllo(F, "lblTermine")->isVisible());
    Calcola(u"20072026"_s, u"30"_s);
    QVERIFY(Risultato(F).contains(u"5 Ottobre"));
}

void TestNormeCatalogo::nuovoCalcoloLasciaIlTermine()
{
    Prendi(u"CPC-183"_s);
    DalMenu(F, "mnuNew");
    QVERIFY(Controllo(F, "txtIncrNum")->isEnabled());
    QVERIFY(!Controllo(F, "lblTermine")->isVisible());
    QVERIFY(!Controllo(F, "chkSabato")->isEnabled());
}

void TestNormeCatalogo::unaRegolaNonSiUsa()
{
    Clic(Controllo(F, "cmdRicorrenti"));
    auto* Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(Catalogo);
    Scrivi(Catalogo, "txtCerca", u"GEN-04"_s);
    QVERIFY(!Controllo(Catalogo, "cmdScegli")->isEnabled());
    QVERIFY(!TestoDi(Catalogo, "lblDettaglio").isEmpty());
    Premi(Qt::Key_Return);
    QVERIFY(Catalogo->isVisible());
    QCOMPARE(TestoDi(F, "txtIncrNum"), QString());
}

void TestNormeCatalogo::catalogoDaTastiera()
{
    Controllo(F, "mskDecorr")->setFocus();
    Premi(Qt::Key_T, Qt::ControlModifier);
    QPointer<frmRicorrenti> Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(Catalogo);
    QVERIFY(MostraAttiva(*Catalogo));
    QCOMPARE(QApplication::focusWidget(), Controllo(Catalogo, "txtCerca"));
    Digita(u"325 appello"_s);
    Premi(Qt::Key_Down);
    QVERIFY(Controllo(Catalogo, "tdbRicorrenti")->isAncestorOf(QApplication::focusWidget()));
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(!Catalogo || !Catalogo->isVisible());
    QCOMPARE(TestoDi(F, "txtIncrNum"), u"30"_s);
    Clic(Controllo(F, "cmdRicorrenti"));
    Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(MostraAttiva(*Catalogo));
    Premi(Qt::Key_Escape);
    Respiro();
    QVERIFY(!Catalogo || !Catalogo->isVisible());
    QCOMPARE(TestoDi(F, "txtIncrNum"), u"30"_s);
}

void TestNormeCatalogo::letteresullElencoCercano()
{
    Clic(Controllo(F, "cmdRicorrenti"));
    auto* Catalogo = Aperta<frmRicorrenti>(F);
    QVERIFY(Catalogo && MostraAttiva(*Catalogo));
    Controllo<Griglia>(Catalogo, "tdbRicorrenti")->setFocus();
    Digita(u"cass"_s);
    QTRY_COMPARE(TestoDi(Catalogo, "txtCerca"), u"cass"_s);
}

#include "TestNormeCatalogo.moc"
