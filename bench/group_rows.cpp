// group_rows ROWS.csv: groups the benchmarks' rows by Category, Date and Active with totals, through the
// members that any client of the grid calls, then fetches what a client fetches: totals, and the three keys
// of every row.
#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "bench/measure.h"
#include "support/automation/convert.h"

namespace {

using namespace vmgv;

double regroup(const ObjectRef& grid, const std::vector<std::int32_t>& columns) {
  const double start = bench::cpuSeconds();
  grid.put("Redraw", false);
  const ObjectRef groups = grid.object("Groups");
  groups.call("Clear");
  for (const std::int32_t column : columns) groups.call("Add", column, 1);
  grid.put("GroupFooterStyle", 2);
  grid.call("RefreshGroups", false);
  grid.put("Redraw", true);
  const std::int32_t rows = toLong(grid.get("RowCount"));
  const ObjectRef total = grid.object("GetRowData", rows);  // of the last outer group; all are worked out
  for (const char* field : {"Id", "Amount", "Rate", "Remark"}) {
    total.get("Value", grid.object("Columns", field).get("Index"));
  }
  return bench::cpuSeconds() - start;
}

double fetch(const ObjectRef& grid, const std::vector<std::int32_t>& columns) {
  const Member getRowData("GetRowData"), value("Value");
  const double start = bench::cpuSeconds();
  const std::int32_t rows = toLong(grid.get("RowCount"));
  for (std::int32_t position = 1; position <= rows; ++position) {
    const ObjectRef row = grid.object(getRowData, position);
    for (const std::int32_t column : columns) row.get(value, column);
  }
  return bench::cpuSeconds() - start;
}

double toggle(GridEngine& engine, bool expanded) {
  const double start = bench::cpuSeconds();
  engine.setExpanded(1, expanded);
  engine.displayRow(engine.rowCount());
  return bench::cpuSeconds() - start;
}

void run(const char* path) {
  const auto engine = std::make_shared<GridEngine>();
  CsvSource source(path);
  engine->load(source);
  const ObjectRef grid = makeGridObject(engine);
  std::vector<std::int32_t> columns;
  for (const char* field : {"Category", "Date", "Active"}) columns.push_back(engine->columnIndex(field));
  bench::report("fetch_cpu_s", fetch(grid, columns));
  bench::report("regroup_cpu_s", regroup(grid, columns));
  bench::report("rows", engine->rowCount());
  bench::report("collapse_cpu_s", toggle(*engine, false));
  bench::report("expand_cpu_s", toggle(*engine, true));
  bench::report("peak_mb", bench::peakMegabytes());
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: group_rows ROWS.csv\n");
    return 2;
  }
  try {
    run(arguments[1]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "group_rows: %s\n", error.what());
    return 1;
  }
}
