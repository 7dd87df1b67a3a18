// The standard items of a court come by themselves into an empty note.
#include "nota_prova.h"

using namespace Qt::StringLiterals;

class TestPrecaricamento : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void quattroFasiInOrdine();
    void ancheColModoRigaCorrente();
    void conLaVariazione();
    void penaleSenzaLeOre();
    void novantacinqueNonENovecento();
    void maiSuRighePresenti();
    void ogniVoltaFinoARighe();
    void maiInStragiudiziale();
    void autoritaSenzaVociProprie();
    void senzaAutorita();
};
PROVA(TestPrecaricamento);

namespace {

QStringList Descrizioni(const Parcella& Nota)
{
    QStringList Testi;
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga)
        Testi << Nota.xOnorari(Riga, OnoDescr).toString();
    return Testi;
}

const QStringList FasiCivili{u"Fase di studio della controversia"_s, u"Fase introduttiva del procedimento"_s,
                             u"Fase istruttoria"_s, u"Fase decisoria"_s};

}  // namespace

void TestPrecaricamento::quattroFasiInOrdine()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 4);
    QCOMPARE(Descrizioni(Nota), FasiCivili);
    // Ordinary court, third bracket, as the decree's table has them.
    QCOMPARE(Importi(Nota, 0), QList<double>({1200, 1200, 600, 1920}));
    QCOMPARE(Importi(Nota, 1), QList<double>({600, 600, 300, 960}));
    QCOMPARE(Importi(Nota, 2), QList<double>({1200, 1200, 360, 3000}));
    QCOMPARE(Importi(Nota, 3), QList<double>({1500, 1500, 750, 2400}));
    for (int Riga = 0; Riga < 4; ++Riga) {
        QCOMPARE(Nota.xOnorari(Riga, OnoQta).toDouble(), 1.0);
        QCOMPARE(Nota.xOnorari(Riga, OnoNVoce).toInt(), Riga + 1);
        QCOMPARE(Nota.xOnorari(Riga, OnoCodVoce).toInt(), Riga + 1);
    }
    QCOMPARE(Voci.datOno.Value(u"CodOno"_s).toInt(), 1);  // back on the first record
}

void TestPrecaricamento::ancheColModoRigaCorrente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.InsUltimaOno = false;
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Descrizioni(Nota), FasiCivili);
    QVERIFY(!Nota.InsUltimaOno);
}

void TestPrecaricamento::conLaVariazione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.AumRidVarP = -50;
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Importi(Nota, 0), QList<double>({600, 600, 300, 960}));
    QCOMPARE(Base(Nota, 0), QList<double>({1200, 600, 1920}));
    QCOMPARE(Nota.xOnorari(0, OnoVarPerc).toInt(), -50);
}

void TestPrecaricamento::penaleSenzaLeOre()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 4);
    // Single judge: 300, 600, 900, 900. Item "95" stands above "900" as a text and is left to the user.
    QCOMPARE(CalcolaSomme(Nota).TotOnorari, 2700.0);
    QCOMPARE(CalcolaSomme(Nota).TotMin, 990.0);   // 150 + 300 + 270 + 270
    QCOMPARE(CalcolaSomme(Nota).TotMax, 5250.0);  // 1200 + 900 + 1800 + 1350
}

void TestPrecaricamento::novantacinqueNonENovecento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Database Tariffe = Ufficio.TariffeProprie();
    // As texts "1000" and "9", which is its beginning, stand below "900"; "91" and "900" itself do not.
    Tariffe.Execute(u"UPDATE OnorariCiv SET NVoce='1000' WHERE IDAutor=2 AND CodOno=1"_s);
    Tariffe.Execute(u"UPDATE OnorariCiv SET NVoce='9' WHERE IDAutor=2 AND CodOno=2"_s);
    Tariffe.Execute(u"UPDATE OnorariCiv SET NVoce='900' WHERE IDAutor=2 AND CodOno=3"_s);
    Tariffe.Execute(u"UPDATE OnorariCiv SET NVoce='91' WHERE IDAutor=2 AND CodOno=4"_s);
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 2);
    QCOMPARE(Descrizioni(Nota), FasiCivili.mid(0, 2));
}

void TestPrecaricamento::maiSuRighePresenti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"a mano"_s, 10, VoceLibera, VoceLibera);
    Nota.RicalcoloNecessario = false;
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 0);
    QCOMPARE(Nota.xOnorari.Righe(), 1);
}

void TestPrecaricamento::ogniVoltaFinoARighe()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(EntraOnorari(Nota, Voci), 0);
    Nota.xOnorari.Azzera(OnoColonne);
    QCOMPARE(EntraOnorari(Nota, Voci), 4);
}

void TestPrecaricamento::maiInStragiudiziale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaStragiudiziale();
    Nota.ListaAutorita[Nota.cmbAutor].PreLoad = true;
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 0);
    QVERIFY(Nota.xOnorari.Vuota());
}

void TestPrecaricamento::autoritaSenzaVociProprie()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile(IDTribunaleIngiunzione);
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 0);
    // Its own two items and the free one are offered all the same.
    QCOMPARE(Voci.datOno.RecordCount(), 3);
}

void TestPrecaricamento::senzaAutorita()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    CambiaCategoria(Nota, CategCivile);
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 0);
    QCOMPARE(Voci.datOno.RecordCount(), 1);  // only the item that shows for every authority
}

#include "TestPrecaricamento.moc"
