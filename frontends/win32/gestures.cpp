#include "frontends/win32/gestures.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

namespace vmgv::gestures {
namespace {

constexpr BYTE kDown = 0x80;
constexpr LPARAM kAltHeld = LPARAM{1} << 29;
constexpr int kScanCodePosition = 16;

POINT middleOf(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  return {inside.right / 2, inside.bottom / 2};
}

void mouse(HWND window, POINT at, std::initializer_list<UINT> messages) {
  for (const UINT message : messages) {
    if (!IsWindow(window) || !IsWindowEnabled(window)) return;
    SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(at.x, at.y));
  }
}

}  // namespace

void click(HWND window) { mouse(window, middleOf(window), {WM_LBUTTONDOWN, WM_LBUTTONUP}); }

void doubleClick(HWND window) { doubleClick(window, middleOf(window)); }

void doubleClick(HWND window, POINT at) {
  mouse(window, at, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP});
}

MSG keyDown(HWND window, Key key, int shift) {
  MSG message{};
  message.hwnd = window;
  message.message = shift & kAlt ? WM_SYSKEYDOWN : WM_KEYDOWN;
  message.wParam = static_cast<WPARAM>(key);
  message.lParam = 1 | static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC))
                           << kScanCodePosition;
  if (shift & kAlt) message.lParam |= kAltHeld;
  message.time = GetTickCount();
  return message;
}

HeldKeys::HeldKeys(int shift) noexcept {
  GetKeyboardState(before_);
  BYTE state[std::size(before_)];
  std::copy(std::begin(before_), std::end(before_), state);
  state[VK_SHIFT] = shift & kShift ? kDown : 0;
  state[VK_CONTROL] = shift & kControl ? kDown : 0;
  state[VK_MENU] = shift & kAlt ? kDown : 0;
  SetKeyboardState(state);
}

}  // namespace vmgv::gestures
