// What the user of a desktop without a screen does and sees.
#include <filesystem>

#include "frontends/headless/headless_desktop.h"
#include "frontends/headless/tab_order.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

// A click of the mouse on each kind.
class Click final : public ControlVisitor {
 public:
  void visit(CheckBox& box) override { box.click(); }
  void visit(ComboBox&) override {}  // drops its list down
  void visit(CommandButton& button) override { button.click(); }
  void visit(Frame& frame) override { refuse(frame); }
  void visit(Label& label) override { refuse(label); }
  void visit(Line& line) override { refuse(line); }
  void visit(OptionButton& button) override { button.click(); }
  void visit(PictureBox& box) override { refuse(box); }
  void visit(ProgressBar& bar) override { refuse(bar); }
  void visit(TextBox&) override {}

 private:
  [[noreturn]] static void refuse(const Control& control) {
    throw CannotDo(control.address() + ", a " + std::string(control.typeName()) +
                   ", does not react to clicks");
  }
};

template <class Kind>
Kind& require(Control& control, const char* what) {
  if (auto* kind = dynamic_cast<Kind*>(&control)) return *kind;
  throw CannotDo(control.address() + " is no " + what);
}

void chooseEntry(ComboBox& combo, int entry) {
  const auto count = static_cast<int>(combo.items().size());
  if (entry < 0 || entry >= count) {
    throw CannotDo(combo.address() + " has " + std::to_string(count) + " entries, none at " +
                   std::to_string(entry));
  }
  combo.choose(entry);
}

// What a control does by itself with a key; false where the key is not for it.
bool useKey(ComboBox& combo, Key key) {
  if (key != Key::Up && key != Key::Down) return false;
  const int entry = combo.listIndex() + (key == Key::Down ? 1 : -1);
  if (entry >= 0 && entry < static_cast<int>(combo.items().size())) combo.setListIndex(entry);
  return true;
}

// The caret stands behind the last character.
bool useKey(TextBox& box, Key key, int shift) {
  std::string text = box.text();
  const auto code = static_cast<int>(key);
  const bool letter = code >= 'A' && code <= 'Z', digit = code >= '0' && code <= '9';
  if (key == Key::Backspace) {
    while (!text.empty() && (text.back() & 0xC0) == 0x80) text.pop_back();
    if (!text.empty()) text.pop_back();
  } else if (letter || digit || key == Key::Space) {
    if (shift & (kControl | kAlt)) return false;
    if (digit && shift != 0) return false;  // which sign that gives is the keyboard layout's affair
    text += static_cast<char>(letter && shift == 0 ? code + 32 : code);
  } else {
    return false;
  }
  box.setText(std::move(text));
  return true;
}

}  // namespace

// A form that was closed while its program still works takes nothing any more.
Form* HeadlessDesktop::form() {
  Form* top = shown_.empty() ? nullptr : shown_.back().form;
  return top && top->isOpen() ? top : nullptr;
}

const Box* HeadlessDesktop::box() {
  return shown_.empty() || !shown_.back().box ? nullptr : &shown_.back().box->box;
}

Form& HeadlessDesktop::topForm() {
  if (Form* top = form()) return *top;
  throw CannotDo(box() ? "a box is on top" : "no dialog is shown");
}

HeadlessDesktop::OpenBox& HeadlessDesktop::topBox(Box::Kind kind) {
  const char* const wanted = kind == Box::Kind::Message ? "message" : "file picker";
  if (!box() || box()->kind != kind) throw CannotDo(std::string("no ") + wanted + " is on top");
  return *shown_.back().box;
}

void HeadlessDesktop::requireOnTop(const Control& control) {
  if (&topForm() != &control.form()) throw CannotDo(control.form().name() + " is not on top");
}

void HeadlessDesktop::click(Control& control) {
  requireOnTop(control);
  requireUsable(control);
  if (control.focusable()) shown_.back().focused = &control;
  Click visitor;
  control.accept(visitor);
}

void HeadlessDesktop::doubleClick(Control& control) {
  click(control);
  // No kind reacts to the double click itself: it is a second click, where the first left something to click.
  if (form() == &control.form() && canTakeFocus(control)) click(control);
}

void HeadlessDesktop::choose(Control& control, int entry) {
  focus(control);
  chooseEntry(require<ComboBox>(control, "list"), entry);
}

void HeadlessDesktop::enter(Control& control, const std::string& text) {
  focus(control);
  auto& box = require<TextBox>(control, "field");
  if (text.find_first_of("\r\n") != std::string::npos) throw CannotDo(control.address() + " takes one line");
  if (!isUtf8(text)) throw CannotDo("the text is not UTF-8");
  if (text.empty()) box.setText({});
  std::string_view rest = text;
  while (!rest.empty()) {
    takeCodePoint(rest);
    box.setText(text.substr(0, text.size() - rest.size()));
  }
  if (form() == &control.form()) moveFocus(false);
}

void HeadlessDesktop::press(Control& control, Key key, int shift) {
  focus(control);
  if (auto* combo = dynamic_cast<ComboBox*>(&control); combo && shift == 0 && useKey(*combo, key)) return;
  if (auto* box = dynamic_cast<TextBox*>(&control); box && useKey(*box, key, shift)) return;
  if (auto* option = dynamic_cast<OptionButton*>(&control); option && shift == 0) {
    const bool backwards = key == Key::Left || key == Key::Up;
    if (backwards || key == Key::Right || key == Key::Down) {
      OptionButton& next = nextOption(*option, backwards);
      shown_.back().focused = &next;
      next.click();
      return;
    }
  }
  if (key == Key::Space && shift == 0) {
    Click visitor;
    control.accept(visitor);
    return;
  }
  if (control.form().pressKey(&control, key, shift)) return;
  if (key == Key::Tab && (shift & ~kShift) == 0 && form() == &control.form()) moveFocus(shift == kShift);
}

void HeadlessDesktop::focus(Control& control) {
  requireOnTop(control);
  requireUsable(control);
  if (!control.focusable()) throw CannotDo(control.address() + " does not take the focus");
  shown_.back().focused = &control;
}

// What was disabled or hidden under the focus passes it on.
Control* HeadlessDesktop::focused() {
  if (!form()) return nullptr;
  Shown& top = shown_.back();
  if (!top.focused || !canTakeFocus(*top.focused)) top.focused = nextStop(*top.form, top.focused);
  return top.focused;
}

void HeadlessDesktop::moveFocus(bool backwards) {
  Shown& top = shown_.back();
  if (Control* next = nextStop(*top.form, top.focused, backwards)) top.focused = next;
}

void HeadlessDesktop::resize(Size size) {
  Form& form = topForm();
  if (size.width < 1 || size.height < 1) throw CannotDo("a window has a width and a height");
  form.setSize(size);
}

void HeadlessDesktop::closeWindow() { topForm().closeByUser(); }

void HeadlessDesktop::answer(MessageResult result) {
  OpenBox& open = topBox(Box::Kind::Message);
  const bool yesNo = result == MessageResult::Yes || result == MessageResult::No;
  const bool question = open.box.style == MessageStyle::Question;
  if (question ? !yesNo : result != MessageResult::Ok) {
    throw CannotDo(std::string("the message has ") + (question ? "Yes and No" : "OK") + " only");
  }
  open.result = result;
  open.answered = true;
}

void HeadlessDesktop::pick(const std::optional<std::string>& path) {
  OpenBox& open = topBox(Box::Kind::File);
  std::error_code failed;
  if (path && !std::filesystem::is_regular_file(*path, failed)) throw CannotDo("there is no file " + *path);
  open.path = path;
  open.answered = true;
}

void HeadlessDesktop::picture(const std::string&) {
  throw Error(ErrorNumber::InvalidCall, "there is no screen; pictures need --frontend qt");
}

}  // namespace vmgv
