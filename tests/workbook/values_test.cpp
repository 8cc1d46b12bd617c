// What cells hold after values of every type were put in.
#include <cmath>

#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using ValuesTest = WorkbookTest;

TEST_F(ValuesTest, EveryType) {
  begin();
  const struct {
    Value value;
    const char *format, *type, *text;
    bool set = false;  // the format, beforehand
  } cases[] = {
      {1234.5678901234567, "General", "", "1234.5678901234567"},
      {5e-324, "General", "", "5e-324"},
      {-1e21, "General", "", "-1e+21"},
      {Currency{-123456}, "General", "", "-12.3456"},
      {*Decimal::fromText("12.50"), "General", "", "12.5"},
      {true, "General", "b", "1"},
      {"\x01_x0041_", "General", "inlineStr", "_x0001__x005F_x0041_"},
      {Date{45000}, "date", "", "45000"},
      {Date{45000.5}, "date and time", "", "45000.5"},
      {Date{0.25}, "time", "", "0.25"},
      {Date{2}, "date", "", "1"},    // 1900-01-01
      {Date{60}, "date", "", "59"},  // 1900-02-28
      {Date{61}, "date", "", "61"},  // 1900-03-01
      {12.5, "@", "inlineStr", "12.5", true},
      {Date{45000}, "@", "inlineStr", "03/15/2023", true},
      {3, "0.0\"<&\"", "", "3", true},
  };
  int row = 0;
  for (const auto& test : cases) {
    const ObjectRef cell = sheet.object("Cells", ++row, 1);
    if (test.set) cell.put("NumberFormat", test.format);
    cell.put("Value", test.value);
  }
  const WorkbookFile file = publish();
  row = 0;
  for (const auto& test : cases) {
    const FileCell& cell = file.cells.at("A" + std::to_string(++row));
    EXPECT_EQ(test.type, cell.type) << row;
    EXPECT_EQ(test.text, cell.text) << row;
    EXPECT_EQ(test.format, cell.format) << row;
  }
}

TEST_F(ValuesTest, BlanksAndLineFeeds) {
  begin();
  int column = 0;
  for (const char* text : {" a", "a\n", "a b", "a\nb"}) put(1, ++column, text);
  auto cells = publish().cells;
  EXPECT_TRUE(cells["A1"].keepsBlanks && cells["B1"].keepsBlanks);
  EXPECT_FALSE(cells["C1"].keepsBlanks || cells["C1"].wraps);
  EXPECT_TRUE(cells["D1"].wraps);
}

TEST_F(ValuesTest, WhatACellCannotHold) {
  begin();
  put(3, 2, "before");
  std::string emoji;  // two UTF-16 units each
  for (int i = 0; i < 16384; ++i) emoji += "\U0001F600";
  const Value refused[] = {std::nan(""), -INFINITY, Date{-1}, Date{1.5}, std::string(32768, 'x'), emoji};
  for (const Value& value : refused) EXPECT_ERROR(1004, "Cell B3: ", put(3, 2, value));
  EXPECT_EQ(Value("before"), sheet.object("Cells", 3, 2).get("Value"));

  std::string greek;  // as long as a cell may be, at two bytes a character
  for (int i = 0; i < 32767; ++i) greek += "ω";
  put(3, 2, greek);
  EXPECT_EQ(greek, publish().cells.at("B3").text);
}

TEST_F(ValuesTest, ReadsWhatIsInTheRow) {
  begin();
  const ObjectRef cell = sheet.object("Cells", 1, 1);
  for (const Value& value : {Value(1.5), Value("text"), Value(true), Value(Date{45000.25})}) {
    cell.put("Value", value);
    EXPECT_EQ(value, cell.get("Value"));
  }
  EXPECT_EQ(Value("m/d/yyyy h:mm"), cell.get("NumberFormat"));
  put(1, 2, cell);  // a range stands for its value
  EXPECT_EQ(Value(Date{45000.25}), sheet.object("Cells", 1, 2).get("Value"));
  for (const Value& nothing : {Value(Null{}), Value(Missing{}), Value(""), Value()}) {
    put(1, 3, 5);
    put(1, 3, nothing);
    EXPECT_TRUE(sheet.object("Cells", 1, 3).get("Value").isEmpty());
  }
  EXPECT_EQ(2u, publish().order.size());  // no value leaves no cell
}

}  // namespace
}  // namespace vmgv::test
