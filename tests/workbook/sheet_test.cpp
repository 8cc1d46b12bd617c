// Rows, merges, widths and limits of the worksheet.
#include <malloc.h>

#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using SheetTest = WorkbookTest;

TEST_F(SheetTest, CellsOfARowInAnyOrder) {
  begin();
  put(2, 28, "AB");
  put(2, 3, "C");
  put(2, 16384, "last");
  put(2, 1, "A");
  put(2, 3, "C again");
  put(7, 2, "B");
  const WorkbookFile file = publish();
  EXPECT_EQ((std::vector<std::string>{"A2", "C2", "AB2", "XFD2", "B7"}), file.order);
  EXPECT_EQ("C again", file.cells.at("C2").text);
  EXPECT_EQ("A1:XFD7", file.dimension);
  EXPECT_EQ(2, host.finishedRows);
}

TEST_F(SheetTest, RowsAboveAreClosed) {
  begin();
  put(2, 1, "a");
  put(5, 1, "b");
  EXPECT_ERROR(1004, "B3", put(3, 2, "late"));
  EXPECT_ERROR(1004, "A2", sheet.object("Cells", 2, 1).put("NumberFormat", "@"));
  EXPECT_ERROR(1004, "A2", sheet.object("Cells", 2, 1).get("Value"));
  EXPECT_ERROR(1004, "A1:XFD1048576", sheet.object("Cells").call("ClearContents"));
  EXPECT_TRUE(sheet.object("Cells", 9, 1).get("Value").isEmpty());  // asking opens no row
  put(5, 2, "c");
  EXPECT_EQ((std::vector<std::string>{"A2", "A5", "B5"}), publish().order);
}

TEST_F(SheetTest, ClearContentsKeepsFormats) {
  begin();
  range(1, 1, 2).put("NumberFormat", "@");
  put(1, 1, "x");
  put(1, 3, "y");
  sheet.object("Cells").call("ClearContents");
  put(1, 2, 7);
  const WorkbookFile file = publish();
  EXPECT_EQ((std::vector<std::string>{"A1", "B1"}), file.order);
  EXPECT_EQ("", file.cells.at("A1").text);
  EXPECT_EQ("@", file.cells.at("B1").format);
}

TEST_F(SheetTest, MergedPreviewRow) {
  begin();
  const std::string note = "A note of more than one line\nand the second";
  put(1, 1, "twelve chars");
  put(1, 2, "ten chars.");
  put(2, 1, note);
  range(2, 1, 2).put("WrapText", true);
  range(2, 1, 2).call("Merge");
  put(3, 1, "below");
  sheet.object("Cells").object("EntireColumn").call("AutoFit");
  const WorkbookFile file = publish();
  EXPECT_EQ(std::vector<std::string>{"A2:B2"}, file.merges);
  EXPECT_EQ(note, file.cells.at("A2").text);
  EXPECT_TRUE(file.cells.at("A2").wraps && file.cells.at("B2").wraps);
  EXPECT_EQ((std::map<int, double>{{2, 45}}), file.heights);  // 28 characters over 22, then a short line
  EXPECT_NEAR(12, file.widths.at(1), 2);                      // the note does not count
}

TEST_F(SheetTest, MergeKeepsTheFirstContent) {
  begin();
  put(1, 2, "b");
  put(1, 3, "c");
  range(1, 1, 3).call("Merge");
  put(2, 1, 5);
  range(2, 2, 3).call("Merge");
  range(2, 3, 4).call("Merge");  // meets the one before
  range(2, 6, 6).call("Merge");  // one cell is no merge
  const WorkbookFile file = publish();
  EXPECT_EQ((std::vector<std::string>{"A1:C1", "B2:D2"}), file.merges);
  EXPECT_EQ((std::vector<std::string>{"A1", "A2"}), file.order);
  EXPECT_EQ("b", file.cells.at("A1").text);
}

TEST_F(SheetTest, MergesOfManyRowsFollowTheRows) {
  begin();
  for (int row = 1; row <= 3000; ++row) {
    put(row, 1, "x");
    range(row, 1, 4).call("Merge");
  }
  const WorkbookFile file = publish();
  ASSERT_EQ(3000u, file.merges.size());
  EXPECT_EQ("A1:D1", file.merges.front());
  EXPECT_EQ("A3000:D3000", file.merges.back());
  EXPECT_EQ("A1:D3000", file.dimension);
}

TEST_F(SheetTest, AutoFit) {
  begin();
  put(1, 1, "Id");
  put(1, 2, "Ονοματεπώνυμο");
  put(2, 2, "δύο\nγραμμές");
  put(2, 3, std::string(300, 'n'));
  put(2, 4, -12345.75);
  put(3, 6, "not fitted");
  sheet.object("Range", sheet.object("Cells", 1, 1), sheet.object("Cells", 1, 5))
      .object("EntireColumn")
      .call("AutoFit");
  const WorkbookFile file = publish();
  ASSERT_EQ(4u, file.widths.size());
  EXPECT_NEAR(2, file.widths.at(1), 2);
  EXPECT_NEAR(13, file.widths.at(2), 2);
  EXPECT_NEAR(80, file.widths.at(3), 2);
  EXPECT_NEAR(9, file.widths.at(4), 2);
}

TEST_F(SheetTest, Limits) {
  begin();
  EXPECT_ERROR(1004, "1048576", sheet.get("Cells", 1048577, 1));
  EXPECT_ERROR(1004, "16384", sheet.get("Cells", 1, 16385));
  EXPECT_ERROR(1004, "Row 0", sheet.get("Cells", 0, 1));
  EXPECT_ERROR(1004, "Column -3", sheet.get("Cells", 1, -3));
  put(1048576, 16384, "the last cell");
  EXPECT_EQ("the last cell", publish().cells.at("XFD1048576").text);
}

TEST_F(SheetTest, RangesOfSeveralRows) {
  begin();
  const ObjectRef block = sheet.object("Range", sheet.object("Cells", 4, 3), sheet.object("Cells", 2, 1));
  EXPECT_ERROR(1004, "A2:C4", block.call("Merge"));
  EXPECT_ERROR(1004, "A2:C4", block.put("Value", 1));
  EXPECT_ERROR(1004, "A2:C4", block.get("Value"));
  EXPECT_ERROR(1004, "EntireColumn", block.call("AutoFit"));
  block.object("Item", 1, 2).put("Value", "B2");
  block.object("Item", 6).put("Value", "C3");
  EXPECT_EQ((std::vector<std::string>{"B2", "C3"}), publish().order);
}

// A range that the caller keeps must not turn into the next one.
TEST_F(SheetTest, HeldRangesStay) {
  begin();
  std::vector<ObjectRef> held;
  for (int column = 1; column <= 9; ++column) held.push_back(sheet.object("Cells", 1, column));
  for (int column = 1; column <= 9; ++column) held[static_cast<std::size_t>(column) - 1].put("Value", column);
  const WorkbookFile file = publish();
  EXPECT_EQ("1", file.cells.at("A1").text);
  EXPECT_EQ("9", file.cells.at("I1").text);
}

TEST_F(SheetTest, MemoryDoesNotGrowWithTheRows) {
  begin();
  const auto fill = [this](int first, int last) {
    for (int row = first; row <= last; ++row) {
      for (int column = 1; column <= 6; ++column) put(row, column, "row " + std::to_string(row * column));
      range(row, 7, 9).call("Merge");
    }
  };
  fill(1, 20000);
  const std::size_t before = mallinfo2().uordblks;
  fill(20001, 100000);
  // The rows between took 25 MB of XML; the buffers may still have been growing to their size.
  EXPECT_LT(mallinfo2().uordblks, before + 256 * 1024);
}

}  // namespace
}  // namespace vmgv::test
