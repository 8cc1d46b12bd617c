// Raw deflate streams unpacked, in constant memory.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace vmgv::workbook {

class Inflater {
 public:
  Inflater();
  ~Inflater();
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  // Hands on what `packed` unpacks to, in pieces, as long as `take` wants more; false where it does not, or
  // where the bytes are no such stream.
  bool inflate(std::string_view packed, const std::function<bool(std::string_view)>& take);
  bool hasEnded() const noexcept { return ended_; }

 private:
  struct Engine;

  std::unique_ptr<Engine> engine_;
  std::unique_ptr<char[]> text_;
  bool ended_ = false;
};

}  // namespace vmgv::workbook
