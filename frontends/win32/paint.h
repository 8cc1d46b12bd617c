// What windows that paint themselves do so with.
#pragma once

#include <windows.h>

namespace vmgv {

class PaintScope {
 public:
  explicit PaintScope(HWND window) noexcept : window_(window) { BeginPaint(window, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  ~PaintScope() { EndPaint(window_, &paint_); }
  HDC context() const noexcept { return paint_.hdc; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
};

// Pixels in memory, as the screen has them.
class MemoryBitmap {
 public:
  MemoryBitmap(HDC screen, SIZE size) noexcept
      : context_(CreateCompatibleDC(screen)),
        bitmap_(CreateCompatibleBitmap(screen, size.cx, size.cy)),
        before_(SelectObject(context_, bitmap_)) {}
  MemoryBitmap(const MemoryBitmap&) = delete;
  MemoryBitmap& operator=(const MemoryBitmap&) = delete;
  ~MemoryBitmap() {
    SelectObject(context_, before_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  explicit operator bool() const noexcept { return bitmap_ != nullptr; }
  HDC context() const noexcept { return context_; }

 private:
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
};

// What is painted appears at once.
class Canvas {
 public:
  Canvas(HDC screen, SIZE size) noexcept : screen_(screen), size_(size), memory_(screen, size) {}
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() { BitBlt(screen_, 0, 0, size_.cx, size_.cy, memory_.context(), 0, 0, SRCCOPY); }
  HDC context() const noexcept { return memory_.context(); }

 private:
  HDC screen_;
  SIZE size_;
  MemoryBitmap memory_;
};

}  // namespace vmgv
