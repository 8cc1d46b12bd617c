// The window of gridhost: the grid, a button for each of the control's dialogs, and what there is to know.
#pragma once

#include <QMainWindow>

#include "frontends/qt/grid_view.h"
#include "frontends/qt/qt_desktop.h"
#include "hosts/gridhost/session.h"

namespace vmgv {

class MainWindow final : public QMainWindow {
 public:
  // Both outlive the window. The session has its rows.
  MainWindow(Session& session, QtDesktop& desktop);

  void tell(const QString& text);  // in the status line

 private:
  QWidget* makePanel();
  QString rowsText() const;
  void showProblems();

  Session& session_;
  QtDesktop& desktop_;
  GridView* grid_;
};

}  // namespace vmgv
