// Looks for a part in texts, both without case and accents.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vmgv {

class TextPart {
 public:
  TextPart() = default;  // the empty part, which is in every text
  explicit TextPart(std::string folded);

  bool isInFolded(std::string_view folded) const { return folded.find(part_) != std::string_view::npos; }
  // The same of a text as it is, which saves folding it; nothing where only its folded form can tell.
  std::optional<bool> isIn(std::string_view text) const;

 private:
  bool isAt(std::string_view text, std::size_t place) const;

  std::string part_;
  bool isAscii_ = true;           // all of it may be characters of ASCII
  bool hasScarce_ = false;        // a letter that few places of a text have:
  std::size_t scarce_ = 0;        // its place in the part,
  char small_ = 0, capital_ = 0;  // and what it is in a text; of a digit or mark both are the same
};

}  // namespace vmgv
