// Calendar arithmetic and patterns for automation dates.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/automation/value.h"

namespace vmgv {

struct CivilTime {  // proleptic Gregorian calendar, no time zone
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
};

// Seconds are rounded to the nearest; before 1899-12-30 the fraction still counts forward in the day,
// as automation dates do (-1.25 is 1899-12-29 06:00). Outside the years 100 to 9999: Error 13.
CivilTime civilTime(Date date);
Date dateFromCivil(const CivilTime& time);
bool hasTime(Date date);  // whether the date has a time part

// MM/dd/yyyy, with HH:mm:ss behind it where there is a time part.
std::string dateText(Date date);

// A date pattern of the automation run-time's Format function, compiled once:
// d dd M MM yy yyyy h hh H HH m mm (minutes after an hour) n nn s ss and AM/PM; other characters stand
// for themselves. Without AM/PM an hour counts to 24, whichever the case of its letter.
class DatePattern {
 public:
  explicit DatePattern(std::string_view pattern);
  std::string format(Date date) const;

 private:
  enum class Part : unsigned char { Literal, Day, Month, Year, Hour, Minute, Second, AmPm };
  struct Token {
    Part part;
    char character;       // of a literal
    unsigned char width;  // digits at least
  };
  // Room for four characters a token; returns the end.
  char* write(Date date, char* out) const;

  std::vector<Token> tokens_;
  bool twelveHours_ = false;
};

}  // namespace vmgv
