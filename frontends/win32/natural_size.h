// The smallest comfortable sizes of native controls.
#pragma once

#include "frontends/win32/fonts.h"
#include "frontends/win32/units.h"
#include "support/forms/controls.h"

namespace vmgv {

SIZE naturalPixels(const Control& control, FontBook& fonts, const Units& units);
// What a container's border takes, in twips.
Insets naturalInsets(const Container& container, FontBook& fonts, const Units& units);

}  // namespace vmgv
