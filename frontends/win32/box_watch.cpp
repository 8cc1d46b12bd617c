#include "frontends/win32/box_watch.h"

#include <string_view>
#include <utility>

namespace vmgv {
namespace {

constexpr UINT kShortestInterval = USER_TIMER_MINIMUM;

bool isDialog(HWND window) noexcept {
  wchar_t name[16] = L"";
  GetClassNameW(window, name, 16);
  return std::wstring_view(name) == L"#32770";
}

}  // namespace

thread_local Win32Desktop::BoxWatch* Win32Desktop::BoxWatch::top_ = nullptr;

Win32Desktop::BoxWatch::BoxWatch(Win32Desktop& desktop, OpenBox& open, std::function<void()> giveUp)
    : desktop_(desktop), open_(open), giveUp_(std::move(giveUp)), below_(std::exchange(top_, this)) {
  if (!desktop.idle_) return;
  hook_ = SetWindowsHookExW(WH_CBT, noteActivation, nullptr, GetCurrentThreadId());
  timer_ = SetTimer(nullptr, 0, kShortestInterval, idle);
}

Win32Desktop::BoxWatch::~BoxWatch() {
  if (timer_) KillTimer(nullptr, timer_);
  if (hook_) UnhookWindowsHookEx(hook_);
  top_ = below_;
}

LRESULT CALLBACK Win32Desktop::BoxWatch::noteActivation(int code, WPARAM wParam, LPARAM lParam) {
  const HWND window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_ACTIVATE && top_ && !top_->open_.window && isDialog(window)) top_->open_.window = window;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK Win32Desktop::BoxWatch::idle(HWND, UINT, UINT_PTR timer, DWORD) {
  if (!top_ || top_->timer_ != timer) return;
  Win32Desktop& desktop = top_->desktop_;
  if (!desktop.shown_.empty() && desktop.shown_.back().box == &top_->open_) desktop.letActOn(top_->giveUp_);
}

}  // namespace vmgv
