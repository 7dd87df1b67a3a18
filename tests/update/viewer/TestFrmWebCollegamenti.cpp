// Where the links of a page lead, what it may load, and how large it may be.
#include "bancoweb.h"

#include "platform/base/numerierrore.h"

using namespace Qt::StringLiterals;

class TestFrmWebCollegamenti : public QObject, private BancoWeb
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
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
};
PROVA(TestFrmWebCollegamenti);

void TestFrmWebCollegamenti::collegamenti_data()
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

void TestFrmWebCollegamenti::collegamenti()
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

void TestFrmWebCollegamenti::comandiDellePagine_data()
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

void TestFrmWebCollegamenti::comandiDellePagine()
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

void TestFrmWebCollegamenti::collegamentoRelativo()
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

void TestFrmWebCollegamenti::ancora()
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

void TestFrmWebCollegamenti::ancoraAllaPrimaMostra_data()
{
    QTest::addColumn<int>("Dopo");

    QTest::newRow("far from the end of the page") << 200;
    QTest::newRow("near it") << 12;
}

void TestFrmWebCollegamenti::ancoraAllaPrimaMostra()
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

void TestFrmWebCollegamenti::indietroEAvanti()
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

void TestFrmWebCollegamenti::pdfDelProgramma()
{
    const Registratore Box;
    Scrivi(u"Guida.pdf"_s, "%PDF-1.4");
    Mostra(u"uno.htm"_s);
    Q_EMIT Web1()->anchorClicked(Web1()->source().resolved(QUrl(u"guida.PDF"_s)));
    QCOMPARE(Aperti, QStringList{u"Guida.pdf"_s});
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
}

void TestFrmWebCollegamenti::figure_data()
{
    QTest::addColumn<QSize>("Misura");
    QTest::addColumn<bool>("Fuori");
    QTest::addColumn<QSize>("Mostrata");

    QTest::newRow("beside the page") << QSize(40, 30) << false << QSize(40, 30);
    QTest::newRow("outside the program") << QSize(40, 30) << true << QSize(1, 1);
    QTest::newRow("too wide") << QSize(5000, 2) << false << QSize(1, 1);
}

void TestFrmWebCollegamenti::figure()
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

void TestFrmWebCollegamenti::foglioDiStileFuoriCartella()
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

void TestFrmWebCollegamenti::paginaTroppoGrande_data()
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

void TestFrmWebCollegamenti::paginaTroppoGrande()
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

void TestFrmWebCollegamenti::lePagineDelProgrammaNonSonoIntricate()
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

#include "TestFrmWebCollegamenti.moc"
