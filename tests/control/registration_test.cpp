// What registering enters, and that unregistering takes out that and nothing else.
#include "servers/common/registration.h"

#include <gtest/gtest.h>

#include <map>

#include "frontends/com/wall.h"
#include "servers/common/registry.h"
#include "tests/control/libraries.h"

namespace vmgv {

// The entry points that come with the registration want a server; nothing asks for it here.
const Server& server() {
  static const Server none{};
  return none;
}

namespace test {
namespace {

constexpr REGSAM kOtherWidth = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
const std::wstring kClasses = L"Software\\Classes\\";
const std::wstring kClass = L"CLSID\\{09B2BA80-0295-47A1-9F8B-69BFAFB62A9B}";
const std::wstring kLibrary = L"TypeLib\\{95CA773F-1B2B-4C80-A0F3-47E48B102897}";
const wchar_t* const kProgId = L"vmGridViews.vmgrEdit";

using Snapshot = std::map<std::wstring, std::wstring>;  // values by key and name

void collect(HKEY parent, const std::wstring& path, int depth, Snapshot& into) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  into[path];
  wchar_t name[512];
  BYTE data[2048];
  for (DWORD i = 0;; ++i) {
    DWORD length = 512, bytes = sizeof(data), type = 0;
    if (RegEnumValueW(key, i, name, &length, nullptr, &type, data, &bytes) != ERROR_SUCCESS) break;
    into[path + L"@" + name].assign(reinterpret_cast<wchar_t*>(data), bytes / sizeof(wchar_t));
  }
  for (DWORD i = 0; depth > 0 && RegEnumKeyW(key, i, name, 512) == ERROR_SUCCESS; ++i) {
    collect(parent, path + L"\\" + name, depth - 1, into);
  }
  RegCloseKey(key);
}

// All classes, interfaces, type libraries and program ids of machine and user.
Snapshot snapshot() {
  Snapshot all;
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) collect(root, L"Software\\Classes", 2, all);
  return all;
}

std::wstring valueOf(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[MAX_PATH + 10] = L"";
  DWORD bytes = sizeof(text);
  return RegGetValueW(root, (kClasses + key).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes) ==
                 ERROR_SUCCESS
             ? text
             : L"(missing)";
}

bool exists(HKEY root, const std::wstring& key, REGSAM view = 0) {
  return registryKeyExists(root, kClasses + key, view);
}

TEST(Registration, EntersEverythingAndTakesOutNothingElse) {
  const Snapshot before = snapshot();
  ASSERT_GT(before.size(), 1000U);
  const std::wstring& path = controlLibrary().path();
  ASSERT_EQ(S_OK, controlLibrary().enter());
  ASSERT_EQ(S_OK, controlLibrary().enter());  // a repair
  const std::wstring clsid = kClass.substr(6), version = std::wstring(kProgId) + L".1";
  const std::pair<std::wstring, std::wstring> expected[] = {
      {std::wstring(kProgId) + L"\\CLSID", clsid},
      {std::wstring(kProgId) + L"\\CurVer", version},
      {version + L"\\CLSID", clsid},
      {kClass + L"\\ProgID", version},
      {kClass + L"\\VersionIndependentProgID", kProgId},
      {kClass + L"\\InprocServer32", path},
      {kClass + L"\\Control", L""},
      {kClass + L"\\ToolboxBitmap32", path + L", 101"},
      {kClass + L"\\MiscStatus", L"0"},
      {kClass + L"\\TypeLib", kLibrary.substr(8)},
      {kClass + L"\\Version", L"1.0"},
      {kLibrary + L"\\1.0\\0\\" + (sizeof(void*) == 8 ? L"win64" : L"win32"), path}};
  for (const auto& [key, value] : expected) EXPECT_EQ(value, valueOf(HKEY_LOCAL_MACHINE, key)) << narrow(key);
  EXPECT_EQ(L"Apartment", valueOf(HKEY_LOCAL_MACHINE, kClass + L"\\InprocServer32", L"ThreadingModel"));
  EXPECT_TRUE(std::stol(valueOf(HKEY_LOCAL_MACHINE, kClass + L"\\MiscStatus\\1")) &
              OLEMISC_SETCLIENTSITEFIRST);

  CLSID found{};
  EXPECT_EQ(S_OK, CLSIDFromProgID(kProgId, &found));
  ComPtr<IDispatch> made;
  EXPECT_EQ(S_OK, CoCreateInstance(found, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.putVoid()));
  EXPECT_TRUE(made.as<_vmgrEdit>());
  HMODULE module = GetModuleHandleW(path.c_str());
  EXPECT_TRUE(FindResourceW(module, MAKEINTRESOURCEW(101), MAKEINTRESOURCEW(2 /* RT_BITMAP */)));

  ASSERT_EQ(S_OK, controlLibrary().remove());
  EXPECT_EQ(before, snapshot());
  EXPECT_EQ(S_OK, controlLibrary().remove());  // once more
}

TEST(Registration, LeavesTheOtherWidthUsable) {
  const Snapshot before = snapshot();
  const std::wstring otherLibrary = kLibrary + L"\\1.0\\0\\" + (sizeof(void*) == 8 ? L"win32" : L"win64");
  {
    ASSERT_EQ(S_OK, controlLibrary().enter());
    HKEY other = nullptr;
    ASSERT_EQ(ERROR_SUCCESS,
              RegCreateKeyExW(HKEY_LOCAL_MACHINE, (kClasses + kClass + L"\\InprocServer32").c_str(), 0,
                              nullptr, 0, KEY_WRITE | kOtherWidth, nullptr, &other, nullptr));
    RegCloseKey(other);
    const RegistryKey classes(HKEY_LOCAL_MACHINE, L"Software\\Classes", KEY_CREATE_SUB_KEY);
    classes.write(otherLibrary, L"other.dll");
  }
  ASSERT_EQ(S_OK, controlLibrary().remove());
  EXPECT_FALSE(exists(HKEY_LOCAL_MACHINE, kClass));
  EXPECT_TRUE(exists(HKEY_LOCAL_MACHINE, kClass + L"\\InprocServer32", kOtherWidth));
  EXPECT_EQ(kClass.substr(6), valueOf(HKEY_LOCAL_MACHINE, std::wstring(kProgId) + L"\\CLSID"));
  EXPECT_EQ(L"other.dll", valueOf(HKEY_LOCAL_MACHINE, otherLibrary));

  // The other width goes too.
  RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (kClasses + kClass + L"\\InprocServer32").c_str(), kOtherWidth, 0);
  RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (kClasses + kClass).c_str(), kOtherWidth, 0);
  ASSERT_EQ(S_OK, controlLibrary().enter());
  ASSERT_EQ(S_OK, controlLibrary().remove());
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + kLibrary).c_str());
  EXPECT_EQ(before, snapshot());
}

HRESULT makeNothing(IUnknown*, REFIID, void**) { return E_NOTIMPL; }
constexpr ServerClass kOne[] = {
    {{0x1D6B5F62, 0x6F0B, 0x4A55, {0x9C, 0x1E, 0x5B, 0x0C, 0x2D, 0x7F, 0x3A, 0x88}},
     L"vmGridViewsTest.One",
     L"a test's class",
     makeNothing,
     {}}};

TEST(Registration, WorksForOneUserAlone) {
  const Snapshot before = snapshot();
  const Server one{kOne};
  registerServer(one, Scope::User);
  EXPECT_TRUE(isRegistered(one, Scope::User));
  EXPECT_FALSE(isRegistered(one, Scope::Machine));
  EXPECT_EQ(L"vmGridViewsTest.One.1", valueOf(HKEY_CURRENT_USER, L"vmGridViewsTest.One\\CurVer"));
  unregisterServer(one, Scope::User);
  EXPECT_EQ(before, snapshot());
}

TEST(Registration, AFailureOnTheWayLeavesNothing) {
  const Snapshot before = snapshot();
  const Server withoutLibrary{kOne, kOne[0].clsid};  // this program has no type library in it
  EXPECT_THROW(registerServer(withoutLibrary, Scope::Machine), Error);
  EXPECT_EQ(before, snapshot());
}

// A newer version of the program has taken the name over.
TEST(Registration, ANewerVersionKeepsItsName) {
  const Server one{kOne};
  registerServer(one, Scope::Machine);
  const RegistryKey classes(HKEY_LOCAL_MACHINE, L"Software\\Classes", KEY_READ | KEY_WRITE);
  classes.write(L"vmGridViewsTest.One\\CurVer", L"vmGridViewsTest.One.2");
  unregisterServer(one, Scope::Machine);
  EXPECT_TRUE(exists(HKEY_LOCAL_MACHINE, L"vmGridViewsTest.One"));
  EXPECT_FALSE(exists(HKEY_LOCAL_MACHINE, L"vmGridViewsTest.One.1"));
  classes.remove(L"vmGridViewsTest.One");
}

}  // namespace
}  // namespace test
}  // namespace vmgv
