// Sorts records by several typed columns without comparing values: every key column becomes whole numbers of
// as few bits as its values need, these are packed into words, and the words are sorted digit by digit.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "adapters/grid/column_data.h"

namespace vmgv {

struct OrderKey {
  const ColumnData* column;
  bool descending;
};

// The records 0 to rows - 1 in order; the first key is the most significant, equal records keep their order.
// Ascending: Null, then values; False before True; numbers before NaN; texts as collation.h says.
std::vector<std::uint32_t> sortedRecords(std::span<const OrderKey> keys, std::size_t rows);

}  // namespace vmgv
