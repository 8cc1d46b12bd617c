// Any bytes as a table: its rows can be sorted, grouped and read.
#include "adapters/grid/csv_source.h"
#include "adapters/grid/engine.h"
#include "fuzz/memory_file.h"
#include "support/automation/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vmgv;
  const fuzz::MemoryFile file({reinterpret_cast<const char*>(data), size});
  try {
    CsvSource source(file.path());
    GridEngine grid;
    grid.load(source);
    grid.setSortKeys({{1, kSortDescending}});
    grid.setGroups({{grid.columnCount(), kSortAscending}});
    for (std::int32_t row = 1; row <= grid.rowCount(); ++row) grid.displayText(row, 1);
  } catch (const Error&) {
  }
  return 0;
}
