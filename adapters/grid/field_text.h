// Values read from the text of a file, and written back. What is read is exactly what was written: a form
// that would come back otherwise ("007", "+5", "1E3", 20 digits) is no number.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/grid/column_data.h"

namespace vmgv {

std::optional<std::int64_t> wholeFromField(std::string_view text) noexcept;
// Digits behind the point may end in zeros.
std::optional<double> numberFromField(std::string_view text) noexcept;
// yyyy-mm-dd, optionally with hh:mm or hh:mm:ss behind a blank or a T; years from 100.
std::optional<Date> dateFromField(std::string_view text) noexcept;
std::optional<bool> booleanFromField(std::string_view text) noexcept;  // true or false, in any case

// The same forms; the shortest digits that give the number back.
std::string fieldText(std::int64_t number);
std::string fieldText(double number);
std::string fieldText(Date date);
std::string fieldText(bool flag);

}  // namespace vmgv
