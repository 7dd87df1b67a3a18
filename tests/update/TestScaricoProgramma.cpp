// What is done with a newer version of the program: nothing is left to be started that was not checked.
#include "banco.h"

#include "platform/base/numerierrore.h"
#include "supporto/maschera.h"

#include <QFileInfo>

#include <utility>

class TestScaricoProgramma : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void programma_data();
    void programma();
    void programmaSenzaElenco();
    void programmaScaricatoPrima();
    void programmaVecchio();
    void gliAltriInstallatoriVannoVia();
    void difettoPrimaDellAvvio();
    void quantoScaricare();

private:
    [[nodiscard]] Provenienza ConModo(const QString& Modo) const { return {B->Server.Indirizzo(Modo), {}}; }

    std::unique_ptr<BancoAggiornamenti> B;
};
PROVA(TestScaricoProgramma);

void TestScaricoProgramma::init()
{
    B = std::make_unique<BancoAggiornamenti>();
}

void TestScaricoProgramma::cleanup()
{
    B.reset();
}

void TestScaricoProgramma::programma_data()
{
    QTest::addColumn<QStringList>("Elenco");
    QTest::addColumn<QString>("Nome");

    const QString Exe = u"upgrade3.0.15.exe"_s;
    const QString Deb = u"upgrade3.0.15.deb"_s;
    QTest::newRow("one for each system")
        << QStringList{Exe, Deb} << u"upgrade3.0.15"_s + EstensioneInstallatore();
    QTest::newRow("one for the other system") << QStringList{Exe} << Exe;
}

void TestScaricoProgramma::programma()
{
    QFETCH(QStringList, Elenco);
    QFETCH(QString, Nome);
    for (const QString& Uno : Elenco)
        B->Posa(Uno, "installatore " + Uno.toLatin1());
    B->Annunciate(SoloProgramma);
    B->Firmate();
    const Annuncio Trovato = B->Controllato(B->Cartella());
    QCOMPARE(NomeInstallatore(Trovato), Nome);
    const SenzaMaschera Aperta;
    const EsitoScarico Esito = ScaricaProgramma(Trovato);
    QCOMPARE(Esito.Dettaglio, QString());
    QCOMPARE(Esito.File, CartellaUpgrade() + Nome);
    QCOMPARE(LeggiFile(Esito.File), "installatore " + Nome.toLatin1());
    // Nobody else may put a file there.
    QCOMPARE(QFileInfo(CartellaUpgrade()).permissions() & DiAltri, QFile::Permissions());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScaricoProgramma::programmaSenzaElenco()
{
    ScriviFile(B->Setup() + u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(SoloProgramma, false);
    B->Firmate();
    // Three lines name no file: only this machine is believed.
    QCOMPARE(ScaricaProgramma(B->Controllato(B->Cartella())).Dettaglio, FirmaNonValida);
    QVERIFY(!EsisteFile(CartellaUpgrade() + u"upgrade3.0.15.exe"_s));
    QCOMPARE(ScaricaProgramma(B->Controllato(DalServer())).File, CartellaUpgrade() + u"upgrade3.0.15.exe"_s);
}

void TestScaricoProgramma::programmaScaricatoPrima()
{
    const QString Nome = u"upgrade3.0.15.exe"_s;
    B->Posa(Nome, "installatore");
    B->Annunciate(SoloProgramma);
    const Annuncio Trovato = B->Controllato(DalServer());
    QVERIFY(ScaricaProgramma(Trovato).Riuscito());
    QVERIFY(ScaricaProgramma(Trovato).Riuscito());
    QCOMPARE(B->Server.Uditi().count("/upgrade3.0.15.exe "), 1);
    // One that was tampered with comes again.
    ScriviFile(CartellaUpgrade() + Nome, "altro");
    QVERIFY(ScaricaProgramma(Trovato).Riuscito());
    QCOMPARE(LeggiFile(CartellaUpgrade() + Nome), "installatore"_ba);
}

void TestScaricoProgramma::programmaVecchio()
{
    B->Posa(u"upgrade3.0.13.exe"_s, "installatore");
    B->Annunciate("versione=[3.0.13]\n01/12/2026\nnota=");
    B->Firmate();
    QCOMPARE(ScaricaProgramma(B->Controllato(DalServer())).Dettaglio,
             u"la versione non è più recente di quella in uso"_s);
    QVERIFY(!EsisteCartella(CartellaUpgrade()));
}

void TestScaricoProgramma::gliAltriInstallatoriVannoVia()
{
    CreaCartella(CartellaUpgrade());
    for (const QString& Vecchio : {u"upgrade3.0.12.exe"_s, u"upgrade3.0.13.deb"_s, u"appunti.txt"_s})
        ScriviFile(CartellaUpgrade() + Vecchio, "x");
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(SoloProgramma);
    QVERIFY(ScaricaProgramma(B->Controllato(DalServer())).Riuscito());
    QCOMPARE(QDir(CartellaUpgrade()).entryList(QDir::Files, QDir::Name),
             (QStringList{u"appunti.txt"_s, u"upgrade3.0.15.exe"_s}));
}

void TestScaricoProgramma::difettoPrimaDellAvvio()
{
    const QString Nome = u"upgrade3.0.15.exe"_s;
    B->Posa(Nome, "installatore");
    B->Annunciate(SoloProgramma);
    const Annuncio Trovato = B->Controllato(DalServer());
    const EsitoScarico Esito = ScaricaProgramma(Trovato);
    QCOMPARE(DifettoFile(Trovato, Nome, Esito.File), QString());
    ScriviFile(Esito.File, "installatorf");
    QCOMPARE(DifettoFile(Trovato, Nome, Esito.File), FirmaNonValida);
    ScriviFile(Esito.File, "installatore e altro");
    QCOMPARE(DifettoFile(Trovato, Nome, Esito.File), FirmaNonValida);
}

void TestScaricoProgramma::quantoScaricare()
{
    B->Posa(u"tassi.dat"_s, QByteArray(1234, 'x'));
    B->Annunciate(SoloTassi);
    const Annuncio Trovato = B->Controllato(DalServer());
    QCOMPARE(DaScaricare(Trovato, u"tassi.dat"_s), 1234);
    QCOMPARE(DaScaricare(Trovato, u"altro"_s), 0);
}

#include "TestScaricoProgramma.moc"
