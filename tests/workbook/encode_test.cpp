// Text in the words of the workbook's XML.
#include "adapters/workbook/encode.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>
#include <vector>

namespace vmgv::workbook {
namespace {

std::string encoded(std::string_view text) {
  std::string out(text.size() * kMaxGrowth, '\0');
  TextShape shape;
  out.resize(static_cast<std::size_t>(encodeText(out.data(), text, shape) - out.data()));
  return out;
}

// Every number comes back as itself, in no more digits than it needs.
TEST(Encode, Numbers) {
  std::vector<double> numbers{0.1,  0.30000000000000004, 1e-4, 99999999999.9999, 123456789012.3456, 5e-324,
                              1e300};
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const auto digits = static_cast<double>(random() % 10'000'000'000);
    numbers.push_back(digits / std::pow(10, i % 7));
    numbers.push_back(std::nextafter(digits / 10000, 0));
  }
  for (const double number : numbers) {
    for (const double signedNumber : {number, -number}) {
      char digits[32], shortest[400];
      const char* const end = encodeNumber(digits, signedNumber);
      double back = 0;
      ASSERT_EQ(std::from_chars(digits, end, back).ptr, end) << signedNumber;
      ASSERT_EQ(back, signedNumber);
      const char* const most =
          std::to_chars(shortest, std::end(shortest), signedNumber, std::chars_format::fixed).ptr;
      ASSERT_LE(end - digits, most - shortest) << signedNumber;
    }
  }
}

TEST(Encode, Text) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view text, xml;
  } cases[] = {
      {"<b>&amp;\"'", "&lt;b&gt;&amp;amp;\"'"},
      {"a\r\nb", "a_x000D_\nb"},
      {"\0\x01\x1F\x7F"sv, "_x0000__x0001__x001F_\x7F"},
      {"_x004a_ _X0041_ _x041_ _x00411_ _", "_x005F_x004a_ _X0041_ _x041_ _x00411_ _"},
      {"__x0041_x0042_", "__x005F_x0041_x005F_x0042_"},
      {"Αθήνα, Ύδρα", "Αθήνα, Ύδρα"},
      {"\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBD", "_xFFFE__xFFFF_\xEF\xBF\xBD"},
      // What is no UTF-8: one replacement for each broken character.
      {"a\x80z", "a\xEF\xBF\xBDz"},
      {"\xC0\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD"},                                  // overlong
      {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},                  // lone surrogate
      {"\xE2\x82", "\xEF\xBF\xBD"},                                              // cut short
      {"\xE2\x82<", "\xEF\xBF\xBD&lt;"},                                         // cut short by markup
      {"\xF4\x90\x80\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},  // beyond Unicode
  };
  // At every place within the eight-byte steps.
  for (const auto& test : cases) {
    for (std::size_t before = 0; before < 9; ++before) {
      const std::string plain(before, 'p');
      const std::string text(test.text), xml(test.xml);
      EXPECT_EQ(plain + xml + plain, encoded(plain + text + plain));
    }
  }
}

}  // namespace
}  // namespace vmgv::workbook
