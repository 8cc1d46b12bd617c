// The container of protected workbooks and of those in the format before 2007.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/workbook/files.h"

namespace vmgv::workbook {

bool isCompoundFile(std::string_view start);  // of its first 8 bytes

// Whatever the file holds, reading it ends, and takes memory in proportion to its size.
class CompoundFile {
 public:
  struct Stream {
    std::uint32_t firstSector = 0;
    std::uint64_t size = 0;  // bytes
  };

  explicit CompoundFile(const InputFile& file);  // it outlives this

  std::optional<Stream> find(std::u16string_view name) const;  // nothing also where the directory is damaged
  // The stream's first bytes, `most` at most; nothing where it is shorter than those that have sectors of
  // their own, or where a part of it is missing.
  std::optional<std::string> read(const Stream& stream, std::size_t most) const;

 private:
  std::string sector(std::uint32_t number) const;
  void readTable(std::string_view header);
  std::uint32_t next(std::uint32_t sector) const;

  const InputFile& file_;
  unsigned shift_ = 0;                // of a sector's size; 0: the file is damaged
  std::vector<std::uint32_t> table_;  // the sector that follows each
  std::uint32_t directory_ = 0;       // its first sector
};

}  // namespace vmgv::workbook
