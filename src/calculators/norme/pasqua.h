// The one holiday that moves.
#pragma once

#include <QDate>

/// Easter Monday by the church's calendar (Gregorian), for any year from 1583 to 9999.
[[nodiscard]] QDate LunediDellAngelo(int Anno);
