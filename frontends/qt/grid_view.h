// The grid as a widget: a table view of a grid engine.
//
//   auto* view = new GridView(this);
//   view->setModel(&anyItemModel);  // its rows are read once, and again when it changes
//   control.putRef("Grid", makeGridObject(view->engine()));
//
// The engine holds the layout: the view shows its columns, order, groups, previews and selection, and writes
// back what the user does. It asks for the rows in sight only.
//
// Mouse: a header is clicked to sort (with Shift or Ctrl as a further level), dragged to another place or
// into the group-by box, and resized at its edge; a group opens and closes at its mark or by a double click.
// Keys:
//   Right, +  Left, -        open, close a group; Left of a record goes to its header
//   Enter or Space           open or close the group of a header
//   * and /                  open, close all groups
//   F3                       as a click on the header of the current column, with Shift or Ctrl as well
//   Ctrl+Shift+Left, Right   move the current column
//   Ctrl++, Ctrl+-           make it wider, narrower
//   Ctrl+G                   group by it, or no longer
//   F6                       go to the group-by box
//   Ctrl+Z, Ctrl+Shift+Z     undo, redo what was done to the view
//   Shift+F1                 tell why the current row looks as it does, as the tooltip of a row does
#pragma once

#include <QByteArray>
#include <QPointer>
#include <QStringList>
#include <QTableView>
#include <QTimer>
#include <memory>

#include "adapters/grid/engine.h"

namespace vmgv {

class GridHeader;
class GridModel;

class GridView : public QTableView, private GridObserver {
 public:
  explicit GridView(QWidget* parent = nullptr);
  ~GridView() override;

  // Loads the rows of any model into an engine of the view's own. model() then is the view's own model of the
  // engine's display rows. Null: no rows.
  void setModel(QAbstractItemModel* source) override;
  QAbstractItemModel* sourceModel() const { return source_; }
  // What could not be read from the model.
  const Problems& problems() const noexcept { return problems_; }

  void setEngine(std::shared_ptr<GridEngine> engine);  // never null
  const std::shared_ptr<GridEngine>& engine() const noexcept;

  // The whole view as text that a host keeps. Restoring is one step to undo; it answers false, and changes
  // nothing, where the text is no such state. `misfits` takes what of it did not fit.
  QByteArray saveState() const;
  bool restoreState(const QByteArray& state, QStringList* misfits = nullptr);

  // Nothing where there is no step.
  void undo();
  void redo();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void changeEvent(QEvent* event) override;

 private:
  void layoutChanged() override;
  void rowsChanged() override;
  void selectionChanged() override;
  void appearanceChanged() override;

  void reload();
  void refreshRows();
  void showColumns();
  void showWidths();
  void showSelection();
  void showFont();
  void showLook();
  void showHeights();
  void measure();
  int naturalWidth(int column) const;

  DisplayRow rowAtPoint(QPoint point) const;  // of no group where there is none
  bool groupKey(const QKeyEvent& event);
  bool columnKey(const QKeyEvent& event);
  void setExpanded(int row, bool expanded);
  void goTo(int row);
  void showReasons();

  struct Heights {  // of which rows, and how high
    int line = 0, record = 0;
    std::uint64_t arrangement = 0;  // 0 where all are alike
    int rows = 0;

    bool operator==(const Heights&) const = default;
  };

  GridModel* model_;
  GridHeader* header_;
  QPointer<QAbstractItemModel> source_;
  Problems problems_;
  QTimer reload_;
  std::vector<int> naturalWidths_;           // by section
  std::vector<std::string> measuredFields_;  // of which these are the widths
  std::size_t measuredRecords_ = 0;
  GridFont font_;  // of the engine's, as the view knows it
  Heights heights_;
  bool following_ = false;  // the view shows the engine's state; it is not the user who changes it
};

}  // namespace vmgv
