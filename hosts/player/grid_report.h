// A grid's layout and rows as text, read late-bound from any grid.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "support/automation/value.h"

namespace vmgv {

// JSON; a member that the grid does not have or cannot read is null. Throws Error for one that fails.
std::string layoutJson(const ObjectRef& grid);

// Display rows `first` to `last`, one a line: the row's type, then the values of the visible columns in their
// display order, tab-separated; \t, \n, \r and \\ inside a value. Rows other than records leave out what they
// have no value for. Throws Error.
void writeRows(const ObjectRef& grid, std::int32_t first, std::int32_t last, std::ostream& out);

}  // namespace vmgv
