// The colours of rows on paper.
#pragma once

#include "adapters/grid/contrast.h"
#include "adapters/grid/row_styles.h"
#include "support/pages/page_surface.h"

namespace vmgv {

class PageLook {
 public:
  static constexpr PageColour kPaper = 0xFFFFFF, kText = 0x000000;

  // `translate`: the grid's own background stays off the paper, dark backgrounds become tints, and texts are
  // darkened until they can be read. Else colours are what they are on the screen.
  PageLook(const GridSettings& settings, bool translate);

  PageColour back(const RowStyle& style) const;
  PageColour ink(const RowStyle& style) const;

 private:
  PageColour paper_, ink_, alternate_;
  std::int32_t ownBack_, ownFore_;
  bool translate_;
};

PageColour mixed(PageColour colour, PageColour other, double shareOfOther) noexcept;

}  // namespace vmgv
