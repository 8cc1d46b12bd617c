#include "support/automation/date.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr std::size_t kLongestToken = 4;  // digits
constexpr int kSecondsPerDay = 86400;
constexpr double kFirstDay = -657434;  // 0100-01-01
constexpr double kLastDay = 2958465;   // 9999-12-31
constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

// At least `width` digits.
char* putNumber(char* out, int number, int width) {
  if (number < 100 && width == 2) {
    *out++ = static_cast<char>('0' + number / 10);
    *out++ = static_cast<char>('0' + number % 10);
    return out;
  }
  int digits = 1;
  for (int rest = number; rest > 9; rest /= 10) ++digits;
  digits = std::max(digits, width);
  for (int i = digits; i > 0; number /= 10) out[--i] = static_cast<char>('0' + number % 10);
  return out + digits;
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

}  // namespace

CivilTime civilTime(Date date) {
  if (!(date.days > kFirstDay - 1 && date.days < kLastDay + 1)) throw Error(ErrorNumber::TypeMismatch);
  double day = std::trunc(date.days);
  auto seconds = std::lround(std::fabs(date.days - day) * kSecondsPerDay);
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    day += 1;
  }
  const std::chrono::year_month_day civil{kDayZero + std::chrono::days(static_cast<int>(day))};
  CivilTime time;
  time.year = static_cast<int>(civil.year());
  time.month = static_cast<int>(static_cast<unsigned>(civil.month()));
  time.day = static_cast<int>(static_cast<unsigned>(civil.day()));
  time.hour = static_cast<int>(seconds / 3600);
  time.minute = static_cast<int>(seconds / 60 % 60);
  time.second = static_cast<int>(seconds % 60);
  return time;
}

Date dateFromCivil(const CivilTime& time) {
  const std::chrono::sys_days day{std::chrono::year{time.year} / time.month / time.day};
  const double days = (day - kDayZero).count();
  const double fraction =
      static_cast<double>(time.hour * 3600 + time.minute * 60 + time.second) / kSecondsPerDay;
  return {days < 0 ? days - fraction : days + fraction};
}

bool hasTime(Date date) { return date.days != std::trunc(date.days); }

std::string dateText(Date date) {
  static const DatePattern day("MM/dd/yyyy");
  static const DatePattern moment("MM/dd/yyyy HH:mm:ss");
  return (hasTime(date) ? moment : day).format(date);
}

DatePattern::DatePattern(std::string_view pattern) {
  bool afterHour = false;
  for (std::size_t at = 0; at < pattern.size();) {
    if (pattern.substr(at, 5) == "AM/PM") {
      tokens_.push_back({Part::AmPm, 0, 0});
      twelveHours_ = true;
      at += 5;
      continue;
    }
    const char letter = pattern[at];
    std::size_t end = at + 1;
    while (end < pattern.size() && pattern[end] == letter) ++end;
    const auto width = static_cast<unsigned char>(std::min(end - at, kLongestToken));
    Part part = Part::Literal;
    switch (lower(letter)) {
      case 'd': part = Part::Day; break;
      case 'm': part = afterHour ? Part::Minute : Part::Month; break;
      case 'y': part = Part::Year; break;
      case 'h': part = Part::Hour; break;
      case 'n': part = Part::Minute; break;
      case 's': part = Part::Second; break;
      default: break;
    }
    if (part == Part::Literal) {
      tokens_.push_back({part, letter, 0});
      ++at;
      continue;
    }
    afterHour = part == Part::Hour;
    tokens_.push_back({part, 0, width});
    at = end;
  }
}

std::string DatePattern::format(Date date) const {
  // An export formats a date a cell: patterns of ordinary length need no memory of their own.
  const std::size_t longest = tokens_.size() * kLongestToken;
  if (std::array<char, 128> buffer{}; longest <= buffer.size())
    return {buffer.data(), write(date, buffer.data())};
  std::string text(longest, '\0');
  text.resize(static_cast<std::size_t>(write(date, text.data()) - text.data()));
  return text;
}

char* DatePattern::write(Date date, char* out) const {
  const CivilTime time = civilTime(date);
  for (const Token& token : tokens_) {
    switch (token.part) {
      case Part::Literal: *out++ = token.character; break;
      case Part::Day: out = putNumber(out, time.day, token.width); break;
      case Part::Month: out = putNumber(out, time.month, token.width); break;
      case Part::Year:
        out = putNumber(out, token.width > 2 ? time.year : time.year % 100, token.width);
        break;
      case Part::Hour:
        out = putNumber(out, twelveHours_ ? (time.hour + 11) % 12 + 1 : time.hour, token.width);
        break;
      case Part::Minute: out = putNumber(out, time.minute, token.width); break;
      case Part::Second: out = putNumber(out, time.second, token.width); break;
      case Part::AmPm:
        *out++ = time.hour < 12 ? 'A' : 'P';
        *out++ = 'M';
        break;
    }
  }
  return out;
}

}  // namespace vmgv
