// A note under D.m. 55/2014: amounts to the cent, brackets, what the tariff does not provide.
#include "supporto/prova.h"

#include "feenote/modGraduazione.h"
#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"
#include "tariffa_prova.h"
#include "tariffs/decreto.h"

using namespace Qt::StringLiterals;

class TestTariffa55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sigle_data();
    void sigle();
    void ilDecretoDelleNuove();
    void laNotaNuova();
    void fasi_data();
    void fasi();
    void gradiniOltreIlMezzoMilione_data();
    void gradiniOltreIlMezzoMilione();
    void oltreLUltimoScaglione();
    void nelDecretoDelDodiciNullaCambia();
    void valoriIndeterminati();
    void voceSenzaImportoNelloScaglione();
    void ricalcoloSenzaImporto();
    void importoCheManca_data();
    void importoCheManca();
    void stragiudizialeSenzaUnEstremo();
    void rifiutoPerNumeroDelloScaglione_data();
    void rifiutoPerNumeroDelloScaglione();
    void faseCheIlGiudiceNonHa();
    void graduaAiCentesimi_data();
    void graduaAiCentesimi();
    void fasciaDiUnaRiga_data();
    void fasciaDiUnaRiga();
    void striscia();
    void speseGeneraliDelDecreto();
    void formuleStragiudiziali_data();
    void formuleStragiudiziali();
    void lOraPattuita_data();
    void lOraPattuita();
};
PROVA(TestTariffa55);

void TestTariffa55::sigle_data()
{
    QTest::addColumn<QString>("Sigla");
    QTest::addColumn<QString>("Nome");
    QTest::newRow("2012") << u"140"_s << u"D.m. 140/2012"_s;
    QTest::newRow("2014") << u"55"_s << u"D.m. 55/2014"_s;
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("another one") << u"37"_s << QString();
    QTest::newRow("a longer word") << u"555"_s << QString();
}

void TestTariffa55::sigle()
{
    QFETCH(QString, Sigla);
    QFETCH(QString, Nome);
    const Decreto* Trovato = DecretoDi(Sigla);
    QCOMPARE(Trovato ? Trovato->Nome.toString() : QString(), Nome);
}

void TestTariffa55::ilDecretoDelleNuove()
{
    const Studio Ufficio;
    QVERIFY(!DecretoScelto());
    QCOMPARE(&DecretoNuove(), &Dm140);
    sessione::Tariffa = u"55"_s;
    QVERIFY(DecretoScelto());
    QCOMPARE(&DecretoNuove(), &Dm55);
    Parcella Nota;
    NuovaParcella(Nota);
    QCOMPARE(Nota.Tariffa, &Dm55);
    sessione::Tariffa = u"di domani"_s;  // a settings file edited by hand
    QVERIFY(!DecretoScelto());
    NuovaParcella(Nota);
    QCOMPARE(Nota.Tariffa, &Dm140);
}

void TestTariffa55::laNotaNuova()
{
    const Studio Ufficio;
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    QVERIFY(!Nota.Modificata);
    QCOMPARE(Nota.ListaScaglioni.size(), 14);
    QCOMPARE(IndiceAutorita(Nota, 2), NessunaVoce);  // that number is an office of the other decree
    QVERIFY(IndiceAutorita(Nota, IDTribunale55) >= 0);
    QVERIFY(Nota.chkSpeseGen.Attiva);
    QCOMPARE(Nota.txtSpeGen.Testo, u"15"_s);
    Parcella Altra;
    NuovaParcella(Altra, Dm140);
    QVERIFY(!Altra.chkSpeseGen.Attiva);
    QCOMPARE(Altra.txtSpeGen.Testo, QString());
}

void TestTariffa55::fasi_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QList<int>>("Medi");
    // Mediums of the tables, in euro.
    QTest::newRow("court, fourth bracket")
        << int(CategCivile) << IDTribunale55 << u"30000"_s << QList{1701, 1204, 1806, 2905};
    QTest::newRow("court, first bracket to its end")
        << int(CategCivile) << IDTribunale55 << u"1100"_s << QList{131, 131, 200, 200};
    QTest::newRow("court, second bracket from its beginning")
        << int(CategCivile) << IDTribunale55 << u"1100,01"_s << QList{425, 425, 851, 851};
    QTest::newRow("justice of the peace")
        << int(CategCivile) << IDGiudiceDiPace55 << u"5000"_s << QList{236, 252, 352, 425};
    QTest::newRow("labour") << int(CategCivile) << IDLavoro55 << u"30000"_s << QList{3245, 1202, 1880, 2930};
    QTest::newRow("order for payment") << int(CategCivile) << IDMonitorio55 << u"1000"_s << QList{473};
    QTest::newRow("single judge of the criminal court")
        << int(CategPenale) << IDMonocratico55 << QString() << QList{473, 567, 1134, 1418};
}

void TestTariffa55::fasi()
{
    QFETCH(int, Categoria);
    QFETCH(int, Ufficio);
    QFETCH(QString, Valore);
    QFETCH(QList<int>, Medi);
    const Studio Suo;
    Registratore Voce;
    const Parcella Nota = Nota55ConFasi(Categoria, Ufficio, Valore);
    QList<qint64> Attesi;
    QList<qint64> Minimi;
    QList<qint64> Massimi;
    for (const int Medio : Medi) {
        Attesi += Medio * 100;
        Minimi += Medio * 50;  // half of the medium, up and down, since 2022
        Massimi += Medio * 150;
    }
    QCOMPARE(Colonna(Nota, OnoImporto), Attesi);
    QCOMPARE(Colonna(Nota, OnoMedio), Attesi);
    QCOMPARE(Colonna(Nota, OnoMin), Minimi);
    QCOMPARE(Colonna(Nota, OnoMax), Massimi);
    QCOMPARE(Colonna(Nota, OnoBaseMedio), Attesi);
    QCOMPARE(Colonna(Nota, OnoBaseMin), Minimi);
    QCOMPARE(Colonna(Nota, OnoBaseMax), Massimi);
}

void TestTariffa55::gradiniOltreIlMezzoMilione_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<qint64>("Studio");
    // The published example of the steps of article 6: each thirty per cent more than the one before.
    QTest::newRow("to 520.000") << u"520000"_s << 6 << qint64(354400);
    QTest::newRow("to a million") << u"520000,01"_s << 7 << qint64(460720);
    QTest::newRow("a million") << u"1000000"_s << 7 << qint64(460720);
    QTest::newRow("to two") << u"1000000,01"_s << 9 << qint64(598936);
    QTest::newRow("to four") << u"4000000"_s << 10 << qint64(778617);
    QTest::newRow("to eight") << u"4000000,01"_s << 11 << qint64(1012202);
    QTest::newRow("to sixteen") << u"16000000"_s << 12 << qint64(1315863);
}

void TestTariffa55::gradiniOltreIlMezzoMilione()
{
    QFETCH(QString, Valore);
    QFETCH(int, Scaglione);
    QFETCH(qint64, Studio);
    const ::Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55ConFasi(CategCivile, IDTribunale55, Valore);
    QVERIFY(CheckOK(Nota, true));
    QCOMPARE(Nota.Scaglione, Scaglione);
    QCOMPARE(Colonna(Nota, OnoImporto).first(), Studio);
    QCOMPARE(Nota.xOnorari.Righe(), 4);
}

void TestTariffa55::oltreLUltimoScaglione()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"16000000,01"_s);
    Voce.Attendi(
        u"Il valore della causa supera € 16.000.000,00, limite degli scaglioni della tariffa D.m. 55/2014!\n"
        u"Per un valore maggiore si sceglie l'ultimo scaglione senza indicare il valore, e si correggono "
        u"gli importi."_s);
    QVERIFY(!CheckOK(Nota, true));
    QCOMPARE(Nota.Fuoco, CampoNota::Valore);
    // What the sentence says is a way on.
    QVERIFY(CambiaScaglione(Nota, 10));
    QCOMPARE(Nota.Scaglione, 12);
    QCOMPARE(Nota.txtImporto.Testo, QString());
    QVERIFY(CheckOK(Nota, true));
}

void TestTariffa55::nelDecretoDelDodiciNullaCambia()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaNuova(CategCivile, IDTribunale);
    ScriviValore(Nota, u"9999999999999"_s);
    Voce.Attendi(u"Non è stato specificato lo scaglione di valore della causa!"_s);
    QVERIFY(!CheckOK(Nota, true));
    Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{120000, 60000, 120000, 150000}));
    CaricaParti(Nota, 3);
    QCOMPARE(AumentoParti(Nota), 0);
    SegnaRicalcolo(Nota);
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{120000, 60000, 120000, 150000}));
}

void TestTariffa55::valoriIndeterminati()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    QCOMPARE(Nota.Scaglione, 4);
    // The three undetermined brackets have the amounts of the fourth, the fifth and the sixth.
    const QList<std::pair<int, qint64>> Attesi{{8, 170100}, {13, 255200}, {14, 354400}};
    for (const auto& [Numero, Studio] : Attesi) {
        const auto Trovato = std::ranges::find(Nota.ListaScaglioni, Numero, &ScaglioneValore::NumSca);
        QVERIFY(CambiaScaglione(Nota, int(Trovato - Nota.ListaScaglioni.begin())));
        QVERIFY(Nota.txtImporto.Testo.isEmpty());
        QCOMPARE(Nota.Scaglione, Numero);
        QVERIFY(CheckOK(Nota, true));
        Parcella Copia = Nota;
        Catalogo Voci;
        EntraOnorari(Copia, Voci);
        QCOMPARE(Colonna(Copia, OnoImporto).first(), Studio);
        ScriviValore(Nota, u"30000"_s);  // a value finds its bracket again
        QCOMPARE(Nota.Scaglione, 4);
    }
}

void TestTariffa55::voceSenzaImportoNelloScaglione()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDGiudiceDiPace55, u"30000"_s);
    Catalogo Voci;
    Voce.Attendi(
        u"Attenzione, nessuna voce è prevista per lo scaglione selezionato nella tariffa D.m. 55/2014!"_s);
    QCOMPARE(EntraOnorari(Nota, Voci), 0);
    QVERIFY(VaiAVoce(Voci, 301));
    Voce.Attendi(
        u"L'onorario Fase di studio della controversia non è previsto per lo scaglione selezionato nella "
        u"tariffa D.m. 55/2014!"_s);
    QVERIFY(!InserisciOnorario(Nota, Voci));
    QVERIFY(Nota.xOnorari.Vuota());
    QVERIFY(VaiAVoce(Voci, 399));  // the free item has its amount from the user
    QVERIFY(InserisciOnorario(Nota, Voci));
}

void TestTariffa55::ricalcoloSenzaImporto()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55ConFasi(CategCivile, IDGiudiceDiPace55, u"5000"_s);
    const QList<qint64> Prima = Colonna(Nota, OnoImporto);
    QCOMPARE(Prima.size(), 4);
    Voce.Attendi(
        u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi "
        u"parametri.\nConfermi la modifica?"_s,
        vbYes);
    ScriviValore(Nota, u"30000"_s);
    for (const auto* Fase : {u"Fase di studio della controversia", u"Fase introduttiva del giudizio",
                             u"Fase istruttoria e/o di trattazione", u"Fase decisionale"})
        Voce.Attendi(
            u"Attenzione, l'onorario %1 non è previsto per lo scaglione selezionato nella tariffa D.m. "
            u"55/2014!"_s.arg(QStringView(Fase)));
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), Prima);
}

void TestTariffa55::importoCheManca_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<QString>("Colonna");
    for (const auto* Importo : {"Med", "Min", "Max"}) {
        QTest::addRow("civil, %s", Importo) << int(CategCivile) << u"4"_s + QLatin1String(Importo);
        QTest::addRow("criminal, %s", Importo) << int(CategPenale) << u"138"_s + QLatin1String(Importo);
    }
}

/// A table that was edited by hand: one amount of the three that lacks is as good as none.
void TestTariffa55::importoCheManca()
{
    QFETCH(int, Categoria);
    QFETCH(QString, Colonna);
    const bool DiCausa = Categoria == CategCivile;
    const Studio Suo;
    Tariffa55Propria(Suo).Execute(
        (DiCausa ? u"UPDATE OnorariCiv SET \"%1\"=NULL WHERE CodOno=301 AND IDAutor=102"_s
                 : u"UPDATE OnorariPen SET \"%1\"=NULL WHERE IDOno=401"_s)
            .arg(Colonna));
    Registratore Voce;
    Parcella Nota =
        Nota55(Categoria, DiCausa ? IDTribunale55 : IDMonocratico55, DiCausa ? u"30000"_s : QString());
    Catalogo Voci;
    QCOMPARE(EntraOnorari(Nota, Voci), 3);  // the other phases
    QVERIFY(VaiAVoce(Voci, DiCausa ? 301 : 401));
    Voce.Attendi(
        u"L'onorario Fase di studio della controversia non è previsto per %1 nella tariffa D.m. 55/2014!"_s
            .arg(DiCausa ? u"lo scaglione selezionato" : u"l'autorità selezionata"));
    QVERIFY(!InserisciOnorario(Nota, Voci));
    QCOMPARE(Nota.xOnorari.Righe(), 3);
}

void TestTariffa55::stragiudizialeSenzaUnEstremo()
{
    const Studio Suo;
    Tariffa55Propria(Suo).Execute(u"UPDATE OnorariStra SET \"3Min\"=NULL WHERE IDOno=501"_s);
    Registratore Voce;
    Voce.Tollera();  // what the evaluator says of no formula
    Parcella Nota = Nota55(CategStragiudiziale, IDStragiudiziale55, u"20000"_s);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 501));
    QVERIFY(InserisciOnorario(Nota, Voci));
    QCOMPARE(Centesimi(Nota.xOnorari(0, OnoMax)), qint64(297750));
}

void TestTariffa55::rifiutoPerNumeroDelloScaglione_data()
{
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<bool>("Rifiutata");
    QTest::newRow("the bracket of the rule") << 8 << true;
    QTest::newRow("undetermined by its text") << 13 << false;
    QTest::newRow("of particular importance") << 14 << false;
    QTest::newRow("of a value") << 4 << false;
}

/// Items 19 and 20 refuse one bracket, by its number.
void TestTariffa55::rifiutoPerNumeroDelloScaglione()
{
    QFETCH(int, Scaglione);
    QFETCH(bool, Rifiutata);
    const Studio Suo;
    Tariffa55Propria(Suo).Execute(u"UPDATE OnorariCiv SET NVoce='19' WHERE CodOno=301 AND IDAutor=102"_s);
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    const auto Trovato = std::ranges::find(Nota.ListaScaglioni, Scaglione, &ScaglioneValore::NumSca);
    QVERIFY(CambiaScaglione(Nota, int(Trovato - Nota.ListaScaglioni.begin())));
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 301));
    if (Rifiutata)
        Voce.Attendi(u"Per il procedimento di ingiunzione e per gli atti precetto il valore non può essere "
                     u"indeterminato!"_s);
    QCOMPARE(InserisciOnorario(Nota, Voci).has_value(), !Rifiutata);
}

void TestTariffa55::faseCheIlGiudiceNonHa()
{
    const Studio Suo;
    Registratore Voce;  // a court without such a phase is no matter for a word
    Parcella Nota = Nota55ConFasi(CategPenale, IDCassazionePenale55);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{94500, 264600, 274100}));
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 403));
    Voce.Attendi(
        u"L'onorario Fase istruttoria e/o dibattimentale non è previsto per l'autorità selezionata nella "
        u"tariffa D.m. 55/2014!"_s);
    QVERIFY(!InserisciOnorario(Nota, Voci));
}

void TestTariffa55::graduaAiCentesimi_data()
{
    QTest::addColumn<int>("Posizione");
    QTest::addColumn<qint64>("Nuovo");
    QTest::addColumn<qint64>("Vecchio");
    // 850,50 to 2.551,50 by the decree in force; 600 to 1.920 by the other, in whole euro.
    QTest::newRow("a quarter") << 25 << qint64(127575) << qint64(93000);
    QTest::newRow("a third or so") << 33 << qint64(141183) << qint64(103600);  // 600 + 435,6
    QTest::newRow("one hundredth") << 1 << qint64(86751) << qint64(61300);     // 600 + 13,2
    QTest::newRow("the least") << 0 << qint64(85050) << qint64(60000);
    QTest::newRow("the most") << 100 << qint64(255150) << qint64(192000);
}

void TestTariffa55::graduaAiCentesimi()
{
    QFETCH(int, Posizione);
    QFETCH(qint64, Nuovo);
    QFETCH(qint64, Vecchio);
    const Studio Suo;
    Registratore Voce;
    Parcella Vecchia = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Vecchia, Voci);
    for (Parcella Nota : {Nota55ConFasi(CategCivile, IDTribunale55, u"30000"_s), Vecchia}) {
        const qint64 Atteso = Nota.Tariffa == &Dm55 ? Nuovo : Vecchio;
        Graduazione Pannello;
        Pannello.Decimali = Nota.Tariffa->Decimali;
        ApriModOno(Pannello, Nota.xOnorari, 0);
        SpostaGradua(Pannello, Posizione);
        QCOMPARE(Centesimi(Pannello.ImpOno), Atteso);
        QVERIFY(ConfermaModOno(Pannello, Nota.xOnorari));
        QCOMPARE(Centesimi(Nota.xOnorari(0, OnoImporto)), Atteso);
        ApriModOno(Pannello, Nota.xOnorari, 0);
        ScegliModAll(Pannello, Nota.xOnorari, true);
        SpostaGradua(Pannello, Posizione);
        QVERIFY(ConfermaModOno(Pannello, Nota.xOnorari));
        QCOMPARE(Centesimi(Nota.xOnorari(0, OnoImporto)), Atteso);
    }
}

void TestTariffa55::fasciaDiUnaRiga_data()
{
    QTest::addColumn<int>("Decimali");
    QTest::addColumn<int>("Fascia");
    QTest::addColumn<int>("Posizione");
    QTest::addColumn<qint64>("Atteso");
    // 234,67 and 704,00 have 469,335 between them, a cent off the medium once it is rounded.
    QTest::newRow("least") << 2 << int(FasciaMin) << -1 << qint64(23467);
    QTest::newRow("medium") << 2 << int(FasciaMedio) << -1 << qint64(46933);
    QTest::newRow("most") << 2 << int(FasciaMax) << -1 << qint64(70400);
    QTest::newRow("between them") << 2 << int(FasciaMedio) << 49 << qint64(46464);  // 234,67 + 229,9717
    QTest::newRow("medium, in whole euro") << 0 << int(FasciaMedio) << -1 << qint64(46900);
}

/// What is highlighted is what is written.
void TestTariffa55::fasciaDiUnaRiga()
{
    QFETCH(int, Decimali);
    QFETCH(int, Fascia);
    QFETCH(int, Posizione);
    QFETCH(qint64, Atteso);
    Parcella Nota;
    const int Riga = RigaOnorario(Nota, u"Fase"_s, 500, 1, 1);
    Nota.xOnorari(Riga, OnoMin) = 234.67;
    Nota.xOnorari(Riga, OnoMedio) = 469.33;
    Nota.xOnorari(Riga, OnoMax) = 704.0;
    Graduazione Pannello;
    Pannello.Decimali = Decimali;
    ApriModOno(Pannello, Nota.xOnorari, Riga);
    ScegliFascia(Pannello, Fascia);
    if (Posizione >= 0)
        SpostaGradua(Pannello, Posizione);
    const qint64 Mostrato = Centesimi(NumeroDi(Pannello.ImpOno));
    QVERIFY(ConfermaModOno(Pannello, Nota.xOnorari));
    QCOMPARE(Centesimi(Nota.xOnorari(Riga, OnoImporto)), Atteso);
    if (Decimali > 0)
        QCOMPARE(Mostrato, Atteso);
}

void TestTariffa55::striscia()
{
    const Studio Suo;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    QCOMPARE(TestoDatiBase(Nota),
             u"D.m. 55/2014 - Civile o Amministrativa - Tribunale - cognizione ordinaria e sommaria - "
             u"da € 26.000,01 a € 52.000,00 - "
             u"Valore: 30.000,00 €"_s);
    NuovaParcella(Nota, Dm55);
    QCOMPARE(TestoDatiBase(Nota), u"D.m. 55/2014"_s);
    NuovaParcella(Nota, Dm140);
    QCOMPARE(TestoDatiBase(Nota), QString());
}

void TestTariffa55::speseGeneraliDelDecreto()
{
    const Studio Suo;
    sessione::SpeseGen = 12.5F;
    for (const Decreto* Legge : Decreti) {
        Parcella Nota;
        NuovaParcella(Nota, *Legge);
        (void)ClicImposta(Nota, Imposta::SpeseGen, false);
        QCOMPARE(Nota.txtSpeGen.Testo, QString());
        (void)ClicImposta(Nota, Imposta::SpeseGen, true);
        QCOMPARE(Nota.txtSpeGen.Testo, Legge == &Dm55 ? u"15"_s : u"12,5"_s);
        (void)ClicImposta(Nota, Imposta::IVA, false);
        (void)ClicImposta(Nota, Imposta::IVA, true);
        QCOMPARE(Nota.txtIVA.Testo, u"21"_s);  // the office's, whatever the decree
    }
}

void TestTariffa55::formuleStragiudiziali_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QList<qint64>>("Attesi");  // medium, minimum, maximum
    QTest::newRow("third bracket") << u"20000"_s << QList<qint64>{198500, 99250, 297750};
    QTest::newRow("the last fixed one") << u"520000"_s << QList<qint64>{616400, 308200, 924600};
}

void TestTariffa55::formuleStragiudiziali()
{
    QFETCH(QString, Valore);
    QFETCH(QList<qint64>, Attesi);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategStragiudiziale, IDStragiudiziale55, Valore);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 501));
    QVERIFY(InserisciOnorario(Nota, Voci));
    QCOMPARE((QList<qint64>{Centesimi(Nota.xOnorari(0, OnoMedio)), Centesimi(Nota.xOnorari(0, OnoMin)),
                            Centesimi(Nota.xOnorari(0, OnoMax))}),
             Attesi);
}

/// "Per ciascuna ora o frazione di ora superiore a trenta minuti."
void TestTariffa55::lOraPattuita_data()
{
    QTest::addColumn<QString>("Risposta");
    QTest::addColumn<int>("Ore");  // 0: no line
    QTest::newRow("one") << u"1"_s << 1;
    QTest::newRow("a quarter more") << u"1,25"_s << 1;
    QTest::newRow("thirty minutes more") << u"2,5"_s << 2;
    QTest::newRow("a little above") << u"2,51"_s << 3;
    QTest::newRow("forty minutes with few digits") << u"1,67"_s << 2;
    QTest::newRow("with a point") << u"1.75"_s << 2;
    QTest::newRow("forty minutes alone") << u"0,67"_s << 1;
    QTest::newRow("thirty minutes alone") << u"0,5"_s << 0;
    QTest::newRow("a hundredth") << u"0,01"_s << 0;
    QTest::newRow("many, and half a one") << u"120,5"_s << 120;
    QTest::newRow("given up") << QString() << 0;
    QTest::newRow("below nought") << u"-2,7"_s << 0;
}

void TestTariffa55::lOraPattuita()
{
    QFETCH(QString, Risposta);
    QFETCH(int, Ore);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategStragiudiziale, IDStragiudiziale55, u"10000"_s);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 505));
    Voce.AttendiImmissione(u"frazione d'ora oltre i 30 minuti"_s, Risposta);
    if (Ore == 0 && NumeroDi(Risposta) > 0)
        Voce.Attendi(u"Una frazione d'ora fino a 30 minuti non si conta!"_s);
    QCOMPARE(InserisciOnorario(Nota, Voci).has_value(), Ore > 0);
    if (Ore == 0)
        return;
    QCOMPARE(NumeroDi(Nota.xOnorari(0, OnoQta)), double(Ore));
    QCOMPARE(Colonna(Nota, OnoMin), QList<qint64>{Ore * 20000});
    QCOMPARE(Colonna(Nota, OnoMax), QList<qint64>{Ore * 50000});
}

#include "TestTariffa55.moc"
