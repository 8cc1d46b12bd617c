// Open lists of entries, with and without a header.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "frontends/com/text.h"
#include "frontends/win32/binding.h"
#include "frontends/win32/surface.h"

namespace vmgv {
namespace {

class ListBoxBinding final : public BindingOf<ListBox> {
 public:
  ListBoxBinding(ListBox& list, HWND parent)
      : BindingOf(list, parent,
                  {L"LISTBOX",
                   LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP | WS_GROUP |
                       (list.selectedColours() ? LBS_OWNERDRAWFIXED : 0ul),
                   WS_EX_CLIENTEDGE}) {}

  void notified(int code) override {
    if (code == LBN_SELCHANGE) control_.setListIndex(selected());
    if (code == LBN_DBLCLK && selected() >= 0) control_.doubleClick(selected());
  }

  // As the platform does, but for the colours of the selected entry.
  void drawItem(const DRAWITEMSTRUCT& draw) const override {
    if (draw.itemID >= shown_.size()) return;
    const bool marked = draw.itemState & ODS_SELECTED;
    const auto colours = control_.selectedColours().value_or(ListBox::Colours{});
    fill(draw.hDC, draw.rcItem, marked ? screenColour(colours.back) : GetSysColor(COLOR_WINDOW));
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, draw.itemState & ODS_DISABLED ? GetSysColor(COLOR_GRAYTEXT)
                           : marked                      ? screenColour(colours.fore)
                                                         : GetSysColor(COLOR_WINDOWTEXT));
    RECT place = draw.rcItem;
    place.left += GetSystemMetrics(SM_CXEDGE);
    std::wstring entry = wide(shown_[draw.itemID]);
    std::replace_if(
        entry.begin(), entry.end(), [](wchar_t unit) { return unit < L' '; }, L' ');
    DrawTextW(draw.hDC, entry.c_str(), static_cast<int>(entry.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    const bool focused = (draw.itemState & ODS_FOCUS) && !(draw.itemState & ODS_NOFOCUSRECT);
    if (focused) DrawFocusRect(draw.hDC, &draw.rcItem);
  }

 protected:
  void followContent() override {
    if (shown_ != control_.items()) {
      shown_ = control_.items();
      const LRESULT first = send(LB_GETTOPINDEX);
      send(WM_SETREDRAW, FALSE);
      send(LB_RESETCONTENT);
      for (const std::string& entry : shown_) {
        send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(entry).c_str()));
      }
      send(LB_SETTOPINDEX, static_cast<WPARAM>(first));  // a long list stays where the user looks
      send(WM_SETREDRAW, TRUE);
      InvalidateRect(window(), nullptr, TRUE);
    }
    if (selected() != control_.listIndex()) send(LB_SETCURSEL, static_cast<WPARAM>(control_.listIndex()));
    if (!control_.selectedColours()) return;
    const MeasuringContext context;
    const TextMeasure text(context, reinterpret_cast<HFONT>(send(WM_GETFONT)));
    send(LB_SETITEMHEIGHT, 0, text.lineHeight());
    InvalidateRect(window(), nullptr, FALSE);
  }

 private:
  int selected() const { return static_cast<int>(send(LB_GETCURSEL)); }

  std::vector<std::string> shown_;
};

class ListViewBinding final : public BindingOf<ListView> {
 public:
  ListViewBinding(ListView& list, HWND parent)
      : BindingOf(list, parent,
                  {WC_LISTVIEWW, LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP | WS_GROUP,
                   WS_EX_CLIENTEDGE}) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(L"");
    send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
  }

  void notified(int code) override {
    if (code == static_cast<int>(LVN_ITEMCHANGED) && !following_) control_.setListIndex(selected());
  }

 protected:
  void followContent() override {
    following_ = true;
    const std::wstring header = wide(control_.header());
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(header.c_str());
    send(LVM_SETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    if (shown_ != control_.items()) {
      shown_ = control_.items();
      send(LVM_DELETEALLITEMS);
      for (std::size_t i = 0; i < shown_.size(); ++i) insert(static_cast<int>(i), wide(shown_[i]));
    }
    if (selected() != control_.listIndex()) {
      LVITEMW state{};
      state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
      state.state = control_.listIndex() < 0 ? 0 : state.stateMask;
      send(LVM_SETITEMSTATE, static_cast<WPARAM>(control_.listIndex()), reinterpret_cast<LPARAM>(&state));
    }
    following_ = false;
  }

  void place(const RECT& pixels, const Units& units) override {
    Binding::place(pixels, units);
    send(LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE_USEHEADER);  // the only column is as wide as the list
  }

 private:
  int selected() const {
    return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  void insert(int at, const std::wstring& text) const {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = at;
    item.pszText = const_cast<wchar_t*>(text.c_str());
    send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  }

  std::vector<std::string> shown_;
  bool following_ = false;
};

}  // namespace

std::unique_ptr<Binding> bind(ListBox& list, HWND parent) {
  return std::make_unique<ListBoxBinding>(list, parent);
}
std::unique_ptr<Binding> bind(ListView& list, HWND parent) {
  return std::make_unique<ListViewBinding>(list, parent);
}

}  // namespace vmgv
