// Toolbars: rows of buttons that show a word or a picture; some stay pressed.
#pragma once

#include "support/forms/controls.h"

namespace vmgv {

class ToolButton final : public ControlOf<ToolButton> {
 public:
  static constexpr std::string_view kTypeName = "SmartUI";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  void click();
  std::function<void()> onClick;

  // What it shows beside or instead of its caption, in the colour of texts.
  enum class Picture {
    None,
    Bold,
    Italic,
    Underline,
    Strikeout,
    Delete,
    Previous,
    Next,
    ZoomIn,
    TwoPages,
    WholePage,
    PrintSetup,
    Print,
    Close
  };
  Picture picture = Picture::None;

  // A button that stays pressed is on, off or not set: nobody has decided. A click decides, for on at first.
  enum class State : int { On = -1, Off = 0, NotSet = 2 };
  bool toggles = false;
  State state() const noexcept { return state_; }
  void setState(State state) { change(state_, state); }  // no click

  // Clicks it wherever the focus is, except in a field, which has uses of its own for such keys.
  struct Shortcut {
    Key key;
    int shift;
    bool operator==(const Shortcut&) const = default;
  };
  std::optional<Shortcut> shortcut;

 private:
  State state_ = State::NotSet;
};

// Its buttons are named after it and their key, or their position from 1: "smuToolbar.add", "smuFont.1".
class Toolbar final : public PictureBox {
 public:
  Toolbar(Form& form, std::string name, Control* container, std::optional<int> index);
  std::string_view typeName() const noexcept override { return ToolButton::kTypeName; }

  ToolButton& addButton(const std::string& key = {});
  void addSeparator();  // what is added next stands a little apart
  const std::vector<ToolButton*>& buttons() const noexcept { return buttons_; }

 private:
  bool walk(Key key, int shift);

  std::vector<ToolButton*> buttons_;
  std::vector<layout::Node> groups_;
};

}  // namespace vmgv
