#include "frontends/qt/grid_model.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "frontends/qt/grid_texts.h"
#include "frontends/qt/units.h"
#include "support/automation/convert.h"

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
  const std::vector<std::string> now = engineFields();
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

// What the engine took since it last told us is not there yet.
bool GridModel::isThere(const QModelIndex& index) const {
  return index.isValid() && index.row() < engine_->rowCount() && index.column() < engine_->columnCount();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!isThere(index)) return {};
  const int position = positionOf(index.row());
  return rowData(engine_->displayRow(position), position, columnOf(index.column()), role);
}

void GridModel::multiData(const QModelIndex& index, QModelRoleDataSpan roles) const {
  const bool there = isThere(index);
  const int position = positionOf(index.row());
  const DisplayRow row = there ? engine_->displayRow(position) : DisplayRow();
  for (QModelRoleData& role : roles) {
    role.setData(there ? rowData(row, position, columnOf(index.column()), role.role()) : QVariant());
  }
}

QVariant GridModel::rowData(const DisplayRow& row, int position, int column, int role) const {
  switch (role) {
    case Qt::DisplayRole: return qt(engine_->displayText(position, column));
    case Qt::TextAlignmentRole: return QVariant::fromValue(qtAlignment(engine_->alignment(column)));
    case Qt::BackgroundRole:
    case Qt::ForegroundRole:
    case Qt::FontRole: return styleData(row, role);
    case Qt::ToolTipRole: return reasons(row);
    case Qt::AccessibleTextRole: return accessibleText(row, position, column);
    case Qt::AccessibleDescriptionRole: return preview(row, column);
    default: return {};
  }
}

// Nothing where the view itself draws as it should: its base shows through, and its text has the right
// colour.
QVariant GridModel::styleData(const DisplayRow& row, int role) const {
  if (row.rowType != kRecordRow) {
    if (role == Qt::FontRole) return {};
    const bool back = role == Qt::BackgroundRole;
    return QGuiApplication::palette().brush(back ? QPalette::Button : QPalette::ButtonText);
  }
  const RowStyle& style = engine_->styleOf(row);
  if (role == Qt::FontRole) return look_.hasOwnFont(style) ? look_.font(style) : QVariant();
  const bool back = role == Qt::BackgroundRole;
  const QColor color = back ? look_.back(style) : look_.ink(style);
  return color == (back ? look_.base() : look_.text()) ? QVariant() : QBrush(color);
}

QString GridModel::reasons(const DisplayRow& row) const {
  const RowReasons reasons = engine_->reasonsOf(row);
  return reasons.matching.empty() ? QString() : gridtexts::reasons(reasons);
}

QString GridModel::accessibleText(const DisplayRow& row, int position, int column) const {
  if (row.rowType == kGroupHeaderRow) return qt(engine_->groupText(row));
  QString text = qt(engine_->displayText(position, column));
  if (row.rowType == kRecordRow) return gridtexts::marked(text, engine_->reasonsOf(row));
  if (text.isEmpty()) return text;
  const QString caption = qt(engine_->column(column).caption);
  return engine_->isSummed(column)
             ? gridtexts::sum(caption, text)
             : gridtexts::count(caption, QString::number(toLong(engine_->rowValue(row, column))));
}

// Below a record, told with its leftmost cell.
QString GridModel::preview(const DisplayRow& row, int column) const {
  const std::vector<std::int32_t> shown = engine_->visibleColumns();
  if (row.rowType != kRecordRow || engine_->previewLines() == 0 || shown.empty() || shown.front() != column) {
    return {};
  }
  return qt(engine_->previewText(row));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= engine_->columnCount()) return {};
  switch (role) {
    case Qt::DisplayRole: return qt(engine_->column(columnOf(section)).caption);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(qtAlignment(engine_->alignment(columnOf(section))));
    case Qt::AccessibleTextRole: return accessibleHeader(columnOf(section));
    default: return {};
  }
}

QString GridModel::accessibleHeader(int column) const {
  const QString caption = qt(engine_->column(column).caption);
  const int order = sortOrder(column);
  return order == 0 ? caption : gridtexts::sorted(caption, order == kSortAscending);
}

int GridModel::sortOrder(int column) const {
  for (const auto* keys : {&engine_->sortKeys(), &engine_->groups()}) {
    for (const SortKey& key : *keys) {
      if (key.colIndex == column) return key.sortOrder;
    }
  }
  return 0;
}

std::vector<std::string> GridModel::engineFields() const {
  std::vector<std::string> fields;
  for (int column = 1; column <= engine_->columnCount(); ++column) {
    fields.push_back(engine_->column(column).dataField);
  }
  return fields;
}

}  // namespace vmgv
