// The PDF as other programs read it, and the printing of single pages.
#include "supporto/guasti.h"
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "documenti.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace documenti;

namespace {

Impaginazione TrePagine()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.HdrFontName(u"Times New Roman"_s);
    vp.HdrFontSize(8);
    vp.Paragraph(u"Ufficio affari: difficile à è ì ò ù € «fisso» fl ffi"_s);
    vp.Paragraph({});
    ScriviElenco(vp, 120);
    vp.FontName(u"Arial"_s);
    vp.FontBold(true);
    vp.Paragraph(u"In fondo"_s);
    vp.PageFooter(QString(124, u' ') + u"Pagina %d"_s);  // set late, holds for all pages
    return Impaginazione(Finito(vp));
}

QStringList Parole(const QString& Testo)
{
    return Testo.simplified().split(u' ', Qt::SkipEmptyParts);
}

}  // namespace

class TestImpaginazionePdf : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilTestoEQuelloComposto();
    void titoliRipetutiENumeroDiOgniPagina();
    void tuttiIFontIncorporati();
    void titoloEFoglio();
    void autoreOggettoELingua();
    void siLeggeRigaPerRiga();
    void leRigheStannoDovePromesso();
    void ilPiePaginaStaNelMargine_data();
    void ilPiePaginaStaNelMargine();
    void ilFileAppareIntero();
    void stampaAlcunePagine();
    void laStampanteCheRifiuta();
};
PROVA(TestImpaginazionePdf);

void TestImpaginazionePdf::ilTestoEQuelloComposto()
{
    const Impaginazione Fatta = TrePagine();
    const QByteArray Pdf = Fatta.Pdf(u"Prova"_s);
    QCOMPARE(Fatta.NumeroPagine(), 3);
    QStringList Lette;
    for (int Pagina = 1; Pagina <= 3; ++Pagina) {
        QStringList Sue = pagine::ParoleDiPagina(Pdf, Pagina);
        if (Pagina > 1)
            Sue.remove(0, 2);        // the headings, repeated
        Sue.resize(Sue.size() - 2);  // the running line
        Lette += Sue;
    }
    QStringList Attese = Parole(Fatta.Testo());
    QCOMPARE(Attese.removeAll(u"________"_s), 1);  // the rule is drawn
    QCOMPARE(Lette, Attese);
}

void TestImpaginazionePdf::titoliRipetutiENumeroDiOgniPagina()
{
    const QByteArray Pdf = TrePagine().Pdf(u"Prova"_s);
    for (int Pagina = 1; Pagina <= 3; ++Pagina) {
        const QStringList Lette = pagine::ParoleDiPagina(Pdf, Pagina);
        QVERIFY(Lette.size() > 4);
        QCOMPARE(Lette.mid(Lette.size() - 2), (QStringList{u"Pagina"_s, QString::number(Pagina)}));
        QCOMPARE(Lette.count(u"ONORARI"_s), 1);
        if (Pagina > 1)
            QCOMPARE(Lette.first(2), (QStringList{u"ONORARI"_s, u"Importo"_s}));
    }
}

void TestImpaginazionePdf::tuttiIFontIncorporati()
{
    const QByteArray Pdf = TrePagine().Pdf(u"Prova"_s);
    QCOMPARE(pagine::FontMancanti(Pdf), QStringList());
    const QString Elenco = pagine::Leggi(u"pdffonts"_s, {u"%"_s}, Pdf);
    QVERIFY2(Elenco.contains(u"LiberationSerif"_s), qPrintable(Elenco));
    QVERIFY2(Elenco.contains(u"LiberationSans-Bold"_s), qPrintable(Elenco));
}

void TestImpaginazionePdf::titoloEFoglio()
{
    const QString Dati =
        pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, TrePagine().Pdf(u"Prenotula - Rossi è Verdi"_s));
    QVERIFY2(Dati.contains(QRegularExpression(u"Title: +Prenotula - Rossi è Verdi\n"_s)), qPrintable(Dati));
    QVERIFY2(Dati.contains(QRegularExpression(u"Pages: +3\n"_s)), qPrintable(Dati));
    QVERIFY2(Dati.contains(u"(A4)"_s), qPrintable(Dati));
}

void TestImpaginazionePdf::autoreOggettoELingua()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Author(u"Avv. Giulia Però"_s);
    vp.Subject(u"recupero (di un credito)"_s);
    vp.Paragraph(u"testo"_s);
    const QByteArray Pdf = Impaginazione(Finito(vp)).Pdf(u"Prenotula"_s);
    const QString Dati = pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, Pdf);
    QVERIFY2(Dati.contains(QRegularExpression(u"Title: +Prenotula\n"_s)), qPrintable(Dati));
    QVERIFY2(Dati.contains(QRegularExpression(u"Author: +Avv\\. Giulia Però\n"_s)), qPrintable(Dati));
    QVERIFY2(Dati.contains(QRegularExpression(u"Subject: +recupero \\(di un credito\\)\n"_s)),
             qPrintable(Dati));
    QVERIFY(Pdf.contains("/Lang (it-IT)"));
    QCOMPARE(pagine::ParoleDiPagina(Pdf, 1), QStringList(u"testo"_s));

    // What is not known is left out.
    const QString Senza = pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, TrePagine().Pdf(u"x"_s));
    QVERIFY2(!Senza.contains(u"Author"_s) && !Senza.contains(u"Subject"_s), qPrintable(Senza));
}

/// Read by its letters, each row is a row: rules are drawn and join no figure.
void TestImpaginazionePdf::siLeggeRigaPerRiga()
{
    const QString Letto =
        pagine::Leggi(u"pdftotext"_s, {u"-layout"_s, u"%"_s, u"-"_s}, TrePagine().Pdf(u"x"_s));
    QVERIFY(!Letto.contains(u'_'));
    QVERIFY2(Letto.contains(QRegularExpression(u"\n *Voce 1 +1\\.?001,00 *\n"_s)),
             qPrintable(Letto.left(600)));
    QVERIFY2(Letto.contains(QRegularExpression(u"\n *99\\.999,99 *\n"_s)), qPrintable(Letto.right(600)));
}

void TestImpaginazionePdf::leRigheStannoDovePromesso()
{
    const Impaginazione Fatta = TrePagine();
    const QString Parole = pagine::Leggi(u"pdftotext"_s, {u"-bbox"_s, u"%"_s, u"-"_s}, Fatta.Pdf(u"Prova"_s));
    const QRegularExpressionMatch Una =
        QRegularExpression(
            u"xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\" yMax=\"[0-9.]+\">99.999,99<"_s)
            .match(Parole);
    QVERIFY(Una.hasMatch());
    constexpr double MmPerPunto = 25.4 / 72.0;
    const QRectF Riga = pagine::CercaRiga(Fatta, u"99.999,99"_s).Riga.Mm;
    QVERIFY(std::abs(Una.captured(1).toDouble() * MmPerPunto - Riga.left()) < 0.1);
    QVERIFY(std::abs(Una.captured(2).toDouble() * MmPerPunto - Riga.right()) < 0.1);
}

void TestImpaginazionePdf::ilPiePaginaStaNelMargine_data()
{
    QTest::addColumn<QString>("Piede");
    QTest::addColumn<QString>("MargineBasso");
    QTest::addColumn<QString>("Scritto");
    QTest::newRow("half an inch above the edge") << u"Pagina %d"_s << u"3.2cm"_s << u"Pagina 1"_s;
    QTest::newRow("in the middle of a narrow margin") << u"Pagina %d"_s << u"1cm"_s << u"Pagina 1"_s;
    QTest::newRow("pushed off the sheet")
        << QString(900, u' ') + u"Pagina %d"_s << u"3.2cm"_s << u"Pagina 1"_s;
    QTest::newRow("cut with a sign") << QString(500, u'W') << u"3.2cm"_s << u"WWWW…"_s;
}

void TestImpaginazionePdf::ilPiePaginaStaNelMargine()
{
    QFETCH(QString, Piede);
    QFETCH(QString, MargineBasso);
    QFETCH(QString, Scritto);
    Superficie vp;
    PreparaPagina(vp);
    vp.MarginBottom(MargineBasso);
    vp.PageFooter(Piede);
    const Impaginazione Fatta(Finito(vp));
    const QByteArray Pdf = Fatta.Pdf(u"x"_s);
    QVERIFY2(pagine::ParoleDiPagina(Pdf, 1).join(u' ').endsWith(Scritto),
             qPrintable(pagine::ParoleDiPagina(Pdf, 1).join(u' ')));
    const QString Parole = pagine::Leggi(u"pdftotext"_s, {u"-bbox"_s, u"%"_s, u"-"_s}, Pdf);
    const auto Ultima =
        QRegularExpression(
            u"yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\" yMax=\"([0-9.]+)\">[^<]+</word>\\s*</page>"_s)
            .match(Parole);
    QVERIFY(Ultima.hasMatch());
    constexpr double MmPerPunto = 25.4 / 72.0;
    QVERIFY(Ultima.captured(1).toDouble() * MmPerPunto > Fatta.AreaTestoMm().bottom() - 0.5);
    QVERIFY(Ultima.captured(2).toDouble() * MmPerPunto < Fatta.AreaTestoMm().right() + 0.5);
    QVERIFY(Ultima.captured(3).toDouble() * MmPerPunto < 297.0 - 3.0);
}

void TestImpaginazionePdf::ilFileAppareIntero()
{
    const Impaginazione Fatta = TrePagine();
    const QString File = NuovaCartella() + u"nota.pdf"_s;
    ScriviFile(File, "vecchio");
    guasti::LimiteFile = 100;
    const int Numero = NumeroErrore([&] { Fatta.ScriviPdf(File, u"Prova"_s); });
    guasti::LimiteFile = 0;
    QCOMPARE(Numero, 61);
    QCOMPARE(LeggiFile(File), "vecchio"_ba);
    Fatta.ScriviPdf(File, u"Prova"_s);
    QVERIFY(LeggiFile(File).startsWith("%PDF-"));
    QVERIFY(NumeroErrore([&] { Fatta.ScriviPdf(NuovaCartella() + u"manca/nota.pdf"_s, u"Prova"_s); }) != 0);
}

void TestImpaginazionePdf::stampaAlcunePagine()
{
    const Impaginazione Fatta = TrePagine();
    for (const bool Margini : {false, true}) {  // a printer's origin is inside its margins
        QByteArray Byte;
        QBuffer Uscita(&Byte);
        QVERIFY(Uscita.open(QIODevice::WriteOnly));
        {
            QPdfWriter Stampante(&Uscita);
            Stampante.setResolution(300);
            Stampante.setPageSize(QPageSize(QPageSize::A4));
            Stampante.setPageMargins(Margini ? QMarginsF(10, 10, 10, 10) : QMarginsF(),
                                     QPageLayout::Millimeter);
            Fatta.Stampa(Stampante, 2, 9);
        }
        QVERIFY(pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, Byte).contains(QRegularExpression(u"Pages: +2\n"_s)));
        QCOMPARE(pagine::ParoleDiPagina(Byte, 2), pagine::ParoleDiPagina(Fatta.Pdf(u"x"_s), 3));
        const QString Parole = pagine::Leggi(u"pdftotext"_s, {u"-bbox"_s, u"%"_s, u"-"_s}, Byte);
        const auto Prima = QRegularExpression(u"xMin=\"([0-9.]+)\"[^>]*>ONORARI<"_s).match(Parole);
        QVERIFY(Prima.hasMatch());
        QVERIFY(std::abs(Prima.captured(1).toDouble() - 20.0 / 25.4 * 72.0) < 0.5);
    }
}

void TestImpaginazionePdf::laStampanteCheRifiuta()
{
    const Impaginazione Fatta = TrePagine();
    QPdfWriter Sparita(NuovaCartella() + u"manca/nota.pdf"_s);
    const ErroreVisto Guasto = ErroreDi([&] {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
        Fatta.Stampa(Sparita, 1, 3);
    });
    QCOMPARE(Guasto.Numero, 482);
}

#include "TestImpaginazionePdf.moc"
