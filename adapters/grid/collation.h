// The order of texts as a reader of English or Greek expects it.
//
// Case and accents count only between texts that are otherwise equal: plain before accented, small before
// capital. Final sigma is a sigma. Punctuation, then digits one by one, then Latin, Greek, other letters.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/grid/text_pool.h"

namespace vmgv {

// Appends the sort key of well-formed UTF-8: keys compare byte by byte as their texts do.
void appendSortKey(std::string_view text, std::string& keys);

// Appends the text without case and accents, in bytes up to 0x7F and others behind these: folded texts
// compare as their texts do where these differ in more, and contain each other as their texts do.
void appendFoldedText(std::string_view text, std::string& folded);

// What an ASCII character is when folded, and whether some ASCII character folds to this byte.
char asciiWeight(char character) noexcept;
bool hasAsciiLetter(char weight) noexcept;

// By code: equal texts have equal ranks, and ranks leave no gaps.
std::vector<std::uint32_t> textRanks(const TextPool& texts);

}  // namespace vmgv
