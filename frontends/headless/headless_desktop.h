// A desktop without a screen: forms and boxes are a stack in memory, and an idle handler is the user.
//
// Where no handler acts any more, a box is answered with Ok, No or Cancel and a form is closed as by its
// title bar, so that nothing waits for ever.
#pragma once

#include "frontends/headless/headless_system.h"
#include "frontends/user/user.h"

namespace vmgv {

class HeadlessDesktop final : public HeadlessSystem, public WindowPort, public User {
 public:
  // Every box shown so far, in order.
  const std::vector<Box>& boxes() const noexcept { return boxes_; }

  // Error 5 where a form refuses to close although nobody acts any more.
  void showModal(Form& form) override;
  MessageResult messageBox(const std::string& text, MessageStyle style, const std::string& title) override;
  std::optional<std::string> pickFile(const FileRequest& request) override;
  std::optional<Colour> pickColour(Colour initial) override;
  // Shows a box that is answered with Ok or Cancel, or as by its title bar; true for Ok.
  bool confirm(Box::Kind kind);
  void doEvents() override {
    if (idle_) idle_->yielding();
  }
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
    MessageResult result = MessageResult::Ok;  // of a message or of printing
    std::optional<std::string> path;           // of a file picker
    std::optional<Colour> colour;              // of a colour picker
    bool answered = false;
  };
  struct Shown {  // a form or a box
    Form* form = nullptr;
    OpenBox* box = nullptr;
  };
  class OnTop;  // keeps one Shown on the stack

  void waitFor(OpenBox& box);
  bool somebodyActs() { return idle_ && idle_->waiting(); }
  Form& topForm();
  OpenBox& topBox(Box::Kind kind);
  void requireOnTop(const Control& control);
  void moveFocus(bool backwards);
  static void moveFocusTo(Control& control);
  static void settleFocus(Form& form);

  IdleHandler* idle_ = nullptr;
  std::vector<Shown> shown_;
  std::vector<Box> boxes_;
};

}  // namespace vmgv
