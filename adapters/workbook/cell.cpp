// Values into cells and back.
#include "adapters/workbook/cell.h"

#include <charconv>
#include <cmath>

#include "adapters/workbook/area.h"
#include "adapters/workbook/encode.h"
#include "support/automation/convert.h"
#include "support/automation/date.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

constexpr std::size_t kMaxText = 32767;  // UTF-16 units

[[noreturn]] void refuse(const Cell& cell, const std::string& reason) {
  throw Error(ErrorNumber::Application, "Cell " + cellName(cell.row, cell.column) + ": " + reason);
}

void assignText(Cell& cell, std::string_view text) {
  if (text.size() > kMaxText) {
    if (const std::size_t units = utf16Units(text); units > kMaxText) {
      refuse(cell, "the text has " + std::to_string(units) + " characters, a cell holds at most " +
                       std::to_string(kMaxText));
    }
  }
  cell.text.assign(text);
  cell.kind = text.empty() ? Cell::Kind::Blank : Cell::Kind::Text;
  if (text.find('\n') != std::string_view::npos) cell.style = StyleTable::withWrap(cell.style, true);
}

void assignNumber(Cell& cell, double number) {
  if (!std::isfinite(number)) {
    refuse(cell, "a cell holds no infinity and nothing that is not a number");
  }
  cell.number = number;
  cell.kind = Cell::Kind::Number;
}

void assignDate(Cell& cell, Date date, StyleTable& styles) {
  // Day 0 is a time of day without a date; the day after it is the last of 1899.
  if (!(date.days >= 0) || (date.days >= 1 && date.days < 2) || !std::isfinite(date.days)) {
    refuse(cell, "a worksheet's dates begin in 1900");
  }
  const std::string_view format = date.days < 1 ? kTimeFormat : hasTime(date) ? kDayTimeFormat : kDayFormat;
  if (styles.isGeneral(cell.style)) cell.style = styles.withFormat(cell.style, format);
  cell.number = date.days;
  cell.kind = Cell::Kind::Date;
}

// The digits that a Single shows, not those of the binary fraction behind it: 0.1, not 0.10000000149.
double shownNumber(float single) {
  if (!std::isfinite(single)) return single;
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, single).ptr;
  double number = 0;
  std::from_chars(digits, end, number);
  return number;
}

}  // namespace

void assign(Cell& cell, const Value& value, StyleTable& styles) {
  switch (value.type()) {
    case ValueType::String: return assignText(cell, value.text());
    case ValueType::Object: return assign(cell, plain(value), styles);
    case ValueType::Empty:
    case ValueType::Missing:
    case ValueType::Null: cell.kind = Cell::Kind::Blank; return;
    case ValueType::Boolean:
    case ValueType::Integer:
    case ValueType::Long:
    case ValueType::Single:
    case ValueType::Double:
    case ValueType::Currency:
    case ValueType::Decimal:
    case ValueType::Date: break;
  }
  if (styles.isText(cell.style)) return assignText(cell, toText(value));
  if (const bool* flag = value.as<bool>()) {
    cell.number = *flag;
    cell.kind = Cell::Kind::Boolean;
  } else if (const Date* date = value.as<Date>()) {
    assignDate(cell, *date, styles);
  } else if (const float* single = value.as<float>()) {
    assignNumber(cell, shownNumber(*single));
  } else {
    assignNumber(cell, toDouble(value));
  }
}

Value valueOf(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Blank: return {};
    case Cell::Kind::Number: return cell.number;
    case Cell::Kind::Date: return Date{cell.number};
    case Cell::Kind::Boolean: return cell.number != 0;
    case Cell::Kind::Text: return cell.text;
  }
  return {};
}

double dateSerial(double days) { return days >= 2 && days < 61 ? days - 1 : days; }

}  // namespace vmgv::workbook
