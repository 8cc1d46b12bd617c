// Controls that only show: labels, rules and progress bars.
#include <QFrame>
#include <QLabel>
#include <QProgressBar>

#include "frontends/qt/accessible_role.h"
#include "frontends/qt/binding.h"

namespace vmgv {
namespace {

class LabelBinding final : public BindingOf<Label, QLabel> {
 public:
  LabelBinding(Label& label, QWidget& parent) : BindingOf(label, parent) {
    view_.setTextFormat(Qt::PlainText);
    view_.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  }

 protected:
  // Without a buddy a label shows '&' as it is.
  void followContent() override {
    const std::string& caption = control_.caption();
    view_.setText(control_.buddy ? plainCaption(caption) : qt(caption));
    view_.setAccessibleName(qt(caption).simplified());
  }
};

class LineBinding final : public BindingOf<Line, QFrame> {
 public:
  LineBinding(Line& line, QWidget& parent) : BindingOf(line, parent) {
    view_.setFrameStyle(QFrame::HLine | QFrame::Sunken);
    setAccessibleRole(view_, QAccessible::Separator);
  }

 protected:
  void followContent() override {}
};

class ProgressBinding final : public BindingOf<ProgressBar, QProgressBar> {
 public:
  ProgressBinding(ProgressBar& bar, QWidget& parent) : BindingOf(bar, parent) { view_.setTextVisible(false); }

 protected:
  void followContent() override {
    view_.setRange(0, control_.maximum());
    view_.setValue(control_.value());
  }
};

}  // namespace

std::unique_ptr<Binding> bind(Label& label, QWidget& parent, UserActs&) {
  return std::make_unique<LabelBinding>(label, parent);
}
std::unique_ptr<Binding> bind(Line& line, QWidget& parent, UserActs&) {
  return std::make_unique<LineBinding>(line, parent);
}
std::unique_ptr<Binding> bind(ProgressBar& bar, QWidget& parent, UserActs&) {
  return std::make_unique<ProgressBinding>(bar, parent);
}

}  // namespace vmgv
