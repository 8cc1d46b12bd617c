#include "adapters/grid/key_objects.h"

namespace vmgv {
namespace {

struct SortKeyKind {
  static constexpr const char* kItem = "SortKey";
  static constexpr const char* kCollection = "SortKeys";
  static const std::vector<SortKey>& keys(GridEngine& engine) { return engine.sortKeys(); }
  static void add(GridEngine& engine, SortKey key) { engine.addSortKey(key); }
  static void clear(GridEngine& engine) { engine.clearSortKeys(); }
};

struct GroupKind {
  static constexpr const char* kItem = "Group";
  static constexpr const char* kCollection = "Groups";
  static const std::vector<SortKey>& keys(GridEngine& engine) { return engine.groups(); }
  static void add(GridEngine& engine, SortKey key) { engine.addGroup(key); }
  static void clear(GridEngine& engine) { engine.clearGroups(); }
};

// A key as it was when it was asked for.
template <class Kind>
class KeyObject final : public Exposed<KeyObject<Kind>> {
 public:
  explicit KeyObject(SortKey key) : key_(key) {}
  static const ClassTable<KeyObject>& table() {
    static const ClassTable<KeyObject> table(
        Kind::kItem, {
                         {"ColIndex", 0, [](KeyObject& k, Args) -> Value { return k.key_.colIndex; }},
                         {"SortOrder", 0, [](KeyObject& k, Args) -> Value { return k.key_.sortOrder; }},
                     });
    return table;
  }

 private:
  SortKey key_;
};

template <class Kind>
class KeysObject final : public GridPart<KeysObject<Kind>> {
 public:
  using GridPart<KeysObject>::GridPart;
  static const ClassTable<KeysObject>& table() {
    static const ClassTable<KeysObject> table(
        Kind::kCollection,
        {
            {"Count", 0, [](KeysObject& k, Args) { return countOf(k.keys().size()); }},
            {"Item", 1, [](KeysObject& k, Args args) { return k.item(args[0]); }},
            {"Add", 2, [](KeysObject& k, Args args) { return k.add(args); }},
            {"Clear", 0, [](KeysObject& k, Args) -> Value { return Kind::clear(*k.engine_), Value(); }},
        },
        "Item");
    return table;
  }
  std::unique_ptr<Enumeration> enumerate() override { return std::make_unique<ItemEnumeration>(this); }

 private:
  const std::vector<SortKey>& keys() const { return Kind::keys(*this->engine_); }
  Value item(const Value& number) const {
    return makeObject<KeyObject<Kind>>(keys()[placeOf(number, keys().size(), Kind::kCollection)]);
  }
  Value add(Args args) {
    Kind::add(*this->engine_, {toLong(args[0]), args.has(1) ? toInteger(args[1]) : kSortAscending});
    return makeObject<KeyObject<Kind>>(keys().back());
  }
};

}  // namespace

ObjectRef makeSortKeysObject(EngineRef engine) {
  return makeObject<KeysObject<SortKeyKind>>(std::move(engine));
}

ObjectRef makeGroupsObject(EngineRef engine) { return makeObject<KeysObject<GroupKind>>(std::move(engine)); }

}  // namespace vmgv
