#include "output/excel/column_order.h"

#include <algorithm>

#include "support/automation/convert.h"

namespace vmgv {
namespace {

constexpr std::size_t kKeyLength = 255;  // characters kept of a key

std::string keyText(const Value& key) {
  if (key.isNull()) return {};
  std::string text = toText(key);
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((text[i] & 0xC0) != 0x80 && ++characters > kKeyLength) {
      text.resize(i);
      break;
    }
  }
  return text;
}

}  // namespace

std::vector<ColumnRecord> columnOrder(const ObjectRef& grid) {
  const ObjectRef columns = grid.object("Columns");
  const std::int32_t count = toLong(columns.get("Count"));
  std::vector<ColumnRecord> records;
  for (std::int32_t i = 1; i <= count; ++i) {
    const ObjectRef column = columns.item(i).object();
    records.push_back({keyText(column.get("Key")), toInteger(column.get("Index")),
                       toInteger(column.get("ColPosition")), toBoolean(column.get("Visible"))});
  }
  std::stable_sort(records.begin(), records.end(), [](const ColumnRecord& a, const ColumnRecord& b) {
    return a.colPosition < b.colPosition;
  });
  return records;
}

}  // namespace vmgv
