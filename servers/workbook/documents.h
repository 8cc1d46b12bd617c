// Where finished workbooks go, and who shows them.
#pragma once

#include "adapters/workbook/host.h"

namespace vmgv {

// A workbook becomes "BookN.xlsx" in the user's documents folder and is opened by the user's program for such
// files where there is one. The environment variable VMG_WORKBOOK_FOLDER names another folder, for tests and
// services: nothing is opened then.
class Documents final : public WorkbookHost {
 public:
  std::string targetPath() override;
  void finished(const std::string& path, std::int64_t rows) override;
};

}  // namespace vmgv
