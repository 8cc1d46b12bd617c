#include "frontends/win32grid/list_group_box.h"

#include <windowsx.h>
//
#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "adapters/grid/user_acts.h"
#include "frontends/com/text.h"
#include "frontends/win32/keys.h"

namespace vmgv {
namespace {

constexpr int kGap = 6, kMark = 2;  // pixels of a usual monitor
constexpr const wchar_t *kAscending = L" \u25B2", *kDescending = L" \u25BC";

// No letter of a caption is taken for a mnemonic.
std::wstring chipText(const GridEngine& engine, const SortKey& group) {
  std::wstring text = cellText(engine.column(group.colIndex).caption);
  for (std::size_t i = 0; (i = text.find(L'&', i)) != text.npos; i += 2) text.insert(i, 1, L'&');
  return text + (group.sortOrder == kSortAscending ? kAscending : kDescending);
}

}  // namespace

ListGroupBox::ListGroupBox(HWND parent, const ListModel& model) : model_(model) {
  create(L"vmGridViews.groups", parent, WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
}

int ListGroupBox::heightWanted() const noexcept { return model_.look->lineHeight() + 3 * scaled(kGap); }

HWND ListGroupBox::chip(std::size_t level) {
  while (chips_.size() <= level) {
    const HWND made = CreateWindowExW(0, WC_BUTTONW, L"", WS_CHILD | WS_TABSTOP, 0, 0, 0, 0, window(),
                                      nullptr, nullptr, nullptr);
    SetWindowSubclass(made, chipProcedure, chips_.size(), reinterpret_cast<DWORD_PTR>(this));
    chips_.push_back(made);
  }
  return chips_[level];
}

void ListGroupBox::showGroups() {
  const std::vector<SortKey>& groups = engine().groups();
  shown_ = groups.size();
  for (std::size_t level = 0; level < shown_; ++level) {
    SetWindowFont(chip(level), model_.look->font(), FALSE);
    SetWindowTextW(chip(level), chipText(engine(), groups[level]).c_str());
  }
  for (std::size_t level = 0; level < chips_.size(); ++level) {
    ShowWindow(chips_[level], level < shown_ ? SW_SHOWNA : SW_HIDE);
  }
  arrange();
  RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// Buttons share what room there is where they want more.
void ListGroupBox::arrange() {
  const FontScope screen(model_.look->font());
  const int gap = scaled(kGap), height = model_.look->lineHeight() + gap;
  std::vector<int> widths;
  int wanted = 0;
  for (std::size_t level = 0; level < shown_; ++level) {
    widths.push_back(screen.width(chipText(engine(), engine().groups()[level])) + 4 * gap);
    wanted += widths.back();
  }
  const int room = std::max(0, static_cast<int>(client().right) - gap * (static_cast<int>(shown_) + 1));
  int left = gap;
  for (std::size_t level = 0; level < shown_; ++level) {
    const int width = wanted > room ? MulDiv(room, widths[level], wanted) : widths[level];
    place(chips_[level], left, (static_cast<int>(client().bottom) - height) / 2, width, height);
    left += width + gap;
  }
}

RECT ListGroupBox::rectOf(std::size_t level) const noexcept {
  RECT rect{};
  GetWindowRect(chips_[level], &rect);
  MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

bool ListGroupBox::showDrop(POINT screen) {
  POINT point = screen;
  ScreenToClient(window(), &point);
  const RECT room = client();
  const bool over = IsWindowVisible(window()) && PtInRect(&room, point);
  const int wanted = over ? static_cast<int>(levelAt(screen)) : -1;
  if (std::exchange(drop_, wanted) != wanted) InvalidateRect(window(), nullptr, TRUE);
  return over;
}

void ListGroupBox::hideDrop() {
  drop_ = -1;
  InvalidateRect(window(), nullptr, TRUE);
}

std::size_t ListGroupBox::levelAt(POINT screen) const {
  ScreenToClient(window(), &screen);
  std::size_t level = 0;
  while (level < shown_ && screen.x > (rectOf(level).left + rectOf(level).right) / 2) ++level;
  return level;
}

void ListGroupBox::paint(HDC context) const {
  const FontScope font(context, model_.look->font());
  const int gap = scaled(kGap);
  RECT room = client();
  if (drop_ >= 0) {
    const auto level = static_cast<std::size_t>(drop_);
    const LONG before = level > 0 ? rectOf(level - 1).right : 0;
    room.left = before + (gap - scaled(kMark)) / 2;
    room.right = room.left + scaled(kMark);
    return static_cast<void>(FillRect(context, &room, GetSysColorBrush(COLOR_HIGHLIGHT)));
  }
  if (shown_ > 0) return;
  room.left += 2 * gap;
  room.right -= gap;
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  const std::wstring prompt = cellText(engine().settings().groupByBoxInfoText);
  DrawTextW(context, prompt.c_str(), static_cast<int>(prompt.size()), &room,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

bool ListGroupBox::focusFirst() {
  if (shown_ == 0 || !IsWindowVisible(window())) return false;
  focus(0);
  return true;
}

void ListGroupBox::focus(std::size_t level) const {
  if (level < shown_) SetFocus(chips_[level]);
}

std::optional<LRESULT> ListGroupBox::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT: {
      PAINTSTRUCT paint;
      this->paint(BeginPaint(window(), &paint));
      EndPaint(window(), &paint);
      return 0;
    }
    case WM_SIZE: arrange(); return 0;
    case WM_COMMAND: {
      const auto chip = std::find(chips_.begin(), chips_.end(), reinterpret_cast<HWND>(lParam));
      const auto level = static_cast<std::size_t>(chip - chips_.begin());
      if (HIWORD(wParam) == BN_CLICKED && level < shown_) reverseGroup(engine(), columnOf(level));
      return 0;
    }
    default: return {};
  }
}

LRESULT CALLBACK ListGroupBox::chipProcedure(HWND chip, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR id, DWORD_PTR self) noexcept {
  try {
    auto& box = *reinterpret_cast<ListGroupBox*>(self);
    if (id < box.shown_) {
      if (const auto answer = box.chipMessage(id, message, wParam, lParam)) return *answer;
    }
  } catch (const std::exception& error) {
    OutputDebugStringW(wide(error.what()).c_str());
    return 0;
  }
  return DefSubclassProc(chip, message, wParam, lParam);
}

std::optional<LRESULT> ListGroupBox::chipMessage(std::size_t level, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
  POINT point = pointOf(lParam);
  switch (message) {
    case WM_LBUTTONDOWN:
      pressedAt_ = point;
      dragging_ = false;
      return {};
    case WM_MOUSEMOVE:
      if ((wParam & MK_LBUTTON) == 0 || !drag(level, point)) return {};
      return 0;
    case WM_LBUTTONUP:
      if (!drop(level, point)) return {};
      return 0;
    case WM_KEYDOWN:
      if (!key(level, static_cast<int>(wParam))) return {};
      return 0;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(lParam);
      const bool taken = key && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
      return DLGC_BUTTON | DLGC_WANTARROWS | (taken ? DLGC_WANTMESSAGE : 0);
    }
    default: return {};
  }
}

bool ListGroupBox::drag(std::size_t level, POINT point) {
  dragging_ = dragging_ || std::abs(point.x - pressedAt_.x) >= GetSystemMetrics(SM_CXDRAG) ||
              std::abs(point.y - pressedAt_.y) >= GetSystemMetrics(SM_CYDRAG);
  if (!dragging_) return false;
  ClientToScreen(chips_[level], &point);
  showDrop(point);
  return true;
}

bool ListGroupBox::drop(std::size_t level, POINT point) {
  if (!std::exchange(dragging_, false)) return false;
  ReleaseCapture();  // so that it is no click
  ClientToScreen(chips_[level], &point);
  const bool inside = showDrop(point);
  hideDrop();
  inside ? groupBy(engine(), columnOf(level), levelAt(point)) : ungroup(engine(), columnOf(level));
  return true;
}

bool ListGroupBox::key(std::size_t level, int key) {
  const bool move = isHeld(VK_CONTROL);
  switch (key) {
    case VK_LEFT:
      if (level == 0) return true;
      if (move) groupBy(engine(), columnOf(level), level - 1);
      focus(level - 1);
      return true;
    case VK_RIGHT:
      if (level + 1 >= shown_) return true;
      if (move) groupBy(engine(), columnOf(level), level + 2);
      focus(level + 1);
      return true;
    case VK_RETURN: reverseGroup(engine(), columnOf(level)); return true;
    case VK_DELETE:
    case VK_BACK:
      ungroup(engine(), columnOf(level));
      if (shown_ > 0) {
        focus(std::min(level, shown_ - 1));
      } else if (onLeave) {
        onLeave();
      }
      return true;
    case VK_DOWN:
    case VK_ESCAPE:
      if (onLeave) onLeave();
      return true;
    default: return false;  // Space is the button's own
  }
}

}  // namespace vmgv
