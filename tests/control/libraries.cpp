#include "tests/control/libraries.h"

#include <gtest/gtest.h>

namespace vmgv::test {
namespace {

std::wstring besideTheTests(const wchar_t* file) {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring program(path);  // build/tests/control/control_test.exe
  std::wstring folder = program;
  for (int up = 0; up < 3; ++up) folder.resize(folder.find_last_of(L'\\'));
  return folder + L"\\bin\\" + file;
}

template <class Function>
Function entry(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

int closedDialogs = 0;
UINT_PTR timer = 0;
std::wstring title;

BOOL CALLBACK closeDialog(HWND window, LPARAM) {
  if (!IsWindowVisible(window) || !IsWindowEnabled(window) || GetWindow(window, GW_OWNER) == window)
    return TRUE;
  if (!(GetWindowLongW(window, GWL_STYLE) & WS_SYSMENU)) return TRUE;
  wchar_t text[200] = L"";
  GetWindowTextW(window, text, 200);
  title = text;
  ++closedDialogs;
  SendMessageW(window, WM_CLOSE, 0, 0);
  return FALSE;
}

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) { EnumThreadWindows(GetCurrentThreadId(), closeDialog, 0); }

}  // namespace

Library::Library(const wchar_t* file) : path_(besideTheTests(file)) {
  HMODULE module = LoadLibraryW(path_.c_str());
  classObject_ = entry<decltype(classObject_)>(module, "DllGetClassObject");
  canUnload_ = entry<decltype(canUnload_)>(module, "DllCanUnloadNow");
  register_ = entry<decltype(register_)>(module, "DllRegisterServer");
  unregister_ = entry<decltype(unregister_)>(module, "DllUnregisterServer");
  if (!classObject_ || !canUnload_ || !register_ || !unregister_) {
    std::fprintf(stderr, "%s cannot be loaded, or lacks an entry point\n", narrow(path_).c_str());
    std::abort();
  }
}

ComPtr<IClassFactory> Library::factory(REFCLSID clsid) const {
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(S_OK, classObject_(clsid, IID_IClassFactory, factory.putVoid()));
  return factory;
}

const Library& controlLibrary() {
  static const Library library(L"vmGridViews.dll");
  return library;
}

const Library& stringLibrary() {
  static const Library library(L"vmGridViewsStrings.dll");
  return library;
}

Registered::Registered(const Library& library) : library_(library) { EXPECT_EQ(S_OK, library.enter()); }

ComPtr<_vmgrEdit> makeControl() {
  ComPtr<_vmgrEdit> control;
  EXPECT_EQ(S_OK, controlLibrary()
                      .factory(__uuidof(::vmgrEdit))
                      ->CreateInstance(nullptr, __uuidof(_vmgrEdit), control.putVoid()));
  return control;
}

DISPID idOf(IDispatch& object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  auto* text = const_cast<wchar_t*>(name);
  EXPECT_EQ(S_OK, object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id)) << narrow(name);
  return id;
}

ClosesDialogs::ClosesDialogs() { timer = SetTimer(nullptr, 0, 20, tick); }
ClosesDialogs::~ClosesDialogs() { KillTimer(nullptr, timer); }
int ClosesDialogs::closed() noexcept { return closedDialogs; }
std::wstring ClosesDialogs::lastTitle() { return title; }

}  // namespace vmgv::test
