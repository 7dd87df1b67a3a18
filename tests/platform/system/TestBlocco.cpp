// Lock files: who holds one, who is dead, who is far away.
#include "supporto/guasti.h"
#include "supporto/maschera.h"
#include "supporto/prova.h"

#include "platform/system/blocco.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QScopedValueRollback>
#include <QSysInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

using Esito = FileBlocco::Esito;

constexpr int AttesaLunga = 3000;
/// Well below a wait for somebody, well above what a busy machine needs.
constexpr qint64 SubitoMs = 900;

/// A number that no process has.
constexpr int Nessuno = 99999999;

QByteArray Firma(qint64 Processo, const QString& Macchina)
{
    return QByteArray::number(Processo) + "\ncalcanova\n" + Macchina.toUtf8() + '\n';
}

/// The same with the numbers of machine and start.
QByteArray Firma(qint64 Processo, const QString& Macchina, const QByteArray& Impronta,
                 const QByteArray& Avvio = QSysInfo::bootUniqueId())
{
    return Firma(Processo, Macchina) + Impronta + '\n' + Avvio + '\n';
}

/// What is said, and what is signed, while no application object stands yet.
struct PrimaDelProgramma
{
    PrimaDelProgramma()
    {
        static QStringList* Dette = nullptr;
        Dette = &Frasi;
        const auto Prima = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& Frase) { Dette->append(Frase); });
        const QTemporaryDir Cartella;
        FileBlocco Turno(Cartella.filePath(u"turno"_s));
        Preso = Turno.Prendi(0);
        QFile Firmato(Turno.Percorso());
        if (Firmato.open(QIODevice::ReadOnly))
            Nome = Firmato.readAll().split('\n').value(1);
        qInstallMessageHandler(Prima);
    }

    QStringList Frasi;
    Esito Preso = Esito::Impedito;
    QByteArray Nome;
};
const PrimaDelProgramma Presto;

}  // namespace

class TestBlocco : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void siPrendeESiLascia();
    void siLeggeDaTutti();
    void ancheSenzaProgramma();
    void unoSolo();
    void doveNonSiVedonoBlocchi();
    void chiTrovaIlFile_data();
    void chiTrovaIlFile();
    void nonSiAspettaUnMorto();
    void ilVuotoSiPrendeDopoUnSecondo();
    void ilTitolareSiSa();
    void siTogliePerOrdine();
    void traVersioniDiverse();
    void cartellaCheRifiuta();
    void siScartaQuelloDiUnMorto();

private:
    void Scrivi(const QByteArray& Contenuto, int Secondi) const;

    QString Cartella;
    QString File;
};
PROVA(TestBlocco);

void TestBlocco::init()
{
    Cartella = NuovaCartella();
    File = Cartella + u"n.turno"_s;
}

void TestBlocco::Scrivi(const QByteArray& Contenuto, int Secondi) const
{
    ScriviFile(File, Contenuto);
    ImpostaDataFile(File, QDateTime::currentDateTime().addSecs(-Secondi));
}

void TestBlocco::siPrendeESiLascia()
{
    {
        FileBlocco Mio(File);
        QCOMPARE(Mio.Prendi(0), Esito::Preso);
        const QList<QByteArray> Righe = LeggiFile(File).split('\n');
        QCOMPARE(Righe.value(0), QByteArray::number(QCoreApplication::applicationPid()));
        QCOMPARE(QString::fromUtf8(Righe.value(2)), QSysInfo::machineHostName());
    }
    QCOMPARE(ContenutoDi(Cartella), QStringList());
}

/// Whoever is kept waiting is told by whom, whatever the holder's system gives his files.
void TestBlocco::siLeggeDaTutti()
{
    FileBlocco Mio(NuovaCartella() + u"turno"_s);
    const mode_t Prima = ::umask(077);
    const Esito Preso = Mio.Prendi(0);
    ::umask(Prima);
    QCOMPARE(Preso, Esito::Preso);
    QCOMPARE(QFile::permissions(Mio.Percorso()) & DiAltri, QFile::ReadGroup | QFile::ReadOther);
}

/// A lock needs no application object: before it stands, the toolkit would only complain of it.
void TestBlocco::ancheSenzaProgramma()
{
    QCOMPARE(Presto.Frasi, QStringList());
    QCOMPARE(Presto.Preso, Esito::Preso);
    QCOMPARE(Presto.Nome, QFile::encodeName(QFileInfo(QCoreApplication::applicationFilePath()).fileName()));
}

void TestBlocco::unoSolo()
{
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(0), Esito::Preso);
    FileBlocco Altro(File);
    QElapsedTimer Orologio;
    Orologio.start();
    QCOMPARE(Altro.Prendi(200), Esito::Altrui);
    QVERIFY2(Orologio.elapsed() >= 200, "a living one is waited for");
    // Whatever its signature says, and however old it is.
    QFile Stesso(File);
    QVERIFY(Stesso.open(QIODevice::ReadWrite));
    QVERIFY(Stesso.resize(0));
    Stesso.write(Firma(Nessuno, u"altrove"_s));
    Stesso.close();
    ImpostaDataFile(File, QDateTime::currentDateTime().addSecs(-3600));
    QCOMPARE(Altro.Prendi(0), Esito::Altrui);
}

void TestBlocco::doveNonSiVedonoBlocchi()
{
    const QScopedValueRollback Semplice(guasti::SenzaBlocchi, true);
    const qint64 Io = QCoreApplication::applicationPid();
    const QString Qui = QSysInfo::machineHostName();
    const QByteArray Impronta = QSysInfo::machineUniqueId();
    Scrivi(Firma(Io, Qui, Impronta), 3600);
    QCOMPARE(FileBlocco(File).Prendi(0), Esito::Altrui);
    // The number came back after a start of the machine: nobody waits for who bears it now.
    Scrivi(Firma(Io, Qui, Impronta, "un-altro-avvio"), 0);
    QCOMPARE(FileBlocco(File).Prendi(0), QSysInfo::bootUniqueId().isEmpty() ? Esito::Altrui : Esito::Preso);
    Scrivi(Firma(Nessuno, Qui, Impronta), 0);
    QCOMPARE(FileBlocco(File).Prendi(0), Esito::Preso);
}

void TestBlocco::chiTrovaIlFile_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<int>("Secondi");
    QTest::addColumn<Esito>("Atteso");
    const QString Qui = QSysInfo::machineHostName();

    QTest::newRow("a dead process of this machine") << Firma(Nessuno, Qui) << 0 << Esito::Preso;
    QTest::newRow("the number of a living one: its system knows of no lock")
        << Firma(int(QCoreApplication::applicationPid()), Qui) << 0 << Esito::Preso;
    QTest::newRow("no machine named") << Firma(Nessuno, {}) << 0 << Esito::Preso;
    QTest::newRow("empty, just made") << QByteArray() << 0 << Esito::Altrui;
    QTest::newRow("empty, two seconds old") << QByteArray() << 2 << Esito::Preso;
    QTest::newRow("empty, of the future") << QByteArray() << -86400 << Esito::Preso;
    QTest::newRow("another machine, just now") << Firma(12, u"altrove"_s) << 0 << Esito::Altrui;
    QTest::newRow("another machine, four minutes") << Firma(12, u"altrove"_s) << 240 << Esito::Altrui;
    QTest::newRow("another machine, six minutes") << Firma(12, u"altrove"_s) << 360 << Esito::Abbandonato;
    QTest::newRow("another machine, of the future") << Firma(12, u"altrove"_s) << -3600 << Esito::Abbandonato;
    QTest::newRow("no signature, just now") << "\x01\x02 garbage"_ba << 0 << Esito::Altrui;
    QTest::newRow("no signature, old") << "\x01\x02 garbage"_ba << 5 << Esito::Abbandonato;
    QTest::newRow("a number alone") << "12"_ba << 5 << Esito::Abbandonato;
    if (const QByteArray Impronta = QSysInfo::machineUniqueId(); !Impronta.isEmpty()) {
        QTest::newRow("this machine by its number too") << Firma(Nessuno, Qui, Impronta) << 0 << Esito::Preso;
        QTest::newRow("this machine under a former name")
            << Firma(Nessuno, u"altrove"_s, Impronta) << 0 << Esito::Preso;
        QTest::newRow("another machine of this name")
            << Firma(Nessuno, Qui, "altra-macchina") << 0 << Esito::Altrui;
        QTest::newRow("another machine of this name, six minutes")
            << Firma(Nessuno, Qui, "altra-macchina") << 360 << Esito::Abbandonato;
    }
    QTest::newRow("no process has the number 0") << Firma(0, Qui) << 5 << Esito::Abbandonato;
}

void TestBlocco::chiTrovaIlFile()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(int, Secondi);
    Scrivi(Contenuto, Secondi);
    {
        FileBlocco Mio(File);
        QTEST(Mio.Prendi(0), "Atteso");
    }
    QFETCH(Esito, Atteso);
    QCOMPARE(ContenutoDi(Cartella), Atteso == Esito::Preso ? QStringList() : QStringList{u"n.turno"_s});
}

void TestBlocco::nonSiAspettaUnMorto()
{
    // What a program killed while it removed a dead one's lock left beside it is no hindrance.
    Scrivi(Firma(Nessuno, QSysInfo::machineHostName()), 0);
    ScriviFile(File + u".rmlock"_s, {});
    QElapsedTimer Orologio;
    Orologio.start();
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(AttesaLunga), Esito::Preso);
    QVERIFY2(Orologio.elapsed() < SubitoMs, qPrintable(QString::number(Orologio.elapsed())));
}

/// Of the dead of this machine alone, and where there is none nothing comes up.
void TestBlocco::siScartaQuelloDiUnMorto()
{
    ScartaBlocco(File);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
    Scrivi(Firma(Nessuno, QSysInfo::machineHostName()), 0);
    ScartaBlocco(File);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
    Scrivi(Firma(4321, u"segreteria"_s), 3600);
    ScartaBlocco(File);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"n.turno"_s});
    QVERIFY(TogliBlocco(File));
    FileBlocco Vivo(File);
    QCOMPARE(Vivo.Prendi(0), Esito::Preso);
    ScartaBlocco(File);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"n.turno"_s});
}

void TestBlocco::ilVuotoSiPrendeDopoUnSecondo()
{
    Scrivi({}, 0);
    QElapsedTimer Orologio;
    Orologio.start();
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(20000), Esito::Preso);
    QVERIFY2(Orologio.elapsed() < 20000, "not at the end of the wait");
}

void TestBlocco::ilTitolareSiSa()
{
    Scrivi(Firma(4321, u"segreteria"_s), 3600);
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(0), Esito::Abbandonato);
    QCOMPARE(Mio.Titolare().Processo, 4321);
    QCOMPARE(Mio.Titolare().Macchina, u"segreteria"_s);
    QCOMPARE(Mio.Titolare().Quando, DataFile(File));
}

void TestBlocco::siTogliePerOrdine()
{
    QVERIFY(TogliBlocco(File));  // none
    for (const QByteArray& Contenuto : {Firma(12, u"altrove"_s), "garbage"_ba}) {
        Scrivi(Contenuto, 3600);
        QVERIFY(TogliBlocco(File));
        QVERIFY(!EsisteFile(File));
    }
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(0), Esito::Preso);
    QVERIFY2(!TogliBlocco(File), "its process lives");
    QVERIFY(EsisteFile(File));
}

void TestBlocco::traVersioniDiverse()
{
    // Other versions of the program lock by the toolkit's own means.
    {
        QLockFile Altrui(File);
        QVERIFY(Altrui.tryLock(0));
        FileBlocco Mio(File);
        QCOMPARE(Mio.Prendi(0), Esito::Altrui);
    }
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(0), Esito::Preso);
    QLockFile Altrui(File);
    Altrui.setStaleLockTime(0);
    QVERIFY(!Altrui.tryLock(0));
    qint64 Processo = 0;
    QString Macchina;
    QString Programma;
    QVERIFY(Altrui.getLockInfo(&Processo, &Macchina, &Programma));
    QCOMPARE(Processo, QCoreApplication::applicationPid());
    QCOMPARE(Macchina, QSysInfo::machineHostName());
    QVERIFY(EsisteFile(File));
}

void TestBlocco::cartellaCheRifiuta()
{
    FileBlocco Nessuna(Cartella + u"no/n.turno"_s);
    QCOMPARE(Nessuna.Prendi(0), Esito::Impedito);
    const LimiteDiScrittura Pieno{4};
    FileBlocco Mio(File);
    QCOMPARE(Mio.Prendi(0), Esito::Impedito);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
}

#include "TestBlocco.moc"
