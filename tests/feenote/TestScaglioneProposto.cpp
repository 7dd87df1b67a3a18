// The bracket that a typed value would choose, named before the box is left.
#include "feenote/modParametri.h"
#include "tariffa_prova.h"

using namespace Qt::StringLiterals;

class TestScaglioneProposto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Ufficio = std::make_unique<Studio>(); }
    void cleanup() { Ufficio.reset(); }
    void perIlValore_data();
    void perIlValore();
    void senzaScaglioneScelto();
    void indeterminato();
    void nelPenaleNiente();
    void stragiudiziale();
    void lasciareScegliePropostoEPoiNiente();

private:
    std::unique_ptr<Studio> Ufficio;
    Registratore Messaggi;
};
PROVA(TestScaglioneProposto);

/// The note has the third bracket, from 25.000,01 to 50.000,00.
void TestScaglioneProposto::perIlValore_data()
{
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<int>("NumSca");  // 0: nothing is proposed
    QTest::newRow("nello scaglione scelto") << u"40000"_s << 0;
    QTest::newRow("l'ultimo centesimo dello scelto") << u"50.000,00"_s << 0;
    QTest::newRow("il primo del seguente") << u"50.000,01"_s << 4;
    QTest::newRow("l'ultimo di quello prima") << u"25000"_s << 2;
    QTest::newRow("mezzo centesimo al pari") << u"50000,005"_s << 0;
    QTest::newRow("oltre l'ultimo limite scritto") << u"1500000,01"_s << 7;
    QTest::newRow("casella vuota") << u""_s << 0;
    QTest::newRow("zero") << u"0"_s << 0;
    QTest::newRow("negativo") << u"-5"_s << 0;
    QTest::newRow("non un numero") << u"12.5"_s << 0;
    QTest::newRow("oltre ogni scaglione") << u"99999999999999"_s << 0;
}

void TestScaglioneProposto::perIlValore()
{
    QFETCH(QString, Scritto);
    Parcella Nota = NotaCivile();
    QCOMPARE(Nota.ScaglioneSelezionato()->NumSca, 3);
    Nota.txtImporto.Testo = Scritto;
    const int Proposto = ScaglioneProposto(Nota);
    QTEST(Proposto == NessunaVoce ? 0 : Nota.ListaScaglioni[Proposto].NumSca, "NumSca");
    QCOMPARE(Nota.ScaglioneSelezionato()->NumSca, 3);
}

void TestScaglioneProposto::senzaScaglioneScelto()
{
    Parcella Nota = NotaNuova(CategCivile, IDTribunale);
    Nota.txtImporto.Testo = u"3"_s;
    QCOMPARE(Nota.ListaScaglioni.value(ScaglioneProposto(Nota)).NumSca, 1);
}

/// A value gives the undetermined bracket up.
void TestScaglioneProposto::indeterminato()
{
    Parcella Nota = NotaNuova(CategCivile, IDTribunale);
    (void)CambiaScaglione(Nota, PostoScaglione(Nota, ScaglioneIndeterminato));
    QCOMPARE(ScaglioneProposto(Nota), NessunaVoce);
    Nota.txtImporto.Testo = u"30000"_s;
    QCOMPARE(Nota.ListaScaglioni.value(ScaglioneProposto(Nota)).NumSca, 3);
}

void TestScaglioneProposto::nelPenaleNiente()
{
    Parcella Nota = NotaPenale();
    Nota.txtImporto.Testo = u"30000"_s;
    QCOMPARE(ScaglioneProposto(Nota), NessunaVoce);
}

void TestScaglioneProposto::stragiudiziale()
{
    Parcella Nota = NotaNuova(CategStragiudiziale, IDStragiudiziale);
    Nota.txtImporto.Testo = u"30000"_s;
    QCOMPARE(Nota.ListaScaglioni.value(ScaglioneProposto(Nota)).NumSca, 3);
    Parcella Altra = Nota55(CategStragiudiziale, IDStragiudiziale55);
    Altra.txtImporto.Testo = u"30000"_s;
    QCOMPARE(Altra.ListaScaglioni.value(ScaglioneProposto(Altra)).DesVal, u"da € 26.000,01 a € 52.000,00"_s);
}

void TestScaglioneProposto::lasciareScegliePropostoEPoiNiente()
{
    for (const QString& Scritto : {u"1"_s, u"5000"_s, u"5000,01"_s, u"700000"_s, u"2000000"_s}) {
        Parcella Nota = NotaCivile();
        Nota.txtImporto.Testo = Scritto;
        const int Proposto = ScaglioneProposto(Nota);
        QVERIFY(Proposto != NessunaVoce);
        LasciaImporto(Nota);
        QCOMPARE(Nota.cmbValore, Proposto);
        QCOMPARE(ScaglioneProposto(Nota), NessunaVoce);
    }
}

#include "TestScaglioneProposto.moc"
