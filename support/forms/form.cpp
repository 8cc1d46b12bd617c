#include "support/forms/form.h"

#include <algorithm>

#include "support/automation/class_table.h"
#include "support/forms/tool_button.h"
#include "support/forms/window_port.h"

namespace vmgv {

Control* Form::find(std::string_view address) const {
  const std::string wanted = lowerCase(address);
  for (const auto& control : controls_) {
    if (lowerCase(control->address()) == wanted) return control.get();
  }
  return nullptr;
}

void Form::setCaption(std::string caption) {
  caption_ = std::move(caption);
  changes_.formChanged = true;
}

void Form::setFont(Font font) {
  font_ = std::move(font);
  changes_.formChanged = true;
}

void Form::setPointer(Pointer pointer) {
  pointer_ = pointer;
  changes_.formChanged = true;
}

void Form::setSize(Size size) {
  size_ = size;
  changes_.formChanged = true;
}

void Form::layOut(WindowPort& window) {
  layout::arrange(*this, window);
  if (onLaidOut) onLaidOut(window);
  smallest_ = size_;
}

void Form::resize(WindowPort& window, Size size) {
  layout::arrange(*this, window,
                  {std::max(size.width, smallest_.width), std::max(size.height, smallest_.height)});
}

Control* Form::focusMoved(Control* control) noexcept {
  return active_ == control ? nullptr : std::exchange(active_, control);
}

void Form::closeByUser() {
  if (onCloseByUser) {
    onCloseByUser();
  } else {
    close();
  }
}

bool Form::pressKey(Control* focused, Key key, int shift) {
  if (onKeyDown && onKeyDown(key, shift)) return true;
  for (const Control* at = focused; at; at = at->container()) {
    if (at->onKeyDown && at->onKeyDown(key, shift)) return true;
  }
  if (ToolButton* button = shortcut(focused, key, shift)) {
    button->click();
    return true;
  }
  if (shift != 0 || (key != Key::Return && key != Key::Escape)) return false;
  CommandButton* clicked = nullptr;
  if (key == Key::Return) clicked = dynamic_cast<CommandButton*>(focused);
  for (const auto& control : controls_) {
    if (clicked) break;
    auto* button = dynamic_cast<CommandButton*>(control.get());
    if (button && (key == Key::Return ? button->isDefault : button->isCancel)) clicked = button;
  }
  if (!clicked || !clicked->enabled() || !clicked->visible()) return false;
  clicked->click();
  return true;
}

ToolButton* Form::shortcut(const Control* focused, Key key, int shift) const {
  if (dynamic_cast<const TextBox*>(focused)) return nullptr;
  for (const auto& control : controls_) {
    auto* button = dynamic_cast<ToolButton*>(control.get());
    const bool meant = button && button->shortcut == ToolButton::Shortcut{key, shift};
    if (meant && button->enabled() && button->visible()) return button;
  }
  return nullptr;
}

Form::Changes Form::takeChanges() {
  for (Control* control : changes_.controls) control->pending_ = false;
  return std::exchange(changes_, {});
}

void Form::noteChange(Control& control) {
  if (std::exchange(control.pending_, true)) return;
  changes_.controls.push_back(&control);
}

}  // namespace vmgv
