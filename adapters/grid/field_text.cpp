#include "adapters/grid/field_text.h"

#include <charconv>
#include <chrono>
#include <cmath>

#include "support/automation/class_table.h"
#include "support/automation/date.h"

namespace vmgv {
namespace {

constexpr int kSurelyExactDigits = 15;  // any decimal of so many digits survives a double

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The length of the whole part at the start of `text`, sign included; 0 where there is none.
std::size_t wholePart(std::string_view text) {
  std::size_t at = !text.empty() && text[0] == '-' ? 1 : 0;
  const std::size_t first = at;
  while (at < text.size() && isDigit(text[at])) ++at;
  const bool leadingZero = at - first > 1 && text[first] == '0';
  return at == first || leadingZero ? 0 : at;
}

// Two digits at `at`, or -1.
int twoDigits(std::string_view text, std::size_t at) {
  if (at + 2 > text.size() || !isDigit(text[at]) || !isDigit(text[at + 1])) return -1;
  return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

}  // namespace

std::optional<std::int64_t> wholeFromField(std::string_view text) noexcept {
  if (wholePart(text) != text.size() || text.empty() || text == "-0") return {};
  std::int64_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) return {};
  return number;
}

std::optional<double> numberFromField(std::string_view text) noexcept {
  std::size_t end = wholePart(text);
  if (end == 0) return {};
  if (end == text.size()) {
    if (end > kSurelyExactDigits) return {};
  } else {
    const std::size_t point = end++;
    while (end < text.size() && isDigit(text[end])) ++end;
    if (text[point] != '.' || end != text.size() || end == point + 1) return {};
  }
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.size() <= kSurelyExactDigits) return number;
  char shortest[400];
  const auto written = std::to_chars(shortest, shortest + sizeof shortest, number, std::chars_format::fixed);
  text = text.substr(0, text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.remove_suffix(1);
  if (written.ec != std::errc() || text != std::string_view(shortest, written.ptr)) return {};
  return number;
}

std::optional<Date> dateFromField(std::string_view text) noexcept {
  if (text.size() != 10 && text.size() != 16 && text.size() != 19) return {};
  const int century = twoDigits(text, 0), decade = twoDigits(text, 2);
  const int month = twoDigits(text, 5), day = twoDigits(text, 8);
  if (century < 1 || decade < 0 || month < 0 || day < 0 || text[4] != '-' || text[7] != '-') return {};
  CivilTime time{century * 100 + decade, month, day};
  if (text.size() > 10) {
    time.hour = twoDigits(text, 11);
    time.minute = twoDigits(text, 14);
    if ((text[10] != ' ' && text[10] != 'T') || text[13] != ':') return {};
    if (text.size() == 19) {
      time.second = twoDigits(text, 17);
      if (text[16] != ':') return {};
    }
  }
  const bool timeIsRight = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                           time.second >= 0 && time.second < 60;
  if (!timeIsRight || !std::chrono::year_month_day(std::chrono::year(time.year) / month / day).ok())
    return {};
  return dateFromCivil(time);
}

std::optional<bool> booleanFromField(std::string_view text) noexcept {
  if (text.size() != 4 && text.size() != 5) return {};
  const std::string lower = lowerCase(text);
  if (lower == "true") return true;
  if (lower == "false") return false;
  return {};
}

std::string fieldText(std::int64_t number) { return std::to_string(number); }

std::string fieldText(double number) {
  char shortest[32];
  return {shortest, std::to_chars(shortest, shortest + sizeof shortest, number).ptr};
}

std::string fieldText(Date date) {
  static const DatePattern day("yyyy-MM-dd"), moment("yyyy-MM-dd HH:nn:ss");
  return (hasTime(date) ? moment : day).format(date);
}

std::string fieldText(bool flag) { return flag ? "true" : "false"; }

}  // namespace vmgv
