// A font as an automation object: Name, Size, Bold, Italic, Underline, Strikethrough, Charset.
#pragma once

#include "support/automation/class_table.h"
#include "support/forms/font.h"

namespace vmgv {

class StandardFont final : public Exposed<StandardFont> {
 public:
  explicit StandardFont(Font initial = {}) : font(std::move(initial)) {}
  static const ClassTable<StandardFont>& table();

  Font font;
};

}  // namespace vmgv
