// Tables for the grid's tests: files in a folder of their own, and rows made in memory.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "adapters/grid/grid_object.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace vmgv {

using Rows = std::vector<std::string>;

// A folder that is gone with the test.
class Folder {
 public:
  Folder() {
    const auto name =
        "grid-" + std::to_string(std::random_device()()) + std::to_string(std::random_device()());
    path_ = (std::filesystem::temp_directory_path() / name).string();
    std::filesystem::create_directory(path_);
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  std::string path(const std::string& name) const { return path_ + '/' + name; }
  std::string write(const std::string& name, std::string_view content) const {
    std::ofstream(path(name), std::ios::binary) << content;
    return path(name);
  }

 private:
  std::string path_;
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
      for (const Value& value : row) give(sink, value);
      sink.endRow();
    }
    if (breaks) throw Error(ErrorNumber::DeviceIo, "gone");
  }
  int readings = 0;
  bool breaks = false;  // behind the last row

 private:
  static void give(RowSink& sink, const Value& value) {
    if (const auto* text = value.as<std::string>()) return sink.text(*text);
    if (const auto* flag = value.as<bool>()) return sink.boolean(*flag);
    if (const auto* whole = value.as<std::int32_t>()) return sink.whole(*whole);
    if (const auto* number = value.as<double>()) return sink.number(*number);
    if (const auto* date = value.as<Date>()) return sink.date(*date);
    if (const auto* wide = value.as<Decimal>()) return sink.field(wide->toText());
    sink.null();
  }

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
inline Rows rowsOf(const GridEngine& engine) {
  Rows rows;
  for (std::int32_t position = 1; position <= engine.rowCount(); ++position) {
    std::string& row = rows.emplace_back();
    for (std::int32_t column = 1; column <= engine.columnCount(); ++column) {
      const Value value = engine.value(position, column);
      row += (column > 1 ? "|" : "") + (value.isNull() ? "~" : toText(value));
    }
  }
  return rows;
}

// The number of the error that a call ends with, 0 without one; its text must hold `words`.
template <class Call>
int errorOf(Call call, std::string_view words = "") {
  try {
    call();
    return 0;
  } catch (const Error& error) {
    const std::string text = error.what();
    EXPECT_TRUE(!text.empty() && text.find(words) != text.npos) << text;
    return error.number();
  }
}

}  // namespace vmgv
