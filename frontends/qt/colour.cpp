#include "frontends/qt/colour.h"

#include "adapters/grid/contrast.h"

namespace vmgv {
namespace {

// System colours by their number; those of windows' parts that a form or grid lacks count as the window
// itself.
QPalette::ColorRole roleOf(int systemNumber) {
  switch (systemNumber) {
    case 7:  // menu text
    case 8:  // window text
      return QPalette::Text;
    case 13: return QPalette::Highlight;
    case 14: return QPalette::HighlightedText;
    case 15: return QPalette::Button;
    case 16: return QPalette::Dark;
    case 17: return QPalette::PlaceholderText;
    case 18: return QPalette::ButtonText;
    case 23: return QPalette::ToolTipText;
    case 24: return QPalette::ToolTipBase;
    default: return QPalette::Base;
  }
}

}  // namespace

QColor qtColour(Colour colour, const QPalette& palette) {
  if (const auto number = systemNumber(colour)) return palette.color(roleOf(*number));
  return {redOf(colour), greenOf(colour), blueOf(colour)};
}

Colour formColour(const QColor& colour) { return colourOf(colour.red(), colour.green(), colour.blue()); }

QColor readable(const QColor& ink, const QColor& back) {
  return qtColour(readableOn(formColour(ink), formColour(back)), {});
}

QColor selectedInk(const QPalette& palette, QPalette::ColorGroup group) {
  return readable(palette.color(group, QPalette::HighlightedText), palette.color(group, QPalette::Highlight));
}

}  // namespace vmgv
