// One cause, one report.
#pragma once

#include <QStringList>

/// While it lives, the same report is shown once: what one damaged file keeps from several readings in a row
/// is one thing to know. For work between two acts of the user; one inside another goes with the outer one.
class RapportiUnici
{
public:
    RapportiUnici();
    ~RapportiUnici();
    RapportiUnici(const RapportiUnici&) = delete;
    RapportiUnici& operator=(const RapportiUnici&) = delete;

private:
    QStringList Mostrati;
};
