#include "support/automation/decimal.h"

#include <algorithm>
#include <cmath>

namespace vmgv {
namespace {

constexpr std::uint8_t kMaxScale = 28;

// Multiplies by ten and adds a digit; false when 96 bits do not hold the result.
bool appendDigit(Decimal& d, unsigned digit) noexcept {
  const std::uint64_t lowPart = (d.low & 0xFFFFFFFFu) * 10 + digit;
  const std::uint64_t midPart = (d.low >> 32) * 10 + (lowPart >> 32);
  const std::uint64_t highPart = std::uint64_t{d.high} * 10 + (midPart >> 32);
  if (highPart > 0xFFFFFFFFu) return false;
  d.low = (midPart << 32) | (lowPart & 0xFFFFFFFFu);
  d.high = static_cast<std::uint32_t>(highPart);
  return true;
}

// Divides the whole number by ten and returns the remainder.
unsigned removeDigit(Decimal& d) noexcept {
  std::uint64_t part = d.high;
  d.high = static_cast<std::uint32_t>(part / 10);
  part = ((part % 10) << 32) | (d.low >> 32);
  const std::uint64_t mid = part / 10;
  part = ((part % 10) << 32) | (d.low & 0xFFFFFFFFu);
  d.low = (mid << 32) | (part / 10);
  return static_cast<unsigned>(part % 10);
}

}  // namespace

Decimal Decimal::fromInteger(std::int64_t value) noexcept {
  Decimal d;
  d.negative = value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  d.low = d.negative ? 0 - bits : bits;
  return d;
}

std::optional<Decimal> Decimal::fromText(std::string_view text) noexcept {
  Decimal d;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    d.negative = text.front() == '-';
    text.remove_prefix(1);
  }
  bool point = false;
  bool digits = false;
  for (const char c : text) {
    if (c == '.' && !point) {
      point = true;
    } else if (c >= '0' && c <= '9') {
      digits = true;
      if ((point && d.scale == kMaxScale) || !appendDigit(d, static_cast<unsigned>(c - '0'))) return {};
      if (point) ++d.scale;
    } else {
      return {};
    }
  }
  return digits ? std::optional(d) : std::nullopt;
}

double Decimal::toDouble() const noexcept {
  const double whole = std::ldexp(static_cast<double>(high), 64) + static_cast<double>(low);
  static constexpr double kPowers[kMaxScale + 1] = {
      1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14,
      1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28};
  const double value = whole / kPowers[scale];
  return negative ? -value : value;
}

std::string Decimal::toText() const {
  Decimal rest = *this;
  std::string text;
  for (unsigned place = 0; place <= scale || rest.low != 0 || rest.high != 0; ++place) {
    if (place == scale && scale > 0) text += '.';
    text += static_cast<char>('0' + removeDigit(rest));
  }
  if (negative) text += '-';
  std::reverse(text.begin(), text.end());
  return text;
}

}  // namespace vmgv
