#include "frontends/win32/arrow_icon.h"

namespace vmgv {
namespace {

// Half as high as it is wide, in the middle.
void drawArrow(HDC context, HBITMAP bitmap, bool up, int side, COLORREF arrow, COLORREF around) noexcept {
  const HGDIOBJ before = SelectObject(context, bitmap);
  const RECT all{0, 0, side, side};
  SetBkColor(context, around);
  ExtTextOutW(context, 0, 0, ETO_OPAQUE, &all, L"", 0, nullptr);
  const HBRUSH brush = CreateSolidBrush(arrow);
  const HPEN pen = CreatePen(PS_SOLID, 1, arrow);
  const HGDIOBJ brushBefore = SelectObject(context, brush), penBefore = SelectObject(context, pen);
  const int half = (side - 1) / 2, top = (side - half) / 2, tip = up ? top : top + half - 1;
  const int base = up ? top + half - 1 : top;
  const POINT corners[]{{half - half + 1, base}, {2 * half - 1, base}, {half, tip}};
  Polygon(context, corners, 3);
  SelectObject(context, brushBefore);
  SelectObject(context, penBefore);
  SelectObject(context, before);
  DeleteObject(brush);
  DeleteObject(pen);
}

}  // namespace

HICON arrowIcon(bool up, int side) noexcept {
  const HDC screen = GetDC(nullptr);
  const HDC context = CreateCompatibleDC(screen);
  ICONINFO icon{};
  icon.fIcon = TRUE;
  icon.hbmColor = CreateCompatibleBitmap(screen, side, side);
  icon.hbmMask = CreateBitmap(side, side, 1, 1, nullptr);
  constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);
  drawArrow(context, icon.hbmColor, up, side, GetSysColor(COLOR_BTNTEXT), kBlack);
  drawArrow(context, icon.hbmMask, up, side, kBlack, kWhite);  // black is what shows
  const HICON made = CreateIconIndirect(&icon);
  DeleteObject(icon.hbmColor);
  DeleteObject(icon.hbmMask);
  DeleteDC(context);
  ReleaseDC(nullptr, screen);
  return made;
}

}  // namespace vmgv
