// The records of a zip file, as PKWARE's APPNOTE.TXT lays them out.
#include "adapters/workbook/package_reader.h"

#include <zlib.h>

#include <algorithm>

#include "adapters/workbook/bytes.h"
#include "adapters/workbook/compound_file.h"
#include "adapters/workbook/inflater.h"
#include "support/automation/class_table.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

constexpr std::string_view kEntry("PK\1\2"), kEnd("PK\5\6"), kWideEnd("PK\6\6"), kWideEndPlace("PK\6\7"),
    kHeader("PK\3\4");
constexpr std::size_t kEndSize = 22, kWideEndSize = 56, kWideEndPlaceSize = 20, kEntrySize = 46,
                      kHeaderSize = 30;
constexpr std::size_t kMostComment = 65535;
constexpr std::uint16_t kStored = 0, kDeflated = 8, kEncrypted = 1;
constexpr std::size_t kReadBlock = std::size_t{64} * 1024;
constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
constexpr std::uint64_t kMostDirectory = 16 * kMegabyte, kMostText = 64 * kMegabyte;
// Worksheets pack to a tenth or a thirtieth. What is to grow a hundredfold and more is not meant to be read.
constexpr std::uint64_t kMostGrowth = 100, kAlwaysAllowed = 32 * kMegabyte;
constexpr const char* kDamaged = "its container is damaged";

// The end of a wide record's extra field that has the numbers which did not fit.
class WideFields {
 public:
  explicit WideFields(std::string_view extra) {
    while (extra.size() >= 4) {
      const std::size_t size = number16(extra, 2);
      if (size > extra.size() - 4) return;
      if (number16(extra, 0) == 1) fields_ = extra.substr(4, size);
      extra.remove_prefix(size + 4);
    }
  }
  // False where the number is elsewhere, but not here.
  bool widen(std::uint64_t& number) {
    if (number != kElsewhere) return true;
    if (fields_.size() < 8) return false;
    number = number64(fields_, 0);
    fields_.remove_prefix(8);
    return true;
  }

 private:
  std::string_view fields_;
};

}  // namespace

void refuseWorkbook(const std::string& path, const std::string& reason) {
  throw Error(ErrorNumber::Application, "The workbook " + path + " cannot be opened: " + reason);
}

PackageReader::PackageReader(std::string path, const std::string& file)
    : path_(std::move(path)), file_(file) {
  requireContainer();
  readDirectory();
}

std::string PackageReader::bytes(std::uint64_t offset, std::uint64_t size) const {
  if (offset > file_.size() || size > file_.size() - offset) refuse(kDamaged);
  return file_.read(offset, static_cast<std::size_t>(size));
}

// A file is what it holds, not what its name ends in.
void PackageReader::requireContainer() const {
  if (file_.size() == 0) refuse("it is empty");
  const std::string start = file_.read(0, 8);
  if (start.starts_with(kHeader)) return;
  if (!isCompoundFile(start)) refuse("it is no workbook");
  const bool isProtected = CompoundFile(file_).find(u"EncryptedPackage").has_value();
  refuse(isProtected ? "it is protected by a password" : "it is a workbook of the format before 2007");
}

std::string PackageReader::directory() const {
  const std::uint64_t tailSize = std::min<std::uint64_t>(file_.size(), kEndSize + kMostComment);
  const std::string tail = bytes(file_.size() - tailSize, tailSize);
  const std::size_t at = tail.rfind(kEnd);
  if (at == std::string::npos || tail.size() - at < kEndSize) refuse("it is cut short or damaged");
  std::uint64_t size = number32(tail, at + 12), offset = number32(tail, at + 16);
  if (at >= kWideEndPlaceSize && tail.compare(at - kWideEndPlaceSize, 4, kWideEndPlace) == 0) {
    const std::string wide = bytes(number64(tail, at - kWideEndPlaceSize + 8), kWideEndSize);
    if (!wide.starts_with(kWideEnd)) refuse(kDamaged);
    size = number64(wide, 40);
    offset = number64(wide, 48);
  }
  if (size > kMostDirectory) refuse("its container has too many parts");
  return bytes(offset, size);
}

void PackageReader::readDirectory() {
  const std::string records = directory();
  std::string_view rest = records;
  std::uint64_t promised = 0;
  while (rest.size() >= kEntrySize && rest.starts_with(kEntry)) {
    const std::size_t size = kEntrySize + number16(rest, 28) + number16(rest, 30) + number16(rest, 32);
    if (size > rest.size()) refuse(kDamaged);
    const std::uint64_t text = addPart(rest.substr(0, size));
    if (text > kAlwaysAllowed + file_.size() * kMostGrowth - promised) {
      refuse("unpacked it would be more than " + std::to_string(kMostGrowth) + " times as large");
    }
    promised += text;
    rest.remove_prefix(size);
  }
  if (parts_.empty()) refuse(kDamaged);
  const auto name = [](const PackagePart& part) { return lowerCase(part.name); };
  std::vector<std::string> names(parts_.size());
  std::transform(parts_.begin(), parts_.end(), names.begin(), name);
  std::sort(names.begin(), names.end());
  const auto twice = std::adjacent_find(names.begin(), names.end());
  if (twice != names.end()) refuse("its container has two parts called " + *twice);
}

// Returns the size of its text.
std::uint64_t PackageReader::addPart(std::string_view record) {
  const std::uint16_t method = number16(record, 10), nameSize = number16(record, 28);
  PackagePart part{.name = std::string(record.substr(kEntrySize, nameSize)),
                   .deflated = method == kDeflated,
                   .crc = number32(record, 16),
                   .packedSize = number32(record, 20),
                   .textSize = number32(record, 24),
                   .offset = number32(record, 42)};
  if (number16(record, 8) & kEncrypted) refuse("it is protected by a password");
  if (method != kStored && method != kDeflated) {
    refuse("its part " + part.name + " is packed in a way that is not supported");
  }
  WideFields fields(record.substr(kEntrySize + nameSize, number16(record, 30)));
  const bool whole =
      fields.widen(part.textSize) && fields.widen(part.packedSize) && fields.widen(part.offset);
  if (!whole || part.packedSize > file_.size()) refuse(kDamaged);
  parts_.push_back(std::move(part));
  return parts_.back().textSize;
}

const PackagePart* PackageReader::find(std::string_view name) const {
  const std::string wanted = lowerCase(name);
  const auto found = std::find_if(parts_.begin(), parts_.end(),
                                  [&](const PackagePart& part) { return lowerCase(part.name) == wanted; });
  return found == parts_.end() ? nullptr : &*found;
}

template <class Sink>
void PackageReader::eachBlock(const PackagePart& part, Sink sink) const {
  const auto damaged = [&] { refuse("its part " + part.name + " is damaged"); };
  const std::string header = bytes(part.offset, kHeaderSize);
  if (!header.starts_with(kHeader)) damaged();
  std::uint64_t at = part.offset + kHeaderSize + number16(header, 26) + number16(header, 28);
  if (at > file_.size() || part.packedSize > file_.size() - at) damaged();
  for (std::uint64_t left = part.packedSize; left > 0;) {
    const std::string block =
        file_.read(at, static_cast<std::size_t>(std::min<std::uint64_t>(left, kReadBlock)));
    at += block.size();
    left -= block.size();
    if (block.empty() || !sink(block, left)) damaged();
  }
}

void PackageReader::readPacked(const PackagePart& part,
                               const std::function<void(std::string_view)>& sink) const {
  eachBlock(part, [&sink](std::string_view block, std::uint64_t) { return sink(block), true; });
}

void PackageReader::read(const PackagePart& part, const std::function<void(std::string_view)>& sink) const {
  std::uint64_t size = 0;
  uLong crc = 0;
  const auto take = [&](std::string_view text) {
    size += text.size();
    if (size > part.textSize) return false;
    crc = crc32(crc, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size()));
    if (!text.empty()) sink(text);
    return true;
  };
  Inflater inflater;
  eachBlock(part, [&](std::string_view block, std::uint64_t left) {
    if (!part.deflated) return take(block);
    return inflater.inflate(block, take) && !(inflater.hasEnded() && left > 0);
  });
  if (size != part.textSize || crc != part.crc) refuse("its part " + part.name + " is damaged");
}

std::string PackageReader::text(const PackagePart& part) const {
  if (part.textSize > kMostText)
    refuse("its part " + part.name + " is too large: unpacked it has more than 64 MB");
  std::string text;
  text.reserve(static_cast<std::size_t>(part.textSize));
  read(part, [&text](std::string_view piece) { text += piece; });
  return text;
}

}  // namespace vmgv::workbook
