// The parts of a pivot table: its cells for programs that know no pivot tables, its layout, and where its
// rows are.
#pragma once

#include <string>

#include "adapters/workbook/pivot.h"

namespace vmgv::workbook {

std::string pivotSheetXml(const Pivot& pivot);
std::string pivotTableXml(const Pivot& pivot);
// Programs read the rows when they open the workbook; none of them are in here.
std::string pivotCacheXml(const Pivot& pivot, const std::string& sheetName);

}  // namespace vmgv::workbook
