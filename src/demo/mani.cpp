#include "demo/mani.h"

#include "platform/base/errore.h"
#include "platform/grid/griglia.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace mani {
namespace {

void Manda(int Tasto, const QString& Testo)
{
    for (const QEvent::Type Tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* Campo = QApplication::focusWidget();
        if (!Campo)
            Ferma(u"nessun campo ha il fuoco"_s);
        QKeyEvent Evento(Tipo, Tasto, Qt::NoModifier, Testo);
        QCoreApplication::sendEvent(Campo, &Evento);
    }
}

QPoint CentroCella(const Griglia& Righe, int Riga, int Colonna)
{
    const QTableView* Vista = Righe.Vista();
    return Vista->visualRect(Vista->model()->index(Riga, Colonna)).center();
}

}  // namespace

void Ferma(const QString& Perche)
{
    constexpr int Imprevisto = 1000;
    throw Errore(Imprevisto, Perche);
}

void Lascia()
{
    // A page shown for the first time finds the places of its controls step by step.
    constexpr int Passi = 5;
    for (int i = 0; i < Passi; ++i)
        QCoreApplication::processEvents();
}

void Attiva(QWidget& Finestra)
{
    Finestra.show();
    Finestra.raise();
    QApplication::setActiveWindow(&Finestra);
    if (!QTest::qWaitForWindowActive(&Finestra))
        Ferma(u"la finestra \"%1\" non passa in primo piano"_s.arg(Finestra.windowTitle()));
    Lascia();
}

void Clic(QWidget& Bottone, QPoint Dove)
{
    if (!Bottone.isVisible() || !Bottone.isEnabled())
        Ferma(u"%1 non si può premere"_s.arg(Bottone.objectName()));
    QTest::mouseClick(&Bottone, Qt::LeftButton, Qt::NoModifier, Dove);
    Lascia();
}

void Clic(QWidget& Bottone)
{
    constexpr int Segno = 8;
    const bool ConSegno = qobject_cast<QRadioButton*>(&Bottone) || qobject_cast<QCheckBox*>(&Bottone);
    Clic(Bottone, ConSegno ? QPoint(Segno, Bottone.height() / 2) : Bottone.rect().center());
}

void Digita(const QString& Testo)
{
    for (const QChar Lettera : Testo)
        Manda(Lettera.toUpper().unicode(), Lettera);
}

void Premi(Qt::Key Tasto)
{
    Manda(Tasto, Tasto == Qt::Key_Return ? u"\r"_s : QString());
    Lascia();
}

void Scrivi(QLineEdit& Box, const QString& Testo)
{
    Box.setFocus();
    Box.selectAll();
    Digita(Testo);
    Premi(Qt::Key_Tab);
}

void Scegli(QComboBox& Lista, const QString& Voce)
{
    const int Indice = Lista.findText(Voce);
    if (Indice < 0)
        Ferma(u"%1 non ha la voce \"%2\""_s.arg(Lista.objectName(), Voce));
    Lista.setFocus();
    Lista.showPopup();
    Lascia();
    QAbstractItemView* Tendina = Lista.view();
    Tendina->scrollTo(Lista.model()->index(Indice, 0));
    const QPoint Dove = Tendina->visualRect(Lista.model()->index(Indice, 0)).center();
    QTest::mouseMove(Tendina->viewport(), Dove);
    QTest::mouseClick(Tendina->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
    Lascia();
    Attiva(*Lista.window());
}

void ClicCella(const Griglia& Righe, int Riga, int Colonna)
{
    QTest::mouseClick(Righe.Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      CentroCella(Righe, Riga, Colonna));
    Lascia();
}

void DoppioClic(const Griglia& Righe, int Riga)
{
    ClicCella(Righe, Riga, 0);  // the second click alone is what the next line sends
    QTest::mouseDClick(Righe.Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       CentroCella(Righe, Riga, 0));
    Lascia();
}

void ScriviCella(Griglia& Righe, int Riga, int Colonna, const QString& Testo)
{
    Righe.setFocus();
    Righe.ImpostaRigaCorrente(Riga, Colonna);
    Digita(Testo);
    Premi(Qt::Key_Return);
}

}  // namespace mani
