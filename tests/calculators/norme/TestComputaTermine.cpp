// Terms by the norms in force, worked out by hand: each rule, and both sides of each day from which it holds.
#include "banconorme.h"
#include "supporto/guasti.h"

#include "calculators/norme/terminiricorrenti.h"

using namespace Qt::StringLiterals;

namespace {

RichiestaTermine Chiedi(const QDate& Da, int Numero, int Tipo, const QString& Scelte)
{
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = Da;
    Chiesto.Numero = Numero;
    Chiesto.Tipo = Tipo;
    Chiesto.Opzioni = {Scelte.contains(u'f'), Scelte.contains(u'l'), Scelte.contains(u's'),
                       Scelte.contains(u'r')};
    return Chiesto;
}

QString Esito(const EsitoTermine& Avuto)
{
    return Avuto.Scadenza.toString(u"dd/MM/yyyy"_s) + (Avuto.Spostata ? u" +"_s : QString());
}

QString GeneriDi(const EsitoTermine& Avuto)
{
    QStringList Nomi;
    for (const PassoStrada& Passo : Avuto.Passi)
        Nomi << NomePasso(Passo.Genere) + (Passo.NonRiscontrato ? u"?"_s : QString());
    return Nomi.join(u" > "_s);
}

}  // namespace

class TestComputaTermine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scadenze_data();
    void scadenze();
    void strade_data();
    void strade();
    void sospensioniCheNonContano();
    void sospensioneTaciutaETolta();
    void normaDelGiornoLibero();
    void anelli();
    void rifiuti_data();
    void rifiuti();
    void note();
    void materiaRisparmiata();
    void catalogo_data();
    void catalogo();
    void tuttoIlCatalogo();
    void ricerca_data();
    void ricerca();
    void catene_data();
    void catene();
    void vigenze_data();
    void vigenze();
    void programmaAllaLettera();
    void testoDaCopiare();
};
PROVA(TestComputaTermine);

// Choices: f summer suspension, l free, s Saturday, r backward.
void TestComputaTermine::scadenze_data()
{
    QTest::addColumn<QDate>("Da");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Scelte");
    QTest::addColumn<QString>("Attesa");
    const auto Riga = [](const char* Nome, const QDate& Da, int Numero, int Tipo, const char16_t* Scelte,
                         const char16_t* Attesa) {
        QTest::newRow(Nome) << Da << Numero << Tipo << QString::fromUtf16(Scelte)
                            << QString::fromUtf16(Attesa);
    };
    Riga("nessun ostacolo", {2026, 3, 2}, 10, TipoGiorni, u"fs", u"12/03/2026");
    Riga("2014: fino al 15 settembre", {2014, 7, 21}, 20, TipoGiorni, u"f", u"25/09/2014 +");
    Riga("2015: fino al 31 agosto", {2015, 7, 21}, 20, TipoGiorni, u"f", u"10/09/2015 +");
    Riga("ultimo giorno prima", {2026, 7, 21}, 10, TipoGiorni, u"f", u"31/07/2026");
    Riga("un giorno dopo", {2026, 7, 21}, 11, TipoGiorni, u"f", u"01/09/2026 +");
    Riga("evento il 31 luglio", {2026, 7, 31}, 1, TipoGiorni, u"f", u"01/09/2026 +");
    Riga("evento il 1 agosto: decorre dal 1 settembre", {2026, 8, 1}, 1, TipoGiorni, u"f", u"01/09/2026");
    Riga("evento il 31 agosto", {2026, 8, 31}, 1, TipoGiorni, u"f", u"01/09/2026");
    Riga("evento il 1 settembre", {2026, 9, 1}, 1, TipoGiorni, u"f", u"02/09/2026");
    Riga("evento il 15 settembre 2014", {2014, 9, 15}, 1, TipoGiorni, u"f", u"16/09/2014");
    Riga("evento il 10 agosto, 30 giorni", {2026, 8, 10}, 30, TipoGiorni, u"f", u"30/09/2026");
    Riga("due estati di due leggi", {2014, 7, 31}, 350, TipoGiorni, u"f", u"01/10/2015 +");
    Riga("mesi: agosto in mezzo", {2026, 5, 20}, 6, TipoMesi, u"f", u"21/12/2026 +");
    Riga("mesi: finisce ad agosto", {2026, 2, 15}, 6, TipoMesi, u"f", u"15/09/2026 +");
    Riga("mesi: finisce il 31 luglio", {2026, 1, 31}, 6, TipoMesi, u"f", u"31/07/2026");
    Riga("mesi: finisce il 1 agosto", {2026, 2, 1}, 6, TipoMesi, u"f", u"01/09/2026 +");
    Riga("mesi: comincia ad agosto", {2026, 8, 10}, 3, TipoMesi, u"f", u"30/11/2026");
    Riga("mesi: comincia il 31 luglio", {2026, 7, 31}, 3, TipoMesi, u"f", u"01/12/2026 +");
    Riga("mesi: comincia il 1 settembre", {2026, 9, 1}, 3, TipoMesi, u"f", u"01/12/2026");
    Riga("mesi: 46 giorni nel 2014", {2014, 5, 20}, 6, TipoMesi, u"f", u"05/01/2015 +");
    Riga("anno: due sospensioni", {2024, 7, 15}, 1, TipoAnni, u"f", u"15/09/2025 +");
    Riga("giorno che il mese non ha", {2026, 1, 31}, 1, TipoMesi, u"", u"28/02/2026");
    Riga("giorno che il mese non ha, poi che ha", {2026, 1, 31}, 2, TipoMesi, u"", u"31/03/2026");
    Riga("31 ottobre, 4 mesi bisestile", {2027, 10, 31}, 4, TipoMesi, u"", u"29/02/2028");
    Riga("29 febbraio, un anno", {2024, 2, 29}, 1, TipoAnni, u"", u"28/02/2025");
    Riga("29 febbraio, quattro anni", {2024, 2, 29}, 4, TipoAnni, u"", u"29/02/2028");
    Riga("al 29 febbraio", {2028, 2, 19}, 10, TipoGiorni, u"", u"29/02/2028");
    Riga("libero", {2026, 3, 2}, 10, TipoGiorni, u"l", u"13/03/2026");
    Riga("libero che salta agosto", {2026, 7, 21}, 10, TipoGiorni, u"fl", u"01/09/2026 +");
    Riga("domenica", {2026, 3, 5}, 10, TipoGiorni, u"", u"16/03/2026 +");
    Riga("sabato che si sposta", {2026, 3, 4}, 10, TipoGiorni, u"s", u"16/03/2026 +");
    Riga("sabato senza la scelta", {2026, 3, 4}, 10, TipoGiorni, u"", u"14/03/2026");
    Riga("ultimo sabato che resta", {2006, 2, 15}, 10, TipoGiorni, u"s", u"25/02/2006");
    Riga("primo sabato che si sposta", {2006, 2, 22}, 10, TipoGiorni, u"s", u"06/03/2006 +");
    Riga("4 ottobre 2025, sabato", {2025, 9, 24}, 10, TipoGiorni, u"", u"04/10/2025");
    Riga("4 ottobre 2026, domenica", {2026, 9, 24}, 10, TipoGiorni, u"", u"05/10/2026 +");
    Riga("4 ottobre 2027, lunedì", {2027, 9, 24}, 10, TipoGiorni, u"", u"05/10/2027 +");
    Riga("2 giugno 2000", {2000, 5, 23}, 10, TipoGiorni, u"", u"02/06/2000");
    Riga("2 giugno 2003", {2003, 5, 23}, 10, TipoGiorni, u"", u"03/06/2003 +");
    Riga("Pasquetta 2049", {2049, 4, 9}, 10, TipoGiorni, u"", u"20/04/2049 +");
    Riga("Natale di venerdì, poi sabato e domenica", {2026, 12, 15}, 10, TipoGiorni, u"s", u"28/12/2026 +");
    Riga("Ferragosto senza sospensione", {2026, 8, 5}, 10, TipoGiorni, u"", u"17/08/2026 +");
    Riga("a ritroso", {2026, 3, 20}, 10, TipoGiorni, u"r", u"10/03/2026");
    Riga("a ritroso, domenica: al sabato", {2026, 3, 25}, 10, TipoGiorni, u"r", u"14/03/2026 +");
    Riga("a ritroso, domenica e sabato", {2026, 3, 25}, 10, TipoGiorni, u"rs", u"13/03/2026 +");
    Riga("a ritroso, sabato del 2006 che resta", {2006, 3, 7}, 10, TipoGiorni, u"rs", u"25/02/2006");
    Riga("a ritroso da settembre", {2026, 9, 10}, 10, TipoGiorni, u"rf", u"31/07/2026 +");
    Riga("a ritroso da settembre, un giorno prima", {2026, 9, 10}, 9, TipoGiorni, u"rf", u"01/09/2026");
    Riga("a ritroso da agosto", {2026, 8, 20}, 1, TipoGiorni, u"rf", u"31/07/2026");
    Riga("a ritroso, 2014", {2014, 9, 20}, 10, TipoGiorni, u"rf", u"26/07/2014 +");
    Riga("a ritroso, mesi", {2026, 10, 10}, 2, TipoMesi, u"rf", u"10/07/2026 +");
    Riga("a ritroso, libero", {2026, 3, 20}, 10, TipoGiorni, u"rl", u"09/03/2026");
    Riga("fine d'anno", {2026, 12, 30}, 2, TipoGiorni, u"", u"02/01/2027 +");
    Riga("anno 9999", {9999, 12, 1}, 20, TipoGiorni, u"fs", u"21/12/9999");
}

void TestComputaTermine::scadenze()
{
    QFETCH(QDate, Da);
    QFETCH(int, Numero);
    QFETCH(int, Tipo);
    QFETCH(QString, Scelte);
    QTEST(Esito(ComputaTermine(NormeConsegnate(), Chiedi(Da, Numero, Tipo, Scelte))), "Attesa");
}

void TestComputaTermine::strade_data()
{
    QTest::addColumn<QDate>("Da");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Scelte");
    QTest::addColumn<QString>("Attesa");
    QTest::newRow("agosto e domenica")
        << QDate(2026, 7, 21) << 15 << TipoGiorni << u"fs"_s
        << u"Giorno iniziale, non contato > Giorni del termine > Sospensione feriale > Giorni del termine > "
           "Sabato > Domenica > Scadenza"_s;
    QTest::newRow("2 giugno") << QDate(2026, 5, 23) << 10 << TipoGiorni << u""_s
                              << u"Giorno iniziale, non contato > Giorni del termine > Festivo? > Scadenza"_s;
    QTest::newRow("Natale") << QDate(2026, 12, 15) << 10 << TipoGiorni << u""_s
                            << u"Giorno iniziale, non contato > Giorni del termine > Festivo > Festivo > "
                               "Domenica > Scadenza"_s;
    QTest::newRow("festivo prima del 2006")
        << QDate(2005, 12, 15) << 10 << TipoGiorni << u""_s
        << u"Giorno iniziale, non contato > Giorni del termine > Festivo? > Festivo? > Scadenza"_s;
    QTest::newRow("evento in agosto")
        << QDate(2026, 8, 10) << 3 << TipoGiorni << u"f"_s
        << u"Giorno iniziale, non contato > Inizio differito alla fine della sospensione > "
           "Giorni del termine > Scadenza"_s;
    QTest::newRow("mesi con agosto")
        << QDate(2026, 2, 15) << 6 << TipoMesi << u"f"_s
        << u"Giorno iniziale, non contato > Computo a calendario comune > Sospensione feriale > "
           "Sospensione feriale > Giorni sospesi da recuperare > Scadenza"_s;
    QTest::newRow("mesi prima del 2015: criterio di un'altra legge")
        << QDate(2014, 5, 20) << 4 << TipoMesi << u"f"_s
        << u"Giorno iniziale, non contato > Computo a calendario comune > Sospensione feriale > "
           "Giorni sospesi da recuperare? > Scadenza"_s;
    QTest::newRow("a ritroso con agosto: non riscontrato")
        << QDate(2026, 9, 10) << 10 << TipoGiorni << u"rf"_s
        << u"Giorno iniziale, non contato > Giorni del termine > Sospensione feriale? > Giorni del termine > "
           "Scadenza"_s;
    QTest::newRow("libero")
        << QDate(2026, 3, 2) << 10 << TipoGiorni << u"l"_s
        << u"Giorno iniziale, non contato > Giorni del termine > Giorno libero > Scadenza"_s;
    QTest::newRow("senza sospensione")
        << QDate(2026, 7, 21) << 20 << TipoGiorni << u""_s
        << u"Giorno iniziale, non contato > Senza sospensione feriale > Giorni del termine > Scadenza"_s;
    QTest::newRow("sabato fermo prima della norma")
        << QDate(2006, 2, 15) << 10 << TipoGiorni << u"s"_s
        << u"Giorno iniziale, non contato > Giorni del termine > Sabato, non spostato > Scadenza"_s;
}

// Every summer that a term crosses is told, in the order of the count, with what says that it does not count.
void TestComputaTermine::sospensioniCheNonContano()
{
    const auto Saltate = [](const EsitoTermine& Avuto) {
        QStringList Tutte;
        for (const PassoStrada& Passo : Avuto.Passi)
            if (Passo.Genere == GenerePasso::SenzaSospensione)
                Tutte << DatePasso(Passo) + u", "_s + Passo.Nota + u", "_s + NormaPasso(Passo);
        return Tutte.join(u"; "_s);
    };
    QCOMPARE(Saltate(ComputaTermine(NormeConsegnate(), Chiedi({2023, 7, 10}, 2, TipoAnni, u""_s))),
             u"01/08/2023 - 31/08/2023, per scelta, ; 01/08/2024 - 31/08/2024, per scelta, "_s);
    QCOMPARE(Saltate(ComputaTermine(NormeConsegnate(), Chiedi({2026, 9, 20}, 40, TipoGiorni, u"r"_s))),
             u"31/08/2026 - 01/08/2026, per scelta, "_s);
    const auto DelCatalogo = [&](const QString& Codice, const QDate& Evento) {
        return Saltate(
            ComputaRicorrente(NormeConsegnate(), *TrovaTermine(NormeConsegnate(), Codice), Evento));
    };
    QCOMPARE(DelCatalogo(u"CPC-434-IT"_s, {2026, 7, 20}),
             u"01/08/2026 - 31/08/2026, Lavoro e previdenza, L. 742/1969, art. 3"_s);
    QCOMPARE(DelCatalogo(u"CPC-481"_s, {2026, 7, 20}), u"01/08/2026 - 31/08/2026, , art. 481 c.p.c."_s);
    QCOMPARE(DelCatalogo(u"CPP-324"_s, {2026, 7, 30}),
             u"01/08/2026 - 31/08/2026, , criterio non riscontrato"_s);
}

void TestComputaTermine::strade()
{
    QFETCH(QDate, Da);
    QFETCH(int, Numero);
    QFETCH(int, Tipo);
    QFETCH(QString, Scelte);
    QTEST(GeneriDi(ComputaTermine(NormeConsegnate(), Chiedi(Da, Numero, Tipo, Scelte))), "Attesa");
}

// A backward row of which nobody says whether the suspension holds counts it, until somebody chooses not to.
void TestComputaTermine::sospensioneTaciutaETolta()
{
    TermineRicorrente Riga;
    Riga.Articolo = u"art. 1"_s;
    Riga.Quantita = 10;
    Riga.Antecedente = true;
    const auto Conta = [&](bool Sospensione) {
        return ComputaRicorrente(
            NormeConsegnate(), Riga, QDate(2026, 9, 7), {}, {},
            OpzioniTermine{.Sospensione = Sospensione, .Sabato = true, .Antecedente = true});
    };
    QCOMPARE(Esito(Conta(true)), u"28/07/2026 +"_s);
    const EsitoTermine Senza = Conta(false);
    QCOMPARE(Esito(Senza), u"28/08/2026"_s);
    QCOMPARE(Senza.Passi[1].Nota, u"per scelta"_s);
    QVERIFY2(!Senza.Passi[1].NonRiscontrato, "a choice needs no source");
}

void TestComputaTermine::normaDelGiornoLibero()
{
    const auto Norma = [](const EsitoTermine& Avuto) {
        return std::ranges::find(Avuto.Passi, GenerePasso::GiornoLibero, &PassoStrada::Genere)->Norma;
    };
    QCOMPARE(Norma(ComputaTermine(NormeConsegnate(), Chiedi({2026, 3, 2}, 10, TipoGiorni, u"l"_s))),
             u"art. 163-bis c.p.c."_s);
    QCOMPARE(Norma(ComputaRicorrente(NormeConsegnate(), *TrovaTermine(NormeConsegnate(), u"CPA-73-D"),
                                     {2026, 6, 15})),
             u"art. 73 c.p.a."_s);
}

// A link tells what was counted, and from what.
void TestComputaTermine::anelli()
{
    const auto Anelli = [](QStringView Codice, const QDate& Evento) {
        QStringList Tutti;
        for (const ScadenzaCatena& Una :
             ComputaCatena(NormeConsegnate(), *TrovaCatena(NormeConsegnate(), Codice), Evento))
            Tutti << u"%1 %2 %3"_s.arg(Una.Richiesta.Numero)
                         .arg(Una.Richiesta.Decorrenza.toString(u"dd/MM"_s), Una.Evento);
        return Tutti.join(u"; "_s);
    };
    QCOMPARE(Anelli(u"CPP-585-45-ASSENTE", {2025, 10, 20}),
             u"45 20/10 scadenza del deposito o suo avviso; 60 20/10 scadenza del deposito o suo avviso"_s);
    QCOMPARE(Anelli(u"CPC-190", {2020, 3, 2}),
             u"60 02/03 rimessione in decisione; 20 04/05 scadenza della comparsa conclusionale"_s);
}

void TestComputaTermine::rifiuti_data()
{
    QTest::addColumn<QDate>("Da");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Scelte");
    QTest::addColumn<QString>("Attesa");
    const QString Prima = u"Le norme note cominciano dal 06/11/1969: il termine tocca un giorno precedente"_s;
    const QString PrimaFeste =
        u"Le norme note cominciano dal 31/05/1949: il termine tocca un giorno precedente"_s;
    const QString Oltre = u"Il termine va oltre il 31/12/9999"_s;
    QTest::newRow("anno 100") << QDate(100, 1, 1) << 10 << TipoGiorni << u"f"_s << Prima;
    QTest::newRow("vigilia della sospensione") << QDate(1969, 11, 5) << 1 << TipoGiorni << u"f"_s << Prima;
    QTest::newRow("il primo giorno") << QDate(1969, 11, 6) << 1 << TipoGiorni << u"f"_s << QString();
    QTest::newRow("a ritroso oltre il primo") << QDate(1969, 11, 10) << 5 << TipoGiorni << u"fr"_s << Prima;
    QTest::newRow("senza sospensione") << QDate(1969, 11, 5) << 1 << TipoGiorni << u""_s << QString();
    QTest::newRow("vigilia delle feste") << QDate(1949, 5, 30) << 1 << TipoGiorni << u""_s << PrimaFeste;
    QTest::newRow("prima festa") << QDate(1949, 5, 31) << 1 << TipoGiorni << u""_s << QString();
    QTest::newRow("oltre il calendario") << QDate(9999, 12, 20) << 20 << TipoGiorni << u"f"_s << Oltre;
    QTest::newRow("mesi oltre il calendario") << QDate(9999, 6, 20) << 9999 << TipoMesi << u"f"_s << Oltre;
    QTest::newRow("anni oltre il calendario") << QDate(2026, 6, 20) << 9999 << TipoAnni << u"f"_s << Oltre;
    QTest::newRow("nessuna data") << QDate() << 10 << TipoGiorni << u"f"_s << Oltre;
}

void TestComputaTermine::rifiuti()
{
    QFETCH(QDate, Da);
    QFETCH(int, Numero);
    QFETCH(int, Tipo);
    QFETCH(QString, Scelte);
    QTEST(DescrizioneErroreDi(
              [&] { (void)ComputaTermine(NormeConsegnate(), Chiedi(Da, Numero, Tipo, Scelte)); }),
          "Attesa");
}

void TestComputaTermine::note()
{
    const auto Note = [](const QDate& Da, int Numero, const QString& Scelte) {
        return ComputaTermine(NormeConsegnate(), Chiedi(Da, Numero, TipoGiorni, Scelte)).Note;
    };
    QCOMPARE(Note({2026, 11, 10}, 10, u"fs"_s), QStringList());
    QCOMPARE(Note({2026, 11, 10}, 13, u"fs"_s), QStringList{u"Norme note fino al 21/11/2026"_s});
    QCOMPARE(Note({2026, 9, 10}, 10, u"rf"_s), QStringList{u"Criterio non riscontrato"_s});
    QCOMPARE(Note({1975, 9, 20}, 10, u"f"_s),
             QStringList{u"Le feste soppresse nel 1977 non sono riscontrate e non contano."_s});
}

void TestComputaTermine::materiaRisparmiata()
{
    RichiestaTermine Chiesto = Chiedi({2026, 7, 21}, 20, TipoGiorni, u"fs"_s);
    Chiesto.Materia = u"Lavoro"_s;
    const EsitoTermine Avuto = ComputaTermine(NormeConsegnate(), Chiesto);
    QCOMPARE(Esito(Avuto), u"10/08/2026"_s);
    QCOMPARE(DescrizionePasso(Avuto.Passi[1]), u"Senza sospensione feriale: Lavoro e previdenza"_s);
    QCOMPARE(NormaPasso(Avuto.Passi[1]), u"L. 742/1969, art. 3"_s);
    Chiesto.Materia = u"pesca"_s;
    QCOMPARE(DescrizioneErroreDi([&] { (void)ComputaTermine(NormeConsegnate(), Chiesto); }),
             u"Nessuna materia risparmiata dalla sospensione si chiama «pesca»"_s);
    Chiesto.Materia = u"cautelare amministrativo"_s;
    Chiesto.Decorrenza = {2010, 9, 15};
    QCOMPARE(DescrizioneErroreDi([&] { (void)ComputaTermine(NormeConsegnate(), Chiesto); }),
             u"Processo amministrativo, fase cautelare: la norma vale dal 16/09/2010"_s);
    Chiesto.Decorrenza = {2010, 9, 16};
    QCOMPARE(DescrizioneErroreDi([&] { (void)ComputaTermine(NormeConsegnate(), Chiesto); }), QString());
}

void TestComputaTermine::catalogo_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QDate>("Evento");
    QTest::addColumn<QString>("Attesa");
    QTest::addColumn<QString>("Generi");
    const QString Inizio = u"Giorno iniziale, non contato > "_s;
    QTest::newRow("comparizione, 120 liberi") << u"cpc-163bis-it"_s << QDate(2026, 9, 10) << u"09/01/2027"_s
                                              << Inizio + u"Giorni del termine > Giorno libero > Sabato..."_s;
    QTest::newRow("convenuto, 70 prima")
        << u"CPC-166"_s << QDate(2026, 6, 15) << u"03/04/2026 +"_s << QString();
    QTest::newRow("penale, sabato fermo")
        << u"CPP-585-15"_s << QDate(2026, 3, 6) << u"21/03/2026"_s
        << Inizio + u"Giorni del termine > Sabato, non spostato? > Scadenza"_s;
    QTest::newRow("sospensione che nessuno conferma")
        << u"CPP-324"_s << QDate(2026, 7, 30) << u"10/08/2026 +"_s
        << Inizio + u"Senza sospensione feriale? > Giorni del termine > Domenica > Scadenza"_s;
    QTest::newRow("a ritroso, sabato senza riscontro: si anticipa")
        << u"CPA-73-R"_s << QDate(2026, 3, 28) << u"06/03/2026 +"_s
        << Inizio + u"Giorni del termine > Giorno libero > Sabato? > Scadenza"_s;
    QTest::newRow("a ritroso, venerdì senza riscontro")
        << u"CPA-73-R"_s << QDate(2026, 3, 27) << u"06/03/2026"_s
        << Inizio + u"Giorni del termine > Giorno libero > Scadenza"_s;
    QTest::newRow("lavoro, senza sospensione")
        << u"CPC-434-IT"_s << QDate(2026, 7, 20) << u"19/08/2026"_s
        << Inizio + u"Senza sospensione feriale > Giorni del termine > Scadenza"_s;
    QTest::newRow("termine lungo") << u"CPC-327"_s << QDate(2026, 5, 20) << u"21/12/2026 +"_s << QString();
}

void TestComputaTermine::catalogo()
{
    QFETCH(QString, Codice);
    QFETCH(QDate, Evento);
    QFETCH(QString, Attesa);
    QFETCH(QString, Generi);
    const TermineRicorrente* Termine = TrovaTermine(NormeConsegnate(), Codice);
    QVERIFY(Termine);
    const EsitoTermine Avuto = ComputaRicorrente(NormeConsegnate(), *Termine, Evento);
    QCOMPARE(Esito(Avuto), Attesa);
    if (Generi.endsWith(u"..."))
        QVERIFY2(!GeneriDi(Avuto).contains(u"Sabato"), qPrintable(GeneriDi(Avuto)));
    else if (!Generi.isEmpty())
        QCOMPARE(GeneriDi(Avuto), Generi);
    QVERIFY(std::ranges::any_of(Avuto.Passi,
                                [&](const PassoStrada& Passo) { return Passo.Norma == Termine->Articolo; }));
}

// Every row is a term that can be counted, or a rule that says what it is.
void TestComputaTermine::tuttoIlCatalogo()
{
    int Contati = 0;
    int Regole = 0;
    for (const TermineRicorrente& Termine : NormeConsegnate().Termini()) {
        const QDate Evento = Termine.Quando.Al.isValid()    ? Termine.Quando.Al
                             : Termine.Quando.Dal.isValid() ? std::max(Termine.Quando.Dal, QDate(2026, 3, 2))
                                                            : QDate(2026, 3, 2);
        const QString Detto =
            DescrizioneErroreDi([&] { (void)ComputaRicorrente(NormeConsegnate(), Termine, Evento); });
        if (Termine.Regola) {
            ++Regole;
            QCOMPARE(Detto, Termine.Codice + u" è una regola, non un termine da contare"_s);
            QCOMPARE(MisuraTermine(Termine), u"regola"_s);
        } else {
            ++Contati;
            QVERIFY2(Detto.isEmpty(), qPrintable(Detto));
        }
    }
    QCOMPARE(Contati, 104);
    QCOMPARE(Regole, 11);
}

void TestComputaTermine::ricerca_data()
{
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<int>("Quanti");
    QTest::addColumn<QString>("Primo");
    QTest::newRow("tutti") << u"  "_s << 115 << u"GEN-01"_s;
    QTest::newRow("un articolo") << u"art. 166"_s << 4 << u"CPC-166"_s;
    QTest::newRow("numero intero, non parte di un altro") << u"41"_s << 2 << u"CPA-41-30"_s;
    QTest::newRow("una parola") << u"conclusionale"_s << 5 << u"CPC-189-2"_s;
    QTest::newRow("due parole, senza maiuscole") << u"REPLICA famiglia"_s << 2 << u"CPC-473BIS17-2"_s;
    QTest::newRow("senza accento") << u"meta"_s << 4 << u"CPA-73-D"_s;
    QTest::newRow("l'apostrofo di un altro programma") << u"dell’udienza"_s << 1 << u"CPC-163BIS-IT"_s;
    QTest::newRow("niente") << u"ornitorinco"_s << 0 << QString();
}

void TestComputaTermine::ricerca()
{
    QFETCH(QString, Cercato);
    const auto Trovati = CercaTermini(NormeConsegnate(), Cercato);
    QStringList Codici;
    for (const TermineRicorrente* Termine : Trovati)
        Codici << Termine->Codice;
    QFETCH(int, Quanti);
    QVERIFY2(Trovati.size() == Quanti, qPrintable(Codici.join(u' ')));
    QTEST(Codici.value(0), "Primo");
}

void TestComputaTermine::catene_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QDate>("Evento");
    QTest::addColumn<QString>("Attese");
    QTest::newRow("171-ter") << u"CPC-171TER"_s << QDate(2026, 6, 15)
                             << u"03/04/2026 +; 20/04/2026 +; 06/05/2026; 26/05/2026; 05/06/2026"_s;
    QTest::newRow("183") << u"CPC-183"_s << QDate(2020, 7, 10) << u"09/09/2020 +; 09/10/2020; 29/10/2020"_s;
    QTest::newRow("190") << u"cpc-190"_s << QDate(2020, 3, 2) << u"04/05/2020 +; 25/05/2020 +"_s;
    QTest::newRow("189") << u"CPC-189"_s << QDate(2026, 6, 15) << u"16/04/2026; 15/05/2026 +; 29/05/2026 +"_s;
    // 15 days and 15 more are 30, wherever the first 15 end.
    QTest::newRow("aumento") << u"CPP-585-15-ASSENTE"_s << QDate(2026, 3, 7)
                             << u"23/03/2026 +; 07/04/2026 +"_s;
    QTest::newRow("due aumenti") << u"CPA-29-ESTERO"_s << QDate(2026, 1, 7)
                                 << u"09/03/2026 +; 07/04/2026; 06/06/2026"_s;
}

void TestComputaTermine::catene()
{
    QFETCH(QString, Codice);
    QFETCH(QDate, Evento);
    const CatenaTermini* Catena = TrovaCatena(NormeConsegnate(), Codice);
    QVERIFY(Catena);
    QStringList Date;
    for (const ScadenzaCatena& Una : ComputaCatena(NormeConsegnate(), *Catena, Evento))
        Date << Esito(Una.Esito);
    QTEST(Date.join(u"; "_s), "Attese");
}

void TestComputaTermine::vigenze_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QDate>("Evento");
    QTest::addColumn<QDate>("Inizio");
    QTest::addColumn<QString>("Detto");
    const QString Nota = u"nota: Vale per i procedimenti cominciati fino al 27/02/2023"_s;
    QTest::newRow("vigilia della riforma")
        << u"CPC-166"_s << QDate(2023, 2, 27) << QDate()
        << u"CPC-166 vale dal 28/02/2023: il termine corre dal 27/02/2023"_s;
    const QString DalGiorno = u"nota: Vale per i procedimenti cominciati dal "_s;
    QTest::newRow("giorno della riforma")
        << u"CPC-166"_s << QDate(2023, 2, 28) << QDate() << DalGiorno + u"28/02/2023"_s;
    QTest::newRow("riforma recente") << u"CPC-166"_s << QDate(2026, 6, 15) << QDate()
                                     << DalGiorno + u"28/02/2023"_s;
    QTest::newRow("riforma recente, procedimento detto")
        << u"CPC-166"_s << QDate(2026, 6, 15) << QDate(2025, 1, 10) << QString();
    QTest::newRow("termine lungo, causa forse più vecchia")
        << u"CPC-327"_s << QDate(2011, 5, 10) << QDate() << DalGiorno + u"04/07/2009"_s;
    QTest::newRow("termine lungo, causa più vecchia")
        << u"CPC-327"_s << QDate(2011, 5, 10) << QDate(2007, 2, 1)
        << u"CPC-327 vale dal 04/07/2009: il procedimento è cominciato il 01/02/2007"_s;
    QTest::newRow("termine lungo, di oggi") << u"CPC-327"_s << QDate(2025, 11, 10) << QDate() << QString();
    QTest::newRow("rito semplificato, causa più vecchia")
        << u"CPC-281UNDEC-IT"_s << QDate(2023, 3, 5) << QDate(2023, 2, 20)
        << u"CPC-281UNDEC-IT vale dal 28/02/2023: il procedimento è cominciato il 20/02/2023"_s;
    QTest::newRow("inizio che non conta")
        << u"CPC-641"_s << QDate(2026, 6, 15) << QDate(2026, 1, 10)
        << u"CPC-641 non dipende dal giorno in cui il procedimento è cominciato"_s;
    QTest::newRow("procedimento di prima")
        << u"CPC-166"_s << QDate(2023, 6, 1) << QDate(2023, 2, 27)
        << u"CPC-166 vale dal 28/02/2023: il procedimento è cominciato il 27/02/2023"_s;
    QTest::newRow("rito precedente, ultimo giorno")
        << u"CPC-190-1-V"_s << QDate(2023, 2, 27) << QDate() << QString();
    QTest::newRow("rito precedente, udienza di oggi")
        << u"CPC-190-1-V"_s << QDate(2026, 2, 27) << QDate() << Nota;
    QTest::newRow("rito precedente, procedimento detto")
        << u"CPC-190-1-V"_s << QDate(2026, 2, 27) << QDate(2022, 1, 10) << QString();
    QTest::newRow("rito precedente, procedimento nuovo")
        << u"CPC-190-1-V"_s << QDate(2026, 2, 27) << QDate(2023, 2, 28)
        << u"CPC-190-1-V vale dal 30/04/1995 al 27/02/2023: il procedimento è cominciato il 28/02/2023"_s;
    QTest::newRow("citazione, ultimo giorno di prima")
        << u"CPC-163BIS-IT-V"_s << QDate(2023, 2, 27) << QDate() << QString();
    QTest::newRow("citazione, primo giorno di dopo")
        << u"CPC-163BIS-IT-V"_s << QDate(2023, 2, 28) << QDate()
        << u"CPC-163BIS-IT-V vale dal 01/03/2006 al 27/02/2023: il termine corre dal 28/02/2023"_s;
    QTest::newRow("tributario, ultimo giorno")
        << u"TRI-21"_s << QDate(2026, 12, 31) << QDate() << u"nota: Norme note fino al 21/11/2026"_s;
    QTest::newRow("tributario, testo unico")
        << u"TRI-21"_s << QDate(2027, 1, 1) << QDate()
        << u"TRI-21 vale fino al 31/12/2026: il termine corre dal 01/01/2027"_s;
    QTest::newRow("testo unico, primo giorno")
        << u"TRI-TU-67"_s << QDate(2027, 1, 1) << QDate() << u"nota: Norme note fino al 21/11/2026"_s;
    QTest::newRow("testo unico, vigilia")
        << u"TRI-TU-67"_s << QDate(2026, 12, 31) << QDate()
        << u"TRI-TU-67 vale dal 01/01/2027: il termine corre dal 31/12/2026"_s;
}

void TestComputaTermine::vigenze()
{
    QFETCH(QString, Codice);
    QFETCH(QDate, Evento);
    QFETCH(QDate, Inizio);
    QString Note;
    QString Detto = DescrizioneErroreDi([&] {
        const auto Avuto =
            ComputaRicorrente(NormeConsegnate(), *TrovaTermine(NormeConsegnate(), Codice), Evento, {},
                              Inizio.isValid() ? std::optional(Inizio) : std::nullopt);
        Note = Avuto.Note.value(0);
    });
    if (Detto.isEmpty() && !Note.isEmpty())
        Detto = u"nota: "_s + Note;
    QTEST(Detto, "Detto");
}

// With the program's own rules the result is the program's: 15 September every year, Easter Monday a week
// late.
void TestComputaTermine::programmaAllaLettera()
{
    sessione::PercorsoProg = ProgrammaDiProva();
    const RichiestaTermine Estate = Chiedi({2026, 7, 21}, 20, TipoGiorni, u"f"_s);
    const EsitoTermine Avuto = ComputaTermine(InsiemeNorme::Programma, Estate);
    QCOMPARE(Esito(Avuto), u"25/09/2026 +"_s);
    QCOMPARE(Avuto.Note, QStringList{AvvisoSettembre.toString()});
    QCOMPARE(Esito(ComputaTermine(InsiemeNorme::Vigenti, Estate)), u"10/09/2026 +"_s);
    QCOMPARE(Esito(ComputaTermine(InsiemeNorme::Programma, Chiedi({2049, 4, 16}, 10, TipoGiorni, u""_s))),
             u"27/04/2049 +"_s);
    // The folder of the program is asked for nothing.
    sessione::PercorsoProg = NuovaCartella();
    QCOMPARE(ComputaTermine(InsiemeNorme::Programma, Estate), Avuto);
    QVERIFY(DescrizioneErroreDi([&] {
                (void)ComputaTermine(InsiemeNorme::Vigenti, Estate);
            }).startsWith(u"Norme.mdb: "));
}

void TestComputaTermine::testoDaCopiare()
{
    const EsitoTermine Avuto =
        ComputaTermine(NormeConsegnate(), Chiedi({2026, 5, 23}, 10, TipoGiorni, u"s"_s));
    QCOMPARE(TestoStrada(Avuto.Passi),
             u"23/05/2026\t\tGiorno iniziale, non contato\tart. 155, commi 1-3, c.p.c.\n"
             "24/05/2026 - 02/06/2026\t10\tGiorni del termine\tart. 155, commi 1-3, c.p.c.\n"
             "02/06/2026\t1\tFestivo: 2 giugno\tL. 336/2000; art. 155, 4° comma, c.p.c.: criterio non "
             "riscontrato\n"
             "03/06/2026\t\tScadenza\tart. 155, commi 1-3, c.p.c."_s);
}

#include "TestComputaTermine.moc"
