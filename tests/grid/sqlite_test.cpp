// SQLite tables: declared types and values that do not fit them; files of either kind that hold no table.
#include <sqlite3.h>

#include "fixture.h"

namespace vmgv {
namespace {

// A database file made by statements; it stays open with what they began.
std::shared_ptr<sqlite3> database(const std::string& path, const char* statements) {
  sqlite3* opened = nullptr;
  sqlite3_open(path.c_str(), &opened);
  EXPECT_EQ(sqlite3_exec(opened, statements, nullptr, nullptr, nullptr), SQLITE_OK);
  return {opened, sqlite3_close};
}

TEST(Sqlite, HonoursDeclaredTypesUnlessAValueBeliesThem) {
  const Folder folder;
  const std::string path = folder.path("t.db");
  const auto made = database(path, R"(
      CREATE TABLE "my ""t""" (big BIGINT, price DECIMAL(10,2), at TIMESTAMP, ok BOOLEAN, code VARCHAR(9), any,
                               n INTEGER, d DATE, b BOOLEAN, x BLOB);
      INSERT INTO "my ""t""" VALUES
        (5000000000, 2, '2020-01-02 06:00:00', 1, '007', 3, 12, '2020-01-02T06:00', 1, x'00'),
        (NULL, 2.5, '2020-01-03', 0, 'x', 0.5, 'many', 'soon', 7, NULL))");
  GridEngine engine;
  const Problems problems = engine.load(*openRowSource(path + "#MY \"t\""));
  EXPECT_EQ(rowsOf(engine), (Rows{"5000000000|2|01/02/2020 06:00:00|True|007|3|12|2020-01-02T06:00|1|~",
                                  "~|2.5|01/03/2020|False|x|0.5|many|soon|7|~"}));
  EXPECT_EQ(engine.value(1, 1), Value(Decimal::fromInteger(5000000000)));
  EXPECT_EQ(engine.value(1, 2), Value(2.0));
  EXPECT_EQ(engine.value(2, 3), Value(Date{43833}));
  const std::string where = path + "#my \"t\", row ", as = "; the whole column is read as text";
  EXPECT_EQ(problems.messages(),
            (Rows{where + "1: column \"x\" holds binary data; it was left empty",
                  where + "2: column \"n\" is declared to hold whole numbers but has \"many\"" + as,
                  where + "2: column \"d\" is declared to hold dates but has \"soon\"" + as,
                  where + "2: column \"b\" is declared to hold true or false but has \"7\"" + as}));
}

TEST(OpenRowSource, SaysWhatIsWrongWithAFile) {
  const Folder folder;
  const auto several = database(folder.path("several.db"),
                                "CREATE TABLE b (x); CREATE TABLE a (x); CREATE VIEW v AS SELECT 1");
  const auto locked = database(folder.path("locked.db"), "CREATE TABLE t (x); BEGIN EXCLUSIVE");
  const auto none = database(folder.path("none.db"), "PRAGMA user_version = 1");
  const std::string damaged = std::string("SQLite format 3\0", 16) + std::string(2000, 'x');
  const struct {
    std::string name;
    int number;
    const char* says;
  } cases[] = {
      {folder.path("several.db"), 5, "several tables; name one of them behind a #: a, b"},
      {folder.path("several.db") + "#c", 5, "no table \"c\"; it has a, b, v"},
      {folder.path("locked.db"), 75, "is locked by another program"},
      {folder.path("none.db"), 5, "has no table"},
      {folder.write("damaged.db", damaged), 5, "not an SQLite database"},
      {folder.write("plain.csv", "a\n1\n") + "#t", 5, "not an SQLite database"},
      {folder.write("blank.csv", "\xEF\xBB\xBF\r\n\n"), 5, "is empty"},
      {folder.write("wide.csv", "\xFF\xFEz"), 75, "UTF-16"},
      {"/dev/null", 75, "not an ordinary file"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(errorOf([&] { openRowSource(c.name); }, c.says), c.number) << c.name;
  }
}

}  // namespace
}  // namespace vmgv
