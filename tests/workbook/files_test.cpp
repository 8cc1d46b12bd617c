// The workbook's way into its folder: complete or absent, whatever happens.
#ifdef _WIN32
#include <windows.h>
#endif

#include <fstream>

#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

namespace fs = std::filesystem;
using FilesTest = WorkbookTest;

TEST_F(FilesTest, AnOlderFileIsReplacedOnlyByACompleteOne) {
  std::ofstream(target) << "older";
  for (const bool quits : {true, false}) {
    begin();
    fill(1000);
    if (quits) application.call("Quit");
    application = book = sheet = nullptr;  // let go of, not finished
    EXPECT_EQ(5u, fs::file_size(target));
    EXPECT_EQ(1u, filesInFolder());
    EXPECT_EQ("", published);
  }
  begin();
  fill(1000);
  show();
  EXPECT_EQ(targetPath(), published);
  EXPECT_EQ(1000, publishedRows);
  EXPECT_LT(1000000u, fs::file_size(target));
  EXPECT_EQ(1u, filesInFolder());
}

TEST_F(FilesTest, TargetsThatCannotBeWrittenTo) {
  const fs::path good = target, file = folder / "file";
  std::ofstream(file) << "x";
  const fs::path cases[] = {folder / "missing" / "out.xlsx", file / "out.xlsx", folder};
  for (const fs::path& bad : cases) {
    target = bad;
    EXPECT_ERROR(75, workbook::textOf(bad == folder ? bad : bad.parent_path()), begin());
  }
  target = good;
  begin();
  fill(1000);
  for (const fs::path& bad : {cases[0], folder, fs::path()}) {  // it turns bad on the way
    target = bad;
    EXPECT_ERROR(75, targetPath(), show());
  }
  target = good;
#ifdef _WIN32  // where a file that another program has open stays as it is
  const HANDLE held = CreateFileW(good.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  EXPECT_ERROR(75, targetPath(), show());
  CloseHandle(held);
  EXPECT_EQ(0u, fs::file_size(good));
  for (const auto& entry : fs::directory_iterator(folder)) {  // the user does not see what is being written
    const bool hidden = GetFileAttributesW(entry.path().c_str()) & FILE_ATTRIBUTE_HIDDEN;
    EXPECT_EQ(entry.path() != good && entry.path() != file, hidden) << entry.path();
  }
#endif
  show();  // the rows are still there
  EXPECT_EQ(1000, publishedRows);
  EXPECT_EQ(2u, filesInFolder());
}

TEST_F(FilesTest, FreshNamesPassOverFilesThatAreThere) {
  fresh = true;
  std::ofstream(folder / "Book2.xlsx") << "not ours";
  begin();
  application.object("Workbooks").call("Add");
  show();
  for (const char* name : {"Book1.xlsx", "Book3.xlsx"}) EXPECT_TRUE(fs::exists(folder / name)) << name;
  EXPECT_EQ(8u, fs::file_size(folder / "Book2.xlsx"));
  EXPECT_EQ(3u, filesInFolder());
}

}  // namespace
}  // namespace vmgv::test
