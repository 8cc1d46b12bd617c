// What the objects of the adapter share: the table that they stand for, and how it is addressed.
#pragma once

#include <QPointer>
#include <QTableView>
#include <memory>
#include <vmGridViews/Objects>

#include "arranged_table.h"

class Table {
 public:
  Table(QTableView& view, ArrangedTable& rows) : view_(&view), rows_(&rows) {}

  // Error 91 where the program has deleted it.
  QTableView& view() const { return *present(view_); }
  ArrangedTable& rows() const { return *present(rows_); }

  // Redraw: while it is off a dialog writes several things, and the rows are arranged once when it is on
  // again.
  void setRedraw(bool redraw);
  void arrange();

 private:
  template <class T>
  static T* present(const QPointer<T>& object) {
    if (!object) throw vmgv::Error(vmgv::ErrorNumber::ObjectNotSet);
    return object;
  }

  QPointer<QTableView> view_;
  QPointer<ArrangedTable> rows_;
  bool redraw_ = true, stale_ = false;
};
using TableRef = std::shared_ptr<Table>;

// Base of the classes that show members of the table.
template <class T>
class TablePart : public vmgv::Exposed<T> {
 public:
  explicit TablePart(TableRef table) : table_(std::move(table)) {}

 protected:
  TableRef table_;
};

// From 0, where the number counts from 1 to `count`; else Error 9.
int placeOf(const vmgv::Value& number, int count);

// A cell with its type, so that the export writes numbers as numbers; Null where there is nothing in it.
vmgv::Value valueOf(const QVariant& cell);

// 0xBBGGRR.
int colourNumber(const QColor& colour);

// The parts of the grid.
vmgv::ObjectRef makeColumns(const TableRef& table);
vmgv::ObjectRef makeSortKeys(const TableRef& table);
vmgv::ObjectRef makeGroups(const TableRef& table);
vmgv::ObjectRef makeRules(const TableRef& table);  // FmtConditions
vmgv::ObjectRef makeSelectedItems(const TableRef& table);
vmgv::ObjectRef makeRow(const TableRef& table, int row);  // from 0
