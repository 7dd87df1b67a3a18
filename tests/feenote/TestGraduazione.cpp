// The modification panel of the honoraria, without a window.
#include "nota_prova.h"

#include "feenote/modGraduazione.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

/// A line of the tariff with its own range.
int Riga(Parcella& Nota, double Importo, double Min, double Medio, double Max, int NVoce = 1, int Codice = 1)
{
    const int Nuova = RigaOnorario(Nota, u"Fase %1"_s.arg(NVoce), Importo, NVoce, Codice);
    Nota.xOnorari(Nuova, OnoMin) = Min;
    Nota.xOnorari(Nuova, OnoMedio) = Medio;
    Nota.xOnorari(Nuova, OnoMax) = Max;
    return Nuova;
}

QList<double> ImportiDi(const Parcella& Nota, int Quale)
{
    QList<double> Valori;
    for (int i = 0; i < Nota.xOnorari.Righe(); ++i)
        Valori.append(NumeroDi(Nota.xOnorari(i, Quale)));
    return Valori;
}

/// 600, 1.200, 1.920 and 300, 500, 1.000, and a free item.
Parcella NotaDaGraduare()
{
    Parcella Nota;
    Riga(Nota, 1200, 600, 1200, 1920, 1, 1);
    Riga(Nota, 777, 300, 500, 1000, 2, 2);
    Riga(Nota, 90, 90, 90, 90, VoceLibera, 0);
    return Nota;
}

}  // namespace

class TestGraduazione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unaRiga();
    void ilCursoreNonMente_data();
    void ilCursoreNonMente();
    void tutteLeRighe();
    void ambitoGiaScelto();
    void checkFascia_data();
    void checkFascia();
    void nessunaFasciaNonMuove();
    void rigaScelta_data();
    void rigaScelta();
    void senzaAmpiezza();
    void cursore_data();
    void cursore();
    void ilPassoPortaAvanti_data();
    void ilPassoPortaAvanti();
    void ogniPassoArrivaInFondo_data();
    void ogniPassoArrivaInFondo();
    void confermaDiUna_data();
    void confermaDiUna();
    void confermaDiTutte_data();
    void confermaDiTutte();
    void confermaSenzaImporto();
    void voceNonPrevista();
    void senzaMedioNonSiApre();
    void senzaRigaNonSiApre();
    void seguire_data();
    void seguire();
    void seguireTutti();
    void rinfrescare();
};
PROVA(TestGraduazione);

void TestGraduazione::unaRiga()
{
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 0);
    QVERIFY(Pannello.Aperto && !Pannello.Tutti && !Pannello.Confermabile);
    QCOMPARE(Pannello.OnoDesc, u"Onorari inseriti: Fase 1"_s);
    QCOMPARE(Pannello.Imp, u"Importo onorario:"_s);
    QCOMPARE(Pannello.ImpOno, u"1.200,00"_s);
    QCOMPARE(Pannello.RigheFasce,
             (QStringList{u"MINIMO      (600,00)"_s, u"MEDIO       (1.200,00)"_s, u"MASSIMO  (1.920,00)"_s}));
    QCOMPARE(Pannello.Evidenziata, int(FasciaMedio));
    QCOMPARE(Pannello.Gradua, 50);
}

void TestGraduazione::ilCursoreNonMente_data()
{
    QTest::addColumn<double>("Importo");
    QTest::addColumn<QString>("Avviso");
    QTest::newRow("minimo") << 600.0 << QString();
    QTest::newRow("medio") << 1200.0 << QString();
    QTest::newRow("massimo") << 1920.0 << QString();
    QTest::newRow("un centesimo oltre") << 1920.01 << u"L'importo è oltre il massimo di 1.920,00"_s;
    QTest::newRow("un centesimo sotto") << 599.99 << u"L'importo è sotto il minimo di 600,00"_s;
    QTest::newRow("fra i due, altrove dal cursore") << 1000.0 << u"Il cursore non segna l'importo attuale"_s;
}

void TestGraduazione::ilCursoreNonMente()
{
    QFETCH(const double, Importo);
    QFETCH(const QString, Avviso);
    Parcella Nota = NotaDaGraduare();
    Nota.xOnorari(0, OnoImporto) = Importo;
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 0);
    QCOMPARE(AvvisoGradua(Pannello), Avviso);
    // Wherever the user puts it, it stands on what it shows.
    for (int Posizione = GraduaMin; Posizione <= GraduaMax; ++Posizione) {
        SpostaGradua(Pannello, Posizione);
        QCOMPARE(AvvisoGradua(Pannello), QString());
    }
    ScegliModAll(Pannello, Nota.xOnorari, true);
    QCOMPARE(AvvisoGradua(Pannello), QString());
}

void TestGraduazione::tutteLeRighe()
{
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 1);
    ScegliModAll(Pannello, Nota.xOnorari, true);
    QVERIFY(Pannello.Aperto && Pannello.Tutti && !Pannello.Confermabile);
    QCOMPARE(Pannello.OnoDesc, u"Tutti gli onorari"_s);
    QCOMPARE(Pannello.Imp, u"Importo totale:"_s);
    QCOMPARE(Pannello.RigheFasce,
             (QStringList{u"MINIMI      (Tot.: 990,00)"_s, u"MEDI        (Tot.: 1.790,00)"_s,
                          u"MASSIMI  (Tot.: 3.010,00)"_s}));
    QCOMPARE(Pannello.Evidenziata, int(FasciaMin));
    QCOMPARE(Pannello.ImpOno, u"990,00"_s);
    ScegliModAll(Pannello, Nota.xOnorari, false);
    QCOMPARE(Pannello.OnoDesc, u"Onorari inseriti: Fase 2"_s);
}

void TestGraduazione::ambitoGiaScelto()
{
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 1);
    for (const bool Tutti : {false, true}) {
        ScegliModAll(Pannello, Nota.xOnorari, Tutti);
        SpostaGradua(Pannello, 30);
        const QString Graduato = Pannello.ImpOno;
        ScegliModAll(Pannello, Nota.xOnorari, Tutti);
        QCOMPARE(Pannello.ImpOno, Graduato);
        QCOMPARE(Pannello.Gradua, 30);
        QVERIFY(Pannello.Confermabile);
    }
}

void TestGraduazione::checkFascia_data()
{
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<int>("Evidenziata");
    QTest::addColumn<int>("Gradua");
    QTest::newRow("minimo") << u"600,00"_s << int(FasciaMin) << 0;
    QTest::newRow("medio") << u"1.200,00"_s << int(FasciaMedio) << 50;
    QTest::newRow("massimo") << u"1920"_s << int(FasciaMax) << 100;
    QTest::newRow("un centesimo sotto il minimo") << u"599,99"_s << NessunaFascia << 33;
    QTest::newRow("un centesimo sopra il minimo") << u"600,01"_s << NessunaFascia << 33;
    QTest::newRow("in mezzo") << u"800"_s << NessunaFascia << 33;
}

void TestGraduazione::checkFascia()
{
    QFETCH(QString, Importo);
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    Pannello.Gradua = 33;
    CheckFascia(Pannello, Importo);
    QTEST(Pannello.Evidenziata, "Evidenziata");
    QTEST(Pannello.Gradua, "Gradua");
}

void TestGraduazione::nessunaFasciaNonMuove()
{
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    Pannello.Gradua = 80;
    CaricaModOno(Pannello, Nota.xOnorari, 1);
    QCOMPARE(Pannello.ImpOno, u"777,00"_s);
    QCOMPARE(Pannello.Evidenziata, NessunaFascia);
    QCOMPARE(Pannello.Gradua, 80);
}

void TestGraduazione::rigaScelta_data()
{
    QTest::addColumn<int>("Fascia");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<int>("Gradua");
    QTest::newRow("minimo") << int(FasciaMin) << u"600,00"_s << 0;
    QTest::newRow("medio: la metà, non la proporzione") << int(FasciaMedio) << u"1.200,00"_s << 50;
    QTest::newRow("massimo") << int(FasciaMax) << u"1.920,00"_s << 100;
}

void TestGraduazione::rigaScelta()
{
    QFETCH(int, Fascia);
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    ScegliFascia(Pannello, Fascia);
    QVERIFY(Pannello.Confermabile);
    QCOMPARE(Pannello.Evidenziata, Fascia);
    QTEST(Pannello.ImpOno, "Importo");
    QTEST(Pannello.Gradua, "Gradua");
}

void TestGraduazione::senzaAmpiezza()
{
    Parcella Nota;
    Riga(Nota, 400, 400, 400, 400);
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    ScegliFascia(Pannello, FasciaMax);
    QCOMPARE(Pannello.Gradua, 0);
    QCOMPARE(Pannello.ImpOno, u"400,00"_s);
    SpostaGradua(Pannello, 70);
    QCOMPARE(Pannello.Gradua, 0);
    QVERIFY(ConfermaModOno(Pannello, Nota.xOnorari));
    QCOMPARE(NumeroDi(Nota.xOnorari(0, OnoImporto)), 400.0);
}

void TestGraduazione::cursore_data()
{
    QTest::addColumn<int>("Posizione");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<int>("Evidenziata");
    QTest::newRow("al minimo") << 0 << u"600,00"_s << int(FasciaMin);
    QTest::newRow("613,2") << 1 << u"613,00"_s << NessunaFascia;
    QTest::newRow("un quarto") << 25 << u"930,00"_s << NessunaFascia;
    QTest::newRow("metà: non è il medio") << 50 << u"1.260,00"_s << NessunaFascia;
    QTest::newRow("al massimo") << 100 << u"1.920,00"_s << int(FasciaMax);
}

void TestGraduazione::cursore()
{
    QFETCH(int, Posizione);
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    SpostaGradua(Pannello, Posizione);
    QVERIFY(Pannello.Confermabile);
    QTEST(Pannello.ImpOno, "Importo");
    QTEST(Pannello.Evidenziata, "Evidenziata");
    QCOMPARE(Pannello.Gradua, Posizione);
}

void TestGraduazione::ilPassoPortaAvanti_data()
{
    QTest::addColumn<double>("Min");
    QTest::addColumn<double>("Medio");
    QTest::addColumn<double>("Max");
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("A");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("un passo comune") << 600.0 << 1200.0 << 1920.0 << 10 << 11 << 11;
    QTest::newRow("indietro") << 600.0 << 1200.0 << 1920.0 << 10 << 9 << 9;
    QTest::newRow("dieci insieme") << 600.0 << 1200.0 << 1920.0 << 10 << 20 << 20;
    QTest::newRow("due euro di ampiezza: fino al primo euro") << 10.0 << 99.0 << 12.0 << 0 << 1 << 26;
    QTest::newRow("il medio al 30 rimanda a 50") << 0.0 << 30.0 << 100.0 << 29 << 30 << 30;
    QTest::newRow("tornando, il medio al 30 si salta") << 0.0 << 30.0 << 100.0 << 31 << 30 << 29;
    QTest::newRow("dal 99 in su") << 600.0 << 1200.0 << 1920.0 << 99 << 100 << 100;
    QTest::newRow("oltre la fine") << 600.0 << 1200.0 << 1920.0 << 95 << 105 << 100;
    QTest::newRow("senza ampiezza") << 400.0 << 400.0 << 400.0 << 0 << 1 << 100;
}

void TestGraduazione::ilPassoPortaAvanti()
{
    QFETCH(double, Min);
    QFETCH(double, Medio);
    QFETCH(double, Max);
    QFETCH(int, Da);
    QFETCH(int, A);
    Parcella Nota;
    Riga(Nota, Min, Min, Medio, Max);
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    QTEST(PassoGradua(Pannello, Da, A), "Atteso");
}

void TestGraduazione::ogniPassoArrivaInFondo_data()
{
    QTest::addColumn<double>("Min");
    QTest::addColumn<double>("Medio");
    QTest::addColumn<double>("Max");
    QTest::newRow("ampia") << 600.0 << 1200.0 << 1920.0;
    QTest::newRow("il medio cade su una posizione") << 0.0 << 30.0 << 100.0;
    QTest::newRow("il medio sopra la metà") << 0.0 << 70.0 << 100.0;
    QTest::newRow("stretta") << 10.0 << 11.0 << 12.0;
    QTest::newRow("un euro") << 10.0 << 10.0 << 11.0;
    QTest::newRow("con i centesimi") << 10.25 << 12.5 << 14.75;
}

void TestGraduazione::ogniPassoArrivaInFondo()
{
    QFETCH(double, Min);
    QFETCH(double, Medio);
    QFETCH(double, Max);
    Parcella Nota;
    Riga(Nota, Min, Min, Medio, Max);
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    for (const int Verso : {1, -1}) {
        const int Fine = Verso > 0 ? GraduaMax : GraduaMin;
        int Passi = 0;
        for (; Pannello.Gradua != Fine && Passi < 200; ++Passi)
            SpostaGradua(Pannello, PassoGradua(Pannello, Pannello.Gradua, Pannello.Gradua + Verso));
        QVERIFY2(Passi <= 100, "un tasto non si ferma mai");
    }
}

void TestGraduazione::confermaDiUna_data()
{
    QTest::addColumn<int>("Fascia");
    QTest::addColumn<int>("Posizione");
    QTest::addColumn<double>("Importo");
    QTest::newRow("minimo") << int(FasciaMin) << -1 << 600.0;
    QTest::newRow("medio: il punto di mezzo") << int(FasciaMedio) << -1 << 1260.0;
    QTest::newRow("massimo") << int(FasciaMax) << -1 << 1920.0;
    QTest::newRow("cursore a metà") << NessunaFascia << 50 << 1260.0;
    QTest::newRow("cursore a 33: 1035,6") << NessunaFascia << 33 << 1036.0;
}

void TestGraduazione::confermaDiUna()
{
    QFETCH(int, Fascia);
    QFETCH(int, Posizione);
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    CaricaModOno(Pannello, Nota.xOnorari, 0);
    ScegliFascia(Pannello, Fascia);
    if (Posizione >= 0)
        SpostaGradua(Pannello, Posizione);
    QVERIFY(ConfermaModOno(Pannello, Nota.xOnorari));
    QTEST(NumeroDi(Nota.xOnorari(0, OnoImporto)), "Importo");
    QCOMPARE(Importi(Nota, 0).mid(1), (QList<double>{1200, 600, 1920}));
    QCOMPARE(NumeroDi(Nota.xOnorari(1, OnoImporto)), 777.0);
    QVERIFY(!Pannello.Aperto);
}

void TestGraduazione::confermaDiTutte_data()
{
    QTest::addColumn<int>("Fascia");
    QTest::addColumn<int>("Posizione");
    QTest::addColumn<QList<double>>("Attesi");
    QTest::newRow("minimi") << int(FasciaMin) << -1 << QList<double>{600, 300, 90};
    QTest::newRow("medi: quelli della tabella") << int(FasciaMedio) << -1 << QList<double>{1200, 500, 90};
    QTest::newRow("massimi") << int(FasciaMax) << -1 << QList<double>{1920, 1000, 90};
    QTest::newRow("cursore a metà: 1.260 e 650") << NessunaFascia << 50 << QList<double>{1260, 650, 90};
    QTest::newRow("cursore a 25") << NessunaFascia << 25 << QList<double>{930, 475, 90};
}

void TestGraduazione::confermaDiTutte()
{
    QFETCH(int, Fascia);
    QFETCH(int, Posizione);
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 0);
    ScegliModAll(Pannello, Nota.xOnorari, true);
    ScegliFascia(Pannello, Fascia);
    if (Posizione >= 0)
        SpostaGradua(Pannello, Posizione);
    QVERIFY(ConfermaModOno(Pannello, Nota.xOnorari));
    QTEST(ImportiDi(Nota, OnoImporto), "Attesi");
    QVERIFY2(!Pannello.Tutti, "si torna a una riga sola");
}

void TestGraduazione::confermaSenzaImporto()
{
    Registratore Voce;
    Parcella Nota;
    Riga(Nota, 0, 600, 1200, 1920);
    Nota.xOnorari(0, OnoImporto) = QVariant();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 0);
    QVERIFY(Pannello.Aperto && Pannello.ImpOno.isEmpty());
    Voce.Attendi(u"Specificare l'importo!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!ConfermaModOno(Pannello, Nota.xOnorari));
    QVERIFY(Pannello.Aperto);
    QVERIFY(!Nota.xOnorari(0, OnoImporto).isValid());
}

void TestGraduazione::voceNonPrevista()
{
    Registratore Voce;
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    Voce.Attendi(u"L'onorario 'Voce non prevista' non è variabile percentualmente!"_s, vbOK, u"Messaggio:"_s);
    ApriModOno(Pannello, Nota.xOnorari, 2);
    QCOMPARE(Voce.Ultimo().Bandiere, vbInformation);
    QVERIFY(!Pannello.Aperto);
}

void TestGraduazione::senzaMedioNonSiApre()
{
    Parcella Nota;
    Nota.xOnorari.AggiungiRiga();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 0);
    QVERIFY(!Pannello.Aperto);
}

void TestGraduazione::senzaRigaNonSiApre()
{
    Parcella Nota;
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, std::nullopt);
    ApriModOno(Pannello, Nota.xOnorari, 0);
    QVERIFY(!Pannello.Aperto);
}

void TestGraduazione::seguire_data()
{
    QTest::addColumn<int>("NVoce");
    QTest::addColumn<int>("Riga");
    QTest::newRow("voce della tariffa") << 899 << 1;
    QTest::newRow("da 900 in su resta") << 900 << 0;
    QTest::newRow("voce libera") << 999 << 0;
    QTest::newRow("senza numero") << 0 << 0;
}

void TestGraduazione::seguire()
{
    QFETCH(int, NVoce);
    Parcella Nota = NotaDaGraduare();
    Nota.xOnorari(1, OnoNVoce) = NVoce;
    Graduazione Pannello;
    SeguiRigaModOno(Pannello, Nota.xOnorari, 1);
    QVERIFY2(!Pannello.Aperto, "un pannello chiuso non si apre");
    ApriModOno(Pannello, Nota.xOnorari, 0);
    ScegliFascia(Pannello, FasciaMax);
    SeguiRigaModOno(Pannello, Nota.xOnorari, 1);
    QTEST(Pannello.Riga, "Riga");
    QCOMPARE(Pannello.Confermabile, Pannello.Riga == 0);
}

void TestGraduazione::seguireTutti()
{
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    ApriModOno(Pannello, Nota.xOnorari, 0);
    ScegliModAll(Pannello, Nota.xOnorari, true);
    SeguiRigaModOno(Pannello, Nota.xOnorari, 1);
    QCOMPARE(Pannello.OnoDesc, u"Tutti gli onorari"_s);
    ScegliModAll(Pannello, Nota.xOnorari, false);
    QCOMPARE(Pannello.Riga, 1);
}

void TestGraduazione::rinfrescare()
{
    Parcella Nota = NotaDaGraduare();
    Graduazione Pannello;
    RinfrescaModOno(Pannello, Nota.xOnorari, 0);
    QVERIFY(!Pannello.Aperto);
    ApriModOno(Pannello, Nota.xOnorari, 1);
    Nota.xOnorari.EliminaRiga(0);
    RinfrescaModOno(Pannello, Nota.xOnorari, 0);
    QCOMPARE(Pannello.Riga, 0);
    QCOMPARE(Pannello.OnoDesc, u"Onorari inseriti: Fase 2"_s);
    Nota.xOnorari(0, OnoImporto) = 300.0;
    RicaricaModOno(Pannello, Nota.xOnorari);
    QCOMPARE(Pannello.ImpOno, u"300,00"_s);
    QCOMPARE(Pannello.Gradua, 0);
    Nota.xOnorari.EliminaRiga(0);
    RinfrescaModOno(Pannello, Nota.xOnorari, 0);
    QVERIFY2(!Pannello.Aperto, "resta la sola voce libera");
}

#include "TestGraduazione.moc"
