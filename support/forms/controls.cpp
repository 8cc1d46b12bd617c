#include "support/forms/controls.h"

#include "support/automation/error.h"
#include "support/forms/form.h"

namespace vmgv {
namespace {

constexpr int kInvalidPropertyValue = 380;

[[noreturn]] void refuse(const Control& control, const char* property, int value) {
  throw Error(kInvalidPropertyValue,
              control.address() + "." + property + " cannot be " + std::to_string(value));
}

void fire(const std::function<void()>& handler) {
  if (handler) handler();
}

Control::Properties with(Control::Properties all, std::string_view name, Value value) {
  all.emplace_back(name, std::move(value));
  return all;
}

}  // namespace

Control::Properties CommandButton::properties() const {
  return with(with(Control::properties(), "default", isDefault), "cancel", isCancel);
}

Control::Properties CheckBox::properties() const { return with(Control::properties(), "value", value_); }

void CheckBox::setValue(int value) {
  if (value < 0 || value > 2) refuse(*this, "value", value);
  if (change(value_, value)) fire(onClick);
}

Control::Properties OptionButton::properties() const { return with(Control::properties(), "value", value_); }

void OptionButton::setValue(bool value) {
  if (!change(value_, value) || !value) return;
  for (const auto& other : form().controls()) {
    auto* option = dynamic_cast<OptionButton*>(other.get());
    if (option && option != this && option->container() == container()) option->setValue(false);
  }
  fire(onClick);
}

Control::Properties ComboBox::properties() const {
  return with(with(with(Control::properties(), "listIndex", listIndex_), "text", text()), "listCount",
              static_cast<std::int32_t>(items_.size()));
}

void ComboBox::addItem(std::string text) {
  items_.push_back(std::move(text));
  changed();
}

void ComboBox::clear() {
  items_.clear();
  listIndex_ = -1;
  changed();
}

void ComboBox::setListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) refuse(*this, "listIndex", index);
  if (change(listIndex_, index) && index >= 0) fire(onClick);
}

void ComboBox::choose(int index) {
  const bool same = index == listIndex_;
  setListIndex(index);
  if (same && index >= 0) fire(onClick);
}

std::string ComboBox::text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

Control::Properties TextBox::properties() const { return with(Control::properties(), "text", text_); }

void TextBox::setText(std::string text) {
  if (change(text_, std::move(text))) fire(onChange);
}

Control::Properties ProgressBar::properties() const {
  return with(with(Control::properties(), "max", maximum_), "value", value_);
}

void ProgressBar::setMaximum(int maximum) {
  if (maximum < 1) refuse(*this, "max", maximum);
  change(maximum_, maximum);
  if (value_ > maximum) change(value_, maximum);
}

void ProgressBar::setValue(int value) {
  if (value < 0 || value > maximum_) refuse(*this, "value", value);
  change(value_, value);
}

}  // namespace vmgv
