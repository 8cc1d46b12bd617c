#include "frontends/user/tab_order.h"

#include <algorithm>
#include <vector>

#include "frontends/user/user.h"

namespace vmgv {
namespace {

std::vector<OptionButton*> usableOptions(const OptionButton& member) {
  std::vector<OptionButton*> group;
  for (const auto& control : member.form().controls()) {
    auto* option = dynamic_cast<OptionButton*>(control.get());
    if (option && option->container() == member.container() && canTakeFocus(*option)) group.push_back(option);
  }
  return group;
}

// A group is entered at its selected button, or at its first where none is selected.
bool isStop(const Control& control) {
  if (!canTakeFocus(control)) return false;
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  if (!option || option->value()) return true;
  const std::vector<OptionButton*> group = usableOptions(*option);
  return group.front() == option &&
         std::none_of(group.begin(), group.end(), [](const OptionButton* other) { return other->value(); });
}

bool sameGroup(const Control* one, const Control& other) {
  return dynamic_cast<const OptionButton*>(one) && dynamic_cast<const OptionButton*>(&other) &&
         one->container() == other.container();
}

std::size_t stepped(std::size_t at, std::size_t count, bool backwards) {
  return (at + (backwards ? count - 1 : 1)) % count;
}

}  // namespace

bool canTakeFocus(const Control& control) { return control.focusable() && isUsable(control); }

Control* nextStop(const Form& form, const Control* from, bool backwards) {
  const auto& controls = form.controls();
  const std::size_t count = controls.size();
  const auto found = std::find_if(controls.begin(), controls.end(),
                                  [from](const auto& control) { return control.get() == from; });
  std::size_t at = found == controls.end() ? (backwards ? 0 : count - 1)
                                           : static_cast<std::size_t>(found - controls.begin());
  for (std::size_t tries = 0; tries < count; ++tries) {
    at = stepped(at, count, backwards);
    if (isStop(*controls[at]) && !sameGroup(from, *controls[at])) return controls[at].get();
  }
  return nullptr;
}

OptionButton& nextOption(const OptionButton& from, bool backwards) {
  const std::vector<OptionButton*> group = usableOptions(from);
  const auto at = static_cast<std::size_t>(std::find(group.begin(), group.end(), &from) - group.begin());
  return *group[stepped(at, group.size(), backwards)];
}

}  // namespace vmgv
