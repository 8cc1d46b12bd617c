#include "adapters/grid/display_rows.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "support/automation/error.h"

namespace vmgv {

void DisplayRows::reset(std::size_t records) {
  SortedRows sorted;
  sorted.records.resize(records);
  std::iota(sorted.records.begin(), sorted.records.end(), 0u);
  assign(std::move(sorted), 0);
}

void DisplayRows::assign(SortedRows sorted, std::size_t keptLevels) {
  std::vector<Level> levels;
  std::vector<bool> hidden;  // by record: it was in a collapsed group
  for (std::size_t level = 0; level < sorted.starts.size(); ++level) {
    Level made;
    made.starts = std::move(sorted.starts[level]);
    made.collapsed.resize(made.starts.size() - 1);
    made.tops.resize(made.collapsed.size());
    if (level < std::min(keptLevels, levels_.size())) {
      hidden.assign(records_.size(), false);
      const Level& old = levels_[level];
      for (std::size_t group = 0; group < old.collapsed.size(); ++group) {
        if (!old.collapsed[group]) continue;
        for (std::uint32_t place = old.starts[group]; place < old.starts[group + 1]; ++place) {
          hidden[records_[place]] = true;
        }
      }
      for (std::size_t group = 0; group < made.collapsed.size(); ++group) {
        made.collapsed[group] = hidden[sorted.records[made.starts[group]]];
      }
    }
    levels.push_back(std::move(made));
  }
  for (std::size_t level = 0; level + 1 < levels.size(); ++level) {
    const auto& below = levels[level + 1].starts;
    auto& children = levels[level].children;
    children.reserve(levels[level].starts.size());
    std::uint32_t child = 0;
    for (const std::uint32_t start : levels[level].starts) {
      while (below[child] < start) ++child;
      children.push_back(child);
    }
  }
  records_ = std::move(sorted.records);
  levels_ = std::move(levels);
  ++grouping_;
  layOut();
}

// The records or the next level's groups in a group.
std::uint32_t DisplayRows::contentOf(std::size_t level, std::uint32_t group) const {
  const auto& starts = level + 1 < levels_.size() ? levels_[level].children : levels_[level].starts;
  return starts[group + 1] - starts[group];
}

// From the innermost level outwards `tops` takes each group's height in rows, then inwards its position.
void DisplayRows::layOut() {
  run_ = {};
  count_ = 0;
  ++arrangement_;
  std::uint64_t total = levels_.empty() ? records_.size() : 0;
  for (std::size_t level = levels_.size(); level-- > 0;) {
    Level& own = levels_[level];
    total = 0;
    for (std::uint32_t group = 0; group < own.tops.size(); ++group) {
      std::uint64_t height = 1;
      if (!own.collapsed[group]) {
        height += footers_ ? 1 : 0;
        if (level + 1 == levels_.size()) {
          height += contentOf(level, group);
        } else {
          const auto& below = levels_[level + 1].tops;
          for (std::uint32_t child = own.children[group]; child < own.children[group + 1]; ++child) {
            height += below[child];
          }
        }
      }
      total += height;
      own.tops[group] = static_cast<std::uint32_t>(std::min<std::uint64_t>(height, UINT32_MAX));
    }
  }
  if (total > std::numeric_limits<std::int32_t>::max()) {
    throw Error(ErrorNumber::OutOfMemory, "The rows and their groups are too many for a grid");
  }
  count_ = static_cast<std::int32_t>(total);

  const auto stack = [](std::vector<std::uint32_t>& tops, std::uint32_t first, std::uint32_t last,
                        std::uint32_t position) {
    for (std::uint32_t group = first; group < last; ++group) position += std::exchange(tops[group], position);
  };
  for (std::size_t level = 0; level < levels_.size(); ++level) {
    Level& own = levels_[level];
    if (level == 0) stack(own.tops, 0, static_cast<std::uint32_t>(own.tops.size()), 0);
    if (level + 1 == levels_.size()) break;
    for (std::uint32_t group = 0; group < own.tops.size(); ++group) {
      stack(levels_[level + 1].tops, own.children[group], own.children[group + 1], own.tops[group] + 1);
    }
  }
}

DisplayRow DisplayRows::recordOf(const Run& run, std::uint32_t position) const {
  DisplayRow row;
  row.ordinal = position - run.position;
  row.record = records_[run.place + row.ordinal];
  row.level = static_cast<std::int32_t>(levels_.size());
  row.group = run.group;
  row.parent = levels_.empty() ? 0 : static_cast<std::int32_t>(run.position);
  row.grouping = grouping_;
  return row;
}

DisplayRow DisplayRows::at(std::int32_t fromOne) const {
  const auto position = static_cast<std::uint32_t>(fromOne - 1);
  if (levels_.empty()) return recordOf({}, position);
  if (position - run_.position < run_.count) return recordOf(run_, position);

  // Inwards from level to level; only expanded groups are entered, so the tops searched are all in sight.
  std::uint32_t first = 0, last = static_cast<std::uint32_t>(levels_[0].tops.size());
  auto end = static_cast<std::uint32_t>(count_);  // behind the last row of the group
  DisplayRow row;
  for (std::size_t level = 0;; ++level) {
    const Level& own = levels_[level];
    const auto begin = own.tops.begin();
    const auto found = std::upper_bound(begin + first, begin + last, position) - begin - 1;
    const auto group = static_cast<std::uint32_t>(found);
    const std::uint32_t top = own.tops[group];
    if (group + 1 < last) end = own.tops[group + 1];
    const bool isHeader = position == top, isFooter = !isHeader && footers_ && position + 1 == end;
    if (isHeader || isFooter) {
      row.rowType = isHeader ? kGroupHeaderRow : kGroupFooterRow;
      row.record = records_[own.starts[group]];
      row.level = static_cast<std::int32_t>(level);
      row.group = group;
      if (isFooter) row.parent = static_cast<std::int32_t>(top + 1);
      row.grouping = grouping_;
      return row;
    }
    if (footers_) --end;
    if (level + 1 == levels_.size()) {
      run_ = {top + 1, end - top - 1, own.starts[group], group};
      return recordOf(run_, position);
    }
    row.parent = static_cast<std::int32_t>(top + 1);
    first = own.children[group];
    last = own.children[group + 1];
  }
}

void DisplayRows::setCollapsed(std::size_t level, std::uint32_t group, bool collapsed) {
  levels_[level].collapsed[group] = collapsed;
  layOut();
}

void DisplayRows::setAllCollapsed(bool collapsed) {
  for (Level& level : levels_) std::fill(level.collapsed.begin(), level.collapsed.end(), collapsed);
  layOut();
}

void DisplayRows::setFooters(bool footers) {
  footers_ = footers;
  layOut();
}

}  // namespace vmgv
