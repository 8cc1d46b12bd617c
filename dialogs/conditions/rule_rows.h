// How the values of a format condition are shown in rows, and read back from them.
#pragma once

#include <optional>
#include <string>

#include "support/automation/value.h"

namespace vmgv {

// "3 - Amount"
std::string numberedChoice(std::int32_t number, const std::string& text);
// What stands before the first "-". Error 13 where that is no whole number.
std::int32_t numberOfChoice(const std::string& choice);

// An operand as the user types it; "" where there is none.
std::string operandText(const Value& operand);

// Points from 1 to 24, in either decimal notation; nothing for any other text.
std::optional<double> fontSizeFrom(std::string text);

}  // namespace vmgv
