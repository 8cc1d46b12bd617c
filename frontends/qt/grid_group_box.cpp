#include "frontends/qt/grid_group_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "adapters/grid/user_acts.h"
#include "frontends/qt/colour.h"
#include "frontends/qt/grid_texts.h"
#include "frontends/qt/units.h"

namespace vmgv {
namespace {

constexpr int kGap = 6;
constexpr int kMarkWidth = 2;

}  // namespace

GridGroupBox::GridGroupBox(const GridModel& model, QWidget* grid, QWidget* parent)
    : QWidget(parent), model_(model), grid_(grid) {
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Mid);
  setAccessibleName(gridtexts::groupBox());
}

void GridGroupBox::showGroups() {
  const auto& groups = model_.engine().groups();
  shown_ = groups.size();
  for (std::size_t level = 0; level < shown_; ++level) {
    const std::string& caption = model_.engine().column(groups[level].colIndex).caption;
    const bool ascending = groups[level].sortOrder == kSortAscending;
    QToolButton& own = *button(level);
    own.setText(plainCaption(caption));
    own.setArrowType(ascending ? Qt::DownArrow : Qt::UpArrow);  // as Qt's headers show it
    own.setAccessibleName(gridtexts::groupedBy(qt(caption), ascending));
  }
  for (std::size_t level = 0; level < buttons_.size(); ++level) buttons_[level]->setVisible(level < shown_);
  place();
  update();
}

int GridGroupBox::heightWanted() const {
  QToolButton sample;
  sample.setText(QStringLiteral("X"));
  sample.setArrowType(Qt::UpArrow);
  sample.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  return sample.sizeHint().height() + 2 * kGap;
}

bool GridGroupBox::focusFirst() {
  if (shown_ == 0) return false;
  focus(0);
  return true;
}

void GridGroupBox::focus(std::size_t level) {
  if (level < shown_) buttons_[level]->setFocus(Qt::TabFocusReason);
}

QToolButton* GridGroupBox::button(std::size_t level) {
  while (buttons_.size() <= level) {
    auto* made = new QToolButton(this);
    made->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    made->setFocusPolicy(Qt::StrongFocus);
    made->installEventFilter(this);
    setTabOrder(buttons_.empty() ? grid_ : buttons_.back(), made);
    connect(made, &QToolButton::clicked, this,
            [this, made] { reverseGroup(model_.engine(), columnOf(levelOf(made))); });
    buttons_.push_back(made);
  }
  return buttons_[level];
}

std::size_t GridGroupBox::levelOf(const QObject* button) const {
  return static_cast<std::size_t>(std::find(buttons_.begin(), buttons_.end(), button) - buttons_.begin());
}

std::int32_t GridGroupBox::columnOf(std::size_t level) const {
  return model_.engine().groups()[level].colIndex;
}

// Buttons share what room there is where they want more.
void GridGroupBox::place() {
  int wanted = 0;
  for (std::size_t level = 0; level < shown_; ++level) wanted += buttons_[level]->sizeHint().width();
  const int room = std::max(0, width() - kGap * (static_cast<int>(shown_) + 1));
  int left = kGap;
  for (std::size_t level = 0; level < shown_; ++level) {
    QSize size = buttons_[level]->sizeHint();
    if (wanted > room && wanted > 0)
      size.setWidth(static_cast<int>(std::int64_t{room} * size.width() / wanted));
    buttons_[level]->setGeometry(QRect(QPoint(left, (height() - size.height()) / 2), size));
    left += size.width() + kGap;
  }
}

void GridGroupBox::showDrop(QPoint point) {
  drop_ = static_cast<int>(levelAt(point));
  update();
}

void GridGroupBox::hideDrop() {
  drop_ = -1;
  update();
}

std::size_t GridGroupBox::levelAt(QPoint point) const {
  std::size_t level = 0;
  while (level < shown_ && point.x() > buttons_[level]->geometry().center().x()) ++level;
  return level;
}

int GridGroupBox::dropEdge(std::size_t level) const {
  if (level < shown_) return buttons_[level]->x() - (kGap + kMarkWidth) / 2;
  return shown_ > 0 ? buttons_[shown_ - 1]->geometry().right() + (kGap - kMarkWidth) / 2 : kGap;
}

void GridGroupBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QString prompt = qt(model_.engine().settings().groupByBoxInfoText);
  if (shown_ == 0 && drop_ < 0) {
    const QRect room = rect().adjusted(2 * kGap, 0, -kGap, 0);
    painter.setPen(readable(palette().color(QPalette::WindowText), palette().color(backgroundRole())));
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(prompt, Qt::ElideRight, room.width()));
  }
  if (drop_ >= 0) {
    painter.fillRect(dropEdge(static_cast<std::size_t>(drop_)), kGap / 2, kMarkWidth, height() - kGap,
                     palette().highlight());
  }
}

void GridGroupBox::resizeEvent(QResizeEvent*) { place(); }

bool GridGroupBox::eventFilter(QObject* watched, QEvent* event) {
  const std::size_t level = levelOf(watched);
  if (level >= shown_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: return mouseEvent(level, static_cast<const QMouseEvent&>(*event));
    case QEvent::KeyPress: return keyEvent(level, static_cast<const QKeyEvent&>(*event));
    default: return false;  // of Qt's many events
  }
}

bool GridGroupBox::mouseEvent(std::size_t level, const QMouseEvent& event) {
  const QPoint point = buttons_[level]->mapTo(this, event.position().toPoint());
  if (event.type() == QEvent::MouseButtonPress) {
    pressedAt_ = point;
    dragging_ = false;
    return false;
  }
  if (event.type() == QEvent::MouseMove) {
    if ((event.buttons() & Qt::LeftButton) == 0) return false;
    dragging_ = dragging_ || (point - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!dragging_) return false;
    rect().contains(point) ? showDrop(point) : hideDrop();
    return true;
  }
  if (!std::exchange(dragging_, false)) return false;
  hideDrop();
  buttons_[level]->setDown(false);
  if (rect().contains(point)) {
    groupBy(model_.engine(), columnOf(level), levelAt(point));
  } else {
    ungroup(model_.engine(), columnOf(level));
  }
  return true;
}

bool GridGroupBox::keyEvent(std::size_t level, const QKeyEvent& event) {
  const bool move = (event.modifiers() & Qt::ControlModifier) != 0;
  switch (event.key()) {
    case Qt::Key_Left:
      if (level == 0) return true;
      if (move) groupBy(model_.engine(), columnOf(level), level - 1);
      focus(level - 1);
      return true;
    case Qt::Key_Right:
      if (level + 1 >= shown_) return true;
      if (move) groupBy(model_.engine(), columnOf(level), level + 2);
      focus(level + 1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: buttons_[level]->click(); return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      ungroup(model_.engine(), columnOf(level));
      if (shown_ == 0) {
        grid_->setFocus(Qt::OtherFocusReason);
      } else {
        focus(std::min(level, shown_ - 1));
      }
      return true;
    case Qt::Key_Down:
    case Qt::Key_Escape: grid_->setFocus(Qt::OtherFocusReason); return true;
    default: return false;  // Space is the button's own
  }
}

}  // namespace vmgv
