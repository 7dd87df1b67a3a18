#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QFile>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <atomic>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trovaFileQualunqueSianoLeMaiuscole();
    void trovaFilePreferisceIlNomeEsatto();
    void trovaFileNonTrovaCartelle();
    void esistenze();
    void creaTuttoIlPercorso();
    void creaCartellaRifiutata();
    void cartellaPrivata();
    void copiaIntera();
    void copiaFermata();
    void copiaFallita();
    void dataDelFile();
    void solaLetturaDaiPermessi();
    void solaLetturaDiCioCheManca();
    void solaLetturaSospesa();
    void cartellaScrivibileDaiPermessi();
    void fileLiberoNonEInUso();
    void fileBloccatoEInUso_data();
    void fileBloccatoEInUso();
    void fileApertoInUfficio();
    void leggeTuttoIlFile();
    void letturaRifiutata();
    void letturaEntroIlLimite();
    void leggiFileTesto_data();
    void leggiFileTesto();
    void leggiFileTestoInUtf8();
    void scriveERiscrive();
    void scritturaRifiutata();
    void discoPienoLasciaIlVecchio();
    void scritturaInterrottaLasciaIlVecchio();
    void scriveDietroUnCollegamento();
    void scriveConIPermessiDiPrima_data();
    void scriveConIPermessiDiPrima();
    void scrittoPerIlSoloUtente();
    void quelCheUnaCadutaHaLasciato();
    void cioCheNonEUnFile();
    void creaSoloQuelCheManca();
    void creaConLaSuaData();
    void creaUnoSoloFraMolti();
};
PROVA(TestFile);

namespace {

void Crea(const QString& File, const QByteArray& Contenuto = "x")
{
    QFile Nuovo(File);
    QVERIFY(Nuovo.open(QIODevice::WriteOnly));
    QCOMPARE(Nuovo.write(Contenuto), Contenuto.size());
}

}  // namespace

void TestFile::trovaFileQualunqueSianoLeMaiuscole()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u"Comuni.MDB"_s);
    QCOMPARE(TrovaFile(Cartella + u"comuni.mdb"_s), Cartella + u"Comuni.MDB"_s);
    QCOMPARE(TrovaFile(Cartella + u"\\COMUNI.mdb"_s), Cartella + u"Comuni.MDB"_s);
    QCOMPARE(TrovaFile(Cartella + u"altro.mdb"_s), Cartella + u"altro.mdb"_s);
    QCOMPARE(TrovaFile(Cartella + u"manca/comuni.mdb"_s), Cartella + u"manca/comuni.mdb"_s);
    QCOMPARE(TrovaFile(Cartella + u"*.mdb"_s), Cartella + u"*.mdb"_s);
}

void TestFile::trovaFilePreferisceIlNomeEsatto()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u"DATI.mdb"_s);
    Crea(Cartella + u"dati.mdb"_s);
    QCOMPARE(TrovaFile(Cartella + u"dati.mdb"_s), Cartella + u"dati.mdb"_s);
    QCOMPARE(TrovaFile(Cartella + u"DATI.mdb"_s), Cartella + u"DATI.mdb"_s);
    QCOMPARE(TrovaFile(Cartella + u"Dati.mdb"_s).compare(Cartella + u"dati.mdb"_s, Qt::CaseInsensitive), 0);
    QVERIFY(EsisteFile(TrovaFile(Cartella + u"Dati.mdb"_s)));
}

void TestFile::trovaFileNonTrovaCartelle()
{
    const QString Cartella = NuovaCartella();
    CreaCartella(Cartella + u"Guida"_s);
    QCOMPARE(TrovaFile(Cartella + u"guida"_s), Cartella + u"guida"_s);
}

void TestFile::esistenze()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u"nota.par"_s);
    QVERIFY(EsisteCartella(Cartella));
    QVERIFY(EsisteCartella(Cartella.chopped(1) + u"\\"_s));
    QVERIFY(!EsisteCartella(Cartella + u"nota.par"_s));
    QVERIFY(!EsisteCartella(Cartella + u"manca"_s));
    QVERIFY(!EsisteCartella(QString()));
    QVERIFY(EsisteFile(Cartella + u"nota.par"_s));
    QVERIFY(EsisteFile(Cartella + u"\\nota.par"_s));
    QVERIFY(!EsisteFile(Cartella));
    QVERIFY(!EsisteFile(Cartella + u"manca"_s));
    QVERIFY(!EsisteFile(QString()));
}

void TestFile::creaTuttoIlPercorso()
{
    const QString Cartella = NuovaCartella();
    CreaCartella(Cartella + u"a\\b//c"_s);
    QVERIFY(EsisteCartella(Cartella + u"a/b/c"_s));
    CreaCartella(Cartella + u"a/b/c/"_s);  // what is there already is no failure
    QVERIFY(EsisteCartella(Cartella + u"a/b/c"_s));
}

void TestFile::creaCartellaRifiutata()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u"file"_s);
    QCOMPARE(NumeroErrore([&] { CreaCartella(Cartella + u"file"_s); }), 75);
    QCOMPARE(NumeroErrore([&] { CreaCartella(Cartella + u"file/dentro"_s); }), 75);
    QCOMPARE(NumeroErrore([] { CreaCartella(QString()); }), 75);

    const CartellaChiusa Chiusa(Cartella);
    QCOMPARE(NumeroErrore([&] { CreaCartella(Cartella + u"nuova/dentro"_s); }), 75);
    QVERIFY(!EsisteCartella(Cartella + u"nuova"_s));
}

void TestFile::solaLetturaDaiPermessi()
{
    const QString File = NuovaCartella() + u"nota.par"_s;
    Crea(File);
    QVERIFY(!SolaLettura(File));
    ImpostaSolaLettura(File, true);
    QVERIFY(SolaLettura(File));
    QVERIFY(!(QFile::permissions(File) & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther)));
    QVERIFY(QFile::permissions(File) & QFile::ReadOwner);
    ImpostaSolaLettura(File, true);
    QVERIFY(SolaLettura(File));
    ImpostaSolaLettura(File, false);
    QVERIFY(!SolaLettura(File));
    QVERIFY(QFile::permissions(File) & QFile::WriteOwner);
}

void TestFile::solaLetturaDiCioCheManca()
{
    const QString File = NuovaCartella() + u"manca"_s;
    QVERIFY(!SolaLettura(File));
    QCOMPARE(NumeroErrore([&] { ImpostaSolaLettura(File, true); }), 53);
    QCOMPARE(NumeroErrore([&] { ImpostaSolaLettura(File, false); }), 53);
}

/// The attribute is there again on every way out, unless the file is gone; a refusal is handed on.
void TestFile::solaLetturaSospesa()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.par"_s;
    Crea(File);
    QList<int> Guasti;
    const auto Segnala = [&](const Errore& Guasto) { Guasti += Guasto.Numero; };
    const auto Sospendi = [&](const std::function<void()>& Dentro) {
        const AttributoSospeso Attributo(File, Segnala);
        Dentro();
    };
    Sospendi([&] { QVERIFY(!SolaLettura(File)); });
    QVERIFY2(!SolaLettura(File), "chi non l'aveva non la riceve");
    ImpostaSolaLettura(File, true);
    Sospendi([&] { QVERIFY(!SolaLettura(File)); });
    QVERIFY(SolaLettura(File));
    Sospendi([&] { guasti::SupportoBloccato = Cartella; });
    guasti::SupportoBloccato.clear();
    QCOMPARE(Guasti, QList<int>{75});
    ImpostaSolaLettura(File, true);
    Sospendi([&] { QVERIFY(QFile::remove(File)); });
    QCOMPARE(Guasti, QList<int>{75});
}

void TestFile::cartellaScrivibileDaiPermessi()
{
    const QString Cartella = NuovaCartella();
    QVERIFY(CartellaScrivibile(Cartella));
    QVERIFY(!CartellaScrivibile(Cartella + u"manca"_s));
    QVERIFY(!CartellaScrivibile(QString()));
    Crea(Cartella + u"file"_s);
    QVERIFY(!CartellaScrivibile(Cartella + u"file"_s));
    {
        const CartellaChiusa Chiusa(Cartella);
        QVERIFY(!CartellaScrivibile(Cartella));
    }
    QVERIFY(CartellaScrivibile(Cartella));
}

void TestFile::fileLiberoNonEInUso()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.doc"_s;
    QVERIFY(!FileInUso(File));
    QVERIFY(!EsisteFile(File));  // asking must not create it
    Crea(File, "contenuto");
    QVERIFY(!FileInUso(File));
    QVERIFY(!FileInUso(File));  // nor keep it locked or open
    QCOMPARE(FileAperti(File), 0);
    QCOMPARE(LeggiFile(File), QByteArray("contenuto"));
    QVERIFY(!FileInUso(Cartella));
    ImpostaSolaLettura(File, true);
    QVERIFY(FileInUso(File));
}

void TestFile::fileBloccatoEInUso_data()
{
    QTest::addColumn<bool>("DiTratto");
    QTest::addColumn<bool>("Esclusivo");

    QTest::newRow("whole file, exclusive") << false << true;
    QTest::newRow("whole file, shared") << false << false;
    QTest::newRow("range of bytes, exclusive") << true << true;
    QTest::newRow("range of bytes, shared") << true << false;
}

void TestFile::fileBloccatoEInUso()
{
    QFETCH(bool, DiTratto);
    QFETCH(bool, Esclusivo);
    const QString File = NuovaCartella() + u"nota.doc"_s;
    Crea(File);
    // A lock that belongs to the opened file counts as somebody else's even inside one process.
    const int Aperto = ::open(QFile::encodeName(File).constData(), O_RDWR);
    QVERIFY(Aperto >= 0);
    if (DiTratto) {
        struct flock Tratto = {};
        Tratto.l_type = short(Esclusivo ? F_WRLCK : F_RDLCK);
        Tratto.l_whence = SEEK_SET;
        QCOMPARE(::fcntl(Aperto, F_OFD_SETLK, &Tratto), 0);
    } else {
        QCOMPARE(::flock(Aperto, Esclusivo ? LOCK_EX : LOCK_SH), 0);
    }
    QVERIFY(FileInUso(File));
    ::close(Aperto);
    QVERIFY(!FileInUso(File));
}

/// The mark that office programs leave beside a file while they have it open.
void TestFile::fileApertoInUfficio()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota rossi.doc"_s;
    const QString Segno = Cartella + u".~lock.nota rossi.doc#"_s;
    Crea(Segno);
    QVERIFY2(!FileInUso(File), "a mark without its file");
    Crea(File);
    QVERIFY(FileInUso(File));
    QVERIFY2(!FileInUso(Segno), "the mark itself is no document");
    QFile Vecchio(Segno);
    QVERIFY(Vecchio.open(QIODevice::ReadWrite));
    QVERIFY(
        Vecchio.setFileTime(QDateTime(QDate(2001, 1, 1), QTime(0, 0)), QFileDevice::FileModificationTime));
    Vecchio.close();
    QVERIFY2(!FileInUso(File), "left by a crash before the machine was started");
}

void TestFile::leggeTuttoIlFile()
{
    const QString Cartella = NuovaCartella();
    const QByteArray Contenuto("a\r\nb\0c\xE0", 7);
    Crea(Cartella + u"f"_s, Contenuto);
    QCOMPARE(LeggiFile(Cartella + u"f"_s), Contenuto);
    QCOMPARE(LeggiFile(Cartella + u"\\f"_s), Contenuto);
    Crea(Cartella + u"vuoto"_s, QByteArray());
    QCOMPARE(LeggiFile(Cartella + u"vuoto"_s), QByteArray());
}

void TestFile::letturaRifiutata()
{
    const QString Cartella = NuovaCartella();
    QCOMPARE(NumeroErrore([&] { return LeggiFile(Cartella + u"manca"_s); }), 53);
    QCOMPARE(NumeroErrore([] { return LeggiFile(QString()); }), 53);
    QCOMPARE(NumeroErrore([&] { return LeggiFile(Cartella); }), 75);
    Crea(Cartella + u"chiuso"_s);
    QFile::setPermissions(Cartella + u"chiuso"_s, QFile::WriteOwner);
    QCOMPARE(NumeroErrore([&] { return LeggiFile(Cartella + u"chiuso"_s); }), 75);
    QCOMPARE(NumeroErrore([] { return LeggiFile(u"/dev/zero"_s); }), 75);
}

void TestFile::letturaEntroIlLimite()
{
    const QString File = NuovaCartella() + u"f"_s;
    Crea(File, QByteArray(100, 'x'));
    QCOMPARE(LeggiFile(File, 100).size(), 100);
    QCOMPARE(NumeroErrore([&] { return LeggiFile(File, 99); }), 7);
}

void TestFile::leggiFileTesto_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("tabella codici 1252") << u"clausole.rtf"_s << u"perché € 5"_s;
    QTest::newRow("altre maiuscole") << u"CLAUSOLE.RTF"_s << u"perché € 5"_s;
    QTest::newRow("file mancante") << u"manca.rtf"_s << QString();
    QTest::newRow("una cartella") << QString() << QString();
}

void TestFile::leggiFileTesto()
{
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"clausole.rtf"_s, "perch\xE9 \x80 5");
    QFETCH(QString, Nome);
    QTEST(LeggiFileTesto(Cartella + Nome), "Testo");
}

void TestFile::leggiFileTestoInUtf8()
{
    const QString File = NuovaCartella() + u"clausole.txt"_s;
    ScriviFile(File, "\xEF\xBB\xBF" + u"perché €"_s.toUtf8());
    QCOMPARE(LeggiFileTesto(File), u"perché €"_s);
}

void TestFile::scriveERiscrive()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.htm"_s;
    ScriviFile(File, "prima");
    QCOMPARE(LeggiFile(File), QByteArray("prima"));
    ScriviFile(Cartella + u"\\nota.htm"_s, "poi");
    QCOMPARE(LeggiFile(File), QByteArray("poi"));
    ScriviFile(File, QByteArray());
    QCOMPARE(LeggiFile(File), QByteArray());
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.htm"_s});
}

void TestFile::scritturaRifiutata()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.htm"_s;
    QCOMPARE(NumeroErrore([&] { ScriviFile(Cartella + u"manca/nota.htm"_s, "x"); }), 76);
    QCOMPARE(NumeroErrore([&] { ScriviFile(Cartella, "x"); }), 75);
    QCOMPARE(NumeroErrore([&] { ScriviFile(Cartella.chopped(1), "x"); }), 75);
    QCOMPARE(NumeroErrore([] { ScriviFile(QString(), "x"); }), 75);

    ScriviFile(File, "vecchio");
    ImpostaSolaLettura(File, true);
    QCOMPARE(NumeroErrore([&] { ScriviFile(File, "nuovo"); }), 75);
    QCOMPARE(LeggiFile(File), QByteArray("vecchio"));
    ImpostaSolaLettura(File, false);

    const CartellaChiusa Chiusa(Cartella);
    QCOMPARE(NumeroErrore([&] { ScriviFile(File, "nuovo"); }), 75);
    QCOMPARE(NumeroErrore([&] { ScriviFile(Cartella + u"altro"_s, "nuovo"); }), 75);
    QCOMPARE(LeggiFile(File), QByteArray("vecchio"));
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.htm"_s});
}

void TestFile::discoPienoLasciaIlVecchio()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.htm"_s;
    ScriviFile(File, "vecchio");
    guasti::LimiteFile = 10;
    QCOMPARE(NumeroErrore([&] { ScriviFile(File, QByteArray(11, 'x')); }), 61);
    QCOMPARE(NumeroErrore([&] { ScriviFile(Cartella + u"giusto"_s, QByteArray(10, 'x')); }), 0);
    guasti::LimiteFile = 0;
    QCOMPARE(LeggiFile(File), QByteArray("vecchio"));
    QCOMPARE(ContenutoDi(Cartella), QStringList({u"giusto"_s, u"nota.htm"_s}));
    ScriviFile(File, QByteArray(11, 'x'));
    QCOMPARE(LeggiFile(File).size(), 11);
}

// The system itself breaks the writing off half-way.
void TestFile::scritturaInterrottaLasciaIlVecchio()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.htm"_s;
    ScriviFile(File, "vecchio");
    for (const qsizetype Byte : {qsizetype(5000), qsizetype(1000000)}) {
        int Numero = 0;
        {
            const LimiteDiScrittura Limite(4096);
            Numero = NumeroErrore([&] { ScriviFile(File, QByteArray(Byte, 'x')); });
        }
        QCOMPARE(Numero, 75);
        QCOMPARE(LeggiFile(File), QByteArray("vecchio"));
        QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.htm"_s});
    }
}

void TestFile::scriveDietroUnCollegamento()
{
    const QString Cartella = NuovaCartella();
    const QString Altrove = NuovaCartella();
    ScriviFile(Altrove + u"vero"_s, "vecchio");
    QVERIFY(QFile::link(Altrove + u"vero"_s, Cartella + u"legato"_s));
    QVERIFY(QFile::link(Cartella + u"legato"_s, Cartella + u"doppio"_s));
    ScriviFile(Cartella + u"doppio"_s, "nuovo");
    QVERIFY(QFileInfo(Cartella + u"doppio"_s).isSymLink() && QFileInfo(Cartella + u"legato"_s).isSymLink());
    QCOMPARE(LeggiFile(Altrove + u"vero"_s), QByteArray("nuovo"));
    // A link that leads to no file yet.
    QVERIFY(QFile::link(Altrove + u"poi"_s, Cartella + u"futuro"_s));
    ScriviFile(Cartella + u"futuro"_s, "primo");
    QVERIFY(QFileInfo(Cartella + u"futuro"_s).isSymLink());
    QCOMPARE(LeggiFile(Altrove + u"poi"_s), QByteArray("primo"));
    QCOMPARE(ContenutoDi(Altrove), QStringList({u"poi"_s, u"vero"_s}));
}

void TestFile::scriveConIPermessiDiPrima_data()
{
    QTest::addColumn<QFile::Permissions>("Suoi");
    QTest::newRow("of the user alone")
        << QFile::Permissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
    QTest::newRow("of everybody") << QFile::Permissions(
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser | QFile::ReadGroup |
        QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther);
}

void TestFile::scriveConIPermessiDiPrima()
{
    QFETCH(QFile::Permissions, Suoi);
    const QString File = NuovaCartella() + u"nota.htm"_s;
    ScriviFile(File, "vecchio");
    QVERIFY(QFile::setPermissions(File, Suoi));
    ScriviFile(File, "nuovo");
    QCOMPARE(QFile::permissions(File), Suoi);
    CopiaFile(File, File + u"2"_s, 100);
    QVERIFY(QFile::setPermissions(File + u"2"_s, Suoi));
    CopiaFile(File, File + u"2"_s, 100);
    QCOMPARE(QFile::permissions(File + u"2"_s), Suoi);
}

void TestFile::scrittoPerIlSoloUtente()
{
    const QString File = NuovaCartella() + u"segreto"_s;
    constexpr QFile::Permissions Altri =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    ScriviFile(File, "x", Lettori::SoloUtente);
    QVERIFY(!(QFile::permissions(File) & Altri));
    // Whatever it was before.
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    ScriviFile(File, "y", Lettori::SoloUtente);
    QVERIFY(!(QFile::permissions(File) & Altri));
}

void TestFile::quelCheUnaCadutaHaLasciato()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u".~nota.htm.tmp"_s, "a meta'");
    ScriviFile(Cartella + u"nota.htm"_s, "intero");
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.htm"_s});
    QCOMPARE(LeggiFile(Cartella + u"nota.htm"_s), QByteArray("intero"));
    // A name that fills what a disk takes leaves no room for another one beside it.
    const QString Lungo = Cartella + QString(255, u'x');
    Crea(Lungo);
    ScriviFile(Lungo, "intero");
    QCOMPARE(LeggiFile(Lungo), QByteArray("intero"));
    QCOMPARE(ContenutoDi(Cartella).size(), 2);
}

void TestFile::cioCheNonEUnFile()
{
    QCOMPARE(NumeroErrore([] { ScriviFile(u"/dev/full"_s, "x"); }), 75);
    QVERIFY(QFileInfo::exists(u"/dev/full"_s));
    const QString Tubo = NuovaCartella() + u"tubo"_s;
    QCOMPARE(::mkfifo(QFile::encodeName(Tubo).constData(), 0600), 0);
    QCOMPARE(NumeroErrore([&] { ScriviFile(Tubo, "x"); }), 75);
}

void TestFile::creaSoloQuelCheManca()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"archivio.mdb"_s;
    QVERIFY(CreaFile(File, "primo"));
    QVERIFY(!CreaFile(File, "secondo"));
    QCOMPARE(LeggiFile(File), QByteArray("primo"));
    QCOMPARE(NumeroErrore([&] { CreaFile(Cartella + u"manca/nota.htm"_s, "x"); }), 76);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"archivio.mdb"_s});
    // A name that leads nowhere comes up behind the first look, as a file of somebody else's would.
    QVERIFY(QFile::link(Cartella + u"nulla"_s, Cartella + u"rimando"_s));
    QVERIFY(!CreaFile(Cartella + u"rimando"_s, "x"));
    QVERIFY(!EsisteFile(Cartella + u"nulla"_s));
}

/// A program that is killed behind its first moment has left it with its date.
void TestFile::creaConLaSuaData()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"Tassi.dat"_s;
    for (const QDateTime& Quando : {QDateTime(QDate(2026, 8, 31), QTime(12, 0, 0, 250)),
                                    QDateTime(QDate(1969, 7, 20), QTime(20, 17, 0, 500))}) {
        QVERIFY(CreaFile(File, "x", Lettori::Cartella, Quando));
        QCOMPARE(DataFile(File), Quando);
        QVERIFY(QFile::remove(File));
    }
    const QScopedValueRollback Fissa(guasti::DateRifiutate, true);
    QCOMPARE(NumeroErrore([&] { CreaFile(File, "x", Lettori::Cartella, QDateTime::currentDateTime()); }), 75);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
}

void TestFile::creaUnoSoloFraMolti()
{
    const QString File = NuovaCartella() + u"archivio.mdb"_s;
    std::array<bool, 8> Riuscite{};
    std::atomic<bool> Via = false;
    {
        std::array<std::jthread, Riuscite.size()> Programmi;
        for (size_t i = 0; i < Programmi.size(); ++i)
            Programmi[i] = std::jthread([&, i] {
                while (!Via)
                    std::this_thread::yield();
                Riuscite[i] = CreaFile(File, QByteArray::number(qulonglong(i)));
            });
        Via = true;
    }
    QCOMPARE(std::ranges::count(Riuscite, true), 1);
    QCOMPARE(LeggiFile(File),
             QByteArray::number(qulonglong(std::ranges::find(Riuscite, true) - Riuscite.begin())));
    QCOMPARE(ContenutoDi(CartellaFile(File)), QStringList{u"archivio.mdb"_s});
}

void TestFile::cartellaPrivata()
{
    const QString Cartella = NuovaCartella() + u"a/b"_s;
    for (int Volta = 0; Volta < 2; ++Volta) {
        CreaCartellaPrivata(Cartella);
        QCOMPARE(QFileInfo(Cartella).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
                 QFile::Permissions());
        // One that was open to others is closed the second time.
        QVERIFY(QFile::setPermissions(Cartella, QFileInfo(Cartella).permissions() | QFile::ReadOther));
    }
    const QString Occupato = NuovaCartella() + u"x"_s;
    ScriviFile(Occupato, "x");
    QCOMPARE(NumeroErrore([&] { CreaCartellaPrivata(Occupato + u"/y"_s); }), errori::Accesso);
}

void TestFile::copiaIntera()
{
    const QString Da = NuovaCartella() + u"da"_s;
    const QString A = NuovaCartella() + u"a"_s;
    const QByteArray Byte(300000, 'x');
    ScriviFile(Da, Byte);
    ScriviFile(A, QByteArray(400000, 'y'));
    qint64 Copiati = 0;
    int Pezzi = 0;
    QVERIFY(CopiaFile(Da, A, Byte.size(), [&](qint64 Finora) {
        Copiati = Finora;
        return ++Pezzi > 0;
    }));
    QVERIFY(LeggiFile(A) == Byte);
    QCOMPARE(Copiati, Byte.size());
    QVERIFY(Pezzi > 1);
}

void TestFile::copiaFermata()
{
    const QString Da = NuovaCartella() + u"da"_s;
    const QString A = NuovaCartella() + u"a"_s;
    ScriviFile(Da, QByteArray(300000, 'x'));
    Crea(A, "vecchio");
    QVERIFY(!CopiaFile(Da, A, 1 << 20, [](qint64) { return false; }));
    QCOMPARE(LeggiFile(A), QByteArray("vecchio"));
    QCOMPARE(ContenutoDi(CartellaFile(A)), QStringList{u"a"_s});
}

void TestFile::copiaFallita()
{
    const QString Da = NuovaCartella() + u"da"_s;
    const QString A = NuovaCartella() + u"a"_s;
    ScriviFile(Da, QByteArray(300000, 'x'));
    QCOMPARE(NumeroErrore([&] { CopiaFile(Da, A, 299999); }), errori::Memoria);
    QCOMPARE(NumeroErrore([&] { CopiaFile(Da + u"mai"_s, A, 1); }), errori::FileMancante);
    QCOMPARE(NumeroErrore([&] { CopiaFile(Da, NuovaCartella() + u"mai/a"_s, 1 << 20); }), errori::Accesso);
    guasti::LimiteFile = 1000;
    QCOMPARE(NumeroErrore([&] { CopiaFile(Da, A, 1 << 20); }), errori::DiscoPieno);
    guasti::LimiteFile = 0;
}

void TestFile::dataDelFile()
{
    const QString File = NuovaCartella() + u"x"_s;
    QVERIFY(DataFile(File).isNull());
    QCOMPARE(NumeroErrore([&] { ImpostaDataFile(File, QDateTime::currentDateTime()); }),
             errori::FileMancante);
    ScriviFile(File, "x");
    const QDateTime Quando(QDate(2026, 3, 9), QTime(12, 30));
    ImpostaDataFile(File, Quando);
    QCOMPARE(DataFile(File), Quando);
    QCOMPARE(LeggiFile(File), "x"_ba);
}

#include "TestFile.moc"
