// A dialog's window: its controls by name, its structure, and whether it is open.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/forms/controls.h"

namespace vmgv {

class WindowPort;

enum class Pointer : int { Default = 0, Hourglass = 11, ArrowHourglass = 13 };

class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // Controls are created in tab order; one that is made of others stands before these.
  template <class Kind>
  Kind& add(std::string name, Container* container = nullptr, std::optional<int> index = {}) {
    const auto place = static_cast<std::ptrdiff_t>(controls_.size());
    auto control = std::make_unique<Kind>(*this, std::move(name), container, index);
    Kind& added = *control;
    controls_.insert(controls_.begin() + place, std::move(control));
    return added;
  }

  const std::string& name() const noexcept { return name_; }
  const std::vector<std::unique_ptr<Control>>& controls() const noexcept { return controls_; }
  // By name and array index, as "cboSort(2)", whatever the case; null where there is none.
  Control* find(std::string_view address) const;

  const std::string& caption() const noexcept { return caption_; }
  void setCaption(std::string caption);
  const Font& font() const noexcept { return font_; }
  void setFont(Font font);
  Pointer pointer() const noexcept { return pointer_; }
  void setPointer(Pointer pointer);
  Size size() const noexcept { return size_; }  // of the inside, without title bar and border
  void setSize(Size size);

  layout::Node content;
  int marginUnits = 2;  // spacing units around the content
  // Turns the structure and the platform's natural sizes into rectangles, the smallest that fit.
  void layOut(WindowPort& window);
  // A window that the user may make larger, and again as small as it was laid out at first.
  bool resizable = false;
  Size smallest() const noexcept { return smallest_; }
  // Gives the content this size, or the smallest one where that is larger.
  void resize(WindowPort& window, Size size);
  std::function<void(WindowPort&)> onLaidOut;  // moves what structure alone cannot place

  // Modal life: open() before the platform shows it; the platform's loop ends once close() was called.
  bool isOpen() const noexcept { return open_; }
  void open() noexcept { open_ = true; }
  void close() noexcept { open_ = false; }
  // The user asked to close the window by its title bar.
  void closeByUser();
  std::function<void()> onCloseByUser;  // replaces the plain close()

  // Where the user starts; null means the first control that takes the focus.
  Control* initialFocus = nullptr;
  // The control that has the keyboard, or had it when the form was closed.
  Control* activeControl() const noexcept { return active_; }
  // The user moved it. Returns the control that he left, which the front end tells in its own good time; null
  // where there is none.
  Control* focusMoved(Control* control) noexcept;
  // Moves it as soon as the front end lets the control have it.
  void setFocus(Control& control) noexcept { wantedFocus_ = &control; }
  Control* takeWantedFocus() noexcept { return std::exchange(wantedFocus_, nullptr); }
  // Sees every key before any control does; true where it used the key up.
  std::function<bool(Key, int shift)> onKeyDown;
  // A key that the focused control (or null) did not use for itself: its own handler first and those of what
  // contains it, then shortcuts, Enter for the focused or default button and Esc for the cancel button. True
  // where something used it.
  bool pressKey(Control* focused, Key key, int shift = 0);

  // The controls changed since the last call; the form's own changes are told by `formChanged`.
  struct Changes {
    bool formChanged = false;
    std::vector<Control*> controls;
    bool empty() const noexcept { return !formChanged && controls.empty(); }
  };
  Changes takeChanges();

 private:
  friend class Control;
  void noteChange(Control& control);
  ToolButton* shortcut(const Control* focused, Key key, int shift) const;

  std::string name_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::string caption_;
  Font font_;
  Pointer pointer_ = Pointer::Default;
  Size size_, smallest_;
  bool open_ = false;
  Control* active_ = nullptr;
  Control* wantedFocus_ = nullptr;
  Changes changes_;
};

// Everything that a form shows, as JSON: names, kinds, values, rectangles.
std::string dump(const Form& form);

}  // namespace vmgv
