#include "platform/system/cartelle.h"

#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// What stands in a folder, above it, and where the trees begin.
class TestCartelle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leVociDiUnaCartella();
    void nomiCheNonSonoTesto();
    void siFermaQuandoSiVuole();
    void cartelleCheNonSiLeggono();
    void cartellaCheSparisce();
    void laCartellaSuperiore_data();
    void laCartellaSuperiore();
    void iVolumi();
    void iNomiDeiFile();
    void rinomina();
    void senzaCartella();
    void rinominaImpedita_data();
    void rinominaImpedita();
    void rinominaNelleMaiuscole();
    void iCollegamentiNelleMaiuscole();
    void senzaMaiuscole();
    void scarta();
    void leCartelleDelleProve();
};
PROVA(TestCartelle);

void TestCartelle::leVociDiUnaCartella()
{
    const QString Qui = NuovaCartella();
    ScriviFile(Qui + u"nota.mdb"_s, "12345");
    ScriviFile(Qui + u".nascosta"_s, "x");
    ImpostaSolaLettura(Qui + u"nota.mdb"_s, true);
    QVERIFY(QDir().mkpath(Qui + u"dentro"_s));
    QVERIFY(QFile::link(Qui, Qui + u"giro"_s));
    QVERIFY(QFile::link(Qui + u"manca"_s, Qui + u"appeso"_s));
    QCOMPARE(::mkfifo(QFile::encodeName(Qui + u"tubo"_s).constData(), 0600), 0);

    QStringList Viste;
    QVERIFY(ScorriCartella(Qui, [&](VoceCartella&& Voce) {
        Viste += u"%1 %2%3%4 %5"_s
                     .arg(Voce.Nome, Voce.Cartella ? u"d"_s : u"f"_s, Voce.Collegamento ? u"l"_s : QString(),
                          Voce.SolaLettura ? u"r"_s : QString())
                     .arg(Voce.Byte);
        return true;
    }));
    Viste.sort();
    QCOMPARE(Viste, (QStringList{u"dentro d 0"_s, u"giro dl 0"_s, u"nota.mdb fr 5"_s}));
}

void TestCartelle::nomiCheNonSonoTesto()
{
    const QString Qui = NuovaCartella();
    ScriviFile(Qui + u"Società.mdb"_s, "x");
    const QByteArray Dove = QFile::encodeName(Qui);
    for (const char* Nome : {"Societ\xe0.mdb", "tronca.\xc3", ".nascosta\xe0"}) {
        const int Aperto = ::open((Dove + Nome).constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        QVERIFY(Aperto >= 0);
        ::close(Aperto);
    }
    QCOMPARE(::mkdir((Dove + "Citt\xe0").constData(), 0700), 0);
    QCOMPARE(::mkfifo((Dove + "tubo\xe0").constData(), 0600), 0);

    QStringList Lette;
    QStringList Altre;
    QVERIFY(ScorriCartella(
        Qui,
        [&](VoceCartella&& Voce) {
            Lette += Voce.Nome;
            return true;
        },
        [&](const VoceCartella& Voce) { Altre += Voce.Nome + (Voce.Cartella ? u"/"_s : QString()); }));
    Altre.sort();
    QCOMPARE(Lette, QStringList{u"Società.mdb"_s});
    QCOMPARE(Altre, (QStringList{u"Citt\uFFFD/"_s, u"Societ\uFFFD.mdb"_s, u"tronca.\uFFFD"_s}));
}

void TestCartelle::siFermaQuandoSiVuole()
{
    const QString Qui = NuovaCartella();
    for (int i = 0; i < 5; ++i)
        ScriviFile(Qui + QString::number(i), "x");
    int Viste = 0;
    QVERIFY(!ScorriCartella(Qui, [&](VoceCartella&&) { return ++Viste < 2; }));
    QCOMPARE(Viste, 2);
}

void TestCartelle::cartelleCheNonSiLeggono()
{
    const QString Qui = NuovaCartella();
    const auto Prova = [](const QString& Cartella) {
        return NumeroErrore([&] { (void)ScorriCartella(Cartella, [](VoceCartella&&) { return true; }); });
    };
    QCOMPARE(Prova(Qui + u"manca"_s), 76);
    QCOMPARE(Prova({}), 76);
    ScriviFile(Qui + u"file"_s, "x");
    QCOMPARE(Prova(Qui + u"file"_s), 76);
    QVERIFY(QDir().mkpath(Qui + u"chiusa"_s));
    QVERIFY(QFile::setPermissions(Qui + u"chiusa"_s, {}));
    QCOMPARE(Prova(Qui + u"chiusa"_s), 75);
    QVERIFY(QFile::setPermissions(Qui + u"chiusa"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestCartelle::cartellaCheSparisce()
{
    const QString Qui = NuovaCartella() + u"via/"_s;
    QVERIFY(QDir().mkpath(Qui));
    ScriviFile(Qui + u"a"_s, "x");
    QCOMPARE(NumeroErrore([&] {
                 (void)ScorriCartella(Qui, [&](VoceCartella&&) { return QDir(Qui).removeRecursively(); });
             }),
             76);
}

void TestCartelle::laCartellaSuperiore_data()
{
    QTest::addColumn<QString>("Cartella");
    QTest::addColumn<QString>("Sopra");
    QTest::newRow("below another") << u"/a/b/"_s << u"/a/"_s;
    QTest::newRow("without the separator") << u"/a/b"_s << u"/a/"_s;
    QTest::newRow("the other separator") << u"/a\\b\\"_s << u"/a/"_s;
    QTest::newRow("below the root") << u"/a/"_s << u"/"_s;
    QTest::newRow("the root") << u"/"_s << QString();
    QTest::newRow("none") << QString() << QString();
}

void TestCartelle::laCartellaSuperiore()
{
    QFETCH(QString, Cartella);
    QTEST(CartellaSuperiore(Cartella), "Sopra");
}

void TestCartelle::iVolumi()
{
    const QList<Volume> Volumi = VolumiVisibili();
    QVERIFY(!Volumi.isEmpty());
    QCOMPARE(Volumi.first().Percorso, u"/"_s);
    QVERIFY(Volumi.contains(Volume{Barra(QDir::homePath()), QDir::homePath()}));
    for (const Volume& Uno : Volumi)
        QVERIFY2(EsisteCartella(Uno.Percorso) && !Uno.Percorso.startsWith(u"/proc"),
                 qPrintable(Uno.Percorso));
    const QList<Volume> Due{{u"/"_s, u"/"_s}, {u"/media/a/"_s, u"a"_s}};
    QCOMPARE(VolumeDi(Due, u"/media/a/x"_s), 1);
    QCOMPARE(VolumeDi(Due, u"/media/ab"_s), 0);
    QCOMPARE(VolumeDi({}, u"/x"_s), -1);
}

void TestCartelle::iNomiDeiFile()
{
    const QString Qui = NuovaCartella();
    for (const QString& Nome : {u"b.mdb"_s, u"A.MDB"_s, u".~c.mdb"_s, u"nota.json"_s})
        ScriviFile(Qui + Nome, "x");
    CreaCartella(Qui + u"cartella.mdb"_s);
    QStringList Note = NomiDeiFile(Qui, u".mdb"_s);
    QVERIFY2(Note.indexOf(u"A.MDB"_s) < Note.indexOf(u"b.mdb"_s), qPrintable(Note.join(u' ')));
    Note.sort();
    QCOMPARE(Note, (QStringList{u".~c.mdb"_s, u"A.MDB"_s, u"b.mdb"_s}));
    QCOMPARE(NomiDeiFile(Qui).size(), 4);
    QCOMPARE(NomiDeiFile(Qui + u"manca"_s), QStringList());
    QCOMPARE(NomiDeiFile({}), QStringList());
}

void TestCartelle::rinomina()
{
    const QString Qui = NuovaCartella();
    ScriviFile(Qui + u"prima"_s, "1");
    ScriviFile(Qui + u"altra"_s, "2");
    QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"prima"_s, Qui + u"altra"_s); }), 75);
    QCOMPARE(LeggiFile(Qui + u"altra"_s), QByteArray("2"));
    QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"manca"_s, Qui + u"dopo"_s); }), 53);
    {
        const CartellaChiusa Chiusa(Qui);
        QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"prima"_s, Qui + u"dopo"_s); }), 75);
    }
    RinominaFile(Qui + u"prima"_s, Qui + u"dopo"_s);
    QCOMPARE(ContenutoDi(Qui), (QStringList{u"altra"_s, u"dopo"_s}));
    QCOMPARE(LeggiFile(Qui + u"dopo"_s), QByteArray("1"));
}

/// A path that names no folder means the one where the process is.
void TestCartelle::senzaCartella()
{
    const QString Qui = NuovaCartella();
    const QString Dove = QDir::currentPath();
    QVERIFY(QDir::setCurrent(Qui));
    const auto Torna = qScopeGuard([&] { QDir::setCurrent(Dove); });
    ScriviFile(Qui + u"prima"_s, "1");
    RinominaFile(u"prima"_s, u"dopo"_s);
    QCOMPARE(ContenutoDi(Qui), QStringList{u"dopo"_s});
    {
        const CartellaChiusa Chiusa(Qui);
        QCOMPARE(NumeroErrore([&] { RinominaFile(u"dopo"_s, u"prima"_s); }), 75);
        QCOMPARE(NumeroErrore([&] { EliminaFile(u"dopo"_s); }), 75);
    }
    EliminaFile(u"dopo"_s);
    QCOMPARE(ContenutoDi(Qui), QStringList());
}

void TestCartelle::rinominaImpedita_data()
{
    QTest::addColumn<int>("Codice");
    QTest::addColumn<int>("Numero");
    QTest::newRow("a disk that is full") << ENOSPC << 61;
    QTest::newRow("a share of which all is used up") << EDQUOT << 61;
    QTest::newRow("a disk that fails") << EIO << 57;
    QTest::newRow("a medium that is read-only") << EROFS << 75;
}

void TestCartelle::rinominaImpedita()
{
    QFETCH(int, Codice);
    QFETCH(int, Numero);
    const QString Qui = NuovaCartella();
    ScriviFile(Qui + u"prima"_s, "1");
    {
        const QScopedValueRollback Rifiuto(guasti::RinominaRifiutata, Codice);
        QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"prima"_s, Qui + u"dopo"_s); }), Numero);
    }
    QCOMPARE(ContenutoDi(Qui), QStringList{u"prima"_s});
}

/// Here other letters' case is another name, and what bears it stays.
void TestCartelle::rinominaNelleMaiuscole()
{
    const QString Qui = NuovaCartella();
    ScriviFile(Qui + u"nota.mdb"_s, "1");
    RinominaFile(Qui + u"nota.mdb"_s, Qui + u"Nota.mdb"_s);
    QCOMPARE(ContenutoDi(Qui), QStringList{u"Nota.mdb"_s});
    ScriviFile(Qui + u"nota.mdb"_s, "2");
    QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"nota.mdb"_s, Qui + u"Nota.mdb"_s); }), 75);
    QCOMPARE(LeggiFile(Qui + u"Nota.mdb"_s), QByteArray("1"));
    QCOMPARE(LeggiFile(Qui + u"nota.mdb"_s), QByteArray("2"));
}

/// A link beside its file, under the same name in other letters' case, is not that file: neither takes the
/// other's place. The same holds of a file's second name.
void TestCartelle::iCollegamentiNelleMaiuscole()
{
    for (const bool Secondo : {false, true}) {
        const QString Qui = NuovaCartella();
        const QString Vero = Qui + u"Rossi.mdb"_s;
        const QString Altro = Qui + u"rossi.mdb"_s;
        ScriviFile(Vero, "contenuto");
        if (Secondo)
            QCOMPARE(::link(QFile::encodeName(Vero).constData(), QFile::encodeName(Altro).constData()), 0);
        else
            QVERIFY(QFile::link(u"Rossi.mdb"_s, Altro));
        QVERIFY(NomePreso(Vero) && NomePreso(Altro));
        QVERIFY(!StessaVoce(Vero, Altro));
        QVERIFY(!StessaVoce(Altro, Vero));
        QCOMPARE(NumeroErrore([&] { RinominaFile(Altro, Vero); }), 75);
        QCOMPARE(NumeroErrore([&] { RinominaFile(Vero, Altro); }), 75);
        QCOMPARE(QFileInfo(Altro).isSymLink(), !Secondo);
        QVERIFY(!QFileInfo(Vero).isSymLink());
        QCOMPARE(LeggiFile(Vero), QByteArray("contenuto"));
    }
    const QString Qui = NuovaCartella();
    QVERIFY(!NomePreso(Qui + u"x"_s));
    QVERIFY(QFile::link(u"manca"_s, Qui + u"x"_s));
    QVERIFY(NomePreso(Qui + u"x"_s));
    QVERIFY(!StessaVoce(Qui + u"manca"_s, Qui + u"MANCA"_s));
}

/// A disk that knows no case: the file takes the letters that were asked for, and others are another's.
void TestCartelle::senzaMaiuscole()
{
    const QString Qui = NuovaCartella();
    const QScopedValueRollback Disco(guasti::SenzaMaiuscole, Qui);
    ScriviFile(Qui + u"rossi.mdb"_s, "1");
    ScriviFile(Qui + u"rossi (cambio nome 1).mdb"_s, "altrui");
    ScriviFile(Qui + u"bianchi.mdb"_s, "2");
    QVERIFY(StessaVoce(Qui + u"rossi.mdb"_s, Qui + u"Rossi.mdb"_s));
    RinominaFile(Qui + u"rossi.mdb"_s, Qui + u"Rossi.mdb"_s);
    QCOMPARE(ContenutoDi(Qui),
             (QStringList{u"Rossi.mdb"_s, u"bianchi.mdb"_s, u"rossi (cambio nome 1).mdb"_s}));
    QCOMPARE(LeggiFile(Qui + u"Rossi.mdb"_s), QByteArray("1"));
    {
        const QScopedValueRollback Rifiuto(guasti::SecondoNomeRifiutato, EIO);
        QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"Rossi.mdb"_s, Qui + u"rossi.mdb"_s); }), 57);
    }
    QCOMPARE(ContenutoDi(Qui),
             (QStringList{u"Rossi.mdb"_s, u"bianchi.mdb"_s, u"rossi (cambio nome 1).mdb"_s}));
    // Asked for in other letters than the disk has, as a list of long ago has it.
    RinominaFile(Qui + u"ROSSI.mdb"_s, Qui + u"rOSSI.mdb"_s);
    QCOMPARE(LeggiFile(Qui + u"rOSSI.mdb"_s), QByteArray("1"));
    QVERIFY(!StessaVoce(Qui + u"rOSSI.mdb"_s, Qui + u"Bianchi.mdb"_s));
    QCOMPARE(NumeroErrore([&] { RinominaFile(Qui + u"rOSSI.mdb"_s, Qui + u"Bianchi.mdb"_s); }), 75);
    QCOMPARE(LeggiFile(Qui + u"bianchi.mdb"_s), QByteArray("2"));
    QCOMPARE(LeggiFile(Qui + u"rossi (cambio nome 1).mdb"_s), QByteArray("altrui"));
}

void TestCartelle::scarta()
{
    const QString Qui = NuovaCartella();
    ScriviFile(Qui + u"resto"_s, "1");
    ScartaFile(Qui + u"manca"_s);
    ScartaFile(Qui + u"resto"_s);
    QCOMPARE(ContenutoDi(Qui), QStringList());
}

/// What the tests themselves leave when they are killed.
void TestCartelle::leCartelleDelleProve()
{
    const QString Qui = NuovaCartella();
    const QString Propria = u"calcanova-prova-%1-abc"_s.arg(QCoreApplication::applicationPid());
    const QStringList Vive{u"altro-99999999-abc"_s, u"calcanova-prova-1-abc"_s, Propria,
                           u"calcanova-prova-x-abc"_s};
    for (const QString& Nome : Vive + QStringList{u"calcanova-prova-99999999-abc"_s}) {
        QVERIFY(QDir(Qui).mkpath(Nome + u"/1"_s));
        ScriviFile(Qui + Nome + u"/1/nota.mdb"_s, "x");
    }
    TogliCartelleDeiMorti(Qui);
    QStringList Rimaste = Vive;
    Rimaste.sort();
    QCOMPARE(ContenutoDi(Qui), Rimaste);
}

#include "TestCartelle.moc"
