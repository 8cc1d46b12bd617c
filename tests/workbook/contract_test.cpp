// The application's objects as an export meets them.
#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using ContractTest = WorkbookTest;

TEST_F(ContractTest, NamesAndCollections) {
  begin();
  EXPECT_EQ(Value("16.0"), application.get("Version"));
  EXPECT_EQ("Application", typeName(Value(application)));
  EXPECT_EQ(Value(1), application.object("Workbooks").get("Count"));
  EXPECT_EQ(Value("Book1"), workbook.get("Name"));
  EXPECT_EQ(sheet, workbook.object("Sheets", "sheet1"));
  EXPECT_EQ(sheet, workbook.object("Worksheets", 1));
  EXPECT_EQ(sheet, application.object("ActiveSheet"));
  EXPECT_EQ(sheet, application.object("ActiveWorkbook").object("ActiveSheet"));
  EXPECT_EQ(workbook, application.object("Workbooks", 1));
  EXPECT_EQ(Value(0), workbook.object("PivotCaches").get("Count"));
  EXPECT_ERROR(9, "Data", workbook.get("Sheets", "Data"));
  EXPECT_ERROR(9, "item 2", workbook.get("Sheets", 2));
  Value item;
  EXPECT_FALSE((*workbook.object("PivotCaches")).enumerate()->next(item));
  const auto sheets = (*workbook.object("Sheets")).enumerate();
  ASSERT_TRUE(sheets->next(item));
  EXPECT_EQ(Value(sheet), item);
  EXPECT_FALSE(sheets->next(item));
}

TEST_F(ContractTest, SheetNames) {
  begin();
  const std::string refused[] = {"", "a/b", "'a", "a'", "a[1]", std::string(32, 'n')};
  for (const std::string& name : refused) EXPECT_ERROR(1004, "\"" + name + "\"", sheet.put("Name", name));
  sheet.put("Name", "Πωλήσεις <&\"> όλων των πελατών");
  EXPECT_EQ("Πωλήσεις <&\"> όλων των πελατών", publish().sheetName);
}

TEST_F(ContractTest, WhatIsNotThereSaysSo) {
  begin();
  EXPECT_ERROR(438, "Worksheet has no member Shapes", sheet.get("Shapes"));
  EXPECT_ERROR(438, "Range has no member Interior", sheet.object("Cells", 1, 1).get("Interior"));
  EXPECT_ERROR(1004, "/data/template.xltx",
               application.object("Workbooks").call("Open", "/data/template.xltx"));
  EXPECT_ERROR(1004, "Book1", sheet.call("PivotTableWizard"));
  EXPECT_ERROR(1004, "Range takes two cells", sheet.get("Range", "A1:B2"));
  const ObjectRef other = application.object("Workbooks").object("Add").object("ActiveSheet");
  EXPECT_ERROR(1004, "Range takes two cells", sheet.get("Range", other.get("Cells", 1, 1)));
}

TEST_F(ContractTest, QuitClosesEverything) {
  begin();
  const ObjectRef cell = sheet.object("Cells", 1, 1);
  application.call("Quit");
  EXPECT_EQ("Nothing", typeName(application.get("ActiveSheet")));
  EXPECT_EQ("Nothing", typeName(application.get("ActiveWorkbook")));
  EXPECT_ERROR(1004, "Book1 is closed", cell.put("Value", 1));
  EXPECT_ERROR(1004, "has quit", application.object("Workbooks").call("Add"));
  EXPECT_ERROR(1004, "has quit", application.put("Visible", true));
  application.call("Quit");
}

TEST_F(ContractTest, AClosedWorkbookIsNoLongerActive) {
  begin();
  const ObjectRef second = application.object("Workbooks").object("Add");
  EXPECT_ERROR(1004, "Book2", second.call("Close", true));  // would have to save
  second.call("Close", false);
  EXPECT_EQ(workbook, application.object("ActiveWorkbook"));
  workbook.call("Close");
  EXPECT_EQ("Nothing", typeName(application.get("ActiveSheet")));
  EXPECT_EQ(Value(0), application.object("Workbooks").get("Count"));
  EXPECT_TRUE(folderContent().empty());
}

TEST_F(ContractTest, AFinishedWorkbookTakesNoChanges) {
  begin();
  put(1, 1, "a");
  publish();
  EXPECT_EQ(Value("out.xlsx"), workbook.get("Name"));
  EXPECT_EQ(Value(true), application.get("Visible"));
  EXPECT_ERROR(1004, "out.xlsx is complete", put(2, 1, "b"));
  EXPECT_ERROR(1004, "out.xlsx is complete", sheet.put("Name", "late"));
  application.call("Quit");
  EXPECT_EQ(std::set<std::string>{"out.xlsx"}, folderContent());
}

// The sheet that a caller kept outlives the objects that it came from.
TEST_F(ContractTest, LifeTimes) {
  begin();
  application = workbook = nullptr;
  EXPECT_ERROR(1004, "Book1 is closed", put(1, 1, "a"));
  EXPECT_TRUE(folderContent().empty());
}

}  // namespace
}  // namespace vmgv::test
