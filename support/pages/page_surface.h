// A page to draw on. Places and lengths are in points (1/72 inch), from the page's top left corner.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vmgv {

struct PageSize {  // in points
  double width = 0, height = 0;
  bool operator==(const PageSize&) const = default;
};

struct PageRect {  // from the page's top left corner, in points
  double left = 0, top = 0, width = 0, height = 0;
  double right() const noexcept { return left + width; }
  double bottom() const noexcept { return top + height; }
  bool operator==(const PageRect&) const = default;
};

struct PageFont {  // of a text on a page
  std::string family;
  double size = 9;  // points
  bool bold = false, italic = false, underline = false, strikethrough = false;
  bool operator==(const PageFont&) const = default;
};

using PageColour = std::uint32_t;  // 0xRRGGBB

class PageSurface {
 public:
  virtual ~PageSurface() = default;

  virtual void fill(const PageRect& rect, PageColour colour) = 0;
  virtual void line(double x1, double y1, double x2, double y2, double width, PageColour colour) = 0;
  // One line of UTF-8 text, from its left end on its baseline.
  virtual void text(double x, double baseline, std::string_view text, const PageFont& font,
                    PageColour colour) = 0;
  // What is drawn from now on shows within the rectangle only. Not nested: the last one holds.
  virtual void clip(const PageRect& rect) = 0;
  virtual void unclip() = 0;
};

}  // namespace vmgv
