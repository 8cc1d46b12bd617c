#include "tests/dialogs/fake_grid.h"

#include <algorithm>

#include "tests/dialogs/fake_object.h"

namespace vmgv {
namespace {

// An item's place in a collection, from 0; Error 9 outside it.
std::size_t place(const Args& args, std::size_t count) {
  const std::int32_t index = toLong(args[0]);
  if (index < 1 || static_cast<std::size_t>(index) > count) throw Error(ErrorNumber::SubscriptOutOfRange);
  return static_cast<std::size_t>(index) - 1;
}

Value countOf(const auto& list) { return static_cast<std::int32_t>(list.size()); }

[[noreturn]] void lacks(const std::string& type, const std::string& name) {
  throw Error(ErrorNumber::MemberNotFound, type + " lacks " + name);
}

}  // namespace

// One element of a collection, by its place.
class FakeGrid::Item final : public NamedObject {
 public:
  Item(FakeGrid& grid, const char* type, std::size_t at, Value value = {})
      : NamedObject(type), grid_(grid), at_(at), value_(std::move(value)) {}

 private:
  Value answer(const std::string& name, Access access, Args args) override {
    const std::string type = typeName();
    if (type == "SelectedItem" && name == "RowPosition") return grid_.selected[at_];
    if (type == "ListItem" && name == "Text") return value_;
    if (type == "ValueList" && name == "ItemByValue") {
      for (const auto& [value, text] : grid_.columns[at_].valueList) {
        if (value == args[0]) return makeObject<Item>(grid_, "ListItem", at_, text);
      }
      throw Error(ErrorNumber::SubscriptOutOfRange);
    }
    if (type == "SortKey" || type == "Group") {
      const auto& [column, order] = (type == "Group" ? grid_.groups : grid_.sortKeys)[at_];
      return name == "ColIndex" ? column : order;
    }
    if (type == "Row") {
      const FakeRow& row = grid_.rows[at_];
      return name == "RowType" ? Value(row.type) : row.values[place(args, row.values.size())];
    }
    if (type == "FmtCondition" || type == "FormatStyle") return ruleMember(name, access, args);
    if (type != "Column") lacks(type, name);
    FakeColumn& column = grid_.columns[at_];
    const auto number = static_cast<std::int32_t>(at_ + 1);
    if (access == Access::Put && (name == "Visible" || name == "ColPosition")) {
      grid_.log.push_back("Columns(" + std::to_string(number) + ")." + name + "=" + toText(args[0]));
      if (name == "Visible") column.visible = toBoolean(args[0]);
      if (name == "ColPosition") column.position = toLong(args[0]);
      return {};
    }
    if (name == "Index") return number;
    if (name == "DataField") return column.dataField.empty() ? column.caption : column.dataField;
    if (name == "Key") return "k" + std::to_string(number);
    if (name == "Caption") return column.caption;
    if (name == "Visible") return column.visible;
    if (name == "ColPosition") return column.position ? column.position : number;
    if (name == "HasValueList") return !column.valueList.empty();
    if (name == "ValueList") return makeObject<Item>(grid_, "ValueList", at_);
    lacks(type, name);
  }

  Value ruleMember(const std::string& name, Access access, Args args) {
    FakeRule& rule = grid_.rules.at(at_);
    const bool style = typeName() == "FormatStyle";
    if (name == "Name") return rule.name;
    if (name == "FormatStyle") return makeObject<Item>(grid_, "FormatStyle", at_);
    auto& members = style ? rule.style : rule.members;
    if (access == Access::Put) {
      grid_.log.push_back(rule.name + "." + name + "=" + vmgv::typeName(args[0]) + ":" + toText(args[0]));
      return members[name] = args[0], Value();
    }
    const auto found = members.find(name);
    return found == members.end() ? grid_.ownStyle.at(name) : found->second;
  }

  FakeGrid& grid_;
  std::size_t at_;
  Value value_;
};

// The grid itself and its collections.
class FakeGrid::Part final : public NamedObject {
 public:
  Part(FakeGrid& grid, const std::string& type) : NamedObject(type), grid_(grid) {}

 private:
  Value answer(const std::string& name, Access access, Args args) override {
    const std::string type = typeName();
    const bool item = name.empty() || name == "Item";
    if (type == "Columns" && name == "ItemByPosition") return itemByPosition(toLong(args[0]));
    if (type == "Columns") return item ? itemOf("Column", args, grid_.columns) : countOf(grid_.columns);
    if (type == "SelectedItems")
      return item ? itemOf("SelectedItem", args, grid_.selected) : countOf(grid_.selected);
    if (type == "FmtConditions") return rules(item ? "Item" : name, args);
    if (type == "Font") return font(name);
    if (type == "Groups") return keys("Group", grid_.groups, name, args);
    if (type == "SortKeys") return keys("SortKey", grid_.sortKeys, name, args);
    if (name == "Columns" && args.has(0)) return itemOf("Column", args, grid_.columns);
    if (name == "Columns" || name == "SelectedItems" || name == "Groups" || name == "SortKeys" ||
        name == "FmtConditions" || name == "Font") {
      return makeObject<Part>(grid_, name);
    }
    if (name == "PreviewColumn" && access == Access::Get) return grid_.previewColumn;
    if (name == "PreviewColumn") grid_.previewColumn = args[0];
    const auto setting = grid_.settings.find(name);
    if (setting != grid_.settings.end() && access == Access::Get) return setting->second;
    if (setting != grid_.settings.end()) setting->second = args[0];
    if (access == Access::Put && name != "Redraw") {
      return note(name + "=" + (args[0].isNull() ? "Null" : vmgv::typeName(args[0]) + ":" + toText(args[0])));
    }
    if (name == "MultiSelect") return grid_.multiSelect;
    if (name == "RowCount") return countOf(grid_.rows);
    if (name == "GetRowData") return itemOf("Row", args, grid_.rows);
    if (name == "ExpandAll" || name == "Refresh") return note(name);
    if (name == "RefreshGroups") return note(name + " " + toText(args[0]));
    if (name != "Redraw" || access != Access::Put) lacks(type, name);
    grid_.redraw = toBoolean(args[0]);
    return note("Redraw=" + toText(args[0]));
  }

  Value keys(const char* itemType, std::vector<std::pair<Value, Value>>& all, const std::string& name,
             Args args) {
    if (name == "Count") return countOf(all);
    if (name == "Clear") {
      all.clear();
      return note(typeName() + ".Clear");
    }
    if (name != "Add") return itemOf(itemType, args, all);
    note(typeName() + ".Add " + toText(args[0]) + "," + toText(args[1]));
    const bool known =
        std::any_of(all.begin(), all.end(), [&](const auto& key) { return key.first == args[0]; });
    if (known || toLong(args[0]) < 1) throw Error(ErrorNumber::InvalidCall);
    all.emplace_back(args[0], args[1]);
    return {};
  }

  Value rules(const std::string& name, Args args) {
    if (name == "Count") return countOf(grid_.rules);
    const bool byName = args[0].isText();
    if (name == "Item" && !byName) return itemOf("FmtCondition", args, grid_.rules);
    const std::string text = byName || name == "Add" ? toText(args[name == "Add" ? 4 : 0]) : std::string();
    const auto found = std::find_if(grid_.rules.begin(), grid_.rules.end(),
                                    [&](const FakeRule& rule) { return rule.name == text; });
    if (name == "Add") {
      std::string what = name;
      for (std::size_t i = 0; i < args.size(); ++i) {
        what += args[i].isMissing() ? " -" : " " + vmgv::typeName(args[i]) + ":" + toText(args[i]);
      }
      if (found != grid_.rules.end()) throw Error(ErrorNumber::InvalidCall, text + " is there already");
      grid_.rules.push_back({text});
      return note(what);
    }
    if (found == grid_.rules.end()) throw Error(ErrorNumber::SubscriptOutOfRange, "no rule " + text);
    if (name == "Item") {
      return makeObject<Item>(grid_, "FmtCondition", static_cast<std::size_t>(found - grid_.rules.begin()));
    }
    if (name != "Remove" || !byName) lacks("FmtConditions", name);
    grid_.rules.erase(found);
    return note("Remove " + text);
  }

  Value font(const std::string& name) {
    const std::string member =
        lowerCase(name) == "strikethrough" ? "fontstrikethru" : "font" + lowerCase(name);
    for (const auto& [own, value] : grid_.ownStyle) {
      if (lowerCase(own) == member) return value;
    }
    lacks("Font", name);
  }

  Value itemByPosition(std::int32_t position) {
    for (std::size_t i = 0; i < grid_.columns.size(); ++i) {
      const int at = grid_.columns[i].position;
      if ((at ? at : static_cast<int>(i) + 1) == position) return makeObject<Item>(grid_, "Column", i);
    }
    throw Error(ErrorNumber::SubscriptOutOfRange);
  }

  Value itemOf(const char* type, Args args, const auto& list) {
    return makeObject<Item>(grid_, type, place(args, list.size()));
  }
  Value note(const std::string& what) {
    grid_.log.push_back(what);
    return {};
  }

  FakeGrid& grid_;
};

ObjectRef FakeGrid::object() { return makeObject<Part>(*this, "GridEX"); }

FakeGrid gridOfColumns(int count) {
  FakeGrid grid;
  for (int i = 1; i <= count; ++i) grid.columns.push_back({"C" + std::to_string(i)});
  return grid;
}

}  // namespace vmgv
