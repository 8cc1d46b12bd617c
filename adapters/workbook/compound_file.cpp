// The header, allocation table and directory, as Microsoft's [MS-CFB] lays them out.
#include "adapters/workbook/compound_file.h"

#include <algorithm>

#include "adapters/workbook/bytes.h"

namespace vmgv::workbook {
namespace {

constexpr std::string_view kSignature("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
constexpr std::size_t kFirstSize = 512, kStreamEntrySize = 128;
constexpr std::uint32_t kLastSector = 0xFFFFFFFA;  // numbers behind it mean no sector
constexpr std::uint64_t kOwnSectors = 4096;        // bytes; shorter streams share theirs
constexpr std::size_t kTablesInHeader = 109;

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

CompoundFile::CompoundFile(const InputFile& file) : file_(file) {
  const std::string header = file.read(0, kFirstSize);
  if (header.size() < kFirstSize || !isCompoundFile(header)) return;
  const unsigned shift = number16(header, 30);
  if (shift != 9 && shift != 12) return;
  shift_ = shift;
  directory_ = number32(header, 48);
  readTable(header);
}

std::string CompoundFile::sector(std::uint32_t number) const {
  return file_.read((std::uint64_t{number} + 1) << shift_, std::size_t{1} << shift_);
}

// The header names the table's first sectors, a chain of sectors the others.
void CompoundFile::readTable(std::string_view header) {
  const std::size_t perSector = (std::size_t{1} << shift_) / 4;
  const std::size_t most = static_cast<std::size_t>(file_.size() >> shift_) / perSector + 1;
  const auto append = [&](std::string_view places, std::size_t count) {
    for (std::size_t i = 0; i < count && 4 * (i + 1) <= places.size(); ++i) {
      const std::uint32_t place = number32(places, 4 * i);
      if (place >= kLastSector || table_.size() >= most * perSector) return;
      const std::string entries = sector(place);
      for (std::size_t at = 0; at + 4 <= entries.size(); at += 4) table_.push_back(number32(entries, at));
    }
  };
  append(header.substr(76), kTablesInHeader);
  std::uint32_t more = number32(header, 68);
  for (std::size_t count = 0; more < kLastSector && count < most; ++count) {
    const std::string places = sector(more);
    append(places, perSector - 1);
    if (places.size() < 4 * perSector) return;
    more = number32(places, 4 * (perSector - 1));
  }
}

std::uint32_t CompoundFile::next(std::uint32_t sector) const {
  return sector < table_.size() ? table_[sector] : kLastSector;
}

std::optional<CompoundFile::Stream> CompoundFile::find(std::u16string_view name) const {
  std::uint32_t at = shift_ == 0 ? kLastSector : directory_;
  for (std::size_t count = 0; at < kLastSector && count <= table_.size(); ++count, at = next(at)) {
    const std::string entries = sector(at);
    for (std::size_t begin = 0; begin + kStreamEntrySize <= entries.size(); begin += kStreamEntrySize) {
      const std::string_view entry = std::string_view(entries).substr(begin, kStreamEntrySize);
      if (hasName(entry, name)) return Stream{number32(entry, 116), number32(entry, 120)};
    }
  }
  return {};
}

std::optional<std::string> CompoundFile::read(const Stream& stream, std::size_t most) const {
  if (stream.size < kOwnSectors || stream.size > file_.size()) return {};
  std::string bytes;
  std::uint64_t found = 0;
  for (std::uint32_t at = stream.firstSector; found < stream.size; at = next(at)) {
    const std::uint64_t size = std::uint64_t{1} << shift_;
    if (at >= kLastSector || (std::uint64_t{at} + 1) << shift_ >= file_.size()) return {};
    if (bytes.size() < most) bytes += sector(at);
    found += size;
  }
  bytes.resize(std::min<std::size_t>({bytes.size(), most, static_cast<std::size_t>(stream.size)}));
  return bytes;
}

}  // namespace vmgv::workbook
