#include "calculators/norme/pasqua.h"

// The Gregorian rule as it is commonly computed: golden number, century, epact with its two corrections, and
// from the full moon the Sunday behind it. Easter Monday is the next day.
QDate LunediDellAngelo(int Anno)
{
    const int Aureo = Anno % 19;
    const int Secolo = Anno / 100;
    const int NelSecolo = Anno % 100;
    const int Luna = (Secolo + 8) / 25;
    const int Sole = (Secolo - Luna + 1) / 3;
    const int Plenilunio = (19 * Aureo + Secolo - Secolo / 4 - Sole + 15) % 30;
    const int FinoADomenica = (32 + 2 * (Secolo % 4) + 2 * (NelSecolo / 4) - Plenilunio - NelSecolo % 4) % 7;
    const int Corretto = (Aureo + 11 * Plenilunio + 22 * FinoADomenica) / 451;
    const int Posto = Plenilunio + FinoADomenica - 7 * Corretto + 114;
    return QDate(Anno, Posto / 31, Posto % 31 + 1).addDays(1);
}
