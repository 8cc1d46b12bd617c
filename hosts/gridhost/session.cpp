#include "hosts/gridhost/session.h"

#include <iostream>

#include "adapters/grid/grid_object.h"
#include "hosts/gridhost/files.h"
#include "hosts/gridhost/report.h"
#include "hosts/player/paths.h"
#include "hosts/player/play.h"

namespace vmgv {
namespace {

constexpr const char* kDemoTable = "data/birdstrikes.csv";

}  // namespace

Session::Session(const Options& options) : options_(options), grid_(makeGridObject(engine_)) {
  if (options.language != kNoLanguage) processStringService().setLanguage(options.language);
  data_ = options.data.empty() ? pathText(shippedFile(kDemoTable)) : options.data;
}

void Session::load() {
  const std::unique_ptr<RowSource> source = openRowSource(data_);
  problems_ = engine_->load(*source);
  for (const std::string& message : problems_.messages()) std::cerr << message << '\n';
  if (problems_.more() > 0) std::cerr << "... and " << problems_.more() << " more\n";
}

int Session::play(User& user) {
  const Stage stage{control(),
                    grid_,
                    user,
                    [this](const std::vector<std::int32_t>& rows) { engine_->select(rows); },
                    [this](const std::filesystem::path& file) { workbook_ = file; },
                    [this](const std::filesystem::path& file) { print(file); }};
  if (const int status = playScript(*options_.script, options_.out, stage, std::cerr)) return status;
  std::cout << pathText(*options_.script) << ": done";
  for (const std::string& file : written_) std::cout << ", " << file;
  std::cout << std::endl;
  return 0;
}

void Session::print(const std::filesystem::path& file) {
  const std::int32_t pages = printReport(engine_, system(), pathText(file));
  written_.push_back(pathText(file) + " (" + std::to_string(pages) + " pages)");
}

void Session::noteWorkbook(const std::string& path, std::int64_t rows) {
  written_.push_back(path + " (" + std::to_string(rows) + " rows with the header)");
  if (onWorkbook) onWorkbook(path);
}

}  // namespace vmgv
