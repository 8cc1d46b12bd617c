#include "frontends/win32grid/list_look.h"

#include <algorithm>
#include <cmath>

#include "adapters/grid/contrast.h"
#include "frontends/com/text.h"
#include "frontends/win32/units.h"

namespace vmgv {
namespace {

// Some stand for those of the desktop.
COLORREF shownColour(std::int32_t colour) noexcept {
  constexpr std::int32_t kNumber = 0xFF, kColour = 0xFFFFFF;
  return isSystemColor(colour) ? GetSysColor(colour & kNumber) : static_cast<COLORREF>(colour & kColour);
}

}  // namespace

ListLook::ListLook(HFONT usual, const GridFont& font, const std::vector<GridFont>& largest, int dpi)
    : dpi_(dpi) {
  GetObjectW(usual, sizeof usual_, &usual_);
  font_ = made(font);
  GridFont bold = font;
  bold.bold = true;
  bold_ = made(bold);
  letterWidth_ = static_cast<int>(FontScope(font_).metrics().tmAveCharWidth);
  for (const GridFont& other : largest) {
    textHeight_ = std::max(textHeight_, static_cast<int>(FontScope(made(other)).metrics().tmHeight));
  }
}

ListLook::~ListLook() {
  for (const auto& [kind, font] : fonts_) DeleteObject(font);
}

HFONT ListLook::fontOf(const RowStyle& style) { return made(style.font); }

HFONT ListLook::made(const GridFont& font) {
  const GridFont untouched;
  HFONT& known = fonts_[{font.name, font.size, font.bold, font.italic, font.underline, font.strikethrough}];
  if (known) return known;
  LOGFONTW look = usual_;
  if (font.name != untouched.name)
    look.lfFaceName[wide(font.name).copy(look.lfFaceName, LF_FACESIZE - 1)] = 0;
  if (font.size != untouched.size)
    look.lfHeight = -static_cast<LONG>(std::lround(font.size * dpi_ / kPointsPerInch));
  if (font.bold) look.lfWeight = FW_BOLD;
  look.lfItalic = font.italic;
  look.lfUnderline = font.underline;
  look.lfStrikeOut = font.strikethrough;
  return known = CreateFontIndirectW(&look);
}

ListColours coloursOf(const RowStyle& style) noexcept {
  const bool own = !isSystemColor(style.backColor) && isSystemColor(style.foreColor);
  return {shownColour(style.backColor), shownColour(own ? inkOn(style.backColor) : style.foreColor)};
}

}  // namespace vmgv
