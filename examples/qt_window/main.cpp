// A main window whose user arranges the grid, and finds it so again: qt_window FILE "SELECT ..."
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QSettings>
#include <QtSql>
#include <vmGridViews/GridViewEditor>

using vmgv::GridViewEditor;

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  GridViewEditor::setLanguage(QLocale::English);
  QSqlDatabase::addDatabase("QSQLITE").setDatabaseName(argv[1]);
  QSqlQueryModel rows;
  rows.setQuery(argv[2], QSqlDatabase::database());

  QMainWindow window;
  auto* editor = new GridViewEditor(&window);
  vmgv::GridView* grid = editor->setModel(&rows);
  window.setCentralWidget(grid);
  QMenu* menu = window.menuBar()->addMenu("&View");
  menu->addAction("&Customize...", editor, &GridViewEditor::showSummary);
  menu->addAction("&Print preview...", editor, &GridViewEditor::showPreview);

  QSettings settings("Example", "qt_window");
  grid->restoreState(settings.value("view").toByteArray());
  window.show();
  const int status = application.exec();
  settings.setValue("view", grid->saveState());
  return status;
}
