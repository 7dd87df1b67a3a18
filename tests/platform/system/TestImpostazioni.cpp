#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

class TestImpostazioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void predefinitoSeManca();
    void tornaQuelCheFuSalvato_data();
    void tornaQuelCheFuSalvato();
    void maiuscoleNonContano();
    void applicazioniESezioniSonoDistinte();
    void scriveSubitoSulDisco();
    void soloDellUtente();
    void leggeUnFileToccatoAMano();
    void fileDanneggiato_data();
    void fileDanneggiato();
    void scritturaRifiutata();
    void molteInsieme();
    void molteRifiutateNessunaCambia();
    void quelCheNonSiLeggeNonSiSovrascrive();
    void nomeEMotivoDelRifiuto();
    void dueProgrammiInsieme();
    void discoPienoNelMezzo_data();
    void discoPienoNelMezzo();
};
PROVA(TestImpostazioni);

namespace {

QString FileDi(const QString& Applicazione)
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/"_s + Applicazione + u".ini"_s;
}

}  // namespace

void TestImpostazioni::predefinitoSeManca()
{
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"Nessuna"_s), QString());
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"Nessuna"_s, u"12,5"_s), u"12,5"_s);
}

void TestImpostazioni::tornaQuelCheFuSalvato_data()
{
    QTest::addColumn<QString>("Valore");

    QTest::newRow("plain") << u"Studio Rossi"_s;
    QTest::newRow("comma") << u"12,5"_s;
    QTest::newRow("accents and beyond Latin-1") << u"Città di Forlì € Ω 😀"_s;
    QTest::newRow("Windows path") << u"C:\\Studio\\Parcelle\\"_s;
    QTest::newRow("blanks at both ends") << u"  a b  "_s;
    QTest::newRow("quotes, semicolon, equals") << u"\"a\";b=c"_s;
    QTest::newRow("at sign, which the file format marks") << u"@Invalid()"_s;
    QTest::newRow("percent") << u"100%20"_s;
    QTest::newRow("line break") << u"a\r\nb"_s;
    QTest::newRow("empty is stored, not missing") << u""_s;
}

void TestImpostazioni::tornaQuelCheFuSalvato()
{
    QFETCH(QString, Valore);
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Valore"_s, Valore);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"Valore"_s, u"assente"_s), Valore);
}

void TestImpostazioni::maiuscoleNonContano()
{
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"ColoreEtichetteBordo"_s, u"1"_s);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"ColoreEtichettebordo"_s), u"1"_s);
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"COLOREETICHETTEBORDO"_s, u"2"_s);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"ColoreEtichetteBordo"_s), u"2"_s);
    QCOMPARE(LeggiFile(FileDi(u"KR5"_s)).toLower().count("coloreetichettebordo="), 1);
    QVERIFY(LeggiFile(FileDi(u"KR5"_s)).contains("coloreetichettebordo=2"));
}

void TestImpostazioni::applicazioniESezioniSonoDistinte()
{
    SaveSetting(u"VDM2"_s, u"Parametri"_s, u"PercorsoProcedura"_s, u"a"_s);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PercorsoProcedura"_s, u"b"_s);
    SaveSetting(u"Praxivo"_s, u"Altra"_s, u"PercorsoProcedura"_s, u"c"_s);
    QCOMPARE(GetSetting(u"VDM2"_s, u"Parametri"_s, u"PercorsoProcedura"_s), u"a"_s);
    QCOMPARE(GetSetting(u"Praxivo"_s, u"Parametri"_s, u"PercorsoProcedura"_s), u"b"_s);
    QCOMPARE(GetSetting(u"Praxivo"_s, u"Altra"_s, u"PercorsoProcedura"_s), u"c"_s);
}

void TestImpostazioni::scriveSubitoSulDisco()
{
    QVERIFY2(FileDi(u"Disco"_s).startsWith(CartellaDiProva()), "settings outside the test's own folder");
    QVERIFY(!QFile::exists(FileDi(u"Disco"_s)));
    SaveSetting(u"Disco"_s, u"Parametri"_s, u"ProgFatt"_s, u"7"_s);
    const QByteArrayList Righe = LeggiFile(FileDi(u"Disco"_s)).split('\n');
    QCOMPARE(Righe.mid(1), (QByteArrayList{"[Parametri]", "progfatt=7", "; fine", ""}));
    QVERIFY(Righe.first().startsWith("; "));
}

/// Whatever the system gives new files: IBAN and paths of the office are nobody else's business.
void TestImpostazioni::soloDellUtente()
{
    const mode_t Prima = ::umask(0);
    const auto Rimetti = qScopeGuard([Prima] { ::umask(Prima); });
    SaveSetting(u"Riservata"_s, u"Parametri"_s, u"Iban"_s, u"IT60X0542811101000000123456"_s);
    const auto Modo = [] {
        struct stat Suo = {};
        return ::stat(QFile::encodeName(FileDi(u"Riservata"_s)).constData(), &Suo) == 0
                   ? int(Suo.st_mode & 0777)
                   : 0;
    };
    QCOMPARE(Modo(), 0600);
    // One that was open to others is closed by the next write.
    QCOMPARE(::chmod(QFile::encodeName(FileDi(u"Riservata"_s)).constData(), 0644), 0);
    SaveSetting(u"Riservata"_s, u"Parametri"_s, u"Iban"_s, u""_s);
    QCOMPARE(Modo(), 0600);
}

void TestImpostazioni::leggeUnFileToccatoAMano()
{
    ScriviFile(FileDi(u"Mano"_s), "[Parametri]\nSpeseGen=12,5\nIban=IT60\n");
    QCOMPARE(GetSetting(u"Mano"_s, u"Parametri"_s, u"SpeseGen"_s), u"12,5"_s);
    QCOMPARE(GetSetting(u"Mano"_s, u"Parametri"_s, u"IBAN"_s), u"IT60"_s);
    SaveSetting(u"Mano"_s, u"Parametri"_s, u"Iban"_s, u"IT61"_s);
    QCOMPARE(GetSetting(u"Mano"_s, u"Parametri"_s, u"iban"_s), u"IT61"_s);
    QCOMPARE(LeggiFile(FileDi(u"Mano"_s)).toLower().count("iban="), 1);
}

void TestImpostazioni::fileDanneggiato_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Salvo");

    QTest::newRow("cut in a key") << "[Parametri]\niva=22\nstudiono"_ba << u"22"_s;
    QTest::newRow("a line that is none") << "[Parametri]\nsenza segno\niva=22\n"_ba << u"22"_s;
    QTest::newRow("a heading left open") << "[Parametri\niva=22\n"_ba << u"22"_s;
    QTest::newRow("zeros") << QByteArray(64, '\0') << u"manca"_s;
    QTest::newRow("no text at all") << "\xFF\xFE\x01[[[==\n=\n;x\n"_ba << u"manca"_s;
}

void TestImpostazioni::fileDanneggiato()
{
    QFETCH(QByteArray, Contenuto);
    ScriviFile(FileDi(u"Guasto"_s), Contenuto);
    QTEST(GetSetting(u"Guasto"_s, u"Parametri"_s, u"IVA"_s, u"manca"_s), "Salvo");
    // The first save heals the file: it succeeds, and what could be read stays.
    SaveSetting(u"Guasto"_s, u"Parametri"_s, u"RA"_s, u"20"_s);
    QCOMPARE(GetSetting(u"Guasto"_s, u"Parametri"_s, u"RA"_s), u"20"_s);
    QTEST(GetSetting(u"Guasto"_s, u"Parametri"_s, u"IVA"_s, u"manca"_s), "Salvo");
}

void TestImpostazioni::scritturaRifiutata()
{
    // A folder stands where the file should be.
    QVERIFY(QDir().mkpath(FileDi(u"Rifiutata"_s)));
    const ErroreVisto Guasto =
        ErroreDi([&] { SaveSetting(u"Rifiutata"_s, u"Parametri"_s, u"IVA"_s, u"22"_s); });
    QCOMPARE(Guasto.Numero, 75);
}

void TestImpostazioni::molteInsieme()
{
    const QString App = u"Molte"_s;
    SaveSetting(App, u"Parametri"_s, u"a"_s, u"prima"_s);
    SaveSettings(App, u"Parametri"_s, {{u"A"_s, u"1"_s}, {u"b"_s, u"12,5"_s}, {u"c"_s, {}}});
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"a"_s), u"1"_s);
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"B"_s), u"12,5"_s);
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"c"_s, u"x"_s), QString());
    QVERIFY(LeggiFile(FileDi(App)).contains("12,5"));
}

void TestImpostazioni::molteRifiutateNessunaCambia()
{
    const QString App = u"Rifiutate"_s;
    SaveSetting(App, u"Parametri"_s, u"a"_s, u"prima"_s);
    // A folder stands where the store should be.
    const QString Salvato = FileDi(App) + u".bak"_s;
    QVERIFY(QFile::rename(FileDi(App), Salvato));
    QVERIFY(QDir().mkpath(FileDi(App) + u"/x"_s));
    const QList<std::pair<QString, QString>> Nuove{{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}};
    QVERIFY(NumeroErrore([&] { SaveSettings(App, u"Parametri"_s, Nuove); }) != 0);
    QVERIFY(QDir(FileDi(App)).removeRecursively());
    ScriviFile(FileDi(App), LeggiFile(Salvato) + "d=4\n");
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"a"_s), u"prima"_s);
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"b"_s), QString());
    // What was refused does not go to the disk with the next key.
    SaveSetting(App, u"Parametri"_s, u"c"_s, u"3"_s);
    const QByteArray Scritto = LeggiFile(FileDi(App));
    QVERIFY2(Scritto.contains("a=prima") && !Scritto.contains("b=2"), Scritto.constData());
}

/// A store that cannot be read counts as empty for the reader, and must not be made so.
void TestImpostazioni::quelCheNonSiLeggeNonSiSovrascrive()
{
    const QString App = u"Chiuse"_s;
    SaveSetting(App, u"Parametri"_s, u"a"_s, u"prima"_s);
    QFile::setPermissions(FileDi(App), QFile::WriteOwner | QFile::WriteUser);
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"a"_s, u"manca"_s), u"manca"_s);
    QVERIFY(NumeroErrore([&] { SaveSetting(App, u"Parametri"_s, u"b"_s, u"1"_s); }) != 0);
    QFile::setPermissions(FileDi(App), QFile::ReadOwner | QFile::WriteOwner);
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"a"_s), u"prima"_s);
}

void TestImpostazioni::nomeEMotivoDelRifiuto()
{
    QVERIFY(QDir().mkpath(FileDi(u"Detta"_s)));
    const ErroreVisto Guasto = ErroreDi([&] { SaveSetting(u"Detta"_s, u"Parametri"_s, u"IVA"_s, u"22"_s); });
    QCOMPARE(Guasto.Numero, 75);
    QCOMPARE(Guasto.Descrizione, u"Impossibile scrivere le impostazioni nel file %1: %2"_s.arg(
                                     FileDi(u"Detta"_s), DescrizioneErrore(75)));
}

/// Neither puts back what the other has changed: each reads what is there right before it writes.
void TestImpostazioni::dueProgrammiInsieme()
{
    const QString App = u"Insieme"_s;
    constexpr int Giri = 15;
    const auto Scrive = [&](const QString& Chiave) {
        for (int i = 1; i <= Giri; ++i)
            SaveSetting(App, u"Parametri"_s, Chiave, QString::number(i));
    };
    std::thread Altro(Scrive, u"altro"_s);
    Scrive(u"uno"_s);
    Altro.join();
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"uno"_s), QString::number(Giri));
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"altro"_s), QString::number(Giri));
    QCOMPARE(ContenutoDi(CartellaFile(FileDi(App))).filter(App), QStringList{App + u".ini"_s});
}

void TestImpostazioni::discoPienoNelMezzo_data()
{
    QTest::addColumn<int>("Byte");

    QTest::newRow("no room for the mark of who writes") << 4;
    QTest::newRow("room for little") << 64;
    QTest::newRow("room for almost all of it") << 500;
}

void TestImpostazioni::discoPienoNelMezzo()
{
    QFETCH(int, Byte);
    const QString App = u"Pieno"_s;
    SaveSetting(App, u"Parametri"_s, u"a"_s, u"prima"_s);
    const QByteArray Prima = LeggiFile(FileDi(App));
    const int Rifiutata = NumeroErrore([&] {
        const LimiteDiScrittura Pieno{rlim_t(Byte)};
        SaveSettings(App, u"Parametri"_s, {{u"a"_s, u"1"_s}, {u"b"_s, QString(500, u'x')}});
    });
    QVERIFY(Rifiutata != 0);
    QCOMPARE(LeggiFile(FileDi(App)), Prima);
    QCOMPARE(GetSetting(App, u"Parametri"_s, u"a"_s), u"prima"_s);
    QCOMPARE(ContenutoDi(CartellaFile(FileDi(App))).filter(u"Pieno"_s), QStringList{u"Pieno.ini"_s});
    QCOMPARE(ContenutoDi(CartellaFile(FileDi(App))).filter(u"posto"_s), QStringList());
}

#include "TestImpostazioni.moc"
