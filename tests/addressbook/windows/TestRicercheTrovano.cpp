// What the search dialog finds among the rows of a file, and where it stands meanwhile.
#include "bancoricerche.h"

using namespace Qt::StringLiterals;

namespace {

const QString Nessuno = u"Non ho trovato nessun altro elemento che soddisfi i criteri impostati!"_s;

}  // namespace

class TestRicercheTrovano : public QObject, private BancoRicerche
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { PreparaTutto(); }
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void invioTrovaIlPrimo();
    void invioSenzaTesto();
    void primoESuccessivo();
    void nienteTrovato_data();
    void nienteTrovato();
    void ilMotoreRifiuta_data();
    void ilMotoreRifiuta();
    void vuotoNonENullo();
    void f3ConLaRicercaChiusa();
    void f3NellaRicerca();
    void f3SenzaUnaRicerca();
    void segueUnAltroInsieme();
    void unAltraTabella();
    void primaDiMuovere();
    void accantoAllaGriglia_data();
    void accantoAllaGriglia();
    void nonCopreLaRigaTrovata();
    void clessidra();
};
PROVA(TestRicercheTrovano);

void TestRicercheTrovano::invioTrovaIlPrimo()
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

void TestRicercheTrovano::invioSenzaTesto()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Valore()->setFocus();
    Premi(Qt::Key_Return);
    QCOMPARE(Campane, 0);
    QVERIFY(F->isVisible());
}

void TestRicercheTrovano::primoESuccessivo()
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

void TestRicercheTrovano::nienteTrovato_data()
{
    QTest::addColumn<int>("Indice");
    QTest::newRow("primo") << 0;
    QTest::newRow("successivo") << 1;
}

void TestRicercheTrovano::nienteTrovato()
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

void TestRicercheTrovano::ilMotoreRifiuta_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("31 febbraio") << u"DataNascita"_s << u"31/02/2020"_s;
    QTest::newRow("memo") << u"Note"_s << u"prima"_s;
    QTest::newRow("numero incollato") << u"Anni"_s << u"dieci"_s;
}

void TestRicercheTrovano::ilMotoreRifiuta()
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

void TestRicercheTrovano::vuotoNonENullo()
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

void TestRicercheTrovano::f3ConLaRicercaChiusa()
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

void TestRicercheTrovano::f3NellaRicerca()
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

void TestRicercheTrovano::f3SenzaUnaRicerca()
{
    QVERIFY(!F->PuoRipetere());
    F->Ripeti(false);
    QVERIFY(F->isVisible());
    QCOMPARE(Campane, 0);
}

void TestRicercheTrovano::segueUnAltroInsieme()
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

void TestRicercheTrovano::unAltraTabella()
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

void TestRicercheTrovano::primaDiMuovere()
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

void TestRicercheTrovano::accantoAllaGriglia_data()
{
    QTest::addColumn<QRect>("Griglia");
    QTest::addColumn<QString>("Dove");
    QTest::newRow("a destra") << QRect(0, 50, 300, 400) << u"destra"_s;
    QTest::newRow("a sinistra") << QRect(500, 50, 300, 400) << u"sinistra"_s;
    QTest::newRow("sotto") << QRect(0, 0, 800, 300) << u"sotto"_s;
    QTest::newRow("sopra") << QRect(0, 300, 800, 500) << u"sopra"_s;
    QTest::newRow("senza posto") << QRect(0, 0, 800, 800) << u"angolo"_s;
}

void TestRicercheTrovano::accantoAllaGriglia()
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

void TestRicercheTrovano::nonCopreLaRigaTrovata()
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

void TestRicercheTrovano::clessidra()
{
    Apri();
    ScegliCampo(u"Nominativo"_s);
    Scrivi(Valore(), u"bianchi"_s);
    Clic(Primo());
    QCOMPARE(Puntatore, (QStringList{u"si"_s, u"no"_s}));
}

#include "TestRicercheTrovano.moc"
