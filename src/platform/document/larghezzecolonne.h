// The widths that the columns of a table have on paper.
#pragma once

#include <span>
#include <vector>

/// Fits columns into the room. Lengths in any one unit.
///
/// Columns wider than the room together are made narrower in proportion. A column that is narrower than it
/// needs then grows: first into the room left over, then at the cost of those that have more than they need,
/// which keep at least two fifths of their width. What is still missing is missing to all in proportion.
///
/// @param Chieste    widths asked for, 0 or more
/// @param Necessarie least width of each column, 0 where its text may be broken
[[nodiscard]] std::vector<double> LarghezzeColonne(std::span<const double> Chieste,
                                                   std::span<const double> Necessarie, double Spazio);
