// The window of a document that belongs to no fee note.
#include "platform/kit/singola.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "print/windows/frmPrint.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPrinter>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

class TestFrmPrint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Registratore::AlMostrare() = BoxDavanti; }
    void cleanup();
    void didascaliaConUnSoloSuffisso();
    void nienteDaStampareNienteFinestra();
    void parteDaPaginaUnoEOttanta();
    void spaziUgualiAOgniMisura_data();
    void spaziUgualiAOgniMisura();
    void pagineConITasti();
    void vociDelloZoom_data();
    void vociDelloZoom();
    void zoomSenzaMenu();
    void stampa();
    void stampaSenzaStampanti();
    void salvaInPdf();
    void escChiude();
    void ricercaPrimaDellaFinestra();
    void ogniTastoHaUnNome();
    void ricordaIlPosto();
};
PROVA(TestFrmPrint);

namespace {

bool Componi(Superficie& vp, int Righe)
{
    vp.StartDoc();
    vp.Zoom = 80;
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(u"2cm"_s);
    vp.MarginBottom(u"3cm"_s);
    vp.FontName(u"Arial"_s);
    vp.FontSize(10);
    for (int i = 1; i <= Righe; ++i)
        vp.Paragraph(u"Riga %1"_s.arg(i));
    vp.EndDoc();
    return true;
}

/// The one window on screen, with a document of so many lines.
frmPrint& Apri(int Righe, const QString& Suffisso = u": calcolo termini"_s)
{
    MostraStampa(Suffisso, [Righe](Superficie& vp) { return Componi(vp, Righe); });
    auto& Finestra = Singola<frmPrint>();
    if (!MostraAttiva(Finestra))
        QTest::qFail("la finestra non si attiva", __FILE__, __LINE__);
    return Finestra;
}

void PremiPulsante(frmPrint& Finestra, const QString& Chiave)
{
    QTest::mouseClick(Finestra.findChild<QToolButton*>(u"barPrint_"_s + Chiave), Qt::LeftButton);
}

QString Pagina(const frmPrint& Finestra)
{
    return Finestra.findChild<QLabel*>(u"txtPage"_s)->text();
}

}  // namespace

void TestFrmPrint::cleanup()
{
    Registratore::AlMostrare() = {};
    delete SeCaricato<frmPrint>;
}

void TestFrmPrint::didascaliaConUnSoloSuffisso()
{
    QCOMPARE(Apri(3).windowTitle(), u"Stampa documento: calcolo termini"_s);
    QCOMPARE(Apri(3).windowTitle(), u"Stampa documento: calcolo termini"_s);
    QCOMPARE(Apri(3, u": termini sequenziali"_s).windowTitle(), u"Stampa documento: termini sequenziali"_s);
}

void TestFrmPrint::nienteDaStampareNienteFinestra()
{
    QVERIFY(!MostraStampa(u": calcolo termini"_s, [](Superficie&) { return false; }));
    QVERIFY(!Singola<frmPrint>().isVisible());
}

void TestFrmPrint::parteDaPaginaUnoEOttanta()
{
    frmPrint& Finestra = Apri(200);
    Finestra.vpFree().ImpostaZoom(120);
    Finestra.vpFree().ImpostaPreviewPage(2);
    Apri(200);
    QCOMPARE(Finestra.vpFree().Zoom(), 80);
    QCOMPARE(Finestra.vpFree().PaginaInVista(), 1);
}

void TestFrmPrint::spaziUgualiAOgniMisura_data()
{
    QTest::addColumn<QSize>("Misura");

    QTest::newRow("piccola") << QSize(420, 360);
    QTest::newRow("usuale") << QSize(760, 680);
    QTest::newRow("larga") << QSize(1300, 500);
}

void TestFrmPrint::spaziUgualiAOgniMisura()
{
    QFETCH(QSize, Misura);
    frmPrint& Finestra = Apri(3);
    Finestra.resize(Misura);
    Respiro();
    const QRect Vista = Finestra.vpFree().geometry();
    const QSize Cornice = Finestra.vpFree().parentWidget()->size();
    QVERIFY(Vista.left() > 0 && Vista.top() > 0);
    QCOMPARE(Cornice.width() - Vista.right() - 1, Vista.left());
    QCOMPARE(Cornice.height() - Vista.bottom() - 1, Vista.top());
}

void TestFrmPrint::pagineConITasti()
{
    frmPrint& Finestra = Apri(150);
    const int Pagine = Finestra.vpFree().NumeroPagine();
    QCOMPARE(Pagine, 3);
    PremiPulsante(Finestra, u"up"_s);
    QCOMPARE(Pagina(Finestra), u"1/3"_s);
    PremiPulsante(Finestra, u"down"_s);
    QCOMPARE(Pagina(Finestra), u"2/3"_s);
    PremiPulsante(Finestra, u"down"_s);
    PremiPulsante(Finestra, u"down"_s);
    QCOMPARE(Pagina(Finestra), u"3/3"_s);
    QCOMPARE(Finestra.vpFree().PaginaInVista(), 3);
    PremiPulsante(Finestra, u"up"_s);
    QCOMPARE(Pagina(Finestra), u"2/3"_s);
}

void TestFrmPrint::vociDelloZoom_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<QString>("Scritta");
    QTest::addColumn<int>("Zoom");

    for (const int Zoom : {120, 100, 90, 80, 70})
        QTest::addRow("%d", Zoom) << u"z%1"_s.arg(Zoom) << u"%1%"_s.arg(Zoom) << Zoom;
    QTest::newRow("adatta") << u"z999"_s << u"Adatta"_s << 0;
}

void TestFrmPrint::vociDelloZoom()
{
    QFETCH(QString, Voce);
    QFETCH(int, Zoom);
    frmPrint& Finestra = Apri(3);
    auto* Scelta = Finestra.findChild<QAction*>(Voce);
    QTEST(Scelta->text(), "Scritta");
    Scelta->trigger();
    QCOMPARE(Finestra.vpFree().Adattato(), Zoom == 0);
    if (Zoom > 0)
        QCOMPARE(Finestra.vpFree().Zoom(), Zoom);
}

void TestFrmPrint::zoomSenzaMenu()
{
    frmPrint& Finestra = Apri(3);
    auto* Tasto = Finestra.findChild<QToolButton*>(u"barPrint_zoom"_s);
    QTest::mouseClick(Tasto, Qt::LeftButton, Qt::NoModifier, QPoint(6, Tasto->height() / 2));
    QCOMPARE(Finestra.vpFree().Zoom(), 100);
    QVERIFY(!Finestra.vpFree().Adattato());
}

void TestFrmPrint::stampa()
{
    Registratore Messaggi;
    const QString File = CartellaDiProva() + u"foglio.pdf"_s;
    Messaggi.ScegliStampante = [&](QPrinter& Scelta) {
        Scelta.setOutputFileName(File);
        return true;
    };
    const Stampanti Sue =
        InstallaStampanti({[] { return QStringList{u"Ufficio"_s}; }, [&](const QPrinter&) { return true; }});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Sue); });
    frmPrint& Finestra = Apri(3);
    PremiPulsante(Finestra, u"print"_s);
    QVERIFY(QFile::exists(File));
    QVERIFY(QFile::remove(File));
}

void TestFrmPrint::stampaSenzaStampanti()
{
    Registratore Messaggi;
    const Stampanti Sue =
        InstallaStampanti({[] { return QStringList(); }, [](const QPrinter&) { return false; }});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Sue); });
    frmPrint& Finestra = Apri(3);
    Messaggi.Attendi(
        u"Nessuna stampante installata.\nInstallare una stampante, oppure salvare il documento in PDF."_s);
    PremiPulsante(Finestra, u"print"_s);
    QCOMPARE(Messaggi.Mostrati().size(), 1);
}

void TestFrmPrint::salvaInPdf()
{
    Registratore Messaggi;
    const QString File = CartellaDiProva() + u"termini.pdf"_s;
    frmPrint& Finestra = Apri(3);
    Messaggi.AttendiSalva(File);
    PremiPulsante(Finestra, u"pdf"_s);
    QVERIFY(Messaggi.InizioDialogo().endsWith(u"/calcolo termini.pdf"));
    QVERIFY(QFile::exists(File));
    QCOMPARE(Finestra.statusBar()->currentMessage(), u"Salvato in "_s + File);
    Messaggi.AttendiSalva({});
    Apri(3);
    QVERIFY(Finestra.statusBar()->currentMessage().isEmpty());
    PremiPulsante(Finestra, u"pdf"_s);
    QVERIFY(Finestra.statusBar()->currentMessage().isEmpty());
}

void TestFrmPrint::escChiude()
{
    frmPrint& Finestra = Apri(3);
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!Finestra.isVisible());
}

void TestFrmPrint::ricercaPrimaDellaFinestra()
{
    frmPrint& Finestra = Apri(3);
    Finestra.vpFree().setFocus();
    Premi(Qt::Key_F, Qt::ControlModifier);
    Digita(u"Riga 2"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(Finestra.isVisible());
    QCOMPARE(Finestra.vpFree().TestoScelto(), u"Riga 2"_s);
}

void TestFrmPrint::ogniTastoHaUnNome()
{
    frmPrint& Finestra = Apri(3);
    for (const QString& Chiave : {u"up"_s, u"down"_s, u"zoom"_s, u"print"_s, u"pdf"_s}) {
        auto* Tasto = Finestra.findChild<QToolButton*>(u"barPrint_"_s + Chiave);
        QVERIFY2(Tasto, qPrintable(Chiave));
        QVERIFY(!Tasto->accessibleName().isEmpty());
        QVERIFY(!Tasto->icon().isNull());
        QVERIFY(Tasto->focusPolicy() & Qt::TabFocus);
    }
}

void TestFrmPrint::ricordaIlPosto()
{
    ProvaPosto(u"frmPrint"_s, [] { return &Apri(3); });
}

#include "TestFrmPrint.moc"
