// open_dialogs COLUMNS: opens each dialog over a grid of that many columns on Qt without a screen, until its
// window is painted and waits for the user.
#include <QApplication>
#include <QWidget>
#include <cstdlib>

#include "adapters/grid/engine.h"
#include "adapters/grid/grid_object.h"
#include "bench/measure.h"
#include "control/vmgr_edit.h"
#include "frontends/qt/qt_desktop.h"
#include "support/strings/string_service.h"

namespace {

using namespace vmgv;

class WideTable final : public RowSource {
 public:
  explicit WideTable(int columns) : columns_(columns) {}
  std::string name() const override { return "wide"; }
  std::vector<ColumnSpec> columns() override {
    std::vector<ColumnSpec> specs;
    for (int i = 1; i <= columns_; ++i)
      specs.push_back({"field" + std::to_string(i), "Στήλη " + std::to_string(i)});
    return specs;
  }
  void read(RowSink& rows, Problems&) override {
    for (int i = 0; i < columns_; ++i) rows.whole(i);
    rows.endRow();
  }

 private:
  int columns_;
};

// Notes when the dialog is painted and has nothing left to do, then closes it.
class Stopwatch final : public IdleHandler {
 public:
  explicit Stopwatch(User& user) : user_(user) { user_.setIdleHandler(this); }
  ~Stopwatch() override { user_.setIdleHandler(nullptr); }
  bool waiting() override {
    if (seconds_ == 0) {
      QApplication::activeModalWidget()->repaint();
      seconds_ = bench::cpuSeconds() - start_;
    }
    return false;
  }
  void yielding() override {}
  double seconds() const { return seconds_; }

 private:
  User& user_;
  double start_ = bench::cpuSeconds();
  double seconds_ = 0;
};

void run(int columns) {
  const auto engine = std::make_shared<GridEngine>();
  WideTable table(columns);
  engine->load(table);
  engine->addSortKey({columns, kSortAscending});
  engine->addGroup({columns - 1, kSortAscending});
  QtDesktop desktop;
  EmbeddedStringService texts;
  Application application(desktop, desktop, texts);
  const ObjectRef control = makeObject<vmgrEdit>(application);
  control.putRef("Grid", makeGridObject(engine));
  for (const char* method :
       {"ShowSummary", "ShowItems", "ShowSort", "ShowGroups", "ShowGeneral", "ShowExcel"}) {
    const Stopwatch stopwatch(desktop);
    control.call(Member(std::string_view(method)));
    bench::report(method, stopwatch.seconds());
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: open_dialogs COLUMNS\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, arguments);
  try {
    run(std::atoi(arguments[1]));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "open_dialogs: %s\n", error.what());
    return 1;
  }
}
