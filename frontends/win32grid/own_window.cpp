#include "frontends/win32grid/own_window.h"

#include <algorithm>
#include <exception>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"

namespace vmgv {

OwnWindow::~OwnWindow() {
  if (!window_) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);  // nobody is there to answer any more
  DestroyWindow(window_);
}

void OwnWindow::create(const wchar_t* className, HWND parent, DWORD style, DWORD extendedStyle,
                       const wchar_t* title) {
  WNDCLASSEXW look{};
  look.cbSize = sizeof look;
  look.style = CS_DBLCLKS;
  look.lpfnWndProc = procedure;
  look.hInstance = GetModuleHandleW(nullptr);
  look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  look.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  look.lpszClassName = className;
  RegisterClassExW(&look);  // refused where it is known
  const int place = parent ? 0 : CW_USEDEFAULT;
  CreateWindowExW(extendedStyle, className, title, style, place, place, 0, 0, parent, nullptr, look.hInstance,
                  this);
  if (!window_) check(HRESULT_FROM_WIN32(GetLastError()), narrow(className));
}

int OwnWindow::scaled(int pixels) const noexcept {
  return MulDiv(pixels, static_cast<int>(GetDpiForWindow(window_)), USER_DEFAULT_SCREEN_DPI);
}

RECT OwnWindow::client() const noexcept {
  RECT rect{};
  GetClientRect(window_, &rect);
  return rect;
}

LRESULT CALLBACK OwnWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* const made =
        static_cast<OwnWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    made->window_ = window;
  }
  auto* const self = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self && message == WM_NCDESTROY) self->window_ = nullptr;
  if (self && self->window_) {
    try {
      if (const auto answer = self->handle(message, wParam, lParam)) return *answer;
    } catch (const std::exception& error) {
      OutputDebugStringW(wide(error.what()).c_str());
      return 0;
    }
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void place(HWND window, int left, int top, int width, int height) noexcept {
  SetWindowPos(window, nullptr, left, top, std::max(width, 0), std::max(height, 0),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace vmgv
