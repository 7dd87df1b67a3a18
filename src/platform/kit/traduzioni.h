// The toolkit's own words in Italian.
#pragma once

/// From now on the toolkit's dialogs, menus and buttons speak Italian, also where its translation has gaps.
void InstallaTraduzioni();
