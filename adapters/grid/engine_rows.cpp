// The engine's rows: order, groups, totals, selection.
#include <algorithm>
#include <utility>

#include "adapters/grid/engine.h"
#include "adapters/grid/selected_rows.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr const char* kNullInHeader = "–";

std::string numbered(const char* thing, std::int32_t number) {
  return std::string(thing) + ' ' + std::to_string(number);
}

std::string inBrackets(std::string text) { return '(' + std::move(text) + ')'; }

}  // namespace

// A selected row stays selected wherever it goes.
template <class Step>
void GridEngine::rearrange(Step step) const {
  const SelectedRows selected(display_, selection_);
  step();
  selection_ = selected.positionsIn(display_);
}

// Rows

// A row object may have been kept while other rows were loaded.
void GridEngine::noRecord(std::uint32_t record) const {
  throw Error(ErrorNumber::SubscriptOutOfRange, "Subscript out of range: there no longer is a record " +
                                                    std::to_string(std::uint64_t{record} + 1));
}

DisplayRow GridEngine::displayRow(std::int32_t position) const {
  if (position < 1 || position > rowCount()) {
    throw Error(ErrorNumber::SubscriptOutOfRange, "Subscript out of range: there is no row " +
                                                      std::to_string(position) + " among " +
                                                      std::to_string(rowCount()));
  }
  return display_.at(position);
}

void GridEngine::prefetchRow(std::int32_t position) const {
  if (position > rowCount()) return;
  const DisplayRow row = display_.at(position);
  if (row.rowType != kRecordRow) return;
  for (const ColumnData& column : data_) column.prefetch(row.record);
}

void GridEngine::checkGroup(const DisplayRow& row) const {
  if (row.grouping == display_.grouping()) return;
  throw Error(ErrorNumber::SubscriptOutOfRange,
              "Subscript out of range: the groups were made anew since this row was asked for");
}

Value GridEngine::rowValue(const DisplayRow& row, std::int32_t column) const {
  if (row.rowType == kRecordRow) return recordValue(row.record, column);
  checkedIndex(column);
  checkGroup(row);
  if (row.rowType == kGroupFooterRow) return total(row, column);
  const auto end = displayedGroups_.begin() + row.level + 1;
  const bool grouped =
      std::any_of(displayedGroups_.begin(), end, [&](const SortKey& key) { return key.colIndex == column; });
  return grouped ? recordValue(row.record, column) : Null{};
}

// The sum of numbers that stand for texts would mean nothing.
bool GridEngine::isSummed(std::int32_t column) const {
  const GridColumn& own = this->column(column);
  return !own.valueList && (own.type == ColumnType::Whole || own.type == ColumnType::Number);
}

Value GridEngine::total(const DisplayRow& row, std::int32_t column) const {
  const ColumnData& data = data_[checkedIndex(column)];
  const auto level = static_cast<std::size_t>(row.level);
  return isSummed(column) ? totals_.sum(display_, data, level, row.group)
                          : totals_.count(display_, data, level, row.group);
}

std::string GridEngine::textOf(Value value, std::int32_t column) const {
  return shownText(std::move(value), this->column(column).valueList.get());
}

std::string GridEngine::displayText(const DisplayRow& row, std::int32_t column) const {
  if (row.rowType == kRecordRow) return textOf(recordValue(row.record, column), column);
  if (row.rowType == kGroupFooterRow) {
    std::string text = toText(total(row, column));
    return isSummed(column) ? text : inBrackets(std::move(text));
  }
  for (const std::int32_t leftmost : atPosition_) {
    if (this->column(leftmost).visible) return leftmost == column ? groupText(row) : std::string();
  }
  return {};
}

std::string GridEngine::previewText(const DisplayRow& row) const {
  const std::int32_t column = previewColumnIndex();
  if (column == 0 || row.rowType != kRecordRow) return {};
  return textOf(recordValue(row.record, column), column);
}

std::string GridEngine::groupText(const DisplayRow& row) const {
  if (row.rowType != kGroupHeaderRow) return {};
  checkGroup(row);
  const std::int32_t grouped = displayedGroups_[static_cast<std::size_t>(row.level)].colIndex;
  Value value = rowValue(row, grouped);
  std::string text = value.isNull() ? std::string() : textOf(std::move(value), grouped);
  if (text.empty()) text = kNullInHeader;
  return column(grouped).caption + ": " + text + ' ' + inBrackets(std::to_string(recordCount(row)));
}

std::int32_t GridEngine::recordCount(const DisplayRow& row) const {
  if (row.rowType == kRecordRow) return 1;
  checkGroup(row);
  const auto& starts = display_.starts(static_cast<std::size_t>(row.level));
  return static_cast<std::int32_t>(starts[row.group + 1] - starts[row.group]);
}

Alignment GridEngine::alignment(std::int32_t column) const {
  const GridColumn& shown = this->column(column);
  if (shown.valueList) return Alignment::Left;
  switch (shown.type) {
    case ColumnType::Unknown:
    case ColumnType::Text: return Alignment::Left;
    case ColumnType::Whole:
    case ColumnType::Number:
    case ColumnType::Date: return Alignment::Right;
    case ColumnType::Boolean: return Alignment::Centre;
  }
  return Alignment::Left;
}

// Order

void GridEngine::addKey(SortKey key, std::vector<SortKey>& keys, const char* kind) const {
  if (key.colIndex < 1 || key.colIndex > columnCount()) {
    throw Error(ErrorNumber::InvalidCall,
                numbered("There is no column", key.colIndex) + " for a " + kind + " to use");
  }
  if (key.sortOrder != kSortAscending && key.sortOrder != kSortDescending) {
    throw Error(ErrorNumber::InvalidCall,
                numbered("The sort order must be 1 (ascending) or -1 (descending), not", key.sortOrder));
  }
  const bool twice = std::any_of(keys.begin(), keys.end(),
                                 [&](const SortKey& other) { return other.colIndex == key.colIndex; });
  if (twice) {
    throw Error(ErrorNumber::InvalidCall, numbered("Column", key.colIndex) + " already is a " + kind);
  }
  keys.push_back(key);
}

std::vector<SortKey> GridEngine::checkedKeys(const std::vector<SortKey>& keys, const char* kind) const {
  std::vector<SortKey> checked;
  for (const SortKey& key : keys) addKey(key, checked, kind);
  return checked;
}

void GridEngine::addSortKey(SortKey key) {
  addKey(key, sortKeys_, "sort key");
  orderChanged();
}

void GridEngine::setSortKeys(const std::vector<SortKey>& keys) {
  if (sortKeys_ == keys) return;
  sortKeys_ = checkedKeys(keys, "sort key");
  orderChanged();
}

void GridEngine::clearSortKeys() { setSortKeys({}); }

void GridEngine::addGroup(SortKey key) {
  addKey(key, groups_, "group");
  orderChanged();
}

void GridEngine::setGroups(const std::vector<SortKey>& groups) {
  if (groups_ == groups) return;
  groups_ = checkedKeys(groups, "group");
  orderChanged();
}

void GridEngine::clearGroups() { setGroups({}); }

void GridEngine::orderChanged() {
  stale_ = true;
  changed(kRows);
}

void GridEngine::sort() const {
  std::vector<OrderKey> keys;
  const auto add = [&](const SortKey& key) {
    keys.push_back({&data_[checkedIndex(key.colIndex)], key.sortOrder == kSortDescending});
  };
  for (const SortKey& group : groups_) add(group);
  for (const SortKey& key : sortKeys_) {
    const bool grouped = std::any_of(groups_.begin(), groups_.end(),
                                     [&](const SortKey& group) { return group.colIndex == key.colIndex; });
    if (!grouped) add(key);
  }
  const auto sameColumn = [](const SortKey& a, const SortKey& b) { return a.colIndex == b.colIndex; };
  const auto kept = std::mismatch(groups_.begin(), groups_.end(), displayedGroups_.begin(),
                                  displayedGroups_.end(), sameColumn);
  SortedRows sorted = sortedRows(keys, groups_.size(), records_);
  totals_.clear();
  rearrange([&] {
    display_.assign(std::move(sorted), static_cast<std::size_t>(kept.first - groups_.begin()));
    displayedGroups_ = groups_;
  });
  stale_ = false;
}

// Groups

void GridEngine::refreshGroups(bool collapse) {
  sortIfStale();
  rearrange([&] { display_.setAllCollapsed(collapse); });
  tell(kRows);
}

void GridEngine::expandAll() { refreshGroups(false); }

bool GridEngine::isExpanded(const DisplayRow& row) const {
  return row.rowType == kGroupHeaderRow && row.grouping == display_.grouping() &&
         !display_.isCollapsed(static_cast<std::size_t>(row.level), row.group);
}

void GridEngine::setExpanded(std::int32_t position, bool expanded) {
  const DisplayRow row = displayRow(position);
  if (row.rowType != kGroupHeaderRow) {
    throw Error(ErrorNumber::InvalidCall, numbered("Row", position) + " is no header of a group");
  }
  if (isExpanded(row) == expanded) return;
  rearrange([&] { display_.setCollapsed(static_cast<std::size_t>(row.level), row.group, !expanded); });
  tell(kRows);
}

// True where that changes the rows.
bool GridEngine::showFooters() {
  const bool footers = settings_.groupFooterStyle == kTotalsGroupFooter;
  if (footers == display_.footers()) return false;
  rearrange([&] { display_.setFooters(footers); });
  return true;
}

// Selection

const std::vector<std::int32_t>& GridEngine::selection() const {
  sortIfStale();
  return selection_;
}

void GridEngine::select(std::vector<std::int32_t> positions) {
  sortIfStale();
  for (const std::int32_t position : positions) displayRow(position);
  if (!multiSelect_ && positions.size() > 1) positions.erase(positions.begin(), positions.end() - 1);
  std::sort(positions.begin(), positions.end());
  positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
  if (positions == selection_) return;
  selection_ = std::move(positions);
  tell(kSelection);
}

void GridEngine::setMultiSelect(bool multi) {
  multiSelect_ = multi;
  if (!multi && selection().size() > 1) select({selection_.front()});
}

}  // namespace vmgv
