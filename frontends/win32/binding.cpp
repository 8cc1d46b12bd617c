#include "frontends/win32/binding.h"

#include <optional>
#include <utility>

#include "frontends/com/text.h"
#include "frontends/win32/scopes.h"
#include "support/automation/error.h"
#include "support/forms/colour_field.h"
#include "support/forms/page_preview.h"
#include "support/forms/tool_button.h"

namespace vmgv {
namespace {

class Binder final : public ControlVisitor {
 public:
  explicit Binder(HWND parent) noexcept : parent_(parent) {}

  std::unique_ptr<Binding> made;

  void visit(CheckBox& control) override { made = bind(control, parent_); }
  void visit(ColourField& control) override { made = bind(control, parent_); }
  void visit(ComboBox& control) override { made = bind(control, parent_); }
  void visit(CommandButton& control) override { made = bind(control, parent_); }
  void visit(Frame& control) override { made = bind(control, parent_); }
  void visit(Label& control) override { made = bind(control, parent_); }
  void visit(Line& control) override { made = bind(control, parent_); }
  void visit(ListBox& control) override { made = bind(control, parent_); }
  void visit(ListView& control) override { made = bind(control, parent_); }
  void visit(Menu& control) override { made = bind(control, parent_); }
  void visit(OptionButton& control) override { made = bind(control, parent_); }
  void visit(PagePane& control) override { made = bind(control, parent_); }
  void visit(PictureBox& control) override { made = bind(control, parent_); }
  void visit(ProgressBar& control) override { made = bind(control, parent_); }
  void visit(TextBox& control) override { made = bind(control, parent_); }
  void visit(ToolButton& control) override { made = bind(control, parent_); }

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
  followToolTip();
  place(units.pixels(onForm(model_)), units);
  const LONG_PTR style = GetWindowLongPtrW(window_, GWL_STYLE);
  const bool enabled = throughout(model_, &Control::enabled), visible = throughout(model_, &Control::visible);
  if (enabled != !(style & WS_DISABLED)) EnableWindow(window_, enabled);
  if (visible != !!(style & WS_VISIBLE)) ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void Binding::followToolTip() {
  const std::wstring text = wide(model_.toolTip());
  if (!toolTip_ && text.empty()) return;
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = GetParent(window_);
  tool.uId = reinterpret_cast<UINT_PTR>(window_);
  tool.lpszText = const_cast<wchar_t*>(text.c_str());
  if (!toolTip_) {
    const ThemeScope theme;
    toolTip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                               0, 0, 0, 0, tool.hwnd, nullptr, thisModule(), nullptr);
    SendMessageW(toolTip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  } else {
    SendMessageW(toolTip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  }
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
