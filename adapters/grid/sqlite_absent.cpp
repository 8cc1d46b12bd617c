// Stands in for sqlite_source.cpp in builds without SQLite.
#include "adapters/grid/sqlite_source.h"
#include "support/automation/error.h"

namespace vmgv {

std::unique_ptr<RowSource> openSqlite(const std::string& path, const std::string&) {
  throw Error(ErrorNumber::InvalidCall, path + " is an SQLite database, which this program cannot read");
}

}  // namespace vmgv
