// One control of a form as a Qt widget: the widget shows what the model says, the user's acts go to the
// model.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "frontends/qt/units.h"
#include "support/forms/controls.h"

namespace vmgv {

// Where every slot and event filter leaves Qt: nothing that `act` throws comes back, and the widgets have
// followed the model when it returns.
class UserActs {
 public:
  virtual ~UserActs() = default;
  virtual void run(const std::function<void()>& act) noexcept = 0;
};

class Binding {
 public:
  virtual ~Binding() = default;

  Control& model() const noexcept { return model_; }
  QWidget& widget() const noexcept { return *widget_; }  // a child of the parent it was bound in

  void follow(const Units& units);

  // The smallest comfortable size, after follow().
  virtual QSize naturalSize() const { return widget_->sizeHint(); }
  // What a container's border takes from its inside.
  virtual QMargins insets() const { return {}; }
  // Where a user clicks, in the widget's coordinates.
  virtual QPoint target() const { return widget_->rect().center(); }

 protected:
  Binding(Control& model, QWidget& widget) noexcept : model_(model), widget_(&widget) {}
  // What this kind shows beyond what all controls have in common.
  virtual void followContent() = 0;

 private:
  Control& model_;
  QWidget* widget_;
};

// The usual shape of a binding: its kind of control and its widget, by their types.
template <class Kind, class Widget>
class BindingOf : public Binding {
 public:
  BindingOf(Kind& control, QWidget& parent) : BindingOf(control, new Widget(&parent)) {}

 protected:
  Kind& control_;
  Widget& view_;

 private:
  BindingOf(Kind& control, Widget* view) : Binding(control, *view), control_(control), view_(*view) {}
};

std::unique_ptr<Binding> bind(CheckBox& box, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(ColourField& field, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(ComboBox& box, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(CommandButton& button, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(Frame& frame, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(Label& label, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(Line& line, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(ListBox& list, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(ListView& list, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(Menu& menu, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(OptionButton& button, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(PagePane& pane, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(PictureBox& box, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(ProgressBar& bar, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(TextBox& box, QWidget& parent, UserActs& acts);
std::unique_ptr<Binding> bind(ToolButton& button, QWidget& parent, UserActs& acts);

// Of whatever kind the control is.
std::unique_ptr<Binding> bindAny(Control& control, QWidget& parent, UserActs& acts);

}  // namespace vmgv
