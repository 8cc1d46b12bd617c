#include "frontends/headless/text_width.h"
#include "support/text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>


namespace vmgv {
namespace {

// Advances of DejaVu Sans in thousandths of the font size, from the font's own hmtx table; its ascent and
// descent are 1901 and 483 of 2048 units.
constexpr char32_t kFirstLatin = 0x20, kFirstGreek = 0x386;
constexpr std::array<std::uint16_t, 95> kLatin{
    318, 401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361,  318, 337, 636, 636, 636,
    636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 531, 1000, 684, 686, 698, 770, 632,
    575, 775, 752, 295, 295, 656, 557, 863, 748, 787, 603, 787, 695, 635,  611, 732, 684, 989, 685,
    611, 685, 390, 337, 390, 838, 500, 500, 613, 635, 550, 635, 615, 352,  635, 634, 278, 278, 579,
    278, 974, 634, 612, 635, 635, 411, 521, 392, 634, 592, 818, 592, 592,  525, 636, 337, 636, 838};
constexpr std::array<std::uint16_t, 73> kGreek{
    692, 318, 746, 871, 408, 600, 812, 600, 825, 826, 338, 684, 686, 557, 684, 632, 685, 752, 787,
    295, 656, 684, 863, 748, 632, 787, 752, 603, 600, 632, 611, 611, 787, 685, 787, 764, 295, 611,
    659, 541, 634, 338, 579, 659, 638, 592, 612, 541, 544, 634, 612, 338, 589, 592, 636, 559, 558,
    612, 602, 635, 587, 634, 602, 579, 660, 578, 660, 837, 338, 579, 612, 579, 837};
constexpr int kOtherAdvance = 600;  // most other letters of the font lie near it
constexpr double kLineHeight = (1901 + 483) / 2048.0;
constexpr double kAverageAdvance = 0.618;  // mean of A to Z and a to z
constexpr double kBoldFactor = 1.12;       // DejaVu Sans Bold, on average
constexpr double kTwipsPerPoint = 20;

int advance(char32_t character) noexcept {
  if (character >= kFirstLatin && character - kFirstLatin < kLatin.size()) {
    return kLatin[character - kFirstLatin];
  }
  if (character >= kFirstGreek && character - kFirstGreek < kGreek.size()) {
    return kGreek[character - kFirstGreek];
  }
  return character < kFirstLatin ? 0 : kOtherAdvance;
}

double emWidth(const Font& font) noexcept {
  return font.size * kTwipsPerPoint * (font.bold ? kBoldFactor : 1.0);
}

}  // namespace

double lineHeight(const Font& font) noexcept { return font.size * kTwipsPerPoint * kLineHeight; }
double averageAdvance(const Font& font) noexcept { return emWidth(font) * kAverageAdvance; }

TextExtent measureText(std::string_view text, const Font& font) noexcept {
  TextExtent extent;
  long long widest = 0, line = 0;
  while (!text.empty()) {
    const char32_t character = takeCodePoint(text).value_or(U'\uFFFD');
    if (character == '\n') {
      ++extent.lines;
      line = 0;
    } else {
      line += advance(character);
      widest = std::max(widest, line);
    }
  }
  extent.width = static_cast<double>(widest) / 1000 * emWidth(font);
  return extent;
}

}  // namespace vmgv
