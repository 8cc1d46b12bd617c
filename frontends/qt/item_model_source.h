// The rows of any QAbstractItemModel as a source of the grid.
#pragma once

#include <QAbstractItemModel>

#include "adapters/grid/row_source.h"

namespace vmgv {

// Reads the top-level rows, those still to be fetched included. A column takes its type from the QVariants
// under Qt::EditRole; values that are no number, date, time stamp, Boolean or text are Null and a problem.
class ItemModelSource final : public RowSource {
 public:
  // The model outlives the source. Only its thread may read.
  explicit ItemModelSource(QAbstractItemModel& model) : model_(model) {}

  std::string name() const override;
  std::vector<ColumnSpec> columns() override;
  void read(RowSink& rows, Problems& problems) override;

 private:
  void fetchAll();
  void put(const QVariant& value, int row, int column, RowSink& rows, Problems& problems) const;

  QAbstractItemModel& model_;
};

}  // namespace vmgv
