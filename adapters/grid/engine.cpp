#include "adapters/grid/engine.h"

#include <algorithm>
#include <numeric>

#include "adapters/grid/row_order.h"
#include "support/automation/class_table.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr std::int32_t kKeyInUse = 457;  // of a collection, as automation clients know it

std::string numbered(const char* thing, std::int32_t number) {
  return std::string(thing) + ' ' + std::to_string(number);
}

}  // namespace

GridEngine::GridEngine() = default;
GridEngine::~GridEngine() = default;

Problems GridEngine::load(RowSource& source) {
  Problems problems;
  Table table = loadTable(source, problems);
  if (!hasFields(table.specs)) startLayout(table.specs);
  for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].type = table.specs[i].type;
  data_ = std::move(table.columns);
  rows_ = table.rows;
  order_.resize(rows_);
  std::iota(order_.begin(), order_.end(), 0u);
  selection_.clear();
  stale_ = !sortKeys_.empty();
  tell(kLayout | kRows | kSelection);
  return problems;
}

bool GridEngine::hasFields(const std::vector<ColumnSpec>& specs) const {
  return std::equal(
      columns_.begin(), columns_.end(), specs.begin(), specs.end(),
      [](const GridColumn& column, const ColumnSpec& spec) { return column.dataField == spec.field; });
}

void GridEngine::startLayout(const std::vector<ColumnSpec>& specs) {
  columns_.clear();
  for (const ColumnSpec& spec : specs) {
    GridColumn column;
    column.index = column.colPosition = columnCount() + 1;
    column.key = column.dataField = spec.field;
    column.caption = spec.caption;
    columns_.push_back(std::move(column));
  }
  atPosition_.resize(columns_.size());
  std::iota(atPosition_.begin(), atPosition_.end(), 1);
  sortKeys_.clear();
  groups_.clear();
  conditions_.clear();
  previewColumn_ = Null{};
}

// Columns

void GridEngine::noColumn(std::int32_t column) const {
  throw Error(ErrorNumber::SubscriptOutOfRange, "Subscript out of range: there is no column " +
                                                    std::to_string(column) + " among " +
                                                    std::to_string(columns_.size()));
}

const GridColumn& GridEngine::column(std::int32_t index) const { return columns_[checkedIndex(index)]; }

std::int32_t GridEngine::columnAtPosition(std::int32_t position) const {
  if (position < 1 || position > columnCount()) {
    throw Error(ErrorNumber::SubscriptOutOfRange, "Subscript out of range: there is no column at position " +
                                                      std::to_string(position) + " among " +
                                                      std::to_string(columns_.size()));
  }
  return atPosition_[static_cast<std::size_t>(position) - 1];
}

std::int32_t GridEngine::columnIndex(const Value& key) const {
  const Value wanted = key.isObject() ? plain(key) : key;
  if (wanted.isText()) {
    for (const GridColumn& column : columns_) {
      if (column.dataField == wanted.text() || column.key == wanted.text()) return column.index;
    }
    for (const GridColumn& column : columns_) {
      if (lowerCase(column.dataField) == lowerCase(wanted.text())) return column.index;
    }
    if (!numberFromText(wanted.text())) {
      throw Error(ErrorNumber::SubscriptOutOfRange,
                  "Subscript out of range: there is no column \"" + wanted.text() + '"');
    }
  }
  return columns_[checkedIndex(toLong(wanted))].index;
}

std::vector<std::int32_t> GridEngine::visibleColumns() const {
  std::vector<std::int32_t> visible;
  std::copy_if(atPosition_.begin(), atPosition_.end(), std::back_inserter(visible),
               [&](std::int32_t index) { return column(index).visible; });
  return visible;
}

void GridEngine::setVisible(std::int32_t index, bool visible) {
  if (std::exchange(editable(index).visible, visible) != visible) tell(kLayout);
}

void GridEngine::setColPosition(std::int32_t index, std::int32_t position) {
  columnAtPosition(position);
  const auto from = atPosition_.begin() + (column(index).colPosition - 1);
  const auto to = atPosition_.begin() + (position - 1);
  if (from == to) return;
  if (from < to) {
    std::rotate(from, from + 1, to + 1);
  } else {
    std::rotate(to, from, from + 1);
  }
  for (std::size_t i = 0; i < atPosition_.size(); ++i) {
    editable(atPosition_[i]).colPosition = static_cast<std::int32_t>(i) + 1;
  }
  tell(kLayout);
}

void GridEngine::setWidth(std::int32_t index, std::int32_t width) {
  if (width < 0)
    throw Error(ErrorNumber::InvalidCall, "A column cannot be " + std::to_string(width) + " wide");
  if (std::exchange(editable(index).width, width) != width) tell(kLayout);
}

void GridEngine::setCaption(std::int32_t index, std::string caption) {
  editable(index).caption = std::move(caption);
  tell(kLayout);
}

void GridEngine::setValueList(std::int32_t index, std::shared_ptr<const ValueList> list) {
  editable(index).valueList = std::move(list);
  tell(kAppearance);
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
                                                      std::to_string(rows_));
  }
  sortIfStale();
  return {kRecordRow, order_[static_cast<std::size_t>(position) - 1]};
}

Value GridEngine::value(std::int32_t position, std::int32_t column) const {
  return recordValue(displayRow(position).record, column);
}

std::string GridEngine::displayText(std::int32_t position, std::int32_t column) const {
  Value shown = value(position, column);
  if (const auto& list = this->column(column).valueList) {
    if (const std::string* text = list->find(shown)) return *text;
  }
  if (shown.isText()) return std::move(shown).takeText();
  return shown.isNull() ? std::string() : toText(shown);
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

void GridEngine::checkKey(const SortKey& key, const std::vector<SortKey>& present, const char* kind) const {
  if (key.colIndex < 1 || key.colIndex > columnCount()) {
    throw Error(ErrorNumber::InvalidCall,
                numbered("There is no column", key.colIndex) + " for a " + kind + " to use");
  }
  if (key.sortOrder != kSortAscending && key.sortOrder != kSortDescending) {
    throw Error(ErrorNumber::InvalidCall,
                numbered("The sort order must be 1 (ascending) or -1 (descending), not", key.sortOrder));
  }
  const bool twice = std::any_of(present.begin(), present.end(),
                                 [&](const SortKey& other) { return other.colIndex == key.colIndex; });
  if (twice) {
    throw Error(ErrorNumber::InvalidCall, numbered("Column", key.colIndex) + " already is a " + kind);
  }
}

void GridEngine::addSortKey(SortKey key) {
  checkKey(key, sortKeys_, "sort key");
  sortKeys_.push_back(key);
  orderChanged();
}

void GridEngine::clearSortKeys() {
  if (sortKeys_.empty()) return;
  sortKeys_.clear();
  orderChanged();
}

void GridEngine::addGroup(SortKey key) {
  checkKey(key, groups_, "group");
  groups_.push_back(key);
}

void GridEngine::clearGroups() { groups_.clear(); }

void GridEngine::refreshGroups(bool) { tell(kRows); }

void GridEngine::expandAll() {}

void GridEngine::orderChanged() {
  stale_ = true;
  tell(kRows);
}

// A selected row stays selected wherever its record goes.
void GridEngine::sortIfStale() const {
  if (!stale_) return;
  std::vector<OrderKey> keys;
  for (const SortKey& key : sortKeys_) {
    keys.push_back({&data_[checkedIndex(key.colIndex)], key.sortOrder == kSortDescending});
  }
  std::vector<std::uint32_t> sorted = sortedRecords(keys, rows_);
  if (!selection_.empty()) {
    std::vector<bool> selected(rows_);
    for (const std::int32_t position : selection_)
      selected[order_[static_cast<std::size_t>(position) - 1]] = true;
    selection_.clear();
    for (std::size_t i = 0; i < rows_; ++i) {
      if (selected[sorted[i]]) selection_.push_back(static_cast<std::int32_t>(i) + 1);
    }
  }
  order_ = std::move(sorted);
  stale_ = false;
}

// Selection

const std::vector<std::int32_t>& GridEngine::selection() const {
  sortIfStale();
  return selection_;
}

void GridEngine::select(std::vector<std::int32_t> positions) {
  for (const std::int32_t position : positions) displayRow(position);
  if (!multiSelect_ && positions.size() > 1) positions.erase(positions.begin(), positions.end() - 1);
  std::sort(positions.begin(), positions.end());
  positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
  sortIfStale();
  if (positions == selection_) return;
  selection_ = std::move(positions);
  tell(kSelection);
}

void GridEngine::setMultiSelect(bool multi) {
  multiSelect_ = multi;
  if (!multi && selection().size() > 1) select({selection_.front()});
}

// Conditions and settings

void GridEngine::addCondition(std::shared_ptr<FormatCondition> condition) {
  if (condition->name.empty()) throw Error(ErrorNumber::InvalidCall, "A format condition needs a name");
  for (const auto& other : conditions_) {
    if (other->name != condition->name) continue;
    throw Error(kKeyInUse, "There already is a format condition with the name \"" + condition->name + '"');
  }
  checkedIndex(condition->colIndex);
  conditions_.push_back(std::move(condition));
  tell(kAppearance);
}

void GridEngine::removeCondition(std::string_view name) {
  const auto found = std::find_if(conditions_.begin(), conditions_.end(),
                                  [&](const auto& condition) { return condition->name == name; });
  if (found == conditions_.end()) {
    throw Error(ErrorNumber::SubscriptOutOfRange,
                "Subscript out of range: there is no format condition \"" + std::string(name) + '"');
  }
  conditions_.erase(found);
  tell(kAppearance);
}

void GridEngine::setPreviewColumn(const Value& column) {
  if (isNoPreviewColumn(column)) {
    previewColumn_ = Null{};
  } else {
    columnIndex(column);
    previewColumn_ = plain(column);
  }
  tell(kLayout | kAppearance);
}

std::int32_t GridEngine::previewColumnIndex() const {
  return previewColumn_.isNull() ? 0 : columnIndex(previewColumn_);
}

// Painting

void GridEngine::setRedraw(bool on) {
  redraw_ = on;
  if (!on) return;
  sortIfStale();
  tell(std::exchange(missed_, 0u));
}

void GridEngine::addObserver(GridObserver* observer) { observers_.push_back(observer); }

void GridEngine::removeObserver(GridObserver* observer) { std::erase(observers_, observer); }

void GridEngine::tell(unsigned changes) {
  if (!redraw_) {
    missed_ |= changes;
    return;
  }
  const std::vector<GridObserver*> told = observers_;  // being told may end an observer's interest
  for (GridObserver* observer : told) {
    if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end()) continue;
    if ((changes & kLayout) != 0) observer->layoutChanged();
    if ((changes & kRows) != 0) observer->rowsChanged();
    if ((changes & kSelection) != 0) observer->selectionChanged();
    if ((changes & kAppearance) != 0) observer->appearanceChanged();
  }
}

}  // namespace vmgv
