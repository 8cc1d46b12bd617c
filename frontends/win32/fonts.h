// Forms' fonts as the screen has them, and how large text is in them.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <tuple>

#include "support/forms/font.h"

namespace vmgv {

// Makes each font once for each density and keeps it.
class FontBook {
 public:
  FontBook() = default;
  FontBook(const FontBook&) = delete;
  FontBook& operator=(const FontBook&) = delete;
  ~FontBook();

  HFONT font(const Font& font, int dpi);

 private:
  // Name, height in pixels, bold, italic, underline, strikethrough, character set.
  using Kind = std::tuple<std::string, int, bool, bool, bool, bool, int>;
  std::map<Kind, HFONT> fonts_;
};

// A font on the screen, to measure text with.
class TextMeasure {
 public:
  explicit TextMeasure(HFONT font) noexcept;
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;
  ~TextMeasure();

  int lineHeight() const noexcept { return lineHeight_; }
  // Of the Latin letters, as dialog units count them.
  int averageWidth() const noexcept { return averageWidth_; }
  // Of all lines of a text without mnemonics.
  SIZE extent(const std::wstring& text) const noexcept;

 private:
  HDC screen_;
  HGDIOBJ before_;
  int lineHeight_ = 0, averageWidth_ = 0;
};

}  // namespace vmgv
