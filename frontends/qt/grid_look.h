// The colours and fonts of a grid's rows in Qt's terms: a condition's or the grid's, else the widget's own.
#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>
#include <utility>
#include <vector>

#include "adapters/grid/engine.h"

namespace vmgv {

QColor mixed(const QColor& color, const QColor& other, double shareOfOther);

class GridLook {
 public:
  explicit GridLook(const QWidget& view) : view_(view) {}

  // To be called when the grid's settings, its conditions or the widget's font or palette changed.
  void follow(const GridEngine& engine);

  QColor base() const { return base_; }  // behind rows, and where there are none
  QColor text() const { return view_.palette().color(QPalette::Text); }  // that the widget draws with
  QColor back(const RowStyle& style) const;  // paper for a colour of the text that a dark palette would hide
  QColor ink(const RowStyle& style) const;   // what can be read, where the style sets the other colour alone
  const QFont& font(const RowStyle& style) const;
  bool hasOwnFont(const RowStyle& style) const { return style.font != font_; }

  // Enough for every font that a row may have, in device-independent pixels.
  int textHeight() const { return textHeight_; }
  int lineSpacing() const { return lineSpacing_; }

 private:
  QColor colorOf(std::int32_t color) const;

  const QWidget& view_;
  std::int32_t backColor_ = kWindowColor;
  GridFont font_;
  QColor base_, alternate_;
  int textHeight_ = 0, lineSpacing_ = 0;
  mutable std::vector<std::pair<GridFont, QFont>> fonts_;  // made so far
};

}  // namespace vmgv
