// Rich text on pages: what is struck out, tab stops, distance of lines, tables.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "disegni.h"
#include "documenti.h"

using namespace Qt::StringLiterals;
using disegni::Disegnata;
using disegni::Scuri;
using disegni::Vicini;

namespace {

constexpr double Dpi = 200.0;

Impaginazione Pagine(const QString& Corpo)
{
    Superficie vp;
    documenti::PreparaPagina(vp);
    vp.Paragraph(u"{\\rtf1{\\fonttbl{\\f0 Times New Roman;}}"_s + Corpo + u'}');
    return Impaginazione(documenti::Finito(vp));
}

QRectF Riga(const Impaginazione& Fatta, const QString& Parte)
{
    return pagine::CercaRiga(Fatta, Parte).Riga.Mm;
}

}  // namespace

class TestTestoRicco : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void barrato();
    void apici();
    void fermi_data();
    void fermi();
    void fermiRiempiti_data();
    void fermiRiempiti();
    void interlinea_data();
    void interlinea();
    void firmeInTabella();
    void lineeDelleCelle();
    void nessunDifetto_data();
    void nessunDifetto();
    void cellePiuAlteDellaPagina();
};
PROVA(TestTestoRicco);

/// A line runs through the text: there is ink between two letters that stand apart.
void TestTestoRicco::barrato()
{
    const auto Inchiostro = [](const QString& Corpo) {
        const Impaginazione Fatta = Pagine(Corpo);
        const QRectF Dove = Fatta.Righe(1).front().Mm;
        // The middle of the row between its two words, where nothing but a stroke can be.
        return Scuri(
            Disegnata(Fatta, 1, Dpi),
            QRectF(Dove.center().x() - 2.0, Dove.top() + Dove.height() * 0.45, 4.0, Dove.height() * 0.3),
            Dpi);
    };
    const QString Largo = u"\\fs24 xxx"_s + u"\\~"_s.repeated(20) + u"xxx"_s;
    QCOMPARE(Inchiostro(Largo + u"\\par"_s), 0);
    QVERIFY(Inchiostro(u"\\strike "_s + Largo + u"\\par"_s) > 20);
}

void TestTestoRicco::apici()
{
    const auto Estremi = [](const QString& Corpo) {
        const Impaginazione Fatta = Pagine(Corpo);
        const QRectF Dove = Fatta.Righe(1).front().Mm;
        const QImage Foglio = Disegnata(Fatta, 1, Dpi);
        double Alto = 999.0;
        double Basso = 0.0;
        for (double Y = Dove.top() - 2.0; Y < Dove.bottom() + 2.0; Y += 0.1)
            if (Scuri(Foglio, QRectF(Dove.left(), Y, Dove.width() + 1.0, 0.05), Dpi) > 0) {
                Alto = std::min(Alto, Y);
                Basso = std::max(Basso, Y);
            }
        return std::pair(Alto, Basso);
    };
    const auto Normale = Estremi(u"\\fs40 x\\par"_s);
    const auto Apice = Estremi(u"\\fs40 {\\super x}\\par"_s);
    const auto Pedice = Estremi(u"\\fs40 {\\sub x}\\par"_s);
    QVERIFY(Apice.second < Normale.second - 0.5);
    QVERIFY(Pedice.second > Normale.second + 0.3);
    QVERIFY(Apice.second - Apice.first < (Normale.second - Normale.first) * 0.85);
}

void TestTestoRicco::fermi_data()
{
    QTest::addColumn<QString>("Corpo");
    QTest::addColumn<double>("Mm");  // from the left margin to the mark's edge that the stop rules
    QTest::addColumn<double>("Quota");
    QTest::newRow("left") << u"\\tx4536 a\\tab QQ\\par"_s << 80.0 << 0.0;
    QTest::newRow("right") << u"\\tqr\\tx4536 a\\tab QQ\\par"_s << 80.0 << 1.0;
    QTest::newRow("centre") << u"\\tqc\\tx4536 a\\tab QQ\\par"_s << 80.0 << 0.5;
    QTest::newRow("the second one") << u"\\tx1134\\tx4536 a\\tab b\\tab QQ\\par"_s << 80.0 << 0.0;
    QTest::newRow("whatever the indent") << u"\\li1134\\tx4536 a\\tab QQ\\par"_s << 80.0 << 0.0;
    QTest::newRow("a hanging indent comes first")
        << u"\\li1134\\fi-567\\tx4536 a\\tab QQ\\par"_s << 20.0 << 0.0;
}

void TestTestoRicco::fermi()
{
    QFETCH(QString, Corpo);
    QFETCH(double, Mm);
    QFETCH(double, Quota);
    const Impaginazione Fatta = Pagine(Corpo);
    const qsizetype Posto = Fatta.Testo().indexOf(u"QQ"_s);
    const double Da = Fatta.Cursore(Posto).Mm.left();
    const double A = Fatta.Cursore(Posto + 2).Mm.left();
    const double Sinistra = Fatta.AreaTestoMm().left();
    QVERIFY2(std::abs(Da + (A - Da) * Quota - Sinistra - Mm) < 0.2,
             qPrintable(QString::number(Da + (A - Da) * Quota - Sinistra)));
}

void TestTestoRicco::fermiRiempiti_data()
{
    QTest::addColumn<QString>("Riempie");
    QTest::addColumn<bool>("Vede");
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("dots") << u"\\tldot"_s << true;
    QTest::newRow("a line to sign on") << u"\\tlul"_s << true;
}

void TestTestoRicco::fermiRiempiti()
{
    QFETCH(QString, Riempie);
    const Impaginazione Fatta = Pagine(Riempie + u"\\tx5670 firma\\tab fine\\par"_s);
    const QRectF Dove = Fatta.Righe(1).front().Mm;
    QTEST(Scuri(Disegnata(Fatta, 1, Dpi), QRectF(Dove.left() + 20.0, Dove.top(), 60.0, Dove.height()), Dpi) >
              30,
          "Vede");
}

void TestTestoRicco::interlinea_data()
{
    QTest::addColumn<QString>("Come");
    QTest::addColumn<double>("Punti");  // from one baseline to the next
    QTest::newRow("as the font has it") << QString() << 12 * 1.149;
    QTest::newRow("double") << u"\\sl480\\slmult1"_s << 2 * 12 * 1.149;
    QTest::newRow("at least more") << u"\\sl600\\slmult0"_s << 30.0;
    QTest::newRow("at least less") << u"\\sl100\\slmult0"_s << 12 * 1.149;
    QTest::newRow("exactly") << u"\\sl-200\\slmult0"_s << 10.0;
}

void TestTestoRicco::interlinea()
{
    QFETCH(QString, Come);
    QFETCH(double, Punti);
    const Impaginazione Fatta = Pagine(Come + u" uno\\line due\\line tre\\par quattro\\par"_s);
    const std::vector<RigaImpaginata>& Righe = Fatta.Righe(1);
    QCOMPARE(Righe.size(), std::size_t{4});
    for (std::size_t i = 1; i < Righe.size(); ++i)
        QVERIFY2(std::abs(Righe[i].BaseMm - Righe[i - 1].BaseMm - Punti * 25.4 / 72.0) < 0.1,
                 qPrintable(QString::number((Righe[i].BaseMm - Righe[i - 1].BaseMm) * 72.0 / 25.4)));
}

/// The usual block of signatures: two columns, each with its own lines below each other.
void TestTestoRicco::firmeInTabella()
{
    const Impaginazione Fatta =
        Pagine(u"\\trowd\\cellx4536\\cellx9072\\intbl\\qc Il Cliente\\par\\sb400 ____\\cell\\pard\\intbl\\qc "
               u"L'Avvocato\\par\\sb400 ____\\cell\\row\\pard fine\\par"_s);
    const QRectF Cliente = Riga(Fatta, u"Il Cliente"_s);
    const QRectF Avvocato = Riga(Fatta, u"L'Avvocato"_s);
    QVERIFY(Vicini(Cliente.top(), Avvocato.top()));
    const double Sinistra = Fatta.AreaTestoMm().left();
    QVERIFY2(std::abs(Cliente.center().x() - Sinistra - 40.0) < 1.5,
             qPrintable(QString::number(Cliente.center().x())));
    QVERIFY2(std::abs(Avvocato.center().x() - Sinistra - 120.0) < 1.5,
             qPrintable(QString::number(Avvocato.center().x())));
    const QRectF Firma = Riga(Fatta, u"____"_s);
    QVERIFY(Firma.top() > Cliente.bottom() + 6.0);
    QVERIFY(Riga(Fatta, u"fine"_s).top() >= Firma.bottom());
}

void TestTestoRicco::lineeDelleCelle()
{
    const auto Inchiostro = [](const QString& Lati) {
        const Impaginazione Fatta =
            Pagine(u"\\trowd"_s + Lati + u"\\cellx4536\\cellx9072\\intbl a\\cell b\\cell\\row\\pard\\par"_s);
        const QRectF Dove = Fatta.Righe(1).front().Mm;
        const QImage Foglio = Disegnata(Fatta, 1, Dpi);
        const auto Banda = [&](double Y) {
            return Scuri(Foglio, QRectF(40.0, Y - 0.4, 40.0, 0.8), Dpi) > 100;
        };
        return std::pair(Banda(Dove.top() - 0.5), Banda(Dove.bottom() + 0.5));
    };
    QCOMPARE(Inchiostro(QString()), std::pair(false, false));
    QCOMPARE(Inchiostro(u"\\clbrdrt\\brdrs"_s), std::pair(true, false));
    QCOMPARE(Inchiostro(u"\\clbrdrb\\brdrs"_s), std::pair(false, true));
}

void TestTestoRicco::nessunDifetto_data()
{
    QTest::addColumn<QString>("Corpo");
    const QString Due = u"\\trowd\\clbrdrt\\brdrs\\cellx3000\\clbrdrt\\brdrs\\cellx9000\\intbl "_s;
    QTest::newRow("rows over several pages")
        << (Due + u"a\\par b\\cell c\\tab d\\cell\\row "_s).repeated(120) + u"\\pard fine\\par"_s;
    QTest::newRow("tabs and lines")
        << u"\\tqr\\tldot\\tx9000\\sl480\\slmult1 voce\\tab 12,00\\par "_s.repeated(100);
    QTest::newRow("wider than the page") << u"\\trowd\\cellx9000\\cellx30000\\intbl a\\cell b\\cell\\row"_s;
    QTest::newRow("blank cells")
        << u"\\trowd\\cellx3000\\cellx9000\\intbl\\cell\\cell\\row\\pard fine\\par"_s;
}

void TestTestoRicco::nessunDifetto()
{
    QFETCH(QString, Corpo);
    QCOMPARE(pagine::Difetto(Pagine(Corpo)), QString());
}

void TestTestoRicco::cellePiuAlteDellaPagina()
{
    const Impaginazione Fatta =
        Pagine(u"\\trowd\\cellx3000\\cellx9000\\intbl "_s + u"riga\\par "_s.repeated(150) +
               u"\\cell altra\\cell\\row\\pard fine\\par"_s);
    QCOMPARE(pagine::Difetto(Fatta), QString());
    QVERIFY(Fatta.NumeroPagine() >= 3);
}

#include "TestTestoRicco.moc"
