// What the in-process workbook asks of the program around it.
#pragma once

#include <cstdint>
#include <string>

namespace vmgv {

class WorkbookHost {
 public:
  virtual ~WorkbookHost() = default;
  // Where the finished workbook goes; a file there is replaced. Asked when a workbook is begun, for its
  // working files go into the same folder, and again when it is complete. Empty where it is not known yet.
  virtual std::string targetPath() = 0;
  // The workbook lies complete at `path`; `rows` worksheet rows were written, the header among them.
  virtual void finished(const std::string& path, std::int64_t rows) = 0;
};

// The first of "Book1.xlsx", "Book2.xlsx", ... that does not exist in the folder.
std::string freshWorkbookPath(const std::string& folder);

}  // namespace vmgv
