#include "frontends/qt/grid_header.h"

#include <QApplication>
#include <QMouseEvent>
#include <utility>

#include "adapters/grid/user_acts.h"

namespace vmgv {

GridHeader::GridHeader(const GridModel& model, QWidget* grid)
    : QHeaderView(Qt::Horizontal, grid), model_(model), box_(new GridGroupBox(model, grid, this)) {
  setSectionsMovable(true);
  setSectionsClickable(true);
  setHighlightSections(false);
  setTextElideMode(Qt::ElideRight);
  connect(this, &QHeaderView::sectionClicked, this, &GridHeader::clicked);
  connect(this, &QHeaderView::sectionResized, this, [this](int section) {
    if (held_) resized_ = section;
  });
  showBox();
}

void GridHeader::showBox() {
  const bool wanted = model_.engine().settings().groupByBoxVisible;
  box_->setVisible(wanted);
  box_->showGroups();
  const int height = wanted ? box_->heightWanted() : 0;
  if (viewportMargins().top() == height) return;
  setViewportMargins(0, height, 0, 0);
  box_->setGeometry(0, 0, width(), height);
  emit geometriesChanged();
}

QSize GridHeader::sizeHint() const { return QHeaderView::sizeHint() + QSize(0, viewportMargins().top()); }

void GridHeader::resizeEvent(QResizeEvent* event) {
  QHeaderView::resizeEvent(event);
  box_->setGeometry(0, 0, width(), viewportMargins().top());
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
  QHeaderView::initStyleOptionForIndex(option, section);
  const int order = model_.sortOrder(GridModel::columnOf(section));
  if (order == 0) return;
  option->sortIndicator = order == kSortAscending ? QStyleOptionHeader::SortDown : QStyleOptionHeader::SortUp;
}

bool GridHeader::isHandle(int section, int x) const {
  const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
  const int left = sectionViewportPosition(section);
  return x < left + grip || x >= left + sectionSize(section) - grip;
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  held_ = event->button() == Qt::LeftButton;
  pressed_ = held_ ? logicalIndexAt(point) : -1;
  if (pressed_ >= 0 && isHandle(pressed_, point.x())) pressed_ = -1;
  pressedAt_ = point;
  QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const bool dragged = pressed_ >= 0 && (event->buttons() & Qt::LeftButton) != 0 &&
                       (point - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
  const bool over = dragged && box_->isVisible() && point.y() < 0;
  if (over) box_->showDrop(box_->mapFromGlobal(event->globalPosition().toPoint()));
  if (std::exchange(overBox_, over) && !over) box_->hideDrop();
  if (!over) QHeaderView::mouseMoveEvent(event);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
  modifiers_ = event->modifiers();
  held_ = false;
  if (!overBox_) {
    QHeaderView::mouseReleaseEvent(event);
    const int section = std::exchange(resized_, -1);
    if (section >= 0) model_.engine().setWidth(GridModel::columnOf(section), sectionSize(section));
    return;
  }
  box_->hideDrop();
  takeBack(*event);
  overBox_ = false;
  groupBy(model_.engine(), GridModel::columnOf(pressed_),
          box_->levelAt(box_->mapFromGlobal(event->globalPosition().toPoint())));
}

// Ends the dragging that the base class knows of as if the section had never left its place.
void GridHeader::takeBack(const QMouseEvent& release) {
  const QPointF global = viewport()->mapToGlobal(QPointF(pressedAt_));
  QMouseEvent back(QEvent::MouseMove, pressedAt_, global, Qt::NoButton, Qt::LeftButton, release.modifiers());
  QHeaderView::mouseMoveEvent(&back);
  QMouseEvent up(QEvent::MouseButtonRelease, pressedAt_, global, Qt::LeftButton, Qt::NoButton,
                 release.modifiers());
  QHeaderView::mouseReleaseEvent(&up);
}

void GridHeader::clicked(int section) {
  if (overBox_) return;
  const bool further = (modifiers_ & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
  sortBy(model_.engine(), GridModel::columnOf(section), further);
}

}  // namespace vmgv
