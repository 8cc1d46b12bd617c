// Forms' fonts as the screen has them, and how large text is in them.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "support/forms/font.h"

namespace vmgv {

// Of the screen's kind, to measure text in. The system asks for its monitors whenever one is made.
class MeasuringContext {
 public:
  MeasuringContext() noexcept : context_(CreateCompatibleDC(nullptr)) {}
  MeasuringContext(const MeasuringContext&) = delete;
  MeasuringContext& operator=(const MeasuringContext&) = delete;
  ~MeasuringContext() { DeleteDC(context_); }
  operator HDC() const noexcept { return context_; }

 private:
  HDC context_;
};

// Makes each font once for each density and keeps it, and what text is measured with.
class FontBook {
 public:
  FontBook() = default;
  FontBook(const FontBook&) = delete;
  FontBook& operator=(const FontBook&) = delete;
  ~FontBook();

  HFONT font(const Font& font, int dpi);
  HDC context();

 private:
  // Name, height in pixels, bold, italic, underline, strikethrough, character set.
  using Kind = std::tuple<std::string, int, bool, bool, bool, bool, int>;
  std::map<Kind, HFONT> fonts_;
  std::optional<MeasuringContext> context_;
};

// A font in a device context, which outlives it, to measure text with.
class TextMeasure {
 public:
  TextMeasure(HDC context, HFONT font) noexcept;
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;
  ~TextMeasure();

  int lineHeight() const noexcept { return lineHeight_; }
  // Of the Latin letters, as dialog units count them.
  int averageWidth() const noexcept { return averageWidth_; }
  // Of all lines of a text without mnemonics.
  SIZE extent(const std::wstring& text) const noexcept;

 private:
  HDC context_;
  HGDIOBJ before_;
  int lineHeight_ = 0, averageWidth_ = 0;
};

}  // namespace vmgv
