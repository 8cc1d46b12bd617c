// What all controls of a form have in common. A control's name is its only address.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/automation/value.h"
#include "support/forms/font.h"
#include "support/forms/geometry.h"

namespace vmgv {

class ControlVisitor;
class Form;

// Key numbers and shift states as key events carry them.
enum class Key : int {
  Backspace = 8,
  Tab = 9,
  Return = 13,
  Escape = 27,
  Space = 32,
  PageUp,
  PageDown,
  End,
  Home,
  Left,
  Up,
  Right,
  Down,
  Delete = 46,
  F1 = 112,
  F2,
  F4 = 115
};
enum ShiftState : int { kShift = 1, kControl = 2, kAlt = 4 };

class Control {
 public:
  using Properties = std::vector<std::pair<std::string_view, Value>>;

  Control(Form& form, std::string name, Control* container, std::optional<int> index);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  // "cboSort(2)" for a member of a control array, else the name.
  std::string address() const;
  const std::string& name() const noexcept { return name_; }
  std::optional<int> index() const noexcept { return index_; }
  Form& form() const noexcept { return form_; }
  Control* container() const noexcept { return container_; }  // null: the form itself
  // The type name by which fonts are given out and which dumps show.
  virtual std::string_view typeName() const noexcept = 0;
  virtual void accept(ControlVisitor& visitor) = 0;
  virtual bool focusable() const noexcept { return false; }

  const std::string& caption() const noexcept { return caption_; }
  void setCaption(std::string caption) { change(caption_, std::move(caption)); }
  const std::string& toolTip() const noexcept { return toolTip_; }
  void setToolTip(std::string text) { change(toolTip_, std::move(text)); }
  // What assistive technology calls a control that shows no caption of its own.
  const std::string& accessibleName() const noexcept { return accessibleName_; }
  void setAccessibleName(std::string text) { change(accessibleName_, std::move(text)); }
  bool enabled() const noexcept { return enabled_; }
  void setEnabled(bool enabled) { change(enabled_, enabled); }
  bool visible() const noexcept { return visible_; }
  void setVisible(bool visible) { change(visible_, visible); }
  const Font& font() const noexcept { return font_; }
  void setFont(Font font) { change(font_, std::move(font)); }
  const Rect& rect() const noexcept { return rect_; }
  void setRect(Rect rect) { change(rect_, rect); }

  // Name and value of everything that dumps and scripts can read, the common properties first.
  virtual Properties properties() const;

  // The key went down in this control, or in one that it contains; true where the handler used it up.
  std::function<bool(Key, int shift)> onKeyDown;
  // The keyboard came from another control of the form, or with the form.
  std::function<void()> onGotFocus;
  // The keyboard went to another control of the form.
  std::function<void()> onLostFocus;
  void gainFocus() {
    if (onGotFocus) onGotFocus();
  }
  void loseFocus() {
    if (onLostFocus) onLostFocus();
  }

 protected:
  // Tells the form that a widget must follow.
  void changed();
  template <class T>
  bool change(T& held, T value) {
    if (held == value) return false;
    held = std::move(value);
    changed();
    return true;
  }

 private:
  friend class Form;

  Form& form_;
  std::string name_;
  Control* container_;
  std::optional<int> index_;
  std::string caption_, toolTip_, accessibleName_;
  bool enabled_ = true, visible_ = true;
  bool pending_ = false;  // already in the form's list of changes
  Font font_;
  Rect rect_;
};

}  // namespace vmgv
