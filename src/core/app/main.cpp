// Calcanova: fee notes and calculators for Italian law offices.
#include "core/app/altriavvii.h"
#include "core/app/avvio.h"
#include "core/app/programma.h"
#include "core/modInvii.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/aparte.h"
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
    const int Esito = QApplication::exec();
    FaiAParte(SpazzaInvii);
    // What the start has set going ends before the program is taken down; where a disk does not answer, the
    // program ends with everything standing that the work is still using.
    constexpr int PazienzaMs = 200;
    AttendiOFinisci(PazienzaMs, Esito);
    return Esito;
}
