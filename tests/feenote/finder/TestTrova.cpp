#include "feenote/finder/finder_prova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/nominativi.h"
#include "platform/database/primariga.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

#include <QScopeGuard>

#include <algorithm>
#include <memory>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// The walk for saved notes.
class TestTrova : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void leNoteELeCartelle();
    void quelCheNonENota();
    void fraseParziale_data();
    void fraseParziale();
    void quelCheNonSiLegge();
    void quelCheNonEUnFile();
    void ilNomeCercato_data();
    void ilNomeCercato();
    void leSottocartelle();
    void laViaInSu_data();
    void laViaInSu();
    void iCollegamentiNonSiSeguono();
    void ilRecuperoNonSiElenca();
    void ilModelloRestaComE();
    void laNotaBloccataHaIlSoloNome();
    void leParti();
    void laRubricaCambia();
    void senzaRubrica();
    void rubricaDelProgramma();
    void tantiInsieme();
    void tantiMaFermati();
    void siInterrompe();
    void cartelleCheMancano();
    void laSottocartellaChiusa();
    void laSecondaVoltaNonSiApre();
    void ilFileCambiatoSiRilegge();
    void quelCheNonSiGuarda();
    void frasi_data();
    void frasi();
    void nomiDiOgniScrittura();

private:
    QList<VoceTrova> Trova(const CriterioTrova& Criterio)
    {
        QList<VoceTrova> Voci;
        Nominativi Nomi;
        CamminoTrova Cammino(
            Criterio,
            [&](VoceTrova&& Voce) {
                Nomi.Completa(Voce);
                Voci.append(std::move(Voce));
            },
            [] { return true; }, Memoria);
        Conto = Cammino.TrovaParc(Criterio.Cartella);
        return Voci;
    }
    QStringList NomiTrovati(const CriterioTrova& Criterio)
    {
        QStringList Nomi;
        for (const VoceTrova& Voce : Trova(Criterio))
            Nomi += Voce.Nome;
        return Nomi;
    }
    CriterioTrova Qui(const QString& Testo = {}, bool Sotto = false) const
    {
        return {Radice, Radice, Testo, Sotto};
    }

    std::unique_ptr<Studio> Ufficio;
    std::shared_ptr<MemoriaTrova> Memoria;
    QString Radice;
    ContoTrova Conto;
};
PROVA(TestTrova);

void TestTrova::init()
{
    Ufficio = std::make_unique<Studio>();
    Memoria = std::make_shared<MemoriaTrova>();
    Radice = Ufficio->File(u"note/"_s);
    QDir().mkpath(Radice);
}

void TestTrova::cleanup()
{
    Ufficio.reset();
}

void TestTrova::leNoteELeCartelle()
{
    SalvaNota(Radice + u"nota 10.mdb"_s, u"Rossi Mario"_s, u"Bianchi Srl"_s);
    SalvaNota(Radice + u"nota 9.MDB"_s);
    SalvaNota(Radice + u"èrica.mdb"_s);
    QDir().mkpath(Radice + u"zeta"_s);
    QDir().mkpath(Radice + u"alfa"_s);
    ScriviFile(Radice + u"lettera.txt"_s, "x");

    const QList<VoceTrova> Voci = Trova(Qui());
    QStringList Nomi;
    for (const VoceTrova& Voce : Voci)
        Nomi += Voce.Nome;
    QCOMPARE(Nomi, (QStringList{u"[alfa]"_s, u"[zeta]"_s, u"èrica"_s, u"nota 9"_s, u"nota 10"_s}));
    QCOMPARE(Voci[0].Genere, GenereVoce::Cartella);
    QCOMPARE(Voci[0].Percorso, Radice + u"alfa/"_s);
    const VoceTrova& Dieci = Voci.last();
    QCOMPARE(Dieci.Percorso, Radice + u"nota 10.mdb"_s);
    QCOMPARE(Dieci.Cartella, Radice);
    QCOMPARE(Dieci.Cliente, u"Rossi Mario"_s);
    QCOMPARE(Dieci.Controparte, u"Bianchi Srl"_s);
    QCOMPARE(Dieci.Dati.Oggetto, u"Oggetto di nota 10.mdb"_s);
    QCOMPARE(Dieci.Byte, QFileInfo(Dieci.Percorso).size());
    QCOMPARE(Voci[3].Percorso, Radice + u"nota 9.MDB"_s);
    QCOMPARE(Conto, (ContoTrova{3, 1, Voci[2].Byte + Voci[3].Byte + Voci[4].Byte, false}));
}

void TestTrova::quelCheNonENota()
{
    SalvaNota(Radice + u"buona.mdb"_s);
    ScriviFile(Radice + u"testo.mdb"_s, QByteArray(9000, 'x'));
    ScriviFile(Radice + u"vuoto.mdb"_s, {});
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"parcelle.mdb"_s, Radice + u"parcelle.mdb"_s));
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Radice + u"DatiStudio.mdb"_s));
    SalvaNota(Radice + u"tagliata.mdb"_s);
    QFile Tagliata(Radice + u"tagliata.mdb"_s);
    QVERIFY(Tagliata.resize(Tagliata.size() - 4096));
    QFile Enorme(Radice + u"enorme.mdb"_s);
    QVERIFY(Enorme.open(QIODevice::WriteOnly) && Enorme.resize(qint64(2) << 30));
    QDir().mkpath(Radice + u"cartella.mdb"_s);
    QVERIFY(QFile::link(Radice + u"manca.mdb"_s, Radice + u"appesa.mdb"_s));

    QCOMPARE(NomiTrovati(Qui()), (QStringList{u"[cartella.mdb]"_s, u"buona"_s}));
    QCOMPARE(Conto.Archivi, 1);
    QCOMPARE(Conto.NonLetti, 2);  // the cut note and the emptied one: what they held is in no sum
    QCOMPARE(FraseParziale(Conto), u"2 file non letti"_s);
    QCOMPARE(NomiTrovati(Qui()).size(), 2);
    QCOMPARE(Conto.NonLetti, 2);  // looked at again, they count again
}

void TestTrova::fraseParziale_data()
{
    QTest::addColumn<int>("File");
    QTest::addColumn<int>("Cartelle");
    QTest::addColumn<bool>("Interrotta");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("all") << 0 << 0 << false << QString();
    QTest::newRow("a file") << 1 << 0 << false << u"1 file non letto"_s;
    QTest::newRow("files") << 2 << 0 << false << u"2 file non letti"_s;
    QTest::newRow("a folder") << 0 << 1 << false << u"1 cartella non letta"_s;
    QTest::newRow("folders") << 0 << 3 << false << u"3 cartelle non lette"_s;
    QTest::newRow("both") << 2 << 1 << false << u"2 file e 1 cartella non letti"_s;
    QTest::newRow("stopped") << 0 << 0 << true << u"ricerca interrotta"_s;
    QTest::newRow("both ways") << 1 << 0 << true << u"1 file non letto; ricerca interrotta"_s;
}

void TestTrova::fraseParziale()
{
    QFETCH(int, File);
    QFETCH(int, Cartelle);
    QFETCH(bool, Interrotta);
    QTEST(FraseParziale({9, 9, 9, Interrotta, File, Cartelle}), "Frase");
}

/// What the system does not let be read is missing in every sum.
void TestTrova::quelCheNonSiLegge()
{
    SalvaNota(Radice + u"buona.mdb"_s);
    SalvaNota(Radice + u"vietata.mdb"_s);
    SalvaNota(Radice + u"sotto/altra.mdb"_s);
    QVERIFY(QFile::setPermissions(Radice + u"vietata.mdb"_s, {}));
    QVERIFY(QFile::setPermissions(Radice + u"sotto"_s, {}));
    CriterioTrova Tutte = Qui();
    Tutte.Sottocartelle = true;
    (void)NomiTrovati(Tutte);
    QVERIFY(
        QFile::setPermissions(Radice + u"sotto"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(Conto.Archivi, 1);
    QCOMPARE(FraseParziale(Conto), u"1 file e 1 cartella non letti"_s);
}

/// Whoever opened one of these would wait for somebody at its other end, or read for ever.
void TestTrova::quelCheNonEUnFile()
{
    SalvaNota(Radice + u"buona.mdb"_s);
    const auto Nativo = [this](const QString& Nome) { return QFile::encodeName(Radice + Nome); };
    QCOMPARE(::mkfifo(Nativo(u"tubo.mdb"_s).constData(), 0600), 0);
    QVERIFY(QFile::link(Radice + u"tubo.mdb"_s, Radice + u"via.mdb"_s));
    QVERIFY(QFile::link(u"/dev/zero"_s, Radice + u"zeri.mdb"_s));
    const int Presa = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const auto Chiudi = qScopeGuard([Presa] { ::close(Presa); });
    sockaddr_un Dove{};
    Dove.sun_family = AF_UNIX;
    const QByteArray Nome = Nativo(u"presa.mdb"_s);
    QVERIFY(Presa >= 0 && Nome.size() < qsizetype(sizeof Dove.sun_path));
    std::ranges::copy(Nome, Dove.sun_path);
    QCOMPARE(::bind(Presa, reinterpret_cast<const sockaddr*>(&Dove), sizeof Dove), 0);

    QCOMPARE(NomiTrovati(Qui({}, true)), QStringList{u"buona"_s});
    QCOMPARE(Conto.Archivi, 1);
    // One that took the place of a note behind the list's back.
    for (const QString& Altro : {u"tubo.mdb"_s, u"zeri.mdb"_s, u"presa.mdb"_s})
        QCOMPARE(NumeroErrore(
                     [&] { (void)LeggiPrimaRiga(Radice + Altro, u"ParcellaParam"_s, {u"Cliente"_s}, 255); }),
                 75);
}

void TestTrova::ilNomeCercato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QStringList>("Trovate");
    QTest::newRow("in the middle, the folders behind")
        << u"ROSS"_s << QStringList{u"gialli e rossi"_s, u"Rossi"_s, u"[sotto rossi]"_s};
    QTest::newRow("accents are letters") << u"perchÉ"_s << QStringList{u"Perché"_s, u"[sotto rossi]"_s};
    QTest::newRow("signs of a pattern stand for themselves") << u"*"_s << QStringList{u"[sotto rossi]"_s};
    QTest::newRow("the name of the file is looked at")
        << u"rossi.mdb"_s << QStringList{u"gialli e rossi"_s, u"Rossi"_s, u"[sotto rossi]"_s};
    QTest::newRow("none") << u"verdi"_s << QStringList{u"[sotto rossi]"_s};
}

void TestTrova::ilNomeCercato()
{
    QFETCH(QString, Testo);
    for (const auto& Nome : {u"Rossi"_s, u"gialli e rossi"_s, u"Perché"_s, u"neri"_s})
        SalvaNota(Radice + Nome + u".mdb"_s);
    QDir().mkpath(Radice + u"sotto rossi"_s);
    QStringList Nomi = NomiTrovati(Qui(Testo));
    // The order is that of the list, which puts folders last here; the walk itself gives them first.
    std::ranges::stable_partition(Nomi, [](const QString& Nome) { return !Nome.startsWith(u'['); });
    QTEST(Nomi, "Trovate");
}

void TestTrova::leSottocartelle()
{
    SalvaNota(Radice + u"uno.mdb"_s);
    SalvaNota(Radice + u"a/due.mdb"_s);
    SalvaNota(Radice + u"a/b/tre.mdb"_s);
    QCOMPARE(NomiTrovati(Qui({}, true)), (QStringList{u"[a]"_s, u"uno"_s, u"[b]"_s, u"due"_s, u"tre"_s}));
    QCOMPARE(Conto.Cartelle, 3);
    QCOMPARE(Conto.Archivi, 3);
    QCOMPARE(NomiTrovati(Qui({}, false)), (QStringList{u"[a]"_s, u"uno"_s}));
    QCOMPARE(Conto.Cartelle, 1);
}

void TestTrova::laViaInSu_data()
{
    QTest::addColumn<QString>("Cartella");
    QTest::addColumn<bool>("Sotto");
    QTest::addColumn<int>("Quante");
    QTest::newRow("none where the search began") << QString() << false << 0;
    QTest::newRow("one below") << u"a/"_s << false << 1;
    QTest::newRow("one, however many folders are walked") << u"a/"_s << true << 1;
    QTest::newRow("none at the start, folders walked") << QString() << true << 0;
}

void TestTrova::laViaInSu()
{
    QFETCH(QString, Cartella);
    QFETCH(bool, Sotto);
    SalvaNota(Radice + u"a/b/due.mdb"_s);
    SalvaNota(Radice + u"a/uno.mdb"_s);
    const QList<VoceTrova> Voci = Trova({Radice + Cartella, Radice, {}, Sotto});
    int Quante = 0;
    for (const VoceTrova& Voce : Voci)
        Quante += Voce.Genere == GenereVoce::Torna;
    QTEST(Quante, "Quante");
    if (Quante > 0) {
        QCOMPARE(Voci.first().Nome, u"[Torna alla cartella superiore]"_s);
        QCOMPARE(Voci.first().Percorso, Radice);
    }
}

void TestTrova::iCollegamentiNonSiSeguono()
{
    SalvaNota(Radice + u"a/uno.mdb"_s);
    QVERIFY(QFile::link(Radice, Radice + u"a/giro"_s));
    QCOMPARE(NomiTrovati(Qui({}, true)), (QStringList{u"[a]"_s, u"[giro]"_s, u"uno"_s}));
    QCOMPARE(Conto.Cartelle, 2);
}

void TestTrova::ilRecuperoNonSiElenca()
{
    sessione::UserFolder = Radice;
    SalvaNota(Radice + u"recupero/copia.mdb"_s);
    SalvaNota(Radice + u"altra/recupero/mia.mdb"_s);
    QCOMPARE(NomiTrovati(Qui({}, true)), (QStringList{u"[altra]"_s, u"[recupero]"_s, u"mia"_s}));
}

void TestTrova::ilModelloRestaComE()
{
    const QString Modello = SalvaNota(Radice + u"tipo.mdb"_s);
    ImpostaSolaLettura(Modello, true);
    guasti::SupportoBloccato = Radice;
    const QList<VoceTrova> Voci = Trova(Qui());
    guasti::SupportoBloccato.clear();
    QCOMPARE(Voci.size(), 1);
    QVERIFY(Voci.first().Modello);
    QVERIFY(SolaLettura(Modello));
}

void TestTrova::laNotaBloccataHaIlSoloNome()
{
    SalvaNota(Radice + u"in uso.mdb"_s, u"Rossi"_s);
    const Database Altro = OpenDatabase(Radice + u"in uso.mdb"_s);
    Altro.Execute(u"PRAGMA locking_mode=EXCLUSIVE"_s);
    Altro.Execute(u"UPDATE ParcellaParam SET Oggetto='x'"_s);
    QList<VoceTrova> Voci = Trova(Qui());
    QCOMPARE(Voci.size(), 1);
    QVERIFY(Voci.first().Illeggibile);
    QCOMPARE(Voci.first().Nome, u"in uso"_s);
    QCOMPARE(Voci.first().Cliente, QString());
    Altro.Execute(u"PRAGMA locking_mode=NORMAL"_s);
    (void)Altro.Tabelle();
    Voci = Trova(Qui());
    QVERIFY2(!Voci.first().Illeggibile, "a passing lock is not remembered");
    QCOMPARE(Voci.first().Cliente, u"Rossi"_s);
}

void TestTrova::leParti()
{
    const int Cli = Ufficio->AggiungiCliente(u"Verdi Anna"_s);
    const int Con = Ufficio->AggiungiControparte(u"Neri Spa"_s, u"altro nome"_s);
    const int Vuoto = Ufficio->AggiungiCliente(QString());
    SalvaNota(Radice + u"1.mdb"_s, u"scritto"_s, u"scritta"_s, Cli, Con);
    SalvaNota(Radice + u"2.mdb"_s, u"scritto"_s, u"scritta"_s, 99'999, 99'999);
    SalvaNota(Radice + u"3.mdb"_s, u"scritto"_s, u"scritta"_s, Vuoto);
    SalvaNota(Radice + u"4.mdb"_s, u"scritto"_s, u"scritta"_s, -1, 0);
    QStringList Parti;
    for (const VoceTrova& Voce : Trova(Qui()))
        Parti += Voce.Cliente + u'|' + Voce.Controparte;
    QCOMPARE(Parti, (QStringList{u"Verdi Anna|Neri Spa"_s, u"scritto|scritta"_s, u"scritto|scritta"_s,
                                 u"scritto|scritta"_s}));
}

void TestTrova::laRubricaCambia()
{
    const int Cli = Ufficio->AggiungiCliente(u"Verdi Anna"_s);
    VoceTrova Voce;
    Voce.Dati.IDCli = Cli;
    Nominativi Nomi;
    Nomi.Completa(Voce);
    QCOMPARE(Voce.Cliente, u"Verdi Anna"_s);
    Nomi.Chiudi();
    OpenDatabase(sessione::ArchivioCliCon)
        .Execute(u"UPDATE clienti SET Nominativo='Verdi Anna Maria' WHERE ID=?"_s, {Cli});
    Data(sessione::ArchivioCliCon, QDateTime::currentDateTime().addSecs(5));
    Nomi.Completa(Voce);
    QCOMPARE(Voce.Cliente, u"Verdi Anna Maria"_s);
}

void TestTrova::senzaRubrica()
{
    SalvaNota(Radice + u"1.mdb"_s, u"scritto"_s, {}, 7, 0);
    QVERIFY(QFile::remove(sessione::ArchivioCliCon));
    const Registratore Box;  // nothing is said of it
    QCOMPARE(Trova(Qui()).first().Cliente, u"scritto"_s);
    sessione::ArchivioCliCon.clear();
    QCOMPARE(Trova(Qui()).first().Cliente, u"scritto"_s);
}

/// Without an archive in the settings the names are those of the file that the address book shows then.
void TestTrova::rubricaDelProgramma()
{
    const int Cli = Ufficio->AggiungiCliente(u"Verdi Anna"_s);
    sessione::PercorsoProg = NuovaCartella();
    QVERIFY(QFile::copy(sessione::ArchivioCliCon, sessione::PercorsoProg + u"rubrica.mdb"_s));
    sessione::ArchivioCliCon.clear();
    VoceTrova Voce;
    Voce.Dati.IDCli = Cli;
    Nominativi Nomi;
    Nomi.Completa(Voce);
    QCOMPARE(Voce.Cliente, u"Verdi Anna"_s);
}

/// Files are read side by side: each row has its own file's words, in the order of the names, whatever stands
/// among them.
void TestTrova::tantiInsieme()
{
    constexpr int Quanti = 150;
    QStringList Attesi;
    for (int i = 0; i < Quanti; ++i) {
        const QString File = Radice + u"%1.mdb"_s.arg(i, 3, 10, QChar(u'0'));
        if (i % 10 == 3) {
            ScriviFile(File, "no database");
        } else if (i % 10 == 7) {
            QVERIFY(QFile::copy(Radice + u"000.mdb"_s, File));
            OpenDatabase(File).Execute(u"UPDATE ParcellaParam SET Cliente=?"_s, {u"Cliente %1"_s.arg(i)});
            Attesi += u"%1 Cliente %1"_s.arg(i, 3, 10, QChar(u'0'));
        } else if (i == 0) {
            SalvaNota(File, u"Cliente 0"_s);
            Attesi += u"000 Cliente 0"_s;
        } else {
            QVERIFY(QFile::link(Radice + u"000.mdb"_s, File));
            Attesi += u"%1 Cliente 0"_s.arg(i, 3, 10, QChar(u'0'));
        }
    }
    for (QString& Atteso : Attesi)
        Atteso.replace(QRegularExpression(u"Cliente 0+(\\d)"_s), u"Cliente \\1"_s);
    for (int Volta = 0; Volta < 2; ++Volta) {
        QStringList Avuti;
        for (const VoceTrova& Voce : Trova(Qui()))
            Avuti += Voce.Nome + u' ' + Voce.Cliente;
        QCOMPARE(Avuti, Attesi);
        QCOMPARE(Conto.Archivi, Attesi.size());
    }
}

/// Who stops it waits for the files in hand, not for the folder, whoever of the readers has them.
void TestTrova::tantiMaFermati()
{
    SalvaMolte(Radice, 200);
    int Chiesti = 0;
    int Righe = 0;
    constexpr int Basta = 215;  // the names are asked about first
    CamminoTrova Cammino(
        Qui(), [&](VoceTrova&&) { ++Righe; }, [&] { return ++Chiesti < Basta; }, Memoria);
    QVERIFY(Cammino.TrovaParc(Radice).Interrotta);
    QVERIFY2(Chiesti <= Basta + 1, qPrintable(QString::number(Chiesti)));
    QVERIFY2(Righe <= Basta - 200, qPrintable(QString::number(Righe)));
}

void TestTrova::siInterrompe()
{
    SalvaMolte(Radice, 20);
    SalvaNota(Radice + u"sotto/x.mdb"_s);
    int Voci = 0;
    CamminoTrova Cammino(
        Qui({}, true), [&](VoceTrova&& Voce) { Voci += Voce.Genere == GenereVoce::Nota; },
        [&] { return Voci < 7; }, Memoria);
    const ContoTrova Fatto = Cammino.TrovaParc(Radice);
    QVERIFY(Fatto.Interrotta);
    QCOMPARE(Fatto.Archivi, 7);
    QCOMPARE(Voci, 7);
    QCOMPARE(Fatto.Cartelle, 1);
}

void TestTrova::cartelleCheMancano()
{
    QCOMPARE(NumeroErrore([&] { (void)Trova({Radice + u"manca"_s, Radice, {}, false}); }), 76);
    SalvaNota(Radice + u"via/1.mdb"_s);
    SalvaNota(Radice + u"via/2.mdb"_s);
    CamminoTrova Cammino(
        {Radice + u"via"_s, Radice, {}, false},
        [&](VoceTrova&&) { QDir(Radice + u"via"_s).removeRecursively(); }, [] { return true; }, Memoria);
    QCOMPARE(NumeroErrore([&] { (void)Cammino.TrovaParc(Radice + u"via"_s); }), 76);
}

void TestTrova::laSottocartellaChiusa()
{
    SalvaNota(Radice + u"a/1.mdb"_s);
    SalvaNota(Radice + u"b/2.mdb"_s);
    QVERIFY(QFile::setPermissions(Radice + u"a"_s, {}));
    QCOMPARE(NomiTrovati(Qui({}, true)), (QStringList{u"[a]"_s, u"[b]"_s, u"2"_s}));
    QVERIFY(QFile::setPermissions(Radice + u"a"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestTrova::laSecondaVoltaNonSiApre()
{
    const QDateTime Ieri = QDateTime::currentDateTime().addDays(-1);
    const QString Nota = SalvaNota(Radice + u"1.mdb"_s, u"Rossi"_s);
    ScriviFile(Radice + u"estraneo.mdb"_s, "x");
    Data(Nota, Ieri);
    Data(Radice + u"estraneo.mdb"_s, Ieri);
    QCOMPARE(Trova(Qui()).size(), 1);
    QCOMPARE(Memoria->Quanti(), 2);
    // Rubbish of the same size and date is not looked at: the first look is what counts.
    const qint64 Lungo = QFileInfo(Nota).size();
    ScriviFile(Nota, QByteArray(Lungo, 'x'));
    Data(Nota, Ieri);
    QCOMPARE(Trova(Qui()).first().Cliente, u"Rossi"_s);
}

void TestTrova::ilFileCambiatoSiRilegge()
{
    const QString Nota = SalvaNota(Radice + u"1.mdb"_s, u"Rossi"_s);
    QCOMPARE(Trova(Qui()).first().Cliente, u"Rossi"_s);
    QVERIFY2(Memoria->Quanti() == 0, "a file of this very moment may change within its date");
    Data(Nota, QDateTime::currentDateTime().addSecs(-60));
    QCOMPARE(Trova(Qui()).first().Cliente, u"Rossi"_s);
    QCOMPARE(Memoria->Quanti(), 1);
    SalvaNota(Nota, u"Bianchi"_s);
    Data(Nota, QDateTime::currentDateTime().addSecs(-30));
    QCOMPARE(Trova(Qui()).first().Cliente, u"Bianchi"_s);
}

/// A list that is not all there is says so.
void TestTrova::quelCheNonSiGuarda()
{
    SalvaNota(Radice + u"Società.mdb"_s);
    const QByteArray Dove = QFile::encodeName(Radice);
    const QByteArray Bella = QFile::encodeName(Radice + u"Società.mdb"_s);
    QCOMPARE(::link(Bella.constData(), (Dove + "Societ\xe0.mdb").constData()), 0);
    QCOMPARE(::link(Bella.constData(), (Dove + "lettera\xe0.txt").constData()), 0);
    QCOMPARE(::mkdir((Dove + "Citt\xe0").constData(), 0700), 0);
    QVERIFY(QDir().mkpath(Radice + u"chiusa"_s));
    QVERIFY(QFile::setPermissions(Radice + u"chiusa"_s, {}));
    const auto Apri = qScopeGuard([this] {
        QFile::setPermissions(Radice + u"chiusa"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    });
    QCOMPARE(NomiTrovati(Qui({}, true)), (QStringList{u"[chiusa]"_s, u"Società"_s}));
    const QString Frase = FraseEsito(Conto);
    QVERIFY2(Frase.endsWith(u" KBytes; 1 cartella non letta; 2 nomi illeggibili, da rinominare"_s),
             qPrintable(Frase));
    QCOMPARE(FraseParziale(Conto), u"1 cartella non letta; 2 nomi illeggibili, da rinominare"_s);
    // A note that is not looked for is none that is missing.
    (void)Trova(Qui(u"altro"_s, true));
    QCOMPARE(Conto.NomiIlleggibili, 1);
}

void TestTrova::frasi_data()
{
    QTest::addColumn<int>("Archivi");
    QTest::addColumn<int>("Cartelle");
    QTest::addColumn<qint64>("Byte");
    QTest::addColumn<bool>("Interrotta");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("several") << 3 << 2 << qint64(1024) << false
                             << u"Trovati 3 archivi in 2 cartelle per un totale di 1 KBytes"_s;
    QTest::newRow("begun kilobytes count")
        << 1 << 1 << qint64(1025) << false << u"Trovati 1 archivi in 1 cartelle per un totale di 2 KBytes"_s;
    QTest::newRow("thousands") << 10 << 1 << qint64(1234567) * 1024 << false
                               << u"Trovati 10 archivi in 1 cartelle per un totale di 1.234.567 KBytes"_s;
    QTest::newRow("none") << 0 << 5 << qint64(0) << false
                          << u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati"_s;
    QTest::newRow("interrupted")
        << 3 << 2 << qint64(1) << true
        << u"Trovati 3 archivi in 2 cartelle per un totale di 1 KBytes (ricerca interrotta)"_s;
    QTest::newRow("interrupted with none")
        << 0 << 1 << qint64(0) << true
        << u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati (ricerca interrotta)"_s;
}

void TestTrova::frasi()
{
    QFETCH(int, Archivi);
    QFETCH(int, Cartelle);
    QFETCH(qint64, Byte);
    QFETCH(bool, Interrotta);
    QTEST(FraseEsito({Archivi, Cartelle, Byte, Interrotta}), "Frase");
}

void TestTrova::nomiDiOgniScrittura()
{
    const QStringList Nomi{u"Дело № 7"_s, u"قضية"_s, u"\U0001F4DC carta"_s, QString(118, u'è')};
    for (const QString& Nome : Nomi)
        SalvaNota(Radice + Nome + u".mdb"_s, Nome);
    const QList<VoceTrova> Voci = Trova(Qui());
    QCOMPARE(Voci.size(), Nomi.size());
    for (const VoceTrova& Voce : Voci)
        QCOMPARE(Voce.Cliente, Voce.Nome);
}

#include "TestTrova.moc"
