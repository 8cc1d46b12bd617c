// Raw deflate at a fast level, with the checksum that a zip entry states. Two sources implement it, ISA-L's
// and zlib's; the build takes one.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "adapters/workbook/buffer.h"

namespace vmgv::workbook {

class Deflater {
 public:
  enum class Then : std::uint8_t {
    More,      // the stream goes on
    Boundary,  // ends on a whole byte and looks back no further: any other stream may follow
    End        // the last block
  };

  Deflater();
  ~Deflater();
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  // Appends what `text` packs to. A stream ends with `Boundary` or `End`, given with at least one byte.
  void deflate(std::string_view text, Then then, Buffer& packed);

  std::uint32_t crc() const noexcept { return crc_; }  // CRC-32 of all text so far

 private:
  struct Engine;
  std::unique_ptr<Engine> engine_;
  std::uint32_t crc_ = 0;
};

}  // namespace vmgv::workbook
