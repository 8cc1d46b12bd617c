#include "support/strings/string_service.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace vmgv {
namespace {

struct Row {
  std::int32_t id;
  std::string_view english;
  std::string_view greek;
};

constexpr auto kTable = std::to_array<Row>({
#define VMG_STRING(id, name, english, greek) {id, english, greek},
#include "resources/strings.def"
#undef VMG_STRING
});

// Ids that belong to no text any more, and are not given again.
constexpr std::array<std::int32_t, 12> kRetired{6, 11, 19, 22, 39, 42, 89, 90, 91, 92, 96, 102};

consteval bool everyIdOnceInOrder() {
  std::int32_t next = kTable.front().id;
  for (const Row& row : kTable) {
    while (std::find(kRetired.begin(), kRetired.end(), next) != kRetired.end()) ++next;
    if (row.id != next++) return false;
  }
  return true;
}
static_assert(everyIdOnceInOrder(), "strings.def: an id is repeated, left out or out of order");

consteval bool bothLanguagesPresent() {
  return std::all_of(kTable.begin(), kTable.end(), [](const Row& row) {
    constexpr std::string_view kFirstBytesOfGreekLetters = "\xCE\xCF";
    return !row.english.empty() && row.greek.find_first_of(kFirstBytesOfGreekLetters) != row.greek.npos;
  });
}
static_assert(bothLanguagesPresent(), "strings.def: a text is missing, or its Greek is not Greek");

consteval bool sameArguments() {
  for (const Row& row : kTable) {
    for (const std::string_view argument : {"%1", "%2", "%3"}) {
      if ((row.english.find(argument) == row.english.npos) != (row.greek.find(argument) == row.greek.npos)) {
        return false;
      }
    }
  }
  return true;
}
static_assert(sameArguments(), "strings.def: the languages disagree about %1, %2 or %3");

}  // namespace

void EmbeddedStringService::setLanguage(LanguageId language) {
  if (language == language_) return;
  language_ = language;
  loaded_ = false;
}

std::string EmbeddedStringService::GetString(std::string_view application, std::string_view key) const {
  if (!loaded_ || application != "vmGridViews" || !key.starts_with('x') || key.starts_with("x0")) return {};
  std::uint32_t id = 0;  // unsigned: a key has no sign
  const char* end = key.data() + key.size();
  const auto number = std::from_chars(key.data() + 1, end, id);
  if (number.ec != std::errc() || number.ptr != end) return {};
  const auto row = std::find_if(kTable.begin(), kTable.end(),
                                [id](const Row& r) { return static_cast<std::uint32_t>(r.id) == id; });
  if (row == kTable.end()) return {};
  return std::string(language_ == kGreek ? row->greek : row->english);
}

std::int32_t EmbeddedStringService::LanguageCharset() const {
  constexpr std::int32_t kAnsiCharset = 0, kGreekCharset = 161;
  // Fonts are asked for before the first text, which chooses Greek where nobody has chosen.
  return language_ == kGreek || language_ == kNoLanguage ? kGreekCharset : kAnsiCharset;
}

MlStringService& processStringService() {
  static EmbeddedStringService service;
  return service;
}

}  // namespace vmgv
