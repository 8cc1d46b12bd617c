#include "support/automation/value.h"

#include "support/automation/error.h"

namespace vmgv {

const ObjectRef& Value::object() const {
  const ObjectRef* reference = as<ObjectRef>();
  if (!reference) throw Error(ErrorNumber::ObjectRequired);
  if (!*reference) throw Error(ErrorNumber::ObjectNotSet);
  return *reference;
}

std::string typeName(const Value& value) {
  switch (value.type()) {
    case ValueType::Empty: return "Empty";
    case ValueType::Missing: return "Error";
    case ValueType::Null: return "Null";
    case ValueType::Boolean: return "Boolean";
    case ValueType::Integer: return "Integer";
    case ValueType::Long: return "Long";
    case ValueType::Single: return "Single";
    case ValueType::Double: return "Double";
    case ValueType::Currency: return "Currency";
    case ValueType::Decimal: return "Decimal";
    case ValueType::Date: return "Date";
    case ValueType::String: return "String";
    case ValueType::Object: break;
  }
  const ObjectRef& object = *value.as<ObjectRef>();
  return object ? (*object).typeName() : "Nothing";
}

}  // namespace vmgv
