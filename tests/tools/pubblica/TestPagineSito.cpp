// The pages of the program under the addresses that its commands open on a server.
#include "supporto/prova.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "pubblica/paginesito.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

class TestPagineSito : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagine_data();
    void pagine();
    void laNotaNonEMarcatura();
    void programmaIncompleto();

private:
    static QString ProgrammaPronto()
    {
        const QString Cartella = NuovaCartella();
        for (const QString& Pagina : {u"assistenza.htm"_s, u"link.htm"_s})
            ScriviFile(Cartella + Pagina, LeggiFile(SorgenteDiProva(u"programma/"_s + Pagina)));
        for (const QString& Guida : {u"NovitaKR5.pdf"_s, u"GuidaOperativa.pdf"_s, u"GuidaGiuridica.pdf"_s})
            ScriviFile(Cartella + Guida, "%PDF-");
        return Cartella;
    }
};
PROVA(TestPagineSito);

void TestPagineSito::pagine_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Frase");

    QTest::newRow("assistance") << u"vdm.asp"_s << u"<h1>Assistenza tecnica</h1>"_s;
    QTest::newRow("useful sites") << u"vdm/link.htm"_s << u"https://www.normattiva.it"_s;
    QTest::newRow("notes") << u"vdm/setup/notes.htm"_s << u"<h1>Calcanova 3.0.15</h1>\n<p>Nuovi tassi</p>"_s;
}

void TestPagineSito::pagine()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Frase);
    const QString Uscita = NuovaCartella();
    ScriviPagineSito(ProgrammaPronto(), Uscita, u"3.0.15"_s, u"Nuovi tassi"_s);
    const QString Html = QString::fromUtf8(LeggiFile(Uscita + Nome));
    QVERIFY2(Html.contains(Frase), qPrintable(Html.left(500)));
    // A browser knows no command of the program, and every other link leads somewhere.
    QVERIFY(!Html.contains(u"comando:"));
    QCOMPARE(Html.count(u"<a "), Html.count(u"</a>"));
    static const QRegularExpression Collegamento(u"href=\"([^\"#]+)"_s);
    auto Passi = Collegamento.globalMatch(Html);
    while (Passi.hasNext()) {
        const QUrl Meta = QUrl::fromLocalFile(Uscita + Nome).resolved(QUrl(Passi.next().captured(1)));
        QVERIFY2(Meta.scheme() == u"https" || EsisteFile(Meta.toLocalFile()), qPrintable(Meta.toString()));
    }
}

void TestPagineSito::laNotaNonEMarcatura()
{
    const QString Uscita = NuovaCartella();
    ScriviPagineSito(ProgrammaPronto(), Uscita, u"3.0.15"_s, u"<script>x</script>"_s);
    QVERIFY(!LeggiFile(Uscita + u"vdm/setup/notes.htm"_s).contains("<script"));
}

void TestPagineSito::programmaIncompleto()
{
    const QString Programma = ProgrammaPronto();
    const QString Uscita = NuovaCartella();
    QVERIFY(QFile::remove(Programma + u"link.htm"_s));
    try {
        ScriviPagineSito(Programma, Uscita, u"3.0.15"_s, {});
        QFAIL("pubblicate");
    } catch (const Errore& Guasto) {
        QCOMPARE(Guasto.Numero, 53);
    }
    QVERIFY(QDir(Uscita).isEmpty());
}

#include "TestPagineSito.moc"
