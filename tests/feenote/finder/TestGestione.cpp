#include "feenote/finder/finder_prova.h"
#include "feenote/finder/modGestione.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QScopedValueRollback>

#include <functional>
#include <memory>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

using namespace Qt::StringLiterals;

/// Deletion and another name, with what is asked before.
class TestGestione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void siCancella();
    void ilCollegamentoSiCancella();
    void ilModelloChiede_data();
    void ilModelloChiede();
    void ilModelloSeNeVaProtetto();
    void laParolaDOrdine_data();
    void laParolaDOrdine();
    void quelCheNonSiCancella_data();
    void quelCheNonSiCancella();
    void siRinomina_data();
    void siRinomina();
    void nomiRifiutati_data();
    void nomiRifiutati();
    void nessunFileSiSostituisce();
    void ilCollegamentoNonPrendeIlPostoDellaSua();
    void suUnDiscoSenzaMaiuscole();
    void nomeTroppoLungo();
    void ilModelloRinominatoRestaModello();
    void cartellaCheRifiutaIlNome();
    void ilGiornaleDiUnaSparitaNonEntra();
    void ilGiornaleTornaSeIlNomeNonSiDa();

private:
    bool Cancella()
    {
        return CancellaNota(File, [this] {
            Tolta = true;
            QVERIFY2(!EsisteFile(File) && Box->Mostrato(Box->Mostrati().size() - 1).Titolo == u"Domanda:",
                     "the row goes before the user is told");
        });
    }
    bool Rinomina()
    {
        return RinominaNota(File, [this](const QString& Percorso) { Nuovo = Percorso; });
    }
    void Proteggi() const { EseguiSu(File, u"UPDATE ParcellaParam SET Psw=?"_s, {CodificaPsw(u"chiave"_s)}); }

    std::unique_ptr<Studio> Ufficio;
    std::unique_ptr<Registratore> Box;
    QString File;
    QString Nuovo;
    bool Tolta = false;
};
PROVA(TestGestione);

namespace {
const QString EModello = u"La parcella è un modello: procedo con l'operazione?"_s;
const QString Conferma = u"Confermi la cancellazione della parcella: 'nota'?"_s;
const QString Eliminata = u"La parcella è stata eliminata!"_s;
const QString Rinominata = u"La parcella è stata rinominata!"_s;
const QString Invalido = u"Il nome specificato non è valido: non usare i caratteri [ ] ! ."_s;
const QString ChiedePsw = u"Specificare la password per modificare la parcella:"_s;
const QString ChiedeNome = u"Immettere il nuovo nome da assegnare alla parcella:"_s;

/// Another program that keeps a file to itself, in the engine's own way.
class AltroProgramma
{
public:
    explicit AltroProgramma(const QString& File)
    {
        constexpr off_t PrimoByte = 0x40000000;
        constexpr off_t Tratto = 512;
        int Detto[2];
        QCOMPARE(::pipe(Detto), 0);
        Processo = ::fork();
        if (Processo == 0) {
            struct flock Blocco = {};
            Blocco.l_type = F_WRLCK;
            Blocco.l_whence = SEEK_SET;
            Blocco.l_start = PrimoByte;
            Blocco.l_len = Tratto;
            const int Aperto = ::open(QFile::encodeName(File).constData(), O_RDWR);
            (void)!::write(Detto[1], ::fcntl(Aperto, F_SETLK, &Blocco) == 0 ? "y" : "n", 1);
            for (;;)
                ::pause();
        }
        char Avuto = 'n';
        QVERIFY(::read(Detto[0], &Avuto, 1) == 1 && Avuto == 'y');
        ::close(Detto[0]);
        ::close(Detto[1]);
    }
    ~AltroProgramma()
    {
        ::kill(Processo, SIGKILL);
        ::waitpid(Processo, nullptr, 0);
    }
    AltroProgramma(const AltroProgramma&) = delete;
    AltroProgramma& operator=(const AltroProgramma&) = delete;

private:
    pid_t Processo = -1;
};
}  // namespace

void TestGestione::init()
{
    Ufficio = std::make_unique<Studio>();
    File = SalvaNota(Ufficio->File(u"note/nota.mdb"_s));
    Nuovo.clear();
    Tolta = false;
    Box = std::make_unique<Registratore>();
}

void TestGestione::cleanup()
{
    Box.reset();
    Ufficio.reset();
}

void TestGestione::siCancella()
{
    Box->Attendi(Conferma, vbNo, u"Domanda:"_s);
    QVERIFY(!Cancella());
    QVERIFY(EsisteFile(File) && !Tolta);
    Box->Attendi(Conferma, vbYes, u"Domanda:"_s);
    Box->Attendi(Eliminata, vbOK, u"Messaggio:"_s);
    QVERIFY(Cancella());
    QVERIFY(!EsisteFile(File) && Tolta);
}

/// Of a link nothing but the link goes, and nothing else is said: the note behind it keeps its attribute too.
void TestGestione::ilCollegamentoSiCancella()
{
    const QString Vera = SalvaNota(Ufficio->File(u"altre/vera.mdb"_s));
    ImpostaSolaLettura(Vera, true);
    QFile::remove(File);
    QVERIFY(QFile::link(Vera, File));
    Box->Attendi(EModello, vbYes, u"Domanda:"_s);
    Box->Attendi(u"Confermi la cancellazione del collegamento alla parcella: 'nota'?"_s, vbYes,
                 u"Domanda:"_s);
    Box->Attendi(u"Il collegamento è stato eliminato: la parcella resta dov'è!"_s, vbOK, u"Messaggio:"_s);
    QVERIFY(Cancella());
    QVERIFY(Tolta && !QFileInfo(File).isSymLink());
    QVERIFY(EsisteFile(Vera) && SolaLettura(Vera));
}

void TestGestione::ilModelloChiede_data()
{
    QTest::addColumn<int>("Prima");
    QTest::addColumn<int>("Seconda");
    QTest::newRow("the first question is refused") << vbNo << 0;
    QTest::newRow("the second one is") << vbYes << vbNo;
    QTest::newRow("neither is") << vbYes << vbYes;
}

void TestGestione::ilModelloChiede()
{
    QFETCH(int, Prima);
    QFETCH(int, Seconda);
    ImpostaSolaLettura(File, true);
    Box->Attendi(EModello, Prima, u"Domanda:"_s);
    if (Seconda != 0)
        Box->Attendi(Conferma, Seconda, u"Domanda:"_s);
    if (Seconda == vbYes)
        Box->Attendi(Eliminata, vbOK, u"Messaggio:"_s);
    QCOMPARE(Cancella(), Seconda == vbYes);
    QCOMPARE(EsisteFile(File), Seconda != vbYes);
    QVERIFY2(!EsisteFile(File) || SolaLettura(File), "what stays stays protected");
}

/// A program that is killed while it removes a template leaves none that anybody writes over.
void TestGestione::ilModelloSeNeVaProtetto()
{
    const QString Altro = NuovaCartella() + u"altro.mdb"_s;
    ImpostaSolaLettura(File, true);
    std::filesystem::create_hard_link(QFile::encodeName(File).toStdString(),
                                      QFile::encodeName(Altro).toStdString());
    Box->Attendi(EModello, vbYes);
    Box->Attendi(Conferma, vbYes);
    Box->Attendi(Eliminata);
    QVERIFY(Cancella());
    QVERIFY(!EsisteFile(File));
    QVERIFY2(SolaLettura(Altro), "its attribute was taken away");
}

void TestGestione::laParolaDOrdine_data()
{
    QTest::addColumn<bool>("Nome");
    QTest::addColumn<QString>("Digitata");
    for (const bool Nome : {false, true}) {
        const char* Cosa = Nome ? "renamed: %s" : "deleted: %s";
        QTest::addRow(Cosa, "nothing typed") << Nome << QString();
        QTest::addRow(Cosa, "a wrong word") << Nome << u"altra"_s;
        QTest::addRow(Cosa, "the word") << Nome << u"chiave"_s;
    }
}

void TestGestione::laParolaDOrdine()
{
    QFETCH(bool, Nome);
    QFETCH(QString, Digitata);
    Proteggi();
    const bool Giusta = Digitata == u"chiave";
    Box->AttendiImmissione(ChiedePsw, Digitata);
    if (!Giusta && !Digitata.isEmpty())
        Box->Attendi(u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s, vbOK,
                     u"Errore:"_s);
    if (Giusta && Nome) {
        Box->AttendiImmissione(ChiedeNome, u"altra"_s);
        Box->Attendi(Rinominata);
    } else if (Giusta) {
        Box->Attendi(Conferma, vbYes);
        Box->Attendi(Eliminata);
    }
    QCOMPARE(Nome ? Rinomina() : Cancella(), Giusta);
    QCOMPARE(EsisteFile(File), !Giusta);
}

void TestGestione::quelCheNonSiCancella_data()
{
    QTest::addColumn<QString>("Come");
    QTest::addColumn<int>("Numero");
    QTest::newRow("gone between the list and the click") << u"sparita"_s << 53;
    QTest::newRow("rubbish since it was listed") << u"guasta"_s << 3343;
    QTest::newRow("another program is writing it") << u"bloccata"_s << 3260;
    QTest::newRow("a folder that refuses") << u"cartella"_s << 75;
    QTest::newRow("a template on a read-only medium") << u"supporto"_s << 75;
    QTest::newRow("a template that the system does not let go") << u"trattenuta"_s << 75;
    QTest::newRow("gone while the question stands") << u"via"_s << 53;
}

void TestGestione::quelCheNonSiCancella()
{
    QFETCH(QString, Come);
    std::unique_ptr<AltroProgramma> Altro;
    const bool Chiede = Come == u"cartella" || Come == u"supporto" || Come == u"trattenuta" || Come == u"via";
    if (Come == u"sparita") {
        QVERIFY(QFile::remove(File));
    } else if (Come == u"guasta") {
        ScriviFile(File, "x");
    } else if (Come == u"bloccata") {
        attese::BlocchiMs = 50;
        Altro = std::make_unique<AltroProgramma>(File);
    } else if (Come == u"cartella") {
        QVERIFY(QFile::setPermissions(CartellaFile(File), QFile::ReadOwner | QFile::ExeOwner));
    } else if (Come == u"supporto") {
        ImpostaSolaLettura(File, true);
        Box->Attendi(EModello, vbYes);
        guasti::SupportoBloccato = CartellaFile(File);
    }
    if (Come == u"trattenuta") {
        ImpostaSolaLettura(File, true);
        Box->Attendi(EModello, vbYes);
        guasti::FileTrattenuti = CartellaFile(File);
    }
    if (Chiede)
        Box->Attendi(Conferma, vbYes);
    if (Come == u"via")
        Registratore::AlMostrare() = [this] { QFile::remove(File); };
    const int Numero = NumeroErrore([this] { (void)Cancella(); });
    Registratore::AlMostrare() = {};
    Altro.reset();
    attese::BlocchiMs = 3000;
    guasti::SupportoBloccato.clear();
    QFile::setPermissions(CartellaFile(File), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    guasti::FileTrattenuti.clear();
    QTEST(Numero, "Numero");
    QVERIFY(!Tolta);
    QCOMPARE(EsisteFile(File), Come != u"sparita" && Come != u"via");
    QCOMPARE(SolaLettura(File), Come == u"supporto" || Come == u"trattenuta");
}

void TestGestione::siRinomina_data()
{
    QTest::addColumn<QString>("Digitato");
    QTest::addColumn<QString>("Diventa");
    QTest::newRow("another name") << u"altra"_s << u"altra.mdb"_s;
    QTest::newRow("with its ending") << u"altra.mdb"_s << u"altra.mdb"_s;
    QTest::newRow("its ending in capitals") << u"altra.MDB"_s << u"altra.mdb"_s;
    QTest::newRow("blanks around") << u"  altra nota  "_s << u"altra nota.mdb"_s;
    QTest::newRow("another case of the same name") << u"NOTA"_s << u"NOTA.mdb"_s;
    QTest::newRow("in another script") << u"Дело 7"_s << u"Дело 7.mdb"_s;
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("blanks alone") << u"   "_s << QString();
    QTest::newRow("the same name") << u"nota"_s << QString();
    QTest::newRow("the same name with its ending") << u"nota.mdb"_s << QString();
}

void TestGestione::siRinomina()
{
    QFETCH(QString, Digitato);
    QFETCH(QString, Diventa);
    const QByteArray Prima = LeggiFile(File);
    Box->AttendiImmissione(ChiedeNome, Digitato);
    if (!Diventa.isEmpty())
        Box->Attendi(Rinominata, vbOK, u"Messaggio:"_s);
    QCOMPARE(Rinomina(), !Diventa.isEmpty());
    QCOMPARE(NomeFile(Nuovo), Diventa);
    const QString Ora = Diventa.isEmpty() ? u"nota.mdb"_s : Diventa;
    QCOMPARE(QDir(CartellaFile(File)).entryList(QDir::Files | QDir::Hidden), QStringList{Ora});
    QCOMPARE(LeggiFile(CartellaFile(File) + Ora), Prima);
}

void TestGestione::nomiRifiutati_data()
{
    QTest::addColumn<QString>("Digitato");
    for (const QChar C : u"[]!.\\/:*?<>\"|"_s)
        QTest::newRow(qPrintable(u"with "_s + C)) << u"a"_s + C + u"b"_s;
    QTest::newRow("a way into another folder") << u"../fuori"_s;
    QTest::newRow("the ending alone") << u".mdb"_s;
}

void TestGestione::nomiRifiutati()
{
    QFETCH(QString, Digitato);
    Box->AttendiImmissione(ChiedeNome, Digitato);
    Box->Attendi(Invalido, vbOK, u"Errore:"_s);
    QVERIFY(!Rinomina());
    QCOMPARE(Nuovo, QString());
    QVERIFY(EsisteFile(File));
}

void TestGestione::nessunFileSiSostituisce()
{
    const QString Altra = CartellaFile(File) + u"altra.mdb"_s;
    ScriviFile(Altra, "intoccabile");
    Box->AttendiImmissione(ChiedeNome, u"altra"_s);
    Box->Attendi(u"La parcella altra.mdb non può essere sovrascritta!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!Rinomina());
    QVERIFY(EsisteFile(File));
    QCOMPARE(LeggiFile(Altra), "intoccabile");
    // A link that leads nowhere has the name too.
    QVERIFY(QFile::link(CartellaFile(File) + u"manca"_s, CartellaFile(File) + u"appesa.mdb"_s));
    Box->AttendiImmissione(ChiedeNome, u"appesa"_s);
    Box->Attendi(u"La parcella appesa.mdb non può essere sovrascritta!"_s);
    QVERIFY(!Rinomina());
}

/// A link, or a second name, in other letters' case than the note's: renamed to the note's it would take the
/// note's place, and lead to itself.
void TestGestione::ilCollegamentoNonPrendeIlPostoDellaSua()
{
    const QByteArray Prima = LeggiFile(File);
    const QString Altra = CartellaFile(File) + u"NOTA.mdb"_s;
    for (const bool Secondo : {false, true}) {
        QFile::remove(Altra);
        if (Secondo)
            std::filesystem::create_hard_link(QFile::encodeName(File).toStdString(),
                                              QFile::encodeName(Altra).toStdString());
        else
            QVERIFY(QFile::link(u"nota.mdb"_s, Altra));
        Box->AttendiImmissione(ChiedeNome, u"nota"_s);
        Box->Attendi(u"La parcella nota.mdb non può essere sovrascritta!"_s, vbOK, u"Errore:"_s);
        QVERIFY(!RinominaNota(Altra, [](const QString&) {}));
        Box->AttendiImmissione(ChiedeNome, u"NOTA"_s);
        Box->Attendi(u"La parcella NOTA.mdb non può essere sovrascritta!"_s, vbOK, u"Errore:"_s);
        QVERIFY(!Rinomina());
        QVERIFY(!QFileInfo(File).isSymLink());
        QCOMPARE(QFileInfo(Altra).isSymLink(), !Secondo);
        QCOMPARE(LeggiFile(File), Prima);
    }
}

/// On a stick the note answers to its name in any case, and takes the letters that were typed.
void TestGestione::suUnDiscoSenzaMaiuscole()
{
    const QScopedValueRollback Disco(guasti::SenzaMaiuscole, CartellaFile(File));
    const QByteArray Prima = LeggiFile(File);
    Box->AttendiImmissione(ChiedeNome, u"Nota"_s);
    Box->Attendi(Rinominata, vbOK, u"Messaggio:"_s);
    QVERIFY(Rinomina());
    QCOMPARE(QDir(CartellaFile(File)).entryList(QDir::Files | QDir::Hidden), QStringList{u"Nota.mdb"_s});
    QCOMPARE(LeggiFile(Nuovo), Prima);
    ScriviFile(CartellaFile(File) + u"altra.mdb"_s, "intoccabile");
    Box->AttendiImmissione(ChiedeNome, u"Altra"_s);
    Box->Attendi(u"La parcella Altra.mdb non può essere sovrascritta!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!RinominaNota(Nuovo, [](const QString&) {}));
    QCOMPARE(LeggiFile(CartellaFile(File) + u"altra.mdb"_s), "intoccabile");
}

void TestGestione::nomeTroppoLungo()
{
    Box->AttendiImmissione(ChiedeNome, QString(119, u'è'));
    QCOMPARE(NumeroErrore([this] { (void)Rinomina(); }), 52);
    Box->AttendiImmissione(ChiedeNome, QString(118, u'è'));
    Box->Attendi(Rinominata);
    QVERIFY(Rinomina());
    QVERIFY(EsisteFile(Nuovo));
}

void TestGestione::ilModelloRinominatoRestaModello()
{
    ImpostaSolaLettura(File, true);
    Box->Attendi(EModello, vbNo);
    QVERIFY(!Rinomina());
    QVERIFY(SolaLettura(File));
    Box->Attendi(EModello, vbYes);
    Box->AttendiImmissione(ChiedeNome, {});
    QVERIFY(!Rinomina());
    QVERIFY(SolaLettura(File));
    Box->Attendi(EModello, vbYes);
    Box->AttendiImmissione(ChiedeNome, u"tipo"_s);
    Box->Attendi(Rinominata);
    QVERIFY(Rinomina());
    QVERIFY(SolaLettura(Nuovo));
}

void TestGestione::cartellaCheRifiutaIlNome()
{
    Box->AttendiImmissione(ChiedeNome, u"altra"_s);
    QVERIFY(QFile::setPermissions(CartellaFile(File), QFile::ReadOwner | QFile::ExeOwner));
    const int Numero = NumeroErrore([this] { (void)Rinomina(); });
    QFile::setPermissions(CartellaFile(File), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(Numero, 75);
    QVERIFY(EsisteFile(File));
}

/// A note that takes the name of one that was taken away without its journal keeps what it holds.
void TestGestione::ilGiornaleDiUnaSparitaNonEntra()
{
    const QString Sparita = CartellaFile(File) + u"sparita.mdb"_s;
    QByteArray Caldo;
    {
        EseguiSu(File, u"UPDATE ParcellaParam SET Oggetto='di prima'"_s);
        const Database Aperto = OpenDatabase(File);
        Aperto.Execute(u"PRAGMA cache_size=1"_s);
        const Transazione Aperta(Aperto);
        Aperto.Execute(u"UPDATE ParcellaParam SET Oggetto='a meta'"_s);
        Aperto.Execute(u"UPDATE ParcellaRighe SET Descr=printf('%.4000c', 'x')"_s);
        Caldo = LeggiFile(File + u"-journal"_s);
    }
    EseguiSu(File, u"UPDATE ParcellaParam SET Oggetto='questa'"_s);
    QVERIFY2(!Caldo.isEmpty() && Caldo.front() != '\0', "the engine would play it back");
    ScriviFile(Sparita + u"-journal"_s, Caldo);
    Box->AttendiImmissione(ChiedeNome, u"sparita"_s);
    Box->Attendi(Rinominata);
    Box->Attendi(
        u"Accanto c'era il giornale di una parcella sparita.mdb che non c'è più: è stato conservato, nella "
        u"stessa cartella, con il nome sparita.mdb-journal.orfano.\nServe solo se quella parcella torna al "
        u"suo posto, e allora con il nome sparita.mdb-journal; altrimenti si può eliminare."_s,
        vbOK, u"Messaggio:"_s);
    QVERIFY(Rinomina());
    QCOMPARE(Parametro(Sparita, u"Oggetto"_s).toString(), u"questa"_s);
    QCOMPARE(LeggiFile(Sparita + u"-journal.orfano"_s), Caldo);
    QCOMPARE(QDir(CartellaFile(File)).entryList(QDir::Files | QDir::Hidden),
             (QStringList{u"sparita.mdb"_s, u"sparita.mdb-journal.orfano"_s}));
}

/// What did not take the name leaves the journal to the one that may come back.
void TestGestione::ilGiornaleTornaSeIlNomeNonSiDa()
{
    const QString Sparita = CartellaFile(File) + u"sparita.mdb"_s;
    ScriviFile(Sparita + u"-journal"_s, "caldo");
    Box->AttendiImmissione(ChiedeNome, u"sparita"_s);
    {
        const QScopedValueRollback Via(guasti::PrimaDellaCartella,
                                       std::function<bool(const QString&)>([this](const QString&) {
                                           QFile::remove(File);
                                           return true;
                                       }));
        QCOMPARE(NumeroErrore([this] { (void)Rinomina(); }), 53);
    }
    QCOMPARE(QDir(CartellaFile(File)).entryList(QDir::Files | QDir::Hidden),
             QStringList{u"sparita.mdb-journal"_s});
}

#include "TestGestione.moc"
