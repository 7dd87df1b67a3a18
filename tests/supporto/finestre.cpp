#include "supporto/finestre.h"

#include <QApplication>
#include <QTest>

namespace {

void Manda(int Tasto, Qt::KeyboardModifiers Modificatori, const QString& Testo)
{
    for (const QEvent::Type Tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* Campo = QApplication::focusWidget();
        if (!Campo) {
            QTest::qFail("nessun campo ha il fuoco", __FILE__, __LINE__);
            return;
        }
        QKeyEvent Evento(Tipo, Tasto, Modificatori, Testo);
        QCoreApplication::sendEvent(Campo, &Evento);
    }
}

}  // namespace

bool MostraAttiva(QWidget& Finestra)
{
    Finestra.show();
    QApplication::setActiveWindow(&Finestra);
    return QTest::qWaitForWindowActive(&Finestra);
}

void Digita(const QString& Testo, Qt::KeyboardModifiers Modificatori)
{
    for (const QChar Lettera : Testo)
        Manda(Lettera.toUpper().unicode(), Modificatori, Lettera);
}

void Premi(Qt::Key Tasto, Qt::KeyboardModifiers Modificatori)
{
    Manda(Tasto, Modificatori, Tasto == Qt::Key_Return ? QStringLiteral("\r") : QString());
}

void Respiro()
{
    QCoreApplication::processEvents();
}
