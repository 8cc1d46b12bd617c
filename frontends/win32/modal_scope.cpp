#include "frontends/win32/modal_scope.h"

namespace vmgv {
namespace {

bool takesInput(HWND window) noexcept { return IsWindowVisible(window) && IsWindowEnabled(window); }

}  // namespace

ModalScope::ModalScope(HWND spared) : spared_(spared), active_(GetActiveWindow()) {
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM self) -> BOOL {
        auto& scope = *reinterpret_cast<ModalScope*>(self);
        if (window != scope.spared_ && takesInput(window)) scope.disabled_.push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(this));
  for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

void ModalScope::end() noexcept {
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
  disabled_.clear();
  // Where the user has gone to another program meanwhile, nothing comes to the front.
  if (active_ && spared_ && GetActiveWindow() == spared_) SetActiveWindow(active_);
  active_ = nullptr;
}

HWND threadsWindow() noexcept {
  if (const HWND active = GetActiveWindow()) return active;
  HWND found = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM result) -> BOOL {
        if (!takesInput(window)) return TRUE;
        *reinterpret_cast<HWND*>(result) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace vmgv
