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

Control::Properties ListControl::properties() const {
  return with(with(with(Control::properties(), "listIndex", listIndex_), "text", text()), "listCount",
              static_cast<std::int32_t>(items_.size()));
}

std::size_t ListControl::place(int index) const {
  if (index < 0 || index >= listCount()) refuse(*this, "listIndex", index);
  return static_cast<std::size_t>(index);
}

void ListControl::insertItem(int index, std::string text, std::int32_t data) {
  if (index < 0 || index > listCount()) refuse(*this, "listIndex", index);
  items_.insert(items_.begin() + index, std::move(text));
  itemData_.insert(itemData_.begin() + index, data);
  if (listIndex_ >= index) ++listIndex_;
  changed();
}

void ListControl::removeItem(int index) {
  place(index);
  items_.erase(items_.begin() + index);
  itemData_.erase(itemData_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  changed();
}

void ListControl::clear() {
  items_.clear();
  itemData_.clear();
  listIndex_ = -1;
  changed();
}

void ListControl::setListIndex(int index) {
  if (index != -1) place(index);
  if (change(listIndex_, index) && index >= 0) fire(onClick);
}

void ListControl::choose(int index) {
  const bool same = index == listIndex_;
  setListIndex(index);
  if (same && index >= 0) fire(onClick);
}

Control::Properties ListBox::properties() const {
  Properties all = ListControl::properties();
  if (!selectedColours_) return all;
  return with(with(std::move(all), "selectedBackColor", selectedColours_->back), "selectedForeColor",
              selectedColours_->fore);
}

void ListBox::doubleClick(int index) {
  setListIndex(index);
  fire(onDblClick);
}

Control::Properties ListView::properties() const {
  return with(ListControl::properties(), "header", header_);
}

Control::Properties TextBox::properties() const { return with(Control::properties(), "text", text_); }

void TextBox::setText(std::string text) {
  selection_ = {0, 0};
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
