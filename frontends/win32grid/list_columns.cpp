#include "frontends/win32grid/list_columns.h"

#include <algorithm>
#include <numeric>

#include "frontends/com/text.h"

namespace vmgv {
namespace {

// Looked at for the first widths: rows of a column, and texts in all.
constexpr std::int32_t kFewestRows = 10, kMostRows = 200, kTexts = 20'000;
constexpr int kWidestLetters = 36;
constexpr int kSortMark = 28;             // pixels of a usual monitor
constexpr std::size_t kMostBytes = 4096;  // of a cell's text

}  // namespace

std::wstring cellText(std::string text) {
  if (text.size() > kMostBytes) text.resize(kMostBytes);
  std::wstring line = wide(text);
  std::replace_if(
      line.begin(), line.end(), [](wchar_t letter) { return letter < L' '; }, L' ');
  return line;
}

int ListModel::width() const noexcept {
  return std::accumulate(columns.begin(), columns.end(), 0,
                         [](int sum, const ShownColumn& column) { return sum + column.width; });
}

std::vector<ShownColumn> ColumnWidths::shown(const GridEngine& engine, const ListLook& look, int room) {
  std::vector<std::string> fields;
  for (int i = 1; i <= engine.columnCount(); ++i) fields.push_back(engine.column(i).dataField);
  if (fields != fields_ || engine.records() != records_) forget();
  fields_ = std::move(fields);
  records_ = engine.records();
  natural_.resize(fields_.size());

  std::vector<ShownColumn> columns;
  std::int64_t wanted = 0;
  for (const std::int32_t index : engine.visibleColumns()) {
    const int chosen = engine.column(index).width;
    columns.push_back({index, chosen > 0 ? look.scaled(chosen) : natural(engine, look, index)});
    wanted += columns.back().width;
  }
  if (!engine.settings().columnAutoResize || room <= 0) return columns;
  std::int64_t left = room;
  for (ShownColumn& column : columns) {
    const auto share = static_cast<int>(left * column.width / std::max<std::int64_t>(wanted, 1));
    wanted -= std::exchange(column.width, share);
    left -= share;
  }
  return columns;
}

int ColumnWidths::natural(const GridEngine& engine, const ListLook& look, std::int32_t column) {
  int& known = natural_[static_cast<std::size_t>(column) - 1];
  if (known > 0) return known;
  const FontScope screen(look.font());
  const auto measured = [&screen](std::string text) {
    return screen.width(cellText(std::move(text)).substr(0, kWidestLetters));
  };
  int width = measured(engine.column(column).caption) + look.scaled(kSortMark);
  const std::int32_t sampled = std::clamp(kTexts / engine.columnCount(), kFewestRows, kMostRows);
  const std::int32_t step = std::max(1, engine.rowCount() / sampled);
  for (std::int32_t row = 1; row <= engine.rowCount(); row += step) {
    if (engine.displayRow(row).rowType != kRecordRow) continue;
    width = std::max(width, measured(engine.displayText(row, column)));
  }
  known = std::min(width, kWidestLetters * look.letterWidth()) + 2 * look.padding();
  return known;
}

}  // namespace vmgv
