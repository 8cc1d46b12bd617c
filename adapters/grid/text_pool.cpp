#include "adapters/grid/text_pool.h"

#include <algorithm>

namespace vmgv {
namespace {

constexpr std::size_t kLargestBlock = std::size_t{1} << 20;
// From this many texts on, looking for equal ones ends where fewer than one in ten has been one.
constexpr std::size_t kTrial = std::size_t{1} << 16;

std::uint64_t mix(std::uint64_t x) {
  x ^= x >> 32;
  x *= 0xD6E8FEB86659FD93u;
  x ^= x >> 32;
  return x;
}

std::uint32_t hashOf(std::string_view text) {
  std::uint64_t hash = text.size();
  std::size_t at = 0;
  for (; at + 8 <= text.size(); at += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + at, 8);
    hash = mix(hash ^ word);
  }
  std::uint64_t rest = 0;
  if (at < text.size()) std::memcpy(&rest, text.data() + at, text.size() - at);
  return static_cast<std::uint32_t>(mix(mix(hash ^ rest) + 0x9E3779B97F4A7C15u));
}

}  // namespace

std::uint32_t TextPool::add(std::string_view text) {
  ++arrived_;
  if (!looking_) return store(text);
  if (starts_.size() * 2 >= slots_.size()) {
    grow();
    if (!looking_) return store(text);
  }
  const std::uint32_t hash = hashOf(text);
  std::size_t at = hash & (slots_.size() - 1);
  while (slots_[at].code != kNullText) {
    if (slots_[at].hash == hash && (*this)[slots_[at].code] == text) return slots_[at].code;
    at = (at + 1) & (slots_.size() - 1);
  }
  slots_[at] = {store(text), hash};
  return slots_[at].code;
}

void TextPool::finish() {
  looking_ = false;
  slots_ = {};
  starts_.shrink_to_fit();
}

std::uint32_t TextPool::store(std::string_view text) {
  const auto length = static_cast<std::uint32_t>(text.size());
  const std::size_t needed = sizeof length + length;
  if (needed > room_) {
    room_ = std::max(blockSize_, needed);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
    free_ = blocks_.back().get();
    blockSize_ = std::min(blockSize_ * 2, kLargestBlock);
  }
  std::memcpy(free_, &length, sizeof length);
  if (length > 0) std::memcpy(free_ + sizeof length, text.data(), length);
  starts_.push_back(free_);
  free_ += needed;
  room_ -= needed;
  return size() - 1;
}

void TextPool::grow() {
  if (starts_.size() >= kTrial && starts_.size() * 10 > arrived_ * 9) {
    looking_ = false;
    slots_ = {};
    return;
  }
  std::vector<Slot> old(std::max<std::size_t>(slots_.size() * 2, 64));
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.code == kNullText) continue;
    std::size_t at = slot.hash & (slots_.size() - 1);
    while (slots_[at].code != kNullText) at = (at + 1) & (slots_.size() - 1);
    slots_[at] = slot;
  }
}

}  // namespace vmgv
