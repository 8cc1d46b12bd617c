// What the user of a desktop without a screen does and sees.
#include <filesystem>

#include "frontends/headless/headless_desktop.h"
#include "frontends/user/tab_order.h"
#include "support/automation/error.h"
#include "support/forms/colour_field.h"
#include "support/forms/page_preview.h"
#include "support/forms/tool_button.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

// What a click of the mouse does to each kind that takes one.
class Click final : public ControlVisitor {
 public:
  void visit(CheckBox& box) override { box.click(); }
  void visit(ColourField& field) override { field.click(); }
  void visit(ComboBox&) override {}  // drops its list down
  void visit(CommandButton& button) override { button.click(); }
  void visit(Frame&) override {}
  void visit(Label&) override {}
  void visit(Line&) override {}
  void visit(ListBox&) override {}
  void visit(ListView&) override {}
  void visit(Menu&) override {}
  void visit(OptionButton& button) override { button.click(); }
  void visit(PagePane&) override {}
  void visit(PictureBox&) override {}
  void visit(ProgressBar&) override {}
  void visit(TextBox&) override {}
  void visit(ToolButton& button) override { button.click(); }
};

// What a control does by itself with a key; false where the key is not for it.
bool useKey(ListControl& list, Key key) {
  if (key != Key::Up && key != Key::Down) return false;
  const int entry = list.listIndex() + (key == Key::Down ? 1 : -1);
  if (entry >= 0 && entry < list.listCount()) list.setListIndex(entry);
  return true;
}

std::size_t bytesOf(std::string_view text, int characters) {
  std::string_view rest = text;
  while (characters-- > 0 && !rest.empty()) takeCodePoint(rest);
  return text.size() - rest.size();
}

// In place of what is selected, else behind the last character, where the caret stands.
void insert(TextBox& box, std::string_view typed) {
  std::string text = box.text();
  const std::size_t begin = box.selLength() > 0 ? bytesOf(text, box.selStart()) : text.size();
  const std::size_t end = box.selLength() > 0 ? bytesOf(text, box.selStart() + box.selLength()) : text.size();
  box.setText(text.replace(begin, end - begin, typed));
}

bool useKey(TextBox& box, Key key, int shift) {
  const auto code = static_cast<int>(key);
  const bool letter = code >= 'A' && code <= 'Z', digit = code >= '0' && code <= '9';
  if (key == Key::Backspace || key == Key::Delete) {
    if (key == Key::Backspace && box.discards(static_cast<char32_t>(code))) return true;
    if (box.selLength() == 0 && key == Key::Backspace && !box.text().empty()) {
      box.select(static_cast<int>(countCharacters(box.text())) - 1, 1);
    }
    if (box.selLength() > 0) insert(box, {});
  } else if (letter || digit || key == Key::Space) {
    if (shift & (kControl | kAlt)) return false;
    if (digit && shift != 0) return false;  // which sign that gives is the keyboard layout's affair
    const auto character = static_cast<char>(letter && shift == 0 ? code + 32 : code);
    if (!box.discards(static_cast<char32_t>(character))) insert(box, {&character, 1});
  } else {
    return false;
  }
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
  if (!box() || box()->kind != kind) throw CannotDo(std::string("no ") + nameOf(kind) + " is on top");
  return *shown_.back().box;
}

void HeadlessDesktop::requireOnTop(const Control& control) {
  if (&topForm() != &control.form()) throw CannotDo(control.form().name() + " is not on top");
  settleFocus(control.form());
}

void HeadlessDesktop::click(Control& control) {
  requireOnTop(control);
  requireUsable(control);
  requireClickable(control);
  moveFocusTo(control);
  Click visitor;
  control.accept(visitor);
}

void HeadlessDesktop::doubleClick(Control& control) {
  click(control);
  // Most kinds take a double click for a second one, where the first left something to click.
  if (form() == &control.form() && canTakeFocus(control)) click(control);
}

void HeadlessDesktop::doubleClick(Control& list, int entry) {
  focus(list);
  requireEntry(list, entry).choose(entry);
  auto* box = dynamic_cast<ListBox*>(&list);
  if (box && form() == &list.form() && canTakeFocus(list)) box->doubleClick(entry);
}

void HeadlessDesktop::choose(Control& control, int entry) {
  focus(control);
  requireEntry(control, entry).choose(entry);
}

void HeadlessDesktop::enter(Control& control, const std::string& text) {
  focus(control);
  auto* box = dynamic_cast<TextBox*>(&control);
  if (!box) throw CannotDo(control.address() + " is no field");
  if (text.find_first_of("\r\n") != std::string::npos) throw CannotDo(control.address() + " takes one line");
  if (!isUtf8(text)) throw CannotDo("the text is not UTF-8");
  if (text.empty()) box->setText({});
  std::string typed;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::string_view before = rest;
    if (box->discards(takeCodePoint(rest).value_or(0))) continue;
    box->setText(typed += before.substr(0, before.size() - rest.size()));
  }
  if (form() == &control.form()) moveFocus(false);
}

void HeadlessDesktop::press(Control& control, Key key, int shift) {
  focus(control);
  if (control.form().pressKey(&control, key, shift)) return;
  if (auto* list = dynamic_cast<ListControl*>(&control); list && shift == 0 && useKey(*list, key)) return;
  if (auto* box = dynamic_cast<TextBox*>(&control); box && useKey(*box, key, shift)) return;
  if (auto* option = dynamic_cast<OptionButton*>(&control); option && shift == 0) {
    const bool backwards = key == Key::Left || key == Key::Up;
    if (backwards || key == Key::Right || key == Key::Down) {
      OptionButton& next = nextOption(*option, backwards);
      moveFocusTo(next);
      next.click();
      return;
    }
  }
  if (key == Key::Space && shift == 0) {
    Click visitor;
    control.accept(visitor);
    return;
  }
  if (key == Key::Tab && (shift & ~kShift) == 0 && form() == &control.form()) moveFocus(shift == kShift);
}

void HeadlessDesktop::focus(Control& control) {
  requireOnTop(control);
  requireUsable(control);
  if (!control.focusable()) throw CannotDo(control.address() + " does not take the focus");
  moveFocusTo(control);
}

// What was disabled or hidden under the focus passes it on.
Control* HeadlessDesktop::focused() {
  Form* top = form();
  if (!top) return nullptr;
  settleFocus(*top);
  Control* active = top->activeControl();
  if (active && canTakeFocus(*active)) return active;
  top->focusMoved(nextStop(*top, active));
  return top->activeControl();
}

void HeadlessDesktop::moveFocus(bool backwards) {
  Form& top = *shown_.back().form;
  if (Control* next = nextStop(top, top.activeControl(), backwards)) moveFocusTo(*next);
}

void HeadlessDesktop::moveFocusTo(Control& control) {
  if (control.form().activeControl() == &control) return;
  if (Control* left = control.form().focusMoved(&control)) left->loseFocus();
  control.gainFocus();
}

// Where the program wants it.
void HeadlessDesktop::settleFocus(Form& form) {
  Control* wanted = form.takeWantedFocus();
  if (wanted && canTakeFocus(*wanted)) moveFocusTo(*wanted);
}

void HeadlessDesktop::resize(Size size) {
  Form& form = topForm();
  if (size.width < 1 || size.height < 1) throw CannotDo("a window has a width and a height");
  if (!form.resizable) throw CannotDo("the window of " + form.name() + " has a fixed size");
  form.resize(*this, size);
}

void HeadlessDesktop::closeWindow() { topForm().closeByUser(); }

void HeadlessDesktop::answer(MessageResult result) {
  const Box::Kind kind = box() ? box()->kind : Box::Kind::Message;
  const bool printing = kind == Box::Kind::PageSetup || kind == Box::Kind::Print;
  OpenBox& open = topBox(printing ? kind : Box::Kind::Message);
  const bool yesNo = result == MessageResult::Yes || result == MessageResult::No;
  const bool question = open.box.style == MessageStyle::Question;
  if (printing && yesNo) throw CannotDo(std::string("the ") + nameOf(kind) + " has OK and Cancel only");
  if (!printing && (question ? !yesNo : result != MessageResult::Ok)) {
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

void HeadlessDesktop::chooseColour(const std::optional<Colour>& colour) {
  OpenBox& open = topBox(Box::Kind::Palette);
  open.colour = colour;
  open.answered = true;
}

void HeadlessDesktop::picture(const std::string&) {
  throw Error(ErrorNumber::InvalidCall, "there is no screen; pictures need another --frontend");
}

}  // namespace vmgv
