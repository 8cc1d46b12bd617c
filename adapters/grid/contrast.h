// Whether a text can be read on its background: the contrast of the Web Content Accessibility Guidelines 2.1.
#pragma once

#include <cstdint>

namespace vmgv {

inline constexpr double kReadableContrast = 4.5;  // what they ask of text

// Of colours as 0xRRGGBB: 0 for black to 1 for white; 1 to 21.
double luminance(std::uint32_t rgb) noexcept;
double contrast(std::uint32_t one, std::uint32_t other) noexcept;

// Of a grid's colours, which are no system colours: black or white, whichever is read more easily.
std::int32_t inkOn(std::int32_t backColor) noexcept;
// `ink`, or else what is readable.
std::int32_t readableOn(std::int32_t ink, std::int32_t backColor) noexcept;

}  // namespace vmgv
