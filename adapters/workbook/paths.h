// Paths as text: UTF-8, whatever the platform's own paths are made of.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vmgv::workbook {

inline std::filesystem::path pathOf(std::string_view text) {
  return {std::u8string_view(reinterpret_cast<const char8_t*>(text.data()), text.size())};
}

inline std::string textOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {reinterpret_cast<const char*>(text.data()), text.size()};
}

}  // namespace vmgv::workbook
