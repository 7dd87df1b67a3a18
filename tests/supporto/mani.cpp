#include "supporto/mani.h"

#include "platform/grid/griglia.h"
#include "platform/kit/mascheradata.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

bool DiQt(const QWidget* Parte)
{
    return Parte->objectName().startsWith(u"qt_");
}

/// What a window manager does when the list that dropped down has closed.
void TornaAttiva(QComboBox* Lista)
{
    Respiro();
    QApplication::setActiveWindow(Lista->window());
    QVERIFY(QTest::qWaitForWindowActive(Lista->window()));
}

}  // namespace

QString TestoDi(const QWidget* Finestra, const char* Nome)
{
    const auto* Trovato = Controllo(Finestra, Nome);
    if (const auto* Etichetta = qobject_cast<const QLabel*>(Trovato))
        return Etichetta->text();
    if (const auto* Data = qobject_cast<const MascheraData*>(Trovato))
        return Data->Testo();
    const auto* Riga = qobject_cast<const QLineEdit*>(Trovato);
    return Riga ? Riga->text() : QString();
}

QStringList SenzaDidascalia(const QWidget* Finestra, QStringList Attese)
{
    const auto Vista = [&Attese](QString Testo) { Attese.removeAll(Testo.remove(u'&')); };
    for (const auto* Etichetta : Finestra->findChildren<QLabel*>())
        Vista(Etichetta->text());
    for (const auto* Bottone : Finestra->findChildren<QAbstractButton*>())
        Vista(Bottone->text());
    for (const auto* Gruppo : Finestra->findChildren<QGroupBox*>())
        Vista(Gruppo->title());
    for (const auto* Voce : Finestra->findChildren<QAction*>())
        Vista(Voce->text());
    return Attese;
}

QStringList SenzaNome(const QWidget* Finestra)
{
    QStringList Trovati;
    for (const QWidget* Parte : Finestra->findChildren<QWidget*>()) {
        if (qobject_cast<const QTableView*>(Parte->parentWidget()))
            continue;  // parts of a grid that nothing reaches
        const bool Comando =
            Parte->focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(Parte);
        if (Comando && Parte->accessibleName().isEmpty() && !DiQt(Parte))
            Trovati << QString::fromLatin1(Parte->metaObject()->className()) + u' ' + Parte->objectName();
    }
    return Trovati;
}

QString NomeFuoco()
{
    for (const QWidget* Parte = QApplication::focusWidget(); Parte; Parte = Parte->parentWidget())
        if (!Parte->objectName().isEmpty() && !DiQt(Parte))
            return Parte->objectName();
    return {};
}

QStringList OrdineTab(QWidget* Primo, int Quanti)
{
    Primo->setFocus();
    QStringList Incontrati;
    for (int i = 0; i < Quanti; ++i) {
        Incontrati << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    return Incontrati;
}

QString Appunti()
{
    return QApplication::clipboard()->text();
}

void Clic(QWidget* Bottone)
{
    QVERIFY2(Bottone->isVisible(), qPrintable(Bottone->objectName()));
    constexpr int Segno = 8;
    const bool ConSegno = qobject_cast<QRadioButton*>(Bottone) || qobject_cast<QCheckBox*>(Bottone);
    const QPoint Dove = ConSegno ? QPoint(Segno, Bottone->height() / 2) : Bottone->rect().center();
    QTest::mouseClick(Bottone, Qt::LeftButton, Qt::NoModifier, Dove);
}

void DalMenu(const QWidget* Finestra, const char* Nome)
{
    auto* Entrata = Finestra->findChild<QAction*>(QString::fromLatin1(Nome));
    QVERIFY2(Entrata, Nome);
    Entrata->trigger();
}

void CopiaConTasti()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
}

void Scegli(QComboBox* Lista, int Indice)
{
    Lista->setFocus();
    Lista->showPopup();
    Lista->view()->scrollTo(Lista->model()->index(Indice, 0));
    const QPoint Dove = Lista->view()->visualRect(Lista->model()->index(Indice, 0)).center();
    QTest::mouseMove(Lista->view()->viewport(), Dove);
    QTest::mouseClick(Lista->view()->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
    TornaAttiva(Lista);
}

void ScegliDaTastiera(QComboBox* Lista, int Indice)
{
    Lista->setFocus();
    Lista->showPopup();
    QTest::keyClick(Lista->view(), Qt::Key_Home);
    for (int i = 0; i < Indice; ++i)
        QTest::keyClick(Lista->view(), Qt::Key_Down);
    QTest::keyClick(Lista->view(), Qt::Key_Return);
    TornaAttiva(Lista);
}

void ScegliConFrecce(QComboBox* Lista, int Indice)
{
    Lista->setFocus();
    for (int Passi = Lista->count(); Lista->currentIndex() != Indice && Passi > 0; --Passi)
        Premi(Lista->currentIndex() < Indice ? Qt::Key_Down : Qt::Key_Up);
    QCOMPARE(Lista->currentIndex(), Indice);
}

void Scrivi(QLineEdit* Box, const QString& Testo)
{
    Box->setFocus();
    Box->selectAll();
    if (Testo.isEmpty())
        Premi(Qt::Key_Delete);
    else
        Digita(Testo);
}

void Scrivi(const QWidget* Finestra, const char* Nome, const QString& Testo)
{
    Scrivi(Controllo<QLineEdit>(Finestra, Nome), Testo);
}

void Incolla(QLineEdit* Box, const QString& Testo)
{
    QApplication::clipboard()->setText(Testo);
    Box->setFocus();
    Box->selectAll();
    Box->paste();
}

QPoint CentroCella(const Griglia* Righe, int Riga, int Colonna)
{
    const QTableView* Vista = Righe->Vista();
    return Vista->visualRect(Vista->model()->index(Riga, Colonna)).center();
}

void ClicCella(const Griglia* Righe, int Riga, int Colonna)
{
    QTest::mouseClick(Righe->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      CentroCella(Righe, Riga, Colonna));
}

void DoppioClic(const Griglia* Righe, int Riga)
{
    ClicCella(Righe, Riga, 0);  // the second click alone is what the next line sends
    QTest::mouseDClick(Righe->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       CentroCella(Righe, Riga, 0));
    Respiro();
}

QLineEdit* LaCella(const Griglia* Righe)
{
    return Righe->Vista()->viewport()->findChild<QLineEdit*>(u"cella"_s);
}

void ScriviCella(Griglia* Righe, int Riga, int Colonna, const QString& Testo)
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(Riga, Colonna);
    Digita(Testo);
    Premi(Qt::Key_Return);
    Respiro();
}

void Chiudi(QWidget* Finestra)
{
    Finestra->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TrascinaCon(QWidget* Dove, QPoint Da, QPoint A)
{
    constexpr int Passi = 4;
    QTest::mousePress(Dove, Qt::LeftButton, Qt::NoModifier, Da);
    for (int i = 1; i <= Passi; ++i)
        QTest::mouseMove(Dove, Da + (A - Da) * i / Passi);
    QTest::mouseRelease(Dove, Qt::LeftButton, Qt::NoModifier, A);
    Respiro();
}
