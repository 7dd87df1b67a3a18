// The signal to another program: what a listener hears, and that nobody waits for one who does not listen.
#include "supporto/prova.h"

#include "platform/network/segnale.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QScopeGuard>

#include <array>
#include <cstring>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Milliseconds past which a call that should not wait has waited: well above a busy machine, well below the
/// half minute of a wait that nobody bounds.
constexpr qint64 AttesaSenzaFine = 10000;

const QString Titolo = u"Praxivo - Gestione pratiche"_s;

/// What one caller sends, until it hangs up.
QByteArray Udito(QLocalServer& Ascolto)
{
    if (!Ascolto.hasPendingConnections() && !Ascolto.waitForNewConnection(2000))
        return "nessuno"_ba;
    const std::unique_ptr<QLocalSocket> Presa(Ascolto.nextPendingConnection());
    while (Presa->state() == QLocalSocket::ConnectedState)
        if (!Presa->waitForReadyRead(2000))
            break;
    return Presa->readAll();
}

}  // namespace

class TestSegnale : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void chiAscoltaSenteIlTestoColSuoNullo_data();
    void chiAscoltaSenteIlTestoColSuoNullo();
    void ognunoSenteIlSuoNome();
    void nessunoInAscolto();
    void presaDiUnProgrammaMorto();
    void chiNonRispondeNonFaAspettare();
    void senzaCartellaDiSessione();
    void cartellaDiQuestoUtente();
    void cartellaCheAltriVedono_data();
    void cartellaCheAltriVedono();
    void chiSiSpacciaPerLei();
    void ilRestoDellaTavolaResta();

private:
    QByteArray Sessione;
};
PROVA(TestSegnale);

void TestSegnale::init()
{
    Sessione = qgetenv("XDG_RUNTIME_DIR");
    InstallaSegnale();
}

void TestSegnale::cleanup()
{
    qputenv("XDG_RUNTIME_DIR", Sessione);
    InstallaShell({});
}

void TestSegnale::chiAscoltaSenteIlTestoColSuoNullo_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QByteArray>("Atteso");
    QTest::newRow("refresh") << u"refresh"_s << QByteArray("refresh\0", 8);
    QTest::newRow("8 bits a character") << u"perché €"_s << QByteArray("perch\xE9 \x80\0", 9);
    QTest::newRow("nothing but the null") << QString() << QByteArray(1, '\0');
}

void TestSegnale::chiAscoltaSenteIlTestoColSuoNullo()
{
    QFETCH(QString, Testo);
    QLocalServer Ascolto;
    QVERIFY(Ascolto.listen(PresaSegnale(Titolo)));
    Segnala(Titolo, Testo);
    QTEST(Udito(Ascolto), "Atteso");
    Segnala(Titolo, Testo);  // each signal is a call of its own
    QTEST(Udito(Ascolto), "Atteso");
}

void TestSegnale::ognunoSenteIlSuoNome()
{
    QLocalServer Ascolto;
    QLocalServer Altro;
    QVERIFY(Ascolto.listen(PresaSegnale(Titolo)));
    QVERIFY(Altro.listen(PresaSegnale(u"Praxivo - gestione pratiche"_s)));
    Segnala(Titolo, u"refresh"_s);
    QCOMPARE(Udito(Ascolto), QByteArray("refresh\0", 8));
    QVERIFY2(!Altro.waitForNewConnection(50), "the title is compared with case");
}

void TestSegnale::nessunoInAscolto()
{
    QElapsedTimer Orologio;
    Orologio.start();
    Segnala(Titolo, u"refresh"_s);
    QVERIFY2(Orologio.elapsed() < AttesaSenzaFine, "nobody is waited for");
    QVERIFY(!QFileInfo::exists(PresaSegnale(Titolo)));
}

void TestSegnale::presaDiUnProgrammaMorto()
{
    // What a killed program leaves: a name that nobody answers to.
    const QString Nome = PresaSegnale(Titolo);
    {
        QLocalServer Ascolto;
        QVERIFY(Ascolto.listen(Nome));
        QVERIFY(QFile::rename(Nome, Nome + u".morto"_s));  // or its end would take the name away
    }
    QVERIFY(QFile::rename(Nome + u".morto"_s, Nome));
    QElapsedTimer Orologio;
    Orologio.start();
    Segnala(Titolo, u"refresh"_s);
    QVERIFY(Orologio.elapsed() < AttesaSenzaFine);
    QVERIFY(QFile::remove(Nome));
}

void TestSegnale::chiNonRispondeNonFaAspettare()
{
    QLocalServer Sordo;
    Sordo.setListenBacklogSize(1);
    QVERIFY(Sordo.listen(PresaSegnale(Titolo)));
    // It takes nobody in, until its queue is full.
    std::vector<std::unique_ptr<QLocalSocket>> Coda;
    do {
        Coda.push_back(std::make_unique<QLocalSocket>());
        Coda.back()->connectToServer(PresaSegnale(Titolo));
    } while (Coda.back()->state() == QLocalSocket::ConnectedState && Coda.size() < 200);
    QVERIFY(Coda.size() < 200);
    QElapsedTimer Orologio;
    Orologio.start();
    Segnala(Titolo, u"refresh"_s);
    QVERIFY2(Orologio.elapsed() < AttesaSenzaFine, qPrintable(QString::number(Orologio.elapsed())));
}

void TestSegnale::senzaCartellaDiSessione()
{
    const QString File = CartellaDiProva() + u"nessuna cartella"_s;
    QVERIFY(QFile(File).open(QIODevice::WriteOnly));
    const auto Rimetti = qScopeGuard([Era = qgetenv("TMPDIR")] { qputenv("TMPDIR", Era); });
    for (const char* Nome : {"XDG_RUNTIME_DIR", "TMPDIR"})
        qputenv(Nome, QFile::encodeName(File));
    QTest::failOnWarning(QRegularExpression(u"."_s));  // nobody is told in the toolkit's words
    QCOMPARE(PresaSegnale(Titolo), QString());
    Segnala(Titolo, u"refresh"_s);
    qunsetenv("XDG_RUNTIME_DIR");
    QCOMPARE(PresaSegnale(Titolo), QString());
}

void TestSegnale::cartellaCheAltriVedono_data()
{
    QTest::addColumn<int>("Modo");
    QTest::newRow("others may write") << 0777;
    QTest::newRow("others may look") << 0755;
    QTest::newRow("a group may enter") << 0710;
}

void TestSegnale::cartellaCheAltriVedono()
{
    QFETCH(int, Modo);
    const QByteArray Aperta = QFile::encodeName(NuovaCartella());
    qputenv("XDG_RUNTIME_DIR", Aperta);
    QVERIFY(::chmod(Aperta.constData(), 0700) == 0);
    QLocalServer Ascolto;
    QVERIFY(Ascolto.listen(PresaSegnale(Titolo)));
    Segnala(Titolo, u"refresh"_s);
    QCOMPARE(Udito(Ascolto), QByteArray("refresh\0", 8));
    QVERIFY(::chmod(Aperta.constData(), mode_t(Modo)) == 0);
    QCOMPARE(PresaSegnale(Titolo), QString());
    Segnala(Titolo, u"refresh"_s);
    QVERIFY2(!Ascolto.waitForNewConnection(50), "anybody could stand there");
}

void TestSegnale::chiSiSpacciaPerLei()
{
    if (::geteuid() != 0)
        QSKIP("only the superuser can be somebody else");
    // Somebody else's program stands where she would, by whatever way it came there.
    constexpr uid_t Altro = 54321;
    const QString Nome = PresaSegnale(Titolo);
    const QByteArray Cartella = QFile::encodeName(CartellaFile(Nome));
    const int Presa = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un Dove = {};
    Dove.sun_family = AF_UNIX;
    const QByteArray Percorso = QFile::encodeName(Nome);
    std::memcpy(Dove.sun_path, Percorso.constData(), size_t(std::min<qsizetype>(Percorso.size(), 107)));
    QVERIFY(::bind(Presa, reinterpret_cast<const sockaddr*>(&Dove), sizeof Dove) == 0);
    QVERIFY(::seteuid(Altro) == 0);
    const bool Ascolta = ::listen(Presa, 4) == 0;
    QVERIFY(::seteuid(0) == 0);
    QVERIFY(Ascolta);
    Segnala(Titolo, u"refresh"_s);
    const int Filo = ::accept4(Presa, nullptr, nullptr, SOCK_CLOEXEC);
    std::array<char, 16> Letti{};
    const ssize_t Quanti = ::read(Filo, Letti.data(), Letti.size());
    ::close(Filo);
    ::close(Presa);
    QVERIFY(QFile::remove(Nome));
    QCOMPARE(Quanti, ssize_t(0));
}

void TestSegnale::cartellaDiQuestoUtente()
{
    QCOMPARE(PresaSegnale(Titolo), QFile::decodeName(Sessione) + u"/Praxivo - Gestione pratiche"_s);
    const QFileInfo Cartella(QFile::decodeName(Sessione));
    QVERIFY2(!Cartella.permission(QFile::ReadGroup) && !Cartella.permission(QFile::WriteOther) &&
                 !Cartella.permission(QFile::ReadOther),
             "nobody else looks in");
}

void TestSegnale::ilRestoDellaTavolaResta()
{
    Shell Tavola;
    Tavola.Connesso = [] { return true; };
    InstallaShell(Tavola);
    InstallaSegnale();
    QVERIFY(InternetConnesso());
    const Shell Intera = InstallaShell({});
    QVERIFY(Intera.Segnala);
}

#include "TestSegnale.moc"
