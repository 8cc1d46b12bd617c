// The content of one cell of the row that is being filled.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/workbook/styles.h"
#include "support/automation/value.h"

namespace vmgv::workbook {

struct Cell {
  enum class Kind : std::uint8_t { Blank, Number, Date, Boolean, Text };

  std::int32_t column = 0;
  std::int32_t row = 0;  // the row that the rest belongs to
  Style style = 0;
  Kind kind = Kind::Blank;
  double number = 0;  // of a date its automation number, of a Boolean 0 or 1
  std::string text;   // keeps its memory from row to row
};

// Puts a value into a cell as the spreadsheet program does: Empty, Null, Missing and "" clear it, a Date
// brings a date format into a General cell, a text with a line feed wraps, and a cell of format "@" holds
// text whatever is put in. The one difference: text stays text in a General cell too, "=1+1", "007" and
// "03/04/2025" alike. The program would read those by the user's locale, and the same export would then
// hold the 3rd of April in one place and the 4th of March in another.
// Error 1004 for what a cell cannot hold: NaN, infinities, dates before 1900, more than 32,767 UTF-16 units.
void assign(Cell& cell, const Value& value, StyleTable& styles);

Value valueOf(const Cell& cell);

// The worksheet's number for an automation date: its calendar has a 29 February 1900, so that the two
// months before it are one less.
double dateSerial(double days);

}  // namespace vmgv::workbook
