// A disk that is full takes nothing half.
#include <sys/resource.h>

#include <csignal>

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

using FullDiskTest = WorkbookTest;

TEST_F(FullDiskTest, ShowsAtTheCell) {
  begin();
  {
    const FileSizeLimit limit(300000);
    EXPECT_ERROR(61, folder.string(), fill(2000));
  }
  // What was lost stays lost: no workbook with a gap.
  EXPECT_ERROR(57, "incomplete", put(5000, 1, "more"));
  EXPECT_ERROR(57, "incomplete", show());
  application.call("Quit");
  EXPECT_EQ(0u, filesInFolder());
}

TEST_F(FullDiskTest, WhilePublishing) {
  begin();
  fill(1000);
  const auto good = target;
  target = folder / "missing" / "out.xlsx";
  EXPECT_ERROR(75, "missing", show());  // from now on the rows are complete
  target = good;
  for (const rlim_t size : {0, 100, 3000, 500000}) {
    const FileSizeLimit limit(size);
    EXPECT_ERROR(61, targetPath(), show());
    EXPECT_EQ(0u, filesInFolder());
  }
  EXPECT_EQ(1000u, publish().cells.size());
}

}  // namespace
}  // namespace vmgv::test
