// Streams that are packed apart and joined read as one.
#include "adapters/workbook/deflater.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <random>
#include <string>
#include <vector>

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
  const std::vector<std::vector<std::string>> streams = {
      {"head"},
      {noise(300000, 256), noise(1, 4), noise(262144, 4)},  // what does not pack, and what does
      {std::string(1000000, 'a'), "b"},
      {"tail"},
  };
  Buffer packed;
  std::string all;
  uLong crc = 0;
  for (std::size_t i = 0; i < streams.size(); ++i) {
    Deflater deflater;
    std::size_t size = 0;
    for (std::size_t j = 0; j < streams[i].size(); ++j) {
      const std::string& text = streams[i][j];
      const auto then = j + 1 < streams[i].size() ? Deflater::Then::More
                        : i + 1 < streams.size()  ? Deflater::Then::Boundary
                                                  : Deflater::Then::End;
      deflater.deflate(text, then, packed);
      all += text;
      size += text.size();
    }
    crc = crc32_combine(crc, deflater.crc(), static_cast<z_off_t>(size));
  }
  EXPECT_TRUE(inflated(packed.text(), all.size()) == all);
  EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(all.data()), static_cast<uInt>(all.size())), crc);
  EXPECT_LT(packed.size(), 450000u);
}

}  // namespace
}  // namespace vmgv::workbook
