// The zip container of a workbook.
#pragma once

#include <cstdint>
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

  // For the zip library: the file's end of it. The first error is kept for the next step to throw.
  void write(std::string_view bytes) noexcept;
  std::uint64_t seek(std::int64_t offset, int whence) noexcept;

 private:
  void check(int result) const;

  ReplacementFile& file_;
  void* zip_ = nullptr;
  int error_ = 0;
};

}  // namespace vmgv::workbook
