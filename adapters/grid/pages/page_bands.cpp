#include "adapters/grid/pages/page_bands.h"

#include <algorithm>
#include <numeric>

namespace vmgv {
namespace {

constexpr double kFirstShare = 0.5;  // of a page that the repeated first column takes at most
constexpr double kWidthRounding = 1e-6;
constexpr int kScaleSteps = 20;  // that are tried between no shrinking and none of the size left

std::vector<PageBand> cutIntoBands(const std::vector<PageColumn>& columns, double scale, double room) {
  std::vector<PageBand> bands;
  double left = 0;
  for (const PageColumn& column : columns) {
    if (bands.empty() || column.width * scale > left + kWidthRounding) {
      bands.emplace_back();
      left = room;
      if (bands.size() > 1) {
        const PageColumn& first = columns.front();
        bands.back().push_back({first.index, std::min(first.width * scale, room * kFirstShare)});
        left -= bands.back().back().width;
      }
    }
    bands.back().push_back({column.index, std::min(column.width * scale, left)});
    left -= bands.back().back().width;
  }
  return bands;
}

}  // namespace

double widthOf(const PageBand& band) noexcept {
  return std::accumulate(band.begin(), band.end(), 0.0,
                         [](double sum, const PageColumn& column) { return sum + column.width; });
}

PageBands fitColumns(std::vector<PageColumn> columns, double room, double leastScale, bool fill) {
  const double natural = widthOf(columns);
  if (natural * leastScale <= room + kWidthRounding) {
    const double fitting = natural > 0 ? room / natural : 1;
    const double stretch = fill ? fitting : std::min(fitting, 1.0);
    for (PageColumn& column : columns) column.width *= stretch;
    return {std::min(fitting, 1.0), {std::move(columns)}};
  }
  // As large as the least number of pages allows.
  const std::size_t least = cutIntoBands(columns, leastScale, room).size();
  for (int step = kScaleSteps;; --step) {
    const double scale = std::max(static_cast<double>(step) / kScaleSteps, leastScale);
    std::vector<PageBand> bands = cutIntoBands(columns, scale, room);
    if (bands.size() == least) return {scale, std::move(bands)};
  }
}

}  // namespace vmgv
