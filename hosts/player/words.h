// What single words of a script mean.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "hosts/player/script.h"
#include "support/automation/value.h"
#include "support/forms/control.h"

namespace vmgv {

// True, False, Null, a whole number (Long), a number (Double); all else and every quoted word is text.
Value valueOf(const Word& word);

// A whole number; nothing where the word is quoted, no such number or too large.
std::optional<std::int32_t> wholeNumber(const Word& word);

struct KeyStroke {
  Key key;
  int shift;
};
// "Enter", "Esc", "Ctrl+Shift+C", whatever the case; nothing where there is no such key.
std::optional<KeyStroke> keyOf(const std::string& text);

// Whether an unquoted word is this key word, whatever its case.
bool isKeyword(const Word& word, const char* keyword);

// A text as a script holds it, in quotes.
std::string quoted(const std::string& text);

}  // namespace vmgv
