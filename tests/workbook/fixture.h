// A folder of the test's own and an application that writes into it.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <random>
#include <string>

#include "adapters/workbook/application.h"
#include "adapters/workbook/paths.h"
#include "support/automation/error.h"
#include "support/automation/value.h"
#include "tests/workbook/workbook_file.h"

namespace vmgv::test {

class WorkbookTest : public testing::Test, protected WorkbookHost {
 protected:
  WorkbookTest() {
    const auto number = std::chrono::steady_clock::now().time_since_epoch().count();
    folder = std::filesystem::temp_directory_path() / workbook::pathOf("Φάκελος " + std::to_string(number));
    std::filesystem::create_directory(folder);
    target = folder / workbook::pathOf("Βιβλίο.xlsx");
  }
  ~WorkbookTest() override {
    application = book = sheet = nullptr;
    std::filesystem::remove_all(folder);
  }
  std::string targetPath() override {
    return fresh ? freshWorkbookPath(workbook::textOf(folder)) : workbook::textOf(target);
  }
  void finished(const std::string& path, std::int64_t rows) override {
    published = path;
    publishedRows = rows;
  }

  // Begins a workbook; `sheet` is its sheet.
  void begin() {
    application = makeWorkbookApplication(*this);
    book = application.object("Workbooks").object("Add");
    sheet = book.object("ActiveSheet");
  }
  void put(int row, int column, const Value& value) {
    sheet.object("Cells", row, column).put("Value", value);
  }
  // Rows whose text hardly packs.
  void fill(int rows) {
    std::minstd_rand random(1);
    std::string text(2000, ' ');
    for (int row = 1; row <= rows; ++row) {
      for (char& c : text) c = static_cast<char>('0' + random() % 75);
      put(row, 1, text);
    }
  }
  ObjectRef range(int row, int first, int last) {
    return sheet.object("Range", sheet.object("Cells", row, first), sheet.object("Cells", row, last));
  }
  void show() { application.put("Visible", true); }
  WorkbookFile publish() {
    show();
    return WorkbookFile(published);
  }
  std::size_t filesInFolder() const {
    using Entries = std::filesystem::directory_iterator;
    return static_cast<std::size_t>(std::distance(Entries(folder), Entries()));
  }

  std::filesystem::path folder, target;
  bool fresh = false;  // each workbook gets a name of its own in place of the target
  std::string published;
  std::int64_t publishedRows = 0;
  ObjectRef application, book, sheet;
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
