#include "frontends/win32/gdi_page.h"

#include <algorithm>
#include <cmath>

#include "frontends/com/text.h"

namespace vmgv {
namespace {

COLORREF colourRef(PageColour colour) noexcept {
  return RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF);
}

char32_t characterAt(const std::wstring& text, std::size_t place, bool pair) noexcept {
  if (!pair) return text[place];
  return 0x10000 + ((text[place] & 0x3FFU) << 10 | (text[place + 1] & 0x3FFU));
}

}  // namespace

GdiPage::GdiPage(HDC context, POINT origin, double scale, PageFonts& fonts)
    : context_(context), origin_(origin), scale_(scale), fonts_(fonts) {
  SaveDC(context);
  SetBkMode(context, TRANSPARENT);
  SetTextAlign(context, TA_LEFT | TA_BASELINE);
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  if (GetClipRgn(context, region) == 1) {
    whole_ = region;
  } else {
    DeleteObject(region);
  }
}

GdiPage::~GdiPage() {
  RestoreDC(context_, -1);
  for (const Font& font : made_) DeleteObject(font.device);
  if (whole_) DeleteObject(whole_);
}

POINT GdiPage::at(double x, double y) const noexcept {
  return {origin_.x + std::lround(x * scale_), origin_.y + std::lround(y * scale_)};
}

// What has any extent is to be seen.
RECT GdiPage::pixels(const PageRect& rect) const noexcept {
  const POINT from = at(rect.left, rect.top), to = at(rect.right(), rect.bottom());
  return {from.x, from.y, rect.width > 0 ? std::max(to.x, from.x + 1) : to.x,
          rect.height > 0 ? std::max(to.y, from.y + 1) : to.y};
}

void GdiPage::fill(const PageRect& rect, PageColour colour) {
  const RECT area = pixels(rect);
  SetDCBrushColor(context_, colourRef(colour));
  FillRect(context_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void GdiPage::line(double x1, double y1, double x2, double y2, double width, PageColour colour) {
  if (x1 == x2 || y1 == y2) {
    const double across = x1 == x2 ? width : 0, down = y1 == y2 ? width : 0;
    return fill({std::min(x1, x2) - across / 2, std::min(y1, y2) - down / 2, std::abs(x2 - x1) + across,
                 std::abs(y2 - y1) + down},
                colour);
  }
  const LOGBRUSH solid{BS_SOLID, colourRef(colour), 0};
  const auto thick = static_cast<DWORD>(std::max(std::lround(width * scale_), 1L));
  const HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT, thick, &solid, 0, nullptr);
  const HGDIOBJ before = SelectObject(context_, pen);
  const POINT ends[]{at(x1, y1), at(x2, y2)};
  Polyline(context_, ends, 2);
  SelectObject(context_, before);
  DeleteObject(pen);
}

const GdiPage::Font& GdiPage::fontOf(const PageFont& font) {
  const auto same = [&font](const Font& made) { return made.font == font; };
  const auto known = std::find_if(made_.begin(), made_.end(), same);
  if (known != made_.end()) return *known;
  const int height = static_cast<int>(std::lround(font.size * scale_));
  made_.push_back({font, makeFont(font, height), fonts_.metrics(font)});
  return made_.back();
}

void GdiPage::text(double x, double baseline, std::string_view text, const PageFont& font,
                   PageColour colour) {
  const std::wstring written = wide(text);
  const Font& own = fontOf(font);
  std::vector<INT> advances(written.size());
  double end = x;
  LONG before = at(x, baseline).x;
  for (std::size_t i = 0; i < written.size(); ++i) {
    const bool pair = i + 1 < written.size() && IS_SURROGATE_PAIR(written[i], written[i + 1]);
    end += own.metrics->advance(characterAt(written, i, pair));
    const LONG after = at(end, baseline).x;
    advances[i] = static_cast<INT>(after - std::exchange(before, after));
    if (pair) ++i;  // the second half adds nothing
  }
  SelectObject(context_, own.device);
  SetTextColor(context_, colourRef(colour));
  const POINT start = at(x, baseline);
  ExtTextOutW(context_, start.x, start.y, 0, nullptr, written.data(), static_cast<UINT>(written.size()),
              advances.data());
}

void GdiPage::clip(const PageRect& rect) {
  unclip();
  const RECT area = pixels(rect);
  IntersectClipRect(context_, area.left, area.top, area.right, area.bottom);
}

void GdiPage::unclip() { SelectClipRgn(context_, whole_); }

}  // namespace vmgv
