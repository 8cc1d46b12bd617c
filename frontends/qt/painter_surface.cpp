#include "frontends/qt/painter_surface.h"

#include <QPaintDevice>
#include <algorithm>

#include "frontends/qt/units.h"

namespace vmgv {
namespace {

QRectF qtRect(const PageRect& rect) { return {rect.left, rect.top, rect.width, rect.height}; }

}  // namespace

void PainterSurface::fill(const PageRect& rect, PageColour colour) {
  painter_.fillRect(qtRect(rect), QColor::fromRgb(colour));
}

void PainterSurface::line(double x1, double y1, double x2, double y2, double width, PageColour colour) {
  painter_.setPen(QPen(QColor::fromRgb(colour), width, Qt::SolidLine, Qt::FlatCap));
  painter_.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void PainterSurface::text(double x, double baseline, std::string_view text, const PageFont& font,
                          PageColour colour) {
  painter_.setPen(QColor::fromRgb(colour));
  painter_.setFont(fontOf(font));
  painter_.drawText(QPointF(x, baseline), qt(text));
}

void PainterSurface::clip(const PageRect& rect) { painter_.setClipRect(qtRect(rect)); }

// Qt reckons a font's points by the device's inch, not by the painter's scale.
const QFont& PainterSurface::fontOf(const PageFont& font) {
  const auto known =
      std::find_if(fonts_.begin(), fonts_.end(), [&font](const auto& entry) { return entry.first == font; });
  if (known != fonts_.end()) return known->second;
  QFont made(qt(font.family));
  made.setPointSizeF(font.size * kPointsPerInch / painter_.device()->logicalDpiY());
  made.setBold(font.bold);
  made.setItalic(font.italic);
  made.setUnderline(font.underline);
  made.setStrikeOut(font.strikethrough);
  made.setHintingPreference(QFont::PreferNoHinting);  // advances as on paper, at every scale
  return fonts_.emplace_back(font, made).second;
}

}  // namespace vmgv
