// Calcanova: fee notes and calculators for Italian law offices.
#include "core/app/altriavvii.h"
#include "core/app/avvio.h"
#include "core/app/programma.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/diagnosi.h"
#include "platform/system/shell.h"

#include <QTimer>

int main(int argc, char** argv)
{
    TaciAiProgrammatori();
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    QTimer::singleShot(0, &Programma, [] {
        const QString Riga = QCoreApplication::arguments().mid(1).join(u' ');
        if (!ComeUnaSessione(Riga, [&Riga] { Main(Riga); }))
            Termina();
    });
    return QApplication::exec();
}
