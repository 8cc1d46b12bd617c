#include "adapters/grid/pages/page_rows.h"

#include <algorithm>

namespace vmgv {

PageRows::PageRows(const GridEngine& engine, bool onlySelected)
    : all_(!onlySelected), count_(engine.rowCount()) {
  if (all_) return;
  for (std::int32_t position : engine.selection()) {
    // Rows that were taken already have their headers too.
    while (position > 0 && (positions_.empty() || position != positions_.back())) {
      positions_.push_back(position);
      position = engine.displayRow(position).parent;
    }
  }
  std::sort(positions_.begin(), positions_.end());
  positions_.erase(std::unique(positions_.begin(), positions_.end()), positions_.end());
  count_ = static_cast<std::int32_t>(positions_.size());
}

}  // namespace vmgv
