// Any bytes as a workbook's container: they are taken or refused.
#include "adapters/workbook/old_workbook.h"
#include "adapters/workbook/template_book.h"
#include "fuzz/memory_file.h"
#include "support/automation/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const vmgv::fuzz::MemoryFile file({reinterpret_cast<const char*>(data), size});
  try {
    if (vmgv::workbook::isOldWorkbook(file.path())) {  // without the program that would convert it
      vmgv::workbook::requireGoodOldWorkbook(file.path());
      return 0;
    }
    const vmgv::workbook::TemplateBook book(file.path());
  } catch (const vmgv::Error&) {
  }
  return 0;
}
