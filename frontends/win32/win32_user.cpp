// What the user of a Windows desktop does and sees.
#include <windows.h>

#include <colordlg.h>
#include <commctrl.h>
#include <dlgs.h>

#include "frontends/com/text.h"
#include "frontends/win32/gestures.h"
#include "frontends/win32/picture.h"
#include "frontends/win32/scopes.h"
#include "frontends/win32/surface.h"
#include "frontends/win32/win32_desktop.h"
#include "frontends/win32/window_walk.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

void requireFocusable(const Control& control) {
  if (!control.focusable()) throw CannotDo(control.address() + " does not take the focus");
}

// A list that is still dropped down would get the keys of what comes next.
void closeLists(const FormWindow& window) {
  for (const auto& control : window.form().controls()) {
    if (!dynamic_cast<const ComboBox*>(control.get())) continue;
    const HWND list = window.binding(*control).window();
    if (SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0)) SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
  }
}

// The field of a file picker in which a name can be typed.
HWND nameField(HWND picker) {
  HWND found = nullptr;
  eachChild(picker, [&found](HWND child) {
    const int id = GetDlgCtrlID(child);
    if ((id == edt1 || id == cmb13) && IsWindowVisible(child)) found = child;
    return !found;
  });
  while (const HWND inner = found ? GetWindow(found, GW_CHILD) : nullptr) found = inner;
  return found;
}

}  // namespace

// What is over while its program still works takes nothing any more.
Form* Win32Desktop::form() {
  return topIsOver() || !shown_.back().window ? nullptr : &shown_.back().window->form();
}

const Box* Win32Desktop::box() {
  return topIsOver() || !shown_.back().box ? nullptr : &shown_.back().box->box;
}

FormWindow& Win32Desktop::topWindow() {
  if (form()) return *shown_.back().window;
  throw CannotDo(box() ? "a box is on top" : "no dialog is shown");
}

Win32Desktop::OpenBox& Win32Desktop::topBox(Box::Kind kind) {
  if (!box() || box()->kind != kind) throw CannotDo(std::string("no ") + nameOf(kind) + " is on top");
  return *shown_.back().box;
}

Binding& Win32Desktop::bindingOnTop(Control& control) {
  FormWindow& window = topWindow();
  if (&window.form() != &control.form()) throw CannotDo(control.form().name() + " is not on top");
  requireUsable(control);
  followAll();
  closeLists(window);
  return window.binding(control);
}

void Win32Desktop::letKeysArrive() {
  MSG message;
  while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) process(message);
}

// The control has the focus.
void Win32Desktop::pressKey(Control& control, Key key, int shift) {
  const gestures::HeldKeys held(shift);
  MSG message = gestures::keyDown(topWindow().binding(control).window(), key, shift);
  process(message);
  letKeysArrive();
  if (!IsWindow(message.hwnd)) return;
  message.message = shift & kAlt ? WM_SYSKEYUP : WM_KEYUP;
  SendMessageW(message.hwnd, message.message, message.wParam, message.lParam | 0xC0000000);
}

void Win32Desktop::click(Control& control) {
  const Binding& binding = bindingOnTop(control);
  requireClickable(control);
  gestures::click(binding.window());
}

void Win32Desktop::doubleClick(Control& control) {
  const Binding& binding = bindingOnTop(control);
  requireFocusable(control);
  gestures::doubleClick(binding.window());
}

void Win32Desktop::doubleClick(Control& list, int entry) {
  requireEntry(list, entry);
  const HWND window = bindingOnTop(list).window();
  if (!dynamic_cast<ListBox*>(&list)) throw CannotDo(list.address() + " takes no double click");
  SendMessageW(window, LB_SETTOPINDEX, static_cast<WPARAM>(entry), 0);
  RECT place{};
  SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&place));
  gestures::doubleClick(window, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

// A closed list is dropped down by the keyboard; the user walks to the entry and takes it.
void Win32Desktop::choose(Control& control, int entry) {
  focus(control);
  const int count = requireEntry(control, entry).listCount();
  const bool closed = dynamic_cast<ComboBox*>(&control) != nullptr;
  const bool view = dynamic_cast<ListView*>(&control) != nullptr;
  const HWND list = topWindow().binding(control).window();
  const auto selected = [&] {
    if (view)
      return static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    return static_cast<int>(SendMessageW(list, closed ? CB_GETCURSEL : LB_GETCURSEL, 0, 0));
  };
  if (closed) pressKey(control, Key::Down, kAlt);
  for (int steps = count; steps > 0 && selected() != entry; --steps) {
    pressKey(control, selected() < entry ? Key::Down : Key::Up, 0);
  }
  if (closed) pressKey(control, Key::Return, 0);
}

void Win32Desktop::enter(Control& control, const std::string& text) {
  focus(control);
  if (!dynamic_cast<TextBox*>(&control)) throw CannotDo(control.address() + " is no field");
  if (text.find_first_of("\r\n") != std::string::npos) throw CannotDo(control.address() + " takes one line");
  if (!isUtf8(text)) throw CannotDo("the text is not UTF-8");
  const HWND field = topWindow().binding(control).window();
  SendMessageW(field, EM_SETSEL, 0, -1);
  if (text.empty()) pressKey(control, Key::Delete, 0);
  for (const wchar_t unit : wide(text)) {
    MSG typed{};
    typed.hwnd = field;
    typed.message = WM_CHAR;
    typed.wParam = unit;
    typed.lParam = 1;
    process(typed);
  }
  if (form() == &control.form()) pressKey(control, Key::Tab, 0);
}

void Win32Desktop::press(Control& control, Key key, int shift) {
  focus(control);
  pressKey(control, key, shift);
}

// By the Tab key, as far as it leads; the members of a group of option buttons are no stops of their own.
void Win32Desktop::focus(Control& control) {
  const Binding& binding = bindingOnTop(control);
  requireFocusable(control);
  FormWindow& window = topWindow();
  for (std::size_t stops = window.form().controls().size(); stops > 0 && window.focusedControl() != &control;
       --stops) {
    Control* from = window.focusedControl();
    if (!from) break;
    pressKey(*from, Key::Tab, 0);
  }
  if (window.focusedControl() != &control) SetFocus(binding.window());
}

Control* Win32Desktop::focused() {
  if (!form()) return nullptr;
  followAll();
  return topWindow().focusedControl();
}

void Win32Desktop::resize(Size size) {
  FormWindow& window = topWindow();
  if (size.width < 1 || size.height < 1) throw CannotDo("a window has a width and a height");
  if (!window.form().resizable) throw CannotDo("the window of " + window.form().name() + " has a fixed size");
  window.drag(size);
}

void Win32Desktop::closeWindow() {
  const FormWindow& window = topWindow();
  closeLists(window);
  SendMessageW(window.window(), WM_SYSCOMMAND, SC_CLOSE, 0);
}

// The only button of a message may carry the number of Cancel.
void Win32Desktop::pressButton(const OpenBox& open, int id) {
  HWND button = GetDlgItem(open.window, id);
  if (!button && id == IDOK) button = GetDlgItem(open.window, IDCANCEL);
  if (!button) throw CannotDo("this box can only be answered by a person");
  gestures::click(button);
}

void Win32Desktop::answer(MessageResult result) {
  const bool printing = box() && (box()->kind == Box::Kind::PageSetup || box()->kind == Box::Kind::Print);
  const OpenBox& open = topBox(printing ? box()->kind : Box::Kind::Message);
  const bool question = !printing && open.box.style == MessageStyle::Question;
  const bool yesNo = result == MessageResult::Yes || result == MessageResult::No;
  const bool cancels = printing && result == MessageResult::Cancel;
  if (question ? !yesNo : result != MessageResult::Ok && !cancels) {
    const char* const buttons = question ? "Yes and No" : printing ? "OK and Cancel" : "OK";
    throw CannotDo(std::string("the ") + nameOf(open.box.kind) + " has " + buttons + " only");
  }
  pressButton(open, static_cast<int>(result));
}

void Win32Desktop::pick(const std::optional<std::string>& path) {
  const OpenBox& open = topBox(Box::Kind::File);
  if (!path) return pressButton(open, IDCANCEL);
  wchar_t file[MAX_PATH] = L"";  // the box has a current folder of its own
  GetFullPathNameW(wide(*path).c_str(), MAX_PATH, file, nullptr);
  const DWORD attributes = GetFileAttributesW(file);
  if (attributes == INVALID_FILE_ATTRIBUTES || attributes & FILE_ATTRIBUTE_DIRECTORY) {
    throw CannotDo("there is no file " + *path);
  }
  const HWND field = nameField(open.window);
  if (!field) throw CannotDo("this file picker can only be answered by a person");
  SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file));
  pressButton(open, IDOK);
}

// The picker has a field for the red, the green and the blue.
void Win32Desktop::chooseColour(const std::optional<Colour>& colour) {
  const OpenBox& open = topBox(Box::Kind::Palette);
  if (!colour) return pressButton(open, IDCANCEL);
  const COLORREF wanted = screenColour(*colour);
  for (const auto& [field, part] : {std::pair{COLOR_RED, GetRValue(wanted)},
                                    {COLOR_GREEN, GetGValue(wanted)},
                                    {COLOR_BLUE, GetBValue(wanted)}}) {
    const HWND edit = GetDlgItem(open.window, field);
    if (!edit) throw CannotDo("this colour picker can only be answered by a person");
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide(std::to_string(part)).c_str()));
  }
  pressButton(open, IDOK);
}

void Win32Desktop::picture(const std::string& path) {
  followAll();
  const HWND shown = owner();
  if (!shown) throw CannotDo("there is no window to take a picture of");
  const DpiScope dpi;
  savePicture(shown, path);
}

}  // namespace vmgv
