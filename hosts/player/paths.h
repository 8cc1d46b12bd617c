// File names between UTF-8, as scripts and the core hold them, and the platform's own form.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vmgv {

inline std::filesystem::path pathOf(std::string_view utf8) { return std::u8string(utf8.begin(), utf8.end()); }

inline std::string pathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace vmgv
