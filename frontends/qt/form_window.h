// A form as a Qt dialog, for as long as it is shown.
#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QKeyEvent>
#include <memory>
#include <unordered_map>

#include "frontends/qt/binding.h"
#include "support/forms/form.h"
#include "support/forms/window_port.h"

namespace vmgv {

class FormWindow final : public QDialog {
 public:
  FormWindow(Form& form, WindowPort& window, UserActs& acts, QWidget* parent);
  ~FormWindow() override;

  Form& form() const noexcept { return form_; }
  Binding& binding(const Control& control) const { return *bindings_.at(&control); }
  // The control that has the keyboard, or null.
  Control* focusedControl() const;

  // Shows the changes of the model; ends run() once the form is closed.
  void follow();
  // Returns when the form is closed, or the application ends.
  void run();

  // Tells the controls that the focus left and reached, before the user's next act at the latest.
  void tellLeft();

  void reject() override;  // Qt's own ways of closing a dialog

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void follow(const Control& control);
  void followForm();
  void orderTabs();
  void focusFirst();
  void focusWanted();
  bool pressKey(Control* focused, const QKeyEvent& event);
  bool discards(Control& control, const QKeyEvent& event);
  void focusArrived(Control& control);
  void tellLeftSoon();

  Form& form_;
  WindowPort& window_;
  UserActs& acts_;
  Units units_;
  std::unordered_map<const Control*, std::unique_ptr<Binding>> bindings_;
  std::unordered_map<const QObject*, Control*> controls_;  // by their widgets
  Control* left_ = nullptr;                                // what the focus left, as long as it does not know
  Control* reached_ = nullptr;                             // and where it went
  QEventLoop loop_;
};

}  // namespace vmgv
