// A document that becomes a PDF. Its texts can be searched and copied; their fonts are embedded.
#pragma once

#include <memory>
#include <string>

#include "support/pages/print_port.h"

namespace vmgv {

// Written beside the file and put in its place by finish(); without that no file is left, and one that was
// there stays. Error 75 naming the file where it cannot be written.
std::unique_ptr<PrintJob> startPdf(const std::string& file, const PageSetup& setup, const std::string& title);

}  // namespace vmgv
