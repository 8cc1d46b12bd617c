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

#include "adapters/grid/display_rows.h"
#include "adapters/grid/grid_state.h"
#include "adapters/grid/group_totals.h"
#include "adapters/grid/row_source.h"
#include "adapters/grid/row_styles.h"
#include "grid/contract.h"

namespace vmgv {

class PrintPort;

// What a view is told. Nothing is told while Redraw is off; what was missed follows when it is on again.
class GridObserver {
 public:
  virtual ~GridObserver() = default;
  virtual void layoutChanged() {}  // columns: which, where, how wide, their captions
  virtual void rowsChanged() {
  }  // any row may now hold another record or group, and they may be more or fewer
  virtual void selectionChanged() {}
  virtual void appearanceChanged() {}  // colours, fonts, preview lines, group-by box: paint again
};

enum class Alignment : std::uint8_t { Left, Centre, Right };

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

  // Rows: records, and with groups also their headers and footers; those in collapsed groups do not count.
  std::int32_t rowCount() const {
    sortIfStale();
    return display_.count();
  }
  std::size_t records() const noexcept { return records_; }  // of the source, displayed or not
  DisplayRow displayRow(std::int32_t position) const;
  // Tells that the row will be read soon; there need be none.
  void prefetchRow(std::int32_t position) const;
  // A number that is another one whenever rows of any type may have moved.
  std::uint64_t arrangement() const {
    sortIfStale();
    return display_.arrangement();
  }
  // A header has the values of its own group's column and the outer ones', a footer its totals (the sum of a
  // number column without a value list, else how many values there are); Null elsewhere. Error 9 for a row of
  // groups that have been made anew since.
  Value rowValue(const DisplayRow& row, std::int32_t column) const;
  Value value(std::int32_t position, std::int32_t column) const {
    return rowValue(displayRow(position), column);
  }
  // As a view shows it: the value list's text, else the value as text; "" for Null. A header's whole text
  // stands in the leftmost column; a footer's counts stand in brackets.
  std::string displayText(std::int32_t position, std::int32_t column) const {
    return displayText(displayRow(position), column);
  }
  std::string displayText(const DisplayRow& row, std::int32_t column) const;
  std::string previewText(const DisplayRow& row) const;  // "" without a preview column and of no record
  Alignment alignment(std::int32_t column) const;
  bool isSummed(std::int32_t column) const;  // by footers
  // Of a summed column, the records of the least and of the largest number; not without records.
  std::pair<std::uint32_t, std::uint32_t> extremeRecords(std::int32_t column) const {
    return data_[checkedIndex(column)].extremes();
  }
  Value recordValue(std::uint32_t record, std::int32_t column) const {
    const std::size_t place = checkedIndex(column);
    if (record >= records_) noRecord(record);
    return data_[place].value(record);
  }

  // Order. Both kinds of keys: no column twice, as the second would have nothing left to sort or to part;
  // sortOrder 1 or -1. A column may be in both.
  const std::vector<SortKey>& sortKeys() const noexcept { return sortKeys_; }
  void addSortKey(SortKey key);
  void clearSortKeys();
  void setSortKeys(const std::vector<SortKey>& keys);  // all at once, a single change

  // Groups, the outermost first; new ones are expanded.
  const std::vector<SortKey>& groups() const noexcept { return groups_; }
  void addGroup(SortKey key);
  void clearGroups();
  void setGroups(const std::vector<SortKey>& groups);
  void refreshGroups(bool collapse);
  void expandAll();
  // A header's: "Category: Tools (12)"; "" of other rows.
  std::string groupText(const DisplayRow& row) const;
  std::int32_t recordCount(const DisplayRow& row) const;   // of the group of a header or footer, else 1
  bool isExpanded(const DisplayRow& row) const;            // false for what is no header
  void setExpanded(std::int32_t position, bool expanded);  // Error 5 for what is no header

  // Selection, by position in ascending order. It stays with its records when the rows are sorted or grouped;
  // those in a collapsed group are no longer selected.
  const std::vector<std::int32_t>& selection() const;
  void select(std::vector<std::int32_t> positions);  // without multiSelect the last one alone
  bool multiSelect() const noexcept { return multiSelect_; }
  void setMultiSelect(bool multi);

  // Format conditions. A client's reference outlives a removal, which makes it mean nothing.
  const std::vector<ConditionHandle>& conditions() const noexcept { return conditions_; }
  // `condition` needs a name of its own (Error 457 where it is taken).
  ConditionHandle addCondition(FormatCondition condition);
  void removeCondition(std::string_view name);
  // Calls change(FormatCondition&), which leaves the name alone; views paint again.
  template <class Change>
  void changeCondition(const ConditionHandle& condition, Change change) {
    FormatCondition changed = **condition;
    change(changed);
    setCondition(condition, std::move(changed));
  }
  // How a row looks: of a record, else the grid's own colours and font. Valid until the next call of it.
  const RowStyle& styleOf(const DisplayRow& row) const;
  RowReasons reasonsOf(const DisplayRow& row) const;  // none but for records
  // Of each family that a row may have, the largest font.
  std::vector<GridFont> largestFonts() const;
  // A look at all records for those that the condition matches, which counts from 0.
  RecordSet matchingRecords(std::size_t condition) const;

  // Display settings
  const GridSettings& settings() const noexcept { return settings_; }
  // Calls change(GridSettings&); views paint again.
  template <class Change>
  void changeSettings(Change change) {
    change(settings_);
    settingsChanged();
  }
  const Value& previewColumn() const noexcept { return previewColumn_; }  // index, field name or Null
  void setPreviewColumn(const Value& column);
  std::int32_t previewColumnIndex() const;  // 0: none
  std::int32_t previewLines() const;        // to be shown below each record: 0 to kMostPreviewLines
  static constexpr std::int32_t kMostPreviewLines = 50;
  PrinterProperties& printer() noexcept { return printer_; }
  const PrinterProperties& printer() const noexcept { return printer_; }
  // What the grid prints by, of its host, which takes it away before it goes. Null: the grid cannot print.
  PrintPort* printPort() const noexcept { return printPort_; }
  void setPrintPort(PrintPort* port) noexcept { printPort_ = port; }

  // The whole view. setState: Error 5 where its columns are not this grid's, or its keys make no sense.
  GridState state() const;
  void setState(const GridState& state);

  // Each change of the view is a step, and so is all that was changed between Redraw off and on. Error 5
  // where there is no such step, or Redraw is off.
  bool canUndo() const noexcept { return history_.canUndo(); }
  bool canRedo() const noexcept { return history_.canRedo(); }
  void undo();
  void redo();
  void forgetHistory() { history_.start(state()); }

  // Painting
  bool redraw() const noexcept { return redraw_; }
  void setRedraw(bool on);
  void addObserver(GridObserver* observer);
  void removeObserver(GridObserver* observer);
  void appearanceChanged() { changed(kAppearance); }

 private:
  enum Changes : unsigned { kLayout = 1, kRows = 2, kSelection = 4, kAppearance = 8 };

  std::size_t checkedIndex(std::int32_t column) const {
    if (column < 1 || static_cast<std::size_t>(column) > data_.size()) noColumn(column);
    return static_cast<std::size_t>(column) - 1;
  }
  [[noreturn]] void noColumn(std::int32_t column) const;
  [[noreturn]] void noRecord(std::uint32_t record) const;
  GridColumn& editable(std::int32_t column) { return columns_[checkedIndex(column)]; }
  void addKey(SortKey key, std::vector<SortKey>& keys, const char* kind) const;
  std::vector<SortKey> checkedKeys(const std::vector<SortKey>& keys, const char* kind) const;
  void orderChanged();
  void sortIfStale() const {
    if (stale_) sort();
  }
  void sort() const;
  template <class Step>
  void rearrange(Step step) const;
  void checkGroup(const DisplayRow& row) const;
  Value total(const DisplayRow& row, std::int32_t column) const;
  std::string textOf(Value value, std::int32_t column) const;
  bool showFooters();
  void setCondition(const ConditionHandle& condition, FormatCondition changed);
  RowStyles& styles() const;
  void settingsChanged();
  void show(const GridState& state);
  void requireRedraw(const char* act) const;
  void changed(unsigned changes);
  void tell(unsigned changes);
  bool hasFields(const std::vector<ColumnSpec>& specs) const;
  void startLayout(const std::vector<ColumnSpec>& specs);

  std::vector<GridColumn> columns_;
  std::vector<ColumnData> data_;
  std::vector<std::int32_t> atPosition_;  // column indexes from left to right
  std::size_t records_ = 0;

  // Sorted and grouped when somebody looks, hence mutable.
  mutable DisplayRows display_;
  mutable std::vector<SortKey> displayedGroups_;  // those that display_ was made of
  mutable GroupTotals totals_;
  mutable std::vector<std::int32_t> selection_;  // positions in display_
  mutable bool stale_ = false;

  std::vector<SortKey> sortKeys_, groups_;
  std::vector<ConditionHandle> conditions_;
  GridSettings settings_;
  mutable RowStyles styles_;
  mutable bool stylesAreStale_ = true;
  PrinterProperties printer_;
  PrintPort* printPort_ = nullptr;
  Value previewColumn_{Null{}};
  std::vector<GridState::Foreign> foreign_;
  bool multiSelect_ = true;

  GridHistory history_;
  bool redraw_ = true;
  unsigned missed_ = 0;
  std::vector<GridObserver*> observers_;
};

}  // namespace vmgv
