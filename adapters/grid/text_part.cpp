#include "adapters/grid/text_part.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

#include "adapters/grid/collation.h"

namespace vmgv {
namespace {

// Letters from the most to the least frequent of English texts, as counted for the Concise Oxford Dictionary;
// digits and marks stand between them.
constexpr std::string_view kByFrequency = "eariotnslcudpmhg0123456789-.,bfywkvxzjq";

// What a folded byte is in a text: the small letter, digit or mark; 0 where several characters fold to it or
// none of ASCII.
char asciiOf(char weight) {
  for (const char c : kByFrequency) {
    if (asciiWeight(c) == weight) return c;
  }
  return 0;
}

// Whether a byte leads a letter that may fold to letters of ASCII. Greek ones, U+0380 to U+03FF, never do.
bool isForeign(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return static_cast<bool>((byte >= 0xC0) & ((byte & 0xFE) != 0xCE));
}

constexpr std::size_t kBlock = 16;                // bytes that the compiler compares at once
using Signs = std::array<unsigned char, kBlock>;  // 0 or 1 each

bool any(const Signs& signs) {
  std::array<std::uint64_t, 2> halves{};
  std::memcpy(halves.data(), signs.data(), sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

}  // namespace

TextPart::TextPart(std::string folded) : part_(std::move(folded)) {
  std::size_t scarcest = 0;
  for (std::size_t i = 0; i < part_.size(); ++i) {
    isAscii_ = isAscii_ && hasAsciiLetter(part_[i]);
    const char c = asciiOf(part_[i]);
    const std::size_t rank = c == 0 ? 0 : kByFrequency.find(c) + 1;
    if (rank <= scarcest) continue;
    scarcest = rank;
    scarce_ = i;
    small_ = c;
    capital_ = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    hasScarce_ = true;
  }
}

std::optional<bool> TextPart::isIn(std::string_view text) const {
  if (part_.empty()) return true;
  if (!hasScarce_ || !isAscii_) return {};
  const auto isHere = [&](std::size_t i) {
    return (text[i] == small_ || text[i] == capital_) && i >= scarce_ && isAt(text, i - scarce_);
  };
  Signs foreign{};
  std::size_t at = 0;
  for (; at + kBlock <= text.size(); at += kBlock) {
    const char* const block = text.data() + at;
    Signs hits;
    for (std::size_t i = 0; i < kBlock; ++i) {
      hits[i] = static_cast<unsigned char>((block[i] == small_) | (block[i] == capital_));
      foreign[i] |= static_cast<unsigned char>(isForeign(block[i]));
    }
    for (std::size_t i = at; any(hits) && i < at + kBlock; ++i) {
      if (isHere(i)) return true;
    }
  }
  bool atEnd = false;
  for (; at < text.size(); ++at) {
    if (isHere(at)) return true;
    atEnd |= isForeign(text[at]);
  }
  if (atEnd || any(foreign)) return {};
  return false;
}

bool TextPart::isAt(std::string_view text, std::size_t place) const {
  if (place + part_.size() > text.size()) return false;
  for (std::size_t i = 0; i < part_.size(); ++i) {
    const char c = text[place + i];
    if (static_cast<signed char>(c) < 0 || asciiWeight(c) != part_[i]) return false;
  }
  return true;
}

}  // namespace vmgv
