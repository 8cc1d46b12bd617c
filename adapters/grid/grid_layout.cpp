#include "adapters/grid/grid_layout.h"

#include "support/automation/convert.h"

namespace vmgv {
namespace {

bool isNumber(const Value& value) {
  switch (value.type()) {
    case ValueType::Boolean:
    case ValueType::Integer:
    case ValueType::Long:
    case ValueType::Single:
    case ValueType::Double:
    case ValueType::Currency:
    case ValueType::Decimal:
    case ValueType::Date: return true;
    case ValueType::Empty:
    case ValueType::Missing:
    case ValueType::Null:
    case ValueType::String:
    case ValueType::Object: return false;
  }
  return false;
}

}  // namespace

const std::string* ValueList::find(const Value& value) const {
  for (const auto& [stored, text] : items) {
    if (stored == value) return &text;
    if (isNumber(stored) && isNumber(value) && toDouble(stored) == toDouble(value)) return &text;
  }
  return nullptr;
}

std::string shownText(Value value, const ValueList* list) {
  if (const std::string* text = list ? list->find(value) : nullptr) return *text;
  if (value.isText()) return std::move(value).takeText();
  return value.isNull() ? std::string() : toText(value);
}

}  // namespace vmgv
