// The few registry operations that registration needs. Failures are thrown as Error.
#pragma once

#include <windows.h>

#include <string>

namespace vmgv {

// A key below which classes are registered, in the view of this program's width.
class RegistryKey {
 public:
  // Throws Error where the key may not be used.
  RegistryKey(HKEY root, const std::wstring& path, REGSAM access);
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() { RegCloseKey(key_); }

  // Makes the key below, with a text as its value `name` (empty: its default value).
  void write(const std::wstring& path, const std::wstring& text, const std::wstring& name = {}) const;
  // The default value of the key below; "" where there is none.
  std::wstring read(const std::wstring& path) const;
  // Removes the key below with all that it holds; one that is not there is no error.
  void remove(const std::wstring& path) const;

  HKEY get() const noexcept { return key_; }

 private:
  HKEY key_ = nullptr;
};

bool registryKeyExists(HKEY root, const std::wstring& path, REGSAM view) noexcept;

}  // namespace vmgv
