// The names that are offered while one is typed: which, in what order, and when they are read anew.
#include "addressbook/elenconomi.h"
#include "addressbook/modClienti.h"
#include "archivio.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestElencoNomi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void offre_data();
    void offre();
    void neOffreQuantiChiesti();
    void leChiaviESoloLoro();
    void leggeAPezzi();
    void segueLArchivio();
    void unAltroArchivio();
    void ilVecchioElencoResta();
    void archivioGuasto_data();
    void archivioGuasto();
    void senzaCitta();
    void senzaArchivioIlFileRubrica();
    void condivisoFraFinestre();

private:
    std::unique_ptr<ArchivioDiProva> Archivio;
};
PROVA(TestElencoNomi);

namespace {

void LeggiTutto(ElencoNomi& Elenco)
{
    Elenco.Segui();
    while (Elenco.Avanza()) {
    }
}

QStringList Nomi(const ElencoNomi& Elenco, const QString& Testo, int Massimo = 50)
{
    QStringList Trovati;
    for (const NomeOfferto& Offerto : Elenco.Proponi(Testo, Massimo))
        Trovati += Offerto.Nome;
    return Trovati;
}

}  // namespace

void TestElencoNomi::init()
{
    Archivio = std::make_unique<ArchivioDiProva>();
}

void TestElencoNomi::cleanup()
{
    Archivio.reset();
}

void TestElencoNomi::offre_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QStringList>("Attesi");
    const auto Riga = [](const char* Nome, const char16_t* Testo, const QStringList& Attesi) {
        QTest::newRow(Nome) << QString::fromUtf16(Testo) << Attesi;
    };
    Riga("beginnings first, then words, then insides", u"ross",
         {u"Rossi Anna"_s, u"rossi mario"_s, u"De Rossi Carlo"_s, u"Nuova Grossi srl"_s});
    Riga("accents play no part", u"nicolo", {u"Dell'Acqua Nicolò"_s});
    Riga("an accent that the name has not", u"róssi ánna", {u"Rossi Anna"_s});
    Riga("words in any order", u"mario ros", {u"rossi mario"_s});
    Riga("a word behind an apostrophe", u"acqua", {u"Dell'Acqua Nicolò"_s});
    Riga("no such name", u"verdi", {});
    Riga("the town is not the name", u"lucca", {});
    Riga("a quote finds what bears one", u"l'a", {u"Dell'Acqua Nicolò"_s});
    Riga("signs of a query are plain", u"*%_", {});
    Riga("blanks alone ask for nothing", u"   ", {});
}

void TestElencoNomi::offre()
{
    QFETCH(QString, Testo);
    QFETCH(QStringList, Attesi);
    ArchivioDiProva::Aggiungi(1, u"rossi mario"_s, u"Lucca"_s);
    ArchivioDiProva::Aggiungi(2, u"Nuova Grossi srl"_s);
    ArchivioDiProva::Aggiungi(3, u"De Rossi Carlo"_s);
    ArchivioDiProva::Aggiungi(4, u"Rossi Anna"_s);
    ArchivioDiProva::Aggiungi(5, u"Dell'Acqua Nicolò"_s);
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    QCOMPARE(Nomi(Elenco, Testo), Attesi);
}

void TestElencoNomi::neOffreQuantiChiesti()
{
    for (int i = 1; i <= 9; ++i)
        ArchivioDiProva::Aggiungi(i, u"Rossi %1"_s.arg(9 - i));
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    QCOMPARE(Nomi(Elenco, u"rossi"_s, 3), (QStringList{u"Rossi 0"_s, u"Rossi 1"_s, u"Rossi 2"_s}));
    QCOMPARE(Nomi(Elenco, u"rossi"_s, 0), QStringList());
    QCOMPARE(Nomi(Elenco, u"rossi"_s).size(), 9);
}

void TestElencoNomi::leChiaviESoloLoro()
{
    ArchivioDiProva::Aggiungi(7, u"Rossi Mario"_s, u"Lucca"_s);
    ArchivioDiProva::Aggiungi(8, u"Rossi Mario"_s, u"Pisa"_s);
    ArchivioDiProva::Aggiungi(9, u"Rossi Mario"_s);
    ArchivioDiProva::Aggiungi(10, QVariant(), u"Rossi"_s);
    ArchivioDiProva::Aggiungi(11, u"   "_s, u"Rossi"_s);
    ArchivioDiProva::Aggiungi(-3, u"Rossi di chiave negativa"_s);
    // What the reading of pieces is cut at cannot give another row's key to a name.
    ArchivioDiProva::Aggiungi(12,
                              u"Rossi\x1e"
                              "99\x1f"
                              "Rossi Falso"_s,
                              u"Siena\x1e"_s);
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    QCOMPARE(Elenco.Proponi(u"rossi"_s, 50), (QList<NomeOfferto>{{12, u"Rossi 99 Rossi Falso"_s, u"Siena "_s},
                                                                 {7, u"Rossi Mario"_s, u"Lucca"_s},
                                                                 {8, u"Rossi Mario"_s, u"Pisa"_s},
                                                                 {9, u"Rossi Mario"_s, {}}}));
    QCOMPARE(Elenco.Quanti(), 4);
}

void TestElencoNomi::leggeAPezzi()
{
    constexpr int Quanti = 12'000;
    const Database Db = OpenDatabase(sessione::ArchivioCliCon);
    Transazione Insieme(Db);
    for (int i = 1; i <= Quanti; ++i)
        Db.Execute(u"INSERT INTO clienti (ID, Nominativo) VALUES (?,?)"_s, {i * 3, u"Cliente %1"_s.arg(i)});
    Insieme.Conferma();
    ElencoNomi Elenco(u"clienti"_s);
    QVERIFY(Elenco.Completo());
    Elenco.Segui();
    QVERIFY(!Elenco.Completo());
    int Pezzi = 1;
    while (Elenco.Avanza())
        ++Pezzi;
    QVERIFY2(Pezzi > 2, "no piece is so long that a key waits for it");
    QVERIFY(Elenco.Completo());
    QCOMPARE(Elenco.Quanti(), Quanti);
    QCOMPARE(Elenco.Proponi(u"cliente 12000"_s, 5),
             (QList<NomeOfferto>{{3 * Quanti, u"Cliente 12000"_s, {}}}));
    QVERIFY(!Elenco.Avanza());
}

void TestElencoNomi::segueLArchivio()
{
    ArchivioDiProva::Aggiungi(1, u"Rossi Mario"_s);
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    Elenco.Segui();
    QVERIFY2(Elenco.Completo(), "nobody has written: it is not read again");
    QTest::qWait(20);  // longer than the clock of a file's times ticks
    ArchivioDiProva::Aggiungi(2, u"Rossi Anna"_s);
    Elenco.Segui();
    QVERIFY(!Elenco.Completo());
    while (Elenco.Avanza()) {
    }
    QCOMPARE(Nomi(Elenco, u"rossi"_s), (QStringList{u"Rossi Anna"_s, u"Rossi Mario"_s}));
}

void TestElencoNomi::unAltroArchivio()
{
    ArchivioDiProva::Aggiungi(1, u"Rossi Mario"_s);
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    const ArchivioDiProva Altro;
    ArchivioDiProva::Aggiungi(1, u"Rossini Carlo"_s);
    Elenco.Segui();
    QVERIFY2(Nomi(Elenco, u"ross"_s).isEmpty(), "the keys of one archive mean nothing in another");
    while (Elenco.Avanza()) {
    }
    QCOMPARE(Nomi(Elenco, u"ross"_s), QStringList{u"Rossini Carlo"_s});
}

void TestElencoNomi::ilVecchioElencoResta()
{
    ArchivioDiProva::Aggiungi(1, u"Rossi Mario"_s);
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    QTest::qWait(20);
    ArchivioDiProva::Aggiungi(2, u"Rossi Anna"_s);
    Elenco.Segui();
    QCOMPARE(Nomi(Elenco, u"rossi"_s), QStringList{u"Rossi Mario"_s});
    // And what cannot be read leaves it, too.
    ArchivioDiProva::Esegui(u"ALTER TABLE clienti RENAME TO altrove"_s);
    QVERIFY(!Elenco.Avanza());
    QVERIFY(Elenco.Completo());
    QCOMPARE(Nomi(Elenco, u"rossi"_s), QStringList{u"Rossi Mario"_s});
}

void TestElencoNomi::archivioGuasto_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::newRow("no such table") << u"ALTER TABLE clienti RENAME TO altrove"_s;
    QTest::newRow("no key") << u"ALTER TABLE clienti RENAME COLUMN ID TO Numero"_s;
    QTest::newRow("no name") << u"ALTER TABLE clienti RENAME COLUMN Nominativo TO Nome"_s;
    QTest::newRow("no file") << QString();
}

void TestElencoNomi::archivioGuasto()
{
    QFETCH(QString, Sql);
    ArchivioDiProva::Aggiungi(1, u"Rossi Mario"_s);
    if (Sql.isEmpty())
        QFile::remove(sessione::ArchivioCliCon);
    else
        ArchivioDiProva::Esegui(Sql);
    ElencoNomi Elenco(u"clienti"_s);
    Elenco.Segui();
    QVERIFY(!Elenco.Avanza());
    QVERIFY(Elenco.Completo());
    QCOMPARE(Elenco.Quanti(), 0);
    Elenco.Segui();
    QVERIFY2(Elenco.Completo(), "an archive that could not be read is not tried at each key");
}

void TestElencoNomi::senzaCitta()
{
    ArchivioDiProva::Aggiungi(1, u"Rossi Mario"_s, u"Lucca"_s);
    ArchivioDiProva::Esegui(u"ALTER TABLE clienti RENAME COLUMN Citta TO Luogo"_s);
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    QCOMPARE(Elenco.Proponi(u"rossi"_s, 5), (QList<NomeOfferto>{{1, u"Rossi Mario"_s, {}}}));
}

/// What the browser shows without an archive in the settings is offered, and found again by its key.
void TestElencoNomi::senzaArchivioIlFileRubrica()
{
    ArchivioDiProva::Aggiungi(7, u"Rossi Mario"_s);
    sessione::PercorsoProg = NuovaCartella();
    QVERIFY(QFile::copy(sessione::ArchivioCliCon, sessione::PercorsoProg + u"rubrica.mdb"_s));
    sessione::ArchivioCliCon.clear();
    ElencoNomi Elenco(u"clienti"_s);
    LeggiTutto(Elenco);
    QCOMPARE(Nomi(Elenco, u"rossi"_s), QStringList{u"Rossi Mario"_s});
    QCOMPARE(CercaCliente(7), std::optional(u"Rossi Mario"_s));
    QVERIFY(LeggiCliente(7).has_value());
}

void TestElencoNomi::condivisoFraFinestre()
{
    const auto Uno = ElencoNomi::Di(u"clienti"_s);
    QCOMPARE(ElencoNomi::Di(u"clienti"_s), Uno);
    QVERIFY(ElencoNomi::Di(u"controparti"_s) != Uno);
}

#include "TestElencoNomi.moc"
