// The formats that cells have: a number format, and whether text wraps.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vmgv::workbook {

// Twice the number format's place in the table, and one more where text wraps; 0 is a new cell's.
using Style = std::uint16_t;

class StyleTable {
 public:
  StyleTable();

  // Error 1004 where the code is empty or too long, or the table full.
  Style withFormat(Style style, std::string_view code);
  static Style withWrap(Style style, bool wrap) {
    return static_cast<Style>(wrap ? style | 1u : style & ~1u);
  }
  static bool wraps(Style style) { return style & 1; }
  static bool isGeneral(Style style) { return style / 2 == kGeneral; }
  static bool isText(Style style) { return style / 2 == kText; }
  const std::string& format(Style style) const { return codes_[style / 2]; }

  std::string xml() const;  // the styles part, without the XML head

 private:
  static constexpr std::uint16_t kGeneral = 0, kText = 1;

  std::uint16_t place(std::string_view code);

  std::vector<std::string> codes_;
  std::unordered_map<std::string, std::uint16_t> places_;
  std::uint16_t last_ = kText;  // asked for cell after cell
};

// The formats of dates in cells that had none; programs show them in their user's own way.
inline constexpr std::string_view kDayFormat = "m/d/yyyy";
inline constexpr std::string_view kDayTimeFormat = "m/d/yyyy h:mm";
inline constexpr std::string_view kTimeFormat = "h:mm:ss";

}  // namespace vmgv::workbook
