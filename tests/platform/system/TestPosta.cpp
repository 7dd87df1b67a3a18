// A new mail, as the command that opens it is called; a name on the path stands for the command.
#include "platform/system/file.h"
#include "platform/system/posta.h"
#include "platform/system/shell.h"
#include "supporto/prova.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestPosta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void gliArgomenti_data();
    void gliArgomenti();
    void impedimenti();

private:
    QString Programmi;
    QByteArray PercorsoPrima;
    Shell Prima;
    QString Chiamato;
    QStringList Argomenti;
};
PROVA(TestPosta);

void TestPosta::init()
{
    Programmi = NuovaCartella();
    PercorsoPrima = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(Programmi));
    ScriviFile(Programmi + u"xdg-email"_s, "#!/bin/sh\n");
    QVERIFY(QFile::setPermissions(Programmi + u"xdg-email"_s, QFile::ReadOwner | QFile::ExeOwner));
    Shell Finta;
    Finta.Segui = [this](const QString& Programma, const QStringList& Dati, const std::function<void(int)>&) {
        Chiamato = Programma;
        Argomenti = Dati;
        return 0;
    };
    Prima = InstallaShell(std::move(Finta));
}

void TestPosta::cleanup()
{
    InstallaShell(std::move(Prima));
    qputenv("PATH", PercorsoPrima);
}

void TestPosta::gliArgomenti_data()
{
    QTest::addColumn<QStringList>("Testi");  // address, subject, text, file
    QTest::addColumn<QString>("Attesi");
    QTest::newRow("everything")
        << QStringList{u"a@b.it"_s, u"Fattura 12"_s, u"due\nrighe"_s, u"/x/f.pdf"_s}
        << u"--utf8|--subject|Fattura 12|--body|due\nrighe|--attach|/x/f.pdf|a@b.it"_s;
    QTest::newRow("nothing") << QStringList{{}, {}, {}, {}} << u"--utf8"_s;
    QTest::newRow("a command in the text")
        << QStringList{{}, u"a\\nb\tc"_s, {}, u"/x/f.pdf"_s} << u"--utf8|--subject|a/nbc|--attach|/x/f.pdf"_s;
}

void TestPosta::gliArgomenti()
{
    QFETCH(QStringList, Testi);
    QVERIFY(ApriMessaggio({Testi[0], Testi[1], Testi[2], Testi[3]}, [](int) {}));
    QCOMPARE(Chiamato, Programmi + u"xdg-email"_s);
    QTEST(Argomenti.join(u'|'), "Attesi");
}

void TestPosta::impedimenti()
{
    QCOMPARE(ImpedimentoPosta(u"/x/Fattura 12.pdf"_s), QString());
    QVERIFY(ImpedimentoPosta(u"/d'Aosta/f.pdf"_s).contains(u"un apostrofo o una virgola"));
    QVERIFY(ImpedimentoPosta(u"/a,b/f.pdf"_s).contains(u"un apostrofo o una virgola"));
    QVERIFY(QFile::remove(Programmi + u"xdg-email"_s));
    QCOMPARE(ImpedimentoPosta(u"/x/f.pdf"_s),
             u"Su questo computer manca xdg-email, che apre il programma di posta."_s);
    QVERIFY(!ApriMessaggio({}, [](int) {}));
}

#include "TestPosta.moc"
