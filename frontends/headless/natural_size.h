// The smallest comfortable sizes of controls, as a desktop would give them.
#pragma once

#include "support/forms/controls.h"

namespace vmgv {

// In twips, whole pixels of `pixel` twips.
Size naturalSizeOf(const Control& control, int pixel);
Insets insetsOf(const Container& container, int pixel);

}  // namespace vmgv
