// What all editors of a process share: the desktop, the dialogs, the printers, and the workbook that stands
// in for a spreadsheet program.
#pragma once

#include <memory>

#include "adapters/workbook/host.h"
#include "control/application.h"
#include "frontends/qt/qt_desktop.h"
#include "frontends/qt/qt_printing.h"

namespace vmgv {

// A workbook becomes "BookN.xlsx" in the user's documents and is opened by the user's program for such files.
// The environment variable VMG_WORKBOOK_FOLDER names another folder: nothing is opened then.
struct SharedDesktop final : private WorkbookHost {
  // Made by the first who asks, after the QApplication; gone with the last who holds it.
  static std::shared_ptr<SharedDesktop> get();

  QtDesktop desktop;
  Application application{desktop, desktop};
  QtPrinting printing{desktop};

 private:
  SharedDesktop();
  std::string targetPath() override;
  void finished(const std::string& path, std::int64_t rows) override;
};

}  // namespace vmgv
