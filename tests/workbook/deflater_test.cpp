// Streams that are packed apart and joined read as one.
#include "adapters/workbook/deflater.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <memory>
#include <random>
#include <string>

namespace vmgv::workbook {
namespace {

std::string inflated(std::string_view packed, std::size_t size) {
  std::string text(size + 1, '\0');
  z_stream stream{};
  inflateInit2(&stream, -MAX_WBITS);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  const int result = inflate(&stream, Z_FINISH);
  text.resize(stream.total_out);
  inflateEnd(&stream);
  return result == Z_STREAM_END && stream.avail_in == 0 ? text : "not inflated";
}

std::string noise(std::size_t size, int letters) {
  std::mt19937 random(static_cast<unsigned>(size) + static_cast<unsigned>(letters));
  std::string text(size, '\0');
  for (char& c : text) c = static_cast<char>(random() % static_cast<unsigned>(letters));
  return text;
}

TEST(Deflater, JoinedStreamsReadAsOne) {
  using Then = Deflater::Then;
  const std::pair<std::string, Then> pieces[] = {
      {"head", Then::Boundary},  {noise(300000, 256), Then::More},  // what does not pack, and what does
      {noise(1, 4), Then::More}, {noise(262144, 4), Then::Boundary}, {std::string(1000000, 'a'), Then::More},
      {"b", Then::End},
  };
  Buffer packed;
  std::string all, stream;
  uLong crc = 0;
  auto deflater = std::make_unique<Deflater>();
  for (const auto& [text, then] : pieces) {
    deflater->deflate(text, then, packed);
    all += text;
    stream += text;
    if (then == Then::More) continue;
    crc = crc32_combine(crc, deflater->crc(), static_cast<z_off_t>(stream.size()));
    deflater = std::make_unique<Deflater>();
    stream.clear();
  }
  EXPECT_TRUE(inflated(packed.text(), all.size()) == all);
  EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(all.data()), static_cast<uInt>(all.size())), crc);
}

}  // namespace
}  // namespace vmgv::workbook
