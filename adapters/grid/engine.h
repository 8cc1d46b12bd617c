// The grid without a screen: rows in typed columns, and the layout in which they are displayed.
//
// Columns are addressed by index, rows by display position, both from 1; an index or a position that is not
// there is Error 9. What a call refuses is Error 5. A refused call changes nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/grid/grid_layout.h"
#include "adapters/grid/row_source.h"
#include "grid/contract.h"

namespace vmgv {

// What a view is told. Nothing is told while Redraw is off; what was missed follows when it is on again.
class GridObserver {
 public:
  virtual ~GridObserver() = default;
  virtual void layoutChanged() {}  // columns: which, where, how wide, their captions
  virtual void rowsChanged() {}    // any row may now hold another record
  virtual void selectionChanged() {}
  virtual void appearanceChanged() {}  // colours, fonts, preview lines, group-by box: paint again
};

enum class Alignment : std::uint8_t { Left, Centre, Right };

// What is displayed at a position.
struct DisplayRow {
  std::int32_t rowType = kRecordRow;
  std::uint32_t record = 0;  // of the source, from 0
};

class GridEngine {
 public:
  GridEngine();
  ~GridEngine();
  GridEngine(const GridEngine&) = delete;
  GridEngine& operator=(const GridEngine&) = delete;

  // Takes all rows of the source in place of those it has; on Error it keeps those. The layout stays where
  // the new columns have the fields of the old ones, else it starts anew. Nothing is selected afterwards.
  Problems load(RowSource& source);

  // Columns
  std::int32_t columnCount() const noexcept { return static_cast<std::int32_t>(columns_.size()); }
  const GridColumn& column(std::int32_t index) const;
  std::int32_t columnAtPosition(std::int32_t position) const;  // the index; hidden columns count
  // The column that a client means by an index, or by a field name, a key or digits as text.
  std::int32_t columnIndex(const Value& key) const;
  std::vector<std::int32_t> visibleColumns() const;  // indexes from left to right
  void setVisible(std::int32_t index, bool visible);
  void setColPosition(std::int32_t index, std::int32_t position);  // the columns between make room
  void setWidth(std::int32_t index, std::int32_t width);
  void setCaption(std::int32_t index, std::string caption);
  void setValueList(std::int32_t index, std::shared_ptr<const ValueList> list);  // null: none

  // Rows
  std::int32_t rowCount() const noexcept { return static_cast<std::int32_t>(rows_); }
  DisplayRow displayRow(std::int32_t position) const;
  Value value(std::int32_t position, std::int32_t column) const;
  // As a view shows it: the value list's text, else the value as text; "" for Null.
  std::string displayText(std::int32_t position, std::int32_t column) const;
  Alignment alignment(std::int32_t column) const;
  Value recordValue(std::uint32_t record, std::int32_t column) const {
    const std::size_t place = checkedIndex(column);
    if (record >= rows_) noRecord(record);
    return data_[place].value(record);
  }

  // Order. Both kinds of keys: no column twice; sortOrder 1 or -1.
  const std::vector<SortKey>& sortKeys() const noexcept { return sortKeys_; }
  void addSortKey(SortKey key);
  void clearSortKeys();
  const std::vector<SortKey>& groups() const noexcept { return groups_; }
  void addGroup(SortKey key);
  void clearGroups();
  void refreshGroups(bool collapse);
  void expandAll();

  // Selection, by position in ascending order. It stays with its records when the rows are sorted.
  const std::vector<std::int32_t>& selection() const;
  void select(std::vector<std::int32_t> positions);  // without multiSelect the last one alone
  bool multiSelect() const noexcept { return multiSelect_; }
  void setMultiSelect(bool multi);

  // Format conditions: shared, so that a client's reference outlives a removal. After changing one from
  // outside call appearanceChanged().
  const std::vector<std::shared_ptr<FormatCondition>>& conditions() const noexcept { return conditions_; }
  // `condition` needs a name of its own (Error 457 where it is taken).
  void addCondition(std::shared_ptr<FormatCondition> condition);
  void removeCondition(std::string_view name);

  // Display settings
  const GridSettings& settings() const noexcept { return settings_; }
  // Calls change(GridSettings&); views paint again.
  template <class Change>
  void changeSettings(Change change) {
    change(settings_);
    appearanceChanged();
  }
  const Value& previewColumn() const noexcept { return previewColumn_; }  // index, field name or Null
  void setPreviewColumn(const Value& column);
  std::int32_t previewColumnIndex() const;  // 0: none
  PrinterProperties& printer() noexcept { return printer_; }

  // Painting
  bool redraw() const noexcept { return redraw_; }
  void setRedraw(bool on);
  void addObserver(GridObserver* observer);
  void removeObserver(GridObserver* observer);
  void appearanceChanged() { tell(kAppearance); }

 private:
  enum Change : unsigned { kLayout = 1, kRows = 2, kSelection = 4, kAppearance = 8 };

  std::size_t checkedIndex(std::int32_t column) const {
    if (column < 1 || static_cast<std::size_t>(column) > data_.size()) noColumn(column);
    return static_cast<std::size_t>(column) - 1;
  }
  [[noreturn]] void noColumn(std::int32_t column) const;
  [[noreturn]] void noRecord(std::uint32_t record) const;
  GridColumn& editable(std::int32_t column) { return columns_[checkedIndex(column)]; }
  void checkKey(const SortKey& key, const std::vector<SortKey>& present, const char* kind) const;
  void orderChanged();
  void sortIfStale() const;
  void tell(unsigned changes);
  bool hasFields(const std::vector<ColumnSpec>& specs) const;
  void startLayout(const std::vector<ColumnSpec>& specs);

  std::vector<GridColumn> columns_;
  std::vector<ColumnData> data_;
  std::vector<std::int32_t> atPosition_;  // column indexes from left to right
  std::size_t rows_ = 0;

  // Sorted when somebody looks, hence mutable.
  mutable std::vector<std::uint32_t> order_;  // records by display position
  mutable std::vector<std::int32_t> selection_;
  mutable bool stale_ = false;

  std::vector<SortKey> sortKeys_, groups_;
  std::vector<std::shared_ptr<FormatCondition>> conditions_;
  GridSettings settings_;
  PrinterProperties printer_;
  Value previewColumn_{Null{}};
  bool multiSelect_ = true;

  bool redraw_ = true;
  unsigned missed_ = 0;
  std::vector<GridObserver*> observers_;
};

}  // namespace vmgv
