#include "support/forms/page_places.h"

#include <algorithm>

namespace vmgv {
namespace {

constexpr double kDesk = 9;              // points of desk around and between pages
constexpr double kSmallestScale = 0.02;  // of the real size

}  // namespace

PagePlaces placesOf(const PagePane& pane, double width, double height, double pixelsPerPoint) {
  PagePlaces places;
  if (pane.count() == 0) return places;
  const PageSize paper = pane.paper();
  const double desk = kDesk * pixelsPerPoint;
  const int across = pane.viewMode() == ViewMode::TwoPages ? 2 : 1;
  places.scale = pixelsPerPoint;
  if (pane.viewMode() != ViewMode::ZoomedIn) {
    const double fits =
        std::min((width - (across + 1) * desk) / (across * paper.width), (height - 2 * desk) / paper.height);
    places.scale = std::max(fits, kSmallestScale * pixelsPerPoint);
  }
  const double pageWidth = paper.width * places.scale, pageHeight = paper.height * places.scale;
  places.width = across * pageWidth + (across + 1) * desk;
  places.height = pageHeight + 2 * desk;
  double left = desk + std::max(0.0, (width - places.width) / 2);
  const double top = desk + std::max(0.0, (height - places.height) / 2);
  for (std::int32_t page = pane.page(); page <= pane.lastInSight(); ++page) {
    places.pages.push_back({page, {left, top, pageWidth, pageHeight}});
    left += pageWidth + desk;
  }
  return places;
}

}  // namespace vmgv
