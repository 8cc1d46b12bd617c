#include "adapters/grid/pages/page_look.h"

#include <algorithm>

namespace vmgv {
namespace {

constexpr double kAlternateShade = 0.05, kTint = 0.8, kDarkening = 0.15;
constexpr double kDark = 0.18;     // luminance of a mid grey
constexpr double kColourful = 48;  // between the strongest and the weakest of red, green and blue

int channel(PageColour colour, int shift) { return static_cast<int>(colour >> shift & 0xFF); }

bool isColourful(PageColour colour) {
  const auto [least, most] = std::minmax({channel(colour, 16), channel(colour, 8), channel(colour, 0)});
  return most - least >= kColourful;
}

// A hue is kept as far as it can be read.
PageColour readable(PageColour ink, PageColour back) {
  if (contrast(ink, back) >= kReadableContrast) return ink;
  if (!isColourful(ink)) return PageLook::kText;
  while (contrast(ink, back) < kReadableContrast && ink != PageLook::kText) {
    ink = mixed(ink, PageLook::kText, kDarkening);
  }
  return ink;
}

// System colours are the screen's; on paper they are those of a light desktop.
PageColour paperColour(std::int32_t colour) {
  if (!isSystemColor(colour)) {
    const auto bgr = static_cast<PageColour>(colour);
    return (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
  }
  switch (colour & 0xFF) {
    case 7:   // menu text
    case 8:   // window text
    case 18:  // button text
    case 23:  // tip text
      return PageLook::kText;
    case 13: return 0x2F6FB5;  // highlight
    case 15: return 0xF0F0F0;  // button
    case 16: return 0xA0A0A0;  // shadow
    case 17: return 0x6D6D6D;  // disabled text
    case 24: return 0xFFFFE1;  // tip
    default: return PageLook::kPaper;
  }
}

}  // namespace

PageColour mixed(PageColour colour, PageColour other, double shareOfOther) noexcept {
  PageColour result = 0;
  for (const int shift : {16, 8, 0}) {
    const int from = channel(colour, shift), to = channel(other, shift);
    const int between = static_cast<int>(from + (to - from) * shareOfOther);
    result |= static_cast<PageColour>(between) << shift;
  }
  return result;
}

PageLook::PageLook(const GridSettings& settings, bool translate)
    : paper_(translate ? kPaper : paperColour(settings.backColor)),
      ink_(paperColour(settings.foreColor)),
      ownBack_(settings.backColor),
      ownFore_(settings.foreColor),
      translate_(translate) {
  if (translate) ink_ = readable(ink_, paper_);
  alternate_ = mixed(paper_, ink_, kAlternateShade);
}

PageColour PageLook::back(const RowStyle& style) const {
  if (style.alternate) return alternate_;
  if (style.backColor == ownBack_) return paper_;
  const PageColour back = paperColour(style.backColor);
  return translate_ && luminance(back) < kDark ? mixed(back, kPaper, kTint) : back;
}

PageColour PageLook::ink(const RowStyle& style) const {
  const bool plain = style.foreColor == kWindowTextColor && !isSystemColor(style.backColor);
  const PageColour ink = style.foreColor == ownFore_ && !plain ? ink_
                         : plain                               ? paperColour(inkOn(style.backColor))
                                                               : paperColour(style.foreColor);
  return translate_ ? readable(ink, back(style)) : ink;
}

}  // namespace vmgv
