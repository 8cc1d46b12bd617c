// A growing run of bytes that writers fill through a pointer: no clearing, no check per byte.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace vmgv::workbook {

class Buffer {
 public:
  // Where to write at most `bytes` more bytes; `endAt` then tells how far the writer came.
  char* room(std::size_t bytes) {
    if (capacity_ - size_ < bytes) grow(bytes);
    return data_.get() + size_;
  }
  void endAt(const char* end) noexcept { size_ = static_cast<std::size_t>(end - data_.get()); }

  void append(std::string_view text) {
    std::memcpy(room(text.size()), text.data(), text.size());
    size_ += text.size();
  }
  void clear() noexcept { size_ = 0; }
  std::size_t size() const noexcept { return size_; }
  std::string_view text() const noexcept { return {data_.get(), size_}; }

 private:
  void grow(std::size_t bytes) {
    const std::size_t capacity = (size_ + bytes) + (size_ + bytes) / 2;
    std::unique_ptr<char[]> data(new char[capacity]);
    if (size_ > 0) std::memcpy(data.get(), data_.get(), size_);
    data_ = std::move(data);
    capacity_ = capacity;
  }

  std::unique_ptr<char[]> data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace vmgv::workbook
