// How long tests at random are.
#pragma once

#include <QtGlobal>

/// How many random cases: a selection, or what CALCANOVA_CASI asks for.
inline int CasiAlCaso(int Normali)
{
    const int Chiesti = qEnvironmentVariableIntValue("CALCANOVA_CASI");
    return Chiesti > 0 ? Chiesti : Normali;
}
