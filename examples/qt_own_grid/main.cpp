// A program with a table view of its own, whose users arrange it by the editor's dialogs.
#include <QApplication>
#include <QDate>
#include <QHeaderView>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QToolBar>
#include <vmGridViews/GridViewEditor>

#include "table_grid.h"

namespace {

constexpr int kOrders = 200;

void fill(QStandardItemModel& orders) {
  const QStringList customers{"Aegean Books", "Baltic Foods", "Corinth Tools", "Delta Textiles",
                              "Epirus Wines"};
  const QStringList cities{"Athens", "Patras", "Thessaloniki"};
  orders.setHorizontalHeaderLabels({"No.", "Customer", "City", "Ordered", "Amount", "Paid"});
  for (int i = 0; i < kOrders; ++i) {
    const QVariant values[] = {1000 + i,
                               customers[i * 7 % customers.size()],
                               cities[i * 5 % cities.size()],
                               QDate(2024, 1, 8).addDays(i * 11 % 365),
                               (i * 37 % 500) * 2.5,
                               i % 3 != 0};
    QList<QStandardItem*> row;
    for (const QVariant& value : values) {
      row << new QStandardItem;
      row.last()->setData(value, Qt::EditRole);
    }
    orders.appendRow(row);
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QStandardItemModel orders;
  fill(orders);

  QMainWindow window;
  window.setWindowTitle("Orders");
  window.resize(760, 480);
  ArrangedTable rows;
  rows.setSourceModel(&orders);
  QTableView view;
  view.setModel(&rows);
  view.setSelectionBehavior(QAbstractItemView::SelectRows);
  view.setAlternatingRowColors(true);
  view.setWordWrap(false);
  view.verticalHeader()->hide();
  view.horizontalHeader()->setSectionsMovable(true);
  view.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  view.setSortingEnabled(true);
  view.horizontalHeader()->setDefaultSectionSize(120);
  view.resizeRowsToContents();
  window.setCentralWidget(&view);

  vmgv::GridViewEditor::setLanguage(QLocale::English);
  vmgv::GridViewEditor editor(&window);
  editor.setGrid(makeTableGrid(view, rows));

  using Editor = vmgv::GridViewEditor;
  QToolBar* tools = window.addToolBar("Table");
  tools->addAction("Sort...", &editor, &Editor::showSort);
  tools->addAction("Group...", &editor, &Editor::showGroups);
  tools->addAction("Columns...", &editor, &Editor::showItems);
  tools->addAction("Display...", &editor, &Editor::showGeneral);
  tools->addAction("Conditions...", &editor, &Editor::showFormat);
  tools->addAction("Export...", &editor, &Editor::showExcel);

  window.show();
  return QApplication::exec();
}
