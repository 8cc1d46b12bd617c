// Arrows for buttons, in the colour of their texts.
#pragma once

#include <windows.h>

namespace vmgv {

// A triangle in a square of `side` pixels, transparent around it; the caller destroys it.
HICON arrowIcon(bool up, int side) noexcept;

}  // namespace vmgv
