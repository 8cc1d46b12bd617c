// A grid in memory that notes what is written to it.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/automation/value.h"

namespace vmgv {

struct FakeColumn {
  std::string caption;
  int position = 0;  // 0: in the order of creation
  bool visible = true;
  std::vector<std::pair<Value, std::string>> valueList = {};
  std::string dataField = {};
};

struct FakeRow {
  std::int32_t type = 0;
  std::vector<Value> values;
};

struct FakeRule {
  std::string name;
  std::map<std::string, Value> members{
      {"ColIndex", 1}, {"Operator", std::int16_t{0}}, {"Value1", {}}, {"Value2", {}}};
  std::map<std::string, Value> style;  // what differs from the grid's own
};

class FakeGrid {
 public:
  std::vector<FakeColumn> columns;
  std::vector<FakeRow> rows;
  std::vector<std::pair<Value, Value>> sortKeys, groups;  // column index, order
  std::vector<std::int32_t> selected;                     // row positions
  std::vector<FakeRule> rules;
  Value previewColumn = Null{};
  bool multiSelect = false;
  bool redraw = true;
  std::map<std::string, Value> settings{{"GroupByBoxVisible", true}, {"GroupByBoxInfoText", "Drag here"},
                                        {"GroupFooterStyle", 0},     {"UseEvenOddColor", false},
                                        {"ColumnAutoResize", false}, {"PreviewRowLines", 1},
                                        {"BackColor", 0xFFFFFF},     {"ForeColor", 0}};
  std::map<std::string, Value> ownStyle{
      {"BackColor", 0xFFFFFF}, {"ForeColor", 0},     {"FontName", "Arial"},    {"FontSize", 9.0},
      {"FontBold", false},     {"FontItalic", true}, {"FontUnderline", false}, {"FontStrikethru", false}};
  // "Redraw=True", "SortKeys.Clear", "SortKeys.Add 3,-1", "ExpandAll", "Columns(2).Visible=False",
  // "Condition 1.Value1=String:7", in order.
  std::vector<std::string> log;

  ObjectRef object();

 private:
  class Part;
  class Item;
};

FakeGrid gridOfColumns(int count);  // captions "C1", "C2", ...

}  // namespace vmgv
