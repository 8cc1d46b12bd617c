#include "frontends/win32grid/list_grid.h"

#include <algorithm>
#include <utility>

namespace vmgv {

ListGrid::ListGrid(HWND parent, std::shared_ptr<GridEngine> engine)
    : model_{std::move(engine), nullptr}, usual_(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))) {
  create(L"vmGridViews.grid", parent, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
         WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT);
  makeLook();
  box_ = std::make_unique<ListGroupBox>(window(), model_);
  header_ = std::make_unique<ListHeader>(window(), model_, *box_);
  rows_ = std::make_unique<ListRows>(window(), model_);
  header_->onWidth = [this] { rows_->refresh(); };
  rows_->onShift = [this] { placeHeader(); };
  rows_->onLeaveForBox = [this] { box_->focusFirst(); };
  box_->onLeave = [this] { SetFocus(rows_->window()); };
  model_.engine->addObserver(this);
  arrange();
}

ListGrid::~ListGrid() { model_.engine->removeObserver(this); }

void ListGrid::makeLook() {
  font_ = model_.engine->settings().font;
  largestFonts_ = model_.engine->largestFonts();
  model_.look =
      std::make_unique<ListLook>(usual_, font_, largestFonts_, static_cast<int>(GetDpiForWindow(window())));
  widths_.forget();
}

void ListGrid::rowsChanged() {
  header_->showMarks();
  box_->showGroups();
  rows_->refresh();
}

void ListGrid::appearanceChanged() {
  const GridEngine& engine = *model_.engine;
  if (font_ != engine.settings().font || largestFonts_ != engine.largestFonts()) makeLook();
  arrange();
}

void ListGrid::arrange() {
  const RECT room = client();
  const bool boxed = model_.engine->settings().groupByBoxVisible;
  const int box = boxed ? box_->heightWanted() : 0;
  const int top = box + header_->heightWanted();
  place(box_->window(), 0, 0, room.right, box);
  ShowWindow(box_->window(), boxed ? SW_SHOWNA : SW_HIDE);
  place(rows_->window(), 0, top, room.right, room.bottom - top);
  model_.columns = widths_.shown(*model_.engine, *model_.look, rows_->client().right);
  header_->showColumns();
  box_->showGroups();
  rows_->refresh();
  placeHeader();
}

// It scrolls with the columns.
void ListGrid::placeHeader() {
  const bool boxed = model_.engine->settings().groupByBoxVisible;
  const int shift = rows_->shift();
  place(header_->window(), -shift, boxed ? box_->heightWanted() : 0, client().right + shift,
        header_->heightWanted());
}

std::optional<LRESULT> ListGrid::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!rows_) return {};
  switch (message) {
    case WM_SIZE: arrange(); return 0;
    case WM_SETFOCUS: SetFocus(rows_->window()); return 0;
    case WM_SETFONT:
      usual_ = reinterpret_cast<HFONT>(wParam);
      makeLook();
      arrange();
      return 0;
    case WM_NOTIFY: {
      const auto& told = *reinterpret_cast<const NMHEADERW*>(lParam);
      if (told.hdr.hwndFrom != header_->window()) return {};
      return header_->notified(told);
    }
    default: return {};
  }
}

}  // namespace vmgv
