// The real program without a screen, its windows driven by the pilot, in a home of its own.
#pragma once

#include "vittima.h"

#include "supporto/prova.h"

/// Tells the victim what the pilot does, and where it counts.
inline void ConPilota(Vittima& Chi, const QString& Conto, const QString& Compito)
{
    Chi.Con(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    Chi.Con(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_PILOTA));
    Chi.Con(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("pilota"));
    Chi.Con(QStringLiteral("CALCANOVA_PILOTA"), Conto);
    Chi.Con(QStringLiteral("CALCANOVA_PILOTA_FA"), Compito);
    Chi.Con(QStringLiteral("TMPDIR"), CartellaDiProva());
}

/// The same for an act of which each call is counted: settings and data are those of the folder In.
inline void ConPilotaIn(Vittima& Chi, const QString& In, const QString& Compito)
{
    ConPilota(Chi, In + QStringLiteral("conto"), Compito);
    Chi.Con(QStringLiteral("MORTE_POI"), QStringLiteral("1"));
    Chi.Con(QStringLiteral("XDG_CONFIG_HOME"), In.chopped(1));
    Chi.Con(QStringLiteral("XDG_DATA_HOME"), In + QStringLiteral("dati"));
    Chi.Con(QStringLiteral("XDG_RUNTIME_DIR"), In + QStringLiteral("nessuna/sessione"));
}
