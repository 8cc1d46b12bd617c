#include "hosts/gridhost/session.h"

#include <iostream>

#include "adapters/grid/grid_object.h"
#include "adapters/workbook/application.h"
#include "control/vmgr_edit.h"
#include "hosts/gridhost/files.h"
#include "hosts/player/player.h"

namespace vmgv {
namespace {

constexpr const char* kDemoTable = "data/birdstrikes.csv";

}  // namespace

Session::Session(WindowPort& window, SystemPort& system, const Options& options)
    : options_(options), application_(window, system) {
  if (options.language != kNoLanguage) processStringService().setLanguage(options.language);
  grid_ = makeGridObject(engine_);
  auto* editor = new vmgrEdit(application_);
  control_ = editor;
  editor->setGrid(grid_);
  data_ = options.data.empty() ? shippedFile(kDemoTable).string() : options.data;
}

void Session::load() {
  const std::unique_ptr<RowSource> source = openRowSource(data_);
  problems_ = engine_->load(*source);
  for (const std::string& message : problems_.messages()) std::cerr << message << '\n';
  if (problems_.more() > 0) std::cerr << "... and " << problems_.more() << " more\n";
}

int Session::play(User& user) {
  const Stage stage{control_, grid_, user,
                    [this](const std::vector<std::int32_t>& rows) { engine_->select(rows); },
                    [this](const std::filesystem::path& file) { workbook_ = file; }};
  Player player(*options_.script, options_.out, stage, std::cerr);
  user.setIdleHandler(&player);
  const int status = player.run();
  user.setIdleHandler(nullptr);
  if (status != 0) return status;
  std::cout << options_.script->string() << ": done";
  for (const std::string& workbook : written_) std::cout << ", " << workbook;
  std::cout << std::endl;
  return 0;
}

ObjectRef Session::createObject(const std::string& programId) {
  return programId == "Excel.Application" ? makeWorkbookApplication(*this) : ObjectRef();
}

std::string Session::targetPath() {
  return workbook_.empty() ? freshWorkbookPath(documents.string()) : workbook_.string();
}

void Session::finished(const std::string& path, std::int64_t rows) {
  written_.push_back(path + " (" + std::to_string(rows) + " rows with the header)");
  if (onWorkbook) onWorkbook(path);
}

}  // namespace vmgv
