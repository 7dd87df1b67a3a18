// What a screen reader hears of a masked date.
#pragma once

/// From now on an empty mask is read as empty, and a begun date with its open places. The toolkit's own
/// interface reads the separators alone. Called more than once it does the same.
void RendiLeggibiliMaschere();
