// What has become of the settings since they were last stored whole, beyond the run that has seen it: what is
// advised is to take the damaged file away and to start anew, and then nothing else tells of it.
#pragma once

#include "platform/system/impostazioni.h"

/// From bad to worse.
enum class DannoImpostazioni {
    Nessuno,
    FuoriPortata,  ///< they could not be read: nothing is lost if they come back
    Perse,         ///< they were read, and something of them is gone
};

/// What a damaged store means for what it held.
[[nodiscard]] DannoImpostazioni DannoDi(const DepositoGuasto& Guasto);

/// What this run or one before it has noted, until the settings are stored again.
[[nodiscard]] DannoImpostazioni DannoRicordato();

/// Whether a damage was noted, the store is sound again and does not hold this counter: nobody knows which
/// number the office has come to before its settings are looked through and stored. What only could not be
/// read, and is back with what an office has stored, has lost nothing, were it a number that it never had.
[[nodiscard]] bool ContatorePerso(QStringView Chiave);

/// Notes a damage in a small file beside the settings, never a lighter one in the place of a heavier one.
/// Where nothing can be written there it is not noted: nor can settings be stored then.
void RicordaDanno(const DepositoGuasto& Guasto);

/// Notes the damage that the store has at this moment: whoever tells of it does, since the user may take the
/// file away upon it and start anew.
/// @return its sentence, empty for a sound store
[[nodiscard]] QString FraseDelDannoRicordato();

/// What only could not be read is back with the name of the office: there is nothing to note any more. For a sound
/// store; a heavier damage stays noted.
void DimenticaDannoPassato();

/// The settings were looked through and stored.
void DimenticaDanno();
