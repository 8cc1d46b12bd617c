// A user for programs that know of no tests: a plugin that Qt loads into them
// (QT_QPA_GENERIC_PLUGINS=visitor).
//
// It pictures and closes the dialog that the program opens by itself, plays the script VISITOR_SCRIPT on the
// program's editor, pictures the window and ends the program. All goes into VISITOR_FOLDER, also the names of
// the files that the desktop was asked to open.
#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QGenericPlugin>
#include <QTimer>
#include <QUrl>
#include <iostream>

#include "control/vmgr_edit.h"
#include "frontends/qt/grid_view_editor.h"
#include "frontends/qt/shared_desktop.h"
#include "frontends/qt/units.h"
#include "hosts/player/play.h"

namespace vmgv {
namespace {

QString folder() { return qEnvironmentVariable("VISITOR_FOLDER"); }

void picture(QWidget& widget, const QString& name) { widget.grab().save(folder() + QLatin1Char('/') + name); }

// The status of the play, or 1 where the program has no editor.
int play() {
  GridViewEditor* editor = nullptr;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (auto* found = qobject_cast<GridViewEditor*>(widget)) editor = found;
  }
  if (!editor) return 1;
  const std::shared_ptr<SharedDesktop> shared = SharedDesktop::get();
  const ObjectRef control = makeObject<vmgrEdit>(shared->application);
  control.putRef("Grid", editor->grid());
  const auto cannot = [](const auto&) { throw Error(ErrorNumber::InvalidCall, "A visitor cannot do that"); };
  const auto named = [](const auto&) {};  // VMG_WORKBOOK_FOLDER says where workbooks go
  const Stage stage{control, editor->grid(), shared->desktop, cannot, named, cannot};
  int status = 1;
  shared->desktop.run([&] {
    status = playScript(utf8(qEnvironmentVariable("VISITOR_SCRIPT")), utf8(folder()), stage, std::cerr);
  });
  return status;
}

}  // namespace

class Visitor final : public QObject {
  Q_OBJECT

 public:
  Visitor() {
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
    connect(&visit_, &QTimer::timeout, this, &Visitor::look);
    visit_.start(20);
  }

  Q_SLOT void open(const QUrl& url) {
    QFile opened(folder() + QStringLiteral("/opened.txt"));
    if (opened.open(QIODevice::Append)) opened.write(url.toLocalFile().toUtf8() + '\n');
  }

 private:
  void look() {
    if (QWidget* dialog = QApplication::activeModalWidget()) {
      picture(*dialog, QStringLiteral("dialog.png"));
      dialog->close();
      return;
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible()) continue;
      visit_.stop();
      const int status = play();
      picture(*window, QStringLiteral("window.png"));
      return QApplication::exit(status);
    }
  }

  QTimer visit_;
};

class VisitorPlugin final : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "visitor.json")

 public:
  QObject* create(const QString&, const QString&) override { return new Visitor; }
};

}  // namespace vmgv

#include "visitor.moc"
