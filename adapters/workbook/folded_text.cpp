#include "adapters/workbook/folded_text.h"

#include "support/text/utf8.h"

namespace vmgv::workbook {
namespace {

struct CaseRange {
  char32_t first, last;
  char32_t distance;  // of the small letter
  bool alternates;    // small letters stand behind each capital
};
// The capitals of Latin, Greek and Cyrillic (Unicode's CaseFolding.txt).
constexpr CaseRange kCapitals[] = {
    {'A', 'Z', 32, false},     {0xC0, 0xDE, 32, false},   {0x100, 0x137, 1, true},
    {0x139, 0x148, 1, true},   {0x14A, 0x177, 1, true},   {0x386, 0x386, 38, false},
    {0x388, 0x38A, 37, false}, {0x38C, 0x38C, 64, false}, {0x38E, 0x38F, 63, false},
    {0x391, 0x3AB, 32, false}, {0x400, 0x40F, 80, false}, {0x410, 0x42F, 32, false}};

char32_t smallLetter(char32_t c) {
  if (c == 0x3C2) return 0x3C3;  // the sigma at the end of a word
  for (const CaseRange& range : kCapitals) {
    if (c < range.first || c > range.last || c == 0xD7) continue;
    return range.alternates && (c - range.first) % 2 != 0 ? c : c + range.distance;
  }
  return c;
}

}  // namespace

std::u32string folded(std::string_view text) {
  std::u32string small;
  while (const auto c = takeCodePoint(text)) small += smallLetter(*c);
  return small;
}

}  // namespace vmgv::workbook
