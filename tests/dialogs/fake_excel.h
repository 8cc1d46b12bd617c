// A spreadsheet that takes every member by name and notes what is done to it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/automation/value.h"

namespace vmgv {

class FakeExcel {
 public:
  std::string version = "16.0";
  int pivotCaches = 0;
  std::set<std::string> failing;  // members that throw Error 1004 "<member> failed"
  bool sheetGone = false;         // the user closed the workbook: the program's ActiveSheet is Nothing
  std::set<std::string> sheets{"Data"};

  std::map<std::pair<int, int>, Value> cells;
  std::map<std::pair<int, int>, std::string> formats;
  // What was called or set on anything but a cell, with what it was done to: "Open t.xls", "AutoFit",
  // "Merge 3,1-3,4", "Refresh 1", "Visible", "Quit". A new workbook shows by its cells alone.
  std::vector<std::string> log;

  ObjectRef application();
  std::string cell(int row, int column) const;  // type name and text, "@" before it in a text cell

 private:
  class Node;
};

}  // namespace vmgv
