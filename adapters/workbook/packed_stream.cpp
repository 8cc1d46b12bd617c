// Packing and spooling of long texts.
#include "adapters/workbook/packed_stream.h"

#include "adapters/workbook/inflater.h"
#include "support/automation/error.h"

namespace vmgv::workbook {

void PackedStream::openFile() {
  if (!file_) file_.emplace(folder_);
}

void PackedStream::end(Deflater::Then then) { pack(then); }

void PackedStream::requireWhole() const {
  if (torn_) {
    throw Error(ErrorNumber::DeviceIo,
                "The workbook is incomplete: an earlier write into the folder " + folder_ + " failed");
  }
}

void PackedStream::pack(Deflater::Then then) {
  requireWhole();
  torn_ = true;  // until all has gone well
  deflater_.deflate(text_.text(), then, packed_);
  textSize_ += text_.size();
  text_.clear();
  if (packed_.size() >= kSpool) {
    openFile();
    file_->append(packed_.text());
    spooled_ += packed_.size();
    packed_.clear();
  }
  torn_ = false;
}

void PackedStream::eachBlock(const std::function<bool(std::string_view)>& sink) const {
  if (spooled_ > 0) {
    Buffer block;
    for (std::uint64_t offset = 0; offset < spooled_;) {
      char* bytes = block.room(kBlock);
      const std::size_t count = file_->read(offset, bytes, kBlock);
      if (count == 0) throw Error(ErrorNumber::DeviceIo, "The workbook's working file was cut short");
      if (!sink({bytes, count})) return;
      offset += count;
    }
  }
  sink(packed_.text());
}

void PackedStream::copyTo(const std::function<void(std::string_view)>& sink) const {
  eachBlock([&sink](std::string_view block) { return sink(block), true; });
}

void PackedStream::readText(const std::function<bool(std::string_view)>& sink) const {
  Inflater inflater;
  eachBlock([&](std::string_view block) { return inflater.inflate(block, sink); });
}

}  // namespace vmgv::workbook
