// A grid in memory that notes what is written to it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/automation/value.h"

namespace vmgv {

struct FakeColumn {
  std::string caption;
  int position = 0;  // 0: in the order of creation
  bool visible = true;
  std::vector<std::pair<Value, std::string>> valueList;
};

struct FakeRow {
  std::int32_t type = 0;
  std::vector<Value> values;
};

class FakeGrid {
 public:
  std::vector<FakeColumn> columns;
  std::vector<FakeRow> rows;
  std::vector<std::pair<Value, Value>> sortKeys;  // column index, order
  std::vector<std::int32_t> selected;             // row positions
  Value previewColumn = Null{};
  bool multiSelect = false;
  std::int32_t groups = 0;
  bool redraw = true;
  // "Redraw=True", "SortKeys.Clear", "SortKeys.Add 3,-1", "ExpandAll", in order.
  std::vector<std::string> log;

  ObjectRef object();

 private:
  class Part;
  class Item;
};

FakeGrid gridOfColumns(int count);  // captions "C1", "C2", ...

}  // namespace vmgv
