// An exact decimal number: a 96-bit whole number divided by a power of ten.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vmgv {

struct Decimal {
  std::uint64_t low = 0;   // the lower 64 bits of the whole number
  std::uint32_t high = 0;  // its upper 32 bits
  std::uint8_t scale = 0;  // digits after the point, 0 to 28
  bool negative = false;

  static Decimal fromInteger(std::int64_t value) noexcept;
  // "-12.50" and the like, no exponent; nothing where the text is no such number or has too many digits.
  static std::optional<Decimal> fromText(std::string_view text) noexcept;

  double toDouble() const noexcept;
  std::string toText() const;  // all its digits, "." before the fraction, trailing zeros kept

  bool operator==(const Decimal&) const = default;
};

}  // namespace vmgv
