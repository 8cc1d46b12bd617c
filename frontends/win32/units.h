// Between the forms' twips and a monitor's pixels.
#pragma once

#include <windows.h>

#include "support/forms/geometry.h"

namespace vmgv {

constexpr int kUsualDpi = 96;
constexpr double kPointsPerInch = 72;

class Units {
 public:
  explicit Units(int dpi) noexcept;

  int dpi() const noexcept { return dpi_; }
  int twipsPerPixel() const noexcept { return twips_; }
  int pixels(int twips) const noexcept { return twips / twips_; }
  SIZE pixels(Size size) const noexcept { return {pixels(size.width), pixels(size.height)}; }
  // Edges are rounded, not extents: neighbours stay neighbours.
  RECT pixels(const Rect& rect) const noexcept;
  Size twips(SIZE size) const noexcept { return {size.cx * twips_, size.cy * twips_}; }
  // What measures so many pixels on a usual monitor.
  int scaled(int pixels) const noexcept { return MulDiv(pixels, dpi_, kUsualDpi); }

 private:
  int dpi_;
  int twips_;
};

// Pixels per inch of the monitor on which a window, or what belongs to it, is shown. In a DpiScope.
int dpiAround(HWND window) noexcept;

// Where the desktop leaves room for windows on that monitor.
RECT workAreaAround(HWND window) noexcept;

}  // namespace vmgv
