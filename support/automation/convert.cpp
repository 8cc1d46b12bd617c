#include "support/automation/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "support/automation/date.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

// Not std::to_chars, whose tables would be a quarter of the Windows control's whole file.
std::string digits(double number, int precision) {
  char buffer[40];
  const int length = std::snprintf(buffer, sizeof buffer, "%.*G", precision, number);
  std::replace(buffer, buffer + length, ',', '.');  // a host may have chosen a locale for the process
  return {buffer, buffer + length};
}

std::string currencyText(Currency value) {
  Decimal exact = Decimal::fromInteger(value.units);
  exact.scale = 4;
  std::string text = exact.toText();
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
  if (text.size() != lower.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c) != lower[i]) return false;
  }
  return true;
}

template <class T>
T toWhole(const Value& value) {
  const double rounded = std::nearbyint(toDouble(value));
  if (!(rounded >= std::numeric_limits<T>::min() && rounded <= std::numeric_limits<T>::max())) {
    throw Error(ErrorNumber::Overflow);
  }
  return static_cast<T>(rounded);
}

}  // namespace

Value plainOfObject(Value object) {
  // A default member may answer with an object again; a chain this long has no end.
  for (int depth = 0; object.isObject(); ++depth) {
    if (depth == 16) throw Error(ErrorNumber::TypeMismatch);
    object = object.object().item();
  }
  return object;
}

bool booleanOf(const Value& value) {
  if (value.isText()) {
    if (equalsIgnoringCase(value.text(), "true")) return true;
    if (equalsIgnoringCase(value.text(), "false")) return false;
  }
  return toDouble(value) != 0;
}

std::int16_t toInteger(const Value& value) { return toWhole<std::int16_t>(value); }

std::int32_t longOf(const Value& value) { return toWhole<std::int32_t>(value); }

double toDouble(const Value& value) {
  switch (value.type()) {
    case ValueType::Empty: return 0;
    case ValueType::Missing: throw Error(ErrorNumber::TypeMismatch);
    case ValueType::Null: throw Error(ErrorNumber::InvalidNull);
    case ValueType::Boolean: return *value.as<bool>() ? -1 : 0;
    case ValueType::Integer: return *value.as<std::int16_t>();
    case ValueType::Long: return *value.as<std::int32_t>();
    case ValueType::Single: return *value.as<float>();
    case ValueType::Double: return *value.as<double>();
    case ValueType::Currency: return static_cast<double>(value.as<Currency>()->units) / 10000;
    case ValueType::Decimal: return value.as<Decimal>()->toDouble();
    case ValueType::Date: return value.as<Date>()->days;
    case ValueType::String:
      if (const auto number = numberFromText(value.text())) return *number;
      throw Error(ErrorNumber::TypeMismatch);
    case ValueType::Object: return toDouble(plain(value));
  }
  throw Error(ErrorNumber::TypeMismatch);
}

std::string toText(const Value& value) {
  switch (value.type()) {
    case ValueType::Empty: return {};
    case ValueType::Missing: throw Error(ErrorNumber::TypeMismatch);
    case ValueType::Null: throw Error(ErrorNumber::InvalidNull);
    case ValueType::Boolean: return *value.as<bool>() ? "True" : "False";
    case ValueType::Integer: return std::to_string(*value.as<std::int16_t>());
    case ValueType::Long: return std::to_string(*value.as<std::int32_t>());
    case ValueType::Single: return digits(*value.as<float>(), 7);
    case ValueType::Double: return digits(*value.as<double>(), 15);
    case ValueType::Currency: return currencyText(*value.as<Currency>());
    case ValueType::Decimal: return value.as<Decimal>()->toText();
    case ValueType::Date: return dateText(*value.as<Date>());
    case ValueType::String: return value.text();
    case ValueType::Object: return toText(plain(value));
  }
  throw Error(ErrorNumber::TypeMismatch);
}

bool equals(const Value& value, std::string_view text) {
  const Value held = plain(value);
  if (held.isNull() || held.isMissing()) return false;
  return held.isText() ? held.text() == text : toText(held) == text;
}

bool equals(const Value& value, double number) {
  const Value held = plain(value);
  if (held.isNull() || held.isMissing()) return false;
  if (held.isText()) return numberFromText(held.text()) == number;
  return toDouble(held) == number;
}

std::optional<double> numberFromText(std::string_view text) noexcept {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
  if (text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return {};
  }
  double number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) return {};
  return number;
}

}  // namespace vmgv
