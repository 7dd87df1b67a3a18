// The form of the terms, used with keys and mouse.
#include "bancofrmtermini.h"

#include "platform/base/numerierrore.h"

using namespace Qt::StringLiterals;

namespace {

const QString VuotaData = u"Non è stata specificata la Data di Decorrenza!"_s;

const QString CattivaData = u"La Data di Decorrenza indicata non è una data valida!"_s;

const QString VuotoNumero = u"Non è stato indicato il Numero di incremento!"_s;

const QString SabatoARitroso =
    u"La proroga del sabato (art. 155, 5° comma, c.p.c.) non si applica ai termini da calcolarsi a ritroso.\n"
    "Per maggiori informazioni leggere le Avvertenze"_s;

constexpr int Avanti = 0;

constexpr int Indietro = 1;

}  // namespace

class TestFrmTermini : public QObject, private BancoFrmTermini
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void didascalie();
    void comincia();
    void casi_data();
    void casi();
    void invioPassaEAllaFineCalcola();
    void invioDaAntecedenteCalcola();
    void invioSuiPulsantini();
    void numeroDiQuattroCifre();
    void rifiuti_data();
    void rifiuti();
    void incollatoNelNumero_data();
    void incollatoNelNumero();
    void sabatoARitroso();
    void sabatoSecondoLaData();
    void sabatoSpuntatoMaDisabilitato();
    void annoDiDueCifre();
    void annoDiDueCifreLasciandoLaData();
    void settembreDal2015();
    void fuoriDalCalendario_data();
    void fuoriDalCalendario();
    void ogniCambioPulisce_data();
    void ogniCambioPulisce();
    void loStessoValoreNonPulisce();
    void ricalcolareRidaLoStesso();
    void nuovo();
    void dopoNuovoContaInAnni();
    void chiuderePerdeTutto();
};
PROVA(TestFrmTermini);

void TestFrmTermini::didascalie()
{
    QCOMPARE(B->F->windowTitle(), u"Calcanova - Computo termini"_s);
    QStringList Testi;
    for (const QLabel* Una : B->F->findChildren<QLabel*>())
        Testi << QString(Una->text()).remove(u'&');
    for (const QString& Testo :
         {u"Data decorrenza:"_s, u"Numero:"_s, u"Sospensione feriale:"_s, u"Termine libero:"_s,
          u"Proroga del sabato:"_s, u"Scadenza:"_s, u"* Per un corretto uso del programma leggere le"_s,
          u"E' responsabilità dell'utente verificare che i criteri di calcolo e gli orientamenti "
          u"giurisprudenziali "
          "riferiti nelle avvertenze siano correttamente applicabili al termine processuale da computare"_s})
        QVERIFY2(Testi.contains(Testo), qPrintable(Testo));
    const auto Testo = [this](const QString& Nome) {
        return B->Uno<QAbstractButton>(Nome)->text().remove(u'&');
    };
    QCOMPARE(Testo(u"cmdEsegui"_s), u"Calcola"_s);
    QCOMPARE(B->Uno(u"cmdEsegui"_s)->toolTip(), u"Calcola scadenza"_s);
    QCOMPARE(Testo(u"cmdAvvertenze"_s), u"Avvertenze"_s);
    QCOMPARE(Testo(u"optTipoScad_0"_s), u"Successiva"_s);
    QCOMPARE(Testo(u"optTipoScad_1"_s), u"Antecedente"_s);
    for (const QString& Nome : {u"cmdCalend_0"_s, u"cmdCalend_1"_s})
        QCOMPARE(B->Uno(Nome)->toolTip(), u"Osserva la scadenza sul calendario"_s);
    QCOMPARE(B->Uno<QAction>(u"mnuNew"_s)->text(), u"Nuovo calcolo"_s);
    QCOMPARE(B->Uno<QAction>(u"mnuStampa"_s)->text(), u"Stampa"_s);
}

void TestFrmTermini::comincia()
{
    QVERIFY(SullaData());
    QCOMPARE(B->Data()->Testo(), u"__/__/____"_s);
    const auto* Tipo = B->Uno<QComboBox>(u"cmbIncrTipo"_s);
    QCOMPARE(Tipo->currentIndex(), 0);
    QCOMPARE(Tipo->itemText(0) + Tipo->itemText(1) + Tipo->itemText(2), u"GiorniMesiAnni"_s);
    QCOMPARE(Tipo->count(), 3);
    QVERIFY(B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
    QVERIFY(!B->Uno<QCheckBox>(u"chkLibero"_s)->isChecked());
    QVERIFY(!B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
    QVERIFY(!B->Uno(u"chkSabato"_s)->isEnabled());
    QVERIFY(B->Uno<QRadioButton>(u"optTipoScad_0"_s)->isChecked());
    QVERIFY(B->Calendario()->isVisible());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 7, 18));
    QVERIFY(!B->Uno(u"cmdCalend_1"_s)->isVisible());
    QCOMPARE(B->Risultato(), QString());
}

void TestFrmTermini::casi_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Sosp");
    QTest::addColumn<bool>("Libero");
    QTest::addColumn<bool>("Sabato");
    QTest::addColumn<int>("Verso");
    QTest::addColumn<QString>("Risultato");
    QTest::newRow("il dodicesimo giorno salta la sospensione")
        << u"20072012"_s << u"20"_s << InGiorni << true << false << false << Avanti
        << u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s;
    QTest::newRow("decorrenza nella sospensione, nessuna nota")
        << u"10082012"_s << u"10"_s << InGiorni << true << false << false << Avanti
        << u"La scadenza è Martedì,  25 Settembre  2012"_s;
    QTest::newRow("mese con quindici giorni sospesi, poi domenica")
        << u"15072012"_s << u"1"_s << InMesi << true << false << false << Avanti
        << u"La scadenza è Lunedì,  1 Ottobre  2012\n(Posticipata)"_s;
    QTest::newRow("a ritroso oltre la sospensione")
        << u"20092012"_s << u"10"_s << InGiorni << true << false << false << Indietro
        << u"La scadenza è Giovedì,  26 Luglio  2012\n(Anticipata)"_s;
    QTest::newRow("il giorno perso in febbraio resta perso")
        << u"31012012"_s << u"2"_s << InMesi << false << false << false << Avanti
        << u"La scadenza è Giovedì,  29 Marzo  2012"_s;
    QTest::newRow("sabato, poi domenica")
        << u"24032012"_s << u"7"_s << InGiorni << false << false << true << Avanti
        << u"La scadenza è Lunedì,  2 Aprile  2012\n(Posticipata)"_s;
    QTest::newRow("il giorno libero cade su Santo Stefano")
        << u"20122012"_s << u"5"_s << InGiorni << false << true << false << Avanti
        << u"La scadenza è Giovedì,  27 Dicembre  2012\n(Posticipata)"_s;
    QTest::newRow("il giorno libero si aggiunge")
        << u"01032012"_s << u"5"_s << InGiorni << false << true << false << Avanti
        << u"La scadenza è Mercoledì,  7 Marzo  2012"_s;
    QTest::newRow("Lunedì dell'Angelo")
        << u"08042012"_s << u"1"_s << InGiorni << false << false << false << Avanti
        << u"La scadenza è Martedì,  10 Aprile  2012\n(Posticipata)"_s;
}

void TestFrmTermini::casi()
{
    QFETCH(QString, Data);
    QFETCH(QString, Numero);
    QFETCH(int, Tipo);
    QFETCH(bool, Sosp);
    QFETCH(bool, Libero);
    QFETCH(bool, Sabato);
    QFETCH(int, Verso);
    Registratore Box;
    Compila(Data, Numero, Tipo);
    B->Spunta(u"chkSosp"_s, Sosp);
    B->Spunta(u"chkLibero"_s, Libero);
    B->Spunta(u"chkSabato"_s, Sabato);
    B->Uno<QRadioButton>(u"optTipoScad_"_s + QString::number(Verso))->click();
    B->Calcola();
    QTEST(B->Risultato(), "Risultato");
    QCOMPARE(B->Campane, 1);
    QVERIFY(B->Uno(u"cmdCalend_1"_s)->isVisible());
    QVERIFY(SullaData());
}

void TestFrmTermini::invioPassaEAllaFineCalcola()
{
    Registratore Box;
    QStringList Incontrati;
    Digita(u"20072012"_s);
    Premi(Qt::Key_Return);
    Digita(u"20"_s);
    for (int i = 0; i < 5; ++i) {
        Incontrati << QApplication::focusWidget()->objectName();
        QCOMPARE(B->Risultato(), QString());
        Premi(Qt::Key_Return);
    }
    QCOMPARE(Incontrati,
             (QStringList{u"txtIncrNum"_s, u"cmbIncrTipo"_s, u"chkSosp"_s, u"chkLibero"_s, u"chkSabato"_s}));
    QCOMPARE(QApplication::focusWidget()->objectName(), u"optTipoScad_0"_s);
    Premi(Qt::Key_Enter);
    QCOMPARE(B->Risultato(), u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s);
    QVERIFY(SullaData());
    // The next date is typed over the last one.
    Digita(u"08042012"_s);
    QCOMPARE(B->Data()->Testo(), u"08/04/2012"_s);
}

void TestFrmTermini::invioDaAntecedenteCalcola()
{
    Registratore Box;
    Compila(u"20092001"_s, u"10"_s);
    B->Uno<QRadioButton>(u"optTipoScad_1"_s)->click();
    B->Uno(u"chkLibero"_s)->setFocus();
    Premi(Qt::Key_Return);  // the Saturday is disabled for that year, and "Successiva" is not the one chosen
    QCOMPARE(QApplication::focusWidget()->objectName(), u"optTipoScad_1"_s);
    Premi(Qt::Key_Return);
    QVERIFY(B->Risultato().endsWith(u"(Anticipata)"_s));
}

void TestFrmTermini::invioSuiPulsantini()
{
    Registratore Box;
    // No box about a date that lacks: the default button is not pressed.
    B->Uno(u"cmdCalend_0"_s)->setFocus();
    Premi(Qt::Key_Return);
    QVERIFY(!B->Calendario()->isVisible());
}

void TestFrmTermini::numeroDiQuattroCifre()
{
    B->Scrivi(u"txtIncrNum"_s, u"1a2-3,4567"_s);
    QCOMPARE(B->Uno<QLineEdit>(u"txtIncrNum"_s)->text(), u"1234"_s);
    Premi(Qt::Key_Backspace);
    QCOMPARE(B->Uno<QLineEdit>(u"txtIncrNum"_s)->text(), u"123"_s);
    Registratore Box;
    Compila(u"01012012"_s, u"9999"_s);
    B->Spunta(u"chkSosp"_s, false);
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Mercoledì,  18 Maggio  2039"_s);
}

void TestFrmTermini::rifiuti_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("niente") << u""_s << u""_s << VuotaData;
    QTest::newRow("data vuota") << u""_s << u"10"_s << VuotaData;
    QTest::newRow("31 febbraio") << u"31022012"_s << u"10"_s << CattivaData;
    QTest::newRow("zeri") << u"00000000"_s << u"10"_s << CattivaData;
    QTest::newRow("anno 1") << u"01010001"_s << u"10"_s << CattivaData;
    QTest::newRow("data a metà") << u"1203"_s << u"10"_s << CattivaData;
    QTest::newRow("anno di tre cifre") << u"0101201"_s << u"10"_s << CattivaData;
    QTest::newRow("prima la data, poi il numero") << u"31022012"_s << u""_s << CattivaData;
    QTest::newRow("numero vuoto") << u"12032012"_s << u""_s << VuotoNumero;
    QTest::newRow("numero 0") << u"12032012"_s << u"0"_s << VuotoNumero;
    QTest::newRow("numero 0000") << u"12032012"_s << u"0000"_s << VuotoNumero;
}

void TestFrmTermini::rifiuti()
{
    QFETCH(QString, Data);
    QFETCH(QString, Numero);
    QFETCH(QString, Messaggio);
    Registratore Box;
    Compila(Data, Numero);
    Box.Attendi(Messaggio, vbOK, u"Errore:"_s);
    B->Calcola();
    // Whatever lacks, the focus ends on the date.
    QTRY_VERIFY(SullaData());
    QCOMPARE(B->Risultato(), QString());
    QCOMPARE(B->Campane, 0);
    QVERIFY(!B->Uno(u"cmdCalend_1"_s)->isVisible());
    // The form goes on.
    Compila(u"12032012"_s, u"3"_s);
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Giovedì,  15 Marzo  2012"_s);
}

void TestFrmTermini::incollatoNelNumero_data()
{
    QTest::addColumn<QString>("Appunti");
    for (const char* Testo : {"abc", "1-2", "12.5", " "})
        QTest::newRow(Testo) << QString::fromLatin1(Testo);
}

void TestFrmTermini::incollatoNelNumero()
{
    QFETCH(QString, Appunti);
    Registratore Box;
    B->Scrivi(u"mskDecorr"_s, u"12032012"_s);
    QApplication::clipboard()->setText(Appunti);
    B->Uno<QLineEdit>(u"txtIncrNum"_s)->setFocus();
    Premi(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(B->Uno<QLineEdit>(u"txtIncrNum"_s)->text(), Appunti);
    Box.Attendi(VuotoNumero, vbOK, u"Errore:"_s);
    B->Calcola();
    QCOMPARE(B->Risultato(), QString());
}

void TestFrmTermini::sabatoARitroso()
{
    Registratore Box;
    Compila(u"20042012"_s, u"13"_s);  // back to 07/04/2012, a Saturday
    B->Spunta(u"chkSabato"_s, true);
    B->Uno<QRadioButton>(u"optTipoScad_1"_s)->click();
    Box.Attendi(SabatoARitroso, vbOK, u"Avvertenza:"_s);
    B->Calcola();
    QCOMPARE(Box.Mostrato(0).Bandiere, vbExclamation);
    QVERIFY(!B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
    QCOMPARE(B->Risultato(), u"La scadenza è Sabato,  7 Aprile  2012"_s);
    // Said once: the choice is gone.
    B->Calcola();
    // It is said before what lacks.
    B->Spunta(u"chkSabato"_s, true);
    B->Scrivi(u"mskDecorr"_s, {});
    Box.Attendi(SabatoARitroso);
    Box.Attendi(VuotaData);
    B->Calcola();
    QCOMPARE(B->Risultato(), QString());
}

void TestFrmTermini::sabatoSecondoLaData()
{
    const QWidget* Sabato = B->Uno(u"chkSabato"_s);
    B->Scrivi(u"mskDecorr"_s, u"02032006"_s);
    QVERIFY(Sabato->isEnabled());
    B->Scrivi(u"mskDecorr"_s, u"01032006"_s);
    QVERIFY(!Sabato->isEnabled());
    // What is no date changes nothing.
    B->Scrivi(u"mskDecorr"_s, u"31022012"_s);
    QVERIFY(!Sabato->isEnabled());
    B->Scrivi(u"mskDecorr"_s, u"12032012"_s);
    QVERIFY(Sabato->isEnabled());
    B->Scrivi(u"mskDecorr"_s, u"120320"_s);
    QVERIFY(Sabato->isEnabled());
}

void TestFrmTermini::sabatoSpuntatoMaDisabilitato()
{
    Registratore Box;
    B->Scrivi(u"mskDecorr"_s, u"12032012"_s);
    B->Spunta(u"chkSabato"_s, true);
    Compila(u"24032001"_s, u"7"_s);  // 31/03/2001 is a Saturday
    QVERIFY(!B->Uno(u"chkSabato"_s)->isEnabled());
    QVERIFY(B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Lunedì,  2 Aprile  2001\n(Posticipata)"_s);
}

void TestFrmTermini::annoDiDueCifre()
{
    Registratore Box;
    Compila(u"120320"_s, u"1"_s);
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Venerdì,  13 Marzo  2020"_s);
    QVERIFY(B->Calendario()->Aspetto(QDate(2020, 3, 12)).Inizio);
    // The mask is never rewritten.
    B->Uno(u"txtIncrNum"_s)->setFocus();
    QCOMPARE(B->Data()->Testo(), u"12/03/20__"_s);
}

// At each key the stated rule; once the box is left, the date that is meant counts.
void TestFrmTermini::annoDiDueCifreLasciandoLaData()
{
    QWidget* Sabato = B->Uno(u"chkSabato"_s);
    B->Scrivi(u"mskDecorr"_s, u"010812"_s);
    QVERIFY(!Sabato->isEnabled());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 7, 18));
    Premi(Qt::Key_Return);
    QVERIFY(Sabato->isEnabled());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 8, 1));
    QCOMPARE(B->Data()->Testo(), u"01/08/12__"_s);
    B->Scrivi(u"mskDecorr"_s, u"010306"_s);
    QVERIFY(Sabato->isEnabled());
    Premi(Qt::Key_Return);
    QVERIFY(!Sabato->isEnabled());
    // A shortcut calculates with the focus in the box.
    Registratore Box;
    B->Scrivi(u"txtIncrNum"_s, u"10"_s);
    B->Scrivi(u"mskDecorr"_s, u"010812"_s);
    B->F->cmdEsegui_Click();
    QVERIFY(Sabato->isEnabled());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 9, 25));
    B->Uno(u"txtIncrNum"_s)->setFocus();
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 9, 25));
}

void TestFrmTermini::settembreDal2015()
{
    const auto Avviso = u"Dal 2015 la sospensione termina il 31 agosto: v. Avvertenze"_s;
    auto* Riga = B->Uno<QLabel>(u"lblSettembre"_s);
    Registratore Box;
    Compila(u"01072014"_s, u"60"_s);
    B->Calcola();
    QVERIFY(!Riga->isVisible());
    Compila(u"01072026"_s, u"60"_s);
    QVERIFY(!Riga->isVisible());
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Giovedì,  15 Ottobre  2026\n(Posticipata)"_s);
    QVERIFY(Riga->isVisible());
    QCOMPARE(Riga->text(), Avviso);
    QCOMPARE(Riga->palette().color(Riga->foregroundRole()), aspetto::Sbagliato());
    QVERIFY(B->Uno(u"lblRisult"_s)->accessibleName().endsWith(Avviso));
    B->Clic(u"cmdCopia"_s);
    QCOMPARE(QApplication::clipboard()->text(), u"La scadenza è Giovedì, 15 Ottobre 2026\n(Posticipata)"_s);
    B->Voce(u"mnuStampa"_s);
    QCOMPARE(B->Stampato().last(), Avviso);
    B->Spunta(u"chkSosp"_s, false);
    QVERIFY(!Riga->isVisible());
    B->Calcola();
    QVERIFY(!Riga->isVisible());
}

void TestFrmTermini::fuoriDalCalendario_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Verso");
    QTest::newRow("dopo l'ultimo giorno") << u"31129999"_s << u"1"_s << InGiorni << Avanti;
    QTest::newRow("9999 anni") << u"12032012"_s << u"9999"_s << 2 << Avanti;
    QTest::newRow("prima del primo") << u"01010100"_s << u"1"_s << InGiorni << Indietro;
}

void TestFrmTermini::fuoriDalCalendario()
{
    QFETCH(QString, Data);
    QFETCH(QString, Numero);
    QFETCH(int, Tipo);
    QFETCH(int, Verso);
    Registratore Box;
    Compila(Data, Numero, Tipo);
    B->Uno<QRadioButton>(u"optTipoScad_"_s + QString::number(Verso))->click();
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(5) + u" (5)"_s, vbOK, u"Errore:"_s);
    B->Calcola();
    QTRY_VERIFY(SullaData());
    QVERIFY(B->F->isVisible());
    QCOMPARE(B->Risultato(), QString());
    QCOMPARE(B->Campane, 0);
    Compila(u"12032012"_s, u"3"_s);
    B->Uno<QRadioButton>(u"optTipoScad_0"_s)->click();
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Giovedì,  15 Marzo  2012"_s);
}

void TestFrmTermini::ogniCambioPulisce_data()
{
    QTest::addColumn<std::function<void(BancoTermini<frmTermini>&)>>("Cambia");
    using Mano = std::function<void(BancoTermini<frmTermini>&)>;
    QTest::newRow("data") << Mano([](auto& S) {
        S.Data()->setFocus(Qt::TabFocusReason);
        Digita(u"1"_s);
    });
    QTest::newRow("numero") << Mano([](auto& S) {
        S.Uno(u"txtIncrNum"_s)->setFocus();
        Digita(u"1"_s);
    });
    QTest::newRow("unità") << Mano([](auto& S) { S.Scegli(u"cmbIncrTipo"_s, InMesi); });
    for (const char* Nome : {"chkSosp", "chkLibero", "chkSabato", "optTipoScad_1"})
        QTest::newRow(Nome) << Mano(
            [Nome](auto& S) { S.template Uno<QAbstractButton>(QString::fromLatin1(Nome))->click(); });
    QTest::newRow("giorno dal calendario") << Mano([](auto& S) { S.ClicGiorno(QDate(2012, 3, 1)); });
}

void TestFrmTermini::ogniCambioPulisce()
{
    QFETCH(std::function<void(BancoTermini<frmTermini>&)>, Cambia);
    Registratore Box;
    Compila(u"12032012"_s, u"3"_s);
    B->Calcola();
    QVERIFY(!B->Risultato().isEmpty());
    Cambia(*B);
    QCOMPARE(B->Risultato(), QString());
    QVERIFY(!B->Uno(u"cmdCalend_1"_s)->isVisible());
    QVERIFY(!B->Uno(u"cmdCopia"_s)->isEnabled());
    QVERIFY(!B->Calendario()->Aspetto(QDate(2012, 3, 15)).Scadenza);
}

void TestFrmTermini::loStessoValoreNonPulisce()
{
    Registratore Box;
    Compila(u"12032012"_s, u"3"_s);
    B->Calcola();
    B->Uno<QRadioButton>(u"optTipoScad_0"_s)->click();
    B->Scegli(u"cmbIncrTipo"_s, InGiorni);
    B->Uno(u"txtIncrNum"_s)->setFocus();
    Premi(Qt::Key_Left);
    QVERIFY(!B->Risultato().isEmpty());
}

void TestFrmTermini::ricalcolareRidaLoStesso()
{
    Registratore Box;
    Compila(u"15072012"_s, u"1"_s, InMesi);
    for (int i = 0; i < 3; ++i) {
        B->Calcola();
        QCOMPARE(B->Risultato(), u"La scadenza è Lunedì,  1 Ottobre  2012\n(Posticipata)"_s);
    }
}

void TestFrmTermini::nuovo()
{
    Registratore Box;
    Compila(u"12032012"_s, u"3"_s);
    B->Spunta(u"chkSosp"_s, false);
    B->Spunta(u"chkLibero"_s, true);
    B->Spunta(u"chkSabato"_s, true);
    B->Calcola();
    B->Uno<QRadioButton>(u"optTipoScad_1"_s)->click();
    B->Voce(u"mnuNew"_s);
    QCOMPARE(B->Data()->Testo(), u"__/__/____"_s);
    QCOMPARE(B->Uno<QLineEdit>(u"txtIncrNum"_s)->text(), QString());
    QCOMPARE(B->Uno<QComboBox>(u"cmbIncrTipo"_s)->currentIndex(), -1);
    QVERIFY(B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
    QVERIFY(!B->Uno<QCheckBox>(u"chkLibero"_s)->isChecked());
    QVERIFY(!B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
    QVERIFY(B->Uno<QRadioButton>(u"optTipoScad_0"_s)->isChecked());
    QCOMPARE(B->Risultato(), QString());
    QVERIFY(!B->Calendario()->Aspetto(QDate(2012, 3, 12)).Inizio);
    QVERIFY(SullaData());
    QCOMPARE(B->Campane, 2);
}

void TestFrmTermini::dopoNuovoContaInAnni()
{
    Registratore Box;
    B->Voce(u"mnuNew"_s);
    B->Scrivi(u"mskDecorr"_s, u"12032012"_s);
    B->Scrivi(u"txtIncrNum"_s, u"1"_s);
    B->Spunta(u"chkSosp"_s, false);
    B->Calcola();
    QCOMPARE(B->Risultato(), u"La scadenza è Martedì,  12 Marzo  2013"_s);
}

void TestFrmTermini::chiuderePerdeTutto()
{
    Registratore Box;
    Compila(u"12032012"_s, u"3"_s);
    B->Calcola();
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Escape);
    QTRY_VERIFY(!B->F);
    B->Apri();
    comincia();
}

#include "TestFrmTermini.moc"
