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

namespace {

// Takes "$AB$7" from the start of the name.
std::optional<Area> takeCell(std::string_view& name) {
  long long row = 0, column = 0;
  const auto next = [&name] { return name.empty() ? '\0' : name.front(); };
  if (next() == '$') name.remove_prefix(1);
  for (char c = next(); (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); c = next()) {
    column = column * 26 + (c & 0x1F);
    if (column > kMaxColumns) return {};
    name.remove_prefix(1);
  }
  if (next() == '$') name.remove_prefix(1);
  for (char c = next(); c >= '0' && c <= '9'; c = next()) {
    row = row * 10 + (c - '0');
    if (row > kMaxRows) return {};
    name.remove_prefix(1);
  }
  if (row < 1 || column < 1) return {};
  return cellAt(row, column);
}

}  // namespace

std::optional<Area> areaNamed(std::string_view name) {
  const auto first = takeCell(name);
  if (!first || name.empty()) return first;
  if (name.front() != ':') return {};
  name.remove_prefix(1);
  const auto last = takeCell(name);
  if (!last || !name.empty()) return {};
  return Area{std::min(first->top, last->top), std::min(first->left, last->left),
              std::max(first->bottom, last->bottom), std::max(first->right, last->right)};
}

bool meet(const Area& a, const Area& b) {
  return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
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
