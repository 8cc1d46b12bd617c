#include "adapters/grid/row_objects.h"

namespace vmgv {
namespace {

class SelectedItemObject final : public Exposed<SelectedItemObject> {
 public:
  explicit SelectedItemObject(std::int32_t position) : position_(position) {}
  static const ClassTable<SelectedItemObject>& table() {
    static const ClassTable<SelectedItemObject> table(
        "SelectedItem",
        {
            {"RowPosition", 0, [](SelectedItemObject& i, Args) -> Value { return i.position_; }},
        });
    return table;
  }

 private:
  std::int32_t position_;
};

class SelectedItemsObject final : public GridPart<SelectedItemsObject> {
 public:
  using GridPart::GridPart;
  static const ClassTable<SelectedItemsObject>& table() {
    using S = SelectedItemsObject;
    static const ClassTable<S> table(
        "SelectedItems",
        {
            {"Count", 0, [](S& s, Args) { return countOf(s.engine_->selection().size()); }},
            {"Item", 1, [](S& s, Args args) { return s.item(args[0]); }},
        },
        "Item");
    return table;
  }
  std::unique_ptr<Enumeration> enumerate() override { return std::make_unique<ItemEnumeration>(this); }

 private:
  Value item(const Value& number) const {
    const auto& positions = engine_->selection();
    return makeObject<SelectedItemObject>(positions[placeOf(number, positions.size(), "SelectedItems")]);
  }
};

}  // namespace

const ClassTable<RowObject>& RowObject::table() {
  static const ClassTable<RowObject> table(
      "RowData",
      {
          {"RowType", 0,
           [](RowObject& r, Args) -> Value { return static_cast<std::int16_t>(r.row_.rowType); }},
          {"Value", 1, [](RowObject& r, Args args) { return r.engine_->rowValue(r.row_, toLong(args[0])); }},
          {"GroupLevel", 0, [](RowObject& r, Args) -> Value { return r.row_.level; }},
          {"GroupText", 0, [](RowObject& r, Args) -> Value { return r.engine_->groupText(r.row_); }},
          {"RecordCount", 0, [](RowObject& r, Args) -> Value { return r.engine_->recordCount(r.row_); }},
          {"Expanded", 0, [](RowObject& r, Args) -> Value { return r.engine_->isExpanded(r.row_); }},
      },
      "Value");
  return table;
}

ObjectRef makeSelectedItemsObject(EngineRef engine) {
  return makeObject<SelectedItemsObject>(std::move(engine));
}

}  // namespace vmgv
