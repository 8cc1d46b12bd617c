// A table or view of an SQLite database as a source of rows; declared types are honoured.
#pragma once

#include <sqlite3.h>

#include <memory>

#include "adapters/grid/row_source.h"

namespace vmgv {

class SqliteSource final : public RowSource {
 public:
  // An empty `table` means the only one. Error 5 where the file is no database or has no such table (the
  // ones it has are named), 75 where it cannot be read or is locked.
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

}  // namespace vmgv
