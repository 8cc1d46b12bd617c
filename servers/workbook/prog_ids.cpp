#include "servers/workbook/prog_ids.h"

#include <vector>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "servers/common/registry.h"

namespace vmgv {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes";
constexpr REGSAM kOtherWidth = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

HKEY rootOf(Scope scope) noexcept { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

std::wstring textOf(const CLSID& clsid) {
  wchar_t text[39];
  StringFromGUID2(clsid, text, static_cast<int>(std::size(text)));
  return text;
}

// The class's own list of them: one key each.
std::wstring listOf(const CLSID& clsid) { return L"CLSID\\" + textOf(clsid) + L"\\OtherProgIDs"; }

void requireName(const std::wstring& progId) {
  if (progId.empty() || progId.size() > 39 || progId.find_first_of(L"\\/ ") != std::wstring::npos) {
    throw Error(ErrorNumber::InvalidCall, "\"" + narrow(progId) + "\" cannot be a program id");
  }
}

std::vector<std::wstring> keysBelow(HKEY root, const std::wstring& path) {
  std::vector<std::wstring> names;
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_ENUMERATE_SUB_KEYS, &key) != ERROR_SUCCESS) return names;
  wchar_t name[256];
  for (DWORD length = std::size(name); RegEnumKeyExW(key, static_cast<DWORD>(names.size()), name, &length,
                                                     nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       length = std::size(name)) {
    names.emplace_back(name, length);
  }
  RegCloseKey(key);
  return names;
}

}  // namespace

void addProgId(const CLSID& clsid, const std::wstring& progId, Scope scope) {
  requireName(progId);
  // an id of all users would be hidden by the user's own
  CLSID present;
  if (SUCCEEDED(CLSIDFromProgID(progId.c_str(), &present)) && present != clsid) {
    throw Error(ErrorNumber::PathAccess, narrow(progId) + " is another program's id already");
  }
  const RegistryKey classes(rootOf(scope), kClasses, KEY_READ | KEY_WRITE);
  classes.write(listOf(clsid) + L"\\" + progId, L"");
  classes.write(progId, L"vmGridViews workbook");
  classes.write(progId + L"\\CLSID", textOf(clsid));
}

void removeProgId(const CLSID& clsid, const std::wstring& progId, Scope scope) {
  requireName(progId);
  const RegistryKey classes(rootOf(scope), kClasses, KEY_READ | KEY_WRITE);
  const std::wstring mark = listOf(clsid) + L"\\" + progId;
  if (!registryKeyExists(classes.get(), mark, 0)) return;
  classes.remove(mark);
  if (keysBelow(classes.get(), listOf(clsid)).empty()) classes.remove(listOf(clsid));
  const std::wstring otherMark = std::wstring(kClasses) + L"\\" + mark;
  if (registryKeyExists(rootOf(scope), otherMark, kOtherWidth)) return;
  if (classes.read(progId + L"\\CLSID") == textOf(clsid)) classes.remove(progId);
}

void removeAllProgIds(const CLSID& clsid, Scope scope) {
  for (const std::wstring& progId :
       keysBelow(rootOf(scope), std::wstring(kClasses) + L"\\" + listOf(clsid))) {
    removeProgId(clsid, progId, scope);
  }
}

}  // namespace vmgv
