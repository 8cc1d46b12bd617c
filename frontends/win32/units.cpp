#include "frontends/win32/units.h"

#include <windows.h>

#include <shellscalingapi.h>

#include <algorithm>
#include <cmath>

namespace vmgv {
namespace {

constexpr double kTwipsPerInch = 1440;

HMONITOR monitorOf(HWND window) noexcept { return MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY); }

}  // namespace

Units::Units(int dpi) noexcept
    : dpi_(dpi), twips_(std::max(1, static_cast<int>(std::lround(kTwipsPerInch / dpi)))) {}

RECT Units::pixels(const Rect& rect) const noexcept {
  return {pixels(rect.left), pixels(rect.top), pixels(rect.right()), pixels(rect.bottom())};
}

int dpiAround(HWND window) noexcept {
  UINT x = 0, y = 0;
  if (FAILED(GetDpiForMonitor(monitorOf(window), MDT_EFFECTIVE_DPI, &x, &y)) || y == 0) {
    return static_cast<int>(GetDpiForSystem());
  }
  return static_cast<int>(y);
}

RECT workAreaAround(HWND window) noexcept {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitorOf(window), &info);
  return info.rcWork;
}

}  // namespace vmgv
