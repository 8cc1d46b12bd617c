// The box above a grid's headers: a button for each column that groups the rows, or the prompt to drag one
// here.
//
// A click turns a group's direction round; dragged within the box it changes its level, dragged out of it the
// column groups no longer. Keys: Left and Right go from button to button, with Ctrl they move the group,
// Space or Enter turns it round, Delete ends it, Down and Esc go back to the grid.
#pragma once

#include <QToolButton>
#include <QWidget>
#include <vector>

#include "frontends/qt/grid_model.h"

namespace vmgv {

class GridGroupBox final : public QWidget {
 public:
  // Focus goes to `grid` where the user leaves the box.
  GridGroupBox(const GridModel& model, QWidget* grid, QWidget* parent);

  QWidget* grid() const noexcept { return grid_; }
  void showGroups();
  int heightWanted() const;
  // False where nothing is grouped.
  bool focusFirst();

  // While a column is dragged over the box: marks where it would go.
  void showDrop(QPoint point);
  void hideDrop();
  std::size_t levelAt(QPoint point) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QToolButton* button(std::size_t level);
  std::size_t levelOf(const QObject* button) const;
  std::int32_t columnOf(std::size_t level) const;
  void place();
  int dropEdge(std::size_t level) const;
  bool mouseEvent(std::size_t level, const QMouseEvent& event);
  bool keyEvent(std::size_t level, const QKeyEvent& event);
  void focus(std::size_t level);

  const GridModel& model_;
  QWidget* grid_;
  std::vector<QToolButton*> buttons_;  // kept when groups go: one may be in the middle of an event
  std::size_t shown_ = 0;
  int drop_ = -1;  // the level where the mark is
  QPoint pressedAt_;
  bool dragging_ = false;
};

}  // namespace vmgv
