// A table or view of an SQLite database as a source of rows; declared types are honoured.
#pragma once

#include <memory>

#include "adapters/grid/row_source.h"

namespace vmgv {

// An empty `table` means the only one. Error 5 where the file is no database or has no such table (the ones
// it has are named), 75 where it cannot be read or is locked.
std::unique_ptr<RowSource> openSqlite(const std::string& path, const std::string& table);

}  // namespace vmgv
