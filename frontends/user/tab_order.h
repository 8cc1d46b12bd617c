// Where the keyboard goes: the order of creation, one stop for each group of option buttons.
#pragma once

#include <functional>

#include "support/forms/form.h"

namespace vmgv {

// Visible and enabled, with its containers, and of a kind that takes the keyboard.
bool canTakeFocus(const Control& control);

// The next stop after `from` (null: before the first), round the end; null where the form has none.
Control* nextStop(const Form& form, const Control* from, bool backwards = false);

// The next option button of the group that can take the focus, round the end.
OptionButton& nextOption(const OptionButton& from, bool backwards);

}  // namespace vmgv
