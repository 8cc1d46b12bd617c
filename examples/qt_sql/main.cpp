// The rows of a query in a grid that its user can customize: qt_sql FILE "SELECT ..."
#include <QApplication>
#include <QtSql>
#include <vmGridViews/GridViewEditor>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QSqlDatabase::addDatabase("QSQLITE").setDatabaseName(argv[1]);
  QSqlQueryModel rows;
  rows.setQuery(argv[2], QSqlDatabase::database());
  vmgv::GridViewEditor editor;
  editor.setModel(&rows)->show();
  editor.showSummary();
  return application.exec();
}
