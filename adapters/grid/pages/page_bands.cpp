#include "adapters/grid/pages/page_bands.h"

#include <algorithm>
#include <numeric>

namespace vmgv {
namespace {

constexpr double kFirstShare = 0.5;  // of a page that the repeated first column takes at most
constexpr double kRounding = 1e-6;

}  // namespace

double widthOf(const PageBand& band) noexcept {
  return std::accumulate(band.begin(), band.end(), 0.0,
                         [](double sum, const PageColumn& column) { return sum + column.width; });
}

PageBands fitColumns(std::vector<PageColumn> columns, double room, double leastScale, bool fill) {
  PageBands result;
  const double natural = widthOf(columns);
  double stretch = 1;
  if (natural > room) {
    result.scale = stretch = std::max(room / natural, leastScale);
  } else if (fill && natural > 0) {
    stretch = room / natural;
  }
  for (PageColumn& column : columns) column.width *= stretch;
  if (widthOf(columns) <= room + kRounding) {
    result.bands.push_back(std::move(columns));
    return result;
  }
  PageColumn first = columns.front();
  first.width = std::min(first.width, room * kFirstShare);
  double left = 0;
  for (const PageColumn& column : columns) {
    if (result.bands.empty() || column.width > left + kRounding) {
      result.bands.emplace_back();
      left = room;
      if (result.bands.size() > 1) {
        result.bands.back().push_back(first);
        left -= first.width;
      }
    }
    result.bands.back().push_back({column.index, std::min(column.width, left)});
    left -= result.bands.back().back().width;
  }
  return result;
}

}  // namespace vmgv
