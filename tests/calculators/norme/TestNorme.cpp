// The set of norms: each on both sides of its first and last day, and files that are not the delivered one.
#include "banconorme.h"
#include "supporto/guasti.h"

#include "calculators/norme/contributovigente.h"
#include "calculators/norme/pasqua.h"
#include "calculators/norme/terminiricorrenti.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

class TestNorme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void sospensioni_data();
    void sospensioni();
    void feste_data();
    void feste();
    void festeNonRiscontrate();
    void pasquette();
    void pasquetteConLAltraRegola();
    void limiti();
    void avvisi();
    void materie();
    void unaFonteUnRiscontro();
    void rilettura();
    void mancante();
    void guasti_data();
    void guasti();
    void ritocchi_data();
    void ritocchi();
    void ritocchiRisigillati_data();
    void ritocchiRisigillati();
};
PROVA(TestNorme);

void TestNorme::cleanup()
{
    AzzeraSessione();
}

void TestNorme::sospensioni_data()
{
    QTest::addColumn<QDate>("Giorno");
    QTest::addColumn<bool>("Sospeso");
    QTest::newRow("prima della legge") << QDate(1969, 8, 15) << false;
    QTest::newRow("primo giorno della prima") << QDate(1970, 8, 1) << true;
    QTest::newRow("vigilia") << QDate(2014, 7, 31) << false;
    QTest::newRow("46 giorni, primo") << QDate(2014, 8, 1) << true;
    QTest::newRow("46 giorni, settembre") << QDate(2014, 9, 1) << true;
    QTest::newRow("46 giorni, ultimo") << QDate(2014, 9, 15) << true;
    QTest::newRow("46 giorni, dopo") << QDate(2014, 9, 16) << false;
    QTest::newRow("31 giorni, vigilia") << QDate(2015, 7, 31) << false;
    QTest::newRow("31 giorni, primo") << QDate(2015, 8, 1) << true;
    QTest::newRow("31 giorni, ultimo") << QDate(2015, 8, 31) << true;
    QTest::newRow("31 giorni, dopo") << QDate(2015, 9, 1) << false;
    QTest::newRow("31 giorni, il vecchio ultimo") << QDate(2015, 9, 15) << false;
    QTest::newRow("anno 9999") << QDate(9999, 8, 31) << true;
}

void TestNorme::sospensioni()
{
    QFETCH(QDate, Giorno);
    QFETCH(bool, Sospeso);
    QCOMPARE(NormeConsegnate().GiornoSospeso(Giorno), Sospeso);
}

void TestNorme::feste_data()
{
    QTest::addColumn<QDate>("Giorno");
    QTest::addColumn<QString>("Nome");
    const QString Nessuna;
    QTest::newRow("prima della legge") << QDate(1949, 5, 1) << Nessuna;
    QTest::newRow("prima festa") << QDate(1949, 8, 15) << u"Assunzione"_s;
    QTest::newRow("Capodanno") << QDate(2024, 1, 1) << u"Capodanno"_s;
    QTest::newRow("Epifania 1977") << QDate(1977, 1, 6) << u"Epifania"_s;
    QTest::newRow("Epifania 1980") << QDate(1980, 1, 6) << u"Epifania"_s;
    QTest::newRow("Epifania 1986") << QDate(1986, 1, 6) << u"Epifania"_s;
    QTest::newRow("25 aprile") << QDate(2024, 4, 25) << u"25 aprile"_s;
    QTest::newRow("1 maggio") << QDate(2024, 5, 1) << u"1° maggio"_s;
    QTest::newRow("2 giugno 2000") << QDate(2000, 6, 2) << Nessuna;
    QTest::newRow("2 giugno 2001") << QDate(2001, 6, 2) << u"2 giugno"_s;
    QTest::newRow("Ognissanti") << QDate(2024, 11, 1) << u"Ognissanti"_s;
    QTest::newRow("Immacolata") << QDate(2024, 12, 8) << u"Immacolata Concezione"_s;
    QTest::newRow("Natale") << QDate(2024, 12, 25) << u"Natale"_s;
    QTest::newRow("Santo Stefano") << QDate(2024, 12, 26) << u"Santo Stefano"_s;
    QTest::newRow("San Francesco 2025") << QDate(2025, 10, 4) << Nessuna;
    QTest::newRow("San Francesco 2026") << QDate(2026, 10, 4) << u"San Francesco"_s;
    QTest::newRow("San Francesco 2027") << QDate(2027, 10, 4) << u"San Francesco"_s;
    QTest::newRow("vigilia di Pasqua") << QDate(2024, 3, 30) << Nessuna;
    QTest::newRow("Pasquetta 2024") << QDate(2024, 4, 1) << u"lunedì di Pasqua"_s;
    QTest::newRow("martedì dopo Pasqua") << QDate(2024, 4, 2) << Nessuna;
    QTest::newRow("Pasquetta 2049, una settimana prima della regola del programma")
        << QDate(2049, 4, 19) << u"lunedì di Pasqua"_s;
    QTest::newRow("2049, dove la mette la regola del programma") << QDate(2049, 4, 26) << Nessuna;
    QTest::newRow("4 novembre") << QDate(2024, 11, 4) << Nessuna;
    QTest::newRow("29 febbraio") << QDate(2024, 2, 29) << Nessuna;
}

void TestNorme::feste()
{
    QFETCH(QDate, Giorno);
    QFETCH(QString, Nome);
    const NormaFesta* Trovata = NormeConsegnate().Festa(Giorno);
    QCOMPARE(Trovata ? Trovata->Nome : QString(), Nome);
}

// What nobody has confirmed counts as the program's own calendar has it, and says so.
void TestNorme::festeNonRiscontrate()
{
    const auto Riscontrata = [](int Anno, int Mese, int Giorno) {
        return NormeConsegnate().Festa(QDate(Anno, Mese, Giorno))->Riscontrata;
    };
    QVERIFY(!Riscontrata(2024, 6, 2));
    QVERIFY(Riscontrata(1977, 1, 6));
    QVERIFY(!Riscontrata(1978, 1, 6));
    QVERIFY(!Riscontrata(1985, 1, 6));
    QVERIFY(Riscontrata(1986, 1, 6));
    QVERIFY(Riscontrata(2024, 12, 25));
}

// By the church's table of full moons, good from 1900 to 2199, and the first Sunday behind each.
void TestNorme::pasquette()
{
    constexpr std::array PlenilunioDaMarzo{45, 34, 23, 42, 31, 49, 39, 28, 47, 36,
                                           25, 44, 33, 22, 41, 30, 48, 38, 27};
    for (int Anno = 1900; Anno <= 2199; ++Anno) {
        QDate Qui = QDate(Anno, 3, 1).addDays(PlenilunioDaMarzo[size_t(Anno % 19)] - 1);
        do
            Qui = Qui.addDays(1);
        while (Qui.dayOfWeek() != 7);
        QCOMPARE(LunediDellAngelo(Anno), Qui.addDays(1));
    }
}

// By the epact of the calendar's reformers, for every year of the calendar.
void TestNorme::pasquetteConLAltraRegola()
{
    for (int Anno = 1583; Anno <= 9999; ++Anno) {
        const int Aureo = Anno % 19 + 1;
        const int Secolo = Anno / 100 + 1;
        const int Saltati = 3 * Secolo / 4 - 12;
        const int Luna = (8 * Secolo + 5) / 25 - 5;
        const int Domenica = 5 * Anno / 4 - Saltati - 10;
        int Epatta = (11 * Aureo + 20 + Luna - Saltati) % 30;
        if (Epatta < 0)
            Epatta += 30;
        if ((Epatta == 25 && Aureo > 11) || Epatta == 24)
            ++Epatta;
        int Giorno = 44 - Epatta;
        if (Giorno < 21)
            Giorno += 30;
        Giorno += 7 - (Domenica + Giorno) % 7;
        const QDate Attesa = QDate(Anno, 3, 1).addDays(Giorno);
        if (LunediDellAngelo(Anno) != Attesa)
            QFAIL(qPrintable(CStr(Anno)));
    }
}

void TestNorme::limiti()
{
    const Norme& Insieme = NormeConsegnate();
    QCOMPARE(Insieme.NoteFinoAl(), QDate(2026, 11, 21));
    QCOMPARE(Insieme.NoteDal(true), QDate(1969, 11, 6));
    QCOMPARE(Insieme.NoteDal(false), QDate(1949, 5, 31));
    QCOMPARE(Insieme.AvvisoOltre(QDate(2026, 11, 21)), QString());
    QCOMPARE(Insieme.AvvisoOltre(QDate(2026, 11, 22)), u"Norme note fino al 21/11/2026"_s);
}

void TestNorme::avvisi()
{
    const Norme& Insieme = NormeConsegnate();
    QCOMPARE(Insieme.Avvisi(AmbitoTermini, QDate(1977, 3, 5)).size(), 1);
    QCOMPARE(Insieme.Avvisi(AmbitoTermini, QDate(1977, 3, 6)), QStringList());
    QCOMPARE(Insieme.Avvisi(AmbitoContributo, QDate(2025, 12, 31)), QStringList());
    QCOMPARE(Insieme.Avvisi(AmbitoContributo, QDate(2026, 1, 1)).size(), 1);
}

void TestNorme::materie()
{
    QStringList Codici;
    for (const NormaMateria& Materia : NormeConsegnate().Materie())
        Codici << Materia.Codice;
    QCOMPARE(Codici, (QStringList{u"lavoro"_s, u"cautelari"_s, u"alimenti"_s, u"sostegno"_s, u"abusi"_s,
                                  u"sfratto"_s, u"fallimento"_s, u"opposizioni"_s, u"urgenti"_s, u"penale"_s,
                                  u"cautelare amministrativo"_s}));
}

// The norms are read again when the program's folder has other ones, and not before.
// Two rows that rest on one source bear its mark.
void TestNorme::unaFonteUnRiscontro()
{
    const Database Db = OpenDatabase(ProgrammaDiProva() + u"Norme.mdb"_s, true);
    const auto Riscontro = [&](const QString& Tabella, const QString& Codice) {
        return Db.OpenRecordset(u"SELECT Riscontro FROM %1 WHERE Codice=?"_s.arg(Tabella), {Codice})
            .Value(u"Riscontro"_s)
            .toString();
    };
    QCOMPARE(Riscontro(u"Materie"_s, u"lavoro"_s), u"due"_s);
    QCOMPARE(Riscontro(u"Materie"_s, u"penale"_s), Riscontro(u"Termini"_s, u"GEN-10"_s));
}

void TestNorme::rilettura()
{
    sessione::PercorsoProg = ProgrammaDiProva();
    const auto Prime = NormeVigenti();
    QCOMPARE(NormeVigenti(), Prime);
    sessione::PercorsoProg = NuovaCartella();
    QVERIFY(DescrizioneErroreDi([] { (void)NormeVigenti(); }).startsWith(u"Norme.mdb: "));
    QCOMPARE(Prime->NoteFinoAl(), QDate(2026, 11, 21));
    sessione::PercorsoProg = ProgrammaDiProva();
    QCOMPARE(NormeVigenti()->NoteFinoAl(), QDate(2026, 11, 21));
}

void TestNorme::mancante()
{
    QCOMPARE(
        DescrizioneErroreDi([] { const Norme Nessuna(NuovaCartella() + u"Norme.mdb"_s); }),
        u"Norme.mdb: il file manca nella cartella del programma; le norme in vigore non si possono usare"_s);
}

void TestNorme::guasti_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    const QByteArray Sano = LeggiFile(ProgrammaDiProva() + u"Norme.mdb"_s);
    QTest::newRow("vuoto") << QByteArray();
    QTest::newRow("un testo") << QByteArray("non è un archivio");
    QTest::newRow("a metà") << Sano.first(Sano.size() / 2);
    QTest::newRow("un altro archivio") << LeggiFile(ProgrammaDiProva() + u"Tassi.dat"_s);
    QByteArray Ritoccato = Sano;
    const qsizetype Posto = Ritoccato.indexOf("Capodanno");
    Ritoccato[Posto] = 'X';
    QTest::newRow("un byte del testo") << Ritoccato;
}

void TestNorme::guasti()
{
    QFETCH(QByteArray, Contenuto);
    const QString File = NuovaCartella() + u"Norme.mdb"_s;
    ScriviFile(File, Contenuto);
    const QString Detto = DescrizioneErroreDi([&] { const Norme Lette(File); });
    QVERIFY2(Detto.startsWith(u"Norme.mdb: il file è danneggiato o modificato ("), qPrintable(Detto));
    QVERIFY2(Detto.endsWith(u"); le norme in vigore non si possono usare"), qPrintable(Detto));
}

// A figure that could be one of the law's is refused too: the seal is that of what was delivered.
void TestNorme::ritocchi_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::newRow("fine della sospensione")
        << u"UPDATE Sospensioni SET Ultimo='08-30' WHERE Dal='2015-01-01'"_s;
    QTest::newRow("un importo") << u"UPDATE Contributi SET Valore=44 WHERE Codice='minimo'"_s;
    QTest::newRow("un termine") << u"UPDATE Termini SET Quantita=69 WHERE Codice='CPC-166'"_s;
    QTest::newRow("una festa di meno") << u"DELETE FROM Feste WHERE Nome='San Francesco'"_s;
    QTest::newRow("una festa di più")
        << u"INSERT INTO Feste VALUES ('Patrono','12-07','1949-05-31',NULL,'uso','una')"_s;
    QTest::newRow("un criterio promosso") << u"UPDATE Feste SET Riscontro='due' WHERE Nome='2 giugno'"_s;
    QTest::newRow("una nota") << u"UPDATE Termini SET Nota=NULL WHERE Codice='CPC-641'"_s;
    QTest::newRow("ordine delle righe") << u"UPDATE Feste SET rowid=1000 WHERE Nome='Capodanno'"_s;
}

void TestNorme::ritocchi()
{
    QFETCH(QString, Sql);
    const QString File = NormeRitoccate(Sql, false);
    QCOMPARE(DescrizioneErroreDi([&] { const Norme Lette(File); }),
             u"Norme.mdb: il file è danneggiato o modificato (il contenuto non è quello consegnato); "
             "le norme in vigore non si possono usare"_s);
}

void TestNorme::ritocchiRisigillati_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Motivo");
    const auto Riga = [](const char* Nome, const char16_t* Sql, const char16_t* Motivo) {
        QTest::newRow(Nome) << QString::fromUtf16(Sql) << QString::fromUtf16(Motivo);
    };
    Riga("tabella sparita", u"DROP TABLE Feste", u"Tabella o query non trovata");
    Riga("troppe righe",
         u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2001) "
         u"INSERT INTO Avvisi SELECT 'termini', NULL, NULL, 'x' FROM n",
         u"Avvisi: le righe sono troppe");
    Riga("sospensione senza presente", u"DELETE FROM Sospensioni WHERE Al IS NULL",
         u"Sospensioni: manca il periodo in vigore");
    Riga("sospensioni con un buco", u"UPDATE Sospensioni SET Dal='2016-01-01' WHERE Al IS NULL",
         u"Sospensioni, riga 2: il periodo non segue il precedente");
    Riga("sospensione rovesciata", u"UPDATE Sospensioni SET Ultimo='07-31'",
         u"Sospensioni, riga 1, colonna Ultimo: la sospensione finisce prima di cominciare");
    Riga("giorno che non c'è", u"UPDATE Sospensioni SET Ultimo='08-32'",
         u"Sospensioni, riga 1, colonna Ultimo: non è un giorno mm-gg");
    Riga("data che non c'è", u"UPDATE Sospensioni SET Dal='2015-02-30' WHERE Al IS NULL",
         u"Sospensioni, riga 2, colonna Dal: manca");
    Riga("festa doppia", u"INSERT INTO Feste VALUES ('Altra','12-25','2000-01-01',NULL,'x','una')",
         u"Feste, riga 15: il giorno è già festivo in quel periodo");
    Riga("festa senza inizio", u"UPDATE Feste SET Dal=NULL WHERE Nome='Natale'",
         u"Feste, riga 12, colonna Dal: manca");
    Riga("riscontro sconosciuto", u"UPDATE Feste SET Riscontro='forse' WHERE Nome='Natale'",
         u"Feste, riga 12, colonna Riscontro: non è fra due, una, memoria");
    Riga("riga a memoria", u"UPDATE Termini SET Riscontro='memoria' WHERE Codice='CPC-166'",
         u"colonna Riscontro: non è fra due, una");
    Riga("regola sparita", u"DELETE FROM Regole WHERE Codice='sabato'", u"Regole: manca «sabato»");
    Riga("codice doppio", u"UPDATE Termini SET Codice='cpc-166' WHERE Codice='CPC-165'",
         u"Termini: il codice CPC-166 è doppio");
    Riga("quantità a zero", u"UPDATE Termini SET Quantita=0 WHERE Codice='CPC-166'",
         u"colonna Quantita: non è un numero fra 1 e 999");
    Riga("quantità che è un testo", u"UPDATE Termini SET Quantita='settanta' WHERE Codice='CPC-166'",
         u"colonna Quantita");
    Riga("verso sconosciuto", u"UPDATE Termini SET Verso='di lato' WHERE Codice='CPC-166'",
         u"colonna Verso: non è fra avanti, a ritroso");
    Riga("catena con un termine che non c'è", u"UPDATE Catene SET Termine='CPC-000' WHERE Termine='CPC-166'",
         u"Catene");
    Riga("materia che non c'è", u"UPDATE Termini SET Materia='pesca' WHERE Codice='CPC-416'",
         u"Termini: CPC-416 è di una materia che non c'è");
    Riga("materia di un termine sospeso", u"UPDATE Termini SET Materia='lavoro' WHERE Codice='CPC-166'",
         u"colonna Materia: non va con un termine sospeso");
    Riga("catena con il codice di un termine", u"UPDATE Catene SET Catena='CPC-166' WHERE Catena='CPC-189'",
         u"Catene: un codice è già di un termine");
    Riga("catena che comincia da dopo",
         u"UPDATE Catene SET Inizio='scadenza', Da='CPC-183-3-V' WHERE Termine='CPC-183-1-V'",
         u"colonna Da: nessun termine prima di questo ha quel codice");
    Riga("aumento di altra misura", u"UPDATE Catene SET Inizio='aumento' WHERE Termine='CPC-171BIS'",
         u"Catene: CPC-171TER aumenta un termine di altra misura, CPC-166");
    Riga("scaglione con un buco", u"UPDATE Contributi SET Da=1100.02 WHERE Da=1100.01",
         u"Contributi: uno scaglione di «civile» non segue il precedente");
    Riga("codice con un a capo", u"UPDATE Contributi SET Codice='civi' || char(10) || 'le' WHERE rowid=2",
         u"Contributi: uno scaglione di «civi le» non segue il precedente");
    Riga("scaglioni senza fine", u"UPDATE Contributi SET A=600000 WHERE Da=520000.01", u"Contributi: ");
    Riga("importo negativo", u"UPDATE Contributi SET Valore=-1 WHERE Codice='minimo'",
         u"colonna Valore: non è un importo");
    Riga("due importi nello stesso tempo",
         u"UPDATE Contributi SET Dal='2013-06-01' WHERE Codice='notifiche' AND Valore=27",
         u"Contributi: «notifiche» ha due importi nello stesso tempo");
    Riga("periodo rovesciato", u"UPDATE Contributi SET Al='2004-01-01' WHERE Valore=8",
         u"colonna Al: il periodo finisce prima di cominciare");
}

void TestNorme::ritocchiRisigillati()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Motivo);
    const QString File = NormeRitoccate(Sql, !Sql.startsWith(u"DROP"));
    const QString Detto = DescrizioneErroreDi([&] { const Norme Lette(File); });
    QVERIFY2(Detto.startsWith(u"Norme.mdb: il file è danneggiato o modificato ("), qPrintable(Detto));
    QVERIFY2(Detto.contains(Motivo), qPrintable(Detto));
}

#include "TestNorme.moc"
