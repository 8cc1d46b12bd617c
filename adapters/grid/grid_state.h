// The view of a grid as one value, and the values that it had before: undo and redo.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "adapters/grid/grid_layout.h"

namespace vmgv {

// All that a user changes about a view, but no rows, no selection and nothing of which groups are collapsed.
struct GridState {
  struct Column {  // its place is that in the list
    std::int32_t index = 0;
    bool visible = true;
    std::int32_t width = 0;

    bool operator==(const Column&) const = default;
  };

  // What a saved state said of a column that this grid lacks, to be saved with the next one.
  struct Foreign {
    std::string kind;          // of line
    std::size_t position = 0;  // among the lines of its kind, from 0
    std::string line;

    bool operator==(const Foreign&) const = default;
  };

  std::vector<Column> columns;  // every column of the grid once, from left to right
  std::vector<SortKey> sortKeys, groups;
  std::vector<SharedCondition> conditions;
  Value previewColumn{Null{}};
  GridSettings settings;
  std::vector<Foreign> foreign;

  bool operator==(const GridState&) const = default;
};

class GridHistory {  // undo and redo, one state a step
 public:
  static constexpr std::size_t kSteps = 100;  // older ones are forgotten

  // Forgets every step.
  void start(const GridState& state);
  // One more step, where the state differs from the last one; what was undone is forgotten.
  void record(GridState state);

  bool canUndo() const noexcept { return at_ > 0; }
  bool canRedo() const noexcept { return at_ + 1 < states_.size(); }
  // The state to return to. canUndo() and canRedo() hold.
  const GridState& undo() { return states_[--at_]; }
  const GridState& redo() { return states_[++at_]; }

 private:
  std::vector<GridState> states_{1};
  std::size_t at_ = 0;  // the state that the grid is in
};

}  // namespace vmgv
