// Pictures that a user chooses for print: good ones, and those made to do harm.
#include "platform/kit/disegnoammesso.h"
#include "platform/kit/figurascelta.h"
#include "supporto/prova.h"

#include <QBuffer>
#include <QPainter>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Massima(800, 400);

QByteArray Come(const char* Formato, const QSize& Lati, const QColor& Colore = Qt::red)
{
    QImage Figura(Lati, QImage::Format_ARGB32);
    Figura.fill(Colore);
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Figura.save(&Uscita, Formato);
    return Byte;
}

QByteArray Svg(const QByteArray& Dentro, const QByteArray& Prima = {})
{
    return "<?xml version=\"1.0\"?>" + Prima +
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "viewBox=\"0 0 200 100\">" +
           Dentro + "</svg>";
}

/// The check sum of a PNG's records.
quint32 Crc(const QByteArray& Byte)
{
    quint32 Somma = 0xFFFFFFFF;
    for (const char C : Byte) {
        Somma ^= quint8(C);
        for (int i = 0; i < 8; ++i)
            Somma = (Somma >> 1) ^ ((Somma & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~Somma;
}

/// A PNG that says of itself that it is that large.
QByteArray PngCheDice(quint32 Larga, quint32 Alta)
{
    QByteArray Byte = Come("png", {4, 4});
    for (int i = 0; i < 4; ++i) {
        Byte[16 + i] = char(Larga >> (24 - 8 * i));
        Byte[20 + i] = char(Alta >> (24 - 8 * i));
    }
    const quint32 Somma = Crc(Byte.mid(12, 17));
    for (int i = 0; i < 4; ++i)
        Byte[29 + i] = char(Somma >> (24 - 8 * i));
    return Byte;
}

/// Ten groups, each of which draws the one before it twice and again.
QByteArray Bomba()
{
    QByteArray Dentro = "<g id=\"g0\"><rect width=\"1\" height=\"1\"/></g>";
    for (int i = 1; i <= 10; ++i) {
        const QByteArray Prima = "<use xlink:href=\"#g" + QByteArray::number(i - 1) + "\"/>";
        Dentro += "<g id=\"g" + QByteArray::number(i) + "\">" + Prima + Prima + Prima + Prima + "</g>";
    }
    return Svg(Dentro);
}

/// A long path that is drawn eleven times eleven times.
QByteArray Richiami(const QByteArray& Parte)
{
    QByteArray Dentro = Parte + "<g id=\"b\">";
    Dentro += QByteArray("<use href=\"#c\"/>").repeated(11) + "</g>";
    return Dentro + QByteArray("<use href=\"#b\"/>").repeated(11);
}

QByteArray Curve()
{
    return "<path id=\"c\" stroke=\"#000\" d=\"M0 0" + QByteArray("c1 9 9 1 5 5").repeated(10'000) + "\"/>";
}

QByteArray Scritta()
{
    return "<text id=\"c\">" + QByteArray("Studio Rossi ").repeated(10'000) + "</text>";
}

/// Groups that draw the one before them twice, and empty ones of the same names at the end.
QByteArray RaddoppioNascosto()
{
    QByteArray Dentro = "<g id=\"a0\"><path d=\"M0 0h1\"/></g>";
    QByteArray Vuoti = "<g id=\"a0\"/>";
    for (int i = 1; i <= 31; ++i) {
        const QByteArray Prima = "<use xlink:href=\"#a" + QByteArray::number(i - 1) + "\"/>";
        Dentro += "<g id=\"a" + QByteArray::number(i) + "\">" + Prima + Prima + "</g>";
        Vuoti += "<g id=\"a" + QByteArray::number(i) + "\"/>";
    }
    return Svg(Dentro + Vuoti);
}

}  // namespace

class TestFiguraScelta : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void buone_data();
    void buone();
    void ilTrasparenteDiventaBianco();
    void ilDisegnoHaISuoiColori();
    void rifiutate_data();
    void rifiutate();
    void disegniAmmessi_data();
    void disegniAmmessi();
    void ilPngEUguale();
};
PROVA(TestFiguraScelta);

void TestFiguraScelta::buone_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QSize>("Lati");
    QTest::newRow("PNG piccolo, com'è") << Come("png", {100, 50}) << QSize(100, 50);
    QTest::newRow("PNG grande, ridotto") << Come("png", {1600, 400}) << QSize(800, 200);
    QTest::newRow("JPEG alto, ridotto") << Come("jpg", {200, 800}) << QSize(100, 400);
    QTest::newRow("JPEG con altro in coda") << Come("jpg", {800, 400}) + QByteArray(1100, 'x') << Massima;
    QTest::newRow("SVG, quanto ci sta") << Svg("<rect width=\"200\" height=\"100\"/>") << Massima;
    QTest::newRow("SVG con il segno di Unicode")
        << QByteArray("\xEF\xBB\xBF" + Svg("<rect width=\"200\" height=\"100\"/>")) << Massima;
    QTest::newRow("SVG con il tipo") << Svg("<path d=\"M0 0h9\"/>",
                                            "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
                                            "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">")
                                     << Massima;
}

void TestFiguraScelta::buone()
{
    QFETCH(QByteArray, Byte);
    const FiguraScelta Letta = LeggiFigura(Byte, Massima);
    QCOMPARE(Letta.Difetto, QString());
    QTEST(Letta.Immagine.size(), "Lati");
}

void TestFiguraScelta::ilTrasparenteDiventaBianco()
{
    const FiguraScelta Letta = LeggiFigura(Come("png", {10, 10}, Qt::transparent), Massima);
    QCOMPARE(Letta.Immagine.pixelColor(5, 5), QColor(Qt::white));
    QVERIFY(!Letta.Immagine.hasAlphaChannel());
}

void TestFiguraScelta::ilDisegnoHaISuoiColori()
{
    const FiguraScelta Letta =
        LeggiFigura(Svg("<defs><g id=\"a\"><rect width=\"100\" height=\"100\" fill=\"#00f\"/></g></defs>"
                        "<use xlink:href=\"#a\" x=\"100\"/>"),
                    Massima);
    QCOMPARE(Letta.Immagine.pixelColor(600, 200), QColor(Qt::blue));
    QCOMPARE(Letta.Immagine.pixelColor(200, 200), QColor(Qt::white));
}

void TestFiguraScelta::rifiutate_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Parte");
    const QByteArray Png = Come("png", {300, 300}, QColor(1, 2, 3));
    const QByteArray Jpg = Come("jpg", {300, 300});
    QTest::newRow("niente") << QByteArray() << u"non è un file PNG, JPEG o SVG"_s;
    QTest::newRow("testo") << QByteArray("Studio legale") << u"non è un file PNG, JPEG o SVG"_s;
    QTest::newRow("un'immagine d'altra specie") << Come("bmp", {9, 9}) << u"non è un file PNG, JPEG o SVG"_s;
    QTest::newRow("PNG troncato") << Png.first(Png.size() * 2 / 3) << u"danneggiato"_s;
    QTest::newRow("PNG di sola testata") << Png.first(40) << u"danneggiato"_s;
    QTest::newRow("JPEG troncato") << Jpg.first(Jpg.size() * 2 / 3) << u"danneggiato"_s;
    QTest::newRow("PNG smisurato") << PngCheDice(2'000'000'000, 2'000'000'000) << u""_s;
    QTest::newRow("PNG di troppi punti")
        << PngCheDice(11'000, 11'000) << u"ha troppi punti (11000 x 11000)"_s;
    QTest::newRow("PNG troppo largo") << PngCheDice(13'000, 200) << u"ha troppi punti"_s;
    QTest::newRow("striscia") << Come("png", {500, 2}) << u"stretta e lunga"_s;
    QTest::newRow("troppi byte") << QByteArray(MassimoByteFigura + 1, 'x') << u"troppo grande"_s;
    QTest::newRow("SVG di troppi byte")
        << Svg(QByteArray(MassimoByteDisegno, ' ')) << u"il disegno SVG è troppo grande"_s;
    QTest::newRow("SVG spezzato") << Svg("<g>").chopped(6) << u"non è un disegno SVG intero"_s;
    QTest::newRow("HTML") << QByteArray("<html><body/></html>") << u"non è un disegno SVG intero"_s;
    QTest::newRow("SVG senza misure") << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"/>") << u""_s;
    QTest::newRow("un file del computer")
        << Svg("<image xlink:href=\"file:///etc/passwd\" width=\"9\" height=\"9\"/>") << u"contiene"_s;
    QTest::newRow("un file richiamato")
        << Svg("<use xlink:href=\"file:///etc/passwd#a\"/>") << u"rimandi ad altri file"_s;
    QTest::newRow("un indirizzo nello stile")
        << Svg("<rect style=\"fill: url( 'http://spia.example/a#b')\" width=\"9\" height=\"9\"/>")
        << u"rimandi ad altri file"_s;
    QTest::newRow("un foglio di stile")
        << Svg("<style>@import 'http://spia.example/a.css';</style>") << u"rimandi ad altri file"_s;
    QTest::newRow("un foglio di stile in testa")
        << Svg({}, "<?xml-stylesheet href=\"http://spia.example/a.css\"?>") << u"rimandi ad altri file"_s;
    QTest::newRow("un'immagine dentro")
        << Svg("<image href=\"data:image/png;base64,AAAA\"/>") << u"contiene"_s;
    QTest::newRow("un programma") << Svg("<script>alert(1)</script>") << u"contiene"_s;
    QTest::newRow("entità che si moltiplicano")
        << Svg("<text>&d;</text>", "<!DOCTYPE svg [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">"
                                   "<!ENTITY c \"&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;\">]>")
        << u"dichiarazioni di entità"_s;
    QTest::newRow("entità di un file")
        << Svg("<text>&a;</text>", "<!DOCTYPE svg [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>")
        << u"dichiarazioni di entità"_s;
    QTest::newRow("parti che si ripetono") << Bomba() << u"troppe volte"_s;
    QTest::newRow("una parte dentro se stessa")
        << Svg("<g id=\"a\"><use xlink:href=\"#a\"/></g>") << u"troppe volte"_s;
    QTest::newRow("troppo profondo") << Svg(QByteArray("<g>").repeated(100) +
                                            QByteArray("</g>").repeated(100))
                                     << u"senza fine"_s;
    QTest::newRow("un nome due volte") << RaddoppioNascosto() << u"due volte lo stesso nome"_s;
    QTest::newRow("due richiami in uno")
        << Svg("<g id=\"a\"/><g id=\"b\"/><use xlink:href=\"#a\" href=\"#b\"/>")
        << u"due volte lo stesso nome"_s;
    QTest::newRow("una parte grave, richiamata spesso") << Svg(Richiami(Curve())) << u"troppe volte"_s;
    QTest::newRow("una scritta grave, richiamata spesso") << Svg(Richiami(Scritta())) << u"troppe volte"_s;
    QTest::newRow("tratteggio dietro un commento")
        << Svg("<path d=\"M0 0H200\" style=\"stroke-dasharray/* */: 0.00001\"/>") << u"nascondono"_s;
    QTest::newRow("tratteggio in un foglio di stile")
        << Svg("<style>path{stroke-dasharray:0.00001}</style>") << u"tratteggiate"_s;
    QTest::newRow("tratteggio dietro una parte dello stile")
        << Svg("<style><g/>.a{stroke-dasharray:0.001}</style>") << u"nascondono"_s;
    QTest::newRow("tratteggio fra commenti fra virgolette")
        << Svg("<style>.b{font-family:\"/*\"}.a{stroke-dasharray:1}.c{font-family:\"*/\"}</style>")
        << u"nascondono"_s;
    QTest::newRow("tratteggio scritto con i codici")
        << Svg("<path style=\"stroke-das\\68 array: 0.00001\"/>") << u"nascondono"_s;
    QTest::newRow("tratteggio") << Svg("<path d=\"M0 0H200\" stroke-dasharray=\"0.00001\"/>")
                                << u"tratteggiate"_s;
    QTest::newRow("tratteggio nello stile")
        << Svg("<path d=\"M0 0H200\" style=\"stroke-dasharray: 0.00001\"/>") << u"tratteggiate"_s;
}

void TestFiguraScelta::rifiutate()
{
    QFETCH(QByteArray, Byte);
    QFETCH(QString, Parte);
    constexpr double MassimiSecondi = 3;
    const std::clock_t Inizio = std::clock();
    const FiguraScelta Letta = LeggiFigura(Byte, Massima);
    QVERIFY(Letta.Immagine.isNull());
    QVERIFY2(Letta.Difetto.startsWith(u"L'immagine non si può usare: "_s) && Letta.Difetto.endsWith(u'.') &&
                 Letta.Difetto.contains(Parte),
             qPrintable(Letta.Difetto));
    QVERIFY(double(std::clock() - Inizio) / CLOCKS_PER_SEC < MassimiSecondi);
}

void TestFiguraScelta::disegniAmmessi_data()
{
    QTest::addColumn<QByteArray>("Dentro");
    QTest::newRow("sfumatura") << QByteArray(
        "<defs><linearGradient id=\"a\"><stop offset=\"0\"/></linearGradient>"
        "</defs><rect fill=\"url(#a)\" style=\"stroke:url('#a')\"/>");
    QTest::newRow("senza tratti, detto") << QByteArray("<path style=\"stroke-dasharray:none\" d=\"M0 0\"/>"
                                                       "<path stroke-dasharray=\"none\"/>");
    QTest::newRow("richiamo di ciò che non c'è") << QByteArray("<use href=\"#manca\"/>");
    QTest::newRow("note di chi l'ha disegnato")
        << QByteArray("<g xmlns:i=\"urn:i\" i:export-filename=\"C:\\Users\\a\\logo.png\"/>");
    QTest::newRow("un rimando nelle note")
        << QByteArray("<g xmlns:i=\"urn:i\" i:nota=\"url(http://a.example/b)\"/>");
    QTest::newRow("una parte grave, richiamata una volta") << Curve() + "<use href=\"#c\"/>";
    QTest::newRow("scritta") << QByteArray("<text>Studio &amp; Associati</text>");
}

void TestFiguraScelta::disegniAmmessi()
{
    QFETCH(QByteArray, Dentro);
    QCOMPARE(DifettoDisegno(Svg(Dentro)), QString());
}

void TestFiguraScelta::ilPngEUguale()
{
    const QImage Figura = LeggiFigura(Come("png", {40, 30}), Massima).Immagine;
    QCOMPARE(ComePng(Figura), ComePng(Figura));
    QCOMPARE(QImage::fromData(ComePng(Figura)).size(), QSize(40, 30));
}

#include "TestFiguraScelta.moc"
