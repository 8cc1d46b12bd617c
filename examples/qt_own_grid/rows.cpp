// Rows for the export: by position, and those that the user has selected.
#include <algorithm>

#include "table.h"

using vmgv::Args;
using vmgv::Value;

namespace {

constexpr int kRecord =
    0;  // RowType; a grid that counts headers of groups among its rows gives them another one

class Row final : public TablePart<Row> {
 public:
  Row(TableRef table, int row) : TablePart(std::move(table)), row_(row) {}

  static const vmgv::ClassTable<Row>& table() {
    static const vmgv::ClassTable<Row> table(
        "Row", {
                   {"RowType", 0, [](Row&, Args) -> Value { return kRecord; }},
                   {"Value", 1, [](Row& r, Args args) { return r.value(args[0]); }},
               });
    return table;
  }

 private:
  Value value(const Value& column) const {
    const ArrangedTable& rows = table_->rows();
    return valueOf(rows.index(row_, placeOf(column, rows.columnCount())).data(Qt::EditRole));
  }

  int row_;
};

class SelectedItem final : public vmgv::Exposed<SelectedItem> {
 public:
  explicit SelectedItem(int row) : row_(row) {}

  static const vmgv::ClassTable<SelectedItem>& table() {
    static const vmgv::ClassTable<SelectedItem> table(
        "SelectedItem", {{"RowPosition", 0, [](SelectedItem& i, Args) -> Value { return i.row_ + 1; }}});
    return table;
  }

 private:
  int row_;
};

// As the selection is when it is asked for.
class SelectedItems final : public vmgv::Exposed<SelectedItems> {
 public:
  explicit SelectedItems(const QTableView& view) {
    for (const QModelIndex& index : view.selectionModel()->selectedRows()) rows_.push_back(index.row());
    std::sort(rows_.begin(), rows_.end());
  }

  static const vmgv::ClassTable<SelectedItems>& table() {
    static const vmgv::ClassTable<SelectedItems> table(
        "SelectedItems",
        {
            {"Count", 0, [](SelectedItems& s, Args) -> Value { return s.count(); }},
            {"Item", 1, [](SelectedItems& s, Args args) { return s.item(args[0]); }},
        },
        "Item");
    return table;
  }

 private:
  int count() const { return static_cast<int>(rows_.size()); }
  Value item(const Value& number) const {
    return vmgv::makeObject<SelectedItem>(rows_.at(static_cast<std::size_t>(placeOf(number, count()))));
  }

  std::vector<int> rows_;
};

}  // namespace

vmgv::ObjectRef makeRow(const TableRef& table, int row) { return vmgv::makeObject<Row>(table, row); }

vmgv::ObjectRef makeSelectedItems(const TableRef& table) {
  return vmgv::makeObject<SelectedItems>(table->view());
}
