// Fonts of pages as the platform has them, measured so finely that paper and screen agree.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <tuple>

#include "support/pages/page_fonts.h"

namespace vmgv {

// The font in `pixels` of height, for a device to draw with; whoever asks deletes it.
HFONT makeFont(const PageFont& font, int pixels) noexcept;

class GdiPageFonts final : public PageFonts {
 public:
  GdiPageFonts() noexcept;
  ~GdiPageFonts() override;

  std::shared_ptr<const PageFontMetrics> metrics(const PageFont& font) override;

 private:
  class Face;
  class Metrics;

  HDC context_;
  std::map<std::tuple<std::string, bool, bool>, std::shared_ptr<Face>> faces_;  // family, bold, italic
};

}  // namespace vmgv
