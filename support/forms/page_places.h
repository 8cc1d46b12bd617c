// Where the pages in sight stand in their pane, in pixels.
#pragma once

#include <vector>

#include "support/forms/page_preview.h"

namespace vmgv {

struct PagePlace {
  std::int32_t page = 1;
  PageRect rect;
};

struct PagePlaces {
  double scale = 1;              // pixels a point
  std::vector<PagePlace> pages;  // from left to right; none without pages
  double width = 0, height = 0;  // of all, with the desk around them: what is larger than the pane scrolls
};

// In a pane of this inside; `pixelsPerPoint` of the screen, for a page in its real size.
PagePlaces placesOf(const PagePane& pane, double width, double height, double pixelsPerPoint);

}  // namespace vmgv
