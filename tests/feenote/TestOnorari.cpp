// From the tariff tables to the lines: insertion, quantity.
#include "catalogo_prova.h"

using namespace Qt::StringLiterals;

class TestOnorari : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rigaNuova();
    void rigaNuovaConVariazione();
    void variazionePrimaDellArrotondamento_data();
    void variazionePrimaDellArrotondamento();
    void codiciDiRiga();
    void rigaInesistente();
    void medio_data();
    void medio();
    void quantita_data();
    void quantita();
    void domandaDellaQuantita_data();
    void domandaDellaQuantita();
    void vocePenaleAOre();
    void quantitaAnnullata();
    void quantitaDataPrima();
    void voceLibera();
    void secondaInserzione_data();
    void secondaInserzione();
    void ingiunzioneSenzaValore_data();
    void ingiunzioneSenzaValore();
    void ingiunzioneConValore();
    void stragiudiziale_data();
    void stragiudiziale();
    void stragiudizialeSenzaValore();
    void formulaErrataAllInserzione();
    void tracciaDelleFormule();
    void postoDellaRiga();
    void catalogoSenzaCategoria();
    void fileScheda_data();
    void fileScheda();
};
PROVA(TestOnorari);

void TestOnorari::rigaNuova()
{
    Parcella Nota;
    DatiOnorario Dati;
    Dati.Quant = 2;
    Dati.NVoce = 3;
    Dati.Descr = u"Fase istruttoria"_s;
    // Ties to even, each amount by itself.
    Dati.Importo = 100.5;
    Dati.Medio = 101.5;
    Dati.Min = 10.49;
    Dati.Max = 200.51;
    Dati.CodVoce = 7;
    QCOMPARE(AddModOnor(Nota, Dati, RigaNuova), 0);
    QCOMPARE(Nota.xOnorari.Righe(), 1);
    QCOMPARE(Importi(Nota, 0), Euro({100, 102, 10, 201}));
    QCOMPARE(Base(Nota, 0), Euro({102, 10, 201}));
    QCOMPARE(Nota.xOnorari(0, OnoData).toString(), QString());
    QCOMPARE(Nota.xOnorari(0, OnoDescr).toString(), u"Fase istruttoria"_s);
    QCOMPARE(Nota.xOnorari(0, OnoQta).toDouble(), 2.0);
    QCOMPARE(Nota.xOnorari(0, OnoCodVoce).toInt(), 7);
    QCOMPARE(Nota.xOnorari(0, OnoNVoce).toInt(), 3);
    QCOMPARE(Nota.xOnorari(0, OnoVarPerc).toInt(), 0);
    QVERIFY(Nota.Modificata);
}

void TestOnorari::rigaNuovaConVariazione()
{
    Parcella Nota;
    DatiOnorario Dati;
    Dati.Importo = Dati.Medio = 1000;
    Dati.Min = 301;
    Dati.Max = 1312.5;
    Dati.VarPerc = -50;
    AddModOnor(Nota, Dati, RigaNuova);
    // The raw product varied and rounded once: 301 / 2 = 150.5 -> 150, 1312.5 / 2 = 656.25 -> 656.
    QCOMPARE(Importi(Nota, 0), Euro({500, 500, 150, 656}));
    QCOMPARE(Base(Nota, 0), Euro({1000, 301, 1312}));
    QCOMPARE(Nota.xOnorari(0, OnoVarPerc).toInt(), -50);
}

void TestOnorari::variazionePrimaDellArrotondamento_data()
{
    QTest::addColumn<double>("Prodotto");
    QTest::addColumn<int>("VarPerc");
    QTest::addColumn<double>("Importo");
    // Rounded before the variation each of them would be another amount.
    QTest::newRow("100,5 con aumento") << 100.5 << 50 << 151.0;     // not 150: 150,75
    QTest::newRow("0,4 con aumento") << 0.4 << 200 << 1.0;          // not 0
    QTest::newRow("2,5 con aumento") << 2.5 << 100 << 5.0;          // not 4
    QTest::newRow("1312,5 con aumento") << 1312.5 << 10 << 1444.0;  // not 1443: 1443,75
}

void TestOnorari::variazionePrimaDellArrotondamento()
{
    QFETCH(double, Prodotto);
    QFETCH(int, VarPerc);
    Parcella Nota;
    DatiOnorario Dati;
    Dati.Importo = Dati.Medio = Dati.Min = Dati.Max = Prodotto;
    Dati.VarPerc = VarPerc;
    AddModOnor(Nota, Dati, RigaNuova);
    QTEST(Importi(Nota, 0).constFirst(), "Importo");
    QCOMPARE(Importi(Nota, 0), QList<double>(4, Importi(Nota, 0).constFirst()));
}

void TestOnorari::codiciDiRiga()
{
    Parcella Nota;
    RigaOnorario(Nota, u"prima"_s, 100);
    RigaOnorario(Nota, u"seconda"_s, 200);
    Nota.xOnorari(1, OnoData) = u"01/02/2024"_s;
    DatiOnorario Dati;
    Dati.Descr = u"riscritta"_s;
    Dati.Importo = Dati.Medio = Dati.Min = Dati.Max = 300;
    Dati.VarPerc = 10;

    QCOMPARE(AddModOnor(Nota, Dati, 1), 1);
    QCOMPARE(Importi(Nota, 1), Euro({330, 330, 330, 330}));
    QCOMPARE(Base(Nota, 1), Euro({200, 200, 200}));  // below 1000 the base stays, the variation's record too
    QCOMPARE(Nota.xOnorari(1, OnoVarPerc).toInt(), 0);
    QCOMPARE(Nota.xOnorari(1, OnoData).toString(), QString());

    QCOMPARE(AddModOnor(Nota, Dati, 1 + RigaConBase), 1);
    QCOMPARE(Base(Nota, 1), Euro({300, 300, 300}));
    QCOMPARE(Nota.xOnorari(1, OnoVarPerc).toInt(), 10);
    QCOMPARE(Nota.xOnorari.Righe(), 2);
    QCOMPARE(Nota.xOnorari(0, OnoDescr).toString(), u"prima"_s);
}

void TestOnorari::rigaInesistente()
{
    Parcella Nota;
    RigaOnorario(Nota, u"prima"_s, 100);
    const Parcella Prima = Nota;
    for (const int Riga : {1, 1 + RigaConBase, -2})
        QCOMPARE(NumeroErrore([&] { AddModOnor(Nota, {}, Riga); }), 9);
    QVERIFY(Nota == Prima);
}

void TestOnorari::medio_data()
{
    QTest::addColumn<double>("Min");
    QTest::addColumn<double>("Max");
    QTest::addColumn<double>("Atteso");
    QTest::newRow("meta'") << 675.0 << 1950.0 << 1312.5;
    QTest::newRow("mezzo centesimo lontano da zero") << 0.0 << 0.01 << 0.01;
    QTest::newRow("massimo nullo") << 100.0 << 0.0 << 0.0;
    QTest::newRow("massimo negativo") << -10.0 << -2.0 << 0.0;
    QTest::newRow("minimo sopra il massimo") << 20.0 << 10.0 << 15.0;
}

void TestOnorari::medio()
{
    QFETCH(double, Min);
    QFETCH(double, Max);
    QTEST(Medio(Min, Max), "Atteso");
}

void TestOnorari::quantita_data()
{
    QTest::addColumn<QString>("Risposta");
    QTest::addColumn<double>("Quantita");
    QTest::newRow("intera") << u"3"_s << 3.0;
    QTest::newRow("mezz'ora") << u"2,5"_s << 3.0;
    QTest::newRow("punto per virgola") << u"2.5"_s << 3.0;
    QTest::newRow("2,01 + 0,49 va al pari") << u"2,01"_s << 2.0;
    QTest::newRow("2,02 passa") << u"2,02"_s << 3.0;
    QTest::newRow("3,01 + 0,49 va al pari") << u"3,01"_s << 4.0;
    QTest::newRow("un minuto") << u"0,02"_s << 1.0;
    QTest::newRow("un attimo") << u"0,01"_s << 0.0;
    QTest::newRow("il punto non fa migliaia") << u"1.000"_s << 1.0;
    QTest::newRow("due punti") << u"1.2.3"_s << 0.0;
    QTest::newRow("vuota") << QString() << 0.0;
    QTest::newRow("zero") << u"0"_s << 0.0;
    QTest::newRow("negativa") << u"-3"_s << 0.0;
    QTest::newRow("meno zero") << u"-0"_s << 0.0;
    QTest::newRow("parole") << u"tre"_s << 0.0;
    QTest::newRow("oltre i numeri") << u"1e400"_s << 0.0;
}

void TestOnorari::quantita()
{
    QFETCH(QString, Risposta);
    QTEST(ArrotondaQuantita(Risposta), "Quantita");
}

void TestOnorari::domandaDellaQuantita_data()
{
    QTest::addColumn<QString>("Descr");
    QTest::addColumn<QString>("QtaOno");
    QTest::addColumn<QString>("Domanda");
    QTest::newRow("ore") << u"Attività a tempo"_s << u"H"_s
                         << u"Per la voce Attività a tempo occorre specificare il numero delle ore impiegate "
                            "(per ogni ora e frazione d'ora).\n\nImmettere la quantità:"_s;
    QTest::newRow("numero") << u"Consultazione orale"_s << u"N"_s
                            << u"Per la voce Consultazione orale occorre specificare il numero\n\n"
                               "Immettere la quantità:"_s;
    QTest::newRow("ore, la frazione oltre la mezz'ora")
        << u"Compenso a tempo"_s << u"T30"_s
        << u"Per la voce Compenso a tempo occorre specificare il numero delle ore impiegate (per ogni ora e "
           "frazione d'ora oltre i 30 minuti: 1,5 è un'ora e mezza).\n\nImmettere la quantità:"_s;
    QTest::newRow("senza descrizione") << QString() << u">50"_s
                                       << u"Per la voce selezionata occorre specificare il numero\n\n"
                                          "Immettere la quantità:"_s;
}

void TestOnorari::domandaDellaQuantita()
{
    QFETCH(QString, Descr);
    QFETCH(QString, QtaOno);
    Registratore Messaggi;
    Messaggi.AttendiImmissione({}, u"1,7"_s);
    QCOMPARE(GetQuant(Descr, QtaOno), 2.0);
    QTEST(Messaggi.UltimoTesto(), "Domanda");
    QCOMPARE(Messaggi.Ultimo().Titolo, u"Immissione quantità"_s);
}

void TestOnorari::vocePenaleAOre()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    const Catalogo Voci = CatalogoSu(Nota, 105);
    Messaggi.AttendiImmissione(u"delle ore impiegate"_s, u"2,5"_s);
    QCOMPARE(InserisciOnorario(Nota, Voci), std::optional<int>(0));
    // Single judge: 20 an hour, from 10 to 30; three hours begun.
    QCOMPARE(Importi(Nota, 0), Euro({60, 60, 30, 90}));
    QCOMPARE(Base(Nota, 0), Euro({60, 30, 90}));
    QCOMPARE(Nota.xOnorari(0, OnoQta).toDouble(), 3.0);
    QCOMPARE(Nota.xOnorari(0, OnoNVoce).toInt(), 95);
    QCOMPARE(Nota.xOnorari(0, OnoCodVoce).toInt(), 105);
    QCOMPARE(Nota.xOnorari(0, OnoDescr).toString(), u"Fase esecutiva, per ogni ora o frazione di ora"_s);
}

void TestOnorari::quantitaAnnullata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    const Catalogo Voci = CatalogoSu(Nota, 105);
    for (const QString& Risposta : {QString(), u"0"_s}) {
        Messaggi.AttendiImmissione(u"delle ore impiegate"_s, Risposta);
        QCOMPARE(InserisciOnorario(Nota, Voci), std::nullopt);
    }
    QVERIFY(Nota.xOnorari.Vuota());
}

void TestOnorari::quantitaDataPrima()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    InserisciOnorario(Nota, CatalogoSu(Nota, 105), {}, 4.0);
    QCOMPARE(Importi(Nota, 0), Euro({80, 80, 40, 120}));
}

void TestOnorari::voceLibera()
{
    const Studio Ufficio;
    Registratore Messaggi;
    for (Parcella Nota : {NotaCivile(), NotaPenale(), NotaStragiudiziale()}) {
        ScegliAumRid(Nota, 6);
        const Catalogo Voci = CatalogoSu(Nota, VoceLibera);
        // Any number of times, without a question, and without the variation.
        InserisciOnorario(Nota, Voci);
        InserisciOnorario(Nota, Voci);
        QCOMPARE(Nota.xOnorari.Righe(), 2);
        QCOMPARE(Importi(Nota, 1), Euro({0, 0, 0, 0}));
        QCOMPARE(Nota.xOnorari(1, OnoNVoce).toInt(), VoceLibera);
        QCOMPARE(Nota.xOnorari(1, OnoVarPerc).toInt(), 0);
        QCOMPARE(Nota.xOnorari(1, OnoDescr).toString(), u"Voce non prevista"_s);
    }
}

void TestOnorari::secondaInserzione_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("Righe");
    QTest::newRow("si") << vbYes << 2;
    QTest::newRow("no") << vbNo << 1;
}

void TestOnorari::secondaInserzione()
{
    QFETCH(int, Risposta);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    const Catalogo Voci = CatalogoSu(Nota, 2);
    InserisciOnorario(Nota, Voci);
    Nota.xOnorari(0, OnoNVoce) = u"2"_s;  // the comparison is numeric
    Messaggi.Attendi(u"L'onorario Fase introduttiva del procedimento è stato già inserito. "
                     "Procedo con l'inserimento?"_s,
                     Risposta, u"Domanda:"_s);
    InserisciOnorario(Nota, Voci);
    QTEST(Nota.xOnorari.Righe(), "Righe");
    // Ordinary court, third bracket.
    QCOMPARE(Importi(Nota, 0), Euro({600, 600, 300, 960}));
}

void TestOnorari::ingiunzioneSenzaValore_data()
{
    QTest::addColumn<int>("Chiave");
    QTest::newRow("procedimento per ingiunzione") << 19;
    QTest::newRow("atto di precetto") << 20;
}

void TestOnorari::ingiunzioneSenzaValore()
{
    QFETCH(int, Chiave);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaNuova(CategCivile, IDTribunaleIngiunzione);
    CambiaScaglione(Nota, 7);
    Messaggi.Attendi(u"Per il procedimento di ingiunzione e per gli atti precetto il valore non può essere "
                     "indeterminato!"_s,
                     vbOK, u"Errore:"_s);
    QCOMPARE(InserisciOnorario(Nota, CatalogoSu(Nota, Chiave)), std::nullopt);
    QVERIFY(Nota.xOnorari.Vuota());
}

void TestOnorari::ingiunzioneConValore()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile(IDTribunaleIngiunzione);
    InserisciOnorario(Nota, CatalogoSu(Nota, 19));
    QCOMPARE(Importi(Nota, 0), Euro({1200, 1200, 400, 2000}));

    // The rule is the civil table's: item 19 of the criminal bracket 8 would be another matter.
    Parcella Monocratico = NotaPenale();
    Monocratico.Scaglione = ScaglioneIndeterminato;
    Catalogo Voci = CatalogoSu(Monocratico, 101);
    QCOMPARE(NumeroErrore([&] { InserisciOnorario(Monocratico, Voci); }), 3265);  // there is no column 8Med
}

void TestOnorari::stragiudiziale_data()
{
    QTest::addColumn<int>("Chiave");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<double>("Quantita");
    QTest::addColumn<Euro>("Attesi");
    // 600 + 5000 x 0.015 = 675 and 1750 + 5000 x 0.04 = 1950; half way 1312.5, to the even euro.
    QTest::newRow("trattativa") << 206 << u"30000"_s << 1.0 << Euro({1312, 1312, 675, 1950});
    // 180 + 5000 x 0.0045 = 202.5 and 525 + 5000 x 0.012 = 585; half way 393.75.
    QTest::newRow("atto notarile") << 209 << u"30000"_s << 1.0 << Euro({394, 394, 202, 585});
    // The same three times: 1181.25, 607.5, 1755. Rounded after the product.
    QTest::newRow("tre atti") << 209 << u"30000"_s << 3.0 << Euro({1181, 1181, 608, 1755});
    // 50 + 10.01 x 0.03 = 50.3003 and 150 + 10.01 x 0.08 = 150.8008.
    QTest::newRow("pochi euro") << 206 << u"10,01"_s << 1.0 << Euro({101, 101, 50, 151});
    QTest::newRow("importi fissi") << 204 << u"30000"_s << 2.0 << Euro({315, 315, 150, 480});
}

void TestOnorari::stragiudiziale()
{
    QFETCH(int, Chiave);
    QFETCH(QString, Valore);
    QFETCH(double, Quantita);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaNuova(CategStragiudiziale, IDStragiudiziale);
    ScriviValore(Nota, Valore);
    InserisciOnorario(Nota, CatalogoSu(Nota, Chiave), {}, Quantita);
    QTEST(Importi(Nota, 0), "Attesi");
}

void TestOnorari::stragiudizialeSenzaValore()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaNuova(CategStragiudiziale, IDStragiudiziale);
    SelezionaScaglioneInSilenzio(Nota, 0);
    InserisciOnorario(Nota, CatalogoSu(Nota, 206));
    QCOMPARE(Importi(Nota, 0), Euro({100, 100, 50, 150}));  // 50 and 150: the formulas at 0
}

void TestOnorari::formulaErrataAllInserzione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"UPDATE OnorariStra SET \"3Min\"='1/0' WHERE IDOno=206"_s);
    Parcella Nota = NotaStragiudiziale();
    Messaggi.Attendi(u"Division by zero."_s, vbOK, u"Errore:"_s);
    InserisciOnorario(Nota, CatalogoSu(Nota, 206));
    // The failed minimum counts 0: half way to 1950 is 975.
    QCOMPARE(Importi(Nota, 0), Euro({975, 975, 0, 1950}));
}

void TestOnorari::tracciaDelleFormule()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaStragiudiziale();
    const Catalogo Voci = CatalogoSu(Nota, 206);
    sessione::ModoDebug = true;
    InserisciOnorario(Nota, Voci);
    QVERIFY(sessione::TestoDebug.contains(u"calcolo strag 1. Min=600+(x-25000)*0.015 Imp=30000"_s));
    QVERIFY(sessione::TestoDebug.contains(u"calcolo strag 2. Min= 675"_s));
}

void TestOnorari::postoDellaRiga()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"prima"_s, 1, 900);
    RigaOnorario(Nota, u"ultima"_s, 1, 900);
    Catalogo Voci = CatalogoSu(Nota, 1);
    Nota.InsUltimaOno = false;
    QCOMPARE(InserisciOnorario(Nota, Voci, 1), std::optional<int>(1));
    QCOMPARE(Nota.xOnorari(2, OnoDescr).toString(), u"ultima"_s);
    QVERIFY(VaiAVoce(Voci, 2));
    Nota.InsUltimaOno = true;
    QCOMPARE(InserisciOnorario(Nota, Voci, 1), std::optional<int>(3));
}

void TestOnorari::catalogoSenzaCategoria()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    RigaOnorario(Nota, u"Fase di studio"_s, 78, 1, 1);
    Nota.RicalcoloNecessario = true;
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(!Voci.datOno.Aperto());
    QVERIFY(Voci.datDir.Aperto());
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestOnorari::fileScheda_data()
{
    QTest::addColumn<QString>("Categoria");
    QTest::addColumn<QVariant>("Chiave");
    QTest::addColumn<QString>("File");
    QTest::newRow("civile") << u"CIV"_s << QVariant(4) << u"C004.htm"_s;
    QTest::newRow("testo") << u"STR"_s << QVariant(u"212"_s) << u"S212.htm"_s;
    QTest::newRow("tre cifre") << u"PEN"_s << QVariant(999) << u"P999.htm"_s;
}

void TestOnorari::fileScheda()
{
    QFETCH(QString, Categoria);
    QFETCH(QVariant, Chiave);
    QTEST(FileScheda(Categoria, Chiave), "File");
}

#include "TestOnorari.moc"
