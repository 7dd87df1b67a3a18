// The lines of honoraria recalculated from the tariff tables.
#include "catalogo_prova.h"

using namespace Qt::StringLiterals;

class TestOnorariRicalcolo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ricalcoloPerAutorita();
    void ricalcoloPerVariazione();
    void ricalcoloStragiudiziale();
    void ricalcoloSaltaLeVociFuoriTariffa();
    void ricalcoloVoceNonPrevista();
    void importiNulliValgonoZero();
    void righePiuVecchieDeiParametri();
    void righeNuoveNonSonoVecchie();
    void rifiutoNonLasciaRigheVecchie();
    void ricalcoloDopoUnaltraCategoria();
    void ricalcoloPrendeIlNumeroTrovato();
    void ricalcoloSenzaValore();
    void ricalcoloFormulaErrata();
    void ricalcoloUnaVoltaSola();
};
PROVA(TestOnorariRicalcolo);

void TestOnorariRicalcolo::ricalcoloPerAutorita()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Catalogo Voci = CatalogoSu(Nota, 1);
    InserisciOnorario(Nota, Voci);
    TabellaRighe& Righe = Nota.xOnorari;
    Righe(0, OnoData) = u"03/04/2024"_s;
    Righe(0, OnoDescr) = u"Studio del fascicolo"_s;
    Righe(0, OnoQta) = 2.0;
    Righe(0, OnoImporto) = 5.0;  // chosen by the user: a recalculation starts from the medium again

    Nota.cmbAutor = IndiceAutorita(Nota, IDCorteAppello);
    Nota.RicalcoloNecessario = true;
    LoadOnoDir(Nota, Voci);
    // Court of appeal, third bracket: 1440 from 720 to 2304, twice.
    QCOMPARE(Importi(Nota, 0), Euro({2880, 2880, 1440, 4608}));
    QCOMPARE(Base(Nota, 0), Euro({2880, 1440, 4608}));
    QCOMPARE(Righe(0, OnoQta).toDouble(), 2.0);
    QCOMPARE(Righe(0, OnoData).toString(), u"03/04/2024"_s);
    QCOMPARE(Righe(0, OnoDescr).toString(), u"Studio del fascicolo"_s);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestOnorariRicalcolo::ricalcoloPerVariazione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    Catalogo Voci = CatalogoSu(Nota, 105);
    InserisciOnorario(Nota, Voci, {}, 3.0);
    ScegliAumRid(Nota, 6);
    LoadOnoDir(Nota, Voci);
    // Item 95 is not preloaded, yet it is a tariff item: 60, 30, 90 halved.
    QCOMPARE(Importi(Nota, 0), Euro({30, 30, 15, 45}));
    QCOMPARE(Base(Nota, 0), Euro({60, 30, 90}));
    QCOMPARE(Nota.xOnorari(0, OnoVarPerc).toInt(), -50);

    ScegliAumRid(Nota, AumRidLibera);
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Importi(Nota, 0), Euro({60, 60, 30, 90}));
    QCOMPARE(Nota.xOnorari(0, OnoVarPerc).toInt(), 0);
}

void TestOnorariRicalcolo::ricalcoloStragiudiziale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaStragiudiziale();
    Catalogo Voci = CatalogoSu(Nota, 206);
    InserisciOnorario(Nota, Voci);
    ScriviValore(Nota, u"40.000,50"_s);
    LoadOnoDir(Nota, Voci);
    // 600 + 15000.5 x 0.015 = 825.0075; 1750 + 15000.5 x 0.04 = 2350.02; half way 1587.51.
    QCOMPARE(Importi(Nota, 0), Euro({1588, 1588, 825, 2350}));
}

void TestOnorariRicalcolo::ricalcoloSaltaLeVociFuoriTariffa()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"libera"_s, 77, VoceLibera, VoceLibera);
    RigaOnorario(Nota, u"da 900 in su"_s, 78, 900, 1);
    RigaOnorario(Nota, u"a mano"_s, 79, 0, 0);
    const TabellaRighe Prima = Nota.xOnorari;
    Nota.RicalcoloNecessario = true;
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Nota.xOnorari, Prima);
}

void TestOnorariRicalcolo::ricalcoloVoceNonPrevista()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Fase lunare"_s, 77, 12, 12);
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    Nota.RicalcoloNecessario = true;
    Messaggi.Attendi(u"Attenzione, l'onorario Fase lunare non è previsto per l'autorità selezionata!"_s, vbOK,
                     u"Messaggio:"_s);
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Importi(Nota, 0), Euro({77, 77, 77, 77}));
    QCOMPARE(Importi(Nota, 1), Euro({1200, 1200, 600, 1920}));
    // The catalogue on screen keeps its place.
    QCOMPARE(Voci.datOno.Value(u"CodOno"_s).toInt(), 1);
}

/// D.m. 140/2012 foresees all its items: one whose amounts were emptied by hand goes in with 0.
void TestOnorariRicalcolo::importiNulliValgonoZero()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    const QString Numero = QString::number(Nota.Scaglione);
    Ufficio.TariffeProprie().Execute(
        u"UPDATE OnorariCiv SET \"%1Med\"=NULL, \"%1Min\"=NULL, \"%1Max\"=NULL WHERE IDAutor=2 AND CodOno=3"_s
            .arg(Numero));
    Registratore Messaggi;
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 4);
    QCOMPARE(Importi(Nota, 2), Euro({0, 0, 0, 0}));
    Nota.xOnorari(2, OnoImporto) = 55;
    Nota.RicalcoloNecessario = true;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Importi(Nota, 2), Euro({0, 0, 0, 0}));
    Nota.xOnorari.Azzera(OnoColonne);
    QCOMPARE(InserisciOnorario(Nota, CatalogoSu(Nota, 3)), std::optional(0));
    QCOMPARE(Importi(Nota, 0), Euro({0, 0, 0, 0}));
}

void TestOnorariRicalcolo::righePiuVecchieDeiParametri()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    QVERIFY2(!RicalcoloInSospeso(Nota), "senza righe non c'è nulla da ricalcolare");
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    QVERIFY(!RicalcoloInSospeso(Nota));
    ScriviValore(Nota, u"30.001"_s);
    QVERIFY(RicalcoloInSospeso(Nota));
    // A file keeps that the lines are old, not the flag: entering the tab of a reopened note recalculates
    // nothing.
    Nota.RicalcoloNecessario = false;
    LoadOnoDir(Nota, Voci);
    QVERIFY(RicalcoloInSospeso(Nota));
    QCOMPARE(Importi(Nota, 0), Euro({78, 78, 78, 78}));
    Nota.RicalcoloNecessario = true;
    LoadOnoDir(Nota, Voci);
    QVERIFY(!RicalcoloInSospeso(Nota));
    QCOMPARE(Importi(Nota, 0), Euro({1200, 1200, 600, 1920}));
}

void TestOnorariRicalcolo::righeNuoveNonSonoVecchie()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    ScriviValore(Nota, u"30.001"_s);
    Nota.RicalcoloNecessario = false;
    Nota.xOnorari.EliminaRiga(0);
    QVERIFY(!RicalcoloInSospeso(Nota));
    RigaOnorario(Nota, u"Fase di studio"_s, 1200, 1, 1);
    QVERIFY(!RicalcoloInSospeso(Nota));
}

void TestOnorariRicalcolo::rifiutoNonLasciaRigheVecchie()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.RicalcoloNecessario = false;
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    Messaggi.Attendi(u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i "
                     "nuovi parametri.\nConfermi la modifica?"_s,
                     vbNo, u"Domanda:"_s);
    ScriviValore(Nota, u"3.000"_s);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!RicalcoloInSospeso(Nota));
}

// Keys of one category are in no other's catalogue: a line left over is reported, never priced as another
// item.
void TestOnorariRicalcolo::ricalcoloDopoUnaltraCategoria()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const TabellaRighe Prima = Nota.xOnorari;
    CambiaCategoria(Nota, CategStragiudiziale);
    Messaggi.Attendi(u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i "
                     u"nuovi parametri.\nConfermi la modifica?"_s,
                     vbYes, u"Domanda:"_s);
    ScriviValore(Nota, u"30000"_s);
    for (int Riga = 0; Riga < Prima.Righe(); ++Riga)
        Messaggi.Attendi(u"Attenzione, l'onorario "_s + Prima(Riga, OnoDescr).toString() +
                             u" non è previsto per l'autorità selezionata!"_s,
                         vbOK, u"Messaggio:"_s);
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Nota.xOnorari, Prima);
}

void TestOnorariRicalcolo::ricalcoloPrendeIlNumeroTrovato()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"UPDATE OnorariCiv SET NVoce='31' WHERE IDAutor=2 AND CodOno=1"_s);
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    Nota.RicalcoloNecessario = true;
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Nota.xOnorari(0, OnoNVoce).toInt(), 31);
    QCOMPARE(Nota.xOnorari(0, OnoCodVoce).toInt(), 1);
}

void TestOnorariRicalcolo::ricalcoloSenzaValore()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(
        u"UPDATE OnorariCiv SET \"3Min\"=-0.01, NVoce='31' WHERE IDAutor=2 AND CodOno=1"_s);
    Parcella Nota = NotaNuova(CategCivile, IDTribunale);
    SelezionaScaglioneInSilenzio(Nota, 2);
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    Nota.RicalcoloNecessario = true;
    Messaggi.Attendi(
        u"Attenzione, l'onorario Fase di studio prevedendo un valore definito della causa non sarà "
        "ricalcolato"_s);
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Importi(Nota, 0), Euro({78, 78, 78, 78}));
    QCOMPARE(Nota.xOnorari(0, OnoNVoce).toInt(), 31);  // the number is taken before the value is missed

    // With a value the amounts are read as they stand.
    ImpostaValoreInSilenzio(Nota, 30000);
    Nota.RicalcoloNecessario = true;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Importi(Nota, 0), Euro({1200, 1200, 0, 1920}));
}

void TestOnorariRicalcolo::ricalcoloFormulaErrata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaStragiudiziale();
    for (const int Chiave : {206, 209, 211})
        InserisciOnorario(Nota, CatalogoSu(Nota, Chiave));
    Ufficio.TariffeProprie().Execute(u"UPDATE OnorariStra SET \"3Max\"='1/0' WHERE IDOno=209"_s);
    ScegliAumRid(Nota, 6);
    Messaggi.Attendi(u"Errore: Division by zero. (7)"_s, vbOK, u"Errore:"_s);
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    // The line before it stands recalculated, that line and those behind it as they were.
    QCOMPARE(Nota.xOnorari(0, OnoVarPerc).toInt(), -50);
    QCOMPARE(Nota.xOnorari(1, OnoVarPerc).toInt(), 0);
    QCOMPARE(Nota.xOnorari(2, OnoVarPerc).toInt(), 0);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY2(RicalcoloInSospeso(Nota), "le ultime due righe sono rimaste indietro");
    QVERIFY(Voci.datDir.Aperto());
}

void TestOnorariRicalcolo::ricalcoloUnaVoltaSola()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    Nota.RicalcoloNecessario = false;
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(Importi(Nota, 0), Euro({78, 78, 78, 78}));
}

#include "TestOnorariRicalcolo.moc"
