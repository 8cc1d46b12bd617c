// The workbook's way into its folder: complete or absent, whatever happens.
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <random>

#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

// Lets files grow to `bytes` only, as a full disk would.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

class FilesTest : public WorkbookTest {
 protected:
  // Rows whose text hardly packs.
  void fill(int rows) {
    std::mt19937 random(1);
    std::string text(2000, ' ');
    for (int row = 1; row <= rows; ++row) {
      for (char& c : text) c = static_cast<char>('0' + random() % 75);
      put(row, 1, text);
    }
  }
};

TEST_F(FilesTest, AnOlderFileIsReplacedOnlyByACompleteOne) {
  std::ofstream(host.target) << "older";
  begin();
  fill(500);
  application.call("Quit");
  begin();
  fill(10);
  application = workbook = sheet = nullptr;  // let go of, not finished
  EXPECT_EQ(5u, std::filesystem::file_size(host.target));
  EXPECT_TRUE(host.published.empty());
  begin();
  fill(500);
  EXPECT_EQ(500u, publish().cells.size());
}

TEST_F(FilesTest, TargetsThatCannotBeWrittenTo) {
  std::ofstream(folder + "/file") << "x";
  const std::pair<std::string, std::string> cases[] = {
      {folder + "/missing/out.xlsx", "/missing: No such file or directory"},
      {folder + "/file/out.xlsx", "/file: Not a directory"},
      {folder, " cannot be written: it is a folder"},
  };
  const std::string good = host.target;
  for (const auto& [target, words] : cases) {
    host.target = target;
    EXPECT_ERROR(75, folder + words, begin());
  }
  host.target = good;
  begin();
  put(1, 1, "a");
  for (const std::string& bad : {cases[0].first, folder, std::string()}) {  // it turns bad on the way
    host.target = bad;
    EXPECT_ERROR(75, bad, application.put("Visible", true));
  }
  EXPECT_EQ(std::set<std::string>{"file"}, folderContent());
  host.target = good;  // the rows are still there
  EXPECT_EQ("a", publish().cells.at("A1").text);
}

TEST_F(FilesTest, DiskFullShowsAtTheCell) {
  begin();
  {
    const FileSizeLimit limit(300000);
    EXPECT_ERROR(61, folder, fill(2000));
  }
  // What was lost stays lost: no workbook with a gap.
  EXPECT_ERROR(57, "incomplete", put(5000, 1, "more"));
  EXPECT_ERROR(57, "incomplete", application.put("Visible", true));
  application.call("Quit");
  EXPECT_TRUE(folderContent().empty());
}

TEST_F(FilesTest, DiskFullWhilePublishing) {
  begin();
  fill(1000);
  const std::string good = host.target;
  host.target = folder + "/missing/out.xlsx";
  EXPECT_ERROR(75, "missing", application.put("Visible", true));  // from now on the rows are complete
  host.target = good;
  for (const rlim_t size : {0, 100, 3000, 500000}) {
    const FileSizeLimit limit(size);
    EXPECT_ERROR(61, host.target, application.put("Visible", true));
    EXPECT_TRUE(folderContent().empty());
  }
  EXPECT_EQ(1000u, publish().cells.size());
}

TEST_F(FilesTest, FreshNamesPassOverFilesThatAreThere) {
  struct FreshHost : FolderHost {
    std::string targetPath() override { return freshWorkbookPath(target); }
  } fresh;
  fresh.target = folder;
  std::ofstream(folder + "/Book2.xlsx") << "not ours";
  application = makeWorkbookApplication(fresh);
  for (const char* text : {"first", "second"}) {
    sheet = application.object("Workbooks").object("Add").object("ActiveSheet");
    put(1, 1, text);
  }
  application.put("Visible", true);
  EXPECT_EQ("first", WorkbookFile(folder + "/Book1.xlsx").cells.at("A1").text);
  EXPECT_EQ("second", WorkbookFile(folder + "/Book3.xlsx").cells.at("A1").text);
}

}  // namespace
}  // namespace vmgv::test
