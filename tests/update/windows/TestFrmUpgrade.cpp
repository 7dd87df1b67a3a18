// The form of updates, driven as its user does.
#include "supporto/mani.h"
#include "update/banco.h"

#include "core/aperture.h"
#include "core/posti.h"
#include "core/versione.h"
#include "platform/kit/servizi_qt.h"
#include "update/windows/frmUpgrade.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

class TestFrmUpgrade : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void cosaEInUso();
    void tuttoHaUnNome();
    void ordineDelTab();
    void senzaServer();
    void novita();
    void giaAggiornato();
    void casi_data();
    void casi();
    void laNotaETestoSemplice();
    void laMisura();
    void conRunLaVerificaParteDaSola();
    void modale();
    void verificaFallita_data();
    void verificaFallita();
    void senzaDataDeiTassi_data();
    void senzaDataDeiTassi();
    void daFile();
    void daFileAnnullato();
    void daFileSenzaFirma();
    void soloTassi();
    void tassiFalliti();
    void tassiFallitiPoiProgramma();
    void entrambi();
    void programma();
    void invioFaIlProssimoPasso();
    void programmaFallito();
    void avvioFallito();
    void pacchettoSenzaInstallatore();
    void noteModificate_data();
    void noteModificate();
    void cambiatoPrimaDellAvvio();
    void avanzamentoEAnnulla_data();
    void avanzamentoEAnnulla();
    void durantePremereNonFaAltro();

private:
    void Apri(const QString& Parola = {});
    void Clicca(const char* Nome);
    [[nodiscard]] QString Testo(const char* Nome) const { return TestoDi(F.get(), Nome); }
    [[nodiscard]] bool SiVede(const char* Nome) const { return Controllo(F.get(), Nome)->isVisible(); }
    void ConProgramma(const QString& Nome = u"upgrade3.0.15.exe"_s);

    std::unique_ptr<BancoAggiornamenti> B;
    std::unique_ptr<frmUpgrade> F;
};
PROVA(TestFrmUpgrade);

namespace {

const QString Iniziale =
    u"Clicca sul pulsante di verifica per controllare la presenza di nuovi aggiornamenti..."_s;
const QString Pronto = u"Clicca sul pulsante Aggiorna per avviare l'aggiornamento..."_s;
const QString Completato = u"L'aggiornamento dell'archivio è stato correttamente completato."_s;
const QString Scaricato = u"Il download è stato correttamente completato.\n"
                          "Il programma verrà ora chiuso ed avviato l'aggiornamento."_s;
const QString TassiErrore =
    u"Errore di download dell'archivio indici interessi. Contatattare l'assistenza."_s;

QString ProgrammaErrore(const QString& Dettaglio)
{
    return u"Errore di download del file di aggiornamento upgrade3.0.15.exe ("_s + Dettaglio +
           u"). Contatattare l'assistenza."_s;
}

}  // namespace

void TestFrmUpgrade::init()
{
    B = std::make_unique<BancoAggiornamenti>();
    Aperture = {};
    AzzeraParcelle();
}

void TestFrmUpgrade::cleanup()
{
    F.reset();
    B.reset();
    Aperture = {};
    AzzeraParcelle();
}

void TestFrmUpgrade::Apri(const QString& Parola)
{
    F = std::make_unique<frmUpgrade>();
    F->Mostra(Parola);
    QVERIFY(QTest::qWaitForWindowActive(F.get()));
}

void TestFrmUpgrade::Clicca(const char* Nome)
{
    auto* Bottone = Controllo<QPushButton>(F.get(), Nome);
    QVERIFY2(Bottone->isVisible() && Bottone->isEnabled(), Nome);
    Clic(Bottone);
}

void TestFrmUpgrade::ConProgramma(const QString& Nome)
{
    B->Posa(Nome, "installatore");
    B->Annunciate(SoloProgramma);
    Apri();
    Clicca("cmdVerifica");
}

void TestFrmUpgrade::cosaEInUso()
{
    Apri();
    QCOMPARE(F->windowTitle(), u"Aggiornamento programma ed archivi"_s);
    QCOMPARE(Testo("lblVersione"), VersioneProgramma());
    QCOMPARE(Testo("lblArchivio"), u"01/09/2026"_s);
    QCOMPARE(Testo("lblStatus"), Iniziale);
    QCOMPARE(Controllo<QPushButton>(F.get(), "cmdPreview")->text().remove(u'&'),
             u"Clicca, per scoprire le nuove funzionalità del programma"_s);
    QCOMPARE(Controllo<QPushButton>(F.get(), "cmdVerifica")->text(), u"&Verifica aggiornamenti"_s);
    QVERIFY(!SiVede("fraUpgrade"));
    QVERIFY(!SiVede("fraAvanza"));
    F->close();
    QVERIFY(QFile::remove(B->Archivio()));
    F->Mostra();
    QCOMPARE(Testo("lblArchivio"), u"archivio mancante"_s);
}

void TestFrmUpgrade::tuttoHaUnNome()
{
    Apri();
    QCOMPARE(SenzaNome(F.get()), QStringList());
}

void TestFrmUpgrade::ordineDelTab()
{
    B->Annunciate(TutteNuove, false);
    Apri();
    QCOMPARE(OrdineTab(Controllo(F.get(), "cmdVerifica"), 4),
             (QStringList{u"cmdVerifica"_s, u"cmdFile"_s, u"cmdPreview"_s, u"cmdChiudi"_s}));
    Clicca("cmdVerifica");
    QCOMPARE(NomeFuoco(), u"cmdUpgrade"_s);
    QCOMPARE(OrdineTab(Controllo(F.get(), "cmdVerifica"), 6),
             (QStringList{u"cmdVerifica"_s, u"cmdFile"_s, u"txtNota"_s, u"cmdUpgrade"_s, u"cmdPreview"_s,
                          u"cmdChiudi"_s}));
    Premi(Qt::Key_Escape);
    QVERIFY(!F->isVisible());
}

void TestFrmUpgrade::senzaServer()
{
    sessione::ServerAggiornamenti.clear();
    Apri(u"run"_s);
    QCOMPARE(Testo("lblStatus"),
             u"Nessun server di aggiornamento è impostato: con \"Da file...\" si aggiorna da una "
             u"cartella, per esempio di una chiavetta."_s);
    QVERIFY(!Controllo(F.get(), "cmdVerifica")->isEnabled());
    QCOMPARE(NomeFuoco(), u"cmdFile"_s);
    QVERIFY(B->Server.Uditi().isEmpty());
    // One that is named meanwhile counts when the window comes up again.
    F->close();
    sessione::ServerAggiornamenti = B->Server.Indirizzo();
    F->Mostra();
    QCOMPARE(Testo("lblStatus"), Iniziale);
    QVERIFY(Controllo(F.get(), "cmdVerifica")->isEnabled());
}

void TestFrmUpgrade::novita()
{
    // No server has pages yet: the document beside the program is shown.
    Shell Tavola = InstallaShell({});
    Tavola.ApriPdf = [this](const QString& File, int) {
        B->Eventi << u"pdf "_s + NomeFile(File);
        return 0;
    };
    InstallaShell(std::move(Tavola));
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"NovitaKR5.pdf"_s, "%PDF-1.4");
    Apri();
    Clicca("cmdPreview");
    QCOMPARE(B->Eventi, QStringList{u"pdf NovitaKR5.pdf"_s});
}

void TestFrmUpgrade::giaAggiornato()
{
    B->Annunciate(NienteDiNuovo);
    Apri();
    B->Voce.Attendi(u"Il programma è già aggiornato all'ultima versione disponibile."_s, vbOK,
                    u"Avvertenza:"_s);
    Clicca("cmdVerifica");
    QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbExclamation);
    QVERIFY(!SiVede("fraUpgrade"));
    QCOMPARE(Testo("lblStatus"), Iniziale);
}

void TestFrmUpgrade::casi_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QString>("Cosa");
    QTest::addColumn<QString>("Pulsante");

    const QString Programma = u"del programma alla versione 3.0.15"_s;
    QTest::newRow("the program") << SoloProgramma << Programma << u"Aggiorna alla versione 3.0.15"_s;
    QTest::newRow("the rates") << SoloTassi << u"degli indici di interesse e rivalutazione"_s
                               << u"Aggiorna indici di interesse"_s;
    QTest::newRow("both: the program's words")
        << TutteNuove << Programma << u"Aggiorna alla versione 3.0.15"_s;
}

void TestFrmUpgrade::casi()
{
    QFETCH(QByteArray, Righe);
    QFETCH(QString, Cosa);
    QFETCH(QString, Pulsante);
    B->Annunciate(Righe, false);
    Apri();
    Clicca("cmdVerifica");
    QVERIFY(SiVede("fraUpgrade"));
    QCOMPARE(
        Testo("lblUpgrade"),
        u"E' presente un aggiornamento "_s + Cosa +
            u"\nDopo il download il programma verrà riavviato, chiudere pertanto le parcelle in lavorazione "
            u"prima di procedere con l'upgrade."_s);
    QCOMPARE(Controllo<QPushButton>(F.get(), "cmdUpgrade")->text(), Pulsante);
    QCOMPARE(Testo("lblStatus"), Pronto);
    QVERIFY(!SiVede("fraAvanza"));
}

void TestFrmUpgrade::laNotaETestoSemplice()
{
    B->Annunciate("versione=[3.0.15]\n01/12/2026\nnota=<b>Nuovi</b> tassi <img src=\"http://x/y\">", false);
    Apri();
    Clicca("cmdVerifica");
    QCOMPARE(Controllo<QPlainTextEdit>(F.get(), "txtNota")->toPlainText(),
             u"<b>Nuovi</b> tassi <img src=\"http://x/y\">"_s);
    QVERIFY(Controllo<QPlainTextEdit>(F.get(), "txtNota")->isReadOnly());
    for (const char* Nome : {"lblUpgrade", "lblStatus", "lblMisura"})
        QCOMPARE(Controllo<QLabel>(F.get(), Nome)->textFormat(), Qt::PlainText);
    // Without a note there is no box for it.
    B->Annunciate(SoloTassi, false);
    Clicca("cmdVerifica");
    QVERIFY(!SiVede("txtNota"));
}

void TestFrmUpgrade::laMisura()
{
    B->Posa(u"tassi.dat"_s, QByteArray(100 << 10, 'x'));
    B->Posa(u"upgrade3.0.15.exe"_s, QByteArray(3 << 20, 'x'));
    B->Annunciate(TutteNuove);
    Apri();
    Clicca("cmdVerifica");
    QCOMPARE(Testo("lblMisura"), u"Da scaricare: 3,1 MB"_s);
    B->Annunciate(SoloTassi);
    Clicca("cmdVerifica");
    QCOMPARE(Testo("lblMisura"), u"Da scaricare: 100 KB"_s);
    B->Annunciate(SoloTassi, false);
    Clicca("cmdVerifica");
    QCOMPARE(Testo("lblMisura"), QString());
}

void TestFrmUpgrade::conRunLaVerificaParteDaSola()
{
    B->Annunciate(SoloProgramma, false);
    Apri();
    QVERIFY(B->Server.Uditi().isEmpty());
    F->Mostra(u"run"_s);
    QVERIFY(SiVede("fraUpgrade"));
    // What is downloaded waits for its button.
    QCOMPARE(B->Server.Uditi().count("GET "), 1);
    QVERIFY(B->Server.Uditi().contains("/kr5/setup/versioni.txt "));
}

void TestFrmUpgrade::modale()
{
    B->Annunciate(SoloProgramma, false);
    F = std::make_unique<frmUpgrade>();
    F->Mostra();
    QVERIFY(!F->isModal());
    bool Modale = false;
    bool Trovato = false;
    QTimer Sveglia;
    QObject::connect(&Sveglia, &QTimer::timeout, this, [&] {
        if (!SiVede("fraUpgrade"))
            return;
        Trovato = true;
        Modale = QApplication::activeModalWidget() == F.get();
        F->close();
    });
    Sveglia.start(20);
    F->MostraModale(u"run"_s);
    QVERIFY(Trovato);
    QVERIFY(Modale);
    F->Mostra();
    QVERIFY(!F->isModal());
}

void TestFrmUpgrade::verificaFallita_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QString>("Perche");

    QTest::newRow("a page") << QByteArray("<html>")
                            << u"Errore (Invalid Version) nel recupero delle informazioni di aggiornamento."_s
                            << u"file delle versioni illeggibile"_s;
    QTest::newRow("no server") << QByteArray() << SenzaConnessione << u"nessuna connessione"_s;
}

void TestFrmUpgrade::verificaFallita()
{
    QFETCH(QByteArray, Righe);
    QFETCH(QString, Messaggio);
    QFETCH(QString, Perche);
    B->Annunciate(TutteNuove, false);
    Apri(u"run"_s);
    QVERIFY(SiVede("fraUpgrade"));
    if (Righe.isEmpty())
        B->Server.Ferma();
    else
        B->Annunciate(Righe, false);
    B->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Clicca("cmdVerifica");
    QVERIFY2(!SiVede("fraUpgrade"), "nothing of the check before is offered");
    QCOMPARE(Testo("lblStatus"), u"La verifica non è riuscita: "_s + Perche + u'.');
    QVERIFY(Controllo(F.get(), "cmdVerifica")->isEnabled());
}

void TestFrmUpgrade::senzaDataDeiTassi_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<bool>("Offerto");

    QTest::newRow("one line") << QByteArray("versione=[3.0.15]") << true;
    QTest::newRow("an empty second line") << QByteArray("versione=[3.0.15]\n\nnota=x") << true;
    QTest::newRow("no date there") << QByteArray("versione=[3.0.15]\ndomani mattina\nnota=x") << true;
    QTest::newRow("nor a newer version") << QByteArray("versione=[3.0.14]") << false;
}

void TestFrmUpgrade::senzaDataDeiTassi()
{
    QFETCH(QByteArray, Righe);
    QFETCH(bool, Offerto);
    B->Annunciate(Righe, false);
    Apri();
    if (!Offerto)
        B->Voce.Attendi(u"Il programma è già aggiornato all'ultima versione disponibile."_s);
    Clicca("cmdVerifica");
    QCOMPARE(SiVede("fraUpgrade"), Offerto);
    QCOMPARE(Testo("lblStatus"), Offerto ? Pronto : Iniziale);
    if (Offerto)
        QCOMPARE(Controllo<QPushButton>(F.get(), "cmdUpgrade")->text(), u"Aggiorna alla versione 3.0.15"_s);
}

void TestFrmUpgrade::daFile()
{
    sessione::ServerAggiornamenti.clear();
    const QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Annunciate(SoloTassi);
    B->Firmate();
    Apri();
    B->Voce.AttendiApri(B->Setup() + u"versioni.txt"_s);
    Clicca("cmdFile");
    QCOMPARE(B->Voce.FiltroDialogo(), u"Elenco delle versioni (versioni.txt)|versioni.txt"_s);
    QVERIFY(SiVede("fraUpgrade"));
    B->Voce.Attendi(Completato, vbOK, u"Avvertenza:"_s);
    Clicca("cmdUpgrade");
    QVERIFY(LeggiFile(B->Archivio()) == Nuovo);
    QVERIFY(B->Server.Uditi().isEmpty());
}

void TestFrmUpgrade::daFileAnnullato()
{
    Apri();
    B->Voce.AttendiApri({});
    Clicca("cmdFile");
    QCOMPARE(Testo("lblStatus"), Iniziale);
}

void TestFrmUpgrade::daFileSenzaFirma()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    Apri();
    B->Voce.AttendiApri(B->Setup() + u"versioni.txt"_s);
    Clicca("cmdFile");
    B->Voce.Attendi(TassiErrore, vbOK, u"Errore:"_s);
    Clicca("cmdUpgrade");
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(Testo("lblStatus"), Pronto + u"\n> Download archivio indici interessi: firma non valida"_s);
}

void TestFrmUpgrade::soloTassi()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    int Avvisati = 0;
    Aperture.TassiCambiati = [&] {
        ++Avvisati;
        QCOMPARE(DataFile(B->Archivio()).date(), QDate(2026, 12, 1));
    };
    Apri();
    Clicca("cmdVerifica");
    B->Voce.Attendi(Completato, vbOK, u"Avvertenza:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbExclamation);
    QCOMPARE(Avvisati, 1);
    QVERIFY(!SiVede("fraUpgrade"));
    QCOMPARE(Testo("lblStatus"), Iniziale);
    QCOMPARE(Testo("lblArchivio"), u"01/12/2026"_s);
    QCOMPARE(B->Eventi, QStringList());
}

void TestFrmUpgrade::tassiFalliti()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"spezza@tassi.dat"_s);
    Aperture.TassiCambiati = [] { QFAIL("nothing has changed"); };
    Apri(u"run"_s);
    B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    B->Voce.Attendi(TassiErrore, vbOK, u"Errore:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Voce.Mostrato(1).Bandiere, vbCritical);
    QVERIFY(B->ArchivioIntatto());
    QVERIFY(SiVede("fraUpgrade"));
    QCOMPARE(Testo("lblStatus"),
             Pronto + u"\n> Download archivio indici interessi: connessione interrotta"_s);
}

void TestFrmUpgrade::tassiFallitiPoiProgramma()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(TutteNuove);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"spezza@tassi.dat"_s);
    Apri(u"run"_s);
    B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    B->Voce.Attendi(TassiErrore, vbOK, u"Errore:"_s);
    B->Voce.Attendi(Scaricato, vbOK, u"Messaggio:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi.size(), 2);
    QVERIFY(B->ArchivioIntatto());
}

void TestFrmUpgrade::entrambi()
{
    const QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(TutteNuove);
    Apri(u"run"_s);
    // No word of the archive: it is the program's message that comes.
    B->Voce.Attendi(Scaricato, vbOK, u"Messaggio:"_s);
    Clicca("cmdUpgrade");
    const QByteArray Uditi = B->Server.Uditi();
    QVERIFY(Uditi.indexOf("/tassi.dat ") > 0);
    QVERIFY2(Uditi.indexOf("/tassi.dat ") < Uditi.indexOf("/upgrade3.0.15.exe "), "the archive comes first");
    QCOMPARE(Testo("lblStatus"), Pronto +
                                     u"\n> Download archivio indici interessi\n> Download nuova versione del "
                                     u"programma"_s);
    QVERIFY(LeggiFile(B->Archivio()) == Nuovo);
    QCOMPARE(B->Eventi.last(), u"fine"_s);
}

void TestFrmUpgrade::programma()
{
    ConProgramma();
    B->Voce.Attendi(Scaricato, vbOK, u"Messaggio:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbInformation);
    QCOMPARE(B->Eventi, (QStringList{u"avvia upgrade3.0.15.exe [] in "_s + CartellaUpgrade(), u"fine"_s}));
    QCOMPARE(LeggiFile(CartellaUpgrade() + u"upgrade3.0.15.exe"_s), "installatore"_ba);
}

void TestFrmUpgrade::invioFaIlProssimoPasso()
{
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(SoloTassi);
    Apri();
    Premi(Qt::Key_Return);
    QVERIFY(SiVede("fraUpgrade"));
    B->Voce.Attendi(Completato);
    Premi(Qt::Key_Return);
    QVERIFY(!SiVede("fraUpgrade"));
    QCOMPARE(B->Server.Uditi().count("/versioni.txt "), 1);
    QVERIFY(Controllo<QPushButton>(F.get(), "cmdVerifica")->isDefault());
}

void TestFrmUpgrade::programmaFallito()
{
    B->Annunciate(SoloProgramma, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"chiude@.exe"_s);
    Apri(u"run"_s);
    B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    B->Voce.Attendi(ProgrammaErrore(u"connessione interrotta"_s), vbOK, u"Errore:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Voce.Mostrato(1).Bandiere, vbCritical);
    QCOMPARE(B->Eventi, QStringList());
    QVERIFY(!EsisteFile(CartellaUpgrade() + u"upgrade3.0.15.exe"_s));
}

void TestFrmUpgrade::avvioFallito()
{
    ConProgramma();
    B->EsitoAvvio = 5;
    B->Voce.Attendi(Scaricato);
    B->Voce.Attendi(u"Si è verificato un errore nell'apertura"_s, vbOK, u"Errore!"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Voce.Mostrato(1).Bandiere, vbCritical);
    QCOMPARE(B->Eventi.size(), 1);  // the start, and no end
    // It can be tried again, and nothing is brought twice.
    B->EsitoAvvio = 0;
    B->Voce.Attendi(Scaricato);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi.last(), u"fine"_s);
    QCOMPARE(B->Server.Uditi().count("/upgrade3.0.15.exe "), 1);
    QCOMPARE(Testo("lblStatus"), Pronto + u"\n> Download nuova versione del programma"_s);
}

void TestFrmUpgrade::pacchettoSenzaInstallatore()
{
    if (EstensioneInstallatore() != u".deb")
        QSKIP("no packages on this system");
    ConProgramma(u"upgrade3.0.15.deb"_s);
    B->HaInstallatore = false;
    // The user installs later: neither the closing is announced, nor is a note closed.
    InfoParcelle.push_back({false, true, {}});
    Aperture.ChiudiParcella = [this](int) {
        B->Eventi << u"chiude"_s;
        return true;
    };
    const QString Comando = u"sudo apt install \""_s + CartellaUpgrade() + u"upgrade3.0.15.deb\""_s;
    B->Voce.Attendi(u"Per installare la nuova versione, chiudere il programma ed eseguire:\n"_s + Comando,
                    vbOK, u"Messaggio:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi, QStringList());
    QVERIFY(Testo("lblStatus").endsWith(Comando));
    B->HaInstallatore = true;
    B->Voce.Attendi(Scaricato);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi, (QStringList{u"chiude"_s, u"apri upgrade3.0.15.deb"_s, u"fine"_s}));
}

void TestFrmUpgrade::noteModificate_data()
{
    QTest::addColumn<int>("Rifiutata");
    QTest::addColumn<QStringList>("Eventi");

    const QString Avvio = u"avvia upgrade3.0.15.exe [] in "_s;
    QTest::newRow("each of them is closed")
        << 0 << QStringList{u"chiude 2"_s, u"chiude 4"_s, Avvio, u"fine"_s};
    QTest::newRow("the first stays") << 2 << QStringList{u"chiude 2"_s};
    QTest::newRow("the second stays") << 4 << QStringList{u"chiude 2"_s, u"chiude 4"_s};
}

void TestFrmUpgrade::noteModificate()
{
    QFETCH(int, Rifiutata);
    QFETCH(QStringList, Eventi);
    // Places 1 to 4: unmodified, modified, modified but free, modified.
    for (const auto& [Libera, Modificata] :
         {std::pair(false, false), std::pair(false, true), std::pair(true, true), std::pair(false, true)})
        InfoParcelle.push_back({Libera, Modificata, {}});
    Aperture.ChiudiParcella = [&](int Indice) {
        B->Eventi << u"chiude %1"_s.arg(Indice);
        return Indice != Rifiutata;
    };
    ConProgramma();
    B->Voce.Attendi(Scaricato);
    Clicca("cmdUpgrade");
    if (!Rifiutata)
        Eventi[2] += CartellaUpgrade();
    QCOMPARE(B->Eventi, Eventi);
    if (!Rifiutata)
        return;
    // The checked installer can be started later.
    Rifiutata = 0;
    B->Eventi.clear();
    B->Voce.Attendi(Scaricato);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi.last(), u"fine"_s);
    QCOMPARE(B->Server.Uditi().count("/upgrade3.0.15.exe "), 1);
}

void TestFrmUpgrade::cambiatoPrimaDellAvvio()
{
    InfoParcelle.push_back({false, true, {}});
    Aperture.ChiudiParcella = [&](int) {
        // Somebody swaps the file while the note asks.
        ScriviFile(CartellaUpgrade() + u"upgrade3.0.15.exe"_s, "installatorf");
        return true;
    };
    ConProgramma();
    B->Voce.Attendi(Scaricato);
    B->Voce.Attendi(ProgrammaErrore(u"firma non valida"_s), vbOK, u"Errore:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi, QStringList());
}

void TestFrmUpgrade::avanzamentoEAnnulla_data()
{
    QTest::addColumn<QString>("Come");
    QTest::newRow("the button") << u"clic"_s;
    QTest::newRow("Esc") << u"esc"_s;
    QTest::newRow("Space in the button") << u"spazio"_s;
}

void TestFrmUpgrade::avanzamentoEAnnulla()
{
    QFETCH(QString, Come);
    B->Annunciate(SoloProgramma, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"lento@.exe"_s);
    Apri(u"run"_s);
    QString Formato;
    QStringList Spenti;
    const auto Osserva = [&] {
        const auto* Barra = Controllo<QProgressBar>(F.get(), "barAvanza");
        if (!SiVede("fraAvanza") || Barra->format().isEmpty() || Barra->maximum() == 0 || !Formato.isEmpty())
            return;
        Formato = Barra->format();
        for (const char* Nome : {"cmdVerifica", "cmdFile", "cmdUpgrade", "cmdPreview", "cmdChiudi"})
            if (!Controllo(F.get(), Nome)->isEnabled())
                Spenti << QString::fromLatin1(Nome);
        if (Come == u"clic")
            Clic(Controllo<QPushButton>(F.get(), "cmdAnnulla"));
        else
            Premi(Come == u"esc" ? Qt::Key_Escape : Qt::Key_Space);
    };
    // Calls that are queued run while the transfer breathes; timers do not.
    std::function<void()> Ancora = [&] {
        Osserva();
        if (Formato.isEmpty())
            QMetaObject::invokeMethod(
                F.get(), [&] { Ancora(); }, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(
        F.get(), [&] { Ancora(); }, Qt::QueuedConnection);
    B->Voce.Attendi(ProgrammaErrore(u"operazione annullata"_s), vbOK, u"Errore:"_s);
    Clicca("cmdUpgrade");
    QVERIFY2(Formato.endsWith(u" KB di 1,0 MB"), qPrintable(Formato));
    QCOMPARE(Spenti.size(), 5);
    QVERIFY(!SiVede("fraAvanza"));
    QVERIFY(Controllo(F.get(), "cmdUpgrade")->isEnabled());
    QVERIFY(F->isVisible());
    QCOMPARE(B->Avanzi(), QStringList());
    QCOMPARE(B->Eventi, QStringList());
}

void TestFrmUpgrade::durantePremereNonFaAltro()
{
    // A click beside the button, other keys and the closing of the window do nothing meanwhile.
    B->Annunciate(SoloProgramma, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"lento@.exe"_s);
    Apri(u"run"_s);
    int Fatto = 0;
    std::function<void()> Ancora = [&] {
        if (SiVede("fraAvanza") && Controllo<QProgressBar>(F.get(), "barAvanza")->maximum() > 0 &&
            ++Fatto == 1) {
            Clic(Controllo<QPushButton>(F.get(), "cmdFile"));
            Premi(Qt::Key_F4, Qt::AltModifier);
            F->close();
            QVERIFY(F->isVisible());
        }
        if (Fatto > 20)
            Premi(Qt::Key_Escape);
        else
            QMetaObject::invokeMethod(
                F.get(), [&] { Ancora(); }, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(
        F.get(), [&] { Ancora(); }, Qt::QueuedConnection);
    B->Voce.Attendi(ProgrammaErrore(u"operazione annullata"_s), vbOK, u"Errore:"_s);
    Clicca("cmdUpgrade");
    QVERIFY(F->isVisible());
}

#include "TestFrmUpgrade.moc"
