#include "servers/common/registry.h"

#include "frontends/com/text.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

void succeed(LSTATUS status, const std::wstring& path) {
  if (status != ERROR_SUCCESS) {
    throw errorOf(HRESULT_FROM_WIN32(static_cast<DWORD>(status)), "registry key " + narrow(path));
  }
}

}  // namespace

RegistryKey::RegistryKey(HKEY root, const std::wstring& path, REGSAM access) {
  succeed(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, access, nullptr, &key_, nullptr), path);
}

void RegistryKey::write(const std::wstring& path, const std::wstring& text, const std::wstring& name) const {
  const RegistryKey key(key_, path, KEY_SET_VALUE);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  succeed(
      RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes),
      path);
}

std::wstring RegistryKey::read(const std::wstring& path) const {
  wchar_t text[MAX_PATH] = L"";
  DWORD bytes = sizeof(text);
  const LSTATUS status = RegGetValueW(key_, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return status == ERROR_SUCCESS ? text : L"";
}

void RegistryKey::remove(const std::wstring& path) const {
  const LSTATUS status = RegDeleteTreeW(key_, path.c_str());
  if (status != ERROR_FILE_NOT_FOUND) succeed(status, path);
}

bool registryKeyExists(HKEY root, const std::wstring& path, REGSAM view) noexcept {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_QUERY_VALUE | view, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

}  // namespace vmgv
