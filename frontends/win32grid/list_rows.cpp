#include "frontends/win32grid/list_rows.h"

#include <algorithm>
#include <numeric>

#include "frontends/win32/keys.h"
#include "frontends/win32/paint.h"

namespace vmgv {
namespace {

constexpr int kShiftStep = 24;  // pixels of a usual monitor

}  // namespace

ListRows::ListRows(HWND parent, const ListModel& model) : model_(model) {
  create(L"vmGridViews.rows", parent, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL);
  tips_.emplace(window());
}

ListRows::~ListRows() {
  if (accessible_) accessible_->leave();
}

void ListRows::refresh() {
  row_ = std::min(row_, count());
  anchor_ = std::min(anchor_, count());
  if (placeOf(column_) == model_.columns.size())
    column_ = model_.columns.empty() ? 0 : model_.columns.front().index;
  hovered_ = 0;
  scrollTo(top_);
  shiftTo(shift_);
  showScrollBars();
  repaint();
}

std::size_t ListRows::placeOf(std::int32_t column) const noexcept {
  const auto& shown = model_.columns;
  const auto place =
      std::find_if(shown.begin(), shown.end(), [&](const auto& own) { return own.index == column; });
  return static_cast<std::size_t>(place - shown.begin());
}

// Painting

void ListRows::paint(HDC screen) const {
  const RECT room = client();
  const Canvas canvas(screen, {room.right, room.bottom});
  const RowPainter painter(model_, canvas.context(), shift_);
  painter.fill(room, backColour(model_));
  const std::vector<std::int32_t>& selected = engine().selection();
  const bool active = GetFocus() == window();
  RECT row = room;
  for (std::int32_t position = top_; position <= count() && row.top < room.bottom; ++position) {
    row.bottom = row.top + heightOf(position);
    painter.paint(row, position,
                  {.selected = std::binary_search(selected.begin(), selected.end(), position),
                   .active = active,
                   .current = position == row_ ? column_ : 0});
    row.top = row.bottom;
  }
}

int ListRows::heightOf(std::int32_t position) const {
  return rowHeight(model_, engine().displayRow(position));
}

std::int32_t ListRows::positionAt(int y) const {
  std::int32_t position = top_;
  for (int bottom = 0; position <= count(); ++position) {
    bottom += heightOf(position);
    if (y < bottom) return position;
  }
  return 0;
}

RECT ListRows::rectOf(std::int32_t position) const {
  RECT rect = client();
  const LONG end = rect.bottom;
  if (position < top_ || position > count()) return {};
  for (std::int32_t above = top_; above < position && rect.top < end; ++above) rect.top += heightOf(above);
  rect.bottom = rect.top + heightOf(position);
  return rect.top < end ? rect : RECT{};
}

// Scrolling

// The first position in sight where `last` is the last one that is wholly so.
std::int32_t ListRows::topFor(std::int32_t last) const {
  if (last < 1) return 1;
  const LONG room = client().bottom;
  std::int32_t top = last;
  for (LONG height = heightOf(top); top > 1; --top) {
    height += heightOf(top - 1);
    if (height > room) break;
  }
  return top;
}

void ListRows::showScrollBars() {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMin = 1;
  info.nMax = std::max(1, count());
  info.nPage = static_cast<UINT>(info.nMax - topFor(count()) + 1);
  info.nPos = top_;
  SetScrollInfo(window(), SB_VERT, &info, TRUE);
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMin = 0;
  info.nMax = std::max(0, model_.width() - 1);
  info.nPage = static_cast<UINT>(client().right);
  info.nPos = shift_;
  SetScrollInfo(window(), SB_HORZ, &info, TRUE);
}

void ListRows::scrollTo(std::int32_t top) {
  const std::int32_t wanted = std::clamp(top, 1, topFor(count()));
  if (std::exchange(top_, wanted) == wanted) return;
  SetScrollPos(window(), SB_VERT, top_, TRUE);
  repaint();
}

void ListRows::shiftTo(int shift) {
  const int most = std::max(0, model_.width() - static_cast<int>(client().right));
  const int wanted = std::clamp(shift, 0, most);
  if (std::exchange(shift_, wanted) == wanted) return;
  SetScrollPos(window(), SB_HORZ, shift_, TRUE);
  repaint();
  if (onShift) onShift();
}

void ListRows::scroll(int bar, int request) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window(), bar, &info);
  const int line = bar == SB_VERT ? 1 : scaled(kShiftStep);
  const int page = std::max(line, static_cast<int>(info.nPage));
  int to = info.nPos;
  switch (request) {
    case SB_LINEUP: to -= line; break;
    case SB_LINEDOWN: to += line; break;
    case SB_PAGEUP: to = bar == SB_VERT ? topFor(top_) : to - page; break;
    case SB_PAGEDOWN: to = bar == SB_VERT ? bottomFor(top_) : to + page; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: to = info.nTrackPos; break;
    case SB_TOP: to = info.nMin; break;
    case SB_BOTTOM: to = info.nMax; break;
    default: return;
  }
  bar == SB_VERT ? scrollTo(to) : shiftTo(to);
}

void ListRows::turnWheel(int bar, int delta) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int steps = (wheel_ += delta) / WHEEL_DELTA;
  wheel_ %= WHEEL_DELTA;
  if (bar == SB_HORZ) return shiftTo(shift_ + steps * static_cast<int>(lines) * scaled(kShiftStep));
  scrollTo(top_ - steps * static_cast<int>(std::clamp(lines, 1U, static_cast<UINT>(client().bottom))));
}

// The current row, the selection

ListRows::Select ListRows::asHeld() noexcept {
  if (isHeld(VK_SHIFT)) return Select::Range;
  return isHeld(VK_CONTROL) ? Select::Nothing : Select::This;
}

void ListRows::goTo(std::int32_t position, Select select) {
  if (count() == 0) return;
  row_ = std::clamp(position, 1, count());
  scrollTo(row_ < top_ ? row_ : std::max(top_, topFor(row_)));
  repaint();
  NotifyWinEvent(EVENT_OBJECT_FOCUS, window(), OBJID_CLIENT, row_);
  if (select == Select::Nothing) return;
  if (select == Select::This || anchor_ == 0 || !engine().multiSelect()) anchor_ = row_;
  std::vector<std::int32_t> range(static_cast<std::size_t>(std::abs(row_ - anchor_)) + 1);
  std::iota(range.begin(), range.end(), std::min(row_, anchor_));
  engine().select(std::move(range));
}

void ListRows::toggleSelected(std::int32_t position) {
  if (!engine().multiSelect()) return goTo(position, Select::This);
  std::vector<std::int32_t> selected = engine().selection();
  const auto place = std::lower_bound(selected.begin(), selected.end(), position);
  if (place != selected.end() && *place == position) {
    selected.erase(place);
  } else {
    selected.insert(place, position);
  }
  anchor_ = position;
  goTo(position, Select::Nothing);
  engine().select(std::move(selected));
}

void ListRows::takeColumn(std::int32_t column) {
  const std::size_t place = placeOf(column);
  if (place == model_.columns.size()) return;
  column_ = column;
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, window(), OBJID_CLIENT, row_);
  int left = 0;
  for (std::size_t i = 0; i < place; ++i) left += model_.columns[i].width;
  const int room = static_cast<int>(client().right);
  shiftTo(std::min(left, std::max(shift_, left + model_.columns[place].width - room)));
  repaint();
}

// The last position in sight where `first` is the first one.
std::int32_t ListRows::bottomFor(std::int32_t first) const {
  const LONG room = client().bottom;
  std::int32_t bottom = first;
  for (LONG height = heightOf(bottom); bottom < count(); ++bottom) {
    height += heightOf(bottom + 1);
    if (height > room) break;
  }
  return bottom;
}

std::optional<LRESULT> ListRows::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT: {
      const PaintScope scope(window());
      paint(scope.context());
      return 0;
    }
    case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_GETOBJECT:
      if (static_cast<LONG>(lParam) != OBJID_CLIENT) return {};
      if (!accessible_) accessible_ = makeComObject<RowAccessible>(*this, model_);
      return LresultFromObject(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(accessible_.get()));
    case WM_SIZE: refresh(); return 0;
    case WM_SETFOCUS: repaint(); return 0;
    case WM_KILLFOCUS:
      tips_->hide();
      repaint();
      return 0;
    case WM_VSCROLL: scroll(SB_VERT, LOWORD(wParam)); return 0;
    case WM_HSCROLL: scroll(SB_HORZ, LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: turnWheel(SB_VERT, GET_WHEEL_DELTA_WPARAM(wParam)); return 0;
    case WM_MOUSEHWHEEL: turnWheel(SB_HORZ, GET_WHEEL_DELTA_WPARAM(wParam)); return 0;
    default: return handleHands(message, wParam, lParam);
  }
}

}  // namespace vmgv
