// The lists of the window by keyboard and wheel: what acts, when, and where the focus stays.
#include "feenote/modParametri.h"
#include "tavolo.h"

#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

/// An authority behind the chosen one that may take its place; 0 when there is none.
int AltraCompatibile(const Parcella& Nota)
{
    for (int i = Nota.cmbAutor + 1; i < int(Nota.ListaAutorita.size()); ++i) {
        Parcella Provata = Nota;
        Provata.cmbAutor = i;
        if (Nota.ListaAutorita[i].IDAut != Nota.IDAutSelezionata() && CheckAutorCompatib(Provata))
            return i;
    }
    return 0;
}

}  // namespace

class TestListe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laRotellaNonCambiaIParametri();
    void conLeRigheLeFrecceAspettano_data();
    void conLeRigheLeFrecceAspettano();
    void conLeRigheAndataERitornoDelSegno();
    void conLeRigheLaListaApertaAgisceSubito();
    void senzaRigheOgniPassoAgisce();
    void iDocumentiSiScorronoConLeFrecce();
    void invioPassaOltre();
    void invioNellaListaApertaSceglie();
    void leLettereSulCatalogoSiCercano();

private:
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestListe);

void TestListe::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
}

void TestListe::cleanup()
{
    T.reset();
}

void TestListe::laRotellaNonCambiaIParametri()
{
    F->resize(500, 260);  // the page has to scroll
    Respiro();
    auto* Pagina = qobject_cast<QScrollArea*>(PaginaIn(F));
    QVERIFY(Pagina && Pagina->verticalScrollBar()->maximum() > 0);
    const auto Parametri = [&] {
        return QList<int>{F->Nota.cmbCateg, F->Nota.cmbAutor, F->Nota.cmbValore, F->Nota.cmbAumRid};
    };
    const QList<int> Prima = Parametri();
    for (const char* Nome : {"cmbCateg", "cmbAutor", "cmbValore", "cmbAumRid"}) {
        Pagina->verticalScrollBar()->setValue(0);
        Rotella(Controllo(F, Nome));
        QCOMPARE(Parametri(), Prima);
        QVERIFY2(Pagina->verticalScrollBar()->value() > 0, Nome);
    }
}

void TestListe::conLeRigheLeFrecceAspettano_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::newRow("confermata, resta") << int(vbYes);
    QTest::newRow("rifiutata, torna quella di prima") << int(vbNo);
}

/// No step on the way asks anything; leaving the list asks, once, about the entry that the steps have led to.
void TestListe::conLeRigheLeFrecceAspettano()
{
    QFETCH(int, Risposta);
    RigaOnorario(F->Nota, u"voce"_s, 100.0, 1, 1);
    F->Nota.RicalcoloNecessario = false;
    F->MostraTutto();
    auto* Autorita = Controllo<QComboBox>(F, "cmbAutor");
    const int Prima = F->Nota.cmbAutor;
    const int Cercata = AltraCompatibile(F->Nota);
    QVERIFY(Cercata > 0);
    Autorita->setFocus();
    Premi(Qt::Key_Home);
    for (int i = 0; i < Cercata; ++i) {
        QCOMPARE(F->Nota.cmbAutor, Prima);
        Premi(Qt::Key_Down);
    }
    QCOMPARE(Autorita->currentIndex(), Cercata);
    QCOMPARE(F->Nota.cmbAutor, Prima);
    QVERIFY(T->Voce.Mostrati().isEmpty());

    T->Voce.Attendi(
        u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi parametri.\nConfermi la modifica?"_s,
        Risposta);
    Premi(Qt::Key_Tab);
    Respiro();
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    QCOMPARE(F->Nota.cmbAutor, Risposta == vbYes ? Cercata : Prima);
    QCOMPARE(Autorita->currentIndex(), F->Nota.cmbAutor);
    QCOMPARE(F->Nota.RicalcoloNecessario, Risposta == vbYes);
    Autorita->setFocus();
    Premi(Qt::Key_Tab);
    QCOMPARE(T->Voce.Mostrati().size(), 1);  // left again with nothing chosen meanwhile
}

/// A step there and a step back have changed nothing when the list is left.
void TestListe::conLeRigheAndataERitornoDelSegno()
{
    RigaOnorario(F->Nota, u"voce"_s, 100.0, 1, 1);
    F->Nota.RicalcoloNecessario = false;
    F->SetModificata(false);
    F->MostraTutto();
    auto* Segno = Controllo<QComboBox>(F, "cmbAumRid");
    QVERIFY(Segno->isEnabled());
    Segno->setFocus();
    Premi(Qt::Key_Home);
    const int Prima = F->Nota.cmbAumRid;
    Premi(Qt::Key_Down);
    QCOMPARE(F->Nota.cmbAumRid, Prima);
    Premi(Qt::Key_Up);
    Premi(Qt::Key_Tab);
    QVERIFY(!F->Nota.RicalcoloNecessario);
}

void TestListe::conLeRigheLaListaApertaAgisceSubito()
{
    RigaOnorario(F->Nota, u"voce"_s, 100.0, 1, 1);
    F->MostraTutto();
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    QCOMPARE(F->Nota.cmbCateg, int(CategPenale));
}

void TestListe::senzaRigheOgniPassoAgisce()
{
    auto* Categoria = Controllo<QComboBox>(F, "cmbCateg");
    Categoria->setFocus();
    Premi(Qt::Key_Down);
    QCOMPARE(F->Nota.cmbCateg, Categoria->currentIndex());
    QVERIFY(F->Nota.cmbCateg != int(CategCivile));
}

void TestListe::iDocumentiSiScorronoConLeFrecce()
{
    ClicScheda(F, SchedaDiStampa);
    auto* Documento = Controllo<QComboBox>(F, "cmbTipoStampa");
    Documento->setFocus();
    Premi(Qt::Key_Down);
    const int Primo = F->Nota.cmbTipoStampa;
    Premi(Qt::Key_Down);
    QCOMPARE(F->Nota.cmbTipoStampa, Primo + 1);
    QVERIFY2(Documento->hasFocus(), "il fuoco resta nella lista");
    Scegli(Documento, Primo);
    QVERIFY2(!Documento->hasFocus(), "scelto, va alla pagina");
}

/// From the boxes, the lists and the options of the first page; a list that waits acts by it.
void TestListe::invioPassaOltre()
{
    RigaOnorario(F->Nota, u"voce"_s, 100.0, 1, 1);
    F->MostraTutto();
    T->Voce.Tollera();  // what the authority itself has to say is another matter
    Controllo(F, "txtCliente")->setFocus();
    QStringList Fermate;
    for (int i = 0; i < 9; ++i) {
        Premi(i % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
        Respiro();
        Fermate += QApplication::focusWidget()->objectName();
    }
    QCOMPARE(
        Fermate.join(u' '),
        u"txtControp txtOggetto cmbCateg cmbAutor cmbValore txtImporto optAumRid_5 cmbAumRid txtAumRid"_s);
    QVERIFY(T->Voce.Mostrati().isEmpty());
    auto* Categoria = Controllo<QComboBox>(F, "cmbCateg");
    Categoria->setFocus();
    Premi(Qt::Key_Down);
    QVERIFY2(F->Nota.cmbCateg == int(CategCivile), "per via non si agisce");
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.cmbCateg, Categoria->currentIndex());
    QVERIFY(F->Nota.cmbCateg != int(CategCivile));
}

void TestListe::invioNellaListaApertaSceglie()
{
    auto* Categoria = Controllo<QComboBox>(F, "cmbCateg");
    Categoria->setFocus();
    Categoria->showPopup();
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(F->Nota.cmbCateg != int(CategCivile));
    QVERIFY2(F->focusWidget() == Categoria, "l'Invio era della lista aperta");
}

void TestListe::leLettereSulCatalogoSiCercano()
{
    ClicScheda(F, SchedaListaOnorari);
    auto* Lista = Controllo<Griglia>(F, "tdbListaOno");
    auto* Cerca = Controllo<QLineEdit>(F, "txtCercaOno");
    Cerca->setText(u"di prima"_s);
    Lista->setFocus();
    Digita(u"decisò"_s);
    QVERIFY(Cerca->hasFocus());
    QCOMPARE(Cerca->text(), u"decisò"_s);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Lista->RigaCorrente(), std::optional(3));
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Space);
    QVERIFY2(Lista->isAncestorOf(QApplication::focusWidget()), "uno spazio non comincia una ricerca");
    QCOMPARE(Cerca->text(), u"decis"_s);
}

#include "TestListe.moc"
