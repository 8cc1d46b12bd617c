#include "adapters/grid/selected_rows.h"

#include <algorithm>

namespace vmgv {

SelectedRows::SelectedRows(const DisplayRows& rows, const std::vector<std::int32_t>& positions)
    : grouping_(rows.grouping()) {
  if (!positions.empty()) records_.resize(rows.records().size());
  for (const std::int32_t position : positions) {
    const DisplayRow row = rows.at(position);
    if (row.rowType == kRecordRow) {
      records_[row.record] = true;
    } else {
      groupRows_.push_back(groupRow(row));
    }
  }
  std::sort(groupRows_.begin(), groupRows_.end());
}

std::vector<std::int32_t> SelectedRows::positionsIn(const DisplayRows& rows) const {
  std::vector<std::int32_t> positions;
  if (records_.empty()) return positions;
  for (std::int32_t position = 1; position <= rows.count(); ++position) {
    const DisplayRow row = rows.at(position);
    const bool selected = row.rowType == kRecordRow
                              ? records_[row.record]
                              : grouping_ == rows.grouping() &&
                                    std::binary_search(groupRows_.begin(), groupRows_.end(), groupRow(row));
    if (selected) positions.push_back(position);
  }
  return positions;
}

}  // namespace vmgv
