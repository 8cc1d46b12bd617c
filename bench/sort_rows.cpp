// sort_rows ROWS.csv: sorts the benchmarks' rows by Category, Date (descending) and Amount, then by the Greek
// texts of Place, keys fetched anew.
#include "adapters/grid/csv_source.h"
#include "adapters/grid/engine.h"
#include "bench/measure.h"
#include "support/automation/error.h"

int main(int count, char** arguments) {
  using namespace vmgv;
  if (count != 2) {
    std::fprintf(stderr, "usage: sort_rows ROWS.csv\n");
    return 2;
  }
  try {
    GridEngine engine;
    CsvSource source(arguments[1]);
    engine.load(source);
    double start = bench::cpuSeconds();
    engine.setRedraw(false);
    engine.addSortKey({engine.columnIndex("Category"), kSortAscending});
    engine.addSortKey({engine.columnIndex("Date"), kSortDescending});
    engine.addSortKey({engine.columnIndex("Amount"), kSortAscending});
    engine.setRedraw(true);
    const DisplayRow first = engine.displayRow(1);
    bench::report("sort_cpu_s", bench::cpuSeconds() - start);
    bench::report("first_record", first.record);
    start = bench::cpuSeconds();
    engine.setSortKeys({{engine.columnIndex("Place"), kSortAscending}});
    bench::report("first_place", engine.displayRow(1).record);
    bench::report("text_sort_cpu_s", bench::cpuSeconds() - start);
    return 0;
  } catch (const Error& error) {
    std::fprintf(stderr, "sort_rows: %s\n", error.description());
    return 1;
  }
}
