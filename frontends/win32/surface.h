// What controls that draw themselves are made of.
#pragma once

#include <windows.h>

#include "support/forms/colour.h"

namespace vmgv {

COLORREF screenColour(Colour colour) noexcept;
COLORREF mixed(COLORREF one, COLORREF other, int percentOfOne) noexcept;
void fill(HDC context, const RECT& area, COLORREF colour) noexcept;

enum class ButtonLook { Normal, Hot, Pressed, Disabled };
// A push button's face and border as the desktop's theme has them.
void drawButton(HWND window, HDC context, RECT area, ButtonLook look) noexcept;
// The border and the inside of a text field.
void drawField(HWND window, HDC context, RECT area, bool enabled) noexcept;
// As a button with the states of NMCUSTOMDRAW looks.
ButtonLook lookOf(UINT itemState) noexcept;
void drawFocus(HDC context, RECT area, UINT itemState) noexcept;

}  // namespace vmgv
