#include "frontends/qt/grid_model.h"

#include <QGuiApplication>
#include <QPalette>

#include "frontends/qt/units.h"

namespace vmgv {
namespace {

Qt::Alignment qtAlignment(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left: return Qt::AlignLeft | Qt::AlignVCenter;
    case Alignment::Centre: return Qt::AlignHCenter | Qt::AlignVCenter;
    case Alignment::Right: return Qt::AlignRight | Qt::AlignVCenter;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

void GridModel::setEngine(std::shared_ptr<GridEngine> engine) {
  engine_ = std::move(engine);
  fields_.clear();
  refresh();
}

bool GridModel::refresh() {
  const std::vector<std::string> now = fields();
  if (engine_->rowCount() == rows_ && now == fields_) {
    if (rows_ > 0 && columns_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
    if (columns_ > 0) emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    return false;
  }
  beginResetModel();
  rows_ = engine_->rowCount();
  columns_ = engine_->columnCount();
  fields_ = now;
  endResetModel();
  return true;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  // What the engine took since it last told us is not there yet.
  if (!index.isValid() || index.row() >= engine_->rowCount() || index.column() >= engine_->columnCount())
    return {};
  switch (role) {
    case Qt::DisplayRole: return qt(engine_->displayText(positionOf(index.row()), columnOf(index.column())));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(qtAlignment(engine_->alignment(columnOf(index.column()))));
    case Qt::BackgroundRole:
      if (engine_->settings().useEvenOddColor && index.row() % 2 == 1) {
        return QGuiApplication::palette().brush(QPalette::AlternateBase);
      }
      return {};
    default: return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= engine_->columnCount()) return {};
  switch (role) {
    case Qt::DisplayRole: return qt(engine_->column(columnOf(section)).caption);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(qtAlignment(engine_->alignment(columnOf(section))));
    default: return {};
  }
}

std::vector<std::string> GridModel::fields() const {
  std::vector<std::string> fields;
  for (int column = 1; column <= engine_->columnCount(); ++column) {
    fields.push_back(engine_->column(column).dataField);
  }
  return fields;
}

}  // namespace vmgv
