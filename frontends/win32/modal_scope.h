// While a dialog is open the thread's other windows take no input.
#pragma once

#include <windows.h>

#include <vector>

namespace vmgv {

class ModalScope {
 public:
  // Disables the visible windows of the thread except `spared`, which may be null.
  explicit ModalScope(HWND spared);
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
  ~ModalScope() { end(); }

  // Enables again what it has disabled, and makes the window active that was so before; called before the
  // dialog goes, since the platform would look for another program's window while all of these are disabled.
  void end() noexcept;

 private:
  HWND spared_;
  HWND active_;
  std::vector<HWND> disabled_;
};

// The window over which the thread's next dialog stands: the active one, else any that a user sees; null
// where there is none.
HWND threadsWindow() noexcept;

}  // namespace vmgv
