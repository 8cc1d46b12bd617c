// How the rows of records look: the grid's own colours and font, and over them what format conditions set.
//
// Conditions apply in their order, each over those before it: of two that match and set the same attribute
// the later one wins. What no condition sets is the grid's. Nothing is computed but for the rows asked about.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "adapters/grid/comparison.h"
#include "adapters/grid/grid_layout.h"

namespace vmgv {

struct RowStyle {  // how a row is painted
  std::int32_t backColor = kWindowColor;
  std::int32_t foreColor = kWindowTextColor;
  GridFont font;
  // The grid's own back colour, in its other shade: every second record of a group where the grid is set so.
  bool alternate = false;
};

enum class StyleAttribute : std::uint8_t {
  BackColor,
  ForeColor,
  FontName,
  FontSize,
  FontBold,
  FontItalic,
  FontUnderline,
  FontStrikethru
};
inline constexpr std::size_t kStyleAttributes = 8;

// Why a row looks as it does.
struct RowReasons {
  std::vector<SharedCondition> matching;  // in the grid's order
  // By attribute: which of them sets it; none: it is the grid's own.
  std::array<std::optional<std::size_t>, kStyleAttributes> winner;
};

// What clients hold of a condition: it points to what the condition is after each change of it.
using ConditionHandle = std::shared_ptr<SharedCondition>;

class RowStyles {
 public:
  // To be called whenever settings or conditions changed: those that did not stay as they were compiled.
  void follow(const GridSettings& settings, std::span<const ConditionHandle> conditions,
              std::span<const GridColumn> columns, std::span<const ColumnData> data);
  // Before rows or value lists change: what was compiled refers to them.
  void forget();

  // Valid until the next call of anything here. `ordinal`: the record's place in its group, from 0.
  const RowStyle& styleOf(std::uint32_t record, std::uint32_t ordinal);
  const RowStyle& ofGrid() const noexcept { return own_; }
  RowReasons reasonsOf(std::uint32_t record);
  RecordSet matchingRecords(std::size_t condition);

 private:
  struct Rule {
    SharedCondition condition;
    std::size_t column = 0;  // from 0
    Comparison comparison;
    unsigned sets = 0;  // a bit for each attribute
  };

  static Rule compiled(const SharedCondition& condition, std::span<const GridColumn> columns,
                       std::span<const ColumnData> data);
  bool matches(const Rule& rule, std::uint32_t record);

  RowStyle own_, style_;
  bool alternates_ = false;
  std::vector<Rule> rules_;
  std::vector<CellText> cells_;  // by column
  std::optional<std::pair<std::uint32_t, bool>>
      shown_;  // the record that style_ is of, and whether alternate
};

inline bool isSystemColor(std::int32_t color) noexcept { return color < 0; }

}  // namespace vmgv
