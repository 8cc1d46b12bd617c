// One worksheet, filled from top to bottom: only the current row is in memory, those above it are packed.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "adapters/workbook/area.h"
#include "adapters/workbook/cell.h"
#include "adapters/workbook/package.h"
#include "adapters/workbook/packed_stream.h"
#include "adapters/workbook/sheet_frame.h"
#include "adapters/workbook/styles.h"

namespace vmgv::workbook {

// A change to a row below the current one completes the current one; a change to a row above it is
// Error 1004. Within the row cells come in any order and may be changed again. A failing write shows at the
// change that caused it.
class SheetStream {
 public:
  // Working files go into `folder`; Error where none can be made there. With a frame it is a template's
  // sheet, whose contents are gone and whose formats stay; the frame outlives the sheet.
  SheetStream(StyleTable& styles, const std::string& folder, const SheetFrame* frame = nullptr);

  void setValue(const Area& area, const Value& value);
  Value value(const Area& area) const;
  void setNumberFormat(const Area& area, std::string_view code);
  const std::string& numberFormat(const Area& area) const;  // of its first cell
  void setWrap(const Area& area, bool wrap);
  bool wraps(const Area& area) const;
  // Joins the cells of one row; the first content stays, in the first cell.
  void merge(const Area& area);
  void clearContents(const Area& area);
  // The columns get the width of their longest line when the sheet is complete.
  void autoFit(int firstColumn, int lastColumn);

  // Completes the sheet, once; no change may follow. A template's sheet loses these tables.
  void finish(std::span<const std::string> tablesGivenUp = {});
  // Of what was put in since the sheet was made; complete once nothing more is changed.
  Area written() const { return {1, 1, std::max(row_, 1), std::max(lastColumn_, 1)}; }
  const std::vector<std::string>& headers() const noexcept { return headers_; }  // the texts in the first row
  bool hasMerges() const noexcept { return merged_.has_value(); }
  void completeRow();
  void startMerges();
  void writeTo(Package& package, const std::string& part) const;
  // The XML of the rows, of a complete sheet.
  const PackedStream& rowsXml() const noexcept { return rows_; }
  // Whether the column's cells below the first row have contents of this one kind; merged cells have none.
  bool holdsOnly(int column, Cell::Kind kind) const;
  void showBehind() noexcept { selected_ = false; }  // another sheet is the one to open
  std::int64_t rows() const noexcept { return rowCount_; }

 private:
  struct Column {
    std::array<char, 3> letters{};
    unsigned char letterCount = 0;
    bool fitted = false;
    int widest = 0;           // characters
    unsigned char kinds = 0;  // of the contents below the first row, a bit each; 1 for merged cells
    Style style = 0;          // of a new cell
    Cell cell;                // of the current row where the cell's own row says so
  };

  template <class Change>
  void change(const Area& area, Change&& change);
  void reach(int row, int column);  // makes the row current and has a place for the column
  Cell& cell(int row, int column);
  const Cell* find(int row, int column) const;
  void advanceTo(int row, int column);
  void addColumns(int last);
  void moveTo(int row);
  void appendOldRow(const OldRow& row);
  void touchOldCells();
  void noteHeaders();
  char* encodeCell(char* out, Column& column, std::string_view rowDigits, bool merged);
  double rowHeight() const;  // 0 where programs may find it themselves
  bool isMerged(int column) const;
  std::string head() const;
  std::vector<FittedColumn> fittedColumns() const;
  void requireWhole() const;

  StyleTable& styles_;
  std::string folder_;
  const SheetFrame* frame_;
  std::size_t nextOldRow_ = 0;    // of the frame's
  std::optional<OldRow> oldRow_;  // where the current one has one
  Area used_;                     // by old formats
  std::vector<std::string> headers_;
  std::vector<Column> columns_;
  std::vector<int> touched_;  // columns of the current row's cells, in the order of their first change
  std::vector<Area> merges_;  // of the current row
  int row_ = 0;               // the current one
  int nextColumn_ = 0;        // where a cell stands that is written without a name
  int lastColumn_ = 0;        // of the rows completed
  std::int64_t rowCount_ = 0;
  bool selected_ = true;
  PackedStream rows_;
  std::optional<PackedStream> merged_, head_, tail_;
};

}  // namespace vmgv::workbook
