// The value of the case and its bracket: what each change brings and what it asks.
#include "nota_prova.h"

using namespace Qt::StringLiterals;

class TestValoreCausa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valoreTrovaLoScaglione_data();
    void valoreTrovaLoScaglione();
    void scaglioneZeroZeroNonSiTrova();
    void valoreDiNessunoScaglioneStragiudiziale();
    void valoreArrotondatoERiscritto();
    void valoreFuoriScaglioneSvuotaLaCasella();
    void valoreInSospeso();
    void valoreIndeterminatoAzzera();
    void scaglioneRifiutatoRimetteTutto();
    void scaglioneRifiutatoSenzaValore();
    void valoreRifiutatoRimetteTutto();
    void stessoScaglioneNonChiede();
    void importoCambiatoChiedeRicalcolo();
    void limiteDelValoreRichiesto();
};
PROVA(TestValoreCausa);

void TestValoreCausa::valoreTrovaLoScaglione_data()
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

void TestValoreCausa::valoreTrovaLoScaglione()
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

void TestValoreCausa::scaglioneZeroZeroNonSiTrova()
{
    Registratore Messaggi;
    Parcella Nota;
    Nota.CodCateg = u"CIV"_s;
    Nota.ListaScaglioni = {{u"Valore Indeterminato"_s, 8, 0.0, 0.0, false}};
    SelSca(Nota, 0.01);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
}

void TestValoreCausa::valoreDiNessunoScaglioneStragiudiziale()
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

void TestValoreCausa::valoreArrotondatoERiscritto()
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

void TestValoreCausa::valoreFuoriScaglioneSvuotaLaCasella()
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

void TestValoreCausa::valoreInSospeso()
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

void TestValoreCausa::valoreIndeterminatoAzzera()
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

void TestValoreCausa::scaglioneRifiutatoRimetteTutto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaSpesa(Nota, 10.0, 0.0);
    Nota.RicalcoloNecessario = false;
    Nota.txtImporto.Testo = u"30000,0"_s;
    Messaggi.Attendi(DomandaRicalcolo, vbNo, u"Domanda:"_s);
    CambiaScaglione(Nota, 5);
    QCOMPARE(Nota.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(Nota.cmbValore, 2);
    QCOMPARE(Nota.Scaglione, 3);
    QVERIFY(!Nota.RicalcoloNecessario);

    Messaggi.Attendi(DomandaRicalcolo, vbYes, u"Domanda:"_s);
    CambiaScaglione(Nota, 5);
    QCOMPARE(Nota.cmbValore, 5);
    QCOMPARE(Nota.Scaglione, 6);
    QVERIFY(Nota.RicalcoloNecessario);
}

// The bracket was chosen without a value: the box shows the accepted 0, not the emptiness it came from.
void TestValoreCausa::scaglioneRifiutatoSenzaValore()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.txtImporto.Testo.clear();
    LasciaImporto(Nota);
    CambiaScaglione(Nota, 1);
    RigaSpesa(Nota, 10.0, 0.0);
    QCOMPARE(Nota.ImportoPrec, 0.0);
    Messaggi.Attendi(DomandaRicalcolo, vbNo, u"Domanda:"_s);
    QVERIFY(!CambiaScaglione(Nota, 5));
    QCOMPARE(Nota.txtImporto.Testo, u"0,00"_s);
    QCOMPARE(Nota.cmbValore, 1);
    QVERIFY(CheckOK(Nota, true));
    QVERIFY(!ImportoInSospeso(Nota));
}

void TestValoreCausa::valoreRifiutatoRimetteTutto()
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
    Messaggi.Attendi(DomandaRicalcolo, vbNo, u"Domanda:"_s);
    LasciaImporto(Nota);
    QCOMPARE(Nota.ImportoPrec, Prima);
    QCOMPARE(Nota.txtImporto.Testo, TestoPrima);
    QCOMPARE(Nota.cmbValore, 2);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(CheckOK(Nota, true));
}

void TestValoreCausa::stessoScaglioneNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    CambiaScaglione(Nota, Nota.cmbValore);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestValoreCausa::importoCambiatoChiedeRicalcolo()
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

void TestValoreCausa::limiteDelValoreRichiesto()
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

#include "TestValoreCausa.moc"
