// A value as automation passes it: one of a dozen types, text in UTF-8.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "support/automation/decimal.h"
#include "support/automation/object.h"

namespace vmgv {

struct Missing {  // an omitted optional argument
  bool operator==(const Missing&) const = default;
};
struct Null {
  bool operator==(const Null&) const = default;
};
struct Currency {  // units of 1/10,000
  std::int64_t units = 0;
  bool operator==(const Currency&) const = default;
};
struct Date {  // days since 1899-12-30; the fraction is the time of day
  double days = 0;
  bool operator==(const Date&) const = default;
};

// In the order of the Value's alternatives.
enum class ValueType : std::uint8_t {
  Empty,
  Missing,
  Null,
  Boolean,
  Integer,
  Long,
  Single,
  Double,
  Currency,
  Decimal,
  Date,
  String,
  Object
};

class Value {
 public:
  Value() noexcept = default;  // Empty
  Value(Missing v) noexcept : held_(v) {}
  Value(Null v) noexcept : held_(v) {}
  Value(bool v) noexcept : held_(v) {}
  Value(std::int16_t v) noexcept : held_(v) {}
  Value(std::int32_t v) noexcept : held_(v) {}
  Value(float v) noexcept : held_(v) {}
  Value(double v) noexcept : held_(v) {}
  Value(Currency v) noexcept : held_(v) {}
  Value(Decimal v) noexcept : held_(v) {}
  Value(Date v) noexcept : held_(v) {}
  Value(std::string v) noexcept : held_(std::move(v)) {}
  Value(std::string_view v) : held_(std::string(v)) {}
  Value(const char* v) : held_(std::string(v)) {}
  Value(ObjectRef v) noexcept : held_(std::move(v)) {}
  Value(Object* v) noexcept : held_(ObjectRef(v)) {}
  // A wider or unsigned number would change its type silently: convert it first.
  template <class T>
  requires std::is_arithmetic_v<T> Value(T)
  = delete;

  ValueType type() const noexcept { return static_cast<ValueType>(held_.index()); }
  bool isEmpty() const noexcept { return type() == ValueType::Empty; }
  bool isMissing() const noexcept { return type() == ValueType::Missing; }
  bool isNull() const noexcept { return type() == ValueType::Null; }
  bool isText() const noexcept { return type() == ValueType::String; }
  bool isObject() const noexcept { return type() == ValueType::Object; }

  // The alternative's content where the value is of that type, else null.
  template <class T>
  const T* as() const noexcept {
    return std::get_if<T>(&held_);
  }
  const std::string& text() const { return std::get<std::string>(held_); }
  std::string takeText() && { return std::move(std::get<std::string>(held_)); }
  // The object held; Error 424 where there is none, Error 91 where it is nothing.
  const ObjectRef& object() const;

  // Same type and same content; no conversion.
  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, Missing, Null, bool, std::int16_t, std::int32_t, float, double, Currency,
               Decimal, Date, std::string, ObjectRef>
      held_;
};

// "Empty", "Null", "Boolean", ..., "Error" for an omitted argument, "Nothing", or the object's class.
std::string typeName(const Value& value);

namespace detail {

template <class... A>
Value invoke(Object& object, MemberId id, Access access, A&&... args) {
  const std::array<Value, sizeof...(A)> values{Value(std::forward<A>(args))...};
  return object.invoke(id, access, values);
}

}  // namespace detail

template <class... A>
Value ObjectRef::get(const Member& member, A&&... args) const {
  Object& object = required();
  return detail::invoke(object, member.in(object), Access::Get, std::forward<A>(args)...);
}
template <class... A>
Value ObjectRef::call(const Member& member, A&&... args) const {
  Object& object = required();
  return detail::invoke(object, member.in(object), Access::Call, std::forward<A>(args)...);
}
template <class... A>
void ObjectRef::put(const Member& member, A&&... args) const {
  Object& object = required();
  detail::invoke(object, member.in(object), Access::Put, std::forward<A>(args)...);
}
template <class... A>
void ObjectRef::putRef(const Member& member, A&&... args) const {
  Object& object = required();
  detail::invoke(object, member.in(object), Access::PutRef, std::forward<A>(args)...);
}
template <class... A>
ObjectRef ObjectRef::object(const Member& member, A&&... args) const {
  return get(member, std::forward<A>(args)...).object();
}
template <class... A>
Value ObjectRef::item(A&&... args) const {
  return detail::invoke(required(), kDefaultMember, Access::Get, std::forward<A>(args)...);
}

}  // namespace vmgv
