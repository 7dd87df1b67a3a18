// The search dialog: real lists, boxes and buttons.
#include "bancoricerche.h"

using namespace Qt::StringLiterals;

class TestFrmRicerche : public QObject, private BancoRicerche
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { PreparaTutto(); }
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void didascalie();
    void senzaCampiSiVedonoTutti();
    void campiDelChiamante();
    void campoRicordato();
    void campoRicordatoOltreLElenco();
    void operatoriELunghezze_data();
    void operatoriELunghezze();
    void unTestoLungoResta();
    void bottoni();
    void vuotoTieneIlTesto();
    void tasti_data();
    void tasti();
    void incollatoPassa();
    void chiudendoSiSvuota();
    void siChiudeColBrowser();
    void ultimiTesti();
    void ogniControlloHaUnNome();
};
PROVA(TestFrmRicerche);

void TestFrmRicerche::didascalie()
{
    Apri();
    QCOMPARE(F->windowTitle(), u"Ricerca"_s);
    QCOMPARE(SenzaDidascalia(F, {u"Trova:"_s, u"Nel campo:"_s, u"Confronto:"_s, u"Trova primo"_s,
                                 u"Trova successivo"_s, u"Chiudi"_s}),
             QStringList());
    QVERIFY(!F->isModal());
    QVERIFY(Valore()->hasFocus());
}

void TestFrmRicerche::senzaCampiSiVedonoTutti()
{
    Apri();
    QStringList Nomi;
    for (const ::Campo& Colonna : Righe.Campi())
        Nomi += Colonna.Name;
    QStringList Visti;
    for (int i = 0; i < Campo()->count(); ++i)
        Visti += Campo()->itemText(i);
    QCOMPARE(Visti, Nomi);
}

void TestFrmRicerche::campiDelChiamante()
{
    F->AddCampi(u"DataNascita"_s, u"x"_s);
    F->InitCampi();  // what was there before goes
    F->AddCampi(u"Nominativo"_s, u"Nominativo"_s);
    F->AddCampi(u"CodFis"_s, u"Codice fiscale"_s);
    Apri();
    QCOMPARE(Campo()->count(), 2);
    QCOMPARE(Campo()->itemText(1), u"Codice fiscale"_s);
    Scegli(Campo(), 1);
    Valore()->setFocus();
    Digita(u"RSSMRA80A01H501U"_s);
    Clic(Primo());
    QCOMPARE(Corrente(), 1);
    F->ClearArray();
    F->AddCampi(u"Anni"_s, u"Età"_s);
    F->LoadCampi();
    QCOMPARE(Campo()->count(), 1);
    QCOMPARE(Campo()->itemText(0), u"Età"_s);
}

void TestFrmRicerche::campoRicordato()
{
    Apri();
    ScegliCampo(u"DataNascita"_s);
    F->close();
    Apri();
    QCOMPARE(Campo()->currentText(), u"DataNascita"_s);
    QCOMPARE(Oper()->count(), 12);  // the choice by code reacts as a click does
    QCOMPARE(Oper()->currentIndex(), 0);
    delete F;
    F = new frmRicerche(Browser.get());
    F->ImpostaRecordSource(Righe);
    Apri();
    QCOMPARE(Campo()->currentText(), u"DataNascita"_s);
}

void TestFrmRicerche::campoRicordatoOltreLElenco()
{
    Apri();
    ScegliCampo(u"Note"_s);
    F->close();
    F->AddCampi(u"Nominativo"_s, u"Nominativo"_s);
    Apri();
    QCOMPARE(Campo()->currentIndex(), -1);
    QCOMPARE(Oper()->count(), 0);
    QVERIFY(!Primo()->isEnabled() && !Successivo()->isEnabled());
    Scegli(Campo(), 0);
    QCOMPARE(Oper()->count(), 12);
}

void TestFrmRicerche::operatoriELunghezze_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Operatori");
    QTest::addColumn<int>("Lunghezza");
    QTest::newRow("testo") << u"Nominativo"_s << 12 << 20;
    QTest::newRow("data") << u"DataNascita"_s << 12 << 10;
    QTest::newRow("numero") << u"Anni"_s << 8 << 9;
    QTest::newRow("memo") << u"Note"_s << 8 << 9;
    QTest::newRow("logico") << u"Attivo"_s << 8 << 9;
}

void TestFrmRicerche::operatoriELunghezze()
{
    QFETCH(QString, Nome);
    Apri();
    ScegliCampo(u"CodFis"_s);
    Oper()->setCurrentIndex(3);
    ScegliCampo(Nome);
    QTEST(Oper()->count(), "Operatori");
    QTEST(Valore()->maxLength(), "Lunghezza");
    QCOMPARE(Oper()->currentIndex(), 0);
    for (int i = 0; i < Oper()->count(); ++i)
        QCOMPARE(Oper()->itemText(i), TabellaOperatori.at(size_t(i)).toString());
}

void TestFrmRicerche::unTestoLungoResta()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Valore()->setFocus();
    Digita(u"Verdi Annamaria"_s);
    ScegliCampo(u"Anni"_s);
    QCOMPARE(Valore()->text(), u"Verdi Annamaria"_s);
    Valore()->setFocus();
    Premi(Qt::Key_End);
    Digita(u"1"_s);
    QCOMPARE(Valore()->text(), u"Verdi Annamaria"_s);  // nothing more can be typed
}

void TestFrmRicerche::bottoni()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Valore()->setFocus();
    QVERIFY(!Primo()->isEnabled() && !Successivo()->isEnabled());
    Digita(u"x"_s);
    QVERIFY(Primo()->isEnabled() && Successivo()->isEnabled());
    Premi(Qt::Key_Backspace);
    QVERIFY(!Primo()->isEnabled() && !Successivo()->isEnabled());
}

void TestFrmRicerche::vuotoTieneIlTesto()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scrivi(Valore(), u"resto"_s);
    for (const int Posto : {CampoVuoto, CampoNonVuoto}) {
        Scegli(Oper(), Posto);
        QVERIFY(!Valore()->isEnabled());
        QCOMPARE(Valore()->text(), u"resto"_s);
        QVERIFY(Primo()->isEnabled() && Successivo()->isEnabled());
        Scegli(Oper(), Contiene);
        QVERIFY(Valore()->isEnabled());
    }
    Scrivi(Valore(), {});
    Scegli(Oper(), CampoVuoto);
    QVERIFY(Primo()->isEnabled());
    Scegli(Oper(), UgualeA);
    QVERIFY(!Primo()->isEnabled());
}

void TestFrmRicerche::tasti_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Resta");
    QTest::newRow("data") << u"DataNascita"_s << u"1/2"_s;
    QTest::newRow("intero") << u"Anni"_s << u"12"_s;
    QTest::newRow("lungo") << u"Numero"_s << u"12"_s;
    QTest::newRow("byte") << u"Classe"_s << u"12"_s;
    QTest::newRow("valuta") << u"Saldo"_s << u"1a/,-2"_s;
    QTest::newRow("testo") << u"Nominativo"_s << u"1a/,-2"_s;
}

void TestFrmRicerche::tasti()
{
    QFETCH(QString, Nome);
    Apri();
    ScegliCampo(Nome);
    Valore()->setFocus();
    Digita(u"1a/,-2"_s);
    QTEST(Valore()->text(), "Resta");
    Premi(Qt::Key_Backspace);  // always passes
    QFETCH(QString, Resta);
    QCOMPARE(Valore()->text(), Resta.chopped(1));
}

void TestFrmRicerche::incollatoPassa()
{
    Apri();
    ScegliCampo(u"Anni"_s);
    Incolla(Valore(), u"dieci"_s);
    QCOMPARE(Valore()->text(), u"dieci"_s);
}

void TestFrmRicerche::chiudendoSiSvuota()
{
    F->AddCampi(u"Nominativo"_s, u"Nominativo"_s);
    Apri();
    QCOMPARE(Campo()->count(), 1);
    Clic(Controllo<QPushButton>(F, "cmdExit"));
    QVERIFY(!F->isVisible());
    QCOMPARE(Campo()->count(), 0);
    Apri();
    QCOMPARE(Campo()->count(), 13);  // the list was emptied: all fields
}

void TestFrmRicerche::siChiudeColBrowser()
{
    Apri();
    Browser->close();
    QVERIFY(!F->isVisible());
}

void TestFrmRicerche::ultimiTesti()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    for (const QString& Testo : {u"Verdi Anna"_s, u"Bianchi"_s, u"Verdi Anna"_s}) {
        Scrivi(Valore(), Testo);
        Clic(Primo());
    }
    F->close();
    Apri();
    QCOMPARE(Valore()->selectedText(), u"Verdi Anna"_s);  // typing takes its place
    Digita(u"x"_s);
    Premi(Qt::Key_Down);
    auto* Tendina = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(Tendina);
    QCOMPARE(Tendina->actions().at(0)->text(), u"Verdi Anna"_s);
    QCOMPARE(Tendina->actions().at(1)->text(), u"Bianchi"_s);
    QTest::keyClick(Tendina, Qt::Key_Down);
    QTest::keyClick(Tendina, Qt::Key_Return);
    QCOMPARE(Valore()->text(), u"Bianchi"_s);
}

void TestFrmRicerche::ogniControlloHaUnNome()
{
    Apri();
    QCOMPARE(SenzaNome(F), QStringList());
}

#include "TestFrmRicerche.moc"
