// What hands do: the messages of mouse and keys, sent to the window that they would reach.
//
// They do not go through the system's input, which another program may hold while a script runs.
#pragma once

#include <windows.h>

#include "support/forms/control.h"

namespace vmgv::gestures {

// In the middle of the window.
void click(HWND window);
void doubleClick(HWND window);
// At a point of its inside.
void doubleClick(HWND window, POINT at);

// A key going down, as a message loop gets it.
MSG keyDown(HWND window, Key key, int shift);

// The keys of `shift` are held down as long as it lives.
class HeldKeys {
 public:
  explicit HeldKeys(int shift) noexcept;
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;
  ~HeldKeys() { SetKeyboardState(before_); }

 private:
  BYTE before_[256];
};

}  // namespace vmgv::gestures
