// The selected rows as what they are, so that they can be found again when positions have changed.
#pragma once

#include <cstdint>
#include <tuple>
#include <vector>

#include "adapters/grid/display_rows.h"

namespace vmgv {

class SelectedRows {
 public:
  SelectedRows(const DisplayRows& rows, const std::vector<std::int32_t>& positions);

  // Where they are now, ascending. What a collapsed group hides is left out, and headers and footers are
  // where other groups were made.
  std::vector<std::int32_t> positionsIn(const DisplayRows& rows) const;

 private:
  using GroupRow = std::tuple<std::int32_t, std::int32_t, std::uint32_t>;  // row type, level, group
  static GroupRow groupRow(const DisplayRow& row) { return {row.rowType, row.level, row.group}; }

  std::vector<bool> records_;        // by record; empty: none
  std::vector<GroupRow> groupRows_;  // sorted
  std::uint32_t grouping_;
};

}  // namespace vmgv
