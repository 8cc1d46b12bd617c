// The rows that are printed: all that the grid displays, or the selected ones with the headers above them.
#pragma once

#include "adapters/grid/engine.h"

namespace vmgv {

class PageRows {
 public:
  PageRows(const GridEngine& engine, bool onlySelected);

  std::int32_t count() const noexcept { return count_; }
  std::int32_t position(std::int32_t row) const {  // in the grid, from 1; rows count from 0
    return all_ ? row + 1 : positions_[static_cast<std::size_t>(row)];
  }

 private:
  bool all_;
  std::vector<std::int32_t> positions_;  // of selected rows
  std::int32_t count_;
};

}  // namespace vmgv
