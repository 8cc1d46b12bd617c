#include "servers/common/registration.h"

#include <algorithm>
#include <vector>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "servers/common/registry.h"
#include "servers/common/type_info.h"

// MinGW's headers leave these two out.
STDAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
STDAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID language, SYSKIND system);

namespace vmgv {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes";
constexpr const wchar_t* kVersion = L"1.0";
constexpr WORD kMajor = 1, kMinor = 0;
constexpr bool k64Bit = sizeof(void*) == 8;
constexpr REGSAM kOtherWidth = k64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

HKEY rootOf(Scope scope) noexcept { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

std::wstring textOf(const GUID& guid) {
  wchar_t text[39];
  StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
  return text;
}

// The library's own prints wide numbers by another 10 KB.
template <class Number>
std::wstring numberText(Number number) {
  return wide(std::to_string(number));
}

std::wstring keyOf(const ServerClass& made) { return L"CLSID\\" + textOf(made.clsid); }
std::wstring versionedProgId(const ServerClass& made) { return std::wstring(made.progId) + L".1"; }

// Where the class is said to be; "" where nothing is said.
std::wstring fileOf(Scope scope, const ServerClass& made) {
  return RegistryKey(rootOf(scope), kClasses, KEY_READ).read(keyOf(made) + L"\\InprocServer32");
}

bool isAnotherCopy(const std::wstring& file) {
  const bool own = CompareStringOrdinal(file.c_str(), -1, modulePath().c_str(), -1, TRUE) == CSTR_EQUAL;
  return !own && GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void enterControl(const RegistryKey& classes, const std::wstring& key, const ControlFacts& control,
                  const std::wstring& path) {
  // No Insertable: it would offer the control to documents as an object with content, which it has none of.
  classes.write(key + L"\\Control", L"");
  classes.write(key + L"\\ToolboxBitmap32", path + L", " + numberText(control.toolboxBitmap));
  classes.write(key + L"\\MiscStatus", L"0");
  classes.write(key + L"\\MiscStatus\\1", numberText(control.miscStatus));  // DVASPECT_CONTENT
}

void enterClass(const RegistryKey& classes, const ServerClass& made, const std::optional<GUID>& typeLibrary) {
  const std::wstring clsid = textOf(made.clsid), versioned = versionedProgId(made), path = modulePath();
  classes.write(versioned, made.caption);
  classes.write(versioned + L"\\CLSID", clsid);
  classes.write(made.progId, made.caption);
  classes.write(std::wstring(made.progId) + L"\\CLSID", clsid);
  classes.write(std::wstring(made.progId) + L"\\CurVer", versioned);

  const std::wstring key = keyOf(made);
  classes.write(key, made.caption);
  classes.write(key + L"\\ProgID", versioned);
  classes.write(key + L"\\VersionIndependentProgID", made.progId);
  classes.write(key + L"\\InprocServer32", path);
  classes.write(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
  classes.write(key + L"\\Version", kVersion);
  if (typeLibrary) classes.write(key + L"\\TypeLib", textOf(*typeLibrary));
  if (made.control) enterControl(classes, key, *made.control, path);
}

void removeClass(const RegistryKey& classes, Scope scope, const ServerClass& made) {
  classes.remove(keyOf(made));
  const std::wstring otherWidth = std::wstring(kClasses) + L"\\" + keyOf(made) + L"\\InprocServer32";
  if (registryKeyExists(rootOf(scope), otherWidth, kOtherWidth)) return;
  const std::wstring versioned = versionedProgId(made);
  classes.remove(versioned);
  if (classes.read(std::wstring(made.progId) + L"\\CurVer") == versioned) classes.remove(made.progId);
}

void enterTypeLibrary(Scope scope) {
  std::wstring path = modulePath();
  const ComPtr<ITypeLib> library = embeddedTypeLibrary();
  const auto enter = scope == Scope::Machine ? RegisterTypeLib : RegisterTypeLibForUser;
  check(enter(library.get(), path.data(), nullptr), "registering the type library");
}

void removeTypeLibrary(const GUID& library, Scope scope) {
  const auto remove = scope == Scope::Machine ? UnRegisterTypeLib : UnRegisterTypeLibForUser;
  const HRESULT removed = remove(library, kMajor, kMinor, LOCALE_NEUTRAL, k64Bit ? SYS_WIN64 : SYS_WIN32);
  if (removed != TYPE_E_REGISTRYACCESS) check(removed, "unregistering the type library");  // it is not there
}

}  // namespace

Scope writableScope() noexcept {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kClasses, 0, KEY_CREATE_SUB_KEY, &key) != ERROR_SUCCESS) {
    return Scope::User;
  }
  RegCloseKey(key);
  return Scope::Machine;
}

bool isRegistered(const Server& server, Scope scope) {
  return std::ranges::any_of(server.classes, [scope](const ServerClass& made) {
    const std::wstring key = std::wstring(kClasses) + L"\\" + keyOf(made);
    return registryKeyExists(rootOf(scope), key, 0) && !isAnotherCopy(fileOf(scope, made));
  });
}

void registerServer(const Server& server, Scope scope) {
  const RegistryKey classes(rootOf(scope), kClasses, KEY_CREATE_SUB_KEY);
  try {
    for (const ServerClass& made : server.classes) enterClass(classes, made, server.typeLibrary);
    if (server.typeLibrary) enterTypeLibrary(scope);
  } catch (const Error&) {
    guarded([&] { unregisterServer(server, scope); });  // the first failure is the one to report
    throw;
  }
}

void unregisterServer(const Server& server, Scope scope) {
  const RegistryKey classes(rootOf(scope), kClasses, KEY_READ | KEY_WRITE);
  for (const ServerClass& made : server.classes) removeClass(classes, scope, made);
  if (server.typeLibrary) removeTypeLibrary(*server.typeLibrary, scope);
}

}  // namespace vmgv
