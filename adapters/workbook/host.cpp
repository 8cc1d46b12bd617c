// Fresh file names for workbooks.
#include "adapters/workbook/host.h"

#include <filesystem>

#include "adapters/workbook/paths.h"

namespace vmgv {

std::string freshWorkbookPath(const std::string& folder) {
  for (int number = 1;; ++number) {
    const auto path = workbook::pathOf(folder) / ("Book" + std::to_string(number) + ".xlsx");
    std::error_code ignored;
    // A link that leads nowhere also holds its name. Where the folder cannot be read, writing tells why.
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, ignored)))
      return workbook::textOf(path);
  }
}

}  // namespace vmgv
