// Printing on a desktop without a screen: its one printer writes PDF files.
#pragma once

#include "frontends/headless/headless_desktop.h"
#include "support/pages/print_port.h"

namespace vmgv {

class HeadlessPrinter final : public PrintPort {
 public:
  // What comes out of the printer replaces `document`; where that is empty there is no printer.
  HeadlessPrinter(HeadlessDesktop& desktop, std::string document);

  PageFonts& fonts() override { return *fonts_; }
  // The dialogs propose the paper as it is and all pages.
  bool askPageSetup(PageSetup& setup) override;
  std::optional<PrintOrder> askPrint(PageSetup& setup, std::int32_t pages) override;
  std::unique_ptr<PrintJob> start(const PageSetup& setup, const PrintOrder& order,
                                  const std::string& title) override;

 private:
  HeadlessDesktop& desktop_;
  std::string document_;
  std::unique_ptr<PageFonts> fonts_;
};

}  // namespace vmgv
