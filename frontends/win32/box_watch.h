// Message boxes and pickers run the platform's message loop: a script acts on them from within that.
#pragma once

#include <windows.h>

#include <functional>

#include "frontends/win32/win32_desktop.h"

namespace vmgv {

class Win32Desktop::BoxWatch {
 public:
  // Finds the box's window as it appears; from then on the idle handler may act on it, and `giveUp` ends the
  // box when nobody will. Without an idle handler a person answers, and nothing is watched.
  BoxWatch(Win32Desktop& desktop, OpenBox& open, std::function<void()> giveUp);
  BoxWatch(const BoxWatch&) = delete;
  BoxWatch& operator=(const BoxWatch&) = delete;
  ~BoxWatch();

 private:
  static LRESULT CALLBACK noteActivation(int code, WPARAM wParam, LPARAM lParam);
  static void CALLBACK idle(HWND, UINT, UINT_PTR timer, DWORD);

  static thread_local BoxWatch* top_;

  Win32Desktop& desktop_;
  OpenBox& open_;
  std::function<void()> giveUp_;
  BoxWatch* below_;
  HHOOK hook_ = nullptr;
  UINT_PTR timer_ = 0;
};

}  // namespace vmgv
