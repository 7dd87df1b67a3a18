// Calcanova: fee notes and calculators for Italian law offices.
#include "core/app/avvio.h"
#include "core/app/programma.h"
#include "platform/kit/servizi_qt.h"

#include <QTimer>

int main(int argc, char** argv)
{
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    QTimer::singleShot(0, &Programma, [] { Main(QCoreApplication::arguments().mid(1).join(u' ')); });
    return QApplication::exec();
}
