#include "frontends/win32/surface.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <vssym32.h>

#include "frontends/win32/scopes.h"

namespace vmgv {

COLORREF screenColour(Colour colour) noexcept {
  const auto number = systemNumber(colour);
  return number ? GetSysColor(*number) : static_cast<COLORREF>(colour) & 0xFFFFFF;
}

COLORREF mixed(COLORREF one, COLORREF other, int percentOfOne) noexcept {
  const auto mix = [percentOfOne](int a, int b) {
    return (a * percentOfOne + b * (100 - percentOfOne)) / 100;
  };
  return RGB(mix(GetRValue(one), GetRValue(other)), mix(GetGValue(one), GetGValue(other)),
             mix(GetBValue(one), GetBValue(other)));
}

void fill(HDC context, const RECT& area, COLORREF colour) noexcept {
  const COLORREF before = SetBkColor(context, colour);
  ExtTextOutW(context, 0, 0, ETO_OPAQUE, &area, L"", 0, nullptr);
  SetBkColor(context, before);
}

void drawButton(HWND window, HDC context, RECT area, ButtonLook look) noexcept {
  if (const HTHEME theme = OpenThemeData(window, L"BUTTON")) {
    const int state = look == ButtonLook::Pressed    ? PBS_PRESSED
                      : look == ButtonLook::Hot      ? PBS_HOT
                      : look == ButtonLook::Disabled ? PBS_DISABLED
                                                     : PBS_NORMAL;
    DrawThemeParentBackground(window, context, &area);
    DrawThemeBackground(theme, context, BP_PUSHBUTTON, state, &area, nullptr);
    CloseThemeData(theme);
    return;
  }
  const UINT pressed = look == ButtonLook::Pressed ? DFCS_PUSHED | DFCS_CHECKED : 0u;
  DrawFrameControl(context, &area, DFC_BUTTON, DFCS_BUTTONPUSH | pressed);
}

void drawField(HWND window, HDC context, RECT area, bool enabled) noexcept {
  if (const HTHEME theme = OpenThemeData(window, L"EDIT")) {
    DrawThemeBackground(theme, context, EP_EDITTEXT, enabled ? ETS_NORMAL : ETS_DISABLED, &area, nullptr);
    CloseThemeData(theme);
    return;
  }
  DrawEdge(context, &area, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  fill(context, area, GetSysColor(enabled ? COLOR_WINDOW : COLOR_BTNFACE));
}

ButtonLook lookOf(UINT itemState) noexcept {
  if (itemState & CDIS_DISABLED) return ButtonLook::Disabled;
  if (itemState & CDIS_SELECTED) return ButtonLook::Pressed;
  return itemState & CDIS_HOT ? ButtonLook::Hot : ButtonLook::Normal;
}

void drawFocus(HDC context, RECT area, UINT itemState) noexcept {
  constexpr int kInside = -3;
  if (!(itemState & CDIS_FOCUS)) return;
  InflateRect(&area, kInside, kInside);
  DrawFocusRect(context, &area);
}

}  // namespace vmgv
