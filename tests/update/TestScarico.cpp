// What is done with an update: nothing is used that was not checked, and what is in use stays until then.
#include "banco.h"

#include "platform/base/numerierrore.h"

#include <QFileInfo>
#include <QProcess>
#include <QScopedValueRollback>

#include <utility>

class TestScarico : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void tassiDaQuestaMacchina();
    void tassiFirmati_data();
    void tassiFirmati();
    void laDataPiuRecente();
    void ilFileSiChiamaComeQuiSiChiama();
    void firma_data();
    void firma();
    void laFirmaNonCiSta();
    void serverOstile_data();
    void serverOstile();
    void pezzoMancante();
    void fileScambiato_data();
    void fileScambiato();
    void ripropostoUnoVecchio();
    void mezzoArchivio();
    void discoPieno();
    void annullato();
    void annullatoAllaFineDiUnFile();
    void archivioMancante();
    void archivioInUso();
    void dueAllaVolta();
    void uccisoDuranteIlTrasferimento();
    void limiti();
    void primaSulDisco_data();
    void primaSulDisco();
    void ilDiscoRifiuta();

private:
    [[nodiscard]] Provenienza ConModo(const QString& Modo) const { return {B->Server.Indirizzo(Modo), {}}; }

    std::unique_ptr<BancoAggiornamenti> B;
};
PROVA(TestScarico);

void TestScarico::init()
{
    B = std::make_unique<BancoAggiornamenti>();
}

void TestScarico::cleanup()
{
    B.reset();
}

// ---- the archive --------------------------------------------------------------------------------

void TestScarico::tassiDaQuestaMacchina()
{
    // Neither list nor signature nor key: whoever tries the protocol needs none.
    const QByteArray Nuovo = B->ArchivioNuovo();
    const QByteArray Prima = LeggiFile(B->Archivio());
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Annunciate(SoloTassi, false);
    const EsitoScarico Esito = ScaricaTassi(B->Controllato(DalServer()));
    QCOMPARE(Esito.Dettaglio, QString());
    QVERIFY(Esito.Riuscito());
    QVERIFY(LeggiFile(B->Archivio()) == Nuovo);
    QCOMPARE(DataFile(B->Archivio()).date(), QDate(2026, 12, 1));
    const QString Vecchio = sessione::UserFolder + u"Tassi.dat.prima"_s;
    QVERIFY(LeggiFile(Vecchio) == Prima);
    QCOMPARE(DataFile(Vecchio).date(), QDate(2026, 9, 1));
    QCOMPARE(B->Avanzi(), QStringList());
    QVERIFY(!TassiVecchi(QDate(2026, 12, 1)));
}

void TestScarico::tassiFirmati_data()
{
    QTest::addColumn<bool>("DaCartella");
    QTest::newRow("from a server by TLS") << false;
    QTest::newRow("from a folder") << true;
}

void TestScarico::tassiFirmati()
{
    QFETCH(bool, DaCartella);
    const QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Annunciate(SoloTassi);
    B->Firmate();
    Provenienza Da = B->Cartella();
    // Any address but the usual one is another machine's, even where it leads here: the signature is asked
    // for.
    const QString Fiducia = NuovoCertificato(u"IP:127.0.0.2"_s);
    const Servitore Cifrato(Fiducia);
    if (!DaCartella) {
        QVERIFY(QDir().mkpath(Cifrato.Cartella() + u"kr5/setup"_s));
        for (const QString& Nome : {u"versioni.txt"_s, u"versioni.txt.sig"_s, u"tassi.dat"_s})
            QVERIFY(QFile::copy(B->Setup() + Nome, Cifrato.Cartella() + u"kr5/setup/"_s + Nome));
        InstallaReteQt({{}, Fiducia + u"cert.pem"_s});
        Da = {Cifrato.Indirizzo().replace(u"127.0.0.1"_s, u"127.0.0.2"_s), {}};
    }
    const EsitoScarico Esito = ScaricaTassi(B->Controllato(Da));
    QCOMPARE(Esito.Dettaglio, QString());
    QVERIFY(LeggiFile(B->Archivio()) == Nuovo);
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScarico::laDataPiuRecente()
{
    InstallaOrologio([] { return QDateTime(QDate(2027, 1, 15), QTime(10, 0)); });
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    QVERIFY(ScaricaTassi(B->Controllato(DalServer())).Riuscito());
    QCOMPARE(DataFile(B->Archivio()).date(), QDate(2027, 1, 15));
}

void TestScarico::ilFileSiChiamaComeQuiSiChiama()
{
    const QString Maiuscolo = sessione::UserFolder + u"TASSI.DAT"_s;
    QVERIFY(QFile::rename(B->Archivio(), Maiuscolo));
    const QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Annunciate(SoloTassi);
    QVERIFY(ScaricaTassi(B->Controllato(DalServer())).Riuscito());
    QVERIFY(LeggiFile(Maiuscolo) == Nuovo);
    QVERIFY(!EsisteFile(B->Archivio()));
    QVERIFY(!EsisteFile(sessione::UserFolder + u"tassi.dat"_s));
}

void TestScarico::firma_data()
{
    QTest::addColumn<QString>("Guasto");
    QTest::addColumn<bool>("QuestaMacchina");
    QTest::addColumn<bool>("Vale");

    QTest::newRow("folder: signed") << u""_s << false << true;
    QTest::newRow("folder: no signature") << u"senza firma"_s << false << false;
    QTest::newRow("folder: no key here") << u"senza chiave"_s << false << false;
    QTest::newRow("folder: another key") << u"altra chiave"_s << false << false;
    QTest::newRow("folder: a blank more in the list") << u"uno spazio"_s << false << false;
    QTest::newRow("folder: a page as signature") << u"pagina"_s << false << false;
    QTest::newRow("folder: signed, but the file is not in the list") << u"senza elenco"_s << false << false;
    QTest::newRow("this machine: signed") << u""_s << true << true;
    QTest::newRow("this machine: no signature") << u"senza firma"_s << true << true;
    QTest::newRow("this machine: no key here") << u"senza chiave"_s << true << true;
    QTest::newRow("this machine: another key") << u"altra chiave"_s << true << false;
    QTest::newRow("this machine: a blank more in the list") << u"uno spazio"_s << true << false;
    QTest::newRow("this machine: a page as signature") << u"pagina"_s << true << true;
}

void TestScarico::firma()
{
    QFETCH(QString, Guasto);
    QFETCH(bool, QuestaMacchina);
    QFETCH(bool, Vale);
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi, Guasto != u"senza elenco");
    B->Firmate();
    const QString Firma = B->Setup() + u"versioni.txt.sig"_s;
    if (Guasto == u"senza firma")
        QVERIFY(QFile::remove(Firma));
    else if (Guasto == u"senza chiave")
        QVERIFY(QFile::remove(B->FileChiave));
    else if (Guasto == u"altra chiave")
        ScriviFile(B->FileChiave, NuoveChiavi().Pubblica);
    else if (Guasto == u"uno spazio")
        ScriviFile(B->Setup() + u"versioni.txt"_s, LeggiFile(B->Setup() + u"versioni.txt"_s) + ' ');
    else if (Guasto == u"pagina")
        ScriviFile(Firma, "<html>404</html>");
    const EsitoScarico Esito = ScaricaTassi(B->Controllato(QuestaMacchina ? DalServer() : B->Cartella()));
    QCOMPARE(Esito.Riuscito(), Vale);
    QCOMPARE(Esito.Dettaglio, Vale ? QString() : FirmaNonValida);
    QCOMPARE(B->ArchivioIntatto(), !Vale);
    QCOMPARE(EsisteFile(sessione::UserFolder + u"Tassi.dat.prima"_s), Vale);
    QCOMPARE(B->Avanzi(), QStringList());
}

/// A signature that could not be brought is not called none: the disk is full.
void TestScarico::laFirmaNonCiSta()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    B->Firmate();
    const Annuncio Trovato = B->Controllato(B->Cartella());
    const QScopedValueRollback Pieno(guasti::LimiteFile, qint64(10));
    QCOMPARE(ScaricaTassi(Trovato).Dettaglio, DescrizioneErrore(errori::DiscoPieno));
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScarico::serverOstile_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<QString>("Dettaglio");
    QTest::addColumn<bool>("Messaggio");

    QTest::newRow("broken off") << u"spezza@tassi.dat"_s << u"connessione interrotta"_s << true;
    QTest::newRow("without end") << u"infinito@tassi.dat"_s << u"file troppo grande"_s << true;
    QTest::newRow("says less than it sends") << u"piu@tassi.dat"_s << FirmaNonValida << false;
    QTest::newRow("a page") << u"pagina404@tassi.dat"_s << FirmaNonValida << false;
    QTest::newRow("leads elsewhere") << u"altrove@tassi.dat"_s << u"indirizzo non ammesso"_s << true;
    QTest::newRow("the signature is broken off") << u"spezza@.sig"_s << u"connessione interrotta"_s << true;
    QTest::newRow("the signature has no end") << u"infinito@.sig"_s << u"file troppo grande"_s << true;
}

void TestScarico::serverOstile()
{
    QFETCH(QString, Modo);
    QFETCH(bool, Messaggio);
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    B->Firmate();
    if (Messaggio)
        B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    const EsitoScarico Esito = ScaricaTassi(B->Controllato(ConModo(Modo)));
    QVERIFY(!Esito.Riuscito());
    QVERIFY(!Esito.Annullato);
    QTEST(Esito.Dettaglio, "Dettaglio");
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScarico::pezzoMancante()
{
    // In chunks no length is announced, and a cut may pass for the end: the sum of the list does not let it.
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    B->Firmate();
    B->Voce.Tollera();
    QVERIFY(!ScaricaTassi(B->Controllato(ConModo(u"pezzirotti@tassi.dat"_s))).Riuscito());
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScarico::fileScambiato_data()
{
    QTest::addColumn<bool>("DaCartella");
    QTest::newRow("server") << false;
    QTest::newRow("folder") << true;
}

void TestScarico::fileScambiato()
{
    QFETCH(bool, DaCartella);
    QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Annunciate(SoloTassi);
    B->Firmate();
    // As many bytes as the list has, one of them another.
    Nuovo[Nuovo.size() - 1] = char(Nuovo[Nuovo.size() - 1] ^ 1);
    ScriviFile(B->Setup() + u"tassi.dat"_s, Nuovo);
    const EsitoScarico Esito = ScaricaTassi(B->Controllato(DaCartella ? B->Cartella() : DalServer()));
    QCOMPARE(Esito.Dettaglio, FirmaNonValida);
    QVERIFY(B->ArchivioIntatto());
}

void TestScarico::ripropostoUnoVecchio()
{
    // An announcement of last year, with its true signature.
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate("versione=[3.0.13]\n01/03/2026\nnota=");
    B->Firmate();
    const Annuncio Vecchio = B->Controllato(DalServer());
    QVERIFY(!TassiVecchi(Vecchio.Lette.DataTassi));
    QCOMPARE(ScaricaTassi(Vecchio).Dettaglio, u"l'archivio non è più recente di quello in uso"_s);
    QVERIFY(B->ArchivioIntatto());
    // A new announcement, whose archive knows less than the present one.
    OpenDatabase(B->Archivio())
        .Execute(u"INSERT INTO IndiciIstat (Anno, Mese, Indice) VALUES (2031, 1, 131.0)"_s);
    ImpostaDataFile(B->Archivio(), QDateTime(QDate(2026, 9, 1), QTime(9, 0)));
    B->Annunciate(SoloTassi);
    B->Firmate();
    QCOMPARE(ScaricaTassi(B->Controllato(DalServer())).Dettaglio,
             u"la tabella IndiciIstat finisce prima di quella in uso"_s);
    QCOMPARE(DataFile(B->Archivio()).date(), QDate(2026, 9, 1));
}

void TestScarico::mezzoArchivio()
{
    const QByteArray Nuovo = B->ArchivioNuovo();
    ScriviFile(B->Setup() + u"tassi.dat"_s, Nuovo.left(Nuovo.size() / 2));
    B->Annunciate(SoloTassi, false);
    QCOMPARE(ScaricaTassi(B->Controllato(DalServer())).Dettaglio, u"il file non è un archivio di tassi"_s);
    QVERIFY(B->ArchivioIntatto());
}

void TestScarico::discoPieno()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    B->Firmate();
    const Annuncio DiRete = B->Controllato(DalServer());
    const Annuncio DiCartella = B->Controllato(B->Cartella());
    guasti::LimiteFile = 4000;
    B->Voce.Attendi(u"Impossibile salvare il file ricevuto: controllare lo spazio libero su disco."_s, vbOK,
                    u"Errore:"_s);
    QCOMPARE(ScaricaTassi(DiRete).Dettaglio, u"file non scrivibile o disco pieno"_s);
    QCOMPARE(ScaricaTassi(DiCartella).Dettaglio, DescrizioneErrore(errori::DiscoPieno));
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScarico::annullato()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    B->Firmate();
    const EsitoScarico Rete = ScaricaTassi(B->Controllato(ConModo(u"lento@tassi.dat"_s)),
                                           [](qint64, qint64 Totale) { return Totale < 1000000; });
    QVERIFY(Rete.Annullato);
    QCOMPARE(Rete.Dettaglio, u"operazione annullata"_s);
    const EsitoScarico Cartella =
        ScaricaTassi(B->Controllato(B->Cartella()), [](qint64 Copiati, qint64) { return Copiati < 1000; });
    QVERIFY(Cartella.Annullato);
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

namespace {

/// A transfer that comes to its end while it is asked to stop.
class FinitoNelFrattempo final : public Trasferimento
{
public:
    explicit FinitoNelFrattempo(std::unique_ptr<Trasferimento> Quello) : Vero(std::move(Quello)) {}
    bool Attendi(int) override { return std::exchange(Chiesto, true) && Vero->Attendi(AttesaMs); }
    FineRete Fine() const override { return Vero->Fine(); }
    qint64 Ricevuti() const override { return Vero->Ricevuti(); }
    qint64 Totale() const override { return Vero->Totale(); }
    void Annulla() override {}

private:
    static constexpr int AttesaMs = 10000;

    std::unique_ptr<Trasferimento> Vero;
    bool Chiesto = false;
};

}  // namespace

/// The signature is brought first: who stops while its last byte comes wants nothing of the archive.
void TestScarico::annullatoAllaFineDiUnFile()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    const Annuncio Trovato = B->Controllato(DalServer());
    Rete Tavola = InstallaRete({});
    Tavola.Avvia = [Vera = Tavola.Avvia](const RichiestaRete& Chiesta) {
        return std::make_unique<FinitoNelFrattempo>(Vera(Chiesta));
    };
    InstallaRete(std::move(Tavola));
    int Volte = 0;
    const EsitoScarico Esito = ScaricaTassi(Trovato, [&](qint64, qint64) { return ++Volte > 1; });
    QVERIFY(!Esito.Riuscito());
    QVERIFY(Esito.Annullato);
    QCOMPARE(Esito.Dettaglio, u"operazione annullata"_s);
    QVERIFY(!B->Server.Uditi().contains("/tassi.dat "));
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestScarico::archivioMancante()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    const Annuncio Trovato = B->Controllato(DalServer());
    QVERIFY(QFile::remove(B->Archivio()));
    QVERIFY(!ScaricaTassi(Trovato).Riuscito());
    QVERIFY(!EsisteFile(B->Archivio()));
}

void TestScarico::archivioInUso()
{
    // A calculator that asks its question has the former archive open, and goes on with it.
    const auto UltimoAnno = [](const Database& Archivio) {
        Recordset Indici = Archivio.OpenRecordset(u"SELECT MAX(Anno) AS Ultimo FROM IndiciIstat"_s);
        return Indici.Value(u"Ultimo"_s).toInt();
    };
    const Database Aperto = OpenDatabase(B->Archivio(), true);
    Recordset Righe = Aperto.OpenRecordset(u"IndiciIstat"_s);
    QCOMPARE(UltimoAnno(Aperto), 2026);
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    QCOMPARE(ScaricaTassi(B->Controllato(DalServer())).Dettaglio, QString());
    Righe.MoveLast();
    QCOMPARE(Righe.Value(u"Anno"_s).toInt(), 2026);
    QCOMPARE(UltimoAnno(OpenDatabase(B->Archivio(), true)), 2030);
}

void TestScarico::dueAllaVolta()
{
    // What another program is bringing is not touched, and the last one to be complete stays.
    const QString Altro = sessione::UserFolder + u"Tassi.dat.77-1.parziale"_s;
    ScriviFile(Altro, "meta'");
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    const Annuncio Trovato = B->Controllato(DalServer());
    QVERIFY(ScaricaTassi(Trovato).Riuscito());
    QCOMPARE(LeggiFile(Altro), "meta'"_ba);
    QVERIFY(Provvisorio(u"x"_s) != Provvisorio(u"x"_s));
    // Whatever the user's folder is called, the file stands in it.
    for (const QString& Nome : {u"/x/a%1/v"_s, u"/x/a%2Cb/v"_s, u"/x/100%3/v"_s, u"/x/%4/v"_s})
        QVERIFY2(Provvisorio(Nome).startsWith(Nome + u'.'), qPrintable(Provvisorio(Nome)));
}

// ---- the end of the program ---------------------------------------------------------------------

void TestScarico::uccisoDuranteIlTrasferimento()
{
    // The part of the program that is killed: it is told where everything is, and never comes to an end.
    if (qEnvironmentVariableIsSet("CALCANOVA_UCCISO")) {
        sessione::UserFolder = qEnvironmentVariable("CALCANOVA_UCCISO");
        Annuncio Trovato;
        const Provenienza Da{qEnvironmentVariable("CALCANOVA_SERVER"), {}};
        QVERIFY(ControlloVersioni(Da, false, Trovato));
        (void)ScaricaTassi(Trovato);
        return;
    }
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    QProcess Altro;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    Ambiente.insert(u"TMPDIR"_s, NuovaCartella());  // killed, it tidies nothing up
    Ambiente.insert(u"CALCANOVA_UCCISO"_s, sessione::UserFolder);
    Ambiente.insert(u"CALCANOVA_SERVER"_s, B->Server.Indirizzo(u"lento@tassi.dat"_s));
    Altro.setProcessEnvironment(Ambiente);
    Altro.start(QCoreApplication::applicationFilePath(),
                {u"TestScarico"_s, u"uccisoDuranteIlTrasferimento"_s});
    const auto DeiTassi = [this] { return B->Avanzi().filter(u"Tassi.dat"_s); };
    QTRY_VERIFY_WITH_TIMEOUT(!DeiTassi().isEmpty(), 20000);
    Altro.kill();
    QVERIFY(Altro.waitForFinished());
    QVERIFY(B->ArchivioIntatto());
    const QString Rimasto = sessione::UserFolder + DeiTassi().first();
    ImpostaDataFile(Rimasto, QDateTime::currentDateTime().addSecs(-120));
    QVERIFY(ScaricaTassi(B->Controllato(DalServer())).Riuscito());
    QCOMPARE(B->Avanzi(), QStringList());
}

// ---- what is asked of the network ---------------------------------------------------------------

namespace {

/// A transfer that has ended already.
class Arrivato : public Trasferimento
{
public:
    bool Attendi(int) override { return true; }
    [[nodiscard]] FineRete Fine() const override { return FineRete::Completa; }
    [[nodiscard]] qint64 Ricevuti() const override { return 0; }
    [[nodiscard]] qint64 Totale() const override { return -1; }
    void Annulla() override {}
};

}  // namespace

void TestScarico::limiti()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(TutteNuove);
    B->Firmate();
    QStringList Chieste;
    Rete Tavola;
    Tavola.Avvia = [&](const RichiestaRete& Chiesta) {
        const QString Nome = Chiesta.Indirizzo.section(u'/', -1);
        Chieste << u"%1 %2 %3 %4 %5"_s.arg(Nome)
                       .arg(Chiesta.MassimoByte)
                       .arg(Chiesta.ConnessioneMs)
                       .arg(Chiesta.SilenzioMs)
                       .arg(QString::fromLatin1(Chiesta.Agente));
        ScriviFile(Chiesta.File, LeggiFile(B->Setup() + Nome));
        return std::make_unique<Arrivato>();
    };
    InstallaRete(std::move(Tavola));

    const Annuncio Trovato = B->Controllato({u"https://aggiorna.example"_s, {}});
    QCOMPARE(ScaricaTassi(Trovato).Dettaglio, QString());
    QCOMPARE(ScaricaProgramma(Trovato).Dettaglio, QString());
    const QString Altro = u" 15000 15000 Calcanova/3.0.14"_s;
    QCOMPARE(Chieste, (QStringList{u"versioni.txt 65536"_s + Altro, u"versioni.txt.sig 65536"_s + Altro,
                                   u"tassi.dat 33554432"_s + Altro, u"versioni.txt.sig 65536"_s + Altro,
                                   u"upgrade3.0.15.exe 1073741824"_s + Altro}));
}

void TestScarico::primaSulDisco_data()
{
    QTest::addColumn<bool>("Tassi");
    QTest::newRow("the archive") << true;
    QTest::newRow("the installer") << false;
}

void TestScarico::primaSulDisco()
{
    QFETCH(bool, Tassi);
    const QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(TutteNuove);
    QList<QByteArray> Scritti;
    guasti::PrimaDelDisco = [&](const QString& File) {
        Scritti << LeggiFile(File);
        // What is in use is still the former file.
        return B->ArchivioIntatto() && !EsisteFile(CartellaUpgrade() + u"upgrade3.0.15.exe"_s);
    };
    const QByteArray Prima = LeggiFile(B->Archivio());
    const Annuncio Trovato = B->Controllato(DalServer());
    QCOMPARE((Tassi ? ScaricaTassi(Trovato) : ScaricaProgramma(Trovato)).Dettaglio, QString());
    QVERIFY(Scritti == (Tassi ? QList<QByteArray>{Prima, Nuovo} : QList<QByteArray>{"installatore"}));
}

void TestScarico::ilDiscoRifiuta()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(TutteNuove);
    guasti::PrimaDelDisco = [](const QString&) { return false; };
    const Annuncio Trovato = B->Controllato(DalServer());
    QVERIFY(!ScaricaTassi(Trovato).Riuscito());
    QVERIFY(!ScaricaProgramma(Trovato).Riuscito());
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(QDir(CartellaUpgrade()).entryList(QDir::Files | QDir::Hidden), QStringList());
    QCOMPARE(B->Avanzi(), QStringList());
}

#include "TestScarico.moc"
