// UTF-8 as files hold it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vmgv {

// Whether all bytes are ASCII and none is NUL: the common case, found eight bytes at a time.
bool isPlainAscii(std::string_view text) noexcept;
// The length of the well-formed character at the start of `text`, 0 where there is none.
unsigned characterLength(std::string_view text) noexcept;
// The character at the start of well-formed text, which is shortened by it.
char32_t takeCharacter(std::string_view& text) noexcept;
// The same of any text: where the bytes are ill-formed one is taken and nothing returned, as of an empty
// text.
std::optional<char32_t> takeCodePoint(std::string_view& text) noexcept;
bool isUtf8(std::string_view text) noexcept;
// Characters of well-formed text.
std::size_t countCharacters(std::string_view text) noexcept;
// True where the text is well-formed and has no NUL; otherwise `clean` is the text with U+FFFD in place of
// every byte that is not.
bool isCleanUtf8(std::string_view text, std::string& clean);

}  // namespace vmgv
