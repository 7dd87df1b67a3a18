// Keys that are kept beside an archive: whoever adds names to it has to know them.
#include "addressbook/archivio.h"
#include "addressbook/chiavi.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"

#include <QScopeGuard>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class TestChiavi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void diChiELArchivio_data();
    void diChiELArchivio();
    void chiNonLeLegge_data();
    void chiNonLeLegge();
    void nessunaSegueLUltima();
};
PROVA(TestChiavi);

void TestChiavi::diChiELArchivio_data()
{
    QTest::addColumn<int>("Cartella");
    QTest::addColumn<int>("Archivio");
    QTest::newRow("the user's alone") << 0700 << 0600;
    QTest::newRow("a group's") << 0770 << 0660;
    QTest::newRow("a group's, with files of one's own") << 01770 << 0660;
    QTest::newRow("an archive for all") << 0777 << 0666;
}

void TestChiavi::diChiELArchivio()
{
    QFETCH(int, Cartella);
    QFETCH(int, Archivio);
    const mode_t Prima = ::umask(077);
    const auto Rimetti = qScopeGuard([Prima] { ::umask(Prima); });
    const ArchivioDiProva A;
    const QString File = sessione::ArchivioCliCon;
    QCOMPARE(::chmod(QFile::encodeName(File).constData(), mode_t(Archivio)), 0);
    QCOMPARE(::chmod(QFile::encodeName(CartellaFile(File)).constData(), mode_t(Cartella)), 0);
    for (const int Fino : {7, 9}) {
        TrattieniAccanto(File, u"clienti"_s, Fino);
        struct stat Suo = {};
        QCOMPARE(::stat(QFile::encodeName(File + u".chiavi"_s).constData(), &Suo), 0);
        QCOMPARE(int(Suo.st_mode & 0777), Archivio);
    }
    QCOMPARE(PrimaChiaveLibera(OpenDatabase(File), u"clienti"_s).value_or(0), 10);
    QCOMPARE(::chmod(QFile::encodeName(CartellaFile(File)).constData(), 0700), 0);
}

void TestChiavi::chiNonLeLegge_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<bool>("Leggibile");
    QTest::newRow("refused") << QByteArray("{\"clienti\": 7}") << false;
    QTest::newRow("cut off") << QByteArray("{\"clienti\": ") << true;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("a word for a key") << QByteArray("{\"clienti\": \"sette\"}") << true;
    QTest::newRow("below all keys") << QByteArray("{\"controparti\": -3}") << true;
    QTest::newRow("beyond all keys") << QByteArray("{\"clienti\": 9223372036854775807}") << true;
    QTest::newRow("a folder") << QByteArray("cartella") << true;
}

/// The key of a name that has gone would find another person.
void TestChiavi::chiNonLeLegge()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(bool, Leggibile);
    const ArchivioDiProva A;
    ArchivioDiProva::Aggiungi(5, u"Rossi"_s);
    const QString File = sessione::ArchivioCliCon;
    const QString Chiavi = File + u".chiavi"_s;
    const bool Cartella = Contenuto == "cartella";
    if (Cartella)
        CreaCartella(Chiavi);
    else
        ScriviFile(Chiavi, Contenuto);
    if (!Leggibile)
        QVERIFY(QFile::setPermissions(Chiavi, {}));
    const Database Db = OpenDatabase(File);
    for (const auto& Da : {std::function<void()>([&] { (void)PrimaChiaveLibera(Db, u"clienti"_s); }),
                           std::function<void()>([&] { (void)UltimaChiaveData(Db, u"clienti"_s); }),
                           std::function<void()>([&] { TrattieniAccanto(File, u"controparti"_s, 3); })}) {
        const ErroreVisto Guasto = ErroreDi(Da);
        QCOMPARE(Guasto.Numero, errori::Accesso);
        QVERIFY2(Guasto.Descrizione.startsWith(u"Il file \"%1\" ricorda le chiavi già date"_s.arg(Chiavi)),
                 qPrintable(Guasto.Descrizione));
    }
    // A name can be deleted all the same: the archive itself keeps its key.
    TrattieniChiavi(Db, u"clienti"_s, 5);
    if (Cartella) {
        QVERIFY(EsisteCartella(Chiavi));
        return;
    }
    QVERIFY(QFile::setPermissions(Chiavi, QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(LeggiFile(Chiavi), Contenuto);
}

/// Beyond it the file that keeps them could tell two keys apart no more.
void TestChiavi::nessunaSegueLUltima()
{
    const ArchivioDiProva A;
    const QString Chiavi = sessione::ArchivioCliCon + u".chiavi"_s;
    const Database Db = OpenDatabase(sessione::ArchivioCliCon);
    ScriviFile(Chiavi, "{\"clienti\": 9007199254740991}");
    QCOMPARE(PrimaChiaveLibera(Db, u"clienti"_s).value_or(0), qint64(1) << 53);
    const QByteArray Ultima = "{\"clienti\": 9007199254740992}";
    ScriviFile(Chiavi, Ultima);
    QCOMPARE(NumeroErrore([&] { (void)PrimaChiaveLibera(Db, u"clienti"_s); }), errori::Eccedenza);
    QCOMPARE(LeggiFile(Chiavi), Ultima);
}

#include "TestChiavi.moc"
