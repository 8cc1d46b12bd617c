#include "frontends/qt/binding.h"

#include "support/forms/colour_field.h"
#include "support/forms/page_preview.h"
#include "support/forms/tool_button.h"

namespace vmgv {
namespace {

class Binder final : public ControlVisitor {
 public:
  Binder(QWidget& parent, UserActs& acts) noexcept : parent_(parent), acts_(acts) {}

  std::unique_ptr<Binding> made;

  void visit(CheckBox& control) override { make(control); }
  void visit(ColourField& control) override { make(control); }
  void visit(ComboBox& control) override { make(control); }
  void visit(CommandButton& control) override { make(control); }
  void visit(Frame& control) override { make(control); }
  void visit(Label& control) override { make(control); }
  void visit(Line& control) override { make(control); }
  void visit(ListBox& control) override { make(control); }
  void visit(ListView& control) override { make(control); }
  void visit(Menu& control) override { make(control); }
  void visit(OptionButton& control) override { make(control); }
  void visit(PagePane& control) override { make(control); }
  void visit(PictureBox& control) override { make(control); }
  void visit(ProgressBar& control) override { make(control); }
  void visit(TextBox& control) override { make(control); }
  void visit(ToolButton& control) override { make(control); }

 private:
  template <class Kind>
  void make(Kind& control) {
    made = bind(control, parent_, acts_);
  }

  QWidget& parent_;
  UserActs& acts_;
};

}  // namespace

void Binding::follow(const Units& units) {
  widget_->setFont(qtFont(model_.font()));
  widget_->setToolTip(qt(model_.toolTip()).toHtmlEscaped());
  widget_->setAccessibleName(qt(model_.accessibleName()).simplified());
  followContent();
  widget_->setGeometry(units.pixels(model_.rect()));
  widget_->setEnabled(model_.enabled());
  widget_->setVisible(model_.visible());
}

std::unique_ptr<Binding> bindAny(Control& control, QWidget& parent, UserActs& acts) {
  Binder binder(parent, acts);
  control.accept(binder);
  binder.made->widget().setObjectName(qt(control.address()));
  return std::move(binder.made);
}

}  // namespace vmgv
