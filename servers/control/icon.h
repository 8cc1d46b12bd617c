// The control's only picture: what it shows in a toolbox, on a form at design time, and when it is drawn.
#pragma once

#include <windows.h>

namespace vmgv {

inline constexpr int kIconPixels = 16;

// An owned bitmap of 16 by 16 pixels.
class Icon {
 public:
  Icon() noexcept;
  Icon(const Icon&) = delete;
  Icon& operator=(const Icon&) = delete;
  ~Icon() { DeleteObject(bitmap_); }

  HBITMAP bitmap() const noexcept { return bitmap_; }  // null where the resource cannot be had
  bool draw(HDC target, const RECT& bounds) const noexcept;

 private:
  HBITMAP bitmap_;
};

}  // namespace vmgv
