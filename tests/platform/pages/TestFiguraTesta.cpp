// The picture at the head of a document: where it stands, what it leaves to the text, what is no picture.
#include "platform/pages/disegni.h"
#include "platform/pages/documenti.h"
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include <QBuffer>

using namespace Qt::StringLiterals;

namespace {

QByteArray Nera(const QSize& Lati)
{
    QImage Figura(Lati, QImage::Format_RGB32);
    Figura.fill(Qt::black);
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Figura.save(&Uscita, "png");
    return Byte;
}

Documento Con(std::optional<FiguraTesta> Figura, int Righe = 3, const QString& Alto = u"1.5cm"_s)
{
    Superficie vp;
    documenti::PreparaPagina(vp);
    vp.MarginTop(Alto);
    vp.HeadPicture(std::move(Figura));
    for (int i = 1; i <= Righe; ++i)
        vp.Paragraph(u"Riga %1 del documento"_s.arg(i));
    return documenti::Finito(vp);
}

double AltoDelTesto(const Impaginazione& Fatta, int Pagina = 1)
{
    return Fatta.Righe(Pagina).front().Mm.top();
}

}  // namespace

class TestFiguraTesta : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void dove_data();
    void dove();
    void ilTestoCominciaSotto();
    void nelMargineDellaCartaIntestata();
    void soloSullaPrimaPagina();
    void cioCheNonEUnaFigura_data();
    void cioCheNonEUnaFigura();
    void suUnFoglioPiccolo();
    void suUnFoglioBasso();
    void troppiPunti_data();
    void troppiPunti();
    void nelPdf();
    void ricercaEScelta();
};
PROVA(TestFiguraTesta);

void TestFiguraTesta::dove_data()
{
    QTest::addColumn<int>("Allinea");
    QTest::addColumn<double>("Sinistra");
    // The text is 176 mm wide behind a margin of 20.
    QTest::newRow("a sinistra") << int(Allineamento::Sinistra) << 20.0;
    QTest::newRow("al centro") << int(Allineamento::Centro) << 20.0 + (176.0 - 40.0) / 2.0;
    QTest::newRow("a destra") << int(Allineamento::Destra) << 196.0 - 40.0;
}

void TestFiguraTesta::dove()
{
    QFETCH(int, Allinea);
    QFETCH(double, Sinistra);
    const Impaginazione Fatta(Con(FiguraTesta{Nera({200, 100}), 4.0, 2.0, Allineamento(Allinea)}));
    constexpr double Dpi = 254;
    const QImage Foglio = disegni::Disegnata(Fatta, 1, Dpi);
    // Just inside each edge it is black, just outside nothing stands.
    QCOMPARE(disegni::Scuri(Foglio, {Sinistra + 0.5, 15.5, 39.0, 19.0}, Dpi), 390 * 190);
    QCOMPARE(disegni::Scuri(Foglio, {0.0, 0.0, Sinistra - 0.5, 37.0}, Dpi), 0);
    QCOMPARE(disegni::Scuri(Foglio, {Sinistra + 40.5, 0.0, 210.0 - Sinistra - 41.0, 37.0}, Dpi), 0);
    QCOMPARE(disegni::Scuri(Foglio, {0.0, 0.0, 210.0, 14.5}, Dpi), 0);
}

void TestFiguraTesta::ilTestoCominciaSotto()
{
    const Impaginazione Fatta(Con(FiguraTesta{Nera({200, 100}), 4.0, 2.0, Allineamento::Centro}));
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta), 15.0 + 20.0 + 4.0));
    QVERIFY(disegni::Vicini(AltoDelTesto(Impaginazione(Con({}))), 15.0));
}

/// A wide margin was left for a printed head: the picture takes its place, and the text stays where it was.
void TestFiguraTesta::nelMargineDellaCartaIntestata()
{
    const FiguraTesta Bassa{Nera({200, 100}), 2.0, 1.0, Allineamento::Sinistra};
    const Impaginazione Fatta(Con(Bassa, 3, u"3cm"_s));
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta), 30.0));
    constexpr double Dpi = 254;
    QVERIFY(disegni::Scuri(disegni::Disegnata(Fatta, 1, Dpi), {20.5, 15.5, 19.0, 9.0}, Dpi) > 17'000);
    const FiguraTesta Alta{Nera({200, 200}), 3.0, 3.0, Allineamento::Sinistra};
    QVERIFY(disegni::Vicini(AltoDelTesto(Impaginazione(Con(Alta, 3, u"3cm"_s))), 15.0 + 30.0 + 4.0));
}

void TestFiguraTesta::soloSullaPrimaPagina()
{
    const Impaginazione Fatta(Con(FiguraTesta{Nera({200, 100}), 8.0, 4.0, Allineamento::Sinistra}, 100));
    QVERIFY(Fatta.NumeroPagine() > 1);
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta, 2), 15.0));
    QCOMPARE(pagine::Difetto(Fatta), QString());
    constexpr double Dpi = 100;
    const QImage Seconda = disegni::Disegnata(Fatta, 2, Dpi);
    QVERIFY(disegni::Scuri(Seconda, {20.0, 15.0, 80.0, 40.0}, Dpi) < 4000);
}

void TestFiguraTesta::cioCheNonEUnaFigura_data()
{
    QTest::addColumn<QByteArray>("Png");
    const QByteArray Buona = Nera({300, 300});
    QByteArray Smisurata = Buona;
    for (int i = 16; i < 24; ++i)
        Smisurata[i] = '\x11';
    QTest::newRow("niente") << QByteArray();
    QTest::newRow("testo") << QByteArray("logo");
    QTest::newRow("troncata") << Buona.first(Buona.size() / 2);
    QTest::newRow("smisurata") << Smisurata;
}

/// The document as it would be without it: no room is left behind.
void TestFiguraTesta::cioCheNonEUnaFigura()
{
    QFETCH(QByteArray, Png);
    const Impaginazione Fatta(Con(FiguraTesta{Png, 4.0, 2.0, Allineamento::Sinistra}));
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta), 15.0));
}

void TestFiguraTesta::suUnFoglioPiccolo()
{
    const Impaginazione Fatta(Con(FiguraTesta{Nera({800, 100}), 16.0, 2.0, Allineamento::Sinistra}),
                              {105.0, 148.0});
    // 71 mm of text, and the picture in proportion.
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta), 15.0 + 20.0 * 71.0 / 160.0 + 4.0));
}

/// It leaves half of the room to the text: 53 mm between the margins.
void TestFiguraTesta::suUnFoglioBasso()
{
    const Impaginazione Fatta(Con(FiguraTesta{Nera({100, 100}), 5.0, 5.0, Allineamento::Sinistra}),
                              {210.0, 100.0});
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta), 15.0 + 53.0 / 2.0 + 4.0));
}

/// What would take more memory than any logo is none.
void TestFiguraTesta::troppiPunti_data()
{
    QTest::addColumn<QSize>("Lati");
    QTest::newRow("in tutto") << QSize(5000, 4000);
    QTest::newRow("di un lato") << QSize(6100, 40);
}

void TestFiguraTesta::troppiPunti()
{
    QFETCH(QSize, Lati);
    QImage Figura(Lati, QImage::Format_Mono);
    Figura.fill(0);
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Figura.save(&Uscita, "png");
    const Impaginazione Fatta(Con(FiguraTesta{Byte, 4.0, 2.0, Allineamento::Sinistra}));
    QVERIFY(disegni::Vicini(AltoDelTesto(Fatta), 15.0));
}

void TestFiguraTesta::nelPdf()
{
    const Impaginazione Fatta(Con(FiguraTesta{Nera({1200, 600}), 4.0, 2.0, Allineamento::Sinistra}));
    const QStringList Righe =
        pagine::Leggi(u"pdfimages"_s, {u"-list"_s, u"%"_s}, Fatta.Pdf(u"Prova"_s)).split(u'\n');
    // As many dots as the picture has, none of them made up, none lost.
    QVERIFY2(Righe.size() > 2 && Righe[2].simplified().startsWith(u"1 0 image 1200 600 "_s),
             qPrintable(Righe.join(u'|')));
    QVERIFY2(!Righe[2].contains(u" jpeg "_s), qPrintable(Righe[2]));
}

void TestFiguraTesta::ricercaEScelta()
{
    const Impaginazione Fatta(Con(FiguraTesta{Nera({200, 100}), 4.0, 2.0, Allineamento::Sinistra}));
    QCOMPARE(Fatta.Testo(), Impaginazione(Con({})).Testo());
    QCOMPARE(Fatta.PostoIn(1, {30.0, 20.0}), Fatta.PostoIn(1, {30.0, AltoDelTesto(Fatta) + 1.0}));
}

#include "TestFiguraTesta.moc"
