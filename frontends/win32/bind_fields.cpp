// Drop-down lists and text fields.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "frontends/com/text.h"
#include "frontends/win32/binding.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr int kVisibleEntries = 10;

class ComboBinding final : public BindingOf<ComboBox> {
 public:
  ComboBinding(ComboBox& box, HWND parent)
      : BindingOf(box, parent,
                  {L"COMBOBOX", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP | WS_GROUP}) {
    send(CB_SETMINVISIBLE, kVisibleEntries);
  }

  // An entry of the open list counts once the list has closed, so that what it causes finds no list over the
  // dialog; in the closed list each step of the arrow keys counts.
  void notified(int code) override {
    switch (code) {
      case CBN_SELENDOK:
        accepted_ = true;
        if (!send(CB_GETDROPPEDSTATE)) take();
        break;
      case CBN_CLOSEUP: take(); break;
      case CBN_SELCHANGE:
        if (!send(CB_GETDROPPEDSTATE) && selected() != control_.listIndex()) control_.choose(selected());
        break;
      default: break;
    }
  }

 protected:
  void followContent() override {
    if (shown_ != control_.items()) {
      shown_ = control_.items();
      send(CB_RESETCONTENT);
      for (const std::string& entry : shown_) {
        send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(entry).c_str()));
      }
      widenedFor_ = 0;
    }
    // While the list is open the user walks over entries that are not chosen yet.
    if (!send(CB_GETDROPPEDSTATE) && selected() != control_.listIndex()) {
      send(CB_SETCURSEL, static_cast<WPARAM>(control_.listIndex()));
    }
  }

  // The closed box is as high as its row; the window's own height counts the open list too.
  void place(const RECT& pixels, const Units& units) override {
    constexpr WPARAM kClosed = static_cast<WPARAM>(-1);
    const int entry = static_cast<int>(send(CB_GETITEMHEIGHT, 0));
    const int height = pixels.bottom - pixels.top;
    RECT open = pixels;
    open.bottom += (kVisibleEntries + 1) * entry;
    Binding::place(open, units);
    RECT closed{};
    GetWindowRect(window(), &closed);
    const int border = closed.bottom - closed.top - static_cast<int>(send(CB_GETITEMHEIGHT, kClosed));
    if (closed.bottom - closed.top != height) send(CB_SETITEMHEIGHT, kClosed, height - border);
    if (std::exchange(widenedFor_, units.dpi()) != units.dpi()) widenList(units);
  }

 private:
  int selected() const { return static_cast<int>(send(CB_GETCURSEL)); }

  void take() {
    if (!std::exchange(accepted_, false)) return followContent();  // left without a choice
    if (selected() >= 0) control_.choose(selected());
    followContent();
  }

  // As wide as the longest entry, so that none is cut off in the open list.
  void widenList(const Units& units) {
    const MeasuringContext context;
    const TextMeasure text(context, reinterpret_cast<HFONT>(send(WM_GETFONT)));
    LONG widest = 0;
    for (const std::string& entry : shown_) widest = std::max(widest, text.extent(wide(entry)).cx);
    const int scrollBar = GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(units.dpi()));
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + scrollBar + 2 * text.averageWidth()));
  }

  std::vector<std::string> shown_;
  int widenedFor_ = 0;  // the density for which the list is wide enough
  bool accepted_ = false;
};

class TextBinding final : public BindingOf<TextBox> {
 public:
  TextBinding(TextBox& box, HWND parent)
      : BindingOf(box, parent, {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP, WS_EX_CLIENTEDGE}) {
    send(EM_SETLIMITTEXT, 0);  // the most that the control can hold
  }

  void notified(int code) override {
    if (code != EN_CHANGE) return;
    const std::wstring typed = text();
    if (!typed.empty() && IS_HIGH_SURROGATE(typed.back())) return;  // its other half is under way
    control_.setText(narrow(typed));
  }

 protected:
  void followContent() override {
    if (narrow(text()) != control_.text()) showText(wide(control_.text()));
    const std::pair wanted(control_.selStart(), control_.selLength());
    if (std::exchange(selected_, wanted) == wanted || wanted.second <= 0) return;
    const auto start = unitsIn(wanted.first), end = unitsIn(wanted.first + wanted.second);
    send(EM_SETSEL, start, static_cast<LPARAM>(end));
  }

 private:
  // Characters beyond the basic plane count twice here.
  WPARAM unitsIn(int characters) const {
    std::string_view rest = control_.text();
    while (characters-- > 0 && !rest.empty()) takeCodePoint(rest);
    return wide(control_.text().substr(0, control_.text().size() - rest.size())).size();
  }

  std::pair<int, int> selected_{0, 0};  // what code selected last
};

}  // namespace

std::unique_ptr<Binding> bind(ComboBox& box, HWND parent) {
  return std::make_unique<ComboBinding>(box, parent);
}
std::unique_ptr<Binding> bind(TextBox& box, HWND parent) {
  return std::make_unique<TextBinding>(box, parent);
}

}  // namespace vmgv
