// A CSV file as a source of rows: the first record names the columns, the values decide on their types.
#pragma once

#include "adapters/grid/csv_reader.h"
#include "adapters/grid/row_source.h"

namespace vmgv {

class CsvSource final : public RowSource {
 public:
  // Error 75 where the file cannot be read; 5 where it has no header row.
  explicit CsvSource(const std::string& path);

  std::string name() const override { return path_; }
  std::vector<ColumnSpec> columns() override { return columns_; }
  void read(RowSink& rows, Problems& problems) override;

 private:
  void readHeader(Problems& problems);

  std::string path_;
  CsvReader reader_;
  std::vector<ColumnSpec> columns_;
};

}  // namespace vmgv
