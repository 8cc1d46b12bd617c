// The words of a saved view: names, texts in quotes, values with their types.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/automation/value.h"

namespace vmgv {

// name=text, or text alone; quotes and escapes are undone.
struct SavedWord {
  std::string name, text;
};

// Nothing where a quote is left open.
std::optional<std::vector<SavedWord>> savedWords(std::string_view line);
std::string quotedText(std::string_view text);

// A value as "Long:5", "String:\"a b\"", "Null"; nothing where the word is none.
std::string savedValue(const Value& value);
std::optional<Value> valueOfWord(std::string_view word);

// Whole numbers in decimal or, behind 0x, as the bits in hexadecimal.
std::optional<std::int32_t> numberOfWord(std::string_view word) noexcept;
std::optional<bool> flagOfWord(std::string_view word) noexcept;  // yes, no
inline const char* savedFlag(bool flag) noexcept { return flag ? "yes" : "no"; }
std::string savedColor(std::int32_t color);
std::string savedNumber(double number);
std::optional<double> realOfWord(std::string_view word) noexcept;

// Into a place, where there is a value; whether there was.
template <class T, class U>
bool takeInto(T& place, const std::optional<U>& value) {
  if (value) place = static_cast<T>(*value);
  return value.has_value();
}

template <class T>
bool takeFontSize(T& place, std::string_view text) {
  const auto size = realOfWord(text);
  return size && *size > 0 && *size <= 1638 && takeInto(place, size);
}

}  // namespace vmgv
