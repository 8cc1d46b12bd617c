// Which fonts of a control follow the desktop's: the rules by the control's type name.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "support/forms/font.h"

namespace vmgv {

// What the rules ask of a control, whoever made it.
class FontTarget {
 public:
  virtual ~FontTarget() = default;
  virtual std::string_view typeName() const = 0;
  // Changes the font behind a property such as "Font" or "ColumnHeaderFont"; Error 438 where there is none.
  virtual void changeFont(std::string_view property, const std::function<void(Font&)>& change) = 0;
  virtual void refresh() {}
};

struct FontChoice {  // what the rules give a font
  std::string name;
  double size = 8;  // points
  std::int16_t charset = 0;
};

// A control whose type is in no rule keeps its fonts; a font that the control lacks is skipped.
void applyFontRules(FontTarget& target, const FontChoice& choice);

}  // namespace vmgv
