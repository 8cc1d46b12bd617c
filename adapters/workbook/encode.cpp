// Escaping at eight bytes a step where the text is plain ASCII, character by character elsewhere.
#include "adapters/workbook/encode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "support/text/utf8.h"

namespace vmgv::workbook {
namespace {

using Byte = unsigned char;

constexpr std::uint64_t everyByte(Byte value) { return 0x0101010101010101u * value; }

// Whether eight bytes go into XML as they are. Once all are ASCII, adding 0x7F sets a byte's high bit
// unless the byte is 0, which the comparisons below use; 0x60 does the same for bytes from 0x20 on.
bool allPlain(std::uint64_t bytes) {
  constexpr std::uint64_t high = everyByte(0x80), most = everyByte(0x7F);
  if (bytes & high) return false;
  const std::uint64_t plain = (bytes + everyByte(0x60)) &
                              (((bytes & ~everyByte(0x02)) ^ everyByte('<')) + most) &  // '<' and '>'
                              ((bytes ^ everyByte('&')) + most) & ((bytes ^ everyByte('_')) + most);
  return (plain & high) == high;
}

constexpr std::array<bool, 256> kPlain = [] {
  std::array<bool, 256> plain{};
  for (std::size_t c = 0x20; c < 0x80; ++c) plain[c] = c != '<' && c != '>' && c != '&' && c != '_';
  return plain;
}();
bool isPlain(char c) { return kPlain[static_cast<Byte>(c)]; }

bool isContinuation(char c) { return (static_cast<Byte>(c) & 0xC0) == 0x80; }

bool isHex(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

bool looksLikeEscape(std::string_view text) {
  return text.size() >= 7 && text[1] == 'x' && isHex(text[2]) && isHex(text[3]) && isHex(text[4]) &&
         isHex(text[5]) && text[6] == '_';
}

char* put(char* out, std::string_view text) {
  std::memcpy(out, text.data(), text.size());
  return out + text.size();
}

char* putEscape(char* out, unsigned unit) {
  static constexpr char digits[] = "0123456789ABCDEF";
  *out++ = '_';
  *out++ = 'x';
  for (int shift = 12; shift >= 0; shift -= 4) *out++ = digits[unit >> shift & 15];
  *out++ = '_';
  return out;
}

constexpr double kExactDigits = 1e15;
constexpr int kPlaces = 4;
constexpr double kDecimals = 1e4;  // ten to the power of kPlaces

// A number of ten-thousandths that are not a whole number.
char* putDecimal(char* out, std::int64_t scaled, bool negative) {
  constexpr auto one = static_cast<std::int64_t>(kDecimals);
  if (negative) *out++ = '-';
  out = std::to_chars(out, out + 32, scaled / one).ptr;
  *out = '.';
  auto rest = static_cast<int>(scaled % one);
  for (int place = kPlaces; place > 0; --place, rest /= 10) out[place] = static_cast<char>('0' + rest % 10);
  out += kPlaces;
  while (*out == '0') --out;
  return out + 1;
}

struct Character {
  char32_t code;  // 0 where the bytes are ill-formed
  int length;     // bytes to step over
};

// A character from 0x80 on. Ill-formed bytes are stepped over as far as they began well (the Unicode
// standard's "maximal subpart"), so that one broken character gives one replacement.
Character decode(std::string_view text) {
  const auto at = [&](std::size_t i) -> unsigned {
    return i < text.size() ? static_cast<Byte>(text[i]) : 0u;
  };
  const unsigned lead = at(0);
  unsigned low = 0x80, high = 0xBF;  // what the second byte may be
  int length = 0;
  char32_t code = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    code = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    code = lead & 0x0F;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;  // no surrogates
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    code = lead & 0x07;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  }
  for (int i = 1; i < length; ++i) {
    const unsigned next = at(static_cast<std::size_t>(i));
    if (next < low || next > high) return {0, i};
    code = code << 6 | (next & 0x3F);
    low = 0x80, high = 0xBF;
  }
  return {code, std::max(length, 1)};
}

bool isWide(char32_t code) {  // the blocks of East Asian scripts and pictographs, roughly
  return (code >= 0x1100 && code <= 0x115F) || (code >= 0x2E80 && code <= 0xA4CF) ||
         (code >= 0xAC00 && code <= 0xD7A3) || (code >= 0xF900 && code <= 0xFAFF) ||
         (code >= 0xFF00 && code <= 0xFF60) || (code >= 0x1F300 && code <= 0x1FAFF) ||
         (code >= 0x20000 && code <= 0x3FFFF);
}

}  // namespace

char* encodeText(char* out, std::string_view text, TextShape& shape) {
  const char* next = text.data();
  const char* const end = next + text.size();
  int width = 0;  // of the line so far
  while (next != end) {
    const char* const run = next;
    for (std::uint64_t bytes = 0; end - next >= 8; next += 8, out += 8) {
      std::memcpy(&bytes, next, 8);
      if (!allPlain(bytes)) break;
      std::memcpy(out, &bytes, 8);
    }
    while (next != end && isPlain(*next)) *out++ = *next++;
    width += static_cast<int>(next - run);

    // Runs of other characters follow one another, as in Greek words.
    for (; next != end && !isPlain(*next); ++width) {
      const std::string_view rest(next, static_cast<std::size_t>(end - next));
      const auto byte = static_cast<Byte>(*next);
      if (byte >= 0xC2 && byte <= 0xDF && rest.size() > 1 && isContinuation(rest[1])) {
        std::memcpy(out, next, 2);  // Greek, Cyrillic, Latin letters with marks
        out += 2;
        next += 2;
        continue;
      }
      if (byte >= 0x80) {
        const Character character = decode(rest);
        if (character.code == 0) {
          out = put(out, "\xEF\xBF\xBD");
        } else if (character.code == 0xFFFE || character.code == 0xFFFF) {
          out = putEscape(out, static_cast<unsigned>(character.code));
        } else {
          out = put(out, rest.substr(0, static_cast<std::size_t>(character.length)));
          width += isWide(character.code);
        }
        next += character.length;
        continue;
      }
      ++next;
      switch (byte) {
        case '&': out = put(out, "&amp;"); break;
        case '<': out = put(out, "&lt;"); break;
        case '>': out = put(out, "&gt;"); break;
        case '_': out = looksLikeEscape(rest) ? putEscape(out, '_') : put(out, "_"); break;
        case '\t': *out++ = '\t'; break;
        case '\n':
          *out++ = '\n';
          ++shape.lines;
          shape.widest = std::max(shape.widest, width);
          width = -1;  // the loop counts the line feed itself
          break;
        default: out = putEscape(out, byte);  // a carriage return too: XML readers would drop it
      }
    }
  }
  shape.widest = std::max(shape.widest, width);
  return out;
}

char* encodeNumber(char* out, double number) {
  const double size = std::abs(number);
  if (size < kExactDigits && number == std::trunc(number)) {
    return std::to_chars(out, out + 32, static_cast<std::int64_t>(number)).ptr;
  }
  // Most other numbers are amounts and rates. Where so few digits give the number back, no fewer ones do:
  // different decimals of up to 15 digits are different doubles.
  if (size >= 1 / kDecimals && size < kExactDigits / kDecimals) {
    const auto scaled = std::int64_t{std::llround(size * kDecimals)};
    if (static_cast<double>(scaled) / kDecimals == size) return putDecimal(out, scaled, number < 0);
  }
  return std::to_chars(out, out + 32, number).ptr;
}

std::string elementText(std::string_view text) {
  std::string encoded(text.size() * kMaxGrowth, '\0');
  TextShape shape;
  encoded.resize(static_cast<std::size_t>(encodeText(encoded.data(), text, shape) - encoded.data()));
  return encoded;
}

std::string attributeText(std::string_view text) { return quotedText(elementText(text)); }

std::string quotedText(std::string_view encoded) {
  std::string quoted;
  for (const char c : encoded) {
    switch (c) {
      case '"': quoted += "&quot;"; break;
      case '\n': quoted += "_x000a_"; break;
      case '\t': quoted += "_x0009_"; break;
      default: quoted += c;
    }
  }
  return quoted;
}

std::size_t utf16Units(std::string_view text) {
  std::size_t units = 0;
  while (!text.empty()) {
    const Character character = static_cast<Byte>(text.front()) < 0x80 ? Character{U'a', 1} : decode(text);
    units += character.length == 4 && character.code != 0 ? 2 : 1;
    text.remove_prefix(static_cast<std::size_t>(character.length));
  }
  return units;
}

int wrappedLines(std::string_view text, double width) {
  int lines = 0;
  for (;;) {
    const std::size_t feed = text.find('\n');
    const std::string_view line = text.substr(0, feed);
    const std::size_t characters = countCharacters(line);
    lines += std::max(1, static_cast<int>(std::ceil(static_cast<double>(characters) / width)));
    if (feed == std::string_view::npos) return lines;
    text.remove_prefix(feed + 1);
  }
}

}  // namespace vmgv::workbook
