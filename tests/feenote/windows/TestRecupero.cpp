// Recovery copies: kept while changes are unsaved, found after a kill, offered, taken over.
#include "core/posti.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "tavolo.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QTimer>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

constexpr auto VariabileCartella = "CALCANOVA_PROVA_RECUPERO";

constexpr int AttesaBreve = 300;

QString CartellaCopie()
{
    return Barra(sessione::UserFolder + u"recupero"_s);
}

QStringList Copie(const QString& Tipo = u"mdb"_s)
{
    return QDir(CartellaCopie()).entryList({u"*."_s + Tipo}, QDir::Files);
}

/// Waits for the queued copy.
bool AspettaCopia()
{
    return QTest::qWaitFor([] { return !Copie().isEmpty(); }, 6000);
}

/// The office of a process that will be killed: what it writes must outlive it.
void PreparaVittima(const QString& Cartella)
{
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::ParcellePath = Cartella;
    sessione::UserFolder = Cartella;
}

QString Domanda(const CopiaRecupero& Copia)
{
    return u"Il programma si è chiuso senza che la parcella \"%1\" fosse salvata.\nNe esiste una copia del "
           u"%2.\n"
           u"Vuoi recuperarla?"_s.arg(Copia.Nome, Copia.Quando.toString(u"dd/MM/yyyy 'ore' HH:mm"_s));
}

}  // namespace

class TestRecupero : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laCopiaSegueLeModifiche();
    void piuModificheUnaCopia();
    void mentreUnMessaggioAspetta();
    void conUnaSchedaDellaRubrica();
    void salvandoSparisce();
    void chiudendoSparisce();
    void senzaCartellaNessunaCopia();
    void cartellaSenzaPermessi();
    void leCopieDeiViviNonSiOffrono();
    void lUltimoColPropriNumero();
    void copiaSenzaFoglioAccanto();
    void laVittima();
    void uccisoRestaLaCopia();
    void recuperata();
    void recuperataConPercorso();
    void recuperataESalvataDaAltri_data();
    void recuperataESalvataDaAltri();
    void eliminata();
    void piuTardi();
    void copiaGuasta_data();
    void copiaGuasta();
    void foglioAccantoGuasto();
    void restiDiUnMorto();
    void ilRicalcoloSiRicorda();
    void primaDiChiedereLaCopiaCe();
    void unaCopiaPrenotata();

private:
    void Tocca();
    /// Starts a process that edits a note, and kills it. The session's user folder is its own.
    void Uccidi(const QByteArray& ConFile = {});

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestRecupero);

void TestRecupero::init()
{
    T = std::make_unique<Tavolo>();
    attese::CopiaMs = AttesaBreve;
    if (qEnvironmentVariableIsSet(VariabileCartella))
        return;
    F = T->Apri();
    QVERIFY(F);
}

void TestRecupero::cleanup()
{
    attese::CopiaMs = 2000;
    T.reset();
}

void TestRecupero::Tocca()
{
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi"_s);
}

void TestRecupero::laCopiaSegueLeModifiche()
{
    CompilaCivile(F);
    Tocca();
    QVERIFY2(Copie().isEmpty(), "mai subito");
    QVERIFY(AspettaCopia());
    QCOMPARE(Copie(u"lock"_s).size(), 1);
    Parcella Letta;
    CaricaDati(Letta, CartellaCopie() + Copie().first());
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);
    QCOMPARE(Letta.ImportoPrec, 30000.0);
    QVERIFY2(F->Nota.Modificata, "la copia non è un salvataggio");
    QVERIFY(F->Nota.Percorso.isEmpty());
}

void TestRecupero::piuModificheUnaCopia()
{
    QElapsedTimer Orologio;
    Orologio.start();
    Tocca();
    QVERIFY(AspettaCopia());
    QVERIFY2(Orologio.elapsed() >= AttesaBreve - 20, "al più una per volta");
    const QString Nome = CartellaCopie() + Copie().first();
    const QDateTime Prima = QFileInfo(Nome).lastModified();
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Bianchi"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Sfratto"_s);
    QVERIFY(QTest::qWaitFor([&] { return QFileInfo(Nome).lastModified() != Prima; }, 6000));
    QCOMPARE(Copie().size(), 1);
    QCOMPARE(Cliente(Nome), u"Bianchi"_s);
}

void TestRecupero::mentreUnMessaggioAspetta()
{
    Tocca();
    QDialog Finestra;
    Finestra.setModal(true);
    Finestra.show();
    QTest::qWait(2 * AttesaBreve);
    QVERIFY2(Copie().isEmpty(), "con un messaggio aperto non si scrive");
    Finestra.close();
    QVERIFY(AspettaCopia());
}

/// A card of the address book may lie open for an hour; it holds back its own book alone.
void TestRecupero::conUnaSchedaDellaRubrica()
{
    QWidget Rubrica;
    Rubrica.show();
    QDialog Scheda(&Rubrica);
    Scheda.setWindowModality(Qt::WindowModal);
    Tocca();
    Scheda.show();
    QVERIFY(QApplication::activeModalWidget());
    QVERIFY(AspettaCopia());
}

void TestRecupero::salvandoSparisce()
{
    Tocca();
    QVERIFY(AspettaCopia());
    T->Voce.AttendiSalva(T->Ufficio.File(u"nota.mdb"_s));
    T->Voce.Attendi(u"La parcella nota.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY(Copie().isEmpty() && Copie(u"json"_s).isEmpty());
}

void TestRecupero::chiudendoSparisce()
{
    Tocca();
    QVERIFY(AspettaCopia());
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    QVERIFY(F->close());
    QVERIFY(Copie().isEmpty() && Copie(u"json"_s).isEmpty());
}

void TestRecupero::senzaCartellaNessunaCopia()
{
    const QString Cartella = std::exchange(sessione::UserFolder, QString());
    AggiornaCopia(F->Nota, 1);
    QVERIFY(NoteDaRecuperare().isEmpty());
    QVERIFY(!QFileInfo::exists(u"recupero"_s));
    sessione::UserFolder = Cartella;
    QVERIFY(Copie().isEmpty());
}

void TestRecupero::cartellaSenzaPermessi()
{
    // A file stands where the folder should: no copy, no message, and the note goes on.
    ScriviFile(sessione::UserFolder + u"recupero"_s, "x");
    Tocca();
    QTest::qWait(2 * AttesaBreve);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(NoteDaRecuperare().isEmpty());
    Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Sfratto"_s);
    QCOMPARE(F->Nota.txtOggetto.Testo, u"Sfratto"_s);
}

void TestRecupero::leCopieDeiViviNonSiOffrono()
{
    AggiornaCopia(F->Nota, 1);
    QCOMPARE(Copie().size(), 1);
    QVERIFY(NoteDaRecuperare().isEmpty());
    QVERIFY2(Copie(u"lock"_s).size() == 1, "guardare non toglie il proprio segno");
    LasciaRecupero();  // as if this process were gone
    QCOMPARE(NoteDaRecuperare().size(), 1);
}

void TestRecupero::lUltimoColPropriNumero()
{
    // A number of a process comes back, on a machine started again for one: the older lock is nobody's.
    QDir().mkpath(CartellaCopie());
    const QString Sigla = QString::number(QCoreApplication::applicationPid()) + u"-1000"_s;
    QLockFile Vecchio(CartellaCopie() + Sigla + u".lock"_s);
    QVERIFY(Vecchio.tryLock(0));
    ScriviNota(CartellaCopie() + Sigla + u"-1.mdb"_s, F->Nota);
    QVERIFY2(NoteDaRecuperare().isEmpty(), "da solo sembra vivo");
    AggiornaCopia(F->Nota, 1);
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    QCOMPARE(Trovate.size(), 1);
    QVERIFY(Trovate.first().File.endsWith(Sigla + u"-1.mdb"_s));
}

void TestRecupero::copiaSenzaFoglioAccanto()
{
    QDir().mkpath(CartellaCopie());
    ScriviNota(CartellaCopie() + u"99999999-1-1.mdb"_s, F->Nota);
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    QCOMPARE(Trovate.size(), 1);
    QCOMPARE(Trovate.first().Nome, u"Nuova parcella"_s);
    QVERIFY(Trovate.first().Percorso.isEmpty());
}

/// Not a test of its own: what the process does that the next ones kill.
void TestRecupero::laVittima()
{
    if (!qEnvironmentVariableIsSet(VariabileCartella))
        return;
    PreparaVittima(qEnvironmentVariable(VariabileCartella));
    const QString File = sessione::ParcellePath + u"Pratica Verdi.mdb"_s;
    ApriParcella(QFile::exists(File) ? File : QString(), 0, {});
    F = Parcelle(1);
    QVERIFY(MostraAttiva(*F));
    CompilaCivile(F);
    Tocca();
    ClicScheda(F, SchedaListaOnorari);
    QTest::qWait(60'000);
}

void TestRecupero::Uccidi(const QByteArray& ConFile)
{
    sessione::UserFolder = NuovaCartella();
    if (!ConFile.isEmpty())
        ScriviFile(sessione::UserFolder + u"Pratica Verdi.mdb"_s, ConFile);
    QProcess Vittima;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    Ambiente.insert(QString::fromLatin1(VariabileCartella), sessione::UserFolder);
    Ambiente.insert(u"TMPDIR"_s, NuovaCartella());  // killed, it tidies nothing up
    Vittima.setProcessEnvironment(Ambiente);
    Vittima.start(QCoreApplication::applicationFilePath(), {u"TestRecupero"_s, u"laVittima"_s});
    QVERIFY(Vittima.waitForStarted());
    QVERIFY(AspettaCopia());
    QVERIFY2(NoteDaRecuperare().isEmpty(), "finché vive la nota è sua");
    QCOMPARE(::kill(pid_t(Vittima.processId()), SIGKILL), 0);
    QVERIFY(Vittima.waitForFinished());
    QCOMPARE(Vittima.exitStatus(), QProcess::CrashExit);
}

void TestRecupero::uccisoRestaLaCopia()
{
    Uccidi();
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    QCOMPARE(Trovate.size(), 1);
    QCOMPARE(Trovate.first().Nome, u"Nuova parcella"_s);
    QVERIFY(Trovate.first().Percorso.isEmpty());
    QVERIFY(std::abs(Trovate.first().Quando.secsTo(QDateTime::currentDateTime())) < 60);
    Parcella Letta;
    RecuperaNota(Letta, Trovate.first());
    QVERIFY(Letta.Modificata);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);
    QCOMPARE(Letta.ImportoPrec, 30000.0);
    QVERIFY(Letta.xOnorari.Righe() >= 4);
}

void TestRecupero::recuperata()
{
    Uccidi();
    const CopiaRecupero Copia = NoteDaRecuperare().first();
    T->Voce.Attendi(Domanda(Copia), vbYes, u"Domanda:"_s);
    OffriRecupero();
    QCOMPARE(UltimaParcella(), 1);
    QCOMPARE(F->windowTitle(), u"Nuova parcella"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
    QVERIFY(InfoParcelle[1].Modificata);
    QVERIFY(F->Nota.xOnorari.Righe() >= 4);
    QVERIFY2(!QFile::exists(Copia.File), "presa in carico, la vecchia copia se ne va");
    QVERIFY2(Copie().size() == 1, "ma la nota ha di nuovo la sua");
    OffriRecupero();  // and nothing is offered twice
    QVERIFY(NoteDaRecuperare().isEmpty());
    QCOMPARE(Copie(u"lock"_s).size(), 1);
}

void TestRecupero::recuperataConPercorso()
{
    Parcella Salvata = NotaCivile();
    ScriviNota(T->Ufficio.File(u"verdi.mdb"_s), Salvata);
    Uccidi(LeggiFile(T->Ufficio.File(u"verdi.mdb"_s)));
    const CopiaRecupero Copia = NoteDaRecuperare().first();
    const QString Vera = sessione::UserFolder + u"Pratica Verdi.mdb"_s;
    QCOMPARE(Copia.Percorso, Vera);
    T->Voce.Attendi(Domanda(Copia), vbYes);
    OffriRecupero();
    QCOMPARE(F->windowTitle(), u"pratica verdi"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"pratica verdi"_s);
    QCOMPARE(F->Nota.Percorso, Vera);
    QVERIFY2(Cliente(Vera).isEmpty(), "il file vero non è toccato");
    T->Voce.AttendiSalva(Vera);
    T->Voce.Attendi(u"La parcella Pratica Verdi.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(T->Voce.InizioDialogo(), Vera);
    QCOMPARE(Cliente(Vera), u"Rossi"_s);
    QVERIFY(Copie().isEmpty());
}

void TestRecupero::recuperataESalvataDaAltri_data()
{
    QTest::addColumn<bool>("DaAltri");
    QTest::addColumn<bool>("ConImpronta");
    QTest::newRow("a colleague has saved since") << true << true;
    QTest::newRow("nobody has") << false << true;
    QTest::newRow("a colleague, and a copy without a stamp") << true << false;
    QTest::newRow("nobody, and a copy without a stamp") << false << false;
}

/// The window knows of its file what the lost one knew, so that keys pressed by habit ask as they would have
/// there.
void TestRecupero::recuperataESalvataDaAltri()
{
    QFETCH(bool, DaAltri);
    QFETCH(bool, ConImpronta);
    T->Voce.AttendiSalva(T->Ufficio.File(u"nota.mdb"_s));
    T->Voce.Attendi(u"La parcella nota.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
    const QString File = F->Nota.Percorso;
    Tocca();
    QVERIFY(AspettaCopia());
    if (!ConImpronta)
        AggiornaCopia(F->Nota, 1);
    LasciaRecupero();  // as if this process were gone
    if (DaAltri)
        ImpostaDataFile(File, DataFile(File).addSecs(60));
    T->Voce.Attendi(Domanda(NoteDaRecuperare().first()), vbYes);
    OffriRecupero();
    auto* Recuperata = Parcelle(2);
    QVERIFY(Recuperata && Recuperata->Nota.Percorso == File);
    if (DaAltri)
        T->Voce.Attendi(u"La parcella nota.mdb è stata cambiata da altri dopo che è stata aperta.\n"
                        u"Sostituirla con questa?"_s,
                        vbNo, u"Domanda:"_s);
    QCOMPARE(Recuperata->SalvaSulPosto(), !DaAltri);
}

void TestRecupero::eliminata()
{
    Uccidi();
    T->Voce.Attendi(Domanda(NoteDaRecuperare().first()), vbNo);
    OffriRecupero();
    QVERIFY(Copie().isEmpty() && Copie(u"json"_s).isEmpty() && Copie(u"lock"_s).isEmpty());
    QVERIFY(!F->Nota.Modificata);
}

void TestRecupero::piuTardi()
{
    QDir().mkpath(CartellaCopie());
    ScriviNota(CartellaCopie() + u"99999999-1-1.mdb"_s, F->Nota);
    T->Voce.Attendi(Domanda(NoteDaRecuperare().first()), vbCancel);
    OffriRecupero();
    QCOMPARE(NoteDaRecuperare().size(), 1);
}

void TestRecupero::copiaGuasta_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    const Studio Ufficio;
    ScriviNota(Ufficio.File(u"nota.mdb"_s), NotaCivile());
    const QByteArray Intera = LeggiFile(Ufficio.File(u"nota.mdb"_s));
    QTest::newRow("vuota") << QByteArray();
    QTest::newRow("estranea") << QByteArray(3000, 'x');
    QTest::newRow("troncata") << Intera.left(Intera.size() / 2);
    QTest::newRow("guasta nel mezzo") << Intera.left(4096) + QByteArray(Intera.size() - 4096, 'x');
}

void TestRecupero::copiaGuasta()
{
    QFETCH(QByteArray, Contenuto);
    QDir().mkpath(CartellaCopie());
    ScriviFile(CartellaCopie() + u"99999999-1-1.mdb"_s, Contenuto);
    T->Voce.Attendi(Domanda(NoteDaRecuperare().first()), vbYes);
    T->Voce.Tollera();
    OffriRecupero();
    QVERIFY(T->Voce.UltimoTesto().startsWith(u"Errore: "_s));
    QVERIFY2(NoteDaRecuperare().size() == 1, "ciò che non si legge non si butta");
    QVERIFY(!InfoParcelle[1].Modificata);
}

void TestRecupero::foglioAccantoGuasto()
{
    QDir().mkpath(CartellaCopie());
    F->Nota.txtCliente.Testo = u"Rossi"_s;
    ScriviNota(CartellaCopie() + u"99999999-1-1.mdb"_s, F->Nota);
    ScriviFile(CartellaCopie() + u"99999999-1-1.json"_s, "{\"Percorso\": [1, 2], \"Nome\"");
    const CopiaRecupero Copia = NoteDaRecuperare().first();
    QVERIFY(Copia.Percorso.isEmpty());
    QCOMPARE(Copia.Nome, u"Nuova parcella"_s);
    T->Voce.Attendi(Domanda(Copia), vbYes);
    OffriRecupero();
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
}

void TestRecupero::restiDiUnMorto()
{
    AggiornaCopia(F->Nota, 1);
    const QString Propria = CartellaCopie() + u".~"_s + Copie().first() + u".tmp"_s;
    ScriviFile(Propria, "in corso");
    const QStringList Resti{u".~99999999-1-1.mdb.tmp"_s,   u".~99999999-1-1.mdb.tmp-journal"_s,
                            u".~99999999-1-1.mdb.turno"_s, u"99999999-1-1.json"_s,
                            u"99999999-1-1.json.aBcDeF"_s, u"99999999-1-1.presa"_s};
    for (const QString& Resto : Resti)
        ScriviFile(CartellaCopie() + Resto, "x");
    ScriviFile(CartellaCopie() + u"appunti.txt"_s, "x");
    QVERIFY(NoteDaRecuperare().isEmpty());
    for (const QString& Resto : Resti)
        QVERIFY2(!QFile::exists(CartellaCopie() + Resto), qPrintable(Resto));
    QVERIFY2(QFile::exists(CartellaCopie() + u"appunti.txt"_s), "di chi non è dei nostri");
    QVERIFY2(QFile::exists(Propria) && Copie(u"json"_s).size() == 1, "di chi vive");
}

void TestRecupero::ilRicalcoloSiRicorda()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    ClicScheda(F, SchedaBase);
    const double Prima = CalcolaSomme(F->Nota).TotOnorari;
    QVERIFY(Prima > 0);
    T->Voce.Attendi(
        u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi "
        u"parametri.\nConfermi la modifica?"_s,
        vbYes);
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"200000"_s);
    Premi(Qt::Key_Tab);
    QVERIFY(F->Nota.RicalcoloNecessario);
    AggiornaCopia(F->Nota, 1);
    const QString Mia = CartellaCopie() + Copie().first();
    for (const QString& Tipo : {u".mdb"_s, u".json"_s})
        QVERIFY(QFile::copy(Mia.chopped(4) + Tipo, CartellaCopie() + u"99999999-1-1"_s + Tipo));

    Parcella Letta;
    RecuperaNota(Letta, NoteDaRecuperare().first());
    QVERIFY2(Letta.RicalcoloNecessario, "o le righe resterebbero del valore di prima");
    Catalogo Voci;
    EntraOnorari(Letta, Voci);
    QVERIFY(CalcolaSomme(Letta).TotOnorari > Prima);
    F->SetModificata(false);
}

void TestRecupero::primaDiChiedereLaCopiaCe()
{
    attese::CopiaMs = 60000;
    Tocca();
    QStringList Viste;
    Messaggi Suoi;
    Suoi.SalvaFile = [&](const QString&, const QString&, const QString&) {
        Viste += Copie();
        return T->Ufficio.File(u"nota.mdb"_s);
    };
    Suoi.Box = [&](const QString& Testo, int, const QString&) {
        Viste += Testo.contains(u"correttamente") && Copie().isEmpty() ? u"salvata"_s : Testo;
        return vbOK;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    QVERIFY(F->SalvaParcella(false));
    InstallaMessaggi(Prima);
    QCOMPARE(Viste.size(), 2);
    QVERIFY2(Viste.first().endsWith(u".mdb"), "il dialogo può restare aperto a lungo");
    QVERIFY2(Viste.last() == u"salvata", "scritta la nota, non c'è più nulla da offrire");
}

void TestRecupero::unaCopiaPrenotata()
{
    QDir().mkpath(CartellaCopie());
    ScriviNota(CartellaCopie() + u"99999999-1-1.mdb"_s, F->Nota);
    const CopiaRecupero Copia = NoteDaRecuperare().first();
    {
        const PrenotazioneCopia Mia(Copia);
        QVERIFY(Mia);
        const PrenotazioneCopia DiUnAltro(Copia);
        QVERIFY(!DiUnAltro);
    }
    EliminaCopia(Copia);
    const PrenotazioneCopia Tardi(Copia);
    QVERIFY2(!Tardi, "qualcuno l'ha già sistemata");
}

#include "TestRecupero.moc"
