// The records of a zip file, as PKWARE's APPNOTE.TXT lays them out. Numbers are little-endian.
#include "adapters/workbook/package.h"

#include <zlib.h>

#include "adapters/workbook/bytes.h"

namespace vmgv::workbook {
namespace {

constexpr std::uint16_t kNormal = 20, kWide = 45;         // versions: deflate, 64-bit fields
constexpr std::uint16_t kUtf8 = 1u << 11;                 // of names
constexpr std::uint32_t kFirstDay = 1u << 21 | 1u << 16;  // 1980-01-01 00:00, as the format begins to count

class Record {
 public:
  explicit Record(std::uint32_t signature) { put32(signature); }

  Record& put16(std::uint64_t number) { return put(number, 2); }
  Record& put32(std::uint64_t number) { return put(number, 4); }
  Record& put64(std::uint64_t number) { return put(number, 8); }
  // A field that is wide where its number does not fit.
  Record& putShort(std::uint64_t number, bool wide) { return put32(wide ? kElsewhere : number); }
  Record& putText(std::string_view text) {
    bytes_ += text;
    return *this;
  }
  const std::string& bytes() const noexcept { return bytes_; }

 private:
  Record& put(std::uint64_t number, int width) {
    for (; width > 0; --width, number >>= 8) bytes_ += static_cast<char>(number & 0xff);
    return *this;
  }
  std::string bytes_;
};

std::uint16_t methodOf(bool deflated) { return deflated ? 8 : 0; }

bool isLarge(std::uint64_t number) { return number >= kElsewhere; }

}  // namespace

void Package::append(std::string_view bytes) {
  file_.append(bytes);
  size_ += bytes.size();
}

// An entry's own header.
void Package::begin(const Entry& entry) {
  const bool wide = isLarge(entry.textSize) || isLarge(entry.packedSize);
  Record header(0x04034b50);
  header.put16(wide ? kWide : kNormal)
      .put16(kUtf8)
      .put16(methodOf(entry.deflated))
      .put32(kFirstDay)
      .put32(entry.crc);
  header.putShort(entry.packedSize, wide).putShort(entry.textSize, wide);
  header.put16(entry.name.size()).put16(wide ? 20 : 0).putText(entry.name);
  if (wide) header.put16(1).put16(16).put64(entry.textSize).put64(entry.packedSize);
  append(header.bytes());
}

void Package::copy(const PackageReader& from, const PackagePart& part) {
  Entry entry{part.name, part.deflated, part.crc, part.textSize, part.packedSize, size_};
  begin(entry);
  from.readPacked(part, [this](std::string_view bytes) { append(bytes); });
  entries_.push_back(std::move(entry));
}

void Package::add(const std::string& name, std::string_view text) {
  PackedStream stream(".");
  stream.text().append(text);
  stream.end(Deflater::Then::End);
  const PackedStream* const streams[] = {&stream};
  add(name, streams);
}

void Package::add(const std::string& name, std::span<const PackedStream* const> streams) {
  Entry entry{.name = name, .offset = size_};
  for (const PackedStream* stream : streams) {
    entry.crc = static_cast<std::uint32_t>(
        crc32_combine64(entry.crc, stream->crc(), static_cast<z_off64_t>(stream->textSize())));
    entry.textSize += stream->textSize();
    entry.packedSize += stream->packedSize();
  }

  begin(entry);
  for (const PackedStream* stream : streams) {
    stream->copyTo([this](std::string_view bytes) { append(bytes); });
  }
  entries_.push_back(std::move(entry));
}

void Package::finish() {
  const std::uint64_t start = size_;
  for (const Entry& entry : entries_) {
    const bool wide = isLarge(entry.textSize) || isLarge(entry.packedSize), far = isLarge(entry.offset);
    const std::uint16_t version = wide || far ? kWide : kNormal;
    const int fields = (wide ? 16 : 0) + (far ? 8 : 0);
    Record record(0x02014b50);
    record.put16(version)
        .put16(version)
        .put16(kUtf8)
        .put16(methodOf(entry.deflated))
        .put32(kFirstDay)
        .put32(entry.crc);
    record.putShort(entry.packedSize, wide).putShort(entry.textSize, wide);
    record.put16(entry.name.size()).put16(fields ? fields + 4 : 0);
    record.put16(0).put16(0).put16(0).put32(0);  // comment, disk, attributes
    record.putShort(entry.offset, far).putText(entry.name);
    if (fields) record.put16(1).put16(fields);
    if (wide) record.put64(entry.textSize).put64(entry.packedSize);
    if (far) record.put64(entry.offset);
    append(record.bytes());
  }

  const std::uint64_t end = size_;
  const bool wide = isLarge(end);
  if (wide) {
    Record directory(0x06064b50);
    directory.put64(44)
        .put16(kWide)
        .put16(kWide)
        .put32(0)
        .put32(0)
        .put64(entries_.size())
        .put64(entries_.size());
    append(directory.put64(end - start).put64(start).bytes());
    append(Record(0x07064b50).put32(0).put64(end).put32(1).bytes());
  }
  Record last(0x06054b50);
  last.put16(0).put16(0).put16(entries_.size()).put16(entries_.size());
  append(last.put32(end - start).putShort(start, wide).put16(0).bytes());
}

}  // namespace vmgv::workbook
