// Columns on paper: shrunk to the width of a page as far as they stay readable, else cut into bands, one for
// each of several pages side by side.
#pragma once

#include <cstdint>
#include <vector>

namespace vmgv {

struct PageColumn {
  std::int32_t index = 0;
  double width = 0;  // points
};

// The columns of one page from left to right. Every band but the first begins with the grid's first column.
using PageBand = std::vector<PageColumn>;

struct PageBands {
  double scale = 1;  // of texts and widths alike
  std::vector<PageBand> bands;
};

// `columns` are as wide as their texts need; `leastScale` keeps the texts readable. `fill` stretches columns
// that leave room on the page.
PageBands fitColumns(std::vector<PageColumn> columns, double room, double leastScale, bool fill);

double widthOf(const PageBand& band) noexcept;

}  // namespace vmgv
