// Columns: which there are, which are shown, and where.
#include <QHeaderView>

#include "table.h"

using vmgv::Args;
using vmgv::Value;

namespace {

class Column final : public TablePart<Column> {
 public:
  Column(TableRef table, int section) : TablePart(std::move(table)), section_(section) {}

  static const vmgv::ClassTable<Column>& table() {
    static const vmgv::ClassTable<Column> table(
        "Column",
        {
            {"Index", 0, [](Column& c, Args) -> Value { return c.section_ + 1; }},
            {"Caption", 0, [](Column& c, Args) -> Value { return c.caption(); }},
            // A field of the data and a key are names that stay when a caption is translated.
            {"DataField", 0, [](Column& c, Args) -> Value { return c.caption(); }},
            {"Key", 0, [](Column& c, Args) -> Value { return c.caption(); }},
            {"Visible", 0, [](Column& c, Args) -> Value { return !c.header().isSectionHidden(c.section_); },
             [](Column& c, Args, const Value& v) {
               c.header().setSectionHidden(c.section_, !vmgv::toBoolean(v));
             }},
            {"ColPosition", 0,
             [](Column& c, Args) -> Value { return c.header().visualIndex(c.section_) + 1; },
             [](Column& c, Args, const Value& v) { c.moveTo(v); }},
            // True where the table shows a text for each value; then ValueList.ItemByValue(value).Text is it.
            {"HasValueList", 0, [](Column&, Args) -> Value { return false; }},
        });
    return table;
  }

 private:
  QHeaderView& header() const { return *table_->view().horizontalHeader(); }
  std::string caption() const {
    return table_->rows().headerData(section_, Qt::Horizontal).toString().toStdString();
  }
  void moveTo(const Value& position) const {
    header().moveSection(header().visualIndex(section_), placeOf(position, header().count()));
  }

  int section_;
};

class Columns final : public TablePart<Columns> {
 public:
  using TablePart::TablePart;

  static const vmgv::ClassTable<Columns>& table() {
    static const vmgv::ClassTable<Columns> table(
        "Columns",
        {
            {"Count", 0, [](Columns& c, Args) -> Value { return c.count(); }},
            {"Item", 1, [](Columns& c, Args args) { return c.item(placeOf(args[0], c.count())); }},
            // By the place on the screen, hidden columns counted.
            {"ItemByPosition", 1,
             [](Columns& c, Args args) {
               return c.item(c.table_->view().horizontalHeader()->logicalIndex(placeOf(args[0], c.count())));
             }},
        },
        "Item");  // the default member: Columns(3) is Columns.Item(3)
    return table;
  }

 private:
  int count() const { return table_->rows().columnCount(); }
  Value item(int section) const { return vmgv::makeObject<Column>(table_, section); }
};

}  // namespace

vmgv::ObjectRef makeColumns(const TableRef& table) { return vmgv::makeObject<Columns>(table); }
