// The form of updates, driven as its user does: what is in use, the check, what it offers.
#include "bancoupgrade.h"

class TestFrmUpgrade : public QObject, private BancoUpgrade
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombera(); }
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
};
PROVA(TestFrmUpgrade);

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

#include "TestFrmUpgrade.moc"
