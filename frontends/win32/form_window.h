// A form as a dialog window, for as long as it is shown.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include "frontends/win32/binding.h"
#include "frontends/win32/modal_scope.h"
#include "support/forms/form.h"

namespace vmgv {

// What a window asks of its desktop.
class FormHost : public UserActs {
 public:
  // Lays the form out for a monitor of that density.
  virtual void layOut(Form& form, int dpi) = 0;
  // Gives a form that the user has resized the size of its window.
  virtual void resize(Form& form, int dpi, Size size) = 0;
};

class FormWindow {
 public:
  // Still hidden; `owner` may be null. In a DpiScope, as long as it lives.
  FormWindow(Form& form, FormHost& host, FontBook& fonts, HWND owner);
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;
  ~FormWindow();

  Form& form() const noexcept { return form_; }
  HWND window() const noexcept { return window_; }
  int dpi() const noexcept { return units_.dpi(); }
  Binding& binding(const Control& control) const { return *bindings_.at(&control); }
  // The control that has the keyboard, or null.
  Control* focusedControl() const;
  void focus(const Control& control);

  // As a hand that drags the window's corner until its inside has this size.
  void drag(Size inside);
  // Over the thread's other windows, which take no input from now on.
  void show();
  // Shows the changes of the model; once the form is closed the window is gone for the user.
  void follow();
  // Tells the controls that the focus has left and reached.
  void tellLeft();
  // A message on its way to this window or its controls; true where it was a key that the dialog used up.
  bool translate(const MSG& message);

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);

  void followForm();
  void passFocusOn(const Control* focused);
  void focusWanted();
  void markDefault();
  void setDpi(int dpi);
  void followSize(SIZE inside);
  SIZE outside(Size inside) const noexcept;  // with the frame
  void centreOver(HWND owner);
  bool pressKey(Control* focused, Key key, int shift);
  bool discards(const MSG& message);

  Form& form_;
  FormHost& host_;
  FontBook& fonts_;
  Units units_;
  HWND window_ = nullptr;
  std::unordered_map<const Control*, std::unique_ptr<Binding>> bindings_;
  std::unordered_map<HWND, Control*> controls_;  // by their windows
  std::optional<ModalScope> modal_;
};

}  // namespace vmgv
