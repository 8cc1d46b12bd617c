#include "frontends/headless/headless_printer.h"

#include "adapters/pdf/pdf_fonts.h"
#include "adapters/pdf/pdf_job.h"
#include "support/automation/error.h"

namespace vmgv {

HeadlessPrinter::HeadlessPrinter(HeadlessDesktop& desktop, std::string document)
    : desktop_(desktop), document_(std::move(document)), fonts_(makePdfFonts()) {}

bool HeadlessPrinter::askPageSetup(PageSetup&) { return desktop_.confirm(Box::Kind::PageSetup); }

std::optional<PrintOrder> HeadlessPrinter::askPrint(PageSetup&, std::int32_t) {
  return desktop_.confirm(Box::Kind::Print) ? std::optional(PrintOrder()) : std::nullopt;
}

std::unique_ptr<PrintJob> HeadlessPrinter::start(const PageSetup& setup, const PrintOrder& order,
                                                 const std::string& title) {
  const std::string& file = order.file.empty() ? document_ : order.file;
  if (file.empty()) throw Error(ErrorNumber::Printer, "There is no printer on this desktop");
  return startPdf(file, setup, title);
}

}  // namespace vmgv
