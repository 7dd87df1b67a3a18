// calcanova-cli stampa to a PDF and to the exports: in the test's process, and as a script without a display
// calls it.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "chiamata.h"
#include "core/modLogo.h"
#include "core/parametri.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/parcella.h"
#include "platform/system/file.h"

#include <QBuffer>
#include <QImage>
#include <QProcess>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

QString NotaDiEsempio(const QString& Nome)
{
    const QString Nota = NuovaCartella() + u"parcella rossi.mdb"_s;
    const Esito Fatta = Chiama({u"crea"_s, SorgenteDiProva(u"dati/esempi/"_s) + Nome, Nota});
    return Fatta.Stato == 0 ? Nota : QString();
}

QString Tutto(const QByteArray& Pdf)
{
    return pagine::Leggi(u"pdftotext"_s, {u"-raw"_s, u"%"_s, u"-"_s}, Pdf).simplified();
}

}  // namespace

class TestStampaPdf : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilPdfHaLeParoleDelTesto_data();
    void ilPdfHaLeParoleDelTesto();
    void titoloEFont();
    void cartellaCheManca();
    void senzaSchermoNeSessione();
    void esportazioni_data();
    void esportazioni();
    void estensioneSconosciuta();
    void unaPagina();
    void logo_data();
    void logo();
};
PROVA(TestStampaPdf);

void TestStampaPdf::ilPdfHaLeParoleDelTesto_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Tipo");
    for (const char16_t* Nome : {u"civile.json", u"penale.json", u"stragiudiziale.json"})
        for (const char16_t* Tipo : {u"0", u"7"})
            QTest::newRow(qPrintable(QString::fromUtf16(Nome) + u' ' + QString::fromUtf16(Tipo)))
                << QString::fromUtf16(Nome) << QString::fromUtf16(Tipo);
}

void TestStampaPdf::ilPdfHaLeParoleDelTesto()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tipo);
    const QString Nota = NotaDiEsempio(Nome);
    const QString Pdf = NuovaCartella() + u"nota.PDF"_s;
    const QString Testo = NuovaCartella() + u"nota.txt"_s;
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Pdf}).Stato, 0);
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Testo}).Stato, 0);
    // Both run down the page, but cells of several lines side by side: the words are the same, not their
    // order.
    QStringList Lette = Tutto(LeggiFile(Pdf)).split(u' ');
    QStringList Attese = QString::fromUtf8(LeggiFile(Testo)).simplified().split(u' ');
    // The rule above a sum is text there and a line here.
    Attese.removeIf([](const QString& Parola) { return Parola.count(u'_') == Parola.size(); });
    Attese += {u"Pagina"_s, u"1"_s};
    QVERIFY(Attese.size() > 30);
    Lette.sort();
    Attese.sort();
    QCOMPARE(Lette, Attese);
}

void TestStampaPdf::titoloEFont()
{
    const QString Pdf = NuovaCartella() + u"nota.pdf"_s;
    const Esito Fatta = Chiama({u"--json"_s, u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, Pdf});
    QVERIFY2(Fatta.Uscita.contains(u"\"documento\":\"Prenotula\""_s), qPrintable(Fatta.Uscita));
    const QByteArray Byte = LeggiFile(Pdf);
    QVERIFY(pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, Byte).contains(u"Prenotula - parcella rossi\n"_s));
    QCOMPARE(pagine::FontMancanti(Byte), QStringList());
}

void TestStampaPdf::cartellaCheManca()
{
    const Esito Fatta =
        Chiama({u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, NuovaCartella() + u"x/nota.pdf"_s});
    QCOMPARE(Fatta.Stato, 1);
    QVERIFY2(Fatta.Guasti.contains(u"(76)"_s), qPrintable(Fatta.Guasti));
}

void TestStampaPdf::senzaSchermoNeSessione()
{
    const QString Nota = NotaDiEsempio(u"civile.json"_s);
    const QString Pdf = NuovaCartella() + u"nota.pdf"_s;
    QProcess Processo;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    for (const char16_t* Nome : {u"QT_QPA_PLATFORM", u"DISPLAY", u"WAYLAND_DISPLAY", u"XDG_RUNTIME_DIR"})
        Ambiente.remove(QString::fromUtf16(Nome));
    Processo.setProcessEnvironment(Ambiente);
    Processo.start(ProgrammaDiProva() + u"calcanova-cli"_s, {u"stampa"_s, Nota, u"0"_s, Pdf});
    QVERIFY(Processo.waitForFinished());
    QCOMPARE(Processo.exitCode(), 0);
    QCOMPARE(Processo.readAllStandardError(), QByteArray());
    QVERIFY(Tutto(LeggiFile(Pdf)).contains(u"TOTALE EURO"_s));
}

void TestStampaPdf::esportazioni_data()
{
    QTest::addColumn<QString>("Estensione");
    QTest::addColumn<QByteArray>("Inizio");
    QTest::addColumn<QByteArray>("Titolo");
    QTest::newRow("word processor") << u".doc"_s << "{\\rtf1\\ansi"_ba
                                    << "{\\title Prenotula - parcella rossi}"_ba;
    QTest::newRow("page") << u".htm"_s << "<!DOCTYPE html>"_ba
                          << "<title>Prenotula - parcella rossi</title>"_ba;
    QTest::newRow("capitals") << u".HTM"_s << "<!DOCTYPE html>"_ba
                              << "<title>Prenotula"_ba;
}

void TestStampaPdf::esportazioni()
{
    QFETCH(QString, Estensione);
    QFETCH(QByteArray, Inizio);
    QFETCH(QByteArray, Titolo);
    const QString File = NuovaCartella() + u"nota"_s + Estensione;
    QCOMPARE(Chiama({u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, File}).Stato, 0);
    const QByteArray Byte = LeggiFile(File);
    QVERIFY(Byte.startsWith(Inizio));
    QVERIFY(Byte.contains(Titolo));
    QVERIFY(Byte.contains("TOTALE EURO"));
}

void TestStampaPdf::estensioneSconosciuta()
{
    const Esito Fatta =
        Chiama({u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, NuovaCartella() + u"nota.docx"_s});
    QCOMPARE(Fatta.Stato, 1);
    QVERIFY2(Fatta.Guasti.contains(u".txt, .pdf, .doc o .htm"_s), qPrintable(Fatta.Guasti));
}

/// A note that asks for one page gets it in the PDF and in the word processor's file.
void TestStampaPdf::unaPagina()
{
    const QString File = NotaDiEsempio(u"civile.json"_s);
    Parcella Nota;
    CaricaDati(Nota, File);
    const auto Pagine = [&File] {
        const QString Pdf = NuovaCartella() + u"nota.pdf"_s;
        (void)Chiama({u"stampa"_s, File, u"0"_s, Pdf});
        const QString Detto = pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, LeggiFile(Pdf));
        return Detto.section(u"Pages:"_s, 1).section(u'\n', 0, 0).trimmed();
    };
    const auto Vicine = [&File] {
        const QString Doc = NuovaCartella() + u"nota.doc"_s;
        (void)Chiama({u"stampa"_s, File, u"0"_s, Doc});
        return LeggiFile(Doc).count("\\slmult1");
    };
    while (Pagine() == u"1") {
        Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoDescr) = u"Udienza"_s;
        ScriviNota(File, Nota);
    }
    // More than blank rows alone can give.
    for (int i = 0; i < 8; ++i)
        Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoDescr) = u"Udienza"_s;
    ScriviNota(File, Nota);
    QCOMPARE(Pagine(), u"2"_s);
    QCOMPARE(Vicine(), 0);
    Nota.UnaPagina = true;
    ScriviNota(File, Nota);
    QCOMPARE(Pagine(), u"1"_s);
    QVERIFY(Vicine() > 20);
}

void TestStampaPdf::logo_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Posto");
    QTest::addColumn<bool>("Atteso");
    QTest::newRow("prenotula") << u"0"_s << u"D"_s << true;
    QTest::newRow("nota spese") << u"4"_s << u"D"_s << false;
    QTest::newRow("non si stampa") << u"0"_s << QString() << false;
}

/// The settings of the windows hold here too.
void TestStampaPdf::logo()
{
    QFETCH(QString, Tipo);
    QFETCH(QString, Posto);
    QFETCH(bool, Atteso);
    QImage Figura(300, 100, QImage::Format_RGB32);
    Figura.fill(Qt::darkBlue);
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Figura.save(&Uscita, "png");
    SalvaImpostazioni({{u"LogoImpronta"_s, logo::Conserva(Byte)}, {u"LogoPosto"_s, Posto}});
    const auto Senza = qScopeGuard([] {
        SalvaImpostazioni({{u"LogoImpronta"_s, {}}, {u"LogoPosto"_s, {}}});
    });
    const QString Nota = NotaDiEsempio(u"civile.json"_s);
    const QString Pdf = NuovaCartella() + u"nota.pdf"_s;
    const QString Doc = NuovaCartella() + u"nota.doc"_s;
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Pdf}).Stato, 0);
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Doc}).Stato, 0);
    const QString Figure = pagine::Leggi(u"pdfimages"_s, {u"-list"_s, u"%"_s}, LeggiFile(Pdf));
    QVERIFY(!Figure.isEmpty());
    QCOMPARE(Figure.contains(u" 300 "), Atteso);
    QCOMPARE(LeggiFile(Doc).contains("\\pngblip"), Atteso);
}

#include "TestStampaPdf.moc"
