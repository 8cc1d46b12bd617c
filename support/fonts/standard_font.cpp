#include "support/fonts/standard_font.h"

#include <cmath>

#include "support/automation/convert.h"

namespace vmgv {
namespace {

// A property over one Boolean of the font.
template <bool Font::*Member>
constexpr ClassTable<StandardFont>::Entry flag(const char* name) {
  return {name, 0, [](StandardFont& f, Args) -> Value { return f.font.*Member; },
          [](StandardFont& f, Args, const Value& v) { f.font.*Member = toBoolean(v); }};
}

}  // namespace

const ClassTable<StandardFont>& StandardFont::table() {
  static const ClassTable<StandardFont> table(
      "Font",
      {
          {"Name", 0, [](StandardFont& f, Args) -> Value { return f.font.name; },
           [](StandardFont& f, Args, const Value& v) { f.font.name = toText(v); }},
          {"Size", 0,
           [](StandardFont& f, Args) -> Value { return Currency{std::llround(f.font.size * 10000)}; },
           [](StandardFont& f, Args, const Value& v) { f.font.size = toDouble(v); }},
          flag<&Font::bold>("Bold"),
          flag<&Font::italic>("Italic"),
          flag<&Font::underline>("Underline"),
          flag<&Font::strikethrough>("Strikethrough"),
          {"Charset", 0, [](StandardFont& f, Args) -> Value { return f.font.charset; },
           [](StandardFont& f, Args, const Value& v) { f.font.charset = toInteger(v); }},
      },
      "Name");
  return table;
}

}  // namespace vmgv
