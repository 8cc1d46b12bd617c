#include "hosts/player/properties.h"

#include "hosts/player/near.h"
#include "hosts/player/words.h"
#include "support/automation/class_table.h"
#include "support/automation/convert.h"
#include "support/forms/tool_button.h"

namespace vmgv {
namespace {

std::string joined(const Control::Properties& properties) {
  std::string names;
  for (const auto& [name, value] : properties) names += (names.empty() ? "" : ", ") + std::string(name);
  return names;
}

// "smuToolbar.2" is the toolbar's second button, whatever its key; null where there is none.
Control* toolButton(const Form& form, const std::string& address) {
  const std::size_t point = address.rfind('.');
  if (point == std::string::npos) return nullptr;
  const auto* toolbar = dynamic_cast<const Toolbar*>(form.find(address.substr(0, point)));
  const auto position = wholeNumber({address.substr(point + 1), false});
  if (!toolbar || !position || *position < 1) return nullptr;
  const auto at = static_cast<std::size_t>(*position) - 1;
  return at < toolbar->buttons().size() ? toolbar->buttons()[at] : nullptr;
}

}  // namespace

PropertyName PropertyName::from(const std::string& text) {
  const std::size_t point = text.rfind('.');
  if (point == std::string::npos || point == 0 || point + 1 == text.size()) {
    throw CannotDo("expected CONTROL.PROPERTY, found \"" + text + "\"");
  }
  return {text.substr(0, point), text.substr(point + 1)};
}

bool PropertyName::ofForm() const { return lowerCase(owner) == "form"; }

Control& findControl(const Form& form, const std::string& address) {
  if (Control* control = form.find(address)) return *control;
  if (Control* button = toolButton(form, address)) return *button;
  std::vector<std::string> names;
  for (const auto& control : form.controls()) names.push_back(control->address());
  const std::string near = nearNames(address, names);
  throw CannotDo(form.name() + " has no control " + address + (near.empty() ? "" : "; near: " + near));
}

std::string propertyText(const Form& form, const PropertyName& name) {
  const Control::Properties properties =
      name.ofForm() ? Control::Properties{{"caption", form.caption()}, {"name", form.name()}}
                    : findControl(form, name.owner).properties();
  const std::string wanted = lowerCase(name.property);
  for (const auto& [known, value] : properties) {
    if (lowerCase(known) == wanted) return toText(value);
  }
  throw CannotDo(name.owner + " has no property " + name.property + "; it has " + joined(properties));
}

Watch::Watch(const Form& form, PropertyName name, std::string wanted)
    : form_(&form), name_(std::move(name)), wanted_(std::move(wanted)) {
  propertyText(form, name_);
  const auto number = wholeNumber({wanted_, false});
  if (name_.ofForm() || lowerCase(name_.property) != "value" || !number) return;
  bar_ = dynamic_cast<const ProgressBar*>(form.find(name_.owner));
  barValue_ = *number;
}

}  // namespace vmgv
