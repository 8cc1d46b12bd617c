// The machine's fonts for pages, found by fontconfig: the same on a screen's preview and in a PDF.
#pragma once

#include <memory>

#include "support/pages/page_fonts.h"

namespace vmgv {

// A character that a font lacks is measured, and in a PDF shown, in another font that has it.
std::unique_ptr<PageFonts> makePdfFonts();

}  // namespace vmgv
