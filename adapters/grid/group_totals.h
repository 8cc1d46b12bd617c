// Totals of groups: sums of number columns, elsewhere how many values there are.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "adapters/grid/display_rows.h"
#include "support/automation/value.h"

namespace vmgv {

// Whole numbers add up exactly, whatever their size; others lose nothing to the order of adding.
class WholeSum {
 public:
  void add(std::int64_t number) noexcept;
  WholeSum& operator+=(const WholeSum& other) noexcept;
  Value value() const;  // Long, else Decimal

 private:
  std::uint64_t low_ = 0;
  std::int64_t high_ = 0;
};

class RealSum {  // keeps what adding rounds away
 public:
  void add(double number) noexcept;
  RealSum& operator+=(const RealSum& other) noexcept;
  double value() const noexcept;

 private:
  double sum_ = 0, lost_ = 0;
};

// Worked out for all groups of a column when one of them is first asked for.
class GroupTotals {
 public:
  GroupTotals();
  ~GroupTotals();
  GroupTotals(const GroupTotals&) = delete;
  GroupTotals& operator=(const GroupTotals&) = delete;

  // Rows or columns are others now.
  void clear();
  // Sums: `column` holds whole or other numbers. Counts are Long.
  Value sum(const DisplayRows& rows, const ColumnData& column, std::size_t level, std::uint32_t group);
  Value count(const DisplayRows& rows, const ColumnData& column, std::size_t level, std::uint32_t group);

 private:
  struct Column;
  std::map<const ColumnData*, std::unique_ptr<Column>> columns_;
};

}  // namespace vmgv
