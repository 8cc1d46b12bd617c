#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <iostream>

#include "frontends/qt/qt_printing.h"
#include "hosts/gridhost/core_session.h"
#include "hosts/gridhost/files.h"
#include "hosts/gridhost/main_window.h"
#include "hosts/gridhost/run.h"

namespace vmgv {
namespace {

// Qt ends the program where there is no display to open.
bool chooseDisplay(bool playing) {
  for (const char* display : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
    if (!qEnvironmentVariableIsEmpty(display)) return true;
  }
  if (playing) qputenv("QT_QPA_PLATFORM", "offscreen");
  return playing;
}

}  // namespace

int runNative(const Options& options) {
  if (!chooseDisplay(options.script.has_value())) {
    std::cerr << "gridhost: there is no display; without one gridhost plays scripts (--play)\n";
    return 1;
  }
  char program[] = "gridhost";
  int count = 1;
  char* arguments[] = {program, nullptr};
  QApplication application(count, arguments);
  QApplication::setApplicationDisplayName(QStringLiteral("vmGridViews"));

  QtDesktop desktop;
  desktop.setSettings(readSettings());
  CoreSession session(desktop, options);
  session.documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
  session.load();

  QtPrinting printing(desktop);
  session.engine()->setPrintPort(&printing);

  MainWindow window(session, desktop);
  desktop.setMainWindow(&window);
  session.onWorkbook = [&](const std::string& path) {
    window.tell(qt(path));
    if (!options.script) QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path)));
  };
  window.show();
  if (options.script) {
    QTimer::singleShot(0, &window, [&] {
      int status = 1;
      desktop.run([&] { status = session.play(desktop); });
      QApplication::exit(status);
    });
  }
  return QApplication::exec();
}

}  // namespace vmgv
