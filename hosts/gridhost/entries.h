// The buttons beside the grid: one for each of the control's dialogs.
#pragma once

#include "control/application.h"
#include "support/strings/text.h"

namespace vmgv {

struct Entry {
  Text caption, line;
  Facet facet;
  const char* method;
};

inline constexpr Entry kEntries[] = {
    {Text::SortButton, Text::SortLine, Facet::Sort, "ShowSort"},
    {Text::GroupButton, Text::GroupLine, Facet::Groups, "ShowGroups"},
    {Text::ColumnsButton, Text::ColumnsLine, Facet::Items, "ShowItems"},
    {Text::GeneralButton, Text::GeneralLine, Facet::General, "ShowGeneral"},
    {Text::ConditionsButton, Text::ConditionsLine, Facet::Format, "ShowFormat"},
    {Text::PrintWithDialog, Text::PrintWithDialog, Facet::Preview, "ShowPreview"},
    {Text::ExcelButton, Text::ExcelLine, Facet::Excel, "ShowExcel"},
    {Text::Customize, Text::Customize, Facet::Summary, "ShowSummary"},
};

}  // namespace vmgv
