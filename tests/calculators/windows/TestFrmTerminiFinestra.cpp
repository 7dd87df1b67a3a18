// The form of the terms as a window: its calendar, what is copied and printed, opening and closing, keys.
#include "bancofrmtermini.h"

using namespace Qt::StringLiterals;

class TestFrmTerminiFinestra : public QObject, private BancoFrmTermini
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void copiaConUnClic();
    void copiaDaTastiera();
    void senzaRisultatoNonSiCopia();
    void calendarioSiVedeEScompare();
    void calendarioSullaScadenza();
    void calendarioScriveLaData();
    void calendarioSegna();
    void calendarioSenzaSospensione();
    void etichetteSpuntano();
    void attivazioneUnaVoltaSola();
    void riaprireVisibileNonCambia();
    void avvertenze();
    void senzaPagineNienteAvvertenze();
    void stampaSenzaRisultato();
    void stampa();
    void ricordaIlPosto();
    void ordineDelTabulatore();
    void ogniControlloHaUnNome();
    void ilRisultatoSiSente();
    void sulPiccoloSchermo();
};
PROVA(TestFrmTerminiFinestra);

void TestFrmTerminiFinestra::copiaConUnClic()
{
    Registratore Box;
    Compila(u"20072012"_s, u"20"_s);
    B->Calcola();
    B->Clic(u"cmdCopia"_s);
    QCOMPARE(QApplication::clipboard()->text(), u"La scadenza è Lunedì, 24 Settembre 2012\n(Posticipata)"_s);
}

void TestFrmTerminiFinestra::copiaDaTastiera()
{
    Registratore Box;
    Compila(u"10082012"_s, u"10"_s);
    B->Calcola();
    const QString Atteso = u"La scadenza è Martedì, 25 Settembre 2012"_s;
    for (const QString& Nome : {u"mskDecorr"_s, u"cmdEsegui"_s, u"chkSosp"_s, u"lblRisult"_s}) {
        if (Nome != u"mskDecorr")
            B->Uno(Nome)->setFocus();
        QApplication::clipboard()->clear();
        B->CtrlC();
        QCOMPARE(QApplication::clipboard()->text(), Atteso);
    }
    // A selection made by hand goes first.
    B->Data()->setFocus();
    B->Data()->selectAll();
    B->CtrlC();
    QCOMPARE(QApplication::clipboard()->text(), u"10/08/2012"_s);
}

void TestFrmTerminiFinestra::senzaRisultatoNonSiCopia()
{
    QApplication::clipboard()->setText(u"di prima"_s);
    QVERIFY(!B->Uno(u"cmdCopia"_s)->isEnabled());
    B->CtrlC();
    QCOMPARE(QApplication::clipboard()->text(), u"di prima"_s);
}

void TestFrmTerminiFinestra::calendarioSiVedeEScompare()
{
    const QSize Prima = B->F->size();
    B->Uno(u"txtIncrNum"_s)->setFocus();
    B->Clic(u"cmdCalend_0"_s);
    QVERIFY(!B->Calendario()->isVisible());
    QVERIFY(SullaData());
    B->Clic(u"cmdCalend_0"_s);
    QVERIFY(B->Calendario()->isVisible());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 7, 18));
    QCOMPARE(B->F->size(), Prima);
}

void TestFrmTerminiFinestra::calendarioSullaScadenza()
{
    Registratore Box;
    Compila(u"20072012"_s, u"20"_s);
    B->Calcola();
    B->Calendario()->ImpostaData(QDate(2000, 1, 1));
    B->Clic(u"cmdCalend_1"_s);
    QVERIFY(!B->Calendario()->isVisible());
    QCOMPARE(B->Calendario()->Data(), QDate(2012, 9, 24));
    QVERIFY(SullaData());
    QVERIFY2(!B->Risultato().isEmpty(), "looking at it changes nothing");
    QCOMPARE(B->Data()->Testo(), u"20/07/2012"_s);
}

void TestFrmTerminiFinestra::calendarioScriveLaData()
{
    B->ClicGiorno(QDate(2012, 7, 5));
    QCOMPARE(B->Data()->Testo(), u"05/07/2012"_s);
    QVERIFY(B->Uno(u"chkSabato"_s)->isEnabled());
    QVERIFY(B->Calendario()->isVisible());
    // By the keys too.
    B->Calendario()->setFocus();
    Premi(Qt::Key_PageUp, Qt::ControlModifier);
    Premi(Qt::Key_Home);
    QCOMPARE(B->Data()->Testo(), u"05/07/2012"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(B->Data()->Testo(), u"01/07/2011"_s);
}

void TestFrmTerminiFinestra::calendarioSegna()
{
    Registratore Box;
    Compila(u"20072012"_s, u"20"_s);
    const CalendarioMensile* C = B->Calendario();
    QVERIFY(C->Aspetto(QDate(2012, 7, 20)).Inizio);
    QCOMPARE(C->Data(), QDate(2012, 7, 20));
    B->Calcola();
    QCOMPARE(C->Aspetto(QDate(2012, 9, 24)), (AspettoGiorno{.Scadenza = true}));
    QCOMPARE(C->Data(), QDate(2012, 9, 24));
    QCOMPARE(C->Aspetto(QDate(2012, 8, 15)), (AspettoGiorno{.Festivo = true, .Sospeso = true}));
    QCOMPARE(C->Aspetto(QDate(2012, 4, 9)), (AspettoGiorno{.Festivo = true}));
    QVERIFY(C->Aspetto(QDate(2012, 8, 1)).Sospeso && C->Aspetto(QDate(2012, 9, 15)).Sospeso);
    QVERIFY(!C->Aspetto(QDate(2012, 7, 31)).Sospeso && !C->Aspetto(QDate(2012, 9, 16)).Sospeso);
}

void TestFrmTerminiFinestra::calendarioSenzaSospensione()
{
    B->Spunta(u"chkSosp"_s, false);
    QCOMPARE(B->Calendario()->Aspetto(QDate(2012, 8, 16)), AspettoGiorno());
    B->Spunta(u"chkSosp"_s, true);
    QVERIFY(B->Calendario()->Aspetto(QDate(2012, 8, 16)).Sospeso);
}

void TestFrmTerminiFinestra::etichetteSpuntano()
{
    B->Clic(u"lblLibero"_s);
    QVERIFY(B->Uno<QCheckBox>(u"chkLibero"_s)->isChecked());
    B->Clic(u"lblLibero"_s);
    QVERIFY(!B->Uno<QCheckBox>(u"chkLibero"_s)->isChecked());
    B->Clic(u"lblSabato"_s);  // disabled at first
    QVERIFY(!B->Uno<QCheckBox>(u"chkSabato"_s)->isChecked());
}

void TestFrmTerminiFinestra::attivazioneUnaVoltaSola()
{
    B->Spunta(u"chkSosp"_s, false);
    B->Scegli(u"cmbIncrTipo"_s, InMesi);
    B->Uno<QRadioButton>(u"optTipoScad_1"_s)->click();
    QWidget Altra;
    QVERIFY(MostraAttiva(Altra));
    QVERIFY(MostraAttiva(*B->F));
    QVERIFY(!B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
    QCOMPARE(B->Uno<QComboBox>(u"cmbIncrTipo"_s)->currentIndex(), InMesi);
    QVERIFY(B->Uno<QRadioButton>(u"optTipoScad_1"_s)->isChecked());
}

void TestFrmTerminiFinestra::riaprireVisibileNonCambia()
{
    Compila(u"12032012"_s, u"3"_s, InMesi);
    B->Spunta(u"chkSosp"_s, false);
    B->F->Mostra();
    QCOMPARE(B->Uno<QComboBox>(u"cmbIncrTipo"_s)->currentIndex(), InMesi);
    QVERIFY(!B->Uno<QCheckBox>(u"chkSosp"_s)->isChecked());
    QCOMPARE(B->Data()->Testo(), u"12/03/2012"_s);
}

void TestFrmTerminiFinestra::avvertenze()
{
    B->Clic(u"cmdAvvertenze"_s);
    QCOMPARE(B->Pagine,
             QStringList{u"/programma/avvertenzetermini.htm|KR6 - Calcolo termini - Avvertenze"_s});
}

void TestFrmTerminiFinestra::senzaPagineNienteAvvertenze()
{
    delete B->F.data();
    Aperture.PaginaWeb = {};
    B->Apri();
    QVERIFY(!B->Uno(u"cmdAvvertenze"_s)->isEnabled());
}

void TestFrmTerminiFinestra::stampaSenzaRisultato()
{
    Registratore Box;
    Compila(u"12032012"_s, u"3"_s);
    Box.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    B->Voce(u"mnuStampa"_s);
    QCOMPARE(B->Stampato(), QStringList());
}

void TestFrmTerminiFinestra::stampa()
{
    Registratore Box;
    Compila(u"200712"_s, u"20"_s);
    B->Spunta(u"chkSabato"_s, true);
    B->Calcola();
    B->Voce(u"mnuStampa"_s);
    QCOMPARE(B->Stampato(),
             (QStringList{u"CALCOLO TERMINI "_s, u"Data decorrenza: 20/07/12__"_s, u"Incremento: 20 Giorni"_s,
                          u"Sospensione feriale: Sì"_s, u"Termine libero: No"_s, u"Proroga del sabato: No"_s,
                          u"Scadenza: Successiva"_s, u"RISULTATO ELABORAZIONE:"_s,
                          u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s}));
    QCOMPARE(SeCaricato<frmPrint>->windowTitle(), u"Stampa documento: calcolo termini"_s);
    QCOMPARE(SeCaricato<frmPrint>->vpFree().Zoom(), 80);
    QVERIFY2(!B->Risultato().isEmpty(), "printing changes nothing");
}

void TestFrmTerminiFinestra::ricordaIlPosto()
{
    B->F->setGeometry(5, 40, 780, 440);
    B->F->close();
    QTRY_VERIFY(!B->F);
    B->Apri();
    QCOMPARE(B->F->geometry(), QRect(5, 40, 780, 440));
}

void TestFrmTerminiFinestra::ordineDelTabulatore()
{
    Compila(u"12032012"_s, u"3"_s);
    QCOMPARE(B->OrdineTab(u"mskDecorr"_s, 8),
             (QStringList{u"mskDecorr"_s, u"txtIncrNum"_s, u"cmbIncrTipo"_s, u"chkSosp"_s, u"chkLibero"_s,
                          u"chkSabato"_s, u"optTipoScad_0"_s, u"cmdEsegui"_s}));
}

void TestFrmTerminiFinestra::ogniControlloHaUnNome()
{
    QCOMPARE(B->SenzaNome(), QStringList());
}

void TestFrmTerminiFinestra::ilRisultatoSiSente()
{
    Registratore Box;
    Compila(u"10082012"_s, u"10"_s);
    B->Calcola();
    QCOMPARE(B->Uno(u"lblRisult"_s)->accessibleName(), u"La scadenza è Martedì, 25 Settembre 2012"_s);
    B->Spunta(u"chkLibero"_s, true);
    QCOMPARE(B->Uno(u"lblRisult"_s)->accessibleName(), u"Risultato"_s);
}

void TestFrmTerminiFinestra::sulPiccoloSchermo()
{
    // 1366x768 at 150 % are 910x512, and the frame takes its part.
    QVERIFY(B->F->minimumSizeHint().width() <= 900);
    QVERIFY(B->F->minimumSizeHint().height() <= 460);
}

#include "TestFrmTerminiFinestra.moc"
