// How long the program waits for somebody else, in milliseconds. Nothing of the program changes these values;
// a test that makes somebody late shortens them while no other thread reads them.
#pragma once

namespace attese {

/// The start waits so long for the answer whether a folder is there.
inline int CartellaMs = 2000;

/// The databases opened from now on wait so long for a lock of somebody else.
inline int BlocchiMs = 3000;

/// A journal that does not fit its database is looked at again for so long before it is refused.
inline int GiornaleMs = 500;

/// A save waits so long for another program that saves under the same name.
inline int TurnoMs = 3000;

/// A change of a note may wait so long for its recovery copy.
inline int CopiaMs = 2000;

/// What opens a mail must stand so long for the mail to count as open: without a mail program it ends at
/// once.
inline int PostaMs = 10'000;

}  // namespace attese
