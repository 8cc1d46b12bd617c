// The XML of a worksheet. Rows are encoded when they are complete; what stands before them but is known only
// at the end (size, column widths) is a stream of its own that goes first into the package.
#include <algorithm>
#include <charconv>
#include <cstring>

#include "adapters/workbook/encode.h"
#include "adapters/workbook/sheet_stream.h"

namespace vmgv::workbook {
namespace {

constexpr int kDefaultWidth = 8;      // characters, of a column that nobody sized
constexpr int kWidest = 80;           // of AutoFit: a comfortable line. The program's own limit of 255 would
                                      // push all that follows a column of notes off the screen.
constexpr int kWidestNumber = 12;     // programs show 11 characters and a sign, and round the rest
constexpr double kPadding = 1.71;     // a letter wider than a digit, and the cell's margin of 5 pixels in 7
constexpr double kLineHeight = 15;    // points, of the default font
constexpr double kMaxHeight = 409.5;  // points
constexpr std::size_t kCellFrame = 96;  // bytes at most of a cell's XML around its text, or of a number's

char* put(char* out, std::string_view text) {
  std::memcpy(out, text.data(), text.size());
  return out + text.size();
}

unsigned char kindBit(Cell::Kind kind) {
  return static_cast<unsigned char>(1u << static_cast<unsigned>(kind));
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}  // namespace

void SheetStream::completeRow() {
  if (touched_.empty()) {
    if (oldRow_) appendOldRow(*oldRow_);
    oldRow_.reset();
    return;
  }
  const int lastWritten = *std::max_element(touched_.begin(), touched_.end());
  if (frame_) touchOldCells();
  if (!std::is_sorted(touched_.begin(), touched_.end())) std::sort(touched_.begin(), touched_.end());
  char digits[16];
  const std::string_view rowDigits(
      digits, static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, row_).ptr - digits));

  Buffer& text = rows_.text();
  char* out = text.room(kCellFrame);
  out = put(put(put(out, "<row r=\""), rowDigits), "\"");
  text.endAt(out);
  if (oldRow_) text.append(oldRow_->attributes);
  out = text.room(kCellFrame);
  const bool hasHeight = oldRow_ && oldRow_->attributes.find(" ht=") != std::string_view::npos;
  if (const double height = hasHeight ? 0 : rowHeight(); height > 0) {
    out = put(encodeNumber(put(out, " ht=\""), height), "\" customHeight=\"1\"");
  }
  *out++ = '>';
  text.endAt(out);
  nextColumn_ = 0;  // the first cell has a name
  for (const int number : touched_) {
    Column& column = columns_[static_cast<std::size_t>(number) - 1];
    const std::size_t textSize = column.cell.kind == Cell::Kind::Text ? column.cell.text.size() : 0;
    out = text.room(kCellFrame + kMaxGrowth * textSize);
    text.endAt(encodeCell(out, column, rowDigits, isMerged(number)));
  }
  text.append("</row>");

  lastColumn_ = std::max(lastColumn_, lastWritten);
  used_.right = std::max(used_.right, touched_.back());
  if (row_ == 1) noteHeaders();
  for (const Area& area : merges_) {
    lastColumn_ = std::max(lastColumn_, area.right);
    if (!merged_) startMerges();
    merged_->text().append("<mergeCell ref=\"" + areaName(area) + "\"/>");
    merged_->settle();
  }
  ++rowCount_;
  oldRow_.reset();
  touched_.clear();
  merges_.clear();
  rows_.settle();
}

void SheetStream::startMerges() {
  merged_.emplace(folder_).text().append(std::string("<mergeCells") + kSheetNamespace + ">");
}

void SheetStream::appendOldRow(const OldRow& row) {
  Buffer& text = rows_.text();
  const std::string number = std::to_string(row.number);
  text.append("<row r=\"" + number + '"');
  text.append(row.attributes);
  text.append(">");
  for (const OldCell& cell : row.cells) {
    text.append("<c r=\"" + columnLetters(cell.column) + number + "\" s=\"" + std::to_string(cell.format) +
                "\"/>");
  }
  text.append("</row>");
  if (!row.cells.empty()) used_.right = std::max<int>(used_.right, row.cells.back().column);
  used_.bottom = row.number;
  rows_.settle();
}

// Only cells that do not follow the one before are named: names would be a quarter of the file.
char* SheetStream::encodeCell(char* out, Column& column, std::string_view rowDigits, bool merged) {
  const Cell& cell = column.cell;
  if (cell.kind == Cell::Kind::Blank && cell.style == 0) return out;
  out = put(out, "<c");
  if (cell.column != nextColumn_) {
    out = put(put(put(put(out, " r=\""), {column.letters.data(), column.letterCount}), rowDigits), "\"");
  }
  nextColumn_ = cell.column + 1;
  if (cell.style != 0) {
    out = put(std::to_chars(put(out, " s=\""), out + kCellFrame, styles_.number(cell.style)).ptr, "\"");
  }

  int width = 0;  // characters
  switch (cell.kind) {
    case Cell::Kind::Blank: return put(out, "/>");
    case Cell::Kind::Number:
    case Cell::Kind::Date: {
      char* const digits = put(out, "><v>");
      const bool isDate = cell.kind == Cell::Kind::Date;
      out = encodeNumber(digits, isDate ? dateSerial(cell.number) : cell.number);
      const int length = static_cast<int>(out - digits);
      width =
          isDate ? static_cast<int>(styles_.format(cell.style).size()) + 2 : std::min(length, kWidestNumber);
      out = put(out, "</v></c>");
      break;
    }
    case Cell::Kind::Boolean:
      out = put(out, cell.number != 0 ? " t=\"b\"><v>1</v></c>" : " t=\"b\"><v>0</v></c>");
      width = 5;  // FALSE
      break;
    case Cell::Kind::Text: {
      const bool keepBlanks = isBlank(cell.text.front()) || isBlank(cell.text.back());
      out = put(out, " t=\"inlineStr\"><is><t");
      if (keepBlanks) out = put(out, " xml:space=\"preserve\"");
      *out++ = '>';
      TextShape shape;
      out = put(encodeText(out, cell.text, shape), "</t></is></c>");
      width = shape.widest;
      break;
    }
  }
  if (row_ > 1) column.kinds |= kindBit(merged ? Cell::Kind::Blank : cell.kind);
  if (!merged) column.widest = std::max(column.widest, width);  // AutoFit passes merged cells over
  return out;
}

bool SheetStream::holdsOnly(int column, Cell::Kind kind) const {
  return static_cast<std::size_t>(column) <= columns_.size() &&
         columns_[static_cast<std::size_t>(column) - 1].kinds == kindBit(kind);
}

bool SheetStream::isMerged(int column) const {
  return std::any_of(merges_.begin(), merges_.end(),
                     [column](const Area& area) { return area.left <= column && column <= area.right; });
}

// Programs size a row by its wrapped cells themselves, except by merged ones. The columns' widths are those
// of the rows so far: they only grow later, so the height is enough.
double SheetStream::rowHeight() const {
  int lines = 0;
  for (const Area& area : merges_) {
    const Cell& first = columns_[static_cast<std::size_t>(area.left) - 1].cell;
    if (first.kind != Cell::Kind::Text || !styles_.wraps(first.style)) continue;
    double width = 0;
    for (int column = area.left; column <= area.right; ++column) {
      const int widest = columns_[static_cast<std::size_t>(column) - 1].widest;
      width += widest == 0 ? kDefaultWidth : std::min(widest, kWidest) + kPadding;
    }
    lines = std::max(lines, wrappedLines(first.text, width));
  }
  return std::min(lines * kLineHeight, kMaxHeight);
}

std::vector<FittedColumn> SheetStream::fittedColumns() const {
  std::vector<FittedColumn> fitted;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!columns_[i].fitted || columns_[i].widest == 0) continue;
    fitted.push_back({static_cast<int>(i + 1), std::min(columns_[i].widest, kWidest) + kPadding});
  }
  return fitted;
}

std::string SheetStream::head() const {
  const std::vector<FittedColumn> fitted = fittedColumns();
  const Area written = this->written();
  if (frame_) {
    return frame_->head({1, 1, std::max(written.bottom, used_.bottom), std::max(written.right, used_.right)},
                        fitted);
  }
  return std::string(kXmlHead) + "<worksheet" + kSheetNamespace + "><dimension ref=\"" + areaName(written) +
         "\"/><sheetViews><sheetView" + (selected_ ? " tabSelected=\"1\"" : "") +
         " workbookViewId=\"0\"/></sheetViews>"
         "<sheetFormatPr defaultRowHeight=\"15\"/>" +
         SheetColumns().xml(fitted) + "<sheetData>";
}

void SheetStream::finish(std::span<const std::string> tablesGivenUp) {
  if (tail_) return;
  requireWhole();
  completeRow();
  const Area written = this->written();
  if (frame_) moveTo(kMaxRows + 1);  // the old rows below
  rows_.text().append("</sheetData>");
  if (frame_) rows_.text().append(frame_->middle(written));
  rows_.end(Deflater::Then::Boundary);
  for (const std::string& kept : frame_ ? frame_->keptMerges(written) : std::vector<std::string>()) {
    if (!merged_) startMerges();
    merged_->text().append("<mergeCell ref=\"" + kept + "\"/>");
  }
  if (merged_) {
    merged_->text().append("</mergeCells>");
    merged_->end(Deflater::Then::Boundary);
  }
  row_ = written.bottom;
  head_.emplace(folder_).text().append(head());
  head_->end(Deflater::Then::Boundary);
  tail_.emplace(folder_).text().append(
      frame_ ? frame_->tail(tablesGivenUp)
             : "<pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" header=\"0.3\" "
               "footer=\"0.3\"/></worksheet>");
  tail_->end(Deflater::Then::End);
}

void SheetStream::writeTo(Package& package, const std::string& part) const {
  std::vector<const PackedStream*> streams{&*head_, &rows_};
  if (merged_) streams.push_back(&*merged_);
  streams.push_back(&*tail_);
  package.add(part, streams);
}

}  // namespace vmgv::workbook
