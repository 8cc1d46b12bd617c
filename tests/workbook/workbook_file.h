// A finished workbook as the tests see it, read by other code than wrote it.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace vmgv::test {

struct FileCell {
  std::string type;  // of the c element: "", "b", "inlineStr"
  std::string text;  // of its value, escapes as they stand
  std::string format;
  bool wraps = false;
  bool keepsBlanks = false;
};

struct WorkbookFile {
  explicit WorkbookFile(const std::string& path);  // throws std::runtime_error for a faulty package

  std::string sheetName;
  std::vector<std::string> order;  // cell names as they stand in the file
  std::map<std::string, FileCell> cells;
  std::vector<std::string> merges;
  std::map<int, double> widths;   // by column
  std::map<int, double> heights;  // by row, where one is set
};

}  // namespace vmgv::test
