#include "grid/contract.h"

#include "support/automation/convert.h"

namespace vmgv {

bool isTrue(const Value& setting) {
  const Value value = plain(setting);
  return !value.isNull() && toBoolean(value);
}

bool isNoPreviewColumn(const Value& previewColumn) {
  const Value column = plain(previewColumn);
  return column.isNull() || equals(column, "") || equals(column, 0.0);
}

}  // namespace vmgv
