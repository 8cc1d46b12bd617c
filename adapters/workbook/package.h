// The zip container of a workbook.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "adapters/workbook/files.h"
#include "adapters/workbook/packed_stream.h"

namespace vmgv::workbook {

// Entries carry no time of day, so equal content gives equal files.
class Package {
 public:
  explicit Package(ReplacementFile& file);
  Package(const Package&) = delete;
  Package& operator=(const Package&) = delete;
  ~Package();

  void add(const char* name, std::string_view text);
  // One part made of several streams: all but the last ended on a boundary.
  void add(const char* name, std::span<const PackedStream* const> streams);
  void finish();

 private:
  void check(int result) const;

  ReplacementFile& file_;
  void* zip_ = nullptr;
};

}  // namespace vmgv::workbook
