#include "frontends/common/utf8.h"

namespace vmgv {

std::optional<char32_t> takeCodePoint(std::string_view& text) noexcept {
  if (text.empty()) return {};
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  std::size_t length = 0;
  char32_t character = 0, smallest = 0;
  if (lead < 0x80) {
    length = 1, character = lead;
  } else if (lead >= 0xC0 && lead < 0xE0) {
    length = 2, character = lead & 0x1Fu, smallest = 0x80;
  } else if (lead >= 0xE0 && lead < 0xF0) {
    length = 3, character = lead & 0x0Fu, smallest = 0x800;
  } else if (lead >= 0xF0 && lead < 0xF8) {
    length = 4, character = lead & 0x07u, smallest = 0x10000;
  }
  bool sound = length > 0 && length <= text.size();
  for (std::size_t i = 1; sound && i < length; ++i) {
    sound = (byte(i) & 0xC0u) == 0x80;
    character = character << 6 | (byte(i) & 0x3Fu);
  }
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  sound = sound && character >= smallest && character <= 0x10FFFF && !surrogate;
  text.remove_prefix(sound ? length : 1);
  return sound ? std::optional(character) : std::nullopt;
}

bool isUtf8(std::string_view text) noexcept {
  while (!text.empty()) {
    if (!takeCodePoint(text)) return false;
  }
  return true;
}

}  // namespace vmgv
