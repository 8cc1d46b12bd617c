// The engine as the late-bound grid object that clients of the contract use.
#pragma once

#include <memory>

#include "adapters/grid/engine.h"

namespace vmgv {

// Every object reached from the grid keeps the engine alive. Beyond the contract there are
//   of the grid  Font, BackColor, ForeColor; Undo, Redo, CanUndo, CanRedo; SetExpanded(position, Boolean)
//   of a column  Width
//   of a row     GroupLevel (from 0), GroupText, RecordCount, Expanded; RowType is 1 for the header of a
//                group, 2 for its footer
//   of a condition  Name
//   of PrinterProperties  PaperWidth, PaperHeight (landscape paper is wider than high), LeftMargin,
//                TopMargin, RightMargin, BottomMargin, all in points
// HeaderString and FooterString have the positions 1 left, 2 centre, 3 right. The grid prints by the
// PrintPort that the engine has; PrintGrid prints what a preview shows while there is one, else all rows.
ObjectRef makeGridObject(std::shared_ptr<GridEngine> engine);

}  // namespace vmgv
