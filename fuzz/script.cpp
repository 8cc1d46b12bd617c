// Any text as a script for the whole product, dialogs, grid and export: it ends, and nothing stays open.
#include <fstream>
#include <sstream>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "adapters/workbook/application.h"
#include "control/vmgr_edit.h"
#include "frontends/headless/headless_desktop.h"
#include "fuzz/memory_file.h"
#include "hosts/player/player.h"

namespace {

using namespace vmgv;

constexpr std::string_view kTable =
    "id,name,day,price\n1,fig,2024-01-02,3.5\n2,\u03BC\u03AE\u03BB\u03BF,2024-01-02,\n3,,2023-12-31,4\n";

class Host final : public WorkbookHost {
 public:
  std::string targetPath() override { return (fuzz::scratchFolder() / "out" / "export.xlsx").string(); }
  void finished(const std::string&, std::int64_t) override {}
};

void play(const std::string& script) {
  Host host;
  HeadlessDesktop desktop;
  EmbeddedStringService strings;
  desktop.objectFactory = [&host](const std::string&) { return makeWorkbookApplication(host); };
  Application application(desktop, desktop, strings);
  auto grid = std::make_shared<GridEngine>();
  const fuzz::MemoryFile table(kTable);
  CsvSource source(table.path());
  grid->load(source);
  const ObjectRef gridObject = makeGridObject(grid), control = makeObject<vmgrEdit>(application);
  control.putRef("Grid", gridObject);
  const Stage stage{control, gridObject, desktop,
                    [&grid](const std::vector<std::int32_t>& rows) { grid->select(rows); },
                    [](const std::filesystem::path&) {}};
  std::ostringstream errors;
  Player player(script, fuzz::scratchFolder() / "out", stage, errors);
  desktop.setIdleHandler(&player);
  const bool succeeded = player.run() == 0;
  desktop.setIdleHandler(nullptr);
  if (succeeded != errors.str().empty() || desktop.form() || desktop.box()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::MemoryFile file({reinterpret_cast<const char*>(data), size});
  play(file.path());
  std::filesystem::remove_all(fuzz::scratchFolder() / "out");
  return 0;
}
