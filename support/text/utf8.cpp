#include "support/text/utf8.h"

#include <algorithm>
#include <cstring>

namespace vmgv {
namespace {

bool continues(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

}  // namespace

bool isPlainAscii(std::string_view text) noexcept {
  constexpr std::uint64_t kHigh = 0x8080808080808080, kOnes = 0x0101010101010101;
  std::size_t at = 0;
  for (; at + 8 <= text.size(); at += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + at, 8);
    if (((word | (word - kOnes)) & kHigh) != 0) return false;  // a byte above 127, or a NUL that borrowed
  }
  for (; at < text.size(); ++at) {
    if (static_cast<signed char>(text[at]) <= 0) return false;
  }
  return true;
}

unsigned characterLength(std::string_view text) noexcept {
  if (text.empty()) return 0;
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return 1;
  const auto second = static_cast<unsigned char>(text.size() > 1 ? text[1] : 0);
  if (first >= 0xC2 && first <= 0xDF) return continues(text, 1) ? 2 : 0;
  if (!continues(text, 1) || !continues(text, 2)) return 0;
  if (first >= 0xE0 && first <= 0xEF) {
    const bool overlong = first == 0xE0 && second < 0xA0;
    const bool surrogate = first == 0xED && second > 0x9F;
    return overlong || surrogate ? 0 : 3;
  }
  if (first < 0xF0 || first > 0xF4 || !continues(text, 3)) return 0;
  const bool overlong = first == 0xF0 && second < 0x90;
  const bool beyond = first == 0xF4 && second > 0x8F;
  return overlong || beyond ? 0 : 4;
}

char32_t takeCharacter(std::string_view& text) noexcept {
  const auto first = static_cast<unsigned char>(text[0]);
  const unsigned length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  char32_t character = length == 1 ? first : first & (0xFFu >> (length + 1));
  for (unsigned i = 1; i < length && i < text.size(); ++i) {
    character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
  }
  text.remove_prefix(length < text.size() ? length : text.size());
  return character;
}

std::optional<char32_t> takeCodePoint(std::string_view& text) noexcept {
  if (characterLength(text) > 0) return takeCharacter(text);
  if (!text.empty()) text.remove_prefix(1);
  return {};
}

bool isUtf8(std::string_view text) noexcept {
  while (!text.empty()) {
    if (!takeCodePoint(text)) return false;
  }
  return true;
}

std::size_t countCharacters(std::string_view text) noexcept {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool isCleanUtf8(std::string_view text, std::string& clean) {
  std::size_t good = 0;
  while (good < text.size()) {
    const unsigned length = characterLength(text.substr(good));
    if (length == 0 || text[good] == '\0') break;
    good += length;
  }
  if (good == text.size()) return true;
  clean.assign(text.substr(0, good));
  for (text.remove_prefix(good); !text.empty();) {
    const unsigned length = text[0] == '\0' ? 0 : characterLength(text);
    clean += length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return false;
}

}  // namespace vmgv
