// The kinds of control, and when their events fire.
//
// An event fires whether the user or the code causes it, once for each real change:
//   CommandButton  click     when clicked
//   CheckBox       click     when its value changes
//   OptionButton   click     when it becomes the selected one of its container (the one that loses the
//                            selection is silent)
//   ComboBox       click     when its list index changes to an entry, or the user picks the same entry again
//   TextBox        change    when its text changes
// Code that fills a form guards its handlers with a loading flag for this reason.
// A value that a control cannot take is Error 380, and the control stays as it was.
#pragma once

#include <string>
#include <vector>

#include "support/forms/control.h"
#include "support/forms/layout.h"

namespace vmgv {

class CheckBox;
class ComboBox;
class CommandButton;
class Frame;
class Label;
class Line;
class OptionButton;
class PictureBox;
class ProgressBar;
class TextBox;

// One function a kind: a front end that lacks one does not compile.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void visit(CheckBox&) = 0;
  virtual void visit(ComboBox&) = 0;
  virtual void visit(CommandButton&) = 0;
  virtual void visit(Frame&) = 0;
  virtual void visit(Label&) = 0;
  virtual void visit(Line&) = 0;
  virtual void visit(OptionButton&) = 0;
  virtual void visit(PictureBox&) = 0;
  virtual void visit(ProgressBar&) = 0;
  virtual void visit(TextBox&) = 0;
};

// The parts of a kind that only repeat its name.
template <class Kind, class Base = Control>
class ControlOf : public Base {
 public:
  using Base::Base;
  std::string_view typeName() const noexcept override { return Kind::kTypeName; }
  void accept(ControlVisitor& visitor) override { visitor.visit(static_cast<Kind&>(*this)); }
};

// A control that holds others and arranges them by a layout of its own.
class Container : public Control {
 public:
  using Control::Control;
  layout::Node content;
};

class Frame final : public ControlOf<Frame, Container> {  // a titled border
 public:
  static constexpr std::string_view kTypeName = "Frame";
  using ControlOf::ControlOf;
};

class PictureBox final : public ControlOf<PictureBox, Container> {  // invisible; groups option buttons
 public:
  static constexpr std::string_view kTypeName = "PictureBox";
  using ControlOf::ControlOf;
};

class Label final : public ControlOf<Label> {
 public:
  static constexpr std::string_view kTypeName = "Label";
  using ControlOf::ControlOf;
  // The control that the label names, for mnemonics and assistive technology.
  Control* buddy = nullptr;
};

class Line final : public ControlOf<Line> {  // a horizontal rule
 public:
  static constexpr std::string_view kTypeName = "Line";
  using ControlOf::ControlOf;
};

class CommandButton final : public ControlOf<CommandButton> {
 public:
  static constexpr std::string_view kTypeName = "CommandButton";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  void click() {
    if (onClick) onClick();
  }
  std::function<void()> onClick;
  bool isDefault = false;  // Enter clicks it, unless another button has the focus
  bool isCancel = false;   // Esc clicks it
};

class CheckBox final : public ControlOf<CheckBox> {
 public:
  static constexpr std::string_view kTypeName = "CheckBox";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  int value() const noexcept { return value_; }
  void setValue(int value);  // 0 unchecked, 1 checked, 2 greyed
  void click() { setValue(value_ == 1 ? 0 : 1); }
  std::function<void()> onClick;

 private:
  int value_ = 0;
};

class OptionButton final : public ControlOf<OptionButton> {
 public:
  static constexpr std::string_view kTypeName = "OptionButton";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  bool value() const noexcept { return value_; }
  void setValue(bool value);
  void click() { setValue(true); }
  std::function<void()> onClick;

 private:
  bool value_ = false;
};

class ComboBox final : public ControlOf<ComboBox> {  // a drop-down list, no free text
 public:
  static constexpr std::string_view kTypeName = "ComboBox";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  const std::vector<std::string>& items() const noexcept { return items_; }
  void addItem(std::string text);
  void clear();
  int listIndex() const noexcept { return listIndex_; }  // -1: none
  void setListIndex(int index);
  void choose(int index);  // what a user's pick does
  std::string text() const;
  std::function<void()> onClick;
  int columns = 24;  // average characters that its natural width shows

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

class TextBox final : public ControlOf<TextBox> {
 public:
  static constexpr std::string_view kTypeName = "TextBox";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  const std::string& text() const noexcept { return text_; }
  void setText(std::string text);
  std::function<void()> onChange;
  int columns = 30;  // average characters that its natural width shows

 private:
  std::string text_;
};

class ProgressBar final : public ControlOf<ProgressBar> {
 public:
  static constexpr std::string_view kTypeName = "ProgressBar";
  using ControlOf::ControlOf;
  Properties properties() const override;

  int maximum() const noexcept { return maximum_; }
  void setMaximum(int maximum);  // at least 1
  int value() const noexcept { return value_; }
  void setValue(int value);  // 0 to the maximum

 private:
  int maximum_ = 100;
  int value_ = 0;
};

}  // namespace vmgv
