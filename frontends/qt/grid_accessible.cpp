#include "frontends/qt/grid_accessible.h"

#include <QAccessibleWidget>
#include <unordered_map>
#include <utility>

#include "adapters/grid/user_acts.h"
#include "frontends/qt/grid_header.h"
#include "frontends/qt/grid_view.h"

namespace vmgv {
namespace {

constexpr int kHeader = -1;  // as a row: the columns' headers; as a section: the rows', which nobody sees

class CellAccessible final : public QAccessibleInterface,
                             public QAccessibleTableCellInterface,
                             public QAccessibleActionInterface {
 public:
  CellAccessible(GridView& view, int row, int section) : view_(view), row_(row), section_(section) {}

  bool isValid() const override {
    return row_ < view_.model()->rowCount() && section_ < view_.model()->columnCount() &&
           row_ < view_.engine()->rowCount();
  }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&view_); }
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  void setText(QAccessible::Text, const QString&) override {}
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  QAccessible::Role role() const override {
    if (row_ == kHeader) return QAccessible::ColumnHeader;
    return section_ == kHeader ? QAccessible::RowHeader : QAccessible::Cell;
  }
  QString text(QAccessible::Text kind) const override;
  QRect rect() const override;
  QAccessible::State state() const override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  bool isSelected() const override { return row_ >= 0 && view_.selectionModel()->isRowSelected(row_); }
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return section_; }
  int rowIndex() const override { return row_; }
  int columnExtent() const override { return isGroup() ? view_.model()->columnCount() - section_ : 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  DisplayRow displayRow() const { return view_.engine()->displayRow(GridModel::positionOf(row_)); }
  bool isGroup() const {
    return row_ >= 0 && section_ >= 0 && isValid() && displayRow().rowType == kGroupHeaderRow;
  }
  QModelIndex index() const { return view_.model()->index(row_, section_); }

  GridView& view_;
  int row_, section_;
};

class GridAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit GridAccessible(GridView& view) : QAccessibleWidget(&view, QAccessible::Table), view_(view) {}
  ~GridAccessible() override { dropCells(); }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  // Counted as QTableView counts them in its events: headers first, in the corner the group-by box.
  int childCount() const override { return (rowCount() + 1) * stride(); }
  QAccessibleInterface* child(int place) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int section) const override;
  int rowCount() const override { return view_.model()->rowCount(); }
  int columnCount() const override { return view_.model()->columnCount(); }
  QString columnDescription(int section) const override {
    return view_.model()->headerData(section, Qt::Horizontal).toString();
  }
  QString rowDescription(int) const override { return {}; }

  QList<QAccessibleInterface*> selectedCells() const override;
  int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
  QList<int> selectedColumns() const override { return {}; }  // whole rows are selected
  int selectedColumnCount() const override { return 0; }
  bool isColumnSelected(int) const override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  QList<int> selectedRows() const override;
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  bool isRowSelected(int row) const override { return view_.selectionModel()->isRowSelected(row); }
  bool selectRow(int row) override { return select(row, QItemSelectionModel::Select); }
  bool unselectRow(int row) override { return select(row, QItemSelectionModel::Deselect); }

  void modelChange(QAccessibleTableModelChangeEvent* event) override {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) dropCells();
  }

 private:
  int stride() const { return columnCount() + 1; }
  QAccessibleInterface* box() const {
    auto& header = static_cast<GridHeader&>(*view_.horizontalHeader());
    return QAccessible::queryAccessibleInterface(&header.box());
  }
  QAccessibleInterface* made(int row, int section) const;
  bool select(int row, QItemSelectionModel::SelectionFlag how) const;
  void dropCells() const {
    for (const auto& [place, cell] : std::exchange(cells_, {})) QAccessible::deleteAccessibleInterface(cell);
  }

  GridView& view_;
  mutable std::unordered_map<int, QAccessible::Id> cells_;  // made so far, by their place among the children
};

// The box is a part of the header to Qt, which tells of no such part.
class BoxAccessible final : public QAccessibleWidget {
 public:
  explicit BoxAccessible(GridGroupBox& box)
      : QAccessibleWidget(&box, QAccessible::ToolBar), grid_(box.grid()) {}
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(grid_); }

 private:
  QWidget* grid_;
};

QString CellAccessible::text(QAccessible::Text kind) const {
  if (!isValid() || section_ == kHeader) return {};
  if (kind != QAccessible::Name && kind != QAccessible::Description) return {};
  const int role = kind == QAccessible::Name ? Qt::AccessibleTextRole : Qt::AccessibleDescriptionRole;
  const QVariant told = row_ == kHeader ? view_.model()->headerData(section_, Qt::Horizontal, role)
                                        : view_.model()->data(index(), role);
  return told.toString();
}

QRect CellAccessible::rect() const {
  if (!isValid() || section_ == kHeader) return {};
  const QHeaderView& header = *view_.horizontalHeader();
  QRect place = row_ == kHeader ? QRect(header.sectionViewportPosition(section_), 0,
                                        header.sectionSize(section_), header.viewport()->height())
                                : view_.visualRect(index());
  if (isGroup()) {
    place.setLeft(0);
    place.setWidth(view_.viewport()->width());
  }
  const QWidget& around = row_ == kHeader ? *header.viewport() : *view_.viewport();
  return {around.mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State CellAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  state.invisible = state.invalid || section_ == kHeader || (view_.isColumnHidden(section_) && !isGroup());
  if (state.invisible) return state;
  const QWidget& shown = row_ == kHeader ? *view_.horizontalHeader()->viewport() : *view_.viewport();
  const QRect port(shown.mapToGlobal(QPoint()), shown.size());
  state.offscreen = !port.intersects(rect());
  state.disabled = !view_.isEnabled();
  if (row_ == kHeader) return state;
  state.focusable = state.selectable = true;
  state.selected = isSelected();
  const QModelIndex current = view_.currentIndex();
  state.focused = view_.hasFocus() && current.row() == row_ && (isGroup() || current.column() == section_);
  if (isGroup()) {
    state.expandable = true;
    state.expanded = view_.engine()->isExpanded(displayRow());
    state.collapsed = !state.expanded;
  }
  return state;
}

QStringList CellAccessible::actionNames() const {
  if (row_ == kHeader) return {pressAction()};
  return isGroup() ? QStringList{toggleAction()} : QStringList();
}

void CellAccessible::doAction(const QString& name) {
  if (!isValid() || !actionNames().contains(name)) return;
  if (row_ == kHeader) {
    sortBy(*view_.engine(), GridModel::columnOf(section_), false);
  } else {
    view_.engine()->setExpanded(GridModel::positionOf(row_), !view_.engine()->isExpanded(displayRow()));
  }
}

QList<QAccessibleInterface*> CellAccessible::columnHeaderCells() const {
  const auto* grid = static_cast<const GridAccessible*>(parent());
  return isGroup() || row_ == kHeader ? QList<QAccessibleInterface*>()
                                      : QList<QAccessibleInterface*>{grid->child(section_ + 1)};
}

QAccessibleInterface* GridAccessible::made(int row, int section) const {
  const int place = (row + 1) * stride() + section + 1;
  const auto known = cells_.find(place);
  if (known != cells_.end()) return QAccessible::accessibleInterface(known->second);
  auto* cell = new CellAccessible(view_, row, section);
  cells_.emplace(place, QAccessible::registerAccessibleInterface(cell));
  return cell;
}

QAccessibleInterface* GridAccessible::child(int place) const {
  if (place < 0 || place >= childCount()) return nullptr;
  if (place == 0) return box();
  const int row = place / stride() - 1, section = place % stride() - 1;
  return row < 0 || section < 0 ? made(row, section) : cellAt(row, section);
}

// A group's header is told once, whatever the column.
QAccessibleInterface* GridAccessible::cellAt(int row, int section) const {
  if (row < 0 || row >= rowCount() || section < 0 || section >= columnCount()) return nullptr;
  const bool known = row < view_.engine()->rowCount();
  const bool group =
      known && view_.engine()->displayRow(GridModel::positionOf(row)).rowType == kGroupHeaderRow;
  return made(row, group ? 0 : section);
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
  if (child == box()) return 0;
  const auto* cell = dynamic_cast<const CellAccessible*>(child);
  return cell ? (cell->rowIndex() + 1) * stride() + cell->columnIndex() + 1 : -1;
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
  const QPoint point(x, y);
  if (box()->rect().contains(point) && !box()->state().invisible) return box();
  const QHeaderView& header = *view_.horizontalHeader();
  const QPoint inHeader = header.viewport()->mapFromGlobal(point);
  if (header.viewport()->rect().contains(inHeader)) return made(kHeader, header.logicalIndexAt(inHeader));
  const QPoint inRows = view_.viewport()->mapFromGlobal(point);
  if (!view_.viewport()->rect().contains(inRows)) return nullptr;
  return cellAt(view_.rowAt(inRows.y()), std::max(0, view_.columnAt(inRows.x())));
}

QAccessibleInterface* GridAccessible::focusChild() const {
  if (view_.hasFocus()) return cellAt(view_.currentIndex().row(), view_.currentIndex().column());
  return box()->focusChild();
}

QList<int> GridAccessible::selectedRows() const {
  QList<int> rows;
  for (const std::int32_t position : view_.engine()->selection()) rows << position - 1;
  return rows;
}

QList<QAccessibleInterface*> GridAccessible::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (const std::int32_t column : view_.engine()->visibleColumns()) {
      QAccessibleInterface* cell = cellAt(row, column - 1);
      if (cell && (cells.isEmpty() || cells.constLast() != cell)) cells << cell;
    }
  }
  return cells;
}

bool GridAccessible::select(int row, QItemSelectionModel::SelectionFlag how) const {
  if (row < 0 || row >= rowCount()) return false;
  view_.selectionModel()->select(view_.model()->index(row, 0), how | QItemSelectionModel::Rows);
  return true;
}

QAccessibleInterface* ofGrid(const QString&, QObject* object) {
  if (auto* view = dynamic_cast<GridView*>(object)) return new GridAccessible(*view);
  if (auto* box = dynamic_cast<GridGroupBox*>(object)) return new BoxAccessible(*box);
  return nullptr;
}

}  // namespace

void installGridAccessibility() {
  static const bool installed = [] { return QAccessible::installFactory(ofGrid), true; }();
  Q_UNUSED(installed)
}

}  // namespace vmgv
