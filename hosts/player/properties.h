// Controls and their properties by the names that scripts use.
#pragma once

#include <string>
#include <vector>

#include "frontends/user/user.h"

namespace vmgv {

// "cboSort(2).text" is the property "text" of "cboSort(2)"; "form.caption" is the form's own.
struct PropertyName {
  std::string owner;
  std::string property;

  // CannotDo where the text holds no point between two names.
  static PropertyName from(const std::string& text);
  bool ofForm() const;
};

// By address, whatever the case; CannotDo naming controls that are near.
Control& findControl(const Form& form, const std::string& address);

// The property's value as text; CannotDo where there is no such property.
std::string propertyText(const Form& form, const PropertyName& name);

// A property that a script waits for, asked for every row of a long operation.
class Watch {
 public:
  Watch() = default;
  // CannotDo where there is no such property.
  Watch(const Form& form, PropertyName name, std::string wanted);
  bool reached() const { return bar_ ? bar_->value() == barValue_ : propertyText(*form_, name_) == wanted_; }

 private:
  const Form* form_ = nullptr;
  PropertyName name_;
  std::string wanted_;
  // A progress bar moves on every row: its number is compared, no text is made.
  const ProgressBar* bar_ = nullptr;
  int barValue_ = 0;
};

}  // namespace vmgv
