// Text and numbers in the words of the workbook's XML.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vmgv::workbook {

inline constexpr std::string_view kXmlHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

// The namespace of workbooks, sheets, styles and pivot tables (ECMA-376 part 1), as an attribute.
inline constexpr const char* kSheetNamespace =
    " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";

struct TextShape {
  int lines = 1;
  int widest = 0;  // characters of the longest line; East Asian ones count twice
};

// A byte of text becomes at most this many: a control character turns into "_x0001_".
inline constexpr std::size_t kMaxGrowth = 7;

// Writes the content of a <t> element and returns its end; `out` has room for kMaxGrowth * text.size().
// Control characters and the two that XML forbids become _xHHHH_, a text that looks like such an escape
// has its underscore escaped, and what is no UTF-8 (lone surrogates too) becomes U+FFFD.
char* encodeText(char* out, std::string_view text, TextShape& shape);

// The shortest digits that read back as the same number; at most 32 bytes.
char* encodeNumber(char* out, double number);

std::string elementText(std::string_view text);  // what encodeText writes
// For an attribute in double quotes, where readers would take a line feed for a blank.
std::string attributeText(std::string_view text);
std::string quotedText(std::string_view encoded);  // the same of an element's text

std::size_t utf16Units(std::string_view text);  // ill-formed bytes count one each

// How many lines the text takes where `width` characters fit on one.
int wrappedLines(std::string_view text, double width);

}  // namespace vmgv::workbook
