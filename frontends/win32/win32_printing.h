// Printing through the platform: its dialogs, its printers, their paper.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "frontends/win32/page_fonts.h"
#include "frontends/win32/win32_desktop.h"
#include "support/pages/print_port.h"

namespace vmgv {

// A file that an order names is written by the printer's driver, in the printer's language; a PDF by the
// printer that Windows has for it.
class Win32Printing final : public PrintPort {
 public:
  // The desktop shows the dialogs, and outlives this.
  explicit Win32Printing(Win32Desktop& desktop) noexcept : desktop_(desktop) {}

  PageFonts& fonts() override { return fonts_; }
  bool askPageSetup(PageSetup& setup) override;
  std::optional<PrintOrder> askPrint(PageSetup& setup, std::int32_t pages) override;
  std::unique_ptr<PrintJob> start(const PageSetup& setup, const PrintOrder& order,
                                  const std::string& title) override;

 private:
  // A printer with its settings, as the platform holds them.
  struct Choice {
    std::wstring printer;
    std::vector<std::byte> mode;  // a DEVMODEW and what the driver adds
  };
  Choice choiceFor(const PageSetup& setup, const std::string& printer) const;

  Win32Desktop& desktop_;
  GdiPageFonts fonts_;
  Choice last_;  // in a dialog
};

}  // namespace vmgv
