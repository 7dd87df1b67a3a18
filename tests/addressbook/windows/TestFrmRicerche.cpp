// The search dialog: real lists, boxes and buttons, over rows of a file.
#include "addressbook/archivio_schede.h"
#include "addressbook/windows/frmRicerche.h"
#include "platform/system/shell.h"
#include "supporto/mani.h"
#include "supporto/registratore.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>

#include <memory>

using namespace Qt::StringLiterals;

class TestFrmRicerche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

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
    void invioTrovaIlPrimo();
    void invioSenzaTesto();
    void primoESuccessivo();
    void nienteTrovato_data();
    void nienteTrovato();
    void ilMotoreRifiuta_data();
    void ilMotoreRifiuta();
    void vuotoNonENullo();
    void chiudendoSiSvuota();
    void f3ConLaRicercaChiusa();
    void f3NellaRicerca();
    void f3SenzaUnaRicerca();
    void segueUnAltroInsieme();
    void unAltraTabella();
    void siChiudeColBrowser();
    void primaDiMuovere();
    void ultimiTesti();
    void accantoAllaGriglia_data();
    void accantoAllaGriglia();
    void nonCopreLaRigaTrovata();
    void clessidra();
    void ogniControlloHaUnNome();

private:
    void Apri();
    QComboBox* Campo() const { return Controllo<QComboBox>(F, "cmbCampo"); }
    QComboBox* Oper() const { return Controllo<QComboBox>(F, "cmbOper"); }
    QLineEdit* Valore() const { return Controllo<QLineEdit>(F, "txtValore"); }
    QPushButton* Primo() const { return Controllo<QPushButton>(F, "cmdFind_0"); }
    QPushButton* Successivo() const { return Controllo<QPushButton>(F, "cmdFind_1"); }
    void ScegliCampo(const QString& Nome) const { Scegli(Campo(), Campo()->findText(Nome)); }
    int Corrente() const { return Righe.Value(u"ID"_s).toInt(); }

    Database Db;
    Recordset Righe;
    std::unique_ptr<QWidget> Browser;
    frmRicerche* F = nullptr;
    std::unique_ptr<Registratore> Voce;
    Shell Prima;
    int Campane = 0;
    QStringList Puntatore;
};
PROVA(TestFrmRicerche);

namespace {

const QString Nessuno = u"Non ho trovato nessun altro elemento che soddisfi i criteri impostati!"_s;

}  // namespace

void TestFrmRicerche::initTestCase()
{
    // Nothing is remembered yet: the first field is chosen.
    init();
    Apri();
    QCOMPARE(Campo()->currentIndex(), 0);
    QCOMPARE(Oper()->count(), 8);
    cleanup();
}

void TestFrmRicerche::init()
{
    Voce = std::make_unique<Registratore>();
    Campane = 0;
    Puntatore.clear();
    Shell Nuova;
    Nuova.Campanello = [this] { ++Campane; };
    Nuova.Clessidra = [this](bool Attiva) { Puntatore += Attiva ? u"si"_s : u"no"_s; };
    Prima = InstallaShell(Nuova);
    Db = ArchivioSchede();
    Righe = Db.OpenRecordset(u"clienti"_s);
    Browser = std::make_unique<QWidget>();
    Browser->setGeometry(0, 0, 300, 200);
    QVERIFY(MostraAttiva(*Browser));
    F = new frmRicerche(Browser.get());
    F->ImpostaRecordSource(Righe);
}

void TestFrmRicerche::cleanup()
{
    Browser.reset();
    InstallaShell(Prima);
    Righe.Close();
    Db = {};
    Voce.reset();
}

void TestFrmRicerche::Apri()
{
    F->Apri();
    QApplication::setActiveWindow(F);
    if (!QTest::qWaitForWindowActive(F))
        QTest::qFail("not active", __FILE__, __LINE__);
}

// ---- fields -------------------------------------------------------------------------------------

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

// ---- what can be pressed ------------------------------------------------------------------------

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

// ---- searching ----------------------------------------------------------------------------------

void TestFrmRicerche::invioTrovaIlPrimo()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scegli(Oper(), Contiene);
    Righe.ImpostaAbsolutePosition(2);
    Valore()->setFocus();
    Digita(u"an"_s);
    QSignalSpy Trovata(F, &frmRicerche::Trovata);
    Premi(Qt::Key_Return);
    QCOMPARE(Corrente(), 1);
    QCOMPARE(Trovata.size(), 1);
    QCOMPARE(Campane, 1);
    QVERIFY(F->isVisible());
}

void TestFrmRicerche::invioSenzaTesto()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Valore()->setFocus();
    Premi(Qt::Key_Return);
    QCOMPARE(Campane, 0);
    QVERIFY(F->isVisible());
}

void TestFrmRicerche::primoESuccessivo()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scegli(Oper(), Contiene);
    Scrivi(Valore(), u"i"_s);
    Clic(Primo());
    QCOMPARE(Corrente(), 1);
    Clic(Successivo());
    QCOMPARE(Corrente(), 2);
    Clic(Successivo());
    QCOMPARE(Corrente(), 3);
    Voce->Attendi(Nessuno, vbOK, u"Messaggio:"_s);
    Clic(Successivo());
    QCOMPARE(Voce->Ultimo().Bandiere, vbInformation);
    QCOMPARE(Corrente(), 3);  // where it stood
    QCOMPARE(Campane, 3);
}

void TestFrmRicerche::nienteTrovato_data()
{
    QTest::addColumn<int>("Indice");
    QTest::newRow("primo") << 0;
    QTest::newRow("successivo") << 1;
}

void TestFrmRicerche::nienteTrovato()
{
    QFETCH(int, Indice);
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scrivi(Valore(), u"'; DROP TABLE clienti"_s);
    Righe.ImpostaAbsolutePosition(1);
    QSignalSpy Trovata(F, &frmRicerche::Trovata);
    Voce->Attendi(Nessuno);
    Clic(Indice == 0 ? Primo() : Successivo());
    QCOMPARE(Corrente(), 2);
    QCOMPARE(Trovata.size(), 0);
    QCOMPARE(Campane, 0);
}

void TestFrmRicerche::ilMotoreRifiuta_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("31 febbraio") << u"DataNascita"_s << u"31/02/2020"_s;
    QTest::newRow("memo") << u"Note"_s << u"prima"_s;
    QTest::newRow("numero incollato") << u"Anni"_s << u"dieci"_s;
}

void TestFrmRicerche::ilMotoreRifiuta()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Testo);
    Apri();
    ScegliCampo(Nome);
    Incolla(Valore(), Testo);
    Righe.ImpostaAbsolutePosition(1);
    Voce->Attendi(u"Errore: Errore di sintassi nel criterio di ricerca (3077)"_s, vbOK, u"Errore:"_s);
    Clic(Primo());
    QCOMPARE(Corrente(), 2);
    QCOMPARE(Campane, 0);
    QCOMPARE(Puntatore, (QStringList{u"si"_s, u"no"_s, u"no"_s}));  // the report itself sees to the pointer
}

void TestFrmRicerche::vuotoNonENullo()
{
    Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('')"_s);
    Righe = Db.OpenRecordset(u"clienti"_s);
    F->ImpostaRecordSource(Righe);
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scegli(Oper(), CampoVuoto);
    Clic(Primo());
    QCOMPARE(Corrente(), 5);  // the fourth one holds Null
    Voce->Attendi(Nessuno);
    Clic(Successivo());
    Scegli(Oper(), CampoNonVuoto);
    Clic(Primo());
    QCOMPARE(Corrente(), 1);
}

// ---- its life -----------------------------------------------------------------------------------

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

void TestFrmRicerche::f3ConLaRicercaChiusa()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scegli(Oper(), Contiene);
    Scrivi(Valore(), u"i"_s);
    Clic(Primo());
    F->close();
    QVERIFY(F->PuoRipetere());
    F->Ripeti(false);
    QCOMPARE(Corrente(), 2);
    F->Ripeti(false);
    QCOMPARE(Corrente(), 3);
    F->Ripeti(true);
    QCOMPARE(Corrente(), 2);
    QVERIFY(!F->isVisible());
    Righe.MoveLast();
    Voce->Attendi(Nessuno);
    F->Ripeti(false);
    QCOMPARE(Corrente(), 4);
}

void TestFrmRicerche::f3NellaRicerca()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scegli(Oper(), Contiene);
    Scrivi(Valore(), u"i"_s);
    Premi(Qt::Key_F3);
    QCOMPARE(Corrente(), 2);
    Premi(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Corrente(), 1);
    Scrivi(Valore(), {});
    Premi(Qt::Key_F3);  // nothing to search for
    QCOMPARE(Corrente(), 1);
}

void TestFrmRicerche::f3SenzaUnaRicerca()
{
    QVERIFY(!F->PuoRipetere());
    F->Ripeti(false);
    QVERIFY(F->isVisible());
    QCOMPARE(Campane, 0);
}

void TestFrmRicerche::segueUnAltroInsieme()
{
    F->AddCampi(u"Nominativo"_s, u"Nominativo"_s);
    Apri();
    Scegli(Campo(), 0);
    Scegli(Oper(), Contiene);
    Scrivi(Valore(), u"i"_s);
    Righe = Db.OpenRecordset(u"SELECT * FROM clienti ORDER BY Nominativo DESC"_s);  // 1 3 2 4
    F->ImpostaRecordSource(Righe);
    QCOMPARE(Oper()->currentIndex(), int(Contiene));  // the same fields: nothing begins anew
    Clic(Successivo());
    QCOMPARE(Corrente(), 3);
    Clic(Successivo());
    QCOMPARE(Corrente(), 2);
    Clic(Primo());
    QCOMPARE(Corrente(), 1);
}

void TestFrmRicerche::unAltraTabella()
{
    F->AddCampi(u"Nominativo"_s, u"Nominativo"_s);
    F->AddCampi(u"CodFis"_s, u"Codice fiscale"_s);
    Apri();
    Scegli(Campo(), 1);
    Scrivi(Valore(), u"x"_s);
    Voce->Attendi(Nessuno);
    Clic(Primo());
    CreaControparti(Db);
    Recordset Altre = Db.OpenRecordset(u"controparti"_s);
    F->ImpostaRecordSource(Altre);  // without CodFis
    QCOMPARE(Campo()->count(), 3);
    QVERIFY(!F->PuoRipetere());
    ScegliCampo(u"Nominativo"_s);
    Scrivi(Valore(), u"neri"_s);
    Clic(Primo());
    QCOMPARE(Altre.Value(u"ID"_s), QVariant(2));
}

void TestFrmRicerche::siChiudeColBrowser()
{
    Apri();
    Browser->close();
    QVERIFY(!F->isVisible());
}

void TestFrmRicerche::primaDiMuovere()
{
    bool Consente = false;
    F->PrimaDiMuovere = [&Consente] { return Consente; };
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scrivi(Valore(), u"bianchi"_s);
    Righe.Edit();
    Clic(Primo());
    QCOMPARE(Corrente(), 1);
    QCOMPARE(Righe.EditMode(), 1);
    Consente = true;
    Clic(Primo());
    QCOMPARE(Corrente(), 2);
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

// ---- its place ----------------------------------------------------------------------------------

void TestFrmRicerche::accantoAllaGriglia_data()
{
    QTest::addColumn<QRect>("Griglia");
    QTest::addColumn<QString>("Dove");
    QTest::newRow("a destra") << QRect(0, 50, 300, 400) << u"destra"_s;
    QTest::newRow("a sinistra") << QRect(500, 50, 300, 400) << u"sinistra"_s;
    QTest::newRow("sotto") << QRect(0, 0, 800, 300) << u"sotto"_s;
    QTest::newRow("sopra") << QRect(0, 300, 800, 500) << u"sopra"_s;
    QTest::newRow("senza posto") << QRect(0, 0, 800, 800) << u"angolo"_s;
}

void TestFrmRicerche::accantoAllaGriglia()
{
    QFETCH(QRect, Griglia);
    QFETCH(QString, Dove);
    const QRect Schermo = F->screen()->availableGeometry();
    QCOMPARE(Schermo.size(), QSize(800, 800));  // that of the platform of the tests
    F->Accosta(Griglia);
    Apri();
    const QRect Mia = F->frameGeometry();
    QVERIFY(Schermo.contains(Mia));
    if (Dove == u"angolo")
        QVERIFY((Schermo.bottomRight() - Mia.bottomRight()).manhattanLength() < 50);  // a frame's guess
    else
        QVERIFY(!Mia.intersects(Griglia));
    QCOMPARE(Dove == u"destra", Mia.left() > Griglia.right());
    QCOMPARE(Dove == u"sotto", Mia.top() > Griglia.bottom());
}

void TestFrmRicerche::nonCopreLaRigaTrovata()
{
    Apri();
    F->move(100, 100);
    const QRect Riga(50, 150, 300, 20);
    QVERIFY(F->frameGeometry().intersects(Riga));
    F->Scopri(Riga);
    QVERIFY(!F->frameGeometry().intersects(Riga));
    const QPoint Posto = F->pos();
    F->Scopri(Riga);
    QCOMPARE(F->pos(), Posto);
    const QRect InFondo(50, 700, 300, 20);
    F->move(100, 600);
    QVERIFY(F->frameGeometry().intersects(InFondo));
    F->Scopri(InFondo);
    QVERIFY(!F->frameGeometry().intersects(InFondo));
    QVERIFY(F->screen()->availableGeometry().contains(F->frameGeometry()));
}

void TestFrmRicerche::clessidra()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scrivi(Valore(), u"bianchi"_s);
    Clic(Primo());
    QCOMPARE(Puntatore, (QStringList{u"si"_s, u"no"_s}));
}

void TestFrmRicerche::ogniControlloHaUnNome()
{
    Apri();
    QCOMPARE(SenzaNome(F), QStringList());
}

#include "TestFrmRicerche.moc"
