// The windows of the calculators on small screens and with large letters: nothing is squeezed, what does not
// fit scrolls, what has the focus is in sight. What all have in common for the keyboard and the screen
// reader.
#include "tuttelecalcolatrici.h"

#include "calculators/windows/finestracalcolo.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

// 1366x768 at 200 % without the task bar, the title and the borders of a window.
constexpr QSize SchermoPiccolo(660, 300);

}  // namespace

class TestMisure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void staNelloSchermoPiccolo_data() { RigheCalcolatrici(); }
    void staNelloSchermoPiccolo();
    void lettereGrandi_data() { RigheCalcolatrici(); }
    void lettereGrandi();
    void cioCheSiMostraPrimaHaPosto();
    void unaBarraNonNeChiedeUnAltra();
    void iCampiCresconoConLeLettere();
    void laTabellaDegliInteressiIntera();
    void ilFuocoSiVede_data() { RigheCalcolatrici(); }
    void ilFuocoSiVede();
    void fuocoDallaTastiera_data() { RigheCalcolatrici(); }
    void fuocoDallaTastiera();
    void listeConNome_data() { RigheCalcolatrici(); }
    void listeConNome();

private:
    std::unique_ptr<Banco> B;
    QFont Carattere;
};
PROVA(TestMisure);

void TestMisure::init()
{
    Carattere = QApplication::font();
    B = std::make_unique<Banco>();
    B->ConTassi();
}

void TestMisure::cleanup()
{
    B.reset();
    QApplication::setFont(Carattere);
}

void TestMisure::staNelloSchermoPiccolo()
{
    QDialog* Finestra = QuestaCalcolatrice().Apri();
    QVERIFY(Finestra);
    const QSize Minima = Finestra->minimumSizeHint().expandedTo(Finestra->minimumSize());
    QVERIFY2(Minima.width() <= SchermoPiccolo.width() && Minima.height() <= SchermoPiccolo.height(),
             qPrintable(u"%1x%2"_s.arg(Minima.width()).arg(Minima.height())));
}

void TestMisure::lettereGrandi()
{
    QFont Grande = Carattere;
    Grande.setPointSize(14);
    QApplication::setFont(Grande);
    QDialog* Finestra = QuestaCalcolatrice().Apri();
    QVERIFY(Finestra);
    Finestra->resize(SchermoPiccolo);
    Respiro();
    for (const QWidget* Campo : Finestra->findChildren<QWidget*>()) {
        const bool Scritto = qobject_cast<const QLineEdit*>(Campo) || qobject_cast<const QComboBox*>(Campo) ||
                             qobject_cast<const QPushButton*>(Campo);
        if (Scritto && Campo->isVisible())
            QVERIFY2(Campo->height() >= Campo->minimumSizeHint().height(),
                     qPrintable(Campo->objectName() + u' ' + QString::number(Campo->height())));
    }
}

/// What a choice brings up before the window is shown counts for its size.
void TestMisure::cioCheSiMostraPrimaHaPosto()
{
    QDialog Modulo;
    Modulo.setObjectName(u"prova"_s);
    auto* Fuori = new QVBoxLayout(&Modulo);
    auto* Riquadro = new QFrame;
    auto* Dentro = new QVBoxLayout(Riquadro);
    Dentro->addWidget(new QLabel(u"sempre"_s));
    auto* Dopo = new QLabel(u"una\ndue\ntre\nquattro\ncinque\nsei\nsette\notto\nnove\ndieci"_s);
    Dopo->hide();
    Dentro->addWidget(Dopo);
    Fuori->addWidget(Riquadro);
    PreparaModulo(&Modulo, u"termini"_s);
    Modulo.setAttribute(Qt::WA_DeleteOnClose, false);
    const int Prima = Modulo.sizeHint().height();
    Dopo->show();
    (void)MostraModulo(&Modulo);
    Respiro();
    QVERIFY2(Modulo.height() > Prima, qPrintable(QString::number(Modulo.height())));
    QCOMPARE(Modulo.findChild<QScrollArea*>(u"areaScorrevole"_s)->verticalScrollBar()->maximum(), 0);
}

/// Where a content is higher than the screen its bar has room of its own.
void TestMisure::unaBarraNonNeChiedeUnAltra()
{
    QDialog* Finestra = Apri<frmCodFis>();
    const auto* Area = Finestra->findChild<QScrollArea*>(u"areaScorrevole"_s);
    const int Prima = Area->sizeHint().width();
    Controllo(Finestra, "txtLetto")->setMinimumHeight(Finestra->screen()->geometry().height());
    Respiro();
    QCOMPARE(Area->sizeHint().width(), Prima + Area->verticalScrollBar()->sizeHint().width());
}

/// A date is whole in letters of any size.
void TestMisure::iCampiCresconoConLeLettere()
{
    for (const int Corpo : {9, 10, 14, 18}) {
        QFont Lettere = Carattere;
        Lettere.setPointSize(Corpo);
        QApplication::setFont(Lettere);
        QDialog* Finestra = Apri<frmTermini>();
        for (const char* Nome : {"mskDecorr", "mskInizio"}) {
            const auto* Data = Controllo<MascheraData>(Finestra, Nome);
            QVERIFY2(Data->maximumWidth() >= Data->fontMetrics().horizontalAdvance(u"99/99/9999"_s) + 8,
                     qPrintable(QString::number(Corpo)));
        }
        Finestra->close();
        Respiro();
    }
}

/// No column of the summary is cut at the size of the window that comes up.
void TestMisure::laTabellaDegliInteressiIntera()
{
    QFont Lettere = Carattere;
    Lettere.setPointSize(14);
    QApplication::setFont(Lettere);
    QDialog* Finestra = Apri<frmInteressi>();
    Respiro();
    const auto* Tabella = Controllo<QWidget>(Finestra, "tdbInter")->findChild<QTableView*>();
    QVERIFY(Tabella->horizontalHeader()->length() > 0);
    QCOMPARE(Tabella->horizontalScrollBar()->maximum(), 0);
}

void TestMisure::ilFuocoSiVede()
{
    QDialog* Finestra = QuestaCalcolatrice().Apri();
    QVERIFY(Finestra);
    Finestra->resize(SchermoPiccolo);
    Respiro();
    auto* Area = Finestra->findChild<QScrollArea*>(u"areaScorrevole"_s);
    QVERIFY(Area);
    int Provati = 0;
    for (QWidget* Campo : Area->widget()->findChildren<QWidget*>()) {
        if (!Campo->isVisible() || !Campo->isEnabled() || !qobject_cast<QLineEdit*>(Campo))
            continue;
        Campo->setFocus(Qt::OtherFocusReason);
        const QRect Visto = Area->viewport()->rect();
        const QPoint Alto = Campo->mapTo(Area->viewport(), QPoint());
        QVERIFY2(Visto.contains(Alto) && Visto.contains(Alto + QPoint(0, Campo->height() - 1)),
                 qPrintable(Campo->objectName()));
        ++Provati;
    }
    QVERIFY(Provati > 0);
}

// The style outlines lists, ticks and options from the start, not from the first Tab on.
void TestMisure::fuocoDallaTastiera()
{
    const QDialog* Finestra = QuestaCalcolatrice().Apri();
    QVERIFY(Finestra);
    QVERIFY(Finestra->testAttribute(Qt::WA_KeyboardFocusChange));
}

void TestMisure::listeConNome()
{
    const QDialog* Finestra = QuestaCalcolatrice().Apri();
    QVERIFY(Finestra);
    for (QComboBox* Lista : Finestra->findChildren<QComboBox*>()) {
        auto* Letta = QAccessible::queryAccessibleInterface(Lista);
        QVERIFY(Letta);
        QVERIFY(!Lista->accessibleName().isEmpty());
        QCOMPARE(Letta->text(QAccessible::Name), Lista->accessibleName());
        QCOMPARE(Letta->text(QAccessible::Value), Lista->currentText());
        QVERIFY(Lista->accessibleName() != Lista->currentText());
    }
}

#include "TestMisure.moc"
