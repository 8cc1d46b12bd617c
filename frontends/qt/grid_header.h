// The header of a grid: marks the columns that sort, sorts at a click, lets columns be dragged, and has the
// group-by box above it.
#pragma once

#include <QHeaderView>

#include "frontends/qt/grid_group_box.h"

namespace vmgv {

class GridHeader final : public QHeaderView {
 public:
  GridHeader(const GridModel& model, QWidget* grid);

  // The box as the engine's settings and groups want it.
  void showBox();
  GridGroupBox& box() noexcept { return *box_; }
  // While the mouse is held down a section's size may go on changing; the engine is told when it is let go.
  bool isHeld() const noexcept { return held_; }

  QSize sizeHint() const override;

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool isHandle(int section, int x) const;
  void clicked(int section);
  void takeBack(const QMouseEvent& release);

  const GridModel& model_;
  GridGroupBox* box_;
  int pressed_ = -1;  // the section that is dragged
  int resized_ = -1;
  QPoint pressedAt_;
  Qt::KeyboardModifiers modifiers_;
  bool held_ = false, overBox_ = false;
};

}  // namespace vmgv
