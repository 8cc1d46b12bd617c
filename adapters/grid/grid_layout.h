// The parts of a grid's layout as plain data.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/grid/column_data.h"
#include "grid/contract.h"
#include "support/pages/page_setup.h"

namespace vmgv {

// Display texts for stored values.
struct ValueList {
  std::vector<std::pair<Value, std::string>> items;

  // The text of the first item with an equal value (numbers by their amount, whatever their type), or null.
  const std::string* find(const Value& value) const;
};

// As a view shows it: the list's text, else the value as text; "" for Null. No list: null.
std::string shownText(Value value, const ValueList* list);

struct GridColumn {        // a column as the grid shows it
  std::int32_t index = 0;  // from 1, fixed
  std::string key, caption, dataField;
  ColumnType type = ColumnType::Unknown;
  bool visible = true;
  std::int32_t colPosition = 0;  // from 1; of n columns always a permutation of 1 to n
  std::int32_t width = 0;        // device-independent pixels; 0: as the view likes
  std::shared_ptr<const ValueList> valueList{};
};

struct SortKey {  // of a group as well
  std::int32_t colIndex = 0;
  std::int16_t sortOrder = kSortAscending;

  bool operator==(const SortKey&) const = default;
};

// Colours are the platform's: 0x00BBGGRR, or 0x80000000 plus a system colour's number.
inline constexpr std::int32_t kWindowColor = static_cast<std::int32_t>(0x80000005);
inline constexpr std::int32_t kWindowTextColor = static_cast<std::int32_t>(0x80000008);

struct GridFont {  // of the rows
  std::string name = "DejaVu Sans";
  double size = 9;  // points
  bool bold = false, italic = false, underline = false, strikethrough = false;

  bool operator==(const GridFont&) const = default;
};

// What a condition changes about its rows; what it leaves alone is the grid's.
struct FormatStyle {
  std::optional<std::int32_t> backColor, foreColor;
  std::optional<std::string> fontName;
  std::optional<double> fontSize;
  std::optional<bool> fontBold, fontItalic, fontUnderline, fontStrikethru;

  bool operator==(const FormatStyle&) const = default;
};

inline constexpr std::int16_t kLastOperator = 9;

struct FormatCondition {  // which rows, and how they look
  std::string name;       // unique in its grid
  std::int32_t colIndex = 1;
  std::int16_t op = 0;  // 0 = 1 <> 2 > 3 < 4 >= 5 <= 6 between 7 not between 8 contains 9 does not contain
  Value value1, value2;
  FormatStyle style;

  bool operator==(const FormatCondition&) const = default;
};

// A condition as it is at one time, shared by all who keep it: the grid, states of the past, comparisons.
class SharedCondition {
 public:
  SharedCondition(FormatCondition condition)
      : held_(std::make_shared<const FormatCondition>(std::move(condition))) {}

  const FormatCondition& operator*() const noexcept { return *held_; }
  const FormatCondition* operator->() const noexcept { return held_.get(); }
  bool isSame(const SharedCondition& other) const noexcept { return held_ == other.held_; }
  bool operator==(const SharedCondition& other) const { return isSame(other) || *held_ == *other.held_; }

 private:
  std::shared_ptr<const FormatCondition> held_;
};

struct GridSettings {  // the contract's members of these names
  std::int32_t previewRowLines = 1;
  bool useEvenOddColor = false;
  bool columnAutoResize = false;
  bool groupByBoxVisible = false;
  std::string groupByBoxInfoText;
  std::int16_t groupFooterStyle = kNoGroupFooter;
  std::int32_t backColor = kWindowColor;
  std::int32_t foreColor = kWindowTextColor;
  GridFont font;

  bool operator==(const GridSettings&) const = default;
};

struct PrinterProperties {                    // of the grid's pages
  std::array<std::string, 3> header, footer;  // left, centre, right
  bool translateColors = false;
  bool repeatHeaders = true;
  PageSetup setup;
};

}  // namespace vmgv
