// The header, allocation table and directory, as Microsoft's [MS-CFB] lays them out.
#include "adapters/workbook/compound_file.h"

#include "adapters/workbook/bytes.h"

namespace vmgv::workbook {
namespace {

constexpr std::string_view kSignature("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
constexpr std::size_t kHeaderSize = 512, kEntrySize = 128;
constexpr std::uint32_t kLastSector = 0xFFFFFFFA;  // numbers behind it mean no sector
constexpr int kMostSectors = 256;                  // of a directory that is looked through

// An entry's name is 32 UTF-16 units at most, its length in bytes counts a zero at the end.
bool hasName(std::string_view entry, std::u16string_view name) {
  if (number16(entry, 64) != 2 * (name.size() + 1)) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (number16(entry, 2 * i) != name[i]) return false;
  }
  return true;
}

}  // namespace

bool isCompoundFile(std::string_view start) { return start.starts_with(kSignature); }

bool compoundFileHas(const InputFile& file, std::u16string_view stream) {
  const std::string header = file.read(0, kHeaderSize);
  if (header.size() < kHeaderSize) return false;
  const unsigned shift = number16(header, 30);
  if (shift != 9 && shift != 12) return false;
  const std::size_t sectorSize = std::size_t{1} << shift, perSector = sectorSize / 4;
  const auto sectorAt = [&](std::uint32_t sector) {
    return file.read((std::uint64_t{sector} + 1) << shift, sectorSize);
  };
  std::uint32_t sector = number32(header, 48);
  for (int count = 0; sector <= kLastSector && count < kMostSectors; ++count) {
    const std::string entries = sectorAt(sector);
    for (std::size_t at = 0; at + kEntrySize <= entries.size(); at += kEntrySize) {
      if (hasName(std::string_view(entries).substr(at, kEntrySize), stream)) return true;
    }
    // The header names the table's first 109 sectors, which is more than a workbook of 6 MB has.
    const std::size_t tableSector = sector / perSector;
    if (tableSector >= 109) return false;
    const std::string table = sectorAt(number32(header, 76 + 4 * tableSector));
    const std::size_t place = 4 * (sector % perSector);
    if (place + 4 > table.size()) return false;
    sector = number32(table, place);
  }
  return false;
}

}  // namespace vmgv::workbook
