// Payments on account: currency, empty cells, conversion.
#include "nota_prova.h"

#include "feenote/modAcconti.h"

using namespace Qt::StringLiterals;

class TestAcconti : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rigaNuova();
    void valutaAmmessa_data();
    void valutaAmmessa();
    void valutaRifiutata_data();
    void valutaRifiutata();
    void celleVuoteAZero();
    void mostrati_data();
    void mostrati();
    void parole();
    void inEuro_data();
    void inEuro();
    void sommePerTipo();
    void sommeConLaNotaAssociata();
};
PROVA(TestAcconti);

void TestAcconti::rigaNuova()
{
    Parcella Nota;
    QCOMPARE(NuovoAcconto(Nota), 0);
    QCOMPARE(Nota.xAcconti(0, AccValuta).toString(), u"E"_s);
    QVERIFY(!Nota.xAcconti(0, AccCorrispettivi).isValid());
}

void TestAcconti::valutaAmmessa_data()
{
    QTest::addColumn<QString>("Valuta");
    QTest::addColumn<QString>("Attesa");
    QTest::newRow("euro") << u"E"_s << u"E"_s;
    QTest::newRow("lire") << u"L"_s << u"L"_s;
    QTest::newRow("minuscola") << u"l"_s << u"L"_s;
    QTest::newRow("parola") << u"Euro"_s << u"E"_s;
}

void TestAcconti::valutaAmmessa()
{
    QFETCH(QString, Valuta);
    Registratore Messaggi;
    Parcella Nota;
    RigaAcconto(Nota, Valuta, 1.0, 2.0, 3.0);
    QVERIFY(CheckAcconto(Nota.xAcconti, 0));
    QTEST(Nota.xAcconti(0, AccValuta).toString(), "Attesa");
}

void TestAcconti::valutaRifiutata_data()
{
    QTest::addColumn<QString>("Valuta");
    QTest::newRow("vuota") << QString();
    QTest::newRow("dollari") << u"$"_s;
    QTest::newRow("altra lettera") << u"X"_s;
}

void TestAcconti::valutaRifiutata()
{
    QFETCH(QString, Valuta);
    Registratore Messaggi;
    Parcella Nota;
    RigaAcconto(Nota, Valuta, {}, {}, {});
    const TabellaRighe Prima = Nota.xAcconti;
    Messaggi.Attendi(u"Immettere L o E"_s, vbOK, u"Errore:"_s);
    QVERIFY(!CheckAcconto(Nota.xAcconti, 0));
    QCOMPARE(Nota.xAcconti, Prima);
}

void TestAcconti::celleVuoteAZero()
{
    Registratore Messaggi;
    Parcella Nota;
    RigaAcconto(Nota, u"E"_s, {}, u" "_s, u"5,50"_s);
    QVERIFY(CheckAcconto(Nota.xAcconti, 0));
    QCOMPARE(Nota.xAcconti(0, AccCorrispettivi), QVariant(0.0));
    QCOMPARE(Nota.xAcconti(0, AccSpeseImp), QVariant(0.0));
    QCOMPARE(Nota.xAcconti(0, AccSpeseEsenti), QVariant(u"5,50"_s));

    // A row of nothing but zeros is kept.
    RigaAcconto(Nota, u"E"_s, {}, u""_s, u"  "_s);
    QVERIFY(CheckAcconto(Nota.xAcconti, 1));
    QCOMPARE(Nota.xAcconti.Righe(), 2);
    for (const int Colonna : {AccCorrispettivi, AccSpeseImp, AccSpeseEsenti})
        QCOMPARE(Nota.xAcconti(1, Colonna), QVariant(0.0));
}

void TestAcconti::mostrati_data()
{
    QTest::addColumn<QVariant>("Importo");
    QTest::addColumn<QString>("Valuta");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("euro") << QVariant(1234.5) << u"E"_s << u"1.234,50"_s;
    QTest::newRow("euro negativi") << QVariant(-1234.5) << u"Euro"_s << u"-1.234,50"_s;
    QTest::newRow("lire senza centesimi") << QVariant(1936270.4) << u"L"_s << u"1.936.270"_s;
    QTest::newRow("lire negative") << QVariant(-1000.0) << u"Lire"_s << u"-1.000"_s;
    QTest::newRow("zero") << QVariant(0.0) << u"E"_s << u"0"_s;
    QTest::newRow("Null") << QVariant() << u"E"_s << QString();
}

void TestAcconti::mostrati()
{
    QFETCH(QVariant, Importo);
    QFETCH(QString, Valuta);
    QTEST(TestoAcconto(Importo, Valuta), "Testo");
}

void TestAcconti::parole()
{
    QCOMPARE(ParolaValuta(u"E"_s), u"Euro"_s);
    QCOMPARE(ParolaValuta(u"L"_s), u"Lire"_s);
    QCOMPARE(AltraValuta(u"E"_s), u"L"_s);
    QCOMPARE(AltraValuta(u"Lire"_s), u"E"_s);
}

void TestAcconti::inEuro_data()
{
    QTest::addColumn<QVariant>("Importo");
    QTest::addColumn<QString>("Valuta");
    QTest::addColumn<double>("Euro");
    QTest::newRow("euro come stanno") << QVariant(10.005) << u"E"_s << 10.005;
    QTest::newRow("mille euro in lire") << QVariant(1936270.0) << u"L"_s << 1000.0;
    QTest::newRow("a due decimali") << QVariant(1000.0) << u"Lire"_s << 0.52;  // 0.51645...
    QTest::newRow("testo incollato conta zero") << QVariant(u"molto"_s) << u"E"_s << 0.0;
    QTest::newRow("vuota") << QVariant() << u"L"_s << 0.0;
}

void TestAcconti::inEuro()
{
    QFETCH(QVariant, Importo);
    QFETCH(QString, Valuta);
    QTEST(AccontoInEuro(Importo, Valuta), "Euro");
}

void TestAcconti::sommePerTipo()
{
    Parcella Nota;
    RigaAcconto(Nota, u"E"_s, 100.0, 20.0, 3.5);
    RigaAcconto(Nota, u"L"_s, 1936270.0, {}, 193627.0);
    // Shown or not, the payments reduce.
    Nota.chkAcconti.Attiva = false;
    const SommeAcconti Attese{1100.0, 20.0, 103.5};
    for (const int Tipo : {StampaPrenotula, StampaFatturaAnalitica, StampaContratto, StampaSoloContabile})
        QCOMPARE(CalcolaAcconti(Nota, Tipo), Attese);
    // The short invoice sums what it lists.
    QCOMPARE(CalcolaAcconti(Nota, StampaFatturaSintetica), SommeAcconti());
    Nota.chkAcconti.Attiva = true;
    QCOMPARE(CalcolaAcconti(Nota, StampaFatturaSintetica), Attese);
    QCOMPARE(CalcolaAcconti(Nota, StampaNotaGiudiziale), SommeAcconti());
}

void TestAcconti::sommeConLaNotaAssociata()
{
    Parcella Nota;
    RigaAcconto(Nota, u"E"_s, 100.0, 0.0, 0.0);
    const int Riga = Nota.Multi.xAccontiMulti.AggiungiRiga();
    Nota.Multi.xAccontiMulti(Riga, AccValuta) = u"L"_s;
    Nota.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 1000.0;
    QCOMPARE(CalcolaAcconti(Nota, StampaPrenotula).AccontiCorrispettivi, 100.0);
    Nota.txtParcMultipla = u"rossi"_s;
    QCOMPARE(CalcolaAcconti(Nota, StampaPrenotula).AccontiCorrispettivi, 100.52);
}

#include "TestAcconti.moc"
