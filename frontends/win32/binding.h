// One control of a form as a native one: the window shows what the model says, the user's acts go to the
// model.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <memory>
#include <string>

#include "frontends/win32/fonts.h"
#include "frontends/win32/units.h"
#include "support/forms/controls.h"

namespace vmgv {

// Where every window procedure leaves the platform: nothing that `act` throws comes back, and the windows
// have followed the model when it returns.
class UserActs {
 public:
  virtual ~UserActs() = default;
  virtual void run(const std::function<void()>& act) noexcept = 0;
};

class Binding {
 public:
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  virtual ~Binding() = default;

  Control& model() const noexcept { return model_; }
  HWND window() const noexcept { return window_; }  // its parent owns it

  void follow(const Units& units, FontBook& fonts);

  // What the window told its parent with WM_COMMAND or WM_NOTIFY; runs among the user's acts.
  virtual void notified(int code) = 0;
  // Draws a control, or an entry of it, that the platform leaves to its parent.
  virtual LRESULT customDraw(const NMCUSTOMDRAW&) const { return CDRF_DODEFAULT; }
  virtual void drawItem(const DRAWITEMSTRUCT&) const {}

 protected:
  struct Look {
    const wchar_t* windowClass;
    DWORD style = 0;
    DWORD extendedStyle = 0;
    bool plain = false;  // not of the common controls
  };
  Binding(Control& model, HWND parent, const Look& look);

  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const noexcept {
    return SendMessageW(window_, message, wParam, lParam);
  }
  std::wstring text() const;
  void showText(const std::wstring& text) const;  // where it shows another one
  // What this kind shows beyond what all controls have in common.
  virtual void followContent() = 0;
  virtual void place(const RECT& pixels, const Units& units);

 private:
  void followToolTip();

  Control& model_;
  HWND window_ = nullptr;
  HWND toolTip_ = nullptr;  // made for the first text; the dialog owns it
  HFONT font_ = nullptr;
};

// The usual shape of a binding: its kind of control by its type.
template <class Kind>
class BindingOf : public Binding {
 public:
  void notified(int) override {}

 protected:
  BindingOf(Kind& control, HWND parent, const Look& look)
      : Binding(control, parent, look), control_(control) {}

  Kind& control_;
};

std::unique_ptr<Binding> bind(CheckBox& box, HWND parent);
std::unique_ptr<Binding> bind(ColourField& field, HWND parent);
std::unique_ptr<Binding> bind(ComboBox& box, HWND parent);
std::unique_ptr<Binding> bind(CommandButton& button, HWND parent);
std::unique_ptr<Binding> bind(Frame& frame, HWND parent);
std::unique_ptr<Binding> bind(Label& label, HWND parent);
std::unique_ptr<Binding> bind(Line& line, HWND parent);
std::unique_ptr<Binding> bind(ListBox& list, HWND parent);
std::unique_ptr<Binding> bind(ListView& list, HWND parent);
std::unique_ptr<Binding> bind(Menu& menu, HWND parent);
std::unique_ptr<Binding> bind(OptionButton& button, HWND parent);
std::unique_ptr<Binding> bind(PagePane& pane, HWND parent);
std::unique_ptr<Binding> bind(PictureBox& box, HWND parent);
std::unique_ptr<Binding> bind(ProgressBar& bar, HWND parent);
std::unique_ptr<Binding> bind(TextBox& box, HWND parent);
std::unique_ptr<Binding> bind(ToolButton& button, HWND parent);

// Of whatever kind the control is. In a ThemeScope.
std::unique_ptr<Binding> bindAny(Control& control, HWND parent);

// A caption as windows take it that read '&' as the mark of a mnemonic.
std::wstring plainCaption(const std::string& utf8);

}  // namespace vmgv
