// SortKeys and Groups: the same members over two lists. A dialog clears a list and adds to it anew.
#include "table.h"

using vmgv::Args;
using vmgv::Value;

namespace {

constexpr int kAscending = 1, kDescending = -1;  // SortOrder

class KeyItem final : public vmgv::Exposed<KeyItem> {
 public:
  explicit KeyItem(Key key) : key_(key) {}

  static const vmgv::ClassTable<KeyItem>& table() {
    static const vmgv::ClassTable<KeyItem> table(
        "Key", {
                   {"ColIndex", 0, [](KeyItem& k, Args) -> Value { return k.key_.column + 1; }},
                   {"SortOrder", 0,
                    [](KeyItem& k, Args) -> Value {
                      return k.key_.order == Qt::AscendingOrder ? kAscending : kDescending;
                    }},
               });
    return table;
  }

 private:
  Key key_;
};

class Keys final : public TablePart<Keys> {
 public:
  using List = std::vector<Key> ArrangedTable::*;
  Keys(TableRef table, List list) : TablePart(std::move(table)), list_(list) {}

  static const vmgv::ClassTable<Keys>& table() {
    static const vmgv::ClassTable<Keys> table(
        "Keys",
        {
            {"Count", 0, [](Keys& k, Args) -> Value { return k.count(); }},
            {"Item", 1, [](Keys& k, Args args) { return k.item(args[0]); }},
            {"Clear", 0, [](Keys& k, Args) { return k.clear(); }},
            {"Add", 2, [](Keys& k, Args args) { return k.add(args); }},
        },
        "Item");
    return table;
  }

 private:
  std::vector<Key>& keys() const { return table_->rows().*list_; }
  int count() const { return static_cast<int>(keys().size()); }
  Value item(const Value& number) const {
    return vmgv::makeObject<KeyItem>(keys().at(static_cast<std::size_t>(placeOf(number, count()))));
  }
  Value clear() {
    keys().clear();
    table_->arrange();
    return {};
  }
  Value add(Args columnAndOrder) {
    const int column = placeOf(columnAndOrder[0], table_->rows().columnCount());
    const bool descending = vmgv::equals(columnAndOrder[1], kDescending);
    keys().push_back({column, descending ? Qt::DescendingOrder : Qt::AscendingOrder});
    table_->arrange();
    return vmgv::makeObject<KeyItem>(keys().back());
  }

  List list_;
};

}  // namespace

vmgv::ObjectRef makeSortKeys(const TableRef& table) {
  return vmgv::makeObject<Keys>(table, &ArrangedTable::keys);
}

vmgv::ObjectRef makeGroups(const TableRef& table) {
  return vmgv::makeObject<Keys>(table, &ArrangedTable::groups);
}
