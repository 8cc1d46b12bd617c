// What the user's hands do in the rows of a list.
#include <algorithm>
#include <numeric>

#include "adapters/grid/reason_texts.h"
#include "adapters/grid/user_acts.h"
#include "frontends/com/text.h"
#include "frontends/win32/keys.h"
#include "frontends/win32grid/list_rows.h"

namespace vmgv {
namespace {

constexpr int kWidthStep = 10, kNarrowest = 20;  // pixels of a usual monitor

}  // namespace

DisplayRow ListRows::row() const { return row_ == 0 ? DisplayRow() : engine().displayRow(row_); }

std::optional<LRESULT> ListRows::handleHands(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN: press(pointOf(lParam), false); return 0;
    case WM_LBUTTONDBLCLK: press(pointOf(lParam), true); return 0;
    case WM_MOUSEMOVE: dragging_ ? drag(pointOf(lParam)) : hover(pointOf(lParam)); return 0;
    case WM_LBUTTONUP:
      if (dragging_) ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED: dragging_ = false; return 0;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(lParam);
      const bool enters = key && key->wParam == VK_RETURN && row().rowType == kGroupHeaderRow;
      return DLGC_WANTARROWS | DLGC_WANTCHARS | (enters ? DLGC_WANTMESSAGE : 0);
    }
    case WM_KEYDOWN:
      tips_->hide();
      if (keyDown(static_cast<int>(wParam))) return 0;
      return {};
    case WM_CHAR:
      switch (wParam) {
        case L'*': engine().expandAll(); return 0;
        case L'/': engine().refreshGroups(true); return 0;
        case L'+': open(true); return 0;
        case L'-': open(false); return 0;
        default: return 0;
      }
    default: return {};
  }
}

// Mouse

void ListRows::press(POINT point, bool twice) {
  tips_->hide();
  SetFocus(window());
  const std::int32_t position = positionAt(point.y);
  if (position == 0) return;
  const DisplayRow own = engine().displayRow(position);
  const RECT mark = expanderRect(model_, own, rectOf(position));
  if (own.rowType == kGroupHeaderRow && (twice || PtInRect(&mark, point))) {
    return engine().setExpanded(position, !engine().isExpanded(own));
  }
  int right = -shift_;
  for (const ShownColumn& column : model_.columns) {
    if (point.x < (right += column.width)) {
      takeColumn(column.index);
      break;
    }
  }
  const Select select = asHeld();
  select == Select::Nothing ? toggleSelected(position) : goTo(position, select);
  dragging_ = true;
  SetCapture(window());
}

void ListRows::drag(POINT point) {
  const std::int32_t under = point.y < 0 ? top_ - 1 : positionAt(point.y);
  const std::int32_t position = under == 0 && point.y >= 0 ? count() : std::max(1, under);
  if (position != row_) goTo(position, Select::Range);
}

void ListRows::hover(POINT point) {
  const std::int32_t position = positionAt(point.y);
  if (std::exchange(hovered_, position) != position) tips_->hover(rectOf(position), reasons(position));
}

std::wstring ListRows::reasons(std::int32_t position) const {
  std::string text;
  if (position == 0) return {};
  for (const ReasonLine& line : reasonLines(engine().reasonsOf(engine().displayRow(position))))
    text += (text.empty() ? "" : "\r\n") + line.label + ": " + line.text;
  return wide(text);
}

// Unlike what a mouse is told it stays until the next key or click.
void ListRows::showReasons() {
  const RECT rect = rectOf(row_);
  POINT below{rect.left, rect.bottom};
  ClientToScreen(window(), &below);
  const std::wstring text = reasons(row_);
  tips_->show(below, text.empty() ? wide(noReasonText()) : text);
}

// Keys

bool ListRows::keyDown(int key) {
  const bool control = isHeld(VK_CONTROL), shift = isHeld(VK_SHIFT);
  if (control && viewKey(key, shift)) return true;
  if (key == VK_F6) {
    if (onLeaveForBox) onLeaveForBox();
    return true;
  }
  if (count() == 0) return false;
  if (row_ == 0) row_ = 1;
  if (key == VK_F1 && shift && !control) return showReasons(), true;
  return columnKey(key, control, shift) || (!control && groupKey(key)) || moveKey(key, control);
}

bool ListRows::viewKey(int key, bool shift) {
  if (key != 'Z' && key != 'Y') return false;
  const bool back = key == 'Z' && !shift;
  if (engine().redraw() && (back ? engine().canUndo() : engine().canRedo())) {
    back ? engine().undo() : engine().redo();
  }
  return true;
}

bool ListRows::columnKey(int key, bool control, bool shift) {
  const std::size_t place = placeOf(column_);
  if (place == model_.columns.size()) return false;
  const auto resize = [&](int by) {
    const int width = model_.look->unscaled(model_.columns[place].width) + by;
    engine().setWidth(column_, std::max(kNarrowest, width));
  };
  if (key == VK_F3) return sortBy(engine(), column_, control || shift), true;
  if (!control) return false;
  switch (key) {
    case 'G':
      isGrouped(engine(), column_) ? ungroup(engine(), column_)
                                   : groupBy(engine(), column_, engine().groups().size());
      return true;
    case VK_LEFT:
    case VK_RIGHT:
      if (shift) moveColumn(engine(), column_, key == VK_LEFT ? -1 : 1);
      return shift;
    case VK_ADD:
    case VK_OEM_PLUS: resize(kWidthStep); return true;
    case VK_SUBTRACT:
    case VK_OEM_MINUS: resize(-kWidthStep); return true;
    default: return false;
  }
}

bool ListRows::groupKey(int key) {
  const bool header = row().rowType == kGroupHeaderRow;
  switch (key) {
    case VK_SPACE:
    case VK_RETURN:
      if (header) engine().setExpanded(row_, !engine().isExpanded(row()));
      return header;
    case VK_RIGHT: return header && open(true);
    case VK_LEFT: return (header || placeOf(column_) == 0) && open(false);
    default: return false;
  }
}

// Closes a header's group; from a closed header and from other rows it goes to the header above.
bool ListRows::open(bool opened) {
  const DisplayRow own = row();
  const bool header = own.rowType == kGroupHeaderRow;
  if (header && (opened || engine().isExpanded(own))) {
    engine().setExpanded(row_, opened);
  } else if (!opened && own.parent != 0) {
    goTo(own.parent, Select::This);
  } else {
    return header;
  }
  return true;
}

bool ListRows::moveKey(int key, bool control) {
  const std::size_t place = placeOf(column_), columns = model_.columns.size();
  const auto toColumn = [&](std::size_t wanted) {
    if (wanted < columns) takeColumn(model_.columns[wanted].index);
    return true;
  };
  switch (key) {
    case VK_UP: return goTo(row_ - 1, asHeld()), true;
    case VK_DOWN: return goTo(row_ + 1, asHeld()), true;
    case VK_PRIOR: return goTo(std::min(row_ - 1, topFor(row_)), asHeld()), true;
    case VK_NEXT: return goTo(std::max(row_ + 1, bottomFor(row_)), asHeld()), true;
    case VK_LEFT: return toColumn(place - 1);  // to the left of the first there is none
    case VK_RIGHT: return toColumn(place + 1);
    case VK_HOME:
      return control ? (goTo(1, isHeld(VK_SHIFT) ? Select::Range : Select::This), true) : toColumn(0);
    case VK_END:
      return control ? (goTo(count(), isHeld(VK_SHIFT) ? Select::Range : Select::This), true)
                     : toColumn(columns - 1);
    case VK_SPACE: return control ? toggleSelected(row_) : goTo(row_, Select::This), true;
    case 'A': {
      if (!control || !engine().multiSelect()) return false;
      std::vector<std::int32_t> all(static_cast<std::size_t>(count()));
      std::iota(all.begin(), all.end(), 1);
      engine().select(std::move(all));
      return true;
    }
    default: return false;
  }
}

}  // namespace vmgv
