// CSV files: types, values and what is mended.
#include "fixture.h"

namespace vmgv {
namespace {

Problems load(GridEngine& engine, const std::string& content) {
  const Folder folder;
  return engine.load(*openRowSource(folder.write("t.csv", content)));
}

TEST(Csv, ReadsEveryWayToWriteTheSameTable) {
  const Rows expected{"Red, bolt|say \"hi\"", "Αθήνα|two\nlines", "~|last"};
  for (const std::string content :
       {"name,note\n\"Red, bolt\",\"say \"\"hi\"\"\"\nΑθήνα,\"two\nlines\"\n,last\n",
        "\xEF\xBB\xBFname,note\n\"Red, bolt\",\"say \"\"hi\"\"\"\nΑθήνα,\"two\nlines\"\n\n,last",
        "name,note\r\n\"Red, bolt\",\"say \"\"hi\"\"\"\r\nΑθήνα,\"two\nlines\"\r\n\"\",last\r\n",
        "\"name\",\"note\"\r\"Red, bolt\",\"say \"\"hi\"\"\"\r\"Αθήνα\",\"two\nlines\"\r,last\r"}) {
    GridEngine engine;
    EXPECT_TRUE(load(engine, content).empty()) << content;
    EXPECT_EQ(rowsOf(engine), expected) << content;
    EXPECT_EQ(engine.column(1).caption, "name");
  }
}

TEST(Csv, TypesAColumnOnlyWhereNothingIsLost) {
  const struct {
    ColumnType type;
    std::vector<const char*> columns;  // one value a line
  } cases[] = {
      {ColumnType::Unknown, {"\n\n"}},
      {ColumnType::Whole,
       {"1\n-2\n0\n", "1\n\n-9223372036854775808\n9223372036854775807\n",
        "1,5\n"}},  // the second field is one too many
      {ColumnType::Number, {"1\n2.50\n-0.125\n", "2.5\n1\n", "31.95376472\n-89.23450472\n"}},
      {ColumnType::Date, {"2020-02-29\n1999-12-31 23:59:59\n2001-01-01T10:30\n"}},
      {ColumnType::Boolean, {"true\nFALSE\n"}},
      {ColumnType::Text,
       {"1\n12345678901234567890\n", "10000000000000000000\n", "007\n", "1\n007\n", "1\n+5\n", "0E8\n",
        "1.5\n0E8\n", "0.1234567890123456789\n", "9007199254740993\n0.5\n", ".5\n", "5.\n", "nan\n",
        "2020-02-30\n", "2020-02-29\n29/02/2020\n", "2020-02-29 24:00\n", "2020-02-29 10:00:00.5\n",
        "true\n1\n"}},
  };
  for (const auto& c : cases) {
    for (const std::string values : c.columns) {
      GridEngine engine;
      load(engine, "v\n" + values);
      EXPECT_EQ(engine.column(1).type, c.type) << values;
    }
  }
}

TEST(Csv, MendsWhatItCanAndTellsWhere) {
  const std::string few = ": 1 field instead of 2; the missing ones are empty";
  const std::string many = ": 3 fields instead of 2; the ones too many were dropped";
  const std::string replaced = ": NUL or bytes that are no UTF-8 were replaced by U+FFFD";
  const struct {
    std::string content;
    Rows rows;
    Rows problems;  // what each message ends with, behind the file's name
  } cases[] = {
      {"a,b\n1\n1,2,3\n4,5\n", {"1|~", "1|2", "4|5"}, {":2" + few, ":3" + many}},
      {"a,b\n\"x\ny\",1\nz\n", {"x\ny|1", "z|~"}, {":4" + few}},  // lines inside quotes count
      {"a,b\n\"x,1\ny,2\n",
       {"\"x|1", "y|2"},
       {":2: a quote is opened here and never closed; the quotes of this row are read as text"}},
      {"a\n\"x\"\"y\"z\n", {"x\"yz"}, {":2: text behind a closing quote was joined to its field"}},
      {std::string("a,b\nx\0y,1\n", 10), {"x\uFFFDy|1"}, {":2" + replaced}},
      {"a\n\xCE\n\xED\xA0\x80\n", {"\uFFFD", "\uFFFD\uFFFD\uFFFD"}, {":2" + replaced, ":3" + replaced}},
      {"a,,a,Column 2\n1,2,3,4\n",
       {"1|2|3|4"},
       {":1: column 2 has no name; it is called \"Column 2 2\"",
        ":1: column 3 has the name of another; it is called \"a 2\""}},
      // What turns out to be text stays as it was written.
      {"a,b,c\n1.50,2020-01-02T03:04,5\nx,y,7.5\n", {"1.50|2020-01-02T03:04|5", "x|y|7.5"}, {}},
      {"w,d\n2147483648,1999-12-31 18:00\n", {"2147483648|12/31/1999 18:00:00"}, {}},
      {"a,b", {}, {}},
  };
  for (const auto& c : cases) {
    GridEngine engine;
    const Problems problems = load(engine, c.content);
    Rows endings;
    for (const std::string& message : problems.messages()) {
      endings.push_back(message.substr(message.find(".csv:") + 4));
    }
    EXPECT_EQ(rowsOf(engine), c.rows) << c.content;
    EXPECT_EQ(endings, c.problems) << c.content;
  }
}

TEST(Csv, TakesLargeFieldsAndBlockBordersAndManyProblems) {
  const std::string large(10 << 20, 'x');
  std::string content = "a,b\n\"" + large + "\",1\n";
  const int good = 200000, ragged = 150;
  for (int i = 0; i < good; ++i)
    content += "\"q\"\"" + std::to_string(i) + "\"," + std::to_string(i) + "\r\n";
  for (int i = 0; i < ragged; ++i) content += "short\n";
  GridEngine engine;
  const Problems problems = load(engine, content);
  EXPECT_EQ(problems.messages().size(), Problems::kShown);
  EXPECT_EQ(problems.more(), ragged - Problems::kShown);
  ASSERT_EQ(engine.rowCount(), 1 + good + ragged);
  EXPECT_EQ(engine.value(1, 1).text(), large);
  for (int i = 0; i < good; ++i) {
    ASSERT_EQ(engine.value(i + 2, 1).text(), "q\"" + std::to_string(i));
    ASSERT_EQ(engine.value(i + 2, 2), Value(i));
  }
}

}  // namespace
}  // namespace vmgv
