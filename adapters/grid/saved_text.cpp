#include "adapters/grid/saved_text.h"

#include <charconv>
#include <cmath>

#include "adapters/grid/field_text.h"
#include "support/automation/convert.h"

namespace vmgv {
namespace {

constexpr std::string_view kEscaped = "\"\\\n\r\t", kEscapes = "\"\\nrt";

template <class Number, class... Base>
std::optional<Number> exactly(std::string_view word, Base... base) noexcept {
  Number number{};
  const auto read = std::from_chars(word.data(), word.data() + word.size(), number, base...);
  if (read.ec != std::errc() || read.ptr != word.data() + word.size()) return {};
  return number;
}

// Up to the closing quote, which is taken as well; false where there is none.
bool takeQuoted(std::string_view& rest, std::string& text) {
  while (!rest.empty()) {
    char c = rest.front();
    rest.remove_prefix(1);
    if (c == '"') return true;
    if (c == '\\') {
      if (rest.empty()) return false;
      const auto escape = kEscapes.find(rest.front());
      c = escape == kEscapes.npos ? rest.front() : kEscaped[escape];
      rest.remove_prefix(1);
    }
    text += c;
  }
  return false;
}

std::string dateWord(Date date) {
  std::string text = fieldText(date);
  return dateFromField(text) == date ? text : savedNumber(date.days);
}

std::optional<Value> dateOfWord(std::string_view word) {
  if (const auto date = dateFromField(word)) return *date;
  const auto days = realOfWord(word);
  if (!days || !(*days >= -657434 && *days < 2958466)) return {};
  return Date{*days};
}

std::optional<Value> currencyOfWord(std::string_view word) {
  const auto decimal = Decimal::fromText(word);
  if (!decimal || decimal->scale > 4 || decimal->high != 0) return {};
  std::uint64_t units = decimal->low;
  for (unsigned digits = decimal->scale; digits < 4; ++digits) {
    if (units > INT64_MAX / 10) return {};
    units *= 10;
  }
  const auto amount = static_cast<std::int64_t>(units);
  if (amount < 0) return {};
  return Currency{decimal->negative ? -amount : amount};
}

template <class T>
std::optional<Value> valueOf(const std::optional<T>& read) {
  if (!read) return {};
  return Value(*read);
}

}  // namespace

std::optional<std::vector<SavedWord>> savedWords(std::string_view line) {
  std::vector<SavedWord> words;
  for (;;) {
    const auto start = line.find_first_not_of(" \t\r");
    if (start == line.npos) return words;
    line.remove_prefix(start);
    SavedWord word;
    bool quoted = false, named = false;
    while (!line.empty() && line.front() != ' ' && line.front() != '\t' && line.front() != '\r') {
      const char c = line.front();
      line.remove_prefix(1);
      if (c == '"') {
        quoted = true;
        if (!takeQuoted(line, word.text)) return {};
      } else if (c == '=' && !quoted && !named) {
        named = true;
        word.name = std::move(word.text);
        word.text.clear();
      } else {
        word.text += c;
      }
    }
    words.push_back(std::move(word));
  }
}

std::string quotedText(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto escape = kEscaped.find(c);
    if (escape != kEscaped.npos) quoted += '\\';
    quoted += escape == kEscaped.npos ? c : kEscapes[escape];
  }
  return quoted += '"';
}

std::string savedValue(const Value& value) {
  const std::string type = typeName(value) + ':';
  switch (value.type()) {
    case ValueType::Empty:
    case ValueType::Missing:
    case ValueType::Object: return "Empty";
    case ValueType::Null: return "Null";
    case ValueType::Boolean: return type + savedFlag(*value.as<bool>());
    case ValueType::Integer:
    case ValueType::Long:
    case ValueType::Currency:
    case ValueType::Decimal: return type + toText(value);
    case ValueType::Single: return type + savedNumber(*value.as<float>());
    case ValueType::Double: return type + savedNumber(*value.as<double>());
    case ValueType::Date: return type + quotedText(dateWord(*value.as<Date>()));
    case ValueType::String: return type + quotedText(value.text());
  }
  return "Empty";
}

std::optional<Value> valueOfWord(std::string_view word) {
  if (word == "Empty") return Value();
  if (word == "Null") return Value(Null{});
  const auto colon = word.find(':');
  if (colon == word.npos) return {};
  const std::string_view type = word.substr(0, colon), text = word.substr(colon + 1);
  if (type == "String") return Value(text);
  if (type == "Boolean") return valueOf(flagOfWord(text));
  if (type == "Integer") return valueOf(exactly<std::int16_t>(text));
  if (type == "Long") return valueOf(exactly<std::int32_t>(text));
  if (type == "Single") return valueOf(exactly<float>(text));
  if (type == "Double") return valueOf(realOfWord(text));
  if (type == "Currency") return currencyOfWord(text);
  if (type == "Decimal") return valueOf(Decimal::fromText(text));
  if (type == "Date") return dateOfWord(text);
  return {};
}

std::optional<std::int32_t> numberOfWord(std::string_view word) noexcept {
  if (!word.starts_with("0x")) return exactly<std::int32_t>(word);
  const auto bits = exactly<std::uint32_t>(word.substr(2), 16);
  if (!bits) return {};
  return static_cast<std::int32_t>(*bits);
}

std::optional<bool> flagOfWord(std::string_view word) noexcept {
  if (word == "yes") return true;
  if (word == "no") return false;
  return {};
}

std::string savedColor(std::int32_t color) {
  char digits[16];
  const auto written = std::to_chars(digits, digits + sizeof digits, static_cast<std::uint32_t>(color), 16);
  return "0x" + std::string(digits, written.ptr);
}

std::string savedNumber(double number) { return fieldText(number); }

std::optional<double> realOfWord(std::string_view word) noexcept { return exactly<double>(word); }

}  // namespace vmgv
