// How wide text is in the dialogs' usual font, without a screen to ask.
#pragma once

#include <string_view>

#include "support/forms/font.h"
#include "support/forms/geometry.h"

namespace vmgv {

// Heights and widths are in twips, not rounded. Every font counts as DejaVu Sans.
double lineHeight(const Font& font) noexcept;
double averageAdvance(const Font& font) noexcept;  // of the Latin letters, as dialog units count it

struct TextExtent {
  double width = 0;  // of the widest line
  int lines = 1;
};
TextExtent measureText(std::string_view text, const Font& font) noexcept;

}  // namespace vmgv
