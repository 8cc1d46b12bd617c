#include "servers/control/icon.h"

#include "servers/common/server.h"
#include "servers/control/resource_ids.h"

namespace vmgv {

Icon::Icon() noexcept
    : bitmap_(static_cast<HBITMAP>(LoadImageW(moduleHandle(), MAKEINTRESOURCEW(VMG_TOOLBOX_BITMAP),
                                              IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION))) {}

bool Icon::draw(HDC target, const RECT& bounds) const noexcept {
  HDC source = CreateCompatibleDC(target);
  if (!source) return false;
  bool drawn = false;
  if (HGDIOBJ before = SelectObject(source, bitmap_)) {
    drawn = StretchBlt(target, bounds.left, bounds.top, bounds.right - bounds.left,
                       bounds.bottom - bounds.top, source, 0, 0, kIconPixels, kIconPixels, SRCCOPY);
    SelectObject(source, before);
  }
  DeleteDC(source);
  return drawn;
}

}  // namespace vmgv
