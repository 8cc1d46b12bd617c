#include "adapters/grid/column_objects.h"

namespace vmgv {
namespace {

class ValueItemObject final : public Exposed<ValueItemObject> {
 public:
  ValueItemObject(Value value, std::string text) : value_(std::move(value)), text_(std::move(text)) {}
  static const ClassTable<ValueItemObject>& table() {
    static const ClassTable<ValueItemObject> table(
        "ValueItem",
        {
            {"Value", 0, [](ValueItemObject& i, Args) { return i.value_; }},
            {"Text", 0, [](ValueItemObject& i, Args) -> Value { return i.text_; }},
        },
        "Text");
    return table;
  }

 private:
  Value value_;
  std::string text_;
};

class ValueListObject final : public Exposed<ValueListObject> {
 public:
  explicit ValueListObject(std::shared_ptr<const ValueList> list) : list_(std::move(list)) {}
  static const ClassTable<ValueListObject>& table() {
    static const ClassTable<ValueListObject> table(
        "ValueList",
        {
            {"Count", 0, [](ValueListObject& l, Args) { return countOf(l.list_->items.size()); }},
            {"ItemByValue", 1, [](ValueListObject& l, Args args) { return l.itemByValue(args[0]); }},
        });
    return table;
  }

 private:
  Value itemByValue(const Value& key) const {
    const Value value = plain(key);
    if (const std::string* text = list_->find(value)) return makeObject<ValueItemObject>(value, *text);
    const bool shown = !value.isNull() && !value.isMissing();
    throw Error(ErrorNumber::SubscriptOutOfRange,
                "Subscript out of range: the value list has no item for " +
                    (shown ? '"' + toText(value) + '"' : vmgv::typeName(value)));
  }

  std::shared_ptr<const ValueList> list_;
};

}  // namespace

const ClassTable<ColumnsObject>& ColumnsObject::table() {
  static const ClassTable<ColumnsObject> table(
      "Columns",
      {
          {"Count", 0, [](ColumnsObject& c, Args) -> Value { return c.engine_->columnCount(); }},
          {"Item", 1, [](ColumnsObject& c, Args args) { return c.item(c.engine_->columnIndex(args[0])); }},
          {"ItemByPosition", 1,
           [](ColumnsObject& c, Args args) { return c.item(c.engine_->columnAtPosition(toLong(args[0]))); }},
      },
      "Item");
  return table;
}

Value ColumnsObject::item(std::int32_t index) {
  const auto place = static_cast<std::size_t>(index) - 1;
  if (place >= columns_.size()) columns_.resize(place + 1);
  if (!columns_[place]) columns_[place] = makeObject<ColumnObject>(engine_, index);
  return columns_[place];
}

const ClassTable<ColumnObject>& ColumnObject::table() {
  static const ClassTable<ColumnObject> table(
      "Column",
      {
          {"Index", 0, [](ColumnObject& c, Args) -> Value { return c.column().index; }},
          {"Key", 0, [](ColumnObject& c, Args) -> Value { return c.column().key; }},
          {"Caption", 0, [](ColumnObject& c, Args) -> Value { return c.column().caption; },
           [](ColumnObject& c, Args, const Value& v) { c.engine_->setCaption(c.index_, toText(v)); }},
          {"DataField", 0, [](ColumnObject& c, Args) -> Value { return c.column().dataField; }},
          {"Visible", 0, [](ColumnObject& c, Args) -> Value { return c.column().visible; },
           [](ColumnObject& c, Args, const Value& v) { c.engine_->setVisible(c.index_, toBoolean(v)); }},
          {"ColPosition", 0, [](ColumnObject& c, Args) -> Value { return c.column().colPosition; },
           [](ColumnObject& c, Args, const Value& v) { c.engine_->setColPosition(c.index_, toLong(v)); }},
          {"Width", 0, [](ColumnObject& c, Args) -> Value { return c.column().width; },
           [](ColumnObject& c, Args, const Value& v) { c.engine_->setWidth(c.index_, toLong(v)); }},
          {"HasValueList", 0, [](ColumnObject& c, Args) -> Value { return c.column().valueList != nullptr; }},
          {"ValueList", 0,
           [](ColumnObject& c, Args) -> Value {
             const auto& list = c.column().valueList;
             return list ? makeObject<ValueListObject>(list) : ObjectRef();
           }},
      });
  return table;
}

}  // namespace vmgv
