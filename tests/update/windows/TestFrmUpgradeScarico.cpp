// The form of updates: archive and program are brought, stopped, installed.
#include "bancoupgrade.h"

class TestFrmUpgradeScarico : public QObject, private BancoUpgrade
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombera(); }
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
    void laSchedaTieneIlProgramma();
    void cambiatoPrimaDellAvvio();
    void avanzamentoEAnnulla_data();
    void avanzamentoEAnnulla();
    void tassiAnnullati();
    void durantePremereNonFaAltro();
};
PROVA(TestFrmUpgradeScarico);

void TestFrmUpgradeScarico::daFileSenzaFirma()
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

void TestFrmUpgradeScarico::soloTassi()
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

void TestFrmUpgradeScarico::tassiFalliti()
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

void TestFrmUpgradeScarico::tassiFallitiPoiProgramma()
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

void TestFrmUpgradeScarico::entrambi()
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

void TestFrmUpgradeScarico::programma()
{
    ConProgramma();
    B->Voce.Attendi(Scaricato, vbOK, u"Messaggio:"_s);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbInformation);
    QCOMPARE(B->Eventi, (QStringList{u"avvia upgrade3.0.15.exe [] in "_s + CartellaUpgrade(), u"fine"_s}));
    QCOMPARE(LeggiFile(CartellaUpgrade() + u"upgrade3.0.15.exe"_s), "installatore"_ba);
}

void TestFrmUpgradeScarico::invioFaIlProssimoPasso()
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

void TestFrmUpgradeScarico::programmaFallito()
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

void TestFrmUpgradeScarico::avvioFallito()
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

void TestFrmUpgradeScarico::pacchettoSenzaInstallatore()
{
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

void TestFrmUpgradeScarico::noteModificate_data()
{
    QTest::addColumn<int>("Rifiutata");
    QTest::addColumn<QStringList>("Eventi");

    const QString Avvio = u"avvia upgrade3.0.15.exe [] in "_s;
    QTest::newRow("each of them is closed")
        << 0 << QStringList{u"chiude 2"_s, u"chiude 4"_s, Avvio, u"fine"_s};
    QTest::newRow("the first stays") << 2 << QStringList{u"chiude 2"_s};
    QTest::newRow("the second stays") << 4 << QStringList{u"chiude 2"_s, u"chiude 4"_s};
}

void TestFrmUpgradeScarico::noteModificate()
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

/// Who stays with an open card of the address book keeps the program.
void TestFrmUpgradeScarico::laSchedaTieneIlProgramma()
{
    bool Risposta = false;
    Aperture.ChiudiRubriche = [&] { return Risposta; };
    ConProgramma();
    B->Voce.Attendi(Scaricato);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi, QStringList());
    Risposta = true;
    B->Voce.Attendi(Scaricato);
    Clicca("cmdUpgrade");
    QCOMPARE(B->Eventi.last(), u"fine"_s);
}

void TestFrmUpgradeScarico::cambiatoPrimaDellAvvio()
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

void TestFrmUpgradeScarico::avanzamentoEAnnulla_data()
{
    QTest::addColumn<QString>("Come");
    QTest::newRow("the button") << u"clic"_s;
    QTest::newRow("Esc") << u"esc"_s;
    QTest::newRow("Space in the button") << u"spazio"_s;
}

void TestFrmUpgradeScarico::avanzamentoEAnnulla()
{
    QFETCH(QString, Come);
    B->Annunciate(SoloProgramma, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"lento@.exe"_s);
    Apri(u"run"_s);
    QString Formato;
    QStringList Spenti;
    const auto Osserva = [&] {
        const auto* Barra = Controllo<QProgressBar>(F.get(), "barAvanza");
        // The signature comes before the program.
        if (!SiVede("fraAvanza") || !Barra->format().endsWith(u" MB") || Barra->maximum() == 0 ||
            !Formato.isEmpty())
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
    const AdOgniPasso Passo(Controllo(F.get(), "barAvanza"), Osserva);
    Clicca("cmdUpgrade");
    // Whoever has stopped it is not sent to the assistance.
    QVERIFY(Testo("lblStatus").endsWith(u"> Download nuova versione del programma: operazione annullata"_s));
    QVERIFY2(Formato.endsWith(u" KB di 1,0 MB"), qPrintable(Formato));
    QCOMPARE(Spenti.size(), 5);
    QVERIFY(!SiVede("fraAvanza"));
    QVERIFY(Controllo(F.get(), "cmdUpgrade")->isEnabled());
    QVERIFY(F->isVisible());
    QCOMPARE(B->Avanzi(), QStringList());
    QCOMPARE(B->Eventi, QStringList());
}

/// Whoever stops the rates has stopped the program behind them too, and is not sent to the assistance.
void TestFrmUpgradeScarico::tassiAnnullati()
{
    B->Posa(u"upgrade3.0.15.exe"_s, "installatore");
    B->Annunciate(TutteNuove, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"lento@tassi.dat"_s);
    Apri(u"run"_s);
    const AdOgniPasso Passo(Controllo(F.get(), "barAvanza"), [&] {
        if (SiVede("fraAvanza"))
            Premi(Qt::Key_Escape);
    });
    Clicca("cmdUpgrade");
    QCOMPARE(Testo("lblStatus"), Pronto + u"\n> Download archivio indici interessi: operazione annullata"_s);
    QVERIFY(!B->Server.Uditi().contains("/upgrade3.0.15.exe "));
    QVERIFY(B->ArchivioIntatto());
    QVERIFY(SiVede("fraUpgrade") && !SiVede("fraAvanza"));
    QVERIFY(Controllo(F.get(), "cmdUpgrade")->isEnabled());
    QCOMPARE(B->Eventi, QStringList());
}

void TestFrmUpgradeScarico::durantePremereNonFaAltro()
{
    // A click beside the button, other keys and the closing of the window do nothing meanwhile.
    B->Annunciate(SoloProgramma, false);
    sessione::ServerAggiornamenti = B->Server.Indirizzo(u"lento@.exe"_s);
    Apri(u"run"_s);
    int Fatto = 0;
    int Passi = 0;
    const AdOgniPasso Passo(Controllo(F.get(), "barAvanza"), [&] {
        const auto* Barra = Controllo<QProgressBar>(F.get(), "barAvanza");
        if (SiVede("fraAvanza") && Barra->format().endsWith(u" MB") && Barra->maximum() > 0 && ++Fatto == 1) {
            Clic(Controllo<QPushButton>(F.get(), "cmdFile"));
            Premi(Qt::Key_F4, Qt::AltModifier);
            F->close();
            QVERIFY(F->isVisible());
        }
        // Some steps of the transfer later: nothing of it has stopped it.
        if (Fatto > 0 && ++Passi > 5)
            Premi(Qt::Key_Escape);
    });
    Clicca("cmdUpgrade");
    QVERIFY(F->isVisible());
}

#include "TestFrmUpgradeScarico.moc"
