// The hand-over of files: one listener for each settings, three steps, nobody else's program, bounded offers.
#include "supporto/prova.h"

#include "platform/network/staffetta.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QThread>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString Impostazioni = u"/casa/avvocato/.config/Calcanova/KR5.ini"_s;

/// A start of another program: in a thread of its own, because the listener answers from this one's event
/// loop.
bool Passa(const QString& Percorso, const QString& Quali = Impostazioni)
{
    bool Preso = false;
    const std::unique_ptr<QThread> Altro(QThread::create([&] { Preso = PassaFile(Quali, Percorso); }));
    Altro->start();
    while (!Altro->isFinished())
        QTest::qWait(1);
    return Preso;
}

/// Who speaks the protocol by hand.
class Chiamante
{
public:
    explicit Chiamante(const QByteArray& Offerta)
    {
        Presa.connectToServer(PresaStaffetta(Impostazioni));
        if (Presa.waitForConnected(2000))
            Presa.write(Offerta);
        Presa.flush();
    }
    /// What the listener has answered within a while.
    [[nodiscard]] QByteArray Risposta()
    {
        (void)QTest::qWaitFor([this] { return Presa.bytesAvailable() > 0 || !Collegato(); }, 2000);
        return Presa.readAll();
    }
    [[nodiscard]] bool Collegato() const { return Presa.state() == QLocalSocket::ConnectedState; }

    QLocalSocket Presa;
};

}  // namespace

class TestStaffetta : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void passaUnFile_data();
    void passaUnFile();
    void nessunoInAscolto();
    void ogniImpostazioneLaSua();
    void ilPrimoRestaInAscolto();
    void ilSecondoNePrendeIlPosto();
    void dopoUnProgrammaMorto();
    void soloPerQuestoUtente();
    void senzaCartellaDiSessione();
    void offertaNonConfermata();
    void chiFinisceTieneLeConferme();
    void offertaSmisurata_data();
    void offertaSmisurata();
    void chiNonRispondeNonFaAspettare();
    void unoSoloComincia();

private:
    QByteArray Sessione;
    std::unique_ptr<Staffetta> Ascolto;
    QStringList Aperti;
};
PROVA(TestStaffetta);

void TestStaffetta::init()
{
    Sessione = qgetenv("XDG_RUNTIME_DIR");
    Aperti.clear();
    Ascolto = std::make_unique<Staffetta>(Impostazioni, [this](const QString& File) { Aperti << File; });
    QVERIFY(Ascolto->InAscolto());
}

void TestStaffetta::cleanup()
{
    Ascolto.reset();
    qputenv("XDG_RUNTIME_DIR", Sessione);
}

void TestStaffetta::passaUnFile_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::newRow("plain") << u"/note/rossi.mdb"_s;
    QTest::newRow("blanks and accents") << u"/note/Però è già così €.mdb"_s;
    QTest::newRow("line breaks") << u"/note/due\nrighe.mdb"_s;
    QTest::newRow("the longest") << u'/' + QString(MassimoPercorso - 2, u'a');
}

void TestStaffetta::passaUnFile()
{
    QFETCH(QString, Percorso);
    QVERIFY(Passa(Percorso));
    QTRY_COMPARE(Aperti, QStringList{Percorso});
    QVERIFY(Passa(u"/note/altra.mdb"_s));
    QTRY_COMPARE(Aperti.size(), 2);
}

void TestStaffetta::nessunoInAscolto()
{
    Ascolto.reset();
    QElapsedTimer Tempo;
    Tempo.start();
    QVERIFY(!PassaFile(Impostazioni, u"/note/rossi.mdb"_s));
    QVERIFY(Tempo.elapsed() < 1500);
}

void TestStaffetta::ogniImpostazioneLaSua()
{
    QVERIFY(!Passa(u"/note/rossi.mdb"_s, Impostazioni + u'2'));
    QCOMPARE(Aperti, QStringList());
    QVERIFY(PresaStaffetta(Impostazioni) != PresaStaffetta(Impostazioni + u'2'));
}

void TestStaffetta::ilPrimoRestaInAscolto()
{
    QStringList Altrove;
    const Staffetta Seconda(Impostazioni, [&](const QString& File) { Altrove << File; });
    QVERIFY(!Seconda.InAscolto());
    QVERIFY(Passa(u"/note/rossi.mdb"_s));
    QTRY_COMPARE(Aperti.size(), 1);
    QCOMPARE(Altrove, QStringList());
}

void TestStaffetta::ilSecondoNePrendeIlPosto()
{
    QStringList Altrove;
    const Staffetta Seconda(Impostazioni, [&](const QString& File) { Altrove << File; });
    QTest::qWait(50);
    QVERIFY(!Seconda.InAscolto());
    Ascolto.reset();
    QTRY_VERIFY(Seconda.InAscolto());
    QVERIFY(Passa(u"/note/rossi.mdb"_s));
    QTRY_COMPARE(Altrove, QStringList{u"/note/rossi.mdb"_s});
    QCOMPARE(Aperti, QStringList());
}

void TestStaffetta::dopoUnProgrammaMorto()
{
    // A killed program leaves its socket behind, where nobody answers.
    const QString Nome = PresaStaffetta(Impostazioni);
    Ascolto.reset();
    {
        QLocalServer Morto;
        QVERIFY(Morto.listen(Nome));
        QVERIFY(QFile::rename(Nome, Nome + u".resto"_s));
    }
    QVERIFY(QFile::rename(Nome + u".resto"_s, Nome));
    QVERIFY(!PassaFile(Impostazioni, u"/note/rossi.mdb"_s));
    Ascolto = std::make_unique<Staffetta>(Impostazioni, [this](const QString& File) { Aperti << File; });
    QVERIFY(Ascolto->InAscolto());
    QVERIFY(Passa(u"/note/rossi.mdb"_s));
    QTRY_COMPARE(Aperti.size(), 1);
}

void TestStaffetta::soloPerQuestoUtente()
{
    const QFileInfo Presa(PresaStaffetta(Impostazioni));
    QVERIFY(Presa.exists());
    const QFile::Permissions Miei = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QCOMPARE(Presa.permissions() & ~Miei, QFile::Permissions());
    const QFile::Permissions DiAltri = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                       QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFileInfo(Presa.path()).permissions() & DiAltri, QFile::Permissions());
}

void TestStaffetta::senzaCartellaDiSessione()
{
    // Without a folder that is this user's alone nothing is handed over, and nothing is listened to.
    const QString File = CartellaDiProva() + u"nessuna cartella"_s;
    QVERIFY(QFile(File).open(QIODevice::WriteOnly));
    const auto Rimetti = qScopeGuard([Era = qgetenv("TMPDIR")] { qputenv("TMPDIR", Era); });
    for (const char* Nome : {"XDG_RUNTIME_DIR", "TMPDIR"})
        qputenv(Nome, QFile::encodeName(File));
    QTest::failOnWarning(QRegularExpression(u"."_s));  // nobody is told in the toolkit's words
    QVERIFY(!PassaFile(Impostazioni, u"/note/rossi.mdb"_s));
    QVERIFY(!Staffetta(Impostazioni, {}).InAscolto());
}

void TestStaffetta::offertaNonConfermata()
{
    // Who has not been answered in time opens the file by himself: it must not be opened twice.
    {
        Chiamante Frettoloso("/note/rossi.mdb" + QByteArray(1, '\0'));
        QCOMPARE(Frettoloso.Risposta(), "A");
    }
    QTest::qWait(50);
    QCOMPARE(Aperti, QStringList());
    Chiamante Altro("/note/bianchi.mdb" + QByteArray(1, '\0'));
    QCOMPARE(Altro.Risposta(), "A");
    Altro.Presa.write("X");
    Altro.Presa.flush();
    QTRY_VERIFY(!Altro.Collegato());
    QCOMPARE(Aperti, QStringList());
    QVERIFY(Passa(u"/note/neri.mdb"_s));
    QTRY_COMPARE(Aperti, QStringList{u"/note/neri.mdb"_s});
}

/// A listener that ends has accepted one file that is confirmed and one that never is.
void TestStaffetta::chiFinisceTieneLeConferme()
{
    Chiamante Confermato("/note/rossi.mdb" + QByteArray(1, '\0'));
    Chiamante Muto("/note/verdi.mdb" + QByteArray(1, '\0'));
    QCOMPARE(Confermato.Risposta(), "A");
    QCOMPARE(Muto.Risposta(), "A");
    Confermato.Presa.write("C");
    QVERIFY(Confermato.Presa.flush());
    QVERIFY(Aperti.isEmpty());
    Ascolto->Concludi();
    QCOMPARE(Aperti, QStringList{u"/note/rossi.mdb"_s});
    QVERIFY(!Ascolto->InAscolto());
    QVERIFY(!Passa(u"/note/neri.mdb"_s));
    QCOMPARE(Aperti.size(), 1);
}

void TestStaffetta::offertaSmisurata_data()
{
    QTest::addColumn<QByteArray>("Offerta");
    QTest::newRow("without its end") << QByteArray(MassimoPercorso, 'a');
    QTest::newRow("much more of it") << QByteArray(10 * MassimoPercorso, 'a');
    QTest::newRow("no name") << QByteArray(1, char(0));
}

void TestStaffetta::offertaSmisurata()
{
    QFETCH(QByteArray, Offerta);
    Chiamante Lungo(Offerta);
    QCOMPARE(Lungo.Risposta(), QByteArray());
    QTRY_VERIFY(!Lungo.Collegato());
    QCOMPARE(Aperti, QStringList());
    QVERIFY(!PassaFile(Impostazioni, QString(MassimoPercorso, u'a')));
    QVERIFY(!PassaFile(Impostazioni, QString()));
    QVERIFY(!PassaFile(Impostazioni, QString(u"/note/con"_s + QChar(0) + u"nullo.mdb"_s)));
    QVERIFY(Passa(u"/note/neri.mdb"_s));
}

void TestStaffetta::chiNonRispondeNonFaAspettare()
{
    // The listener is this thread, which does not come to answer: as a program that hangs.
    QElapsedTimer Tempo;
    Tempo.start();
    QVERIFY(!PassaFile(Impostazioni, u"/note/rossi.mdb"_s));
    QVERIFY2(Tempo.elapsed() < 10000, qPrintable(QString::number(Tempo.elapsed())));
    // It comes back to its events: the offer is accepted, and nobody is there to confirm it.
    QTest::qWait(100);
    QCOMPARE(Aperti, QStringList());
}

/// The one that has the turn is to listen; who comes meanwhile hands his file over as soon as it does.
void TestStaffetta::unoSoloComincia()
{
    Ascolto.reset();
    auto Primo = std::make_unique<TurnoStaffetta>(Impostazioni);
    QVERIFY(!Primo->Passa(u"/note/rossi.mdb"_s));
    bool Preso = false;
    const std::unique_ptr<QThread> Secondo(
        QThread::create([&] { Preso = TurnoStaffetta(Impostazioni).Passa(u"/note/verdi.mdb"_s); }));
    Secondo->start();
    QTest::qWait(300);
    QVERIFY2(!Secondo->isFinished(), "it waits while the first one begins");
    Ascolto = std::make_unique<Staffetta>(Impostazioni, [this](const QString& File) { Aperti << File; });
    QTRY_VERIFY(Secondo->isFinished());
    QVERIFY(Preso);
    QTRY_COMPARE(Aperti, QStringList{u"/note/verdi.mdb"_s});
    // The first one has ended without a listener: the turn is the next one's.
    Ascolto.reset();
    Primo.reset();
    QVERIFY(!TurnoStaffetta(Impostazioni).Passa(u"/note/neri.mdb"_s));
}

#include "TestStaffetta.moc"
