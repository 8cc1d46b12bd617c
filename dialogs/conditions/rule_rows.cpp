#include "dialogs/conditions/rule_rows.h"

#include <algorithm>

#include "support/automation/convert.h"

namespace vmgv {
namespace {

constexpr double kLeastPoints = 1, kMostPoints = 24;

}  // namespace

std::string numberedChoice(std::int32_t number, const std::string& text) {
  return std::to_string(number) + " - " + text;
}

std::int32_t numberOfChoice(const std::string& choice) {
  return toLong(Value(choice.substr(0, choice.find('-'))));
}

std::string operandText(const Value& operand) {
  const Value value = plain(operand);
  return value.isMissing() || value.isNull() ? std::string() : toText(value);
}

std::optional<double> fontSizeFrom(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  const std::optional<double> points = numberFromText(text);
  return points && *points >= kLeastPoints && *points <= kMostPoints ? points : std::nullopt;
}

}  // namespace vmgv
