// The desktop of a Windows program: shows forms as dialogs of native controls, and answers for its user.
//
//   Win32Desktop desktop;              // on a thread with COM and a message loop
//   Win32System system(desktop);
//   Application application(desktop, system);
//
// With an idle handler the user is a script: whenever a dialog or box has nothing to do, the handler may act,
// and what it does arrives at the windows as their mouse and key messages.
#pragma once

#include <windows.h>

#include <array>
#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "frontends/user/user.h"
#include "frontends/win32/form_window.h"

namespace vmgv {

class Win32Desktop : public WindowPort, public User, private FormHost {
 public:
  Win32Desktop() = default;
  Win32Desktop(const Win32Desktop&) = delete;
  Win32Desktop& operator=(const Win32Desktop&) = delete;

  // What dialogs stand over where no window is active, and what a picture shows where no dialog is open.
  void setMainWindow(HWND window) noexcept { mainWindow_ = window; }
  // The window of a form that is shown; null for any other.
  HWND windowOf(const Form* form) const noexcept;

  // Every box shown so far, in order.
  const std::vector<Box>& boxes() const noexcept { return boxes_; }

  // Runs what a window procedure of the host's was asked for: an error becomes a message, and never passes
  // through the platform.
  void run(const std::function<void()>& act) noexcept override;

  // Shows a box of the platform's that runs a message loop of its own, until `show` returns; what that says.
  bool showBox(Box box, const std::function<bool(HWND owner)>& show);

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
    HWND window = nullptr;  // once it is active
  };
  struct Shown {  // a form or a box
    FormWindow* window = nullptr;
    OpenBox* box = nullptr;
  };
  class OnTop;     // keeps one Shown on the stack
  class BoxWatch;  // lets the idle handler act while a box of the platform runs its own message loop

  void layOut(Form& form, int dpi) override;
  void resize(Form& form, int dpi, Size size) override;
  void followAll();
  void loop(FormWindow& window, const std::function<void()>& giveUp);
  void process(MSG& message);
  void letActOn(const std::function<void()>& giveUp);
  bool topIsOver() const;
  HWND owner() const noexcept;
  Units units() const noexcept;

  FormWindow& topWindow();
  OpenBox& topBox(Box::Kind kind);
  Binding& bindingOnTop(Control& control);
  void pressKey(Control& control, Key key, int shift);
  void pressButton(const OpenBox& open, int id);
  void letKeysArrive();

  IdleHandler* idle_ = nullptr;
  HWND mainWindow_ = nullptr;
  FontBook fonts_;
  std::vector<Shown> shown_;
  std::vector<Box> boxes_;
  std::array<COLORREF, 16> ownColours_{};  // that the user has mixed in the colour picker
  int layoutDpi_ = 0;                      // of the form that is laid out for a new monitor
  bool pumping_ = false;                   // inside doEvents
  std::chrono::steady_clock::time_point lastPump_;
};

}  // namespace vmgv
