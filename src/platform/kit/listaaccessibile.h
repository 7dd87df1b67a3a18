// What a screen reader hears of a list: what it asks for, then what is chosen.
#pragma once

/// From now on lists (QComboBox) are named by their accessible name or label. The toolkit's own interface
/// names them by the chosen entry, which it gives as their value as well.
void InstallaListeAccessibili();
