#include "supporto/prova.h"

#include "platform/document/superficie.h"
#include "print/campioni.h"
#include "print/modStampe.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittoretesto.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

QString PaginaDi(const std::function<void(Superficie&)>& Scrivi)
{
    Superficie vp;
    vp.StartDoc();
    Scrivi(vp);
    vp.EndDoc();
    return QString::fromUtf8(ScriviHtml(vp.Contenuto(), u"Titolo"_s));
}

QString CorpoDi(const std::function<void(Superficie&)>& Scrivi)
{
    return PaginaDi(Scrivi).section(u"<body>\n"_s, 1).section(u"</body>"_s, 0, 0);
}

/// What a page says, its elements in order, and why it is none.
struct Letta
{
    QString Testo;
    QStringList Elementi;
    QString Guasto;
};

Letta Leggi(const QByteArray& Pagina)
{
    Letta Fatta;
    QXmlStreamReader Lettore(Pagina);
    bool NelCorpo = false;
    while (!Lettore.atEnd()) {
        Lettore.readNext();
        if (Lettore.isStartElement()) {
            Fatta.Elementi += Lettore.name().toString();
            NelCorpo = NelCorpo || Lettore.name() == "body"_L1;
            Fatta.Testo += Lettore.name() == "br"_L1 ? u" "_s : QString();
        }
        if (NelCorpo && Lettore.isCharacters())
            Fatta.Testo += Lettore.text();
        if (Lettore.isEndElement() && (Lettore.name() == "td"_L1 || Lettore.name() == "p"_L1))
            Fatta.Testo += u' ';
    }
    if (Lettore.hasError())
        Fatta.Guasto = Lettore.errorString() + u" at "_s + QString::number(Lettore.lineNumber());
    return Fatta;
}

}  // namespace

class TestScrittoreHtml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testo_data();
    void testo();
    void allineamentiERientri();
    void tabellaConCioCheSegue();
    void trattiInAltroFont();
    void paginaEMargini();
    void piePagina();
    void tabella();
    void titoliDaRipetere();
    void filetti();
    void unSoloFile();
    void notaIntera_data();
    void notaIntera();
    void paroleDelTesto_data();
    void paroleDelTesto();
};
PROVA(TestScrittoreHtml);

void TestScrittoreHtml::testo_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Scritto");

    QTest::newRow("plain") << u"perché € 5"_s << u"perché € 5"_s;
    QTest::newRow("a blank row keeps its height") << QString() << u"<br/>"_s;
    QTest::newRow("signs of the syntax") << u"<b> & \"c\" {\\"_s << u"&lt;b&gt; &amp; &quot;c&quot; {\\"_s;
    QTest::newRow("blanks") << u"  a    b"_s << u"  a    b"_s;
    QTest::newRow("line breaks") << u"a\n\nb"_s << u"a<br/><br/>b"_s;
    QTest::newRow("ends in a line break") << u"a\n"_s << u"a<br/><br/>"_s;
    QTest::newRow("emoji") << u"😀"_s << u"😀"_s;
    QTest::newRow("half a pair") << QString(QChar(0xD83D)) << u"\ufffd"_s;
    QTest::newRow("control characters") << u"a\u0001\u0085b"_s << u"ab"_s;
}

void TestScrittoreHtml::testo()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Scritto);
    QCOMPARE(CorpoDi([&](Superficie& vp) { vp.Paragraph(Testo); }),
             u"<p class=\"f0\">"_s + Scritto + u"</p>\n"_s);
}

void TestScrittoreHtml::allineamentiERientri()
{
    const QString Corpo = CorpoDi([](Superficie& vp) {
        vp.TextAlign(Allineamento::Centro);
        vp.Paragraph(u"a"_s);
        vp.TextAlign(Allineamento::Destra);
        vp.Paragraph(u"b"_s);
        vp.TextAlign(Allineamento::Giustificato);
        vp.Paragraph(u"c"_s);
        vp.Paragraph(u"{\\rtf1\\li1134\\fi-567\\sb120\\pagebb\\keepn d\\par}"_s);
    });
    QCOMPARE(Corpo, u"<p class=\"f0 c\">a</p>\n<p class=\"f0 d\">b</p>\n<p class=\"f0 g\">c</p>\n"
                    u"<p class=\"f0\" style=\"margin:6pt 0cm 0pt 2cm;text-indent:-1cm;tab-size:1cm;"
                    u"break-before:page;break-after:avoid\">d</p>\n"_s);
}

void TestScrittoreHtml::tabellaConCioCheSegue()
{
    for (const bool Insieme : {true, false}) {
        const QString Corpo = CorpoDi([&](Superficie& vp) { campioni::TotaleEFirma(vp, Insieme); });
        QCOMPARE(Corpo.contains(u"<tr class=\"u\">"_s), Insieme);
        QCOMPARE(Corpo.contains(u"break-inside:avoid"_s), Insieme);
    }
}

void TestScrittoreHtml::trattiInAltroFont()
{
    const QString Pagina = PaginaDi([](Superficie& vp) {
        vp.Text(u"n. "_s);
        vp.FontBold(true);
        vp.FontUnderline(true);
        vp.FontName(u"Arial"_s);
        vp.FontSize(10.5);
        vp.Text(u"7"_s);
        vp.Paragraph({});
    });
    QVERIFY(Pagina.contains(u"<p class=\"f0\">n. <span class=\"f1\">7</span></p>"_s));
    QVERIFY(Pagina.contains(u".f0{font:12pt \"Times New Roman\",\"Liberation Serif\",serif}"_s));
    QVERIFY(Pagina.contains(u".f1{font:bold 10.5pt \"Arial\",\"Liberation Sans\",sans-serif;"
                            u"text-decoration:underline}"_s));
}

void TestScrittoreHtml::paginaEMargini()
{
    Documento Doc;
    Doc.MargineDestroCm = 1.4;
    Doc.MargineBassoCm = 3.2;
    const QString Pagina = QString::fromUtf8(ScriviHtml(Doc, u"a <b> & c"_s, {215.9, 279.4}));
    QVERIFY(Pagina.startsWith(u"<!DOCTYPE html>\n<html lang=\"it\">"_s));
    QVERIFY(Pagina.contains(u"<meta charset=\"utf-8\"/>"_s));
    QVERIFY(Pagina.contains(u"<title>a &lt;b&gt; &amp; c</title>"_s));
    QVERIFY(Pagina.contains(u"@page{size:215.9mm 279.4mm;margin:2cm 1.4cm 3.2cm 2cm;"_s));
}

void TestScrittoreHtml::piePagina()
{
    Documento Doc;
    QVERIFY(!ScriviHtml(Doc).contains("@bottom"));
    Doc.PiePagina = u"  </style>\"%d\\"_s;
    const QByteArray Pagina = ScriviHtml(Doc);
    QVERIFY2(Pagina.contains("content:\"  \\3c \\2f style\\3e \\22 \" counter(page) \"\\5c \"}"),
             Pagina.constData());
    QCOMPARE(Pagina.count("</style>"), 1);
}

void TestScrittoreHtml::tabella()
{
    const QString Corpo = CorpoDi([](Superficie& vp) {
        vp.StartTable();
        vp.TableCell(AttrTabella::Righe, 2);
        vp.TableCell(AttrTabella::Colonne, 2);
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"9cm"_s);
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 2, u"1.8cm"_s);
        vp.ColonnaTabella(AttrTabella::Allinea, 2, 8);
        vp.CellaTabella(AttrTabella::Testo, 1, 1, u"<atti>"_s);
        vp.CellaTabella(AttrTabella::Unione, 2, 1, 2);
        vp.CellaTabella(AttrTabella::Testo, 2, 1, u"due"_s);
        vp.CellaTabella(AttrTabella::Testo, 2, 2, u"coperta"_s);
        vp.EndTable();
    });
    QCOMPARE(Corpo, u"<table style=\"width:10.8cm\"><colgroup><col style=\"width:9cm\"/>"
                    u"<col style=\"width:1.8cm\"/></colgroup>\n<tbody>\n"
                    u"<tr class=\"u\"><td class=\"f0\">&lt;atti&gt;</td><td class=\"f0 d\"><br/></td></tr>\n"
                    u"<tr><td class=\"f0\" colspan=\"2\">due</td></tr>\n</tbody>\n</table>\n"_s);
}

void TestScrittoreHtml::titoliDaRipetere()
{
    campioni::ImpostaStudio();
    Superficie vp;
    QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));
    const QString Pagina = QString::fromUtf8(ScriviHtml(vp.Contenuto()));
    QCOMPARE(Pagina.count(u"<thead>"_s), 1);  // the fees have headings; head and summary have none
    const QString Titoli = Pagina.section(u"<thead>"_s, 1).section(u"</thead>"_s, 0, 0);
    QVERIFY(Titoli.contains(u">ONORARI<"_s));
    QCOMPARE(Titoli.count(u"<tr"_s), 2);
}

/// Rows of rules are lower than the others, and stay with those around them.
void TestScrittoreHtml::filetti()
{
    campioni::ImpostaStudio();
    Superficie vp;
    QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));
    const QString Pagina = QString::fromUtf8(ScriviHtml(vp.Contenuto()));
    QVERIFY(Pagina.contains(u"\n.r td{line-height:0;"_s));
    int Filetti = 0;
    for (const QString& Riga : Pagina.split(u'\n').filter(u"<tr"_s)) {
        const bool Filetto = Riga.contains(u"____"_s);
        QCOMPARE(Riga.startsWith(u"<tr class=\"u r\">"_s), Filetto);
        Filetti += Filetto;
    }
    QVERIFY(Filetti >= 4);
}

/// One file that asks nothing of any other, and names its language, its letters and itself.
void TestScrittoreHtml::unSoloFile()
{
    campioni::ImpostaStudio();
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo) {
        Superficie vp;
        QVERIFY(Anteprima(vp, campioni::Stragiudiziale(), Tipo));
        const QByteArray Byte = ScriviHtml(vp.Contenuto(), u"Nota è"_s);
        const Letta Pagina = Leggi(Byte);
        for (const char16_t* Altrove : {u"script", u"link", u"img", u"iframe", u"object", u"base", u"a"})
            QVERIFY2(!Pagina.Elementi.contains(QString::fromUtf16(Altrove)),
                     "an element that leads elsewhere");
        for (const char* Altrove : {"url(", "@import", "http", "src="})
            QVERIFY2(!Byte.contains(Altrove), Altrove);
        QVERIFY(Byte.startsWith("<!DOCTYPE html>\n<html lang=\"it\">"));
        QVERIFY(Byte.indexOf("<meta charset=\"utf-8\"/>") < Byte.indexOf("<title>Nota \xC3\xA8</title>"));
        QCOMPARE(Pagina.Elementi.count(u"table"_s), campioni::NumeroTabelle(vp.Contenuto()));
    }
}

void TestScrittoreHtml::notaIntera_data()
{
    QTest::addColumn<QString>("Ostile");
    QTest::newRow("plain") << QString();
    QTest::newRow("tags") << u"</td></table></body><script>"_s;
    QTest::newRow("entities") << u"&amp; &#0; & ]]>"_s;
    QTest::newRow("quotes") << u"\"' onload=\""_s;
    QTest::newRow("emoji and halves") << u"😀"_s + QChar(0xDC00) + QChar(0xD800) + QChar(0xFFFF);
    QTest::newRow("controls") << u"a\u0000b\u001bc\u000b"_s;
}

void TestScrittoreHtml::notaIntera()
{
    QFETCH(QString, Ostile);
    campioni::ImpostaStudio();
    Parcella Nota = campioni::Stragiudiziale();
    Nota.txtDatiStaCli.Testo = Ostile;
    Nota.txtDatiStaOgg.Testo = Ostile;
    campioni::AggiungiOnorario(Nota.xOnorari, Ostile, 1.0, 100.0);
    sessione::StudioNome = Ostile;
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
    vp.FontName(Ostile);
    vp.Text(u"in quel font"_s);  // opens a document of its own
    vp.EndDoc();
    QCOMPARE(Leggi(ScriviHtml(vp.Contenuto(), Ostile)).Guasto, QString());
    QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
    const Letta Pagina = Leggi(ScriviHtml(vp.Contenuto(), Ostile));
    QCOMPARE(Pagina.Guasto, QString());
    QVERIFY(!Pagina.Elementi.contains(u"script"_s));
    QCOMPARE(Pagina.Elementi.count(u"table"_s), campioni::NumeroTabelle(vp.Contenuto()));
}

void TestScrittoreHtml::paroleDelTesto_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo)
        QTest::newRow(qPrintable(VociTipoStampa()[Tipo])) << Tipo;
}

/// The words of the page are those of the plain text, but for their order in cells of several lines.
void TestScrittoreHtml::paroleDelTesto()
{
    QFETCH(int, Tipo);
    campioni::ImpostaStudio();
    Superficie vp;
    QVERIFY(Anteprima(vp, campioni::Stragiudiziale(), Tipo));
    QStringList Attese = ScriviTesto(vp.Contenuto()).simplified().split(u' ');
    QStringList Lette = Leggi(ScriviHtml(vp.Contenuto())).Testo.simplified().split(u' ');
    QVERIFY(Attese.size() > 20);
    Attese.sort();
    Lette.sort();
    QCOMPARE(Lette, Attese);
}

#include "TestScrittoreHtml.moc"
