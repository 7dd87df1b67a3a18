// The filing fee by the day of filing: worked cases on both sides of each day, and random ones a second time.
#include "banconorme.h"
#include "supporto/guasti.h"

#include "calculators/modContributo.h"
#include "calculators/norme/contributovigente.h"

#include <QRandomGenerator>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

RichiestaContributo Chiedi(const QString& Procedimento, const QDate& Deposito, const QString& Scelte = {},
                           const std::optional<double>& Valore = {})
{
    RichiestaContributo Chiesto;
    Chiesto.Procedimento = Procedimento;
    Chiesto.Deposito = Deposito;
    Chiesto.ValoreEuro = Valore;
    if (Scelte.contains(u'i'))
        Chiesto.Grado = GradoGiudizio::Impugnazione;
    if (Scelte.contains(u'c'))
        Chiesto.Grado = GradoGiudizio::Cassazione;
    Chiesto.Dimezzato = Scelte.contains(u'd');
    Chiesto.Imprese = Scelte.contains(u'm');
    Chiesto.OmessiDati = Scelte.contains(u'o');
    Chiesto.Respinta = Scelte.contains(u'r');
    Chiesto.Lavoro = Scelte.contains(u'l');
    Chiesto.Notifiche = Scelte.contains(u'n');
    return Chiesto;
}

/// "contributo + aggiunte, minimo".
QString Esito(const RichiestaContributo& Chiesto)
{
    const EsitoContributo Avuto = ContributoVigente(NormeConsegnate(), Chiesto);
    QString Testo = QString::number(Avuto.ContributoEuro, 'f', 2);
    if (Avuto.AggiunteEuro > 0)
        Testo += u" + "_s + QString::number(Avuto.AggiunteEuro, 'f', 2);
    if (Avuto.MinimoEuro)
        Testo += u", minimo "_s + QString::number(*Avuto.MinimoEuro, 'f', 2);
    return Testo;
}

}  // namespace

class TestContributoVigente : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importi_data();
    void importi();
    void rifiuti_data();
    void rifiuti();
    void passi();
    void perCiascuno();
    void procedimenti();
    void comeIlProgramma();
    void aCaso();
};
PROVA(TestContributoVigente);

// Choices: i appeal, c cassation, d halved, m enterprises, o data omitted, r refused, l labour, n
// notifications.
void TestContributoVigente::importi_data()
{
    QTest::addColumn<QString>("Procedimento");
    QTest::addColumn<QDate>("Deposito");
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Scelte");
    QTest::addColumn<QString>("Attesa");
    const auto Riga = [](const char* Nome, const char16_t* Procedimento, const QDate& Deposito, double Valore,
                         const char16_t* Scelte, const char16_t* Attesa) {
        QTest::newRow(Nome) << QString::fromUtf16(Procedimento) << Deposito << Valore
                            << QString::fromUtf16(Scelte) << QString::fromUtf16(Attesa);
    };
    Riga("2010, primo giorno", u"civile", {2010, 7, 31}, 1100, u"", u"33.00");
    Riga("2010, ultimo giorno", u"civile", {2011, 7, 5}, 1100.01, u"", u"77.00");
    Riga("2011, primo giorno", u"civile", {2011, 7, 6}, 1100.01, u"", u"85.00");
    Riga("2011, ultimo giorno", u"civile", {2014, 6, 24}, 520000.01, u"", u"1466.00");
    Riga("2014, primo giorno", u"civile", {2014, 6, 25}, 520000.01, u"", u"1686.00");
    Riga("zero", u"civile", {2024, 1, 2}, 0, u"", u"43.00");
    Riga("5.200", u"civile", {2024, 1, 2}, 5200, u"", u"98.00");
    Riga("5.200,01", u"civile", {2024, 1, 2}, 5200.01, u"", u"237.00");
    Riga("26.000", u"civile", {2024, 1, 2}, 26000, u"", u"237.00");
    Riga("52.000", u"civile", {2024, 1, 2}, 52000, u"", u"518.00");
    Riga("260.000", u"civile", {2024, 1, 2}, 260000, u"", u"759.00");
    Riga("520.000", u"civile", {2024, 1, 2}, 520000, u"", u"1214.00");
    Riga("mezzo centesimo al pari", u"civile", {2024, 1, 2}, 1100.005, u"", u"43.00");
    Riga("appello, vigilia della norma", u"civile", {2011, 12, 31}, 6000, u"i", u"206.00");
    Riga("appello, primo giorno", u"civile", {2012, 1, 1}, 6000, u"i", u"309.00");
    Riga("appello", u"civile", {2024, 1, 2}, 1000, u"i", u"64.50");
    Riga("cassazione, col registro", u"civile", {2024, 1, 2}, 1000, u"c", u"86.00 + 200.00");
    Riga("cassazione 2013, senza registro", u"civile", {2013, 12, 31}, 1000, u"c", u"74.00");
    Riga("a metà", u"civile", {2024, 1, 2}, 1000, u"d", u"21.50");
    Riga("a metà in appello", u"civile", {2024, 1, 2}, 1000, u"di", u"32.25");
    Riga("lavoro", u"civile", {2024, 1, 2}, 1000, u"ln", u"21.50");
    Riga("lavoro, procedimento speciale: una metà sola", u"civile", {2024, 1, 2}, 1000, u"ld", u"21.50");
    Riga("lavoro in appello", u"civile", {2024, 1, 2}, 1000, u"lin", u"32.25");
    Riga("lavoro in cassazione", u"civile", {2024, 1, 2}, 1000, u"lcn", u"86.00 + 200.00");
    Riga("lavoro in cassazione, procedimento speciale", u"civile", {2024, 1, 2}, 1000, u"lcd",
         u"86.00 + 200.00");
    Riga("imprese, vigilia", u"civile", {2012, 9, 21}, 1000, u"m", u"37.00");
    Riga("imprese, primo giorno", u"civile", {2012, 9, 22}, 1000, u"m", u"74.00");
    Riga("dati omessi, vigilia", u"civile", {2014, 6, 24}, 1000, u"o", u"37.00");
    Riga("dati omessi, primo giorno", u"civile", {2014, 6, 25}, 1000, u"o", u"64.50");
    Riga("mezzo centesimo via da zero", u"civile", {2024, 1, 2}, 1000, u"dio", u"48.38");
    Riga("respinta, vigilia", u"civile", {2013, 1, 30}, 1000, u"ir", u"55.50");
    Riga("respinta, primo giorno", u"civile", {2013, 1, 31}, 1000, u"ir", u"111.00");
    Riga("notifiche, prima della norma", u"civile", {2010, 7, 31}, 1000, u"n", u"33.00 + 8.00");
    Riga("notifiche, ultimo giorno a 8", u"civile", {2013, 12, 31}, 1000, u"n", u"37.00 + 8.00");
    Riga("notifiche, primo giorno a 27", u"civile", {2014, 1, 1}, 1000, u"n", u"37.00 + 27.00");
    Riga("minimo, vigilia", u"civile", {2024, 12, 31}, 6000, u"", u"237.00");
    Riga("minimo, primo giorno", u"civile", {2025, 1, 1}, 6000, u"", u"237.00, minimo 43.00");
    Riga("minimo, contributo minore", u"civile", {2025, 1, 1}, 1000, u"d", u"21.50, minimo 21.50");
    Riga("indeterminabile", u"indeterminabile", {2024, 1, 2}, 0, u"", u"518.00");
    Riga("indeterminabile in appello", u"indeterminabile", {2024, 1, 2}, 0, u"i", u"777.00");
    Riga("indeterminabile, giudice di pace", u"indeterminabile giudice di pace", {2024, 1, 2}, 0, u"",
         u"237.00");
    Riga("cittadinanza, vigilia: importo ordinario", u"indeterminabile", {2024, 12, 31}, 0, u"", u"518.00");
    Riga("cittadinanza", u"cittadinanza", {2025, 1, 1}, 0, u"", u"600.00, minimo 43.00");
    Riga("esecuzione immobiliare", u"esecuzione immobiliare", {2024, 1, 2}, 0, u"n", u"278.00 + 27.00");
    Riga("amministrativo", u"amministrativo", {2013, 1, 1}, 0, u"", u"650.00");
    Riga("amministrativo in appello", u"amministrativo", {2024, 1, 2}, 0, u"i", u"975.00");
    Riga("appalti oltre il milione", u"appalti oltre", {2024, 1, 2}, 0, u"", u"6000.00");
    Riga("previdenza, senza notifiche", u"previdenza", {2026, 1, 1}, 0, u"n", u"43.00, minimo 43.00");
    Riga("previdenza, vigilia del minimo", u"previdenza", {2024, 12, 31}, 0, u"n", u"43.00");
    Riga("amministrativo, né notifiche né minimo", u"amministrativo", {2026, 1, 1}, 0, u"n", u"650.00");
    Riga("tributario, né notifiche né minimo", u"tributario", {2026, 1, 1}, 1000, u"n", u"30.00");
    Riga("esente senza aggiunte", u"accesso ambientale", {2026, 1, 1}, 0, u"n", u"0.00");
    Riga("ricerca dei beni, senza notifiche", u"ricerca beni", {2026, 1, 1}, 0, u"n", u"43.00");
    Riga("portale, senza notifiche", u"vendite", {2026, 1, 1}, 0, u"n", u"100.00");
    Riga("fallimento, con notifiche", u"fallimento", {2026, 1, 1}, 0, u"n", u"851.00 + 27.00, minimo 43.00");
    Riga("fallimento, primo giorno degli importi noti", u"fallimento", {2010, 7, 31}, 0, u"", u"851.00");
    Riga("valore mancante, primo giorno", u"valore mancante", {2014, 6, 25}, 0, u"", u"1686.00");
    Riga("esente", u"accesso ambientale", {2025, 6, 2}, 0, u"", u"0.00");
    Riga("tributario, primo giorno", u"tributario", {2011, 7, 7}, 2582.28, u"", u"30.00");
    Riga("tributario, un centesimo dopo", u"Tributario", {2024, 1, 2}, 2582.29, u"", u"60.00");
    Riga("tributario, ultimo", u"tributario", {2024, 1, 2}, 200000.01, u"", u"1500.00");
}

void TestContributoVigente::importi()
{
    QFETCH(QString, Procedimento);
    QFETCH(QDate, Deposito);
    QFETCH(double, Valore);
    QFETCH(QString, Scelte);
    QTEST(Esito(Chiedi(Procedimento, Deposito, Scelte, Valore)), "Attesa");
}

void TestContributoVigente::rifiuti_data()
{
    QTest::addColumn<QString>("Procedimento");
    QTest::addColumn<QDate>("Deposito");
    QTest::addColumn<QString>("Scelte");
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Attesa");
    const double Manca = std::nan("");
    const QDate Oggi(2026, 6, 2);
    QTest::newRow("prima del più vecchio") << u"civile"_s << QDate(2010, 7, 30) << u""_s << 100.0
                                           << u"Processo civile, a valore: importi noti dal 31/07/2010"_s;
    QTest::newRow("anno 100") << u"civile"_s << QDate(100, 1, 1) << u""_s << 100.0
                              << u"Processo civile, a valore: importi noti dal 31/07/2010"_s;
    QTest::newRow("fisso, prima") << u"indeterminabile"_s << QDate(2014, 6, 24) << u""_s << Manca
                                  << u"Valore indeterminabile: importi noti dal 25/06/2014"_s;
    QTest::newRow("tributario, prima") << u"tributario"_s << QDate(2011, 7, 6) << u""_s << 100.0
                                       << u"Processo tributario, a valore: importi noti dal 07/07/2011"_s;
    QTest::newRow("fallimento, prima di ogni importo")
        << u"fallimento"_s << QDate(2010, 7, 30) << u""_s << Manca
        << u"Procedura fallimentare: importi noti dal 31/07/2010"_s;
    QTest::newRow("portale, 1990")
        << u"vendite"_s << QDate(1990, 1, 1) << u""_s << Manca
        << u"Pubblicazione sul portale delle vendite, per lotto: importi noti dal 31/07/2010"_s;
    QTest::newRow("valore mancante, prima")
        << u"valore mancante"_s << QDate(2014, 6, 24) << u""_s << Manca
        << u"Dichiarazione di valore mancante: importi noti dal 25/06/2014"_s;
    QTest::newRow("cittadinanza, prima")
        << u"cittadinanza"_s << QDate(2024, 12, 31) << u""_s << Manca
        << u"Cittadinanza italiana, per ricorrente: importi noti dal 01/01/2025"_s;
    QTest::newRow("senza data") << u"civile"_s << QDate() << u""_s << 100.0
                                << u"La data del deposito non è valida"_s;
    QTest::newRow("senza valore") << u"civile"_s << Oggi << u""_s << Manca
                                  << u"Processo civile, a valore: manca il valore"_s;
    QTest::newRow("valore negativo") << u"civile"_s << Oggi << u""_s << -0.01
                                     << u"Processo civile, a valore: il valore non può essere negativo"_s;
    QTest::newRow("sconosciuto") << u"canonico"_s << Oggi << u""_s << 100.0
                                 << u"Nessun procedimento si chiama «canonico»"_s;
    QTest::newRow("tributario in appello")
        << u"tributario"_s << Oggi << u"i"_s << 100.0
        << u"Processo tributario, a valore: nessuna norma nota dà il contributo per quel grado"_s;
    QTest::newRow("amministrativo in cassazione")
        << u"amministrativo"_s << Oggi << u"c"_s << Manca
        << u"Processo amministrativo, ordinario: nessuna norma nota dà il contributo per quel grado"_s;
    QTest::newRow("amministrativo a metà")
        << u"amministrativo"_s << Oggi << u"d"_s << Manca
        << u"Processo amministrativo, ordinario: nessuna norma nota lo dimezza o lo raddoppia"_s;
    QTest::newRow("amministrativo del lavoro")
        << u"amministrativo"_s << Oggi << u"l"_s << Manca
        << u"Processo amministrativo, ordinario: nessuna norma nota lo dimezza o lo raddoppia"_s;
    QTest::newRow("respinta in primo grado")
        << u"civile"_s << Oggi << u"r"_s << 100.0
        << u"L'altro importo per l'impugnazione respinta vale solo nelle impugnazioni"_s;
}

void TestContributoVigente::rifiuti()
{
    QFETCH(QString, Procedimento);
    QFETCH(QDate, Deposito);
    QFETCH(QString, Scelte);
    QFETCH(double, Valore);
    QTEST(DescrizioneErroreDi([&] {
              (void)ContributoVigente(NormeConsegnate(),
                                      Chiedi(Procedimento, Deposito, Scelte,
                                             std::isnan(Valore) ? std::nullopt : std::optional(Valore)));
          }),
          "Attesa");
}

void TestContributoVigente::passi()
{
    const EsitoContributo Avuto =
        ContributoVigente(NormeConsegnate(), Chiedi(u"civile"_s, {2026, 11, 22}, u"icn"_s, 6000.0));
    QStringList Testi;
    for (const PassoContributo& Passo : Avuto.Passi)
        Testi << Passo.Testo + u": "_s + QString::number(Passo.Euro, 'f', 2) + u" ("_s + Passo.Norma + u')';
    QCOMPARE(
        Testi,
        (QStringList{u"Scaglione da 5.200,01 a 26.000,00 euro: 237.00 (D.P.R. 115/2002, art. 13, 1° comma, "
                     "come modificato dal D.L. 90/2014, art. 53)"_s,
                     u"Cassazione (x 2): 474.00 (D.P.R. 115/2002, art. 13, comma 1-bis)"_s,
                     u"Anticipazione forfettaria per le notifiche: 27.00 (D.P.R. 115/2002, art. 30)"_s,
                     u"Imposta fissa di registro: 200.00 (D.P.R. 115/2002, art. 13, comma 2-bis)"_s}));
    QCOMPARE(Avuto.NormaMinimo, u"D.P.R. 115/2002, art. 14, comma 3.1"_s);
    QCOMPARE(Avuto.TotaleEuro(), 701.0);
    QCOMPARE(Avuto.Note,
             (QStringList{
                 u"Norme note fino al 21/11/2026"_s,
                 u"Effetti della legge di bilancio 2026 (L. 199/2025) sul contributo non riscontrati."_s}));
    // A rule whose first day is not known is certain from the day on which it was read.
    const auto Fallimento = [](const QDate& Quando) {
        return ContributoVigente(NormeConsegnate(), Chiedi(u"fallimento"_s, Quando)).Passi[0];
    };
    QVERIFY(Fallimento({2026, 11, 20}).NonRiscontrato);
    QCOMPARE(Fallimento({2026, 11, 20}).Nota, u"decorrenza non riscontrata"_s);
    QVERIFY(!Fallimento({2026, 11, 21}).NonRiscontrato);
    QCOMPARE(ContributoVigente(NormeConsegnate(), Chiedi(u"civile"_s, {2011, 12, 31}, u"i"_s, 6000.0))
                 .Passi[1]
                 .Nota,
             u"in vigore dal 01/01/2012"_s);
    const PassoContributo Intero =
        ContributoVigente(NormeConsegnate(), Chiedi(u"civile"_s, {2026, 11, 22}, u"lc"_s, 6000.0)).Passi[1];
    QCOMPARE(Intero.Euro, 237.0);
    QCOMPARE(Intero.Nota, u"Lavoro in cassazione: per intero."_s);
}

void TestContributoVigente::perCiascuno()
{
    RichiestaContributo Chiesto = Chiedi(u"cittadinanza"_s, {2025, 6, 2});
    Chiesto.Ricorrenti = 3;
    QCOMPARE(Esito(Chiesto), u"1800.00, minimo 43.00"_s);
    for (const int Quanti : {0, -1, 10000}) {
        Chiesto.Ricorrenti = Quanti;
        QCOMPARE(DescrizioneErroreDi([&] { (void)Esito(Chiesto); }),
                 u"Cittadinanza italiana, per ricorrente: il numero va da 1 a 9999"_s);
    }
}

void TestContributoVigente::procedimenti()
{
    const QList<ProcedimentoContributo> Tutti = ProcedimentiContributo(NormeConsegnate());
    QCOMPARE(Tutti.size(), 28);
    QCOMPARE(Tutti.first().Codice, u"civile"_s);
    QVERIFY(Tutti.first().AValore && Tutti.first().ConGradi && !Tutti.first().PerCiascuno);
    for (const ProcedimentoContributo& Uno : Tutti) {
        const QString Detto = DescrizioneErroreDi([&] {
            (void)ContributoVigente(NormeConsegnate(), Chiedi(Uno.Codice, {2026, 11, 21}, {}, 100.0));
        });
        QVERIFY2(Detto.isEmpty(), qPrintable(Detto));
        RichiestaContributo ConNotifiche = Chiedi(Uno.Codice, {2026, 11, 21}, u"n"_s, 100.0);
        QCOMPARE(ContributoVigente(NormeConsegnate(), ConNotifiche).AggiunteEuro,
                 Uno.ConNotifiche ? 27.0 : 0.0);
        const bool Rifiutato = !DescrizioneErroreDi([&] {
                                    (void)ContributoVigente(
                                        NormeConsegnate(), Chiedi(Uno.Codice, {2026, 11, 21}, u"i"_s, 100.0));
                                }).isEmpty();
        QCOMPARE(Rifiutato, !Uno.ConGradi);
    }
}

// From 25 June 2014 on the stated table is the law's: both engines say the same.
void TestContributoVigente::comeIlProgramma()
{
    QRandomGenerator Sorte(20140625);
    for (int i = 0; i < 2000; ++i) {
        const double Valore = std::round(std::exp(Sorte.generateDouble() * 16) * 100) / 100;
        const QDate Quando = QDate(2014, 6, 25).addDays(Sorte.bounded(4000));
        QCOMPARE(ContributoVigente(NormeConsegnate(), Chiedi(u"civile"_s, Quando, {}, Valore)).ContributoEuro,
                 Contributo(Valore, TabellaContributo::Ordinaria));
        QCOMPARE(
            ContributoVigente(NormeConsegnate(), Chiedi(u"civile"_s, Quando, u"d"_s, Valore)).ContributoEuro,
            Contributo(Valore, TabellaContributo::Dimezzata));
        QCOMPARE(
            ContributoVigente(NormeConsegnate(), Chiedi(u"tributario"_s, Quando, {}, Valore)).ContributoEuro,
            Contributo(Valore, TabellaContributo::Tributaria));
    }
}

// A second time, in whole cents and in this test's own words.
void TestContributoVigente::aCaso()
{
    constexpr std::array<qint64, 6> Limiti{110000, 520000, 2600000, 5200000, 26000000, 52000000};
    constexpr std::array<std::array<int, 7>, 3> Euro{std::array{33, 77, 187, 374, 550, 880, 1221},
                                                     std::array{37, 85, 206, 450, 660, 1056, 1466},
                                                     std::array{43, 98, 237, 518, 759, 1214, 1686}};
    QRandomGenerator Sorte(20261122);
    const auto Per = [](qint64 Centesimi, int Sopra, int Sotto) {  // half a cent goes up
        return (Centesimi * Sopra * 2 + Sotto) / (Sotto * 2);
    };
    for (int i = CasiAlCaso(4000); i > 0; --i) {
        const int Giorni = int(QDate(2010, 7, 31).daysTo({2027, 1, 1}));
        const QDate Quando = QDate(2010, 7, 31).addDays(Sorte.bounded(Giorni));
        qint64 Valore = qint64(std::exp(Sorte.generateDouble() * 20));
        if (Sorte.bounded(3) == 0)
            Valore = Limiti[size_t(Sorte.bounded(6))] + Sorte.bounded(3) - 1;
        RichiestaContributo Chiesto = Chiedi(u"civile"_s, Quando, {}, double(Valore) / 100);
        Chiesto.Grado = GradoGiudizio(Sorte.bounded(3));
        const int Bit = Sorte.bounded(64);
        Chiesto.Dimezzato = (Bit & 1) != 0;
        Chiesto.Imprese = (Bit & 2) != 0;
        Chiesto.OmessiDati = (Bit & 4) != 0;
        Chiesto.Notifiche = (Bit & 8) != 0;
        Chiesto.Lavoro = (Bit & 32) != 0;
        Chiesto.Respinta = (Bit & 16) != 0 && Chiesto.Grado != GradoGiudizio::Primo;

        const size_t Legge = Quando < QDate(2011, 7, 6) ? 0 : Quando < QDate(2014, 6, 25) ? 1 : 2;
        size_t Fascia = 0;
        while (Fascia < Limiti.size() && Valore > Limiti[Fascia])
            ++Fascia;
        qint64 Atteso = qint64(Euro[Legge][Fascia]) * 100;
        if (Chiesto.Lavoro ? Chiesto.Grado != GradoGiudizio::Cassazione : Chiesto.Dimezzato)
            Atteso = Per(Atteso, 1, 2);
        if (Chiesto.Imprese && Quando >= QDate(2012, 9, 22))
            Atteso *= 2;
        if (Quando.year() >= 2012 && Chiesto.Grado == GradoGiudizio::Impugnazione)
            Atteso = Per(Atteso, 3, 2);
        if (Quando.year() >= 2012 && Chiesto.Grado == GradoGiudizio::Cassazione)
            Atteso *= 2;
        if (Chiesto.OmessiDati && Legge == 2)
            Atteso = Per(Atteso, 3, 2);
        if (Chiesto.Respinta && Quando >= QDate(2013, 1, 31))
            Atteso *= 2;
        qint64 Altro = !Chiesto.Notifiche || Chiesto.Lavoro ? 0 : Quando.year() < 2014 ? 800 : 2700;
        if (Chiesto.Grado == GradoGiudizio::Cassazione && Quando.year() >= 2014)
            Altro += 20000;

        const EsitoContributo Avuto = ContributoVigente(NormeConsegnate(), Chiesto);
        const bool Minimo = Quando.year() >= 2025;
        const qint64 AvutoMinimo = Avuto.MinimoEuro ? std::llround(*Avuto.MinimoEuro * 100) : -1;
        if (std::llround(Avuto.ContributoEuro * 100) != Atteso ||
            std::llround(Avuto.AggiunteEuro * 100) != Altro ||
            AvutoMinimo != (Minimo ? std::min<qint64>(Atteso, 4300) : -1))
            QFAIL(qPrintable(u"%1, %2 centesimi, grado %3, scelte %4: %5 e %6 invece di %7 e %8"_s
                                 .arg(Quando.toString(Qt::ISODate))
                                 .arg(Valore)
                                 .arg(int(Chiesto.Grado))
                                 .arg(Bit)
                                 .arg(Avuto.ContributoEuro)
                                 .arg(Avuto.AggiunteEuro)
                                 .arg(double(Atteso) / 100)
                                 .arg(double(Altro) / 100)));
    }
}

#include "TestContributoVigente.moc"
