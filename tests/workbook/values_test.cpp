// What cells hold after values of every type were put in.
#include <array>
#include <cstdio>
#include <limits>

#include "support/automation/convert.h"
#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using ValuesTest = WorkbookTest;

TEST_F(ValuesTest, EveryType) {
  begin();
  const struct {
    Value value;
    const char *type, *text, *format;
  } cases[] = {
      {std::int16_t{-7}, "", "-7", "General"},
      {2147483647, "", "2147483647", "General"},
      {0.1f, "", "0.1", "General"},
      {1234.5678901234567, "", "1234.5678901234567", "General"},
      {100000.0, "", "100000", "General"},
      {Currency{-123456}, "", "-12.3456", "General"},
      {*Decimal::fromText("12.50"), "", "12.5", "General"},
      {true, "b", "1", "General"},
      {false, "b", "0", "General"},
      {"007", "inlineStr", "007", "General"},
      {"=1+1", "inlineStr", "=1+1", "General"},
      {"03/04/2025", "inlineStr", "03/04/2025", "General"},
      {"Αθήνα & <Ύδρα>", "inlineStr", "Αθήνα & <Ύδρα>", "General"},
      {"\x01_x0041_", "inlineStr", "_x0001__x005F_x0041_", "General"},
      {Date{45000}, "", "45000", "date"},
      {Date{45000.5}, "", "45000.5", "date and time"},
      {Date{0.25}, "", "0.25", "time"},
      {Date{2}, "", "1", "date"},    // 1900-01-01
      {Date{60}, "", "59", "date"},  // 1900-02-28
      {Date{61}, "", "61", "date"},  // 1900-03-01
  };
  int row = 0;
  for (const auto& test : cases) put(++row, 1, test.value);
  const WorkbookFile file = publish();
  row = 0;
  for (const auto& test : cases) {
    const FileCell& cell = file.cells.at("A" + std::to_string(++row));
    EXPECT_EQ(test.type, cell.type) << row;
    EXPECT_EQ(test.text, cell.text) << row;
    EXPECT_EQ(test.format, cell.format) << row;
  }
}

TEST_F(ValuesTest, NoValueLeavesNoCell) {
  begin();
  const Value nothing[] = {Value(), Null{}, Missing{}, ""};
  int column = 0;
  for (const Value& value : nothing) {
    put(1, ++column, 5);
    put(1, column, value);
    EXPECT_TRUE(sheet.object("Cells", 1, column).get("Value").isEmpty());
  }
  put(1, 5, "last");
  EXPECT_EQ(publish().order, std::vector<std::string>{"E1"});
}

TEST_F(ValuesTest, TextFormatKeepsText) {
  begin();
  const Value values[] = {"00123", 12.5, true, Date{45000}, "a"};
  int column = 0;
  for (const Value& value : values) {
    sheet.object("Cells", 1, ++column).put("NumberFormat", "@");
    put(1, column, value);
  }
  sheet.object("Cells", 1, 6).put("NumberFormat", "0.0\"<&\"");
  put(1, 6, 3);
  const WorkbookFile file = publish();
  const char* texts[] = {"00123", "12.5", "True", "03/15/2023", "a"};
  for (column = 0; column < 5; ++column) {
    const FileCell& cell = file.cells.at(std::string(1, static_cast<char>('A' + column)) + "1");
    EXPECT_EQ("inlineStr", cell.type);
    EXPECT_EQ("@", cell.format);
    EXPECT_EQ(texts[column], cell.text);
  }
  EXPECT_EQ("0.0\"<&\"", file.cells.at("F1").format);
}

TEST_F(ValuesTest, BlanksAndLineFeeds) {
  begin();
  put(1, 1, " a");
  put(1, 2, "a\n");
  put(1, 3, "a b");
  put(1, 4, "a\nb");
  const WorkbookFile file = publish();
  EXPECT_TRUE(file.cells.at("A1").keepsBlanks);
  EXPECT_TRUE(file.cells.at("B1").keepsBlanks);
  EXPECT_FALSE(file.cells.at("C1").keepsBlanks);
  EXPECT_FALSE(file.cells.at("C1").wraps);
  EXPECT_TRUE(file.cells.at("D1").wraps);
  EXPECT_EQ("a\nb", file.cells.at("D1").text);
}

TEST_F(ValuesTest, WhatACellCannotHold) {
  begin();
  put(3, 2, "before");
  std::string emoji;  // two UTF-16 units each
  for (int i = 0; i < 16384; ++i) emoji += "\U0001F600";
  const Value refused[] = {std::numeric_limits<double>::quiet_NaN(),
                           -std::numeric_limits<double>::infinity(),
                           std::numeric_limits<float>::infinity(),
                           Date{-1},
                           Date{1.5},
                           std::string(32768, 'x'),
                           emoji};
  for (const Value& value : refused) EXPECT_ERROR(1004, "Cell B3: ", put(3, 2, value));
  EXPECT_EQ(Value("before"), sheet.object("Cells", 3, 2).get("Value"));

  std::string greek;  // as long as a cell may be, at two bytes a character
  for (int i = 0; i < 32767; ++i) greek += "ω";
  put(3, 2, greek);
  EXPECT_EQ(greek, publish().cells.at("B3").text);
}

TEST_F(ValuesTest, ReadsWhatIsInTheRow) {
  begin();
  const Value values[] = {1.5, "text", true, Date{45000.25}};
  int column = 0;
  for (const Value& value : values) {
    put(1, ++column, value);
    EXPECT_EQ(value, sheet.object("Cells", 1, column).get("Value"));
    EXPECT_EQ(value, plain(Value(sheet.object("Cells", 1, column))));
  }
  EXPECT_EQ(Value("m/d/yyyy h:mm"), sheet.object("Cells", 1, 4).get("NumberFormat"));
  EXPECT_EQ(Value("General"), sheet.object("Cells", 1, 9).get("NumberFormat"));
  put(2, 1, sheet.object("Cells", 2, 1));  // a range stands for its value
  EXPECT_TRUE(sheet.object("Cells", 2, 1).get("Value").isEmpty());
}

TEST_F(ValuesTest, AnotherProgramReadsIt) {
  begin();
  put(1, 1, "Place");
  put(2, 1, "Ιωάννινα");
  put(2, 2, -49999.99);
  put(2, 3, false);
  put(2, 4, Date{45000});
  sheet.object("Cells", 2, 5).put("NumberFormat", "@");
  put(2, 5, "0012");
  put(3, 1, "note\nmore");
  range(3, 1, 5).call("Merge");
  publish();
  const std::string command =
      std::string(getenv("PYTHON")) + " '" + getenv("READ_CELLS") + "' '" + host.finishedPath + "' 2>&1";
  std::string output;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  for (std::array<char, 4096> block;
       const std::size_t count = fread(block.data(), 1, block.size(), pipe.get());) {
    output.append(block.data(), count);
  }
  EXPECT_EQ(
      "A1|str|General|'Place'\n"
      "A2|str|General|'\\u0399\\u03c9\\u03ac\\u03bd\\u03bd\\u03b9\\u03bd\\u03b1'\n"
      "B2|float|General|-49999.99\n"
      "C2|bool|General|False\n"
      "D2|datetime|mm-dd-yy|datetime.datetime(2023, 3, 15, 0, 0)\n"
      "E2|str|@|'0012'\n"
      "A3|str|General|'note\\nmore'\n"
      "merged|A3:E3\n",
      output);
}

}  // namespace
}  // namespace vmgv::test
