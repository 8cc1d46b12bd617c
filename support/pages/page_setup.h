// The paper of printed pages, and what stays blank around them.
#pragma once

#include "support/pages/page_surface.h"

namespace vmgv {

// Paper and its margins in points. The paper is as it lies in front of the reader: landscape paper is wider
// than high.
struct PageSetup {
  PageSize paper{595.276, 841.89};                                  // A4
  double left = 42.52, top = 42.52, right = 42.52, bottom = 42.52;  // 15 mm
  bool operator==(const PageSetup&) const = default;
};

}  // namespace vmgv
