// The display rows of a grid engine as a flat Qt model: a row each, and a section for every column, hidden
// ones included.
#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "adapters/grid/engine.h"
#include "frontends/qt/grid_look.h"

namespace vmgv {

class GridModel final : public QAbstractTableModel {
 public:
  explicit GridModel(QWidget* view) : QAbstractTableModel(view), look_(*view) {}

  void setEngine(std::shared_ptr<GridEngine> engine);
  GridEngine& engine() const noexcept { return *engine_; }
  const std::shared_ptr<GridEngine>& sharedEngine() const noexcept { return engine_; }
  const GridLook& look() const noexcept { return look_; }
  void followLook() { look_.follow(*engine_); }

  // Tells the views what became of the engine's rows and columns. True where they are others than before,
  // not only in another order.
  bool refresh();

  const std::vector<std::string>& fields() const noexcept { return fields_; }

  // Sections and display positions count from 0 here, from 1 in the engine.
  static int columnOf(int section) noexcept { return section + 1; }
  static int positionOf(int row) noexcept { return row + 1; }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns_; }
  QVariant data(const QModelIndex& index, int role) const override;
  // A row is looked up once, whatever is asked of it.
  void multiData(const QModelIndex& index, QModelRoleDataSpan roles) const override;
  // Why a row looks as it does, as rich text; "" where no condition matches.
  QString reasons(const DisplayRow& row) const;
  int sortOrder(int column) const;  // as a key or a group; 0: neither
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool isThere(const QModelIndex& index) const;
  QVariant rowData(const DisplayRow& row, int position, int column, int role) const;
  QVariant styleData(const DisplayRow& row, int role) const;
  QString accessibleText(const DisplayRow& row, int position, int column) const;
  QString accessibleHeader(int column) const;
  QString preview(const DisplayRow& row, int column) const;
  std::vector<std::string> engineFields() const;

  GridLook look_;
  std::shared_ptr<GridEngine> engine_ = std::make_shared<GridEngine>();
  int rows_ = 0, columns_ = 0;  // as the views know them
  std::vector<std::string> fields_;
};

}  // namespace vmgv
