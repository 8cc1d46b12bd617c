#include "frontends/win32/modal_scope.h"

#include "frontends/win32/window_walk.h"

namespace vmgv {
namespace {

bool takesInput(HWND window) noexcept { return IsWindowVisible(window) && IsWindowEnabled(window); }

}  // namespace

ModalScope::ModalScope(HWND spared) : spared_(spared), active_(GetActiveWindow()) {
  eachThreadWindow([this](HWND window) {
    if (window != spared_ && takesInput(window)) disabled_.push_back(window);
    return true;
  });
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
  eachThreadWindow([&found](HWND window) {
    if (takesInput(window)) found = window;
    return !found;
  });
  return found;
}

}  // namespace vmgv
