// An import that is stopped, killed, or not alone at the archive.
#include "bancoimporta.h"

#include "addressbook/exchange/annullo.h"
#include "platform/base/numerierrore.h"
#include "platform/system/blocco.h"
#include "platform/system/guasti.h"
#include "platform/system/orologio.h"
#include "supporto/guasti.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScopedValueRollback>
#include <QSysInfo>

using namespace Qt::StringLiterals;

class TestImportaInterrotta : public QObject, private BancoImporta
{
    Q_OBJECT

private Q_SLOTS:
    void init() { S = std::make_unique<Studio>(); }
    void lArresto_data();
    void lArresto();
    void unAltroScriveNelFrattempo();
    void ilContoFermatoSiRifa();
    void ilDiscoPieno();
    void lAnnulloDiPrimaRestaDopoUnArresto();
    void senzaViaDelRitornoNonSiImporta();
    void leCopieSiDannoIlCambio();
    void cioCheUnProgrammaUccisoLascia();
    void cioCheNonFuMaiConfermato();
    void iRestiSiTolgono_data();
    void iRestiSiTolgono();
    void unGuastoDopoLaConferma();
    void dueProgrammiInsieme();
};
PROVA(TestImportaInterrotta);

void TestImportaInterrotta::lArresto_data()
{
    QTest::addColumn<int>("Dopo");
    QTest::newRow("at once") << 0;
    QTest::newRow("half way") << 1;
}

/// Stopped while it writes, it leaves the archive byte for byte, and nothing beside it.
void TestImportaInterrotta::lArresto()
{
    QFETCH(int, Dopo);
    std::vector<QStringList> Molte{{u"Nominativo"_s}};
    for (int i = 0; i < 1200; ++i)
        Molte.push_back({u"Nome %1"_s.arg(i)});
    const TabellaEstranea Da = Tabella(Molte);
    const QByteArray Prima = S->Byte();
    ImportaNominativi Opera = Nuovo(Da);
    QVERIFY(Opera.Prepara());
    int Volte = 0;
    QVERIFY(!Opera.Scrivi(u"nomi.csv"_s, [&](int, int) { return Volte++ < Dopo; }));
    QCOMPARE(Volte, Dopo + 1);
    QCOMPARE(S->Byte(), Prima);
    QCOMPARE(ContenutoDi(S->Cartella), QStringList{u"DatiStudio.mdb"_s});
    QVERIFY(!Opera.Prepara([](int, int) { return false; }));
}

/// What was written meanwhile is counted anew.
void TestImportaInterrotta::unAltroScriveNelFrattempo()
{
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('verdi anna')"_s);
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    QCOMPARE(Opera.Conto(), (ContoImporta{.Righe = 4, .Aggiunti = 2, .GiaPresenti = 1, .SenzaNome = 1}));
    QCOMPARE(S->Righe({u"Nominativo"_s}), (QStringList{u"verdi anna"_s, u"Rossi Mario"_s, u"Alfa Srl"_s}));
}

/// A count that is stopped is no count: half of the file must not be brought in as all of it.
void TestImportaInterrotta::ilContoFermatoSiRifa()
{
    std::vector<QStringList> Molte{{u"Nominativo"_s}};
    for (int i = 0; i < 1200; ++i)
        Molte.push_back({u"Nome %1"_s.arg(i)});
    const TabellaEstranea Da = Tabella(Molte);
    ImportaNominativi Opera = Nuovo(Da);
    QVERIFY(Opera.Prepara());
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Altro')"_s);
    int Volte = 0;
    QVERIFY(!Opera.Scrivi(u"nomi.csv"_s, [&](int, int) { return ++Volte < 3; }));
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    QCOMPARE(Opera.Conto().Aggiunti, 1200);
    QCOMPARE(S->Righe({u"Nominativo"_s}).size(), 1201);
}

void TestImportaInterrotta::ilDiscoPieno()
{
    const QByteArray Prima = S->Byte();
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    const QScopedValueRollback Pieno(guasti::LimiteFile, qint64(100));
    QCOMPARE(NumeroErrore([&] { (void)Opera.Scrivi(u"nomi.csv"_s); }), errori::DiscoPieno);
    QCOMPARE(S->Byte(), Prima);
    QCOMPARE(ContenutoDi(S->Cartella), QStringList{u"DatiStudio.mdb"_s});
}

/// An import that is stopped takes nothing of the one before.
void TestImportaInterrotta::lAnnulloDiPrimaRestaDopoUnArresto()
{
    const QByteArray Prima = S->Byte();
    Importa(Tre);
    const TabellaEstranea Da = Tabella({{u"Nominativo"_s}, {u"Nuovo"_s}});
    ImportaNominativi Opera = Nuovo(Da);
    QVERIFY(Opera.Prepara());
    QVERIFY(!Opera.Scrivi(u"altri.csv"_s, [](int, int) { return false; }));
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Prima);
}

/// An import that could not be taken back is none.
void TestImportaInterrotta::senzaViaDelRitornoNonSiImporta()
{
    const QByteArray Prima = S->Byte();
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    // The record finds its place taken once the names are written.
    const QString Posto = S->File + u".prima.json"_s;
    const auto Occupa = [&](int, int) {
        QDir().mkpath(Posto);
        return true;
    };
    QCOMPARE(NumeroErrore([&] { (void)Opera.Scrivi(u"nomi.csv"_s, Occupa); }), errori::Accesso);
    QCOMPARE(S->Byte(), Prima);
    QVERIFY(QDir().rmdir(Posto));
    QCOMPARE(ContenutoDi(S->Cartella), QStringList{u"DatiStudio.mdb"_s});
}

/// The copy of the import before stays until the next one is there, whose copy lies in another place.
void TestImportaInterrotta::leCopieSiDannoIlCambio()
{
    const TabellaEstranea Uno = Tabella({{u"Nominativo"_s}, {u"Nuovo"_s}});
    const TabellaEstranea Due = Tabella({{u"Nominativo"_s}, {u"Nuovissimo"_s}});
    Importa(Tre);
    const QByteArray Dopo = S->Byte();
    for (const TabellaEstranea& Da : {Uno, Due}) {
        const QByteArray Qui = S->Byte();
        Importa(Da);
        QCOMPARE(UltimaImportazione(S->File)->Aggiunti, 1);
        QCOMPARE(ContenutoDi(S->Cartella).filter(u".prima"_s).size(), 2);
        AnnullaImportazione(S->File);
        QCOMPARE(S->Byte(), Qui);
        QCOMPARE(ContenutoDi(S->Cartella), (QStringList{u"DatiStudio.mdb"_s, u"DatiStudio.mdb.chiavi"_s}));
        Importa(Da);
    }
    QVERIFY(S->Byte() != Dopo);
    // Both places have a copy for a moment: that of the archive as it is counts, older or younger, in either.
    const QStringList Posti{S->File + u".prima"_s, S->File + u".prima.2"_s};
    const qsizetype Dove = EsisteFile(Posti[0]) ? 0 : 1;
    const QByteArray Copia = LeggiFile(Posti[Dove]);
    const QJsonObject Vero = QJsonDocument::fromJson(LeggiFile(Posti[Dove] + u".json"_s)).object();
    for (const int Giorni : {-1, 1}) {
        QJsonObject Altro = Vero;
        const QDateTime Quando = QDateTime::fromString(Vero[u"quando"_s].toString(), Qt::ISODate);
        Altro[u"quando"_s] = Quando.addDays(Giorni).toString(Qt::ISODateWithMs);
        Altro[u"righe"_s] = u"altre"_s;
        Altro[u"sorgente"_s] = u"altro.csv"_s;
        for (const qsizetype Suo : {0, 1}) {
            for (const QString& Posto : Posti)
                ScriviFile(Posto, Copia);
            ScriviFile(Posti[Suo] + u".json"_s, QJsonDocument(Vero).toJson());
            ScriviFile(Posti[1 - Suo] + u".json"_s, QJsonDocument(Altro).toJson());
            QCOMPARE(UltimaImportazione(S->File)->Sorgente, u"nomi.csv"_s);
        }
    }
}

/// A record that was announced, and an import that was not confirmed: whatever is written later is no import.
void TestImportaInterrotta::cioCheUnProgrammaUccisoLascia()
{
    // An import of before, and a change that makes it past.
    Importa(Tabella({{u"Nominativo"_s}, {u"Antico"_s}}));
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Altro')"_s);
    const QByteArray Prima = S->Byte();
    {
        // Killed behind its announcement.
        const Database Db = OpenDatabase(S->File);
        CopiaDiPrima Conservata(S->File);
        Conservata.Prendi();
        Transazione Tutto(Db);
        Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Perso')"_s);
        Conservata.Annuncia(
            Db, {.Quando = Adesso(), .Tabella = u"clienti"_s, .Sorgente = u"perso.csv"_s, .Aggiunti = 1});
        for (const QString& Fine : {u".prima.2"_s, u".prima.2.json"_s})
            QVERIFY(QFile::copy(S->File + Fine, S->File + Fine + u".salvo"_s));
    }
    for (const QString& Fine : {u".prima.2"_s, u".prima.2.json"_s})
        QVERIFY(QFile::rename(S->File + Fine + u".salvo"_s, S->File + Fine));
    QCOMPARE(S->Byte(), Prima);
    QCOMPARE(UltimaImportazione(S->File)->Sorgente, u"nomi.csv"_s);
    // One write, as the import would have been one.
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Ancora')"_s);
    const QByteArray Ora = S->Byte();
    QCOMPARE(UltimaImportazione(S->File)->Sorgente, u"nomi.csv"_s);
    QVERIFY(DescrizioneErroreDi([&] { AnnullaImportazione(S->File); }).startsWith(u"Dopo l'importazione"));
    QCOMPARE(S->Byte(), Ora);
    // It goes with the next one, even one that has nothing to write.
    Importa(Tabella({{u"Nominativo"_s}, {u"Altro"_s}}));
    QCOMPARE(ContenutoDi(S->Cartella),
             (QStringList{u"DatiStudio.mdb"_s, u"DatiStudio.mdb.prima"_s, u"DatiStudio.mdb.prima.json"_s}));
}

/// The first import ever, killed before it was confirmed, is none.
void TestImportaInterrotta::cioCheNonFuMaiConfermato()
{
    const QByteArray Prima = S->Byte();
    const QString Copia = S->File + u".prima"_s;
    {
        const Database Db = OpenDatabase(S->File);
        CopiaDiPrima Conservata(S->File);
        Conservata.Prendi();
        Transazione Tutto(Db);
        Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Perso')"_s);
        Conservata.Annuncia(
            Db, {.Quando = Adesso(), .Tabella = u"clienti"_s, .Sorgente = u"perso.csv"_s, .Aggiunti = 1});
        for (const QString& Fine : {u""_s, u".json"_s})
            QVERIFY(QFile::copy(Copia + Fine, Copia + Fine + u".salvo"_s));
    }
    for (const QString& Fine : {u""_s, u".json"_s})
        QVERIFY(QFile::rename(Copia + Fine + u".salvo"_s, Copia + Fine));
    QCOMPARE(S->Byte(), Prima);
    QVERIFY(!UltimaImportazione(S->File));
    Importa(Tre);
    QCOMPARE(ContenutoDi(S->Cartella),
             (QStringList{u"DatiStudio.mdb"_s, u"DatiStudio.mdb.prima"_s, u"DatiStudio.mdb.prima.json"_s}));
}

void TestImportaInterrotta::iRestiSiTolgono_data()
{
    QTest::addColumn<bool>("ConUnaPrima");   // an import of before, which can still be undone
    QTest::addColumn<QStringList>("Tolti");  // of what the killed one has left, before it was killed
    QTest::addColumn<bool>("MentreImporta");
    QTest::newRow("killed while it copied") << false << QStringList{u".json"_s} << false;
    QTest::newRow("killed behind its announcement") << false << QStringList() << false;
    QTest::newRow("killed while it dropped its copy") << false << QStringList{QString()} << false;
    QTest::newRow("killed while it copied, behind another") << true << QStringList{u".json"_s} << false;
    QTest::newRow("killed behind its announcement, behind another") << true << QStringList() << false;
    QTest::newRow("alive") << true << QStringList{u".json"_s} << true;
}

/// At the next start, without an import: an archive's copy is the names of all clients.
void TestImportaInterrotta::iRestiSiTolgono()
{
    QFETCH(bool, ConUnaPrima);
    QFETCH(QStringList, Tolti);
    QFETCH(bool, MentreImporta);
    TogliRestiDiImportazioni(S->File);
    QCOMPARE(ContenutoDi(S->Cartella), QStringList{u"DatiStudio.mdb"_s});
    if (ConUnaPrima)
        Importa(Tabella({{u"Nominativo"_s}, {u"Antico"_s}}));
    const QStringList Prima = ContenutoDi(S->Cartella);
    const QString Copia = S->File + (ConUnaPrima ? u".prima.2"_s : u".prima"_s);
    {
        const Database Db = OpenDatabase(S->File);
        CopiaDiPrima Conservata(S->File);
        Conservata.Prendi();
        Transazione Tutto(Db);
        Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Perso')"_s);
        Conservata.Annuncia(
            Db, {.Quando = Adesso(), .Tabella = u"clienti"_s, .Sorgente = u"perso.csv"_s, .Aggiunti = 1});
        for (const QString& Fine : {u""_s, u".json"_s})
            QVERIFY(QFile::copy(Copia + Fine, Copia + Fine + u".salvo"_s));
    }
    for (const QString& Fine : {u""_s, u".json"_s})
        QVERIFY(QFile::rename(Copia + Fine + u".salvo"_s, Copia + Fine));
    for (const QString& Fine : std::as_const(Tolti))
        QVERIFY(QFile::remove(Copia + Fine));
    const QString Turno = S->File + u".prima.blocco"_s;
    FileBlocco Vivo(Turno);
    if (MentreImporta)
        QCOMPARE(Vivo.Prendi(0), FileBlocco::Esito::Preso);
    else
        ScriviFile(Turno, "4194305\ncalcanova\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    const QStringList Conservati = ContenutoDi(S->Cartella);
    TogliRestiDiImportazioni(S->File);
    QCOMPARE(ContenutoDi(S->Cartella), MentreImporta ? Conservati : Prima);
    if (ConUnaPrima)
        QCOMPARE(UltimaImportazione(S->File)->Sorgente, u"nomi.csv"_s);
}

/// What fails behind the confirmation takes no way back along.
void TestImportaInterrotta::unGuastoDopoLaConferma()
{
    const QByteArray Prima = S->Byte();
    {
        const Database Db = OpenDatabase(S->File);
        CopiaDiPrima Conservata(S->File);
        Conservata.Prendi();
        Transazione Tutto(Db);
        Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Nuovo')"_s);
        Conservata.Annuncia(
            Db, {.Quando = Adesso(), .Tabella = u"clienti"_s, .Sorgente = u"nomi.csv"_s, .Aggiunti = 1});
        Tutto.Conferma();
    }
    QCOMPARE(S->Righe({u"Nominativo"_s}), QStringList{u"Nuovo"_s});
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Prima);
}

/// Two would take each other's copy.
void TestImportaInterrotta::dueProgrammiInsieme()
{
    const QByteArray Prima = S->Byte();
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    {
        CopiaDiPrima Altrui(S->File);
        Altrui.Prendi();
        QCOMPARE(DescrizioneErroreDi([&] { (void)Opera.Scrivi(u"nomi.csv"_s); }),
                 u"Un altro programma sta importando nello stesso archivio: riprovare fra poco."_s);
        QCOMPARE(S->Byte(), Prima);
        QVERIFY(QFile::exists(S->File + u".prima"_s));
    }
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
}

#include "TestImportaInterrotta.moc"
