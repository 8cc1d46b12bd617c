#include "support/forms/control.h"

#include "support/forms/form.h"

namespace vmgv {

Control::Control(Form& form, std::string name, Control* container, std::optional<int> index)
    : form_(form), name_(std::move(name)), container_(container), index_(index) {}

std::string Control::address() const { return index_ ? name_ + "(" + std::to_string(*index_) + ")" : name_; }

Control::Properties Control::properties() const {
  Properties all{{"caption", caption_}, {"enabled", enabled_}, {"visible", visible_}};
  if (!toolTip_.empty()) all.emplace_back("toolTip", toolTip_);
  return all;
}

void Control::changed() { form_.noteChange(*this); }

}  // namespace vmgv
