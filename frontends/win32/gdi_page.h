// A page on a device of the platform: a screen, a printer, or a record of what is drawn.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "frontends/win32/page_fonts.h"

namespace vmgv {

class GdiPage final : public PageSurface {
 public:
  // The page's corner lies at `origin`; `scale` is in pixels a point. Texts are as long as `fonts` measure
  // them, however coarse the device is. Leaves the device as it was.
  GdiPage(HDC context, POINT origin, double scale, PageFonts& fonts);
  GdiPage(const GdiPage&) = delete;
  GdiPage& operator=(const GdiPage&) = delete;
  ~GdiPage() override;

  void fill(const PageRect& rect, PageColour colour) override;
  void line(double x1, double y1, double x2, double y2, double width, PageColour colour) override;
  void text(double x, double baseline, std::string_view text, const PageFont& font,
            PageColour colour) override;
  void clip(const PageRect& rect) override;
  void unclip() override;

 private:
  struct Font {
    PageFont font;
    HFONT device;
    std::shared_ptr<const PageFontMetrics> metrics;
  };
  const Font& fontOf(const PageFont& font);
  POINT at(double x, double y) const noexcept;
  RECT pixels(const PageRect& rect) const noexcept;

  HDC context_;
  POINT origin_;
  double scale_;
  PageFonts& fonts_;
  HRGN whole_ = nullptr;  // what the device shows outside of any clip; null: all
  std::vector<Font> made_;
};

}  // namespace vmgv
