// A note's file that somebody else is writing too.
#include "file_prova.h"

#include "platform/system/attese.h"
#include "platform/system/file.h"

#include <QDateTime>
#include <QDir>
#include <QLockFile>

#include <filesystem>

using namespace Qt::StringLiterals;

class TestScritturaContesa : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ciSiDaIlTurno();
    void ilTurnoSenzaFirmaNonEDiNessuno();
    void chiLoStaScrivendoFinisce();
    void ilGiornaleNonPassaAlFileNuovo();

private:
    QString Cartella;
    QString File;
};
PROVA(TestScritturaContesa);

void TestScritturaContesa::init()
{
    attese::BlocchiMs = 50;
    attese::TurnoMs = 50;
    Cartella = NuovaCartella();
    File = Cartella + u"nota.mdb"_s;
}

void TestScritturaContesa::cleanup()
{
    attese::BlocchiMs = 3000;
    attese::TurnoMs = 3000;
}

void TestScritturaContesa::ciSiDaIlTurno()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    QLockFile DiUnAltro(Cartella + u".~nota.mdb.turno"_s);
    QVERIFY(DiUnAltro.tryLock(0));
    ScriviFile(Cartella + u".~nota.mdb.tmp"_s, "a meta'");
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaCivile()); }), 3260);
    QVERIFY(!QFile::exists(File));
    QVERIFY2(LeggiFile(Cartella + u".~nota.mdb.tmp"_s) == "a meta'", "il lavoro dell'altro non si tocca");
    ScriviNota(Cartella + u"altra.mdb"_s, NotaCivile());
    DiUnAltro.unlock();
    ScriviNota(File, NotaCivile());
    QCOMPARE(ContenutoDi(Cartella), (QStringList{u"altra.mdb"_s, u"nota.mdb"_s}));
}

void TestScritturaContesa::ilTurnoSenzaFirmaNonEDiNessuno()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    const QString Turno = Cartella + u".~nota.mdb.turno"_s;
    ScriviFile(Turno, {});
    QVERIFY2(NumeroErrore([&] { ScriviNota(File, NotaCivile()); }) == 3260, "forse sta per firmarlo");
    QFile Vecchio(Turno);
    QVERIFY(Vecchio.open(QIODevice::ReadWrite));
    QVERIFY(Vecchio.setFileTime(QDateTime::currentDateTime().addSecs(-5), QFileDevice::FileModificationTime));
    Vecchio.close();
    ScriviNota(File, NotaCivile());
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

void TestScritturaContesa::chiLoStaScrivendoFinisce()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaCivile());
    // Another name of the same file gets a connection of its own, as another program would.
    const QString Altro = NuovaCartella() + u"altro.mdb"_s;
    std::filesystem::create_hard_link(File.toStdString(), Altro.toStdString());
    Parcella Nuova = NotaCivile();
    Nuova.txtCliente.Testo = u"Nuovo"_s;
    {
        const Database Suo = OpenDatabase(Altro);
        const Transazione Aperta(Suo);
        Suo.Execute(u"UPDATE ParcellaParam SET Cliente='Suo'"_s);
        QCOMPARE(NumeroErrore([&] { ScriviNota(File, Nuova); }), 3260);
        QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    }
    QCOMPARE(Parametro(File, u"Cliente"_s).toString(), QString());
    ScriviNota(File, Nuova);
    QCOMPARE(Parametro(File, u"Cliente"_s).toString(), u"Nuovo"_s);
}

void TestScritturaContesa::ilGiornaleNonPassaAlFileNuovo()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviFile(File, QByteArray(5000, 'x'));
    ScriviFile(File + u"-journal"_s, QByteArray(5000, 'y'));
    ScriviNota(File, NotaCivile());
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.ImportoPrec, NotaCivile().ImportoPrec);
}

#include "TestScritturaContesa.moc"
