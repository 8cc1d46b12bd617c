// The application's objects as an export meets them.
#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using ContractTest = WorkbookTest;

TEST_F(ContractTest, NamesAndCollections) {
  begin();
  EXPECT_EQ(Value("Book1"), book.get("Name"));
  EXPECT_EQ(sheet, book.object("Sheets", "sheet1"));
  EXPECT_EQ(sheet, book.object("Worksheets", 1));
  EXPECT_EQ(sheet, application.object("ActiveWorkbook").object("ActiveSheet"));
  for (const std::string name : {"", "a/b", "'a", "a'", "a[1]", "a name of more than 31 characters"}) {
    EXPECT_ERROR(1004, "\"" + name + "\"", sheet.put("Name", name));
  }
  sheet.put("Name", "Πωλήσεις <&\"> όλων των πελατών");
  EXPECT_EQ("Πωλήσεις <&\"> όλων των πελατών", publish().sheetName);
}

TEST_F(ContractTest, WhatIsNotThereSaysSo) {
  begin();
  EXPECT_ERROR(9, "Data", book.get("Sheets", "Data"));
  EXPECT_ERROR(438, "Range has no member Interior", sheet.object("Cells", 1, 1).get("Interior"));
  EXPECT_ERROR(75, "/data/t.xltx", application.object("Workbooks").call("Open", "/data/t.xltx"));
  EXPECT_ERROR(1004, "16384", sheet.get("Cells", 1, 16385));
  EXPECT_ERROR(1004, "Range takes two cells", sheet.get("Range", "A1:B2"));
}

TEST_F(ContractTest, QuitClosesEverything) {
  begin();
  const ObjectRef second = application.object("Workbooks").object("Add");
  EXPECT_ERROR(1004, "Book2", second.call("Close", true));  // would have to save
  second.call("Close", false);
  EXPECT_EQ(book, application.object("ActiveWorkbook"));
  show();
  EXPECT_ERROR(1004, "Βιβλίο.xlsx is complete", put(2, 1, "b"));
  application.call("Quit");
  EXPECT_EQ(1u, filesInFolder());
  EXPECT_EQ("Nothing", typeName(application.get("ActiveSheet")));
  EXPECT_ERROR(1004, "Βιβλίο.xlsx is closed", put(1, 1, 1));
  EXPECT_ERROR(1004, "has quit", application.object("Workbooks").call("Add"));
}

}  // namespace
}  // namespace vmgv::test
