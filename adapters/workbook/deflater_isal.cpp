// The deflater by ISA-L's igzip.
#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

#include <cassert>
#include <limits>

#include "adapters/workbook/deflater.h"

namespace vmgv::workbook {

struct Deflater::Engine {
  isal_zstream stream;
  unsigned char level[ISAL_DEF_LVL1_DEFAULT];
};

Deflater::Deflater() : engine_(new Engine) {
  isal_zstream& stream = engine_->stream;
  isal_deflate_init(&stream);
  stream.level = 1;
  stream.level_buf = engine_->level;
  stream.level_buf_size = sizeof engine_->level;
}

Deflater::~Deflater() = default;

void Deflater::deflate(std::string_view text, Then then, Buffer& packed) {
  assert(!text.empty() && text.size() <= std::numeric_limits<std::uint32_t>::max());
  auto* bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));  // igzip only reads them
  crc_ = crc32_gzip_refl(crc_, bytes, text.size());

  isal_zstream& stream = engine_->stream;
  stream.next_in = bytes;
  stream.avail_in = static_cast<std::uint32_t>(text.size());
  stream.flush = then == Then::Boundary ? FULL_FLUSH : NO_FLUSH;
  stream.end_of_stream = then == Then::End;
  do {
    const std::size_t room = text.size() / 4 + 1024;
    char* out = packed.room(room);
    stream.next_out = reinterpret_cast<unsigned char*>(out);
    stream.avail_out = static_cast<std::uint32_t>(room);
    [[maybe_unused]] const int result = isal_deflate(&stream);
    assert(result == COMP_OK);
    packed.endAt(reinterpret_cast<char*>(stream.next_out));
  } while (stream.avail_out == 0);  // room left means that nothing is held back
  assert(stream.avail_in == 0);
}

}  // namespace vmgv::workbook
