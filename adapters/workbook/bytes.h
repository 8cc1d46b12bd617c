// Numbers as files hold them, in little-endian order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vmgv::workbook {

// Of a zip record: the number stands in a 64-bit field.
inline constexpr std::uint32_t kElsewhere = 0xFFFFFFFF;

// The caller has seen to it that the bytes are there.
template <class Number>
Number littleEndian(std::string_view bytes, std::size_t offset) {
  Number number = 0;
  for (std::size_t i = sizeof(Number); i > 0; --i) {
    number = static_cast<Number>(number << 8 | static_cast<unsigned char>(bytes[offset + i - 1]));
  }
  return number;
}

inline std::uint16_t number16(std::string_view bytes, std::size_t offset) {
  return littleEndian<std::uint16_t>(bytes, offset);
}
inline std::uint32_t number32(std::string_view bytes, std::size_t offset) {
  return littleEndian<std::uint32_t>(bytes, offset);
}
inline std::uint64_t number64(std::string_view bytes, std::size_t offset) {
  return littleEndian<std::uint64_t>(bytes, offset);
}

}  // namespace vmgv::workbook
