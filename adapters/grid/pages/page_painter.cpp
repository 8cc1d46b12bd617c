#include "adapters/grid/pages/page_painter.h"

#include <algorithm>
#include <limits>

namespace vmgv {
namespace {

constexpr PageColour kTitleBack = 0xE8ECF1, kTitleLine = 0x44546A, kTitleText = 0x1F2A3A;
constexpr PageColour kGroupBack = 0xF3F5F8, kGroupLine = 0xB8C2CF, kRule = 0xDDE2E8;
constexpr PageColour kHeaderText = 0x1F2A3A, kFooterText = 0x555F6B;
constexpr double kTitleLineWidth = 0.9, kGroupLineWidth = 0.5, kRuleWidth = 0.4;
constexpr double kPreviewShade = 0.3;  // how much of the paper is in a preview's ink
constexpr double kMarginTextGap = 12;
constexpr int kAllParts = std::numeric_limits<int>::max();

PageRect cut(const PageRect& rect, double left, double width) { return {left, rect.top, width, rect.height}; }

}  // namespace

PagePainter::PagePainter(const GridEngine& engine, const PageLayout& layout, PageSurface& surface)
    : engine_(engine),
      layout_(layout),
      look_(engine.settings(), engine.printer().translateColors),
      surface_(surface) {}

void PagePainter::draw(std::int32_t page) {
  const PageLayout::Page shown = layout_.page(page);
  const PageRect& area = layout_.area();
  drawMargin(engine_.printer().header, area.top, true);
  drawMargin(engine_.printer().footer, area.bottom() - layout_.marginFont(false).ruler.lineHeight(), false);
  double top = layout_.bodyTop();
  if (shown.hasTitles) {
    drawTitles(shown.columns, top);
    top += layout_.titleHeight();
  }
  const PageStart begin = shown.begin, end = shown.end;
  for (std::int32_t row = begin.row; row < end.row || (row == end.row && end.part > 0); ++row) {
    top += drawRow(shown, engine_.displayRow(layout_.rows().position(row)), row == begin.row ? begin.part : 0,
                   row == end.row ? end.part : kAllParts, top);
  }
  for (const Text& text : texts_) {
    surface_.text(text.x, text.baseline, text.text, *text.font, text.colour);
  }
}

// The one in the middle keeps its place; those at the sides get what it leaves.
void PagePainter::drawMargin(std::array<std::string, 3> texts, double top, bool bold) {
  const PaperFont& font = layout_.marginFont(bold);
  const PageColour colour = bold ? kHeaderText : kFooterText;
  const PageRect line{layout_.area().left, top, layout_.area().width, font.ruler.lineHeight()};
  const double third = line.width / 3;
  const bool sides = !texts[0].empty() || !texts[2].empty();
  const double middle = font.ruler.fit(texts[1], sides ? third : line.width);
  const double side = (line.width - middle) / 2 - kMarginTextGap;
  const double right =
      font.ruler.fit(texts[2], texts[1].empty() && !texts[0].empty() ? line.width / 2 : side);
  const double left = texts[1].empty() ? line.width - right - (right > 0 ? kMarginTextGap : 0) : side;
  font.ruler.fit(texts[0], left);
  constexpr Alignment kPlaces[] = {Alignment::Left, Alignment::Centre, Alignment::Right};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    put(std::move(texts[i]), line, kPlaces[i], font, colour);
  }
}

void PagePainter::drawTitles(const PageBand& columns, double top) {
  const PageRect place{layout_.area().left, top, widthOf(columns), layout_.titleHeight()};
  const PaperFont& font = layout_.fonts().of(engine_.settings().font, true);
  surface_.fill(place, kTitleBack);
  rule(place, kTitleLineWidth, kTitleLine);
  double left = place.left + layout_.padding();
  for (const PageColumn& column : columns) {
    put(engine_.column(column.index).caption, cut(place, left, column.width - 2 * layout_.padding()),
        engine_.alignment(column.index), font, kTitleText);
    left += column.width;
  }
}

double PagePainter::drawRow(const PageLayout::Page& page, const DisplayRow& row, int first, int end,
                            double top) {
  if (row.rowType == kRecordRow) return drawRecord(page, row, first, end, top);
  const PageRect place{layout_.area().left, top, widthOf(page.columns), layout_.rowHeight(row.rowType)};
  drawGroup(page, row, place);
  return place.height;
}

double PagePainter::drawRecord(const PageLayout::Page& page, const DisplayRow& row, int first, int end,
                               double top) {
  const RowStyle& style = engine_.styleOf(row);
  const PaperFont& font = layout_.fonts().of(style.font);
  const PageColour back = look_.back(style), ink = look_.ink(style);
  end = std::min(end, layout_.previewLines(engine_, row) + 1);
  const double height = first == 0 ? layout_.rowHeight(kRecordRow) : 0;
  const double preview = (end - std::max(first, 1)) * layout_.previewLine();
  const PageRect place{layout_.area().left, top, widthOf(page.columns), height + preview};
  if (back != PageLook::kPaper) surface_.fill(place, back);
  rule(place, kRuleWidth, kRule);
  if (first == 0) drawCells(page.columns, row, {place.left, top, place.width, height}, font, ink);
  if (preview > 0 && page.isFirstBand) {
    drawPreview(row, std::max(first, 1), end, top + height - layout_.gap(), mixed(ink, back, kPreviewShade));
  }
  return place.height;
}

// In the grid's own font whatever the record's: where pages begin shall not depend on conditions.
void PagePainter::drawPreview(const DisplayRow& row, int first, int end, double top, PageColour ink) {
  const PaperFont& font = layout_.fonts().of(engine_.settings().font);
  const std::string text = engine_.previewText(row);
  LineBreaker lines(font.ruler, text, layout_.previewRoom());
  for (int part = 1; part < end; ++part) {
    std::string line(part == layout_.mostPreviewLines() ? lines.rest() : lines.next());
    if (part < first) continue;
    const PageRect place{layout_.area().left + layout_.previewIndent(), top, layout_.previewRoom(),
                         layout_.previewLine()};
    put(std::move(line), place, Alignment::Left, font, ink);
    top += layout_.previewLine();
  }
}

void PagePainter::drawGroup(const PageLayout::Page& page, const DisplayRow& row, const PageRect& place) {
  const PaperFont& font = layout_.fonts().of(engine_.settings().font, true);
  const bool header = row.rowType == kGroupHeaderRow;
  if (header) surface_.fill(place, kGroupBack);
  rule(place, kGroupLineWidth, kGroupLine);
  if (!header) return drawCells(page.columns, row, place, font, kTitleText);
  const double indent = layout_.padding() + row.level * layout_.indent();
  const double room = std::max(page.textWidth - indent - layout_.padding(), 0.0);
  put(engine_.groupText(row), cut(place, place.left + indent, room), Alignment::Left, font, kTitleText);
}

void PagePainter::drawCells(const PageBand& columns, const DisplayRow& row, const PageRect& place,
                            const PaperFont& font, PageColour ink) {
  double left = place.left + layout_.padding();
  for (const PageColumn& column : columns) {
    put(engine_.displayText(row, column.index), cut(place, left, column.width - 2 * layout_.padding()),
        engine_.alignment(column.index), font, ink);
    left += column.width;
  }
}

void PagePainter::put(std::string text, const PageRect& cell, Alignment alignment, const PaperFont& font,
                      PageColour colour) {
  const double free = cell.width - font.ruler.fit(text, cell.width);
  if (text.empty()) return;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  const double share = alignment == Alignment::Left ? 0 : alignment == Alignment::Right ? 1 : 0.5;
  const double baseline = cell.top + (cell.height - font.ruler.lineHeight()) / 2 + font.ruler.ascent();
  texts_.push_back({cell.left + share * free, baseline, std::move(text), &font.font, colour});
}

void PagePainter::rule(const PageRect& place, double width, PageColour colour) {
  const double y = place.bottom() - width / 2;  // the next row's background would cover more
  surface_.line(place.left, y, place.right(), y, width, colour);
}

}  // namespace vmgv
