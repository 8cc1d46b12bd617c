#include "adapters/grid/typed_text.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "support/automation/convert.h"
#include "support/automation/date.h"

namespace vmgv {
namespace {

constexpr std::size_t kGroup = 3;  // digits between two marks that group them

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Whether the marks in `whole`, all the same, part its digits as in "1.234.567".
bool isGrouped(std::string_view whole, char mark) {
  if (!whole.empty() && (whole[0] == '-' || whole[0] == '+')) whole.remove_prefix(1);
  std::size_t run = 0;
  bool first = true;
  for (const char c : whole) {
    if (c != mark) {
      if (!isDigit(c)) return false;
      ++run;
      continue;
    }
    if (first ? run == 0 || run > kGroup : run != kGroup) return false;
    run = 0;
    first = false;
  }
  return run == kGroup;
}

// The number of 1 to `most` digits at the start of `text`, which loses them.
std::optional<int> takeDigits(std::string_view& text, std::size_t most) {
  int number = 0;
  std::size_t length = 0;
  for (; length < text.size() && length < most && isDigit(text[length]); ++length) {
    number = number * 10 + (text[length] - '0');
  }
  text.remove_prefix(length);
  if (length == 0) return {};
  return number;
}

bool takeMark(std::string_view& text, char mark) {
  if (!text.starts_with(mark)) return false;
  text.remove_prefix(1);
  return true;
}

bool takeTime(std::string_view text, CivilTime& time) {
  const auto hour = takeDigits(text, 2);
  if (!hour || !takeMark(text, ':')) return false;
  const auto minute = takeDigits(text, 2);
  const auto second = takeMark(text, ':') ? takeDigits(text, 2) : std::optional<int>(0);
  if (!minute || !second || !text.empty()) return false;
  time.hour = *hour;
  time.minute = *minute;
  time.second = *second;
  return *hour < 24 && *minute < 60 && *second < 60;
}

int fullYear(int year, std::size_t digits) {
  if (digits > 2) return year;
  return year + (year < 30 ? 2000 : 1900);
}

}  // namespace

std::optional<std::string> plainNumber(std::string_view typed) {
  typed = trimmed(typed);
  std::string plain(typed);
  if (const auto last = typed.find_last_of(".,"); last != typed.npos) {
    const char mark = typed[last], other = mark == '.' ? ',' : '.';
    const std::string_view whole = typed.substr(0, last), rest = typed.substr(last + 1);
    const bool groups = whole.find(mark) != whole.npos;  // it comes again, so it is no decimal mark
    if (groups && !isGrouped(typed, mark)) return {};
    if (!groups && whole.find(other) != whole.npos && !isGrouped(whole, other)) return {};
    plain = whole;
    std::erase_if(plain, [](char c) { return c == '.' || c == ','; });
    if (!groups) plain += '.';
    plain += rest;
  }
  if (!numberFromText(plain)) return {};
  return plain;
}

std::optional<double> numberFromTyped(std::string_view typed) {
  const auto plain = plainNumber(typed);
  return plain ? numberFromText(*plain) : std::nullopt;
}

std::optional<Date> dateFromTyped(std::string_view typed) {
  std::string_view rest = trimmed(typed);
  CivilTime time;
  const auto blank = rest.find_first_of(" T");
  if (blank != rest.npos) {
    if (!takeTime(trimmed(rest.substr(blank + 1)), time)) return {};
    rest = rest.substr(0, blank);
  }
  const auto at = rest.find_first_of("-/.");
  if (at == rest.npos) return {};
  const char mark = rest[at];
  const auto first = takeDigits(rest, 4);
  if (!first || !takeMark(rest, mark)) return {};
  const auto second = takeDigits(rest, 2);
  if (!second || !takeMark(rest, mark)) return {};
  const std::size_t digits = rest.size();
  const auto third = takeDigits(rest, 4);
  if (!third || !rest.empty()) return {};
  if (at > 2) {
    time.year = *first;
    time.month = *second;
    time.day = *third;
  } else {
    time.year = fullYear(*third, digits);
    time.month = mark == '/' ? *first : *second;
    time.day = mark == '/' ? *second : *first;
    if (time.month > 12) std::swap(time.month, time.day);
  }
  const auto civil = std::chrono::year(time.year) / time.month / time.day;
  if (time.year < 100 || time.month > 12 || time.day > 31 || !civil.ok()) return {};
  return dateFromCivil(time);
}

}  // namespace vmgv
