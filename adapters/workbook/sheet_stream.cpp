// Changes to the current row of a worksheet.
#include "adapters/workbook/sheet_stream.h"

#include <algorithm>

#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

void requireOneRow(const Area& area) {
  if (area.top != area.bottom) {
    throw Error(ErrorNumber::Application, "The range " + areaName(area) +
                                              " spans rows; a workbook that is written row by row takes " +
                                              "changes of one row at a time");
  }
}

}  // namespace

SheetStream::SheetStream(StyleTable& styles, const std::string& folder, const SheetFrame* frame)
    : styles_(styles), folder_(folder), frame_(frame), rows_(folder) {
  rows_.openFile();
}

inline void SheetStream::reach(int row, int column) {
  if (row != row_ || static_cast<std::size_t>(column) > columns_.size()) advanceTo(row, column);
}

inline Cell& SheetStream::cell(int row, int column) {
  reach(row, column);
  Column& own = columns_[static_cast<std::size_t>(column) - 1];
  Cell& cell = own.cell;
  if (cell.row != row) {
    cell.row = row;
    cell.style = oldRow_ ? frame_->styleOf(&*oldRow_, column) : own.style;
    cell.kind = Cell::Kind::Blank;
    touched_.push_back(column);
  }
  return cell;
}

void SheetStream::advanceTo(int row, int column) {
  requireWhole();
  if (row < row_) {
    throw Error(ErrorNumber::Application, "The cell " + cellName(row, column) +
                                              " can no longer be changed: the rows above row " +
                                              std::to_string(row_) + " are written already");
  }
  if (row > row_) {
    completeRow();
    moveTo(row);
  }
  addColumns(column);
}

// A template's rows above this one have nothing but their formats.
void SheetStream::moveTo(int row) {
  row_ = row;
  oldRow_.reset();
  for (; frame_ && nextOldRow_ < frame_->rowCount(); ++nextOldRow_) {
    const OldRow old = frame_->row(nextOldRow_);
    if (old.number > row) return;
    if (old.number == row) {
      oldRow_ = old;
    } else {
      appendOldRow(old);
    }
  }
}

void SheetStream::touchOldCells() {
  if (!oldRow_) return;
  for (const OldCell& old : oldRow_->cells) cell(row_, old.column);
}

void SheetStream::noteHeaders() {
  for (const int column : touched_) {
    const Cell& cell = columns_[static_cast<std::size_t>(column) - 1].cell;
    headers_.resize(static_cast<std::size_t>(column));
    if (cell.kind == Cell::Kind::Text) headers_.back() = cell.text;
  }
}

// No change is taken into a sheet that has lost rows.
void SheetStream::requireWhole() const {
  rows_.requireWhole();
  if (merged_) merged_->requireWhole();
  if (head_) head_->requireWhole();
}

void SheetStream::addColumns(int last) {
  while (columns_.size() < static_cast<std::size_t>(last)) {
    Column& column = columns_.emplace_back();
    column.cell.column = static_cast<int>(columns_.size());
    const std::string letters = columnLetters(column.cell.column);
    column.letterCount = static_cast<unsigned char>(letters.copy(column.letters.data(), letters.size()));
    if (frame_) column.style = frame_->styleOf(nullptr, column.cell.column);
  }
}

const Cell* SheetStream::find(int row, int column) const {
  if (row < row_) {
    throw Error(ErrorNumber::Application,
                "The cell " + cellName(row, column) + " can no longer be read: its row is written already");
  }
  if (static_cast<std::size_t>(column) > columns_.size()) return nullptr;
  const Cell& cell = columns_[static_cast<std::size_t>(column) - 1].cell;
  return cell.row == row ? &cell : nullptr;
}

template <class Change>
void SheetStream::change(const Area& area, Change&& change) {
  requireOneRow(area);
  for (int column = area.left; column <= area.right; ++column) change(cell(area.top, column));
}

void SheetStream::setValue(const Area& area, const Value& value) {
  change(area, [&](Cell& cell) { assign(cell, value, styles_); });
}

void SheetStream::setNumberFormat(const Area& area, std::string_view code) {
  change(area, [&](Cell& cell) { cell.style = styles_.withFormat(cell.style, code); });
}

void SheetStream::setWrap(const Area& area, bool wrap) {
  change(area, [&](Cell& cell) { cell.style = StyleTable::withWrap(cell.style, wrap); });
}

Value SheetStream::value(const Area& area) const {
  if (!area.isCell()) {
    throw Error(ErrorNumber::Application,
                "The range " + areaName(area) + " has no single value; ask its cells one by one");
  }
  const Cell* cell = find(area.top, area.left);
  return cell ? valueOf(*cell) : Value();
}

const std::string& SheetStream::numberFormat(const Area& area) const {
  const Cell* cell = find(area.top, area.left);
  return styles_.format(cell ? cell->style : Style{0});
}

bool SheetStream::wraps(const Area& area) const {
  const Cell* cell = find(area.top, area.left);
  return cell && styles_.wraps(cell->style);
}

void SheetStream::merge(const Area& area) {
  requireOneRow(area);
  reach(area.top, area.right);
  Area whole = area;  // with the row's merges that it meets
  std::erase_if(merges_, [&whole](const Area& other) {
    if (other.right < whole.left || other.left > whole.right) return false;
    whole.left = std::min(whole.left, other.left);
    whole.right = std::max(whole.right, other.right);
    return true;
  });
  if (whole.isCell()) return;
  Cell& kept = cell(whole.top, whole.left);
  for (int column = whole.left + 1; column <= whole.right; ++column) {
    Cell& covered = columns_[static_cast<std::size_t>(column) - 1].cell;
    if (covered.row != row_ || covered.kind == Cell::Kind::Blank) continue;
    if (kept.kind == Cell::Kind::Blank) {
      kept.kind = covered.kind;
      kept.number = covered.number;
      kept.text.swap(covered.text);
    }
    covered.kind = Cell::Kind::Blank;
  }
  merges_.push_back(whole);
}

void SheetStream::clearContents(const Area& area) {
  if (area.top < row_ && rowCount_ > 0) {
    throw Error(ErrorNumber::Application,
                "The cells " + areaName(area) + " cannot be cleared: rows among them are written already");
  }
  for (const int column : touched_) {
    const bool inside = row_ <= area.bottom && column >= area.left && column <= area.right;
    if (inside) cell(row_, column).kind = Cell::Kind::Blank;
  }
}

void SheetStream::autoFit(int firstColumn, int lastColumn) {
  // Columns that nothing was written into have no width to find.
  const int last = std::min(lastColumn, static_cast<int>(columns_.size()));
  for (int column = firstColumn; column <= last; ++column) {
    columns_[static_cast<std::size_t>(column) - 1].fitted = true;
  }
}

}  // namespace vmgv::workbook
