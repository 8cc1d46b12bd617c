// The base letter, accent and case of letters beyond ASCII.
#pragma once

#include <cstdint>

namespace vmgv {

// Primary weights: 0 is none; spaces and ASCII punctuation, digits, Latin letters, Greek letters in order.
inline constexpr std::uint8_t kDigitWeight = 0x23;  // of 0
inline constexpr std::uint8_t kLatinWeight = 0x2D;  // of a
inline constexpr std::uint8_t kGreekWeight = 0x47;  // of alpha

struct Letter {
  std::uint8_t weight = 0;
  std::uint8_t accent = 0;
  bool capital = false;
};

// Weight 0 where the table has no such letter.
Letter letterOf(char32_t character) noexcept;

}  // namespace vmgv
