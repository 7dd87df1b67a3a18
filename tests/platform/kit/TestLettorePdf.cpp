// Which program shows a PDF, and at which page: the system and its viewers are scripts in a folder of the
// test's.
#include "platform/kit/shell_qt.h"
#include "platform/system/file.h"
#include "platform/system/shell.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

class TestLettorePdf : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void apreAllaPagina_data();
    void apreAllaPagina();
    void haUnProgramma_data();
    void haUnProgramma();

private:
    /// A program of the folder. What it is started with stands in the file of its name behind it.
    void Installa(const QString& Nome, const QByteArray& Corpo) const;
    /// The system answers this when it is asked for the program of a file; null: there is nobody to ask.
    void Associa(const QString& Voce) const;

    QString Programmi;
    QByteArray PercorsoPrima;
    Shell Vera;
};
PROVA(TestLettorePdf);

void TestLettorePdf::init()
{
    Programmi = NuovaCartella();
    PercorsoPrima = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(Programmi));
    Vera = ShellQt();
    ScriviFile(Programmi + u"guida.pdf"_s, "%PDF");
    for (const QString& Nome : {u"evince"_s, u"okular"_s})
        Installa(Nome, "printf '%s ' \"$@\" > \"$0.parti\"; exec /bin/mv \"$0.parti\" \"$0.visto\"\n");
}

void TestLettorePdf::cleanup()
{
    qputenv("PATH", PercorsoPrima);
}

void TestLettorePdf::Installa(const QString& Nome, const QByteArray& Corpo) const
{
    ScriviFile(Programmi + Nome, "#!/bin/sh\n" + Corpo);
    QVERIFY(QFile::setPermissions(Programmi + Nome, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestLettorePdf::Associa(const QString& Voce) const
{
    if (!Voce.isNull())
        Installa(u"xdg-mime"_s, "echo '" + Voce.toUtf8() + "'\n");
}

void TestLettorePdf::apreAllaPagina_data()
{
    QTest::addColumn<QString>("Associato");
    QTest::addColumn<QString>("Programma");
    QTest::addColumn<QString>("Argomenti");
    QTest::newRow("associato: il primo dell'elenco")
        << u"org.gnome.Evince.desktop"_s << u"evince"_s << u"--page-index=7"_s;
    QTest::newRow("associato: un altro, e il primo è installato")
        << u"okularApplication_pdf.desktop"_s << u"okular"_s << u"--page 7"_s;
    QTest::newRow("nessuno a cui chiedere: il primo installato")
        << QString() << u"evince"_s << u"--page-index=7"_s;
}

void TestLettorePdf::apreAllaPagina()
{
    QFETCH(QString, Associato);
    QFETCH(QString, Programma);
    QFETCH(QString, Argomenti);
    Associa(Associato);
    const QString File = Programmi + u"guida.pdf"_s;
    QCOMPARE(Vera.ApriPdf(File, 7), 0);
    const QString Visto = Programmi + Programma + u".visto"_s;
    QTRY_VERIFY(EsisteFile(Visto));
    QCOMPARE(QString::fromUtf8(LeggiFile(Visto)).trimmed(), Argomenti + u' ' + File);
    const QString Altro = Programma == u"evince" ? u"okular"_s : u"evince"_s;
    QVERIFY(!EsisteFile(Programmi + Altro + u".visto"_s));
}

void TestLettorePdf::haUnProgramma_data()
{
    QTest::addColumn<QString>("Associato");
    QTest::addColumn<bool>("ConLettori");
    QTest::addColumn<bool>("Atteso");
    QTest::newRow("un programma qualsiasi") << u"xpdf.desktop"_s << false << true;
    QTest::newRow("nessuno associato") << u""_s << true << false;
    QTest::newRow("nessuno a cui chiedere, un lettore c'è") << QString() << true << true;
    QTest::newRow("nessuno a cui chiedere, nessun lettore") << QString() << false << false;
}

void TestLettorePdf::haUnProgramma()
{
    QFETCH(QString, Associato);
    QFETCH(bool, ConLettori);
    Associa(Associato);
    if (!ConLettori)
        for (const QString& Nome : {u"evince"_s, u"okular"_s})
            QVERIFY(QFile::remove(Programmi + Nome));
    QTEST(Vera.HaProgramma(Programmi + u"guida.pdf"_s), "Atteso");
}

#include "TestLettorePdf.moc"
