#include "supporto/prova.h"

#include "core/CIni.h"
#include "creaimmagini/creaimmagini.h"
#include "creaimmagini/gif.h"
#include "platform/system/file.h"

#include <QDir>
#include <QImage>
#include <QTextStream>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

/// Pictures: their writer, and those that stand beside the program as they were built.
class TestImmagini : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gifRiletta_data();
    void gifRiletta();
    void gifConMoltiColori();
    void gifTrasparente();
    void gifSenzaImmagine();
    void disegnoGuasto();
    void usoSbagliato();
    void diSistema_data();
    void diSistema();

    void icone();
    void sfondi();
    void modelli();
};
PROVA(TestImmagini);

namespace {

QImage Riletta(const QByteArray& File)
{
    return QImage::fromData(File, "gif").convertToFormat(QImage::Format_ARGB32);
}

/// Points that look random and are the same in each run.
quint32 Caso(quint32& Seme)
{
    Seme = Seme * 1664525U + 1013904223U;
    return Seme >> 8U;
}

QStringList Figure(const QString& Cartella, const QString& Tipo)
{
    return QDir(ProgrammaDiProva() + Cartella).entryList({Tipo}, QDir::Files, QDir::Name);
}

double Contrasto(const QColor& Prima, const QColor& Seconda)
{
    const auto Luce = [](const QColor& C) {
        const auto Canale = [](double V) {
            return V <= 0.03928 ? V / 12.92 : std::pow((V + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * Canale(C.redF()) + 0.7152 * Canale(C.greenF()) + 0.0722 * Canale(C.blueF());
    };
    const auto [Scura, Chiara] = std::minmax({Luce(Prima), Luce(Seconda)});
    return (Chiara + 0.05) / (Scura + 0.05);
}

QColor DaBgr(const QString& Testo)
{
    const int Numero = Testo.toInt();
    return QColor(Numero & 0xFF, Numero >> 8 & 0xFF, Numero >> 16 & 0xFF);
}

}  // namespace

void TestImmagini::gifRiletta_data()
{
    QTest::addColumn<QSize>("Misura");
    QTest::addColumn<int>("Colori");

    QTest::newRow("one point") << QSize(1, 1) << 1;
    QTest::newRow("one colour, long runs") << QSize(500, 400) << 1;
    QTest::newRow("two colours") << QSize(64, 48) << 2;
    QTest::newRow("the whole table") << QSize(97, 61) << 255;
    QTest::newRow("more runs than the dictionary holds") << QSize(300, 300) << 200;
}

void TestImmagini::gifRiletta()
{
    QFETCH(QSize, Misura);
    QFETCH(int, Colori);
    QImage Immagine(Misura, QImage::Format_ARGB32);
    quint32 Seme = 7;
    for (int y = 0; y < Misura.height(); ++y)
        for (int x = 0; x < Misura.width(); ++x) {
            const int Tinta = int(Caso(Seme) % quint32(Colori));
            Immagine.setPixel(x, y, qRgb(Tinta, 255 - Tinta, Tinta * 7 % 256));
        }
    QCOMPARE(Riletta(Gif(Immagine)), Immagine);
}

void TestImmagini::gifConMoltiColori()
{
    QImage Immagine(256, 64, QImage::Format_ARGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 256; ++x)
            Immagine.setPixel(x, y, qRgb(x, y * 4, 255 - x));
    const QImage Vista = Riletta(Gif(Immagine));
    QCOMPARE(Vista.size(), Immagine.size());
    int Lontano = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 256; ++x) {
            const QRgb Prima = Immagine.pixel(x, y);
            const QRgb Dopo = Vista.pixel(x, y);
            Lontano =
                std::max({Lontano, std::abs(qRed(Prima) - qRed(Dopo)), std::abs(qGreen(Prima) - qGreen(Dopo)),
                          std::abs(qBlue(Prima) - qBlue(Dopo))});
        }
    QVERIFY2(Lontano <= 32, qPrintable(QString::number(Lontano)));
}

void TestImmagini::gifTrasparente()
{
    QImage Immagine(3, 1, QImage::Format_ARGB32);
    Immagine.setPixel(0, 0, qRgba(10, 20, 30, 127));
    Immagine.setPixel(1, 0, qRgba(10, 20, 30, 128));
    Immagine.setPixel(2, 0, qRgba(10, 20, 30, 255));
    const QImage Vista = Riletta(Gif(Immagine));
    QCOMPARE(qAlpha(Vista.pixel(0, 0)), 0);
    QCOMPARE(Vista.pixel(1, 0), qRgb(10, 20, 30));
    QCOMPARE(Vista.pixel(2, 0), qRgb(10, 20, 30));
}

void TestImmagini::gifSenzaImmagine()
{
    QVERIFY(Gif(QImage()).isEmpty());
}

void TestImmagini::disegnoGuasto()
{
    const QString Origine = NuovaCartella();
    CreaCartella(Origine + u"icone"_s);
    ScriviFile(Origine + u"icone/rotta.svg"_s, "no drawing");
    QString Scritto;
    QTextStream Errori(&Scritto);
    QCOMPARE(CreaImmagini({Origine, NuovaCartella()}, Errori), 1);
    QVERIFY2(Scritto.contains(u"rotta.svg"), qPrintable(Scritto));
}

void TestImmagini::usoSbagliato()
{
    QString Scritto;
    QTextStream Errori(&Scritto);
    QCOMPARE(CreaImmagini({u"una"_s}, Errori), 2);
    QVERIFY(!Scritto.isEmpty());
}

void TestImmagini::diSistema_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("the program") << u"apps/calcanova"_s;
    QTest::newRow("a note") << u"mimetypes/application-x-calcanova-parcella"_s;
}

void TestImmagini::diSistema()
{
    QFETCH(QString, Nome);
    const QString Tema = NuovaCartella();
    QString Guasti;
    QTextStream Errori(&Guasti);
    QCOMPARE(CreaImmagini({u"--sistema"_s, SorgenteDiProva(u"dati/immagini/sistema"_s), Tema}, Errori), 0);
    QCOMPARE(LatiDiSistema.front(), 16);
    QCOMPARE(LatiDiSistema.back(), 256);
    for (const int Lato : LatiDiSistema) {
        const QImage Letta(Tema + u"%1x%1/%2.png"_s.arg(Lato).arg(Nome));
        QCOMPARE(Letta.size(), QSize(Lato, Lato));
        QCOMPARE(qAlpha(Letta.pixel(0, 0)), 0);                  // what is round shows what lies behind
        QVERIFY(qAlpha(Letta.pixel(Lato / 2, Lato / 2)) > 250);  // and something is drawn
    }
    QVERIFY(LeggiFile(Tema + u"scalable/"_s + Nome + u".svg"_s).contains("<svg"));
}

void TestImmagini::icone()
{
    const QStringList Nomi = Figure(u"icone"_s, u"*.gif"_s);
    QVERIFY2(Nomi.size() >= 12, qPrintable(Nomi.join(u' ')));
    QVERIFY2(Nomi.contains(u"icona.gif"_s), "the one that an icon without a picture gets");
    for (const QString& Nome : Nomi) {
        const QImage Figura(ProgrammaDiProva() + u"icone/"_s + Nome);
        QCOMPARE(Figura.size(), QSize(LatoIcona, LatoIcona));
        // One hand: the same ground, with its corners cut off.
        QCOMPARE(qAlpha(Figura.pixel(0, 0)), 0);
        const QColor Fondo = Figura.pixelColor(LatoIcona / 2, 10);
        QVERIFY2(Contrasto(Fondo, Qt::white) > 7, qPrintable(Nome + u' ' + Fondo.name()));
    }
}

void TestImmagini::sfondi()
{
    const QStringList Nomi = Figure(u"sfondi"_s, u"*.jpg"_s);
    QVERIFY2(Nomi.size() >= 4, qPrintable(Nomi.join(u' ')));
    QVERIFY(Nomi.contains(u"lex.jpg"_s));
    for (const QString& Nome : Nomi) {
        const QString File = ProgrammaDiProva() + u"sfondi/"_s + Nome;
        QCOMPARE(QImage(File).size(), QSize(LarghezzaSfondo, AltezzaSfondo));
        QVERIFY2(QFileInfo(File).size() < 700 * 1024, qPrintable(Nome));
    }
}

void TestImmagini::modelli()
{
    CIni File;
    File.ImpostaFileName(ProgrammaDiProva() + u"sfondi/templates.ini"_s);
    int Quanti = 0;
    for (int n = 1;; ++n) {
        File.ImpostaApplicationKey(u"modello"_s + QString::number(n));
        const QString Nome = File.GetValue(u"Nome"_s);
        if (Nome.isEmpty())
            break;
        ++Quanti;
        const QImage Sfondo(ProgrammaDiProva() + u"sfondi/"_s + File.GetValue(u"SfImg"_s));
        QVERIFY2(!Sfondo.isNull(), qPrintable(Nome));
        // Labels are read over the colour, over the picture where the icons stand, and when they are marked.
        const QColor Scritta = DaBgr(File.GetValue(u"EtCol"_s));
        QVERIFY2(Contrasto(Scritta, DaBgr(File.GetValue(u"SfCol"_s))) >= 4.5, qPrintable(Nome));
        QVERIFY2(Contrasto(DaBgr(File.GetValue(u"EtSel"_s)), DaBgr(File.GetValue(u"EtBor"_s))) >= 4.5,
                 qPrintable(Nome));
        QVERIFY2(Contrasto(Scritta, DaBgr(File.GetValue(u"EtBor"_s))) >= 4.5, qPrintable(Nome));
        const QColor Medio = Sfondo.copy(0, 0, LarghezzaSfondo / 2, AltezzaSfondo)
                                 .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                 .pixelColor(0, 0);
        QVERIFY2(Contrasto(Scritta, Medio) >= 4.5, qPrintable(Nome + u' ' + Medio.name()));
    }
    QVERIFY(Quanti >= 4);
}

#include "TestImmagini.moc"
