#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modIcone.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDir>

using namespace Qt::StringLiterals;

class TestIcone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void legge_data();
    void legge();
    void fileGuasto_data();
    void fileGuasto();
    void fileIlleggibile();
    void senzaFile();
    void nellaCartellaUtente();
    void rilegge();
    void posti_data();
    void posti();
};
PROVA(TestIcone);

void TestIcone::init()
{
    AzzeraSessione();
    IconeUtente.Azzera(ColonneIcona);
    sessione::PercorsoProg = NuovaCartella();
}

void TestIcone::legge_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QStringList>("Titoli");

    const QByteArray Prima = "L0=A\nL0_c=/a\nL0_i=a.gif\n";
    const QByteArray Terza = "L2=C\nL2_c=/c\nL2_i=c.gif\n";
    QTest::newRow("one") << Prima << QStringList{u"A"_s};
    QTest::newRow("two") << Prima + "L1=B\nL1_c=/b\nL1_i=b.gif\n" << QStringList{u"A"_s, u"B"_s};
    QTest::newRow("a picture is missing") << Prima + "L1=B\nL1_c=/b\n" + Terza << QStringList{u"A"_s};
    QTest::newRow("a target is missing") << Prima + "L1=B\nL1_i=b.gif\n" + Terza << QStringList{u"A"_s};
    QTest::newRow("a label is empty") << Prima + "L1=\nL1_c=/b\nL1_i=b.gif\n" + Terza << QStringList{u"A"_s};
    QTest::newRow("a gap in the numbers") << Prima + Terza << QStringList{u"A"_s};
    QTest::newRow("none begins at zero") << Terza << QStringList{};
}

void TestIcone::legge()
{
    QFETCH(QByteArray, Righe);
    ScriviFile(sessione::PercorsoProg + u"KR5.INI"_s, "[altro]\nL0=X\n[desktop]\n" + Righe);
    LeggiIconeUtente();
    QStringList Titoli;
    for (int Riga = 0; Riga < IconeUtente.Righe(); ++Riga)
        Titoli << IconeUtente(Riga, IconaTitolo).toString();
    QTEST(Titoli, "Titoli");
    QCOMPARE(IconeUtente.Colonne(), int(ColonneIcona));
    if (!Titoli.isEmpty()) {
        QCOMPARE(IconeUtente(0, IconaCollegamento).toString(), u"/a"_s);
        QCOMPARE(IconeUtente(0, IconaFigura).toString(), u"a.gif"_s);
    }
}

void TestIcone::fileGuasto_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<int>("Icone");

    const QByteArray Prima = "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n";
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("zeros") << QByteArray(4096, '\0') << 0;
    QTest::newRow("no text at all") << "\xFF\xFE\x01[[[==\n=\n\r\r]"_ba << 0;
    QTest::newRow("zeros behind a good icon") << Prima + QByteArray(512, '\0') << 1;
    QTest::newRow("cut in the second icon") << Prima + "L1=B\nL1_c=/b\nL1" << 1;
    QTest::newRow("a heading left open") << "[desktop\nL0=A\nL0_c=/a\nL0_i=a.gif\n"_ba << 0;
    QTest::newRow("one endless line") << "[desktop]\nL0=" + QByteArray(200000, 'x') + "\nL0_c=/a\n" << 0;
}

void TestIcone::fileGuasto()
{
    QFETCH(QByteArray, Contenuto);
    const Registratore Box;
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, Contenuto);
    LeggiIconeUtente();
    QTEST(IconeUtente.Righe(), "Icone");
    QCOMPARE(LeggiFile(sessione::PercorsoProg + u"kr5.ini"_s), Contenuto);
}

void TestIcone::fileIlleggibile()
{
    Registratore Box;
    const QString File = sessione::PercorsoProg + u"kr5.ini"_s;
    ScriviFile(File, "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n");
    QVERIFY(QFile::setPermissions(File, {}));
    Box.Attendi(u"75 "_s + DescrizioneErrore(75));  // once, not for each key
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
    // A folder of that name is no file, so that there is none.
    QVERIFY(QFile::remove(File));
    QVERIFY(QDir().mkpath(File));
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
}

void TestIcone::senzaFile()
{
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
}

void TestIcone::nellaCartellaUtente()
{
    sessione::UserFolder = NuovaCartella().chopped(1);
    ScriviFile(Barra(sessione::UserFolder) + u"kr5.ini"_s, "[desktop]\nL0=Mia\nL0_c=/m\nL0_i=m.gif\n");
    LeggiIconeUtente();
    QCOMPARE(IconeUtente.Righe(), 1);
    // The one beside the program counts where there is one.
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, "[desktop]\n");
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
}

void TestIcone::rilegge()
{
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n");
    LeggiIconeUtente();
    LeggiIconeUtente();
    QCOMPARE(IconeUtente.Righe(), 1);
}

void TestIcone::posti_data()
{
    QTest::addColumn<int>("Riga");
    QTest::addColumn<QPoint>("Posto");

    QTest::newRow("first") << 0 << QPoint(136, 312);
    QTest::newRow("second") << 1 << QPoint(236, 312);
    QTest::newRow("sixth") << 5 << QPoint(636, 312);
    QTest::newRow("seventh") << 6 << QPoint(32, 412);
    QTest::newRow("eighth") << 7 << QPoint(132, 412);
    QTest::newRow("last of the second row") << 12 << QPoint(632, 412);
    QTest::newRow("first of the third row") << 13 << QPoint(32, 512);
}

void TestIcone::posti()
{
    QFETCH(int, Riga);
    QTEST(PostoIcona(Riga), "Posto");
}

#include "TestIcone.moc"
