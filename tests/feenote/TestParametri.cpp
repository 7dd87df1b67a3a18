// Category, authority, bracket, value of the case: what each change brings and what it asks.
#include "nota_prova.h"

using namespace Qt::StringLiterals;

namespace {

const QString Incompatibile = u"L'autorità selezionata non è compatibile con la precedente!"_s;
const QString Domanda = u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo "
                        u"con i nuovi parametri.\n"
                        "Confermi la modifica?"_s;

}  // namespace

class TestParametri : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void categoriaDecideListeEStati_data();
    void categoriaDecideListeEStati();
    void stessaCategoriaNonToccaNulla();
    void stessaAutoritaNonChiede();
    void stessoIDAutNonChiede();
    void autoritaSenzaRigheNonChiede();
    void autoritaIncompatibileTorna();
    void autoritaCompatibileChiede_data();
    void autoritaCompatibileChiede();
    void soloSpeseContanoPerLaCompatibilita();
    void elencoCompatibili_data();
    void elencoCompatibili();
    void autoritaPenaleFaDaScaglione();
    void valoreTrovaLoScaglione_data();
    void valoreTrovaLoScaglione();
    void scaglioneZeroZeroNonSiTrova();
    void valoreDiNessunoScaglioneStragiudiziale();
    void valoreArrotondatoERiscritto();
    void valoreFuoriScaglioneSvuotaLaCasella();
    void valoreInSospeso();
    void valoreIndeterminatoAzzera();
    void scaglioneRifiutatoRimetteTutto();
    void valoreRifiutatoRimetteTutto();
    void stessoScaglioneNonChiede();
    void importoCambiatoChiedeRicalcolo();
    void limiteDelValoreRichiesto();
    void verificaInOrdine_data();
    void verificaInOrdine();
    void verificaMutaNonParla();
    void verificaGuardaAncheLaVariazione();
    void testata_data();
    void testata();
    void ventiduesimoScaglione();
    void senzaTariffeListeVuote();
};
PROVA(TestParametri);

void TestParametri::categoriaDecideListeEStati_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<int>("Autorita");
    QTest::addColumn<int>("Scaglioni");
    QTest::addColumn<bool>("Valore");
    QTest::addColumn<bool>("Importo");
    QTest::addColumn<CampoNota>("Fuoco");
    QTest::newRow("civile") << 0 << u"CIV"_s << 16 << 8 << true << true << CampoNota::Nessuno;
    QTest::newRow("penale: nessun valore")
        << 1 << u"PEN"_s << 10 << 8 << false << false << CampoNota::Nessuno;
    QTest::newRow("stragiudiziale: solo importo")
        << 2 << u"STR"_s << 3 << 7 << false << true << CampoNota::Valore;
}

void TestParametri::categoriaDecideListeEStati()
{
    QFETCH(int, Categoria);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    CambiaCategoria(Nota, Categoria);
    QTEST(Nota.CodCateg, "Codice");
    QTEST(int(Nota.ListaAutorita.size()), "Autorita");
    QTEST(int(Nota.ListaScaglioni.size()), "Scaglioni");
    QTEST(Nota.cmbValoreAbilitata, "Valore");
    QTEST(Nota.txtImporto.Abilitata, "Importo");
    QTEST(Nota.Fuoco, "Fuoco");
    QVERIFY(Nota.cmbAutorAbilitata);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    QCOMPARE(Nota.IdxValorePrec, NessunaVoce);
    // A new note is civil before anything is picked: its lists are those already there.
    QCOMPARE(Nota.RicalcoloNecessario, Categoria != CategCivile);
    QVERIFY(Nota.Modificata);
}

void TestParametri::stessaCategoriaNonToccaNulla()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    SetModificata(Nota, false);
    const Parcella Prima = Nota;
    CambiaCategoria(Nota, CategCivile);
    QVERIFY(Nota == Prima);
}

void TestParametri::stessaAutoritaNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    SetModificata(Nota, false);
    CambiaAutorita(Nota, Nota.cmbAutor);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!Nota.Modificata);
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
}

void TestParametri::stessoIDAutNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.ListaAutorita.append({IDTribunale, u"Tribunale ordinario, sezione lavoro"_s, true});
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    const int Seconda = int(Nota.ListaAutorita.size()) - 1;
    CambiaAutorita(Nota, Seconda);
    QCOMPARE(Nota.cmbAutor, Seconda);
    QCOMPARE(Nota.IdxAutorPrec, Seconda);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestParametri::autoritaSenzaRigheNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.RicalcoloNecessario = false;
    // Not among the compatible ones: without lines nothing can be wrong.
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunaleIngiunzione));
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunaleIngiunzione);
    QVERIFY(Nota.RicalcoloNecessario);
}

void TestParametri::autoritaIncompatibileTorna()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    Messaggi.Attendi(Incompatibile, vbOK, u"Errore:"_s);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunaleIngiunzione));
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
    QCOMPARE(Nota.IdxAutorPrec, Nota.cmbAutor);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestParametri::autoritaCompatibileChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("IDFinale");
    QTest::addColumn<bool>("Ricalcolo");
    QTest::newRow("si") << vbYes << IDCorteAppello << true;
    QTest::newRow("no") << vbNo << IDTribunale << false;
}

void TestParametri::autoritaCompatibileChiede()
{
    QFETCH(int, Risposta);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    Messaggi.Attendi(Domanda, Risposta, u"Domanda:"_s);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDCorteAppello));
    QTEST(Nota.IDAutSelezionata(), "IDFinale");
    QTEST(Nota.RicalcoloNecessario, "Ricalcolo");
    QCOMPARE(Nota.IdxAutorPrec, Nota.cmbAutor);
}

void TestParametri::soloSpeseContanoPerLaCompatibilita()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaSpesa(Nota, 10.0, 0.0);
    Messaggi.Attendi(Incompatibile);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunaleIngiunzione));
    // Expenses depend on no authority: a compatible one asks nothing.
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDCorteAppello));
    QCOMPARE(Nota.IDAutSelezionata(), IDCorteAppello);
}

void TestParametri::elencoCompatibili_data()
{
    QTest::addColumn<QVariant>("Elenco");
    QTest::addColumn<int>("Nuova");
    QTest::addColumn<bool>("Compatibile");
    QTest::newRow("tutte") << QVariant(u"*"_s) << 14 << true;
    QTest::newRow("fra virgole") << QVariant(u",1,4,12,"_s) << 4 << true;
    QTest::newRow("non elencata") << QVariant(u",1,4,12,"_s) << 3 << false;
    QTest::newRow("1 non e' parte di 12") << QVariant(u",12,"_s) << 1 << false;
    QTest::newRow("senza virgola iniziale cade la prima") << QVariant(u"1,4,12,"_s) << 1 << false;
    QTest::newRow("senza virgola finale cade l'ultima") << QVariant(u",1,4,12"_s) << 12 << false;
    QTest::newRow("senza virgole esterne resta la media") << QVariant(u"1,4,12"_s) << 4 << true;
    QTest::newRow("Null") << QVariant() << 4 << false;
}

void TestParametri::elencoCompatibili()
{
    QFETCH(QVariant, Elenco);
    QFETCH(int, Nuova);
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"UPDATE Autorità SET Compatib=? WHERE IDAut=2"_s, {Elenco});
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.cmbAutor = IndiceAutorita(Nota, Nuova);
    QTEST(CheckAutorCompatib(Nota), "Compatibile");

    // The former authority is gone from the table: nothing speaks against the move.
    Ufficio.TariffeProprie().Execute(u"DELETE FROM Autorità WHERE IDAut=2"_s);
    QVERIFY(CheckAutorCompatib(Nota));
}

void TestParametri::autoritaPenaleFaDaScaglione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = NotaPenale();
    QCOMPARE(Nota.Scaglione, IDMonocratico);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    Parcella Copia = Nota;
    QVERIFY(CheckOK(Copia, true));
}

void TestParametri::valoreTrovaLoScaglione_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<int>("Indice");
    QTest::addColumn<int>("Scaglione");
    QTest::newRow("primo centesimo") << 0 << u"0,01"_s << 0 << 1;
    QTest::newRow("limite superiore compreso") << 0 << u"5000"_s << 0 << 1;
    QTest::newRow("limite inferiore compreso") << 0 << u"5.000,01"_s << 1 << 2;
    QTest::newRow("mezzo centesimo va al pari e resta sotto") << 0 << u"5000,005"_s << 0 << 1;
    QTest::newRow("ultimo limite") << 0 << u"1.500.000,00"_s << 5 << 6;
    QTest::newRow("oltre") << 0 << u"1.500.000,01"_s << 6 << 7;
    QTest::newRow("oltre ogni scaglione") << 0 << u"1.000.000.000.000"_s << -1 << 0;
    QTest::newRow("stragiudiziale") << 2 << u"30000"_s << 2 << 3;
    QTest::newRow("zero") << 0 << u"0"_s << -1 << 0;
    QTest::newRow("negativo") << 0 << u"-5"_s << -1 << 0;
    QTest::newRow("non e' un numero") << 0 << u"12.5"_s << -1 << 0;
}

void TestParametri::valoreTrovaLoScaglione()
{
    QFETCH(int, Categoria);
    QFETCH(QString, Valore);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    CambiaCategoria(Nota, Categoria);
    ScriviValore(Nota, Valore);
    QTEST(Nota.cmbValore, "Indice");
    QTEST(Nota.Scaglione, "Scaglione");
    QCOMPARE(Nota.IdxValorePrec, Nota.cmbValore);
}

void TestParametri::scaglioneZeroZeroNonSiTrova()
{
    Registratore Messaggi;
    Parcella Nota;
    Nota.CodCateg = u"CIV"_s;
    Nota.ListaScaglioni = {{u"Valore Indeterminato"_s, 8, 0.0, 0.0, false}};
    SelSca(Nota, 0.01);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
}

// With the delivered brackets every value fits one: the last of them is taken away here.
void TestParametri::valoreDiNessunoScaglioneStragiudiziale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"DELETE FROM Scaglioni WHERE Materia='S' AND NumSca=7"_s);
    Parcella Nota = NotaNuova(CategStragiudiziale, IDStragiudiziale);
    ScriviValore(Nota, u"2000000"_s);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    Messaggi.Attendi(u"Non è stato specificato lo scaglione di valore della causa!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!CheckOK(Nota, true));
}

void TestParametri::valoreArrotondatoERiscritto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaNuova(CategCivile, IDTribunale);
    SetModificata(Nota, false);
    ScriviValore(Nota, u"1100,005"_s);
    QCOMPARE(Nota.txtImporto.Testo, u"1.100,00"_s);
    QCOMPARE(Nota.ImportoPrec, 1100.0);
    QVERIFY(Nota.RicalcoloNecessario);
    QVERIFY(Nota.Modificata);
    // A box that reads 0 keeps its text and takes the accepted value away.
    ScriviValore(Nota, u"boh"_s);
    QCOMPARE(Nota.txtImporto.Testo, u"boh"_s);
    QCOMPARE(Nota.ImportoPrec, 0.0);
}

void TestParametri::valoreFuoriScaglioneSvuotaLaCasella()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    CambiaScaglione(Nota, 0);
    QCOMPARE(Nota.txtImporto.Testo, QString());
    QCOMPARE(Nota.Fuoco, CampoNota::Valore);
    QCOMPARE(Nota.cmbValore, 0);
    QCOMPARE(Nota.Scaglione, 1);
    // The rejected value stays the stored one; the check goes by the box.
    QCOMPARE(Nota.ImportoPrec, 30000.0);
    QVERIFY(CheckOK(Nota, true));
}

void TestParametri::valoreInSospeso()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    QVERIFY2(!ImportoInSospeso(Nota), "un valore nel suo scaglione non aspetta nulla");
    CambiaScaglione(Nota, 0);
    QVERIFY2(ImportoInSospeso(Nota), "la casella svuotata non dice più il valore accettato");
    LasciaImporto(Nota);
    QVERIFY(!ImportoInSospeso(Nota));

    Nota = NotaCivile();
    CambiaCategoria(Nota, CategStragiudiziale);
    QVERIFY2(ImportoInSospeso(Nota), "il valore rimasto non ha più uno scaglione");
    LasciaImporto(Nota);
    QVERIFY(Nota.cmbValore >= 0);
    QVERIFY(!ImportoInSospeso(Nota));

    Nota = NotaCivile();
    ScriviValore(Nota, u"9999999999999"_s);
    QVERIFY2(!ImportoInSospeso(Nota), "per un valore fuori da tutti non c'è nulla da cercare");
}

void TestParametri::valoreIndeterminatoAzzera()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    const int Indeterminato = int(Nota.ListaScaglioni.size()) - 1;
    CambiaScaglione(Nota, Indeterminato);
    QCOMPARE(Nota.Scaglione, ScaglioneIndeterminato);
    QCOMPARE(Nota.ImportoPrec, 0.0);
    QCOMPARE(Nota.txtImporto.Testo, QString());
    // A value typed afterwards finds its own bracket again.
    ScriviValore(Nota, u"700"_s);
    QCOMPARE(Nota.cmbValore, 0);
    QCOMPARE(Nota.ImportoPrec, 700.0);
}

void TestParametri::scaglioneRifiutatoRimetteTutto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaSpesa(Nota, 10.0, 0.0);
    Nota.RicalcoloNecessario = false;
    Nota.txtImporto.Testo = u"30000,0"_s;
    Messaggi.Attendi(Domanda, vbNo, u"Domanda:"_s);
    CambiaScaglione(Nota, 5);
    QCOMPARE(Nota.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(Nota.cmbValore, 2);
    QCOMPARE(Nota.Scaglione, 3);
    QVERIFY(!Nota.RicalcoloNecessario);

    Messaggi.Attendi(Domanda, vbYes, u"Domanda:"_s);
    CambiaScaglione(Nota, 5);
    QCOMPARE(Nota.cmbValore, 5);
    QCOMPARE(Nota.Scaglione, 6);
    QVERIFY(Nota.RicalcoloNecessario);
}

void TestParametri::valoreRifiutatoRimetteTutto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaSpesa(Nota, 10.0, 0.0);
    Nota.RicalcoloNecessario = false;
    const double Prima = Nota.ImportoPrec;
    const QString TestoPrima = Nota.txtImporto.Testo;

    // The typed value belongs to another bracket, and the user refuses the recalculation.
    Nota.txtImporto.Testo = u"1000"_s;
    Messaggi.Attendi(Domanda, vbNo, u"Domanda:"_s);
    LasciaImporto(Nota);
    QCOMPARE(Nota.ImportoPrec, Prima);
    QCOMPARE(Nota.txtImporto.Testo, TestoPrima);
    QCOMPARE(Nota.cmbValore, 2);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(CheckOK(Nota, true));
}

void TestParametri::stessoScaglioneNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    CambiaScaglione(Nota, Nota.cmbValore);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestParametri::importoCambiatoChiedeRicalcolo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    ScriviValore(Nota, u"30000"_s);
    QVERIFY(!Nota.RicalcoloNecessario);
    // The same bracket: no question, yet out-of-court formulas give another amount.
    ScriviValore(Nota, u"31000"_s);
    QVERIFY(Nota.RicalcoloNecessario);
    QCOMPARE(Nota.ImportoPrec, 31000.0);
    QCOMPARE(Nota.cmbValore, 2);
}

void TestParametri::limiteDelValoreRichiesto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    QCOMPARE(Nota.ValoreMinRich, 1500000.01);  // the one civil bracket that asks for the value
    CambiaCategoria(Nota, CategStragiudiziale);
    QCOMPARE(Nota.ValoreMinRich, 0.01);
    Nota.CodCateg.clear();
    LoadScaglioni(Nota, u"CIV"_s);
    QCOMPARE(int(Nota.ListaScaglioni.size()), 7);
}

void TestParametri::verificaInOrdine_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<CampoNota>("Fuoco");
    QTest::newRow("categoria") << -1 << 0 << -1 << QString()
                               << u"Non è stata specificata la categoria della pratica!"_s
                               << CampoNota::Categoria;
    QTest::newRow("autorita civile") << 0 << 0 << -1 << QString()
                                     << u"Non è stato specificato il campo Autorità"_s << CampoNota::Autorita;
    QTest::newRow("autorita penale") << 1 << 0 << -1 << QString()
                                     << u"Non è stato specificato il campo Autorità"_s << CampoNota::Autorita;
    QTest::newRow("scaglione civile")
        << 0 << 2 << -1 << u"30000"_s << u"Non è stato specificato lo scaglione di valore della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("scaglione stragiudiziale, senza autorita")
        << 2 << 0 << -1 << QString() << u"Non è stato specificato lo scaglione di valore della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore esatto civile oltre l'ultimo limite")
        << 0 << 2 << 6 << QString() << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore esatto stragiudiziale")
        << 2 << 41 << 0 << u"zero"_s << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore negativo civile")
        << 0 << 2 << 6 << u"-5"_s << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore negativo stragiudiziale")
        << 2 << 41 << 2 << u"-30.000,00"_s << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("negativo dove il valore non occorre")
        << 0 << 2 << 1 << u"-5"_s << QString() << CampoNota::Nessuno;
    QTest::newRow("valore sopra lo scaglione")
        << 0 << 2 << 0 << u"5.000,01"_s
        << u"Il valore della causa specificato non è compreso nello scaglione!"_s << CampoNota::Valore;
    QTest::newRow("valore sotto lo scaglione")
        << 0 << 2 << 1 << u"5.000,00"_s
        << u"Il valore della causa specificato non è compreso nello scaglione!"_s << CampoNota::Valore;
    QTest::newRow("penale: il valore non conta")
        << 1 << 23 << -1 << u"999"_s << QString() << CampoNota::Nessuno;
    QTest::newRow("civile senza valore esatto")
        << 0 << 2 << 1 << QString() << QString() << CampoNota::Nessuno;
}

void TestParametri::verificaInOrdine()
{
    QFETCH(int, Categoria);
    QFETCH(int, IDAut);
    QFETCH(int, Scaglione);
    QFETCH(QString, Importo);
    QFETCH(QString, Messaggio);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    SelezionaInSilenzio(Nota, Categoria, NessunaVoce, Scaglione);
    if (IDAut > 0)
        CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    Nota.txtImporto.Testo = Importo;
    if (!Messaggio.isEmpty())
        Messaggi.Attendi(Messaggio, vbOK, u"Errore:"_s);
    QCOMPARE(CheckOK(Nota, true), Messaggio.isEmpty());
    QTEST(Nota.Fuoco, "Fuoco");
}

void TestParametri::verificaMutaNonParla()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    QVERIFY(!CheckOK(Nota, false));
    QVERIFY(Messaggi.Mostrati().isEmpty());
    QCOMPARE(Nota.Fuoco, CampoNota::Categoria);
}

void TestParametri::verificaGuardaAncheLaVariazione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.AumRidLimiti = u"100;1"_s;
    Nota.cmbAumRid = 0;
    Nota.txtAumRid.Testo = u"101"_s;
    Messaggi.Attendi(u"La variazione deve essere compreso tra 1 e 100!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!CheckOK(Nota, true));
    QCOMPARE(Nota.Fuoco, CampoNota::Variazione);
}

void TestParametri::testata_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Multipla");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("vuota") << -1 << 0 << QString() << QString() << QString();
    QTest::newRow("solo categoria") << 1 << 0 << QString() << QString() << u"Penale"_s;
    QTest::newRow("tutto") << 0 << 2 << u"30000"_s << QString()
                           << u"Civile o Amministrativa - Tribunale ordinario - "
                              "da € 25.000,01 a € 50.000,00 - Valore: 30.000,00 €"_s;
    QTest::newRow("multipla") << 1 << 23 << QString() << u"rossi"_s
                              << u"Penale - Tribunale monocratico (Parcella multipla)"_s;
}

void TestParametri::testata()
{
    QFETCH(int, Categoria);
    QFETCH(int, IDAut);
    QFETCH(QString, Valore);
    QFETCH(QString, Multipla);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    if (Categoria >= 0)
        CambiaCategoria(Nota, Categoria);
    if (IDAut > 0)
        CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    if (!Valore.isEmpty())
        ScriviValore(Nota, Valore);
    Nota.txtParcMultipla = Multipla;
    QTEST(TestoDatiBase(Nota), "Testo");
}

void TestParametri::ventiduesimoScaglione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Database Tariffe = Ufficio.TariffeProprie();
    for (int Riga = 0; Riga < 14; ++Riga)
        Tariffe.Execute(u"INSERT INTO Scaglioni (Materia, NumSca, DesVal, DaVal, AVal, RicValore) "
                        "VALUES ('C', ?, 'altro', 0, 0, 0)"_s,
                        {Riga + 9});
    Parcella Nota;
    Messaggi.Attendi(TestoErrore(9), vbOK, u"Errore:"_s);
    NuovaParcella(Nota);
    QCOMPARE(int(Nota.ListaScaglioni.size()), MassimoScaglioni);
    // One row fewer is no error.
    Tariffe.Execute(u"DELETE FROM Scaglioni WHERE NumSca=22"_s);
    NuovaParcella(Nota);
    QCOMPARE(int(Nota.ListaScaglioni.size()), MassimoScaglioni);
}

void TestParametri::senzaTariffeListeVuote()
{
    const Studio Ufficio;
    sessione::PercorsoProg = Ufficio.Cartella();
    Registratore Messaggi;
    Parcella Nota;
    // Two lists, one file that is missing: one sentence, and it says which.
    Messaggi.Attendi(
        u"Errore: %1: %2parcelle.mdb (3024)"_s.arg(DescrizioneErrore(3024), sessione::PercorsoProg), vbOK,
        u"Errore:"_s);
    NuovaParcella(Nota);
    QVERIFY(Nota.ListaAutorita.isEmpty());
    QVERIFY(Nota.ListaScaglioni.isEmpty());
    QVERIFY(!Nota.cmbAutorAbilitata);
}

#include "TestParametri.moc"
