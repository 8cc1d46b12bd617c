// Workbooks of the format before 2007 (.xls, .xlt): LibreOffice makes one of today's of them, where it is
// installed.
#pragma once

#include <string>

namespace vmgv::workbook {

// By what the file holds; errors as InputFile throws them. One of today's that a password protects is none.
bool isOldWorkbook(const std::string& path);
// Error 1004 as of refuseWorkbook() for one that is damaged or protected, as far as that can be seen at once.
void requireGoodOldWorkbook(const std::string& path);

// The same workbook in the current format, for as long as this object lives.
class ConvertedWorkbook {
 public:
  // Error 1004 as of refuseWorkbook() for a workbook that is damaged, protected or cannot be converted here;
  // 57 and 75 where there is no room for it.
  explicit ConvertedWorkbook(const std::string& path);

  const std::string& path() const noexcept { return path_; }

 private:
  class Folder {  // for this one alone; it goes with its files
   public:
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();
    const std::string& path() const noexcept { return path_; }  // "" where none could be made

   private:
    std::string path_;
  };

  Folder folder_;
  std::string path_;
};

}  // namespace vmgv::workbook
