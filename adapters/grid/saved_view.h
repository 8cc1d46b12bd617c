// A grid's view as text that a host keeps and restores later.
//
//   grid view 1
//   column "Category" width=120
//   column "Notes" hidden
//   sort "Date" descending
//   group "Category" ascending
//   condition "Large" column="Amount" operator=2 value1=Double:100 backColor=0xffff
//   preview "Notes"
//   set useEvenOddColor yes
//
// Columns stand from left to right and are named by their keys, so that a view outlives a change of the
// table.
#pragma once

#include <string>
#include <string_view>

#include "adapters/grid/engine.h"

namespace vmgv {

std::string savedView(const GridEngine& engine);

// One step to undo. What does not fit is left out, and told by line. Lines of columns that the grid does not
// have are kept for the next savedView(); columns that the text does not name come last. Settings that it
// does not name stay as they are. Error 5, and nothing changed, where the text is no saved view.
Problems restoreView(GridEngine& engine, std::string_view text);

}  // namespace vmgv
