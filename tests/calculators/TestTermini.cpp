// Terms: worked examples, the messages of the form, the ends of the calendar.
#include "calcolotermine.h"
#include "casi.h"
#include "supporto/guasti.h"
#include "supporto/registratore.h"

#include "calculators/modTermini.h"

using namespace Qt::StringLiterals;

namespace {

OpzioniTermine Senza(bool Antecedente = false)
{
    return {false, false, false, Antecedente};
}

DatiTermine Caselle(const QString& Decorrenza, const QString& Numero, int Tipo = TipoGiorni,
                    const OpzioniTermine& Opzioni = Senza())
{
    return {Decorrenza, Numero, Tipo, Opzioni};
}

}  // namespace

class TestTermini : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void esempi_data();
    void esempi();
    void testoDelRisultato();
    void settembreDal2015_data();
    void settembreDal2015();
    void senzaSelezioneContaInAnni();
    void primoConteggioSenzaFestivi();
    void prorogatoNonSiAzzeraNelConteggio();
    void numeroNonPositivoNonConta();
    void fuoriDalCalendario_data();
    void fuoriDalCalendario();
    void dentroIlCalendario();
    void difetti_data();
    void difetti();
    void sabatoARitroso();
    void sabatoAmmesso_data();
    void sabatoAmmesso();
    void festivi_data();
    void festivi();
    void pasquetta_data();
    void pasquetta();
    void giorniSospesi();
};
PROVA(TestTermini);

void TestTermini::esempi_data()
{
    QTest::addColumn<QStringList>("Riga");
    const auto Righe = Casi(u"termini.csv"_s);
    QVERIFY(Righe.size() >= 20);
    for (size_t i = 0; i < Righe.size(); ++i)
        QTest::newRow(NomeCaso(i, Righe[i]).constData()) << Righe[i];
}

void TestTermini::esempi()
{
    QFETCH(QStringList, Riga);
    QCOMPARE(Riga.size(), 10);
    const OpzioniTermine Opzioni{Riga[3] == u"1", Riga[4] == u"1", Riga[5] == u"1", Riga[6] == u"a"};
    const DatiTermine Dati = Caselle(Riga[0], Riga[1], Riga[2].toInt(), Opzioni);
    QVERIFY(!DifettoTermine(Dati));
    const ContoTermine Conto = CalcolaTermine(Dati);
    QCOMPARE(Conto.DataCorrente.toString(u"dd/MM/yyyy"_s), Riga[7]);
    QCOMPARE(Conto.Prorogato, Riga[8] == u"1");
}

void TestTermini::testoDelRisultato()
{
    const OpzioniTermine Sospesi{true, false, false, false};
    QCOMPARE(TestoTermine(CalcolaTermine(Caselle(u"20/07/2012"_s, u"20"_s, TipoGiorni, Sospesi))),
             u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s);
    QCOMPARE(TestoTermine(CalcolaTermine(Caselle(u"10/08/2012"_s, u"10"_s, TipoGiorni, Sospesi))),
             u"La scadenza è Martedì,  25 Settembre  2012"_s);
    QCOMPARE(TestoTermine(CalcolaTermine(Caselle(u"05/01/2013"_s, u"10"_s, TipoGiorni, Senza(true)))),
             u"La scadenza è Lunedì,  24 Dicembre  2012\n(Anticipata)"_s);
}

// Left out by the count although the law lets them run: what the line under the result speaks of.
void TestTermini::settembreDal2015_data()
{
    QTest::addColumn<DatiTermine>("Dati");
    QTest::addColumn<bool>("Incontrato");
    const OpzioniTermine Avanti{true, false, false, false};
    const OpzioniTermine Indietro{true, false, false, true};
    const auto Riga = [](const char* Nome, const QString& Da, const QString& Numero, int Tipo,
                         const OpzioniTermine& Opzioni, bool Incontrato) {
        QTest::newRow(Nome) << DatiTermine{Da, Numero, Tipo, Opzioni} << Incontrato;
    };
    Riga("giorni che passano l'estate", u"01/07/2026"_s, u"60"_s, TipoGiorni, Avanti, true);
    Riga("l'ultimo giorno è il 31 luglio", u"01/07/2026"_s, u"30"_s, TipoGiorni, Avanti, false);
    Riga("il giorno contato cadrebbe il 1° agosto", u"01/07/2026"_s, u"31"_s, TipoGiorni, Avanti, true);
    Riga("l'estate del 2014", u"01/07/2014"_s, u"60"_s, TipoGiorni, Avanti, false);
    Riga("l'estate del 2015", u"01/07/2015"_s, u"60"_s, TipoGiorni, Avanti, true);
    Riga("senza sospensione", u"01/07/2026"_s, u"60"_s, TipoGiorni, Senza(), false);
    Riga("decorrenza in agosto", u"10/08/2026"_s, u"5"_s, TipoGiorni, Avanti, true);
    Riga("decorrenza il 15 settembre", u"15/09/2026"_s, u"5"_s, TipoGiorni, Avanti, true);
    Riga("decorrenza il 16 settembre", u"16/09/2026"_s, u"5"_s, TipoGiorni, Avanti, false);
    Riga("un mese che cade in agosto", u"15/07/2026"_s, u"1"_s, TipoMesi, Avanti, true);
    Riga("mesi oltre l'estate", u"15/06/2026"_s, u"4"_s, TipoMesi, Avanti, true);
    Riga("mesi fino a luglio", u"15/06/2026"_s, u"1"_s, TipoMesi, Avanti, false);
    Riga("il giorno libero cade nel periodo", u"30/07/2026"_s, u"1"_s, TipoGiorni, {true, true, false, false},
         true);
    Riga("a ritroso fino a settembre", u"20/09/2026"_s, u"10"_s, TipoGiorni, Indietro, true);
    Riga("a ritroso, decorrenza in agosto", u"20/08/2026"_s, u"10"_s, TipoGiorni, Indietro, false);
    Riga("a ritroso, decorrenza il 1° settembre", u"01/09/2026"_s, u"10"_s, TipoGiorni, Indietro, true);
    Riga("a ritroso di mesi", u"20/10/2026"_s, u"2"_s, TipoMesi, Indietro, true);
    Riga("a ritroso, il giorno libero cade nel periodo", u"17/09/2026"_s, u"1"_s, TipoGiorni,
         {true, true, false, true}, true);
}

void TestTermini::settembreDal2015()
{
    QFETCH(DatiTermine, Dati);
    QFETCH(bool, Incontrato);
    QCOMPARE(CalcolaTermine(Dati).SettembreSospeso, Incontrato);
}

// The list without a selection stands at -1, which is neither days nor months.
void TestTermini::senzaSelezioneContaInAnni()
{
    QCOMPARE(CalcolaTermine(Caselle(u"14/05/2012"_s, u"3"_s, -1)).DataCorrente, QDate(2015, 5, 14));
    QCOMPARE(CalcolaTermine(Caselle(u"14/05/2012"_s, u"3"_s, 2)).DataCorrente, QDate(2015, 5, 14));
}

void TestTermini::primoConteggioSenzaFestivi()
{
    ContoTermine Conto;
    Conto.Opzioni.Libero = true;
    Conto.DataCorrente = QDate(2012, 7, 15);
    QCOMPARE(Conteggio(Conto, 1, TipoMesi), QDate(2012, 8, 15));
    QCOMPARE(Conto.GiorniSospesi, 15);
    QVERIFY(Conto.Prorogato);
    QCOMPARE(Conto.DataCorrente, QDate(2012, 7, 15));
    ContaTermine(Conto, 1, TipoMesi);
    QCOMPARE(Conto.DataCorrente, QDate(2012, 10, 1));  // 30/09, a free day: 01/10
    QCOMPARE(Conto.GiorniSospesi, 0);
}

void TestTermini::prorogatoNonSiAzzeraNelConteggio()
{
    ContoTermine Conto;
    Conto.Opzioni = Senza();
    Conto.Prorogato = true;
    Conto.DataCorrente = QDate(2013, 5, 13);
    QCOMPARE(Conteggio(Conto, 1, TipoGiorni), QDate(2013, 5, 14));
    QVERIFY(Conto.Prorogato);
}

void TestTermini::numeroNonPositivoNonConta()
{
    ContoTermine Conto;
    Conto.Opzioni = Senza();
    Conto.DataCorrente = QDate(2013, 5, 14);
    for (const int Numero : {0, -7}) {
        QCOMPARE(Conteggio(Conto, Numero, TipoGiorni), QDate(2013, 5, 14));
        QCOMPARE(Conteggio(Conto, Numero, TipoMesi), QDate(2013, 5, 14));
    }
}

void TestTermini::fuoriDalCalendario_data()
{
    QTest::addColumn<QString>("Decorrenza");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Antecedente");

    QTest::newRow("il giorno prima del primo") << u"01/01/0100"_s << u"1"_s << 0 << true;
    QTest::newRow("9999 giorni indietro dal 110") << u"01/01/0110"_s << u"9999"_s << 0 << true;
    QTest::newRow("il mese prima del primo") << u"15/01/0100"_s << u"1"_s << 1 << true;
    QTest::newRow("il giorno dopo l'ultimo") << u"31/12/9999"_s << u"1"_s << 0 << false;
    QTest::newRow("9999 anni") << u"01/01/2012"_s << u"9999"_s << 2 << false;
    QTest::newRow("l'anno dopo il 9999") << u"15/05/9999"_s << u"1"_s << 2 << false;
}

void TestTermini::fuoriDalCalendario()
{
    QFETCH(QString, Decorrenza);
    QFETCH(QString, Numero);
    QFETCH(int, Tipo);
    QFETCH(bool, Antecedente);
    for (const bool Sospensione : {false, true}) {
        const OpzioniTermine Opzioni{Sospensione, false, false, Antecedente};
        QCOMPARE(NumeroErrore([&] { (void)CalcolaTermine(Caselle(Decorrenza, Numero, Tipo, Opzioni)); }), 5);
    }
}

// The window of the year 10000 that a count of December would meet next is never shown: the count stands.
void TestTermini::dentroIlCalendario()
{
    const OpzioniTermine Sospesi{true, false, false, false};
    QCOMPARE(CalcolaTermine(Caselle(u"10/11/9999"_s, u"5"_s, TipoGiorni, Sospesi)).DataCorrente,
             QDate(9999, 11, 15));
    QCOMPARE(CalcolaTermine(Caselle(u"03/01/0100"_s, u"1"_s, TipoGiorni, Senza())).DataCorrente,
             QDate(100, 1, 4));
    // The last day and the first one are of the calendar.
    QCOMPARE(CalcolaTermine(Caselle(u"30/12/9999"_s, u"1"_s)).DataCorrente, QDate(9999, 12, 31));
    QCOMPARE(CalcolaTermine(Caselle(u"31/12/9998"_s, u"1"_s, 2)).DataCorrente, QDate(9999, 12, 31));
    QCOMPARE(CalcolaTermine(Caselle(u"01/01/0100"_s, u"1"_s)).DataCorrente, QDate(100, 1, 2));
    QCOMPARE(CalcolaTermine(Caselle(u"03/01/0100"_s, u"1"_s, TipoGiorni, Senza(true))).DataCorrente,
             QDate(100, 1, 2));
    // The suspension of the first year and of the last one is met, those beside them never.
    QCOMPARE(CalcolaTermine(Caselle(u"10/08/9999"_s, u"5"_s, TipoGiorni, Sospesi)).DataCorrente,
             QDate(9999, 9, 20));
    QCOMPARE(CalcolaTermine(Caselle(u"20/09/0100"_s, u"10"_s, TipoGiorni, {true, false, false, true}))
                 .DataCorrente,
             QDate(100, 7, 26));
    // 46 days of suspension a year: 46,000 in all, beyond 16 bits, make 147 years and their own suspensions.
    QCOMPARE(CalcolaTermine(Caselle(u"01/01/2012"_s, u"1000"_s, 2, Sospesi)).DataCorrente.year(), 3156);
}

void TestTermini::difetti_data()
{
    QTest::addColumn<QString>("Decorrenza");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<CampoTermine>("Dove");

    const auto NonValida = u"La Data di Decorrenza indicata non è una data valida!"_s;
    const auto SenzaNumero = u"Non è stato indicato il Numero di incremento!"_s;
    const auto Decorrenza = CampoTermine::Decorrenza;
    QTest::newRow("maschera vuota") << u"__/__/____"_s << u"10"_s
                                    << u"Non è stata specificata la Data di Decorrenza!"_s << Decorrenza;
    QTest::newRow("31/02") << u"31/02/2012"_s << u"10"_s << NonValida << Decorrenza;
    QTest::newRow("00/00/0000") << u"00/00/0000"_s << u"10"_s << NonValida << Decorrenza;
    QTest::newRow("anno 1") << u"01/01/0001"_s << u"10"_s << NonValida << Decorrenza;
    QTest::newRow("mese e giorno scambiati") << u"12/31/2012"_s << u"10"_s << NonValida << Decorrenza;
    QTest::newRow("maschera a metà") << u"12/0_/____"_s << u"10"_s << NonValida << Decorrenza;
    QTest::newRow("anno di tre cifre") << u"12/03/201_"_s << u"10"_s << NonValida << Decorrenza;
    QTest::newRow("numero vuoto") << u"12/03/2012"_s << QString() << SenzaNumero << CampoTermine::Numero;
    QTest::newRow("numero zero") << u"12/03/2012"_s << u"0000"_s << SenzaNumero << CampoTermine::Numero;
    QTest::newRow("la data prima del numero") << u"31/02/2012"_s << QString() << NonValida << Decorrenza;
}

void TestTermini::difetti()
{
    QFETCH(QString, Decorrenza);
    QFETCH(QString, Numero);
    QFETCH(QString, Messaggio);
    QFETCH(CampoTermine, Dove);
    const auto Trovato = DifettoTermine(Caselle(Decorrenza, Numero));
    QVERIFY(Trovato);
    QCOMPARE(*Trovato, (Mancanza<CampoTermine>{Messaggio, Dove}));
}

void TestTermini::sabatoARitroso()
{
    Registratore Box;
    Box.Attendi(
        u"La proroga del sabato (art. 155, 5° comma, c.p.c.) non si applica ai termini da calcolarsi a "
        "ritroso.\nPer maggiori informazioni leggere le Avvertenze"_s,
        vbOK, u"Avvertenza:"_s);
    OpzioniTermine Opzioni{true, false, true, true};
    QVERIFY(TogliSabatoARitroso(Opzioni));
    QVERIFY(!Opzioni.Sabato);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbExclamation);
    QVERIFY(!TogliSabatoARitroso(Opzioni));
    OpzioniTermine Avanti{true, false, true, false};
    QVERIFY(!TogliSabatoARitroso(Avanti));
    QVERIFY(Avanti.Sabato);
}

void TestTermini::sabatoAmmesso_data()
{
    QTest::addColumn<QString>("Decorrenza");
    QTest::addColumn<QString>("Ammesso");
    QTest::newRow("il primo giorno") << u"02/03/2006"_s << u"sì"_s;
    QTest::newRow("il giorno prima") << u"01/03/2006"_s << u"no"_s;
    QTest::newRow("nessuna data: resta com'era") << u"12/0_/____"_s << u"com'era"_s;
}

void TestTermini::sabatoAmmesso()
{
    QFETCH(QString, Decorrenza);
    const auto Ammesso = SabatoAmmesso(Decorrenza);
    QTEST(!Ammesso ? u"com'era"_s : *Ammesso ? u"sì"_s : u"no"_s, "Ammesso");
}

void TestTermini::festivi_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<bool>("Festivo");
    for (const auto& Festa : {u"01/01"_s, u"06/01"_s, u"09/04"_s, u"25/04"_s, u"01/05"_s, u"02/06"_s,
                              u"15/08"_s, u"01/11"_s, u"08/12"_s, u"25/12"_s, u"26/12"_s})
        QTest::newRow(qPrintable(Festa)) << Festa + u"/2012"_s << true;
    QTest::newRow("Pasqua è domenica, non festa dell'elenco") << u"08/04/2012"_s << false;
    QTest::newRow("la Pasquetta di un altro anno") << u"09/04/2013"_s << false;
    QTest::newRow("patrono di Roma") << u"29/06/2012"_s << false;
    QTest::newRow("nessuna data") << u"31/02/2012"_s << false;
    QTest::newRow("testo più corto") << u"1/1/2012"_s << false;
}

void TestTermini::festivi()
{
    QFETCH(QString, Data);
    QTEST(IsFestivo(Data), "Festivo");
}

void TestTermini::pasquetta_data()
{
    QTest::addColumn<int>("Anno");
    QTest::addColumn<QString>("Data");
    QTest::newRow("in marzo, giorno 31") << 2024 << u"01/04/2024"_s;
    QTest::newRow("ultimo di marzo") << 2002 << u"01/04/2002"_s;
    QTest::newRow("in marzo") << 2008 << u"24/03/2008"_s;
    QTest::newRow("2012") << 2012 << u"09/04/2012"_s;
    QTest::newRow("2049, senza correzione") << 2049 << u"26/04/2049"_s;
    QTest::newRow("1981, senza correzione") << 1981 << u"27/04/1981"_s;
    QTest::newRow("2076, senza correzione") << 2076 << u"27/04/2076"_s;
    QTest::newRow("1954, senza correzione") << 1954 << u"26/04/1954"_s;
    QTest::newRow("primo anno") << 100 << u"26/04/0100"_s;
    QTest::newRow("anno 99") << 99 << u"31/12/1999"_s;
    QTest::newRow("anno 10000") << 10000 << u"31/12/1999"_s;
}

void TestTermini::pasquetta()
{
    QFETCH(int, Anno);
    QTEST(Pasquetta(Anno), "Data");
}

void TestTermini::giorniSospesi()
{
    QVERIFY(!GiornoSospeso(QDate(2012, 7, 31)));
    QVERIFY(GiornoSospeso(QDate(2012, 8, 1)));
    QVERIFY(GiornoSospeso(QDate(2030, 9, 15)));
    QVERIFY(!GiornoSospeso(QDate(2012, 9, 16)));
}

#include "TestTermini.moc"
