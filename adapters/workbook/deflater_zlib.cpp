// The deflater by zlib, where ISA-L is not to be had.
#include <zlib.h>

#include <cassert>
#include <limits>
#include <new>

#include "adapters/workbook/deflater.h"

namespace vmgv::workbook {

struct Deflater::Engine {
  z_stream stream{};
  ~Engine() { deflateEnd(&stream); }
};

Deflater::Deflater() : engine_(new Engine) {
  const int result = deflateInit2(&engine_->stream, 1, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  if (result != Z_OK) throw std::bad_alloc();
}

Deflater::~Deflater() = default;

void Deflater::deflate(std::string_view text, Then then, Buffer& packed) {
  assert(!text.empty() && text.size() <= std::numeric_limits<uInt>::max());
  auto* bytes = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));  // zlib only reads them
  const auto size = static_cast<uInt>(text.size());
  crc_ = static_cast<std::uint32_t>(crc32(crc_, bytes, size));

  z_stream& stream = engine_->stream;
  stream.next_in = bytes;
  stream.avail_in = size;
  const int flush = then == Then::More ? Z_NO_FLUSH : then == Then::Boundary ? Z_FULL_FLUSH : Z_FINISH;
  do {
    const std::size_t room = text.size() / 4 + 1024;
    char* out = packed.room(room);
    stream.next_out = reinterpret_cast<Bytef*>(out);
    stream.avail_out = static_cast<uInt>(room);
    [[maybe_unused]] const int result = ::deflate(&stream, flush);
    assert(result == Z_OK || result == Z_STREAM_END || result == Z_BUF_ERROR);
    packed.endAt(reinterpret_cast<char*>(stream.next_out));
  } while (stream.avail_out == 0);  // room left means that nothing is held back
  assert(stream.avail_in == 0);
}

}  // namespace vmgv::workbook
