// Calcanova: fee notes and calculators for Italian law offices.
#include "core/Main.h"
#include "core/apritori.h"
#include "core/modErrori.h"
#include "core/modFiltri.h"
#include "platform/aspetto.h"
#include "platform/campo.h"
#include "platform/collega.h"
#include "platform/servizi_qt.h"

#include <QTimer>

int main(int argc, char** argv)
{
    Applicazione Programma(argc, argv);
    // The end is asked for by name: a message closed before the first window must not be taken for it.
    QApplication::setQuitOnLastWindowClosed(false);
    aspetto::Prepara();
    InstallaServiziQt();
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    InstallaFiltro(FiltroTasti);
    RiempiApritori();
    QTimer::singleShot(0, &Programma, [] { Main(QCoreApplication::arguments().mid(1).join(u' ')); });
    return QApplication::exec();
}
