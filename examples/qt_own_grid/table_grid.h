// A QTableView as the editor's grid: the adapter that a program writes for a grid of its own.
//
// The editor reaches a grid by the names of its members, so an adapter is a late-bound object that answers to
// them: a class with a table of names and functions for each kind of object. What a grid cannot do is left
// out: a dialog goes on without a member that it misses, or does not open. Who refuses with words of his own
// throws vmgv::Error. These are asked for
//
//   by all dialogs       Columns: Count, Item, and of a column Index and Caption; Redraw
//   to sort              SortKeys: Count, Item, Clear, Add
//   to group             Groups, as SortKeys; Columns.ItemByPosition; RefreshGroups, Refresh,
//                        GroupByBoxVisible, GroupByBoxInfoText, GroupFooterStyle
//   to choose columns    Columns.ItemByPosition, and of a column Visible and ColPosition
//   for the display      of a column DataField; UseEvenOddColor, ColumnAutoResize, PreviewColumn,
//                        PreviewRowLines
//   for the conditions   FmtConditions: Count, Item, Add, Remove; BackColor, ForeColor, Font
//   to export            of a column Key, Visible, ColPosition, HasValueList, ValueList; RowCount and
//                        GetRowData, Groups, ExpandAll, PreviewColumn, MultiSelect, SelectedItems
//   to preview           PrinterProperties, PrintPreview, PrintGrid (not here: the preview says so)
//
// Columns, rows and the items of collections count from 1.
#pragma once

#include <QTableView>
#include <vmGridViews/Objects>

#include "arranged_table.h"

// `rows` is the model that the view shows. The grid may outlive both: its members then fail with error 91.
vmgv::ObjectRef makeTableGrid(QTableView& view, ArrangedTable& rows);
