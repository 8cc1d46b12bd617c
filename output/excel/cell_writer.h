// How one value of the grid becomes one cell of the worksheet.
#pragma once

#include <cstdint>

#include "support/automation/date.h"
#include "support/automation/object.h"

namespace vmgv {

// Text with every CR LF as a single LF, as worksheets break lines.
std::string withLineFeeds(std::string text);

class CellWriter {
 public:
  // `momentPattern` formats dates that have a time part; dates without one are MM/dd/yyyy.
  CellWriter(ObjectRef sheet, std::string_view momentPattern);

  // Cells(row, column), both from 1.
  ObjectRef cell(std::int32_t row, std::int32_t column) const;
  // Writes the value of `gridColumn`, whose index is `index`, of a grid row.
  // Null leaves the cell empty; dates become text; numbers stay numbers; all else is text in a text cell.
  // A column with a value list writes the entry's text; where there is none the cell stays as it was.
  void write(std::int32_t row, std::int32_t column, const ObjectRef& gridRow, const ObjectRef& gridColumn,
             std::int32_t index) const;

 private:
  void writeListed(std::int32_t row, std::int32_t column, const ObjectRef& gridRow,
                   const ObjectRef& gridColumn, std::int32_t index) const;
  void writeText(const ObjectRef& cell, std::string text) const;

  ObjectRef sheet_;
  DatePattern dayPattern_{"MM/dd/yyyy"};
  DatePattern momentPattern_;
  // Call sites on the path of every cell remember where their member is.
  Member cells_{"Cells"}, cellValue_{"Value"}, numberFormat_{"NumberFormat"};
  Member rowValue_{"Value"}, hasValueList_{"HasValueList"}, valueList_{"ValueList"};
  Member itemByValue_{"ItemByValue"}, itemText_{"Text"};
};

}  // namespace vmgv
