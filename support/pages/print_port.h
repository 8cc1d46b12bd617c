// What printing asks of a platform.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "support/pages/page_fonts.h"
#include "support/pages/page_setup.h"

namespace vmgv {

// What the user chose in the print dialog.
struct PrintOrder {
  std::int32_t firstPage = 1, lastPage = std::numeric_limits<std::int32_t>::max();
  std::string printer;  // empty: the default one
  std::string file;     // a PDF to write instead; empty: none
};

// A document on its way. One that is dropped without finish() leaves no paper where that can be helped, and
// no file. Every function throws Error 482 where the printer, or Error 75 where the file, fails.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  virtual PageSurface& startPage() = 0;  // valid until endPage()
  virtual void endPage() = 0;
  virtual void finish() = 0;
};

class PrintPort {
 public:
  virtual ~PrintPort() = default;

  virtual PageFonts& fonts() = 0;
  // The system's dialog for paper, orientation and margins. False, and nothing changed, on Cancel.
  virtual bool askPageSetup(PageSetup& setup) = 0;
  // The system's print dialog, which may change the paper. Nothing on Cancel.
  virtual std::optional<PrintOrder> askPrint(PageSetup& setup, std::int32_t pages) = 0;
  // Error 482 with a sentence that says why where there is no printer.
  virtual std::unique_ptr<PrintJob> start(const PageSetup& setup, const PrintOrder& order,
                                          const std::string& title) = 0;
};

}  // namespace vmgv
