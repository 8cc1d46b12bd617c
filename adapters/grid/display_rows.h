// Which row is displayed at which position: records in their order, below the headers of nested groups.
//
// A group that is expanded shows its header, its content and, where footers are on, its footer; a collapsed
// one its header alone. No row is an object: a position is looked up among where groups begin, so that
// collapsing costs a pass over the groups and memory grows with the groups, not with the rows.
#pragma once

#include <cstdint>
#include <vector>

#include "adapters/grid/row_order.h"
#include "grid/contract.h"

namespace vmgv {

// RowType of the rows that grouping adds to records (kRecordRow).
inline constexpr std::int32_t kGroupHeaderRow = 1;
inline constexpr std::int32_t kGroupFooterRow = 2;

// What is displayed at a position. Groups are numbered within their level from 0, as is the outermost level.
struct DisplayRow {
  std::int32_t rowType = kRecordRow;
  std::uint32_t record = 0;    // of the source, from 0; of a group's row: the group's first record
  std::int32_t level = 0;      // of a group's row; of a record: the number of groups that it is in
  std::uint32_t group = 0;     // of a group's row, its own; of a record, the innermost
  std::uint32_t ordinal = 0;   // of a record: its place in the innermost group, from 0
  std::int32_t parent = 0;     // the position, from 1, of the header above; 0: none
  std::uint32_t grouping = 0;  // groups are numbered anew with every grouping
};

class DisplayRows {
 public:
  // Records in their own order, no groups.
  void reset(std::size_t records);
  // Other records or another order. What was collapsed in the outermost `keptLevels` stays so.
  void assign(SortedRows sorted, std::size_t keptLevels);

  std::int32_t count() const noexcept { return count_; }
  DisplayRow at(std::int32_t fromOne) const;  // 1 to count()

  bool isCollapsed(std::size_t level, std::uint32_t group) const { return levels_[level].collapsed[group]; }
  void setCollapsed(std::size_t level, std::uint32_t group, bool collapsed);
  void setAllCollapsed(bool collapsed);
  bool footers() const noexcept { return footers_; }
  void setFooters(bool footers);

  // The structure below, for totals.
  const std::vector<std::uint32_t>& records() const noexcept { return records_; }  // in order
  std::size_t levels() const noexcept { return levels_.size(); }
  std::size_t groups(std::size_t level) const { return levels_[level].collapsed.size(); }
  // Where the groups of a level begin among records(), and among the groups of the next level; both end with
  // the number of these.
  const std::vector<std::uint32_t>& starts(std::size_t level) const { return levels_[level].starts; }
  const std::vector<std::uint32_t>& children(std::size_t level) const { return levels_[level].children; }
  std::uint32_t grouping() const noexcept { return grouping_; }
  std::uint64_t arrangement() const noexcept { return arrangement_; }  // another one whenever rows moved

 private:
  struct Level {
    std::vector<std::uint32_t> starts, children;
    std::vector<std::uint32_t> tops;  // positions of the headers, from 0, where a reader can see them
    std::vector<bool> collapsed;
  };
  struct Run {  // neighbouring records of one group
    std::uint32_t position = 0, count = 0, place = 0, group = 0;
  };

  std::uint32_t contentOf(std::size_t level, std::uint32_t group) const;
  void layOut();
  DisplayRow recordOf(const Run& run, std::uint32_t position) const;

  std::vector<std::uint32_t> records_;
  std::vector<Level> levels_;
  bool footers_ = false;
  std::int32_t count_ = 0;
  std::uint32_t grouping_ = 0;
  std::uint64_t arrangement_ = 0;
  mutable Run run_;  // where the last record was found: rows are mostly asked for one after the other
};

}  // namespace vmgv
