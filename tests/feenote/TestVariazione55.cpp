// The variations of D.m. 55/2014, one at a time, and the parties that a lawyer assists.
#include "supporto/prova.h"

#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"
#include "tariffa_prova.h"

using namespace Qt::StringLiterals;

class TestVariazione55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offerte_data();
    void offerte();
    void importi_data();
    void importi();
    void unTerzoEsatto();
    void soloLeVociSue();
    void soloGliUfficiSuoi();
    void cambiandoCategoriaLasciaLaSua();
    void aumentoPerParti_data();
    void aumentoPerParti();
    void partiEVariazioneInsieme();
    void laCasellaDelleParti_data();
    void laCasellaDelleParti();
    void frasi_data();
    void frasi();
    void fraseSoloDiCioCheVaria_data();
    void fraseSoloDiCioCheVaria();
    void etichetta();
    void limiti_data();
    void limiti();
    void laVoceLiberaNonVaria();
    void senzaTabellaLaSolaLibera();
    void righeSenzaSenso_data();
    void righeSenzaSenso();
};
PROVA(TestVariazione55);

namespace {

constexpr int Telematici = 101;
constexpr int Conciliazione = 102;
constexpr int Fondate = 104;
constexpr int MotiviAggiunti = 106;
constexpr int ArticoloNovantasei = 112;
constexpr int SpeseDelloStato = 115;
constexpr int SpeseDelloStatoPenale = 123;

QList<int> Numeri(const Parcella& Nota)
{
    QList<int> Tutti;
    for (const OpzioneAumRid& Una : OpzioniAumRid(Nota))
        Tutti += Una.Numero;
    return Tutti;
}

/// The lines of a court at 30.000 euro with an option at its proposed percent.
Parcella TribunaleCon(int Opzione)
{
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, Opzione);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    return Nota;
}

}  // namespace

void TestVariazione55::offerte_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<QList<int>>("Attese");
    QTest::newRow("court") << int(CategCivile) << IDTribunale55
                           << QList{101, 102, 103, 104, 105, 111, 112, 113, 115, 116, 5};
    QTest::newRow("regional administrative court")
        << int(CategCivile) << IDTar55
        << QList{101, 102, 103, 104, 105, 106, 107, 111, 112, 113, 115, 116, 5};
    QTest::newRow("criminal") << int(CategPenale) << IDMonocratico55 << QList{122, 123, 124, 5};
    QTest::newRow("out of court") << int(CategStragiudiziale) << IDStragiudiziale55 << QList{131, 132, 5};
}

void TestVariazione55::offerte()
{
    QFETCH(int, Categoria);
    QFETCH(int, Ufficio);
    QFETCH(QList<int>, Attese);
    const Studio Suo;
    const Parcella Nota = Nota55(Categoria, Ufficio);
    QCOMPARE(Numeri(Nota), Attese);
    QCOMPARE(Nota.AumRidIdx, AumRidLibera);
}

void TestVariazione55::importi_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("Percento");
    QTest::addColumn<QList<qint64>>("Attesi");
    // 1.701, 1.204, 1.806, 2.905 euro.
    QTest::newRow("thirty up") << Telematici << 0 << QList<qint64>{221130, 156520, 234780, 377650};
    QTest::newRow("seven up") << Telematici << 7 << QList<qint64>{182007, 128828, 193242, 310835};
    QTest::newRow("three quarters down")
        << ArticoloNovantasei << 0 << QList<qint64>{42525, 30100, 45150, 72625};
    QTest::newRow("half down") << SpeseDelloStato << 0 << QList<qint64>{85050, 60200, 90300, 145250};
    QTest::newRow("free") << int(AumRidLibera) << 13 << QList<qint64>{192213, 136052, 204078, 328265};
}

void TestVariazione55::importi()
{
    QFETCH(int, Opzione);
    QFETCH(int, Percento);
    QFETCH(QList<qint64>, Attesi);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, Opzione);
    if (Percento != 0) {
        CambiaTestoAumRid(Nota, QString::number(Percento));
        LasciaAumRid(Nota);
    }
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), Attesi);
    QCOMPARE(Colonna(Nota, OnoBaseMedio), (QList<qint64>{170100, 120400, 180600, 290500}));
}

void TestVariazione55::unTerzoEsatto()
{
    const Studio Suo;
    Registratore Voce;
    // A third of 473, 567, 1.134 and 1.418 euro less.
    Parcella Nota = Nota55(CategPenale, IDMonocratico55);
    ScegliAumRid(Nota, SpeseDelloStatoPenale);
    QCOMPARE(Nota.AumRidVarP, -33);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{31533, 37800, 75600, 94533}));
    QCOMPARE(NumeroDi(Nota.xOnorari(0, OnoVarPerc)), -33.0);
    // Up by a third at the limit; below it the whole percent counts.
    Nota = TribunaleCon(Fondate);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{226800, 160533, 240800, 387333}));
    CambiaTestoAumRid(Nota, u"32"_s);
    LasciaAumRid(Nota);
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{224532, 158928, 238392, 383460}));
}

void TestVariazione55::soloLeVociSue()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = TribunaleCon(Conciliazione);
    // The decisional phase by a quarter, and nothing else.
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{170100, 120400, 180600, 363125}));
    QCOMPARE(Colonna(Nota, OnoVarPerc), (QList<qint64>{0, 0, 0, 2500}));
    // Anew, by a recalculation too.
    Nota.RicalcoloNecessario = true;
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{170100, 120400, 180600, 363125}));
    QVERIFY(VaiAVoce(Voci, 304));
    Voce.Attendi(u"L'onorario Fase decisionale è stato già inserito. Procedo con l'inserimento?"_s, vbYes);
    QVERIFY(InserisciOnorario(Nota, Voci));
    QCOMPARE(Colonna(Nota, OnoImporto).last(), qint64(363125));
}

void TestVariazione55::soloGliUfficiSuoi()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTar55, u"30000"_s);
    ScegliAumRid(Nota, MotiviAggiunti);
    QCOMPARE(Nota.AumRidIdx, MotiviAggiunti);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDConsiglioDiStato55));
    QCOMPARE(Nota.AumRidIdx, MotiviAggiunti);
    QCOMPARE(Nota.AumRidVarP, 50);
    const QString Tolta =
        u"La variazione «Motivi aggiunti (art. 4, co. 10-bis)» non è prevista per l'autorità "
        u"selezionata e viene tolta."_s;
    Voce.Attendi(Tolta, vbOK, u"Messaggio:"_s);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunale55));
    QCOMPARE(Nota.AumRidIdx, AumRidLibera);
    QCOMPARE(Nota.AumRidVarP, 0);
    ScegliAumRid(Nota, MotiviAggiunti);  // not offered here
    QCOMPARE(Nota.AumRidIdx, AumRidLibera);
    CaricaVariazione(Nota, AumRidLibera, 12);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDLavoro55));
    QCOMPARE(Nota.AumRidVarP, 12);  // the free one is for all

    // With lines it stands in the question that is asked anyhow.
    constexpr int Indagini = 133;
    constexpr int IndaginiComplesse = 121;
    Nota = Nota55ConFasi(CategPenale, Indagini);
    ScegliAumRid(Nota, IndaginiComplesse);
    Voce.Attendi(
        u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi "
        u"parametri.\nLa variazione «Indagini complesse o urgenti (art. 12, co. 3-bis)» non è prevista per "
        u"l'autorità selezionata e viene tolta.\nConfermi la modifica?"_s,
        vbNo);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDMonocratico55));
    QCOMPARE(Nota.IDAutSelezionata(), Indagini);
    QCOMPARE(Nota.AumRidVarP, 20);
}

void TestVariazione55::cambiandoCategoriaLasciaLaSua()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55);
    ScegliAumRid(Nota, Telematici);
    Voce.Attendi(u"La variazione «Atti telematici navigabili (art. 4, co. 1-bis)» non è prevista per la "
                 u"categoria selezionata e viene tolta."_s,
                 vbOK, u"Messaggio:"_s);
    CambiaCategoria(Nota, CategPenale);
    QCOMPARE(Nota.AumRidIdx, AumRidLibera);
    QCOMPARE(Nota.AumRidVarP, 0);
    // By D.m. 140/2012 the options are of every category.
    Nota = NotaCivile();
    ScegliAumRid(Nota, 0);
    CambiaCategoria(Nota, CategPenale);
    QCOMPARE(Nota.AumRidIdx, 0);
    QCOMPARE(Nota.AumRidVarP, 100);
}

void TestVariazione55::aumentoPerParti_data()
{
    QTest::addColumn<int>("Parti");
    QTest::addColumn<int>("Percento");
    const QList<std::pair<int, int>> Casi{{1, 0},    {2, 30},   {3, 60},   {10, 270}, {11, 280},
                                          {29, 460}, {30, 470}, {31, 470}, {999, 470}};
    for (const auto& [Parti, Percento] : Casi)
        QTest::addRow("%d", Parti) << Parti << Percento;
}

void TestVariazione55::aumentoPerParti()
{
    QFETCH(int, Parti);
    QFETCH(int, Percento);
    const Studio Suo;
    Registratore Voce;
    for (const auto& [Categoria, Ufficio] :
         {std::pair(CategCivile, IDTribunale55), std::pair(CategPenale, IDMonocratico55)}) {
        Parcella Nota = Nota55(Categoria, Ufficio, Categoria == CategCivile ? u"30000"_s : QString());
        Catalogo Voci;
        EntraOnorari(Nota, Voci);
        const QList<qint64> Prima = Colonna(Nota, OnoImporto);
        Nota.txtParti.Testo = QString::number(Parti);
        LasciaParti(Nota);
        QCOMPARE(Nota.RicalcoloNecessario, Parti != 1);
        QCOMPARE(AumentoParti(Nota), Percento);
        EntraOnorari(Nota, Voci);
        for (int Riga = 0; Riga < Prima.size(); ++Riga) {
            // Thirty for each of nine, ten for each of twenty.
            const int Trenta = std::clamp(Parti - 1, 0, 9);
            const int Dieci = std::clamp(Parti - 10, 0, 20);
            QCOMPARE(Centesimi(Nota.xOnorari(Riga, OnoImporto)),
                     Prima[Riga] * (100 + 30 * Trenta + 10 * Dieci) / 100);
        }
    }
    Parcella Fuori = Nota55(CategStragiudiziale, IDStragiudiziale55, u"30000"_s);
    CaricaParti(Fuori, Parti);
    QVERIFY(!PartiContano(Fuori));
    QCOMPARE(AumentoParti(Fuori), 0);
}

void TestVariazione55::partiEVariazioneInsieme()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = TribunaleCon(SpeseDelloStato);
    CaricaParti(Nota, 3);
    Nota.RicalcoloNecessario = true;
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    // 1.701 and 60 per cent is 2.721,60; half of it is due.
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{136080, 96320, 144480, 232400}));
    QCOMPARE(Colonna(Nota, OnoBaseMedio).first(), qint64(170100));
}

void TestVariazione55::laCasellaDelleParti_data()
{
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<int>("Conta");
    QTest::newRow("emptied") << QString() << 1;
    QTest::newRow("nought") << u"0"_s << 1;
    QTest::newRow("four") << u"4"_s << 4;
    QTest::newRow("noughts in front") << u"007"_s << 7;
    QTest::newRow("no number") << u"x"_s << 1;
}

void TestVariazione55::laCasellaDelleParti()
{
    QFETCH(QString, Scritto);
    QFETCH(int, Conta);
    const Studio Suo;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    Nota.Modificata = false;
    Nota.txtParti.Testo = Scritto;
    LasciaParti(Nota);
    QCOMPARE(Nota.PartiAssistite, Conta);
    QCOMPARE(Nota.txtParti.Testo, QString::number(Conta));
    QCOMPARE(Nota.Modificata, Conta != 1);
    QVERIFY(!Nota.RigheDaRicalcolare);  // there are none
}

void TestVariazione55::frasi_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("Percento");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("up")
        << int(CategCivile) << Telematici << 20
        << u"Aumento del 20% per atti telematici che agevolano la consultazione (art. 4, comma "
           u"1-bis, D.m. 55/2014)"_s;
    QTest::newRow("fixed")
        << int(CategCivile) << ArticoloNovantasei << 0
        << u"Riduzione del 75% per responsabilità ex art. 96 cpc (art. 4, comma 9, D.m. 55/2014)"_s;
    QTest::newRow("a third")
        << int(CategPenale) << SpeseDelloStatoPenale << 0
        << u"Riduzione del 33,33% per patrocinio a spese dello Stato (art. 106-bis D.P.R. "
           u"115/2002)"_s;
    QTest::newRow("less than a third")
        << int(CategCivile) << Fondate << 20
        << u"Aumento del 20% per difese manifestamente fondate (art. 4, comma 8, D.m. "
           u"55/2014)"_s;
    QTest::newRow("free") << int(CategCivile) << int(AumRidLibera) << 15 << u"Applicato aumento 15% "_s;
    QTest::newRow("none") << int(CategCivile) << int(AumRidLibera) << 0 << QString();
}

void TestVariazione55::frasi()
{
    QFETCH(int, Categoria);
    QFETCH(int, Opzione);
    QFETCH(int, Percento);
    QFETCH(QString, Frase);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(Categoria, Categoria == CategCivile ? IDTribunale55 : IDMonocratico55);
    ScegliAumRid(Nota, Opzione);
    if (Percento != 0) {
        CambiaTestoAumRid(Nota, QString::number(Percento));
        LasciaAumRid(Nota);
    }
    QCOMPARE(FraseVariazione(Nota), Frase);
    QCOMPARE(FraseParti(Nota), QString());
    CaricaParti(Nota, 12);
    QCOMPARE(FraseParti(Nota),
             Categoria == CategCivile
                 ? u"Aumento del 290% per 12 parti assistite (art. 4, comma 2, D.m. 55/2014)"_s
                 : u"Aumento del 290% per 12 parti assistite (art. 12, comma 2, D.m. 55/2014)"_s);
}

void TestVariazione55::fraseSoloDiCioCheVaria_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<QList<int>>("Voci");
    QTest::addColumn<bool>("Detta");
    QTest::newRow("its phase is there") << Conciliazione << QList{301, 304} << true;
    QTest::newRow("its phase is not there") << Conciliazione << QList{301, 302, 303} << false;
    QTest::newRow("no line") << Conciliazione << QList<int>() << false;
    QTest::newRow("the free item alone") << Conciliazione << QList{399} << false;
    QTest::newRow("for every item") << Telematici << QList{301} << true;
    QTest::newRow("for every item, no line") << Telematici << QList<int>() << true;
    QTest::newRow("free percent, no line") << int(AumRidLibera) << QList<int>() << true;
}

/// A document claims no increase of a phase that was not charged.
void TestVariazione55::fraseSoloDiCioCheVaria()
{
    QFETCH(int, Opzione);
    QFETCH(QList<int>, Voci);
    QFETCH(bool, Detta);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, Opzione);
    if (Opzione == AumRidLibera) {
        CambiaTestoAumRid(Nota, u"15"_s);
        LasciaAumRid(Nota);
    }
    Catalogo Aperto;
    LoadOnoDir(Nota, Aperto);
    for (const int Chiave : Voci) {
        QVERIFY(VaiAVoce(Aperto, Chiave));
        QVERIFY(InserisciOnorario(Nota, Aperto));
    }
    QCOMPARE(!FraseVariazione(Nota).isEmpty(), Detta);
    // Over the lines neither: the percent is in none of them.
    QCOMPARE(!TestoAumRidOno(Nota).isEmpty(), Detta);
    QCOMPARE(!SuggerimentoAumRidOno(Nota).isEmpty(), Detta);
}

void TestVariazione55::etichetta()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategPenale, IDMonocratico55);
    QCOMPARE(TestoAumRidOno(Nota), QString());
    QCOMPARE(SuggerimentoAumRidOno(Nota), QString());
    ScegliAumRid(Nota, SpeseDelloStatoPenale);
    QCOMPARE(TestoAumRidOno(Nota), u"-33,33%"_s);
    CaricaParti(Nota, 2);
    QCOMPARE(TestoAumRidOno(Nota), u"2 parti: +30%  -33,33%"_s);
    QCOMPARE(SuggerimentoAumRidOno(Nota), FraseParti(Nota) + u'\n' + FraseVariazione(Nota));
}

void TestVariazione55::limiti_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("Percento");
    QTest::addColumn<QString>("Rifiuto");
    const QString Fissa = u"La variazione deve essere compreso tra 25 e 25!"_s;
    QTest::newRow("beneath a fixed one") << Conciliazione << 24 << Fissa;
    QTest::newRow("above a fixed one") << Conciliazione << 26 << Fissa;
    QTest::newRow("the fixed one") << Conciliazione << 25 << QString();
    QTest::newRow("beyond the most") << Telematici << 31
                                     << u"La variazione deve essere compreso tra 1 e 30!"_s;
    QTest::newRow("the most") << Telematici << 30 << QString();
    QTest::newRow("a fixed reduction")
        << ArticoloNovantasei << 74 << u"La variazione deve essere compreso tra -75 e -75!"_s;
}

void TestVariazione55::limiti()
{
    QFETCH(int, Opzione);
    QFETCH(int, Percento);
    QFETCH(QString, Rifiuto);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, Opzione);
    const int Proposto = Nota.AumRidVarP;
    CambiaTestoAumRid(Nota, QString::number(Percento));
    if (!Rifiuto.isEmpty())
        Voce.Attendi(Rifiuto);
    LasciaAumRid(Nota);
    QCOMPARE(std::abs(Nota.AumRidVarP), Rifiuto.isEmpty() ? Percento : std::abs(Proposto));
}

void TestVariazione55::laVoceLiberaNonVaria()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = TribunaleCon(Telematici);
    CaricaParti(Nota, 4);
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 399));
    const std::optional<int> Riga = InserisciOnorario(Nota, Voci);
    QVERIFY(Riga);
    QCOMPARE(NumeroDi(Nota.xOnorari(*Riga, OnoVarPerc)), 0.0);
    Nota.xOnorari(*Riga, OnoImporto) = 100.0;
    Nota.RicalcoloNecessario = true;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Centesimi(Nota.xOnorari(*Riga, OnoImporto)), qint64(10000));
}

void TestVariazione55::senzaTabellaLaSolaLibera()
{
    const Studio Suo;
    Registratore Voce;
    Tariffa55Propria(Suo).Execute(u"DROP TABLE Variazioni"_s);
    const Parcella Nota = Nota55(CategCivile, IDTribunale55);
    QCOMPARE(Numeri(Nota), QList{int(AumRidLibera)});  // the eleven are articles of the other decree
}

void TestVariazione55::righeSenzaSenso_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<int>("Numero");
    QTest::newRow("limits of two signs")
        << u"UPDATE Variazioni SET Limiti='30;-1' WHERE IDVar=101"_s << u"Variazioni"_s << 101;
    QTest::newRow("no limits") << u"UPDATE Variazioni SET Limiti=NULL WHERE IDVar=101"_s << u"Variazioni"_s
                               << 101;
    QTest::newRow("a limit of nought")
        << u"UPDATE Variazioni SET Limiti='30;0' WHERE IDVar=101"_s << u"Variazioni"_s << 101;
    QTest::newRow("a number of the fixed list")
        << u"UPDATE Variazioni SET IDVar=5 WHERE IDVar=101"_s << u"Variazioni"_s << 5;
    QTest::newRow("a number given twice")
        << u"UPDATE Variazioni SET IDVar=102 WHERE IDVar=103"_s << u"Variazioni"_s << 102;
    QTest::newRow("no caption") << u"UPDATE Variazioni SET Didascalia='' WHERE IDVar=101"_s << u"Variazioni"_s
                                << 101;
    QTest::newRow("parties from the first on")
        << u"UPDATE PartiAssistite SET Da=1 WHERE Da=2"_s << u"PartiAssistite"_s << 1;
    QTest::newRow("ranges that overlap")
        << u"UPDATE PartiAssistite SET Da=10 WHERE Da=11"_s << u"PartiAssistite"_s << 10;
    QTest::newRow("parties that take away")
        << u"UPDATE PartiAssistite SET Perc=-30 WHERE Da=2"_s << u"PartiAssistite"_s << 2;
}

void TestVariazione55::righeSenzaSenso()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Tabella);
    QFETCH(int, Numero);
    const Studio Suo;
    Tariffa55Propria(Suo).Execute(Sql);
    Registratore Voce;
    Voce.Attendi(u"Errore: L'archivio della tariffa D.m. 55/2014, parcelle55.mdb, ha nella tabella %1 una "
                 u"riga che non "
                 u"ha senso (%2): non è usata (13)"_s.arg(Tabella)
                     .arg(Numero));
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    QVERIFY(!OpzioneDi(Nota, 101) || OpzioneDi(Nota, 101)->Limiti == u"30;1");
    QCOMPARE(std::ranges::count(Numeri(Nota), 5), 1);  // the free one is there, once
    QCOMPARE(std::ranges::count(Numeri(Nota), 102), 1);
    CaricaParti(Nota, 40);
    QVERIFY(AumentoParti(Nota) >= 0 && AumentoParti(Nota) <= 470);
}

#include "TestVariazione55.moc"
