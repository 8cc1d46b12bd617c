// What the dialogs want of their thread while they make and measure windows, whatever the host has chosen.
#pragma once

#include <windows.h>

namespace vmgv {

// The module that this code was linked into: a program or a library.
HINSTANCE thisModule() noexcept;

// Windows are made and measured in the pixels of their monitor.
class DpiScope {
 public:
  DpiScope() noexcept : before_(SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) {}
  DpiScope(const DpiScope&) = delete;
  DpiScope& operator=(const DpiScope&) = delete;
  ~DpiScope() {
    if (before_) SetThreadDpiAwarenessContext(before_);
  }

 private:
  DPI_AWARENESS_CONTEXT before_;
};

// Windows are made of the common controls of version 6, which this module's own manifest names.
class ThemeScope {
 public:
  ThemeScope() noexcept;
  ThemeScope(const ThemeScope&) = delete;
  ThemeScope& operator=(const ThemeScope&) = delete;
  ~ThemeScope();

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
};

// Within a ThemeScope: windows are made as the host has them.
class PlainScope {
 public:
  PlainScope() noexcept { ActivateActCtx(nullptr, &cookie_); }
  PlainScope(const PlainScope&) = delete;
  PlainScope& operator=(const PlainScope&) = delete;
  ~PlainScope() { DeactivateActCtx(0, cookie_); }

 private:
  ULONG_PTR cookie_ = 0;
};

}  // namespace vmgv
