// The zip container of a workbook: parts come compressed already, one after the other.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/workbook/files.h"
#include "adapters/workbook/package_reader.h"
#include "adapters/workbook/packed_stream.h"

namespace vmgv::workbook {

// Entries carry no time of day, so equal content gives equal files. Sizes beyond 4 GB take the format's
// 64-bit fields, others do without them.
class Package {
 public:
  explicit Package(ReplacementFile& file) noexcept : file_(file) {}

  void add(const std::string& name, std::string_view text);
  // One part made of several streams: all but the last ended on a boundary.
  void add(const std::string& name, std::span<const PackedStream* const> streams);
  // A part of another container, its bytes as they are.
  void copy(const PackageReader& from, const PackagePart& part);
  void finish();

 private:
  struct Entry {
    std::string name;  // UTF-8
    bool deflated = true;
    std::uint32_t crc = 0;
    std::uint64_t textSize = 0, packedSize = 0;
    std::uint64_t offset = 0;  // of its own header
  };

  void append(std::string_view bytes);
  void begin(const Entry& entry);

  ReplacementFile& file_;
  std::vector<Entry> entries_;
  std::uint64_t size_ = 0;
};

}  // namespace vmgv::workbook
