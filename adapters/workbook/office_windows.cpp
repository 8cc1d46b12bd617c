// On Windows the spreadsheet program itself opens old workbooks; nothing converts them here.
#include "adapters/workbook/office.h"

namespace vmgv::workbook::port {

Conversion convertOldWorkbook(const std::string&) { return Conversion::NoProgram; }

}  // namespace vmgv::workbook::port
