// Push buttons, check boxes and option buttons.
#include <utility>

#include "frontends/win32/arrow_icon.h"
#include "frontends/win32/binding.h"
#include "support/forms/form.h"

namespace vmgv {
namespace {

class PushBinding final : public BindingOf<CommandButton> {
 public:
  PushBinding(CommandButton& button, HWND parent)
      : BindingOf(button, parent,
                  {L"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP | WS_GROUP |
                                  (button.picture == CommandButton::Picture::None ? 0ul : BS_ICON)}) {}
  ~PushBinding() override { DestroyIcon(icon_); }

  // A button that notifies of its focus tells a double click instead of a second one.
  void notified(int code) override {
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) control_.click();
  }

 protected:
  // The words under a picture are for assistive technology.
  void followContent() override {
    const bool words = control_.picture == CommandButton::Picture::None;
    showText(plainCaption(words ? control_.caption() : control_.accessibleName()));
  }

  void place(const RECT& pixels, const Units& units) override {
    Binding::place(pixels, units);
    if (control_.picture == CommandButton::Picture::None) return;
    const HICON icon =
        arrowIcon(control_.picture == CommandButton::Picture::ArrowUp, units.scaled(kArrowPixels));
    send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
    DestroyIcon(std::exchange(icon_, icon));
  }

 private:
  static constexpr int kArrowPixels = 9;  // on a usual monitor

  HICON icon_ = nullptr;
};

class CheckBinding final : public BindingOf<CheckBox> {
 public:
  CheckBinding(CheckBox& box, HWND parent)
      : BindingOf(box, parent, {L"BUTTON", BS_3STATE | WS_TABSTOP | WS_GROUP}) {}

  void notified(int code) override {
    if (code == BN_CLICKED) control_.click();
  }

 protected:
  void followContent() override {
    showText(plainCaption(control_.caption()));
    const WPARAM state = control_.value() == 2   ? BST_INDETERMINATE
                         : control_.value() == 1 ? BST_CHECKED
                                                 : BST_UNCHECKED;
    if (static_cast<WPARAM>(send(BM_GETCHECK)) != state) send(BM_SETCHECK, state);
  }
};

class OptionBinding final : public BindingOf<OptionButton> {
 public:
  OptionBinding(OptionButton& button, HWND parent)
      : BindingOf(button, parent, {L"BUTTON", BS_AUTORADIOBUTTON | WS_TABSTOP | groupStyle(button)}) {
    send(kDontClick, TRUE);
  }

  // A button that only gets the focus may tell a click too, but is not selected then.
  void notified(int code) override {
    if (code == BN_CLICKED && send(BM_GETCHECK) == BST_CHECKED) control_.click();
  }

 protected:
  void followContent() override {
    showText(plainCaption(control_.caption()));
    const WPARAM state = control_.value() ? BST_CHECKED : BST_UNCHECKED;
    if (static_cast<WPARAM>(send(BM_GETCHECK)) != state) send(BM_SETCHECK, state);
  }

 private:
  static constexpr UINT kDontClick = 0x00F8;  // BM_SETDONTCLICK: getting the focus is no click

  // The first of a container's option buttons begins their group.
  static DWORD groupStyle(const OptionButton& button) {
    for (const auto& other : button.form().controls()) {
      if (other.get() == &button) break;
      if (other->container() == button.container() && dynamic_cast<OptionButton*>(other.get())) return 0;
    }
    return WS_GROUP;
  }
};

}  // namespace

std::unique_ptr<Binding> bind(CommandButton& button, HWND parent) {
  return std::make_unique<PushBinding>(button, parent);
}
std::unique_ptr<Binding> bind(CheckBox& box, HWND parent) {
  return std::make_unique<CheckBinding>(box, parent);
}
std::unique_ptr<Binding> bind(OptionButton& button, HWND parent) {
  return std::make_unique<OptionBinding>(button, parent);
}

}  // namespace vmgv
