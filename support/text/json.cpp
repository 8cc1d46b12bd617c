#include "support/text/json.h"

#include <charconv>
#include <cmath>

#include "support/automation/convert.h"

namespace vmgv {

JsonWriter& JsonWriter::key(std::string_view name) {
  string(name);
  text_ += ": ";
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::string(std::string_view text) {
  separate();
  text_ += '"';
  for (const char c : text) {
    switch (c) {
      case '"': text_ += "\\\""; break;
      case '\\': text_ += "\\\\"; break;
      case '\n': text_ += "\\n"; break;
      case '\r': text_ += "\\r"; break;
      case '\t': text_ += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          constexpr char kHex[] = "0123456789abcdef";
          text_ += "\\u00";
          text_ += kHex[c >> 4];
          text_ += kHex[c & 15];
        } else {
          text_ += c;
        }
    }
  }
  text_ += '"';
  return *this;
}

JsonWriter& JsonWriter::number(long long value) { return literal(std::to_string(value)); }

JsonWriter& JsonWriter::number(double value) {
  if (!std::isfinite(value)) return null();
  char buffer[32];
  return literal({buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr});
}

JsonWriter& JsonWriter::boolean(bool value) { return literal(value ? "true" : "false"); }
JsonWriter& JsonWriter::null() { return literal("null"); }

JsonWriter& JsonWriter::value(const Value& value) {
  switch (value.type()) {
    case ValueType::Empty:
    case ValueType::Missing:
    case ValueType::Null: return null();
    case ValueType::Boolean: return boolean(*value.as<bool>());
    case ValueType::Integer:
    case ValueType::Long: return number(static_cast<long long>(toLong(value)));
    case ValueType::Single:
    case ValueType::Double: return number(toDouble(value));
    case ValueType::Object: return string(typeName(value));
    case ValueType::Currency:
    case ValueType::Decimal:
    case ValueType::Date:
    case ValueType::String: break;
  }
  return string(toText(value));
}

JsonWriter& JsonWriter::open(char bracket) {
  separate();
  text_ += bracket;
  ++depth_;
  first_ = true;
  return *this;
}

JsonWriter& JsonWriter::close(char bracket) {
  --depth_;
  if (!first_) newLine();
  text_ += bracket;
  first_ = false;
  return *this;
}

JsonWriter& JsonWriter::literal(std::string_view text) {
  separate();
  text_ += text;
  return *this;
}

void JsonWriter::separate() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (depth_ == 0) return;
  if (!first_) text_ += ',';
  newLine();
  first_ = false;
}

void JsonWriter::newLine() {
  text_ += '\n';
  text_.append(static_cast<std::size_t>(depth_) * 2, ' ');
}

}  // namespace vmgv
