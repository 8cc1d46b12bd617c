#include "hosts/player/words.h"

#include <charconv>
#include <utility>

#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv {
namespace {

constexpr std::pair<const char*, ShiftState> kPrefixes[]{
    {"ctrl+", kControl}, {"alt+", kAlt}, {"shift+", kShift}};

constexpr std::pair<const char*, Key> kKeys[]{{"enter", Key::Return},
                                              {"esc", Key::Escape},
                                              {"tab", Key::Tab},
                                              {"space", Key::Space},
                                              {"left", Key::Left},
                                              {"up", Key::Up},
                                              {"right", Key::Right},
                                              {"down", Key::Down},
                                              {"delete", Key::Delete},
                                              {"backspace", Key::Backspace},
                                              {"f1", Key::F1},
                                              {"f2", Key::F2},
                                              {"f4", Key::F4},
                                              {"pageup", Key::PageUp},
                                              {"pagedown", Key::PageDown},
                                              {"home", Key::Home},
                                              {"end", Key::End}};

}  // namespace

Value valueOf(const Word& word) {
  if (isKeyword(word, "true")) return true;
  if (isKeyword(word, "false")) return false;
  if (isKeyword(word, "null")) return Null{};
  if (const auto whole = wholeNumber(word)) return *whole;
  if (!word.quoted) {
    if (const auto number = numberFromText(word.text)) return *number;
  }
  return word.text;
}

std::optional<std::int32_t> wholeNumber(const Word& word) {
  std::int32_t number = 0;
  const char* const end = word.text.data() + word.text.size();
  const auto [stopped, failed] = std::from_chars(word.text.data(), end, number);
  if (word.quoted || failed != std::errc() || stopped != end) return {};
  return number;
}

std::optional<KeyStroke> keyOf(const std::string& text) {
  std::string name = lowerCase(text);
  int shift = 0;
  for (bool found = true; found;) {
    found = false;
    for (const auto& [prefix, state] : kPrefixes) {
      if (!name.starts_with(prefix) || (shift & state)) continue;
      name.erase(0, std::string_view(prefix).size());
      shift |= state;
      found = true;
    }
  }
  for (const auto& [known, key] : kKeys) {
    if (name == known) return KeyStroke{key, shift};
  }
  if (name.size() != 1) return {};
  const char c = name[0];
  if (c >= 'a' && c <= 'z') return KeyStroke{static_cast<Key>(c - 32), shift};  // keys are capitals
  if (c >= '0' && c <= '9') return KeyStroke{static_cast<Key>(c), shift};
  return {};
}

bool isKeyword(const Word& word, const char* keyword) {
  return !word.quoted && lowerCase(word.text) == keyword;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    if (c == '\n') {
      result += "\\n";
    } else {
      result += c;
    }
  }
  return result + '"';
}

}  // namespace vmgv
