// What is published is what the program takes: keys, the folder, and the program's own reader over it.
#include "platform/base/numerierrore.h"
#include "supporto/prova.h"
#include "update/banco.h"

#include "core/versione.h"
#include "pubblica/pubblica.h"

#include <QFileInfo>

class TestPubblica : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void leChiavi();
    void leChiaviNonSiSostituiscono();
    void laCartellaVaBeneAlProgramma_data();
    void laCartellaVaBeneAlProgramma();
    void unaVersioneDopoLAltra();
    void soloITassi();
    void installatoreTroppoGrande();
    void rifiuta_data();
    void rifiuta();
    void usoErrato_data();
    void usoErrato();

private:
    int Esegui(const QStringList& Argomenti);
    [[nodiscard]] QStringList Ordine(const QStringList& Altro = {}) const;

    std::unique_ptr<BancoAggiornamenti> B;
    QString Chiavi;
    QString Tassi;
    QString Detto;
    QString Errori;
};
PROVA(TestPubblica);

void TestPubblica::init()
{
    B = std::make_unique<BancoAggiornamenti>();
    Chiavi = NuovaCartella();
    QCOMPARE(Esegui({u"chiavi"_s, Chiavi}), 0);
    Tassi = NuovaCartella() + u"Tassi.dat"_s;
    ScriviFile(Tassi, B->ArchivioNuovo());
    ImpostaDataFile(Tassi, QDateTime(QDate(2026, 12, 1), QTime(12, 0)));
}

void TestPubblica::cleanup()
{
    B.reset();
}

int TestPubblica::Esegui(const QStringList& Argomenti)
{
    Detto.clear();
    Errori.clear();
    QTextStream Uscita(&Detto);
    QTextStream Guasti(&Errori);
    return Pubblica(Argomenti, Uscita, Guasti);
}

QStringList TestPubblica::Ordine(const QStringList& Altro) const
{
    return QStringList{u"cartella"_s,   B->Server.Cartella(), u"--chiave"_s, Chiavi + u"calcanova.key"_s,
                       u"--versione"_s, VersioneProgramma(),  u"--tassi"_s,  Tassi} +
           Altro;
}

void TestPubblica::leChiavi()
{
    const QByteArray Pubblica = LeggiFile(Chiavi + u"calcanova.pub"_s);
    const QByteArray Segreta = LeggiFile(Chiavi + u"calcanova.key"_s);
    QVERIFY(FirmaValida("x", FirmaByte("x", Segreta), Pubblica));
    QCOMPARE(QFileInfo(Chiavi + u"calcanova.key"_s).permissions() &
                 (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
             QFile::Permissions());
    QCOMPARE(QDir(Chiavi).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             (QStringList{u"calcanova.key"_s, u"calcanova.pub"_s}));
}

void TestPubblica::leChiaviNonSiSostituiscono()
{
    const QByteArray Prima = LeggiFile(Chiavi + u"calcanova.key"_s);
    QCOMPARE(Esegui({u"chiavi"_s, Chiavi}), 1);
    QVERIFY(Errori.startsWith(u"La cartella contiene già delle chiavi"));
    QCOMPARE(LeggiFile(Chiavi + u"calcanova.key"_s), Prima);
}

void TestPubblica::laCartellaVaBeneAlProgramma_data()
{
    QTest::addColumn<bool>("DaCartella");
    QTest::newRow("on a server") << false;
    QTest::newRow("on a stick") << true;
}

void TestPubblica::laCartellaVaBeneAlProgramma()
{
    QFETCH(bool, DaCartella);
    const QString Exe = NuovaCartella() + u"Calcanova Setup.exe"_s;
    const QString Deb = NuovaCartella() + u"calcanova_3.0.15_amd64.deb"_s;
    ScriviFile(Exe, "exe");
    ScriviFile(Deb, "deb");
    QCOMPARE(Esegui(Ordine({u"--versione"_s, u"3.0.15"_s, u"--nota"_s, u"Novità: nuovi tassi"_s, Exe, Deb})),
             0);
    QCOMPARE(Errori, QString());
    InstallaFileChiave(Chiavi + u"calcanova.pub"_s);

    const Annuncio Trovato = B->Controllato(DaCartella ? B->Cartella() : DalServer());
    QCOMPARE(sessione::VersioneDisp, u"3.0.15"_s);
    QCOMPARE(sessione::DataTassiDisp, std::optional(QDate(2026, 12, 1)));
    QCOMPARE(sessione::NotaAgg, u"Novità: nuovi tassi"_s);
    QVERIFY(TassiVecchi(sessione::DataTassiDisp));
    QCOMPARE(ScaricaTassi(Trovato).Dettaglio, QString());
    QVERIFY(!TassiVecchi(sessione::DataTassiDisp));
    const EsitoScarico Programma = ScaricaProgramma(Trovato);
    QCOMPARE(Programma.Dettaglio, QString());
    QCOMPARE(LeggiFile(Programma.File), EstensioneInstallatore().mid(1).toLatin1());
    // Another key than the published one's is not believed.
    InstallaFileChiave(B->FileChiave);
    ScriviFile(B->FileChiave, NuoveChiavi().Pubblica);
    QFile::remove(Programma.File);
    QCOMPARE(ScaricaProgramma(Trovato).Dettaglio, u"firma non valida"_s);
}

void TestPubblica::unaVersioneDopoLAltra()
{
    QCOMPARE(Esegui(Ordine()), 0);
    const QString Exe = NuovaCartella() + u"Setup.exe"_s;
    ScriviFile(Exe, "exe");
    QCOMPARE(Esegui(Ordine({u"--data"_s, u"05/12/2026"_s, u"--versione"_s, u"3.0.16"_s, Exe})), 0);
    InstallaFileChiave(Chiavi + u"calcanova.pub"_s);
    const Annuncio Trovato = B->Controllato(B->Cartella());
    QCOMPARE(Trovato.Lette.Versione, u"3.0.16"_s);
    QCOMPARE(ScaricaTassi(Trovato).Dettaglio, QString());
    QCOMPARE(DataFile(B->Archivio()).date(), QDate(2026, 12, 5));
}

void TestPubblica::soloITassi()
{
    QCOMPARE(Esegui(Ordine()), 0);
    InstallaFileChiave(Chiavi + u"calcanova.pub"_s);
    const Annuncio Trovato = B->Controllato(B->Cartella());
    QVERIFY2(!VersioneNuova(sessione::VersioneDisp, VersioneProgramma()), "no program is offered");
    QVERIFY(TassiVecchi(sessione::DataTassiDisp));
    QCOMPARE(ScaricaTassi(Trovato).Dettaglio, QString());
}

void TestPubblica::installatoreTroppoGrande()
{
    const QString Exe = NuovaCartella() + u"Setup.exe"_s;
    QFile Sparso(Exe);
    QVERIFY(Sparso.open(QIODevice::WriteOnly) && Sparso.resize((qint64(1) << 30) + 1));
    QCOMPARE(Esegui(Ordine({u"--versione"_s, u"3.0.15"_s, Exe})), 1);
    QCOMPARE(Errori.trimmed(), u"Il file supera i 1024 MB che il programma accetta: "_s + Exe);
    QVERIFY(!EsisteFile(B->Setup() + u"tassi.dat"_s));
}

void TestPubblica::rifiuta_data()
{
    QTest::addColumn<QString>("Opzione");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Frase");

    const QString Vuoto = NuovaCartella() + u"vuoto"_s;
    ScriviFile(Vuoto, "x");
    QTest::newRow("version") << u"--versione"_s << u"3.0"_s
                             << u"La versione deve essere di tre numeri, per esempio 3.0.15."_s;
    QTest::newRow("version and more") << u"--versione"_s << u"3.0.15] x"_s
                                      << u"La versione deve essere di tre numeri, per esempio 3.0.15."_s;
    QTest::newRow("date") << u"--data"_s << u"31/11/2026"_s
                          << u"La data deve essere nella forma gg/mm/aaaa."_s;
    QTest::newRow("a short date") << u"--data"_s << u"01/12/26"_s
                                  << u"La data deve essere nella forma gg/mm/aaaa."_s;
    QTest::newRow("a note of two lines")
        << u"--nota"_s << u"a\nsha256="_s << u"La nota deve stare in una riga di 500 caratteri."_s;
    QTest::newRow("a note in other letters")
        << u"--nota"_s << u"Σ Pěť"_s
        << u"La nota contiene caratteri che l'elenco delle versioni non può contenere."_s;
    for (const QString& Altra : {u"3.0.15"_s, u"3.0.13"_s})
        QTest::addRow("version %s without an installer", qPrintable(Altra))
            << u"--versione"_s << Altra
            << u"Una versione nuova si pubblica con il suo installatore; per i soli tassi la versione è "
               u"quella in uso, %1."_s.arg(VersioneProgramma());
    const QString Grande = NuovaCartella() + u"grande.dat"_s;
    QFile Sparso(Grande);
    QVERIFY(Sparso.open(QIODevice::WriteOnly) && Sparso.resize((qint64(32) << 20) + 1));
    QTest::newRow("an archive past the program's limit")
        << u"--tassi"_s << Grande << u"Il file supera i 32 MB che il programma accetta: "_s + Grande;
    QTest::newRow("no archive") << u"--tassi"_s << Vuoto + u"mai"_s << DescrizioneErrore(53);
    QTest::newRow("another archive")
        << u"--tassi"_s << Vuoto
        << u"L'archivio dei tassi non va bene: il file non è un archivio di tassi."_s;
    QTest::newRow("no key") << u"--chiave"_s << Vuoto << DescrizioneErrore(5);
}

void TestPubblica::rifiuta()
{
    QFETCH(QString, Opzione);
    QFETCH(QString, Valore);
    QFETCH(QString, Frase);
    QCOMPARE(Esegui(Ordine({Opzione, Valore})), 1);
    QCOMPARE(Errori.trimmed(), Frase);
    QVERIFY2(!EsisteFile(B->Setup() + u"versioni.txt"_s), "nothing is announced");
    QVERIFY(!EsisteFile(B->Setup() + u"tassi.dat"_s));
}

void TestPubblica::usoErrato_data()
{
    QTest::addColumn<QStringList>("Argomenti");

    QTest::newRow("nothing") << QStringList();
    QTest::newRow("another word") << QStringList{u"altro"_s};
    QTest::newRow("keys without a folder") << QStringList{u"chiavi"_s};
    QTest::newRow("a folder without the rest") << QStringList{u"cartella"_s, u"x"_s};
    QTest::newRow("an option without its value") << QStringList{u"cartella"_s, u"x"_s, u"--chiave"_s};
    QTest::newRow("an unknown option") << QStringList{u"cartella"_s, u"x"_s, u"--altro"_s, u"y"_s};
}

void TestPubblica::usoErrato()
{
    QFETCH(QStringList, Argomenti);
    QCOMPARE(Esegui(Argomenti), 2);
    QVERIFY(Errori.startsWith(u"Uso: "));
}

#include "TestPubblica.moc"
