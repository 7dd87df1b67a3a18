#include "supporto/prova.h"

#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestShell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { InstallaShell({}); }
    void senzaTavolaNienteSiApre();
    void laTavolaRiceveGliArgomenti();
    void laTavolaRendeGliErrori();
    void rendeLaTavolaPrecedente();
    void cartelleSpeciali_data();
    void cartelleSpeciali();
    void documentiDiQuestoUtente();
    void cartellaDelProgramma();
    void versioneDelSistema();
    void terminaLasciaIlCiclo();
    void terminaDellaTavola();
};
PROVA(TestShell);

void TestShell::senzaTavolaNienteSiApre()
{
    QVERIFY(ApriConSistema(u"nota.doc"_s) != 0);
    QVERIFY(ApriIndirizzoConSistema(u"mailto:a@b.it"_s) != 0);
    QVERIFY(ApriPdfConSistema(u"guida.pdf"_s, 3) != 0);
    QVERIFY(AvviaProgramma(u"editor"_s, {}, {}) != 0);
    QVERIFY(!HaProgramma(u"nota.doc"_s));
    QVERIFY(!InternetConnesso());
    Clessidra(true);
    Campanello();
    ProssimoCampo();
    Segnala(u"Una finestra"_s, u"testo"_s);
}

void TestShell::laTavolaRiceveGliArgomenti()
{
    QStringList Visti;
    Shell Tavola;
    Tavola.ApriFile = [&](const QString& File) { return Visti += File, 0; };
    Tavola.ApriIndirizzo = [&](const QString& Indirizzo) { return Visti += Indirizzo, 0; };
    Tavola.HaProgramma = [&](const QString& File) { return Visti += File, true; };
    Tavola.ApriPdf = [&](const QString& File, int Pagina) {
        return Visti += File + u'@' + QString::number(Pagina), 0;
    };
    Tavola.Avvia = [&](const QString& Programma, const QStringList& Argomenti, const QString& Cartella) {
        return Visti += Programma + u'|' + Argomenti.join(u' ') + u'|' + Cartella, 0;
    };
    Tavola.Clessidra = [&](bool Attiva) { Visti += Attiva ? u"attesa"_s : u"pronto"_s; };
    Tavola.Campanello = [&] { Visti += u"suono"_s; };
    Tavola.ProssimoCampo = [&] { Visti += u"campo"_s; };
    Tavola.Connesso = [] { return true; };
    Tavola.Segnala = [&](const QString& Titolo, const QString& Testo) { Visti += Titolo + u'<' + Testo; };
    InstallaShell(Tavola);

    QCOMPARE(ApriConSistema(u"a.doc"_s), 0);
    QCOMPARE(ApriIndirizzoConSistema(u"http://b"_s), 0);
    QVERIFY(HaProgramma(u"c.pdf"_s));
    QCOMPARE(ApriPdfConSistema(u"d.pdf"_s, 7), 0);
    QCOMPARE(AvviaProgramma(u"e"_s, {u"-x"_s, u"y"_s}, u"/f"_s), 0);
    Clessidra(true);
    Clessidra(false);
    Campanello();
    ProssimoCampo();
    QVERIFY(InternetConnesso());
    Segnala(u"f"_s, u"g"_s);
    QCOMPARE(Visti, QStringList({u"a.doc"_s, u"http://b"_s, u"c.pdf"_s, u"d.pdf@7"_s, u"e|-x y|/f"_s,
                                 u"attesa"_s, u"pronto"_s, u"suono"_s, u"campo"_s, u"f<g"_s}));
}

void TestShell::laTavolaRendeGliErrori()
{
    Shell Tavola;
    Tavola.ApriFile = [](const QString&) { return 2; };
    Tavola.ApriIndirizzo = [](const QString&) { return 5; };
    Tavola.HaProgramma = [](const QString&) { return false; };
    InstallaShell(Tavola);
    QCOMPARE(ApriConSistema(u"a.doc"_s), 2);
    QCOMPARE(ApriIndirizzoConSistema(u"http://b"_s), 5);
    QVERIFY(!HaProgramma(u"a.doc"_s));
}

void TestShell::rendeLaTavolaPrecedente()
{
    Shell Prima;
    Prima.ApriFile = [](const QString&) { return 1; };
    QVERIFY(!InstallaShell(Prima).ApriFile);
    const Shell Resa = InstallaShell({});
    QCOMPARE(Resa.ApriFile(u"x"_s), 1);
    QVERIFY(ApriConSistema(u"x"_s) > 1);
}

void TestShell::cartelleSpeciali_data()
{
    QTest::addColumn<int>("Codice");
    QTest::addColumn<bool>("DeveEsistere");

    QTest::newRow("Documents, made by the desktop when first needed") << 5 << false;
    QTest::newRow("temporary files") << 12 << true;
    QTest::newRow("root of the system") << 36 << true;
    QTest::newRow("system") << 37 << true;
    QTest::newRow("any other code") << 999 << true;
}

void TestShell::cartelleSpeciali()
{
    QFETCH(int, Codice);
    QFETCH(bool, DeveEsistere);
    const QString Cartella = CartellaSpeciale(Codice);
    QVERIFY(QDir::isAbsolutePath(Cartella));
    QCOMPARE(Cartella, Barra(Cartella));
    QVERIFY(!DeveEsistere || EsisteCartella(Cartella));
}

void TestShell::documentiDiQuestoUtente()
{
    QCOMPARE(CartellaSpeciale(999), Barra(QString::fromLocal8Bit(qgetenv("HOME"))));
    QVERIFY(CartellaSpeciale(5).startsWith(CartellaSpeciale(999)));
    QVERIFY(CartellaSpeciale(5) != CartellaSpeciale(999));
}

void TestShell::cartellaDelProgramma()
{
    QCOMPARE(CartellaEseguibile(), Barra(QCoreApplication::applicationDirPath()));
    QVERIFY(EsisteFile(CartellaEseguibile() + NomeFile(QCoreApplication::applicationFilePath())));
}

void TestShell::versioneDelSistema()
{
    const VersioneSistema Versione = LeggiVersioneSistema();
    QVERIFY(Versione.Nt);
    QVERIFY(Versione.Maggiore >= 6);
    QVERIFY(Versione.Minore >= 0);
    QVERIFY(!Versione.Windows);
}

void TestShell::terminaLasciaIlCiclo()
{
    QEventLoop Ciclo;
    QTimer::singleShot(0, [] { Termina(3); });
    QTimer::singleShot(5000, &Ciclo, [&] { Ciclo.exit(-1); });
    QCOMPARE(Ciclo.exec(), 3);
}

void TestShell::terminaDellaTavola()
{
    int Esito = -1;
    Shell Tavola;
    Tavola.Termina = [&](int Chiesto) { Esito = Chiesto; };
    InstallaShell(Tavola);
    Termina(4);
    QCOMPARE(Esito, 4);
    Termina();
    QCOMPARE(Esito, 0);
}

#include "TestShell.moc"
