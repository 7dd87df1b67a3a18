#include "supporto/prova.h"

#include "platform/system/percorsi.h"

#include <QDir>

using namespace Qt::StringLiterals;

class TestPercorsi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void percorsoNativo_data();
    void percorsoNativo();
    void barraUnaSolaInFondo_data();
    void barraUnaSolaInFondo();
    void nomeECartella_data();
    void nomeECartella();
    void finisceInCartella_data();
    void finisceInCartella();
    void percorsoIntero();
    void byteDelNome();
};
PROVA(TestPercorsi);

void TestPercorsi::percorsoNativo_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("backslashes") << u"studio\\Modelli\\a.par"_s << u"studio/Modelli/a.par"_s;
    QTest::newRow("both kinds") << u"/studio\\Modelli/a.par"_s << u"/studio/Modelli/a.par"_s;
    QTest::newRow("doubled inside") << u"/studio\\/Modelli//\\a.par"_s << u"/studio/Modelli/a.par"_s;
    QTest::newRow("doubled behind the first letter") << u"a//b"_s << u"a/b"_s;
    QTest::newRow("doubled at the end") << u"/studio//"_s << u"/studio/"_s;
    QTest::newRow("network share") << u"\\\\server\\studio\\\\a"_s << u"//server/studio/a"_s;
    QTest::newRow("three at the beginning") << u"\\\\\\server"_s << u"//server"_s;
    QTest::newRow("drive") << u"C:\\Studio"_s << u"C:/Studio"_s;
}

void TestPercorsi::percorsoNativo()
{
    QFETCH(QString, Percorso);
    QFETCH(QString, Atteso);
    QCOMPARE(PercorsoNativo(Percorso), Atteso.replace(u'/', QDir::separator()));
    QCOMPARE(PercorsoNativo(PercorsoNativo(Percorso)), PercorsoNativo(Percorso));
}

void TestPercorsi::barraUnaSolaInFondo_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("empty stays empty") << QString() << QString();
    QTest::newRow("none") << u"/studio"_s << u"/studio/"_s;
    QTest::newRow("one") << u"/studio/"_s << u"/studio/"_s;
    QTest::newRow("a backslash") << u"C:\\studio\\"_s << u"C:/studio/"_s;
    QTest::newRow("two") << u"/studio//"_s << u"/studio/"_s;
    QTest::newRow("two kinds") << u"/studio\\/"_s << u"/studio/"_s;
    QTest::newRow("the root") << u"/"_s << u"/"_s;
    QTest::newRow("separators alone") << u"\\\\"_s << u"/"_s;
}

void TestPercorsi::barraUnaSolaInFondo()
{
    QFETCH(QString, Percorso);
    QFETCH(QString, Atteso);
    QCOMPARE(Barra(Percorso), Atteso.replace(u'/', QDir::separator()));
}

void TestPercorsi::nomeECartella_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<QString>("Cartella");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("empty") << QString() << QString() << QString();
    QTest::newRow("no separator") << u"nota.par"_s << QString() << u"nota.par"_s;
    QTest::newRow("backslash") << u"C:\\Studio\\nota.par"_s << u"C:\\Studio\\"_s << u"nota.par"_s;
    QTest::newRow("slash") << u"/studio/nota.par"_s << u"/studio/"_s << u"nota.par"_s;
    QTest::newRow("slash last of both") << u"a\\b/c"_s << u"a\\b/"_s << u"c"_s;
    QTest::newRow("backslash last of both") << u"a/b\\c"_s << u"a/b\\"_s << u"c"_s;
    QTest::newRow("folder") << u"/studio/"_s << u"/studio/"_s << QString();
    QTest::newRow("in the root") << u"/nota"_s << u"/"_s << u"nota"_s;
}

void TestPercorsi::nomeECartella()
{
    QFETCH(QString, Percorso);
    QTEST(CartellaFile(Percorso), "Cartella");
    QTEST(NomeFile(Percorso), "Nome");
}

void TestPercorsi::finisceInCartella_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Atteso");

    QTest::newRow("backslashes") << u"C:\\x\\Modelli\\"_s << u"Modelli"_s << true;
    QTest::newRow("slashes") << u"/x/Modelli/"_s << u"Modelli"_s << true;
    QTest::newRow("no separator at the end") << u"/x/Modelli"_s << u"Modelli"_s << true;
    QTest::newRow("doubled") << u"/x/Modelli\\/"_s << u"Modelli"_s << true;
    QTest::newRow("other case") << u"/x/MODELLI/"_s << u"Modelli"_s << true;
    QTest::newRow("alone") << u"Modelli"_s << u"Modelli"_s << true;
    QTest::newRow("end of a longer name") << u"/x/VecchiModelli/"_s << u"Modelli"_s << false;
    QTest::newRow("further up") << u"/x/Modelli/2014/"_s << u"Modelli"_s << false;
    QTest::newRow("empty path") << QString() << u"Modelli"_s << false;
    QTest::newRow("empty name") << u"/x/"_s << QString() << false;
    QTest::newRow("both empty") << QString() << QString() << false;
    QTest::newRow("the root has no name") << u"/"_s << QString() << false;
}

void TestPercorsi::finisceInCartella()
{
    QFETCH(QString, Percorso);
    QFETCH(QString, Nome);
    QTEST(FinisceInCartella(Percorso, Nome), "Atteso");
}

void TestPercorsi::percorsoIntero()
{
    QCOMPARE(PercorsoIntero(u"/opt\\agenda"_s, u"/studio"_s), u"/opt/agenda"_s);
    QCOMPARE(PercorsoIntero(u"note\\a.mdb"_s, u"/studio"_s), u"/studio/note/a.mdb"_s);
    QCOMPARE(PercorsoIntero(u"a.mdb"_s, u"/studio/"_s), u"/studio/a.mdb"_s);
    QCOMPARE(PercorsoIntero(u"a.mdb"_s), QDir::currentPath() + u"/a.mdb"_s);
}

void TestPercorsi::byteDelNome()
{
    QCOMPARE(ByteDelNome(u"nota.mdb"_s), 8);
    QCOMPARE(ByteDelNome(u"città"_s), 6);
}

#include "TestPercorsi.moc"
