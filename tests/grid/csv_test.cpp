// CSV files, good ones and bad ones.
#include "fixture.h"

namespace vmgv {
namespace {

using Rows = std::vector<std::string>;

struct Loaded {
  GridEngine engine;
  Problems problems;
};

std::unique_ptr<Loaded> load(const std::string& content) {
  const Folder folder;
  auto loaded = std::make_unique<Loaded>();
  const auto source = openRowSource(folder.write("t.csv", content));
  loaded->problems = loaded->engine.load(*source);
  return loaded;
}

TEST(Csv, ReadsEveryWayToWriteTheSameTable) {
  const Rows expected{"Red, bolt|say \"hi\"", "Αθήνα|two\nlines", "~|last"};
  for (const std::string content :
       {"name,note\n\"Red, bolt\",\"say \"\"hi\"\"\"\nΑθήνα,\"two\nlines\"\n,last\n",
        "\xEF\xBB\xBFname,note\n\"Red, bolt\",\"say \"\"hi\"\"\"\nΑθήνα,\"two\nlines\"\n\n,last",
        "name,note\r\n\"Red, bolt\",\"say \"\"hi\"\"\"\r\nΑθήνα,\"two\nlines\"\r\n\"\",last\r\n",
        "\"name\",\"note\"\r\"Red, bolt\",\"say \"\"hi\"\"\"\r\"Αθήνα\",\"two\nlines\"\r,last\r"}) {
    const auto loaded = load(content);
    EXPECT_EQ(rowsOf(loaded->engine), expected) << content;
    EXPECT_EQ(loaded->engine.column(1).caption, "name");
    EXPECT_TRUE(loaded->problems.empty()) << loaded->problems.messages()[0];
  }
}

TEST(Csv, TypesAColumnOnlyWhereNothingIsLost) {
  const struct {
    const char* values;  // one a line
    ColumnType type;
  } cases[] = {
      {"1\n-2\n0\n", ColumnType::Whole},
      {"1\n\n-9223372036854775808\n9223372036854775807\n", ColumnType::Whole},
      {"1\n12345678901234567890\n", ColumnType::Text},
      {"10000000000000000000\n", ColumnType::Text},
      {"007\n", ColumnType::Text},
      {"1\n007\n", ColumnType::Text},
      {"1\n+5\n", ColumnType::Text},
      {"0E8\n", ColumnType::Text},
      {"1.5\n0E8\n", ColumnType::Text},
      {"1\n2.50\n-0.125\n", ColumnType::Number},
      {"2.5\n1\n", ColumnType::Number},
      {"0.1234567890123456789\n", ColumnType::Text},
      {"31.95376472\n-89.23450472\n", ColumnType::Number},
      {"9007199254740993\n0.5\n", ColumnType::Text},
      {".5\n", ColumnType::Text},
      {"5.\n", ColumnType::Text},
      {"1,5\n", ColumnType::Whole},  // the second field is one too many
      {"nan\n", ColumnType::Text},
      {"2020-02-29\n1999-12-31 23:59:59\n2001-01-01T10:30\n", ColumnType::Date},
      {"2020-02-30\n", ColumnType::Text},
      {"2020-02-29\n29/02/2020\n", ColumnType::Text},
      {"2020-02-29 24:00\n", ColumnType::Text},
      {"2020-02-29 10:00:00.5\n", ColumnType::Text},
      {"true\nFALSE\n", ColumnType::Boolean},
      {"true\n1\n", ColumnType::Text},
      {"\n\n", ColumnType::Unknown},
  };
  for (const auto& c : cases)
    EXPECT_EQ(load(std::string("v\n") + c.values)->engine.column(1).type, c.type) << c.values;
}

TEST(Csv, KeepsWhatWasWrittenWhereAColumnTurnsOutToBeText) {
  const auto loaded = load("a,b,c\n1.50,2020-01-02T03:04,5\n,,6\nx,y,7.5\n");
  EXPECT_EQ(rowsOf(loaded->engine), (Rows{"1.50|2020-01-02T03:04|5", "~|~|6", "x|y|7.5"}));
  EXPECT_EQ(loaded->engine.column(3).type, ColumnType::Number);
}

TEST(Csv, DeliversValuesOfTheColumnsType) {
  const auto loaded = load("w,n,d,b\n2147483647,0.1,1999-12-31 18:00,true\n2147483648,-2,1899-12-30,false\n");
  const GridEngine& engine = loaded->engine;
  EXPECT_EQ(engine.value(1, 1), Value(std::int32_t{2147483647}));
  EXPECT_EQ(engine.value(2, 1), Value(Decimal::fromInteger(2147483648)));
  EXPECT_EQ(engine.value(1, 2), Value(0.1));
  EXPECT_EQ(engine.value(1, 3), Value(Date{36525.75}));
  EXPECT_EQ(engine.value(2, 3), Value(Date{0}));
  EXPECT_EQ(engine.value(1, 4), Value(true));
}

TEST(Csv, MendsWhatItCanAndTellsWhere) {
  const struct {
    const char* name;
    std::string content;
    Rows rows;
    Rows problems;  // what each message ends with, behind the file's name
  } cases[] = {
      {"ragged",
       "a,b\n1\n1,2,3\n4,5\n",
       {"1|~", "1|2", "4|5"},
       {":2: 1 field instead of 2; the missing ones are empty",
        ":3: 3 fields instead of 2; the ones too many were dropped"}},
      {"lines counted inside quotes",
       "a,b\n\"x\ny\",1\nz\n",
       {"x\ny|1", "z|~"},
       {":4: 1 field instead of 2; the missing ones are empty"}},
      {"open quote",
       "a,b\n\"x,1\ny,2\n",
       {"\"x|1", "y|2"},
       {":2: a quote is opened here and never closed; the quotes of this row are read as text"}},
      {"text behind quote",
       "a\n\"x\"\"y\"z\n",
       {"x\"yz"},
       {":2: text behind a closing quote was joined to its field"}},
      {"NUL",
       std::string("a,b\nx\0y,1\n", 10),
       {"x\uFFFDy|1"},
       {":2: NUL or bytes that are no UTF-8 were replaced by U+FFFD"}},
      {"bad UTF-8",
       "a\n\xCE\nx\xFFy\n\xED\xA0\x80\n",
       {"\uFFFD", "x\uFFFDy", "\uFFFD\uFFFD\uFFFD"},
       {":2: NUL or bytes that are no UTF-8 were replaced by U+FFFD",
        ":3: NUL or bytes that are no UTF-8 were replaced by U+FFFD",
        ":4: NUL or bytes that are no UTF-8 were replaced by U+FFFD"}},
      {"names",
       "a,,a,Column 2\n1,2,3,4\n",
       {"1|2|3|4"},
       {":1: column 2 has no name; it is called \"Column 2 2\"",
        ":1: column 3 has the name of another; it is called \"a 2\""}},
      {"header alone", "a,b", {}, {}},
  };
  for (const auto& c : cases) {
    const auto loaded = load(c.content);
    EXPECT_EQ(rowsOf(loaded->engine), c.rows) << c.name;
    Rows endings;
    for (const std::string& message : loaded->problems.messages())
      endings.push_back(message.substr(message.find(".csv:") + 4));
    EXPECT_EQ(endings, c.problems) << c.name;
  }
}

TEST(Csv, RefusesWhatIsNoTable) {
  const Folder folder;
  std::filesystem::create_directory(folder.path("d.csv"));
  const struct {
    std::string path;
    int number;
    const char* says;
  } cases[] = {
      {folder.path("missing.csv"), 53, "no file"},
      {folder.path("d.csv"), 75, "is a directory"},
      {folder.write("empty.csv", ""), 5, "is empty"},
      {folder.write("blank.csv", "\xEF\xBB\xBF\r\n\n"), 5, "is empty"},
      {folder.write("wide.csv",
                    "\xFF\xFE"
                    "a"),
       75, "UTF-16"},
      {folder.write("plain.csv", "a\n1\n") + "#t", 5, "not an SQLite database"},
      {"/dev/null", 75, "not an ordinary file"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(errorOf([&] { openRowSource(c.path); }), c.number) << c.path;
    const std::string text = descriptionOf([&] { openRowSource(c.path); });
    EXPECT_NE(text.find(c.says), text.npos) << text;
  }
}

TEST(Csv, ShowsTheFirstProblemsAndCountsTheRest) {
  std::string content = "a,b\n";
  for (int i = 0; i < 150; ++i) content += "1\n";
  const auto loaded = load(content);
  EXPECT_EQ(loaded->engine.rowCount(), 150);
  EXPECT_EQ(loaded->problems.messages().size(), Problems::kShown);
  EXPECT_EQ(loaded->problems.more(), 150 - Problems::kShown);
}

TEST(Csv, TakesLargeFieldsAndBlockBorders) {
  const std::string large(10 << 20, 'x');
  std::string content = "a,b\n\"" + large + "\",1\n";
  for (int i = 0; i < 200000; ++i)
    content += "\"q\"\"" + std::to_string(i) + "\"," + std::to_string(i) + "\r\n";
  const auto loaded = load(content);
  const GridEngine& engine = loaded->engine;
  EXPECT_TRUE(loaded->problems.empty());
  ASSERT_EQ(engine.rowCount(), 200001);
  EXPECT_EQ(engine.value(1, 1).text(), large);
  for (int i = 0; i < 200000; ++i) {
    ASSERT_EQ(engine.value(i + 2, 1).text(), "q\"" + std::to_string(i));
    ASSERT_EQ(engine.value(i + 2, 2), Value(i));
  }
}

}  // namespace
}  // namespace vmgv
