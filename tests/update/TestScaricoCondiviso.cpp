// A user folder that a whole office shares: installers of two users never stand together.
#include "banco.h"

#include "platform/system/cartelle.h"
#include "platform/system/permessi.h"
#include "supporto/guasti.h"
#include "supporto/maschera.h"

class TestScaricoCondiviso : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nellaCartellaDiUnCollega_data();
    void nellaCartellaDiUnCollega();
    void chiLeggevaLegge_data();
    void chiLeggevaLegge();
};
PROVA(TestScaricoCondiviso);

void TestScaricoCondiviso::nellaCartellaDiUnCollega_data()
{
    QTest::addColumn<bool>("ConLeSue");
    QTest::newRow("his installers stand there") << true;
    QTest::newRow("he lets nobody write there") << false;
}

void TestScaricoCondiviso::nellaCartellaDiUnCollega()
{
    QFETCH(bool, ConLeSue);
    BancoAggiornamenti B;
    const QString Nome = u"upgrade3.0.15.exe"_s;
    B.Posa(Nome, "installatore");
    B.Annunciate(SoloProgramma);
    const Annuncio Trovato = B.Controllato(DalServer());
    const QString Sue = Barra(sessione::UserFolder) + u"upgrade/"_s;
    const CartellaChiusa Chiusa(ConLeSue ? (CreaCartella(Sue), Sue) : sessione::UserFolder);
    const EsitoScarico Esito = ScaricaProgramma(Trovato);
    QCOMPARE(Esito.Dettaglio, QString());
    QCOMPARE(Esito.File, CartellaDati() + u"upgrade/"_s + Nome);
    QCOMPARE(LeggiFile(Esito.File), "installatore"_ba);
    QVERIFY(DiQuestoUtente(Esito.File));
    QVERIFY(ContenutoDi(Sue).isEmpty());
    QVERIFY(QDir(CartellaDati() + u"upgrade"_s).removeRecursively());
}

void TestScaricoCondiviso::chiLeggevaLegge_data()
{
    QTest::addColumn<bool>("DalServer");
    QTest::addColumn<bool>("DiTutti");
    for (const bool DalServer : {true, false}) {
        const char* Da = DalServer ? "server" : "folder";
        QTest::addRow("an office's, the updater's own files closed, %s", Da) << DalServer << true;
        QTest::addRow("a user's own, new files open to everybody, %s", Da) << DalServer << false;
    }
}

/// Whoever reads rates reads the updated ones, and nobody else does, whatever the updater's system gives his
/// files.
void TestScaricoCondiviso::chiLeggevaLegge()
{
    QFETCH(bool, DalServer);
    QFETCH(bool, DiTutti);
    BancoAggiornamenti B;
    B.Posa(u"tassi.dat"_s, BancoAggiornamenti::ArchivioNuovo());
    B.Annunciate(SoloTassi);
    B.Firmate();
    const QFile::Permissions Suoi = QFile::ReadOwner | QFile::WriteOwner;
    const QFile::Permissions Chi = DiTutti ? Suoi | QFile::ReadGroup | QFile::WriteGroup : Suoi;
    const QString Cartella = Barra(sessione::UserFolder);
    QVERIFY(QFile::setPermissions(
        Cartella,
        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
            (DiTutti ? QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup : QFile::Permissions())));
    QVERIFY(QFile::setPermissions(BancoAggiornamenti::Archivio(), Chi));
    const SenzaMaschera Aperta;
    if (DiTutti)
        ::umask(077);
    const Annuncio Trovato = B.Controllato(DalServer ? ::DalServer() : B.Cartella());
    const EsitoScarico Esito = ScaricaTassi(Trovato);
    QCOMPARE(Esito.Dettaglio, QString());
    constexpr QFile::Permissions Guardati = QFile::ReadOwner | QFile::WriteOwner | DiAltri;
    for (const QString& Nome : {u"Tassi.dat"_s, u"Tassi.dat.prima"_s, u"versioni.txt"_s})
        QVERIFY2((QFile::permissions(Cartella + Nome) & Guardati) == Chi, qPrintable(Nome));
}

#include "TestScaricoCondiviso.moc"
