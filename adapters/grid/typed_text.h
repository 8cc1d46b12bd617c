// Numbers and dates as people type them, whatever the notation of their country.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/automation/value.h"

namespace vmgv {

// A number with "." as its decimal mark and no other marks: "1.234,5" and "1,234.5" are both "1234.5". A mark
// that stands alone is a decimal one ("1,234" is 1.234); those that group digits do so by three.
std::optional<std::string> plainNumber(std::string_view typed);
std::optional<double> numberFromTyped(std::string_view typed);

// A date with or without hh:mm or hh:mm:ss behind it: year first, or year last with "/" behind the month, as
// grids show their dates, or with "." or "-" behind the day. A month above 12 was meant as the day. Years of
// two digits lie from 1930 to 2029.
std::optional<Date> dateFromTyped(std::string_view typed);

}  // namespace vmgv
