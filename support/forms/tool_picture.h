// The pictures of tool buttons, as lines in a square of 16 units that every front end draws in the colour of
// texts.
#pragma once

#include <span>
#include <vector>

#include "support/forms/tool_button.h"

namespace vmgv {

struct ToolStroke {
  struct Point {
    float x, y;
  };
  std::vector<Point> points;
  bool closed = false;
  bool filled = false;  // closed, with its inside
};
inline constexpr float kToolSquare = 16, kToolStroke = 1.25F;  // the square's side and the lines' width

// None for a button without a picture, and for letters.
std::span<const ToolStroke> strokesOf(ToolButton::Picture picture);
// "B" of bold and the like; null for what is no letter.
const char* letterOf(ToolButton::Picture picture) noexcept;

}  // namespace vmgv
