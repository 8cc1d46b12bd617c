// A bar with one menu.
#include <QMenu>
#include <QMenuBar>

#include "frontends/qt/binding.h"

namespace vmgv {
namespace {

class MenuBinding final : public BindingOf<Menu, QMenuBar> {
 public:
  MenuBinding(Menu& menu, QWidget& parent) : BindingOf(menu, parent) {
    view_.setNativeMenuBar(false);
    menu_ = view_.addMenu(QString());
  }

 protected:
  void followContent() override {
    menu_->setTitle(plainCaption(control_.caption()));
    menu_->clear();
    for (const Menu::Item& item : control_.items()) {
      menu_->addAction(plainCaption(item.caption))->setObjectName(qt(item.key));
    }
  }

 private:
  QMenu* menu_;
};

}  // namespace

std::unique_ptr<Binding> bind(Menu& menu, QWidget& parent, UserActs&) {
  return std::make_unique<MenuBinding>(menu, parent);
}

}  // namespace vmgv
