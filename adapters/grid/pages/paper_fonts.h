// The fonts of one document, each asked of the platform once.
#pragma once

#include <memory>
#include <vector>

#include "adapters/grid/grid_layout.h"
#include "adapters/grid/pages/font_ruler.h"

namespace vmgv {

struct PaperFont {
  PaperFont(PageFont own, PageFonts& platform) : font(std::move(own)), ruler(platform.metrics(font)) {}

  PageFont font;
  FontRuler ruler;
};

class PaperFonts {
 public:
  // `largest`, in points, is what the paper bears.
  PaperFonts(PageFonts& platform, double largest) : platform_(platform), largest_(largest) {}

  double scale = 1;  // of all fonts that are asked for from now on

  // Stays valid.
  const PaperFont& of(const GridFont& font) const;
  const PaperFont& of(GridFont font, bool bold) const {
    font.bold = bold;
    return of(font);
  }

 private:
  PageFonts& platform_;
  double largest_;
  mutable std::vector<std::unique_ptr<PaperFont>> known_;
};

}  // namespace vmgv
