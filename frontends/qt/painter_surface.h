// Pages drawn by a painter: on the screen, or by a printer.
#pragma once

#include <QFont>
#include <QPainter>
#include <utility>
#include <vector>

#include "support/pages/page_surface.h"

namespace vmgv {

// The painter's unit is a point while this lives.
class PainterSurface final : public PageSurface {
 public:
  explicit PainterSurface(QPainter& painter) : painter_(painter) {}

  void fill(const PageRect& rect, PageColour colour) override;
  void line(double x1, double y1, double x2, double y2, double width, PageColour colour) override;
  void text(double x, double baseline, std::string_view text, const PageFont& font,
            PageColour colour) override;
  void clip(const PageRect& rect) override;
  void unclip() override { painter_.setClipping(false); }

 private:
  const QFont& fontOf(const PageFont& font);

  QPainter& painter_;
  std::vector<std::pair<PageFont, QFont>> fonts_;  // made so far
};

}  // namespace vmgv
