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
#include <string>

namespace {

constexpr int kPatience = 15'000, kGlance = 20;  // milliseconds

struct Search {
  std::wstring title;  // empty: any
  HWND found = nullptr;
};

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

BOOL CALLBACK look(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t text[200] = L"", kind[20] = L"";
  GetWindowTextW(window, text, 200);
  GetClassNameW(window, kind, 20);
  const bool open =
      IsWindowVisible(window) && IsWindowEnabled(window) && std::wstring_view(kind) == L"#32770";
  if (!open || (!search.title.empty() && search.title != text) || !isScriptHost(window)) return TRUE;
  search.found = window;
  return FALSE;
}

HWND openDialog(const std::wstring& title) {
  Search search{title};
  EnumWindows(look, reinterpret_cast<LPARAM>(&search));
  return search.found;
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

WPARAM keyNamed(std::wstring_view name) {
  constexpr struct {
    std::wstring_view name;
    WPARAM key;
  } kKeys[] = {{L"tab", VK_TAB},     {L"down", VK_DOWN},    {L"up", VK_UP},         {L"left", VK_LEFT},
               {L"right", VK_RIGHT}, {L"enter", VK_RETURN}, {L"escape", VK_ESCAPE}, {L"space", VK_SPACE}};
  for (const auto& one : kKeys) {
    if (one.name == name) return one.key;
  }
  return 0;
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
    if (HWND dialog = openDialog({})) PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  }
}

bool act(const std::wstring& step, HWND& dialog) {
  if (step.starts_with(L"title=")) {
    return comesTrue([&] { return (dialog = openDialog(step.substr(6))) != nullptr; });
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
