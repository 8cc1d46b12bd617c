#include "tests/dialogs/fake_grid.h"

#include "grid/contract.h"
#include "tests/dialogs/fake_object.h"

namespace vmgv {
namespace {

// An item's place in a collection, from 0; Error 9 outside it.
std::size_t place(const Args& args, std::size_t count) {
  const std::int32_t index = toLong(args[0]);
  if (index < 1 || static_cast<std::size_t>(index) > count) throw Error(ErrorNumber::SubscriptOutOfRange);
  return static_cast<std::size_t>(index) - 1;
}

template <class T>
FakeObject::Handler property(T& held) {
  return [&held](Access access, Args args) -> Value {
    if (access == Access::Get) return held;
    if constexpr (std::is_same_v<T, bool>) {
      held = toBoolean(args[0]);
    } else {
      held = args[0];
    }
    return {};
  };
}

void indexed(FakeObject& object, const FakeObject::Handler& handler) {
  object.on("", handler).on("Item", handler);
}

Value countOf(const auto& list) { return static_cast<std::int32_t>(list.size()); }

}  // namespace

ObjectRef FakeGrid::columnObject(std::size_t i) {
  ObjectRef ref;
  FakeColumn& column = columns[i];
  FakeObject* object = make(ref, "Column");
  const auto number = static_cast<std::int32_t>(i + 1);
  object->on("Index", [number](Access, Args) -> Value { return number; })
      .on("Key", [number](Access, Args) -> Value { return "k" + std::to_string(number); })
      .on("Caption", [&column](Access, Args) -> Value { return column.caption; })
      .on("Visible", property(column.visible))
      .on("ColPosition",
          [&column, number](Access, Args) -> Value { return column.position ? column.position : number; })
      .on("HasValueList", [&column](Access, Args) -> Value { return !column.valueList.empty(); })
      .on("ValueList", [&column](Access, Args) -> Value {
        ObjectRef list;
        make(list, "ValueList")->on("ItemByValue", [&column](Access, Args args) -> Value {
          for (const auto& [value, text] : column.valueList) {
            if (!(value == args[0])) continue;
            ObjectRef item;
            make(item, "ValueItem")->on("Text", [text = text](Access, Args) -> Value { return text; });
            return item;
          }
          throw Error(ErrorNumber::SubscriptOutOfRange);
        });
        return list;
      });
  return ref;
}

ObjectRef FakeGrid::columnsObject() {
  ObjectRef ref;
  FakeObject* object = make(ref, "Columns");
  object->on("Count", [this](Access, Args) { return countOf(columns); });
  indexed(*object, [this](Access, Args args) -> Value { return columnObject(place(args, columns.size())); });
  return ref;
}

ObjectRef FakeGrid::sortKeysObject() {
  ObjectRef ref;
  FakeObject* object = make(ref, "SortKeys");
  object->on("Count", [this](Access, Args) { return countOf(sortKeys); })
      .on("Clear",
          [this](Access, Args) -> Value {
            log.emplace_back("SortKeys.Clear");
            sortKeys.clear();
            return {};
          })
      .on("Add", [this](Access, Args args) -> Value {
        log.push_back("SortKeys.Add " + toText(args[0]) + "," + toText(args[1]));
        if (toLong(args[0]) < 1) throw Error(ErrorNumber::InvalidCall);
        for (const auto& key : sortKeys) {
          if (key.first == args[0]) throw Error(ErrorNumber::InvalidCall, "the column is a sort key already");
        }
        sortKeys.emplace_back(args[0], args[1]);
        return {};
      });
  indexed(*object, [this](Access, Args args) -> Value {
    const auto& key = sortKeys[place(args, sortKeys.size())];
    ObjectRef item;
    make(item, "SortKey")
        ->on("ColIndex", [key](Access, Args) { return key.first; })
        .on("SortOrder", [key](Access, Args) { return key.second; });
    return item;
  });
  return ref;
}

ObjectRef FakeGrid::selectedObject() {
  ObjectRef ref;
  FakeObject* object = make(ref, "SelectedItems");
  object->on("Count", [this](Access, Args) { return countOf(selected); });
  indexed(*object, [this](Access, Args args) -> Value {
    const std::int32_t position = selected[place(args, selected.size())];
    ObjectRef item;
    make(item, "SelectedItem")->on("RowPosition", [position](Access, Args) -> Value { return position; });
    return item;
  });
  return ref;
}

ObjectRef FakeGrid::rowObject(std::size_t i) {
  ObjectRef ref;
  FakeRow& row = rows[i];
  make(ref, "Row")
      ->on("RowType", [&row](Access, Args) -> Value { return row.type; })
      .on("Value", [&row](Access, Args args) { return row.values[place(args, row.values.size())]; });
  return ref;
}

ObjectRef FakeGrid::object() {
  ObjectRef ref;
  FakeObject* object = make(ref, "GridEX");
  object
      ->on("Columns",
           [this](Access, Args args) -> Value {
             return args.has(0) ? columnsObject().item(args[0]) : Value(columnsObject());
           })
      .on("SortKeys", [this](Access, Args) -> Value { return sortKeysObject(); })
      .on("SelectedItems", [this](Access, Args) -> Value { return selectedObject(); })
      .on("Groups",
          [this](Access, Args) -> Value {
            ObjectRef list;
            make(list, "Groups")->on("Count", [this](Access, Args) -> Value { return groups; });
            return list;
          })
      .on("PreviewColumn", property(previewColumn))
      .on("MultiSelect", property(multiSelect))
      .on("RowCount", [this](Access, Args) { return countOf(rows); })
      .on("GetRowData", [this](Access, Args args) -> Value { return rowObject(place(args, rows.size())); })
      .on("ExpandAll",
          [this](Access, Args) -> Value {
            log.emplace_back("ExpandAll");
            return {};
          })
      .on("Redraw", [this](Access, Args args) -> Value {
        log.push_back("Redraw=" + toText(args[0]));
        redraw = toBoolean(args[0]);
        return {};
      });
  return ref;
}

FakeGrid gridOfColumns(int count) {
  FakeGrid grid;
  for (int i = 1; i <= count; ++i) grid.columns.push_back({"C" + std::to_string(i)});
  return grid;
}

}  // namespace vmgv
