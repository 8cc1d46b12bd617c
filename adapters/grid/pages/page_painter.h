// Draws a page of a grid.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "adapters/grid/pages/page_layout.h"
#include "adapters/grid/pages/page_look.h"

namespace vmgv {

class PagePainter {
 public:
  PagePainter(const GridEngine& engine, const PageLayout& layout, PageSurface& surface);

  void draw(std::int32_t page);

 private:
  struct Text {
    double x = 0, baseline = 0;
    std::string text;
    const PageFont* font = nullptr;
    PageColour colour = 0;
  };

  void drawMargin(std::array<std::string, 3> texts, double top, bool bold);
  void drawTitles(const PageBand& columns, double top);
  // Some of the row's parts, from `first` up to `end`. How high they are.
  double drawRow(const PageLayout::Page& page, const DisplayRow& row, int first, int end, double top);
  double drawRecord(const PageLayout::Page& page, const DisplayRow& row, int first, int end, double top);
  void drawPreview(const DisplayRow& row, int first, int end, double top, PageColour ink);
  void drawGroup(const PageLayout::Page& page, const DisplayRow& row, const PageRect& place);
  void drawCells(const PageBand& columns, const DisplayRow& row, const PageRect& place, const PaperFont& font,
                 PageColour ink);
  // A line of text in a cell, shortened where it is too long.
  void put(std::string text, const PageRect& cell, Alignment alignment, const PaperFont& font,
           PageColour colour);
  void rule(const PageRect& place, double width, PageColour colour);

  const GridEngine& engine_;
  const PageLayout& layout_;
  const PageLook look_;
  PageSurface& surface_;
  std::vector<Text> texts_;  // drawn last: surfaces are quick with many texts of one font
};

}  // namespace vmgv
