// The grid's columns in the order in which they are displayed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/automation/object.h"

namespace vmgv {

struct ColumnRecord {
  std::string key;
  std::int16_t index = 0;  // in the grid's collection
  std::int16_t colPosition = 0;
  bool visible = false;
};

// One record a column, by ascending position; columns of equal position stay in collection order.
// Throws what the grid throws.
std::vector<ColumnRecord> columnOrder(const ObjectRef& grid);

}  // namespace vmgv
