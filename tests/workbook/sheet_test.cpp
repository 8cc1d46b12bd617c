// Rows, merges, widths and limits of the worksheet.
#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using SheetTest = WorkbookTest;

TEST_F(SheetTest, RowsTakeCellsInAnyOrderUntilTheNext) {
  begin();
  for (const int column : {28, 3, 16384, 1, 3}) put(2, column, "x");
  put(7, 2, "B");
  EXPECT_ERROR(1004, "B3", put(3, 2, "late"));
  EXPECT_ERROR(1004, "A2", sheet.object("Cells", 2, 1).get("Value"));
  EXPECT_ERROR(1004, "A1:XFD1048576", sheet.object("Cells").call("ClearContents"));
  EXPECT_TRUE(sheet.object("Cells", 9, 1).get("Value").isEmpty());  // asking opens no row
  put(7, 1, "A");
  EXPECT_EQ((std::vector<std::string>{"A2", "C2", "AB2", "XFD2", "A7", "B7"}), publish().order);
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
  EXPECT_TRUE(file.cells.at("A2").wraps && file.cells.at("B2").wraps);
  EXPECT_EQ((std::map<int, double>{{2, 45}}), file.heights);  // 28 characters over 22, then a short line
  EXPECT_NEAR(12, file.widths.at(1), 2);                      // the note does not count
}

TEST_F(SheetTest, MergeKeepsTheFirstContent) {
  begin();
  put(1, 2, "b");
  put(1, 3, "c");
  range(1, 1, 3).call("Merge");
  range(2, 2, 3).call("Merge");
  range(2, 3, 4).call("Merge");  // meets the one before
  range(2, 6, 6).call("Merge");  // one cell is no merge
  for (int row = 3; row <= 3000; ++row) range(row, 1, 4).call("Merge");
  const WorkbookFile file = publish();
  ASSERT_EQ(3000u, file.merges.size());
  EXPECT_EQ("B2:D2", file.merges[1]);
  EXPECT_EQ("A3000:D3000", file.merges[2999]);
  EXPECT_EQ(std::vector<std::string>{"A1"}, file.order);
  EXPECT_EQ("b", file.cells.at("A1").text);
}

TEST_F(SheetTest, AutoFit) {
  begin();
  const std::pair<std::string, double> columns[] = {{"δύο\nΟνοματεπώνυμο", 13},  {"中文中文中", 10},
                                                    {"Ύδρα & <Αθήνα>\n", 14},    {"_x0041_\x01 wide", 13},
                                                    {std::string(300, 'n'), 80}, {"", 0}};
  int column = 0;
  for (const auto& [text, width] : columns) put(1, ++column, text);
  put(1, 7, "not fitted");
  range(1, 1, 6).object("EntireColumn").call("AutoFit");
  const WorkbookFile file = publish();
  ASSERT_EQ(5u, file.widths.size());
  for (const auto& [number, width] : file.widths) EXPECT_NEAR(columns[number - 1].second, width, 2) << number;
}

TEST_F(SheetTest, RangesOfSeveralCells) {
  begin();
  const ObjectRef block = sheet.object("Range", sheet.object("Cells", 4, 3), sheet.object("Cells", 2, 1));
  EXPECT_ERROR(1004, "A2:C4", block.call("Merge"));
  const ObjectRef first = block.object("Item", 1, 2), last = block.object("Item", 3);
  last.put("NumberFormat", "@");
  first.put("Value", "B2");  // both are held, so neither is the other
  sheet.object("Cells").call("ClearContents");
  last.put("Value", 7);
  const WorkbookFile file = publish();
  EXPECT_EQ((std::vector<std::string>{"C2"}), file.order);
  EXPECT_EQ("@", file.cells.at("C2").format);
}

}  // namespace
}  // namespace vmgv::test
