#include "adapters/grid/pages/paper_fonts.h"

#include <algorithm>

namespace vmgv {

const PaperFont& PaperFonts::of(const GridFont& font) const {
  const double size = std::min(font.size, largest_) * scale;
  const auto found = std::find_if(known_.begin(), known_.end(), [&](const auto& known) {
    const PageFont& other = known->font;
    return other.size == size && other.bold == font.bold && other.italic == font.italic &&
           other.underline == font.underline && other.strikethrough == font.strikethrough &&
           other.family == font.name;
  });
  if (found != known_.end()) return **found;
  PageFont made{font.name, size, font.bold, font.italic, font.underline, font.strikethrough};
  return *known_.emplace_back(std::make_unique<PaperFont>(std::move(made), platform_));
}

}  // namespace vmgv
