// export_rows ROWS.csv OUT.xlsx [null | pivot | qt | TEMPLATE]: the product's whole export, dialog and all,
// without a screen.
//   null   the spreadsheet is one that takes every call and does nothing: what remains is the cost of the
//   late-bound
//          calls, of the grid's values and of the engine
//   pivot  with a pivot table
//   qt     on Qt, whose windows follow the progress
#include <QApplication>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "adapters/workbook/application.h"
#include "bench/measure.h"
#include "control/vmgr_edit.h"
#include "frontends/headless/headless_desktop.h"
#include "frontends/qt/qt_desktop.h"
#include "frontends/user/steps.h"

namespace {

using namespace vmgv;

class Host final : public WorkbookHost {
 public:
  explicit Host(std::string path) : path_(std::move(path)) {}
  std::string targetPath() override { return path_; }
  void finished(const std::string&, std::int64_t) override {}

 private:
  std::string path_;
};

// Every member of the spreadsheet at once: a property of each name that answers with the object itself.
class NullExcel final : public Object {
 public:
  std::string typeName() const override { return "Application"; }
  ClassId classId() const noexcept override { return "NullExcel"; }
  MemberId member(std::string_view name) override { return name == "Version" ? 2 : 1; }
  Value invoke(MemberId id, Access access, std::span<const Value>) override {
    if (access == Access::Put) return {};
    return id == 2 ? Value("16.0") : Value(ObjectRef(this));
  }
};

// Answers with the export's CPU seconds, from the click on OK on.
template <class Desktop>
double exportRows(Desktop& desktop, const std::shared_ptr<GridEngine>& engine, const std::string& mode,
                  WorkbookHost& host) {
  EmbeddedStringService strings;
  strings.setLanguage(kEnglish);
  desktop.objectFactory = [&](const std::string&) {
    return mode == "null" ? makeObject<NullExcel>() : makeWorkbookApplication(host);
  };
  Application application(desktop, desktop, strings);
  const ObjectRef control = makeObject<vmgrEdit>(application);
  control.putRef("Grid", makeGridObject(engine));
  const bool fills = !mode.empty() && mode != "null" && mode != "qt" && mode != "pivot";
  const auto named = [&desktop](const char* name) -> Control& { return *desktop.form()->find(name); };
  double start = 0;
  Steps user(desktop, {[&] {
               if (mode == "pivot") desktop.click(named("chkPivot"));
               if (fills) desktop.enter(named("txtTemplate"), mode);
               start = bench::cpuSeconds();
               desktop.click(named("cmdOK"));
             }});
  control.call("ShowExcel");
  const double seconds = bench::cpuSeconds() - start;
  user.finish();
  if (!desktop.boxes().empty()) throw Error(ErrorNumber::InvalidCall, desktop.boxes().back().text);
  return seconds;
}

int run(int& count, char** arguments) {
  Host host(arguments[2]);
  const std::string mode = count == 4 ? arguments[3] : "";
  auto engine = std::make_shared<GridEngine>();
  const double start = bench::cpuSeconds();
  {
    CsvSource source(arguments[1]);
    engine->load(source);
  }
  bench::report("load_cpu_s", bench::cpuSeconds() - start);
  bench::report("rows", engine->rowCount());
  bench::report("load_peak_mb", bench::peakMegabytes());

  double seconds = 0;
  if (mode == "qt") {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    QtDesktop desktop;
    seconds = exportRows(desktop, engine, mode, host);
  } else {
    HeadlessDesktop desktop;
    seconds = exportRows(desktop, engine, mode, host);
  }
  bench::report("export_cpu_s", seconds);
  bench::report("ns_per_cell", seconds * 1e9 / engine->rowCount() / engine->columnCount());
  bench::report("peak_mb", bench::peakMegabytes());
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3 && count != 4) {
    std::fprintf(stderr, "usage: export_rows ROWS.csv OUT.xlsx [null | pivot | qt | TEMPLATE]\n");
    return 2;
  }
  try {
    return run(count, arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "export_rows: %s\n", error.what());
    return 1;
  }
}
