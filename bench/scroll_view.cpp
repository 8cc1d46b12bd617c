// scroll_view ROWS.csv PAGES: scrolls the Qt grid view page by page without a screen: rows grouped 3 deep,
// with footers, alternating colours and previews of 3 lines.
#include <QApplication>
#include <QScrollBar>
#include <cstdlib>

#include "adapters/grid/csv_source.h"
#include "bench/measure.h"
#include "frontends/qt/grid_view.h"

namespace {

using namespace vmgv;

void reshape(GridEngine& engine) {
  engine.setRedraw(false);
  for (const char* field : {"Category", "Date", "Active"}) engine.addGroup({engine.columnIndex(field), 1});
  engine.setPreviewColumn("Notes");
  engine.changeSettings([](GridSettings& settings) {
    settings.previewRowLines = 3;
    settings.useEvenOddColor = true;
    settings.groupFooterStyle = kTotalsGroupFooter;
  });
  engine.setRedraw(true);
}

void run(const char* path, int pages) {
  const auto engine = std::make_shared<GridEngine>();
  CsvSource source(path);
  engine->load(source);
  GridView view;
  view.setEngine(engine);
  view.resize(1200, 800);
  view.show();
  QApplication::processEvents();
  double start = bench::cpuSeconds();
  reshape(*engine);
  view.grab();
  bench::report("regroup_shown_cpu_s", bench::cpuSeconds() - start);
  start = bench::cpuSeconds();
  for (int page = 0; page < pages; ++page) {
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    view.viewport()->repaint();
  }
  const double seconds = bench::cpuSeconds() - start;
  bench::report("pages_per_cpu_s", pages / seconds);
  view.verticalScrollBar()->setValue(0);
  for (const bool expanded : {false, true}) {
    start = bench::cpuSeconds();
    engine->setExpanded(1, expanded);
    view.viewport()->repaint();
    bench::report(expanded ? "expand_shown_cpu_s" : "collapse_shown_cpu_s", bench::cpuSeconds() - start);
  }
  bench::report("peak_mb", bench::peakMegabytes());
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: scroll_view ROWS.csv PAGES\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, arguments);
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  try {
    run(arguments[1], std::atoi(arguments[2]));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "scroll_view: %s\n", error.what());
    return 1;
  }
}
