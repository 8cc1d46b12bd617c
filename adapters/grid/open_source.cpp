// Finds out what kind of table a file is.
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/row_source.h"
#include "adapters/grid/sqlite_source.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr char kSqliteMark[] = "SQLite format 3";  // its NUL is part of it

std::filesystem::path pathOf(const std::string& file) { return std::u8string(file.begin(), file.end()); }

bool isSqlite(const std::string& file) {
  std::array<char, sizeof kSqliteMark> start{};
  std::ifstream stream(pathOf(file), std::ios::binary);
  stream.read(start.data(), start.size());
  return std::equal(start.begin(), start.end(), std::begin(kSqliteMark));
}

}  // namespace

std::unique_ptr<RowSource> openRowSource(const std::string& fileAndTable) {
  std::string file = fileAndTable, table;
  std::error_code ignored;
  const auto mark = fileAndTable.rfind('#');
  if (mark != fileAndTable.npos && !std::filesystem::exists(pathOf(file), ignored)) {
    file = fileAndTable.substr(0, mark);
    table = fileAndTable.substr(mark + 1);
  }
  const auto status = std::filesystem::status(pathOf(file), ignored);
  if (!std::filesystem::exists(status)) throw Error(ErrorNumber::FileNotFound, "There is no file " + file);
  if (std::filesystem::is_directory(status)) {
    throw Error(ErrorNumber::PathAccess, file + " is a directory, not a table");
  }
  if (!std::filesystem::is_regular_file(status)) {
    throw Error(ErrorNumber::PathAccess, file + " is not an ordinary file");
  }
  if (isSqlite(file)) return openSqlite(file, table);
  if (!table.empty()) {
    throw Error(ErrorNumber::InvalidCall, file + " is not an SQLite database, so it has no table " + table);
  }
  return std::make_unique<CsvSource>(file);
}

}  // namespace vmgv
