// Writes JSON with stable order and indentation, so that two dumps can be compared byte for byte.
#pragma once

#include <string>
#include <string_view>

#include "support/automation/value.h"

namespace vmgv {

class JsonWriter {
 public:
  JsonWriter& beginObject() { return open('{'); }
  JsonWriter& endObject() { return close('}'); }
  JsonWriter& beginArray() { return open('['); }
  JsonWriter& endArray() { return close(']'); }
  JsonWriter& key(std::string_view name);
  JsonWriter& string(std::string_view text);
  JsonWriter& number(long long value);
  JsonWriter& number(double value);
  JsonWriter& boolean(bool value);
  JsonWriter& null();
  // Numbers and Booleans as such; Empty, Null and Missing as null; all else as text.
  JsonWriter& value(const Value& value);

  // The text so far, with a line feed at the end.
  std::string text() const { return text_ + '\n'; }

 private:
  JsonWriter& open(char bracket);
  JsonWriter& close(char bracket);
  JsonWriter& literal(std::string_view text);
  void separate();
  void newLine();

  std::string text_;
  int depth_ = 0;
  bool first_ = true;      // nothing yet inside the innermost bracket
  bool afterKey_ = false;  // a value belongs on the line of its key
};

}  // namespace vmgv
