#include "adapters/grid/engine.h"

#include <algorithm>
#include <numeric>

#include "support/automation/class_table.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace vmgv {

GridEngine::GridEngine() = default;
GridEngine::~GridEngine() = default;

Problems GridEngine::load(RowSource& source) {
  Problems problems;
  Table table = loadTable(source, problems);
  const bool keepsLayout = hasFields(table.specs);
  if (!keepsLayout) startLayout(table.specs);
  for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].type = table.specs[i].type;
  styles_.forget();
  data_ = std::move(table.columns);
  records_ = table.rows;
  display_.reset(records_);
  displayedGroups_.clear();
  totals_.clear();
  selection_.clear();
  stale_ = !sortKeys_.empty() || !groups_.empty();
  if (!keepsLayout) forgetHistory();
  stylesAreStale_ = true;
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
  foreign_.clear();
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
  if (std::exchange(editable(index).visible, visible) != visible) changed(kLayout);
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
  changed(kLayout);
}

void GridEngine::setWidth(std::int32_t index, std::int32_t width) {
  if (width < 0)
    throw Error(ErrorNumber::InvalidCall, "A column cannot be " + std::to_string(width) + " wide");
  if (std::exchange(editable(index).width, width) != width) changed(kLayout);
}

void GridEngine::setCaption(std::int32_t index, std::string caption) {
  editable(index).caption = std::move(caption);
  changed(kLayout);
}

void GridEngine::setValueList(std::int32_t index, std::shared_ptr<const ValueList> list) {
  styles_.forget();
  editable(index).valueList = std::move(list);
  changed(kAppearance);
}

// Painting

void GridEngine::setRedraw(bool on) {
  redraw_ = on;
  if (!on) return;
  sortIfStale();
  changed(std::exchange(missed_, 0u));
}

void GridEngine::addObserver(GridObserver* observer) { observers_.push_back(observer); }

void GridEngine::removeObserver(GridObserver* observer) { std::erase(observers_, observer); }

void GridEngine::changed(unsigned changes) {
  if (redraw_) history_.record(state());
  tell(changes);
}

void GridEngine::tell(unsigned changes) {
  if ((changes & kAppearance) != 0) stylesAreStale_ = true;
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
