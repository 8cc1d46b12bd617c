// The automation run-time's conversions between types. A value that does not convert is an Error:
// 13 type mismatch, 6 overflow, 94 invalid use of Null, 424/91 for objects without a value.
// An object stands for its default member's value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "support/automation/value.h"

namespace vmgv {

bool booleanOf(const Value& value);  // of any type
std::int32_t longOf(const Value& value);

// Any number but 0 is True; "True", "False" or a number.
inline bool toBoolean(const Value& value) {
  const bool* held = value.as<bool>();
  return held ? *held : booleanOf(value);
}
std::int16_t toInteger(const Value& value);  // halves go to the even neighbour
inline std::int32_t toLong(const Value& value) {
  const auto* held = value.as<std::int32_t>();
  return held ? *held : longOf(value);
}
double toDouble(const Value& value);
// Numbers with "." and up to 15 digits (7 for Single), "True"/"False", dates as MM/dd/yyyy with
// HH:mm:ss behind it where there is a time, Empty as "". No locale: a workbook reads the same anywhere.
std::string toText(const Value& value);

// What an object stands for: its default member, repeatedly; other values are returned as they are.
Value plainOfObject(Value object);
inline Value plain(Value value) { return value.isObject() ? plainOfObject(std::move(value)) : value; }

// Comparisons of a value with a literal. A text that is no number never equals one.
bool equals(const Value& value, std::string_view text);  // Null and Missing equal nothing
bool equals(const Value& value, double number);

// A number in "." notation with optional sign, exponent and outer blanks.
std::optional<double> numberFromText(std::string_view text) noexcept;

}  // namespace vmgv
