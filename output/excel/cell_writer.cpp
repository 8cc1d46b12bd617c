#include "output/excel/cell_writer.h"

#include "support/automation/convert.h"
#include "support/errors/errors.h"

namespace vmgv {
namespace {

constexpr const char* kTextFormat = "@";

}  // namespace

std::string withLineFeeds(std::string text) {
  std::size_t at = text.find("\r\n");
  if (at == std::string::npos) return text;
  std::size_t end = at;  // of what is kept so far
  for (; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
    text[end++] = text[at];
  }
  text.resize(end);
  return text;
}

CellWriter::CellWriter(ObjectRef sheet, std::string_view momentPattern)
    : sheet_(std::move(sheet)), momentPattern_(momentPattern) {}

ObjectRef CellWriter::cell(std::int32_t row, std::int32_t column) const {
  return sheet_.object(cells_, row, column);
}

void CellWriter::write(std::int32_t row, std::int32_t column, const ObjectRef& gridRow,
                       const ObjectRef& gridColumn, std::int32_t index) const {
  if (toBoolean(gridColumn.get(hasValueList_))) return writeListed(row, column, gridRow, gridColumn, index);

  Value value = plain(gridRow.get(rowValue_, index));
  switch (value.type()) {
    case ValueType::Null: return;
    case ValueType::Date: {
      const Date date = *value.as<Date>();
      cell(row, column).put(cellValue_, (hasTime(date) ? momentPattern_ : dayPattern_).format(date));
      return;
    }
    case ValueType::Double:
    case ValueType::Integer:
    case ValueType::Long:
    case ValueType::Single:
    case ValueType::Decimal: cell(row, column).put(cellValue_, std::move(value)); return;
    case ValueType::String: return writeText(cell(row, column), std::move(value).takeText());
    case ValueType::Empty:
    case ValueType::Missing:
    case ValueType::Boolean:
    case ValueType::Currency:
    case ValueType::Object: break;
  }
  writeText(cell(row, column), toText(value));
}

void CellWriter::writeListed(std::int32_t row, std::int32_t column, const ObjectRef& gridRow,
                             const ObjectRef& gridColumn, std::int32_t index) const {
  skipping([&] {
    const Value value = gridRow.get(rowValue_, index);
    cell(row, column)
        .put(cellValue_, gridColumn.object(valueList_).object(itemByValue_, value).get(itemText_));
  });
}

void CellWriter::writeText(const ObjectRef& cell, std::string text) const {
  cell.put(numberFormat_, kTextFormat);
  cell.put(cellValue_, withLineFeeds(std::move(text)));
}

}  // namespace vmgv
