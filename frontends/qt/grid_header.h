// The header of a grid: marks every column of the sort order.
#pragma once

#include <QHeaderView>

#include "frontends/qt/grid_model.h"

namespace vmgv {

class GridHeader final : public QHeaderView {
 public:
  GridHeader(const GridModel& model, QWidget* parent) : QHeaderView(Qt::Horizontal, parent), model_(model) {
    setSectionsMovable(true);
    setHighlightSections(false);
    setTextElideMode(Qt::ElideRight);
  }

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
    QHeaderView::initStyleOptionForIndex(option, section);
    for (const SortKey& key : model_.engine().sortKeys()) {
      if (key.colIndex != GridModel::columnOf(section)) continue;
      option->sortIndicator =
          key.sortOrder == kSortAscending ? QStyleOptionHeader::SortDown : QStyleOptionHeader::SortUp;
    }
  }

 private:
  const GridModel& model_;
};

}  // namespace vmgv
