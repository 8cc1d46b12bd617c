// The formats that cells have: a number format, and whether text wraps.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vmgv::workbook {

// In its low 16 bits twice the number format's place in the table, and one more where text wraps; 0 is a new
// cell's. In a template these are changes to one of its own cell formats, whose number stands above them; 0
// changes nothing.
using Style = std::uint32_t;

// A cell format of a template: as much of it as a value needs to know.
struct BaseStyle {
  std::string code;  // of its numbers
  bool wraps = false;
};

class StyleTable {
 public:
  StyleTable();                                       // of a new workbook
  explicit StyleTable(std::vector<BaseStyle> bases);  // of a template

  static Style ofBase(std::uint32_t base) { return base << 16; }
  static std::uint32_t baseOf(Style style) { return style >> 16; }
  static bool changesFormat(Style style) { return (style & 0xFFFE) != 0; }
  static bool changesWrap(Style style) { return (style & 1) != 0; }

  // Error 1004 where the code is empty or too long, or the table full.
  Style withFormat(Style style, std::string_view code);
  static Style withWrap(Style style, bool wrap) { return wrap ? style | 1u : style & ~1u; }
  bool wraps(Style style) const {
    return changesWrap(style) || (isTemplate() && bases_[baseOf(style)].wraps);
  }
  bool isGeneral(Style style) const { return has(style, kGeneral); }
  bool isText(Style style) const { return has(style, kText); }
  const std::string& format(Style style) const {
    return isBases(style) ? bases_[baseOf(style)].code : codes_[placeOf(style)];
  }

  // The number by which the workbook's cells name the style.
  std::uint32_t number(Style style) { return isTemplate() ? numberInTemplate(style) : style; }

  std::string xml() const;  // the styles part of a new workbook, without the XML head

  // What a template's styles part needs besides its own: the styles from the first number that is free, and
  // the codes of number formats that the file format does not know.
  const std::vector<Style>& derived() const noexcept { return derived_; }
  std::vector<std::string> customCodes() const;
  // The number of the style's number format, where custom ones count from `firstFree`.
  int numberFormatId(Style style, int firstFree) const;
  static std::string builtInCode(int id);  // a name of its own for those that depend on the user's country

 private:
  static constexpr std::uint16_t kGeneral = 0, kText = 1;

  static std::uint16_t placeOf(Style style) { return static_cast<std::uint16_t>((style & 0xFFFF) / 2); }
  bool isTemplate() const { return !bases_.empty(); }
  bool isBases(Style style) const { return isTemplate() && !changesFormat(style); }
  bool has(Style style, std::uint16_t place) const {
    return isBases(style) ? bases_[baseOf(style)].code == codes_[place] : placeOf(style) == place;
  }
  std::uint16_t place(std::string_view code);
  std::uint32_t numberInTemplate(Style style);

  std::vector<std::string> codes_;
  std::unordered_map<std::string, std::uint16_t> places_;
  std::uint16_t last_ = kText;  // asked for cell after cell
  std::vector<BaseStyle> bases_;
  std::vector<Style> derived_;
  std::unordered_map<Style, std::uint32_t> numbers_;  // of those
};

// The formats of dates in cells that had none; programs show them in their user's own way.
inline constexpr std::string_view kDayFormat = "m/d/yyyy";
inline constexpr std::string_view kDayTimeFormat = "m/d/yyyy h:mm";
inline constexpr std::string_view kTimeFormat = "h:mm:ss";

}  // namespace vmgv::workbook
