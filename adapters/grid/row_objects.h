// Rows and the selection as late-bound objects.
#pragma once

#include "adapters/grid/grid_part.h"

namespace vmgv {

// The row that was at a position when it was asked for: RowType and Value(colIndex).
class RowObject final : public GridPart<RowObject> {
 public:
  RowObject(EngineRef engine, DisplayRow row) : GridPart(std::move(engine)), row_(row) {}
  static const ClassTable<RowObject>& table();

  void show(DisplayRow row) noexcept { row_ = row; }

 private:
  DisplayRow row_;
};

// Count and items 1 to Count with RowPosition.
ObjectRef makeSelectedItemsObject(EngineRef engine);

}  // namespace vmgv
