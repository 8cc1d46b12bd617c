// How wide and how high texts are on paper, which a platform tells of its fonts.
#pragma once

#include <memory>

#include "support/pages/page_surface.h"

namespace vmgv {

// Of one font, in points. Asked for each character once; who measures texts keeps a table.
class PageFontMetrics {
 public:
  virtual ~PageFontMetrics() = default;
  virtual double ascent() const = 0;   // above the baseline
  virtual double descent() const = 0;  // below it, positive
  virtual double advance(char32_t character) const = 0;
};

class PageFonts {
 public:
  virtual ~PageFonts() = default;
  // A family that is missing is replaced as the platform does it.
  virtual std::shared_ptr<const PageFontMetrics> metrics(const PageFont& font) = 0;
};

}  // namespace vmgv
