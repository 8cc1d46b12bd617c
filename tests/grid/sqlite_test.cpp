// SQLite tables: declared types, values that do not fit them, locked and wrong files.
#include <sqlite3.h>

#include "fixture.h"

namespace vmgv {
namespace {

using Rows = std::vector<std::string>;

// A database file made by statements; it stays open with what they began.
class Database {
 public:
  Database(const std::string& path, const char* statements) {
    sqlite3_open(path.c_str(), &database_);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(database_, statements, nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_free(message);
  }
  ~Database() { sqlite3_close(database_); }

 private:
  sqlite3* database_ = nullptr;
};

TEST(Sqlite, HonoursDeclaredTypes) {
  const Folder folder;
  const std::string path = folder.path("t.db");
  Database made(
      path,
      "CREATE TABLE \"my \"\"t\"\"\" (id INTEGER, big BIGINT, price DECIMAL(10,2), day DATE, at TIMESTAMP,"
      " ok BOOLEAN, code VARCHAR(9), any);"
      "INSERT INTO \"my \"\"t\"\"\" VALUES (1, 5000000000, 2, '2020-01-02', '2020-01-02 06:00:00', 1, '007', "
      "3),"
      " (NULL, 1, 2.5, NULL, '2020-01-03', 0, 'x', 0.5)");
  GridEngine engine;
  const Problems problems = engine.load(*openRowSource(path));
  EXPECT_TRUE(problems.empty());
  EXPECT_EQ(rowsOf(engine), (Rows{"1|5000000000|2|01/02/2020|01/02/2020 06:00:00|True|007|3",
                                  "~|1|2.5|~|01/03/2020|False|x|0.5"}));
  EXPECT_EQ(engine.value(1, 2), Value(Decimal::fromInteger(5000000000)));
  EXPECT_EQ(engine.value(1, 3), Value(2.0));
  EXPECT_EQ(engine.value(2, 5), Value(Date{43833}));
}

TEST(Sqlite, ReadsAColumnAsTextWhereItsValuesBelieItsType) {
  const Folder folder;
  const std::string path = folder.path("t.db");
  Database made(path,
                "CREATE TABLE t (n INTEGER, d DATE, b BOOLEAN, x BLOB);"
                "INSERT INTO t VALUES (12, '2020-01-02T06:00', 1, x'00'), ('many', 'soon', 7, NULL)");
  GridEngine engine;
  const Problems problems = engine.load(*openRowSource(path + "#T"));
  EXPECT_EQ(rowsOf(engine), (Rows{"12|2020-01-02T06:00|1|~", "many|soon|7|~"}));
  const std::string where = path + "#t, row ";
  EXPECT_EQ(
      problems.messages(),
      (Rows{
          where + "1: column \"x\" holds binary data; it was left empty",
          where + "2: column \"n\" is declared to hold whole numbers but has \"many\"; the whole column is "
                  "read as text",
          where +
              "2: column \"d\" is declared to hold dates but has \"soon\"; the whole column is read as text",
          where + "2: column \"b\" is declared to hold true or false but has \"7\"; the whole column is read "
                  "as text"}));
}

TEST(Sqlite, SaysWhatIsWrongWithAFile) {
  const Folder folder;
  const std::string several = folder.path("several.db"), locked = folder.path("locked.db"),
                    none = folder.path("none.db");
  Database two(several, "CREATE TABLE b (x); CREATE TABLE a (x); CREATE VIEW v AS SELECT 1");
  Database held(locked, "CREATE TABLE t (x); BEGIN EXCLUSIVE; INSERT INTO t VALUES (1)");
  Database empty(none, "PRAGMA user_version = 1");
  std::string damaged =
      folder.write("damaged.db", std::string("SQLite format 3\0", 16) + std::string(2000, 'x'));
  const struct {
    std::string name;
    int number;
    const char* says;
  } cases[] = {
      {several, 5, "several tables; name one of them behind a #: a, b"},
      {several + "#c", 5, "no table \"c\"; it has a, b, v"},
      {locked, 75, "is locked by another program"},
      {none, 5, "has no table"},
      {damaged, 5, "not an SQLite database"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(errorOf([&] { openRowSource(c.name); }), c.number) << c.name;
    const std::string text = descriptionOf([&] { openRowSource(c.name); });
    EXPECT_NE(text.find(c.says), text.npos) << text;
  }
}

TEST(Sqlite, KeepsTheRowsItHasWhereALoadFails) {
  const Folder folder;
  const std::string path = folder.path("t.db");
  Database made(path, "CREATE TABLE t (x TEXT); INSERT INTO t VALUES ('old')");
  GridEngine engine;
  const auto source = openRowSource(path);
  engine.load(*source);
  class Failing final : public RowSource {
    std::string name() const override { return "failing"; }
    std::vector<ColumnSpec> columns() override { return {{"y"}}; }
    void read(RowSink& rows, Problems&) override {
      rows.text("new");
      rows.endRow();
      throw Error(ErrorNumber::DeviceIo, "gone");
    }
  } failing;
  EXPECT_EQ(errorOf([&] { engine.load(failing); }), 57);
  EXPECT_EQ(rowsOf(engine), Rows{"old"});
  EXPECT_EQ(engine.column(1).dataField, "x");
}

}  // namespace
}  // namespace vmgv
