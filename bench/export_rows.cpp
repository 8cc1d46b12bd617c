// export_rows ROWS.csv OUT.xlsx [null]: the product's whole export, dialog and all, without a screen.
// With "null" the spreadsheet is one that takes every call and does nothing: what remains is the cost of the
// late-bound calls, of the grid's values and of the engine.
#include <cstring>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "adapters/workbook/application.h"
#include "bench/measure.h"
#include "control/vmgr_edit.h"
#include "frontends/headless/headless_desktop.h"
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

int run(int count, char** arguments) {
  const bool nullExcel = count == 4 && std::strcmp(arguments[3], "null") == 0;
  Host host(arguments[2]);
  auto engine = std::make_shared<GridEngine>();
  double start = bench::cpuSeconds();
  {
    CsvSource source(arguments[1]);
    engine->load(source);
  }
  bench::report("load_cpu_s", bench::cpuSeconds() - start);
  bench::report("rows", engine->rowCount());
  bench::report("load_peak_mb", bench::peakMegabytes());

  EmbeddedStringService strings;
  strings.setLanguage(kEnglish);
  HeadlessDesktop desktop;
  desktop.objectFactory = [&](const std::string&) {
    return nullExcel ? makeObject<NullExcel>() : makeWorkbookApplication(host);
  };
  Application application(desktop, desktop, strings);
  const ObjectRef control = makeObject<vmgrEdit>(application);
  control.putRef("Grid", makeGridObject(engine));
  Steps user(desktop, {[&] { desktop.click(*desktop.form()->find("cmdOK")); }});
  start = bench::cpuSeconds();
  control.call("ShowExcel");
  const double seconds = bench::cpuSeconds() - start;
  user.finish();
  if (!desktop.boxes().empty()) throw Error(ErrorNumber::InvalidCall, desktop.boxes().back().text);
  bench::report("export_cpu_s", seconds);
  bench::report("ns_per_cell", seconds * 1e9 / engine->rowCount() / engine->columnCount());
  bench::report("peak_mb", bench::peakMegabytes());
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fprintf(stderr, "usage: export_rows ROWS.csv OUT.xlsx [null]\n");
    return 2;
  }
  try {
    return run(count, arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "export_rows: %s\n", error.what());
    return 1;
  }
}
