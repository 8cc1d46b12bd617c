// Printing by the desktop's printers, or into a PDF where there are none.
#pragma once

#include "frontends/qt/qt_desktop.h"
#include "support/pages/print_port.h"

class QPrinter;

namespace vmgv {

class QtPrinting final : public PrintPort {
 public:
  explicit QtPrinting(QtDesktop& desktop);
  ~QtPrinting() override;

  PageFonts& fonts() override { return *fonts_; }
  bool askPageSetup(PageSetup& setup) override;
  std::optional<PrintOrder> askPrint(PageSetup& setup, std::int32_t pages) override;
  std::unique_ptr<PrintJob> start(const PageSetup& setup, const PrintOrder& order,
                                  const std::string& title) override;

 private:
  QtDesktop& desktop_;
  std::unique_ptr<PageFonts> fonts_;
  std::unique_ptr<QPrinter> printer_;  // keeps what the user chose: copies, colour, sides
};

}  // namespace vmgv
