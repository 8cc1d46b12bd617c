// The scripts that the documentation and the tour show, played on the product itself.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "adapters/workbook/application.h"
#include "control/vmgr_edit.h"
#include "frontends/headless/headless_desktop.h"
#include "hosts/player/player.h"

namespace vmgv {
namespace {

const std::filesystem::path kRoot = VMG_SOURCE_DIR;

std::string read(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string without(const std::string& text, const std::string& command) {
  std::istringstream lines(text);
  std::string kept, line;
  while (std::getline(lines, line)) {
    if (!line.starts_with(command)) kept += line + '\n';
  }
  return kept;
}

class ExampleTest : public testing::Test, private WorkbookHost {
 protected:
  ExampleTest() {
    std::filesystem::create_directories(folder_);
    processStringService().setLanguage(kEnglish);
    desktop_.objectFactory = [this](const std::string& programId) {
      return programId == "Excel.Application" ? makeWorkbookApplication(*this) : ObjectRef();
    };
    installDialogs(application_);
    CsvSource source((kRoot / "data/birdstrikes.csv").string());
    engine_->load(source);
  }
  ~ExampleTest() override { std::filesystem::remove_all(folder_); }

  // What the play complained of; empty when all went well.
  std::string play(const std::string& text) {
    const std::filesystem::path script = folder_ / "script";
    std::ofstream(script, std::ios::binary) << text;
    const ObjectRef grid = makeGridObject(engine_);
    const ObjectRef control = makeObject<vmgrEdit>(application_);
    control.putRef("Grid", grid);
    std::ostringstream errors;
    Player player(
        script, folder_,
        {control, grid, desktop_, [this](const std::vector<std::int32_t>& rows) { engine_->select(rows); },
         [this](const std::filesystem::path& file) { workbook_ = file; }},
        errors);
    desktop_.setIdleHandler(&player);
    const int result = player.run();
    desktop_.setIdleHandler(nullptr);
    EXPECT_EQ(result == 0, errors.str().empty());
    return errors.str();
  }

  std::string targetPath() override { return workbook_.string(); }
  void finished(const std::string&, std::int64_t rows) override { rowsWritten_ = rows; }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("vmg_example_" + std::to_string(std::random_device{}()));
  HeadlessDesktop desktop_;
  Application application_{desktop_, desktop_};
  std::shared_ptr<GridEngine> engine_ = std::make_shared<GridEngine>();
  std::filesystem::path workbook_;
  std::int64_t rowsWritten_ = 0;
};

TEST_F(ExampleTest, TheDocumentedScriptDoesWhatItSays) {
  const std::string script = read(kRoot / "hosts/scripts/example.vgs");
  ASSERT_FALSE(script.empty());
  EXPECT_NE(read(kRoot / "docs/SCRIPTING.md").find("```\n" + script + "```\n"), std::string::npos)
      << "docs/SCRIPTING.md shows another script than hosts/scripts/example.vgs";

  ASSERT_EQ(play(script), "");
  EXPECT_EQ(engine_->sortKeys(), (std::vector<SortKey>{{7, kSortAscending}, {5, kSortDescending}}));
  const std::string rows = read(folder_ / "sorted.tsv");
  EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 20);
  EXPECT_TRUE(rows.starts_with("0\t"));
  EXPECT_TRUE(read(folder_ / "sorted.json").starts_with("{\n  \"columns\": ["));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "birdstrikes.xlsx")) << "the export was cancelled";
}

TEST_F(ExampleTest, TheTourSortsAndExportsEveryRow) {
  // There is no screen to take pictures of.
  ASSERT_EQ(play(without(read(kRoot / "hosts/scripts/tour.vgs"), "picture")), "");
  EXPECT_EQ(rowsWritten_, 10'001) << "a header and the demo table's rows";
  EXPECT_TRUE(std::filesystem::exists(folder_ / "birdstrikes.xlsx"));
  EXPECT_TRUE(engine_->redraw());
  EXPECT_EQ(workbook_, folder_ / "export.xlsx") << "a name holds for one export";

  ASSERT_EQ(play(without(read(kRoot / "hosts/scripts/tour-el.vgs"), "picture")), "");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "cancelled.xlsx"));
}

}  // namespace
}  // namespace vmgv
