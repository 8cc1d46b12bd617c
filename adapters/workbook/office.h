// The office program that converts workbooks; office_posix.cpp and office_windows.cpp answer.
#pragma once

#include <string>

namespace vmgv::workbook::port {

enum class Conversion { Done, NoProgram, TooLong, Failed };

// Converts `folder`/old.xls to `folder`/old.xlsx. The program keeps its own files in the folder too; where it
// takes too long it is ended.
Conversion convertOldWorkbook(const std::string& folder);

}  // namespace vmgv::workbook::port
