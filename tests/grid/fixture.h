// Tables for the grid's tests: files in a folder of their own, and rows made in memory.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "adapters/grid/grid_object.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace vmgv {

// A folder that is gone with the test.
class Folder {
 public:
  Folder() {
    static int count = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("vmg-grid-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)) + '-' +
             std::to_string(++count));
    std::filesystem::create_directories(path_);
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string path(const std::string& name) const { return (path_ / name).string(); }
  std::string write(const std::string& name, std::string_view content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
    return path(name);
  }

 private:
  std::filesystem::path path_;
};

// Rows of values as they are; text is text.
class MemorySource final : public RowSource {
 public:
  MemorySource(std::vector<ColumnSpec> specs, std::vector<std::vector<Value>> rows)
      : specs_(std::move(specs)), rows_(std::move(rows)) {}

  std::string name() const override { return "memory"; }
  std::vector<ColumnSpec> columns() override { return specs_; }
  void read(RowSink& sink, Problems&) override {
    ++readings;
    for (const auto& row : rows_) {
      for (const Value& value : row) {
        if (const auto* text = value.as<std::string>()) {
          sink.text(*text);
        } else if (const auto* flag = value.as<bool>()) {
          sink.boolean(*flag);
        } else if (const auto* number = value.as<std::int32_t>()) {
          sink.whole(*number);
        } else if (const auto* real = value.as<double>()) {
          sink.number(*real);
        } else if (const auto* date = value.as<Date>()) {
          sink.date(*date);
        } else {
          sink.null();
        }
      }
      sink.endRow();
    }
  }
  int readings = 0;

 private:
  std::vector<ColumnSpec> specs_;
  std::vector<std::vector<Value>> rows_;
};

inline std::shared_ptr<GridEngine> engineOf(std::vector<ColumnSpec> specs,
                                            std::vector<std::vector<Value>> rows) {
  auto engine = std::make_shared<GridEngine>();
  MemorySource source(std::move(specs), std::move(rows));
  engine->load(source);
  return engine;
}

// All display rows as text, values between bars; "~" is Null.
inline std::vector<std::string> rowsOf(const GridEngine& engine) {
  std::vector<std::string> rows;
  for (std::int32_t position = 1; position <= engine.rowCount(); ++position) {
    std::string& row = rows.emplace_back();
    for (std::int32_t column = 1; column <= engine.columnCount(); ++column) {
      const Value value = engine.value(position, column);
      row += (column > 1 ? "|" : "") + (value.isNull() ? "~" : toText(value));
    }
  }
  return rows;
}

// The number of the error that a call ends with, 0 without one.
template <class Call>
int errorOf(Call call) {
  try {
    call();
    return 0;
  } catch (const Error& error) {
    EXPECT_FALSE(std::string(error.what()).empty());
    return error.number();
  }
}

template <class Call>
std::string descriptionOf(Call call) {
  try {
    call();
    return "no error";
  } catch (const Error& error) {
    return error.what();
  }
}

}  // namespace vmgv
