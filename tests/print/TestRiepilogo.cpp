#include "supporto/prova.h"

#include "campioni.h"
#include "print/modRiepilogo.h"
#include "print/modStampe.h"

using namespace Qt::StringLiterals;

class TestRiepilogo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void importi_data();
    void importi();

    void inRiga_data();
    void inRiga();
    void righeDiUnaNotaSenzaTasse();
    void laNotaMultiplaHaIlTerzoNumero();
    void nettoNegativoInLettere();

    void speseGeneraliPrimaDegliAcconti();
    void accontiSottoLeLoroVoci();
    void tassaSoloSeVale_data();
    void tassaSoloSeVale();
    void etichettaConLAliquotaComeScritta();
    void importoInMenoConDueSegni();

    void notaGiudizialeSenzaAcconti();
    void fraseDiChiusura_data();
    void fraseDiChiusura();

    void tabella();
    void lettereEChiusuraSuDueColonne();
    void variazione_data();
    void variazione();
    void regimeAgevolato_data();
    void regimeAgevolato();
};
PROVA(TestRiepilogo);

namespace {

using Righe = QList<RigaRiepilogo>;

/// Only these percentages apply; an empty text leaves its switch off.
Parcella ConAliquote(const QString& SpeseGen, const QString& CP, const QString& IVA, const QString& RA)
{
    Parcella Nota = campioni::Vuota();
    Nota.chkIva.Attiva = Nota.chkCP.Attiva = false;
    const auto Imposta = [](Spunta& Tick, Casella& Box, const QString& Percento) {
        Tick.Attiva = !Percento.isEmpty();
        Box.Testo = Percento;
    };
    Imposta(Nota.chkSpeseGen, Nota.txtSpeGen, SpeseGen);
    Imposta(Nota.chkCP, Nota.txtCP, CP);
    Imposta(Nota.chkIva, Nota.txtIVA, IVA);
    Imposta(Nota.chkRA, Nota.txtRA, RA);
    return Nota;
}

Righe RigheDi(const Parcella& Nota, int Tipo = StampaPrenotula)
{
    return RigheRiepilogo(CatenaFiscale(Nota, Tipo));
}

QString InRiga(const Parcella& Nota, int Tipo = StampaPrenotula)
{
    return RiepilogoInRiga(CatenaFiscale(Nota, Tipo));
}

/// The amount of a row, "assente" without such a row.
QString ImportoDi(const Righe& Tutte, const QString& Etichetta)
{
    for (const RigaRiepilogo& Riga : Tutte)
        if (Riga.Tipo == RigaRiepilogo::Voce && Riga.Etichetta == Etichetta)
            return Riga.Importo;
    return u"assente"_s;
}

Documento Stampato(const Parcella& Nota, int Tipo = StampaPrenotula)
{
    Superficie vp;
    vp.StartDoc();
    StampaRiepilogo(vp, Nota, Tipo);
    vp.EndDoc();
    return vp.Contenuto();
}

}  // namespace

void TestRiepilogo::init()
{
    campioni::ImpostaStudio();
}

void TestRiepilogo::importi_data()
{
    QTest::addColumn<double>("Euro");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("migliaia") << 1234567.5 << u"1.234.567,50"_s;
    QTest::newRow("zero senza decimali") << 0.0 << u"0"_s;
    QTest::newRow("meno di mezzo centesimo") << 0.004 << u"0"_s;
    QTest::newRow("negativo") << -1000.0 << u"-1.000,00"_s;
}

void TestRiepilogo::importi()
{
    QFETCH(double, Euro);
    QTEST(ImportoStampa(Euro), "Testo");
}

// ---- rows of the chain

void TestRiepilogo::inRiga_data()
{
    QTest::addColumn<Parcella>("Nota");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Righe");

    QTest::newRow("civile con tutte le aliquote")
        << campioni::Civile() << int(StampaPrenotula)
        << u"Onorari=4.500,00|Spese imponibili=0|Spese generali 12,5%=562,50|=5.062,50|"
           u"Cassa previdenza avvocati 4%=202,50|=5.265,00|I.V.A. 21%=1.105,65|"
           u"Spese esenti art. 15 d.p.r. 633/72=0|TOTALE EURO=6.370,65|Ritenuta Acconto 20%=-1.012,50|"
           u"Importo dovuto al netto della R.A.=5.358,15|cinquemilatrecentocinquantotto/15"_s;

    Parcella Mille = ConAliquote(u"12,5"_s, u"4"_s, u"21"_s, u"20"_s);
    campioni::AggiungiOnorario(Mille.xOnorari, u"Voce"_s, 1.0, 1000.0);
    QTest::newRow("mille euro")
        << Mille << int(StampaPrenotula)
        << u"Onorari=1.000,00|Spese imponibili=0|Spese generali 12,5%=125,00|"
           u"=1.125,00|Cassa previdenza avvocati 4%=45,00|=1.170,00|I.V.A. 21%=245,70|"
           u"Spese esenti art. 15 d.p.r. 633/72=0|TOTALE EURO=1.415,70|"
           u"Ritenuta Acconto 20%=-225,00|"
           u"Importo dovuto al netto della R.A.=1.190,70|millecentonovanta/70"_s;

    QTest::newRow("nota giudiziale senza tasse: la chiusura prima delle lettere")
        <<
        [] {
            Parcella Nota = ConAliquote({}, {}, {}, {});
            campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, 1000.0);
            return Nota;
        }()
        << int(StampaNotaGiudiziale)
        << u"Onorari=1.000,00|Spese imponibili=0|=1.000,00|Spese esenti art. 15 d.p.r. 633/72=0|"
           u"TOTALE EURO=1.000,00|Oltre a iva, c.p. avv., come per legge=|mille/00"_s;

    QTest::newRow("nota vuota") << campioni::Vuota() << int(StampaPrenotula)
                                << u"Onorari=0|Spese imponibili=0|=0|Cassa previdenza avvocati 4%=0|=0|"
                                   u"I.V.A. 21%=0|Spese esenti art. 15 d.p.r. 633/72=0|TOTALE EURO=0|/00"_s;
}

void TestRiepilogo::inRiga()
{
    QFETCH(Parcella, Nota);
    QFETCH(int, Tipo);
    QTEST(InRiga(Nota, Tipo), "Righe");
}

void TestRiepilogo::righeDiUnaNotaSenzaTasse()
{
    Parcella Nota = ConAliquote({}, {}, {}, {});
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, 17.0);
    using R = RigaRiepilogo;
    const Righe Attese{
        {R::Titolo, u"RIEPILOGO: "_s, {}},
        {R::Voce, u"Onorari"_s, u"17,00"_s},
        {R::Voce, u"Spese imponibili"_s, u"0"_s},
        {R::Filetto, {}, u"___________"_s},
        {R::Voce, {}, u"17,00"_s},
        {R::Voce, u"Spese esenti art. 15 d.p.r. 633/72"_s, u"0"_s},
        {R::Filetto, {}, u"___________"_s},
        {R::Voce, u"TOTALE EURO"_s, u"17,00"_s},
        {R::Lettere, u"(diciasette/00)"_s, {}},
    };
    QCOMPARE(RigheDi(Nota), Attese);
}

void TestRiepilogo::laNotaMultiplaHaIlTerzoNumero()
{
    Parcella Nota = campioni::ConAssociata(true);
    QCOMPARE(RigheDi(Nota).first().Etichetta, u"3) RIEPILOGO: "_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Onorari"_s), u"5.400,00"_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Spese imponibili"_s), u"12,30"_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Spese esenti art. 15 d.p.r. 633/72"_s), u"5,00"_s);

    Nota.txtParcMultipla.clear();  // at once a single note, whatever was copied
    QCOMPARE(RigheDi(Nota).first().Etichetta, u"RIEPILOGO: "_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Onorari"_s), u"4.500,00"_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Acconti corrispettivi"_s), u"assente"_s);
}

void TestRiepilogo::nettoNegativoInLettere()
{
    Parcella Nota = ConAliquote({}, {}, {}, {});
    campioni::AggiungiAcconto(Nota.xAcconti, u"Acconto"_s, u"E"_s, 1234.5);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"TOTALE EURO"_s), u"-1.234,50"_s);
    QCOMPARE(RigheDi(Nota).last().Etichetta, u"(menomilleduecentotrentaquattro/50)"_s);
}

void TestRiepilogo::speseGeneraliPrimaDegliAcconti()
{
    Parcella Nota = ConAliquote(u"10"_s, {}, {}, {});
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, 1000.0);
    campioni::AggiungiSpesa(Nota.xDiritti, u"Copie"_s, 1.0, 200.0, 0.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Acconto"_s, u"E"_s, 600.0);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Spese generali 10%"_s), u"100,00"_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), {}), u"700,00"_s);  // 1000 - 600 + 200 + 100
}

void TestRiepilogo::accontiSottoLeLoroVoci()
{
    Parcella Nota = ConAliquote({}, {}, {}, {});
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, 1000.0);
    campioni::AggiungiSpesa(Nota.xDiritti, u"Copie"_s, 1.0, 200.0, 50.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Acconto"_s, u"L"_s, 193627.0, 19362.7, 1936.27);
    Nota.chkAcconti.Attiva = false;  // only their table depends on it
    QCOMPARE(InRiga(Nota),
             u"Onorari=1.000,00|Acconti corrispettivi=-100,00|Spese imponibili=200,00|"
             u"Acconti spese imponibili=-10,00|=1.090,00|Spese esenti art. 15 d.p.r. 633/72=50,00|"
             u"Acconti spese esenti=-1,00|TOTALE EURO=1.139,00|millecentotrentanove/00"_s);
}

void TestRiepilogo::tassaSoloSeVale_data()
{
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<bool>("Abilitata");
    QTest::addColumn<QString>("Percento");
    QTest::addColumn<bool>("IvaERitenuta");
    QTest::addColumn<bool>("CassaESpeseGenerali");
    QTest::newRow("attiva e sopra zero") << true << true << u"10"_s << true << true;
    QTest::newRow("spenta") << false << true << u"10"_s << false << false;
    QTest::newRow("casella vuota") << true << true << QString() << false << false;
    QTest::newRow("zero") << true << true << u"0"_s << false << false;
    QTest::newRow("nessun numero") << true << true << u"dieci"_s << false << false;
    // Only VAT and withholding can be disabled by a rule.
    QTest::newRow("disabilitata") << true << false << u"10"_s << false << true;
}

void TestRiepilogo::tassaSoloSeVale()
{
    QFETCH(bool, Attiva);
    QFETCH(bool, Abilitata);
    QFETCH(QString, Percento);
    QFETCH(bool, IvaERitenuta);
    QFETCH(bool, CassaESpeseGenerali);
    Parcella Nota = campioni::Vuota();
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, 1000.0);
    for (Spunta* Tick : {&Nota.chkIva, &Nota.chkRA, &Nota.chkCP, &Nota.chkSpeseGen})
        *Tick = {Attiva, Abilitata};
    for (Casella* Box : {&Nota.txtIVA, &Nota.txtRA, &Nota.txtCP, &Nota.txtSpeGen})
        Box->Testo = Percento;

    const QString Righe = InRiga(Nota);
    QCOMPARE(Righe.contains(u"|I.V.A. "_s), IvaERitenuta);
    QCOMPARE(Righe.contains(u"|Ritenuta Acconto "_s), IvaERitenuta);
    QCOMPARE(Righe.contains(u"|Importo dovuto al netto della R.A."_s), IvaERitenuta);
    QCOMPARE(Righe.contains(u"|Cassa previdenza avvocati "_s), CassaESpeseGenerali);
    QCOMPARE(Righe.contains(u"|Spese generali "_s), CassaESpeseGenerali);
}

void TestRiepilogo::etichettaConLAliquotaComeScritta()
{
    const QString Righe = InRiga(ConAliquote(u" 12,50 "_s, u"4,0"_s, u" 21"_s, u"20 "_s));
    for (const QString& Etichetta : {u"Spese generali 12,50%="_s, u"Cassa previdenza avvocati 4,0%="_s,
                                     u"I.V.A. 21%="_s, u"Ritenuta Acconto 20%="_s})
        QVERIFY2(Righe.contains(Etichetta), qPrintable(Righe));
}

void TestRiepilogo::importoInMenoConDueSegni()
{
    // The sign is text before the amount: a withholding of 0 keeps it, a negative one has two.
    Parcella Nota = ConAliquote({}, {}, {}, u"20"_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Ritenuta Acconto 20%"_s), u"-0"_s);

    campioni::AggiungiAcconto(Nota.xAcconti, u"Acconto"_s, u"E"_s, 1437.5);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Ritenuta Acconto 20%"_s), u"--287,50"_s);
    QCOMPARE(ImportoDi(RigheDi(Nota), u"Importo dovuto al netto della R.A."_s), u"-1.150,00"_s);
}

// ---- court costs note

void TestRiepilogo::notaGiudizialeSenzaAcconti()
{
    Parcella Nota = campioni::Stragiudiziale();
    const QString Righe = InRiga(Nota, StampaNotaGiudiziale);
    QVERIFY2(!Righe.contains(u"Acconti"_s), qPrintable(Righe));
    QCOMPARE(ImportoDi(RigheDi(Nota, StampaNotaGiudiziale), {}), u"5.540,25"_s);  // nothing taken off

    // Rows asked for with payments all the same do not show them either.
    DatiCatena Dati = RaccogliCatena(Nota, StampaNotaGiudiziale);
    Dati.Acconti = {1.0, 2.0, 3.0};
    QVERIFY(!RiepilogoInRiga(CatenaFiscale(Dati)).contains(u"Acconti"_s));
}

void TestRiepilogo::fraseDiChiusura_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Attiva");
    QTest::addColumn<bool>("CeLa");
    QTest::newRow("nessuna tassa") << int(StampaNotaGiudiziale) << -1 << true;
    QTest::newRow("altro documento") << int(StampaPrenotula) << -1 << false;
    QTest::newRow("iva") << int(StampaNotaGiudiziale) << 0 << false;
    QTest::newRow("ritenuta") << int(StampaNotaGiudiziale) << 1 << false;
    QTest::newRow("cassa") << int(StampaNotaGiudiziale) << 2 << false;
    QTest::newRow("spese generali") << int(StampaNotaGiudiziale) << 3 << false;
}

void TestRiepilogo::fraseDiChiusura()
{
    QFETCH(int, Tipo);
    QFETCH(int, Attiva);
    QFETCH(bool, CeLa);
    Parcella Nota = ConAliquote({}, {}, {}, {});
    // The tick alone counts, with an empty box and disabled.
    Spunta* const Tick[] = {&Nota.chkIva, &Nota.chkRA, &Nota.chkCP, &Nota.chkSpeseGen};
    if (Attiva >= 0)
        *Tick[Attiva] = {true, false};

    const Righe Tutte = RigheDi(Nota, Tipo);
    const bool Chiude = Tutte.last().Tipo == RigaRiepilogo::Chiusura;
    QCOMPARE(Chiude, CeLa);
    if (CeLa) {
        QCOMPARE(Tutte.last().Etichetta, u"Oltre a iva, c.p. avv., come per legge"_s);
        QCOMPARE(Tutte[Tutte.size() - 2].Tipo, RigaRiepilogo::Vuota);
        QCOMPARE(Tutte[Tutte.size() - 3].Tipo, RigaRiepilogo::Lettere);
    }
}

// ---- on the surface

void TestRiepilogo::tabella()
{
    const Documento Doc = Stampato(campioni::Civile());
    QCOMPARE(campioni::TestiBlocchi(Doc), QStringList{u"#"_s});
    const Tabella Una = campioni::TabellaDi(Doc, 0);
    QCOMPARE(Una.LarghezzeCm, (std::vector<double>{7.0, 3.0}));
    QCOMPARE(Una.Bordo, 0);
    QCOMPARE(int(Una.Righe.size()), int(RigheDi(campioni::Civile()).size()));
    QCOMPARE(campioni::TestiRiga(Una, 0), (QStringList{u"RIEPILOGO: "_s, QString()}));
    QCOMPARE(campioni::TestiRiga(Una, 4), (QStringList{QString(), u"___________"_s}));
    for (const std::vector<Cella>& Riga : Una.Righe) {
        QCOMPARE(Riga[1].Allinea, Allineamento::Destra);
        QCOMPARE(Riga[0].Font, (Carattere{u"Times New Roman"_s, 11.0}));
    }
    QCOMPARE(Una.Righe[1][0].Allinea, Allineamento::Sinistra);
}

void TestRiepilogo::lettereEChiusuraSuDueColonne()
{
    Parcella Nota = ConAliquote({}, {}, {}, {});
    const Tabella Una = campioni::TabellaDi(Stampato(Nota, StampaNotaGiudiziale), 0);
    const std::size_t Righe = Una.Righe.size();
    QVERIFY(Righe > 3);
    const Cella& Lettere = Una.Righe[Righe - 3][0];
    QCOMPARE(Lettere.Testo, u"(/00)"_s);
    QCOMPARE(Lettere.Unione, 2);
    QCOMPARE(Lettere.Allinea, Allineamento::Destra);
    QCOMPARE(campioni::TestiRiga(Una, int(Righe) - 2), (QStringList{QString(), QString()}));
    const Cella& Chiusura = Una.Righe[Righe - 1][0];
    QCOMPARE(Chiusura.Testo, u"Oltre a iva, c.p. avv., come per legge"_s);
    QCOMPARE(Chiusura.Unione, 2);
    QCOMPARE(Chiusura.Allinea, Allineamento::Sinistra);
}

void TestRiepilogo::variazione_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("Percento");
    QTest::addColumn<QStringList>("Blocchi");
    QTest::newRow("nessuna") << 6 << 0 << QStringList{u"#"_s};
    QTest::newRow("riduzione") << 9 << -50
                               << QStringList{u"Applicata riduzione del 50% per Pronunce in rito (art. 10)"_s,
                                              QString(), u"#"_s};
    QTest::newRow("aumento") << 0 << 20
                             << QStringList{
                                    u"Applicato aumento 20% per Incarichi collegiali (art. 1, co. 4)"_s,
                                    QString(), u"#"_s};
    QTest::newRow("libera, senza motivo")
        << 5 << -10 << QStringList{u"Applicata riduzione del 10% "_s, QString(), u"#"_s};
}

void TestRiepilogo::variazione()
{
    QFETCH(int, Opzione);
    QFETCH(int, Percento);
    Parcella Nota = campioni::Civile();
    Nota.AumRidIdx = Opzione;
    Nota.AumRidVarP = Percento;
    QTEST(campioni::TestiBlocchi(Stampato(Nota)), "Blocchi");
}

void TestRiepilogo::regimeAgevolato_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Spunta");
    QTest::addColumn<bool>("CeLa");
    QTest::newRow("fattura analitica") << int(StampaFatturaAnalitica) << true << true;
    QTest::newRow("senza spunta") << int(StampaFatturaAnalitica) << false << false;
    QTest::newRow("prenotula") << int(StampaPrenotula) << true << false;
    QTest::newRow("parte contabile") << int(StampaSoloContabile) << true << false;
}

void TestRiepilogo::regimeAgevolato()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Spunta);
    QFETCH(bool, CeLa);
    Parcella Nota = campioni::Civile();
    Nota.chkRegSempl.Attiva = Spunta;
    QStringList Attesi{u"#"_s};
    if (CeLa)
        Attesi += {QString(),
                   u"(operazione effettuata ai sensi dell'art. 27, commi 1 e 2, D.L. 6 luglio 2011 n. 98;\n"
                   u"prestazione non soggetta a ritenuta d'acconto ai sensi del comma 5.2 del Provvedimento\n"
                   u"Agenzia delle entrate del 22.12.2011 n. 185820)"_s};
    QCOMPARE(campioni::TestiBlocchi(Stampato(Nota, Tipo)), Attesi);
}

#include "TestRiepilogo.moc"
