// A value as automation passes it: one of a dozen types, text in UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "support/automation/decimal.h"
#include "support/automation/object.h"

namespace vmgv {

struct Missing {  // an omitted optional argument
  bool operator==(const Missing&) const = default;
};
struct Null {  // no value, as databases have it
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

// String and Object come last: they alone own something.
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

namespace detail {

template <class T, class... Contents>
consteval ValueType typeAmong() {
  const bool same[] = {std::is_same_v<T, Contents>...};
  for (std::size_t i = 0; i < sizeof...(Contents); ++i) {
    if (same[i]) return static_cast<ValueType>(i + 1);
  }
  return ValueType::Empty;
}

}  // namespace detail

// The type whose content is a T; Empty where there is none.
template <class T>
inline constexpr ValueType kTypeOf =
    detail::typeAmong<T, Missing, Null, bool, std::int16_t, std::int32_t, float, double, Currency, Decimal,
                      Date, std::string, ObjectRef>();

// NOLINTBEGIN(cppcoreguidelines-pro-type-member-init): bytes_ mean nothing until hold() fills them
// A tagged union by hand: a dozen of these are made and dropped for each cell of an export, and a
// std::variant goes through a table of functions each time.
class Value {
 public:
  Value() noexcept = default;  // Empty
  Value(Missing v) noexcept { hold(v); }
  Value(Null v) noexcept { hold(v); }
  Value(bool v) noexcept { hold(v); }
  Value(std::int16_t v) noexcept { hold(v); }
  Value(std::int32_t v) noexcept { hold(v); }
  Value(float v) noexcept { hold(v); }
  Value(double v) noexcept { hold(v); }
  Value(Currency v) noexcept { hold(v); }
  Value(Decimal v) noexcept { hold(v); }
  Value(Date v) noexcept { hold(v); }
  Value(std::string v) noexcept { hold(std::move(v)); }
  Value(std::string_view v) { hold(std::string(v)); }
  Value(const char* v) { hold(std::string(v)); }
  Value(ObjectRef v) noexcept { hold(std::move(v)); }
  Value(Object* v) noexcept { hold(ObjectRef(v)); }
  // A wider or unsigned number would change its type silently: convert it first.
  template <class T>
  requires std::is_arithmetic_v<T> Value(T)
  = delete;

  Value(const Value& other) { copy(other); }
  Value(Value&& other) noexcept { move(std::move(other)); }
  Value& operator=(const Value& other) { return *this = Value(other); }
  Value& operator=(Value&& other) noexcept {
    if (this != &other) {
      drop();
      move(std::move(other));
    }
    return *this;
  }
  ~Value() { drop(); }

  ValueType type() const noexcept { return type_; }
  bool isEmpty() const noexcept { return type_ == ValueType::Empty; }
  bool isMissing() const noexcept { return type_ == ValueType::Missing; }
  bool isNull() const noexcept { return type_ == ValueType::Null; }
  bool isText() const noexcept { return type_ == ValueType::String; }
  bool isObject() const noexcept { return type_ == ValueType::Object; }

  // The content where the value is of that type, else null.
  template <class T>
  const T* as() const noexcept {
    static_assert(kTypeOf<T> != ValueType::Empty, "no value is of this type");
    return type_ == kTypeOf<T> ? &content<T>() : nullptr;
  }
  const std::string& text() const {
    requireText();
    return content<std::string>();
  }
  std::string takeText() && {
    requireText();
    return std::move(content<std::string>());
  }
  // The object held; Error 424 where there is none, Error 91 where it is nothing.
  const ObjectRef& object() const {
    if (type_ != ValueType::Object || !content<ObjectRef>()) noObject();
    return content<ObjectRef>();
  }
  ObjectRef takeObject() && {
    if (type_ != ValueType::Object || !content<ObjectRef>()) noObject();
    return std::move(content<ObjectRef>());
  }

  // Same type and same content; no conversion.
  bool operator==(const Value& other) const noexcept;

 private:
  // Every type below String is a few bytes without an owner.
  static constexpr std::size_t kPlainBytes = sizeof(Decimal);
  bool ownsContent() const noexcept { return type_ >= ValueType::String; }

  template <class T>
  T& content() noexcept {
    return *std::launder(reinterpret_cast<T*>(bytes_));
  }
  template <class T>
  const T& content() const noexcept {
    return *std::launder(reinterpret_cast<const T*>(bytes_));
  }
  template <class T>
  void hold(T content) noexcept {
    static_assert(sizeof(T) <= sizeof(bytes_));
    static_assert(kTypeOf<T> >= ValueType::String ||
                  (std::is_trivially_copyable_v<T> && sizeof(T) <= kPlainBytes));
    new (bytes_) T(std::move(content));
    type_ = kTypeOf<T>;
  }
  void copy(const Value& other) {
    if (!other.ownsContent()) {
      std::memcpy(bytes_, other.bytes_, kPlainBytes);
      type_ = other.type_;
    } else if (other.type_ == ValueType::String) {
      hold(std::string(other.content<std::string>()));
    } else {
      hold(ObjectRef(other.content<ObjectRef>()));
    }
  }
  void move(Value&& other) noexcept {
    if (!other.ownsContent()) {
      std::memcpy(bytes_, other.bytes_, kPlainBytes);
      type_ = other.type_;
    } else if (other.type_ == ValueType::String) {
      hold(std::move(other.content<std::string>()));
    } else {
      hold(std::move(other.content<ObjectRef>()));
    }
  }
  void drop() noexcept {
    if (!ownsContent()) return;
    if (type_ == ValueType::String) {
      std::destroy_at(&content<std::string>());
    } else {
      std::destroy_at(&content<ObjectRef>());
    }
    type_ = ValueType::Empty;
  }
  void requireText() const;
  [[noreturn]] void noObject() const;

  alignas(std::string) std::byte bytes_[sizeof(std::string)];
  ValueType type_ = ValueType::Empty;
};
// NOLINTEND(cppcoreguidelines-pro-type-member-init)

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
  return get(member, std::forward<A>(args)...).takeObject();
}
template <class... A>
Value ObjectRef::item(A&&... args) const {
  return detail::invoke(required(), kDefaultMember, Access::Get, std::forward<A>(args)...);
}

}  // namespace vmgv
