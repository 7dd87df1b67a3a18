#include "supporto/finestre.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/CIni.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "update/viewer/frmWeb.h"
#include "update/viewer/intrico.h"
#include "update/viewer/pagina.h"
#include "update/viewer/stilepagina.h"

#include <QAbstractTextDocumentLayout>
#include <QCheckBox>
#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFragment>
#include <QToolButton>
#include <QWheelEvent>

#include <memory>

using namespace Qt::StringLiterals;

class TestFrmWeb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void mostraLaPagina();
    void nomeTrovatoQualunqueSiaIlCaso();
    void lettereAccentate_data();
    void lettereAccentate();
    void paginaMancante();
    void paginaMancanteLasciaQuellaInVista();
    void avanzaSenzaPrendereIlFuoco();
    void casellaSoloConIlMarcatore();
    void marcatoreAllaChiusura_data();
    void marcatoreAllaChiusura();
    void marcatoreNellaCartellaUtente();
    void marcatoreRifiutatoOvunque();
    void casellaVuotaPerOgniVisore();
    void collegamenti_data();
    void collegamenti();
    void comandiDellePagine_data();
    void comandiDellePagine();
    void collegamentoRelativo();
    void ancora();
    void ancoraAllaPrimaMostra_data();
    void ancoraAllaPrimaMostra();
    void indietroEAvanti();
    void pdfDelProgramma();
    void figure_data();
    void figure();
    void foglioDiStileFuoriCartella();
    void paginaTroppoGrande_data();
    void paginaTroppoGrande();
    void lePagineDelProgrammaNonSonoIntricate();
    void cerca();
    void cercaRicominciaDaCapo();
    void escChiudePrimaLaRicerca();
    void ingrandimento();
    void tavolozzaScura();
    void seguonoLaFinestra();
    void ricordaIlPosto();

private:
    void Scrivi(const QString& Nome, const QByteArray& Contenuto) const
    {
        ScriviFile(Prog + Nome, Contenuto);
    }
    void Mostra(const QString& Nome)
    {
        W->Indirizzo = Prog + Nome;
        W->Titolo = u"Titolo"_s;
        W->Mostra();
    }
    template <class T>
    T* Trova(const QString& Nome) const
    {
        return W->findChild<T*>(Nome);
    }
    [[nodiscard]] Pagina* Web1() const { return Trova<Pagina>(u"Web1"_s); }

    QString Prog;
    QString Utente;
    std::unique_ptr<frmWeb> W;
    Shell Precedente;
    QStringList Aperti;
    int EsitoApertura = 0;
};
PROVA(TestFrmWeb);

void TestFrmWeb::init()
{
    AzzeraSessione();
    Registratore::AlMostrare() = BoxDavanti;
    Prog = NuovaCartella();
    Utente = NuovaCartella();
    sessione::PercorsoProg = Prog;
    sessione::UserFolder = Utente;
    Aperti.clear();
    EsitoApertura = 0;
    Shell Nuova;
    Nuova.ApriIndirizzo = [this](const QString& Indirizzo) {
        Aperti << Indirizzo;
        return EsitoApertura;
    };
    Nuova.ApriPdf = [this](const QString& File, int) {
        Aperti << NomeFile(File);
        return 0;
    };
    Nuova.ApriFile = [this](const QString& File) {
        Aperti << u"file "_s + NomeFile(File);
        return 0;
    };
    Nuova.HaProgramma = [](const QString&) { return true; };
    Precedente = InstallaShell(std::move(Nuova));
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    InstallaOrologio([] { return QDateTime(QDate(2026, 3, 9), QTime(10, 0)); });
    Scrivi(u"uno.htm"_s, "<h1>Prima</h1><p>testo di prova</p>");
    Scrivi(u"due.htm"_s, "<h1>Seconda</h1>");
    W = std::make_unique<frmWeb>();
}

void TestFrmWeb::cleanup()
{
    W.reset();
    Registratore::AlMostrare() = {};
    InstallaUltimaRete(nullptr);
    InstallaOrologio(nullptr);
    InstallaShell(std::move(Precedente));
    AzzeraSessione();
}

void TestFrmWeb::mostraLaPagina()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    QVERIFY(W->isVisible());
    QCOMPARE(W->windowTitle(), u"Titolo"_s);
    QCOMPARE(Web1()->toPlainText(), u"Prima\ntesto di prova"_s);
    QVERIFY(!Trova<QToolButton>(u"cmdIndietro"_s)->isEnabled());
    QVERIFY(!W->isModal());
}

void TestFrmWeb::nomeTrovatoQualunqueSiaIlCaso()
{
    const Registratore Box;
    Scrivi(u"Scheda Uno (art. 3, comma 1) 100%.HTM"_s, "<p>trovata</p>");
    Mostra(u"scheda uno (ART. 3, comma 1) 100%.htm"_s);
    QCOMPARE(Web1()->toPlainText(), u"trovata"_s);
}

void TestFrmWeb::lettereAccentate_data()
{
    QTest::addColumn<QByteArray>("Html");

    QTest::newRow("declared as UTF-8")
        << QByteArray("<html><head><meta charset=\"utf-8\"></head><body>perch\xC3\xA9</body></html>");
    QTest::newRow("declared as Latin-1")
        << QByteArray("<html><head><meta charset=\"iso-8859-1\"></head><body>perch\xE9</body></html>");
    QTest::newRow("UTF-8 that says nothing") << QByteArray("<p>perch\xC3\xA9</p>");
}

void TestFrmWeb::lettereAccentate()
{
    QFETCH(QByteArray, Html);
    const Registratore Box;
    Scrivi(u"uno.htm"_s, Html);
    Mostra(u"uno.htm"_s);
    QCOMPARE(Web1()->toPlainText(), u"perché"_s);
}

void TestFrmWeb::paginaMancante()
{
    Registratore Box;
    Box.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    QVERIFY(!Protetta([this] { Mostra(u"tre.htm"_s); }));
    QVERIFY(!W->isVisible());
}

void TestFrmWeb::paginaMancanteLasciaQuellaInVista()
{
    Registratore Box;
    Mostra(u"uno.htm"_s);
    W->Titolo = u"Altro"_s;
    W->Indirizzo = Prog + u"tre.htm"_s;
    Box.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    QVERIFY(!Protetta([this] { W->Mostra(); }));
    QCOMPARE(W->windowTitle(), u"Titolo"_s);
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
}

void TestFrmWeb::avanzaSenzaPrendereIlFuoco()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    QLineEdit Altrove;
    QVERIFY(MostraAttiva(Altrove));
    Altrove.setFocus();
    Mostra(u"due.htm"_s);
    Respiro();
    QCOMPARE(Web1()->toPlainText(), u"Seconda"_s);
    QCOMPARE(QApplication::activeWindow(), &Altrove);
}

void TestFrmWeb::casellaSoloConIlMarcatore()
{
    const Registratore Box;
    auto* Casella = Trova<QCheckBox>(u"chkNoRepeat"_s);
    QCOMPARE(Casella->text().remove(u'&'), u"Non visualizzare più questo messaggio"_s);
    Mostra(u"uno.htm"_s);
    QVERIFY(!Casella->isVisible());
    W->close();
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    QVERIFY(Casella->isVisible());
}

void TestFrmWeb::marcatoreAllaChiusura_data()
{
    QTest::addColumn<QString>("Marcatore");
    QTest::addColumn<bool>("Spunta");
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<bool>("Scritto");

    QTest::newRow("ticked, button") << u"avvisokr5"_s << true << u"cmdChiudi"_s << true;
    QTest::newRow("ticked, Esc") << u"avvisokr5"_s << true << u"esc"_s << true;
    QTest::newRow("ticked, window closed") << u"avvisokr5"_s << true << u"x"_s << true;
    QTest::newRow("not ticked") << u"avvisokr5"_s << false << u"x"_s << false;
    QTest::newRow("no marker") << u""_s << true << u"x"_s << false;
}

void TestFrmWeb::marcatoreAllaChiusura()
{
    QFETCH(QString, Marcatore);
    QFETCH(bool, Spunta);
    QFETCH(QString, Modo);
    QFETCH(bool, Scritto);
    const Registratore Box;
    W->Marcatore = Marcatore;
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(Spunta);
    QVERIFY(!EsisteFile(Prog + u"avvisokr5.ini"_s));
    if (Modo == u"cmdChiudi")
        Trova<QPushButton>(Modo)->click();
    else if (Modo == u"esc")
        QTest::keyClick(W.get(), Qt::Key_Escape);
    else
        W->close();
    QVERIFY(!W->isVisible());
    QCOMPARE(EsisteFile(Prog + u"avvisokr5.ini"_s), Scritto);
    QCOMPARE(QDir(Prog).entryList({u"*.ini"_s}, QDir::Files).size(), Scritto ? 1 : 0);
    QVERIFY(QDir(Utente).isEmpty());
    if (Scritto)
        QCOMPARE(LeggiFile(Prog + u"avvisokr5.ini"_s).simplified(),
                 QByteArray("[avvisokr5] letto=09/03/2026"));
}

void TestFrmWeb::marcatoreNellaCartellaUtente()
{
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(true);
    // The user folder may not be there yet.
    sessione::UserFolder = Utente + u"nuova/"_s;
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::ExeOwner));
    W->close();
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!EsisteFile(Prog + u"avvisokr5.ini"_s));
    QVERIFY(EsisteFile(Utente + u"nuova/avvisokr5.ini"_s));
}

void TestFrmWeb::marcatoreRifiutatoOvunque()
{
    // Nobody is told: the notice comes again, no more.
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(true);
    sessione::UserFolder.clear();
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::ExeOwner));
    W->close();
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!W->isVisible());
    QVERIFY(QDir(Prog).entryList({u"*.ini"_s}).isEmpty());
}

void TestFrmWeb::casellaVuotaPerOgniVisore()
{
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(true);
    W->close();
    Mostra(u"uno.htm"_s);
    QVERIFY(!Trova<QCheckBox>(u"chkNoRepeat"_s)->isChecked());
}

void TestFrmWeb::collegamenti_data()
{
    QTest::addColumn<QString>("Dove");
    QTest::addColumn<int>("Esito");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Aperto");

    QTest::newRow("web address, letters as they stand") << u"https://www.esempio.it/Una%20Pagina?Q=1"_s << 0
                                                        << 0 << u"https://www.esempio.it/Una%20Pagina?Q=1"_s;
    QTest::newRow("mail") << u"mailto:studio@esempio.it"_s << 0 << 0 << u"mailto:studio@esempio.it"_s;
    QTest::newRow("no browser") << u"http://www.esempio.it/"_s << 31 << 31 << u"http://www.esempio.it/"_s;
    QTest::newRow("scheme that runs things") << u"javascript:alert(1)"_s << 0 << 52 << QString();
    QTest::newRow("data in the address") << u"data:text/html,ciao"_s << 0 << 52 << QString();
    QTest::newRow("no such page") << u"file:///niente/di/simile.htm"_s << 0 << 53 << QString();
    QTest::newRow("a file of the system") << u"file:///etc/hostname"_s << 0 << 70 << QString();
}

void TestFrmWeb::collegamenti()
{
    QFETCH(QString, Dove);
    QFETCH(int, Esito);
    QFETCH(int, Numero);
    QFETCH(QString, Aperto);
    Registratore Box;
    Mostra(u"uno.htm"_s);
    EsitoApertura = Esito;
    if (Numero != 0)
        Box.Attendi(u"Errore: %1 (%2)"_s.arg(DescrizioneErrore(Numero)).arg(Numero), vbOK, u"Errore:"_s);
    Q_EMIT Web1()->anchorClicked(QUrl(Dove));
    QCOMPARE(Aperti, Aperto.isEmpty() ? QStringList() : QStringList{Aperto});
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
}

void TestFrmWeb::comandiDellePagine_data()
{
    QTest::addColumn<QString>("Collegamento");
    QTest::addColumn<QStringList>("Aperte");
    QTest::addColumn<bool>("Rifiutato");

    QTest::newRow("about box") << u"comando:about"_s << QStringList{u"about"_s} << false;
    QTest::newRow("documents") << u"comando:docum"_s << QStringList{u"docum"_s} << false;
    QTest::newRow("what to read first")
        << u"comando:readme"_s << QStringList{u"file avvertenze.doc"_s} << false;
    // A page ends no session and opens no note.
    QTest::newRow("end") << u"comando:off"_s << QStringList() << true;
    QTest::newRow("new note") << u"comando:new"_s << QStringList() << true;
    QTest::newRow("other case") << u"comando:ABOUT"_s << QStringList() << true;
    QTest::newRow("no word") << u"comando:"_s << QStringList() << true;
}

void TestFrmWeb::comandiDellePagine()
{
    QFETCH(QString, Collegamento);
    QFETCH(QStringList, Aperte);
    QFETCH(bool, Rifiutato);
    Registratore Box;
    const auto Ripristino = qScopeGuard([] { Aperture = {}; });
    QStringList Chieste;
    for (const QString& Parola : {u"about"_s, u"docum"_s, u"new"_s})
        Aperture.Finestre[Parola] = [&Chieste, Parola] { Chieste << Parola; };
    Aperture.ApriParcella = [&](const QString&, int, const QString&) { Chieste << u"parcella"_s; };
    Scrivi(u"avvertenze.doc"_s, "{\\rtf1}");
    Mostra(u"uno.htm"_s);
    if (Rifiutato)
        Box.Attendi(u"Errore: Nome di file non valido (52)"_s, vbOK, u"Errore:"_s);
    QCOMPARE(Protetta([&] { (void)Web1()->Segui(QUrl(Collegamento)); }), !Rifiutato);
    QCOMPARE(Chieste + Aperti, Aperte);
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
}

void TestFrmWeb::collegamentoRelativo()
{
    Registratore Box;
    const QString Fuori = NuovaCartella();
    ScriviFile(Fuori + u"segreta.htm"_s, "<p>segreta</p>");
    QVERIFY(QFile::link(Fuori + u"segreta.htm"_s, Prog + u"ponte.htm"_s));
    CreaCartella(Prog + u"docum"_s);
    Scrivi(u"docum/tre.htm"_s, "<a href=\"../due.htm\">su</a>");
    Scrivi(u"programma.exe"_s, "MZ");
    Mostra(u"docum/tre.htm"_s);
    for (const QString& Dove : {u"../../"_s + QDir(Fuori).dirName() + u"/segreta.htm"_s, u"../ponte.htm"_s,
                                u"../programma.exe"_s}) {
        Box.Attendi(u"Errore: Autorizzazione negata (70)"_s, vbOK, u"Errore:"_s);
        Q_EMIT Web1()->anchorClicked(Web1()->source().resolved(QUrl(Dove)));
        QCOMPARE(Web1()->toPlainText(), u"su"_s);
    }
    // The link itself, by the keyboard.
    QVERIFY(MostraAttiva(*W));
    Web1()->setFocus();
    Premi(Qt::Key_Tab);
    Premi(Qt::Key_Return);
    QCOMPARE(Web1()->toPlainText(), u"Seconda"_s);
    QVERIFY(W->isVisible());
}

void TestFrmWeb::ancora()
{
    const Registratore Box;
    Scrivi(u"lunga.htm"_s, "<a href=\"#fondo\">giù</a>" + QByteArray("<p>riga</p>").repeated(200) +
                               "<h2><a name=\"fondo\"></a>Fondo</h2>" +
                               QByteArray("<p>riga</p>").repeated(200));
    Mostra(u"lunga.htm"_s);
    QCOMPARE(Web1()->verticalScrollBar()->value(), 0);
    Q_EMIT Web1()->anchorClicked(Web1()->source().resolved(QUrl(u"#fondo"_s)));
    Respiro();
    QVERIFY(Web1()->verticalScrollBar()->value() > 0);
    QVERIFY(Web1()->verticalScrollBar()->value() < Web1()->verticalScrollBar()->maximum());
    // A page asked for anew begins at its top, or at the anchor that it is asked for with.
    W->close();
    Mostra(u"lunga.htm"_s);
    QCOMPARE(Web1()->verticalScrollBar()->value(), 0);
    Mostra(u"lunga.htm#fondo"_s);
    Respiro();
    QVERIFY(Web1()->verticalScrollBar()->value() > 0);
    QVERIFY(Web1()->verticalScrollBar()->value() < Web1()->verticalScrollBar()->maximum());
    // An anchor that the page lacks, and a name that has the sign itself.
    Mostra(u"due.htm#altrove"_s);
    QCOMPARE(NomeFile(Web1()->source().toLocalFile()), u"due.htm"_s);
    Scrivi(u"n#3.htm"_s, "<h1>Terza</h1>");
    Mostra(u"n#3.htm"_s);
    QCOMPARE(Web1()->toPlainText(), u"Terza"_s);
}

void TestFrmWeb::ancoraAllaPrimaMostra_data()
{
    QTest::addColumn<int>("Dopo");

    QTest::newRow("far from the end of the page") << 200;
    QTest::newRow("near it") << 12;
}

void TestFrmWeb::ancoraAllaPrimaMostra()
{
    // The window comes up as wide as the user left it: lines break elsewhere than before it was shown.
    QFETCH(int, Dopo);
    const Registratore Box;
    QByteArray Html = "<p>" + QByteArray("parola ").repeated(3000) + "</p><h2><a name=\"meta\"></a>Meta</h2>";
    Scrivi(u"uno.htm"_s, Html + QByteArray("<p>coda</p>").repeated(Dopo));
    W->resize(1200, 500);
    aspetto::RicordaPosto(W.get(), W->objectName());
    W = std::make_unique<frmWeb>();
    W->Indirizzo = Prog + u"uno.htm#meta"_s;
    W->Mostra();
    const QTextDocument* Testo = Web1()->document();
    QTextBlock Meta = Testo->begin();
    while (Meta.isValid() && Meta.text() != u"Meta")
        Meta = Meta.next();
    QVERIFY(Meta.isValid());
    const QScrollBar* Barra = Web1()->verticalScrollBar();
    const int Alto = qRound(Testo->documentLayout()->blockBoundingRect(Meta).top());
    QVERIFY(Barra->maximum() > 0);
    QCOMPARE(Barra->value(), std::min(Alto, Barra->maximum()));
}

void TestFrmWeb::indietroEAvanti()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    Q_EMIT Web1()->anchorClicked(Web1()->source().resolved(QUrl(u"due.htm"_s)));
    auto* Indietro = Trova<QToolButton>(u"cmdIndietro"_s);
    auto* Avanti = Trova<QToolButton>(u"cmdAvanti"_s);
    QVERIFY(Indietro->isEnabled());
    QVERIFY(!Avanti->isEnabled());
    Indietro->click();
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
    QVERIFY(Avanti->isEnabled());
    Avanti->click();
    QCOMPARE(Web1()->toPlainText(), u"Seconda"_s);
}

void TestFrmWeb::pdfDelProgramma()
{
    const Registratore Box;
    Scrivi(u"Guida.pdf"_s, "%PDF-1.4");
    Mostra(u"uno.htm"_s);
    Q_EMIT Web1()->anchorClicked(Web1()->source().resolved(QUrl(u"guida.PDF"_s)));
    QCOMPARE(Aperti, QStringList{u"Guida.pdf"_s});
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
}

void TestFrmWeb::figure_data()
{
    QTest::addColumn<QSize>("Misura");
    QTest::addColumn<bool>("Fuori");
    QTest::addColumn<QSize>("Mostrata");

    QTest::newRow("beside the page") << QSize(40, 30) << false << QSize(40, 30);
    QTest::newRow("outside the program") << QSize(40, 30) << true << QSize(1, 1);
    QTest::newRow("too wide") << QSize(5000, 2) << false << QSize(1, 1);
}

void TestFrmWeb::figure()
{
    QFETCH(QSize, Misura);
    QFETCH(bool, Fuori);
    const Registratore Box;
    QImage Disegno(Misura, QImage::Format_RGB32);
    Disegno.fill(Qt::red);
    const QString File = (Fuori ? NuovaCartella() : Prog) + u"figura.png"_s;
    QVERIFY(Disegno.save(File));
    Mostra(u"uno.htm"_s);
    const QVariant Letta = Web1()->loadResource(QTextDocument::ImageResource,
                                                Fuori ? QUrl::fromLocalFile(File) : QUrl(u"figura.png"_s));
    QTEST(Letta.value<QImage>().size(), "Mostrata");
}

void TestFrmWeb::foglioDiStileFuoriCartella()
{
    const Registratore Box;
    const QString Fuori = NuovaCartella();
    ScriviFile(Fuori + u"stile.css"_s, "h1 { color: #ff0000; }");
    Mostra(u"uno.htm"_s);
    QCOMPARE(
        Web1()
            ->loadResource(QTextDocument::StyleSheetResource, QUrl::fromLocalFile(Fuori + u"stile.css"_s))
            .toByteArray(),
        QByteArray(" "));
}

void TestFrmWeb::paginaTroppoGrande_data()
{
    QTest::addColumn<QByteArray>("Html");
    QTest::addColumn<bool>("Mostrata");

    QTest::newRow("within the limit") << QByteArray("<p>parole </p>").repeated(5000) << true;
    QTest::newRow("over the limit") << QByteArray("<p>parole </p>").repeated(80000) << false;
    QTest::newRow("sections without end") << QByteArray("<div>").repeated(20000) << false;
    QTest::newRow("tables without end") << QByteArray("<TABLE><tr><td>").repeated(5000) << false;
    QTest::newRow("lists without end") << QByteArray("<ul><li>").repeated(5000) << false;
    QTest::newRow("tables side by side")
        << QByteArray("<table><tr><td>x</td></tr></table>").repeated(200) << true;
    const auto Ripeti = [](const char* Pezzo, int Volte = 20000) {
        return QByteArray(Pezzo).repeated(Volte);
    };
    QTest::newRow("spans without end") << Ripeti("<span>") << false;
    QTest::newRow("letters without end") << Ripeti("<b>") << false;
    QTest::newRow("centred without end") << Ripeti("<CENTER>") << false;
    QTest::newRow("lists of terms without end") << Ripeti("<dl>") << false;
    QTest::newRow("an end that closes something else") << Ripeti("<span></b>") << false;
    QTest::newRow("an end in a comment") << Ripeti("<span><!-- </span> -->") << false;
    QTest::newRow("an end in quotes") << Ripeti("<span title='</span>'>") << false;
    QTest::newRow("an end in a style") << Ripeti("<span><style></span></style>") << false;
    QTest::newRow("elements that do not close each other") << Ripeti("<p>x<li>x") << false;
    for (const char* Nome : {"p", "li", "td", "tr", "dt", "dd"})
        QTest::addRow("%s closes %s", Nome, Nome)
            << Ripeti(QByteArray("<" + QByteArray(Nome) + ">x").constData(), 3000) << true;
    QTest::newRow("letters, closed") << Ripeti("<b>x</b><i>y</i><br>", 3000) << true;
    QTest::newRow("32 inside each other") << Ripeti("<b>", 31) + "x" << true;
    QTest::newRow("seven tables inside each other") << Ripeti("<table><tr><td>x", 7) << false;
    QTest::newRow("six tables inside each other") << Ripeti("<table><tr><td>x", 6) << true;
    QTest::newRow("a cell over more rows than there are")
        << QByteArray("<table><tr><td rowspan=60000>x</table>") << false;
    QTest::newRow("many cells over many rows")
        << "<table>" + Ripeti("<tr><td rowspan='150'>x</td></tr>", 3000) + "</table>" << false;
    QTest::newRow("a number in disguise")
        << QByteArray("<table><tr><td rowspan='&#54;0000'>x</table>") << false;
    QTest::newRow("some cells over some")
        << "<table>" + Ripeti("<tr><td colspan=2>x</td></tr>", 100) + "</table>" << true;
    QTest::newRow("blanks before a name") << Ripeti("< b>") << false;
    QTest::newRow("a name in disguise") << Ripeti("<&#98;>") << false;
    QTest::newRow("an attribute in disguise")
        << "<table>" + Ripeti("<tr><td row&#115;pan=60000>x", 300) << false;
    QTest::newRow("many rows of many cells")
        << "<table>" + Ripeti("<td>x", 20000) + Ripeti("<tr>", 100) + "</table>" << false;
    QTest::newRow("a long table") << "<table>" + Ripeti("<tr><td>x</td><td>x</td></tr>", 3000) << true;
    QTest::newRow("ends without beginnings") << QByteArray("</div></table><").repeated(2000) << true;
}

void TestFrmWeb::paginaTroppoGrande()
{
    QFETCH(QByteArray, Html);
    QFETCH(bool, Mostrata);
    Registratore Box;
    Scrivi(u"uno.htm"_s, Html);
    if (!Mostrata)
        Box.Attendi(u"Errore: Pagina troppo grande o troppo intricata: uno.htm (7)"_s, vbOK, u"Errore:"_s);
    QCOMPARE(Protetta([this] { Mostra(u"uno.htm"_s); }), Mostrata);
    QCOMPARE(W->isVisible(), Mostrata);
}

void TestFrmWeb::lePagineDelProgrammaNonSonoIntricate()
{
    int Quante = 0;
    QDirIterator Cammino(ProgrammaDiProva(), {u"*.htm"_s, u"*.html"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (Cammino.hasNext()) {
        const QString Pagina = Cammino.next();
        QVERIFY2(!Intricata(LeggiFile(Pagina)), qPrintable(Pagina));
        ++Quante;
    }
    QVERIFY(Quante > 10);
}

void TestFrmWeb::cerca()
{
    const Registratore Box;
    Scrivi(u"uno.htm"_s, "<p>termine breve</p><p>termine lungo</p>");
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    auto* Riquadro = Trova<QWidget>(u"fraCerca"_s);
    auto* Esito = Trova<QLabel>(u"lblCerca"_s);
    QVERIFY(!Riquadro->isVisible());
    QTest::keyClick(W.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(Riquadro->isVisible());
    Digita(u"TERMINE l"_s);
    QCOMPARE(Web1()->textCursor().selectedText(), u"termine l"_s);
    QCOMPARE(Esito->text(), QString());
    Digita(u"z"_s);
    QCOMPARE(Esito->text(), u"Nessun risultato"_s);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Esito->text(), QString());
    QCOMPARE(Web1()->textCursor().selectedText(), u"termine l"_s);
}

void TestFrmWeb::cercaRicominciaDaCapo()
{
    const Registratore Box;
    Scrivi(u"uno.htm"_s, "<p>termine breve</p><p>termine lungo</p>");
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    QTest::keyClick(W.get(), Qt::Key_F, Qt::ControlModifier);
    Digita(u"termine"_s);
    QCOMPARE(Web1()->textCursor().selectionStart(), 0);
    Premi(Qt::Key_Return);
    const int Seconda = Web1()->textCursor().selectionStart();
    QVERIFY(Seconda > 0);
    Premi(Qt::Key_Return);
    QCOMPARE(Web1()->textCursor().selectionStart(), 0);
    Premi(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(Web1()->textCursor().selectionStart(), Seconda);
    Trova<QToolButton>(u"cmdPrecedente"_s)->click();
    QCOMPARE(Web1()->textCursor().selectionStart(), 0);
    Trova<QToolButton>(u"cmdSuccessivo"_s)->click();
    QCOMPARE(Web1()->textCursor().selectionStart(), Seconda);
}

void TestFrmWeb::escChiudePrimaLaRicerca()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    Trova<QToolButton>(u"cmdCerca"_s)->click();
    QTest::keyClick(W.get(), Qt::Key_Escape);
    QVERIFY(W->isVisible());
    QVERIFY(!Trova<QWidget>(u"fraCerca"_s)->isVisible());
    QTest::keyClick(W.get(), Qt::Key_Escape);
    QVERIFY(!W->isVisible());
}

void TestFrmWeb::ingrandimento()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    const int Prima = Web1()->font().pointSize();
    const auto Ruota = [this](int Verso) {
        const QPointF Punto(20, 20);
        QWheelEvent Evento(Punto, Web1()->viewport()->mapToGlobal(Punto), {}, {0, 120 * Verso}, Qt::NoButton,
                           Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Web1()->viewport(), &Evento);
    };
    Ruota(1);
    QCOMPARE(Web1()->font().pointSize(), Prima + 1);
    Ruota(-1);
    QCOMPARE(Web1()->font().pointSize(), Prima);
    for (int i = 0; i < 40; ++i)
        Ruota(1);
    const int Massimo = Web1()->font().pointSize();
    QVERIFY(Massimo > Prima + 1);
    Ruota(1);
    QCOMPARE(Web1()->font().pointSize(), Massimo);
    Web1()->GrandezzaNormale();
    QCOMPARE(Web1()->font().pointSize(), Prima);
}

void TestFrmWeb::tavolozzaScura()
{
    const Registratore Box;
    const QPalette Chiara = QApplication::palette();
    Mostra(u"uno.htm"_s);
    const auto ColoreTitolo = [this] {
        return Web1()->document()->begin().begin().fragment().charFormat().foreground().color();
    };
    const QColor Chiaro = ColoreTitolo();
    QVERIFY(Chiaro.lightness() < 128);
    QPalette Scura = Chiara;
    Scura.setColor(QPalette::Window, QColor(40, 40, 40));
    Scura.setColor(QPalette::WindowText, Qt::white);
    Scura.setColor(QPalette::Base, QColor(30, 30, 30));
    Scura.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(Scura);
    Respiro();
    const QColor Scuro = ColoreTitolo();
    QApplication::setPalette(Chiara);
    QVERIFY2(Scuro.lightness() > 128, qPrintable(Scuro.name()));
    Respiro();
    QCOMPARE(ColoreTitolo(), Chiaro);
}

void TestFrmWeb::seguonoLaFinestra()
{
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    for (const QSize Misura : {QSize(900, 700), QSize(400, 300)}) {
        W->resize(Misura);
        Respiro();
        const auto* Casella = Trova<QCheckBox>(u"chkNoRepeat"_s);
        QVERIFY(Web1()->geometry().bottom() < Casella->geometry().top());
        QVERIFY(Casella->geometry().bottom() < W->height());
        QVERIFY(Web1()->width() > W->width() - 40);
    }
}

void TestFrmWeb::ricordaIlPosto()
{
    const Registratore Box;
    ProvaPosto(u"frmWeb"_s, [this] {
        W = std::make_unique<frmWeb>();
        Mostra(u"uno.htm"_s);
        return W.get();
    });
    // A notice comes up at its own size.
    W = std::make_unique<frmWeb>();
    W->Marcatore = u"avvisokr5"_s;
    W->resize(680, 507);
    Mostra(u"uno.htm"_s);
    QCOMPARE(W->size(), QSize(680, 507));
    SpostaDaUtente(*W, QRect(30, 40, 500, 400));
    W->close();
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmWebavvisokr5"_s), QString());
}

#include "TestFrmWeb.moc"
