// The form of the sequential terms, used with keys and mouse.
#include "calculators/windows/frmTerminiSeq.h"

#include "bancotermini.h"

#include "platform/base/numerierrore.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString VuotaUdienza = u"Non è stata specificata la Data udienza!"_s;
const QString CattivaUdienza = u"La Data udienza indicata non è valida!"_s;

// A hearing of 14/03/2012: the first link is clear of everything, the others end on Sundays.
const QString Memorie2012 = u"\n"
                            "  1° termine (30 giorni):  Venerdì,  13 Aprile  2012\n\n"
                            "  2° termine (30 giorni):  Lunedì,  14 Maggio  2012 (Posticipato)\n\n"
                            "  3° termine (20 giorni):  Lunedì,  4 Giugno  2012 (Posticipato)"_s;

}  // namespace

class TestFrmTerminiSeq : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void didascalie();
    void comincia();
    void anelli_data();
    void anelli();
    void ricalcolareRidaLoStesso();
    void invioPassaEAllaFineCalcola();
    void invioDaSospensioneSenzaSabato();
    void rifiuti_data();
    void rifiuti();
    void annoDiDueCifre();
    void annoDiDueCifreLasciandoLaData();
    void settembreDal2015();
    void fuoriDalCalendario();
    void sabato();
    void ogniCambioPulisce_data();
    void ogniCambioPulisce();
    void nuovo();
    void copie();
    void calendarioSiMostraESiNasconde();
    void calendarioScriveESiNasconde();
    void calendarioVaViaConIlFuoco_data();
    void calendarioVaViaConIlFuoco();
    void calendarioSegna();
    void attivarlaNonFaNulla();
    void chiuderePerdeTutto();
    void avvertenze();
    void stampaSenzaRisultato();
    void stampa();
    void ricordaIlPosto();
    void ordineDelTabulatore();
    void ogniControlloHaUnNome();
    void ilCalendarioNonAllarga();
    void sulPiccoloSchermo();

private:
    void Compila(const QString& Data) { B->Scrivi(u"mskDecorr"_s, Data); }
    [[nodiscard]] bool SullaData() const { return QApplication::focusWidget() == B->Data(); }

    std::unique_ptr<BancoTermini<frmTerminiSeq>> B;
};
PROVA(TestFrmTerminiSeq);

void TestFrmTerminiSeq::init()
{
    B = std::make_unique<BancoTermini<frmTerminiSeq>>();
    QVERIFY(B->Attiva);
}

void TestFrmTerminiSeq::cleanup()
{
    B.reset();
}

void TestFrmTerminiSeq::didascalie()
{
    QCOMPARE(B->F->windowTitle(), u"Calcolo dei termini sequenziali"_s);
    QStringList Testi;
    for (const QLabel* Una : B->F->findChildren<QLabel*>())
        Testi << QString(Una->text()).remove(u'&');
    for (const QString& Testo :
         {u"Articolo:"_s, u"Data udienza:"_s, u"Sospensione feriale:"_s, u"Proroga del sabato:"_s})
        QVERIFY2(Testi.contains(Testo), qPrintable(Testo));
    QCOMPARE(B->Uno<QAbstractButton>(u"cmdEsegui"_s)->text().remove(u'&'), u"Calcola"_s);
    QCOMPARE(B->Uno(u"cmdEsegui"_s)->toolTip(), u"Calcola termini"_s);
    QCOMPARE(B->Uno<QAction>(u"mnuNew"_s)->text(), u"Nuovo calcolo"_s);
    QCOMPARE(B->Uno<QAction>(u"mnuPrint"_s)->text(), u"Stampa"_s);
    const auto* Articolo = B->Uno<QComboBox>(u"cmbArticolo"_s);
    QCOMPARE(Articolo->count(), 2);
    QCOMPARE(Articolo->itemText(0), u"Art. 183, 6° co. cpc (deposito memorie)"_s);
    QCOMPARE(Articolo->itemText(1), u"Art. 190 cpc (deposito conclusionale e repliche)"_s);
}

void TestFrmTerminiSeq::comincia()
{
    QCOMPARE(B->Data()->Testo(), u"__/__/____"_s);
    QCOMPARE(B->Uno<QComboBox>(u"cmbArticolo"_s)->currentIndex(), 0);
    QVERIFY(!B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
    QVERIFY(!B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
    QVERIFY(B->Uno(u"chkSabato"_s)->isEnabled());
    QVERIFY(!B->Calendario()->isVisible());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 7, 18));
    QCOMPARE(B->Risultato(), QString());
    QVERIFY(!B->Uno(u"cmdCalend_1"_s));
}

void TestFrmTerminiSeq::anelli_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<int>("Articolo");
    QTest::addColumn<bool>("Sosp");
    QTest::addColumn<QString>("Risultato");
    QTest::newRow("la nota di un anello non passa al seguente") << u"14032012"_s << 0 << false << Memorie2012;
    QTest::newRow("il primo anello entra nella sospensione, tutti oltre il 15/09")
        << u"10072012"_s << 0 << true
        << u"\n"
           "  1° termine (30 giorni):  Lunedì,  24 Settembre  2012 (Posticipato)\n\n"
           "  2° termine (30 giorni):  Mercoledì,  24 Ottobre  2012\n\n"
           "  3° termine (20 giorni):  Martedì,  13 Novembre  2012"_s;
    QTest::newRow("il primo cade di domenica, il secondo si conta dal lunedì")
        << u"14112012"_s << 1 << false
        << u"\n"
           "  1° termine (60 giorni):  Lunedì,  14 Gennaio  2013 (Posticipato)\n\n"
           "  2° termine (20 giorni):  Lunedì,  4 Febbraio  2013 (Posticipato)"_s;
    QTest::newRow("conclusionali") << u"12112012"_s << 1 << false
                                   << u"\n"
                                      "  1° termine (60 giorni):  Venerdì,  11 Gennaio  2013\n\n"
                                      "  2° termine (20 giorni):  Giovedì,  31 Gennaio  2013"_s;
}

void TestFrmTerminiSeq::anelli()
{
    QFETCH(QString, Data);
    QFETCH(int, Articolo);
    QFETCH(bool, Sosp);
    Registratore Box;
    B->Scegli(u"cmbArticolo"_s, Articolo);
    B->Spunta(u"chkSosp"_s, Sosp);
    Compila(Data);
    B->Calcola();
    QTEST(B->Risultato(), "Risultato");
    QCOMPARE(B->Campane, 1);
    QVERIFY(SullaData());
}

void TestFrmTerminiSeq::ricalcolareRidaLoStesso()
{
    Registratore Box;
    Compila(u"14032012"_s);
    for (int i = 0; i < 3; ++i) {
        B->Calcola();
        QCOMPARE(B->Risultato(), Memorie2012);
    }
}

void TestFrmTerminiSeq::invioPassaEAllaFineCalcola()
{
    Registratore Box;
    B->Uno(u"cmbArticolo"_s)->setFocus();
    Premi(Qt::Key_Return);
    Digita(u"14032012"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget()->objectName(), u"chkSosp"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget()->objectName(), u"chkSabato"_s);
    QCOMPARE(B->Risultato(), QString());
    Premi(Qt::Key_Return);
    QCOMPARE(B->Risultato(), Memorie2012);
    QVERIFY(SullaData());
}

void TestFrmTerminiSeq::invioDaSospensioneSenzaSabato()
{
    Registratore Box;
    Compila(u"14032001"_s);
    B->Uno(u"chkSosp"_s)->setFocus();
    Premi(Qt::Key_Return);
    QVERIFY(B->Risultato().contains(u"13 Aprile  2001"_s));
}

void TestFrmTerminiSeq::rifiuti_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("vuota") << u""_s << VuotaUdienza;
    QTest::newRow("31 febbraio") << u"31022012"_s << CattivaUdienza;
    QTest::newRow("zeri") << u"00000000"_s << CattivaUdienza;
    QTest::newRow("anno 1") << u"01010001"_s << CattivaUdienza;
    QTest::newRow("a metà") << u"14"_s << CattivaUdienza;
}

void TestFrmTerminiSeq::rifiuti()
{
    QFETCH(QString, Data);
    QFETCH(QString, Messaggio);
    Registratore Box;
    Compila(Data);
    Box.Attendi(Messaggio, vbOK, u"Errore:"_s);
    B->Calcola();
    QTRY_VERIFY(SullaData());
    QCOMPARE(B->Risultato(), QString());
    QCOMPARE(B->Campane, 0);
    Compila(u"14032012"_s);
    B->Calcola();
    QCOMPARE(B->Risultato(), Memorie2012);
}

void TestFrmTerminiSeq::annoDiDueCifreLasciandoLaData()
{
    QWidget* Sabato = B->Uno(u"chkSabato"_s);
    B->Scrivi(u"mskDecorr"_s, u"010306"_s);
    QVERIFY(Sabato->isEnabled());
    B->Uno(u"cmbArticolo"_s)->setFocus();
    QVERIFY(!Sabato->isEnabled());
    QCOMPARE(B->Calendario()->Data(), QDate(2006, 3, 1));
    QCOMPARE(B->Data()->Testo(), u"01/03/06__"_s);
}

void TestFrmTerminiSeq::settembreDal2015()
{
    auto* Riga = B->Uno<QLabel>(u"lblSettembre"_s);
    Registratore Box;
    Compila(u"01072026"_s);
    B->Calcola();
    QVERIFY2(!Riga->isVisible(), "without suspension no day is left out");
    B->Spunta(u"chkSosp"_s, true);
    B->Calcola();
    QVERIFY(Riga->isVisible());
    QCOMPARE(Riga->text(), u"Dal 2015 la sospensione termina il 31 agosto: v. Avvertenze"_s);
    B->Voce(u"mnuPrint"_s);
    QCOMPARE(B->Stampato().last(), Riga->text());
    B->Voce(u"mnuNew"_s);
    QVERIFY(!Riga->isVisible());
}

void TestFrmTerminiSeq::annoDiDueCifre()
{
    Registratore Box;
    Compila(u"140312"_s);
    B->Calcola();
    QCOMPARE(B->Risultato(), Memorie2012);
    QCOMPARE(B->Data()->Testo(), u"14/03/12__"_s);
}

void TestFrmTerminiSeq::fuoriDalCalendario()
{
    Registratore Box;
    Compila(u"01129999"_s);
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(5) + u" (5)"_s, vbOK, u"Errore:"_s);
    B->Calcola();
    QTRY_VERIFY(SullaData());
    QCOMPARE(B->Risultato(), QString());
    QVERIFY(B->F->isVisible());
}

void TestFrmTerminiSeq::sabato()
{
    Registratore Box;
    const QWidget* Casella = B->Uno(u"chkSabato"_s);
    Compila(u"01032006"_s);
    QVERIFY(!Casella->isEnabled());
    Compila(u"02032006"_s);
    QVERIFY(Casella->isEnabled());
    Compila(u"140320"_s);
    QVERIFY(Casella->isEnabled());
    // 08/03/2012 and thirty days: 07/04/2012, a Saturday before Easter.
    Compila(u"08032012"_s);
    B->Spunta(u"chkSabato"_s, true);
    B->Calcola();
    QVERIFY(B->Risultato().contains(u"Martedì,  10 Aprile  2012 (Posticipato)"_s));
    B->Spunta(u"chkSabato"_s, false);
    B->Calcola();
    QVERIFY(B->Risultato().contains(u"Sabato,  7 Aprile  2012\n"_s));
}

void TestFrmTerminiSeq::ogniCambioPulisce_data()
{
    QTest::addColumn<std::function<void(BancoTermini<frmTerminiSeq>&)>>("Cambia");
    using Mano = std::function<void(BancoTermini<frmTerminiSeq>&)>;
    QTest::newRow("data") << Mano([](auto& S) {
        S.Data()->setFocus(Qt::TabFocusReason);
        Digita(u"2"_s);
    });
    QTest::newRow("articolo") << Mano([](auto& S) { S.Scegli(u"cmbArticolo"_s, 1); });
    QTest::newRow("sospensione") << Mano([](auto& S) { S.Spunta(u"chkSosp"_s, true); });
    QTest::newRow("sabato") << Mano([](auto& S) { S.Spunta(u"chkSabato"_s, true); });
    QTest::newRow("giorno dal calendario") << Mano([](auto& S) {
        S.Clic(u"cmdCalend"_s);
        S.ClicGiorno(QDate(2012, 4, 2));
    });
}

void TestFrmTerminiSeq::ogniCambioPulisce()
{
    QFETCH(std::function<void(BancoTermini<frmTerminiSeq>&)>, Cambia);
    Registratore Box;
    Compila(u"14032012"_s);
    B->Calcola();
    QVERIFY(!B->Risultato().isEmpty());
    Cambia(*B);
    QCOMPARE(B->Risultato(), QString());
    QVERIFY(!B->Uno(u"cmdCopia"_s)->isEnabled());
    QVERIFY(!B->Calendario()->Aspetto(QDate(2012, 4, 13)).Scadenza);
    // What is gone is not printed either.
    Box.Attendi(u"Non è stato effettuato alcun calcolo!"_s);
    B->Voce(u"mnuPrint"_s);
}

void TestFrmTerminiSeq::nuovo()
{
    Registratore Box;
    B->Scegli(u"cmbArticolo"_s, 1);
    Compila(u"14032012"_s);
    B->Spunta(u"chkSabato"_s, true);
    B->Calcola();
    B->Clic(u"cmdCalend"_s);
    B->Voce(u"mnuNew"_s);
    QCOMPARE(B->Data()->Testo(), u"__/__/____"_s);
    QCOMPARE(B->Uno<QComboBox>(u"cmbArticolo"_s)->currentIndex(), 0);
    QVERIFY(B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
    QVERIFY(!B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
    QVERIFY(!B->Calendario()->isVisible());
    QCOMPARE(B->Risultato(), QString());
    QVERIFY(SullaData());
    QCOMPARE(B->Campane, 2);
}

void TestFrmTerminiSeq::copie()
{
    Registratore Box;
    B->CtrlC();
    QCOMPARE(QApplication::clipboard()->text(), QString());
    Compila(u"14032012"_s);
    B->Calcola();
    const QString Atteso = u"1° termine (30 giorni): Venerdì, 13 Aprile 2012\n"
                           "2° termine (30 giorni): Lunedì, 14 Maggio 2012 (Posticipato)\n"
                           "3° termine (20 giorni): Lunedì, 4 Giugno 2012 (Posticipato)"_s;
    B->CtrlC();
    QCOMPARE(QApplication::clipboard()->text(), Atteso);
    QApplication::clipboard()->clear();
    B->Clic(u"cmdCopia"_s);
    QCOMPARE(QApplication::clipboard()->text(), Atteso);
}

void TestFrmTerminiSeq::calendarioSiMostraESiNasconde()
{
    B->Clic(u"cmdCalend"_s);
    QVERIFY(B->Calendario()->isVisible());
    QVERIFY(SullaData());
    B->Clic(u"cmdCalend"_s);
    QVERIFY(!B->Calendario()->isVisible());
    QCOMPARE(B->Data()->Testo(), u"__/__/____"_s);
}

void TestFrmTerminiSeq::calendarioScriveESiNasconde()
{
    B->Clic(u"cmdCalend"_s);
    B->ClicGiorno(QDate(2012, 7, 10));
    QCOMPARE(B->Data()->Testo(), u"10/07/2012"_s);
    QVERIFY(!B->Calendario()->isVisible());
    QVERIFY(SullaData());
    B->Clic(u"cmdCalend"_s);
    B->Calendario()->setFocus();
    Premi(Qt::Key_PageUp, Qt::ControlModifier);
    QVERIFY(B->Calendario()->isVisible());
    Premi(Qt::Key_Return);
    QCOMPARE(B->Data()->Testo(), u"10/07/2011"_s);
    QVERIFY(!B->Calendario()->isVisible());
}

void TestFrmTerminiSeq::calendarioVaViaConIlFuoco_data()
{
    QTest::addColumn<QString>("Controllo");
    QTest::addColumn<bool>("Resta");
    QTest::newRow("sospensione") << u"chkSosp"_s << false;
    QTest::newRow("articolo") << u"cmbArticolo"_s << false;
    QTest::newRow("sabato") << u"chkSabato"_s << true;
    QTest::newRow("data") << u"mskDecorr"_s << true;
}

void TestFrmTerminiSeq::calendarioVaViaConIlFuoco()
{
    QFETCH(QString, Controllo);
    B->Clic(u"cmdCalend"_s);
    B->Uno(Controllo)->setFocus();
    QTEST(B->Calendario()->isVisible(), "Resta");
}

void TestFrmTerminiSeq::calendarioSegna()
{
    Registratore Box;
    Compila(u"14032012"_s);
    B->Calcola();
    const CalendarioMensile* C = B->Calendario();
    QVERIFY(C->Aspetto(QDate(2012, 3, 14)).Inizio);
    for (const QDate& Giorno : {QDate(2012, 4, 13), QDate(2012, 5, 14), QDate(2012, 6, 4)})
        QVERIFY(C->Aspetto(Giorno).Scadenza);
    QVERIFY(!C->Aspetto(QDate(2012, 8, 16)).Sospeso);
    B->Spunta(u"chkSosp"_s, true);
    QVERIFY(C->Aspetto(QDate(2012, 8, 16)).Sospeso);
    QCOMPARE(C->Descrizione(QDate(2012, 3, 14)), u"mercoledì 14 marzo 2012, udienza"_s);
}

void TestFrmTerminiSeq::attivarlaNonFaNulla()
{
    B->Scegli(u"cmbArticolo"_s, 1);
    B->Spunta(u"chkSosp"_s, true);
    QWidget Altra;
    QVERIFY(MostraAttiva(Altra));
    B->F->Mostra();
    QVERIFY(MostraAttiva(*B->F));
    QCOMPARE(B->Uno<QComboBox>(u"cmbArticolo"_s)->currentIndex(), 1);
    QVERIFY(B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
}

void TestFrmTerminiSeq::chiuderePerdeTutto()
{
    Registratore Box;
    B->Scegli(u"cmbArticolo"_s, 1);
    B->Spunta(u"chkSosp"_s, true);
    Compila(u"14032012"_s);
    B->Calcola();
    B->F->close();
    QTRY_VERIFY(!B->F);
    B->Apri();
    comincia();
}

void TestFrmTerminiSeq::avvertenze()
{
    B->Clic(u"cmdAvvertenze"_s);
    QCOMPARE(B->Pagine,
             QStringList{u"/programma/avvertenzetermini.htm|VDM - Calcolo termini - Avvertenze"_s});
}

void TestFrmTerminiSeq::stampaSenzaRisultato()
{
    Registratore Box;
    Compila(u"14032012"_s);
    Box.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    B->Voce(u"mnuPrint"_s);
    QCOMPARE(B->Stampato(), QStringList());
}

void TestFrmTerminiSeq::stampa()
{
    Registratore Box;
    Compila(u"14032012"_s);
    B->Spunta(u"chkSabato"_s, true);
    B->Calcola();
    B->Voce(u"mnuPrint"_s);
    const QStringList Righe = B->Stampato();
    QCOMPARE(Righe.mid(0, 6), (QStringList{u"CALCOLO TERMINI SEQUENZIALI"_s,
                                           u"Articolo: Art. 183, 6° co. cpc (deposito memorie)"_s,
                                           u"Data udienza: 14/03/2012"_s, u"Sospensione feriale: No"_s,
                                           u"Proroga del sabato: Sì"_s, u"RISULTATO ELABORAZIONE:"_s}));
    QCOMPARE(Righe.size(), 7);
    QCOMPARE(Righe.last(), B->Risultato());
    QCOMPARE(SeCaricato<frmPrint>->windowTitle(), u"Stampa documento: calcolo termini sequenziali"_s);
}

void TestFrmTerminiSeq::ricordaIlPosto()
{
    B->F->setGeometry(0, 45, 870, 450);
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Escape);
    QTRY_VERIFY(!B->F);
    B->Apri();
    // The screen of the tests is narrower than the form.
    QCOMPARE(B->F->geometry().top(), 45);
    QCOMPARE(B->F->height(), 450);
}

void TestFrmTerminiSeq::ordineDelTabulatore()
{
    QCOMPARE(B->OrdineTab(u"cmbArticolo"_s, 6),
             (QStringList{u"cmbArticolo"_s, u"mskDecorr"_s, u"chkSosp"_s, u"chkSabato"_s, u"cmdEsegui"_s,
                          u"cmdCalend"_s}));
}

void TestFrmTerminiSeq::ogniControlloHaUnNome()
{
    QCOMPARE(B->SenzaNome(), QStringList());
}

void TestFrmTerminiSeq::ilCalendarioNonAllarga()
{
    Registratore Box;
    Compila(u"14032012"_s);
    B->Calcola();
    const auto* Pannello = B->Uno<QLabel>(u"lblRisult"_s);
    QVERIFY2(Pannello->height() >= Pannello->heightForWidth(Pannello->width()),
             "no line of the result is cut");
    const QSize Prima = B->F->size();
    const QPoint Data = B->Data()->mapTo(B->F.data(), QPoint());
    B->Clic(u"cmdCalend"_s);
    Respiro();
    QCOMPARE(B->F->size(), Prima);
    QCOMPARE(B->Data()->mapTo(B->F.data(), QPoint()), Data);
}

void TestFrmTerminiSeq::sulPiccoloSchermo()
{
    B->Clic(u"cmdCalend"_s);
    Respiro();
    // 1366x768 at 150 % are 910x512, and the frame takes its part.
    QVERIFY(B->F->minimumSizeHint().width() <= 900);
    QVERIFY(B->F->minimumSizeHint().height() <= 460);
    QVERIFY(B->F->minimumSize().width() <= 900);
}

#include "TestFrmTerminiSeq.moc"
