#include "frontends/win32grid/row_painter.h"

#include <algorithm>

#include "adapters/grid/contrast.h"
#include "frontends/com/text.h"
#include "frontends/win32/surface.h"

namespace vmgv {
namespace {

constexpr int kAlternateShare = 8, kRuleShare = 20, kIdleShare = 25, kPreviewShare = 75;  // percent
constexpr std::size_t kMostPreview = 32'768;  // bytes of a text that are looked at

UINT textFormat(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left: return DT_LEFT;
    case Alignment::Centre: return DT_CENTER;
    case Alignment::Right: return DT_RIGHT;
  }
  return DT_LEFT;
}

constexpr UINT kOneLine = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
constexpr UINT kManyLines = DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS | DT_NOPREFIX;

void write(HDC context, const std::wstring& text, RECT room, UINT format) {
  DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &room, format);
}

COLORREF readable(COLORREF ink, COLORREF back) noexcept {
  return static_cast<COLORREF>(readableOn(static_cast<std::int32_t>(ink), static_cast<std::int32_t>(back)));
}

// A selection that waits for the list to have the focus is paler.
ListColours coloursOf(const RowStyle* style, const RowState& state) {
  ListColours own{GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNTEXT)};
  if (style) own = coloursOf(*style);
  const COLORREF mark = GetSysColor(COLOR_HIGHLIGHT);
  if (state.selected && state.active) return {mark, GetSysColor(COLOR_HIGHLIGHTTEXT)};
  const int share = state.selected ? kIdleShare : style && style->alternate ? kAlternateShare : 0;
  if (share == 0) return own;
  const COLORREF back = mixed(mark, own.back, share);
  return {back, readable(own.ink, back)};
}

COLORREF softened(const ListColours& colours) noexcept {
  const COLORREF softer = mixed(colours.ink, colours.back, kPreviewShare);
  return readable(softer, colours.back) == softer ? softer : colours.ink;
}

}  // namespace

int rowHeight(const ListModel& model, const DisplayRow& row) noexcept {
  const int preview = row.rowType == kRecordRow ? model.engine->previewLines() : 0;
  return model.look->lineHeight() + model.look->previewHeight(preview);
}

RECT expanderRect(const ListModel& model, const DisplayRow& row, const RECT& room) noexcept {
  const int left = room.left + row.level * model.look->indent();
  return {left, room.top, left + model.look->indent(), room.bottom};
}

COLORREF backColour(const ListModel& model) {
  return coloursOf(RowStyle{.backColor = model.engine->settings().backColor}).back;
}

void RowPainter::fill(const RECT& room, COLORREF colour) const noexcept {
  SetDCBrushColor(context_, colour);
  FillRect(context_, &room, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void RowPainter::paint(const RECT& room, std::int32_t position, const RowState& state) const {
  const DisplayRow row = model_.engine->displayRow(position);
  const RowStyle* style = row.rowType == kRecordRow ? &model_.engine->styleOf(row) : nullptr;
  const ListColours colours = coloursOf(style, state);
  const HFONT font = style ? model_.look->fontOf(*style) : model_.look->bold();
  SetBkMode(context_, TRANSPARENT);
  SetTextColor(context_, colours.ink);
  RECT own = room;
  if (row.rowType != kGroupHeaderRow) {
    own.right = std::min<LONG>(room.right, room.left + model_.width() - shift_);
    fill({own.right, room.top, room.right, room.bottom}, backColour(model_));
  }
  fill(own, colours.back);
  const RECT line{own.left, own.top, own.right, own.top + model_.look->lineHeight()};
  if (row.rowType == kGroupHeaderRow) {
    header(line, row, state);
  } else {
    cells(line, position, font, colours.back, state);
    if (line.bottom < own.bottom) {
      preview({own.left, line.bottom, own.right, own.bottom}, row, font, softened(colours));
    }
  }
  fill({own.left, own.bottom - 1, own.right, own.bottom}, mixed(colours.ink, colours.back, kRuleShare));
}

void RowPainter::cells(const RECT& line, std::int32_t position, HFONT font, COLORREF back,
                       const RowState& state) const {
  const FontScope scope(context_, font);
  const COLORREF ink = GetTextColor(context_);
  RECT cell = line;
  cell.right = line.left - shift_;
  for (const ShownColumn& column : model_.columns) {
    cell.left = cell.right;
    cell.right += column.width;
    if (cell.right <= line.left) continue;
    if (cell.left >= line.right) break;
    RECT text = cell;
    text.left += model_.look->padding();
    text.right -= model_.look->padding();
    write(context_, cellText(model_.engine->displayText(position, column.index)), text,
          kOneLine | textFormat(model_.engine->alignment(column.index)));
    const RECT rule{cell.right - 1, cell.top, cell.right, cell.bottom};
    fill(rule, mixed(ink, back, kRuleShare));
    if (state.active && state.current == column.index) {
      const RECT mark{cell.left, cell.top, cell.right - 1, cell.bottom - 1};
      DrawFocusRect(context_, &mark);
    }
  }
}

void RowPainter::header(const RECT& room, const DisplayRow& row, const RowState& state) const {
  const RECT mark = expanderRect(model_, row, room);
  expander(mark, model_.engine->isExpanded(row), GetTextColor(context_));
  const FontScope scope(context_, model_.look->bold());
  const RECT text{mark.right, room.top, room.right - model_.look->padding(), room.bottom};
  write(context_, cellText(model_.engine->groupText(row)), text, kOneLine);
  if (state.active && state.current != 0) {
    const RECT focus{room.left + 1, room.top, room.right - 1, room.bottom - 1};
    DrawFocusRect(context_, &focus);
  }
}

void RowPainter::preview(const RECT& room, const DisplayRow& row, HFONT font, COLORREF ink) const {
  const FontScope scope(context_, font);
  const int padding = model_.look->padding();
  RECT text{room.left - shift_ + 2 * padding, room.top, room.right - padding, room.top};
  text.bottom += model_.engine->previewLines() * model_.look->textHeight();
  const COLORREF before = SetTextColor(context_, ink);
  const std::string shown = model_.engine->previewText(row);
  write(context_, wide(std::string_view(shown).substr(0, kMostPreview)), text, kManyLines);
  SetTextColor(context_, before);
}

// A triangle that points to what it opens.
void RowPainter::expander(const RECT& room, bool expanded, COLORREF ink) const noexcept {
  const int half = model_.look->scaled(4);
  const POINT centre{(room.left + room.right) / 2, (room.top + room.bottom) / 2};
  const auto at = [&](int along, int across) {
    return expanded ? POINT{centre.x + across, centre.y + along} : POINT{centre.x + along, centre.y + across};
  };
  const POINT corners[] = {at(-half / 2, -half), at(-half / 2, half), at(half - half / 2, 0)};
  SetDCBrushColor(context_, ink);
  SetDCPenColor(context_, ink);
  const HGDIOBJ brush = SelectObject(context_, GetStockObject(DC_BRUSH));
  const HGDIOBJ pen = SelectObject(context_, GetStockObject(DC_PEN));
  Polygon(context_, corners, static_cast<int>(std::size(corners)));
  SelectObject(context_, brush);
  SelectObject(context_, pen);
}

}  // namespace vmgv
