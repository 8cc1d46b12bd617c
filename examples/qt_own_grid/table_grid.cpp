#include "table_grid.h"

#include <QHeaderView>

#include "table.h"

using vmgv::Args;
using vmgv::Value;

namespace {

class TableGrid final : public TablePart<TableGrid> {
 public:
  using TablePart::TablePart;

  static const vmgv::ClassTable<TableGrid>& table() {
    using G = TableGrid;
    static const vmgv::ClassTable<G> table(
        "TableGrid",
        {
            {"Columns", 0, [](G& g, Args) -> Value { return makeColumns(g.table_); }},
            {"SortKeys", 0, [](G& g, Args) -> Value { return makeSortKeys(g.table_); }},
            {"Groups", 0, [](G& g, Args) -> Value { return makeGroups(g.table_); }},
            {"FmtConditions", 0, [](G& g, Args) -> Value { return makeRules(g.table_); }},

            // Every rewrite stands between Redraw off and on.
            {"Redraw", 0, [](G& g, Args) -> Value { return g.view().updatesEnabled(); },
             [](G& g, Args, const Value& v) { g.table_->setRedraw(vmgv::toBoolean(v)); }},

            // Here the rows of a group stand together, with nothing to collapse and no box to drag columns
            // into: what the dialog writes of these is refused, and it goes on.
            {"GroupByBoxVisible", 0, [](G&, Args) -> Value { return false; }},
            {"GroupByBoxInfoText", 0, [](G&, Args) -> Value { return ""; }},
            {"GroupFooterStyle", 0, [](G&, Args) -> Value { return 0; }},
            {"RefreshGroups", 1, [](G&, Args) -> Value { return {}; }},
            {"ExpandAll", 0, [](G&, Args) -> Value { return {}; }},

            // Null: no column is shown below the rows. There is no such place, so it cannot be written.
            {"PreviewColumn", 0, [](G&, Args) -> Value { return vmgv::Null{}; }},
            {"UseEvenOddColor", 0, [](G& g, Args) -> Value { return g.view().alternatingRowColors(); },
             [](G& g, Args, const Value& v) { g.view().setAlternatingRowColors(vmgv::toBoolean(v)); }},
            {"ColumnAutoResize", 0, [](G& g, Args) -> Value { return g.header().stretchLastSection(); },
             [](G& g, Args, const Value& v) { g.header().setStretchLastSection(vmgv::toBoolean(v)); }},

            // What a condition's style has where nothing is set.
            {"BackColor", 0, [](G& g, Args) { return g.colour(QPalette::Base); }},
            {"ForeColor", 0, [](G& g, Args) { return g.colour(QPalette::Text); }},
            {"Font", 0, [](G& g, Args) { return g.font(); }},

            {"RowCount", 0, [](G& g, Args) { return g.rowCount(); }},
            {"GetRowData", 1, [](G& g, Args args) { return g.row(args[0]); }},
            {"MultiSelect", 0, [](G& g, Args) { return g.multiSelect(); }},
            {"SelectedItems", 0, [](G& g, Args) -> Value { return makeSelectedItems(g.table_); }},
        });
    return table;
  }

 private:
  QTableView& view() const { return table_->view(); }
  QHeaderView& header() const { return *view().horizontalHeader(); }

  Value colour(QPalette::ColorRole role) const { return colourNumber(view().palette().color(role)); }
  Value font() const {
    const QFont& font = view().font();
    return vmgv::makeObject<vmgv::StandardFont>(vmgv::Font{.name = font.family().toStdString(),
                                                           .size = font.pointSizeF(),
                                                           .bold = font.bold(),
                                                           .italic = font.italic(),
                                                           .underline = font.underline(),
                                                           .strikethrough = font.strikeOut()});
  }

  Value rowCount() const {
    ArrangedTable& rows = table_->rows();
    while (rows.canFetchMore({})) rows.fetchMore({});  // a model of a database reads as far as is in sight
    return rows.rowCount();
  }
  Value row(const Value& position) const {
    return makeRow(table_, placeOf(position, table_->rows().rowCount()));
  }
  Value multiSelect() const {
    const auto mode = view().selectionMode();
    return mode != QAbstractItemView::SingleSelection && mode != QAbstractItemView::NoSelection;
  }
};

}  // namespace

vmgv::ObjectRef makeTableGrid(QTableView& view, ArrangedTable& rows) {
  return vmgv::makeObject<TableGrid>(std::make_shared<Table>(view, rows));
}
