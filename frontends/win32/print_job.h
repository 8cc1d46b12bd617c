// A document on its way to a printer, or to a file that the printer's driver writes.
#pragma once

#include <windows.h>

#include "support/pages/print_port.h"

namespace vmgv {

// `mode` says the paper. Throws as a PrintJob does.
std::unique_ptr<PrintJob> startPrinting(const std::wstring& printer, const DEVMODEW* mode,
                                        const std::string& file, const std::string& title, PageFonts& fonts);

}  // namespace vmgv
