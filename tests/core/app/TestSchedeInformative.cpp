// The information sheets from the catalogue to the viewer: the window of a note, the opener and the pages as
// built.
#include "feenote/windows/tavolo.h"

#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/modErrori.h"
#include "platform/kit/collega.h"
#include "platform/kit/singola.h"
#include "platform/system/percorsi.h"
#include "update/viewer/frmWeb.h"
#include "update/viewer/pagina.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

/// The court's orders for payment and writs of execution: three items, and none inserted by itself.
constexpr int IDIngiunzioni = 14;

const auto Titolo = u"KR5 - Scheda informativa prestazione"_s;

frmWeb* Visore()
{
    return SeCaricato<frmWeb>;
}

Pagina* InVista()
{
    return Visore() ? Visore()->findChild<Pagina*>(u"Web1"_s) : nullptr;
}

/// File of the page on view; empty with no viewer on screen.
QString FileInVista()
{
    return Visore() && Visore()->isVisible() ? NomeFile(InVista()->source().toLocalFile()) : QString();
}

QString PrimaRiga()
{
    return InVista()->toPlainText().section(u'\n', 0, 0);
}

}  // namespace

class TestSchedeInformative : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void bottoneInformazioni();
    void tastoDestro();
    void tastoDestroFuoriDalleRighe();
    void daTastiera();
    void menuDaTastiera();
    void senzaRigaCorrente();
    void siApreAllUfficioDellaNota_data();
    void siApreAllUfficioDellaNota();
    void ogniVoceDelCatalogo_data();
    void ogniVoceDelCatalogo();
    void mancaLaScheda();
    void ilVisoreSegueLeFrecce();
    void ilVisoreSegueIlMouse();
    void ilVisoreSegueLaRicerca();
    void segueSullaPaginaBianca();
    void segueIlNuovoCatalogo();
    void chiusoNonSiApre();
    void maiApertoNonSiApre();
    void unAltraPaginaResta();
    void seguendoNonDiceNulla();
    void inserendoLaSchedaResta();
    void unCollegamentoNonLoFerma();

private:
    /// A note with its parameters chosen, on the first row of its catalogue.
    void Entra(int Categ = CategCivile, int IDAut = IDTribunale);
    /// A folder of the program with the tariff and the pages named, and no other.
    void ProgrammaCon(const QStringList& Pagine) const;
    void Informa() const;
    /// What a window manager does when the user goes back to the note.
    void TornaAllaNota() const;

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Lista = nullptr;
};
PROVA(TestSchedeInformative);

void TestSchedeInformative::init()
{
    T = std::make_unique<Tavolo>();
    RiempiApritori();
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    Aperture.AreaParcelle = {};  // the note stands by itself
    Aperture.ParcellaAttivata = {};
    Aperture.UltimaParcellaChiusa = {};
    F = Tavolo::Apri();
    QVERIFY(F && !Visore());
}

void TestSchedeInformative::cleanup()
{
    delete Visore();
    T.reset();
    InstallaUltimaRete(nullptr);
}

void TestSchedeInformative::Entra(int Categ, int IDAut)
{
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), Categ);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDAut));
    if (Categ != CategPenale) {
        Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"30000"_s);
        Premi(Qt::Key_Tab);
    }
    ClicScheda(F, SchedaListaOnorari);
    Lista = Controllo<Griglia>(F, "tdbListaOno");
    Lista->ImpostaRigaCorrente(0);
}

void TestSchedeInformative::ProgrammaCon(const QStringList& Pagine) const
{
    const QString Prog = T->Ufficio.Cartella();
    QFile::copy(ProgrammaDiProva() + u"parcelle.mdb"_s, Prog + u"parcelle.mdb"_s);
    QDir().mkpath(Prog + u"note"_s);
    for (const QString& Una : Pagine)
        QFile::copy(ProgrammaDiProva() + u"note/"_s + Una, Prog + u"note/"_s + Una);
    sessione::PercorsoProg = Prog;
}

void TestSchedeInformative::Informa() const
{
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_info"));
    Respiro();
}

void TestSchedeInformative::TornaAllaNota() const
{
    QApplication::setActiveWindow(F);
    Lista->Vista()->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(F));
}

// ---- Asked for -----------------------------------------------------------------------------------

void TestSchedeInformative::bottoneInformazioni()
{
    Entra();
    Lista->ImpostaRigaCorrente(1);
    Informa();
    QCOMPARE(FileInVista(), u"C002.htm"_s);
    QCOMPARE(Visore()->windowTitle(), Titolo);
    QCOMPARE(PrimaRiga(), u"Fase introduttiva del procedimento"_s);
    // Asked for again, another row comes into the same window.
    const QPointer<frmWeb> Stesso = Visore();
    TornaAllaNota();
    Lista->ImpostaRigaCorrente(3);
    Informa();
    QCOMPARE(Visore(), Stesso.data());
    QCOMPARE(FileInVista(), u"C004.htm"_s);
}

void TestSchedeInformative::tastoDestro()
{
    Entra();
    const QPoint Dove = CentroCella(Lista, 2, 1);
    QWidget* Vista = Lista->Vista()->viewport();
    QContextMenuEvent Destro(QContextMenuEvent::Mouse, Dove, Vista->mapToGlobal(Dove));
    QApplication::sendEvent(Vista, &Destro);
    QCOMPARE(FileInVista(), u"C003.htm"_s);
    QCOMPARE(Visore()->windowTitle(), Titolo);
}

void TestSchedeInformative::tastoDestroFuoriDalleRighe()
{
    Entra(CategCivile, IDIngiunzioni);
    QWidget* Vista = Lista->Vista()->viewport();
    const QPoint Sotto(20, Vista->height() - 2);
    QCOMPARE(Lista->Vista()->rowAt(Sotto.y()), -1);
    QContextMenuEvent Destro(QContextMenuEvent::Mouse, Sotto, Vista->mapToGlobal(Sotto));
    QApplication::sendEvent(Vista, &Destro);
    QVERIFY(!Visore());
}

void TestSchedeInformative::daTastiera()
{
    Entra();
    Lista->Vista()->setFocus();
    const QWidget* Bottone = Controllo(PaginaIn(F), "barListaOnoDir_info");
    for (int i = 0; i < 10 && QApplication::focusWidget() != Bottone; ++i)
        Premi(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Bottone);
    Premi(Qt::Key_Space);
    Respiro();
    QCOMPARE(FileInVista(), u"C001.htm"_s);
    // The viewer is read, scrolled and left by keys.
    QVERIFY(QTest::qWaitForWindowActive(Visore()));
    QCOMPARE(QApplication::focusWidget(), InVista());
    Premi(Qt::Key_PageDown);
    QVERIFY(InVista()->verticalScrollBar()->value() > 0);
    QTest::keyPress(InVista(), Qt::Key_Escape);
    QVERIFY(!Visore()->isVisible());
}

void TestSchedeInformative::menuDaTastiera()
{
    Entra();
    Lista->Vista()->setFocus();
    Premi(Qt::Key_Down);
    QContextMenuEvent Tasto(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(Lista->Vista()->viewport(), &Tasto);
    QCOMPARE(FileInVista(), u"C002.htm"_s);
}

void TestSchedeInformative::senzaRigaCorrente()
{
    Entra();
    ProgrammaCon({u"blank.htm"_s});
    Database Base = OpenDatabase(sessione::PercorsoProg + u"parcelle.mdb"_s);
    Base.Execute(u"DELETE FROM OnorariCiv"_s);
    ClicScheda(F, SchedaListaSpese);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Lista->Righe(), 0);
    Informa();
    QVERIFY(!Visore());
}

void TestSchedeInformative::siApreAllUfficioDellaNota_data()
{
    QTest::addColumn<int>("Ufficio");
    QTest::newRow("giudice di pace") << IDGiudiceDiPace;
    QTest::newRow("tribunale") << IDTribunale;
    QTest::newRow("corte d'appello") << IDCorteAppello;
}

void TestSchedeInformative::siApreAllUfficioDellaNota()
{
    QFETCH(int, Ufficio);
    Entra(CategCivile, Ufficio);
    Informa();
    const Pagina* Scheda = InVista();
    const QTextDocument* Testo = Scheda->document();
    QRectF Trovato;
    for (QTextBlock Blocco = Testo->begin(); Blocco.isValid() && Trovato.isNull(); Blocco = Blocco.next())
        if (Blocco.text().split(u"; "_s).contains(TestoAutorita(F->Nota)))
            Trovato = Testo->documentLayout()->blockBoundingRect(Blocco);
    QVERIFY2(!Trovato.isNull(), "la scheda ha la tabella dell'ufficio");
    const double Y = Trovato.top() - Scheda->verticalScrollBar()->value();
    QVERIFY2(Y >= 0 && Y < Scheda->viewport()->height() / 2.0, qPrintable(QString::number(Y)));
}

void TestSchedeInformative::ogniVoceDelCatalogo_data()
{
    QTest::addColumn<int>("Categ");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<int>("Voci");

    QTest::newRow("civile, tribunale") << int(CategCivile) << IDTribunale << 5;
    QTest::newRow("civile, esecuzione") << int(CategCivile) << 15 << 6;
    QTest::newRow("penale") << int(CategPenale) << 23 << 6;
    QTest::newRow("stragiudiziale") << int(CategStragiudiziale) << 41 << 20;
}

void TestSchedeInformative::ogniVoceDelCatalogo()
{
    QFETCH(int, Categ);
    QFETCH(int, Ufficio);
    Entra(Categ, Ufficio);
    QTEST(Lista->Righe(), "Voci");
    for (int Riga = 0; Riga < Lista->Righe(); ++Riga) {
        Lista->ImpostaRigaCorrente(Riga);
        Informa();
        const QModelIndex Descrizione = Lista->Vista()->model()->index(Riga, 1);
        QCOMPARE(PrimaRiga(), Descrizione.data().toString());
        TornaAllaNota();
    }
}

void TestSchedeInformative::mancaLaScheda()
{
    Entra();
    ProgrammaCon({u"C001.htm"_s, u"blank.htm"_s});
    Lista->ImpostaRigaCorrente(1);
    Informa();
    QCOMPARE(FileInVista(), u"blank.htm"_s);
    QCOMPARE(Visore()->windowTitle(), Titolo);
}

// ---- Following -----------------------------------------------------------------------------------

void TestSchedeInformative::ilVisoreSegueLeFrecce()
{
    Entra();
    Informa();
    QCOMPARE(FileInVista(), u"C001.htm"_s);
    TornaAllaNota();
    InVista()->verticalScrollBar()->setValue(0);
    Premi(Qt::Key_Down);
    QCOMPARE(FileInVista(), u"C002.htm"_s);
    QCOMPARE(PrimaRiga(), u"Fase introduttiva del procedimento"_s);
    QCOMPARE(InVista()->source().fragment(), u"a%1"_s.arg(IDTribunale));
    Premi(Qt::Key_Down);
    QCOMPARE(FileInVista(), u"C003.htm"_s);
    Premi(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(FileInVista(), u"C001.htm"_s);
    // The keys stay with the catalogue.
    QCOMPARE(QApplication::focusWidget(), Lista->Vista());
    QCOMPARE(QApplication::activeWindow(), F);
    QVERIFY(Visore()->isVisible());
}

void TestSchedeInformative::ilVisoreSegueIlMouse()
{
    Entra();
    Informa();
    TornaAllaNota();
    ClicCella(Lista, 3, 1);
    QCOMPARE(FileInVista(), u"C004.htm"_s);
    QCOMPARE(QApplication::activeWindow(), F);
    ClicCella(Lista, 4, 1);
    QCOMPARE(FileInVista(), u"C999.htm"_s);
}

void TestSchedeInformative::ilVisoreSegueLaRicerca()
{
    Entra();
    Informa();
    TornaAllaNota();
    auto* Box = Controllo<QLineEdit>(PaginaIn(F), "txtCercaOno");
    Box->setFocus();
    Digita(u"deci"_s);
    QCOMPARE(FileInVista(), u"C004.htm"_s);
    QCOMPARE(QApplication::focusWidget(), Box);
    QCOMPARE(Box->text(), u"deci"_s);
}

void TestSchedeInformative::segueSullaPaginaBianca()
{
    Entra();
    ProgrammaCon({u"C001.htm"_s, u"C003.htm"_s, u"blank.htm"_s});
    Informa();
    TornaAllaNota();
    Premi(Qt::Key_Down);
    QCOMPARE(FileInVista(), u"blank.htm"_s);
    Premi(Qt::Key_Down);
    QCOMPARE(FileInVista(), u"C003.htm"_s);
}

/// Another authority: the same row of the list is another item.
void TestSchedeInformative::segueIlNuovoCatalogo()
{
    Entra(CategCivile, IDIngiunzioni);
    Informa();
    QCOMPARE(FileInVista(), u"C019.htm"_s);
    TornaAllaNota();
    ClicScheda(F, SchedaBase);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDTribunale));
    QCOMPARE(FileInVista(), u"C019.htm"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Lista->RigaCorrente().value_or(-1), 0);
    QCOMPARE(FileInVista(), u"C001.htm"_s);
}

void TestSchedeInformative::chiusoNonSiApre()
{
    Entra();
    Informa();
    Visore()->close();
    TornaAllaNota();
    Premi(Qt::Key_Down);
    Respiro();
    QVERIFY(!Visore()->isVisible());
    QCOMPARE(QApplication::activeWindow(), F);
}

void TestSchedeInformative::maiApertoNonSiApre()
{
    Entra();
    TornaAllaNota();
    Premi(Qt::Key_Down);
    Respiro();
    QVERIFY(!Visore());
}

void TestSchedeInformative::unAltraPaginaResta()
{
    Entra();
    Aperture.PaginaWeb(ProgrammaDiProva() + u"SkIvaDiff.htm"_s, u"VDM - Scheda informativa Iva differita"_s);
    TornaAllaNota();
    Premi(Qt::Key_Down);
    QCOMPARE(FileInVista(), u"SkIvaDiff.htm"_s);
    QCOMPARE(Visore()->windowTitle(), u"VDM - Scheda informativa Iva differita"_s);
    // Asked for, the sheet takes its place, and from then on follows.
    Informa();
    QCOMPARE(FileInVista(), u"C002.htm"_s);
    TornaAllaNota();
    Premi(Qt::Key_Up);
    QCOMPARE(FileInVista(), u"C001.htm"_s);
}

/// A damaged installation is told when a sheet is asked for, not at each step.
void TestSchedeInformative::seguendoNonDiceNulla()
{
    Entra();
    ProgrammaCon({u"C001.htm"_s});
    Informa();
    TornaAllaNota();
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Down);
    QVERIFY(Visore()->isVisible());
    T->Voce.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Informa();
}

void TestSchedeInformative::inserendoLaSchedaResta()
{
    Entra();
    Informa();
    TornaAllaNota();
    Lista->ImpostaRigaCorrente(4);
    QCOMPARE(FileInVista(), u"C999.htm"_s);
    const int Prima = F->Nota.xOnorari.Righe();
    DoppioClic(Lista, 4);
    QCOMPARE(F->Nota.xOnorari.Righe(), Prima + 1);
    QCOMPARE(FileInVista(), u"C999.htm"_s);
    QCOMPARE(QApplication::activeWindow(), F);
}

void TestSchedeInformative::unCollegamentoNonLoFerma()
{
    Entra();
    Informa();
    QVERIFY(InVista()->Segui(InVista()->source().resolved(QUrl(u"S202.htm"_s))));
    QCOMPARE(FileInVista(), u"S202.htm"_s);
    TornaAllaNota();
    Premi(Qt::Key_Down);
    QCOMPARE(FileInVista(), u"C002.htm"_s);
}

#include "TestSchedeInformative.moc"
