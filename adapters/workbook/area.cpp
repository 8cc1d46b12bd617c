// Names of cells and the check against the worksheet's limits.
#include "adapters/workbook/area.h"

#include <algorithm>

#include "support/automation/error.h"

namespace vmgv::workbook {

std::string columnLetters(int column) {
  std::string letters;
  for (; column > 0; column = (column - 1) / 26) letters += static_cast<char>('A' + (column - 1) % 26);
  std::reverse(letters.begin(), letters.end());
  return letters;
}

std::string cellName(int row, int column) { return columnLetters(column) + std::to_string(row); }

std::string areaName(const Area& area) {
  const std::string first = cellName(area.top, area.left);
  return area.isCell() ? first : first + ":" + cellName(area.bottom, area.right);
}

Area cellAt(long long row, long long column) {
  if (row < 1 || row > kMaxRows) {
    throw Error(ErrorNumber::Application, "Row " + std::to_string(row) +
                                              " lies outside the worksheet, which has " +
                                              std::to_string(kMaxRows) + " rows");
  }
  if (column < 1 || column > kMaxColumns) {
    throw Error(ErrorNumber::Application, "Column " + std::to_string(column) +
                                              " lies outside the worksheet, which has " +
                                              std::to_string(kMaxColumns) + " columns");
  }
  const int r = static_cast<int>(row), c = static_cast<int>(column);
  return {r, c, r, c};
}

}  // namespace vmgv::workbook
