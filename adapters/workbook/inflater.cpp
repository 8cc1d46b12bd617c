#include "adapters/workbook/inflater.h"

#include <zlib.h>

#include <new>

namespace vmgv::workbook {
namespace {

constexpr std::size_t kPackedBlock = std::size_t{64} * 1024;

}  // namespace

struct Inflater::Engine {
  z_stream stream{};
  ~Engine() { inflateEnd(&stream); }
};

Inflater::Inflater() : engine_(new Engine), text_(new char[kPackedBlock]) {
  if (inflateInit2(&engine_->stream, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
}

Inflater::~Inflater() = default;

bool Inflater::inflate(std::string_view packed, const std::function<bool(std::string_view)>& take) {
  z_stream& stream = engine_->stream;
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));  // zlib only reads them
  stream.avail_in = static_cast<uInt>(packed.size());
  do {
    stream.next_out = reinterpret_cast<Bytef*>(text_.get());
    stream.avail_out = static_cast<uInt>(kPackedBlock);
    const int result = ::inflate(&stream, Z_NO_FLUSH);
    if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) return false;
    if (!take({text_.get(), kPackedBlock - stream.avail_out})) return false;
    ended_ = result == Z_STREAM_END;
  } while (!ended_ && stream.avail_out == 0);
  return true;
}

}  // namespace vmgv::workbook
