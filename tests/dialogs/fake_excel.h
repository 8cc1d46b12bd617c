// A spreadsheet that notes what is done to it.
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
  bool sheetGone = false;         // the user closed the workbook: ActiveSheet is Nothing
  std::vector<std::string> sheets{"Data"};

  std::map<std::pair<int, int>, Value> cells;
  std::map<std::pair<int, int>, std::string> formats;
  // "Open t.xls", "ClearContents", "Wrap 3,1-3,4", "Merge 3,1-3,4", "AutoFit", "Refresh 1", "Wizard",
  // "Update", "Visible", "Quit", in order.
  std::vector<std::string> log;

  ObjectRef application();
  std::string cell(int row, int column) const;  // type name and text, "@" before it in a text cell

 private:
  void check(const std::string& member) const;
  ObjectRef workbook();
  ObjectRef sheet();
  ObjectRef cellObject(int row, int column);
  ObjectRef allCells();
};

}  // namespace vmgv
