// Text that is compressed block by block and kept in a working file: any length in constant memory.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/workbook/buffer.h"
#include "adapters/workbook/deflater.h"
#include "adapters/workbook/files.h"

namespace vmgv::workbook {

class PackedStream {
 public:
  // The working file is made in `folder` when the packed bytes outgrow the memory buffer.
  explicit PackedStream(std::string folder) : folder_(std::move(folder)) {}
  // Makes the working file at once, so that a folder that cannot be written to shows now.
  void openFile();

  // Text is appended here; `settle` after each piece packs it when there is a block of it.
  Buffer& text() noexcept { return text_; }
  void settle() {
    if (text_.size() >= kBlock) pack(Deflater::Then::More);
  }
  // Packs the rest, which is not empty.
  void end(Deflater::Then then);

  // Throws where an earlier error has torn the stream: what was lost then must not go unnoticed.
  void requireWhole() const;

  std::uint32_t crc() const noexcept { return deflater_.crc(); }
  std::uint64_t textSize() const noexcept { return textSize_; }
  std::uint64_t packedSize() const noexcept { return spooled_ + packed_.size(); }
  void copyTo(const std::function<void(std::string_view)>& sink) const;
  // The text again, in pieces, as long as `sink` returns true; the stream has ended.
  void readText(const std::function<bool(std::string_view)>& sink) const;

 private:
  static constexpr std::size_t kBlock = std::size_t{256} * 1024;  // igzip is slower on smaller ones
  static constexpr std::size_t kSpool = std::size_t{64} * 1024;

  void pack(Deflater::Then then);
  void eachBlock(const std::function<bool(std::string_view)>& sink) const;

  std::string folder_;
  Buffer text_;
  Buffer packed_;  // what the file does not hold yet
  Deflater deflater_;
  std::optional<SpoolFile> file_;
  std::uint64_t textSize_ = 0;
  std::uint64_t spooled_ = 0;
  bool torn_ = false;
};

}  // namespace vmgv::workbook
