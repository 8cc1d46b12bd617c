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
const std::wstring kOwnBits = sizeof(void*) == 8 ? L"win64" : L"win32";
const std::wstring kOtherBits = sizeof(void*) == 8 ? L"win32" : L"win64";
const std::wstring kClasses = L"Software\\Classes\\";
const std::wstring kClsid = L"{09B2BA80-0295-47A1-9F8B-69BFAFB62A9B}", kClass = L"CLSID\\" + kClsid;
const std::wstring kLibid = L"{95CA773F-1B2B-4C80-A0F3-47E48B102897}", kLibrary = L"TypeLib\\" + kLibid;

using Snapshot = std::map<std::wstring, std::wstring>;  // values by key and name

void collect(HKEY root, const std::wstring& path, int depth, Snapshot& into) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  into[path];
  wchar_t name[512];
  BYTE data[2048];
  for (DWORD i = 0;; ++i) {
    DWORD length = 512, bytes = sizeof(data);
    if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, data, &bytes) != ERROR_SUCCESS) break;
    into[path + L"@" + name].assign(reinterpret_cast<wchar_t*>(data), bytes / sizeof(wchar_t));
  }
  for (DWORD i = 0; depth > 0 && RegEnumKeyW(key, i, name, 512) == ERROR_SUCCESS; ++i) {
    collect(root, path + L"\\" + name, depth - 1, into);
  }
  RegCloseKey(key);
}

std::wstring valueOf(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[MAX_PATH + 10] = L"(missing)";
  DWORD bytes = sizeof(text);
  RegGetValueW(root, (kClasses + key).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return text;
}

bool exists(const std::wstring& key, REGSAM view = 0) {
  return registryKeyExists(HKEY_LOCAL_MACHINE, kClasses + key, view);
}

class Registration : public testing::Test {
 protected:
  // All classes, interfaces, type libraries and program ids of machine and user.
  static Snapshot snapshot() {
    Snapshot all;
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) collect(root, L"Software\\Classes", 2, all);
    return all;
  }
  ~Registration() override { EXPECT_EQ(before, snapshot()); }

  const Snapshot before = snapshot();
};

TEST_F(Registration, EntersEverythingAndTakesOutNothingElse) {
  ASSERT_GT(before.size(), 1000U);
  const std::wstring path = controlLibrary().path, name = L"vmGridViews.vmgrEdit", version = name + L".1";
  ASSERT_EQ(S_OK, controlLibrary().enter());
  ASSERT_EQ(S_OK, controlLibrary().enter());  // a repair
  const std::pair<std::wstring, std::wstring> expected[] = {{name + L"\\CLSID", kClsid},
                                                            {name + L"\\CurVer", version},
                                                            {version + L"\\CLSID", kClsid},
                                                            {kClass + L"\\ProgID", version},
                                                            {kClass + L"\\VersionIndependentProgID", name},
                                                            {kClass + L"\\InprocServer32", path},
                                                            {kClass + L"\\Control", L""},
                                                            {kClass + L"\\ToolboxBitmap32", path + L", 101"},
                                                            {kClass + L"\\MiscStatus", L"0"},
                                                            {kClass + L"\\TypeLib", kLibid},
                                                            {kClass + L"\\Version", L"1.0"},
                                                            {kLibrary + L"\\1.0\\0\\" + kOwnBits, path}};
  for (const auto& [key, value] : expected) EXPECT_EQ(value, valueOf(HKEY_LOCAL_MACHINE, key)) << narrow(key);
  EXPECT_EQ(L"Apartment", valueOf(HKEY_LOCAL_MACHINE, kClass + L"\\InprocServer32", L"ThreadingModel"));
  const long status = std::stol(valueOf(HKEY_LOCAL_MACHINE, kClass + L"\\MiscStatus\\1"));
  EXPECT_TRUE(status & OLEMISC_SETCLIENTSITEFIRST);
  HMODULE module = GetModuleHandleW(path.c_str());
  EXPECT_TRUE(FindResourceW(module, MAKEINTRESOURCEW(101), MAKEINTRESOURCEW(2 /* RT_BITMAP */)));
  ASSERT_EQ(S_OK, controlLibrary().remove());
  EXPECT_EQ(S_OK, controlLibrary().remove());  // once more
}

TEST_F(Registration, LeavesTheOtherWidthUsable) {
  const std::wstring otherLibrary = kLibrary + L"\\1.0\\0\\" + kOtherBits, server = L"\\InprocServer32";
  const RegistryKey here(HKEY_LOCAL_MACHINE, L"Software\\Classes", KEY_ALL_ACCESS);
  const RegistryKey there(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", KEY_ALL_ACCESS | kOtherWidth);
  ASSERT_EQ(S_OK, controlLibrary().enter());
  there.write(kClsid + server, L"other.dll");
  here.write(otherLibrary, L"other.dll");
  ASSERT_EQ(S_OK, controlLibrary().remove());
  EXPECT_FALSE(exists(kClass));
  EXPECT_TRUE(exists(kClass + server, kOtherWidth));
  EXPECT_EQ(kClsid, valueOf(HKEY_LOCAL_MACHINE, L"vmGridViews.vmgrEdit\\CLSID"));
  EXPECT_EQ(L"other.dll", valueOf(HKEY_LOCAL_MACHINE, otherLibrary));

  // The other width goes too.
  there.remove(kClsid);
  ASSERT_EQ(S_OK, controlLibrary().enter());
  ASSERT_EQ(S_OK, controlLibrary().remove());
  here.remove(kLibrary);
}

HRESULT makeNothing(IUnknown*, REFIID, void**) { return E_NOTIMPL; }
constexpr ServerClass kOne[] = {
    {{0x1D6B5F62, 0x6F0B, 0x4A55, {0x9C, 0x1E, 0x5B, 0x0C, 0x2D, 0x7F, 0x3A, 0x88}},
     L"vmGridViewsTest.One",
     L"a test's class",
     makeNothing,
     {}}};

TEST_F(Registration, WorksForOneUserAlone) {
  ASSERT_EQ(S_OK, controlLibrary().install(TRUE, L"user"));
  EXPECT_EQ(L"vmGridViews.vmgrEdit.1", valueOf(HKEY_CURRENT_USER, L"vmGridViews.vmgrEdit\\CurVer"));
  EXPECT_FALSE(registryKeyExists(HKEY_LOCAL_MACHINE, kClasses + kClass, 0));
  EXPECT_EQ(E_INVALIDARG, controlLibrary().install(TRUE, L"nobody"));
  ASSERT_EQ(S_OK, controlLibrary().install(FALSE, L"user"));
}

TEST_F(Registration, AnotherCopyOfTheLibraryKeepsItsOwn) {
  const std::wstring server = kClass + L"\\InprocServer32", present = L"C:\\windows\\system32\\ole32.dll";
  const RegistryKey classes(HKEY_LOCAL_MACHINE, L"Software\\Classes", KEY_ALL_ACCESS);
  ASSERT_EQ(S_OK, controlLibrary().enter());
  classes.write(server, present);
  ASSERT_EQ(S_OK, controlLibrary().remove());
  EXPECT_EQ(present, valueOf(HKEY_LOCAL_MACHINE, server));
  classes.write(server, L"C:\\windows\\system32\\gone.dll");
  ASSERT_EQ(S_OK, controlLibrary().remove());
}

TEST_F(Registration, AFailureOnTheWayLeavesNothing) {
  const Server withoutLibrary{kOne, kOne[0].clsid};  // this program has no type library in it
  EXPECT_THROW(registerServer(withoutLibrary, Scope::Machine), Error);
}

// A newer version of the program has taken the name over.
TEST_F(Registration, ANewerVersionKeepsItsName) {
  const Server one{kOne};
  registerServer(one, Scope::Machine);
  const RegistryKey classes(HKEY_LOCAL_MACHINE, L"Software\\Classes", KEY_ALL_ACCESS);
  classes.write(L"vmGridViewsTest.One\\CurVer", L"vmGridViewsTest.One.2");
  unregisterServer(one, Scope::Machine);
  EXPECT_TRUE(exists(L"vmGridViewsTest.One"));
  EXPECT_FALSE(exists(L"vmGridViewsTest.One.1"));
  classes.remove(L"vmGridViewsTest.One");
}

}  // namespace
}  // namespace test
}  // namespace vmgv
