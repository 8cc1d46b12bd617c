#include "adapters/grid/sqlite_source.h"

#include <sqlite3.h>

#include <algorithm>

#include "support/automation/class_table.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr int kBusyMilliseconds = 300;  // a user waits for the window meanwhile

bool sameName(std::string_view a, std::string_view b) { return lowerCase(a) == lowerCase(b); }

std::string list(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

// By the words that a declaration holds, as SQLite itself reads declarations. Without a declaration the
// values decide.
ColumnType declaredType(const char* declaration) {
  const std::string words = lowerCase(declaration ? declaration : "");
  const auto has = [&](const char* word) { return words.find(word) != words.npos; };
  if (has("date") || has("timestamp")) return ColumnType::Date;
  if (has("bool")) return ColumnType::Boolean;
  if (has("int")) return ColumnType::Whole;
  if (has("char") || has("clob") || has("text")) return ColumnType::Text;
  if (has("real") || has("floa") || has("doub") || has("num") || has("dec")) return ColumnType::Number;
  return ColumnType::Unknown;
}

std::string_view columnText(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return {text ? text : "", static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

class SqliteSource final : public RowSource {
 public:
  SqliteSource(const std::string& path, const std::string& table);

  std::string name() const override { return path_ + '#' + table_; }
  std::vector<ColumnSpec> columns() override;
  void read(RowSink& sink, Problems& problems) override;

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

  Statement prepare(const std::string& sql) const;
  bool step(const Statement& statement) const;
  std::vector<std::string> names(const char* kinds) const;
  Statement selectAll() const;
  [[noreturn]] void fail(int code) const;

  std::string path_, table_;
  std::unique_ptr<sqlite3, Closer> database_;
};

SqliteSource::SqliteSource(const std::string& path, const std::string& table) : path_(path) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) fail(code);
  sqlite3_busy_timeout(opened, kBusyMilliseconds);
  step(prepare("BEGIN"));  // every reading sees the same rows

  const std::vector<std::string> tables = names("'table'");
  if (table.empty()) {
    if (tables.empty()) throw Error(ErrorNumber::InvalidCall, path + " has no table");
    if (tables.size() > 1) {
      throw Error(ErrorNumber::InvalidCall,
                  path + " has several tables; name one of them behind a #: " + list(tables));
    }
    table_ = tables.front();
    return;
  }
  const std::vector<std::string> all = names("'table', 'view'");
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const std::string& name) { return sameName(name, table); });
  if (found == all.end()) {
    throw Error(ErrorNumber::InvalidCall,
                path + " has no table \"" + table + "\"; it has " + (all.empty() ? "none" : list(all)));
  }
  table_ = *found;
}

std::vector<ColumnSpec> SqliteSource::columns() {
  const Statement rows = selectAll();
  const int count = sqlite3_column_count(rows.get());
  std::vector<ColumnSpec> specs;
  specs.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    specs.push_back(
        {sqlite3_column_name(rows.get(), i), {}, declaredType(sqlite3_column_decltype(rows.get(), i))});
  }
  return specs;
}

void SqliteSource::read(RowSink& sink, Problems& problems) {
  const std::vector<ColumnSpec> specs = columns();
  const Statement rows = selectAll();
  const auto tell = [&](std::size_t column, const char* what) {
    problems.add(name() + ", row " + std::to_string(sink.rows() + 1),
                 "column \"" + specs[column].field + "\" " + what);
  };
  std::string clean;
  while (step(rows)) {
    for (std::size_t i = 0; i < specs.size(); ++i) {
      const int column = static_cast<int>(i);
      switch (sqlite3_column_type(rows.get(), column)) {
        case SQLITE_INTEGER: sink.whole(sqlite3_column_int64(rows.get(), column)); break;
        case SQLITE_FLOAT: sink.number(sqlite3_column_double(rows.get(), column)); break;
        case SQLITE_TEXT: {
          std::string_view text = columnText(rows.get(), column);
          if (!isPlainAscii(text) && !isCleanUtf8(text, clean)) {
            tell(i, "has NUL or bytes that are no UTF-8; they were replaced by U+FFFD");
            text = clean;
          }
          const bool typed = specs[i].type == ColumnType::Date || specs[i].type == ColumnType::Boolean;
          typed && !text.empty() ? sink.field(text) : sink.text(text);
          break;
        }
        case SQLITE_BLOB:
          tell(i, "holds binary data; it was left empty");
          sink.null();
          break;
        default: sink.null();
      }
    }
    sink.endRow();
  }
}

SqliteSource::Statement SqliteSource::selectAll() const {
  std::string quoted;
  for (const char c : table_) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return prepare("SELECT * FROM \"" + quoted + '"');
}

std::vector<std::string> SqliteSource::names(const char* kinds) const {
  const Statement rows = prepare(std::string("SELECT name FROM sqlite_schema WHERE type IN (") + kinds +
                                 ") AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
  std::vector<std::string> found;
  while (step(rows)) found.emplace_back(columnText(rows.get(), 0));
  return found;
}

SqliteSource::Statement SqliteSource::prepare(const std::string& sql) const {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &statement, nullptr);
  if (code != SQLITE_OK) fail(code);
  return Statement(statement);
}

bool SqliteSource::step(const Statement& statement) const {
  const int code = sqlite3_step(statement.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) fail(code);
  return code == SQLITE_ROW;
}

void SqliteSource::fail(int code) const {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      throw Error(ErrorNumber::PathAccess,
                  path_ + " is locked by another program; try again when it has finished");
    case SQLITE_NOTADB: throw Error(ErrorNumber::InvalidCall, path_ + " is not an SQLite database");
    default:
      throw Error(
          ErrorNumber::PathAccess,
          path_ + " cannot be read: " + (database_ ? sqlite3_errmsg(database_.get()) : "out of memory"));
  }
}

}  // namespace

std::unique_ptr<RowSource> openSqlite(const std::string& path, const std::string& table) {
  return std::make_unique<SqliteSource>(path, table);
}

}  // namespace vmgv
