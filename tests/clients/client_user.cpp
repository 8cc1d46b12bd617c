// A user of the script host's dialogs: finds their windows from another process and types.
//
//   client_user STEP ...
//   title=TEXT  waits for an open dialog with that title; the steps after it act there
//   key=NAME    types a key where the dialog has its focus
//   gone        waits until the dialog is gone
//   dismiss     closes every dialog by its title bar, for ever
#include <windows.h>
//
#include <shellapi.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

constexpr int kPatience = 15'000, kGlance = 20;  // milliseconds

bool isScriptHost(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
  wchar_t path[MAX_PATH] = L"";
  DWORD length = MAX_PATH;
  QueryFullProcessImageNameW(handle, 0, path, &length);
  CloseHandle(handle);
  return std::wstring_view(path, length).ends_with(L"cscript.exe");
}

// With any title, where none is given.
HWND openDialog(const wchar_t* title) {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, L"#32770", title))) {
    if (IsWindowVisible(window) && IsWindowEnabled(window) && isScriptHost(window)) break;
  }
  return window;
}

HWND focusIn(HWND dialog) {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
  return info.hwndFocus == dialog || IsChild(dialog, info.hwndFocus) ? info.hwndFocus : nullptr;
}

template <class Condition>
bool comesTrue(Condition&& condition) {
  for (int waited = 0; waited < kPatience; waited += kGlance) {
    if (condition()) return true;
    Sleep(kGlance);
  }
  return false;
}

WPARAM keyNamed(const std::wstring& name) {
  static const std::map<std::wstring, WPARAM> kKeys = {
      {L"tab", VK_TAB}, {L"down", VK_DOWN}, {L"enter", VK_RETURN}, {L"escape", VK_ESCAPE}};
  return kKeys.contains(name) ? kKeys.at(name) : 0;
}

// Returns when the dialog waits for messages.
void letSettle(HWND dialog) {
  DWORD_PTR ignored = 0;
  SendMessageTimeoutW(dialog, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &ignored);
}

// The next key waits until the dialog has dealt with this one.
bool type(HWND dialog, WPARAM key) {
  letSettle(dialog);
  HWND focused = nullptr;
  if (!key || !comesTrue([&] { return (focused = focusIn(dialog)) != nullptr; })) return false;
  const auto scan = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC)) << 16;
  PostMessageW(focused, WM_KEYDOWN, key, 1 | scan);
  PostMessageW(focused, WM_KEYUP, key, 0xC0000001 | scan);
  letSettle(dialog);
  Sleep(5 * kGlance);
  return true;
}

[[noreturn]] void dismissForEver() {
  for (;; Sleep(kGlance)) {
    if (HWND dialog = openDialog(nullptr)) PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  }
}

bool act(const std::wstring& step, HWND& dialog) {
  if (step.starts_with(L"title=")) {
    return comesTrue([&] { return (dialog = openDialog(step.c_str() + 6)) != nullptr; });
  }
  if (step.starts_with(L"key=")) return type(dialog, keyNamed(step.substr(4)));
  if (step == L"gone") return comesTrue([&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
  if (step == L"dismiss") dismissForEver();
  return false;
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* steps = CommandLineToArgvW(GetCommandLineW(), &count);
  HWND dialog = nullptr;
  for (int i = 1; i < count; ++i) {
    if (act(steps[i], dialog)) continue;
    std::fprintf(stderr, "client_user: step %d (%ls) cannot be done\n", i, steps[i]);
    return 1;
  }
  return 0;
}
