// A cell that the program opens for the user, and what is said over a column.
#include "platform/grid/griglia.h"
#include "supporto/finestre.h"
#include "supporto/mani.h"
#include "supporto/prova.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTableView>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Finestra : QWidget
{
    Finestra() : Righe(3), Grid(new Griglia(this)), Altrove(new QLineEdit(this))
    {
        QList<ColonnaGriglia> Colonne(3);
        for (int i = 0; i < Colonne.size(); ++i) {
            Colonne[i].Titolo = u"Colonna %1"_s.arg(i);
            Colonne[i].Campo = i;
            Colonne[i].Modificabile = i != 2;
        }
        Colonne[1].Spiegazione = u"Che cosa è"_s;
        Grid->ImpostaColonne(Colonne);
        Grid->Lega(&Righe);
        for (int i = 0; i < 60; ++i)
            Righe(Righe.AggiungiRiga(), 1) = u"voce %1"_s.arg(i);
        Grid->Rilega();
        Grid->ConsentiComandi(true);
        auto* Disposizione = new QVBoxLayout(this);
        Disposizione->addWidget(Grid);
        Disposizione->addWidget(Altrove);
        resize(400, 300);
    }

    TabellaRighe Righe;
    Griglia* Grid;
    QLineEdit* Altrove;
};

}  // namespace

class TestCellaOfferta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { F.reset(); }
    void siApreColTestoScelto();
    void vieneInVista();
    void unaCellaApertaSiScrivePrima();
    void unaCheRifiutaResta();
    void dueCelleNonSonoScrivibili();
    void ctrlZVaAllaGriglia();
    void ctrlZDellaCellaApertaDallUtente();
    void laSpiegazione();

private:
    std::unique_ptr<Finestra> F;
    QList<ComandoRighe> Comandi;
};
PROVA(TestCellaOfferta);

void TestCellaOfferta::init()
{
    F = std::make_unique<Finestra>();
    Comandi.clear();
    QObject::connect(F->Grid, &Griglia::Comando, F->Grid, [this](ComandoRighe Quale) { Comandi << Quale; });
    QVERIFY(MostraAttiva(*F));
    F->Altrove->setFocus();
}

void TestCellaOfferta::siApreColTestoScelto()
{
    F->Grid->ApriCella(2, 1);
    QVERIFY(F->Grid->InModifica());
    QCOMPARE(F->Grid->RigaCorrente(), std::optional(2));
    QCOMPARE(F->Grid->ColonnaCorrente(), 1);
    QCOMPARE(QApplication::focusWidget(), LaCella(F->Grid));
    QCOMPARE(LaCella(F->Grid)->selectedText(), u"voce 2"_s);
    Digita(u"nuova"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(2, 1).toString(), u"nuova"_s);
}

void TestCellaOfferta::vieneInVista()
{
    F->Grid->ApriCella(55, 1);
    QVERIFY(F->Grid->Vista()->viewport()->rect().contains(LaCella(F->Grid)->geometry().center()));
    QVERIFY(LaCella(F->Grid)->isVisible());
}

void TestCellaOfferta::unaCellaApertaSiScrivePrima()
{
    F->Grid->ApriCella(0, 1);
    Digita(u"a"_s);
    F->Grid->ApriCella(1, 1);
    QCOMPARE(F->Righe(0, 1).toString(), u"a"_s);
    QCOMPARE(LaCella(F->Grid)->text(), u"voce 1"_s);
}

void TestCellaOfferta::unaCheRifiutaResta()
{
    QList<ColonnaGriglia> Colonne = F->Grid->Colonne();
    Colonne[1].Convalida = [](int, const QString& Testo) { return Testo != u"no"; };
    F->Grid->ImpostaColonne(Colonne);
    F->Grid->ApriCella(0, 1);
    Digita(u"no"_s);
    F->Grid->ApriCella(1, 1);
    QCOMPARE(F->Grid->RigaCorrente(), std::optional(0));
    QCOMPARE(LaCella(F->Grid)->text(), u"no"_s);
    F->Grid->ImpostaColonne({});
}

void TestCellaOfferta::dueCelleNonSonoScrivibili()
{
    F->Grid->ApriCella(1, 2);
    QVERIFY(!F->Grid->InModifica());
    QCOMPARE(F->Grid->RigaCorrente(), std::optional(1));
    QCOMPARE(QApplication::focusWidget(), F->Grid->Vista());
}

/// The step to be taken back is the one that has opened it; letters of the cell go first.
void TestCellaOfferta::ctrlZVaAllaGriglia()
{
    F->Grid->ApriCella(0, 1);
    Digita(u"x"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(F->Grid->InModifica());
    QCOMPARE(LaCella(F->Grid)->text(), u"voce 0"_s);
    QVERIFY(Comandi.isEmpty());
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!F->Grid->InModifica());
    QCOMPARE(Comandi, QList{ComandoRighe::Annulla});
    QCOMPARE(F->Righe(0, 1).toString(), u"voce 0"_s);
}

void TestCellaOfferta::ctrlZDellaCellaApertaDallUtente()
{
    F->Grid->ApriCella(0, 1);
    Premi(Qt::Key_Escape);
    F->Grid->ImpostaRigaCorrente(1, 1);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(F->Grid->InModifica());
    QVERIFY(Comandi.isEmpty());
}

void TestCellaOfferta::laSpiegazione()
{
    QHeaderView* Testata = F->Grid->Vista()->horizontalHeader();
    const QPoint Punto(Testata->sectionViewportPosition(1) + 4, Testata->height() / 2);
    QHelpEvent Evento(QEvent::ToolTip, Punto, Testata->viewport()->mapToGlobal(Punto));
    QCoreApplication::sendEvent(Testata->viewport(), &Evento);
    QCOMPARE(QToolTip::text(), u"Che cosa è"_s);
    const QAbstractItemModel* Modello = F->Grid->Vista()->model();
    QCOMPARE(Modello->headerData(1, Qt::Horizontal, Qt::AccessibleDescriptionRole),
             QVariant(u"Che cosa è"_s));
    QCOMPARE(Modello->headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(), QString());
    F->Grid->ApriCella(0, 1);
    QCOMPARE(LaCella(F->Grid)->toolTip(), u"Che cosa è"_s);
    QCOMPARE(LaCella(F->Grid)->accessibleDescription(), u"Che cosa è"_s);
    F->Grid->ApriCella(0, 0);
    QCOMPARE(LaCella(F->Grid)->toolTip(), QString());
}

#include "TestCellaOfferta.moc"
