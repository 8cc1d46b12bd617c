// The parts of a new workbook, with and without a pivot table.
#pragma once

#include <optional>
#include <string>

#include "adapters/workbook/package.h"
#include "adapters/workbook/pivot.h"
#include "adapters/workbook/sheet_stream.h"
#include "adapters/workbook/styles.h"

namespace vmgv::workbook {

// Writes all parts. The pivot table stands on a second sheet.
void writeNewParts(Package& package, const std::string& sheetName, const StyleTable& styles,
                   const SheetStream& sheet, const std::optional<Pivot>& pivot);

}  // namespace vmgv::workbook
