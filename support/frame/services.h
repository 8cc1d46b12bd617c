// What every dialog works with.
#pragma once

#include "support/fonts/system_fonts.h"
#include "support/forms/window_port.h"
#include "support/help/help.h"
#include "support/strings/string_module.h"

namespace vmgv {

// The title of boxes that belong to no dialog.
inline constexpr const char* kApplicationTitle = "vmGridViews";

struct Services {
  WindowPort& window;
  SystemPort& system;
  MlStringModule& strings;
  SystemFonts& fonts;
  Help& help;
};

}  // namespace vmgv
