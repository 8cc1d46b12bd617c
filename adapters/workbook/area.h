// Rectangles of cells, and their names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vmgv::workbook {

// The limits of a worksheet.
inline constexpr int kMaxRows = 1048576;
inline constexpr int kMaxColumns = 16384;

// Rows and columns count from 1; all four belong to the rectangle.
struct Area {
  int top = 1, left = 1, bottom = 1, right = 1;

  static constexpr Area whole() { return {1, 1, kMaxRows, kMaxColumns}; }
  bool isCell() const { return top == bottom && left == right; }
  bool operator==(const Area&) const = default;
};

std::string columnLetters(int column);      // 28 is "AB"
std::string cellName(int row, int column);  // "AB7"
std::string areaName(const Area& area);     // "AB7" or "A3:L3"
// "AB7", "A3:L3" and "$A$3:$L$3"; nothing for what names no cells.
std::optional<Area> areaNamed(std::string_view name);
bool meet(const Area& a, const Area& b);       // have a cell in common
Area cellAt(long long row, long long column);  // Error 1004 outside the worksheet

}  // namespace vmgv::workbook
