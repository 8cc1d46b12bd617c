// What a pivot table over a new workbook's rows shows at first: a line for each different text of one column,
// and beside it the sum of another. Whoever opens it may arrange it otherwise.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "adapters/workbook/area.h"

namespace vmgv::workbook {

class SheetStream;

struct PivotLine {
  std::string label;  // as XML, in its first spelling; "" for rows without a text
  double result = 0;
};

struct Pivot {
  Area source;                      // the rows with their header
  std::vector<std::string> fields;  // its columns, no two of one name
  // The first column of texts that has few enough different ones to be looked through. Columns count from 1.
  std::optional<int> lineField;
  int dataField = 1;             // the first column of numbers
  bool counts = false;           // there is none: how many rows have something in the column
  std::vector<PivotLine> lines;  // by their texts, "" last; texts that differ in case are the same. A single
                                 // one where there is no line field
  double total = 0;
};

// The columns from the first one on that have a header, as a pivot table must. Error 1004 where there is
// none, or no row below it.
Area pivotSource(const SheetStream& sheet);
Pivot summarise(const SheetStream& sheet);  // of a complete sheet that pivotSource() takes

}  // namespace vmgv::workbook
