#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "update/viewer/frmWeb.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QPrinter>
#include <QProcess>
#include <QToolButton>

using namespace Qt::StringLiterals;

/// A page of the viewer on paper.
class TestStampaPagina : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stampa_data();
    void stampa();
    void annullata();
    void nonSiPuo();
};
PROVA(TestStampaPagina);

namespace {

/// A page of the guide's kind, with the text that the look could swallow.
QString ScriviPagina()
{
    const QString Cartella = NuovaCartella();
    ScriviFile(
        Cartella + u"pagina.htm"_s,
        "<html><head><meta charset=\"utf-8\"><title>Prova</title></head><body><h1>La tastiera è qui</h1>"
        "<table><tr><th>Tasti</th></tr><tr><td>Ctrl+Pag giù</td></tr></table></body></html>");
    sessione::PercorsoProg = Cartella;
    return Cartella + u"pagina.htm"_s;
}

QByteArray Risposta(const QString& Programma, const QStringList& Argomenti)
{
    QProcess Lettore;
    Lettore.start(Programma, Argomenti);
    Lettore.waitForFinished();
    return Lettore.readAllStandardOutput();
}

}  // namespace

void TestStampaPagina::stampa_data()
{
    QTest::addColumn<bool>("DaTasti");
    QTest::addColumn<bool>("Scura");
    QTest::newRow("by key") << true << false;
    QTest::newRow("by button") << false << false;
    QTest::newRow("in a dark palette") << true << true;
}

void TestStampaPagina::stampa()
{
    QFETCH(bool, DaTasti);
    QFETCH(bool, Scura);
    const QPalette Prima = QApplication::palette();
    if (Scura)
        QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    const QString File = NuovaCartella() + u"carta.pdf"_s;
    Registratore Box;
    Box.ScegliStampante = [&](QPrinter& Scelta) {
        Scelta.setOutputFormat(QPrinter::PdfFormat);
        Scelta.setOutputFileName(File);
        return true;
    };
    frmWeb Visore;
    Visore.Indirizzo = ScriviPagina();
    Visore.Titolo = u"Prova"_s;
    Visore.Mostra();
    QVERIFY(QTest::qWaitForWindowActive(&Visore));
    if (DaTasti)
        QTest::keySequence(&Visore, QKeySequence(u"Ctrl+P"_s));
    else
        QTest::mouseClick(Visore.findChild<QToolButton*>(u"cmdStampa"_s), Qt::LeftButton);
    QApplication::setPalette(Prima);
    const QString Testo = QString::fromUtf8(Risposta(u"pdftotext"_s, {u"-layout"_s, File, u"-"_s}));
    QVERIFY2(Testo.contains(u"La tastiera è qui") && Testo.contains(u"Ctrl+Pag giù"), qPrintable(Testo));
    // Black on white: no light letter, no dark ground.
    const QImage Carta = QImage::fromData(
        Risposta(u"pdftoppm"_s, {u"-png"_s, u"-r"_s, u"150"_s, u"-f"_s, u"1"_s, u"-l"_s, u"1"_s, File}));
    QVERIFY(!Carta.isNull());
    int Neri = 0;
    for (int y = 0; y < Carta.height(); ++y)
        for (int x = 0; x < Carta.width(); ++x) {
            constexpr int Mezzo = 128;
            Neri += qGray(Carta.pixel(x, y)) < Mezzo;
        }
    QVERIFY2(Neri > 200, "the letters are dark");
    QVERIFY2(Neri < Carta.width() * Carta.height() / 10, "the paper is light");
}

void TestStampaPagina::annullata()
{
    Registratore Box;
    int Chiesto = 0;
    Box.ScegliStampante = [&](QPrinter&) {
        ++Chiesto;
        return false;
    };
    frmWeb Visore;
    Visore.Indirizzo = ScriviPagina();
    Visore.Mostra();
    QVERIFY(QTest::qWaitForWindowActive(&Visore));
    QTest::keySequence(&Visore, QKeySequence(u"Ctrl+P"_s));
    QCOMPARE(Chiesto, 1);
}

/// A printer that refuses says so: silence would be taken for a page on its way.
void TestStampaPagina::nonSiPuo()
{
    Registratore Box;
    const QString Cartella = NuovaCartella();
    Box.ScegliStampante = [&](QPrinter& Scelta) {
        Scelta.setOutputFormat(QPrinter::PdfFormat);
        Scelta.setOutputFileName(Cartella + u"manca/carta.pdf"_s);
        return true;
    };
    frmWeb Visore;
    Visore.Indirizzo = ScriviPagina();
    Visore.Mostra();
    QVERIFY(QTest::qWaitForWindowActive(&Visore));
    QList<int> Riferiti;
    const auto Prima = InstallaUltimaRete([&Riferiti](const Errore& Guasto) { Riferiti << Guasto.Numero; });
    const auto Rimetti = qScopeGuard([&Prima] { InstallaUltimaRete(Prima); });
    QTest::keySequence(&Visore, QKeySequence(u"Ctrl+P"_s));
    QCOMPARE(Riferiti, QList<int>{482});
}

#include "TestStampaPagina.moc"
