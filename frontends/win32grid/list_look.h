// Fonts, sizes and colours of a list at one density.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "adapters/grid/row_styles.h"

namespace vmgv {

class ListLook {
 public:
  // `font` is the grid's, and `largest` what rows may have; `usual` serves for what these leave as it is by
  // itself.
  ListLook(HFONT usual, const GridFont& font, const std::vector<GridFont>& largest, int dpi);
  ListLook(const ListLook&) = delete;
  ListLook& operator=(const ListLook&) = delete;
  ~ListLook();

  HFONT font() const noexcept { return font_; }
  HFONT bold() const noexcept { return bold_; }
  HFONT fontOf(const RowStyle& style);  // kept as long as this is
  // Pixels: of a line of text in the largest font, and of a row without a preview.
  int textHeight() const noexcept { return textHeight_; }
  int lineHeight() const noexcept { return textHeight_ + scaled(8); }
  int previewHeight(int lines) const noexcept { return lines == 0 ? 0 : lines * textHeight_ + scaled(4); }
  int letterWidth() const noexcept { return letterWidth_; }  // on average
  int padding() const noexcept { return scaled(6); }         // at each side of a text
  int indent() const noexcept { return scaled(18); }         // of each level of groups
  int scaled(int pixels) const noexcept { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }
  int unscaled(int pixels) const noexcept { return MulDiv(pixels, USER_DEFAULT_SCREEN_DPI, dpi_); }

 private:
  // Name, size, bold, italic, underline, strikethrough.
  using Kind = std::tuple<std::string, double, bool, bool, bool, bool>;
  HFONT made(const GridFont& font);

  int dpi_;
  LOGFONTW usual_{};
  std::map<Kind, HFONT> fonts_;
  HFONT font_, bold_;
  int textHeight_ = 0, letterWidth_ = 0;
};

struct ListColours {
  COLORREF back, ink;
};
// A back colour of its own has an ink that can be read on it.
ListColours coloursOf(const RowStyle& style) noexcept;

// A font chosen in a device context, as long as it lives: in a given one, or in the screen's to measure with.
class FontScope {
 public:
  FontScope(HDC context, HFONT font) noexcept : context_(context), before_(SelectObject(context, font)) {}
  FontScope(const FontScope&) = delete;
  FontScope& operator=(const FontScope&) = delete;
  explicit FontScope(HFONT font) noexcept : FontScope(GetDC(nullptr), font) { isScreen_ = true; }
  ~FontScope() {
    SelectObject(context_, before_);
    if (isScreen_) ReleaseDC(nullptr, context_);
  }
  TEXTMETRICW metrics() const noexcept {
    TEXTMETRICW metrics{};
    GetTextMetricsW(context_, &metrics);
    return metrics;
  }
  int width(const std::wstring& text) const noexcept {
    SIZE size{};
    GetTextExtentPoint32W(context_, text.c_str(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
  }

 private:
  HDC context_;
  HGDIOBJ before_;
  bool isScreen_ = false;
};

}  // namespace vmgv
