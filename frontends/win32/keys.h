// Key numbers and shift states of forms are those of the platform.
#pragma once

#include <windows.h>

#include <optional>

#include "support/forms/control.h"

namespace vmgv {

// Nothing where forms have no number for the key.
inline std::optional<Key> formKey(WPARAM code) noexcept {
  const bool letterOrDigit = (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
  switch (code) {
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_SPACE:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_DELETE:
    case VK_F1:
    case VK_F2:
    case VK_F4: return static_cast<Key>(code);
    default: return letterOrDigit ? std::optional(static_cast<Key>(code)) : std::nullopt;
  }
}

inline bool isHeld(int code) noexcept { return GetKeyState(code) < 0; }

inline int shiftState() noexcept {
  return (isHeld(VK_SHIFT) ? kShift : 0) | (isHeld(VK_CONTROL) ? kControl : 0) | (isHeld(VK_MENU) ? kAlt : 0);
}

}  // namespace vmgv
