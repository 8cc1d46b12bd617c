#include "adapters/grid/user_acts.h"

#include <algorithm>

namespace vmgv {
namespace {

auto keyOf(std::vector<SortKey>& keys, std::int32_t column) {
  return std::find_if(keys.begin(), keys.end(), [&](const SortKey& key) { return key.colIndex == column; });
}

void reverse(SortKey& key) { key.sortOrder = static_cast<std::int16_t>(-key.sortOrder); }

}  // namespace

void sortBy(GridEngine& engine, std::int32_t column, bool further) {
  if (isGrouped(engine, column)) return reverseGroup(engine, column);
  std::vector<SortKey> keys = engine.sortKeys();
  const auto known = keyOf(keys, column);
  if (known != keys.end() && (further || keys.size() == 1)) {
    reverse(*known);
  } else {
    if (!further) keys.clear();
    keys.push_back({column, kSortAscending});
  }
  engine.setSortKeys(keys);
}

void groupBy(GridEngine& engine, std::int32_t column, std::size_t level) {
  std::vector<SortKey> groups = engine.groups();
  SortKey group{column, kSortAscending};
  if (const auto known = keyOf(groups, column); known != groups.end()) {
    group = *known;
    if (static_cast<std::size_t>(known - groups.begin()) < level) --level;
    groups.erase(known);
  }
  groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(std::min(level, groups.size())), group);
  engine.setGroups(groups);
}

void ungroup(GridEngine& engine, std::int32_t column) {
  std::vector<SortKey> groups = engine.groups();
  std::erase_if(groups, [&](const SortKey& group) { return group.colIndex == column; });
  engine.setGroups(groups);
}

void reverseGroup(GridEngine& engine, std::int32_t column) {
  std::vector<SortKey> groups = engine.groups();
  if (const auto known = keyOf(groups, column); known != groups.end()) reverse(*known);
  engine.setGroups(groups);
}

bool isGrouped(const GridEngine& engine, std::int32_t column) {
  return std::any_of(engine.groups().begin(), engine.groups().end(),
                     [&](const SortKey& group) { return group.colIndex == column; });
}

void moveColumn(GridEngine& engine, std::int32_t column, int step) {
  const std::vector<std::int32_t> shown = engine.visibleColumns();
  const auto place = std::find(shown.begin(), shown.end(), column);
  if (place == shown.end()) return;
  const auto to = place - shown.begin() + step;
  if (to < 0 || to >= static_cast<std::ptrdiff_t>(shown.size())) return;
  engine.setColPosition(column, engine.column(shown[static_cast<std::size_t>(to)]).colPosition);
}

}  // namespace vmgv
