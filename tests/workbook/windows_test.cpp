// The workbook's way into its folder on Windows: complete or absent, whatever happens.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>

#include "adapters/workbook/application.h"
#include "adapters/workbook/paths.h"
#include "support/automation/error.h"
#include "support/automation/value.h"

namespace vmgv::test {
namespace {

namespace fs = std::filesystem;

class WindowsFilesTest : public testing::Test, protected WorkbookHost {
 protected:
  WindowsFilesTest() {
    folder = fs::temp_directory_path() / (L"Φάκελος " + std::to_wstring(GetCurrentProcessId()));
    fs::create_directories(folder);
    target = folder / L"Βιβλίο.xlsx";
  }
  ~WindowsFilesTest() override {
    sheet = application = nullptr;
    fs::remove_all(folder);
  }
  std::string targetPath() override { return workbook::textOf(target); }
  void finished(const std::string& path, std::int64_t rows) override {
    published = path, publishedRows = rows;
  }

  void begin() {
    application = makeWorkbookApplication(*this);
    sheet = application.object("Workbooks").object("Add").object("ActiveSheet");
  }
  void fill(int rows) {  // more than memory keeps
    std::string text(500, ' ');
    unsigned state = 1;
    for (int row = 1; row <= rows; ++row) {
      for (char& c : text) c = static_cast<char>('0' + (state = state * 1103515245 + 12345) / 65536 % 75);
      sheet.object("Cells", row, 1).put("Value", text);
    }
  }
  std::string failure(const std::function<void()>& step) {
    try {
      step();
      return {};
    } catch (const Error& error) {
      return std::to_string(error.number()) + " " + error.description();
    }
  }
  // What a user sees in the folder.
  std::size_t visibleFiles() const {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
      count += !(GetFileAttributesW(entry.path().c_str()) & FILE_ATTRIBUTE_HIDDEN);
    }
    return count;
  }
  std::size_t allFiles() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  fs::path folder, target;
  std::string published;
  std::int64_t publishedRows = 0;
  ObjectRef application, sheet;
};

TEST_F(WindowsFilesTest, AnOlderFileIsReplacedOnlyByACompleteOne) {
  std::ofstream(target) << "older";
  for (const bool quit : {true, false}) {
    begin();
    fill(5000);
    EXPECT_EQ(1u, visibleFiles());
    if (quit) application.call("Quit");
    sheet = application = nullptr;
    EXPECT_EQ(1u, allFiles());
    EXPECT_EQ(5u, fs::file_size(target));
  }
  begin();
  fill(5000);
  application.put("Visible", true);
  EXPECT_EQ(workbook::textOf(target), published);
  EXPECT_EQ(5000, publishedRows);
  EXPECT_LT(1000000u, fs::file_size(target));
  EXPECT_EQ(1u, allFiles());
}

TEST_F(WindowsFilesTest, TargetsThatCannotBeWrittenTo) {
  const fs::path good = target;
  std::ofstream(folder / "file") << "x";
  for (const fs::path& bad : {folder / "missing" / "out.xlsx", folder / "file" / "out.xlsx", folder}) {
    target = bad;
    EXPECT_EQ(0u, failure([&] { begin(); }).find("75 ")) << bad;
  }
  target = good;
  begin();
  fill(5000);
  // a file that another program has open
  const HANDLE held = CreateFileW(good.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  const std::string words = failure([&] { application.put("Visible", true); });
  EXPECT_EQ(0u, words.find("75 ")) << words;
  EXPECT_NE(std::string::npos, words.find(targetPath())) << words;
  CloseHandle(held);
  EXPECT_EQ(0u, fs::file_size(good));
  EXPECT_EQ(2u, visibleFiles());
  application.put("Visible", true);  // the rows are still there
  EXPECT_EQ(5000, publishedRows);
  EXPECT_EQ(2u, allFiles());
}

}  // namespace
}  // namespace vmgv::test
