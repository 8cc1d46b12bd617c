#include "frontends/win32/fonts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "frontends/com/text.h"
#include "frontends/win32/units.h"

namespace vmgv {
namespace {

constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

}  // namespace

FontBook::~FontBook() {
  for (const auto& [kind, font] : fonts_) DeleteObject(font);
}

HFONT FontBook::font(const Font& font, int dpi) {
  const int height = static_cast<int>(std::lround(font.size * dpi / kPointsPerInch));
  HFONT& made =
      fonts_[{font.name, height, font.bold, font.italic, font.underline, font.strikethrough, font.charset}];
  if (made) return made;
  LOGFONTW wanted{};
  wanted.lfHeight = -height;  // of the characters
  wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfItalic = font.italic;
  wanted.lfUnderline = font.underline;
  wanted.lfStrikeOut = font.strikethrough;
  wanted.lfCharSet = static_cast<BYTE>(font.charset);
  wanted.lfQuality = CLEARTYPE_QUALITY;
  const std::wstring name = wide(font.name);
  std::copy_n(name.data(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1), wanted.lfFaceName);
  return made = CreateFontIndirectW(&wanted);
}

HDC FontBook::context() {
  if (!context_) context_.emplace();
  return *context_;
}

TextMeasure::TextMeasure(HDC context, HFONT font) noexcept
    : context_(context), before_(SelectObject(context, font)) {
  TEXTMETRICW metrics{};
  GetTextMetricsW(context_, &metrics);
  lineHeight_ = metrics.tmHeight;
  SIZE letters{};
  const auto count = static_cast<int>(kLetters.size());
  GetTextExtentPoint32W(context_, kLetters.data(), count, &letters);
  averageWidth_ = (letters.cx + count / 2) / count;
}

TextMeasure::~TextMeasure() { SelectObject(context_, before_); }

SIZE TextMeasure::extent(const std::wstring& text) const noexcept {
  if (text.empty()) return {0, lineHeight_};
  RECT box{};
  DrawTextW(context_, text.c_str(), static_cast<int>(text.size()), &box, DT_CALCRECT | DT_NOPREFIX);
  return {box.right, box.bottom};
}

}  // namespace vmgv
