// How a grid's rows look beyond their cells: headers of groups and previews, both as wide as the view.
#pragma once

#include <QStyledItemDelegate>
#include <QTableView>

#include "frontends/qt/grid_model.h"

namespace vmgv {

// Sizes that a row is made of, in device-independent pixels.
struct RowSizes {
  int line = 0;     // of cells, of headers and footers
  int preview = 0;  // below the cells of a record

  static RowSizes of(const GridModel& model);
};

// Draws cells in the first line of their row, and none in a header.
class GridDelegate final : public QStyledItemDelegate {
 public:
  GridDelegate(const GridModel& model, QTableView* view)
      : QStyledItemDelegate(view), model_(model), view_(*view) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const GridModel& model_;
  const QTableView& view_;
};

// Over the cells, for the rows in sight.
void paintFullRows(QTableView& view, const GridModel& model, QPainter& painter);

// Where a header's mark of being expanded stands, in the viewport.
QRect expanderRect(const QTableView& view, const DisplayRow& row, int modelRow);

}  // namespace vmgv
