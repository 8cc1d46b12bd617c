#include "frontends/win32/form_window.h"

#include <commctrl.h>

#include <algorithm>

#include "frontends/com/text.h"
#include "frontends/user/tab_order.h"
#include "frontends/win32/keys.h"
#include "frontends/win32/scopes.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

// A dialog without controls, as the platform reads it: no menu, the usual class, no title.
struct EmptyTemplate {
  explicit EmptyTemplate(bool resizable) {
    head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    head.style |= resizable ? WS_THICKFRAME | WS_MAXIMIZEBOX : DS_MODALFRAME;
    head.dwExtendedStyle = WS_EX_CONTROLPARENT | (resizable ? 0 : WS_EX_DLGMODALFRAME);
  }
  DLGTEMPLATE head{};
  WORD menu = 0, windowClass = 0, title = 0;
};

HCURSOR cursor(Pointer pointer) noexcept {
  switch (pointer) {
    case Pointer::Default: return LoadCursorW(nullptr, IDC_ARROW);
    case Pointer::Hourglass: return LoadCursorW(nullptr, IDC_WAIT);
    case Pointer::ArrowHourglass: return LoadCursorW(nullptr, IDC_APPSTARTING);
  }
  return nullptr;
}

// From Windows 10 of 2017 on dialogs would scale their controls by themselves: the forms' layout does that
// here.
void keepOwnLayout(HWND window) noexcept {
  using Change = BOOL(WINAPI*)(HWND, int mask, int values);
  constexpr int kDisableAll = 1;
  const auto change = reinterpret_cast<Change>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior")));
  if (change) change(window, kDisableAll, kDisableAll);
}

// Enter and Esc are the form's alone, even where no button takes them.
bool isRouted(Key key) { return key == Key::Return || key == Key::Escape; }

bool isArrow(Key key) { return key == Key::Left || key == Key::Up || key == Key::Right || key == Key::Down; }

}  // namespace

FormWindow::FormWindow(Form& form, FormHost& host, FontBook& fonts, HWND owner)
    : form_(form), host_(host), fonts_(fonts), units_(dpiAround(owner)) {
  const ThemeScope theme;
  const EmptyTemplate empty(form.resizable);
  window_ =
      CreateDialogIndirectParamW(thisModule(), &empty.head, owner, procedure, reinterpret_cast<LPARAM>(this));
  if (!window_) throw Error(ErrorNumber::OutOfMemory, form.name() + " cannot be shown");
  try {
    for (const auto& control : form.controls()) {
      auto bound = bindAny(*control, window_);
      controls_[bound->window()] = control.get();
      bindings_[control.get()] = std::move(bound);
    }
    form.takeChanges();
    followForm();
    for (const auto& control : form.controls()) binding(*control).follow(units_, fonts_);
  } catch (...) {
    DestroyWindow(window_);
    throw;
  }
  centreOver(owner);
}

// The controls report nothing while they go.
FormWindow::~FormWindow() {
  controls_.clear();
  modal_.reset();
  if (window_) DestroyWindow(window_);
}

Control* FormWindow::focusedControl() const {
  const auto found = controls_.find(GetFocus());
  return found == controls_.end() ? nullptr : found->second;
}

void FormWindow::focus(const Control& control) {
  const HWND window = binding(control).window();
  SetFocus(window);
  if (dynamic_cast<const TextBox*>(&control)) SendMessageW(window, EM_SETSEL, 0, -1);
}

void FormWindow::centreOver(HWND owner) {
  RECT own{}, around = workAreaAround(owner);
  const RECT room = around;
  GetWindowRect(window_, &own);
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  const LONG width = own.right - own.left, height = own.bottom - own.top;
  const LONG left = (around.left + around.right - width) / 2, top = (around.top + around.bottom - height) / 2;
  SetWindowPos(window_, nullptr, std::max(room.left, std::min(left, room.right - width)),
               std::max(room.top, std::min(top, room.bottom - height)), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::show() {
  modal_.emplace(window_);
  const Control* first = form_.initialFocus ? form_.initialFocus : nextStop(form_, nullptr);
  ShowWindow(window_, SW_SHOW);
  if (first) focus(*first);
  markDefault();
  follow();
}

void FormWindow::follow() {
  const Form::Changes changes = form_.takeChanges();
  const Control* focused = focusedControl();
  if (changes.formChanged) followForm();
  const auto isContainer = [](const Control* control) { return dynamic_cast<const Container*>(control); };
  if (std::any_of(changes.controls.begin(), changes.controls.end(), isContainer)) {
    for (const auto& control : form_.controls()) binding(*control).follow(units_, fonts_);
  } else {
    for (const Control* control : changes.controls) binding(*control).follow(units_, fonts_);
  }
  passFocusOn(focused);
  focusWanted();
  if (!form_.isOpen() && modal_) {
    modal_.reset();
    ShowWindow(window_, SW_HIDE);
  }
}

// What was disabled or hidden under the focus passes it on.
void FormWindow::passFocusOn(const Control* focused) {
  if (!focused || canTakeFocus(*focused)) return;
  if (const Control* next = nextStop(form_, focused)) {
    focus(*next);
  } else {
    SetFocus(window_);
  }
}

// Where the program wants it.
void FormWindow::focusWanted() {
  const Control* wanted = form_.takeWantedFocus();
  if (wanted && canTakeFocus(*wanted)) focus(*wanted);
}

void FormWindow::followForm() {
  SetWindowTextW(window_, wide(form_.caption()).c_str());
  drag(form_.size());
  POINT at{};
  if (GetCursorPos(&at) && GetAncestor(WindowFromPoint(at), GA_ROOT) == window_) {
    SetCursor(cursor(form_.pointer()));
  }
}

// Enter clicks the button that has the focus, so that one shows it.
void FormWindow::markDefault() {
  const auto* focused = dynamic_cast<const CommandButton*>(focusedControl());
  for (const auto& control : form_.controls()) {
    const auto* button = dynamic_cast<const CommandButton*>(control.get());
    if (!button) continue;
    const HWND window = binding(*button).window();
    const LONG_PTR wanted =
        (focused ? button == focused : button->isDefault) ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    if ((GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) != wanted) {
      SendMessageW(window, BM_SETSTYLE, static_cast<WPARAM>(wanted), TRUE);
    }
  }
}

SIZE FormWindow::outside(Size inside) const noexcept {
  const SIZE size = units_.pixels(inside);
  RECT box{0, 0, size.cx, size.cy};
  AdjustWindowRectExForDpi(&box, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)),
                           static_cast<UINT>(units_.dpi()));
  return {box.right - box.left, box.bottom - box.top};
}

void FormWindow::drag(Size inside) {
  const SIZE size = outside(inside);
  SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The window may also have its size from the form.
void FormWindow::followSize(SIZE inside) {
  const SIZE known = units_.pixels(form_.size());
  if (inside.cx == known.cx && inside.cy == known.cy) return;
  host_.run([&] { host_.resize(form_, units_.dpi(), units_.twips(inside)); });
}

void FormWindow::setDpi(int dpi) {
  const Size before = form_.size();
  units_ = Units(dpi);
  host_.layOut(form_, dpi);
  if (form_.resizable) host_.resize(form_, dpi, before);
  form_.takeChanges();
  followForm();
  for (const auto& control : form_.controls()) binding(*control).follow(units_, fonts_);
}

bool FormWindow::pressKey(Control* focused, Key key, int shift) {
  bool used = false;
  host_.run([&] { used = form_.pressKey(focused, key, shift); });
  return used || isRouted(key);
}

bool FormWindow::translate(const MSG& message) {
  if (message.message == WM_CHAR) return discards(message);
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  const std::optional<Key> key = formKey(message.wParam);
  if (!key) return false;
  const auto found = controls_.find(message.hwnd);
  Control* focused = found == controls_.end() ? nullptr : found->second;
  const bool listIsOpen =
      dynamic_cast<ComboBox*>(focused) && SendMessageW(message.hwnd, CB_GETDROPPEDSTATE, 0, 0);
  if (listIsOpen && *key != Key::Tab && *key != Key::F1)
    return false;  // walks over the entries, takes one, closes the list
  const int shift = shiftState();
  if (pressKey(focused, *key, shift)) return true;

  Control* next = nullptr;
  auto* option = dynamic_cast<OptionButton*>(focused);
  if (*key == Key::Tab && (shift & ~kShift) == 0) {
    next = nextStop(form_, focused, shift == kShift);
  } else if (option && canTakeFocus(*option) && isArrow(*key) && shift == 0) {
    next = &nextOption(*option, *key == Key::Left || *key == Key::Up);
  } else {
    return false;
  }
  // From now on the focus shows: the user works by the keyboard.
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  if (next) focus(*next);
  if (option && isArrow(*key)) host_.run([next] { static_cast<OptionButton*>(next)->click(); });
  return true;
}

bool FormWindow::discards(const MSG& message) {
  const auto found = controls_.find(message.hwnd);
  const auto* box = found == controls_.end() ? nullptr : dynamic_cast<TextBox*>(found->second);
  bool discarded = false;
  if (box) host_.run([&] { discarded = box->discards(static_cast<char32_t>(message.wParam)); });
  return discarded;
}

void FormWindow::tellLeft() {
  Control* now = focusedControl();
  if (!now || now == form_.activeControl()) return;
  Control* left = form_.focusMoved(now);
  if (!(left && left->onLostFocus) && !now->onGotFocus) return;
  if (!form_.isOpen()) return;
  host_.run([left, now] {
    if (left) left->loseFocus();
    now->gainFocus();
  });
}

INT_PTR CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    keepOwnLayout(window);
    return FALSE;  // the focus is given once there are controls
  }
  auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  return self && self->window_ ? self->handle(message, wParam, lParam) : FALSE;
}

INT_PTR FormWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: {
      const auto found = controls_.find(reinterpret_cast<HWND>(lParam));
      if (found == controls_.end()) return TRUE;  // what the platform makes of keys: they are the form's
      const int code = HIWORD(wParam);
      if (code == BN_SETFOCUS || code == BN_KILLFOCUS) markDefault();
      host_.run([&] { binding(*found->second).notified(code); });
      return TRUE;
    }
    case WM_NOTIFY: {
      const auto& told = *reinterpret_cast<const NMHDR*>(lParam);
      const auto found = controls_.find(told.hwndFrom);
      if (found != controls_.end() && told.code == NM_CUSTOMDRAW) {
        const auto& draw = *reinterpret_cast<const NMCUSTOMDRAW*>(lParam);
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, binding(*found->second).customDraw(draw));
        return TRUE;
      }
      if (found == controls_.end() || told.code != LVN_ITEMCHANGED) return FALSE;
      host_.run([&] { binding(*found->second).notified(static_cast<int>(told.code)); });
      return TRUE;
    }
    case WM_DRAWITEM: {
      const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      const auto found = controls_.find(draw.hwndItem);
      if (found == controls_.end()) return FALSE;
      binding(*found->second).drawItem(draw);
      return TRUE;
    }
    case WM_CLOSE:  // the model says when the window goes
      host_.run([this] {
        if (form_.isOpen()) form_.closeByUser();
      });
      return TRUE;
    case WM_GETMINMAXINFO: {
      if (!form_.resizable) return FALSE;
      const SIZE least = outside(form_.smallest());
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
      return TRUE;
    }
    case WM_SIZE:
      if (form_.resizable && wParam != SIZE_MINIMIZED) followSize({LOWORD(lParam), HIWORD(lParam)});
      return FALSE;
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT || form_.pointer() == Pointer::Default) return FALSE;
      SetCursor(cursor(form_.pointer()));
      SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_DPICHANGED: {
      const auto& proposed = *reinterpret_cast<const RECT*>(lParam);
      host_.run([&] { setDpi(HIWORD(wParam)); });
      SetWindowPos(window_, nullptr, proposed.left, proposed.top, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      return TRUE;
    }
    case WM_NCDESTROY:  // its owner went, and took it along
      window_ = nullptr;
      form_.close();
      return FALSE;
    default: return FALSE;
  }
}

}  // namespace vmgv
