// Files of names, recognised by what they hold; archives taken whole; old notes copied.
#include "studio.h"

#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/notevecchie.h"
#include "addressbook/exchange/turnoarchivio.h"
#include "platform/base/errore.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"
#include "supporto/maschera.h"
#include "supporto/scrittoreaccess.h"

#include <QDir>
#include <QScopedValueRollback>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestSorgente : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void siRiconosce_data();
    void siRiconosce();
    void leRigheDiUnFoglio();
    void leRigheDiUnArchivio();
    void unFileTroppoGrande();
    void unFileCheNonCE();
    void unArchivioIntero();
    void accantoAUnArchivioPieno();
    void riempitoMentreSiCopia();
    void senzaControparti();
    void nonSiPrende_data();
    void nonSiPrende();
    void loStopNonLasciaNulla();
    void leVecchieParcelle();
    void leCopieDentroLOrigine();
    void leVecchieParcelleSiFermano();
    void leVecchieParcelleSulDiscoPieno();
    void leVecchieParcelleSenzaData();
    void leVecchieParcelleRifiutate();
    void leCartelleNonGuardate();
    void laLetturaSiFerma_data();
    void laLetturaSiFerma();
    void chiLeLegge_data();
    void chiLeLegge();
};
PROVA(TestSorgente);

void TestSorgente::siRiconosce_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<int>("Genere");
    QTest::newRow("rows") << QByteArray("Nome;Tel\nRossi;1\n") << int(GenereSorgente::Csv);
    QTest::newRow("cards") << QByteArray("begin:vcard\nFN:x\nEND:VCARD\n") << int(GenereSorgente::Vcard);
    QTest::newRow("cards behind a mark")
        << QByteArray("\xEF\xBB\xBF\r\nBEGIN:VCARD\nFN:x\nEND:VCARD\n") << int(GenereSorgente::Vcard);
    QByteArray Larghe("\xFF\xFE");
    for (const char C : QByteArray("BEGIN:VCARD\nFN:x\nEND:VCARD\n"))
        Larghe.append(C).append('\0');
    QTest::newRow("cards in UTF-16") << Larghe << int(GenereSorgente::Vcard);
    QTest::newRow("an archive") << LeggiFile(ProgrammaDiProva() + u"DatiStudio.mdb"_s)
                                << int(GenereSorgente::Archivio);
}

void TestSorgente::siRiconosce()
{
    QFETCH(QByteArray, Byte);
    const Studio S;
    const SorgenteNominativi Da(S.Scrivi(u"nomi.dat"_s, Byte));
    QTEST(int(Da.Genere()), "Genere");
    OpzioniSorgente Come;
    QVERIFY(!Da.Leggi(Come).Titoli.isEmpty());
}

void TestSorgente::leRigheDiUnFoglio()
{
    const Studio S;
    const SorgenteNominativi Titolate(S.Scrivi(u"a.csv"_s, "Nome;;Tel\nRossi;x\nVerdi;y;1;in più\n"));
    OpzioniSorgente Come;
    TabellaEstranea Lette = Titolate.Leggi(Come);
    QCOMPARE(Lette.Titoli, (QStringList{u"Nome"_s, u"Colonna 2"_s, u"Tel"_s, u"Colonna 4"_s}));
    QCOMPARE(Lette.Righe.front(), (QStringList{u"Rossi"_s, u"x"_s, QString(), QString()}));
    QCOMPARE(Lette.Numeri, (std::vector<int>{2, 3}));
    QCOMPARE(Come.PrimaRigaTitoli, std::optional(true));
    Come.PrimaRigaTitoli = false;
    Lette = Titolate.Leggi(Come);
    QCOMPARE(Lette.Titoli.first(), u"Colonna 1"_s);
    QCOMPARE(Lette.Righe.size(), size_t(3));
    const SorgenteNominativi Nude(S.Scrivi(u"b.csv"_s, "Rossi Mario;Lucca\nVerdi Anna;Pisa\n"));
    OpzioniSorgente Altre;
    QCOMPARE(Nude.Leggi(Altre).Righe.size(), size_t(2));
    QCOMPARE(Altre.PrimaRigaTitoli, std::optional(false));
    QCOMPARE(Altre.Csv.Separatore, QChar(u';'));
}

void TestSorgente::leRigheDiUnArchivio()
{
    const Studio S;
    S.Riempi();
    const SorgenteNominativi Da(S.File);
    QCOMPARE(Da.Tabelle(), (QStringList{u"clienti"_s, u"controparti"_s}));
    OpzioniSorgente Come;
    const TabellaEstranea Lette = Da.Leggi(Come);
    QCOMPARE(Come.Tabella, u"clienti"_s);
    QCOMPARE(Lette.Righe.size(), size_t(2));
    QCOMPARE(Lette.Righe.front()[Lette.Titoli.indexOf(u"DataNascita"_s)], u"31/01/1980"_s);
    Come.Tabella = u"controparti"_s;
    QCOMPARE(Da.Leggi(Come).Righe.size(), size_t(0));
}

/// 2 GB of nothing: refused without being read.
void TestSorgente::unFileTroppoGrande()
{
    const Studio S;
    const QString File = S.Scrivi(u"grande.csv"_s, "x");
    QFile Grande(File);
    QVERIFY(Grande.resize(qint64(2) << 30));
    QCOMPARE(DescrizioneErroreDi([&] { const SorgenteNominativi Da(File); }),
             u"Il file \"grande.csv\" è più grande di 64 MB: dividerlo e importarne una parte alla volta."_s);
    QVERIFY(Grande.remove());
}

void TestSorgente::unFileCheNonCE()
{
    QCOMPARE(NumeroErrore([] { const SorgenteNominativi Da(u"/nessuno.csv"_s); }), errori::FileMancante);
}

// ---- an archive taken whole ---------------------------------------------------------------------

void TestSorgente::unArchivioIntero()
{
    const Studio Vecchio;
    Vecchio.Riempi();
    const QByteArray Prima = Vecchio.Byte();
    const Studio Nuovo;  // an empty one stands in the folder
    const auto Preso = PrendiArchivio(Vecchio.File, Nuovo.Cartella);
    QVERIFY(Preso);
    QCOMPARE(Preso->File, Nuovo.File);
    QCOMPARE(Preso->Clienti, 2);
    QCOMPARE(Nuovo.Righe(Studio::Riempite()), Vecchio.Righe(Studio::Riempite()));
    QCOMPARE(Vecchio.Byte(), Prima);
    QCOMPARE(ContenutoDi(Nuovo.Cartella), QStringList{u"DatiStudio.mdb"_s});
    QVERIFY(ResocontoArchivio(Vecchio.File, *Preso).contains(u"Clienti: 2\nControparti: 0\n"));
}

void TestSorgente::accantoAUnArchivioPieno()
{
    const Studio Vecchio;
    Vecchio.Riempi();
    const Studio Pieno;
    Pieno.Esegui(u"INSERT INTO controparti (Nominativo) VALUES ('x')"_s);
    const QByteArray Prima = Pieno.Byte();
    QCOMPARE(PrendiArchivio(Vecchio.File, Pieno.Cartella)->File, Pieno.Cartella + u"DatiStudio 2.mdb"_s);
    QCOMPARE(PrendiArchivio(Vecchio.File, Pieno.Cartella)->File, Pieno.Cartella + u"DatiStudio 3.mdb"_s);
    QCOMPARE(Pieno.Byte(), Prima);
}

/// The copy of a long archive takes minutes, in which another place of the office may begin to use the empty
/// one.
void TestSorgente::riempitoMentreSiCopia()
{
    const Studio Vecchio;
    Vecchio.Riempi();
    const Studio Nuovo;
    bool InTurno = false;
    const auto Scrive = [&](qint64) {
        if (!std::exchange(InTurno, EsisteFile(FileDelTurno(Nuovo.File))))
            Nuovo.Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('primo')"_s);
        return true;
    };
    const auto Preso = PrendiArchivio(Vecchio.File, Nuovo.Cartella, Scrive);
    QVERIFY(Preso);
    QVERIFY(InTurno);
    QCOMPARE(Preso->File, Nuovo.Cartella + u"DatiStudio 2.mdb"_s);
    QCOMPARE(OpenDatabase(Nuovo.File).OpenRecordset(u"clienti"_s).RecordCount(), 1);
    QCOMPARE(ContenutoDi(Nuovo.Cartella), (QStringList{u"DatiStudio 2.mdb"_s, u"DatiStudio.mdb"_s}));
}

/// Its own columns stay; the table that it lacks is there, empty.
void TestSorgente::senzaControparti()
{
    const Studio S;
    const QString Vecchio = S.Cartella + u"vecchio.mdb"_s;
    {
        const Database Db = CreateDatabase(Vecchio);
        Db.CreaTabella(u"clienti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                      {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false},
                                      {u"Pratica"_s, TipoCampo::Testo, 20, {}, false}});
        Db.Execute(u"INSERT INTO clienti (ID, Nominativo, Pratica) VALUES (7, 'Rossi', 'A')"_s);
    }
    const auto Preso = PrendiArchivio(Vecchio, NuovaCartella());
    QVERIFY(Preso);
    const Database Db = OpenDatabase(Preso->File);
    QCOMPARE(Db.OpenRecordset(u"clienti"_s).Value(u"ID"_s).toInt(), 7);
    QVERIFY(Db.EsisteCampo(u"clienti"_s, u"Pratica"_s));
    QVERIFY(Db.EsisteCampo(u"controparti"_s, u"Nominativo"_s));
    QCOMPARE(Preso->Tralasciati,
             QStringList{u"controparti: l'archivio non ha questa tabella, che nasce vuota"_s});
}

void TestSorgente::nonSiPrende_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<QString>("Detto");
    const QString Dove = NuovaCartella();
    ScriviFile(Dove + u"nomi.csv"_s, "Nome\nRossi\n");
    QTest::newRow("rows")
        << Dove + u"nomi.csv"_s
        << u"Il file \"nomi.csv\" non è un archivio: per un foglio di calcolo o una rubrica scegliere "
           "\"Aggiungi i nominativi\"."_s;
    QTest::newRow("another archive")
        << ProgrammaDiProva() + u"Comuni.mdb"_s
        << u"L'archivio \"Comuni.mdb\" non ha una tabella di clienti con le colonne ID e "
           "Nominativo: con \"Aggiungi i nominativi\" si scelgono la tabella e le colonne."_s;
}

void TestSorgente::nonSiPrende()
{
    QFETCH(QString, File);
    const Studio S;
    const QByteArray Prima = S.Byte();
    QTEST(DescrizioneErroreDi([&] { (void)PrendiArchivio(File, S.Cartella); }), "Detto");
    QCOMPARE(S.Byte(), Prima);
    QCOMPARE(ContenutoDi(S.Cartella), QStringList{u"DatiStudio.mdb"_s});
}

void TestSorgente::loStopNonLasciaNulla()
{
    const Studio S;
    const QByteArray Prima = S.Byte();
    const Studio Vecchio;
    QVERIFY(!PrendiArchivio(Vecchio.File, S.Cartella, [](qint64) { return false; }));
    QCOMPARE(S.Byte(), Prima);
    QCOMPARE(ContenutoDi(S.Cartella), QStringList{u"DatiStudio.mdb"_s});
}

// ---- old notes ----------------------------------------------------------------------------------

void TestSorgente::leVecchieParcelle()
{
    const Studio S;  // its archive is a database among the notes
    QDir(S.Cartella).mkdir(u"Modelli"_s);
    QVERIFY(QFile::copy(S.File, S.Cartella + u"Modelli/uno.MDB"_s));
    S.Scrivi(u"rotta.mdb"_s, "no database");
    S.Scrivi(u"lettera.doc"_s, "x");
    const QString A = NuovaCartella() + u"nuove/"_s;
    auto Esiti = CopiaNote(S.Cartella, A);
    QVERIFY(Esiti);
    QStringList Detti;
    for (const EsitoNota& Esito : *Esiti)
        Detti.append(Esito.Nome + (Esito.Copiata ? u"+"_s : u"-"_s) + Esito.Detto);
    QCOMPARE(Detti,
             (QStringList{u"DatiStudio.mdb+"_s, u"rotta.mdb-non è una parcella"_s, u"Modelli/uno.MDB+"_s}));
    QCOMPARE(OpenDatabase(A + u"Modelli/uno.MDB"_s, true).Tabelle(), OpenDatabase(S.File, true).Tabelle());
    QCOMPARE(DataFile(A + u"DatiStudio.mdb"_s), DataFile(S.File));
    QVERIFY(ResocontoNote(S.Cartella, A, *Esiti).contains(u"Copiate: 2 di 3\n"));
    Esiti = CopiaNote(S.Cartella, A);
    QCOMPARE(std::ranges::count_if(*Esiti, &EsitoNota::Copiata), 0);
    QCOMPARE(Esiti->first().Detto, u"c'è già, resta com'è"_s);
}

/// The copies may go into a folder of the old notes: they are no old notes themselves.
void TestSorgente::leCopieDentroLOrigine()
{
    const Studio S;
    QDir(S.Cartella).mkpath(u"Parcelle/Modelli"_s);
    QVERIFY(QFile::copy(S.File, S.Cartella + u"Parcelle/Modelli/mia.mdb"_s));
    for (int Volta = 0; Volta < 2; ++Volta) {
        const auto Esiti = CopiaNote(S.Cartella, S.Cartella + u"Parcelle"_s);
        QVERIFY(Esiti);
        QCOMPARE(Conta(*Esiti).File, 1);
        QCOMPARE(Conta(*Esiti).CartelleSaltate, 1);
        QVERIFY(ResocontoNote(S.Cartella, S.Cartella, *Esiti)
                    .contains(u"Parcelle/: cartella non guardata, è quella delle copie\n"));
        QCOMPARE(ContenutoDi(S.Cartella + u"Parcelle/"_s), (QStringList{u"DatiStudio.mdb"_s, u"Modelli"_s}));
    }
    // By another name it is the same folder.
    const QString Nome = NuovaCartella() + u"altra"_s;
    QVERIFY(QFile::link(S.Cartella.chopped(1), Nome));
    QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaNote(S.Cartella, Nome); }),
             u"Le copie andrebbero nella cartella delle vecchie parcelle: sceglierne un'altra."_s);
}

void TestSorgente::leVecchieParcelleSiFermano()
{
    const Studio S;
    QVERIFY(QFile::copy(S.File, S.Cartella + u"altra.mdb"_s));
    const QString A = NuovaCartella();
    CopiaFermata Come;
    QVERIFY(!CopiaNote(
        S.Cartella, A, [](int, int) { return false; }, &Come));
    QCOMPARE(FraseFermata(Come), u"La copia è stata interrotta."_s);
    QVERIFY(!CopiaNote(
        S.Cartella, A, [](int Fatte, int) { return Fatte == 0; }, &Come));
    QCOMPARE(ContenutoDi(A), QStringList());
    QCOMPARE(FraseFermata(Come), u"La copia è stata interrotta: la parcella già copiata è stata tolta."_s);
    // The folders that were made go too, and no other one.
    QDir(S.Cartella).mkpath(u"Modelli/Vecchi"_s);
    QVERIFY(QFile::copy(S.File, S.Cartella + u"Modelli/Vecchi/uno.mdb"_s));
    QVERIFY(QFile::copy(S.File, S.Cartella + u"Modelli/Vecchi/due.mdb"_s));
    QVERIFY(!CopiaNote(S.Cartella, A + u"nuove/"_s, [](int Fatte, int) { return Fatte < 3; }));
    QVERIFY(!QDir(A + u"nuove"_s).exists());
    QVERIFY(QDir(A).exists());
    // A copy that a colleague has saved meanwhile is a note of his.
    const auto Salvata = [&](int Fatte, int) {
        if (Fatte == 1)
            ScriviFile(A + u"DatiStudio.mdb"_s, "sua");
        return Fatte < 3;
    };
    QVERIFY(!CopiaNote(S.Cartella, A, Salvata, &Come));
    QCOMPARE(ContenutoDi(A), QStringList{u"DatiStudio.mdb"_s});
    QCOMPARE(LeggiFile(A + u"DatiStudio.mdb"_s), "sua");
    QCOMPARE(FraseFermata(Come), u"La copia è stata interrotta: le 2 parcelle già copiate sono state tolte.\n"
                                 "Una resta, perché è stata salvata intanto:\n%1DatiStudio.mdb"_s.arg(A));
    Come = {.Tolte = 0, .Salvate = {}, .Rimaste = {}};
    for (int i = 1; i < 7; ++i)
        Come.Rimaste.append(QString::number(i));
    QCOMPARE(FraseFermata(Come),
             u"La copia è stata interrotta.\n6 non si sono potute togliere:\n1\n2\n3\n4\n5\n..."_s);
}

/// Half a folder of notes with no report is worse than none.
void TestSorgente::leVecchieParcelleSulDiscoPieno()
{
    const Studio S;
    QDir(S.Cartella).mkdir(u"Grandi"_s);
    const QString Grande = S.Cartella + u"Grandi/una.mdb"_s;
    QVERIFY(QFile::copy(S.File, Grande));
    OpenDatabase(Grande).Execute(u"INSERT INTO clienti (Nominativo, Note) VALUES ('x', ?)"_s,
                                 {u"x"_s.repeated(200'000)});
    const QString A = NuovaCartella();
    const QScopedValueRollback Pieno(guasti::LimiteFile, qint64(S.Byte().size()));
    QCOMPARE(NumeroErrore([&] { (void)CopiaNote(S.Cartella, A); }), errori::DiscoPieno);
    QCOMPARE(QDir(A).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

/// The date is not what the user has asked for: a note that stands there is copied.
void TestSorgente::leVecchieParcelleSenzaData()
{
    const Studio S;
    const QString A = NuovaCartella();
    const QDateTime Quando(QDate(2020, 3, 5), QTime(10, 0));
    ImpostaDataFile(S.File, Quando);
    QVERIFY(ScriviNativo(S.File, A + u"subito.mdb"_s, {}, Lettori::Cartella, Quando));
    QCOMPARE(DataFile(A + u"subito.mdb"_s), Quando);
    QVERIFY(QFile::remove(A + u"subito.mdb"_s));
    const QScopedValueRollback Fissa(guasti::DateRifiutate, true);
    const auto Esiti = CopiaNote(S.Cartella, A);
    QCOMPARE(Conta(*Esiti).Copiate, 1);
    QVERIFY(EsisteFile(A + u"DatiStudio.mdb"_s));
    const QString Resoconto = ResocontoNote(S.Cartella, A, *Esiti);
    QVERIFY2(Resoconto.contains(u"DatiStudio.mdb: copiata; tralasciati: la data del file, che è quella della "
                                "copia\n"),
             qPrintable(Resoconto));
    // Stopped, it goes like any other.
    const QString B = NuovaCartella();
    QVERIFY(QFile::copy(S.File, S.Cartella + u"altra.mdb"_s));
    QVERIFY(!CopiaNote(S.Cartella, B, [](int Fatte, int) { return Fatte == 0; }));
    QCOMPARE(ContenutoDi(B), QStringList());
}

void TestSorgente::leVecchieParcelleRifiutate()
{
    const Studio S;
    QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaNote(S.Cartella, S.Cartella); }),
             u"Le copie andrebbero nella cartella delle vecchie parcelle: sceglierne un'altra."_s);
    const QString Vuota = NuovaCartella();
    QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaNote(Vuota, S.Cartella); }),
             u"Nella cartella \"%1\" non ci sono parcelle (file .mdb): sceglierne un'altra."_s.arg(Vuota));
}

/// What is not looked into is told: too deep, somebody else's by a link, closed; and too many files are none.
void TestSorgente::leCartelleNonGuardate()
{
    const Studio S;
    QString Fonda;
    for (int i = 1; i <= notevecchie::MassimoFondo; ++i)
        Fonda += u"c%1/"_s.arg(i);
    QVERIFY(QDir(S.Cartella).mkpath(Fonda + u"oltre"_s));
    QVERIFY(QFile::copy(S.File, S.Cartella + Fonda + u"ultima.mdb"_s));
    QVERIFY(QFile::copy(S.File, S.Cartella + Fonda + u"oltre/persa.mdb"_s));
    QVERIFY(QFile::link(NuovaCartella(), S.Cartella + u"altrove"_s));
    const QByteArray Dove = QFile::encodeName(S.Cartella);
    QCOMPARE(::mkdir((Dove + "Citt\xe0").constData(), 0700), 0);
    QCOMPARE(::link(QFile::encodeName(S.File).constData(), (Dove + "Societ\xe0.mdb").constData()), 0);
    const QString A = NuovaCartella();
    const auto Esiti = CopiaNote(S.Cartella, A);
    QVERIFY(Esiti);
    QVERIFY(QFile::exists(A + Fonda + u"ultima.mdb"_s));
    QVERIFY(!QFile::exists(A + Fonda + u"oltre/persa.mdb"_s));
    QCOMPARE(FraseNote(Conta(*Esiti)), u"Parcelle copiate: 2 su 3; 3 cartelle non sono state guardate."_s);
    const QString Detto = ResocontoNote(S.Cartella, A, *Esiti);
    const QString Rinomina = u"il nome ha lettere che non si leggono: rinominare e ripetere la copia\n"_s;
    QVERIFY2(Detto.contains(u"\nCitt\uFFFD/: cartella non guardata, "_s + Rinomina), qPrintable(Detto));
    QVERIFY2(Detto.contains(u"\nSociet\uFFFD.mdb: non copiata, "_s + Rinomina), qPrintable(Detto));
    QVERIFY2(Detto.contains(u"\naltrove/: cartella non guardata, collegamento a un'altra cartella\n"),
             qPrintable(Detto));
    QVERIFY2(
        Detto.contains(Fonda + u"oltre/: cartella non guardata, oltre 16 cartelle una dentro l'altra\n"_s),
        qPrintable(Detto));
    const QScopedValueRollback Pochi(notevecchie::MassimoFile, 1);
    const QString Altrove = NuovaCartella();
    QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaNote(S.Cartella, Altrove); }),
             u"Nella cartella \"%1\" ci sono più di 1 parcelle: copiare una alla volta le cartelle che "
             "contiene."_s.arg(S.Cartella));
    QCOMPARE(ContenutoDi(Altrove), QStringList());
}

void TestSorgente::laLetturaSiFerma_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::newRow("rows") << "Nome;Via\n" + QByteArray("Rossi Mario;Via Roma 1\n").repeated(100'000);
    QTest::newRow("cards") << QByteArray("BEGIN:VCARD\nFN:Rossi Mario\nTEL:1\nEND:VCARD\n").repeated(50'000);
}

/// Whoever stops a long reading stops it at once, at whatever it is.
void TestSorgente::laLetturaSiFerma()
{
    QFETCH(QByteArray, Byte);
    const Studio S;
    const QString File = S.Scrivi(u"nomi.dat"_s, Byte);
    qint64 Dove = 0;
    int Volte = 0;
    const auto Ferma = [&](qint64 Fatti, qint64 Tutti) {
        Dove = Fatti * 100 / std::max<qint64>(Tutti, 1);
        return Volte++ == 0;
    };
    QVERIFY_THROWS_EXCEPTION(Interrotto, const SorgenteNominativi Letto(File, Ferma));
    QVERIFY2(Dove < 50, "stopped in the middle of the file");
    const SorgenteNominativi Da(File);
    OpzioniSorgente Come;
    Dove = 0;
    Volte = 0;
    QVERIFY_THROWS_EXCEPTION(Interrotto, (void)Da.Leggi(Come, Ferma));
    QVERIFY2(Dove > 0 && Dove < 50, "stopped in the middle of the rows");
    QVERIFY2(Come.Csv == OpzioniCsv() && !Come.PrimaRigaTitoli, "and nothing is known of it");
}

void TestSorgente::chiLeLegge_data()
{
    QTest::addColumn<bool>("DiAccess");
    QTest::newRow("native") << false;
    QTest::newRow("of Access") << true;
}

/// Names of people are read by their user, and by whom the folder lets write.
void TestSorgente::chiLeLegge()
{
    QFETCH(bool, DiAccess);
    const Studio S;
    QVERIFY(QFile::setPermissions(S.File, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    const QString Dove = NuovaCartella();
    const QString Da = Dove + u"vecchio.mdb"_s;
    QVERIFY(DiAccess ? !ScriviAccess(Da, AccessDa(S.File)).isEmpty() : QFile::copy(S.File, Da));
    const QString Nuova = NuovaCartella();
    const SenzaMaschera Aperta;
    const auto Preso = PrendiArchivio(Da, Nuova);
    QVERIFY(Preso);
    QCOMPARE(QFile::permissions(Preso->File) & DiAltri, QFile::Permissions());
    const QString A = Nuova + u"nuove/"_s;
    QVERIFY(CopiaNote(Dove, A)->first().Copiata);
    QCOMPARE(QFile::permissions(A + u"vecchio.mdb"_s) & DiAltri, QFile::Permissions());
    QCOMPARE(QFile::permissions(A) & DiAltri, QFile::Permissions());
}

#include "TestSorgente.moc"
