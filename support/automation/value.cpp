#include "support/automation/value.h"

#include "support/automation/error.h"

namespace vmgv {

void Value::requireText() const {
  if (!isText()) throw Error(ErrorNumber::TypeMismatch);
}

void Value::noObject() const {
  throw Error(isObject() ? ErrorNumber::ObjectNotSet : ErrorNumber::ObjectRequired);
}

bool Value::operator==(const Value& other) const noexcept {
  if (type_ != other.type_) return false;
  const auto same = [&]<class T>(const T* held) { return *held == *other.as<T>(); };
  switch (type_) {
    case ValueType::Empty:
    case ValueType::Missing:
    case ValueType::Null: return true;
    case ValueType::Boolean: return same(as<bool>());
    case ValueType::Integer: return same(as<std::int16_t>());
    case ValueType::Long: return same(as<std::int32_t>());
    case ValueType::Single: return same(as<float>());
    case ValueType::Double: return same(as<double>());
    case ValueType::Currency: return same(as<Currency>());
    case ValueType::Decimal: return same(as<Decimal>());
    case ValueType::Date: return same(as<Date>());
    case ValueType::String: return same(as<std::string>());
    case ValueType::Object: return same(as<ObjectRef>());
  }
  return false;
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
