// The one door to the time, so that tests and the demo can fix it.
#pragma once

#include <QDate>
#include <QDateTime>

#include <functional>

[[nodiscard]] QDate Oggi();
[[nodiscard]] QDateTime Adesso();

/// Replaces the source of time; an empty function brings back the system's. Returns the former one.
std::function<QDateTime()> InstallaOrologio(std::function<QDateTime()> Nuovo);
