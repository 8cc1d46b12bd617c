#include "frontends/qt/units.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace vmgv {
namespace {

constexpr double kTwipsPerInch = 1440;

}  // namespace

Units Units::ofScreen() {
  const double dotsPerInch = QGuiApplication::primaryScreen()->logicalDotsPerInchY();
  return Units(std::max(1, static_cast<int>(std::lround(kTwipsPerInch / dotsPerInch))));
}

QRect Units::pixels(const Rect& rect) const noexcept {
  const int left = pixels(rect.left), top = pixels(rect.top);
  return {left, top, pixels(rect.right()) - left, pixels(rect.bottom()) - top};
}

Insets Units::twips(const QMargins& margins) const noexcept {
  return {margins.left() * twips_, margins.top() * twips_, margins.right() * twips_,
          margins.bottom() * twips_};
}

QString plainCaption(std::string_view utf8) {
  QString caption = qt(utf8);
  return caption.replace(u'&', QLatin1String("&&"));
}

QFont qtFont(const Font& font) {
  QFont result(qt(font.name));
  if (font.size > 0) result.setPointSizeF(font.size);
  result.setBold(font.bold);
  result.setItalic(font.italic);
  result.setUnderline(font.underline);
  result.setStrikeOut(font.strikethrough);
  return result;
}

}  // namespace vmgv
