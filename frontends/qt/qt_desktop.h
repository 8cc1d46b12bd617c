// The desktop of a Qt Widgets application: shows forms as dialogs, and answers for its user.
//
//   QtDesktop desktop;                       // after the QApplication
//   Application application(desktop, desktop);
//
// With an idle handler the user is a script: whenever a dialog or box has nothing to do, the handler may act,
// and what it does arrives at the widgets as mouse and key events.
#pragma once

#include <QPointer>
#include <chrono>
#include <utility>
#include <vector>

#include "frontends/qt/binding.h"
#include "frontends/qt/qt_system.h"
#include "frontends/user/user.h"

class QAbstractButton;
class QDialog;

namespace vmgv {

class FormWindow;

class QtDesktop : public QtSystem, public WindowPort, public User, private UserActs {
 public:
  // What dialogs stand over where no window is active, and what a picture shows where no dialog is open.
  void setMainWindow(QWidget* window) { mainWindow_ = window; }

  // Every box shown so far, in order.
  const std::vector<Box>& boxes() const noexcept { return boxes_; }

  // What stands over everything else, or null.
  QWidget* owner() const;
  // Shows a dialog of the platform's printing; whether the user took what it says.
  bool takes(QDialog& dialog, Box::Kind kind);

  // Runs what a slot of the host's was asked for: an error becomes a message, and never passes through Qt.
  void run(const std::function<void()>& act) noexcept override;

  // Error 5 where a form refuses to close although nobody acts any more.
  void showModal(Form& form) override;
  MessageResult messageBox(const std::string& text, MessageStyle style, const std::string& title) override;
  std::optional<std::string> pickFile(const FileRequest& request) override;
  std::optional<Colour> pickColour(Colour initial) override;
  void doEvents() override;
  Size naturalSize(const Control& control) override;
  Insets insets(const Container& container) override;
  Size workArea() override;
  Size pixel() const override;

  Form* form() override;
  const Box* box() override;
  void click(Control& control) override;
  void doubleClick(Control& control) override;
  void doubleClick(Control& list, int entry) override;
  void choose(Control& control, int entry) override;
  void enter(Control& control, const std::string& text) override;
  void press(Control& control, Key key, int shift) override;
  void focus(Control& control) override;
  Control* focused() override;
  void resize(Size size) override;
  void closeWindow() override;
  void answer(MessageResult result) override;
  void pick(const std::optional<std::string>& path) override;
  void chooseColour(const std::optional<Colour>& colour) override;
  void picture(const std::string& path) override;
  IdleHandler* setIdleHandler(IdleHandler* handler) noexcept override {
    return std::exchange(idle_, handler);
  }

 private:
  struct OpenBox {
    Box box;
    QDialog& dialog;
    std::vector<std::pair<MessageResult, QAbstractButton*>> buttons = {};  // of a message
  };
  struct Shown {  // a form or a box
    FormWindow* window = nullptr;
    OpenBox* box = nullptr;
  };
  class OnTop;  // keeps one Shown on the stack, and lets the idle handler act as long as it is there

  void tellUser(const QString& text) override;
  void followAll();
  bool topIsOver() const;
  std::unique_ptr<Binding> probe(const Control& control, QWidget& parent);

  FormWindow& topWindow();
  OpenBox& topBox(Box::Kind kind);
  Binding& bindingOnTop(Control& control);

  IdleHandler* idle_ = nullptr;
  QPointer<QWidget> mainWindow_;
  std::vector<Shown> shown_;
  std::vector<Box> boxes_;
  bool pumping_ = false;  // inside doEvents
  std::chrono::steady_clock::time_point lastPump_;
};

}  // namespace vmgv
