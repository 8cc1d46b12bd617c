// Frames, and the invisible boxes that group option buttons.
#include <QGroupBox>
#include <QStyleOptionGroupBox>

#include "frontends/qt/accessible_role.h"
#include "frontends/qt/binding.h"
#include "support/forms/status_bar.h"

namespace vmgv {
namespace {

class GroupBox final : public QGroupBox {
 public:
  using QGroupBox::initStyleOption;
  using QGroupBox::QGroupBox;
};

class FrameBinding final : public BindingOf<Frame, GroupBox> {
 public:
  FrameBinding(Frame& frame, QWidget& parent) : BindingOf(frame, parent) {}

  QSize naturalSize() const override { return view_.minimumSizeHint(); }

  // Asked of a box large enough for any border.
  QMargins insets() const override {
    constexpr QRect kProbe(0, 0, 1000, 1000);
    QStyleOptionGroupBox option;
    view_.initStyleOption(&option);
    option.rect = kProbe;
    const QRect inside =
        view_.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, &view_);
    return {inside.left(), inside.top(), kProbe.right() - inside.right(), kProbe.bottom() - inside.bottom()};
  }

 protected:
  void followContent() override { view_.setTitle(plainCaption(control_.caption())); }
};

class PictureBinding final : public BindingOf<PictureBox, QWidget> {
 public:
  PictureBinding(PictureBox& box, QWidget& parent) : BindingOf(box, parent) {
    if (dynamic_cast<const Toolbar*>(&box)) setAccessibleRole(view_, QAccessible::ToolBar);
    if (dynamic_cast<const StatusBar*>(&box)) setAccessibleRole(view_, QAccessible::StatusBar);
  }

  QSize naturalSize() const override { return {0, 0}; }

 protected:
  void followContent() override {}
};

}  // namespace

std::unique_ptr<Binding> bind(Frame& frame, QWidget& parent, UserActs&) {
  return std::make_unique<FrameBinding>(frame, parent);
}
std::unique_ptr<Binding> bind(PictureBox& box, QWidget& parent, UserActs&) {
  return std::make_unique<PictureBinding>(box, parent);
}

}  // namespace vmgv
