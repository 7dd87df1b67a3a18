// The search at the start: beside the event loop, once a window is there, and never over a box.
#include "supporto/guasti.h"
#include "supporto/mani.h"
#include "update/banco.h"

#include "platform/kit/singola.h"
#include "update/windows/frmUpgrade.h"
#include "update/windows/ricerca.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <array>

class TestRicerca : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void senzaServer();
    void nonTrattiene();
    void fallita_data();
    void fallita();
    void nienteDiNuovo();
    void detteNo();
    void detteSi();
    void aspettaUnaFinestra();
    void nonSopraUnaScatola();
    void nonDuranteUnTrascinamento();
    void chiHaApertoIlModuloNonELaDomanda();
    void conLaTracciaArrivaInFondo();
    void laTracciaDiUnaFallita();
    void laTracciaNonAspettaDiPiu();
    void laTracciaSenzaCartella();
    void quantoAspetta_data();
    void quantoAspetta();
    void fineDelProgramma();

private:
    /// Lets the events through for some ticks of the search.
    static void Passa(int Ms = 200) { QTest::qWait(Ms); }
    /// What the search grants to a whole transfer is cut down to this; what it asks for is `quantoAspetta`'s.
    static void ConPocoTempo();

    static constexpr int PocoMs = 300;

    std::unique_ptr<BancoAggiornamenti> B;
    std::unique_ptr<QWidget> Finestra;
};
PROVA(TestRicerca);

namespace {

const QString Fallita =
    u"Se la postazione non è mai collegata ad internet, è possibile disattivare la ricerca "
    u"automatica degli aggiornamenti nel pannello \"Personalizzazioni programma->Setup\""_s;
const QString Proposta = u"Sono presenti dei nuovi aggiornamenti del programma.\nNuovi tassi\n"
                         u"Vuoi procedere con l'aggiornamento?"_s;

}  // namespace

void TestRicerca::init()
{
    B = std::make_unique<BancoAggiornamenti>();
    sessione::CercaAgg = true;
    Finestra = std::make_unique<QWidget>();
    Finestra->show();
}

void TestRicerca::ConPocoTempo()
{
    Rete Tavola = InstallaRete({});
    Tavola.Avvia = [Vera = Tavola.Avvia](RichiestaRete Chiesta) {
        Chiesta.TotaleMs = std::min(Chiesta.TotaleMs, PocoMs);
        return Vera(Chiesta);
    };
    InstallaRete(std::move(Tavola));
}

void TestRicerca::cleanup()
{
    Finestra.reset();
    delete SeCaricato<frmUpgrade>.data();
    Respiro();
    B.reset();
}

void TestRicerca::senzaServer()
{
    sessione::ServerAggiornamenti.clear();
    for (const bool Traccia : {false, true}) {
        sessione::ModoDebug = Traccia;
        CercaAggiornamenti();
        Passa();
        QVERIFY(B->Voce.Mostrati().isEmpty());
        QCOMPARE(sessione::TestoDebug, QString());
    }
    QVERIFY(B->Server.Uditi().isEmpty());
    QVERIFY(!sessione::CercaAgg);
}

void TestRicerca::nonTrattiene()
{
    B->Annunciate(TutteNuove);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"fermo"_s);
    ConPocoTempo();
    CercaAggiornamenti();
    QVERIFY2(B->Server.Uditi().isEmpty(), "it begins behind whoever has asked for it");
    QVERIFY(!sessione::CercaAgg);
    // A server that never ends is given up when the time of the whole is over.
    QTRY_VERIFY(!B->Server.Uditi().isEmpty());
    QElapsedTimer Tempo;
    Tempo.start();
    B->Voce.Attendi(Fallita, vbOK, u"Messaggio:"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!B->Voce.Mostrati().isEmpty(), 20000);
    QVERIFY(Tempo.elapsed() < 15000);
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestRicerca::fallita_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<QByteArray>("Righe");

    QTest::newRow("nobody answers") << u""_s << TutteNuove;
    QTest::newRow("broken off") << u"spezza"_s << TutteNuove;
    QTest::newRow("an error page") << u"pagina404"_s << TutteNuove;
    QTest::newRow("no date") << u"piano"_s << QByteArray("versione=[3.0.15]\n\n");
}

void TestRicerca::fallita()
{
    QFETCH(QString, Modo);
    QFETCH(QByteArray, Righe);
    B->Annunciate(Righe, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(Modo);
    if (Modo.isEmpty())
        B->Server.Ferma();
    // One sentence, and none of the messages of a check that somebody has asked for.
    B->Voce.Attendi(Fallita, vbOK, u"Messaggio:"_s);
    CercaAggiornamenti();
    QTRY_COMPARE(B->Voce.Mostrati().size(), 1);
    Passa();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestRicerca::nienteDiNuovo()
{
    B->Annunciate(NienteDiNuovo, false);
    CercaAggiornamenti();
    QTRY_COMPARE(sessione::VersioneDisp, u"3.0.14"_s);
    Passa();
    QVERIFY(B->Voce.Mostrati().isEmpty());
    QVERIFY(!SeCaricato<frmUpgrade>);
}

void TestRicerca::detteNo()
{
    B->Annunciate(TutteNuove, false);
    B->Voce.Attendi(Proposta, vbNo, u"Domanda:"_s);
    CercaAggiornamenti();
    QTRY_COMPARE(B->Voce.Mostrati().size(), 1);
    Passa();
    QVERIFY(!SeCaricato<frmUpgrade>);
    QCOMPARE(B->Server.Uditi().count("GET "), 1);
}

void TestRicerca::detteSi()
{
    B->Annunciate(TutteNuove, false);
    B->Voce.Attendi(Proposta, vbYes, u"Domanda:"_s);
    bool Modale = false;
    bool Cercato = false;
    QTimer Sveglia;
    connect(&Sveglia, &QTimer::timeout, this, [&] {
        frmUpgrade* Modulo = SeCaricato<frmUpgrade>;
        if (!Modulo || !Controllo(Modulo, "fraUpgrade")->isVisible())
            return;
        Cercato = true;
        Modale = QApplication::activeModalWidget() == Modulo;
        Modulo->close();
    });
    Sveglia.start(20);
    CercaAggiornamenti();
    QTRY_VERIFY(Cercato);
    QVERIFY(Modale);
    QCOMPARE(B->Server.Uditi().count("GET "), 2);
}

void TestRicerca::aspettaUnaFinestra()
{
    Finestra->hide();
    Passa(50);
    B->Annunciate(NienteDiNuovo, false);
    CercaAggiornamenti();
    Passa();
    QVERIFY2(B->Server.Uditi().isEmpty(), "nothing is loaded before the first window is painted");
    Finestra->show();
    QTRY_VERIFY(!B->Server.Uditi().isEmpty());
    QTRY_COMPARE(sessione::VersioneDisp, u"3.0.14"_s);
}

void TestRicerca::nonSopraUnaScatola()
{
    B->Annunciate(TutteNuove, false);
    QDialog Scatola;
    Scatola.setModal(true);
    Scatola.show();
    CercaAggiornamenti();
    QTRY_VERIFY(!B->Server.Uditi().isEmpty());
    Passa();
    QVERIFY(B->Voce.Mostrati().isEmpty());
    QCOMPARE(sessione::VersioneDisp, QString());
    B->Voce.Attendi(Proposta, vbNo, u"Domanda:"_s);
    Scatola.close();
    QTRY_COMPARE(B->Voce.Mostrati().size(), 1);
}

void TestRicerca::nonDuranteUnTrascinamento()
{
    B->Annunciate(TutteNuove, false);
    QTest::mousePress(Finestra->windowHandle(), Qt::LeftButton);
    CercaAggiornamenti();
    QTRY_VERIFY(!B->Server.Uditi().isEmpty());
    Passa();
    QVERIFY(B->Voce.Mostrati().isEmpty());
    B->Voce.Attendi(Proposta, vbNo, u"Domanda:"_s);
    QTest::mouseRelease(Finestra->windowHandle(), Qt::LeftButton);
    QTRY_COMPARE(B->Voce.Mostrati().size(), 1);
}

void TestRicerca::chiHaApertoIlModuloNonELaDomanda()
{
    B->Annunciate(TutteNuove, false);
    Singola<frmUpgrade>().Mostra();
    CercaAggiornamenti();
    QTRY_VERIFY(!B->Server.Uditi().isEmpty());
    Passa();
    QVERIFY(B->Voce.Mostrati().isEmpty());
    QCOMPARE(B->Avanzi(), QStringList());
    Singola<frmUpgrade>().close();
    Passa();
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

void TestRicerca::conLaTracciaArrivaInFondo()
{
    sessione::ModoDebug = true;
    B->Annunciate(TutteNuove, false);
    B->Voce.Attendi(Proposta, vbNo, u"Domanda:"_s);
    CercaAggiornamenti();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QCOMPARE(sessione::TestoDebug,
             u"- avvio ricerca aggiornamenti- controllo versione programma\n- controllo indici Istat\n"_s);
}

void TestRicerca::laTracciaDiUnaFallita()
{
    sessione::ModoDebug = true;
    B->Server.Ferma();
    B->Voce.Attendi(Fallita, vbOK, u"Messaggio:"_s);
    CercaAggiornamenti();
    QCOMPARE(sessione::TestoDebug, u"- avvio ricerca aggiornamenti"_s);
}

void TestRicerca::laTracciaNonAspettaDiPiu()
{
    // The limits are those of the search beside the event loop, not those of a check that is asked for.
    sessione::ModoDebug = true;
    B->Annunciate(TutteNuove, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"fermo"_s);
    B->Voce.Attendi(Fallita, vbOK, u"Messaggio:"_s);
    ConPocoTempo();
    QElapsedTimer Tempo;
    Tempo.start();
    CercaAggiornamenti();
    QVERIFY(Tempo.elapsed() >= PocoMs);
    QVERIFY(Tempo.elapsed() < 12000);
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestRicerca::laTracciaSenzaCartella()
{
    // Where no folder can be made nothing is searched, and whoever has called goes on.
    sessione::ModoDebug = true;
    const QString File = NuovaCartella() + u"file"_s;
    ScriviFile(File, "x");
    sessione::UserFolder = File + u"/utente/"_s;
    QVERIFY2(NumeroErrore(CercaAggiornamenti) == 0, "the activation is unwound");
    QVERIFY(B->Voce.Mostrati().isEmpty());
    QVERIFY(B->Server.Uditi().isEmpty());
}

void TestRicerca::quantoAspetta_data()
{
    QTest::addColumn<bool>("Traccia");
    QTest::newRow("beside the event loop") << false;
    QTest::newRow("with the trace") << true;
}

void TestRicerca::quantoAspetta()
{
    QFETCH(bool, Traccia);
    sessione::ModoDebug = Traccia;
    B->Annunciate(NienteDiNuovo, false);
    Rete Tavola = InstallaRete({});
    const auto Vera = Tavola.Avvia;
    QList<std::array<qint64, 3>> Chiesti;
    Tavola.Avvia = [&](const RichiestaRete& Chiesta) {
        Chiesti.append({Chiesta.ConnessioneMs, Chiesta.TotaleMs, Chiesta.MassimoByte});
        return Vera(Chiesta);
    };
    InstallaRete(std::move(Tavola));
    CercaAggiornamenti();
    QTRY_COMPARE(sessione::VersioneDisp, u"3.0.14"_s);
    QCOMPARE(Chiesti.size(), 1);
    QCOMPARE(Chiesti[0][0], 4000);
    QCOMPARE(Chiesti[0][1], 8000);
    QCOMPARE(Chiesti[0][2], 64 << 10);
}

void TestRicerca::fineDelProgramma()
{
    // What is on its way ends with the program, and leaves nothing.
    B->Annunciate(TutteNuove, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"fermo"_s);
    CercaAggiornamenti();
    QTimer Sveglia;
    connect(&Sveglia, &QTimer::timeout, this, [&] {
        if (!B->Avanzi().isEmpty())
            QCoreApplication::quit();
    });
    Sveglia.start(20);
    QElapsedTimer Tempo;
    Tempo.start();
    QApplication::exec();
    QVERIFY(Tempo.elapsed() < 7000);
    QCOMPARE(B->Avanzi(), QStringList());
    Passa();
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

#include "TestRicerca.moc"
