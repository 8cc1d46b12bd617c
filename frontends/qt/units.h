// Between the forms' twips and Qt's pixels, and between UTF-8 and Qt's text.
#pragma once

#include <QFont>
#include <QMargins>
#include <QRect>
#include <QSize>
#include <QString>
#include <string>
#include <string_view>

#include "support/forms/font.h"
#include "support/forms/geometry.h"

namespace vmgv {

inline constexpr double kPointsPerInch = 72;

// Pixels are Qt's device-independent ones, so that a screen's scale needs no thought here.
class Units {
 public:
  // Of the primary screen; needs a QGuiApplication.
  static Units ofScreen();
  explicit Units(int twipsPerPixel) noexcept : twips_(twipsPerPixel) {}

  int twipsPerPixel() const noexcept { return twips_; }
  int pixels(int twips) const noexcept { return twips / twips_; }
  QSize pixels(Size size) const noexcept { return {pixels(size.width), pixels(size.height)}; }
  // Edges are rounded, not extents: neighbours stay neighbours.
  QRect pixels(const Rect& rect) const noexcept;
  Size twips(QSize size) const noexcept { return {size.width() * twips_, size.height() * twips_}; }
  Insets twips(const QMargins& margins) const noexcept;

 private:
  int twips_;
};

inline QString qt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string utf8(const QString& text) { return text.toStdString(); }

// A caption as widgets take it that read '&' as the mark of a mnemonic.
QString plainCaption(std::string_view utf8);

QFont qtFont(const Font& font);

}  // namespace vmgv
