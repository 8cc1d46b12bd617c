// A list of objects behind the late-bound contract: Count, Item by number or name, enumeration.
#pragma once

#include <string>
#include <vector>

#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv::workbook {

// The item with the number or, for a text, the name; Error 9 where there is none.
inline ObjectRef itemOf(const std::vector<ObjectRef>& items, const char* collection, const Value& key) {
  static const Member name("Name");
  const Value wanted = plain(key);
  if (wanted.isText()) {
    for (const ObjectRef& item : items) {
      if (lowerCase(toText(item.get(name))) == lowerCase(wanted.text())) return item;
    }
    throw Error(ErrorNumber::SubscriptOutOfRange,
                std::string(collection) + " has no item named \"" + wanted.text() + "\"");
  }
  const std::int32_t number = toLong(wanted);
  if (number < 1 || static_cast<std::size_t>(number) > items.size()) {
    throw Error(ErrorNumber::SubscriptOutOfRange, std::string(collection) + " has no item " +
                                                      std::to_string(number) + "; it has " +
                                                      std::to_string(items.size()));
  }
  return items[static_cast<std::size_t>(number) - 1];
}

class ListEnumeration final : public Enumeration {
 public:
  explicit ListEnumeration(std::vector<ObjectRef> items) : items_(std::move(items)) {}
  bool next(Value& item) override {
    if (next_ == items_.size()) return false;
    item = items_[next_++];
    return true;
  }

 private:
  std::vector<ObjectRef> items_;
  std::size_t next_ = 0;
};

// A collection that has no members of its own; `Kind::kName` names its class.
template <class Kind>
class Collection final : public Exposed<Collection<Kind>> {
 public:
  explicit Collection(std::vector<ObjectRef> items) : items_(std::move(items)) {}

  static const ClassTable<Collection>& table() {
    static const ClassTable<Collection> table(
        Kind::kName,
        {
            {"Count", 0,
             [](Collection& c, Args) -> Value { return static_cast<std::int32_t>(c.items_.size()); }},
            {"Item", 1,
             [](Collection& c, Args args) -> Value { return itemOf(c.items_, Kind::kName, args[0]); }},
        },
        "Item");
    return table;
  }
  std::unique_ptr<Enumeration> enumerate() override { return std::make_unique<ListEnumeration>(items_); }

 private:
  std::vector<ObjectRef> items_;
};

}  // namespace vmgv::workbook
