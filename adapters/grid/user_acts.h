// What a user's hand does to columns and groups, each act one change of the view.
#pragma once

#include <cstddef>
#include <cstdint>

#include "adapters/grid/engine.h"

namespace vmgv {

// A click on a header: sorts by this column alone or, where `further`, as one more level; what it is sorted
// or grouped by already is reversed.
void sortBy(GridEngine& engine, std::int32_t column, bool further);

// Makes the column a group at `level` (from 0; beyond the last: the innermost), or moves it there.
void groupBy(GridEngine& engine, std::int32_t column, std::size_t level);
void ungroup(GridEngine& engine, std::int32_t column);
void reverseGroup(GridEngine& engine, std::int32_t column);
bool isGrouped(const GridEngine& engine, std::int32_t column);

// Past its visible neighbour on the left (-1) or right (1); nothing where there is none.
void moveColumn(GridEngine& engine, std::int32_t column, int step);

}  // namespace vmgv
