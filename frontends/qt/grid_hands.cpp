// What the user's hands do in the grid view.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWhatsThis>

#include "adapters/grid/user_acts.h"
#include "frontends/qt/grid_header.h"
#include "frontends/qt/grid_rows.h"
#include "frontends/qt/grid_texts.h"
#include "frontends/qt/grid_view.h"

namespace vmgv {
namespace {

constexpr int kWidthStep = 10;
constexpr int kNarrowest = 20;

}  // namespace

DisplayRow GridView::rowAtPoint(QPoint point) const {
  const int row = rowAt(point.y());
  return row < 0 || row >= engine()->rowCount() ? DisplayRow()
                                                : engine()->displayRow(GridModel::positionOf(row));
}

void GridView::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const DisplayRow row = rowAtPoint(point);
  const int modelRow = rowAt(point.y());
  if (event->button() == Qt::LeftButton && row.rowType == kGroupHeaderRow &&
      expanderRect(*this, row, modelRow).contains(point)) {
    return setExpanded(modelRow, !engine()->isExpanded(row));
  }
  QTableView::mousePressEvent(event);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const DisplayRow row = rowAtPoint(point);
  if (event->button() == Qt::LeftButton && row.rowType == kGroupHeaderRow) {
    return setExpanded(rowAt(point.y()), !engine()->isExpanded(row));
  }
  QTableView::mouseDoubleClickEvent(event);
}

void GridView::setExpanded(int row, bool expanded) {
  engine()->setExpanded(GridModel::positionOf(row), expanded);
}

void GridView::goTo(int row) {
  const int column = std::max(0, currentIndex().column());
  setCurrentIndex(model_->index(row, column));
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Undo)) return undo();
  if (event->matches(QKeySequence::Redo)) return redo();
  if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::ShiftModifier) return showReasons();
  if (event->key() == Qt::Key_F6 && header_->box().isVisible() && header_->box().focusFirst()) return;
  if (!columnKey(*event) && !groupKey(*event)) QTableView::keyPressEvent(event);
}

// Unlike a tooltip it stays until the next key or click, and can be read out.
void GridView::showReasons() {
  const QModelIndex current = currentIndex();
  if (!current.isValid() || current.row() >= engine()->rowCount()) return;
  const QString reasons = model_->reasons(engine()->displayRow(GridModel::positionOf(current.row())));
  QWhatsThis::showText(viewport()->mapToGlobal(visualRect(current).bottomLeft()),
                       reasons.isEmpty() ? gridtexts::noReasons() : reasons, this);
}

bool GridView::columnKey(const QKeyEvent& event) {
  if (!currentIndex().isValid()) return false;
  GridEngine& engine = *this->engine();
  const std::int32_t column = GridModel::columnOf(currentIndex().column());
  const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
  const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
  const auto resize = [&](int by) {
    engine.setWidth(column, std::max(kNarrowest, header_->sectionSize(currentIndex().column()) + by));
  };
  switch (event.key()) {
    case Qt::Key_F3: sortBy(engine, column, control || shift); return true;
    case Qt::Key_G:
      if (!control) return false;
      isGrouped(engine, column) ? ungroup(engine, column) : groupBy(engine, column, engine.groups().size());
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (!control || !shift) return false;
      moveColumn(engine, column, event.key() == Qt::Key_Left ? -1 : 1);
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      if (control) resize(kWidthStep);
      return control;
    case Qt::Key_Minus:
      if (control) resize(-kWidthStep);
      return control;
    default: return false;
  }
}

bool GridView::groupKey(const QKeyEvent& event) {
  const QModelIndex current = currentIndex();
  if (engine()->groups().empty() || !current.isValid() || current.row() >= engine()->rowCount()) return false;
  if ((event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0) return false;
  const DisplayRow row = engine()->displayRow(GridModel::positionOf(current.row()));
  const bool header = row.rowType == kGroupHeaderRow;
  const bool expanded = engine()->isExpanded(row);
  switch (event.key()) {
    case Qt::Key_Asterisk: engine()->expandAll(); return true;
    case Qt::Key_Slash: engine()->refreshGroups(true); return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (header) setExpanded(current.row(), !expanded);
      return header;
    case Qt::Key_Plus:
    case Qt::Key_Right:
      if (header) setExpanded(current.row(), true);
      return header;
    case Qt::Key_Minus:
    case Qt::Key_Left:
      if (header && expanded) {
        setExpanded(current.row(), false);
        return true;
      }
      // From the leftmost cell on, and from a closed header, to the header above.
      if (row.parent == 0 ||
          (!header && header_->visualIndex(current.column()) > 0 && event.key() == Qt::Key_Left)) {
        return header;
      }
      goTo(row.parent - 1);
      return true;
    default: return false;
  }
}

}  // namespace vmgv
