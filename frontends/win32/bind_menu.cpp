// A menu, dropped down by the button that shows its name.
#include "frontends/com/text.h"
#include "frontends/win32/binding.h"

namespace vmgv {
namespace {

class MenuBinding final : public BindingOf<Menu> {
 public:
  MenuBinding(Menu& menu, HWND parent)
      : BindingOf(menu, parent, {L"BUTTON", BS_PUSHBUTTON | BS_FLAT | BS_LEFT | WS_GROUP}) {}

  void notified(int code) override {
    if (code != BN_CLICKED) return;
    const HMENU menu = CreatePopupMenu();
    UINT_PTR id = 0;
    for (const Menu::Item& item : control_.items()) {
      AppendMenuW(menu, MF_STRING, ++id, plainCaption(item.caption).c_str());
    }
    RECT button{};
    GetWindowRect(window(), &button);
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_NONOTIFY | TPM_RETURNCMD, button.left, button.bottom, 0,
                   window(), nullptr);
    DestroyMenu(menu);
  }

 protected:
  void followContent() override { showText(plainCaption(control_.caption())); }
};

}  // namespace

std::unique_ptr<Binding> bind(Menu& menu, HWND parent) { return std::make_unique<MenuBinding>(menu, parent); }

}  // namespace vmgv
