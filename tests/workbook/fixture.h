// A folder of the test's own and an application that writes into it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "adapters/workbook/application.h"
#include "support/automation/error.h"
#include "support/automation/value.h"
#include "tests/workbook/workbook_file.h"

namespace vmgv::test {

class FolderHost : public WorkbookHost {
 public:
  std::string targetPath() override { return target; }
  void finished(const std::string& path, std::int64_t) override { published.push_back(path); }

  std::string target;
  std::vector<std::string> published;
};

class WorkbookTest : public testing::Test {
 protected:
  WorkbookTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "workbook-XXXXXX").string();
    folder = mkdtemp(pattern.data());
    host.target = folder + "/out.xlsx";
  }
  ~WorkbookTest() override { std::filesystem::remove_all(folder); }

  // Begins a workbook; `sheet` is its sheet.
  void begin() {
    application = makeWorkbookApplication(host);
    workbook = application.object("Workbooks").object("Add");
    sheet = workbook.object("ActiveSheet");
  }
  void put(int row, int column, const Value& value) {
    sheet.object("Cells", row, column).put("Value", value);
  }
  ObjectRef range(int row, int first, int last) {
    return sheet.object("Range", sheet.object("Cells", row, first), sheet.object("Cells", row, last));
  }
  WorkbookFile publish() {
    application.put("Visible", true);
    return WorkbookFile(host.published.back());
  }
  std::set<std::string> folderContent() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  std::string folder;
  FolderHost host;
  ObjectRef application, workbook, sheet;
};

// Whether a step throws this error, in a text that holds `words`.
inline testing::AssertionResult failsWith(int number, const std::string& words,
                                          const std::function<void()>& step) {
  try {
    step();
  } catch (const Error& error) {
    const std::string text(error.description());
    const bool expected = error.number() == number && text.find(words) != text.npos;
    return testing::AssertionResult(expected) << error.number() << ": " << text;
  }
  return testing::AssertionFailure() << "no error";
}

#define EXPECT_ERROR(number, words, step) EXPECT_TRUE(failsWith(number, words, [&] { step; }))

}  // namespace vmgv::test
