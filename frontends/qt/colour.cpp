#include "frontends/qt/colour.h"

namespace vmgv {
namespace {

QPalette::ColorRole role(SystemColour colour) {
  switch (colour) {
    case SystemColour::Window: return QPalette::Base;
    case SystemColour::Highlight: return QPalette::Highlight;
    case SystemColour::HighlightText: return QPalette::HighlightedText;
    case SystemColour::ButtonFace: return QPalette::Button;
    case SystemColour::ButtonText: return QPalette::ButtonText;
  }
  return QPalette::Text;
}

}  // namespace

QColor qtColour(Colour colour, const QPalette& palette) {
  if (const auto number = systemNumber(colour))
    return palette.color(role(static_cast<SystemColour>(*number)));
  return {redOf(colour), greenOf(colour), blueOf(colour)};
}

Colour formColour(const QColor& colour) { return colourOf(colour.red(), colour.green(), colour.blue()); }

}  // namespace vmgv
