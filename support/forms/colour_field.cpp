#include "support/forms/colour_field.h"

namespace vmgv {

Control::Properties ColourField::properties() const {
  Properties all = Control::properties();
  all.emplace_back("value", value_);
  all.emplace_back("swatch", swatch_);
  return all;
}

std::string ColourField::swatchText() const {
  if (systemNumber(swatch_)) return {};
  std::string text = "#";
  for (const int part : {redOf(swatch_), greenOf(swatch_), blueOf(swatch_)}) {
    for (const int digit : {part / 16, part % 16}) text += "0123456789ABCDEF"[digit];
  }
  return text;
}

}  // namespace vmgv
