// The workbook's way into its folder: complete or absent, whatever happens.
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <random>
#include <utility>

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

TEST_F(FilesTest, NothingIsSeenUntilItIsComplete) {
  begin();
  fill(500);
  EXPECT_TRUE(folderContent().empty());
  EXPECT_EQ(500u, publish().cells.size());
  EXPECT_EQ(host.target, host.finishedPath);
  EXPECT_EQ(500, host.finishedRows);
  EXPECT_EQ(std::set<std::string>{"out.xlsx"}, folderContent());
}

TEST_F(FilesTest, NothingIsLeftWithoutVisible) {
  begin();
  fill(500);
  application.call("Quit");
  EXPECT_TRUE(folderContent().empty());
  begin();
  fill(10);
  application = workbook = sheet = nullptr;
  EXPECT_TRUE(folderContent().empty());
  EXPECT_EQ(-1, host.finishedRows);
}

TEST_F(FilesTest, AnOlderFileIsReplacedOnlyByACompleteOne) {
  std::ofstream(host.target) << "older";
  begin();
  put(1, 1, "a");
  application.call("Quit");
  std::string content;
  std::ifstream(host.target) >> content;
  EXPECT_EQ("older", content);
  begin();
  put(1, 1, "newer");
  EXPECT_EQ("newer", publish().cells.at("A1").text);
}

TEST_F(FilesTest, FoldersThatCannotBeWrittenTo) {
  std::ofstream(folder + "/file") << "x";
  const struct {
    std::string target, words;
  } cases[] = {
      {folder + "/missing/out.xlsx", folder + "/missing: No such file or directory"},
      {folder + "/file/out.xlsx", folder + "/file: Not a directory"},
      {folder, folder + " cannot be written: it is a folder"},
  };
  for (const auto& test : cases) {
    host.target = test.target;
    EXPECT_ERROR(75, test.words, begin());
  }
  EXPECT_EQ(std::set<std::string>{"file"}, folderContent());
}

TEST_F(FilesTest, ATargetThatTurnsBadOnTheWay) {
  begin();
  put(1, 1, "a");
  const std::string good = host.target;
  host.target = folder + "/missing/out.xlsx";
  EXPECT_ERROR(75, host.target + " cannot be written: No such file", application.put("Visible", true));
  host.target = folder + "/taken";
  std::filesystem::create_directory(host.target);
  EXPECT_ERROR(75, host.target + " cannot be written: ", application.put("Visible", true));
  EXPECT_EQ(Value(false), application.get("Visible"));
  EXPECT_EQ(std::set<std::string>{"taken"}, folderContent());
  host.target = good;  // the rows are still there
  EXPECT_EQ("a", publish().cells.at("A1").text);
}

TEST_F(FilesTest, WithoutATargetTheRowsWait) {
  host.target.clear();
  begin();
  put(1, 1, "a");
  EXPECT_ERROR(75, "no path", application.put("Visible", true));
  host.target = folder + "/named.xlsx";
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
  const std::string good = std::exchange(host.target, folder + "/missing/out.xlsx");
  EXPECT_ERROR(75, "missing", application.put("Visible", true));  // from now on the rows are complete
  host.target = good;
  for (const rlim_t size : {rlim_t{0}, rlim_t{100}, rlim_t{3000}, rlim_t{500000}}) {
    const FileSizeLimit limit(size);
    EXPECT_ERROR(61, host.target, application.put("Visible", true));
    EXPECT_TRUE(folderContent().empty());
  }
  EXPECT_EQ(1000u, publish().cells.size());
}

TEST_F(FilesTest, TwoWorkbooksAtOnce) {
  class FreshHost final : public WorkbookHost {
   public:
    explicit FreshHost(std::string where) : folder_(std::move(where)) {}
    std::string targetPath() override { return freshWorkbookPath(folder_); }
    void finished(const std::string& path, std::int64_t) override { paths.push_back(path); }
    std::vector<std::string> paths;

   private:
    std::string folder_;
  } fresh(folder);
  std::ofstream(folder + "/Book2.xlsx") << "not ours";

  const ObjectRef first = makeWorkbookApplication(fresh), second = makeWorkbookApplication(fresh);
  const ObjectRef sheets[] = {first.object("Workbooks").object("Add").object("ActiveSheet"),
                              second.object("Workbooks").object("Add").object("ActiveSheet"),
                              first.object("Workbooks").object("Add").object("ActiveSheet")};
  for (int row = 1; row <= 3; ++row) {
    for (int i = 0; i < 3; ++i) sheets[i].object("Cells", row, 1).put("Value", 10 * i + row);
  }
  first.put("Visible", true);
  second.put("Visible", true);
  ASSERT_EQ(
      (std::vector<std::string>{folder + "/Book1.xlsx", folder + "/Book3.xlsx", folder + "/Book4.xlsx"}),
      fresh.paths);
  EXPECT_EQ("3", WorkbookFile(fresh.paths[0]).cells.at("A3").text);
  EXPECT_EQ("23", WorkbookFile(fresh.paths[1]).cells.at("A3").text);
  EXPECT_EQ("13", WorkbookFile(fresh.paths[2]).cells.at("A3").text);
}

TEST_F(FilesTest, EqualContentGivesEqualFiles) {
  std::string content[2];
  for (std::string& bytes : content) {
    begin();
    fill(20);
    publish();
    std::ifstream file(host.target, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
  }
  EXPECT_TRUE(content[0] == content[1]);
}

}  // namespace
}  // namespace vmgv::test
