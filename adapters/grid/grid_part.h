// What the objects reached from the grid have in common.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "adapters/grid/engine.h"
#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv {

using EngineRef = std::shared_ptr<GridEngine>;

template <class T>
class GridPart : public Exposed<T> {
 public:
  explicit GridPart(EngineRef engine) : engine_(std::move(engine)) {}

 protected:
  EngineRef engine_;
};

// Walks the items 1 to Count of a collection as they are when their turn comes.
class ItemEnumeration final : public Enumeration {
 public:
  explicit ItemEnumeration(ObjectRef collection) : collection_(std::move(collection)) {}
  bool next(Value& item) override {
    if (at_ >= toLong(collection_.get("Count"))) return false;
    item = collection_.item(++at_);
    return true;
  }

 private:
  ObjectRef collection_;
  std::int32_t at_ = 0;
};

// The 0-based place of item `number` among `count`; Error 9 naming both where it is not there.
inline std::size_t placeOf(const Value& number, std::size_t count, const char* collection) {
  const std::int32_t wanted = toLong(number);
  if (wanted < 1 || static_cast<std::size_t>(wanted) > count) {
    throw Error(ErrorNumber::SubscriptOutOfRange, std::string("Subscript out of range: ") + collection +
                                                      " has no item " + std::to_string(wanted) + "; it has " +
                                                      std::to_string(count));
  }
  return static_cast<std::size_t>(wanted) - 1;
}

// Points; Error 5 where no font can be so small or large.
inline double checkedFontSize(const Value& size) {
  const double points = toDouble(size);
  if (points > 0 && points <= 1638) return points;
  throw Error(ErrorNumber::InvalidCall, "A font cannot have " + toText(size) + " points");
}

inline Value countOf(std::size_t count) { return static_cast<std::int32_t>(count); }

}  // namespace vmgv
