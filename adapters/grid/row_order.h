// Sorts and groups records by several typed columns without comparing values: every key column becomes whole
// numbers of as few bits as its values need, these are packed into words, and the words are sorted digit by
// digit.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "adapters/grid/column_data.h"

namespace vmgv {

struct OrderKey {  // a column to sort by
  const ColumnData* column;
  bool descending;
};

struct SortedRows {  // an order, and the groups in it
  std::vector<std::uint32_t> records;
  // Of each grouping key: the places in `records` where it or one before it takes another value, then the
  // number of records.
  std::vector<std::vector<std::uint32_t>> starts;
};

// The records 0 to rows - 1 in order; the first key is the most significant, equal records keep their order.
// Ascending: Null, then values; False before True; numbers before NaN; texts as collation.h says. The first
// `grouping` keys are those of the groups.
SortedRows sortedRows(std::span<const OrderKey> keys, std::size_t grouping, std::size_t rows);

}  // namespace vmgv
