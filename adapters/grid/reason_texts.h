// Why a row looks as it does, in words of the process's language.
#pragma once

#include <string>
#include <vector>

#include "adapters/grid/row_styles.h"

namespace vmgv {

// "A, B", and how many more there are.
std::string namesOf(const std::vector<SharedCondition>& conditions);

struct ReasonLine {
  std::string label, text;
};
// The conditions that hold for the row, then for each attribute the one that it is from; none where no
// condition holds.
std::vector<ReasonLine> reasonLines(const RowReasons& reasons);
std::string noReasonText();

}  // namespace vmgv
