// The texts of a column, equal ones kept once as long as that pays.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace vmgv {

inline constexpr std::uint32_t kNullText = 0xFFFFFFFF;  // the code of no text

class TextPool {
 public:
  // The text's code: 0, 1, 2, ... in the order of arrival. Where most texts differ, the pool stops looking
  // for equal ones, so that different codes may stand for equal texts.
  std::uint32_t add(std::string_view text);
  std::string_view operator[](std::uint32_t code) const noexcept {
    const char* stored = starts_[code];
    std::uint32_t length = 0;
    std::memcpy(&length, stored, sizeof length);
    return {stored + sizeof length, length};
  }
  // Has the text on its way into the processor's cache; a pool of many texts lies far from it. GCC 12 takes a
  // function that prefetches for one without effect, and drops calls that it has not inlined by then.
  [[gnu::always_inline]] void prefetch(std::uint32_t code) const noexcept {
    __builtin_prefetch(starts_[code]);
  }
  std::uint32_t size() const noexcept { return static_cast<std::uint32_t>(starts_.size()); }
  // No more texts will come.
  void finish();

 private:
  std::uint32_t store(std::string_view text);
  void grow();

  std::vector<const char*> starts_;  // of length (4 bytes) and bytes
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t room_ = 0;
  std::size_t blockSize_ = 2048;

  struct Slot {
    std::uint32_t code = kNullText;
    std::uint32_t hash = 0;
  };
  std::vector<Slot> slots_;  // open addressing; a power of two of them
  std::size_t arrived_ = 0;
  bool looking_ = true;
};

}  // namespace vmgv
