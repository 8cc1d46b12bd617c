// Colours as automation passes them.
#pragma once

#include <cstdint>
#include <optional>

namespace vmgv {

// 0x00BBGGRR, or 0x80000000 and the number of a colour that the desktop chooses.
using Colour = std::int32_t;

enum class SystemColour : std::int32_t {
  Window = 5,
  Highlight = 13,
  HighlightText = 14,
  ButtonFace = 15,
  ButtonText = 18
};

constexpr Colour colourOf(SystemColour colour) noexcept {
  return static_cast<Colour>(0x80000000u | static_cast<std::uint32_t>(colour));
}

// The number of a colour that the desktop chooses; nothing for one that is what it is.
constexpr std::optional<int> systemNumber(Colour colour) noexcept {
  const auto bits = static_cast<std::uint32_t>(colour);
  return bits & 0x80000000u ? std::optional(static_cast<int>(bits & 0xFF)) : std::nullopt;
}

constexpr int redOf(Colour colour) noexcept { return colour & 0xFF; }
constexpr int greenOf(Colour colour) noexcept { return colour >> 8 & 0xFF; }
constexpr int blueOf(Colour colour) noexcept { return colour >> 16 & 0xFF; }
constexpr Colour colourOf(int red, int green, int blue) noexcept { return red | green << 8 | blue << 16; }

}  // namespace vmgv
