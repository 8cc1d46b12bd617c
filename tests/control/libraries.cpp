#include "tests/control/libraries.h"

#include <gtest/gtest.h>

namespace vmgv::test {
namespace {

// The apartment that all tests live in. At the end nothing of the servers may be left.
struct Apartment : testing::Environment {
  void SetUp() override { ASSERT_EQ(S_OK, OleInitialize(nullptr)); }
  void TearDown() override {
    EXPECT_EQ(S_OK, controlLibrary().canUnload());
    OleUninitialize();
  }
};

[[maybe_unused]] const auto* const kApartment = testing::AddGlobalTestEnvironment(new Apartment);

std::wstring besideTheTests(const wchar_t* file) {
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring folder = program;  // build/tests/control/control_test.exe
  for (int up = 0; up < 3; ++up) folder.resize(folder.find_last_of(L'\\'));
  return folder + L"\\bin\\" + file;
}

BOOL CALLBACK closeDialog(HWND window, LPARAM) {
  const bool open = IsWindowVisible(window) && IsWindowEnabled(window);
  if (!open || !(GetWindowLongW(window, GWL_STYLE) & WS_SYSMENU)) return TRUE;
  wchar_t title[200] = L"";
  GetWindowTextW(window, title, 200);
  ClosesDialogs::lastTitle = title;
  ++ClosesDialogs::closed;
  SendMessageW(window, WM_CLOSE, 0, 0);
  return FALSE;
}

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) { EnumThreadWindows(GetCurrentThreadId(), closeDialog, 0); }

}  // namespace

Library::Library(const wchar_t* file) : path(besideTheTests(file)) {
  HMODULE module = LoadLibraryW(path.c_str());
  classObject = entry<decltype(classObject)>(module, "DllGetClassObject");
  canUnload = entry<decltype(canUnload)>(module, "DllCanUnloadNow");
  enter = entry<decltype(enter)>(module, "DllRegisterServer");
  remove = entry<decltype(remove)>(module, "DllUnregisterServer");
  install = entry<decltype(install)>(module, "DllInstall");
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

ComPtr<IClassFactory> controlFactory() {
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(S_OK, controlLibrary().classObject(__uuidof(::vmgrEdit), IID_IClassFactory, factory.putVoid()));
  return factory;
}

ComPtr<_vmgrEdit> makeControl() {
  ComPtr<_vmgrEdit> control;
  EXPECT_EQ(S_OK, controlFactory()->CreateInstance(nullptr, __uuidof(_vmgrEdit), control.putVoid()));
  return control;
}

ComPtr<IConnectionPoint> notificationsOf(_vmgrEdit& control) {
  ComPtr<IConnectionPoint> point;
  const auto points = ComPtr(&control).as<IConnectionPointContainer>();
  EXPECT_EQ(S_OK, points->FindConnectionPoint(IID_IPropertyNotifySink, point.put()));
  return point;
}

ClosesDialogs::ClosesDialogs() : timer_(SetTimer(nullptr, 0, 20, tick)) {}

}  // namespace vmgv::test
