#include "frontends/win32grid/list_header.h"

#include <windowsx.h>

#include "adapters/grid/user_acts.h"
#include "frontends/com/text.h"
#include "frontends/win32/keys.h"

namespace vmgv {
namespace {

int formatOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left: return HDF_LEFT;
    case Alignment::Centre: return HDF_CENTER;
    case Alignment::Right: return HDF_RIGHT;
  }
  return HDF_LEFT;
}

}  // namespace

ListHeader::ListHeader(HWND parent, ListModel& model, ListGroupBox& box)
    : model_(model),
      box_(box),
      window_(CreateWindowExW(0, WC_HEADERW, L"",
                              WS_CHILD | WS_VISIBLE | HDS_HORZ | HDS_BUTTONS | HDS_DRAGDROP | HDS_FULLDRAG, 0,
                              0, 0, 0, parent, nullptr, nullptr, nullptr)) {
  SetWindowSubclass(window_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

int ListHeader::heightWanted() const noexcept { return model_.look->lineHeight() + model_.look->scaled(2); }

HDITEMW ListHeader::described(const ShownColumn& column, std::wstring& text) const {
  text = cellText(engine().column(column.index).caption);
  HDITEMW item{};
  item.mask = HDI_FORMAT | HDI_TEXT | HDI_WIDTH;
  item.cxy = column.width;
  item.pszText = text.data();
  item.fmt = HDF_STRING | formatOf(engine().alignment(column.index));
  for (const auto* keys : {&engine().sortKeys(), &engine().groups()}) {
    for (const SortKey& key : *keys) {
      if (key.colIndex == column.index)
        item.fmt |= key.sortOrder == kSortAscending ? HDF_SORTUP : HDF_SORTDOWN;
    }
  }
  return item;
}

// Items stay as long as there are as many: the control may be in the middle of moving one.
void ListHeader::showColumns() {
  SetWindowFont(window_, model_.look->font(), TRUE);
  const int count = static_cast<int>(model_.columns.size());
  for (int item = Header_GetItemCount(window_); item > count; --item) Header_DeleteItem(window_, item - 1);
  for (int item = Header_GetItemCount(window_); item < count; ++item) {
    HDITEMW blank{.mask = HDI_WIDTH};
    SendMessageW(window_, HDM_INSERTITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&blank));
  }
  showMarks();
}

void ListHeader::showMarks() {
  std::wstring text;
  for (std::size_t i = 0; i < model_.columns.size(); ++i) {
    const HDITEMW item = described(model_.columns[i], text);
    SendMessageW(window_, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
  }
}

LRESULT ListHeader::notified(const NMHEADERW& told) {
  switch (told.hdr.code) {
    case HDN_ITEMCLICKW:
      if (told.iButton == 0) sortBy(engine(), columnAt(told.iItem), isHeld(VK_SHIFT) || isHeld(VK_CONTROL));
      return 0;
    case HDN_BEGINDRAG: dragging_ = true; return FALSE;
    case HDN_ENDDRAG: return dropped(told.iItem, told.pitem ? told.pitem->iOrder : -1);
    case HDN_BEGINTRACKW: resizing_ = true; return FALSE;
    case HDN_ITEMCHANGEDW:
      if (resizing_) resized(told.iItem);
      return 0;
    case HDN_ENDTRACKW:
      if (std::exchange(resizing_, false)) {
        const ShownColumn& column = model_.columns.at(static_cast<std::size_t>(told.iItem));
        engine().setWidth(column.index, model_.look->unscaled(column.width));
      }
      return 0;
    case HDN_DIVIDERDBLCLICKW: engine().setWidth(columnAt(told.iItem), 0); return 0;
    default: return 0;
  }
}

// The order of the items is ours: they are the columns as the engine has them.
LRESULT ListHeader::dropped(int item, int order) {
  dragging_ = false;
  const std::int32_t column = columnAt(item);
  if (box_.showDrop(mouse_)) {
    box_.hideDrop();
    groupBy(engine(), column, box_.levelAt(mouse_));
  } else if (order >= 0) {
    moveColumn(engine(), column, order - item);
  }
  return TRUE;
}

void ListHeader::resized(int item) {
  HDITEMW shown{};
  shown.mask = HDI_WIDTH;
  SendMessageW(window_, HDM_GETITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&shown));
  model_.columns.at(static_cast<std::size_t>(item)).width = shown.cxy;
  if (onWidth) onWidth();
}

LRESULT CALLBACK ListHeader::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR self) noexcept {
  auto& own = *reinterpret_cast<ListHeader*>(self);
  if (message == WM_MOUSEMOVE || message == WM_LBUTTONUP) {
    own.mouse_ = pointOf(lParam);
    ClientToScreen(window, &own.mouse_);
    if (own.dragging_ && message == WM_MOUSEMOVE) own.box_.showDrop(own.mouse_);
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace vmgv
