// Conventions of the grid contract: what the numbers in a grid's members mean.
//
// A grid is any late-bound object with these members (types as automation has them):
//   Columns, SortKeys, Groups, FmtConditions     collections: Count, items from 1
//   PreviewColumn                                a column's index or field name, or Null
//   PreviewRowLines, UseEvenOddColor, ColumnAutoResize, GroupByBoxVisible, GroupByBoxInfoText,
//   GroupFooterStyle, MultiSelect                display settings
//   Redraw, Refresh, RefreshGroups, ExpandAll    painting and grouping
//   RowCount, GetRowData, SelectedItems          rows by display position, from 1
//   PrinterProperties, PrintPreview, PrintGrid   pages
#pragma once

#include <cstdint>

#include "support/automation/value.h"

namespace vmgv {

// SortOrder of a sort key or a group.
inline constexpr std::int16_t kSortAscending = 1;
inline constexpr std::int16_t kSortDescending = -1;

// RowType of a row object. Whatever is not a record is a row of the grid's own making.
inline constexpr std::int32_t kRecordRow = 0;

// GroupFooterStyle: any other value than a totals footer means none.
inline constexpr std::int16_t kNoGroupFooter = 0;
inline constexpr std::int16_t kTotalsGroupFooter = 2;

// Whether a setting is on: Null counts as off. Error 13 for a text that is no Boolean.
bool isTrue(const Value& setting);

// Whether a PreviewColumn value means that there is no preview row: Null, Empty, "" and 0 alike.
bool isNoPreviewColumn(const Value& previewColumn);

}  // namespace vmgv
