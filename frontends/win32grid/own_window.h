// A window of a class of our own, whose messages go to an object.
#pragma once

#include <windows.h>

#include <optional>

namespace vmgv {

class OwnWindow {
 public:
  OwnWindow(const OwnWindow&) = delete;
  OwnWindow& operator=(const OwnWindow&) = delete;
  virtual ~OwnWindow();

  // Null before create(), and once the platform has destroyed it.
  HWND window() const noexcept { return window_; }
  RECT client() const noexcept;
  void repaint() const noexcept { InvalidateRect(window_, nullptr, FALSE); }

 protected:
  OwnWindow() = default;

  // One class serves all windows of that name. Throws Error.
  void create(const wchar_t* className, HWND parent, DWORD style, DWORD extendedStyle = 0,
              const wchar_t* title = L"");
  // The answer to a message; none where the platform is to do what it does by itself. A failure ends the
  // message and goes no further.
  virtual std::optional<LRESULT> handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;

  // What measures so many pixels on a usual monitor.
  int scaled(int pixels) const noexcept;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND window_ = nullptr;
};

// Moves a window; sizes below nothing are nothing.
void place(HWND window, int left, int top, int width, int height) noexcept;

// What a mouse message says of where the mouse is.
inline POINT pointOf(LPARAM lParam) noexcept {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace vmgv
