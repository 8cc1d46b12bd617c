// Carries out a script on a table, without a screen: batch TABLE SCRIPT FOLDER
//
// TABLE is a CSV file, or an SQLite file as shop.db#orders; all that the script writes goes below FOLDER. The
// exit status is 0 where every line was carried out.
#include <filesystem>
#include <iostream>
#include <vmGridViews/GridEngine>
#include <vmGridViews/Headless>
#include <vmGridViews/Player>
#include <vmGridViews/Workbook>
#include <vmGridViews/vmgrEdit>

namespace {

// Where the workbooks of the exports go: the file that the script names before one.
struct Workbooks final : vmgv::WorkbookHost {
  std::filesystem::path next;

  std::string targetPath() override { return next.string(); }
  void finished(const std::string& path, std::int64_t rows) override {
    std::cout << path << ": " << rows << " rows with the header\n";
  }
};

int play(const std::string& table, const std::filesystem::path& script, const std::filesystem::path& folder) {
  const auto engine = std::make_shared<vmgv::GridEngine>();
  const vmgv::Problems problems = engine->load(*vmgv::openRowSource(table));
  for (const std::string& message : problems.messages()) std::cerr << message << '\n';

  Workbooks workbooks;
  vmgv::HeadlessDesktop desktop;
  desktop.objectFactory = [&](const std::string& program) {
    return program == "Excel.Application" ? vmgv::makeWorkbookApplication(workbooks) : vmgv::ObjectRef();
  };
  vmgv::processStringService().setLanguage(vmgv::kEnglish);
  vmgv::Application application(desktop, desktop);

  const vmgv::ObjectRef grid = vmgv::makeGridObject(engine);
  const auto control = vmgv::makeObject<vmgv::vmgrEdit>(application);
  control.putRef("Grid", grid);

  const vmgv::Stage stage{
      .control = control,
      .grid = grid,
      .user = desktop,
      .selectRows = [&](const std::vector<std::int32_t>& rows) { engine->select(rows); },
      .nameWorkbook = [&](const std::filesystem::path& file) { workbooks.next = file; },
      .print = [](const std::filesystem::path&) { throw vmgv::Error(vmgv::ErrorNumber::Printer); }};
  return vmgv::playScript(script, folder, stage, std::cerr);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: batch TABLE SCRIPT FOLDER\n";
    return 2;
  }
  try {
    return play(argv[1], argv[2], argv[3]);
  } catch (const std::exception& error) {
    std::cerr << "batch: " << error.what() << '\n';
    return 1;
  }
}
