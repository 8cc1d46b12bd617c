#include "support/forms/tool_button.h"

#include <algorithm>

#include "support/forms/form.h"

namespace vmgv {

Control::Properties ToolButton::properties() const {
  Properties all = Control::properties();
  if (toggles) all.emplace_back("value", static_cast<std::int32_t>(state_));
  return all;
}

void ToolButton::click() {
  if (toggles) setState(state_ == State::On ? State::Off : State::On);
  if (onClick) onClick();
}

Toolbar::Toolbar(Form& form, std::string name, Control* container, std::optional<int> index)
    : PictureBox(form, std::move(name), container, index) {
  onKeyDown = [this](Key key, int shift) { return walk(key, shift); };
}

ToolButton& Toolbar::addButton(const std::string& key) {
  const std::string end = key.empty() ? std::to_string(buttons_.size() + 1) : key;
  auto& button = form().add<ToolButton>(name() + "." + end, this);
  buttons_.push_back(&button);
  if (groups_.empty()) addSeparator();
  groups_.back().children.push_back(layout::item(button));
  content = layout::row(groups_).gap(2);
  return button;
}

void Toolbar::addSeparator() { groups_.push_back(layout::row({}).gap(0)); }

// Left and Right go to the neighbours that can be used.
bool Toolbar::walk(Key key, int shift) {
  if (shift != 0 || (key != Key::Left && key != Key::Right)) return false;
  const auto from = std::find(buttons_.begin(), buttons_.end(), form().activeControl());
  if (from == buttons_.end()) return false;
  const std::size_t step = key == Key::Right ? 1 : buttons_.size() - 1;
  auto at = static_cast<std::size_t>(from - buttons_.begin());
  do {
    at = (at + step) % buttons_.size();
  } while (!buttons_[at]->enabled() || !buttons_[at]->visible());
  form().setFocus(*buttons_[at]);
  return true;
}

}  // namespace vmgv
