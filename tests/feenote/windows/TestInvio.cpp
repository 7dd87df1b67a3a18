// The mail with the document: a program of the test's stands for the mail program, and tells what it was
// given.
#include "salvataggi.h"
#include "stampa.h"

#include "feenote/windows/inviodocumento.h"
#include "platform/kit/shell_qt.h"
#include "platform/system/attese.h"
#include "platform/system/cartelle.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QDialog>
#include <QScopeGuard>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestInvio : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void allegaIlDocumento();
    void daTastiera();
    void laNotaRisultaInviata_data();
    void laNotaRisultaInviata();
    void laRispostaTrovaUnAltraNota();
    void inviatoEQuantoChiedevaIlPdf();
    void siRompeDopoLAttesa();
    void dueInviiDiFila_data();
    void dueInviiDiFila();
    void laNotaSiChiudePrima_data();
    void laNotaSiChiudePrima();
    void senzaIlPdfNonParteNulla();
    void nomiDiOgniGenere();
    void indirizzoDelCliente_data();
    void indirizzoDelCliente();
    void testiVuoti();
    void senzaProgramma_data();
    void senzaProgramma();
    void unPercorsoCheLaPostaSpezza_data();
    void unPercorsoCheLaPostaSpezza();
    void ilProgrammaNonRiesce_data();
    void ilProgrammaNonRiesce();
    void aspettaLaFineDiUnaDomanda();
    void chiFinisceTardiNonRisponde();
    void laCartellaESoloMia();
    void nomeAllegato_data();
    void nomeAllegato();
    void ilFileDellaFatturaNonParte();

private:
    /// A mail program that writes down its arguments, one behind the other with a zero between.
    void Installa(const QByteArray& Poi = {}) const
    {
        const QString File = Programmi + u"xdg-email"_s;
        ScriviFile(File,
                   "#!/bin/sh\nprintf '%s\\0' \"$@\" > \"$0.parti\"\n/bin/mv \"$0.parti\" \"$0.visto\"\n" +
                       Poi);
        QVERIFY(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    [[nodiscard]] QStringList Argomenti() const
    {
        const QString Visto = Programmi + u"xdg-email.visto"_s;
        for (int i = 0; i < 200 && !EsisteFile(Visto); ++i)
            QTest::qWait(20);
        if (!EsisteFile(Visto))
            return {};
        QStringList Tutti = QString::fromUtf8(LeggiFile(Visto)).split(QChar(u'\0'));
        Tutti.removeLast();
        return Tutti;
    }
    /// What follows an option.
    [[nodiscard]] static QString Dietro(const QStringList& Tutti, const QString& Opzione)
    {
        return Tutti.value(Tutti.indexOf(Opzione) + 1);
    }
    void InviaSubito()
    {
        Premuto("barPrint_invia");
        Respiro();
    }

    QString Programmi;
    QByteArray PercorsoPrima;
    Shell Prima;
    QStringList Cartelle;
};
PROVA(TestInvio);

void TestInvio::init()
{
    Programmi = NuovaCartella();
    PercorsoPrima = qgetenv("PATH");
    Prepara();
    Documento(StampaFatturaAnalitica);
    F->Nota.txtDatiPar[DatoNumFatt] = u"12/2026"_s;
    F->Nota.txtDatiPar[DatoDataFatt] = u"03/05/2026"_s;
    qputenv("PATH", QFile::encodeName(Programmi));
    Shell Vera = ShellQt();
    Cartelle.clear();
    Vera.ApriFile = [this](const QString& File) { return Cartelle += File, 0; };
    Prima = InstallaShell(std::move(Vera));
}

void TestInvio::cleanup()
{
    InstallaOrologio({});
    InstallaShell(std::move(Prima));
    qputenv("PATH", PercorsoPrima);
    Sgombra();
}

void TestInvio::allegaIlDocumento()
{
    Installa();
    InviaSubito();
    const QStringList Dati = Argomenti();
    QCOMPARE(Dati.value(0), u"--utf8"_s);
    QCOMPARE(Dietro(Dati, u"--subject"_s), u"Fattura 12/2026 - Sfratto"_s);
    QVERIFY(Dietro(Dati, u"--body"_s).startsWith(u"Gentile Rossi Mario,\n\nsi trasmette"_s));
    const QString File = Dietro(Dati, u"--attach"_s);
    QCOMPARE(NomeFile(File), u"Rossi Mario - Sfratto - Fattura 12-2026.pdf"_s);
    QVERIFY(LeggiFile(File).startsWith("%PDF"));
    QCOMPARE(Dati.size(), 7);  // a client of free text has no address
    QVERIFY(T->Voce.Mostrati().isEmpty());
}

void TestInvio::daTastiera()
{
    Installa();
    auto* Bottone = Controllo(F, "barPrint_invia");
    QVERIFY(Bottone->focusPolicy() & Qt::TabFocus);
    Bottone->setFocus(Qt::TabFocusReason);
    QTest::keyClick(Bottone, Qt::Key_Space);
    QVERIFY(!Argomenti().isEmpty());
}

void TestInvio::laNotaRisultaInviata_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QByteArray>("Programma");
    QTest::addColumn<QString>("Stato");
    const QByteArray Bene("exit 0\n");
    QTest::newRow("un preventivo") << int(StampaPreventivo) << Bene << u"Stato: inviata"_s;
    QTest::newRow("una fattura") << int(StampaFatturaAnalitica) << Bene << u"Stato: fatturata"_s;
    QTest::newRow("un contratto") << int(StampaContratto) << Bene << u"Stato: bozza"_s;
    QTest::newRow("senza programma") << int(StampaPreventivo) << QByteArray() << u"Stato: bozza"_s;
    QTest::newRow("nessuna posta installata")
        << int(StampaPreventivo) << QByteArray("exit 3\n") << u"Stato: bozza"_s;
    QTest::newRow("si rompe") << int(StampaPreventivo) << QByteArray("kill -9 $$\n") << u"Stato: bozza"_s;
    QTest::newRow("la posta resta aperta")
        << int(StampaPreventivo) << QByteArray("exec /bin/sleep 2\n") << u"Stato: inviata"_s;
}

/// As after print: what has left leads the state on; where no mail opened, nothing has left.
void TestInvio::laNotaRisultaInviata()
{
    QFETCH(int, Tipo);
    QFETCH(QByteArray, Programma);
    QFETCH(QString, Stato);
    const QScopedValueRollback Breve(attese::PostaMs, 600);
    Riempi(2);
    Documento(Tipo);
    F->SetModificata(false);
    const auto* Bottone = Controllo<QToolButton>(F, "cmdStato");
    QCOMPARE(Bottone->text(), u"Stato: bozza"_s);
    if (!Programma.isEmpty())
        Installa(Programma);
    T->Voce.Tollera();
    InviaSubito();
    if (Programma.startsWith("exit 3") || Programma.startsWith("kill"))
        QTRY_VERIFY(!T->Voce.Mostrati().isEmpty());
    QTRY_COMPARE(Bottone->text(), Stato);
    // One that has failed is not taken for one that stays open.
    if (!T->Voce.Mostrati().isEmpty() && !Programma.isEmpty())
        QTest::qWait(attese::PostaMs + 50);
    QCOMPARE(Bottone->text(), Stato);
    QCOMPARE(F->Nota.Modificata, Stato != u"Stato: bozza");
}

/// The answer comes when the window may have another note, or ask something.
void TestInvio::laRispostaTrovaUnAltraNota()
{
    const QScopedValueRollback Breve(attese::PostaMs, 100);
    Riempi(2);
    Documento(StampaPreventivo);
    Installa("exec /bin/sleep 1\n");
    InviaSubito();
    F->Nuova({});
    QTest::qWait(3 * attese::PostaMs);
    QCOMPARE(F->Nota.Stato.Stato, StatoNota::Bozza);
    QVERIFY(!F->Nota.Modificata);
}

/// What is written while the mail opens is not what was asked for.
void TestInvio::inviatoEQuantoChiedevaIlPdf()
{
    const QScopedValueRollback Breve(attese::PostaMs, 300);
    Riempi(2);
    Documento(StampaPreventivo);
    Parcella Uscita = F->Nota;
    QVERIFY(NotaInviata(Uscita, StampaPreventivo));
    Installa("exec /bin/sleep 1\n");
    InviaSubito();
    Riempi(5);
    Parcella Dopo = F->Nota;
    QVERIFY(NotaInviata(Dopo, StampaPreventivo));
    QVERIFY(!(Dopo.Stato.Importi == Uscita.Stato.Importi));
    QTRY_COMPARE(F->Nota.Stato.Stato, StatoNota::Inviata);
    QVERIFY(F->Nota.Stato.Importi == Uscita.Stato.Importi);
}

/// It has stood for a while, and has failed then: nothing has left.
void TestInvio::siRompeDopoLAttesa()
{
    const QScopedValueRollback Breve(attese::PostaMs, 200);
    Riempi(2);
    Documento(StampaPreventivo);
    const QString File = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    Installa("/bin/sleep 2\nexit 3\n");
    InviaSubito();
    QTRY_COMPARE(F->Nota.Stato.Stato, StatoNota::Inviata);
    T->Voce.Tollera();
    QTRY_COMPARE(F->Nota.Stato.Stato, StatoNota::Bozza);
    QVERIFY(!F->Nota.Modificata);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato.Stato, StatoNota::Bozza);
    QTRY_VERIFY(T->Voce.UltimoTesto().startsWith(u"Il programma di posta non si è aperto (codice 3)."_s));
}

void TestInvio::dueInviiDiFila_data()
{
    QTest::addColumn<int>("Primo");
    QTest::addColumn<int>("Secondo");
    QTest::newRow("the invoice last") << int(StampaPrenotula) << int(StampaFatturaAnalitica);
    QTest::newRow("the invoice first") << int(StampaFatturaAnalitica) << int(StampaSoloContabile);
}

/// The second mail is asked for before the first has opened: the state follows both, and the invoice is one
/// whichever comes first.
void TestInvio::dueInviiDiFila()
{
    QFETCH(int, Primo);
    QFETCH(int, Secondo);
    const QScopedValueRollback Breve(attese::PostaMs, 1500);
    Riempi(2);
    Documento(Primo);
    Installa("exec /bin/sleep 4\n");
    InviaSubito();
    Documento(Secondo);
    InviaSubito();
    QCOMPARE(F->Nota.Stato.Stato, StatoNota::Bozza);
    QTRY_COMPARE(F->Nota.Stato.Stato, StatoNota::Fatturata);
    QTest::qWait(attese::PostaMs + 300);
    QCOMPARE(F->Nota.Stato.Stato, StatoNota::Fatturata);
    QCOMPARE(F->Nota.Stato.Documento, int(StampaFatturaAnalitica));
}

void TestInvio::laNotaSiChiudePrima_data()
{
    QTest::addColumn<QByteArray>("Programma");
    QTest::addColumn<bool>("Inviata");
    QTest::newRow("la posta resta aperta") << QByteArray("exec /bin/sleep 1\n") << true;
    QTest::newRow("si rompe") << QByteArray("exit 3\n") << false;
    QTest::newRow("senza programma") << QByteArray() << false;
}

/// Closed before the mail program has answered: what was sent is sent, in the note's own file.
void TestInvio::laNotaSiChiudePrima()
{
    QFETCH(QByteArray, Programma);
    QFETCH(bool, Inviata);
    Riempi(2);
    Documento(StampaPreventivo);
    const QString File = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    if (!Programma.isEmpty())
        Installa(Programma);
    if (!Inviata)
        T->Voce.Tollera();
    InviaSubito();
    QVERIFY(Programma.isEmpty() || !Argomenti().isEmpty());
    if (!Inviata)
        QTRY_COMPARE(T->Voce.Mostrati().size(), 2);
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(F->Nota.Stato.Stato, StatoNota::Bozza);
    QVERIFY(ChiudiParcella(1));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato.Stato, Inviata ? StatoNota::Inviata : StatoNota::Bozza);
}

/// The folder of what is sent cannot be made: the PDF is not written, and the note is closed as it was.
void TestInvio::senzaIlPdfNonParteNulla()
{
    Riempi(2);
    Documento(StampaPreventivo);
    const QString File = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    Installa();
    const QByteArray Allora = qgetenv("XDG_DATA_HOME");
    const auto Torna = qScopeGuard([&] { qputenv("XDG_DATA_HOME", Allora); });
    qputenv("XDG_DATA_HOME", QFile::encodeName(NuovaCartella()));
    QVERIFY(QDir().mkpath(CartellaDati()));
    ScriviFile(CartellaDati() + u"invii"_s, "x");
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Errore di accesso al percorso o al file"_s));
    T->Voce.Tollera();
    InviaSubito();
    QVERIFY(!EsisteFile(Programmi + u"xdg-email.visto"_s));
    QVERIFY(ChiudiParcella(1));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato.Stato, StatoNota::Bozza);
}

/// What a user has written goes as it is, in one argument each, and none becomes an option or a command.
void TestInvio::nomiDiOgniGenere()
{
    Installa();
    F->Nota.txtCliente.Testo = u"--attach \"d'Amico\" $(touch /tmp/x) & `Figli`"_s;
    F->Nota.txtDatiStaOgg.Testo = u"-n riga una\nriga due \\c {numero} ; rm -rf"_s;
    InviaSubito();
    const QStringList Dati = Argomenti();
    QCOMPARE(Dati.size(), 7);
    QCOMPARE(Dietro(Dati, u"--subject"_s), u"Fattura 12/2026 - -n riga una riga due /c {numero} ; rm -rf"_s);
    QVERIFY(
        Dietro(Dati, u"--body"_s).startsWith(u"Gentile --attach \"d'Amico\" $(touch /tmp/x) & `Figli`,\n"_s));
    const QString File = Dietro(Dati, u"--attach"_s);
    QVERIFY(File.startsWith(u'/') && EsisteFile(File));
    for (const QChar Segno : u"'\"`$&;\n"_s)
        QVERIFY(!NomeFile(File).contains(Segno));
}

void TestInvio::indirizzoDelCliente_data()
{
    QTest::addColumn<QString>("Email");
    QTest::addColumn<QString>("Escluso");  // why it stays out, and that the user is told
    const QString Segni = u"contiene segni che i programmi di posta non accettano"_s;
    const QString Forma = u"non ha la forma nome@dominio"_s;
    QTest::newRow("buono") << u"rossi@posta.example"_s << QString();
    QTest::newRow("con spazi intorno") << u" rossi@posta.example "_s << QString();
    QTest::newRow("vuoto") << QString() << QString();
    QTest::newRow("solo spazi") << u"  "_s << QString();
    QTest::newRow("un'opzione") << u"--attach=/etc/passwd@x.it"_s << Segni;
    QTest::newRow("apostrofo") << u"d'angelo@rossi.it"_s << Segni;
    QTest::newRow("due righe") << u"a@b.it\nc@d.it"_s << Forma;
    QTest::newRow("un telefono") << u"0583 123456"_s << Forma;
}

void TestInvio::indirizzoDelCliente()
{
    QFETCH(QString, Email);
    QFETCH(QString, Escluso);
    Installa();
    if (!Escluso.isEmpty())
        T->Voce.Attendi(u"L'indirizzo di posta del cliente, «"_s + Email.simplified() + u"», "_s + Escluso +
                            u": il destinatario va scritto a mano."_s,
                        vbOK, u"Avvertenza:"_s);
    const int Chiave = T->Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Rossi Mario"_s}, {u"Email"_s, Email}});
    F->Nota.IDCli = Chiave;
    InviaSubito();
    const QStringList Dati = Argomenti();
    const bool Passa = Escluso.isEmpty() && !Email.trimmed().isEmpty();
    QCOMPARE(Dati.size(), Passa ? 8 : 7);
    if (Passa)
        QCOMPARE(Dati.last(), Email.trimmed());
}

/// An option without a text would be an error of the mail program.
void TestInvio::testiVuoti()
{
    Installa();
    sessione::PostaOggetto.clear();
    sessione::PostaTesto.clear();
    InviaSubito();
    const QStringList Dati = Argomenti();
    QCOMPARE(Dati.size(), 3);
    QCOMPARE(Dati.value(1), u"--attach"_s);
}

void TestInvio::senzaProgramma_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::newRow("apre la cartella") << vbYes;
    QTest::newRow("lascia stare") << vbNo;
}

void TestInvio::senzaProgramma()
{
    QFETCH(int, Risposta);
    T->Voce.Attendi(
        u"Su questo computer manca xdg-email, che apre il programma di posta.\n"
        "Il documento Rossi Mario - Sfratto - Fattura 12-2026.pdf è pronto e si può allegare a mano: "
        "aprire la sua cartella?"_s,
        Risposta, u"Avvertenza:"_s);
    InviaSubito();
    QCOMPARE(Cartelle.size(), Risposta == vbYes ? 1 : 0);
    if (Risposta == vbYes)
        QVERIFY(EsisteFile(Cartelle.first() + u"Rossi Mario - Sfratto - Fattura 12-2026.pdf"_s));
}

void TestInvio::unPercorsoCheLaPostaSpezza_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("apostrofo") << u"d'Angelo"_s;
    QTest::newRow("virgola") << u"Rossi, Mario"_s;
}

/// The folder of the data is the user's own, and may be called anyhow.
void TestInvio::unPercorsoCheLaPostaSpezza()
{
    QFETCH(QString, Nome);
    Installa();
    const QByteArray Allora = qgetenv("XDG_DATA_HOME");
    const auto Torna = qScopeGuard([&] { qputenv("XDG_DATA_HOME", Allora); });
    qputenv("XDG_DATA_HOME", QFile::encodeName(NuovaCartella() + Nome));
    T->Voce.Attendi(
        u"Il percorso dei dati dell'utente contiene un apostrofo o una virgola, che i programmi di posta "
        "non accettano.\nIl documento Rossi Mario - Sfratto - Fattura 12-2026.pdf è pronto e si può "
        "allegare a mano: aprire la sua cartella?"_s,
        vbYes, u"Avvertenza:"_s);
    InviaSubito();
    QCOMPARE(Cartelle.size(), 1);
    QVERIFY(!EsisteFile(Programmi + u"xdg-email.visto"_s));
}

void TestInvio::ilProgrammaNonRiesce_data()
{
    QTest::addColumn<QByteArray>("Poi");
    QTest::addColumn<int>("Codice");
    QTest::newRow("nessun programma di posta") << QByteArray("exit 3\n") << 3;
    QTest::newRow("ucciso") << QByteArray("kill -9 $$\n") << -1;
}

void TestInvio::ilProgrammaNonRiesce()
{
    QFETCH(QByteArray, Poi);
    QFETCH(int, Codice);
    Installa(Poi);
    T->Voce.Attendi(
        u"Il programma di posta non si è aperto (codice %1).\n"
        "Il documento Rossi Mario - Sfratto - Fattura 12-2026.pdf è pronto e si può allegare a mano: "
        "aprire la sua cartella?"_s.arg(Codice),
        vbYes, u"Avvertenza:"_s);
    InviaSubito();
    QTRY_COMPARE(Cartelle.size(), 1);
}

/// No box comes on top of one that waits for its answer.
void TestInvio::aspettaLaFineDiUnaDomanda()
{
    Installa("while [ ! -e \"$0.fine\" ]; do /bin/sleep 0.05; done\nexit 3\n");
    InviaSubito();
    QVERIFY(!Argomenti().isEmpty());
    QDialog Domanda(F);
    Domanda.setModal(true);
    Domanda.show();
    QCOMPARE(QApplication::activeModalWidget(), &Domanda);
    ScriviFile(Programmi + u"xdg-email.fine"_s, "x");
    QTest::qWait(300);
    QVERIFY(T->Voce.Mostrati().isEmpty());
    T->Voce.Attendi(
        u"Il programma di posta non si è aperto (codice 3).\n"
        "Il documento Rossi Mario - Sfratto - Fattura 12-2026.pdf è pronto e si può allegare a mano: "
        "aprire la sua cartella?"_s,
        vbYes, u"Avvertenza:"_s);
    Domanda.close();
    QTRY_COMPARE(Cartelle.size(), 1);
}

/// A mail program that stays open under the one that started it, and breaks down in the evening.
void TestInvio::chiFinisceTardiNonRisponde()
{
    Installa("while [ ! -e \"$0.fine\" ]; do /bin/sleep 0.05; done\nexit 4\n");
    InviaSubito();
    QVERIFY(!Argomenti().isEmpty());
    InstallaOrologio([] { return QDateTime::currentDateTime().addSecs(3600); });
    ScriviFile(Programmi + u"xdg-email.fine"_s, "x");
    QTest::qWait(500);
    QVERIFY(T->Voce.Mostrati().isEmpty());
}

void TestInvio::laCartellaESoloMia()
{
    Installa();
    InviaSubito();
    const QString Cartella = CartellaFile(Dietro(Argomenti(), u"--attach"_s));
    QVERIFY(Cartella.startsWith(CartellaDati()));
    QCOMPARE(int(QFileInfo(Cartella).permissions() & QFile::Permissions(0x0077)), 0);
}

void TestInvio::nomeAllegato_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("0") << 0 << u"Prenotula 7-2026"_s;
    QTest::newRow("1") << 1 << u"Preventivo 7-2026"_s;
    QTest::newRow("2") << 2 << u"Fattura 12-2026"_s;
    QTest::newRow("3") << 3 << u"Fattura 12-2026"_s;
    QTest::newRow("4") << 4 << u"Nota spese giudiziale"_s;
    QTest::newRow("5") << 5 << u"Contratto cliente"_s;
    QTest::newRow("6") << 6 << u"Resa informativa"_s;
    QTest::newRow("7") << 7 << u"Solo parte contabile"_s;
}

/// Each document has a name of its own, with an associated note too.
void TestInvio::nomeAllegato()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Atteso);
    Parcella& Nota = F->Nota;
    Nota.txtDatiPar[DatoNumero] = u"7"_s;
    Nota.txtDatiPar[DatoData] = u"03/05/2026"_s;
    QCOMPARE(NomeAllegato(Nota, Tipo), u"Rossi Mario - Sfratto - "_s + Atteso);
    Nota.txtParcMultipla = u"altra"_s;
    QCOMPARE(NomeAllegato(Nota, Tipo), u"Rossi Mario - Sfratto - "_s + Atteso);
    Nota.txtCliente.Testo = u"Condominio \"L'Ulivo, 3\" & C."_s;
    QCOMPARE(NomeAllegato(Nota, Tipo), u"Condominio L’Ulivo 3 C - Sfratto - "_s + Atteso);
}

/// A written electronic invoice goes to the exchange system, not to the client by mail.
void TestInvio::ilFileDellaFatturaNonParte()
{
    Installa();
    F->Nota.FatturaXml.File = u"IT01234567890_00001.xml"_s;
    InviaSubito();
    const QStringList Dati = Argomenti();
    QCOMPARE(Dati.count(u"--attach"_s), 1);
    QVERIFY(!Dati.join(u' ').contains(u".xml"_s));
}

#include "TestInvio.moc"
