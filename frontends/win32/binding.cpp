#include "frontends/win32/binding.h"

#include <optional>
#include <utility>

#include "frontends/com/text.h"
#include "frontends/win32/scopes.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

class Binder final : public ControlVisitor {
 public:
  explicit Binder(HWND parent) noexcept : parent_(parent) {}

  std::unique_ptr<Binding> made;

  void visit(CheckBox& control) override { made = bind(control, parent_); }
  void visit(ComboBox& control) override { made = bind(control, parent_); }
  void visit(CommandButton& control) override { made = bind(control, parent_); }
  void visit(Frame& control) override { made = bind(control, parent_); }
  void visit(Label& control) override { made = bind(control, parent_); }
  void visit(Line& control) override { made = bind(control, parent_); }
  void visit(OptionButton& control) override { made = bind(control, parent_); }
  void visit(PictureBox& control) override { made = bind(control, parent_); }
  void visit(ProgressBar& control) override { made = bind(control, parent_); }
  void visit(TextBox& control) override { made = bind(control, parent_); }

 private:
  HWND parent_;
};

// Containers hold nothing here: all windows are children of the dialog.
Rect onForm(const Control& control) {
  Rect rect = control.rect();
  for (const Control* around = control.container(); around; around = around->container()) {
    rect.left += around->rect().left;
    rect.top += around->rect().top;
  }
  return rect;
}

// Whether it holds for the control and all around it.
bool throughout(const Control& control, bool (Control::*state)() const noexcept) {
  for (const Control* at = &control; at; at = at->container()) {
    if (!(at->*state)()) return false;
  }
  return true;
}

}  // namespace

Binding::Binding(Control& model, HWND parent, const Look& look) : model_(model) {
  std::optional<PlainScope> plain;
  if (look.plain) plain.emplace();
  window_ = CreateWindowExW(look.extendedStyle, look.windowClass, L"", WS_CHILD | look.style, 0, 0, 0, 0,
                            parent, nullptr, thisModule(), nullptr);
  if (!window_) throw Error(ErrorNumber::OutOfMemory, model.address() + " cannot be shown");
}

void Binding::follow(const Units& units, FontBook& fonts) {
  const HFONT font = fonts.font(model_.font(), units.dpi());
  if (std::exchange(font_, font) != font) send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  followContent();
  place(units.pixels(onForm(model_)), units);
  EnableWindow(window_, throughout(model_, &Control::enabled));
  ShowWindow(window_, throughout(model_, &Control::visible) ? SW_SHOWNA : SW_HIDE);
}

void Binding::place(const RECT& pixels, const Units&) {
  SetWindowPos(window_, nullptr, pixels.left, pixels.top, pixels.right - pixels.left,
               pixels.bottom - pixels.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

std::wstring Binding::text() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)), L'\0');
  GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

void Binding::showText(const std::wstring& wanted) const {
  if (text() != wanted) SetWindowTextW(window_, wanted.c_str());
}

std::unique_ptr<Binding> bindAny(Control& control, HWND parent) {
  Binder binder(parent);
  control.accept(binder);
  return std::move(binder.made);
}

std::wstring plainCaption(const std::string& utf8) {
  std::wstring caption;
  for (const wchar_t unit : wide(utf8)) caption.append(unit == L'&' ? 2 : 1, unit);
  return caption;
}

}  // namespace vmgv
