#include "frontends/qt/grid_look.h"

#include <QFontMetrics>
#include <algorithm>

#include "adapters/grid/contrast.h"
#include "frontends/qt/colour.h"
#include "frontends/qt/units.h"

namespace vmgv {
namespace {

constexpr std::size_t kKeptFonts = 64;
constexpr double kAlternateShade = 0.06;  // of the text's colour

bool isDark(const QColor& color) { return qGray(color.rgb()) < 128; }

}  // namespace

QColor mixed(const QColor& color, const QColor& other, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {part(color.red(), other.red()), part(color.green(), other.green()),
          part(color.blue(), other.blue())};
}

void GridLook::follow(const GridEngine& engine) {
  const GridSettings& settings = engine.settings();
  backColor_ = settings.backColor;
  font_ = settings.font;
  base_ = colorOf(backColor_);
  fonts_.clear();
  RowStyle own;
  own.backColor = backColor_;
  own.foreColor = settings.foreColor;
  alternate_ = backColor_ == kWindowColor ? view_.palette().color(QPalette::AlternateBase)
                                          : mixed(base_, ink(own), kAlternateShade);
  const QFontMetrics metrics = view_.fontMetrics();
  textHeight_ = metrics.height();
  lineSpacing_ = metrics.lineSpacing();
  for (const GridFont& largest : engine.largestFonts()) {
    own.font = largest;
    const QFontMetrics other(font(own));
    textHeight_ = std::max(textHeight_, other.height());
    lineSpacing_ = std::max(lineSpacing_, other.lineSpacing());
  }
}

QColor GridLook::colorOf(std::int32_t color) const { return qtColour(color, view_.palette()); }

QColor GridLook::back(const RowStyle& style) const {
  const bool plain = isSystemColor(style.backColor) && !isSystemColor(style.foreColor);
  if (plain && isDark(base_) && isDark(colorOf(style.foreColor))) return colorOf(inkOn(style.foreColor));
  if (style.alternate) return alternate_;
  return style.backColor == backColor_ ? base_ : colorOf(style.backColor);
}

QColor GridLook::ink(const RowStyle& style) const {
  const bool plain = style.foreColor == kWindowTextColor && !isSystemColor(style.backColor);
  return colorOf(plain ? inkOn(style.backColor) : style.foreColor);
}

// The widget's font but for what the grid or a condition sets.
const QFont& GridLook::font(const RowStyle& style) const {
  const GridFont& wanted = style.font;
  const auto known =
      std::find_if(fonts_.begin(), fonts_.end(), [&](const auto& other) { return other.first == wanted; });
  if (known != fonts_.end()) return known->second;
  QFont font = view_.font();
  if (wanted.name != font_.name) font.setFamily(qt(wanted.name));
  if (wanted.size != font_.size) font.setPointSizeF(wanted.size);
  if (wanted.bold != font_.bold) font.setBold(wanted.bold);
  if (wanted.italic != font_.italic) font.setItalic(wanted.italic);
  if (wanted.underline != font_.underline) font.setUnderline(wanted.underline);
  if (wanted.strikethrough != font_.strikethrough) font.setStrikeOut(wanted.strikethrough);
  if (fonts_.size() == kKeptFonts) fonts_.clear();
  return fonts_.emplace_back(wanted, std::move(font)).second;
}

}  // namespace vmgv
