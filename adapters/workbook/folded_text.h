// Texts as spreadsheet programs compare names: without regard to case.
#pragma once

#include <string>
#include <string_view>

namespace vmgv::workbook {

// Equal for texts that differ only in the case of Latin, Greek or Cyrillic letters.
std::u32string folded(std::string_view text);

}  // namespace vmgv::workbook
