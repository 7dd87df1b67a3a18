#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/paginacodice.h"
#include "platform/system/attese.h"
#include "platform/system/blocco.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/profilo.h"

#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>

#include <thread>

using namespace Qt::StringLiterals;

class TestProfilo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sostituisceChiavi_data();
    void sostituisceChiavi();
    void sostituisceChiaviRifiutata();
    void legge_data();
    void legge();
    void tagliaAllaCapienza();
    void fileMancanteValeVuoto();
    void fileIlleggibileEUnErrore();
    void trovaIlFileDaQualunqueNome();
    void leggeSoloIlPrimoMebibyte();

    void scrive_data();
    void scrive();
    void rifiutaNomiCheNonTornerebbero_data();
    void rifiutaNomiCheNonTornerebbero();
    void rifiutoLasciaIlFile();
    void rifiutaUnFileTroppoGrande();
    void quelCheMancaAllaPaginaDiCodiciEUnPunto();

    void dueProgrammiInsieme();
    void chiScriveSiAspetta();

    void paginaDiCodici();
    void paginaDiCodiciNeiDueVersi();
};
PROVA(TestProfilo);

namespace {

QString FileCon(const QByteArray& Contenuto)
{
    const QString Percorso = NuovaCartella() + u"prova.ini"_s;
    ScriviFile(Percorso, Contenuto);
    return Percorso;
}

QString Leggi(const QString& File, const QString& Chiave, const QString& Sezione = u"s"_s)
{
    return GetPrivateProfileString(Sezione, Chiave, u"assente"_s, 1000, File);
}

}  // namespace

void TestProfilo::legge_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Valore");

    QTest::newRow("plain") << "[s]\r\nk=valore\r\n"_ba << u"valore"_s;
    QTest::newRow("Unix line ends") << "[s]\nk=valore\n"_ba << u"valore"_s;
    QTest::newRow("lone carriage returns") << "[s]\rk=valore\r"_ba << u"valore"_s;
    QTest::newRow("no line end at the end") << "[s]\nk=valore"_ba << u"valore"_s;
    QTest::newRow("section and key without case") << "[S]\nK=valore\n"_ba << u"valore"_s;
    QTest::newRow("blanks around everything") << "  [ s ] \n \t k \t = valore \t\n"_ba << u"valore"_s;
    QTest::newRow("text behind the heading") << "[s] ; prima\nk=valore\n"_ba << u"valore"_s;
    QTest::newRow("quotes belong to the value") << "[s]\nk=\"un valore\"\n"_ba << u"\"un valore\""_s;
    QTest::newRow("a second = belongs to the value") << "[s]\nk=a=b\n"_ba << u"a=b"_s;
    QTest::newRow("a semicolon belongs to the value") << "[s]\nk=a;b\n"_ba << u"a;b"_s;
    QTest::newRow("a tab inside stays") << "[s]\nk=a\tb\n"_ba << u"a\tb"_s;
    QTest::newRow("accents of Windows-1252") << "[s]\nk=citt\xE0 \x80\n"_ba << u"città €"_s;
    QTest::newRow("empty value is no default") << "[s]\nk=\n"_ba << u""_s;
    QTest::newRow("blank value is empty") << "[s]\nk=  \n"_ba << u""_s;
    QTest::newRow("first of two lines of a key") << "[s]\nk=1\nk=2\n"_ba << u"1"_s;
    QTest::newRow("only the first of two sections") << "[s]\nx=1\n[t]\n[s]\nk=2\n"_ba << u"assente"_s;
    QTest::newRow("key of another section") << "[t]\nk=1\n"_ba << u"assente"_s;
    QTest::newRow("key before any section") << "k=1\n[s]\nx=2\n"_ba << u"assente"_s;
    QTest::newRow("longer key name") << "[s]\nkk=1\n"_ba << u"assente"_s;
    QTest::newRow("line without =") << "[s]\nk\n"_ba << u"assente"_s;
    QTest::newRow("comment") << "[s]\n;k=1\nk=2\n"_ba << u"2"_s;
    QTest::newRow("heading never closed is no heading") << "[s]\n[t\nk=1\n"_ba << u"1"_s;
    QTest::newRow("heading never closed opens nothing") << "[s\nk=1\n"_ba << u"assente"_s;
    QTest::newRow("NUL inside a value stays") << QByteArray("[s]\nk=a\0b\n", 10) << u"a\0b"_s;
    QTest::newRow("NUL inside a line is no end") << QByteArray("[s]\n\0\0=1\nk=2\n", 13) << u"2"_s;
    QTest::newRow("empty file") << ""_ba << u"assente"_s;
}

void TestProfilo::legge()
{
    QFETCH(QByteArray, Contenuto);
    QTEST(Leggi(FileCon(Contenuto), u"k"_s), "Valore");
}

void TestProfilo::tagliaAllaCapienza()
{
    const QString File = FileCon("[s]\nk=" + QByteArray(5000, 'a') + "\n");
    QCOMPARE(GetPrivateProfileString(u"s"_s, u"k"_s, {}, 1000, File), QString(999, u'a'));
    QCOMPARE(GetPrivateProfileString(u"s"_s, u"k"_s, {}, 1, File), QString());
    QCOMPARE(GetPrivateProfileString(u"s"_s, u"k"_s, {}, 0, File), QString());
}

void TestProfilo::fileMancanteValeVuoto()
{
    QCOMPARE(Leggi(NuovaCartella() + u"nessuno.ini"_s, u"k"_s), u"assente"_s);
    QCOMPARE(Leggi(QString(), u"k"_s), u"assente"_s);
}

void TestProfilo::fileIlleggibileEUnErrore()
{
    // The permission bits count, so that the rule holds for the superuser too.
    const QString File = FileCon("[s]\nk=1\n");
    QVERIFY(QFile::setPermissions(File, QFile::Permissions()));
    QVERIFY(NumeroErrore([&] { (void)Leggi(File, u"k"_s); }) != 0);
    QVERIFY(NumeroErrore([&] { (void)Leggi(NuovaCartella(), u"k"_s); }) != 0);
}

void TestProfilo::trovaIlFileDaQualunqueNome()
{
    const QString File = FileCon("[s]\nk=1\n");
    const QString AltroModo = CartellaFile(File).replace(u'/', u'\\') + u"PROVA.INI"_s;
    QCOMPARE(Leggi(AltroModo, u"k"_s), u"1"_s);
    QVERIFY(WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, AltroModo));
    QCOMPARE(Leggi(File, u"k"_s), u"2"_s);
}

void TestProfilo::leggeSoloIlPrimoMebibyte()
{
    const QByteArray Prima = "[s]\nprima=1\n;";
    const QByteArray Dopo = "\ndopo=2\n";
    const QString File = FileCon(Prima + QByteArray(1024 * 1024, 'x') + Dopo);
    QCOMPARE(Leggi(File, u"prima"_s), u"1"_s);
    QCOMPARE(Leggi(File, u"dopo"_s), u"assente"_s);

    const QString Giusto = FileCon(Prima + QByteArray(1024 * 1024 - Prima.size() - Dopo.size(), 'x') + Dopo);
    QCOMPARE(Leggi(Giusto, u"dopo"_s), u"2"_s);
}

void TestProfilo::scrive_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QByteArray>("Dopo");

    QTest::newRow("new file") << ""_ba << u"v"_s << "[s]\r\nk=v\r\n"_ba;
    QTest::newRow("key replaced") << "[s]\r\nk=1\r\nx=2\r\n"_ba << u"v"_s << "[s]\r\nk=v\r\nx=2\r\n"_ba;
    QTest::newRow("replaced at the end of an open line") << "[s]\nk=1"_ba << u"v"_s << "[s]\nk=v"_ba;
    QTest::newRow("its spelling and blanks stay") << "[S]\nK =  1 \n"_ba << u"v"_s << "[S]\nK =  v \n"_ba;
    QTest::newRow("first line of a key") << "[s]\nk=1\nk=2\n"_ba << u"v"_s << "[s]\nk=v\nk=2\n"_ba;
    QTest::newRow("key added to its section, before the blank line")
        << "[s]\nx=1\n\n[t]\nk=2\n"_ba << u"v"_s << "[s]\nx=1\nk=v\n\n[t]\nk=2\n"_ba;
    QTest::newRow("key added to an empty section") << "[s]\n[t]\n"_ba << u"v"_s << "[s]\nk=v\n[t]\n"_ba;
    QTest::newRow("key added to the first of two sections")
        << "[s]\n[t]\n[s]\nk=2\n"_ba << u"v"_s << "[s]\nk=v\n[t]\n[s]\nk=2\n"_ba;
    QTest::newRow("key added behind an open line") << "[s]\nx=1"_ba << u"v"_s << "[s]\nx=1\nk=v\n"_ba;
    QTest::newRow("section added") << "[t]\nk=1\n"_ba << u"v"_s << "[t]\nk=1\n[s]\nk=v\n"_ba;
    QTest::newRow("section added behind an open line")
        << "[t]\nk=1"_ba << u"v"_s << "[t]\nk=1\n[s]\nk=v\n"_ba;
    QTest::newRow("lone carriage returns stay") << "[s]\rx=1\r"_ba << u"v"_s << "[s]\rx=1\rk=v\r"_ba;
    QTest::newRow("comments and unknown lines stay") << "; nota\nsciolta\n[s]\n;k=1\n[rotta\n?\n"_ba << u"v"_s
                                                     << "; nota\nsciolta\n[s]\n;k=1\n[rotta\n?\nk=v\n"_ba;
    QTest::newRow("line breaks forge no line")
        << "[s]\n"_ba << u"a\r\n[t]\nx=1"_s << "[s]\nk=a  [t] x=1\n"_ba;
    QTest::newRow("accents") << "[s]\n"_ba << u"però €"_s << "[s]\nk=per\xF2 \x80\n"_ba;
    QTest::newRow("empty value") << "[s]\nk=1\n"_ba << u""_s << "[s]\nk=\n"_ba;
}

void TestProfilo::scrive()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(QString, Valore);
    const QString File = FileCon(Contenuto);
    QVERIFY(WritePrivateProfileString(u"s"_s, u"k"_s, Valore, File));
    QTEST(LeggiFile(File), "Dopo");
}

void TestProfilo::rifiutaNomiCheNonTornerebbero_data()
{
    QTest::addColumn<QString>("Sezione");
    QTest::addColumn<QString>("Chiave");

    QTest::newRow("= in a key would move the value") << u"s"_s << u"a=b"_s;
    QTest::newRow("key that looks like a heading") << u"s"_s << u"[t]"_s;
    QTest::newRow("key that looks like a comment") << u"s"_s << u";k"_s;
    QTest::newRow("empty key") << u"s"_s << u""_s;
    QTest::newRow("blank key") << u"s"_s << u" \t"_s;
    QTest::newRow("key of line breaks") << u"s"_s << u"\r\n"_s;
    QTest::newRow("] in a section ends it early") << u"a]b"_s << u"k"_s;
}

void TestProfilo::rifiutaNomiCheNonTornerebbero()
{
    QFETCH(QString, Sezione);
    QFETCH(QString, Chiave);
    const QByteArray Contenuto = "[s]\na=1\n";
    const QString File = FileCon(Contenuto);
    QVERIFY(!WritePrivateProfileString(Sezione, Chiave, u"v"_s, File));
    QCOMPARE(LeggiFile(File), Contenuto);
}

void TestProfilo::rifiutoLasciaIlFile()
{
    const QByteArray Contenuto = "[s]\nk=1\n";
    const QString File = FileCon(Contenuto);
    ImpostaSolaLettura(File, true);
    QVERIFY(!WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, File));
    QCOMPARE(LeggiFile(File), Contenuto);

    QVERIFY(!WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, NuovaCartella() + u"nessuna/prova.ini"_s));
    QVERIFY(!WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, NuovaCartella()));
    QVERIFY(!WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, QString()));
}

void TestProfilo::rifiutaUnFileTroppoGrande()
{
    // What lies behind the limit could not be kept, or not be read again.
    constexpr qsizetype Limite = 1024 * 1024;
    const QString Oltre = FileCon("[s]\nk=1\n" + QByteArray(Limite, 'x'));
    const qint64 Prima = QFileInfo(Oltre).size();
    QVERIFY(!WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, Oltre));
    QCOMPARE(QFileInfo(Oltre).size(), Prima);

    const QString Esatto = FileCon("[s]\nk=1\n" + QByteArray(Limite - 8, 'x'));
    QVERIFY(WritePrivateProfileString(u"s"_s, u"k"_s, u"2"_s, Esatto));
    QCOMPARE(Leggi(Esatto, u"k"_s), u"2"_s);
    QVERIFY(!WritePrivateProfileString(u"s"_s, u"k"_s, u"22"_s, Esatto));
    QCOMPARE(Leggi(Esatto, u"k"_s), u"2"_s);
}

void TestProfilo::quelCheMancaAllaPaginaDiCodiciEUnPunto()
{
    const QString File = FileCon("");
    QVERIFY(WritePrivateProfileString(u"sezione Ω"_s, u"chiave Ω"_s, u"Ω😀"_s, File));
    QVERIFY(WritePrivateProfileString(u"sezione Ω"_s, u"chiave Ω"_s, u"Ω"_s, File));
    QCOMPARE(LeggiFile(File), "[sezione ?]\r\nchiave ?=?\r\n"_ba);
    QCOMPARE(Leggi(File, u"CHIAVE Ω"_s, u"sezione Ω"_s), u"?"_s);
}

/// Neither puts back what the other has changed.
void TestProfilo::dueProgrammiInsieme()
{
    const QString File = FileCon("[s]\r\n");
    constexpr int Giri = 40;
    const auto Scrive = [&](const QString& Chi) {
        for (int i = 0; i < Giri; ++i)
            (void)WritePrivateProfileString(u"s"_s, Chi + QString::number(i), u"si"_s, File);
    };
    std::thread Altro(Scrive, u"altro"_s);
    Scrive(u"uno"_s);
    Altro.join();
    for (int i = 0; i < Giri; ++i)
        for (const QString& Chi : {u"uno"_s, u"altro"_s})
            QVERIFY2(Leggi(File, Chi + QString::number(i)) == u"si", qPrintable(Chi + QString::number(i)));
    QCOMPARE(ContenutoDi(CartellaFile(File)), QStringList{u"prova.ini"_s});
}

/// Who is writing is waited for; who goes on and on loses nothing by it.
void TestProfilo::chiScriveSiAspetta()
{
    const QScopedValueRollback Poco(attese::TurnoMs, 50);
    const QByteArray Prima = "[s]\r\na=1\r\n";
    const QString File = FileCon(Prima);
    {
        FileBlocco Altrui(CartellaFile(File) + u".~prova.ini.lock"_s);
        QCOMPARE(Altrui.Prendi(0), FileBlocco::Esito::Preso);
        QVERIFY(!WritePrivateProfileString(u"s"_s, u"a"_s, u"2"_s, File));
        QVERIFY(!SostituisciChiavi(
            u"s"_s, [](const QString&) { return true; }, {}, File));
        QCOMPARE(LeggiFile(File), Prima);
    }
    QVERIFY(WritePrivateProfileString(u"s"_s, u"a"_s, u"2"_s, File));
    QCOMPARE(Leggi(File, u"a"_s), u"2"_s);
}

void TestProfilo::paginaDiCodici()
{
    QCOMPARE(
        Cp1252(u"à€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ÷ÿ"_s),
        "\xE0\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B"
        "\x9C\x9E\x9F\xF7\xFF"_ba);
    QCOMPARE(Cp1252(u"a\u0100b😀c"_s + QChar(0xD800)), "a?b?c?"_ba);
    QCOMPARE(Cp1252(u"\u0080"_s), "?"_ba);
    QCOMPARE(Cp1252(QString()), QByteArray());
    QCOMPARE(DaCp1252(QByteArray()), QString());
}

void TestProfilo::paginaDiCodiciNeiDueVersi()
{
    QByteArray Tutti(256, '\0');
    for (int Codice = 0; Codice < 256; ++Codice)
        Tutti[Codice] = static_cast<char>(Codice);
    const QString Testo = DaCp1252(Tutti);
    QCOMPARE(Testo.size(), 256);
    QVERIFY(!Testo.contains(QChar::ReplacementCharacter));
    QCOMPARE(Cp1252(Testo), Tutti);
}

void TestProfilo::sostituisceChiavi_data()
{
    QTest::addColumn<QByteArray>("Prima");
    QTest::addColumn<QByteArray>("Dopo");

    QTest::newRow("no file") << QByteArray() << "[s]\r\nL0=a\r\nL1=b\r\n"_ba;
    QTest::newRow("others stay") << "[s]\nx=1\nL0=v\n;L9=c\nL5=w\ny=2\n"_ba
                                 << "[s]\nx=1\n;L9=c\ny=2\nL0=a\nL1=b\n"_ba;
    QTest::newRow("case and blanks") << "[S]\n l7 = v\n"_ba
                                     << "[S]\nL0=a\nL1=b\n"_ba;
    QTest::newRow("sections around") << "[p]\nL0=p\n[s]\nL0=v\n\n[d]\nL0=d\n"_ba
                                     << "[p]\nL0=p\n[s]\nL0=a\nL1=b\n\n[d]\nL0=d\n"_ba;
    QTest::newRow("a second one of the name") << "[s]\nL0=v\n[s]\nL0=w\n"_ba
                                              << "[s]\nL0=a\nL1=b\n[s]\nL0=w\n"_ba;
    QTest::newRow("last line left open") << "[s]\nx=1\nL0=v"_ba
                                         << "[s]\nx=1\nL0=a\nL1=b\n"_ba;
}

void TestProfilo::sostituisceChiavi()
{
    QFETCH(QByteArray, Prima);
    const QString File = NuovaCartella() + u"a.ini"_s;
    if (!Prima.isEmpty())
        ScriviFile(File, Prima);
    QVERIFY(SostituisciChiavi(
        u"s"_s, [](const QString& Chiave) { return Chiave.startsWith(u'L', Qt::CaseInsensitive); },
        {{u"L0"_s, u"a"_s}, {u"L1"_s, u"b"_s}}, File));
    QTEST(LeggiFile(File), "Dopo");
}

void TestProfilo::sostituisceChiaviRifiutata()
{
    const QString File = NuovaCartella() + u"a.ini"_s;
    ScriviFile(File, "[s]\nL0=v\n");
    const auto Tutte = [](const QString&) { return true; };
    QVERIFY(!SostituisciChiavi(u"s"_s, Tutte, {{u"a=b"_s, u"x"_s}}, File));
    QVERIFY(!SostituisciChiavi(u"s]"_s, Tutte, {{u"a"_s, u"x"_s}}, File));
    guasti::LimiteFile = 4;
    const bool Scritto = SostituisciChiavi(u"s"_s, Tutte, {{u"L0"_s, u"nuovo"_s}}, File);
    guasti::LimiteFile = 0;
    QVERIFY(!Scritto);
    QCOMPARE(LeggiFile(File), "[s]\nL0=v\n"_ba);
    QVERIFY(!SostituisciChiavi(u"s"_s, Tutte, {}, NuovaCartella() + u"manca/a.ini"_s));
}

#include "TestProfilo.moc"
