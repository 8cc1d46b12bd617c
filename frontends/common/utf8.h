// Characters of UTF-8 text.
#pragma once

#include <optional>
#include <string_view>

namespace vmgv {

// Takes the first character off `text`. Nothing where the bytes are not well-formed UTF-8 (one byte is taken
// then) or the text is empty.
std::optional<char32_t> takeCodePoint(std::string_view& text) noexcept;

bool isUtf8(std::string_view text) noexcept;

}  // namespace vmgv
