// The grid as a widget: a table view of a grid engine.
//
//   auto* view = new GridView(this);
//   view->setModel(&anyItemModel);                          // its rows are read once, and again when it
//   changes control.putRef("Grid", makeGridObject(view->engine()));
//
// The engine holds the layout: the view shows its columns, order, sort keys and selection, and writes back
// what the user does with the mouse. It asks for the visible cells only.
#pragma once

#include <QPointer>
#include <QTableView>
#include <QTimer>
#include <memory>

#include "adapters/grid/engine.h"

namespace vmgv {

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

 protected:
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
  int naturalWidth(int column) const;

  GridModel* model_;
  QPointer<QAbstractItemModel> source_;
  Problems problems_;
  QTimer reload_;
  std::vector<int> naturalWidths_;  // by section
  GridFont font_;                   // of the engine's, as the view knows it
  bool following_ = false;          // the view shows the engine's state; it is not the user who changes it
};

}  // namespace vmgv
