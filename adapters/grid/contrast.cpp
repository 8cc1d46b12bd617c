#include "adapters/grid/contrast.h"

#include <algorithm>
#include <cmath>

namespace vmgv {
namespace {

constexpr std::uint32_t kBlack = 0x000000, kWhite = 0xFFFFFF;

std::uint32_t rgbOf(std::int32_t bgr) noexcept {
  const auto bits = static_cast<std::uint32_t>(bgr);
  return (bits & 0xFF) << 16 | (bits & 0xFF00) | (bits >> 16 & 0xFF);
}

}  // namespace

double luminance(std::uint32_t rgb) noexcept {
  const auto linear = [rgb](int shift) {
    const double c = (rgb >> shift & 0xFF) / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

double contrast(std::uint32_t one, std::uint32_t other) noexcept {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

std::int32_t inkOn(std::int32_t backColor) noexcept {
  const std::uint32_t back = rgbOf(backColor);
  return static_cast<std::int32_t>(contrast(back, kBlack) >= contrast(back, kWhite) ? kBlack : kWhite);
}

std::int32_t readableOn(std::int32_t ink, std::int32_t backColor) noexcept {
  return contrast(rgbOf(ink), rgbOf(backColor)) >= kReadableContrast ? ink : inkOn(backColor);
}

}  // namespace vmgv
