// The pages of the program under the addresses that its commands open on a server.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/indirizzi.h"
#include "core/parametri.h"
#include "platform/system/file.h"
#include "platform/system/shell.h"
#include "pubblica/paginesito.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QUrl>

using namespace Qt::StringLiterals;

class TestPagineSito : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagine_data();
    void pagine();
    void ogniIndirizzoDelProgramma();
    void unaPaginaPerOgniIndirizzoNelSorgente();
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

void TestPagineSito::ogniIndirizzoDelProgramma()
{
    // What the program opens on its server is what is laid out, down to the place in the page.
    const QString Server = u"https://www.esempio.it"_s;
    SalvaImpostazione(indirizzi::ChiaveServer.toString(), Server);
    QStringList Aperti{indirizzi::Editore(), indirizzi::Sviluppatore()};
    Shell Tavola;
    Tavola.ApriIndirizzo = [&](const QString& Indirizzo) {
        Aperti << Indirizzo;
        return 0;
    };
    Shell Prima = InstallaShell(std::move(Tavola));
    const auto Ripristino = qScopeGuard([&] {
        InstallaShell(std::move(Prima));
        SalvaImpostazione(indirizzi::ChiaveServer.toString(), {});
        Aperture = {};
    });
    // No window stands behind a word here: what acts is what leads to an address.
    Aperture = {};
    for (const QString& Parola : {u"release"_s, u"link"_s, u"assistenza"_s})
        EseguiComando(Parola, 0, {});
    QCOMPARE(Aperti.size(), 5);

    const QString Uscita = NuovaCartella();
    ScriviPagineSito(ProgrammaPronto(), Uscita, u"3.0.15"_s, {});
    for (const QString& Indirizzo : std::as_const(Aperti)) {
        const QUrl Meta(Indirizzo);
        QVERIFY2(Indirizzo.startsWith(Server + u'/'), qPrintable(Indirizzo));
        const QString File = Uscita + Meta.path().mid(1);
        QVERIFY2(EsisteFile(File), qPrintable(Indirizzo));
        if (Meta.hasFragment())
            QVERIFY2(QString::fromUtf8(LeggiFile(File)).contains(u"name=\"%1\""_s.arg(Meta.fragment())),
                     qPrintable(Indirizzo));
    }
}

void TestPagineSito::unaPaginaPerOgniIndirizzoNelSorgente()
{
    // An address that somebody adds to the program has its page too.
    static const QRegularExpression Percorso(u"Server \\+ u\"(/[^\"#]+)"_s);
    const QString Uscita = NuovaCartella();
    ScriviPagineSito(ProgrammaPronto(), Uscita, u"3.0.15"_s, {});
    int Trovati = 0;
    QDirIterator Passo(SorgenteDiProva(u"src/core"_s), {u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (Passo.hasNext()) {
        const QString Testo = QString::fromUtf8(LeggiFile(Passo.next()));
        for (const QRegularExpressionMatch& Trovato : Percorso.globalMatch(Testo)) {
            ++Trovati;
            QVERIFY2(EsisteFile(Uscita + Trovato.captured(1).mid(1)), qPrintable(Trovato.captured(1)));
        }
    }
    QVERIFY(Trovati >= 3);
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
    const ErroreVisto Guasto = ErroreDi([&] { ScriviPagineSito(Programma, Uscita, u"3.0.15"_s, {}); });
    QCOMPARE(Guasto.Numero, 53);
    QVERIFY(QDir(Uscita).isEmpty());
}

#include "TestPagineSito.moc"
