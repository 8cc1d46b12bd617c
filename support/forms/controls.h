// The kinds of control, and when their events fire.
//
// An event fires whether the user or the code causes it, once for each real change:
//   CommandButton  click     when clicked
//   CheckBox       click     when its value changes
//   OptionButton   click     when it becomes the selected one of its container (the one that loses the
//                            selection is silent)
//   lists          click     when the list index changes to an entry, or the user picks the same entry again
//   ListBox        dblClick  when the user clicks an entry twice
//   TextBox        change    when its text changes
//                  keyPress  before the user's key has its effect; not for what code does
//   ToolButton     click     when clicked
//   ColourField    click     when its button is clicked
//   PropertyEditor rowChanged     when a list row's value changes
//                  rowValidating  when the user leaves an edited text row or presses Enter in it
//                  rowButton      when a colour row's button is clicked
//   all            gotFocus, lostFocus when the keyboard comes from or goes to another control of the form
// Code that fills a form guards its handlers with a loading flag for this reason.
// A value that a control cannot take is Error 380, and the control stays as it was.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "support/forms/colour.h"
#include "support/forms/control.h"
#include "support/forms/layout.h"

namespace vmgv {

class CheckBox;
class ColourField;
class ComboBox;
class CommandButton;
class Frame;
class Label;
class Line;
class ListBox;
class ListView;
class Menu;
class OptionButton;
class PagePane;
class PictureBox;
class ProgressBar;
class TextBox;
class ToolButton;

// One function a kind: a front end that lacks one does not compile.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void visit(CheckBox&) = 0;
  virtual void visit(ColourField&) = 0;
  virtual void visit(ComboBox&) = 0;
  virtual void visit(CommandButton&) = 0;
  virtual void visit(Frame&) = 0;
  virtual void visit(Label&) = 0;
  virtual void visit(Line&) = 0;
  virtual void visit(ListBox&) = 0;
  virtual void visit(ListView&) = 0;
  virtual void visit(Menu&) = 0;
  virtual void visit(OptionButton&) = 0;
  virtual void visit(PagePane&) = 0;
  virtual void visit(PictureBox&) = 0;
  virtual void visit(ProgressBar&) = 0;
  virtual void visit(TextBox&) = 0;
  virtual void visit(ToolButton&) = 0;
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

class Frame : public ControlOf<Frame, Container> {  // a titled border
 public:
  static constexpr std::string_view kTypeName = "Frame";
  using ControlOf::ControlOf;
};

class PictureBox : public ControlOf<PictureBox, Container> {  // invisible; groups option buttons
 public:
  static constexpr std::string_view kTypeName = "PictureBox";
  using ControlOf::ControlOf;
};

class Label final : public ControlOf<Label> {  // text that names what stands beside it
 public:
  static constexpr std::string_view kTypeName = "Label";
  using ControlOf::ControlOf;
  // The control that the label names, or describes where it has a caption of its own; for mnemonics and
  // assistive technology.
  Control* buddy = nullptr;
};

class Line final : public ControlOf<Line> {  // a horizontal rule
 public:
  static constexpr std::string_view kTypeName = "Line";
  using ControlOf::ControlOf;
};

class CommandButton final : public ControlOf<CommandButton> {  // acts when it is clicked
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
  // What it shows instead of a caption, in the colour of texts; the accessible name says what it means.
  enum class Picture { None, ArrowUp, ArrowDown };
  Picture picture = Picture::None;
};

class CheckBox final : public ControlOf<CheckBox> {  // on, off or greyed
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

class OptionButton final : public ControlOf<OptionButton> {  // one of its container's is on
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

// What has entries, of which one may be selected.
class ListControl : public Control {
 public:
  using Control::Control;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  const std::vector<std::string>& items() const noexcept { return items_; }
  int listCount() const noexcept { return static_cast<int>(items_.size()); }
  // A number of the caller's that stays with its entry.
  std::int32_t itemData(int index) const { return itemData_[place(index)]; }
  void addItem(std::string text, std::int32_t data = 0) { insertItem(listCount(), std::move(text), data); }
  void insertItem(int index, std::string text, std::int32_t data = 0);
  void removeItem(int index);  // a selected entry leaves none selected
  void clear();
  int listIndex() const noexcept { return listIndex_; }  // -1: none
  void setListIndex(int index);
  void choose(int index);  // what a user's pick does
  std::string text() const { return listIndex_ < 0 ? std::string() : items_[place(listIndex_)]; }
  std::function<void()> onClick;
  int columns = 24;  // average characters that its natural width shows

 private:
  std::size_t place(int index) const;  // Error 380 where there is no such entry

  std::vector<std::string> items_;
  std::vector<std::int32_t> itemData_;
  int listIndex_ = -1;
};

class ComboBox final : public ControlOf<ComboBox, ListControl> {  // a drop-down list, no free text
 public:
  static constexpr std::string_view kTypeName = "ComboBox";
  using ControlOf::ControlOf;
};

class ListBox final : public ControlOf<ListBox, ListControl> {  // an open list
 public:
  static constexpr std::string_view kTypeName = "ListBox";
  using ControlOf::ControlOf;
  Properties properties() const override;

  void doubleClick(int index);  // what a user's does
  std::function<void()> onDblClick;
  int rows = 10;  // that its natural height shows

  // How the selected entry is painted; nothing: as the platform does.
  struct Colours {
    Colour back, fore;
    bool operator==(const Colours&) const = default;
  };
  const std::optional<Colours>& selectedColours() const noexcept { return selectedColours_; }
  void setSelectedColours(Colours colours) { change(selectedColours_, std::optional(colours)); }

 private:
  std::optional<Colours> selectedColours_;
};

class ListView final : public ControlOf<ListView, ListControl> {  // an open list below a header
 public:
  static constexpr std::string_view kTypeName = "ListView";
  using ControlOf::ControlOf;
  Properties properties() const override;

  const std::string& header() const noexcept { return header_; }
  void setHeader(std::string text) { change(header_, std::move(text)); }
  int rows = 10;  // that its natural height shows

 private:
  std::string header_;
};

class Menu final : public ControlOf<Menu> {  // a bar with one menu, called as its caption says
 public:
  static constexpr std::string_view kTypeName = "SmartUI";
  using ControlOf::ControlOf;

  struct Item {  // of a menu
    std::string key;
    std::string caption;
    bool operator==(const Item&) const = default;
  };
  const std::vector<Item>& items() const noexcept { return items_; }
  void setItems(std::vector<Item> items) { change(items_, std::move(items)); }

 private:
  std::vector<Item> items_;
};

class TextBox final : public ControlOf<TextBox> {  // one line that the user types
 public:
  static constexpr std::string_view kTypeName = "TextBox";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  const std::string& text() const noexcept { return text_; }
  void setText(std::string text);  // nothing is selected then
  // What code has selected, in characters; front ends keep what the user selects to themselves.
  int selStart() const noexcept { return selection_.first; }
  int selLength() const noexcept { return selection_.second; }
  void select(int start, int length) { change(selection_, std::pair(start, length)); }

  // The user's key is about to have its effect: a character to insert, or Backspace or a control character.
  // True where the handler discards it.
  std::function<bool(char32_t character)> onKeyPress;
  bool discards(char32_t character) const { return onKeyPress && onKeyPress(character); }
  std::function<void()> onChange;
  int columns = 30;  // average characters that its natural width shows

 private:
  std::string text_;
  std::pair<int, int> selection_{0, 0};
};

class ProgressBar final : public ControlOf<ProgressBar> {  // how far something has come
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
